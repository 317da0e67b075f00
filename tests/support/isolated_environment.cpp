#include "isolated_environment.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <cstdlib>

void IsolateEnvironment(const QString &root)
{
    for (const char *folder : {"/home", "/config", "/data", "/cache", "/runtime"})
        QDir().mkpath(root + QString::fromLatin1(folder));
    const QByteArray base = root.toLocal8Bit();
    setenv("HOME", QByteArray(base + "/home").constData(), 1);
    setenv("XDG_CONFIG_HOME", QByteArray(base + "/config").constData(), 1);
    setenv("XDG_DATA_HOME", QByteArray(base + "/data").constData(), 1);
    setenv("XDG_CACHE_HOME", QByteArray(base + "/cache").constData(), 1);
    setenv("XDG_RUNTIME_DIR", QByteArray(base + "/runtime").constData(), 1);
    QFile::setPermissions(root + QStringLiteral("/runtime"),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QStandardPaths::setTestModeEnabled(true);
}
