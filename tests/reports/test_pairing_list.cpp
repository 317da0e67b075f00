#include "reports/print_cntrl.h"
#include "reports/report_options.h"
#include "support/test_environment.h"

#include "report_fixtures.h"
#include "report_golden.h"

#include <QGuiApplication>
#include <QTest>

class TestPairingList : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void unplayedRoundShowsScoresBeforeItAndBlankResults();
    void roundOneLeavesTheScoreColumnsEmpty();
    void rowWithoutWhiteKeepsThePinsOfTheRowBefore();
    void gameWithNeitherSideHasNoRow();
    void elevenBoardsAndMoreStandApartByTens();
    void pinOfFourDigitsWidensTheLine();
    void boardGapsAreNotClosed();
    void surnameStandsAsStoredWhateverTheSurnameCase();

private:
    std::unique_ptr<cTestSession> session_;
};

namespace {

cPrintOptions ForRound(const QString &round)
{
    cPrintOptions options;
    options.Round = round;
    return options;
}

// The pairing rows: the lines after the column heading that are long enough to hold
// a board and a side.
QStringList Rows()
{
    const QStringList texts = Texts();
    QStringList rows;
    bool started = false;
    for (const QString &text : texts) {
        if (text.startsWith(u" Bd White"_s)) {
            started = true;
            continue;
        }
        if (started && text.size() >= 90)
            rows.append(text);
    }
    return rows;
}

} // namespace

void TestPairingList::init()
{
    session_ = std::make_unique<cTestSession>();
    Control().setSurnameCase(0);
}

void TestPairingList::cleanup()
{
    Control().setTournament(nullptr);
    session_.reset();
}

void TestPairingList::unplayedRoundShowsScoresBeforeItAndBlankResults()
{
    OpenCongress()->Results().ListPairings(mPrintCntrl::Destination::Preview, ForRound(u"9"_s));
    VERIFY_GOLDEN(u"pairing_list_round9.txt"_s);
    // Black's columns stay where the layout puts them when there is no result yet.
    const QString first = Rows().at(0);
    QCOMPARE(first.mid(43, 5), u"     "_s);
    QCOMPARE(first.mid(51, 16), u"Brennan, Siobhan"_s);
    QCOMPARE(first.mid(82, 6), u"  (4\u00bd)"_s);
}

void TestPairingList::roundOneLeavesTheScoreColumnsEmpty()
{
    auto tournament = OpenCongress();
    // Stored figures of a full recalculation do not reach round 1's list.
    tournament->Players().RecalcAll(9);
    tournament->Results().ListPairings(mPrintCntrl::Destination::Preview, ForRound(u"1"_s));
    VERIFY_GOLDEN(u"pairing_list_round1.txt"_s);
    for (const QString &row : Rows())
        QCOMPARE(row.mid(35, 6), u"      "_s);
}

void TestPairingList::rowWithoutWhiteKeepsThePinsOfTheRowBefore()
{
    OpenCongress()->Results().ListPairings(mPrintCntrl::Destination::Preview, ForRound(u"7"_s));
    VERIFY_GOLDEN(u"pairing_list_round7.txt"_s);
    const QStringList rows = Rows();
    // Board 4 has no white player: black starts at column 42, and the pins of board 3
    // stand ahead of black's.
    QCOMPARE(rows.at(3).mid(4, 38), u"Bye"_s.leftJustified(38));
    QCOMPARE(rows.at(3).mid(42, 16), u"Brennan, Siobhan"_s);
    QVERIFY(rows.at(3).endsWith(u"  8    9    2"_s));
    // Board 5 has no black player: white's pin alone ends it.
    QVERIFY(rows.at(4).endsWith(u"Bye"_s.leftJustified(38) + u"  1001"_s));
}

void TestPairingList::gameWithNeitherSideHasNoRow()
{
    auto tournament = OpenCongress();
    // The spare rows of round 9 have neither side, and one more with a board.
    tournament->Results().Add(u"9"_s, u"6"_s, nullptr, nullptr, u"W"_s);
    tournament->Results().ListPairings(mPrintCntrl::Destination::Preview, ForRound(u"9"_s));
    VERIFY_GOLDEN(u"pairing_list_round9.txt"_s);
}

void TestPairingList::elevenBoardsAndMoreStandApartByTens()
{
    cFixtureTournament details;
    details.rounds = u"1"_s;
    QList<cFixtureGame> games;
    for (int board = 1; board <= 22; ++board)
        games.append({1, board, 2 * board - 1, 2 * board, QString()});
    OpenFixture(details, NumberedEntrants(44), games);
    Control().Tournament()->Results().ListPairings(mPrintCntrl::Destination::Preview,
                                                   ForRound(u"1"_s));
    const QStringList texts = Texts();
    const qsizetype heading = texts.indexOf(
        u" Bd White                                  Result  Black                                    --Pin--"_s);
    QVERIFY(heading > 0);
    for (int board = 1; board <= 22; ++board) {
        const qsizetype at = heading + board + (board - 1) / 10;
        QCOMPARE(texts.at(at).left(4), QString::number(board).rightJustified(3) + u' ');
    }
    QCOMPARE(texts.at(heading + 11), u" "_s);
    QCOMPARE(texts.at(heading + 22), u" "_s);
    QCOMPARE(texts.at(heading + 25), QString());
}

void TestPairingList::pinOfFourDigitsWidensTheLine()
{
    OpenCongress()->Results().ListPairings(mPrintCntrl::Destination::Preview, ForRound(u"1"_s));
    const QStringList rows = Rows();
    QCOMPARE(rows.at(0).size(), 99);
    // Kowalski, pin 1001, plays black on board 3.
    QCOMPARE(rows.at(2).size(), 100);
    QVERIFY(rows.at(2).endsWith(u"  4  1001"_s));
}

void TestPairingList::boardGapsAreNotClosed()
{
    cFixtureTournament details;
    details.rounds = u"1"_s;
    OpenFixture(details, NumberedEntrants(6),
                {{1, 1, 1, 2, u"W"_s}, {1, 2, 3, 4, u"D"_s}, {1, 5, 5, 6, u"B"_s}});
    Control().Tournament()->Results().ListPairings(mPrintCntrl::Destination::Preview,
                                                   ForRound(u"1"_s));
    const QStringList rows = Rows();
    QCOMPARE(rows.size(), 3);
    QCOMPARE(rows.at(0).left(4), u"  1 "_s);
    QCOMPARE(rows.at(1).left(4), u"  2 "_s);
    QCOMPARE(rows.at(2).left(4), u"  5 "_s);
}

void TestPairingList::surnameStandsAsStoredWhateverTheSurnameCase()
{
    Control().setSurnameCase(1);
    OpenCongress()->Results().ListPairings(mPrintCntrl::Destination::Preview, ForRound(u"9"_s));
    VERIFY_GOLDEN(u"pairing_list_round9.txt"_s);
}

VELMORA_TEST_MAIN(TestPairingList)
#include "test_pairing_list.moc"
