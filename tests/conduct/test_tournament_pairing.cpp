#include "conduct/conduct_fixture.h"
#include "conduct/tournament_pairing.h"
#include "support/scripted_interaction.h"
#include "support/test_environment.h"

#include <QTest>

using namespace conduct_fixture;
using namespace mTournamentPairing;

class TestTournamentPairing : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void everyKnownKindIsSwiss();
    void pairingNumbersFollowThePins();
    void firstRoundOfSixPairsTopHalfWithBottomHalf();
    void oddFieldGivesTheLowestTheBye();
    void secondRoundFollowsScoresAndColours();
    void earlierByeIsNotGivenAgain();
    void withdrawnEntrantsAreNotPaired();
    void roundThatCannotBePairedSaysSo();
    void roundNeedsTheRoundBeforeComplete();
    void fillRoundPutsBoardsFirstAndTheByeAsOnePlayer();

private:
    std::unique_ptr<cTestSession> session_;
    std::unique_ptr<cScriptedInteraction> interaction_;
};

namespace {

cTournament &Tournament()
{
    return *Control().Tournament();
}

// The boards as "white-black" pins, "white-bye" for the bye.
QStringList Boards(const cPairedRound &pairing)
{
    QStringList boards;
    for (const auto &[white, black] : pairing.boards)
        boards.append(white->Pin() + u'-' + (black ? black->Pin() : QStringLiteral("bye")));
    return boards;
}

std::vector<std::shared_ptr<cPlayer>> Field(int count)
{
    std::vector<std::shared_ptr<cPlayer>> field;
    for (int pin = 1; pin <= count; ++pin)
        field.push_back(Graded(QStringLiteral("Player%1").arg(pin), QString::number(200 - pin),
                               QString::number(pin)));
    return field;
}

} // namespace

void TestTournamentPairing::init()
{
    session_ = std::make_unique<cTestSession>();
    interaction_ = std::make_unique<cScriptedInteraction>();
    OpenTournament();
}

void TestTournamentPairing::cleanup()
{
    Control().setTournament(nullptr);
    interaction_.reset();
    session_.reset();
}

void TestTournamentPairing::everyKnownKindIsSwiss()
{
    for (const char *type : {"B", "R", "F", "M", "D", "", "d"})
        QVERIFY2(IsSwissType(QString::fromLatin1(type)), type);
    QVERIFY(!IsSwissType(QStringLiteral("X")));
}

void TestTournamentPairing::pairingNumbersFollowThePins()
{
    Graded(QStringLiteral("Third"), QStringLiteral("150"), QStringLiteral("3"));
    Graded(QStringLiteral("NoPin"), QStringLiteral("190"));
    Graded(QStringLiteral("First"), QStringLiteral("180"), QStringLiteral("1"));
    Graded(QStringLiteral("Second"), QStringLiteral("160"), QStringLiteral("2"));
    std::vector<std::shared_ptr<cPlayer>> byNumber;
    const mSwiss::cSwissTournament swiss = SwissTournamentBefore(Tournament(), 1, byNumber);
    QCOMPARE(int(byNumber.size()), 4);
    QCOMPARE(byNumber[0]->Surname(), QStringLiteral("First"));
    QCOMPARE(byNumber[1]->Surname(), QStringLiteral("Second"));
    QCOMPARE(byNumber[2]->Surname(), QStringLiteral("Third"));
    QCOMPARE(byNumber[3]->Surname(), QStringLiteral("NoPin"));
    QCOMPARE(swiss.entrants[0].number, 1);
    QCOMPARE(swiss.entrants[0].rating, 180);
    QCOMPARE(swiss.rounds, 9);
    QCOMPARE(swiss.RoundsPlayed(), 0);
}

void TestTournamentPairing::firstRoundOfSixPairsTopHalfWithBottomHalf()
{
    Field(6);
    const cPairedRound pairing = PairRound(Tournament(), 1);
    QVERIFY(pairing.paired);
    QCOMPARE(Boards(pairing), Texts({"1-4", "5-2", "3-6"}));
}

void TestTournamentPairing::oddFieldGivesTheLowestTheBye()
{
    Field(5);
    const cPairedRound pairing = PairRound(Tournament(), 1);
    QVERIFY(pairing.paired);
    QCOMPARE(Boards(pairing), Texts({"1-3", "4-2", "5-bye"}));
}

void TestTournamentPairing::secondRoundFollowsScoresAndColours()
{
    const auto field = Field(4);
    Game(1, field[0], field[2], QStringLiteral("W"), QStringLiteral("1"));
    Game(1, field[3], field[1], QStringLiteral("B"), QStringLiteral("2"));
    std::vector<std::shared_ptr<cPlayer>> byNumber;
    const mSwiss::cSwissTournament swiss = SwissTournamentBefore(Tournament(), 2, byNumber);
    QCOMPARE(swiss.entrants[0].HalfPoints(), 2);
    QCOMPARE(swiss.entrants[0].games[0].opponent, 3);
    QCOMPARE(swiss.entrants[0].games[0].colour, mSwiss::eColour::White);
    QCOMPARE(swiss.entrants[1].games[0].result, '1');
    QCOMPARE(swiss.entrants[3].games[0].result, '0');
    // Winners meet, the one who had Black taking White; so do the losers.
    QCOMPARE(Boards(PairRound(Tournament(), 2)), Texts({"2-1", "3-4"}));
}

void TestTournamentPairing::earlierByeIsNotGivenAgain()
{
    const auto field = Field(3);
    Game(1, field[0], field[1], QStringLiteral("W"), QStringLiteral("1"));
    Game(1, field[2], nullptr, QStringLiteral("W"), QStringLiteral("2"));
    std::vector<std::shared_ptr<cPlayer>> byNumber;
    const mSwiss::cSwissTournament swiss = SwissTournamentBefore(Tournament(), 2, byNumber);
    QCOMPARE(swiss.entrants[2].games[0].result, 'U');
    QCOMPARE(swiss.entrants[2].HalfPoints(), 2);
    QCOMPARE(Boards(PairRound(Tournament(), 2)), Texts({"3-1", "2-bye"}));
}

void TestTournamentPairing::withdrawnEntrantsAreNotPaired()
{
    const auto field = Field(5);
    field[1]->setWithdrawn(true);
    const cPairedRound pairing = PairRound(Tournament(), 1);
    // Pin 2 keeps its pairing number, so pin 3 is an odd number and takes White.
    QCOMPARE(Boards(pairing), Texts({"1-4", "3-5"}));
}

void TestTournamentPairing::roundThatCannotBePairedSaysSo()
{
    const auto field = Field(2);
    Game(1, field[0], field[1], QStringLiteral("D"), QStringLiteral("1"));
    const cPairedRound pairing = PairRound(Tournament(), 2);
    QVERIFY(!pairing.paired);
    QVERIFY(pairing.boards.empty());
    QVERIFY2(pairing.message.startsWith(QStringLiteral("Round 2 cannot be paired")),
             qPrintable(pairing.message));
}

void TestTournamentPairing::roundNeedsTheRoundBeforeComplete()
{
    const auto field = Field(4);
    QVERIFY(CanPairRound(Tournament(), 1));
    QVERIFY(!CanPairRound(Tournament(), 2));
    Game(1, field[0], field[2], QStringLiteral("W"), QStringLiteral("1"));
    auto open = Game(1, field[3], field[1], QString(), QStringLiteral("2"));
    QVERIFY(!CanPairRound(Tournament(), 1));
    QVERIFY(!CanPairRound(Tournament(), 2));
    open->setResult(QStringLiteral("N"));
    QVERIFY(CanPairRound(Tournament(), 2));
    Tournament().setTType(QStringLiteral("X"));
    QVERIFY(!CanPairRound(Tournament(), 2));
}

void TestTournamentPairing::fillRoundPutsBoardsFirstAndTheByeAsOnePlayer()
{
    Field(5);
    cResults &results = Tournament().Results();
    results.LoadAllResults();
    FillRound(results, 1, PairRound(Tournament(), 1), 4);
    QStringList rows;
    int blanks = 0;
    for (const auto &game : results) {
        if (game->Round() != u"1")
            continue;
        if (!game->White() && !game->Black()) {
            ++blanks;
            continue;
        }
        QCOMPARE(blanks, 0);
        rows.append(game->Board() + u':' + game->White()->Pin() + u'-' +
                    (game->Black() ? game->Black()->Pin() : QStringLiteral("bye")) + u':' +
                    game->Result());
    }
    QCOMPARE(rows, Texts({"4:1-3:", "5:4-2:", "6:5-bye:W"}));
    QCOMPARE(blanks, 5);
}

VELMORA_TEST_MAIN(TestTournamentPairing)
#include "test_tournament_pairing.moc"
