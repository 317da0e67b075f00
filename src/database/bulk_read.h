#pragma once

#include <QSqlQuery>
#include <QString>
#include <QVariantList>

#include <optional>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

// One select statement whose rows are read as texts, for lists of a hundred thousand
// rows, spoken to SQLite directly on the connection of the open database (see
// SharedSqliteHandle). Should the driver not share this program's SQLite library, it
// reads through RunSql. A failing statement is a fatal fault, as with RunSql.
class cBulkRead
{
public:
    // Prepares, binds the values in order and runs; positioned before the first row.
    explicit cBulkRead(const QString &statement, const QVariantList &values = {});
    ~cBulkRead();
    cBulkRead(const cBulkRead &) = delete;
    cBulkRead &operator=(const cBulkRead &) = delete;

    // Moves to the next row; false after the last.
    bool Next();
    // A column of the row in UTF-8 without a copy, valid until the next call: "" for
    // null, a number as the engine writes it. For reading many rows straight into one
    // buffer.
    std::string_view Utf8View(int column) const;

private:
    [[noreturn]] void RaiseFault() const;
    void Bind(int position, const QVariant &value);

    QString statement_;
    sqlite3 *handle_ = nullptr;
    sqlite3_stmt *prepared_ = nullptr;
    std::optional<QSqlQuery> fallback_;
    mutable QByteArray fallbackText_;
};
