#include "base/fatal_fault.h"
#include "conduct/conduct_fixture.h"
#include "support/scripted_interaction.h"
#include "support/test_environment.h"

#include <QGuiApplication>
#include <QSqlQuery>
#include <QTest>

using namespace conduct_fixture;

class TestRecalc : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void winnerGraded120Beating170Gets210AndTheLoser80();
    void drawBetween150And100Gives110And140();
    void ungradedPlayersStandAtTheDefaultGradeOnBothSides();
    void gradeOfZeroWithDefaultZeroGivesAWindowAroundZero();
    void zeroZeroGameIsWorthNoGradingPoints();
    void mixedTournamentGradesItsGamesAsAStandardOne();
    void noEntrantsReturnsAtOnceWithoutAProgressWindow();
    void roundLimitZeroLeavesEveryoneAtZero();
    void pairingWithoutAResultCountsOnlyInTheColours();
    void byeWonRaisesTheScoreAndNothingElse();
    void byeScoresByItsCode();
    void noGamesGivesAnEmptyPerformanceGrade();
    void zeroZeroAndAClampedWinGiveTwoGames200PointsAndPerformance100();
    void noResultRowCountsAGameGradedLikeADraw();
    void progressiveOf1And15And25Is5();
    void sumAndSonnebornBergerUseTheOpponentsFinalScores();
    void runWithoutAModeStoresTieBreakZeroOverAnEarlierValue();
    void colourCountersWeighLaterRoundsAndTheLastCountedRoundMore();
    void everyEntrantIsWrittenBack();
    void writeBackIsOneUnitOfWork();
    void gameRowWithItsOwnCopyOfAnEntrantCountsForTheEntrant();
    void progressWindowCountsEntrantsAndRows();
    void unknownResultCodeIsAFatalFault();
    void ninthRoundFixtureAfterEveryRound_data();
    void ninthRoundFixtureAfterEveryRound();
    void ninthRoundFixtureTieBreaksAndColours();

private:
    std::unique_ptr<cTestSession> session_;
    std::unique_ptr<cScriptedInteraction> interaction_;
};

namespace {

cPlayers &Players()
{
    return Control().Tournament()->Players();
}

void Recalc(qint16 limit, std::optional<TieBreakMode> mode = std::nullopt)
{
    Players().RecalcAll(limit, mode);
}

QStringList Stored(const cPlayer &player)
{
    QSqlQuery row = RunSql(QStringLiteral("Select Score, ACount, NumGames, GPoints From Player "
                                          "Where TId = ? and PId = ?"),
                           {player.TournId().toLongLong(), player.PlayerId().toLongLong()});
    if (!row.next())
        return {};
    return {NumberTextOf(row.value(0)), NumberTextOf(row.value(1)), NumberTextOf(row.value(2)),
            NumberTextOf(row.value(3))};
}

} // namespace

void TestRecalc::init()
{
    session_ = std::make_unique<cTestSession>();
    interaction_ = std::make_unique<cScriptedInteraction>();
}

void TestRecalc::cleanup()
{
    Control().setTournament(nullptr);
    interaction_.reset();
    session_.reset();
}

void TestRecalc::winnerGraded120Beating170Gets210AndTheLoser80()
{
    OpenTournament();
    const auto low = Graded(QStringLiteral("Low"), QStringLiteral("120"));
    const auto high = Graded(QStringLiteral("High"), QStringLiteral("170"));
    const auto game = Game(1, low, high, QStringLiteral("W"));
    QCOMPARE(game->WhiteGradePoints(), qint16(210));
    QCOMPARE(game->BlackGradePoints(), qint16(80));
    Recalc(1);
    QCOMPARE(low->GPoints(), QStringLiteral("210"));
    QCOMPARE(high->GPoints(), QStringLiteral("80"));
    QCOMPARE(low->Score(), QStringLiteral("1"));
    QCOMPARE(high->Score(), QStringLiteral("0"));

    // The same game the other way round, Black winning.
    const auto reversed = Game(2, high, low, QStringLiteral("B"));
    QCOMPARE(reversed->WhiteGradePoints(), qint16(80));
    QCOMPARE(reversed->BlackGradePoints(), qint16(210));
}

void TestRecalc::drawBetween150And100Gives110And140()
{
    OpenTournament();
    const auto higher = Graded(QStringLiteral("Higher"), QStringLiteral("150"));
    const auto lower = Graded(QStringLiteral("Lower"), QStringLiteral("100"));
    const auto game = Game(1, higher, lower, QStringLiteral("D"));
    QCOMPARE(game->WhiteGradePoints(), qint16(110));
    QCOMPARE(game->BlackGradePoints(), qint16(140));
    Recalc(1);
    QCOMPARE(higher->GPoints(), QStringLiteral("110"));
    QCOMPARE(lower->GPoints(), QStringLiteral("140"));
    QCOMPARE(higher->Score(), QStringLiteral("0.5"));
    QCOMPARE(lower->Score(), QStringLiteral("0.5"));
}

void TestRecalc::ungradedPlayersStandAtTheDefaultGradeOnBothSides()
{
    OpenTournament(QStringLiteral("B"), QStringLiteral("90"));
    const auto ungraded = Enter(QStringLiteral("New"), QString());
    const auto graded = Graded(QStringLiteral("Old"), QStringLiteral("200"));
    const auto game = Game(1, ungraded, graded, QStringLiteral("W"));
    // 200 held to 90 + 40, and 90 held to 200 - 40.
    QCOMPARE(game->WhiteGradePoints(), qint16(130 + 50));
    QCOMPARE(game->BlackGradePoints(), qint16(160 - 50));
}

void TestRecalc::gradeOfZeroWithDefaultZeroGivesAWindowAroundZero()
{
    OpenTournament(QStringLiteral("B"), QString());
    const auto ungraded = Enter(QStringLiteral("New"), QString());
    const auto graded = Graded(QStringLiteral("Old"), QStringLiteral("100"));
    const auto game = Game(1, ungraded, graded, QStringLiteral("D"));
    QCOMPARE(game->WhiteGradePoints(), qint16(40));
    QCOMPARE(game->BlackGradePoints(), qint16(60));
}

void TestRecalc::zeroZeroGameIsWorthNoGradingPoints()
{
    OpenTournament();
    const auto one = Graded(QStringLiteral("One"), QStringLiteral("150"));
    const auto two = Graded(QStringLiteral("Two"), QStringLiteral("150"));
    const auto game = Game(1, one, two, QStringLiteral("Z"));
    QCOMPARE(game->WhiteGradePoints(), qint16(0));
    QCOMPARE(game->BlackGradePoints(), qint16(0));
}

void TestRecalc::mixedTournamentGradesItsGamesAsAStandardOne()
{
    OpenTournament(QStringLiteral("M"), QStringLiteral("100"));
    const auto longPlay = Enter(QStringLiteral("Long"), QString(), [](cPlayer &player) {
        player.setLongPlay(QStringLiteral("150"));
        player.setRapidPlay(QStringLiteral("190"));
        player.setFIDE(QStringLiteral("2100"));
    });
    const auto rapidOnly = Enter(QStringLiteral("Rapid"), QString(), [](cPlayer &player) {
        player.setRapidPlay(QStringLiteral("130"));
    });
    const auto ungraded = Enter(QStringLiteral("None"), QString());
    Game(1, longPlay, rapidOnly, QStringLiteral("W"));
    Game(2, ungraded, longPlay, QStringLiteral("D"));
    Recalc(2);
    // The mixed type itself still shows no grade.
    QCOMPARE(longPlay->Grade(), QString());
    QCOMPARE(longPlay->DisplayGrade(), QStringLiteral("    "));
    // Long: 130 + 50, then 100 held to 110; Rapid: 150 - 50; None: 150 held to 140.
    QCOMPARE(longPlay->GPoints(), QStringLiteral("290"));
    QCOMPARE(rapidOnly->GPoints(), QStringLiteral("100"));
    QCOMPARE(ungraded->GPoints(), QStringLiteral("140"));
}

void TestRecalc::noEntrantsReturnsAtOnceWithoutAProgressWindow()
{
    OpenTournament();
    Recalc(9, TieBreakMode::optSum);
    QVERIFY(interaction_->Calls().isEmpty());
}

void TestRecalc::roundLimitZeroLeavesEveryoneAtZero()
{
    OpenTournament();
    const auto one = Graded(QStringLiteral("One"), QStringLiteral("150"));
    const auto two = Graded(QStringLiteral("Two"), QStringLiteral("140"));
    one->setScore(QStringLiteral("4"));
    one->setGames(QStringLiteral("3"));
    one->setColourPreference(2);
    Game(1, one, two, QStringLiteral("W"));
    Game(2, two, one, QStringLiteral("D"));
    Recalc(0, TieBreakMode::optSum);
    for (const auto &player : {one, two}) {
        QCOMPARE(player->Score(), QStringLiteral("0"));
        QCOMPARE(player->TieBreak(), QStringLiteral("0"));
        QCOMPARE(player->Games(), QStringLiteral("0"));
        QCOMPARE(player->GPoints(), QStringLiteral("0"));
        QCOMPARE(player->ColourPreference(), qint16(0));
        QCOMPARE(player->ColourSeeker(), 0.0f);
    }
}

void TestRecalc::pairingWithoutAResultCountsOnlyInTheColours()
{
    OpenTournament();
    const auto white = Graded(QStringLiteral("White"), QStringLiteral("150"));
    const auto black = Graded(QStringLiteral("Black"), QStringLiteral("140"));
    Game(3, white, black, QString());
    Recalc(4);
    QCOMPARE(white->Games(), QStringLiteral("0"));
    QCOMPARE(white->GPoints(), QStringLiteral("0"));
    QCOMPARE(black->Games(), QStringLiteral("0"));
    QCOMPARE(white->ColourPreference(), qint16(1));
    QCOMPARE(white->ColourSeeker(), 3.0f);
    QCOMPARE(black->ColourPreference(), qint16(-1));
    QCOMPARE(black->ColourSeeker(), -3.0f);
}

void TestRecalc::byeWonRaisesTheScoreAndNothingElse()
{
    OpenTournament();
    const auto bye = Graded(QStringLiteral("Bye"), QStringLiteral("150"));
    const auto other = Graded(QStringLiteral("Other"), QStringLiteral("140"));
    Game(1, bye, nullptr, QStringLiteral("W"));
    Game(1, other, nullptr, QStringLiteral("W"));
    for (const TieBreakMode mode : {TieBreakMode::optSum, TieBreakMode::optSB}) {
        Recalc(1, mode);
        QCOMPARE(bye->Score(), QStringLiteral("1"));
        QCOMPARE(bye->Games(), QStringLiteral("0"));
        QCOMPARE(bye->GPoints(), QStringLiteral("0"));
        QCOMPARE(bye->ColourPreference(), qint16(0));
        QCOMPARE(bye->ColourSeeker(), 0.0f);
        QCOMPARE(bye->TieBreak(), QStringLiteral("0"));
    }
}

void TestRecalc::byeScoresByItsCode()
{
    OpenTournament();
    const auto whiteDraw = Graded(QStringLiteral("WhiteDraw"), QStringLiteral("150"));
    const auto blackWin = Graded(QStringLiteral("BlackWin"), QStringLiteral("150"));
    const auto blackLoss = Graded(QStringLiteral("BlackLoss"), QStringLiteral("150"));
    Game(1, whiteDraw, nullptr, QStringLiteral("D"));
    Game(1, nullptr, blackWin, QStringLiteral("B"));
    Game(1, nullptr, blackLoss, QStringLiteral("W"));
    Recalc(1);
    QCOMPARE(whiteDraw->Score(), QStringLiteral("0.5"));
    QCOMPARE(blackWin->Score(), QStringLiteral("1"));
    QCOMPARE(blackLoss->Score(), QStringLiteral("0"));
}

void TestRecalc::noGamesGivesAnEmptyPerformanceGrade()
{
    OpenTournament();
    const auto player = Graded(QStringLiteral("Idle"), QStringLiteral("150"));
    Game(1, player, nullptr, QStringLiteral("W"));
    Recalc(1);
    QCOMPARE(player->Games(), QStringLiteral("0"));
    QCOMPARE(player->PerformanceGrade(), QString());
}

void TestRecalc::zeroZeroAndAClampedWinGiveTwoGames200PointsAndPerformance100()
{
    OpenTournament();
    const auto player = Graded(QStringLiteral("Player"), QStringLiteral("110"));
    const auto strong = Graded(QStringLiteral("Strong"), QStringLiteral("200"));
    const auto other = Graded(QStringLiteral("Other"), QStringLiteral("120"));
    Game(1, player, strong, QStringLiteral("W"));
    Game(2, other, player, QStringLiteral("Z"));
    Recalc(2);
    QCOMPARE(player->Games(), QStringLiteral("2"));
    QCOMPARE(player->GPoints(), QStringLiteral("200"));
    QCOMPARE(player->PerformanceGrade(), QStringLiteral("100"));
}

void TestRecalc::noResultRowCountsAGameGradedLikeADraw()
{
    OpenTournament();
    const auto higher = Graded(QStringLiteral("Higher"), QStringLiteral("150"));
    const auto lower = Graded(QStringLiteral("Lower"), QStringLiteral("100"));
    Game(1, higher, lower, QStringLiteral("N"));
    Recalc(1);
    QCOMPARE(higher->Games(), QStringLiteral("1"));
    QCOMPARE(higher->GPoints(), QStringLiteral("110"));
    QCOMPARE(higher->Score(), QStringLiteral("0"));
    QCOMPARE(lower->GPoints(), QStringLiteral("140"));
}

void TestRecalc::progressiveOf1And15And25Is5()
{
    OpenTournament();
    const auto player = Graded(QStringLiteral("Player"), QStringLiteral("150"));
    const auto a = Graded(QStringLiteral("A"), QStringLiteral("150"));
    const auto b = Graded(QStringLiteral("B"), QStringLiteral("150"));
    const auto c = Graded(QStringLiteral("C"), QStringLiteral("150"));
    Game(1, player, a, QStringLiteral("W"));
    Game(2, b, player, QStringLiteral("D"));
    Game(3, player, c, QStringLiteral("W"));
    Recalc(3, TieBreakMode::optPro);
    QCOMPARE(player->Score(), QStringLiteral("2.5"));
    QCOMPARE(player->TieBreak(), QStringLiteral("5"));
    // A round without a row adds nothing: A played only round 1 and lost.
    QCOMPARE(a->TieBreak(), QStringLiteral("0"));
    // B: 0.5 after round 2 only.
    QCOMPARE(b->TieBreak(), QStringLiteral("0.5"));
}

void TestRecalc::sumAndSonnebornBergerUseTheOpponentsFinalScores()
{
    OpenTournament();
    const auto a = Graded(QStringLiteral("A"), QStringLiteral("150"));
    const auto b = Graded(QStringLiteral("B"), QStringLiteral("150"));
    const auto c = Graded(QStringLiteral("C"), QStringLiteral("150"));
    // A beats B, draws with C; B beats C; C has a bye won.
    Game(1, a, b, QStringLiteral("W"));
    Game(1, c, nullptr, QStringLiteral("W"));
    Game(2, c, a, QStringLiteral("D"));
    Game(2, b, nullptr, QStringLiteral("N"));
    Game(3, b, c, QStringLiteral("W"));
    // Final scores: A 1.5, B 1, C 1.5.
    Recalc(3, TieBreakMode::optSum);
    QCOMPARE(a->TieBreak(), QStringLiteral("2.5"));
    QCOMPARE(b->TieBreak(), QStringLiteral("3"));
    QCOMPARE(c->TieBreak(), QStringLiteral("2.5"));
    Recalc(3, TieBreakMode::optSB);
    // A: all of B's 1 and half of C's 1.5; B: all of C's 1.5; C: half of A's 1.5.
    QCOMPARE(a->TieBreak(), QStringLiteral("1.75"));
    QCOMPARE(b->TieBreak(), QStringLiteral("1.5"));
    QCOMPARE(c->TieBreak(), QStringLiteral("0.75"));
    Recalc(3, TieBreakMode::optNone);
    QCOMPARE(a->TieBreak(), QStringLiteral("0"));
    QCOMPARE(a->Score(), QStringLiteral("1.5"));
}

void TestRecalc::runWithoutAModeStoresTieBreakZeroOverAnEarlierValue()
{
    OpenTournament();
    const auto a = Graded(QStringLiteral("A"), QStringLiteral("150"));
    const auto b = Graded(QStringLiteral("B"), QStringLiteral("150"));
    Game(1, a, b, QStringLiteral("W"));
    Game(2, b, a, QStringLiteral("W"));
    Recalc(2, TieBreakMode::optSum);
    // B's final 1, met twice.
    QCOMPARE(Stored(*a).at(1), QStringLiteral("2"));
    Recalc(2);
    QCOMPARE(a->TieBreak(), QStringLiteral("0"));
    QCOMPARE(Stored(*a).at(1), QStringLiteral("0"));
}

void TestRecalc::colourCountersWeighLaterRoundsAndTheLastCountedRoundMore()
{
    OpenTournament();
    const auto a = Graded(QStringLiteral("A"), QStringLiteral("150"));
    const auto b = Graded(QStringLiteral("B"), QStringLiteral("150"));
    Game(1, a, b, QStringLiteral("W"));
    Game(2, a, b, QStringLiteral("D"));
    Game(3, b, a, QStringLiteral("B"));
    Recalc(3);
    // A: +1 +2 -3, and -1 more for the last counted round.
    QCOMPARE(a->ColourPreference(), qint16(1));
    QCOMPARE(a->ColourSeeker(), -1.0f);
    QCOMPARE(b->ColourPreference(), qint16(-1));
    QCOMPARE(b->ColourSeeker(), 1.0f);
    Recalc(2);
    QCOMPARE(a->ColourPreference(), qint16(2));
    QCOMPARE(a->ColourSeeker(), 4.0f);
}

void TestRecalc::everyEntrantIsWrittenBack()
{
    OpenTournament();
    const auto a = Graded(QStringLiteral("A"), QStringLiteral("120"));
    const auto b = Graded(QStringLiteral("B"), QStringLiteral("170"));
    const auto idle = Graded(QStringLiteral("Idle"), QStringLiteral("150"));
    idle->setScore(QStringLiteral("3"));
    idle->Update();
    Game(1, a, b, QStringLiteral("W"));
    Recalc(1, TieBreakMode::optSum);
    QCOMPARE(Stored(*a), Texts({"1", "0", "1", "210"}));
    QCOMPARE(Stored(*b), Texts({"0", "1", "1", "80"}));
    QCOMPARE(Stored(*idle), Texts({"0", "0", "0", "0"}));
}

void TestRecalc::writeBackIsOneUnitOfWork()
{
    OpenTournament();
    const auto a = Graded(QStringLiteral("A"), QStringLiteral("150"));
    const auto b = Graded(QStringLiteral("B"), QStringLiteral("150"));
    Game(1, a, b, QStringLiteral("W"));
    // B's row has gone from the file behind the collection's back.
    RunSql(QStringLiteral("Delete From Player Where PId = ?"), {b->PlayerId().toLongLong()});
    QVERIFY_THROWS_EXCEPTION(cFatalFault, Recalc(1));
    // A was written before B failed, and that write was undone with the rest.
    QCOMPARE(Stored(*a), Texts({"", "", "", ""}));
}

void TestRecalc::gameRowWithItsOwnCopyOfAnEntrantCountsForTheEntrant()
{
    OpenTournament();
    const auto a = Graded(QStringLiteral("A"), QStringLiteral("150"));
    const auto b = Graded(QStringLiteral("B"), QStringLiteral("150"));
    const auto c = Graded(QStringLiteral("C"), QStringLiteral("150"));
    Game(1, b, c, QStringLiteral("W"));
    // A row typed on the grid holds its own copy of the entrant.
    const auto copyOfA = std::make_shared<cPlayer>(*a);
    copyOfA->setScore(QStringLiteral("7"));
    Game(2, copyOfA, b, QStringLiteral("W"));
    Recalc(2, TieBreakMode::optSum);
    // The entrant in the collection gets the win, found by its id.
    QCOMPARE(a->Score(), QStringLiteral("1"));
    QCOMPARE(a->Games(), QStringLiteral("1"));
    QCOMPARE(copyOfA->Score(), QStringLiteral("7"));
    // The opponent's score is read through the row's own reference: B's sum counts
    // the copy's 7, not A's 1.
    QCOMPARE(b->TieBreak(), QStringLiteral("7"));
    QCOMPARE(a->TieBreak(), QStringLiteral("1"));
}

void TestRecalc::progressWindowCountsEntrantsAndRows()
{
    OpenTournament();
    const auto a = Graded(QStringLiteral("A"), QStringLiteral("150"));
    const auto b = Graded(QStringLiteral("B"), QStringLiteral("150"));
    const auto c = Graded(QStringLiteral("C"), QStringLiteral("150"));
    Game(1, a, b, QStringLiteral("W"));
    Game(1, c, nullptr, QStringLiteral("W"));
    Game(1, nullptr, nullptr, QString());
    interaction_->Clear();
    Recalc(1);
    // 3 entrants twice, 2, and 3 rows.
    const QStringList calls = interaction_->CallsStartingWith(QStringLiteral("progress"));
    QCOMPARE(calls.first(),
             QStringLiteral("progress-start|Recalculating scores for:\nCongress\nOpen|11"));
    QCOMPARE(interaction_->Count(QStringLiteral("progress-update")), 9);
    QCOMPARE(calls.last(), QStringLiteral("progress-end"));
    QVERIFY(!interaction_->BusyPointerShown());
    interaction_->Clear();
    Recalc(1, TieBreakMode::optSB);
    QCOMPARE(interaction_->CallsStartingWith(QStringLiteral("progress-start")),
             Texts({"progress-start|Recalculating scores for:\nCongress\nOpen|14"}));
    QCOMPARE(interaction_->Count(QStringLiteral("progress-update")), 12);
    QCOMPARE(interaction_->CallsStartingWith(QStringLiteral("progress-update")).last(),
             QStringLiteral("progress-update|12"));
}

void TestRecalc::unknownResultCodeIsAFatalFault()
{
    OpenTournament();
    const auto a = Graded(QStringLiteral("A"), QStringLiteral("150"));
    const auto b = Graded(QStringLiteral("B"), QStringLiteral("150"));
    Game(1, a, b, QStringLiteral("C"));
    QVERIFY_THROWS_EXCEPTION(cFatalFault, Recalc(1));
}

namespace {

// Four entrants over nine rounds, with a won and a drawn bye, a "Z" game, an "N" game
// and a pairing without a result:
//
//  round  games (White first)
//  1      A-B W     C-D D
//  2      D-A B     B-C W
//  3      A-C D     B-D B
//  4      C-A B     D bye W     (B not paired)
//  5      A-D W     B-C Z
//  6      D-B N     A-C B
//  7      B-A W     C-D ""
//  8      A-D D     C bye D on Black's side   (B not paired)
//  9      D-C W     A-B B
//
// Grades: A 150, B 140, C 120, D ungraded at the default 100. Grading points per game,
// before the 50 for a win or loss: A gets 140 from B, 120 from C, 110 from D; B gets
// 150, 120, 100; C gets 150, 140, 100; D gets 140, 140, 120.
struct cFixture
{
    std::shared_ptr<cPlayer> a, b, c, d;
};

cFixture NineRounds()
{
    OpenTournament(QStringLiteral("B"), QStringLiteral("100"), QStringLiteral("9"));
    cFixture f;
    f.a = Graded(QStringLiteral("A"), QStringLiteral("150"), QStringLiteral("1"));
    f.b = Graded(QStringLiteral("B"), QStringLiteral("140"), QStringLiteral("2"));
    f.c = Graded(QStringLiteral("C"), QStringLiteral("120"), QStringLiteral("3"));
    f.d = Enter(QStringLiteral("D"), QString(), [](cPlayer &p) { p.setPin(QStringLiteral("4")); });
    const QString W = QStringLiteral("W"), D = QStringLiteral("D"), B = QStringLiteral("B");
    Game(1, f.a, f.b, W);
    Game(1, f.c, f.d, D);
    Game(2, f.d, f.a, B);
    Game(2, f.b, f.c, W);
    Game(3, f.a, f.c, D);
    Game(3, f.b, f.d, B);
    Game(4, f.c, f.a, B);
    Game(4, f.d, nullptr, W);
    Game(5, f.a, f.d, W);
    Game(5, f.b, f.c, QStringLiteral("Z"));
    Game(6, f.d, f.b, QStringLiteral("N"));
    Game(6, f.a, f.c, B);
    Game(7, f.b, f.a, W);
    Game(7, f.c, f.d, QString());
    Game(8, f.a, f.d, D);
    Game(8, nullptr, f.c, D);
    Game(9, f.d, f.c, W);
    Game(9, f.a, f.b, B);
    return f;
}

QString Figures(const cPlayer &player)
{
    return player.Score() + u'/' + player.Games() + u'/' + player.GPoints();
}

} // namespace

void TestRecalc::ninthRoundFixtureAfterEveryRound_data()
{
    QTest::addColumn<int>("round");
    QTest::addColumn<QStringList>("figures");
    // Score/Games/GPoints of A, B, C, D after each round, worked by hand.
    QTest::newRow("1") << 1 << Texts({"1/1/190", "0/1/100", "0.5/1/100", "0.5/1/120"});
    QTest::newRow("2") << 2 << Texts({"2/2/350", "1/2/270", "0.5/2/190", "0.5/2/210"});
    QTest::newRow("3") << 3 << Texts({"2.5/3/470", "1/3/320", "1/3/340", "1.5/3/400"});
    QTest::newRow("4") << 4 << Texts({"3.5/4/640", "1/3/320", "1/4/440", "2.5/3/400"});
    QTest::newRow("5") << 5 << Texts({"4.5/5/800", "1/4/320", "1/5/440", "2.5/4/490"});
    QTest::newRow("6") << 6 << Texts({"4.5/6/870", "1/5/420", "2/6/640", "2.5/5/630"});
    QTest::newRow("7") << 7 << Texts({"4.5/7/960", "2/6/620", "2/6/640", "2.5/5/630"});
    QTest::newRow("8") << 8 << Texts({"5/8/1070", "2/6/620", "2.5/6/640", "3/6/770"});
    QTest::newRow("9") << 9 << Texts({"5/9/1160", "3/7/820", "2.5/7/690", "4/7/940"});
}

void TestRecalc::ninthRoundFixtureAfterEveryRound()
{
    QFETCH(int, round);
    QFETCH(QStringList, figures);
    const cFixture f = NineRounds();
    Recalc(qint16(round));
    QCOMPARE(QStringList({Figures(*f.a), Figures(*f.b), Figures(*f.c), Figures(*f.d)}), figures);
    for (const auto &player : {f.a, f.b, f.c, f.d})
        QCOMPARE(Stored(*player), QStringList({player->Score(), QStringLiteral("0"),
                                               player->Games(), player->GPoints()}));
}

void TestRecalc::ninthRoundFixtureTieBreaksAndColours()
{
    const cFixture f = NineRounds();
    const auto tieBreaks = [&] {
        return QStringList({f.a->TieBreak(), f.b->TieBreak(), f.c->TieBreak(), f.d->TieBreak()});
    };
    Recalc(9, TieBreakMode::optSum);
    QCOMPARE(tieBreaks(), Texts({"28.5", "28", "33", "28.5"}));
    Recalc(9, TieBreakMode::optSB);
    QCOMPARE(tieBreaks(), Texts({"16.75", "12.5", "9.5", "9.25"}));
    Recalc(9, TieBreakMode::optPro);
    QCOMPARE(tieBreaks(), Texts({"32.5", "9", "13", "19.5"}));

    QCOMPARE(f.a->ColourPreference(), qint16(3));
    QCOMPARE(f.a->ColourSeeker(), 20.0f);
    QCOMPARE(f.b->ColourPreference(), qint16(1));
    QCOMPARE(f.b->ColourSeeker(), 0.0f);
    QCOMPARE(f.c->ColourPreference(), qint16(-2));
    QCOMPARE(f.c->ColourSeeker(), -14.0f);
    QCOMPARE(f.d->ColourPreference(), qint16(-2));
    QCOMPARE(f.d->ColourSeeker(), -6.0f);
    QCOMPARE(f.a->PerformanceGrade(), QStringLiteral("129"));
    QCOMPARE(f.d->PerformanceGrade(), QStringLiteral("134"));
}

VELMORA_TEST_MAIN(TestRecalc)
#include "test_recalc.moc"
