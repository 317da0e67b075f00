#include "base/fatal_fault.h"
#include "database/sql.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/player.h"
#include "session/players.h"
#include "session/result.h"
#include "session/results.h"
#include "session/tournament.h"
#include "support/test_environment.h"

#include <QGuiApplication>
#include <QSqlQuery>
#include <QTest>

class TestResults : public QObject
{
    Q_OBJECT

private slots:
    void everyCodeHasItsTextsAndScores_data();
    void everyCodeHasItsTextsAndScores();
    void codeKnownToTheDisplayOnlyHasNoScore();
    void displayResultSetMapsTextsToCodes_data();
    void displayResultSetMapsTextsToCodes();
    void unknownDisplayTextLeavesNoCodeAndScoresNothing();
    void lowerCaseCodeShowsInTheResultButNotInTheSigns();
    void settersTrimAndLoadDoesNot();
    void tenEntrantsGetFiveSpareRowsBesideFiveGamesAndTenInAnEmptyRound();
    void thirtyEntrantsGetTwentySpareRowsOrFiveBesideFifteenGames();
    void gamesLoadInRoundAndBoardOrderBeforeTheSpareRows();
    void gameWithWhiteOnlyIsStoredWithBlackZeroAndComesBackAsABye();
    void updateResultsReplacesTheRoundAsAWhole();
    void updateResultsOfARoundWithNoSidesLeavesNoRow();
    void updateResultsThatFailsLeavesTheStoredRound();
    void storedUnknownCodeLoadsButStopsTheScore();
    void addItemCountAndRemoveWorkOnTheCollectionOnly();
};

namespace {

std::shared_ptr<cTournament> TournamentWithEntrants(int entrants, const QString &rounds)
{
    auto tournament = std::make_shared<cTournament>();
    tournament->setTitle(QStringLiteral("Congress"));
    tournament->Create();
    tournament->setRounds(rounds);
    tournament->Update();
    Control().setTournament(tournament);
    {
        cTransaction transaction;
        for (int index = 1; index <= entrants; ++index) {
            cPlayer player;
            player.setSurname(QStringLiteral("Player") + QString::number(index));
            player.setPin(QString::number(index));
            player.Create();
        }
        transaction.Commit();
    }
    tournament->Players().LoadAllPlayers();
    return tournament;
}

void StoreGames(const cTournament &tournament, int round, int games)
{
    const qint64 id = tournament.TournId().toLongLong();
    for (int board = 1; board <= games; ++board)
        RunSql(QStringLiteral("Insert Into Result (TId, \"Round\", Board, White, Black, "
                              "\"Result\") Values (?, ?, ?, ?, ?, 'D')"),
               {id, round, board, 2 * board - 1, 2 * board});
}

int SpareRows(const cResults &results, int round)
{
    int count = 0;
    for (const auto &entry : results)
        if (entry->Round().toInt() == round && !entry->White() && !entry->Black())
            ++count;
    return count;
}

QStringList StoredRows(const cTournament &tournament)
{
    QSqlQuery rows =
        RunSql(QStringLiteral("Select \"Round\", Board, White, Black, \"Result\" From Result "
                              "Where TId = ? Order By rowid"),
               {tournament.TournId().toLongLong()});
    QStringList lines;
    while (rows.next())
        lines.append(
            QStringList({TextOf(rows.value(0)),
                         rows.value(1).isNull() ? QStringLiteral("null") : TextOf(rows.value(1)),
                         TextOf(rows.value(2)), TextOf(rows.value(3)), TextOf(rows.value(4))})
                .join(u'|'));
    return lines;
}

} // namespace

void TestResults::everyCodeHasItsTextsAndScores_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("display");
    QTest::addColumn<QString>("whiteSign");
    QTest::addColumn<QString>("blackSign");
    QTest::addColumn<float>("whiteScore");
    QTest::addColumn<float>("blackScore");
    QTest::newRow("W white won") << "W"
                                 << "1 - 0"
                                 << "+"
                                 << "-" << 1.0f << 0.0f;
    QTest::newRow("D drawn") << "D" << QStringLiteral("\u00BD - \u00BD") << "="
                             << "=" << 0.5f << 0.5f;
    QTest::newRow("B black won") << "B"
                                 << "0 - 1"
                                 << "-"
                                 << "+" << 0.0f << 1.0f;
    QTest::newRow("Z no points") << "Z"
                                 << "0 - 0"
                                 << " "
                                 << " " << 0.0f << 0.0f;
    QTest::newRow("N no result") << "N"
                                 << "     "
                                 << " "
                                 << " " << 0.0f << 0.0f;
    QTest::newRow("empty not yet") << ""
                                   << ""
                                   << " "
                                   << " " << 0.0f << 0.0f;
}

void TestResults::everyCodeHasItsTextsAndScores()
{
    QFETCH(QString, code);
    QFETCH(QString, display);
    QFETCH(QString, whiteSign);
    QFETCH(QString, blackSign);
    QFETCH(float, whiteScore);
    QFETCH(float, blackScore);
    cResult result;
    result.setResult(code);
    QCOMPARE(result.Result(), code);
    QCOMPARE(result.DisplayResult(), display);
    QCOMPARE(result.DisplayWhiteResult(), whiteSign);
    QCOMPARE(result.DisplayBlackResult(), blackSign);
    QCOMPARE(result.WhiteScore(), whiteScore);
    QCOMPARE(result.BlackScore(), blackScore);
}

void TestResults::codeKnownToTheDisplayOnlyHasNoScore()
{
    cResult result;
    result.setResult(QStringLiteral("C"));
    QCOMPARE(result.DisplayResult(), QStringLiteral("     "));
    QCOMPARE(result.DisplayWhiteResult(), QStringLiteral(" "));
    QCOMPARE(result.DisplayBlackResult(), QStringLiteral(" "));
    try {
        result.WhiteScore();
        QFAIL("C gave a white score");
    } catch (const cFatalFault &fault) {
        QCOMPARE(fault.Number(), FaultNumber::UnknownCode);
    }
    QVERIFY_THROWS_EXCEPTION(cFatalFault, result.BlackScore());
}

void TestResults::displayResultSetMapsTextsToCodes_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("code");
    QTest::newRow("white won") << "1 - 0"
                               << "W";
    QTest::newRow("drawn") << QStringLiteral("\u00BD - \u00BD") << "D";
    QTest::newRow("black won") << "0 - 1"
                               << "B";
    QTest::newRow("no points") << "0 - 0"
                               << "Z";
    QTest::newRow("empty gives N") << ""
                                   << "N";
    QTest::newRow("five blanks give N") << "     "
                                        << "N";
    QTest::newRow("padded text") << " 1 - 0 "
                                 << "W";
}

void TestResults::displayResultSetMapsTextsToCodes()
{
    QFETCH(QString, text);
    QFETCH(QString, code);
    cResult result;
    result.setResult(QStringLiteral("Z"));
    result.setDisplayResult(text);
    QCOMPARE(result.Result(), code);
}

void TestResults::unknownDisplayTextLeavesNoCodeAndScoresNothing()
{
    cResult result;
    result.setResult(QStringLiteral("W"));
    result.setDisplayResult(QStringLiteral("1-0"));
    QCOMPARE(result.Result(), QString());
    QCOMPARE(result.WhiteScore(), 0.0f);
    QCOMPARE(result.BlackScore(), 0.0f);
}

void TestResults::lowerCaseCodeShowsInTheResultButNotInTheSigns()
{
    cResult result;
    result.setResult(QStringLiteral("w"));
    QCOMPARE(result.DisplayResult(), QStringLiteral("1 - 0"));
    QCOMPARE(result.DisplayWhiteResult(), QStringLiteral(" "));
    QCOMPARE(result.DisplayBlackResult(), QStringLiteral(" "));
    QVERIFY_THROWS_EXCEPTION(cFatalFault, result.WhiteScore());
}

void TestResults::settersTrimAndLoadDoesNot()
{
    cResult result;
    result.setRound(QStringLiteral(" 3 "));
    result.setBoard(QStringLiteral(" 12 "));
    result.setResult(QStringLiteral(" D "));
    QCOMPARE(result.Round(), QStringLiteral("3"));
    QCOMPARE(result.Board(), QStringLiteral("12"));
    QCOMPARE(result.Result(), QStringLiteral("D"));
    auto white = std::make_shared<cPlayer>();
    result.Load(QStringLiteral(" 4"), QStringLiteral("2 "), white, nullptr, QStringLiteral("W "));
    QCOMPARE(result.Round(), QStringLiteral(" 4"));
    QCOMPARE(result.Board(), QStringLiteral("2 "));
    QCOMPARE(result.Result(), QStringLiteral("W "));
    QCOMPARE(result.White(), white);
    QVERIFY(!result.Black());
}

void TestResults::tenEntrantsGetFiveSpareRowsBesideFiveGamesAndTenInAnEmptyRound()
{
    cTestSession session;
    const auto tournament = TournamentWithEntrants(10, QStringLiteral("3"));
    StoreGames(*tournament, 1, 5);
    cResults &results = tournament->Results();
    results.LoadAllResults();
    QCOMPARE(SpareRows(results, 1), 5);
    QCOMPARE(SpareRows(results, 2), 10);
    QCOMPARE(SpareRows(results, 3), 10);
    QCOMPARE(results.CountForRound(1), qint16(10));
    QCOMPARE(results.Count(), 5 + 5 + 10 + 10);
}

void TestResults::thirtyEntrantsGetTwentySpareRowsOrFiveBesideFifteenGames()
{
    cTestSession session;
    const auto tournament = TournamentWithEntrants(30, QStringLiteral("2"));
    StoreGames(*tournament, 2, 15);
    cResults &results = tournament->Results();
    results.LoadAllResults();
    QCOMPARE(SpareRows(results, 1), 20);
    QCOMPARE(SpareRows(results, 2), 5);
    QCOMPARE(results.CountForRound(2), qint16(20));
}

void TestResults::gamesLoadInRoundAndBoardOrderBeforeTheSpareRows()
{
    cTestSession session;
    const auto tournament = TournamentWithEntrants(4, QStringLiteral("2"));
    const qint64 id = tournament->TournId().toLongLong();
    RunSql(
        QStringLiteral("Insert Into Result (TId, \"Round\", Board, White, Black, \"Result\") "
                       "Values (?, 2, 1, 1, 3, 'B'), (?, 1, 2, 3, 4, 'D'), (?, 1, 1, 1, 2, 'W')"),
        {id, id, id});
    cResults &results = tournament->Results();
    results.LoadAllResults();
    QCOMPARE(results.item(1)->Round(), QStringLiteral("1"));
    QCOMPARE(results.item(1)->Board(), QStringLiteral("1"));
    QCOMPARE(results.item(1)->White()->Surname(), QStringLiteral("Player1"));
    QCOMPARE(results.item(1)->Black()->Surname(), QStringLiteral("Player2"));
    QCOMPARE(results.item(1)->Result(), QStringLiteral("W"));
    QCOMPARE(results.item(2)->Board(), QStringLiteral("2"));
    QCOMPARE(results.item(3)->Round(), QStringLiteral("2"));
    QCOMPARE(results.item(3)->Result(), QStringLiteral("B"));
    // The entrants of the collection, not copies of them.
    QCOMPARE(results.item(1)->White(), tournament->Players().item(QStringLiteral("1")));
    QCOMPARE(results.item(4)->Round(), QStringLiteral("1"));
    QCOMPARE(results.item(4)->Board(), QString());
    QVERIFY(!results.item(4)->White());
    QCOMPARE(results.item(4)->Result(), QString());
}

void TestResults::gameWithWhiteOnlyIsStoredWithBlackZeroAndComesBackAsABye()
{
    cTestSession session;
    const auto tournament = TournamentWithEntrants(3, QStringLiteral("1"));
    cResults &results = tournament->Results();
    results.LoadAllResults();
    const auto bye = results.item(1);
    bye->setWhite(tournament->Players().item(QStringLiteral("3")));
    bye->setResult(QStringLiteral("W"));
    results.UpdateResults(1);
    QCOMPARE(StoredRows(*tournament), QStringList({QStringLiteral("1|null|3|0|W")}));

    auto reopened = std::make_shared<cTournament>();
    reopened->Load(tournament->TournId());
    Control().setTournament(reopened);
    reopened->Players().LoadAllPlayers();
    reopened->Results().LoadAllResults();
    const auto loaded = reopened->Results().item(1);
    QCOMPARE(loaded->White()->Surname(), QStringLiteral("Player3"));
    QVERIFY(!loaded->Black());
    QCOMPARE(loaded->Board(), QString());
}

void TestResults::updateResultsReplacesTheRoundAsAWhole()
{
    cTestSession session;
    const auto tournament = TournamentWithEntrants(6, QStringLiteral("2"));
    StoreGames(*tournament, 1, 3);
    StoreGames(*tournament, 2, 3);
    cResults &results = tournament->Results();
    results.LoadAllResults();
    cPlayers &players = tournament->Players();
    // Round 2 is entered afresh: one game changes its result, one goes, a bye comes.
    results.item(4)->setResult(QStringLiteral("W"));
    results.item(5)->setWhite(nullptr);
    results.item(5)->setBlack(nullptr);
    for (int position = 1; position <= results.Count(); ++position) {
        const auto entry = results.item(position);
        if (entry->Round() == u'2' && entry->Board().isEmpty()) {
            entry->setWhite(players.item(QStringLiteral("3")));
            entry->setBoard(QStringLiteral("9"));
            entry->setResult(QStringLiteral("w"));
            break;
        }
    }
    results.UpdateResults(2);
    const QStringList stored = StoredRows(*tournament);
    QCOMPARE(stored.mid(0, 3),
             QStringList({QStringLiteral("1|1|1|2|D"), QStringLiteral("1|2|3|4|D"),
                          QStringLiteral("1|3|5|6|D")}));
    QCOMPARE(stored.mid(3), QStringList({QStringLiteral("2|1|1|2|W"), QStringLiteral("2|3|5|6|D"),
                                         QStringLiteral("2|9|3|0|w")}));
}

void TestResults::updateResultsOfARoundWithNoSidesLeavesNoRow()
{
    cTestSession session;
    const auto tournament = TournamentWithEntrants(4, QStringLiteral("2"));
    StoreGames(*tournament, 1, 2);
    StoreGames(*tournament, 2, 2);
    cResults &results = tournament->Results();
    results.LoadAllResults();
    for (const auto &entry : results) {
        if (entry->Round() == u'1') {
            entry->setWhite(nullptr);
            entry->setBlack(nullptr);
        }
    }
    results.UpdateResults(1);
    QCOMPARE(SqlScalar(QStringLiteral("Select count(*) From Result Where \"Round\" = 1")).toInt(),
             0);
    QCOMPARE(SqlScalar(QStringLiteral("Select count(*) From Result Where \"Round\" = 2")).toInt(),
             2);
}

void TestResults::updateResultsThatFailsLeavesTheStoredRound()
{
    cTestSession session;
    const auto tournament = TournamentWithEntrants(4, QStringLiteral("1"));
    StoreGames(*tournament, 1, 2);
    cResults &results = tournament->Results();
    results.LoadAllResults();
    results.item(1)->setResult(QStringLiteral("W"));
    // A code longer than the field holds is refused by the file at the second row.
    results.item(2)->setResult(QStringLiteral("WW"));
    QVERIFY_THROWS_EXCEPTION(cFatalFault, results.UpdateResults(1));
    QCOMPARE(StoredRows(*tournament),
             QStringList({QStringLiteral("1|1|1|2|D"), QStringLiteral("1|2|3|4|D")}));
}

void TestResults::storedUnknownCodeLoadsButStopsTheScore()
{
    cTestSession session;
    const auto tournament = TournamentWithEntrants(2, QStringLiteral("1"));
    RunSql(QStringLiteral("Insert Into Result (TId, \"Round\", Board, White, Black, \"Result\") "
                          "Values (?, 1, 1, 1, 2, 'C')"),
           {tournament->TournId().toLongLong()});
    cResults &results = tournament->Results();
    results.LoadAllResults();
    QCOMPARE(results.item(1)->Result(), QStringLiteral("C"));
    QCOMPARE(results.item(1)->DisplayResult(), QStringLiteral("     "));
    QVERIFY_THROWS_EXCEPTION(cFatalFault, results.item(1)->WhiteScore());
}

void TestResults::addItemCountAndRemoveWorkOnTheCollectionOnly()
{
    cTestSession session;
    const auto tournament = TournamentWithEntrants(2, QStringLiteral("1"));
    cResults &results = tournament->Results();
    const auto white = tournament->Players().item(QStringLiteral("1"));
    const auto black = tournament->Players().item(QStringLiteral("2"));
    const auto added = results.Add(QStringLiteral("1"), QStringLiteral("1"), white, black,
                                   QStringLiteral("D"), QStringLiteral("ignored"));
    results.Add(QStringLiteral("1"), QString(), nullptr, nullptr, QString());
    QCOMPARE(results.Count(), 2);
    QCOMPARE(results.item(1), added);
    QCOMPARE(added->White(), white);
    QCOMPARE(results.CountForRound(1), qint16(2));
    QCOMPARE(results.CountForRound(2), qint16(0));
    results.UpdateResults(1);
    results.Remove(1);
    QCOMPARE(results.Count(), 1);
    QVERIFY(!results.item(1)->White());
    QCOMPARE(SqlScalar(QStringLiteral("Select count(*) From Result")).toInt(), 1);
    QVERIFY_THROWS_EXCEPTION(cFatalFault, results.item(2));
    QVERIFY_THROWS_EXCEPTION(cFatalFault, results.Remove(0));
}

VELMORA_TEST_MAIN(TestResults)
#include "test_results.moc"
