#include "database/schema.h"

#include "database/sql.h"

namespace {

FieldDefinition Text(const char *name, int size, bool refusesEmpty = false)
{
    return {QString::fromLatin1(name), FieldType::Text, size, refusesEmpty};
}
FieldDefinition Long(const char *name)
{
    return {QString::fromLatin1(name), FieldType::Long};
}
FieldDefinition Integer(const char *name)
{
    return {QString::fromLatin1(name), FieldType::Integer};
}
FieldDefinition Double(const char *name)
{
    return {QString::fromLatin1(name), FieldType::Double};
}
FieldDefinition Date(const char *name)
{
    return {QString::fromLatin1(name), FieldType::Date};
}
FieldDefinition Boolean(const char *name)
{
    return {QString::fromLatin1(name), FieldType::Boolean};
}
IndexDefinition Index(const char *name, std::initializer_list<const char *> fields)
{
    IndexDefinition index{QString::fromLatin1(name), {}};
    for (const char *field : fields)
        index.fields.append(QString::fromLatin1(field));
    return index;
}

QString Quoted(const QString &name)
{
    return u'"' + name + u'"';
}

} // namespace

namespace Schema {

const TableDefinition &CntrlTable()
{
    static const TableDefinition table{
        QStringLiteral("Cntrl"),
        {Text("Vrsn", 10, true), Date("AgeDate"), Integer("MaxDisplayAge"), Integer("MaxJuniorAge"),
         Text("BCFGradeChars", 20), Text("UserDefined1", 20), Text("UserDefined2", 20),
         Text("UserDefined3", 20), Text("UserDefined4", 20)},
        {}};
    return table;
}

const TableDefinition &MasterTable()
{
    static const TableDefinition table{
        QStringLiteral("Master"),
        {Long("MasterId"),     Text("Surname", 20),  Text("Forename", 15), Text("MrTitle", 4),
         Text("Address1", 30), Text("Address2", 30), Text("Address3", 30), Text("Address4", 30),
         Text("Postcode", 8),  Text("Phone", 18),    Text("eMail", 40),    Date("DOB"),
         Integer("Age"),       Text("Gender", 1),    Text("Special1", 1),  Text("Special2", 1),
         Text("Special3", 1),  Text("Special4", 1),  Text("Club", 25),     Text("ClubCode", 4),
         Text("ClubName", 30), Text("School", 25),   Text("Union", 1),     Text("Nation", 3),
         Text("Code", 7),      Integer("Grade"),     Text("GLett", 1),     Integer("RGrade"),
         Text("RLett", 1),     Integer("ELO"),       Text("GMTitle", 2),   Text("ECode", 8)},
        {Index("MasterIndex", {"MasterId"})}};
    return table;
}

const TableDefinition &VelmoraTable()
{
    static const TableDefinition table{
        QStringLiteral("Velmora"),
        {Long("TId"),         Text("Title", 40),  Text("Tourn", 40),  Date("TDate"),
         Date("TEnd"),        Text("TType", 1),   Integer("Rounds"),  Integer("CurrRound"),
         Integer("DefGrade"), Text("TText1", 60), Text("TText2", 60), Text("TText3", 60),
         Text("TText4", 60),  Text("TText5", 60), Text("TText6", 60), Boolean("Locked"),
         Text("Code", 4),     Text("Type", 1),    Text("Desc", 30),   Text("Union", 1)},
        {Index("VelmoraIndex", {"TId"})}};
    return table;
}

const TableDefinition &PlayerTable()
{
    static const TableDefinition table{
        QStringLiteral("Player"),
        {Long("MasterId"),     Long("TId"),          Long("PId"),         Text("Surname", 20),
         Text("Forename", 15), Date("DOB"),          Integer("Age"),      Text("Club", 25),
         Text("ClubCode", 4),  Text("ClubName", 30), Text("School", 25),  Text("Code", 7),
         Integer("Grade"),     Text("GLett", 1),     Integer("RGrade"),   Text("RLett", 1),
         Integer("ELO"),       Text("GMTitle", 2),   Text("ECode", 8),    Integer("Pin"),
         Double("Score"),      Long("GPoints"),      Integer("NumGames"), Integer("Place"),
         Boolean("Withdrawn"), Long("ACount"),       Long("EScore"),      Long("EGames"),
         Long("EPoints"),      Text("EIndex", 5),    Text("BIndex", 3),   Text("RIndex", 3),
         Text("BCFMod", 1),    Boolean("Active")},
        {Index("PlayerIndex", {"TId", "PId"})}};
    return table;
}

const TableDefinition &ResultTable()
{
    static const TableDefinition table{QStringLiteral("Result"),
                                       {Long("TId"), Integer("Round"), Integer("Board"),
                                        Long("White"), Long("Black"), Text("Result", 1)},
                                       {Index("ResultIndex", {"TId", "Round", "Board"})}};
    return table;
}

const TableDefinition &ClubTable()
{
    static const TableDefinition table{
        QStringLiteral("Club"),
        {Text("Code", 4, true), Text("Club", 30), Text("County", 4), Text("Union", 6)},
        {Index("ClubIndex", {"Club"})}};
    return table;
}

const TableDefinition &BCFMastTable()
{
    static const TableDefinition table{
        QStringLiteral("BCFMast"),
        {Text("Ref", 8, true), Text("Name", 26), Text("Sex", 4),   Text("Age", 5, true),
         Text("Cat", 1),       Double("Grade"),  Text("Cat1", 1),  Double("Grade1"),
         Text("RCat", 1),      Double("RGrade"), Text("RCat1", 1), Double("RGrade1"),
         Date("DOB"),          Text("Club1", 4), Text("Club2", 4), Text("Club3", 4),
         Text("Club4", 4),     Text("Club5", 4), Text("Club6", 4), Double("FIDECode")},
        {Index("BCFMastIndex", {"Ref"})}};
    return table;
}

QString ColumnClause(const FieldDefinition &field)
{
    const QString name = Quoted(field.name);
    const QString nullOr = name + QStringLiteral(" IS NULL OR ");
    switch (field.type) {
    case FieldType::Text: {
        // Text affinity turns any number into text before the check runs, so the
        // length alone keeps the field; a null has no length and passes.
        QString check = QStringLiteral("length(") + name + QStringLiteral(") <= ") +
                        QString::number(field.size);
        if (field.refusesEmpty)
            check += QStringLiteral(" AND ") + name + QStringLiteral(" <> ''");
        return name + QStringLiteral(" TEXT(") + QString::number(field.size) +
               QStringLiteral(") CHECK (") + check + u')';
    }
    case FieldType::Long:
        return name + QStringLiteral(" INTEGER CHECK (") + nullOr + QStringLiteral("(typeof(") +
               name + QStringLiteral(") = 'integer' AND ") + name +
               QStringLiteral(" BETWEEN -2147483648 AND 2147483647))");
    case FieldType::Integer:
        return name + QStringLiteral(" SMALLINT CHECK (") + nullOr + QStringLiteral("(typeof(") +
               name + QStringLiteral(") = 'integer' AND ") + name +
               QStringLiteral(" BETWEEN -32768 AND 32767))");
    case FieldType::Double:
        return name + QStringLiteral(" DOUBLE CHECK (") + nullOr + QStringLiteral("typeof(") +
               name + QStringLiteral(") IN ('real', 'integer'))");
    case FieldType::Date:
        // A date is kept as yyyy-mm-dd text, so that it sorts and reads back exactly.
        // date() gives null for anything but a real date, and null for null.
        return name + QStringLiteral(" DATE CHECK (date(") + name + QStringLiteral(") IS ") + name +
               u')';
    case FieldType::Boolean:
        return name + QStringLiteral(" BOOLEAN CHECK (") + nullOr + name +
               QStringLiteral(" IN (0, 1))");
    }
    return name;
}

void CreateTable(const TableDefinition &table)
{
    QStringList columns;
    for (const FieldDefinition &field : table.fields)
        columns.append(ColumnClause(field));
    RunSql(QStringLiteral("CREATE TABLE ") + Quoted(table.name) + QStringLiteral(" (") +
           columns.join(QStringLiteral(", ")) + u')');
    for (const IndexDefinition &index : table.indexes) {
        QStringList fields;
        for (const QString &field : index.fields)
            fields.append(Quoted(field));
        RunSql(QStringLiteral("CREATE INDEX ") + Quoted(index.name) + QStringLiteral(" ON ") +
               Quoted(table.name) + QStringLiteral(" (") + fields.join(QStringLiteral(", ")) +
               u')');
    }
}

} // namespace Schema
