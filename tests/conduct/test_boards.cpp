#include "conduct/conduct_fixture.h"
#include "support/scripted_interaction.h"
#include "support/test_environment.h"

#include <QGuiApplication>
#include <QSqlQuery>
#include <QTest>

using namespace conduct_fixture;

class TestBoards : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void noRowsGiveFirstBoardOneAndNextBoardOne();
    void roundOnBoards11To15StartsAt11AndGoesOnAt16();
    void roundWithoutBoardsContinuesFromTheEarlierRounds();
    void blankRowCountLeavesRoomForTheUnpaired_data();
    void blankRowCountLeavesRoomForTheUnpaired();
    void removeEmptyBoardsTwiceGivesTheSameRows();
    void removeEmptyBoardsKeepsPairingsAndAddsBlankRowsAtTheEnd();
    void renumberBoardsNumbersBlankRowsTooButStoresOnlyPairings();
    void reOrderBoardsOfARoundWithoutPairsLeavesOnlyBlankRows();
    void reOrderBoardsRanksByScoresBeforeTheRoundAndMovesByesDown();
    void reOrderBoardsRanksEqualScoresByGrade();
    void rowsEqualOnEveryKeyKeepTheirOrder();
    void reOrderBoardsShowsItsProgressAndStoresNothing();

private:
    std::unique_ptr<cTestSession> session_;
    std::unique_ptr<cScriptedInteraction> interaction_;
};

namespace {

cResults &Results()
{
    return Control().Tournament()->Results();
}

void Blank(int round, int count)
{
    for (int row = 0; row < count; ++row)
        Game(round, nullptr, nullptr, QString());
}

int RowsOfRound(int round)
{
    return Results().CountForRound(qint16(round));
}

// The rows of a round in collection order as "board:white-black", "-" for none.
QStringList RoundRows(int round, bool withBlanks = false)
{
    QStringList rows;
    for (const auto &row : Results()) {
        if (row->Round().toInt() != round)
            continue;
        if (!withBlanks && !row->White() && !row->Black())
            continue;
        rows.append(row->Board() + u':' +
                    (row->White() ? row->White()->Surname() : QStringLiteral("-")) + u'-' +
                    (row->Black() ? row->Black()->Surname() : QStringLiteral("-")));
    }
    return rows;
}

} // namespace

void TestBoards::init()
{
    session_ = std::make_unique<cTestSession>();
    interaction_ = std::make_unique<cScriptedInteraction>();
    OpenTournament();
}

void TestBoards::cleanup()
{
    Control().setTournament(nullptr);
    interaction_.reset();
    session_.reset();
}

void TestBoards::noRowsGiveFirstBoardOneAndNextBoardOne()
{
    QCOMPARE(Results().FirstBoard(1), QStringLiteral("1"));
    QCOMPARE(Results().NextBoard(1), qint16(1));
}

void TestBoards::roundOnBoards11To15StartsAt11AndGoesOnAt16()
{
    const auto a = Graded(QStringLiteral("A"), QStringLiteral("150"));
    const auto b = Graded(QStringLiteral("B"), QStringLiteral("150"));
    for (int board = 15; board >= 11; --board)
        Game(1, a, b, QString(), QString::number(board));
    Blank(1, 5);
    QCOMPARE(Results().FirstBoard(1), QStringLiteral("11"));
    QCOMPARE(Results().NextBoard(1), qint16(16));
}

void TestBoards::roundWithoutBoardsContinuesFromTheEarlierRounds()
{
    const auto a = Graded(QStringLiteral("A"), QStringLiteral("150"));
    const auto b = Graded(QStringLiteral("B"), QStringLiteral("150"));
    for (int board = 11; board <= 15; ++board)
        Game(1, a, b, QStringLiteral("W"), QString::number(board));
    Game(2, a, b, QString());
    Blank(2, 5);
    QCOMPARE(Results().FirstBoard(2), QStringLiteral("11"));
    QCOMPARE(Results().NextBoard(2), qint16(11));
    // A later round's boards do not count for the first board of an earlier one.
    Game(3, a, b, QString(), QStringLiteral("4"));
    QCOMPARE(Results().FirstBoard(2), QStringLiteral("11"));
    // They do count for the next board offered in the round just before them.
    QCOMPARE(Results().NextBoard(2), qint16(4));
}

void TestBoards::blankRowCountLeavesRoomForTheUnpaired_data()
{
    QTest::addColumn<int>("entrants");
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("blanks");
    QTest::newRow("20 entrants, 10 rows") << 20 << 10 << 5;
    QTest::newRow("20 entrants, 2 rows") << 20 << 2 << 13;
    QTest::newRow("21 entrants, 12 rows") << 21 << 12 << 5;
}

void TestBoards::blankRowCountLeavesRoomForTheUnpaired()
{
    QFETCH(int, entrants);
    QFETCH(int, rows);
    QFETCH(int, blanks);
    std::shared_ptr<cPlayer> first;
    for (int index = 1; index <= entrants; ++index) {
        const auto player =
            Graded(QStringLiteral("P") + QString::number(index), QStringLiteral("150"));
        if (!first)
            first = player;
    }
    for (int row = 0; row < rows; ++row)
        Game(1, first, nullptr, QString());
    QCOMPARE(Results().BlankRowCount(1), blanks);
}

void TestBoards::removeEmptyBoardsTwiceGivesTheSameRows()
{
    for (int index = 1; index <= 12; ++index)
        Graded(QStringLiteral("P") + QString::number(index), QStringLiteral("150"));
    const auto &players = Control().Tournament()->Players();
    Game(1, players.item(1), players.item(2), QString());
    Blank(1, 2);
    Game(1, players.item(3), nullptr, QString());
    Results().RemoveEmptyBoards(1);
    // 12 / 2 - 2 + 5 = 9 blank rows.
    QCOMPARE(RowsOfRound(1), 2 + 9);
    Results().RemoveEmptyBoards(1);
    QCOMPARE(RowsOfRound(1), 11);
}

void TestBoards::removeEmptyBoardsKeepsPairingsAndAddsBlankRowsAtTheEnd()
{
    const auto a = Graded(QStringLiteral("A"), QStringLiteral("150"));
    const auto b = Graded(QStringLiteral("B"), QStringLiteral("150"));
    Blank(1, 3);
    Game(1, a, b, QString(), QStringLiteral("7"));
    Blank(2, 2);
    Blank(1, 3);
    Results().RemoveEmptyBoards(1);
    QCOMPARE(RoundRows(1), Texts({"7:A-B"}));
    QCOMPARE(RowsOfRound(1), 6);
    QCOMPARE(RowsOfRound(2), 2);
    // The round's rows: the pairing, then the two blank rows of round 2, then five new
    // blank rows of round 1 at the end.
    QCOMPARE(Results().item(1)->White(), a);
    QCOMPARE(Results().item(2)->Round(), QStringLiteral("2"));
    QCOMPARE(Results().item(4)->Round(), QStringLiteral("1"));
    QCOMPARE(Results().Count(), 8);
}

void TestBoards::renumberBoardsNumbersBlankRowsTooButStoresOnlyPairings()
{
    const auto a = Graded(QStringLiteral("A"), QStringLiteral("150"));
    const auto b = Graded(QStringLiteral("B"), QStringLiteral("150"));
    const auto c = Graded(QStringLiteral("C"), QStringLiteral("150"));
    Game(1, a, b, QStringLiteral("W"), QStringLiteral("3"));
    Blank(1, 1);
    Game(1, c, nullptr, QStringLiteral("W"));
    Game(2, b, a, QString(), QStringLiteral("1"));
    Results().RenumberBoards(1, 21);
    QCOMPARE(RoundRows(1, true), Texts({"21:A-B", "22:---", "23:C--"}));
    QCOMPARE(RoundRows(2), Texts({"1:B-A"}));
    QSqlQuery rows = RunSql(QStringLiteral("Select Board From Result Where TId = ? "
                                           "and \"Round\" = 1 Order By Board"),
                            {Control().Tournament()->TournId().toLongLong()});
    QStringList stored;
    while (rows.next())
        stored.append(TextOf(rows.value(0)));
    QCOMPARE(stored, Texts({"21", "23"}));
}

void TestBoards::reOrderBoardsOfARoundWithoutPairsLeavesOnlyBlankRows()
{
    for (int index = 1; index <= 4; ++index)
        Graded(QStringLiteral("P") + QString::number(index), QStringLiteral("150"));
    Blank(1, 7);
    Results().ReOrderBoards(1);
    // Room for the 4 entrants, 2 pairings, with 5 to spare.
    QCOMPARE(RowsOfRound(1), 7);
    QCOMPARE(RoundRows(1), QStringList());
}

void TestBoards::reOrderBoardsRanksByScoresBeforeTheRoundAndMovesByesDown()
{
    OpenTournament(QStringLiteral("B"), QStringLiteral("100"), QStringLiteral("3"));
    const auto a = Graded(QStringLiteral("A"), QStringLiteral("150"));
    const auto b = Graded(QStringLiteral("B"), QStringLiteral("150"));
    const auto c = Graded(QStringLiteral("C"), QStringLiteral("150"));
    const auto d = Graded(QStringLiteral("D"), QStringLiteral("150"));
    const auto e = Graded(QStringLiteral("E"), QStringLiteral("150"));
    const auto f = Graded(QStringLiteral("F"), QStringLiteral("150"));
    const QString W = QStringLiteral("W"), D = QStringLiteral("D");
    Game(1, a, e, W, QStringLiteral("21"));
    Game(1, b, f, D, QStringLiteral("22"));
    Game(1, c, d, D, QStringLiteral("23"));
    Game(2, a, f, W, QStringLiteral("21"));
    Game(2, b, e, W, QStringLiteral("22"));
    Game(2, c, d, D, QStringLiteral("23"));
    // Before round 3: A 2, B 1.5, C 1, D 1, E 0, F 0.5. A game in round 3 counts not.
    Game(3, e, f, W);
    Game(3, b, nullptr, QString());
    Blank(3, 2);
    Game(3, c, d, QString());
    Game(3, a, nullptr, QString());
    Results().ReOrderBoards(3);
    // Sorted by the leader's score: A's bye, B's bye, C-D, E-F. Moving byes down takes
    // A's bye to the end; B's bye, which moved up into its place, is passed over.
    QCOMPARE(RoundRows(3), Texts({"21:B--", "22:C-D", "23:E-F", "24:A--"}));
    QCOMPARE(RowsOfRound(3), 4 + 5);
    // The round now stands at the end of the collection, blank rows last.
    QCOMPARE(Results().item(7)->White(), b);
    QVERIFY(!Results().item(Results().Count())->White());
    QCOMPARE(a->Score(), QStringLiteral("2"));
    QCOMPARE(e->Score(), QStringLiteral("0"));
}

void TestBoards::reOrderBoardsRanksEqualScoresByGrade()
{
    const auto p = Graded(QStringLiteral("P"), QStringLiteral("120"));
    const auto q = Graded(QStringLiteral("Q"), QStringLiteral("110"));
    const auto r = Graded(QStringLiteral("R"), QStringLiteral("150"));
    const auto s = Graded(QStringLiteral("S"), QStringLiteral("100"));
    const auto t = Graded(QStringLiteral("T"), QStringLiteral("150"));
    const auto u = Graded(QStringLiteral("U"), QStringLiteral("130"));
    Game(1, p, q, QString());
    Game(1, r, s, QString());
    Game(1, t, u, QString());
    Results().ReOrderBoards(1);
    // Equal top grades 150: the better lower grade, 130, goes first.
    QCOMPARE(RoundRows(1), Texts({"1:T-U", "2:R-S", "3:P-Q"}));
}

void TestBoards::rowsEqualOnEveryKeyKeepTheirOrder()
{
    const auto a = Graded(QStringLiteral("A"), QStringLiteral("150"), QStringLiteral("1"));
    const auto b = Graded(QStringLiteral("B"), QStringLiteral("140"), QStringLiteral("2"));
    const auto first = Game(1, a, b, QString());
    const auto second = Game(1, b, a, QString());
    Results().ReOrderBoards(1);
    QCOMPARE(Results().item(1), first);
    QCOMPARE(Results().item(2), second);
    QCOMPARE(RoundRows(1), Texts({"1:A-B", "2:B-A"}));
}

void TestBoards::reOrderBoardsShowsItsProgressAndStoresNothing()
{
    const auto a = Graded(QStringLiteral("A"), QStringLiteral("150"));
    const auto b = Graded(QStringLiteral("B"), QStringLiteral("140"));
    const auto c = Graded(QStringLiteral("C"), QStringLiteral("130"));
    const auto d = Graded(QStringLiteral("D"), QStringLiteral("120"));
    Game(1, c, d, QString());
    Game(1, a, b, QString());
    interaction_->Clear();
    Results().ReOrderBoards(1);
    QVERIFY(interaction_->Calls().contains(
        QStringLiteral("progress-start|Sorting boards for:\nCongress\nOpen|1")));
    // The recalculation of the rounds before comes first.
    QVERIFY(interaction_->CallsStartingWith(QStringLiteral("progress-start"))
                .first()
                .startsWith(QStringLiteral("progress-start|Recalculating scores for:")));
    QCOMPARE(RoundRows(1), Texts({"1:A-B", "2:C-D"}));
    QCOMPARE(SqlScalar(QStringLiteral("Select count(*) From Result")).toInt(), 0);
}

VELMORA_TEST_MAIN(TestBoards)
#include "test_boards.moc"
