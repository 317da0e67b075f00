#include "database/database.h"
#include "database/sql.h"
#include "session/globals.h"
#include "support/dbase_writer.h"
#include "support/scripted_interaction.h"
#include "support/test_environment.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <QTest>

namespace {

QString CopyDosFolder(const QTemporaryDir &folder)
{
    return CopySharedDosFolder(folder.path()) ? folder.path() : QString();
}

QVariant Value(const QString &statement, const QVariantList &values = {})
{
    return SqlScalar(statement, values);
}

bool IsEmptyText(const QVariant &value)
{
    return !value.isNull() && value.toString().isEmpty();
}

// A Velmora table of the DOS predecessor with one tournament a row, dated as given.
void WriteTournaments(const QString &path, const QList<QList<QByteArray>> &rows)
{
    cDbaseWriter writer(
        {{"T_Id", 'C', 6},      {"Title", 'C', 40},   {"Tourn", 'C', 40},   {"T_Date", 'D', 8},
         {"T_End", 'D', 8},     {"T_Type", 'C', 1},   {"Rounds", 'C', 2},   {"Curr_Round", 'N', 2},
         {"Def_Grade", 'C', 3}, {"T_Text1", 'C', 60}, {"T_Text2", 'C', 60}, {"T_Text3", 'C', 60},
         {"T_Text4", 'C', 60},  {"T_Text5", 'C', 60}, {"T_Text6", 'C', 60}, {"Locked", 'L', 1},
         {"Code", 'C', 4},      {"Type", 'C', 1},     {"Desc", 'C', 30},    {"Union", 'C', 1}});
    for (const QList<QByteArray> &row : rows)
        writer.AddRow(row);
    QVERIFY(writer.Save(path));
}

} // namespace

class TestDosImport : public QObject
{
    Q_OBJECT

private slots:
    void importsTheSharedDosFolder()
    {
        cTestSession session;
        cScriptedInteraction seam;
        QTemporaryDir dos;
        QVERIFY(!CopyDosFolder(dos).isEmpty());
        QVERIFY(Database().Copy(dos.path()));
        QCOMPARE(seam.Count(QStringLiteral("message|")), 0);
        // Three Master_Id values and one P_Id are not numbers.
        QCOMPARE(RowCount(QStringLiteral("Master")), 297);
        QCOMPARE(RowCount(QStringLiteral("Velmora")), 6);
        QCOMPARE(RowCount(QStringLiteral("Player")), 106);
        QCOMPARE(RowCount(QStringLiteral("Result")), 302);
        QCOMPARE(RowCount(QStringLiteral("Club")), 5);
        QCOMPARE(
            seam.CallsStartingWith(QStringLiteral("progress-start")),
            QStringList(
                {QStringLiteral(
                     "progress-start|Copying the Master table from the Velmora DOS database|300"),
                 QStringLiteral(
                     "progress-start|Copying the Tournament table from the Velmora DOS database|6"),
                 QStringLiteral(
                     "progress-start|Copying the Player table from the Velmora DOS database|107"),
                 QStringLiteral(
                     "progress-start|Copying the Results table from the Velmora DOS database|302"),
                 QStringLiteral(
                     "progress-start|Copying the Club table from the Velmora DOS database|5")}));
        QCOMPARE(seam.Count(QStringLiteral("progress-end")), 5);

        // The register, names as the DOS files give them.
        QCOMPARE(Value(QStringLiteral("SELECT Surname FROM Master WHERE MasterId = 1")).toString(),
                 QStringLiteral("KHAN"));
        QCOMPARE(Value(QStringLiteral("SELECT MrTitle FROM Master WHERE MasterId = 1")).toString(),
                 QStringLiteral("MRS"));
        QCOMPARE(Value(QStringLiteral("SELECT Address4 FROM Master WHERE MasterId = 1")).toString(),
                 QStringLiteral("EAST SUSSEX"));
        QVERIFY(IsEmptyText(Value(QStringLiteral("SELECT eMail FROM Master WHERE MasterId = 1"))));
        QVERIFY(IsEmptyText(Value(QStringLiteral("SELECT ECode FROM Master WHERE MasterId = 1"))));
        QVERIFY(Value(QStringLiteral("SELECT Age FROM Master WHERE MasterId = 1")).isNull());
        QCOMPARE(
            Value(QStringLiteral("SELECT count(*) FROM Master WHERE MasterId IS NULL")).toInt(), 0);
        QCOMPARE(Value(QStringLiteral("SELECT count(*) FROM Master WHERE Surname IS NULL OR "
                                      "Address4 IS NULL OR Special4 IS NULL"))
                     .toInt(),
                 0);

        // Tournaments: logical fields and dates of this century.
        QCOMPARE(Value(QStringLiteral("SELECT TDate FROM Velmora WHERE TId = 1")).toString(),
                 QStringLiteral("1997-03-11"));
        QCOMPARE(Value(QStringLiteral("SELECT TDate FROM Velmora WHERE TId = 3")).toString(),
                 QStringLiteral("2001-03-13"));
        QVERIFY(Value(QStringLiteral("SELECT TEnd FROM Velmora WHERE TId = 3")).isNull());
        QCOMPARE(Value(QStringLiteral("SELECT TEnd FROM Velmora WHERE TId = 4")).toString(),
                 QStringLiteral("2003-03-16"));
        QCOMPARE(Value(QStringLiteral("SELECT Locked FROM Velmora WHERE TId = 1")).toInt(), 1);
        QCOMPARE(Value(QStringLiteral("SELECT DefGrade FROM Velmora WHERE TId = 2")).toInt(), 80);
        QCOMPARE(Value(QStringLiteral("SELECT CurrRound FROM Velmora WHERE TId = 2")).toInt(), 7);
        QVERIFY(IsEmptyText(Value(QStringLiteral("SELECT \"Desc\" FROM Velmora WHERE TId = 1"))));

        // Entrants: logical fields, a blank date of birth.
        QCOMPARE(
            Value(QStringLiteral("SELECT count(*) FROM Player WHERE Withdrawn = 0 AND Active = 1"))
                .toInt(),
            106);
        QCOMPARE(Value(QStringLiteral("SELECT Surname FROM Player WHERE TId = 1 AND PId = 2"))
                     .toString(),
                 QStringLiteral("O'BRIEN"));
        QVERIFY(Value(QStringLiteral("SELECT DOB FROM Player WHERE TId = 1 AND PId = 2")).isNull());
        QCOMPARE(
            Value(QStringLiteral("SELECT DOB FROM Player WHERE TId = 1 AND PId = 1")).toString(),
            QStringLiteral("1953-05-27"));
        QCOMPARE(Value(QStringLiteral("SELECT Pin FROM Player WHERE TId = 1 AND PId = 3")).toInt(),
                 3);

        QCOMPARE(
            Value(
                QStringLiteral(
                    "SELECT \"Result\" FROM Result WHERE TId = 1 AND \"Round\" = 1 AND Board = 1"))
                .toString(),
            QStringLiteral("B"));
        QCOMPARE(
            Value(QStringLiteral(
                      "SELECT White FROM Result WHERE TId = 1 AND \"Round\" = 1 AND Board = 1"))
                .toInt(),
            15);
    }

    void skipsAnEntrantWithABlankPlayerId()
    {
        cTestSession session;
        QTemporaryDir dos;
        QVERIFY(!CopyDosFolder(dos).isEmpty());
        QVERIFY(Database().CopyPlayerTable(dos.path()));
        QCOMPARE(RowCount(QStringLiteral("Player")), 106);
        QCOMPARE(Value(QStringLiteral("SELECT count(*) FROM Player WHERE MasterId = 5 AND TId = 2"))
                     .toInt(),
                 0);
        QCOMPARE(Value(QStringLiteral("SELECT count(*) FROM Player WHERE PId IS NULL")).toInt(), 0);
    }

    void dropsGradeZeroInTheRegisterButKeepsItForEntrants()
    {
        cTestSession session;
        QTemporaryDir dos;
        QVERIFY(!CopyDosFolder(dos).isEmpty());
        QVERIFY(Database().CopyMasterTable(dos.path()));
        QVERIFY(Database().CopyPlayerTable(dos.path()));
        // 89 rows of Master have grade 0 with a letter.
        QCOMPARE(Value(QStringLiteral("SELECT count(*) FROM Master WHERE Grade = 0")).toInt(), 0);
        QVERIFY(
            Value(QStringLiteral("SELECT count(*) FROM Master WHERE Grade IS NULL AND GLett = ''"))
                .toInt() >= 89);
        QCOMPARE(
            Value(QStringLiteral("SELECT count(*) FROM Master WHERE Grade IS NULL AND GLett <> ''"))
                .toInt(),
            0);
        // The entrant with grade 0 and letter B keeps both.
        QCOMPARE(
            Value(QStringLiteral("SELECT Grade FROM Player WHERE TId = 1 AND PId = 2")).toInt(), 0);
        QVERIFY(
            !Value(QStringLiteral("SELECT Grade FROM Player WHERE TId = 1 AND PId = 2")).isNull());
        QCOMPARE(
            Value(QStringLiteral("SELECT GLett FROM Player WHERE TId = 1 AND PId = 2")).toString(),
            QStringLiteral("B"));
    }

    void movesTwoDigitYearsBefore1970IntoThisCentury()
    {
        cTestSession session;
        QTemporaryDir dos;
        WriteTournaments(dos.filePath(QStringLiteral("VELMORA.DBF")),
                         {{"1", "Spring", "Open", "19010315", "19010317", "B", "5", "1", "100"},
                          {"2", "Late", "Open", "19691231", "19700101", "B", "5", "1", ""},
                          {"3", "Leap", "Open", "19040229", "", "R", "6", "", ""}});
        QVERIFY2(Database().CopyVelmoraTable(dos.path()), qPrintable(Database().LoadFaultText()));
        QCOMPARE(DisplayDateOf(Value(QStringLiteral("SELECT TDate FROM Velmora WHERE TId = 1"))),
                 QStringLiteral("15/03/2001"));
        QCOMPARE(DisplayDateOf(Value(QStringLiteral("SELECT TEnd FROM Velmora WHERE TId = 1"))),
                 QStringLiteral("17/03/2001"));
        QCOMPARE(DisplayDateOf(Value(QStringLiteral("SELECT TDate FROM Velmora WHERE TId = 2"))),
                 QStringLiteral("31/12/2069"));
        QCOMPARE(DisplayDateOf(Value(QStringLiteral("SELECT TEnd FROM Velmora WHERE TId = 2"))),
                 QStringLiteral("01/01/1970"));
        QCOMPARE(DisplayDateOf(Value(QStringLiteral("SELECT TDate FROM Velmora WHERE TId = 3"))),
                 QStringLiteral("29/02/2004"));
        QVERIFY(Value(QStringLiteral("SELECT TEnd FROM Velmora WHERE TId = 3")).isNull());
        QVERIFY(Value(QStringLiteral("SELECT CurrRound FROM Velmora WHERE TId = 3")).isNull());
        QVERIFY(Value(QStringLiteral("SELECT Locked FROM Velmora WHERE TId = 3")).isNull());
    }

    void leavesNamesForTheUpgradeToPutIntoProperCase()
    {
        cTestSession session(cTestSession::Start::Empty);
        Database().Create();
        QTemporaryDir dos;
        QVERIFY(!CopyDosFolder(dos).isEmpty());
        QVERIFY(Database().Copy(dos.path()));
        QCOMPARE(Value(QStringLiteral("SELECT Surname FROM Player WHERE TId = 1 AND PId = 2"))
                     .toString(),
                 QStringLiteral("O'BRIEN"));
        QCOMPARE(Value(QStringLiteral("SELECT Vrsn FROM Cntrl")).toString(),
                 QStringLiteral("1.00"));
        Database().CheckVersion();
        QCOMPARE(Value(QStringLiteral("SELECT Surname FROM Player WHERE TId = 1 AND PId = 2"))
                     .toString(),
                 QStringLiteral("O'Brien"));
        QCOMPARE(Value(QStringLiteral("SELECT Surname FROM Master WHERE MasterId = 1")).toString(),
                 QStringLiteral("Khan"));
        QCOMPARE(Value(QStringLiteral("SELECT Address4 FROM Master WHERE MasterId = 1")).toString(),
                 QStringLiteral("East Sussex"));
    }

    void leavesNoPartFilledDatabaseWhenAFileBreaksHalfWay()
    {
        cTestSession session;
        cScriptedInteraction seam;
        QTemporaryDir dos;
        QVERIFY(!CopyDosFolder(dos).isEmpty());
        QFile result(dos.filePath(QStringLiteral("Result.dbf")));
        QVERIFY(result.resize(result.size() - 1000));
        QVERIFY(!Database().Copy(dos.path()));
        for (const char *table : {"Master", "Velmora", "Player", "Result", "Club"})
            QCOMPARE(RowCount(QString::fromLatin1(table)), 0);
        // The reason is kept for the one message that the start-up gives.
        QVERIFY(seam.CallsStartingWith(QStringLiteral("message|")).isEmpty());
        QVERIFY(Database().LoadFaultText().contains(QStringLiteral("could not be imported")));
        QVERIFY(Database().LoadFaultText().contains(QStringLiteral("Result.dbf is damaged")));
        QCOMPARE(seam.Count(QStringLiteral("progress-start")),
                 seam.Count(QStringLiteral("progress-end")));
    }

    void refusesAValueThatDoesNotFitAndImportsNothing()
    {
        cTestSession session;
        cScriptedInteraction seam;
        QTemporaryDir dos;
        QVERIFY(!CopyDosFolder(dos).isEmpty());
        WriteTournaments(dos.filePath(QStringLiteral("Velmora.dbf")),
                         {{"1", "Spring", "Open", "19010315", "19010317", "B", "5", "1", "ABC"}});
        QVERIFY(!Database().Copy(dos.path()));
        QVERIFY(Database().LoadFaultText().contains(
            QStringLiteral("Def_Grade \"ABC\" is not a number")));
        QCOMPARE(RowCount(QStringLiteral("Master")), 0);
        QCOMPARE(RowCount(QStringLiteral("Velmora")), 0);
    }

    void refusesAFolderWithoutAField()
    {
        cTestSession session;
        cScriptedInteraction seam;
        QTemporaryDir dos;
        QVERIFY(!CopyDosFolder(dos).isEmpty());
        cDbaseWriter writer(
            {{"T_Id", 'C', 6}, {"Round", 'C', 2}, {"Board", 'C', 3}, {"White", 'C', 4}});
        writer.AddRow({"1", "1", "1", "15"});
        QVERIFY(writer.Save(dos.filePath(QStringLiteral("Result.dbf"))));
        QVERIFY(!Database().Copy(dos.path()));
        QVERIFY(
            Database().LoadFaultText().contains(QStringLiteral("lacks the fields Black, Result")));
        QCOMPARE(RowCount(QStringLiteral("Player")), 0);
    }

    void copiesTheBaseCopyOfClubsWithoutASource()
    {
        cTestSession session;
        QTemporaryDir system;
        Database().setSystemDir(system.path());
        QFile base(system.filePath(QStringLiteral("club.txt")));
        QVERIFY(base.open(QIODevice::WriteOnly));
        base.write("\"WORT\",\"Worthing\",\"SUSX\",\"SCCU\"\n");
        base.close();
        QVERIFY(Database().Copy(QString()));
        QCOMPARE(RowCount(QStringLiteral("Club")), 1);
        QCOMPARE(RowCount(QStringLiteral("Master")), 0);
        QCOMPARE(Value(QStringLiteral("SELECT Club FROM Club")).toString(),
                 QStringLiteral("Worthing"));
    }

    void copiesTheClubsOfTheSourceFolderWithASource()
    {
        cTestSession session;
        QTemporaryDir system;
        Database().setSystemDir(system.path());
        QFile base(system.filePath(QStringLiteral("club.txt")));
        QVERIFY(base.open(QIODevice::WriteOnly));
        base.write("\"WORT\",\"Worthing\",\"SUSX\",\"SCCU\"\n");
        base.close();
        QTemporaryDir dos;
        QVERIFY(!CopyDosFolder(dos).isEmpty());
        QVERIFY(Database().Copy(dos.path()));
        QCOMPARE(RowCount(QStringLiteral("Club")), 5);
        QCOMPARE(Value(QStringLiteral("SELECT count(*) FROM Club WHERE Code = 'WORT'")).toInt(), 0);
        QCOMPARE(Value(QStringLiteral("SELECT Club FROM Club WHERE Code = 'HAST'")).toString(),
                 QStringLiteral("Hastings"));
    }

    void findsTheFolderOfAMasterFileInAnyCase_data()
    {
        QTest::addColumn<QString>("box");
        QTest::addColumn<QString>("folder");
        QTest::newRow("small letters")
            << QStringLiteral("d:\\old\\master.dbf") << QStringLiteral("d:\\old");
        QTest::newRow("capitals") << QStringLiteral("D:\\OLD\\MASTER.DBF")
                                  << QStringLiteral("D:\\OLD");
        QTest::newRow("mixed") << QStringLiteral("d:\\old\\Master.Dbf")
                               << QStringLiteral("d:\\old");
        QTest::newRow("slashes") << QStringLiteral("/home/chess/Master.dbf")
                                 << QStringLiteral("/home/chess");
        QTest::newRow("not a master file") << QStringLiteral("d:\\old\\players.dbf") << QString();
    }
    void findsTheFolderOfAMasterFileInAnyCase()
    {
        QFETCH(QString, box);
        QFETCH(QString, folder);
        QCOMPARE(cDatabase::DosFolderOfMaster(box), folder);
    }
};

VELMORA_TEST_MAIN(TestDosImport)
#include "test_dos_import.moc"
