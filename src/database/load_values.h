#pragma once

#include "database/schema.h"

#include <QString>
#include <QVariant>

class cDbaseTable;

// The reason why a load or an import stops: a file that can't be read, a field the
// file lacks, a value that doesn't fit its field. It never leaves the routine that
// loads; the routine rolls its work back and tells the person why.
struct cLoadFault
{
    QString reason;
};

[[noreturn]] void RaiseLoadFault(const QString &reason);

// What a source value from a list or a DOS file turns into in the field of the data
// file, as that field's type and size allow. Null stays null. Text is trimmed on
// request. A value that does not fit (too long, not a number, not a date, out of
// range) raises a load fault that names the row, the field and the value.
class cValueMapper
{
public:
    // place names the row for messages: "Row 12 of C:\Lists\Players.dbf".
    void setPlace(const QString &place) { place_ = place; }

    QVariant Stored(const FieldDefinition &field, const QVariant &value, bool trimmed,
                    const QString &sourceName) const;
    QVariant Text(const FieldDefinition &field, const QVariant &value, bool trimmed,
                  const QString &sourceName) const;
    QVariant Number(const FieldDefinition &field, const QVariant &value,
                    const QString &sourceName) const;
    QVariant Date(const FieldDefinition &field, const QVariant &value,
                  const QString &sourceName) const;
    QVariant Boolean(const FieldDefinition &field, const QVariant &value,
                     const QString &sourceName) const;

private:
    [[noreturn]] void Refuse(const QString &sourceName, const QVariant &value,
                             const QString &what) const;

    QString place_;
};

// The value as the text that a record would show: numbers without a trailing ".0",
// dates as dd/mm/yyyy.
QString SourceText(const QVariant &value);
// The numeric value of a source value: true when it has one.
bool SourceNumber(const QVariant &value, double *number);
// Text of a file without its control characters (NUL, tab, line breaks and the
// like), which no field of the database holds.
QString WithoutControlCharacters(const QString &text);
// A value of a file as a message quotes it: at most 60 characters, cut with "…",
// so that a huge field never makes a huge message box.
QString MessageExcerpt(const QString &value);
// The place of the current row of a table, for messages.
QString RowPlace(const cDbaseTable &table);
// A field of a table definition by name; a name that the table lacks is a fault of
// the program.
const FieldDefinition &FieldOf(const TableDefinition &table, const QString &name);
int ColumnOf(const TableDefinition &table, const QString &name);
// "INSERT INTO <table> (<every field>) VALUES (?, ...)".
QString InsertStatement(const TableDefinition &table);
// Opens a source table, refusing with a load fault when it can't be opened or lacks
// one of the named fields.
void OpenSource(cDbaseTable &table, const QString &folder, const QString &name,
                const QStringList &requiredFields);
