#include "support/test_environment.h"

#include "support/isolated_environment.h"

#include "base/user_interaction.h"
#include "database/database.h"
#include "database/sql.h"
#include "session/control.h"
#include "session/globals.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

void PrepareIsolatedEnvironment()
{
    static QTemporaryDir home;
    IsolateEnvironment(home.path());
}

cTestSession::cTestSession(Start start)
{
    CreateSessionObjects();
    Database().setDataDir(QDir::toNativeSeparators(folder_.path()));
    if (start == Start::NewDatabase) {
        Database().Create();
        OpenSessionDatabase();
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
    QString source = QStringLiteral(VELMORA_SAMPLE_DATA) + u'/' + relativePath;
    if (!QFileInfo::exists(source))
        source = QStringLiteral(VELMORA_SHARED_DATA) + u'/' + relativePath;
    const QString target = folder + u'/' + QFileInfo(relativePath).fileName();
    QFile::remove(target);
    if (!QFile::copy(source, target))
        return QString();
    QFile::setPermissions(target, QFile::ReadOwner | QFile::WriteOwner);
    return target;
}

bool CopySharedDosFolder(const QString &folder)
{
    QDir().mkpath(folder);
    for (const char *table : {"Master.dbf", "Velmora.dbf", "Players.dbf", "Result.dbf", "Club.dbf"})
        if (CopySharedFile(QStringLiteral("dos/") + QString::fromLatin1(table), folder).isEmpty())
            return false;
    return true;
}

qint64 RowCount(const QString &table)
{
    return SqlScalar(QStringLiteral("SELECT count(*) FROM \"") + table + u'"').toLongLong();
}
