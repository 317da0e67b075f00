#pragma once

#include <QSqlQuery>
#include <QString>
#include <QVariant>
#include <QVariantList>

// Every statement runs on the one open database. Values from a person or a file
// are always bound, never joined into the text. A failing statement is a fatal
// fault of the run, with the engine's own words in its description.

// Prepares, binds the values in order and runs the statement; the query is
// positioned before its first row.
QSqlQuery RunSql(const QString &statement, const QVariantList &values = {});
// The first column of the first row, or a null value when there is no row.
QVariant SqlScalar(const QString &statement, const QVariantList &values = {});

// One statement prepared once and run many times, for passes over many rows.
class cPreparedSql
{
public:
    explicit cPreparedSql(const QString &statement);
    // Binds the values in order and runs; the query is returned for reading.
    QSqlQuery &Run(const QVariantList &values);

private:
    QString statement_;
    QSqlQuery query_;
};

// A unit of work that is written whole or not at all. Nested units are savepoints
// inside the outer one. Leaving the scope without Commit rolls the unit back.
class cTransaction
{
public:
    cTransaction();
    ~cTransaction();
    cTransaction(const cTransaction &) = delete;
    cTransaction &operator=(const cTransaction &) = delete;

    void Commit();

private:
    QString name_;
    bool open_ = true;
};

// Values as the records keep them ("" for null) turned into what the database holds.
QVariant TextOrNull(const QString &text);
QVariant WholeOrNull(const QString &text);
QVariant NumberOrNull(const QString &text);
// A date typed as dd/mm/yyyy stored as yyyy-mm-dd; "" or an unreadable date is null.
QVariant DateOrNull(const QString &displayDate);
// What the database holds turned back into record text: null gives "".
QString TextOf(const QVariant &value);
// A stored number as record text with no trailing ".0"; null gives "".
QString NumberTextOf(const QVariant &value);
// A stored yyyy-mm-dd date as dd/mm/yyyy; null gives "".
QString DisplayDateOf(const QVariant &value);
