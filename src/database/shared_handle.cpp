#include "database/shared_handle.h"

#include "database/connection.h"
#include "database/sql.h"

#include <QSqlDriver>

#include <sqlite3.h>

namespace {

bool handleRefused = false;

} // namespace

void setSharedHandleRefused(bool refused)
{
    handleRefused = refused;
}

sqlite3 *SharedSqliteHandle()
{
    if (handleRefused)
        return nullptr;
    const QVariant handle = SessionConnection().driver()->handle();
    if (!handle.isValid() || qstrcmp(handle.typeName(), "sqlite3*") != 0)
        return nullptr;
    sqlite3 *connection = *static_cast<sqlite3 *const *>(handle.constData());
    if (!connection)
        return nullptr;
    const QString version = SqlScalar(QStringLiteral("SELECT sqlite_source_id()")).toString();
    if (version != QString::fromLatin1(sqlite3_sourceid()))
        return nullptr;
    return connection;
}
