#pragma once

#include <QByteArray>
#include <QString>
#include <QVariantList>

#include <memory>

class cPreparedSql;
struct sqlite3;
struct sqlite3_stmt;

// One insert statement run for every row of a long list. It speaks to SQLite
// directly on the connection of the open database, because Qt's binding costs more
// than the write itself for a list of a hundred thousand players. Should the
// driver not share this program's SQLite library, it goes through cPreparedSql.
// A failing row is a fatal fault, as with RunSql.
class cBulkInsert
{
public:
    explicit cBulkInsert(const QString &statement);
    ~cBulkInsert();
    cBulkInsert(const cBulkInsert &) = delete;
    cBulkInsert &operator=(const cBulkInsert &) = delete;

    void Run(const QVariantList &values);

private:
    [[noreturn]] void RaiseFault() const;

    QString statement_;
    sqlite3 *handle_ = nullptr;
    sqlite3_stmt *prepared_ = nullptr;
    std::unique_ptr<cPreparedSql> fallback_;
    QByteArray utf8_;
};
