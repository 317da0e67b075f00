#include "reports/print_cntrl.h"
#include "reports/report_options.h"
#include "support/test_environment.h"

#include "report_fixtures.h"

#include <QGuiApplication>
#include <QTest>

class TestWallChart : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void rowsOfOneFiftySixInPinOrderOnPortraitPages();
    void everyPageHasAHeavyLeftEdgeAndItsColumnLines();
    void lastPageIsRuledDownToTheGridBottom();
    void textsStandInTheirColumns();
    void chartCarriesNoNoticeAndNoPageNumbers();

private:
    std::unique_ptr<cTestSession> session_;
};

namespace {

void PrintChart()
{
    Control().Tournament()->Players().ListWallChart(mPrintCntrl::Destination::Preview,
                                                    cPrintOptions{});
}

qint32 GridBottom()
{
    const qint32 top = mPrintCntrl::PrintTop();
    return top + (mPrintCntrl::PrintBottom() - top) / 156 * 156;
}

// The rows' lower lines of a page: the full-width rules below the top line.
QList<qint32> RowLines(qint32 page)
{
    QList<qint32> lines;
    const qint32 left = mPrintCntrl::PrintLeft();
    for (const cPageRule &rule : mPrintCntrl::Document().Page(page).Rules)
        if (rule.X1 == left && rule.X2 == left + 2000 && rule.Y1 == rule.Y2 &&
            rule.Y1 > mPrintCntrl::PrintTop())
            lines.append(rule.Y1);
    return lines;
}

std::optional<cPageText> TextAt(qint32 page, qint32 x, qint32 y)
{
    for (const cPageText &text : mPrintCntrl::Document().Page(page).Texts)
        if (text.X == x && text.Y == y)
            return text;
    return std::nullopt;
}

} // namespace

void TestWallChart::init()
{
    session_ = std::make_unique<cTestSession>();
    Control().setSurnameCase(0);
    Control().setMaxDisplayAge(u"20"_s);
}

void TestWallChart::cleanup()
{
    Control().setTournament(nullptr);
    session_.reset();
}

void TestWallChart::rowsOfOneFiftySixInPinOrderOnPortraitPages()
{
    OpenFixture(cFixtureTournament{}, NumberedEntrants(30), {});
    PrintChart();
    QCOMPARE(mPrintCntrl::Document().Orientation(), PageOrientation::Portrait);
    const qint32 top = mPrintCntrl::PrintTop();
    const qint32 perPage = (mPrintCntrl::PrintBottom() - top) / 156;
    QCOMPARE(mPrintCntrl::Document().PageCount(), (30 + perPage - 1) / perPage);
    const qint32 left = mPrintCntrl::PrintLeft();
    // The first entrant's pin on the first row of page 1; the next page opens with
    // the entrant after the last row of page 1.
    QCOMPARE(TextAt(1, left + 1740, top + 156 - 90)->Text, u"  1"_s);
    QCOMPARE(TextAt(2, left + 1740, top + 156 - 90)->Text,
             QString::number(perPage + 1).rightJustified(3));
}

void TestWallChart::everyPageHasAHeavyLeftEdgeAndItsColumnLines()
{
    OpenFixture(cFixtureTournament{}, NumberedEntrants(30), {});
    PrintChart();
    const qint32 left = mPrintCntrl::PrintLeft();
    const qint32 top = mPrintCntrl::PrintTop();
    const qint32 bottom = GridBottom();
    for (int page = 1; page <= mPrintCntrl::Document().PageCount(); ++page) {
        const QList<cPageRule> &rules = mPrintCntrl::Document().Page(page).Rules;
        QVERIFY(rules.size() > 5);
        QCOMPARE(rules.at(0).X1, left);
        QCOMPARE(rules.at(0).Y1, top);
        QCOMPARE(rules.at(0).Y2, bottom);
        QCOMPARE(rules.at(0).PenWidth, 20);
        const QList<std::array<qint32, 4>> frame{{left, top, left + 2000, top},
                                                 {left + 410, top, left + 410, bottom},
                                                 {left + 1680, top, left + 1680, bottom},
                                                 {left + 2000, top, left + 2000, bottom}};
        for (int index = 0; index < 4; ++index) {
            const cPageRule &rule = rules.at(index + 1);
            QCOMPARE((std::array<qint32, 4>{rule.X1, rule.Y1, rule.X2, rule.Y2}), frame.at(index));
            QCOMPARE(rule.PenWidth, 2);
        }
    }
}

void TestWallChart::lastPageIsRuledDownToTheGridBottom()
{
    OpenFixture(cFixtureTournament{}, NumberedEntrants(30), {});
    PrintChart();
    const qint32 top = mPrintCntrl::PrintTop();
    const qint32 perPage = (mPrintCntrl::PrintBottom() - top) / 156;
    const qint32 last = mPrintCntrl::Document().PageCount();
    QList<qint32> expected;
    for (qint32 row = 1; row <= perPage; ++row)
        expected.append(top + row * 156);
    QCOMPARE(RowLines(1), expected);
    // Only a few entrants on the last page, and still every row ruled.
    QVERIFY(30 - (last - 1) * perPage < perPage);
    QCOMPARE(RowLines(last), expected);
    QCOMPARE(RowLines(last).constLast(), GridBottom());
}

void TestWallChart::textsStandInTheirColumns()
{
    auto tournament = OpenCongress();
    tournament->Players().item(u"5"_s)->setAge(u"11"_s);
    tournament->Players().item(u"5"_s)->setDOB(u"01/06/2013"_s);
    PrintChart();
    const qint32 left = mPrintCntrl::PrintLeft();
    // Dempsey has pin 5 and so the fifth row.
    const qint32 y = mPrintCntrl::PrintTop() + 5 * 156;
    QCOMPARE(TextAt(1, left + 60, y - 90)->Text, u"100 "_s);
    QCOMPARE(TextAt(1, left + 60, y - 90)->FontHeight, 200);
    QCOMPARE(TextAt(1, left + 265, y - 75)->Text, u"(U12)"_s);
    QCOMPARE(TextAt(1, left + 265, y - 75)->FontHeight, 120);
    QCOMPARE(TextAt(1, left + 470, y - 90)->Text, u"Dempsey, Ruth"_s);
    QCOMPARE(TextAt(1, left + 1740, y - 90)->Text, u"  5"_s);
    QCOMPARE(TextAt(1, left + 1740, y - 90)->FontStyle, FontStyle::Normal);
    // The pin of four digits stands whole.
    QCOMPARE(TextAt(1, left + 1740, mPrintCntrl::PrintTop() + 9 * 156 - 90)->Text, u"1001"_s);
}

void TestWallChart::chartCarriesNoNoticeAndNoPageNumbers()
{
    OpenFixture(cFixtureTournament{}, NumberedEntrants(30), {});
    PrintChart();
    for (int page = 1; page <= mPrintCntrl::Document().PageCount(); ++page)
        for (const cPageText &text : mPrintCntrl::Document().Page(page).Texts) {
            QVERIFY(!text.Text.startsWith(u"Page "_s));
            QVERIFY(!text.Text.contains(u"was was"_s));
        }
}

VELMORA_TEST_MAIN(TestWallChart)
#include "test_wall_chart.moc"
