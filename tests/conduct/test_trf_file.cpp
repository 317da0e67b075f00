#include "conduct/dutch_pairing.h"
#include "conduct/swiss_simulation.h"
#include "conduct/trf_file.h"
#include "conduct/trf_pairing.h"
#include "support/test_environment.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QTest>

#include <algorithm>
#include <random>

using namespace mSwiss;

class TestTrfFile : public QObject
{
    Q_OBJECT

private slots:
    void playerLineFieldsAreRead();
    void writeReadWriteGivesTheSameBytes();
    void roundPairedButNotPlayedIsKeptAndRefusedForPairing();
    void badLinesAreRefusedWithLineAndReason_data();
    void badLinesAreRefusedWithLineAndReason();
    void workedExamplesGiveTheirPairings();
    void checkFindsNothingInAnEngineTournamentAndFindsAChangedRound();
    void pairingTextStartsWithTheNumberOfBoards();
    void damagedFilesAreReadOrRefusedNeverHalfRead();
};

namespace {

const char *const SampleLine =
    "001    7 m GM Dawson, Dora                      2360 ENG    12345678 1990/04/02  "
    "1.5    3     4 w 1  0000 - U     2 b 0";

std::string Sample()
{
    return std::string("012 Spring Congress\n022 Lowtown\n") + SampleLine + "\nXXR 7\nXXC black1\n";
}

cTrfFile FileOf(const cSwissTournament &tournament)
{
    cTrfFile file;
    file.headers = {{"012", "Simulated"}, {"042", "2026/11/23"}};
    file.tournament = tournament;
    file.roundsGiven = true;
    file.colourGiven = true;
    for (const auto &entrant : tournament.entrants) {
        cTrfPlayer player;
        player.sex = 'm';
        player.federation = "ENG";
        player.halfPoints = entrant.HalfPoints();
        file.players.push_back(player);
    }
    return file;
}

cSwissTournament Simulated(unsigned seed, int entrants, int rounds)
{
    cSwissSimulation simulation(seed, entrants, rounds);
    for (int round = 1; round <= rounds; ++round) {
        simulation.PrepareRound();
        const cRoundPairing pairing = PairNextRound(simulation.Tournament());
        if (!pairing.paired)
            break;
        simulation.RecordRound(pairing);
    }
    for (auto &entrant : simulation.Tournament().entrants)
        entrant.paired = true;
    return simulation.Tournament();
}

QByteArray FixtureText(const QString &name)
{
    QFile file(QStringLiteral(VELMORA_TEST_DATA "/pairing/") + name);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return file.readAll();
}

} // namespace

void TestTrfFile::playerLineFieldsAreRead()
{
    // The one player refers to others, so the cross check refuses it alone; read the
    // line's fields through a field of seven whose opponents answer.
    const cTrfReading alone = ReadTrf(Sample());
    QVERIFY(!alone.ok);

    cSwissTournament tournament;
    tournament.rounds = 7;
    for (int i = 1; i <= 7; ++i)
        tournament.entrants.push_back({i, 2000, "Player " + std::to_string(i), true, {}});
    cTrfFile file = FileOf(tournament);
    const cTrfReading sample = ReadTrf(std::string(SampleLine) + "\n");
    QCOMPARE(sample.line, 1);
    QCOMPARE(QString::fromStdString(sample.message),
             QStringLiteral("Line 1: the pairing number 7 is beyond the 1 players."));

    std::string text = WriteTrf(file);
    // Give player 7 the sample's record, and 4 and 2 the games that answer it.
    const auto replace = [&](int number, const std::string &line) {
        const std::string start = "001 " + std::string(3, ' ') + std::to_string(number) + " ";
        const auto at = text.find(start);
        QVERIFY(at != std::string::npos);
        text.replace(at, text.find('\n', at) - at, line);
    };
    replace(7, SampleLine);
    replace(4,
            "001    4 m    Player 4                          2000 ENG                         0.0"
            "          7 b 0  0000 - -  0000 - -");
    replace(2,
            "001    2 m    Player 2                          2000 ENG                         1.0"
            "       0000 - -  0000 - -     7 w 1");
    const cTrfReading reading = ReadTrf(text);
    QVERIFY2(reading.ok, reading.message.c_str());
    const cSwissEntrant &entrant = reading.file.tournament.entrants[6];
    const cTrfPlayer &player = reading.file.players[6];
    QCOMPARE(entrant.number, 7);
    QCOMPARE(QString::fromStdString(entrant.name), QStringLiteral("Dawson, Dora"));
    QCOMPARE(entrant.rating, 2360);
    QCOMPARE(player.sex, 'm');
    QCOMPARE(QString::fromStdString(player.title), QStringLiteral("GM"));
    QCOMPARE(QString::fromStdString(player.federation), QStringLiteral("ENG"));
    QCOMPARE(QString::fromStdString(player.fideId), QStringLiteral("12345678"));
    QCOMPARE(QString::fromStdString(player.birthDate), QStringLiteral("1990/04/02"));
    QCOMPARE(player.halfPoints, 3);
    QCOMPARE(player.rank, 3);
    QCOMPARE(entrant.games.size(), size_t(3));
    QCOMPARE(entrant.games[0].opponent, 4);
    QVERIFY(entrant.games[0].colour == eColour::White);
    QCOMPARE(entrant.games[0].result, '1');
    QCOMPARE(entrant.games[1].opponent, 0);
    QCOMPARE(entrant.games[1].result, 'U');
    QVERIFY(entrant.games[2].colour == eColour::Black);
    QCOMPARE(reading.file.tournament.rounds, 7);
    QVERIFY(reading.file.tournament.firstColour == eColour::White);
    QCOMPARE(QString::fromStdString(reading.file.Header("012")), QStringLiteral("Simulated"));
}

void TestTrfFile::writeReadWriteGivesTheSameBytes()
{
    for (const unsigned seed : {1u, 2u, 3u}) {
        cTrfFile file = FileOf(Simulated(seed, 25 + int(seed), 7));
        file.tournament.firstColour = seed % 2 ? eColour::Black : eColour::White;
        const std::string written = WriteTrf(file);
        const cTrfReading reading = ReadTrf(written);
        QVERIFY2(reading.ok, reading.message.c_str());
        QCOMPARE(QByteArray::fromStdString(WriteTrf(reading.file)),
                 QByteArray::fromStdString(written));
    }
    // The fixtures, written by hand, read and write back unchanged too.
    const QByteArray fixture = FixtureText(QStringLiteral("round3_last_top_scorers.trf"));
    QVERIFY(!fixture.isEmpty());
    const cTrfReading reading = ReadTrf(fixture.toStdString());
    QVERIFY2(reading.ok, reading.message.c_str());
    QCOMPARE(QByteArray::fromStdString(WriteTrf(reading.file)), fixture);
}

void TestTrfFile::roundPairedButNotPlayedIsKeptAndRefusedForPairing()
{
    const std::string text =
        "001    1 m    One                               2000                             0.0"
        "          2 w\n"
        "001    2 m    Two                               1900                             0.0"
        "          1 b\n";
    const cTrfReading reading = ReadTrf(text);
    QVERIFY2(reading.ok, reading.message.c_str());
    QCOMPARE(reading.file.tournament.entrants[0].games[0].result, ' ');
    QCOMPARE(WriteTrf(reading.file), text);
    const cRoundPairing pairing = PairFileNextRound(reading.file);
    QVERIFY(!pairing.paired);
    QCOMPARE(QString::fromStdString(pairing.message),
             QStringLiteral("Round 1 is already paired: its results are not all in."));
}

void TestTrfFile::badLinesAreRefusedWithLineAndReason_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("line");
    QTest::addColumn<QString>("reason");
    const QString one = QStringLiteral(
        "001    1 m    One                               2000                             1.0"
        "          2 w 1\n");
    const QString two = QStringLiteral(
        "001    2 m    Two                               1900                             0.0"
        "          1 b 0\n");
    const auto changed = [](QString line, int at, const QString &with) {
        return line.replace(at, with.size(), with);
    };
    QTest::newRow("unknown kind") << QStringLiteral("012 Name\nABC what\n") << 2
                                  << QStringLiteral("the record kind \"ABC\" is not known.");
    QTest::newRow("kind without space")
        << QStringLiteral("012Name\n") << 1
        << QStringLiteral("the record kind \"012\" is not followed by a space.");
    QTest::newRow("number not whole")
        << changed(one, 5, QStringLiteral("x1 ")) + two << 1
        << QStringLiteral("the pairing number \"x1\" is not a whole number above 0.");
    QTest::newRow("number beyond")
        << changed(one, 7, QStringLiteral("3")) + two << 1
        << QStringLiteral("the pairing number 3 is beyond the 2 players.");
    QTest::newRow("number twice") << one + changed(two, 7, QStringLiteral("1")) << 2
                                  << QStringLiteral("the pairing number 1 is given twice.");
    QTest::newRow("name missing") << changed(one, 14, QStringLiteral("   ")) + two << 1
                                  << QStringLiteral("the player's name is missing.");
    QTest::newRow("rating") << one + changed(two, 48, QStringLiteral("19x0")) << 2
                            << QStringLiteral("the rating \"19x0\" is not a whole number.");
    QTest::newRow("points missing")
        << one.left(70) + QLatin1Char('\n') + two << 1 << QStringLiteral("the points are missing.");
    QTest::newRow("points") << changed(one, 81, QStringLiteral("1.3")) + two << 1
                            << QStringLiteral(
                                   "the points \"1.3\" are not a number of half points.");
    QTest::newRow("points too many")
        << changed(one, 81, QStringLiteral("100")) + two << 1
        << QStringLiteral("the points \"100\" do not fit their column.");
    QTest::newRow("unknown opponent")
        << changed(one, 91, QStringLiteral("   9")) + two << 1
        << QStringLiteral("the opponent 9 in round 1 is not another player.");
    QTest::newRow("opponent not answering")
        << one + changed(two, 96, QStringLiteral("w")) << 1
        << QStringLiteral("the opponent 2 in round 1 does not have this player with the other "
                          "colour.");
    QTest::newRow("colour") << changed(one, 96, QStringLiteral("x")) + two << 1
                            << QStringLiteral("the colour 'x' in round 1 is not w, b or -.");
    QTest::newRow("result") << one + changed(two, 98, QStringLiteral("7")) << 2
                            << QStringLiteral("the result '7' in round 1 is not known.");
    QTest::newRow("columns") << changed(one, 90, QStringLiteral("7   2")) + two << 1
                             << QStringLiteral("round 1 does not stand in its columns.");
    QTest::newRow("rounds") << one + two + QStringLiteral("XXR none\n") << 3
                            << QStringLiteral("the number of rounds \"none\" is not a whole "
                                              "number above 0.");
    QTest::newRow("first colour") << one + two + QStringLiteral("XXC green1\n") << 3
                                  << QStringLiteral("the first colour \"green1\" is neither "
                                                    "white1 nor black1.");
}

void TestTrfFile::badLinesAreRefusedWithLineAndReason()
{
    QFETCH(QString, text);
    QFETCH(int, line);
    QFETCH(QString, reason);
    const cTrfReading reading = ReadTrf(text.toStdString());
    QVERIFY(!reading.ok);
    QCOMPARE(reading.line, line);
    QCOMPARE(QString::fromStdString(reading.message),
             QStringLiteral("Line %1: ").arg(line) + reason);
    QVERIFY(reading.file.tournament.entrants.empty());
}

void TestTrfFile::workedExamplesGiveTheirPairings()
{
    const QStringList fixtures = QDir(QStringLiteral(VELMORA_TEST_DATA "/pairing"))
                                     .entryList({QStringLiteral("*.trf")}, QDir::Files);
    QCOMPARE(fixtures.size(), 8);
    for (const QString &name : fixtures) {
        const cTrfReading reading = ReadTrf(FixtureText(name).toStdString());
        QVERIFY2(reading.ok, reading.message.c_str());
        const cRoundPairing pairing = PairFileNextRound(reading.file);
        QVERIFY2(pairing.paired, qPrintable(name));
        QString expected = name;
        expected.replace(QStringLiteral(".trf"), QStringLiteral(".pairs"));
        QCOMPARE(QByteArray::fromStdString(PairingText(pairing)), FixtureText(expected));
    }
}

void TestTrfFile::checkFindsNothingInAnEngineTournamentAndFindsAChangedRound()
{
    cSwissTournament tournament = Simulated(11, 30, 7);
    const cTrfReading reading = ReadTrf(WriteTrf(FileOf(tournament)));
    QVERIFY2(reading.ok, reading.message.c_str());
    QVERIFY(RoundsDifferingFromRules(reading.file.tournament).empty());

    // Swap the colours of a board in the last round: that round, and no other, is listed.
    for (auto &entrant : tournament.entrants) {
        auto &game = entrant.games[6];
        if (game.opponent == 1 || entrant.number == 1)
            game.colour = Opposite(game.colour);
    }
    QCOMPARE(RoundsDifferingFromRules(tournament), std::vector<int>{7});
}

void TestTrfFile::pairingTextStartsWithTheNumberOfBoards()
{
    cRoundPairing pairing;
    pairing.paired = true;
    pairing.boards = {{3, 1}, {2, 0}};
    QCOMPARE(PairingText(pairing), std::string("2\n3 1\n2 0\n"));
}

void TestTrfFile::damagedFilesAreReadOrRefusedNeverHalfRead()
{
    // Characters changed, cut or doubled at random: each file is either read whole and
    // writes back as it reads, or refused with a line of the file and nothing read.
    const std::string valid = WriteTrf(FileOf(Simulated(5, 12, 4)));
    std::mt19937 random(99);
    const std::string alphabet = "0123456789 wb-+=UHFZXR.\n";
    int refused = 0;
    for (int trial = 0; trial < 3000; ++trial) {
        std::string text = valid;
        const int changes = 1 + int(random() % 4);
        for (int c = 0; c < changes; ++c) {
            const size_t at = random() % text.size();
            switch (random() % 3) {
            case 0:
                text[at] = alphabet[random() % alphabet.size()];
                break;
            case 1:
                text.erase(at, 1 + random() % 6);
                break;
            default:
                text.insert(at, text.substr(at, 1 + random() % 6));
                break;
            }
        }
        const cTrfReading reading = ReadTrf(text);
        if (reading.ok) {
            const cTrfReading again = ReadTrf(WriteTrf(reading.file));
            QVERIFY2(again.ok, again.message.c_str());
            QCOMPARE(WriteTrf(again.file), WriteTrf(reading.file));
            continue;
        }
        ++refused;
        QVERIFY(reading.line >= 1);
        QVERIFY(reading.line <= int(std::count(text.begin(), text.end(), '\n')) + 1);
        QVERIFY(reading.file.tournament.entrants.empty());
    }
    QVERIFY(refused > 1000);
}

VELMORA_TEST_MAIN(TestTrfFile)
#include "test_trf_file.moc"
