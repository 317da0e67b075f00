#include "base/common.h"
#include "conduct/conduct_fixture.h"
#include "conduct/trf_tournament.h"
#include "register/master.h"
#include "support/scripted_interaction.h"
#include "support/test_environment.h"
#include "support/tournament_fixture.h"

#include <QTest>

using namespace conduct_fixture;
using namespace mTrfTournament;

class TestTrfTournament : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void exportWritesHeadersEntrantsAndGames();
    void exportedTournamentImportsAsTheSame();
    void exportImportExportGivesTheSameBytes();
    void importOpensTheNewTournament();
    void entrantsAreTakenFromTheRegisterByName();
    void fileCodesBecomeStoredResults();
    void latin1NamesAreRead();
    void refusedFileWritesNothing_data();
    void refusedFileWritesNothing();

private:
    std::unique_ptr<cTestSession> session_;
    std::unique_ptr<cScriptedInteraction> interaction_;
};

namespace {

// Five entrants by pin over three rounds: a win, a draw, a black win, a double
// default, a game without points, a pairing-allocated bye, a half-point bye and a
// round paired but not yet played. Boards stand in the order the file gives back.
std::shared_ptr<cTournament> BuiltTournament()
{
    auto tournament = OpenTournament(QStringLiteral("B"), QStringLiteral("100"));
    tournament->setTDate(QStringLiteral("05/04/2025"));
    tournament->setTEnd(QStringLiteral("06/04/2025"));
    tournament->Update();
    auto entrant = [](const char *surname, const char *forename, const char *grade,
                      const char *pin) {
        return Enter(QString::fromUtf8(surname), QString::fromUtf8(forename), [&](cPlayer &player) {
            player.setLongPlay(QString::fromUtf8(grade));
            player.setLongPlayLett(QStringLiteral("A"));
            player.setPin(QString::fromUtf8(pin));
        });
    };
    // Entered out of pin order: the pins decide the pairing numbers.
    auto c = entrant("Carter", "Cy", "160", "3");
    auto a = entrant("Adams", "Ann", "180", "1");
    auto b = entrant("Brown", "Bob", "170", "2");
    auto d = entrant("Drake", "", "150", "4");
    auto e = entrant("Evans", "Eve", "140", "5");
    Game(1, a, d, QStringLiteral("W"), QStringLiteral("1"));
    Game(1, e, b, QStringLiteral("D"), QStringLiteral("2"));
    Game(1, c, nullptr, QStringLiteral("W"), QStringLiteral("3"));
    Game(2, b, a, QStringLiteral("B"), QStringLiteral("1"));
    Game(2, c, d, QStringLiteral("Z"), QStringLiteral("2"));
    Game(2, e, nullptr, QStringLiteral("D"), QStringLiteral("3"));
    Game(3, a, c, QStringLiteral("N"), QStringLiteral("1"));
    Game(3, d, e, QString(), QStringLiteral("2"));
    return tournament;
}

// The entrants by pin: "pin surname/forename grade".
QStringList Entrants(cTournament &tournament)
{
    std::vector<std::shared_ptr<cPlayer>> players(tournament.Players().begin(),
                                                  tournament.Players().end());
    std::sort(players.begin(), players.end(), [](const auto &x, const auto &y) {
        return WholeValue(x->Pin()) < WholeValue(y->Pin());
    });
    QStringList entrants;
    for (const auto &player : players)
        entrants.append(player->Pin() + u' ' + player->Surname() + u'/' + player->Forename() +
                        u' ' + player->Grade());
    return entrants;
}

// The rows with a player: "round.board white-black result".
QStringList Games(cTournament &tournament)
{
    QStringList games;
    for (const auto &row : tournament.Results())
        if (row->White() || row->Black())
            games.append(row->Round() + u'.' + row->Board() + u' ' +
                         (row->White() ? row->White()->Surname() : QString()) + u'-' +
                         (row->Black() ? row->Black()->Surname() : QString()) + u' ' +
                         row->Result());
    games.sort();
    return games;
}

QStringList RowCounts()
{
    QStringList counts;
    for (const char *table : {"Velmora", "Player", "Result", "Master"})
        counts.append(QString::number(RowCount(QString::fromLatin1(table))));
    return counts;
}

std::string Lines(std::initializer_list<const char *> lines)
{
    std::string text;
    for (const char *line : lines)
        text += std::string(line) + "\n";
    return text;
}

} // namespace

void TestTrfTournament::init()
{
    session_ = std::make_unique<cTestSession>();
    interaction_ = std::make_unique<cScriptedInteraction>();
}

void TestTrfTournament::cleanup()
{
    Control().setTournament(nullptr);
    interaction_.reset();
    session_.reset();
}

void TestTrfTournament::exportWritesHeadersEntrantsAndGames()
{
    auto tournament = BuiltTournament();
    const mSwiss::cTrfFile file = TrfOfTournament(*tournament);
    QCOMPARE(file.Header("012"), std::string("Congress: Open"));
    QCOMPARE(file.Header("042"), std::string("2025/04/05"));
    QCOMPARE(file.Header("052"), std::string("2025/04/06"));
    QCOMPARE(file.Header("062"), std::string("5"));
    QCOMPARE(file.Header("092"), std::string("BCF Standard"));
    QVERIFY(file.roundsGiven);
    QCOMPARE(file.tournament.rounds, 9);

    // Read back, as another program would read it.
    const mSwiss::cTrfReading reading = mSwiss::ReadTrf(mSwiss::WriteTrf(file));
    QVERIFY2(reading.ok, reading.message.c_str());
    const auto &entrants = reading.file.tournament.entrants;
    QCOMPARE(entrants.size(), size_t(5));
    QCOMPARE(entrants[0].name, std::string("Adams, Ann"));
    QCOMPARE(entrants[2].name, std::string("Carter, Cy"));
    QCOMPARE(entrants[3].name, std::string("Drake"));
    QCOMPARE(entrants[0].rating, 180);
    QCOMPARE(entrants[4].rating, 140);
    QCOMPARE(reading.file.tournament.rounds, 9);

    auto block = [&entrants](int number, int round) {
        const mSwiss::cSwissGame &game = entrants[size_t(number - 1)].games[size_t(round - 1)];
        const char colour = game.colour == mSwiss::eColour::White   ? 'w'
                            : game.colour == mSwiss::eColour::Black ? 'b'
                                                                    : '-';
        return QStringLiteral("%1 %2 %3")
            .arg(game.opponent)
            .arg(QChar::fromLatin1(colour))
            .arg(QChar::fromLatin1(game.result));
    };
    QCOMPARE(block(1, 1), QStringLiteral("4 w 1"));
    QCOMPARE(block(4, 1), QStringLiteral("1 b 0"));
    QCOMPARE(block(5, 1), QStringLiteral("2 w ="));
    QCOMPARE(block(3, 1), QStringLiteral("0 - U"));
    QCOMPARE(block(1, 2), QStringLiteral("2 b 1"));
    QCOMPARE(block(2, 2), QStringLiteral("1 w 0"));
    QCOMPARE(block(3, 2), QStringLiteral("4 w -"));
    QCOMPARE(block(4, 2), QStringLiteral("3 b -"));
    QCOMPARE(block(5, 2), QStringLiteral("0 - H"));
    QCOMPARE(block(1, 3), QStringLiteral("3 w 0"));
    QCOMPARE(block(3, 3), QStringLiteral("1 b 0"));
    QCOMPARE(block(4, 3), QStringLiteral("5 w  "));
    // No row is written as an absence.
    QCOMPARE(block(2, 3), QStringLiteral("0 - -"));

    // Points from the games; ties ranked by pairing number.
    const auto &players = reading.file.players;
    QCOMPARE(players[0].halfPoints, 4);
    QCOMPARE(players[1].halfPoints, 1);
    QCOMPARE(players[2].halfPoints, 2);
    QCOMPARE(players[3].halfPoints, 0);
    QCOMPARE(players[4].halfPoints, 2);
    QCOMPARE(players[0].rank, 1);
    QCOMPARE(players[2].rank, 2);
    QCOMPARE(players[4].rank, 3);
    QCOMPARE(players[1].rank, 4);
    QCOMPARE(players[3].rank, 5);
}

void TestTrfTournament::exportedTournamentImportsAsTheSame()
{
    auto original = BuiltTournament();
    const QStringList entrants = Entrants(*original);
    const QStringList games = Games(*original);
    const std::string text = TrfTextOfTournament(*original);

    const cTrfImport imported = ImportTrf(text);
    QVERIFY2(imported.ok, qPrintable(imported.message));
    QVERIFY(imported.tournament != original);
    QCOMPARE(Entrants(*imported.tournament), entrants);
    QCOMPARE(Games(*imported.tournament), games);
    QCOMPARE(imported.tournament->Rounds(), original->Rounds());
    QCOMPARE(imported.tournament->Title(), original->Title());
    QCOMPARE(imported.tournament->Tourn(), original->Tourn());
    QCOMPARE(imported.tournament->TDate(), original->TDate());
    QCOMPARE(imported.tournament->TEnd(), original->TEnd());
    QCOMPARE(imported.tournament->TType(), original->TType());
    // Round 3 has a game still to finish.
    QCOMPARE(imported.tournament->CurrRound(), QStringLiteral("3"));
    QCOMPARE(imported.players, 5);
    QCOMPARE(imported.rounds, 9);
}

void TestTrfTournament::exportImportExportGivesTheSameBytes()
{
    auto original = BuiltTournament();
    const std::string first = TrfTextOfTournament(*original);
    const cTrfImport imported = ImportTrf(first);
    QVERIFY2(imported.ok, qPrintable(imported.message));
    QCOMPARE(TrfTextOfTournament(*imported.tournament), first);
}

void TestTrfTournament::importOpensTheNewTournament()
{
    auto original = BuiltTournament();
    const cTrfImport imported = ImportTrf(TrfTextOfTournament(*original));
    QVERIFY(imported.ok);
    QCOMPARE(Control().Tournament(), imported.tournament);
    // Stored, and loaded with its figures worked out as at an open.
    cTournament stored;
    stored.Load(imported.tournament->TournId());
    QCOMPARE(stored.Title(), QStringLiteral("Congress"));
    QCOMPARE(SqlScalar(QStringLiteral("Select Count(*) From Result Where TId = ?"),
                       {WholeValue(stored.TournId())})
                 .toInt(),
             8);
    auto adams = imported.tournament->Players().item(QStringLiteral("1"));
    QCOMPARE(adams->Surname(), QStringLiteral("Adams"));
    QCOMPARE(adams->Score(), QStringLiteral("2"));
}

void TestTrfTournament::entrantsAreTakenFromTheRegisterByName()
{
    cMaster smith;
    smith.setSurname(QStringLiteral("Smith"));
    smith.setForename(QStringLiteral("John"));
    smith.setLongPlay(QStringLiteral("150"));
    smith.setLongPlayLett(QStringLiteral("B"));
    smith.setClub(QStringLiteral("Hastings"));
    smith.Create();
    const qint64 people = RowCount(QStringLiteral("Master"));

    const std::string text = Lines({"012 Club Championship", "092 BCF Standard"}) +
                             TrfPlayerLine(1, "SMITH, john", 150, {}) +
                             TrfPlayerLine(2, "Newman, Ann", 120, {}) +
                             TrfPlayerLine(3, "Smith, John", 90, {});
    const cTrfImport imported = ImportTrf(text);
    QVERIFY2(imported.ok, qPrintable(imported.message));
    cPlayers &players = imported.tournament->Players();
    const auto matched = players.item(QStringLiteral("1"));
    QCOMPARE(matched->MasterId(), smith.MasterId());
    QCOMPARE(matched->Surname(), QStringLiteral("Smith"));
    QCOMPARE(matched->Club(), QStringLiteral("Hastings"));
    QCOMPARE(matched->LongPlayLett(), QStringLiteral("B"));
    QCOMPARE(matched->Grade(), QStringLiteral("150"));

    // Nobody of that name, and a second John Smith: both new people of the register.
    QCOMPARE(RowCount(QStringLiteral("Master")), people + 2);
    const auto added = players.item(QStringLiteral("2"));
    QVERIFY(!added->MasterId().isEmpty());
    cMaster newman;
    newman.Load(added->MasterId());
    QCOMPARE(newman.Surname(), QStringLiteral("Newman"));
    QCOMPARE(newman.Forename(), QStringLiteral("Ann"));
    QCOMPARE(newman.LongPlay(), QStringLiteral("120"));
    const auto second = players.item(QStringLiteral("3"));
    QVERIFY(second->MasterId() != smith.MasterId());
    QCOMPARE(second->Grade(), QStringLiteral("90"));
    QCOMPARE(imported.tournament->Title(), QStringLiteral("Club Championship"));
    QCOMPARE(imported.tournament->Tourn(), QString());
    // No XXR line and no games: a new tournament's rounds.
    QCOMPARE(imported.tournament->Rounds(), QStringLiteral("5"));
}

void TestTrfTournament::fileCodesBecomeStoredResults()
{
    // Forfeits with opponents, a full-point bye, a half-point bye, a zero-point bye
    // and an absence, over two rounds.
    const std::string text = TrfPlayerLine(1, "One", 0, {"   2 w +", "0000 - F"}) +
                             TrfPlayerLine(2, "Two", 0, {"   1 b -", "0000 - H"}) +
                             TrfPlayerLine(3, "Three", 0, {"   4 b +", "0000 - Z"}) +
                             TrfPlayerLine(4, "Four", 0, {"   3 w -", "0000 - -"}) +
                             TrfPlayerLine(5, "Five", 0, {"0000 - U", "   6 b W"}) +
                             TrfPlayerLine(6, "Six", 0, {"0000 - -", "   5 w L"});
    const cTrfImport imported = ImportTrf(text);
    QVERIFY2(imported.ok, qPrintable(imported.message));
    QCOMPARE(Games(*imported.tournament), Texts({"1.1 One-Two W", "1.2 Four-Three B", "1.3 Five- W",
                                                 "2.1 Six-Five B", "2.2 One- W", "2.3 Two- D"}));
    QCOMPARE(imported.tournament->Rounds(), QStringLiteral("2"));
    QCOMPARE(imported.tournament->CurrRound(), QStringLiteral("2"));
}

void TestTrfTournament::latin1NamesAreRead()
{
    const std::string text = TrfPlayerLine(1, "M\xfcller, J\xfcrgen", 0, {});
    const cTrfImport imported = ImportTrf(text);
    QVERIFY2(imported.ok, qPrintable(imported.message));
    const auto player = imported.tournament->Players().item(QStringLiteral("1"));
    QCOMPARE(player->Surname(), QStringLiteral("M\u00fcller"));
    QCOMPARE(player->Forename(), QStringLiteral("J\u00fcrgen"));
}

void TestTrfTournament::refusedFileWritesNothing_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("message");

    QTest::newRow("reader") << QByteArray(Lines({"012 Open", "001 x"}).c_str())
                            << QStringLiteral("Line 2: the pairing number \"x\" is not a whole "
                                              "number above 0.");
    QTest::newRow("results that disagree")
        << QByteArray(
               (TrfPlayerLine(1, "One", 0, {"   2 w 1"}) + TrfPlayerLine(2, "Two", 0, {"   1 b ="}))
                   .c_str())
        << QStringLiteral("Line 1: the results '1' and '=' of round 1 against player 2 do not go "
                          "together.");
    QTest::newRow("round beyond the rounds")
        << QByteArray((Lines({"012 Open"}) + TrfPlayerLine(1, "One", 0, {"0000 - U", "0000 - U"}) +
                       TrfPlayerLine(2, "Two", 0, {}) + Lines({"XXR 1"}))
                          .c_str())
        << QStringLiteral("Line 2: round 2 is beyond the 1 rounds of the XXR line.");
    QTest::newRow("rounds the database cannot hold")
        << QByteArray((TrfPlayerLine(1, "One", 0, {}) + Lines({"XXR 40000"})).c_str())
        << QStringLiteral("Line 2: a tournament can hold at most 32767 rounds.");
    QTest::newRow("unknown opponent")
        << QByteArray(
               (TrfPlayerLine(1, "One", 0, {"   7 w 1"}) + TrfPlayerLine(2, "Two", 0, {})).c_str())
        << QStringLiteral("Line 1: the opponent 7 in round 1 is not another player.");
    QTest::newRow("pairing number out of range")
        << QByteArray((TrfPlayerLine(1, "One", 0, {}) + TrfPlayerLine(3, "Three", 0, {})).c_str())
        << QStringLiteral("Line 2: the pairing number 3 is beyond the 2 players.");
    QTest::newRow("surname too long")
        << QByteArray((TrfPlayerLine(1, "One", 0, {}) +
                       TrfPlayerLine(2, "Featherstonehaugh-Smythe, Jo", 0, {}))
                          .c_str())
        << QStringLiteral("Line 2: the surname \"Featherstonehaugh-Smythe\" is longer than 20 "
                          "characters.");
    QTest::newRow("date")
        << QByteArray(
               (Lines({"012 Open", "042 5th April"}) + TrfPlayerLine(1, "One", 0, {})).c_str())
        << QStringLiteral("Line 2: the date \"5th April\" is not a date written "
                          "yyyy/mm/dd.");
}

void TestTrfTournament::refusedFileWritesNothing()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, message);
    auto open = BuiltTournament();
    AddMasterPlayer(QStringLiteral("Smith"), QStringLiteral("John"));
    const QStringList before = RowCounts();

    const cTrfImport imported = ImportTrf(text.toStdString());
    QVERIFY(!imported.ok);
    QCOMPARE(imported.message, message);
    QVERIFY(!imported.tournament);
    QCOMPARE(RowCounts(), before);
    QCOMPARE(Control().Tournament(), open);
}

VELMORA_TEST_MAIN(TestTrfTournament)
#include "test_trf_tournament.moc"
