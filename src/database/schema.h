#pragma once

#include <QList>
#include <QString>

// The tables of the data file, field by field, in the order the file keeps them.
enum class FieldType { Text, Long, Integer, Double, Date, Boolean };

struct FieldDefinition
{
    QString name;
    FieldType type;
    int size = 0;               // characters, for Text only
    bool refusesEmpty = false;  // null is accepted, "" is not
};

struct IndexDefinition
{
    QString name;
    QStringList fields;
};

struct TableDefinition
{
    QString name;
    QList<FieldDefinition> fields;
    QList<IndexDefinition> indexes;
};

namespace Schema {
const TableDefinition &CntrlTable();
const TableDefinition &MasterTable();
const TableDefinition &VelmoraTable();
const TableDefinition &PlayerTable();
const TableDefinition &ResultTable();
const TableDefinition &ClubTable();
const TableDefinition &BCFMastTable();

// The column clause of one field, with the checks that keep its type and size.
QString ColumnClause(const FieldDefinition &field);
// Creates the table and then its indexes, inside the caller's transaction.
void CreateTable(const TableDefinition &table);
} // namespace Schema
