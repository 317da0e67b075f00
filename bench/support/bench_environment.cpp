#include "bench_environment.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <algorithm>
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

double Median(std::vector<double> values)
{
    if (values.empty())
        return 0.0;
    std::sort(values.begin(), values.end());
    const std::size_t middle = values.size() / 2;
    return values.size() % 2 ? values[middle] : (values[middle - 1] + values[middle]) / 2.0;
}
