#include "database/database.h"

#include "base/app_info.h"
#include "base/common.h"
#include "base/fatal_fault.h"
#include "base/progress.h"
#include "base/user_interaction.h"
#include "database/bulk_insert.h"
#include "database/dbase_table.h"
#include "database/load_values.h"
#include "database/schema.h"
#include "database/sql.h"

#include <QDate>
#include <QDir>

// The DOS predecessor kept its data in dBase tables of one folder, with field names
// of its own (Master_Id, T_Date, ...). A new database may start from such a folder.

namespace {

enum class Special { None, MasterGrades, TournamentDates };

struct cFieldRule
{
    const char *source;
    const char *destination;
    bool trimmed;
};

struct cImportPlan
{
    const char *sourceTable;
    const TableDefinition &destination;
    const char *progressText;
    QList<const char *> keys;       // source fields that must hold numbers
    QList<const char *> emptyFirst; // destination fields set to "" before the row
    QList<cFieldRule> rules;
    Special special = Special::None;
};

constexpr bool Trim = true;
constexpr bool AsItStands = false;

const cImportPlan &MasterPlan()
{
    static const cImportPlan plan{
        "Master",
        Schema::MasterTable(),
        "Copying the Master table from the Velmora DOS database",
        {"Master_Id"},
        {"MrTitle",  "Forename", "Surname",  "Address1", "Address2", "Address3", "Address4",
         "Postcode", "Phone",    "Gender",   "eMail",    "Club",     "School",   "Union",
         "Nation",   "GMTitle",  "GLett",    "RLett",    "ECode",    "Code",     "Special1",
         "Special2", "Special3", "Special4", "ClubCode", "ClubName"},
        {{"Master_Id", "MasterId", Trim},
         {"MrTitle", "MrTitle", Trim},
         {"Forename", "Forename", Trim},
         {"Surname", "Surname", Trim},
         {"Address1", "Address1", Trim},
         {"Address2", "Address2", Trim},
         {"Address3", "Address3", Trim},
         {"Address4", "Address4", Trim},
         {"Postcode", "Postcode", Trim},
         {"Phone", "Phone", Trim},
         {"Gender", "Gender", AsItStands},
         {"DOB", "DOB", AsItStands},
         {"Age", "Age", AsItStands},
         {"eMail", "eMail", Trim},
         {"Club", "Club", Trim},
         {"School", "School", Trim},
         {"Union", "Union", Trim},
         {"Nation", "Nation", Trim},
         {"GMTitle", "GMTitle", Trim},
         {"ELO", "ELO", Trim},
         {"ECode", "ECode", Trim},
         {"Code", "Code", Trim},
         {"Special1", "Special1", AsItStands},
         {"Special2", "Special2", AsItStands},
         {"Special3", "Special3", AsItStands},
         {"Special4", "Special4", AsItStands},
         {"ClubCode", "ClubCode", Trim},
         {"ClubName", "ClubName", Trim}},
        Special::MasterGrades};
    return plan;
}

const cImportPlan &VelmoraPlan()
{
    static const cImportPlan plan{"Velmora",
                                  Schema::VelmoraTable(),
                                  "Copying the Tournament table from the Velmora DOS database",
                                  {"T_Id"},
                                  {"Title", "Tourn", "TType", "TText1", "TText2", "TText3",
                                   "TText4", "TText5", "TText6", "Code", "Type", "Desc", "Union"},
                                  {{"T_Id", "TId", Trim},
                                   {"Title", "Title", Trim},
                                   {"Tourn", "Tourn", Trim},
                                   {"T_Type", "TType", Trim},
                                   {"Rounds", "Rounds", Trim},
                                   {"Curr_Round", "CurrRound", AsItStands},
                                   {"Def_Grade", "DefGrade", Trim},
                                   {"T_Text1", "TText1", Trim},
                                   {"T_Text2", "TText2", Trim},
                                   {"T_Text3", "TText3", Trim},
                                   {"T_Text4", "TText4", Trim},
                                   {"T_Text5", "TText5", Trim},
                                   {"T_Text6", "TText6", Trim},
                                   {"Locked", "Locked", AsItStands},
                                   {"Code", "Code", Trim},
                                   {"Type", "Type", Trim},
                                   {"Desc", "Desc", Trim},
                                   {"Union", "Union", Trim}},
                                  Special::TournamentDates};
    return plan;
}

const cImportPlan &PlayerPlan()
{
    static const cImportPlan plan{"Players",
                                  Schema::PlayerTable(),
                                  "Copying the Player table from the Velmora DOS database",
                                  {"Master_Id", "T_Id", "P_Id"},
                                  {"Forename", "Surname", "Club", "School", "GMTitle", "GLett",
                                   "RLett", "ECode", "Code", "EIndex", "BIndex", "RIndex", "BCFMod",
                                   "ClubCode", "ClubName"},
                                  {{"Master_Id", "MasterId", Trim},
                                   {"T_Id", "TId", Trim},
                                   {"P_Id", "PId", Trim},
                                   {"Pin", "Pin", Trim},
                                   {"Forename", "Forename", Trim},
                                   {"Surname", "Surname", Trim},
                                   {"DOB", "DOB", Trim},
                                   {"Age", "Age", AsItStands},
                                   {"Club", "Club", Trim},
                                   {"School", "School", Trim},
                                   {"GMTitle", "GMTitle", Trim},
                                   {"Grade", "Grade", Trim},
                                   {"GLett", "GLett", Trim},
                                   {"RGrade", "RGrade", Trim},
                                   {"RLett", "RLett", Trim},
                                   {"ELO", "ELO", Trim},
                                   {"ECode", "ECode", Trim},
                                   {"Code", "Code", Trim},
                                   {"Score", "Score", Trim},
                                   {"G_Points", "GPoints", Trim},
                                   {"Num_Games", "NumGames", Trim},
                                   {"Place", "Place", Trim},
                                   {"Withdrawn", "Withdrawn", AsItStands},
                                   {"ACount", "ACount", Trim},
                                   {"Escore", "EScore", Trim},
                                   {"EGames", "EGames", Trim},
                                   {"EPoints", "EPoints", Trim},
                                   {"EIndex", "EIndex", Trim},
                                   {"BIndex", "BIndex", Trim},
                                   {"RIndex", "RIndex", Trim},
                                   {"BCFMod", "BCFMod", Trim},
                                   {"Active", "Active", Trim},
                                   {"ClubCode", "ClubCode", Trim},
                                   {"ClubName", "ClubName", Trim}}};
    return plan;
}

const cImportPlan &ResultPlan()
{
    static const cImportPlan plan{"Result",
                                  Schema::ResultTable(),
                                  "Copying the Results table from the Velmora DOS database",
                                  {"T_Id", "Round", "Board"},
                                  {"Result"},
                                  {{"T_Id", "TId", Trim},
                                   {"Round", "Round", Trim},
                                   {"Board", "Board", Trim},
                                   {"White", "White", Trim},
                                   {"Black", "Black", Trim},
                                   {"Result", "Result", Trim}}};
    return plan;
}

QString Name(const char *text)
{
    return QString::fromLatin1(text);
}

struct cResolvedRule
{
    int source;
    int column;
    bool trimmed;
};

// The dates of the DOS predecessor carry two-digit years, which the dBase driver
// reads as 19xx even for this century: a year before 1970 belongs to the next one.
QVariant TournamentDate(const cValueMapper &mapper, const FieldDefinition &field,
                        const QVariant &value, const QString &sourceName)
{
    const QVariant stored = mapper.Date(field, value, sourceName);
    if (stored.isNull())
        return stored;
    QDate date = QDate::fromString(stored.toString(), Qt::ISODate);
    if (date.year() < 1970)
        date = date.addYears(100);
    return QVariant(date.toString(Qt::ISODate));
}

void ImportTable(const cImportPlan &plan, const QString &folder)
{
    QStringList required;
    for (const char *key : plan.keys)
        required.append(Name(key));
    for (const cFieldRule &rule : plan.rules)
        if (!required.contains(Name(rule.source)))
            required.append(Name(rule.source));
    if (plan.special == Special::MasterGrades)
        required << QStringLiteral("Grade") << QStringLiteral("GLett") << QStringLiteral("RGrade")
                 << QStringLiteral("RLett");
    if (plan.special == Special::TournamentDates)
        required << QStringLiteral("T_Date") << QStringLiteral("T_End");

    cDbaseTable source;
    OpenSource(source, folder, Name(plan.sourceTable), required);
    const TableDefinition &table = plan.destination;
    const QList<FieldDefinition> &fields = table.fields;

    QList<int> keys;
    for (const char *key : plan.keys)
        keys.append(source.FieldIndex(Name(key)));
    QList<int> emptyFirst;
    for (const char *name : plan.emptyFirst)
        emptyFirst.append(ColumnOf(table, Name(name)));
    QList<cResolvedRule> rules;
    for (const cFieldRule &rule : plan.rules)
        rules.append({source.FieldIndex(Name(rule.source)), ColumnOf(table, Name(rule.destination)),
                      rule.trimmed});
    const auto resolve = [&](const char *from, const char *to) {
        return cResolvedRule{source.FieldIndex(Name(from)), ColumnOf(table, Name(to)), true};
    };
    // A grade of 0 in the register is no grade: neither it nor its letter is kept.
    QList<std::pair<cResolvedRule, cResolvedRule>> grades;
    if (plan.special == Special::MasterGrades)
        grades = {{resolve("Grade", "Grade"), resolve("GLett", "GLett")},
                  {resolve("RGrade", "RGrade"), resolve("RLett", "RLett")}};
    QList<cResolvedRule> dates;
    if (plan.special == Special::TournamentDates)
        dates = {resolve("T_Date", "TDate"), resolve("T_End", "TEnd")};

    Progress::Start(Name(plan.progressText), source.RowCount());
    struct cEnd
    {
        ~cEnd() { Progress::Terminate(); }
    } endProgress;
    cBulkInsert insert(InsertStatement(table));
    cValueMapper mapper;
    const QString emptyText = QStringLiteral("");
    const auto sourceName = [&](int index) { return source.Fields()[index].name; };
    qint32 count = 0;
    while (source.Next()) {
        bool keysAreNumbers = true;
        for (const int key : keys)
            keysAreNumbers = keysAreNumbers && IsNumeric(SourceText(source.Value(key)));
        if (keysAreNumbers) {
            mapper.setPlace(RowPlace(source));
            QVariantList row(fields.size());
            for (const int column : emptyFirst)
                row[column] = emptyText;
            for (const cResolvedRule &rule : rules)
                if (const QVariant value = source.Value(rule.source); !value.isNull())
                    row[rule.column] = mapper.Stored(fields[rule.column], value, rule.trimmed,
                                                     sourceName(rule.source));
            for (const auto &[grade, letter] : grades) {
                const QVariant value = source.Value(grade.source);
                double number = 0;
                if (value.isNull() || (SourceNumber(value, &number) && number == 0))
                    continue;
                row[grade.column] =
                    mapper.Number(fields[grade.column], value, sourceName(grade.source));
                if (const QVariant text = source.Value(letter.source); !text.isNull())
                    row[letter.column] =
                        mapper.Text(fields[letter.column], text, true, sourceName(letter.source));
            }
            for (const cResolvedRule &date : dates)
                if (const QVariant value = source.Value(date.source); !value.isNull())
                    row[date.column] =
                        TournamentDate(mapper, fields[date.column], value, sourceName(date.source));
            insert.Run(row);
        }
        Progress::Update(++count);
    }
    if (source.Failed())
        RaiseLoadFault(source.ErrorText());
}

} // namespace

// Each table is its own unit of work inside the one of Copy, so that a table
// copied alone is also whole or absent.
#define VELMORA_IMPORT_MEMBER(Member, Plan)                                                        \
    bool cDatabase::Member(const QString &folder)                                                  \
    {                                                                                              \
        loadFaultText_.clear();                                                                    \
        try {                                                                                      \
            cTransaction unit;                                                                     \
            ImportTable(Plan(), folder);                                                           \
            unit.Commit();                                                                         \
            return true;                                                                           \
        } catch (const cLoadFault &fault) {                                                        \
            loadFaultText_ = fault.reason;                                                         \
        } catch (const cFatalFault &fault) {                                                       \
            loadFaultText_ = fault.Description();                                                  \
        }                                                                                          \
        return false;                                                                              \
    }

VELMORA_IMPORT_MEMBER(CopyMasterTable, MasterPlan)
VELMORA_IMPORT_MEMBER(CopyVelmoraTable, VelmoraPlan)
VELMORA_IMPORT_MEMBER(CopyPlayerTable, PlayerPlan)
VELMORA_IMPORT_MEMBER(CopyResultTable, ResultPlan)

#undef VELMORA_IMPORT_MEMBER

bool cDatabase::Copy(const QString &source)
{
    cTransaction unit;
    const bool copied =
        (source.isEmpty() || (CopyMasterTable(source) && CopyVelmoraTable(source) &&
                              CopyPlayerTable(source) && CopyResultTable(source))) &&
        CopyClubTable(source, QStringLiteral("Club"));
    if (!copied) {
        const QString what =
            source.isEmpty()
                ? QStringLiteral("The club list could not be copied from its base copy.")
                : QStringLiteral("The Velmora DOS database in ") +
                      QDir::toNativeSeparators(source) + QStringLiteral(" could not be imported.");
        // The caller tells the user once, with what this means for the new database.
        loadFaultText_ = what + QStringLiteral("\n\n") + loadFaultText_;
        return false;
    }
    unit.Commit();
    return true;
}

QString cDatabase::DosFolderOfMaster(const QString &masterFile)
{
    const qsizetype at = masterFile.indexOf(QStringLiteral("MASTER.DBF"), 0, Qt::CaseInsensitive);
    if (at < 0)
        return QString();
    QString folder = masterFile.left(at);
    if (folder.endsWith(u'\\') || folder.endsWith(u'/'))
        folder.chop(1);
    return folder;
}
