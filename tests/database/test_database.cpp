#include "base/fatal_fault.h"
#include "base/settings_store.h"
#include "database/database.h"
#include "database/sql.h"
#include "session/control.h"
#include "session/globals.h"
#include "support/scripted_interaction.h"
#include "support/test_environment.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QSqlQuery>
#include <QTest>

namespace {

struct ExpectedField
{
    const char *name;
    const char *type;
};

// The fields of each table as the data file must hold them, written out by hand.
const QList<QPair<QString, QList<ExpectedField>>> &ExpectedTables()
{
    static const QList<QPair<QString, QList<ExpectedField>>> tables = {
        {QStringLiteral("Cntrl"),
         {{"Vrsn", "TEXT(10)"},
          {"AgeDate", "DATE"},
          {"MaxDisplayAge", "SMALLINT"},
          {"MaxJuniorAge", "SMALLINT"},
          {"BCFGradeChars", "TEXT(20)"},
          {"UserDefined1", "TEXT(20)"},
          {"UserDefined2", "TEXT(20)"},
          {"UserDefined3", "TEXT(20)"},
          {"UserDefined4", "TEXT(20)"}}},
        {QStringLiteral("Master"),
         {{"MasterId", "INTEGER"},  {"Surname", "TEXT(20)"},  {"Forename", "TEXT(15)"},
          {"MrTitle", "TEXT(4)"},   {"Address1", "TEXT(30)"}, {"Address2", "TEXT(30)"},
          {"Address3", "TEXT(30)"}, {"Address4", "TEXT(30)"}, {"Postcode", "TEXT(8)"},
          {"Phone", "TEXT(18)"},    {"eMail", "TEXT(40)"},    {"DOB", "DATE"},
          {"Age", "SMALLINT"},      {"Gender", "TEXT(1)"},    {"Special1", "TEXT(1)"},
          {"Special2", "TEXT(1)"},  {"Special3", "TEXT(1)"},  {"Special4", "TEXT(1)"},
          {"Club", "TEXT(25)"},     {"ClubCode", "TEXT(4)"},  {"ClubName", "TEXT(30)"},
          {"School", "TEXT(25)"},   {"Union", "TEXT(1)"},     {"Nation", "TEXT(3)"},
          {"Code", "TEXT(7)"},      {"Grade", "SMALLINT"},    {"GLett", "TEXT(1)"},
          {"RGrade", "SMALLINT"},   {"RLett", "TEXT(1)"},     {"ELO", "SMALLINT"},
          {"GMTitle", "TEXT(2)"},   {"ECode", "TEXT(8)"}}},
        {QStringLiteral("Velmora"),
         {{"TId", "INTEGER"},     {"Title", "TEXT(40)"},     {"Tourn", "TEXT(40)"},
          {"TDate", "DATE"},      {"TEnd", "DATE"},          {"TType", "TEXT(1)"},
          {"Rounds", "SMALLINT"}, {"CurrRound", "SMALLINT"}, {"DefGrade", "SMALLINT"},
          {"TText1", "TEXT(60)"}, {"TText2", "TEXT(60)"},    {"TText3", "TEXT(60)"},
          {"TText4", "TEXT(60)"}, {"TText5", "TEXT(60)"},    {"TText6", "TEXT(60)"},
          {"Locked", "BOOLEAN"},  {"Code", "TEXT(4)"},       {"Type", "TEXT(1)"},
          {"Desc", "TEXT(30)"},   {"Union", "TEXT(1)"}}},
        {QStringLiteral("Player"),
         {{"MasterId", "INTEGER"},  {"TId", "INTEGER"},       {"PId", "INTEGER"},
          {"Surname", "TEXT(20)"},  {"Forename", "TEXT(15)"}, {"DOB", "DATE"},
          {"Age", "SMALLINT"},      {"Club", "TEXT(25)"},     {"ClubCode", "TEXT(4)"},
          {"ClubName", "TEXT(30)"}, {"School", "TEXT(25)"},   {"Code", "TEXT(7)"},
          {"Grade", "SMALLINT"},    {"GLett", "TEXT(1)"},     {"RGrade", "SMALLINT"},
          {"RLett", "TEXT(1)"},     {"ELO", "SMALLINT"},      {"GMTitle", "TEXT(2)"},
          {"ECode", "TEXT(8)"},     {"Pin", "SMALLINT"},      {"Score", "DOUBLE"},
          {"GPoints", "INTEGER"},   {"NumGames", "SMALLINT"}, {"Place", "SMALLINT"},
          {"Withdrawn", "BOOLEAN"}, {"ACount", "INTEGER"},    {"EScore", "INTEGER"},
          {"EGames", "INTEGER"},    {"EPoints", "INTEGER"},   {"EIndex", "TEXT(5)"},
          {"BIndex", "TEXT(3)"},    {"RIndex", "TEXT(3)"},    {"BCFMod", "TEXT(1)"},
          {"Active", "BOOLEAN"}}},
        {QStringLiteral("Result"),
         {{"TId", "INTEGER"},
          {"Round", "SMALLINT"},
          {"Board", "SMALLINT"},
          {"White", "INTEGER"},
          {"Black", "INTEGER"},
          {"Result", "TEXT(1)"}}},
        {QStringLiteral("Club"),
         {{"Code", "TEXT(4)"}, {"Club", "TEXT(30)"}, {"County", "TEXT(4)"}, {"Union", "TEXT(6)"}}},
        {QStringLiteral("BCFMast"),
         {{"Ref", "TEXT(8)"},   {"Name", "TEXT(26)"},  {"Sex", "TEXT(4)"},
          {"Age", "TEXT(5)"},   {"Cat", "TEXT(1)"},    {"Grade", "DOUBLE"},
          {"Cat1", "TEXT(1)"},  {"Grade1", "DOUBLE"},  {"RCat", "TEXT(1)"},
          {"RGrade", "DOUBLE"}, {"RCat1", "TEXT(1)"},  {"RGrade1", "DOUBLE"},
          {"DOB", "DATE"},      {"Club1", "TEXT(4)"},  {"Club2", "TEXT(4)"},
          {"Club3", "TEXT(4)"}, {"Club4", "TEXT(4)"},  {"Club5", "TEXT(4)"},
          {"Club6", "TEXT(4)"}, {"FIDECode", "DOUBLE"}}},
    };
    return tables;
}

bool WriteSucceeds(const QString &statement, const QVariantList &values)
{
    try {
        RunSql(statement, values);
        return true;
    } catch (const cFatalFault &) {
        return false;
    }
}

void WriteTextFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
}

QByteArray FileBytes(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// A second connection to the data file, as another process would hold it.
class cOtherConnection
{
public:
    explicit cOtherConnection(const QString &file)
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name_);
        db.setDatabaseName(file);
        db.open();
    }
    ~cOtherConnection()
    {
        {
            QSqlDatabase db = QSqlDatabase::database(name_, false);
            db.close();
        }
        QSqlDatabase::removeDatabase(name_);
    }
    bool Run(const QString &statement)
    {
        QSqlQuery query(QSqlDatabase::database(name_, false));
        return query.exec(statement);
    }

private:
    QString name_ = QStringLiteral("other");
};

// Leaves in copyFolder the data file as a crash in the middle of a commit leaves
// it: pages of the unfinished change already written and its rollback journal
// beside it, with no process holding a lock. The file itself keeps its surnames.
void CopyHalfCommittedDatabase(const QString &copyFolder)
{
    {
        cTransaction unit;
        for (int id = 1; id <= 2000; ++id)
            RunSql(QStringLiteral("INSERT INTO Master (MasterId, Surname) VALUES (?, ?)"),
                   {id, QString(QStringLiteral("Surname ") + QString::number(id))});
        unit.Commit();
    }
    const QString file = Database().DataDb();
    Database().CloseDb();
    cOtherConnection other(file);
    QVERIFY(other.Run(QStringLiteral("PRAGMA journal_mode = DELETE")));
    // A cache this small spills changed pages into the file before the commit.
    QVERIFY(other.Run(QStringLiteral("PRAGMA cache_size = 1")));
    QVERIFY(other.Run(QStringLiteral("BEGIN")));
    QVERIFY(other.Run(QStringLiteral("UPDATE Master SET Surname = 'Half written', Address1 = "
                                     "'Long address line for a crash'")));
    QVERIFY(QFile::exists(file + QStringLiteral("-journal")));
    QVERIFY(QFile::copy(file, copyFolder + QStringLiteral("/Velmora.mdb")));
    QVERIFY(QFile::copy(file + QStringLiteral("-journal"),
                        copyFolder + QStringLiteral("/Velmora.mdb-journal")));
    QVERIFY(other.Run(QStringLiteral("ROLLBACK")));
}

} // namespace

class TestDatabase : public QObject
{
    Q_OBJECT

private slots:
    void createdDatabaseHasExactlyTheListedFields();
    void createdDatabaseHasTheSixIndexes();
    void createdDatabaseHasTheInitialControlRow();
    void valueOverFieldSizeIsRefused();
    void wrongTypeIsRefused();
    void fourFieldsRefuseEmptyTextButAcceptNull();
    void emptyMasterGivesIdOneAndHighestIdIsFreedOnDelete();
    void nextTournamentIdFollowsMaximum();
    void emptinessTestsCountRows();
    void existsIsFalseWithoutFile();
    void existsIsFalseForFileThatIsNotADatabase();
    void existsIsFalseForDatabaseWithoutControlTable();
    void createMovesAsideAFileThatIsNotADatabase();
    void createRefusesDataFolderThatCannotBeMade();
    void folderSettingWithoutClosingSeparatorGivesValidDataDb();
    void folderSettingsAreReadFromConfigurationSection();
    void newDatabaseIsAtFirstVersionUntilUpgraded();
    void newDatabaseHasNullAgeDate();
    void openOfMissingFileIsFatal();
    void fillThatFailsLeavesNoDatabase();
    void fillThatThrowsLeavesNoDatabase();
    void fillRunsOnTheNewFileBeforeItIsInPlace();
    void halfBuiltFileOfAnInterruptedCreationIsNotTakenForADatabase();
    void databaseWithHotJournalIsADatabaseAndIsRecovered();
    void databaseIsADatabaseWhileAnotherConnectionWrites();
    void fileMovedAsideTakesItsJournalAndLogWithIt();
    void commitsGoToAWriteAheadLogThatIsEmptiedOnClose();
};

void TestDatabase::createdDatabaseHasExactlyTheListedFields()
{
    cTestSession session(cTestSession::Start::Empty);
    Database().Create();
    for (const auto &[table, fields] : ExpectedTables()) {
        QSqlQuery info =
            RunSql(QStringLiteral("PRAGMA table_info(\"") + table + QStringLiteral("\")"));
        int position = 0;
        while (info.next()) {
            QVERIFY2(position < fields.size(), qPrintable(table));
            QCOMPARE(info.value(1).toString(), QString::fromLatin1(fields[position].name));
            QCOMPARE(info.value(2).toString(), QString::fromLatin1(fields[position].type));
            QCOMPARE(info.value(3).toInt(), 0); // no field has the required flag
            QVERIFY(info.value(4).isNull());    // and none a default value
            ++position;
        }
        QCOMPARE(position, fields.size());
    }
    const int tables =
        SqlScalar(QStringLiteral("SELECT count(*) FROM sqlite_master WHERE type = 'table'"))
            .toInt();
    QCOMPARE(tables, 7);
}

void TestDatabase::createdDatabaseHasTheSixIndexes()
{
    cTestSession session;
    const QList<QPair<QString, QString>> indexes = {
        {QStringLiteral("MasterIndex"), QStringLiteral("Master:MasterId")},
        {QStringLiteral("VelmoraIndex"), QStringLiteral("Velmora:TId")},
        {QStringLiteral("PlayerIndex"), QStringLiteral("Player:TId,PId")},
        {QStringLiteral("ResultIndex"), QStringLiteral("Result:TId,Round,Board")},
        {QStringLiteral("ClubIndex"), QStringLiteral("Club:Club")},
        {QStringLiteral("BCFMastIndex"), QStringLiteral("BCFMast:Ref")},
    };
    QCOMPARE(SqlScalar(QStringLiteral("SELECT count(*) FROM sqlite_master WHERE type = 'index'"))
                 .toInt(),
             6);
    for (const auto &[name, shape] : indexes) {
        const QString table = TextOf(SqlScalar(
            QStringLiteral("SELECT tbl_name FROM sqlite_master WHERE type = 'index' AND name = ?"),
            {name}));
        QStringList columns;
        QSqlQuery info =
            RunSql(QStringLiteral("PRAGMA index_info(\"") + name + QStringLiteral("\")"));
        while (info.next())
            columns.append(info.value(2).toString());
        QCOMPARE(table + u':' + columns.join(u','), shape);
        QCOMPARE(
            SqlScalar(QStringLiteral("SELECT \"unique\" FROM pragma_index_list(?) WHERE name = ?"),
                      {table, name})
                .toInt(),
            0);
    }
}

void TestDatabase::createdDatabaseHasTheInitialControlRow()
{
    cTestSession session(cTestSession::Start::Empty);
    Database().Create();
    QSqlQuery row = RunSql(QStringLiteral("SELECT * FROM Cntrl"));
    QVERIFY(row.next());
    QCOMPARE(row.value(QStringLiteral("Vrsn")).toString(), QStringLiteral("1.00"));
    QVERIFY(row.value(QStringLiteral("AgeDate")).isNull());
    QCOMPARE(row.value(QStringLiteral("MaxDisplayAge")).toInt(), 20);
    QCOMPARE(row.value(QStringLiteral("MaxJuniorAge")).toInt(), 17);
    QCOMPARE(row.value(QStringLiteral("BCFGradeChars")).toString(), QStringLiteral("ABCDEFR*"));
    QCOMPARE(row.value(QStringLiteral("UserDefined1")).toString(),
             QStringLiteral("User Defined 1"));
    QCOMPARE(row.value(QStringLiteral("UserDefined4")).toString(),
             QStringLiteral("User Defined 4"));
    QVERIFY(!row.next());
}

void TestDatabase::valueOverFieldSizeIsRefused()
{
    cTestSession session;
    QVERIFY(WriteSucceeds(QStringLiteral("INSERT INTO Master (MasterId, Surname) VALUES (1, ?)"),
                          {QString(20, u'x')}));
    QVERIFY(!WriteSucceeds(QStringLiteral("INSERT INTO Master (MasterId, Surname) VALUES (2, ?)"),
                           {QString(21, u'x')}));
    QVERIFY(
        !WriteSucceeds(QStringLiteral("INSERT INTO Velmora (TId, Rounds) VALUES (1, ?)"), {40000}));
    QVERIFY(!WriteSucceeds(QStringLiteral("INSERT INTO Result (TId, White) VALUES (1, ?)"),
                           {qint64(3000000000)}));
    QCOMPARE(SqlScalar(QStringLiteral("SELECT count(*) FROM Master")).toInt(), 1);
    QCOMPARE(SqlScalar(QStringLiteral("SELECT count(*) FROM Velmora")).toInt(), 0);
}

void TestDatabase::wrongTypeIsRefused()
{
    cTestSession session;
    QVERIFY(!WriteSucceeds(QStringLiteral("INSERT INTO Velmora (TId, Rounds) VALUES (1, ?)"),
                           {QStringLiteral("five")}));
    QVERIFY(!WriteSucceeds(QStringLiteral("INSERT INTO Velmora (TId, TDate) VALUES (1, ?)"),
                           {QStringLiteral("31/12/2026")}));
    QVERIFY(
        WriteSucceeds(QStringLiteral("INSERT INTO Velmora (TId, TDate, Locked) VALUES (1, ?, ?)"),
                      {QStringLiteral("2026-12-31"), 1}));
    QVERIFY(!WriteSucceeds(QStringLiteral("INSERT INTO Velmora (TId, Locked) VALUES (2, ?)"), {7}));
}

void TestDatabase::fourFieldsRefuseEmptyTextButAcceptNull()
{
    cTestSession session;
    const QStringList statements = {
        QStringLiteral("INSERT INTO BCFMast (Ref, Age) VALUES (?, ?)"),
        QStringLiteral("INSERT INTO BCFMast (Age, Ref) VALUES (?, ?)"),
        QStringLiteral("INSERT INTO Club (Code, Club) VALUES (?, ?)"),
        QStringLiteral("INSERT INTO Cntrl (Vrsn, BCFGradeChars) VALUES (?, ?)"),
    };
    const QVariant null(QMetaType(QMetaType::QString));
    for (const QString &statement : statements) {
        QVERIFY2(!WriteSucceeds(statement, {QStringLiteral(""), null}), qPrintable(statement));
        QVERIFY2(WriteSucceeds(statement, {null, null}), qPrintable(statement));
    }
    // Any other text field takes the empty string.
    QVERIFY(WriteSucceeds(QStringLiteral("INSERT INTO Master (MasterId, Surname) VALUES (1, ?)"),
                          {QStringLiteral("")}));
    QVERIFY(WriteSucceeds(QStringLiteral("INSERT INTO Club (Code, Club) VALUES ('AB', ?)"),
                          {QStringLiteral("")}));
}

void TestDatabase::emptyMasterGivesIdOneAndHighestIdIsFreedOnDelete()
{
    cTestSession session;
    QCOMPARE(Database().NextMasterId(), QStringLiteral("1"));
    RunSql(QStringLiteral("INSERT INTO Master (MasterId) VALUES (1), (2), (3)"));
    QCOMPARE(Database().NextMasterId(), QStringLiteral("4"));
    RunSql(QStringLiteral("DELETE FROM Master WHERE MasterId = 2"));
    QCOMPARE(Database().NextMasterId(), QStringLiteral("4"));
    RunSql(QStringLiteral("DELETE FROM Master WHERE MasterId = 3"));
    QCOMPARE(Database().NextMasterId(), QStringLiteral("2"));
}

void TestDatabase::nextTournamentIdFollowsMaximum()
{
    cTestSession session;
    QCOMPARE(Database().NextTournamentId(), QStringLiteral("1"));
    RunSql(QStringLiteral("INSERT INTO Velmora (TId) VALUES (41)"));
    QCOMPARE(Database().NextTournamentId(), QStringLiteral("42"));
}

void TestDatabase::emptinessTestsCountRows()
{
    cTestSession session;
    QVERIFY(Database().BCFMasterIsEmpty());
    QVERIFY(Database().BCFClubIsEmpty());
    RunSql(QStringLiteral("INSERT INTO BCFMast (Ref) VALUES ('123456A')"));
    RunSql(QStringLiteral("INSERT INTO Club (Code, Club) VALUES ('ABCD', 'Anytown')"));
    QVERIFY(!Database().BCFMasterIsEmpty());
    QVERIFY(!Database().BCFClubIsEmpty());
}

void TestDatabase::existsIsFalseWithoutFile()
{
    cTestSession session(cTestSession::Start::Empty);
    QVERIFY(!Database().Exists());
    Database().Create();
    QVERIFY(Database().Exists());
}

void TestDatabase::existsIsFalseForFileThatIsNotADatabase()
{
    cTestSession session(cTestSession::Start::Empty);
    QDir().mkpath(Database().DataDir());
    WriteTextFile(Database().DataDb(), "This is a letter, not a database.\n");
    QVERIFY(!Database().Exists());
}

void TestDatabase::existsIsFalseForDatabaseWithoutControlTable()
{
    cTestSession session(cTestSession::Start::Empty);
    Database().Create();
    RunSql(QStringLiteral("DROP TABLE Cntrl"));
    Database().CloseDb();
    QVERIFY(!Database().Exists());
}

void TestDatabase::createMovesAsideAFileThatIsNotADatabase()
{
    cScriptedInteraction seam;
    cTestSession session(cTestSession::Start::Empty);
    QDir().mkpath(Database().DataDir());
    const QByteArray letter = "Keep me: the only copy of the 1998 results.\n";
    WriteTextFile(Database().DataDb(), letter);
    Database().Create();
    QVERIFY(Database().Exists());
    const QStringList aside =
        QDir(Database().DataDir()).entryList({QStringLiteral("Velmora-*.mdb")}, QDir::Files);
    QCOMPARE(aside.size(), 1);
    QFile kept(Database().DataDir() + aside.first());
    QVERIFY(kept.open(QIODevice::ReadOnly));
    QCOMPARE(kept.readAll(), letter);
    const QStringList messages = seam.CallsStartingWith(QStringLiteral("message|"));
    QCOMPARE(messages.size(), 1);
    QVERIFY(messages.first().contains(aside.first()));
}

void TestDatabase::createRefusesDataFolderThatCannotBeMade()
{
    cTestSession session(cTestSession::Start::Empty);
    QTemporaryDir parent;
    // A plain file stands where the data folder would have to be made.
    const QString blocker = parent.path() + QStringLiteral("/blocker");
    WriteTextFile(blocker, "x");
    Database().setDataDir(blocker + QStringLiteral("/data"));
    bool refused = false;
    try {
        Database().Create();
    } catch (const cFatalFault &fault) {
        refused = fault.Description().contains(QStringLiteral("cannot be created"));
    }
    QVERIFY(refused);
    QFile file(blocker);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("x"));
}

void TestDatabase::folderSettingWithoutClosingSeparatorGivesValidDataDb()
{
    QTemporaryDir folder;
    SaveSetting(QStringLiteral("Velmora!"), QStringLiteral("Configuration"),
                QStringLiteral("DataDir"), folder.path());
    {
        cTestSession session(cTestSession::Start::Empty);
        // The session points the data folder elsewhere; a new object reads the setting.
        cDatabase fromSettings;
        QCOMPARE(fromSettings.DataDir(), folder.path() + QDir::separator());
        QCOMPARE(fromSettings.DataDb(), folder.path() + QStringLiteral("/Velmora.mdb"));
    }
    SaveSetting(QStringLiteral("Velmora!"), QStringLiteral("Configuration"),
                QStringLiteral("DataDir"), QString());
}

void TestDatabase::folderSettingsAreReadFromConfigurationSection()
{
    SaveSetting(QStringLiteral("Velmora!"), QStringLiteral("Configuration"),
                QStringLiteral("BackupDir"), QStringLiteral("/srv/backups/"));
    SaveSetting(QStringLiteral("Velmora!"), QStringLiteral("Configuration"),
                QStringLiteral("SystemDir"), QStringLiteral("/opt/velmora"));
    cDatabase database;
    QCOMPARE(database.BackupDir(), QStringLiteral("/srv/backups/"));
    QCOMPARE(database.SystemDir(), QStringLiteral("/opt/velmora/"));
    SaveSetting(QStringLiteral("Velmora!"), QStringLiteral("Configuration"),
                QStringLiteral("BackupDir"), QDir::homePath());
    SaveSetting(QStringLiteral("Velmora!"), QStringLiteral("Configuration"),
                QStringLiteral("SystemDir"), QCoreApplication::applicationDirPath());
}

void TestDatabase::newDatabaseIsAtFirstVersionUntilUpgraded()
{
    cTestSession session(cTestSession::Start::Empty);
    Database().Create();
    Control().Load(QStringLiteral("Version"));
    QCOMPARE(Control().Vrsn(), QStringLiteral("1.00"));
    Database().CheckVersion();
    Control().Load(QStringLiteral("Version"));
    QCOMPARE(Control().Vrsn(), QStringLiteral("1.02"));
    // SurnameCase exists by the time the settings are loaded whole.
    Control().Load(QStringLiteral("All"));
    QCOMPARE(Control().SurnameCase(), qint16(0));
}

void TestDatabase::newDatabaseHasNullAgeDate()
{
    cTestSession session;
    QVERIFY(SqlScalar(QStringLiteral("SELECT AgeDate FROM Cntrl")).isNull());
    QCOMPARE(Control().AgeDate(), QString());
}

void TestDatabase::openOfMissingFileIsFatal()
{
    cTestSession session(cTestSession::Start::Empty);
    QVERIFY_THROWS_EXCEPTION(cFatalFault, Database().OpenDb());
    QVERIFY(!QFile::exists(Database().DataDb()));
}

void TestDatabase::fillThatFailsLeavesNoDatabase()
{
    cTestSession session(cTestSession::Start::Empty);
    QVERIFY(!Database().Create([] {
        RunSql(QStringLiteral("INSERT INTO Master (MasterId) VALUES (1)"));
        return false;
    }));
    QVERIFY(!QFile::exists(Database().DataDb()));
    QVERIFY(QDir(Database().DataDir()).entryList(QDir::Files).isEmpty());
    QVERIFY(!Database().Exists());
}

void TestDatabase::fillThatThrowsLeavesNoDatabase()
{
    cTestSession session(cTestSession::Start::Empty);
    QVERIFY_THROWS_EXCEPTION(cFatalFault, Database().Create([]() -> bool {
        RunSql(QStringLiteral("INSERT INTO NoSuchTable VALUES (1)"));
        return true;
    }));
    QVERIFY(QDir(Database().DataDir()).entryList(QDir::Files).isEmpty());
}

void TestDatabase::fillRunsOnTheNewFileBeforeItIsInPlace()
{
    cTestSession session(cTestSession::Start::Empty);
    bool inPlaceDuringFill = true;
    QVERIFY(Database().Create([&inPlaceDuringFill] {
        inPlaceDuringFill = QFile::exists(Database().DataDb());
        RunSql(QStringLiteral("INSERT INTO Master (MasterId, Surname) VALUES (1, 'Ames')"));
        return true;
    }));
    QVERIFY(!inPlaceDuringFill);
    QVERIFY(Database().Exists());
    QCOMPARE(TextOf(SqlScalar(QStringLiteral("SELECT Surname FROM Master"))),
             QStringLiteral("Ames"));
}

void TestDatabase::halfBuiltFileOfAnInterruptedCreationIsNotTakenForADatabase()
{
    cTestSession session(cTestSession::Start::Empty);
    QDir().mkpath(Database().DataDir());
    WriteTextFile(Database().DataDb() + QStringLiteral(".new"), "half written");
    QVERIFY(!Database().Exists());
    QVERIFY(Database().Create());
    QVERIFY(Database().Exists());
    QVERIFY(!QFile::exists(Database().DataDb() + QStringLiteral(".new")));
}

void TestDatabase::databaseWithHotJournalIsADatabaseAndIsRecovered()
{
    cScriptedInteraction seam;
    QTemporaryDir crashed;
    {
        cTestSession session;
        CopyHalfCommittedDatabase(crashed.path());
    }
    cTestSession session(cTestSession::Start::Empty);
    Database().setDataDir(crashed.path());
    QVERIFY(Database().Exists());
    OpenSessionDatabase();
    QCOMPARE(SqlScalar(QStringLiteral("PRAGMA integrity_check")).toString(), QStringLiteral("ok"));
    QCOMPARE(SqlScalar(QStringLiteral("SELECT count(*) FROM Master")).toInt(), 2000);
    QCOMPARE(SqlScalar(QStringLiteral("SELECT count(*) FROM Master WHERE Surname = "
                                      "'Half written'"))
                 .toInt(),
             0);
    QVERIFY(!QFile::exists(Database().DataDb() + QStringLiteral("-journal")));
    QCOMPARE(seam.Count(QStringLiteral("message|")), 0);
}

void TestDatabase::databaseIsADatabaseWhileAnotherConnectionWrites()
{
    for (const char *mode : {"DELETE", "WAL"}) {
        cTestSession session;
        const QString file = Database().DataDb();
        Database().CloseDb();
        cOtherConnection other(file);
        QVERIFY(other.Run(QStringLiteral("PRAGMA journal_mode = ") + QString::fromLatin1(mode)));
        QVERIFY(other.Run(QStringLiteral("BEGIN EXCLUSIVE")));
        QVERIFY(other.Run(QStringLiteral("INSERT INTO Master (MasterId) VALUES (1)")));
        QVERIFY2(Database().Exists(), mode);
        QVERIFY(other.Run(QStringLiteral("ROLLBACK")));
    }
}

void TestDatabase::fileMovedAsideTakesItsJournalAndLogWithIt()
{
    cScriptedInteraction seam;
    cTestSession session(cTestSession::Start::Empty);
    QDir().mkpath(Database().DataDir());
    WriteTextFile(Database().DataDb(), "Not a database of ours.\n");
    WriteTextFile(Database().DataDb() + QStringLiteral("-journal"), "its journal");
    WriteTextFile(Database().DataDb() + QStringLiteral("-wal"), "its log");
    QVERIFY(Database().Create());
    const QStringList aside =
        QDir(Database().DataDir()).entryList({QStringLiteral("Velmora-*.mdb")}, QDir::Files);
    QCOMPARE(aside.size(), 1);
    const QString kept = Database().DataDir() + aside.first();
    QCOMPARE(FileBytes(kept + QStringLiteral("-journal")), QByteArray("its journal"));
    QCOMPARE(FileBytes(kept + QStringLiteral("-wal")), QByteArray("its log"));
    QCOMPARE(SqlScalar(QStringLiteral("PRAGMA integrity_check")).toString(), QStringLiteral("ok"));
    Database().CloseDb();
    QVERIFY(!QFile::exists(Database().DataDb() + QStringLiteral("-journal")));
    QVERIFY(Database().Exists());
}

void TestDatabase::commitsGoToAWriteAheadLogThatIsEmptiedOnClose()
{
    cTestSession session;
    QCOMPARE(SqlScalar(QStringLiteral("PRAGMA journal_mode")).toString(), QStringLiteral("wal"));
    // 2 is FULL: a commit that has returned survives a power cut.
    QCOMPARE(SqlScalar(QStringLiteral("PRAGMA synchronous")).toInt(), 2);
    RunSql(QStringLiteral("INSERT INTO Master (MasterId, Surname) VALUES (1, 'Ames')"));
    Database().CloseDb();
    QVERIFY(!QFile::exists(Database().DataDb() + QStringLiteral("-wal")));
    // The closed file alone holds everything, so a plain copy of it is a whole backup.
    QTemporaryDir copyFolder;
    QVERIFY(QFile::copy(Database().DataDb(), copyFolder.filePath(QStringLiteral("Velmora.mdb"))));
    Database().setDataDir(copyFolder.path());
    Database().OpenDb();
    QCOMPARE(TextOf(SqlScalar(QStringLiteral("SELECT Surname FROM Master"))),
             QStringLiteral("Ames"));
}

VELMORA_TEST_MAIN(TestDatabase)
#include "test_database.moc"
