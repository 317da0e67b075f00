#pragma once

#include <QList>
#include <QString>
#include <QVariant>
#include <QVariantList>

// What a record class writes to its row: the fields in the order the record writes
// them, each with the value the database is to hold. The two statements below name
// every field in double quotes, so Desc, Union, Round and Result need no care, and
// bind every value.
struct cFieldValue
{
    QString field;
    QVariant value;
};
using cFieldValues = QList<cFieldValue>;

// The text as it stands; an empty text is stored as an empty string, never as null.
QVariant TextOrEmpty(const QString &text);
// A flag as the database holds it: 1 or 0.
QVariant FlagValue(bool flag);
// A number typed as text, rounded to a whole number the way a fraction reaches a
// whole-number field (halves to the even neighbour); "" gives null.
QVariant RoundedWholeOrNull(const QString &text);

// Adds one row to the table.
void InsertRow(const QString &table, const cFieldValues &fields);
// Writes the fields over the first row that the condition finds. A row that is not
// there is a fatal fault, as editing a record that has gone is.
void UpdateFirstRow(const QString &table, const cFieldValues &fields, const QString &condition,
                    const QVariantList &conditionValues);
