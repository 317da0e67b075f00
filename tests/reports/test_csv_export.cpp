#include "base/fatal_fault.h"
#include "database/sql.h"
#include "register/master.h"
#include "reports/report_options.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/player.h"
#include "session/players.h"
#include "session/tournament.h"
#include "support/full_disk.h"
#include "support/scripted_interaction.h"
#include "support/test_environment.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>
#include <QStandardPaths>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

class TestCsvExport : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void registerWithNoBoxTickedHasSurnameAndForenameOnly();
    void registerQuotesHeaderAndValuesAndNamesFlagsByTheirCaptions();
    void registerDoublesQuotesInsideAValue();
    void tournamentQuotesAValueThatHoldsACommaAQuoteOrALineBreak();
    void bothExportsReadBackWithAnotherProgramsCsvReader();
    void registerUserSelectionFiltersOnItsFlagWhateverItsCaption();
    void registerIgnoresTheTournamentResultsBox();
    void registerWithAnEmptySelectionIsAFailure();
    void tournamentHeaderHasCommaBlankAndRowsPlainCommas();
    void tournamentGradesArePaddedToFourColumns();
    void tournamentResultsAddScoreAndPerformance();
    void exportToAFileReplacesItAndSaysSo();
    void exportToAPlaceThatCanNotBeWrittenSaysWhyAndGoesOn();
    void exportOnAFullDiskSaysWhyAndKeepsTheOldFile();

private:
    std::unique_ptr<cTestSession> session_;
    std::unique_ptr<cScriptedInteraction> interaction_;
};

namespace {

QString MakeMaster(const QString &surname, const QString &forename, const QString &special1)
{
    cMaster master;
    master.setSurname(surname);
    master.setForename(forename);
    master.setAddress1(u"1 Park Road"_s);
    master.setAddress2(u"Bath"_s);
    master.setAddress4(u"Somerset"_s);
    master.setPostcode(u"BA1 1AA"_s);
    master.setPhone(u"01225 000000"_s);
    master.seteMail(surname.toLower() + u"@example.org"_s);
    master.setDOB(u"02/05/2010"_s);
    master.setGender(u"M"_s);
    master.setClub(u"Bath"_s);
    master.setClubCode(u"BATH"_s);
    master.setClubName(u"Bath Chess Club"_s);
    master.setUnion(u"W"_s);
    master.setNation(u"ENG"_s);
    master.setLongPlay(u"150"_s);
    master.setLongPlayLett(u"A"_s);
    master.setFIDE(u"1850"_s);
    master.setGMTitle(u"FM"_s);
    master.setSpecial1(special1);
    master.setSpecial2(u"Y"_s);
    master.Create();
    return master.MasterId();
}

QStringList Lines(const QByteArray &bytes)
{
    QStringList lines = QString::fromUtf8(bytes).split(u"\r\n"_s);
    if (!lines.isEmpty() && lines.constLast().isEmpty())
        lines.removeLast();
    return lines;
}

QStringList RegisterExport(const cExportOptions &options)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    Control().ListPlayersExport(buffer, options);
    return Lines(buffer.data());
}

QStringList TournamentExport(const cExportOptions &options)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    Control().Tournament()->Players().ListPlayersExport(buffer, options);
    return Lines(buffer.data());
}

// A tournament of three entrants, the first two from the register.
void MakeTournament(const QString &firstMaster, const QString &secondMaster)
{
    auto tournament = std::make_shared<cTournament>();
    tournament->setTitle(u"Bath Congress"_s);
    tournament->setTType(u"B"_s);
    tournament->setDefGrade(u"95"_s);
    tournament->Create();
    Control().setTournament(tournament);
    const auto add = [](const QString &masterId, const QString &surname, const QString &forename,
                        const QString &pin, const QString &grade, const QString &letter,
                        const QString &club) {
        cPlayer player;
        player.setMasterId(masterId);
        player.setSurname(surname);
        player.setForename(forename);
        player.setPin(pin);
        player.setLongPlay(grade);
        player.setLongPlayLett(letter);
        player.setClub(club);
        player.setBCFCode(u"123456A"_s);
        player.setDOB(u"02/05/2010"_s);
        player.setAge(u"14"_s);
        player.setScore(u"2.5"_s);
        player.setGames(u"4"_s);
        player.setGPoints(u"650"_s);
        player.Create();
    };
    add(secondMaster, u"Young"_s, u"Zoe"_s, u"1"_s, u"150"_s, u"A"_s, u"Bath"_s);
    add(firstMaster, u"Abbott"_s, u"Amy"_s, u"2"_s, u"95"_s, QString(), u"Bath, Avon"_s);
    add(QString(), u"Newman"_s, QString(), u"3"_s, QString(), QString(), QString());
    tournament->Players().LoadAllPlayers();
}

} // namespace

void TestCsvExport::init()
{
    session_ = std::make_unique<cTestSession>();
    interaction_ = std::make_unique<cScriptedInteraction>();
    Control().setAgeDate(u"01/01/2025"_s);
    Control().setMaxDisplayAge(u"20"_s);
    Control().setUserDefined1(u"Juniors"_s);
    Control().setUserDefined2(u"Mailing"_s);
    Control().setUserDefined3(u"Arbiters"_s);
    Control().setUserDefined4(u"Helpers"_s);
}

void TestCsvExport::cleanup()
{
    Control().setTournament(nullptr);
    interaction_.reset();
    session_.reset();
}

void TestCsvExport::registerWithNoBoxTickedHasSurnameAndForenameOnly()
{
    MakeMaster(u"Young"_s, u"Zoe"_s, u"Y"_s);
    MakeMaster(u"Abbott"_s, u"Amy"_s, QString());
    QCOMPARE(RegisterExport(cExportOptions{}),
             (QStringList{u"\"Surname\",\"Forename\""_s, u"\"Abbott\",\"Amy\""_s,
                          u"\"Young\",\"Zoe\""_s}));
}

void TestCsvExport::registerQuotesHeaderAndValuesAndNamesFlagsByTheirCaptions()
{
    MakeMaster(u"Abbott"_s, u"Amy"_s, u"Y"_s);
    cExportOptions options;
    options.Personal = options.Contact = options.Club = options.Grade = options.User = true;
    const QStringList lines = RegisterExport(options);
    QCOMPARE(lines.size(), 2);
    QCOMPARE(lines.at(0),
             u"\"Surname\",\"Forename\",\"DOB\",\"Age\",\"Gender\",\"Address1\",\"Address2\","
             "\"Address3\",\"County\",\"Postcode\",\"Phone\",\"eMail\",\"Club\",\"School\","
             "\"ClubCode\",\"ClubName\",\"Union\",\"Nation\",\"LongPlayGrade\","
             "\"RapidPlayGrade\",\"BCFCode\",\"Fide\",\"GMTitle\",\"Juniors\",\"Mailing\","
             "\"Arbiters\",\"Helpers\""_s);
    // The age is the stored one; a null value is an empty quoted text.
    QCOMPARE(lines.at(1),
             u"\"Abbott\",\"Amy\",\"02/05/2010\",\"14\",\"M\",\"1 Park Road\",\"Bath\",\"\","
             "\"Somerset\",\"BA1 1AA\",\"01225 000000\",\"abbott@example.org\",\"Bath\",\"\","
             "\"BATH\",\"Bath Chess Club\",\"W\",\"ENG\",\"150A\",\"\",\"\",\"1850\",\"FM\","
             "\"Y\",\"Y\",\"\",\"\""_s);
}

void TestCsvExport::registerDoublesQuotesInsideAValue()
{
    MakeMaster(u"O\"Neil"_s, u"Pat"_s, QString());
    QCOMPARE(RegisterExport(cExportOptions{}).at(1), u"\"O\"\"Neil\",\"Pat\""_s);
}

void TestCsvExport::tournamentQuotesAValueThatHoldsACommaAQuoteOrALineBreak()
{
    MakeTournament(QString(), QString());
    RunSql(u"UPDATE Player SET Surname = 'Smith, Jr', Forename = 'O\"Neil' WHERE Surname = "
           "'Young'"_s);
    RunSql(u"UPDATE Player SET Forename = 'Two' || char(10) || 'Lines' WHERE Surname = "
           "'Newman'"_s);
    Control().Tournament()->setPlayers(std::make_shared<cPlayers>());
    Control().Tournament()->Players().LoadAllPlayers();
    const QStringList lines = TournamentExport(cExportOptions{});
    QVERIFY2(lines.contains(u"\"Smith, Jr\",\"O\"\"Neil\""_s), qPrintable(lines.join(u'|')));
    QVERIFY2(lines.contains(u"Newman,\"Two\nLines\""_s), qPrintable(lines.join(u'|')));
    QVERIFY(lines.contains(u"Abbott,Amy"_s));
}

void TestCsvExport::bothExportsReadBackWithAnotherProgramsCsvReader()
{
    const QString python = QStandardPaths::findExecutable(u"python3"_s);
    if (python.isEmpty())
        QSKIP("python3 is not installed");
    const QString awkward[] = {u"Smith, Jr"_s, u"O\"Neil \"Pat\""_s, u"Two\nLines"_s, u"Plain"_s};
    QString firstMaster;
    for (const QString &surname : awkward) {
        const QString id = MakeMaster(surname, u"Amy, \"A\""_s, QString());
        if (firstMaster.isEmpty())
            firstMaster = id;
    }
    MakeTournament(firstMaster, QString());
    cExportOptions options;
    options.Club = true;
    // Python's csv module reads each file and gives back its rows as JSON.
    const auto readBack = [&python](const QByteArray &bytes) {
        QProcess reader;
        reader.start(python, {u"-c"_s, u"import csv, io, json, sys\n"
                                       "text = sys.stdin.buffer.read().decode('utf-8')\n"
                                       "rows = list(csv.reader(io.StringIO(text, newline='')))\n"
                                       "print(json.dumps(rows))"_s});
        reader.write(bytes);
        reader.closeWriteChannel();
        reader.waitForFinished(30000);
        return QJsonDocument::fromJson(reader.readAllStandardOutput()).array();
    };
    QBuffer registerFile;
    registerFile.open(QIODevice::WriteOnly);
    Control().ListPlayersExport(registerFile, options);
    const QJsonArray registerRows = readBack(registerFile.data());
    QCOMPARE(registerRows.size(), 5);
    QCOMPARE(registerRows[0].toArray()[0].toString(), u"Surname"_s);
    QStringList surnames;
    for (qsizetype row = 1; row < registerRows.size(); ++row) {
        const QJsonArray values = registerRows[row].toArray();
        QCOMPARE(values.size(), registerRows[0].toArray().size());
        QCOMPARE(values[1].toString(), u"Amy, \"A\""_s);
        surnames.append(values[0].toString());
    }
    QStringList expected(std::begin(awkward), std::end(awkward));
    expected.sort();
    surnames.sort();
    QCOMPARE(surnames, expected);

    RunSql(u"UPDATE Player SET Surname = 'Smith, Jr', Forename = 'O\"Neil' WHERE Surname = "
           "'Young'"_s);
    Control().Tournament()->setPlayers(std::make_shared<cPlayers>());
    Control().Tournament()->Players().LoadAllPlayers();
    QBuffer tournamentFile;
    tournamentFile.open(QIODevice::WriteOnly);
    Control().Tournament()->Players().ListPlayersExport(tournamentFile, options);
    const QJsonArray tournamentRows = readBack(tournamentFile.data());
    QCOMPARE(tournamentRows.size(), 4);
    const qsizetype columns = tournamentRows[0].toArray().size();
    bool sawAwkward = false;
    for (qsizetype row = 1; row < tournamentRows.size(); ++row) {
        const QJsonArray values = tournamentRows[row].toArray();
        QCOMPARE(values.size(), columns);
        if (values[0].toString() == u"Smith, Jr") {
            sawAwkward = true;
            QCOMPARE(values[1].toString(), u"O\"Neil"_s);
        }
        if (values[0].toString() == u"Abbott")
            QCOMPARE(values[2].toString(), u"Bath, Avon"_s);
    }
    QVERIFY(sawAwkward);
}

void TestCsvExport::registerUserSelectionFiltersOnItsFlagWhateverItsCaption()
{
    MakeMaster(u"Young"_s, u"Zoe"_s, u"Y"_s);
    MakeMaster(u"Abbott"_s, u"Amy"_s, QString());
    Control().setUserDefined1(u"Special2"_s);
    cExportOptions options;
    options.Selection = PlayerSelection::User1;
    QCOMPARE(RegisterExport(options),
             (QStringList{u"\"Surname\",\"Forename\""_s, u"\"Young\",\"Zoe\""_s}));
}

void TestCsvExport::registerIgnoresTheTournamentResultsBox()
{
    MakeMaster(u"Abbott"_s, u"Amy"_s, QString());
    cExportOptions options;
    options.Results = true;
    QCOMPARE(RegisterExport(options),
             (QStringList{u"\"Surname\",\"Forename\""_s, u"\"Abbott\",\"Amy\""_s}));
}

void TestCsvExport::registerWithAnEmptySelectionIsAFailure()
{
    MakeMaster(u"Abbott"_s, u"Amy"_s, QString());
    cExportOptions options;
    options.Selection = PlayerSelection::User3;
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QVERIFY_THROWS_EXCEPTION(cFatalFault, Control().ListPlayersExport(buffer, options));
    QVERIFY(buffer.data().isEmpty());
}

void TestCsvExport::tournamentHeaderHasCommaBlankAndRowsPlainCommas()
{
    MakeTournament(MakeMaster(u"Abbott"_s, u"Amy"_s, u"Y"_s),
                   MakeMaster(u"Young"_s, u"Zoe"_s, QString()));
    cExportOptions options;
    options.Personal = options.Contact = options.Club = options.Grade = options.User = true;
    const QStringList lines = TournamentExport(options);
    QCOMPARE(lines.size(), 4);
    QCOMPARE(lines.at(0), u"Surname, Forename, DOB, Age, Address1, Address2, Address3, Address4, "
                          "Postcode, Phone, email, Club, School, ClubCode, ClubName, Grade,  BCF "
                          "Code, GM Title, Juniors, Mailing, Arbiters, Helpers"_s);
    // In the order of the collection, by pin: no sort of its own.
    QCOMPARE(lines.at(1), u"Young,Zoe,02/05/2010,14,1 Park Road,Bath,,Somerset,BA1 1AA,01225 "
                          "000000,young@example.org,Bath,,,,150A,123456A,,,Y,,"_s);
    // An entrant without a register record has empty contact and flag values.
    QCOMPARE(lines.at(3), u"Newman,,02/05/2010,14,,,,,,,,,,,, 95 ,123456A,,,,,"_s);
}

void TestCsvExport::tournamentGradesArePaddedToFourColumns()
{
    MakeTournament(QString(), QString());
    cExportOptions options;
    options.Grade = true;
    const QStringList lines = TournamentExport(options);
    QCOMPARE(lines.at(0), u"Surname, Forename, Grade,  BCF Code, GM Title"_s);
    QCOMPARE(lines.at(1), u"Young,Zoe,150A,123456A,"_s);
    QCOMPARE(lines.at(2), u"Abbott,Amy, 95 ,123456A,"_s);
}

void TestCsvExport::tournamentResultsAddScoreAndPerformance()
{
    MakeTournament(QString(), QString());
    cExportOptions options;
    options.Selection = PlayerSelection::Tournament;
    options.Results = true;
    const QStringList lines = TournamentExport(options);
    QCOMPARE(lines.at(0), u"Surname, Forename, Score, Performance Grade"_s);
    // 650 points over 4 games is 162.5, which rounds up.
    QCOMPARE(lines.at(1), u"Young,Zoe,2.5,163"_s);
}

void TestCsvExport::exportToAFileReplacesItAndSaysSo()
{
    MakeMaster(u"Abbott"_s, u"Amy"_s, QString());
    const QString path = session_->Path(u"Export.csv"_s);
    {
        QFile old(path);
        QVERIFY(old.open(QIODevice::WriteOnly));
        old.write("an older export that is longer than the new one\r\nsecond line\r\n");
    }
    cExportOptions options;
    options.Destination = path;
    Control().ListPlayersExport(options);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("\"Surname\",\"Forename\"\r\n\"Abbott\",\"Amy\"\r\n"));
    QCOMPARE(interaction_->CallsStartingWith(u"message|"_s),
             (QStringList{u"message|plain|Velmora!|Export Completed."_s}));

    MakeTournament(QString(), QString());
    interaction_->Clear();
    Control().Tournament()->Players().ListPlayersExport(options);
    file.close();
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(),
             QByteArray("Surname, Forename\r\nYoung,Zoe\r\nAbbott,Amy\r\nNewman,\r\n"));
    QCOMPARE(interaction_->Count(u"message|"_s), 1);
}

void TestCsvExport::exportToAPlaceThatCanNotBeWrittenSaysWhyAndGoesOn()
{
    MakeMaster(u"Abbott"_s, u"Amy"_s, QString());
    cExportOptions options;
    options.Destination = session_->Path(u"no such folder/Export.csv"_s);
    Control().ListPlayersExport(options);
    const QStringList messages = interaction_->CallsStartingWith(u"message|"_s);
    QCOMPARE(messages.size(), 1);
    QVERIFY2(messages.first().startsWith(u"message|exclamation|Velmora!|The export file "_s) &&
                 messages.first().contains(u"could not be written."_s),
             qPrintable(messages.first()));
    QVERIFY(!QFile::exists(options.Destination));
}

void TestCsvExport::exportOnAFullDiskSaysWhyAndKeepsTheOldFile()
{
    for (int id = 0; id < 200; ++id)
        MakeMaster(u"Abbott"_s + QString::number(id), u"Amy"_s, QString());
    MakeTournament(QString(), QString());
    cExportOptions options;
    options.Destination = session_->Path(u"Export.csv"_s);
    {
        QFile old(options.Destination);
        QVERIFY(old.open(QIODevice::WriteOnly));
        old.write("the export before\r\n");
    }
    {
        cFullDisk full(32);
        Control().ListPlayersExport(options);
        Control().Tournament()->Players().ListPlayersExport(options);
    }
    const QStringList messages = interaction_->CallsStartingWith(u"message|"_s);
    QCOMPARE(messages.size(), 2);
    for (const QString &message : messages)
        QVERIFY2(message.startsWith(u"message|exclamation|Velmora!|The export file "_s),
                 qPrintable(message));
    QFile file(options.Destination);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("the export before\r\n"));
    QCOMPARE(QDir(session_->Path(QString())).entryList({u"Export.csv*"_s}, QDir::Files),
             QStringList{u"Export.csv"_s});
}

VELMORA_TEST_MAIN(TestCsvExport)
#include "test_csv_export.moc"
