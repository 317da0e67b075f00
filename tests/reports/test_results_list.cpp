#include "reports/print_cntrl.h"
#include "reports/report_options.h"
#include "support/test_environment.h"

#include "report_fixtures.h"
#include "report_golden.h"

#include <QGuiApplication>
#include <QTest>

class TestResultsList : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void sonnebornBergerListShowsQuartersUnderItsTitle();
    void listWithoutTieBreakHasAOneLineHeadingEndingInTwoBlanks();
    void emptyEndDateLeavesTheDateLineEndingInTo();
    void nameOverTwentyFiveCharactersIsCut();
    void equalScoresKeepTheirOwnPositionsWithNoBlankLine();
    void pageBreakInAScoreGroupRepeatsTheHeadingWithNoBlankLineAhead();
    void reportIsPortrait();

private:
    std::unique_ptr<cTestSession> session_;
};

namespace {

cPrintOptions WithTieBreak(TieBreakMode mode)
{
    cPrintOptions options;
    options.TieBreak = mode;
    return options;
}

} // namespace

void TestResultsList::init()
{
    session_ = std::make_unique<cTestSession>();
    Control().setSurnameCase(0);
}

void TestResultsList::cleanup()
{
    Control().setTournament(nullptr);
    session_.reset();
}

void TestResultsList::sonnebornBergerListShowsQuartersUnderItsTitle()
{
    OpenCongress()->Players().ListResults(mPrintCntrl::Destination::Preview,
                                          WithTieBreak(TieBreakMode::optSB));
    VERIFY_GOLDEN(u"results_list_sb.txt"_s);
}

void TestResultsList::listWithoutTieBreakHasAOneLineHeadingEndingInTwoBlanks()
{
    OpenCongress()->Players().ListResults(mPrintCntrl::Destination::Preview, cPrintOptions{});
    VERIFY_GOLDEN(u"results_list_none.txt"_s);
    QStringList headings;
    for (const mPrintCntrl::cRunningLine &line : mPrintCntrl::RunningLines())
        if (line.FontStyle == FontStyle::Bold && line.FontSize == 8)
            headings.append(line.Text);
    QCOMPARE(headings, QStringList{u"Pos Player                     Grade   Score  "_s});
}

void TestResultsList::emptyEndDateLeavesTheDateLineEndingInTo()
{
    OpenCongress()->Players().ListResults(mPrintCntrl::Destination::Preview, cPrintOptions{});
    QVERIFY(Texts().contains(u"Date of Congress: 12/04/2025 to "_s));
}

void TestResultsList::nameOverTwentyFiveCharactersIsCut()
{
    OpenCongress()->Players().ListResults(mPrintCntrl::Destination::Preview, cPrintOptions{});
    const QStringList texts = Texts();
    const auto row = std::find_if(texts.begin(), texts.end(), [](const QString &text) {
        return text.mid(4, 25) == u"Featherstonehaugh-Ru, Max"_s;
    });
    QVERIFY(row != texts.end());
    QCOMPARE(row->mid(29, 6), u"  160C"_s);
}

void TestResultsList::equalScoresKeepTheirOwnPositionsWithNoBlankLine()
{
    cFixtureTournament details;
    details.rounds = u"2"_s;
    OpenFixture(details, NumberedEntrants(8),
                {{1, 1, 1, 8, u"W"_s},
                 {1, 2, 2, 7, u"W"_s},
                 {1, 3, 3, 6, u"W"_s},
                 {1, 4, 4, 5, u"W"_s},
                 {2, 1, 1, 2, u"W"_s},
                 {2, 2, 3, 4, u"D"_s},
                 {2, 3, 5, 6, u"W"_s},
                 {2, 4, 7, 8, u"W"_s}});
    Control().Tournament()->Players().ListResults(mPrintCntrl::Destination::Preview,
                                                  cPrintOptions{});
    const QStringList texts = Texts();
    const qsizetype fourth = texts.indexOf(u"  4 Player02, Sam............  198A    1    "_s);
    QVERIFY(fourth > 0);
    QCOMPARE(texts.at(fourth - 1), QString());
    QCOMPARE(texts.at(fourth + 1), u"  5 Player05, Sam............  195A    1    "_s);
    QCOMPARE(texts.at(fourth + 2), u"  6 Player07, Sam............  193A    1    "_s);
    QCOMPARE(texts.at(fourth + 3), QString());
    QCOMPARE(texts.at(fourth + 4), u"  7 Player06, Sam............  194A    0    "_s);
}

void TestResultsList::pageBreakInAScoreGroupRepeatsTheHeadingWithNoBlankLineAhead()
{
    // Eighty entrants without a game share one score group over two pages.
    OpenFixture(cFixtureTournament{}, NumberedEntrants(80), {});
    Control().Tournament()->Players().ListResults(mPrintCntrl::Destination::Preview,
                                                  WithTieBreak(TieBreakMode::optSum));
    QVector<mPrintCntrl::cRunningLine> second;
    for (const mPrintCntrl::cRunningLine &line : mPrintCntrl::RunningLines())
        if (line.Page == 2)
            second.append(line);
    QVERIFY(second.size() > 5);
    const QStringList block{QString(), u"Tie break via Sum of Opponents Scores"_s, QString(),
                            u"Pos Player                     Grade   Score   OS "_s};
    for (int index = 0; index < 4; ++index) {
        QCOMPARE(second.at(index).Text, block.at(index));
        QCOMPARE(second.at(index).FontStyle, FontStyle::Bold);
    }
    // The page's first line stands at the top of the text area.
    QCOMPARE(second.at(0).Y, mPrintCntrl::PrintTop());
    QVERIFY(second.at(4).Text.startsWith(u" "_s));
    QCOMPARE(second.at(4).FontStyle, FontStyle::Normal);
    const qsizetype position = second.at(4).Text.left(3).trimmed().toInt();
    QVERIFY(position > 40);
    // The last row of page 1 is the one before.
    const auto &lines = mPrintCntrl::RunningLines();
    const auto firstOfPage2 =
        std::find_if(lines.begin(), lines.end(), [](const auto &line) { return line.Page == 2; });
    QCOMPARE((firstOfPage2 - 1)->Text.left(3).trimmed().toInt(), position - 1);
}

void TestResultsList::reportIsPortrait()
{
    OpenCongress()->Players().ListResults(mPrintCntrl::Destination::Preview, cPrintOptions{});
    QCOMPARE(mPrintCntrl::Document().Orientation(), PageOrientation::Portrait);
}

VELMORA_TEST_MAIN(TestResultsList)
#include "test_results_list.moc"
