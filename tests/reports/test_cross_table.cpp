#include "reports/print_cntrl.h"
#include "reports/report_options.h"
#include "session/result.h"
#include "support/test_environment.h"

#include "report_fixtures.h"
#include "report_golden.h"

#include <QGuiApplication>
#include <QTest>

class TestCrossTable : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void byPinNumbersRowsAndCellsByPinOnALandscapePage();
    void byScoreWithPositionsNumbersCellsByRowsOfThisTable();
    void eightRoundsGiveAPortraitPageAndNineALandscapeOne();
    void byeAndDefaultCellsCarryTheirSigns();
    void gameWithNeitherSideAddsNoCell();
    void nameOverTwentyFiveCharactersIsCutAndShorterOnesLedByDots();
    void thirtyEntrantsHaveALineAheadOfRowsElevenAndTwentyOne();
    void noRoundsLeaveNoRoundColumnsAndNoCells();
    void endDateAddsToOnlyWhenThereIsOne();
    void indexKeyStaysWholeOnOnePage();

private:
    std::unique_ptr<cTestSession> session_;
};

namespace {

QString RowOf(const QString &name)
{
    for (const QString &text : Texts())
        if (text.mid(4, name.size()) == name)
            return text;
    return QString();
}

// The game cells of a row of a table without player codes.
QString CellsOf(const QString &row, int rounds)
{
    return row.mid(39, 6 * rounds);
}

} // namespace

void TestCrossTable::init()
{
    session_ = std::make_unique<cTestSession>();
    Control().setSurnameCase(0);
}

void TestCrossTable::cleanup()
{
    Control().setTournament(nullptr);
    session_.reset();
}

void TestCrossTable::byPinNumbersRowsAndCellsByPinOnALandscapePage()
{
    OpenCongress()->Players().ListCrossTable(mPrintCntrl::Destination::Preview, cPrintOptions{});
    VERIFY_GOLDEN(u"cross_table_by_pin.txt"_s);
    QVERIFY(Texts().contains(u"PIN Player                    Grade     1     2     3     4     5  "
                             "   6     7     8     9     A   B   C   D"_s));
}

void TestCrossTable::byScoreWithPositionsNumbersCellsByRowsOfThisTable()
{
    OpenCongress()->setRounds(u"8"_s);
    cPrintOptions options;
    options.Order = CrossTableOrder::ByScore;
    options.Numbering = RowNumbering::Position;
    options.PlayerCodes = true;
    options.TieBreak = TieBreakMode::optSum;
    Control().Tournament()->Players().ListCrossTable(mPrintCntrl::Destination::Preview, options);
    VERIFY_GOLDEN(u"cross_table_by_score_positions.txt"_s);
}

void TestCrossTable::eightRoundsGiveAPortraitPageAndNineALandscapeOne()
{
    OpenCongress();
    Control().Tournament()->setRounds(u"8"_s);
    Control().Tournament()->Players().ListCrossTable(mPrintCntrl::Destination::Preview,
                                                     cPrintOptions{});
    QCOMPARE(mPrintCntrl::Document().Orientation(), PageOrientation::Portrait);
    Control().Tournament()->setRounds(u"9"_s);
    Control().Tournament()->Players().ListCrossTable(mPrintCntrl::Destination::Preview,
                                                     cPrintOptions{});
    QCOMPARE(mPrintCntrl::Document().Orientation(), PageOrientation::Landscape);
}

void TestCrossTable::byeAndDefaultCellsCarryTheirSigns()
{
    OpenCongress()->Players().ListCrossTable(mPrintCntrl::Destination::Preview, cPrintOptions{});
    // A bye won on the white side, and one on the black side.
    QCOMPARE(CellsOf(RowOf(u"Ashworth"_s), 9).left(6), u"bye+  "_s);
    QCOMPARE(CellsOf(RowOf(u"Evans"_s), 9).mid(12, 6), u"bye+  "_s);
    // White lost by default with no opponent: def and the minus sign.
    QCOMPARE(CellsOf(RowOf(u"Chowdhury"_s), 9).mid(30, 6), u"def-  "_s);
    // Black lost by default with no opponent.
    QCOMPARE(CellsOf(RowOf(u"Brennan"_s), 9).mid(36, 6), u"def-  "_s);
}

void TestCrossTable::gameWithNeitherSideAddsNoCell()
{
    auto tournament = OpenCongress();
    tournament->Players().ListCrossTable(mPrintCntrl::Destination::Preview, cPrintOptions{});
    const QStringList before = Texts();
    // The spare rows of the entry grid have neither side; one more changes nothing.
    tournament->Results().Add(u"1"_s, u"9"_s, nullptr, nullptr, u"W"_s);
    tournament->Players().ListCrossTable(mPrintCntrl::Destination::Preview, cPrintOptions{});
    QCOMPARE(Texts(), before);
}

void TestCrossTable::nameOverTwentyFiveCharactersIsCutAndShorterOnesLedByDots()
{
    OpenCongress()->Players().ListCrossTable(mPrintCntrl::Destination::Preview, cPrintOptions{});
    QCOMPARE(RowOf(u"Featherstonehaugh"_s).mid(4, 27), u"Featherstonehaugh-Ru, Max  "_s);
    QCOMPARE(RowOf(u"Lee"_s).mid(4, 27), u"Lee......................  "_s);
}

void TestCrossTable::thirtyEntrantsHaveALineAheadOfRowsElevenAndTwentyOne()
{
    cFixtureTournament details;
    details.rounds = u"1"_s;
    OpenFixture(details, NumberedEntrants(30), {});
    cPrintOptions options;
    options.Order = CrossTableOrder::ByName;
    Control().Tournament()->Players().ListCrossTable(mPrintCntrl::Destination::Preview, options);
    const QStringList texts = Texts();
    const qsizetype first =
        texts.indexOf(u"  1 Player01, Sam............  199A           0   0    0    "_s);
    QVERIFY(first > 0);
    for (int row = 1; row <= 30; ++row) {
        const qsizetype blanks = (row - 1) / 10;
        QVERIFY2(
            texts.at(first + row - 1 + blanks).startsWith(QString::number(row).rightJustified(3)),
            qPrintable(QString::number(row)));
    }
    QCOMPARE(texts.at(first + 10), u" "_s);
    QCOMPARE(texts.at(first + 21), u" "_s);
    QCOMPARE(texts.at(first + 32), QString());
    QVERIFY(texts.at(first + 33).startsWith(u"Index: A"_s));

    // By score the groups of equal score stand apart instead; one group runs on unbroken.
    options.Order = CrossTableOrder::ByScore;
    Control().Tournament()->Players().ListCrossTable(mPrintCntrl::Destination::Preview, options);
    const QStringList byScore = Texts();
    const qsizetype top = byScore.indexOf(texts.at(first));
    QVERIFY(top > 0);
    for (int row = 1; row <= 30; ++row)
        QVERIFY2(byScore.at(top + row - 1).startsWith(QString::number(row).rightJustified(3)),
                 qPrintable(QString::number(row)));
    QCOMPARE(byScore.at(top + 30), QString());
}

void TestCrossTable::noRoundsLeaveNoRoundColumnsAndNoCells()
{
    cFixtureTournament details;
    details.rounds = u"0"_s;
    OpenFixture(details, NumberedEntrants(2), {{1, 1, 1, 2, u"W"_s}});
    Control().Tournament()->Players().ListCrossTable(mPrintCntrl::Destination::Preview,
                                                     cPrintOptions{});
    const QStringList texts = Texts();
    QVERIFY(texts.contains(u"PIN Player                    Grade     A   B   C   D"_s));
    QVERIFY(texts.contains(u"  1 Player01, Sam............  199A     0   0    0    "_s));
}

void TestCrossTable::endDateAddsToOnlyWhenThereIsOne()
{
    cFixtureTournament details;
    details.tEnd = u"13/04/2025"_s;
    OpenFixture(details, NumberedEntrants(2), {});
    Control().Tournament()->Players().ListCrossTable(mPrintCntrl::Destination::Preview,
                                                     cPrintOptions{});
    QVERIFY(Texts().contains(u"Date of Congress: 12/04/2025 to 13/04/2025"_s));
    Control().Tournament()->setTEnd(QString());
    Control().Tournament()->Players().ListCrossTable(mPrintCntrl::Destination::Preview,
                                                     cPrintOptions{});
    QVERIFY(Texts().contains(u"Date of Congress: 12/04/2025"_s));
}

void TestCrossTable::indexKeyStaysWholeOnOnePage()
{
    // Tables whose last rows come ever nearer the foot of the first page: the key
    // moves to the next page as a whole once it no longer fits.
    cFixtureTournament details;
    details.rounds = u"1"_s;
    bool moved = false;
    for (int entrants = 52; entrants <= 64; ++entrants) {
        cleanup();
        init();
        OpenFixture(details, NumberedEntrants(entrants), {});
        Control().Tournament()->Players().ListCrossTable(mPrintCntrl::Destination::Preview,
                                                         cPrintOptions{});
        const auto &lines = mPrintCntrl::RunningLines();
        qsizetype key = 0;
        while (!lines.at(key).Text.startsWith(u"Index: A"_s))
            ++key;
        // The empty line ahead of the key and its two lines stand on one page; the
        // empty line that follows the block may open the next.
        QCOMPARE(lines.at(key - 1).Text, QString());
        QCOMPARE(lines.at(key - 1).Page, lines.at(key + 1).Page);
        QCOMPARE(lines.at(key + 2).Text, QString());
        if (lines.at(key - 1).Page > lines.at(key - 2).Page) {
            moved = true;
            QCOMPARE(lines.at(key - 1).Y, mPrintCntrl::PrintTop());
        }
    }
    QVERIFY(moved);
}

VELMORA_TEST_MAIN(TestCrossTable)
#include "test_cross_table.moc"
