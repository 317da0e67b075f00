#include "base/user_interaction.h"
#include "database/database.h"
#include "database/sql.h"
#include "session/globals.h"
#include "support/dbase_writer.h"
#include "support/full_disk.h"
#include "support/scripted_interaction.h"
#include "support/test_environment.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

namespace {

QList<cDbaseWriter::Field> GradingListFields()
{
    return {{"Ref", 'C', 8},   {"Name", 'C', 26},  {"Sex", 'C', 4},   {"Age", 'C', 5},
            {"DOB", 'D', 8},   {"Grade", 'N', 3},  {"Cat", 'C', 1},   {"RGrade", 'N', 3},
            {"RCat", 'C', 1},  {"Grade1", 'N', 3}, {"Cat1", 'C', 1},  {"RGrade1", 'N', 3},
            {"RCat1", 'C', 1}, {"Club1", 'C', 4},  {"Club2", 'C', 4}, {"Club3", 'C', 4},
            {"Club4", 'C', 4}, {"Club5", 'C', 4},  {"Club6", 'C', 4}, {"FIDECode", 'N', 10}};
}

// A row of the grading list with the fields that a case cares about.
QList<QByteArray> ListRow(const QByteArray &ref, const QByteArray &name, const QByteArray &grade,
                          const QByteArray &cat)
{
    return {ref, name, "M", "", "19800101", grade, cat, "", "", "", "", "", "", "BATH"};
}

// Empty text, as a field that the load fills with "" holds; null is not.
bool IsEmptyText(const QVariant &value)
{
    return !value.isNull() && value.toString().isEmpty();
}

QVariant ListValue(const QString &field, const QString &ref)
{
    return SqlScalar(QStringLiteral("SELECT \"") + field +
                         QStringLiteral("\" FROM BCFMast WHERE Ref = ?"),
                     {ref});
}

bool IndexExists(const QString &name)
{
    return SqlScalar(QStringLiteral(
                         "SELECT count(*) FROM sqlite_master WHERE type = 'index' AND name = ?"),
                     {name})
               .toInt() == 1;
}

// The seam of a child process that a test kills: when the load reaches the chosen
// row it tells the parent and waits to be killed.
class cStopAtRow final : public cUserInteraction
{
public:
    cStopAtRow(qint32 row, int pipe) : row_(row), pipe_(pipe) {}
    bool AskYesNo(const QString &, const QString &) override { return true; }
    void ShowMessage(const QString &, MessageIcon, const QString &) override {}
    void ProgressStart(const QString &, qint32) override {}
    void ProgressUpdate(qint32 value) override
    {
        if (value != row_)
            return;
        const char reached = 'r';
        if (write(pipe_, &reached, 1) != 1)
            _exit(3);
        for (;;)
            pause();
    }
    void ProgressTerminate() override {}
    void ShowLongText(const QString &, const QString &) override {}
    QString ChooseSaveFile(const cFileRequest &) override { return QString(); }
    QString ChooseOpenFile(const cFileRequest &) override { return QString(); }
    void Beep() override {}
    void SetBusyPointer(bool) override {}

private:
    qint32 row_;
    int pipe_;
};

} // namespace

class TestListLoad : public QObject
{
    Q_OBJECT

private slots:
    void loadOnAFullDiskKeepsTheOldListSaysWhyAndGoesOn()
    {
        cTestSession session;
        cScriptedInteraction seam;
        const QString list =
            CopySharedFile(QStringLiteral("grading-list/Players.dbf"), session.Path({}));
        const QString clubs =
            CopySharedFile(QStringLiteral("grading-list/clubs.dbf"), session.Path({}));
        QVERIFY(Database().LoadClubTable(clubs));
        const qint64 clubCount = RowCount(QStringLiteral("Club"));
        RunSql(QStringLiteral("PRAGMA wal_checkpoint(TRUNCATE)"));
        seam.Clear();
        {
            cFullDisk full(QFileInfo(Database().DataDb()).size() + 64 * 1024);
            QVERIFY(!Database().LoadBCFMastList(list));
        }
        const QStringList messages = seam.CallsStartingWith(QStringLiteral("message|"));
        QCOMPARE(messages.size(), 1);
        QVERIFY2(messages.first().startsWith(QStringLiteral(
                     "message|exclamation|Velmora!|The BCF Master List could not be loaded.")),
                 qPrintable(messages.first()));
        QVERIFY2(messages.first().contains(QStringLiteral("disk")), qPrintable(messages.first()));
        QCOMPARE(RowCount(QStringLiteral("BCFMast")), 0);
        QCOMPARE(RowCount(QStringLiteral("Club")), clubCount);
        // With room again, the same load goes through on the same open database.
        QVERIFY(Database().LoadBCFMastList(list));
        QCOMPARE(RowCount(QStringLiteral("BCFMast")), 1997);
        QCOMPARE(SqlScalar(QStringLiteral("PRAGMA integrity_check")).toString(),
                 QStringLiteral("ok"));
    }

    void loadsTheSharedGradingList()
    {
        cTestSession session;
        cScriptedInteraction seam;
        const QString list =
            CopySharedFile(QStringLiteral("grading-list/Players.dbf"), session.Path({}));
        QVERIFY(!list.isEmpty());
        Database().ClearBCFMastList();
        QVERIFY2(Database().CopyBCFMastList(session.Path({}), QStringLiteral("Players.dbf")),
                 qPrintable(Database().LoadFaultText()));
        // Three of the 2,000 references are purely numeric.
        QCOMPARE(RowCount(QStringLiteral("BCFMast")), 1997);
        QVERIFY(!Database().BCFMasterIsEmpty());
        QCOMPARE(seam.CallsStartingWith(QStringLiteral("progress-start")),
                 QStringList{QStringLiteral("progress-start|Copying the BCF Master List|2000")});
        QCOMPARE(seam.Count(QStringLiteral("progress-update")), 2000);
        QCOMPARE(seam.Count(QStringLiteral("progress-end")), 1);
        QVERIFY(!seam.BusyPointerShown());
        QVERIFY(IndexExists(QStringLiteral("BCFMastIndex")));

        QCOMPARE(ListValue(QStringLiteral("Name"), QStringLiteral("100000E")).toString(),
                 QStringLiteral("Smith-Jones, Helen"));
        QCOMPARE(ListValue(QStringLiteral("DOB"), QStringLiteral("100000E")).toString(),
                 QStringLiteral("1932-08-08"));
        QCOMPARE(ListValue(QStringLiteral("Grade"), QStringLiteral("100000E")).toDouble(), 9.0);
        QCOMPARE(ListValue(QStringLiteral("Cat"), QStringLiteral("100000E")).toString(),
                 QStringLiteral("E"));
        QVERIFY(ListValue(QStringLiteral("Age"), QStringLiteral("100000E")).isNull());
        QVERIFY(ListValue(QStringLiteral("FIDECode"), QStringLiteral("100000E")).isNull());
        QCOMPARE(ListValue(QStringLiteral("FIDECode"), QStringLiteral("100001F")).toDouble(),
                 400001.0);
        // Grade 0 with the letter C: no grade and no letter.
        QVERIFY(ListValue(QStringLiteral("Grade"), QStringLiteral("100001F")).isNull());
        QVERIFY(IsEmptyText(ListValue(QStringLiteral("Cat"), QStringLiteral("100001F"))));
        // A grade the list leaves out ("***") is null too, its letter empty.
        QVERIFY(ListValue(QStringLiteral("Grade"), QStringLiteral("100009N")).isNull());
        QVERIFY(IsEmptyText(ListValue(QStringLiteral("Cat"), QStringLiteral("100009N"))));
        QCOMPARE(
            SqlScalar(
                QStringLiteral(
                    "SELECT count(*) FROM BCFMast WHERE Ref IN ('100005', '101002', '101999')"))
                .toInt(),
            0);
        QCOMPARE(SqlScalar(QStringLiteral(
                               "SELECT count(*) FROM BCFMast WHERE Grade IS NULL AND Cat <> ''"))
                     .toInt(),
                 0);
        QCOMPARE(SqlScalar(QStringLiteral(
                               "SELECT count(*) FROM BCFMast WHERE Name IS NULL OR Club6 IS NULL"))
                     .toInt(),
                 0);
    }

    void takesARefWithALetterAndDropsAnAllDigitRef()
    {
        cTestSession session;
        cDbaseWriter writer(GradingListFields());
        writer.AddRow(ListRow("123456", "Digits Only", "150", "A"));
        writer.AddRow(ListRow("123456A", "Letter After", "150", "A"));
        writer.AddRow(ListRow("", "No Reference", "150", "A"));
        QVERIFY(writer.Save(session.Path(QStringLiteral("Players.dbf"))));
        QVERIFY(Database().CopyBCFMastList(session.Path({}), QStringLiteral("Players")));
        QCOMPARE(RowCount(QStringLiteral("BCFMast")), 1);
        QCOMPARE(SqlScalar(QStringLiteral("SELECT Ref FROM BCFMast")).toString(),
                 QStringLiteral("123456A"));
    }

    void dropsTheLetterOfGradeZeroAndKeepsAGradeWithoutLetter()
    {
        cTestSession session;
        cDbaseWriter writer(GradingListFields());
        writer.AddRow(ListRow("1000A", "Zero Grade", "0", "D"));
        writer.AddRow(ListRow("1001B", "No Letter", "150", ""));
        writer.AddRow({"1002C", "Rapid Only", "F", "", "", "", "", "120", "B", "", "", "0", "E"});
        QVERIFY(writer.Save(session.Path(QStringLiteral("list.dbf"))));
        QVERIFY(Database().CopyBCFMastList(session.Path({}), QStringLiteral("list.dbf")));
        QVERIFY(ListValue(QStringLiteral("Grade"), QStringLiteral("1000A")).isNull());
        QVERIFY(IsEmptyText(ListValue(QStringLiteral("Cat"), QStringLiteral("1000A"))));
        QCOMPARE(ListValue(QStringLiteral("Grade"), QStringLiteral("1001B")).toDouble(), 150.0);
        QVERIFY(IsEmptyText(ListValue(QStringLiteral("Cat"), QStringLiteral("1001B"))));
        QVERIFY(!ListValue(QStringLiteral("Cat"), QStringLiteral("1001B")).isNull());
        QCOMPARE(ListValue(QStringLiteral("RGrade"), QStringLiteral("1002C")).toDouble(), 120.0);
        QCOMPARE(ListValue(QStringLiteral("RCat"), QStringLiteral("1002C")).toString(),
                 QStringLiteral("B"));
        QVERIFY(ListValue(QStringLiteral("RGrade1"), QStringLiteral("1002C")).isNull());
        QVERIFY(IsEmptyText(ListValue(QStringLiteral("RCat1"), QStringLiteral("1002C"))));
        QVERIFY(ListValue(QStringLiteral("DOB"), QStringLiteral("1002C")).isNull());
        QVERIFY(ListValue(QStringLiteral("Age"), QStringLiteral("1002C")).isNull());
    }

    void opensTheTableWithOrWithoutItsExtension()
    {
        cTestSession session;
        QVERIFY(!CopySharedFile(QStringLiteral("grading-list/Players.dbf"), session.Path({}))
                     .isEmpty());
        QVERIFY(Database().CopyBCFMastList(session.Path({}), QStringLiteral("Players.dbf")));
        const qint64 withExtension = RowCount(QStringLiteral("BCFMast"));
        Database().ClearBCFMastList();
        QCOMPARE(RowCount(QStringLiteral("BCFMast")), 0);
        QVERIFY(Database().CopyBCFMastList(session.Path({}), QStringLiteral("Players")));
        QCOMPARE(RowCount(QStringLiteral("BCFMast")), withExtension);
        QCOMPARE(withExtension, 1997);
    }

    void readsAListWhoseFieldsAreOfOtherTypes()
    {
        cTestSession session;
        QList<cDbaseWriter::Field> fields = GradingListFields();
        fields[3] = {"Age", 'N', 3};   // a number rather than text
        fields[4] = {"DOB", 'C', 10};  // a date written as text
        fields[5] = {"Grade", 'C', 3}; // a grade written as text
        fields[19] = {"FIDECode", 'F', 12, 1};
        cDbaseWriter writer(fields);
        writer.AddRow({"7000A",      "Typed Otherwise",
                       "F",          "17",
                       "02/01/1990", "150",
                       "B",          "",
                       "",           "",
                       "",           "",
                       "",           "",
                       "",           "",
                       "",           "",
                       "",           "412345.0"});
        writer.AddRow({"7001B", "Zero As Text", "M", "", "", "0", "C"});
        writer.AddRow({"7002C", "Not A Grade", "M", "", "", "1x", "C"});
        QVERIFY(writer.Save(session.Path(QStringLiteral("typed.dbf"))));
        QVERIFY(!Database().CopyBCFMastList(session.Path({}), QStringLiteral("typed")));
        QVERIFY2(Database().LoadFaultText().contains(QStringLiteral("Row 3 of")),
                 qPrintable(Database().LoadFaultText()));
        QVERIFY(
            Database().LoadFaultText().contains(QStringLiteral("Grade \"1x\" is not a number")));
        QCOMPARE(RowCount(QStringLiteral("BCFMast")), 0);

        cDbaseWriter good(fields);
        good.AddRow({"7000A",      "Typed Otherwise",
                     "F",          "17",
                     "02/01/1990", "150",
                     "B",          "",
                     "",           "",
                     "",           "",
                     "",           "",
                     "",           "",
                     "",           "",
                     "",           "412345.0"});
        good.AddRow({"7001B", "Zero As Text", "M", "", "", "0", "C"});
        QVERIFY(good.Save(session.Path(QStringLiteral("typed.dbf"))));
        QVERIFY2(Database().CopyBCFMastList(session.Path({}), QStringLiteral("typed")),
                 qPrintable(Database().LoadFaultText()));
        QCOMPARE(ListValue(QStringLiteral("Age"), QStringLiteral("7000A")).toString(),
                 QStringLiteral("17"));
        QCOMPARE(ListValue(QStringLiteral("DOB"), QStringLiteral("7000A")).toString(),
                 QStringLiteral("1990-01-02"));
        QCOMPARE(ListValue(QStringLiteral("Grade"), QStringLiteral("7000A")).toDouble(), 150.0);
        QCOMPARE(ListValue(QStringLiteral("FIDECode"), QStringLiteral("7000A")).toDouble(),
                 412345.0);
        QVERIFY(ListValue(QStringLiteral("Grade"), QStringLiteral("7001B")).isNull());
        QVERIFY(IsEmptyText(ListValue(QStringLiteral("Cat"), QStringLiteral("7001B"))));
        QVERIFY(ListValue(QStringLiteral("Age"), QStringLiteral("7001B")).isNull());
    }

    void keepsText1252InNames()
    {
        cTestSession session;
        cDbaseWriter writer(GradingListFields());
        writer.AddRow(ListRow("2000A", "M\xfcller, J\xfcrgen", "100", "C"));
        writer.AddRow(ListRow("2001B",
                              "O'Brien, \x8a\xe9"
                              "amus",
                              "100", "C"));
        QVERIFY(writer.Save(session.Path(QStringLiteral("Players.dbf"))));
        QVERIFY(Database().CopyBCFMastList(session.Path({}), QStringLiteral("Players.dbf")));
        QCOMPARE(ListValue(QStringLiteral("Name"), QStringLiteral("2000A")).toString(),
                 QStringLiteral("M\u00fcller, J\u00fcrgen"));
        QCOMPARE(ListValue(QStringLiteral("Name"), QStringLiteral("2001B")).toString(),
                 QStringLiteral("O'Brien, \u0160\u00e9amus"));
    }

    void keepsTheOldListWhenTheNewFileIsTruncated()
    {
        cTestSession session;
        cScriptedInteraction seam;
        QVERIFY(!CopySharedFile(QStringLiteral("grading-list/Players.dbf"), session.Path({}))
                     .isEmpty());
        QVERIFY(Database().LoadBCFMastList(session.Path(QStringLiteral("Players.dbf"))));
        QCOMPARE(RowCount(QStringLiteral("BCFMast")), 1997);

        cDbaseWriter writer(GradingListFields());
        for (int row = 0; row < 50; ++row)
            writer.AddRow(ListRow("3" + QByteArray::number(row) + "A", "New Player", "100", "C"));
        QFile cut(session.Path(QStringLiteral("Cut.dbf")));
        QVERIFY(cut.open(QIODevice::WriteOnly));
        cut.write(writer.Bytes().chopped(500));
        cut.close();

        seam.Clear();
        QVERIFY(!Database().LoadBCFMastList(session.Path(QStringLiteral("Cut.dbf"))));
        QCOMPARE(RowCount(QStringLiteral("BCFMast")), 1997);
        QCOMPARE(ListValue(QStringLiteral("Name"), QStringLiteral("100000E")).toString(),
                 QStringLiteral("Smith-Jones, Helen"));
        QVERIFY(IndexExists(QStringLiteral("BCFMastIndex")));
        const QStringList messages = seam.CallsStartingWith(QStringLiteral("message|"));
        QCOMPARE(messages.size(), 1);
        QVERIFY(messages[0].startsWith(QStringLiteral(
            "message|exclamation|Velmora!|The BCF Master List could not be loaded.")));
        QVERIFY(messages[0].contains(QStringLiteral("damaged")));
        QVERIFY(messages[0].contains(QStringLiteral("The list that was loaded before is kept.")));
    }

    void keepsTheOldListWhenAFieldIsMissing()
    {
        cTestSession session;
        cScriptedInteraction seam;
        QVERIFY(!CopySharedFile(QStringLiteral("grading-list/Players.dbf"), session.Path({}))
                     .isEmpty());
        QVERIFY(Database().LoadBCFMastList(session.Path(QStringLiteral("Players.dbf"))));
        QList<cDbaseWriter::Field> fields = GradingListFields();
        fields.removeLast(); // no FIDECode
        cDbaseWriter writer(fields);
        writer.AddRow(ListRow("4000A", "Short Of A Field", "100", "C"));
        QVERIFY(writer.Save(session.Path(QStringLiteral("Short.dbf"))));
        QVERIFY(!Database().LoadBCFMastList(session.Path(QStringLiteral("Short.dbf"))));
        QVERIFY(Database().LoadFaultText().contains(QStringLiteral("has no field FIDECode")));
        QCOMPARE(RowCount(QStringLiteral("BCFMast")), 1997);
        const QStringList messages = seam.CallsStartingWith(QStringLiteral("message|"));
        QCOMPARE(messages.size(), 2);
        QCOMPARE(messages[0], QStringLiteral("message|information|Velmora!|1,997 players loaded"));
        QVERIFY(messages[1].contains(QStringLiteral("could not be loaded")));
    }

    void asksBeforeAFileOfNoPlayersEmptiesTheList()
    {
        cTestSession session;
        cScriptedInteraction seam;
        QVERIFY(!CopySharedFile(QStringLiteral("grading-list/Players.dbf"), session.Path({}))
                     .isEmpty());
        QVERIFY(Database().LoadBCFMastList(session.Path(QStringLiteral("Players.dbf"))));
        cDbaseWriter writer(GradingListFields());
        writer.AddRow(ListRow("4000A", "Deleted Player", "100", "C"), true);
        writer.AddRow(ListRow("4001B", "Deleted Too", "100", "C"), true);
        QVERIFY(writer.Save(session.Path(QStringLiteral("Deleted.dbf"))));
        const QString deleted = session.Path(QStringLiteral("Deleted.dbf"));
        seam.Clear();
        seam.QueueAnswer(false);
        QVERIFY(!Database().LoadBCFMastList(deleted));
        QCOMPARE(RowCount(QStringLiteral("BCFMast")), 1997);
        QCOMPARE(seam.CallsStartingWith(QStringLiteral("ask|")),
                 QStringList{QStringLiteral("ask|Velmora!|The BCF Master List holds 1,997 "
                                            "players. The file ") +
                             QDir::toNativeSeparators(deleted) +
                             QStringLiteral(" holds none, so loading it would leave the list "
                                            "empty.\n\nDo you want to load it?")});
        QCOMPARE(seam.Count(QStringLiteral("message|")), 0);

        seam.Clear();
        seam.QueueAnswer(true);
        QVERIFY(Database().LoadBCFMastList(deleted));
        QCOMPARE(RowCount(QStringLiteral("BCFMast")), 0);
        QCOMPARE(seam.CallsStartingWith(QStringLiteral("message|")),
                 QStringList{QStringLiteral("message|information|Velmora!|0 players loaded")});
        // An empty list replaced by an empty file loses nothing and asks nothing.
        seam.Clear();
        QVERIFY(Database().LoadBCFMastList(deleted));
        QCOMPARE(seam.Count(QStringLiteral("ask|")), 0);
    }

    void keepsTheOldListWhenAValueIsTooLong()
    {
        cTestSession session;
        cScriptedInteraction seam;
        QVERIFY(!CopySharedFile(QStringLiteral("grading-list/Players.dbf"), session.Path({}))
                     .isEmpty());
        QVERIFY(Database().LoadBCFMastList(session.Path(QStringLiteral("Players.dbf"))));
        QList<cDbaseWriter::Field> fields = GradingListFields();
        fields[1].length = 40;
        cDbaseWriter writer(fields);
        writer.AddRow(ListRow("5000A", "Fits", "100", "C"));
        writer.AddRow(ListRow("5001B", "A Name Far Longer Than The List Allows", "100", "C"));
        QVERIFY(writer.Save(session.Path(QStringLiteral("Long.dbf"))));
        QVERIFY(!Database().LoadBCFMastList(session.Path(QStringLiteral("Long.dbf"))));
        QVERIFY2(Database().LoadFaultText().contains(QStringLiteral("Row 2 of")),
                 qPrintable(Database().LoadFaultText()));
        QVERIFY(Database().LoadFaultText().contains(QStringLiteral("longer than 26 characters")));
        QCOMPARE(RowCount(QStringLiteral("BCFMast")), 1997);
        QVERIFY(ListValue(QStringLiteral("Name"), QStringLiteral("5000A")).isNull());
    }

    void keepsTheOldListWhenTheLoadIsKilledHalfWay()
    {
        cTestSession session;
        QVERIFY(!CopySharedFile(QStringLiteral("grading-list/Players.dbf"), session.Path({}))
                     .isEmpty());
        QVERIFY(Database().LoadBCFMastList(session.Path(QStringLiteral("Players.dbf"))));
        cDbaseWriter writer(GradingListFields());
        for (int row = 0; row < 20000; ++row)
            writer.AddRow(ListRow("6" + QByteArray::number(row) + "K", "Killed Load", "100", "C"));
        QVERIFY(writer.Save(session.Path(QStringLiteral("Big.dbf"))));
        const QString bigList = session.Path(QStringLiteral("Big.dbf"));
        Database().CloseDb();

        int channel[2];
        QCOMPARE(pipe(channel), 0);
        const pid_t child = fork();
        QVERIFY(child >= 0);
        if (child == 0) {
            close(channel[0]);
            cStopAtRow stop(12000, channel[1]);
            InstallInteraction(&stop);
            Database().OpenDb();
            Database().LoadBCFMastList(bigList);
            _exit(2); // the load should never get here
        }
        close(channel[1]);
        char reached = 0;
        QCOMPARE(read(channel[0], &reached, 1), ssize_t(1));
        close(channel[0]);
        QCOMPARE(kill(child, SIGKILL), 0);
        int status = 0;
        QCOMPARE(waitpid(child, &status, 0), child);
        QVERIFY(WIFSIGNALED(status));
        QCOMPARE(WTERMSIG(status), SIGKILL);
        // The killed load left its log behind; opening the file sets it aside.
        QVERIFY(QFile::exists(Database().DataDb() + QStringLiteral("-wal")));

        Database().OpenDb();
        QCOMPARE(SqlScalar(QStringLiteral("PRAGMA integrity_check")).toString(),
                 QStringLiteral("ok"));
        QCOMPARE(RowCount(QStringLiteral("BCFMast")), 1997);
        QCOMPARE(
            SqlScalar(QStringLiteral("SELECT count(*) FROM BCFMast WHERE Name = 'Killed Load'"))
                .toInt(),
            0);
        QVERIFY(IndexExists(QStringLiteral("BCFMastIndex")));
        QCOMPARE(ListValue(QStringLiteral("Name"), QStringLiteral("100000E")).toString(),
                 QStringLiteral("Smith-Jones, Helen"));
    }

    void loadsTheSharedClubList()
    {
        cTestSession session;
        cScriptedInteraction seam;
        QVERIFY(
            !CopySharedFile(QStringLiteral("grading-list/clubs.dbf"), session.Path({})).isEmpty());
        QVERIFY(Database().LoadClubTable(session.Path(QStringLiteral("clubs.dbf"))));
        QCOMPARE(RowCount(QStringLiteral("Club")), 600);
        QCOMPARE(seam.CallsStartingWith(QStringLiteral("progress-start")),
                 QStringList{QStringLiteral(
                     "progress-start|Copying the Club table from the Velmora DOS database|600")});
        QCOMPARE(SqlScalar(QStringLiteral("SELECT Club FROM Club WHERE Code = 'A000'")).toString(),
                 QStringLiteral("Bath Chess Club 0"));
        QCOMPARE(
            SqlScalar(QStringLiteral("SELECT \"Union\" FROM Club WHERE Code = 'A000'")).toString(),
            QStringLiteral("EACU"));
        QVERIFY(!Database().BCFClubIsEmpty());
    }

    void fillsBlankCountyAndUnionOfClubsWithEmptyText()
    {
        cTestSession session;
        cDbaseWriter writer(
            {{"Code", 'C', 4}, {"Club", 'C', 30}, {"County", 'C', 4}, {"Union", 'C', 6}});
        writer.AddRow({"HAST", "Hastings", "", ""});
        writer.AddRow({"", "No Code", "KENT", "SCCU"});
        QVERIFY(writer.Save(session.Path(QStringLiteral("clubs.dbf"))));
        QVERIFY(Database().CopyClubTable(session.Path({}), QStringLiteral("clubs")));
        QVERIFY(
            IsEmptyText(SqlScalar(QStringLiteral("SELECT County FROM Club WHERE Code = 'HAST'"))));
        QVERIFY(
            !SqlScalar(QStringLiteral("SELECT \"Union\" FROM Club WHERE Code = 'HAST'")).isNull());
        // A club without a code keeps a null code; the field takes no empty text.
        QCOMPARE(SqlScalar(QStringLiteral(
                               "SELECT count(*) FROM Club WHERE Code IS NULL AND Club = 'No Code'"))
                     .toInt(),
                 1);
    }

    void quotesAHugeValueCutShort()
    {
        cTestSession session;
        cScriptedInteraction seam;
        Database().setSystemDir(session.Path({}));
        QFile base(session.Path(QStringLiteral("club.txt")));
        QVERIFY(base.open(QIODevice::WriteOnly));
        base.write("\"HAST\",\"" + QByteArray(10 * 1024 * 1024, 'H') + "\",\"SUSX\",\"SCCU\"\n");
        base.close();
        QVERIFY(!Database().CopyClubTable(QString(), QStringLiteral("Club")));
        const QString fault = Database().LoadFaultText();
        QVERIFY2(fault.contains(u'"' + QString(60, u'H') + QChar(0x2026) + u'"'),
                 qPrintable(fault));
        QVERIFY2(fault.size() < 300, qPrintable(fault.left(300)));
    }

    void storesImportedTextWithoutControlCharacters()
    {
        cTestSession session;
        cScriptedInteraction seam;
        cDbaseWriter writer(GradingListFields());
        writer.AddRow(ListRow("4000A", "Smi" + QByteArray(1, '\0') + "th,\tJohn", "100", "C"));
        QVERIFY(writer.Save(session.Path(QStringLiteral("Control.dbf"))));
        QVERIFY(Database().LoadBCFMastList(session.Path(QStringLiteral("Control.dbf"))));
        QCOMPARE(ListValue(QStringLiteral("Name"), QStringLiteral("4000A")).toString(),
                 QStringLiteral("Smith,John"));

        Database().setSystemDir(session.Path({}));
        QFile base(session.Path(QStringLiteral("club.txt")));
        QVERIFY(base.open(QIODevice::WriteOnly));
        base.write("\"HAST\",\"Hast" + QByteArray(1, '\0') + "ings\x7f\",\"SUSX\",\"SCCU\"\n");
        base.close();
        QVERIFY2(Database().CopyClubTable(QString(), QStringLiteral("Club")),
                 qPrintable(Database().LoadFaultText()));
        QCOMPARE(SqlScalar(QStringLiteral("SELECT Club FROM Club WHERE Code = 'HAST'")).toString(),
                 QStringLiteral("Hastings"));
    }

    void saysHowManyGradesCouldNotBeRead()
    {
        cTestSession session;
        cScriptedInteraction seam;
        cDbaseWriter writer(GradingListFields());
        writer.AddRow(ListRow("4000A", "Letters, Ann", "ABC", "C"));
        writer.AddRow(ListRow("4001B", "Letters, Bob", "X", "C"));
        writer.AddRow(ListRow("4002C", "Number, Cat", "150", "C"));
        QVERIFY(writer.Save(session.Path(QStringLiteral("Letters.dbf"))));
        QVERIFY(Database().LoadBCFMastList(session.Path(QStringLiteral("Letters.dbf"))));
        QVERIFY(ListValue(QStringLiteral("Grade"), QStringLiteral("4000A")).isNull());
        QCOMPARE(ListValue(QStringLiteral("Grade"), QStringLiteral("4002C")).toDouble(), 150.0);
        QCOMPARE(seam.CallsStartingWith(QStringLiteral("message|")),
                 QStringList{QStringLiteral("message|information|Velmora!|3 players loaded\n\n2 "
                                            "grades of the list could not be read and were left "
                                            "empty.")});
    }

    void readsAUtf8BaseCopyWithADamagedByteAsUtf8AndSaysSo()
    {
        cTestSession session;
        cScriptedInteraction seam;
        Database().setSystemDir(session.Path({}));
        QFile base(session.Path(QStringLiteral("club.txt")));
        QVERIFY(base.open(QIODevice::WriteOnly));
        base.write("\"HAST\",\"H\xc3\xa4stings \xc3\x84rger\",\"SUSX\",\"SCCU\"\n"
                   "\"BRIS\",\"Bris\xfftol\",\"AVON\",\"WECU\"\n");
        base.close();
        QVERIFY2(Database().CopyClubTable(QString(), QStringLiteral("Club")),
                 qPrintable(Database().LoadFaultText()));
        QCOMPARE(SqlScalar(QStringLiteral("SELECT Club FROM Club WHERE Code = 'HAST'")).toString(),
                 QStringLiteral("H\u00e4stings \u00c4rger"));
        QCOMPARE(SqlScalar(QStringLiteral("SELECT Club FROM Club WHERE Code = 'BRIS'")).toString(),
                 QStringLiteral("Bris\ufffdtol"));
        QCOMPARE(Database().LoadNotes().size(), 1);
        QVERIFY2(Database().LoadNotes().first().contains(QStringLiteral("1 damaged byte")),
                 qPrintable(Database().LoadNotes().first()));

        // A copy in code page 1252 is still read as such, with no note.
        QVERIFY(base.open(QIODevice::WriteOnly | QIODevice::Truncate));
        base.write("\"HAST\",\"H\xe4stings \xc4rger\",\"SUSX\",\"SCCU\"\n");
        base.close();
        QVERIFY(Database().CopyClubTable(QString(), QStringLiteral("Club")));
        QCOMPARE(SqlScalar(QStringLiteral("SELECT count(*) FROM Club WHERE Club = ?"),
                           {QStringLiteral("H\u00e4stings \u00c4rger")})
                     .toInt(),
                 2);
        QVERIFY(Database().LoadNotes().isEmpty());
    }

    void readsTheBaseCopyOfTheClubList()
    {
        cTestSession session;
        cScriptedInteraction seam;
        Database().setSystemDir(session.Path(QStringLiteral("system")));
        QVERIFY(QDir().mkpath(session.Path(QStringLiteral("system"))));
        QFile base(session.Path(QStringLiteral("system/club.txt")));
        QVERIFY(base.open(QIODevice::WriteOnly));
        base.write("\"HAST\",\"Hastings, St Leonards\",\"SUSX\",\"SCCU\"\r\n"
                   "\"BRIS\",\"Bristol \xc3\xa9lite\",\"\",\"WECU\"\n"
                   "\n");
        base.close();
        QVERIFY2(Database().CopyClubTable(QString(), QStringLiteral("Club")),
                 qPrintable(Database().LoadFaultText()));
        QCOMPARE(RowCount(QStringLiteral("Club")), 2);
        QCOMPARE(SqlScalar(QStringLiteral("SELECT Club FROM Club WHERE Code = 'HAST'")).toString(),
                 QStringLiteral("Hastings, St Leonards"));
        QCOMPARE(SqlScalar(QStringLiteral("SELECT Club FROM Club WHERE Code = 'BRIS'")).toString(),
                 QStringLiteral("Bristol \u00e9lite"));
        QVERIFY(
            IsEmptyText(SqlScalar(QStringLiteral("SELECT County FROM Club WHERE Code = 'BRIS'"))));
        QCOMPARE(seam.CallsStartingWith(QStringLiteral("progress-start")),
                 QStringList{
                     QStringLiteral("progress-start|Copying the Club table from a base copy|1")});
    }

    void refusesAMalformedBaseCopyAndKeepsTheClubs()
    {
        cTestSession session;
        cScriptedInteraction seam;
        Database().setSystemDir(session.Path({}));
        QFile base(session.Path(QStringLiteral("club.txt")));
        QVERIFY(base.open(QIODevice::WriteOnly));
        base.write("\"HAST\",\"Hastings\",\"SUSX\",\"SCCU\"\n\"BRIS\",\"Bristol\"\n");
        base.close();
        QVERIFY(
            !CopySharedFile(QStringLiteral("grading-list/clubs.dbf"), session.Path({})).isEmpty());
        QVERIFY(Database().LoadClubTable(session.Path(QStringLiteral("clubs.dbf"))));
        QVERIFY(!Database().CopyClubTable(QString(), QStringLiteral("Club")));
        QVERIFY(Database().LoadFaultText().contains(QStringLiteral("Line 2 of")));
        QCOMPARE(RowCount(QStringLiteral("Club")), 600);
        QVERIFY(!Database().CopyClubTable(session.Path(QStringLiteral("nowhere")),
                                          QStringLiteral("Club")));
        QVERIFY(Database().LoadFaultText().contains(QStringLiteral("cannot be found")));
        QFile::remove(session.Path(QStringLiteral("club.txt")));
        QVERIFY(!Database().CopyClubTable(QString(), QStringLiteral("Club")));
        QVERIFY(Database().LoadFaultText().contains(QStringLiteral("base copy")));
        QCOMPARE(RowCount(QStringLiteral("Club")), 600);
    }

    void writesTheBaseCopyThatItReads()
    {
        cTestSession session;
        QTemporaryDir system;
        Database().setSystemDir(system.path());
        QVERIFY(!CopySharedFile(QStringLiteral("dos/Club.dbf"), session.Path({})).isEmpty());
        QVERIFY2(Database().OutputClubTable(session.Path({})),
                 qPrintable(Database().LoadFaultText()));
        QFile base(system.filePath(QStringLiteral("club.txt")));
        QVERIFY(base.open(QIODevice::ReadOnly));
        const QByteArray text = base.readAll();
        QVERIFY(text.startsWith("\"HAST\",\"Hastings\",\"SUSX\",\"SCCU\"\r\n"));
        QCOMPARE(text.count('\n'), 5);
        QVERIFY(Database().CopyClubTable(QString(), QStringLiteral("Club")));
        QCOMPARE(RowCount(QStringLiteral("Club")), 5);
        QCOMPARE(SqlScalar(QStringLiteral("SELECT Club FROM Club WHERE Code = 'BRIS'")).toString(),
                 QStringLiteral("Bristol"));
    }
};

VELMORA_TEST_MAIN(TestListLoad)
#include "test_list_load.moc"
