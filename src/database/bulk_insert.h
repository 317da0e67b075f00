#pragma once

#include <QByteArrayView>
#include <QString>
#include <QVariantList>

#include <memory>

class cPreparedSql;
struct sqlite3;
struct sqlite3_stmt;

// One insert statement run for every row of a long list, spoken to SQLite directly on
// the connection of the open database (see SharedSqliteHandle). Should the driver not
// share this program's SQLite library, it goes through cPreparedSql.
// A failing row is a fatal fault, as with RunSql.
//
// A row is bound value by value and written by Step; a value not bound in a row is
// null. Text bound with BindText must stay in place until Step.
class cBulkInsert
{
public:
    explicit cBulkInsert(const QString &statement);
    ~cBulkInsert();
    cBulkInsert(const cBulkInsert &) = delete;
    cBulkInsert &operator=(const cBulkInsert &) = delete;

    // Columns count from 0, in the order of the statement's values.
    void BindText(int column, QByteArrayView utf8);
    void BindDouble(int column, double value);
    void BindValue(int column, const QVariant &value);
    void Step();

    // Binds the values in order and writes the row.
    void Run(const QVariantList &values);

private:
    [[noreturn]] void RaiseFault() const;

    QString statement_;
    sqlite3 *handle_ = nullptr;
    sqlite3_stmt *prepared_ = nullptr;
    std::unique_ptr<cPreparedSql> fallback_;
    QVariantList fallbackValues_;
    QList<QByteArray> texts_;
};
