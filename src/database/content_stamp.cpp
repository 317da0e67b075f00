#include "database/content_stamp.h"

#include "database/shared_handle.h"

#include <sqlite3.h>

namespace {

quint64 openings = 0;

} // namespace

std::optional<cContentStamp> ContentStamp()
{
    sqlite3 *handle = SharedSqliteHandle();
    if (!handle)
        return std::nullopt;
    // Every row that an insert, update or delete writes on the connection counts,
    // whether through Qt's driver or straight through the engine.
    return cContentStamp{openings, qint64(sqlite3_total_changes64(handle))};
}

void NoteDatabaseOpened()
{
    ++openings;
}
