#include "support/test_environment.h"

#include "database/database.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/user_interaction.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <cstdlib>

void PrepareIsolatedEnvironment()
{
    static QTemporaryDir home;
    const QByteArray root = home.path().toLocal8Bit();
    for (const char *folder : {"/home", "/config", "/data", "/cache", "/runtime"})
        QDir().mkpath(home.path() + QString::fromLatin1(folder));
    setenv("HOME", QByteArray(root + "/home").constData(), 1);
    setenv("XDG_CONFIG_HOME", QByteArray(root + "/config").constData(), 1);
    setenv("XDG_DATA_HOME", QByteArray(root + "/data").constData(), 1);
    setenv("XDG_CACHE_HOME", QByteArray(root + "/cache").constData(), 1);
    setenv("XDG_RUNTIME_DIR", QByteArray(root + "/runtime").constData(), 1);
    QFile::setPermissions(home.path() + QStringLiteral("/runtime"),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QStandardPaths::setTestModeEnabled(true);
}

cTestSession::cTestSession(Start start)
{
    CreateSessionObjects();
    Database().setDataDir(QDir::toNativeSeparators(folder_.path()));
    if (start == Start::NewDatabase) {
        Database().Create();
        Database().OpenDb();
        Control().Load(QStringLiteral("Version"));
        Database().CheckVersion();
        Control().Load(QStringLiteral("All"));
    }
}

cTestSession::~cTestSession()
{
    DestroySessionObjects();
    InstallInteraction(nullptr);
}

QString cTestSession::DataDir() const
{
    return Database().DataDir();
}

QString cTestSession::Path(const QString &name) const
{
    return folder_.path() + u'/' + name;
}

QString CopySharedFile(const QString &relativePath, const QString &folder)
{
    const QString source = QStringLiteral(VELMORA_SHARED_DATA) + u'/' + relativePath;
    const QString target = folder + u'/' + QFileInfo(relativePath).fileName();
    QFile::remove(target);
    if (!QFile::copy(source, target))
        return QString();
    QFile::setPermissions(target, QFile::ReadOwner | QFile::WriteOwner);
    return target;
}
