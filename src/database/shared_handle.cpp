#include "database/shared_handle.h"

#include "database/connection.h"
#include "database/sql.h"

#include <QSqlDriver>

#include <sqlite3.h>

#include <optional>

namespace {

bool handleRefused = false;
// Whether the driver's SQLite is the one this program links: the driver's library
// does not change while the program runs, so the engine is asked once.
std::optional<bool> sameLibrary;

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
    if (!sameLibrary)
        sameLibrary = SqlScalar(QStringLiteral("SELECT sqlite_source_id()")).toString() ==
                      QString::fromLatin1(sqlite3_sourceid());
    return *sameLibrary ? connection : nullptr;
}
