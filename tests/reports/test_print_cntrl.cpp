#include "base/fatal_fault.h"
#include "reports/page_document.h"
#include "reports/print_cntrl.h"
#include "reports/print_host.h"
#include "support/test_environment.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QStandardPaths>
#include <QTest>

using namespace mPrintCntrl;

namespace {

// Stands in for the windows and the printer, and remembers what it was asked.
class cRecordingPrintHost final : public cPrintHost
{
public:
    QString title = QStringLiteral("Velmora! - Spring Congress");
    std::optional<QPageLayout> layout;
    QList<QPageLayout::Orientation> layoutsAsked;
    int printed = 0;
    int previewed = 0;
    int setups = 0;
    qint32 pagesHandedOver = 0;
    QStringList webPreviews;

    QString DocumentTitle() override { return title; }
    std::optional<QPageLayout> PrinterLayout(QPageLayout::Orientation orientation) override
    {
        layoutsAsked.append(orientation);
        return layout;
    }
    void PrintDocument(const cPageDocument &document) override
    {
        ++printed;
        pagesHandedOver = document.PageCount();
    }
    void ShowPreview(const cPageDocument &document) override
    {
        ++previewed;
        pagesHandedOver = document.PageCount();
    }
    void ShowPrinterSetup() override { ++setups; }
    void ShowWebPreview(const QString &path) override { webPreviews.append(path); }
};

const QString NoticeLine =
    QStringLiteral("This print out was was produced by Velmora! which is available from");

// The running lines of a page, in the order they were placed.
QList<cRunningLine> LinesOfPage(qint32 page)
{
    QList<cRunningLine> lines;
    for (const cRunningLine &line : RunningLines())
        if (line.Page == page)
            lines.append(line);
    return lines;
}

const cRunningLine &LastLine()
{
    return RunningLines().constLast();
}

// The texts of a page that were placed at a given position.
QList<cPageText> TextsAt(qint32 page, qint32 x, qint32 y)
{
    QList<cPageText> found;
    for (const cPageText &text : Document().Page(page).Texts)
        if (text.X == x && text.Y == y)
            found.append(text);
    return found;
}

void PrintNumberedLines(int count, const QString &prefix = QStringLiteral("Line "))
{
    for (int n = 1; n <= count; ++n)
        PrintLine(prefix + QString::number(n));
}

QByteArray ReadWebPage()
{
    QFile file(WebPagePath());
    if (!file.open(QIODevice::ReadOnly))
        return QByteArray();
    return file.readAll();
}

} // namespace

class TestPrintCntrl : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void printStartTakesTheWholeA4SheetInsideTheMargin();
    void printStartGivesUpHalfAMarginAtTheRightOfThePrintableArea();
    void printStartWithNoMarginKeepsToThePrintableArea();
    void printStartAsksForThePrinterInTheReportsOrientation();
    void printStartNamesTheDocumentAfterTheMainWindow();
    void printStartSetsEightPointCourierNew();
    void marginKeepsItsValueFromOneReportToTheNext();

    void reportWithNoLinesStillPrintsNoticeAndPageOneOfOne();
    void runningLinesFollowAtOnePointTwoLineHeights();
    void runningLineIsClippedAtTheRightEdge();
    void lineAtTheLastPositionDoesNotBreak();
    void pageBreakUsesTheSmallLineHeight();
    void bothCoordinatesZeroMeanTheRunningLine();
    void positionedTextLeavesTheRunningPositionAlone();

    void titleLineIsBoldAndTwoPointsLarger();
    void setPrintFontStyleZeroKeepsBold();
    void setPrintFontNegativeStyleReturnsToNormal();
    void setPrintFontEmptyNameAndZeroSizeKeepThem();
    void firstLineWithEmptyHeadingSetsStyleBackToNormal();

    void headingPrintsAheadOfTheNextLineInBold();
    void headingComesAgainAtTheHeadOfEveryPage();
    void headingChangedNearTheFootMovesToANewPage_data();
    void headingChangedNearTheFootMovesToANewPage();
    void clearPageHeadingLeavesWhatIsPrinted();
    void headingBeyondSixLinesIsAFault();

    void keepTogetherBlockNeverSplits();
    void keepTogetherBlockThatFitsStaysAndIsFollowedByAnEmptyLine();
    void keepTogetherBuffersPositionedTextsToo();
    void keepTogetherBeyondTwentyOneLinesIsAFault();

    void closingNoticeHasTheMakersLines();
    void closingNoticeIsBuiltAtSixPointsButPrintsAtTheReportsSize();
    void closingNoticeMovesWholeToANewPage();
    void closingNoticeBeyondElevenLinesIsAFault();
    void makerLinesLeaveOutEmptyDetailsWithTheirSeparators();

    void pageNumbersStampEveryPageAtTheUpperRight();
    void setPrintPageReturnsToAnEarlierPageAndAddsToIt();
    void rulesTakeTheLinePenAndWholeUnits();
    void printFontResetsTheLinePen();

    void sendToPrinterPrintsOnlyAPaperReport();
    void previewSetupAndWebPreviewGoToTheHost();

    void webPageHoldsTheRunningLinesEscaped();
    void webPageRepeatsTheHeadingWhereAPageBreaks();
    void webPageIsReplacedByTheNextWebReport();
    void paperReportWritesNoWebPage();
    void webPageThatCanNotBeCreatedIsAFault();

private:
    cRecordingPrintHost *host_ = nullptr;
};

void TestPrintCntrl::init()
{
    host_ = new cRecordingPrintHost;
    InstallPrintHost(host_);
    SetPrintMargin(100);
}

void TestPrintCntrl::cleanup()
{
    InstallPrintHost(nullptr);
    delete host_;
    host_ = nullptr;
}

void TestPrintCntrl::printStartTakesTheWholeA4SheetInsideTheMargin()
{
    PrintStart(Destination::Paper, PageOrientation::Portrait);
    QCOMPARE(PrintLeft(), 100);
    QCOMPARE(PrintTop(), 100);
    // The whole sheet is reachable: the margin from the sheet's edge decides.
    QCOMPARE(PrintRight(), 2000);
    QCOMPARE(PrintBottom(), 2870);
    QCOMPARE(PrintCentre(), 1050);
    QCOMPARE(Document().CurrentY(), 100);
    QCOMPARE(Document().PageCount(), 1);

    PrintStart(Destination::Paper, PageOrientation::Landscape);
    QCOMPARE(PrintRight(), 2870);
    QCOMPARE(PrintBottom(), 2000);
}

void TestPrintCntrl::printStartGivesUpHalfAMarginAtTheRightOfThePrintableArea()
{
    const QMarginsF reach(6.35, 4.2, 10.0, 12.7);
    host_->layout = QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, reach,
                                QPageLayout::Millimeter, reach);
    PrintStart(Destination::Paper, PageOrientation::Portrait);
    QCOMPARE(PrintLeft(), 100);
    QCOMPARE(PrintTop(), 100);
    // The printer reaches 2000; the right edge stands half a margin inside it, while
    // the foot stands at what the printer reaches.
    QCOMPARE(PrintRight(), 1950);
    QCOMPARE(PrintBottom(), 2843);
    QCOMPARE(PrintCentre(), 1025);
}

void TestPrintCntrl::printStartWithNoMarginKeepsToThePrintableArea()
{
    const QMarginsF reach(6.35, 4.2, 10.0, 12.7);
    host_->layout = QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, reach,
                                QPageLayout::Millimeter, reach);
    SetPrintMargin(0);
    PrintStart(Destination::Paper, PageOrientation::Portrait);
    QCOMPARE(PrintLeft(), 64);
    QCOMPARE(PrintTop(), 42);
    QCOMPARE(PrintRight(), 2000);
    QCOMPARE(PrintBottom(), 2843);
    QCOMPARE(Document().CurrentY(), 42);
}

void TestPrintCntrl::printStartAsksForThePrinterInTheReportsOrientation()
{
    PrintStart(Destination::Preview, PageOrientation::Landscape);
    PrintStart(Destination::Preview, PageOrientation::Portrait);
    QCOMPARE(host_->layoutsAsked,
             (QList<QPageLayout::Orientation>{QPageLayout::Landscape, QPageLayout::Portrait}));
    QCOMPARE(Document().Orientation(), PageOrientation::Portrait);
}

void TestPrintCntrl::printStartNamesTheDocumentAfterTheMainWindow()
{
    PrintStart(Destination::Paper, PageOrientation::Portrait);
    QCOMPARE(Document().DocumentTitle(), QStringLiteral("Velmora! - Spring Congress"));
}

void TestPrintCntrl::printStartSetsEightPointCourierNew()
{
    PrintStart(Destination::Paper, PageOrientation::Portrait);
    QCOMPARE(PrintFontName(), QStringLiteral("Courier New"));
    QCOMPARE(PrintFontSize(), 8);
    QCOMPARE(PrintFontStyle(), FontStyle::Normal);
    QCOMPARE(LineHeight(), 32);
    QCOMPARE(SmallLineHeight(), 26);
    QCOMPARE(Document().FontHeight(), 80);
    QCOMPARE(Document().FontStyle(), FontStyle::Normal);
}

void TestPrintCntrl::marginKeepsItsValueFromOneReportToTheNext()
{
    SetPrintMargin(0);
    PrintStart(Destination::Paper, PageOrientation::Portrait);
    PrintStart(Destination::Paper, PageOrientation::Portrait);
    QCOMPARE(PrintMargin(), 0);
    QCOMPARE(PrintLeft(), 0);
    QCOMPARE(PrintRight(), 2100);
}

void TestPrintCntrl::reportWithNoLinesStillPrintsNoticeAndPageOneOfOne()
{
    PrintStart(Destination::Paper, PageOrientation::Portrait);
    BuildClosingNotice();
    PrintEnd();
    PrintPageNumbers();

    QCOMPARE(Document().PageCount(), 1);
    const QList<cRunningLine> expected{
        {1, 100, QString(), 8, FontStyle::Normal},
        {1, 138, QString(), 8, FontStyle::Normal},
        {1, 176, NoticeLine, 8, FontStyle::Normal},
        {1, 214, QStringLiteral("Velmora! Software."), 8, FontStyle::Normal},
        {1, 252, QString(), 8, FontStyle::Normal},
    };
    QCOMPARE(RunningLines(), expected);

    const QList<cPageText> stamps = TextsAt(1, 1990, 100);
    QCOMPARE(stamps.size(), 1);
    QCOMPARE(stamps.at(0).Text, QStringLiteral("Page 1 of 1"));
    QCOMPARE(stamps.at(0).Align, TextAlign::BottomRight);
    QCOMPARE(stamps.at(0).FontHeight, 60);
    QCOMPARE(stamps.at(0).FontStyle, FontStyle::Normal);
    QVERIFY(!stamps.at(0).Clip.has_value());
    // It ends 10 units inside the right edge and stands on the top line of the text.
    QCOMPARE(stamps.at(0).Box(), (cPageRect{1990 - 140, 100 - 24, 1990, 100}));
}

void TestPrintCntrl::runningLinesFollowAtOnePointTwoLineHeights()
{
    PrintStart(Destination::Paper, PageOrientation::Portrait);
    PrintNumberedLines(4);
    // 32 x 1.2 = 38.4, and the position is a whole unit: 38 from one line to the next.
    QCOMPARE(RunningLines().at(0).Y, 100);
    QCOMPARE(RunningLines().at(1).Y, 138);
    QCOMPARE(RunningLines().at(2).Y, 176);
    QCOMPARE(RunningLines().at(3).Y, 214);
    QCOMPARE(Document().CurrentY(), 252);
    const cPageText &first = Document().Page(1).Texts.at(0);
    QCOMPARE(first.X, 100);
    QCOMPARE(first.Y, 100);
    QCOMPARE(first.Text, QStringLiteral("Line 1"));
}

void TestPrintCntrl::runningLineIsClippedAtTheRightEdge()
{
    PrintStart(Destination::Paper, PageOrientation::Portrait);
    const QString wide(200, u'x');
    PrintLine(wide);
    const cPageText &text = Document().Page(1).Texts.at(0);
    QCOMPARE(text.Text, wide);
    QVERIFY(text.Clip.has_value());
    QCOMPARE(*text.Clip, (cPageRect{100, 100, 2000, 132}));
    QVERIFY(text.Box().Right > 2000);
    // The text is not wrapped: the next line is the next position.
    QCOMPARE(Document().CurrentY(), 138);
    QCOMPARE(RunningLines().size(), 1);
}

void TestPrintCntrl::lineAtTheLastPositionDoesNotBreak()
{
    // A margin of 104 puts the 73rd line at 104 + 72 x 38 = 2840, whose small height
    // of 26 ends exactly at the foot (2970 - 104 = 2866).
    SetPrintMargin(104);
    PrintStart(Destination::Paper, PageOrientation::Portrait);
    QCOMPARE(PrintBottom(), 2866);
    PrintNumberedLines(73);
    QCOMPARE(LastLine().Page, 1);
    QCOMPARE(LastLine().Y, 2840);
    QCOMPARE(Document().PageCount(), 1);

    PrintLine(QStringLiteral("Line 74"));
    QCOMPARE(LastLine().Page, 2);
    QCOMPARE(LastLine().Y, 104);
    QCOMPARE(Document().PageCount(), 2);
}

void TestPrintCntrl::pageBreakUsesTheSmallLineHeight()
{
    SetPrintMargin(104);
    PrintStart(Destination::Paper, PageOrientation::Portrait);
    PrintNumberedLines(73);
    // The full line height would not have let the last line stand there.
    QVERIFY(LastLine().Y + LineHeight() > PrintBottom());
    QVERIFY(LastLine().Y + SmallLineHeight() <= PrintBottom());
    QCOMPARE(LastLine().Page, 1);
}

void TestPrintCntrl::bothCoordinatesZeroMeanTheRunningLine()
{
    PrintStart(Destination::Paper, PageOrientation::Portrait);
    PrintLine(QStringLiteral("first"));
    PrintLine(QStringLiteral("at the origin?"), 0, 0);
    QVERIFY(TextsAt(1, 0, 0).isEmpty());
    QCOMPARE(LastLine().Text, QStringLiteral("at the origin?"));
    QCOMPARE(LastLine().Y, 138);
    QCOMPARE(TextsAt(1, 100, 138).size(), 1);
}

void TestPrintCntrl::positionedTextLeavesTheRunningPositionAlone()
{
    PrintStart(Destination::Paper, PageOrientation::Portrait);
    PrintLine(QStringLiteral("running"));
    PrintLine(QStringLiteral("left edge"), 0, 500);
    PrintLine(QStringLiteral("top edge"), 700, 0);
    PrintLine(QStringLiteral("low down"), 300, 2950);

    QCOMPARE(RunningLines().size(), 1);
    QCOMPARE(Document().CurrentY(), 138);
    QCOMPARE(Document().PageCount(), 1);
    const QList<cPageText> left = TextsAt(1, 0, 500);
    QCOMPARE(left.size(), 1);
    QCOMPARE(*left.at(0).Clip, (cPageRect{0, 500, 2000, 532}));
    QCOMPARE(TextsAt(1, 700, 0).size(), 1);
    // No page break is tested for a positioned text.
    QCOMPARE(TextsAt(1, 300, 2950).size(), 1);
}

void TestPrintCntrl::titleLineIsBoldAndTwoPointsLarger()
{
    PrintStart(Destination::Paper, PageOrientation::Portrait);
    PrintLine(QStringLiteral(" "));
    PrintTitleLine(QStringLiteral("Spring Congress"));
    PrintLine(QStringLiteral("after"));

    QCOMPARE(RunningLines().at(1),
             (cRunningLine{1, 138, QStringLiteral("Spring Congress"), 10, FontStyle::Bold}));
    const cPageText title = TextsAt(1, 100, 138).at(0);
    QCOMPARE(title.FontHeight, 100);
    QCOMPARE(title.FontStyle, FontStyle::Bold);
    QCOMPARE(*title.Clip, (cPageRect{100, 138, 2000, 178}));
    // A 10 point line is 40 high, so the next follows 48 below.
    QCOMPARE(RunningLines().at(2),
             (cRunningLine{1, 186, QStringLiteral("after"), 8, FontStyle::Normal}));
    QCOMPARE(LineHeight(), 32);
}

void TestPrintCntrl::setPrintFontStyleZeroKeepsBold()
{
    PrintStart(Destination::Paper, PageOrientation::Portrait);
    PrintLine(QStringLiteral(" "));
    SetPrintFont(QString(), FontStyle::Bold, 0);
    SetPrintFont(QString(), 0, 12);
    QCOMPARE(PrintFontStyle(), FontStyle::Bold);
    QCOMPARE(PrintFontSize(), 12);
    PrintLine(QStringLiteral("still bold"));
    QCOMPARE(LastLine().FontStyle, FontStyle::Bold);
    QCOMPARE(Document().Page(1).Texts.constLast().FontStyle, FontStyle::Bold);
}

void TestPrintCntrl::setPrintFontNegativeStyleReturnsToNormal()
{
    PrintStart(Destination::Paper, PageOrientation::Portrait);
    PrintLine(QStringLiteral(" "));
    SetPrintFont(QString(), FontStyle::Bold, 0);
    SetPrintFont(QString(), -1, 0);
    QCOMPARE(PrintFontStyle(), FontStyle::Normal);
    PrintLine(QStringLiteral("normal"));
    QCOMPARE(LastLine().FontStyle, FontStyle::Normal);
    QCOMPARE(Document().Page(1).Texts.constLast().FontStyle, FontStyle::Normal);
}

void TestPrintCntrl::setPrintFontEmptyNameAndZeroSizeKeepThem()
{
    PrintStart(Destination::Paper, PageOrientation::Portrait);
    SetPrintFont(QString(), FontStyle::Bold, 0);
    QCOMPARE(PrintFontName(), QStringLiteral("Courier New"));
    QCOMPARE(PrintFontSize(), 8);
    SetPrintFont(QStringLiteral("Courier New"), 0, 20);
    QCOMPARE(PrintFontSize(), 20);
    QCOMPARE(PrintFontStyle(), FontStyle::Bold);
    // The line heights follow the size: bold at full size, normal at 8/10 of it.
    QCOMPARE(LineHeight(), 80);
    QCOMPARE(SmallLineHeight(), 64);
}

void TestPrintCntrl::firstLineWithEmptyHeadingSetsStyleBackToNormal()
{
    // As the pairing cards do: bold large type, then positioned texts.
    SetPrintMargin(0);
    PrintStart(Destination::Preview, PageOrientation::Landscape);
    SetPrintFont(QString(), FontStyle::Bold, 14);
    SetPrintFont(QString(), FontStyle::Bold, 16);
    SetPrintPage(1);
    PrintLine(QStringLiteral("  1"), 50, 100);
    PrintLine(QStringLiteral("Smith, John"), 300, 100);
    QVERIFY(HeadingPrinted());
    QCOMPARE(TextsAt(1, 50, 100).at(0).FontStyle, FontStyle::Normal);
    QCOMPARE(TextsAt(1, 50, 100).at(0).FontHeight, 160);
    QCOMPARE(TextsAt(1, 300, 100).at(0).FontStyle, FontStyle::Normal);
    QVERIFY(RunningLines().isEmpty());

    SetPrintFont(QString(), FontStyle::Bold, 16);
    SetPrintPage(2);
    PrintLine(QStringLiteral("  2"), 50, 100);
    QCOMPARE(TextsAt(2, 50, 100).at(0).FontStyle, FontStyle::Bold);
}

void TestPrintCntrl::headingPrintsAheadOfTheNextLineInBold()
{
    PrintStart(Destination::Paper, PageOrientation::Portrait);
    PrintLine(QStringLiteral(" "));
    AddPageHeading(QString());
    AddPageHeading(QStringLiteral("Pos Player"));
    QVERIFY(!HeadingPrinted());
    PrintLine(QStringLiteral("  1 Smith"));
    const QList<cRunningLine> expected{
        {1, 100, QStringLiteral(" "), 8, FontStyle::Normal},
        {1, 138, QString(), 8, FontStyle::Bold},
        {1, 176, QStringLiteral("Pos Player"), 8, FontStyle::Bold},
        {1, 214, QStringLiteral("  1 Smith"), 8, FontStyle::Normal},
    };
    QCOMPARE(RunningLines(), expected);
    QVERIFY(HeadingPrinted());
}

void TestPrintCntrl::headingComesAgainAtTheHeadOfEveryPage()
{
    PrintStart(Destination::Paper, PageOrientation::Portrait);
    AddPageHeading(QStringLiteral("Heading one"));
    AddPageHeading(QStringLiteral("Heading two"));
    PrintNumberedLines(200);

    QCOMPARE(Document().PageCount(), 3);
    for (qint32 page = 1; page <= 3; ++page) {
        const QList<cRunningLine> lines = LinesOfPage(page);
        QCOMPARE(lines.at(0),
                 (cRunningLine{page, 100, QStringLiteral("Heading one"), 8, FontStyle::Bold}));
        QCOMPARE(lines.at(1),
                 (cRunningLine{page, 138, QStringLiteral("Heading two"), 8, FontStyle::Bold}));
        QVERIFY(lines.at(2).Text.startsWith(QStringLiteral("Line ")));
        QCOMPARE(lines.at(2).FontStyle, FontStyle::Normal);
        for (int i = 2; i < lines.size(); ++i)
            QVERIFY(!lines.at(i).Text.startsWith(QStringLiteral("Heading")));
    }
    // 73 positions on a page, two of them for the heading.
    QCOMPARE(LinesOfPage(1).size(), 73);
    QCOMPARE(LinesOfPage(1).constLast().Text, QStringLiteral("Line 71"));
    QCOMPARE(LinesOfPage(2).at(2).Text, QStringLiteral("Line 72"));
}

void TestPrintCntrl::headingChangedNearTheFootMovesToANewPage_data()
{
    QTest::addColumn<int>("linesBefore");
    QTest::addColumn<qint32>("headingPage");
    QTest::addColumn<qint32>("headingY");
    // After 71 lines the position is 2798: the heading and two lines after it would
    // need 3 x 26 = 78 and only 72 remain.
    QTest::newRow("fewer than two lines would follow") << 71 << 2 << 100;
    // After 70 lines the position is 2760: 78 still fit above the foot at 2870.
    QTest::newRow("room for two lines after it") << 70 << 1 << 2760;
}

void TestPrintCntrl::headingChangedNearTheFootMovesToANewPage()
{
    QFETCH(int, linesBefore);
    QFETCH(qint32, headingPage);
    QFETCH(qint32, headingY);

    PrintStart(Destination::Paper, PageOrientation::Portrait);
    PrintNumberedLines(linesBefore);
    ClearPageHeading();
    AddPageHeading(QStringLiteral("Age: 12"));
    PrintLine(QStringLiteral("Brown, Ann"));

    const cRunningLine &heading = RunningLines().at(linesBefore);
    QCOMPARE(heading,
             (cRunningLine{headingPage, headingY, QStringLiteral("Age: 12"), 8, FontStyle::Bold}));
    QCOMPARE(LastLine(), (cRunningLine{headingPage, headingY + 38, QStringLiteral("Brown, Ann"), 8,
                                       FontStyle::Normal}));
}

void TestPrintCntrl::clearPageHeadingLeavesWhatIsPrinted()
{
    PrintStart(Destination::Paper, PageOrientation::Portrait);
    AddPageHeading(QStringLiteral("Heading"));
    PrintLine(QStringLiteral("row"));
    ClearPageHeading();
    QVERIFY(PageHeadingLines().isEmpty());
    QVERIFY(HeadingPrinted());
    QCOMPARE(Document().Page(1).Texts.size(), 2);
    PrintNumberedLines(100);
    // With the block empty, a new page opens with the next line itself.
    QCOMPARE(LinesOfPage(2).at(0).Text, QStringLiteral("Line 72"));
}

void TestPrintCntrl::headingBeyondSixLinesIsAFault()
{
    PrintStart(Destination::Paper, PageOrientation::Portrait);
    for (int n = 0; n < MaxHeadingLines; ++n)
        AddPageHeading(QString::number(n));
    QVERIFY_THROWS_EXCEPTION(cFatalFault, AddPageHeading(QStringLiteral("seventh")));
}

void TestPrintCntrl::keepTogetherBlockNeverSplits()
{
    PrintStart(Destination::Paper, PageOrientation::Portrait);
    // At 2798 a line still fits (2798 + 26 <= 2870), and so would the next at 2836,
    // but the block of three and its empty line need 4 x 26 = 104.
    PrintNumberedLines(71);
    QCOMPARE(Document().CurrentY(), 2798);
    BeginKeepTogether();
    PrintLine(QString());
    PrintLine(QStringLiteral("Index: A = Player score"));
    PrintLine(QStringLiteral("       C = Total grading points"));
    QCOMPARE(RunningLines().size(), 71);
    EndKeepTogether();

    const QList<cRunningLine> expected{
        {2, 100, QString(), 8, FontStyle::Normal},
        {2, 138, QStringLiteral("Index: A = Player score"), 8, FontStyle::Normal},
        {2, 176, QStringLiteral("       C = Total grading points"), 8, FontStyle::Normal},
        {2, 214, QString(), 8, FontStyle::Normal},
    };
    QCOMPARE(RunningLines().mid(71), expected);
}

void TestPrintCntrl::keepTogetherBlockThatFitsStaysAndIsFollowedByAnEmptyLine()
{
    PrintStart(Destination::Paper, PageOrientation::Portrait);
    PrintNumberedLines(10);
    BeginKeepTogether();
    PrintLine(QStringLiteral("kept one"));
    PrintLine(QStringLiteral("kept two"));
    EndKeepTogether();
    PrintLine(QStringLiteral("after"));

    const QList<cRunningLine> expected{
        {1, 480, QStringLiteral("kept one"), 8, FontStyle::Normal},
        {1, 518, QStringLiteral("kept two"), 8, FontStyle::Normal},
        {1, 556, QString(), 8, FontStyle::Normal},
        {1, 594, QStringLiteral("after"), 8, FontStyle::Normal},
    };
    QCOMPARE(RunningLines().mid(10), expected);
}

void TestPrintCntrl::keepTogetherBuffersPositionedTextsToo()
{
    PrintStart(Destination::Paper, PageOrientation::Portrait);
    PrintLine(QStringLiteral("before"));
    BeginKeepTogether();
    PrintLine(QStringLiteral("placed"), 500, 500);
    QCOMPARE(Document().Page(1).Texts.size(), 1);
    EndKeepTogether();
    // It comes out as a running line; its position is not kept.
    QVERIFY(TextsAt(1, 500, 500).isEmpty());
    QCOMPARE(RunningLines().at(1).Text, QStringLiteral("placed"));
    QCOMPARE(RunningLines().at(1).Y, 138);
}

void TestPrintCntrl::keepTogetherBeyondTwentyOneLinesIsAFault()
{
    PrintStart(Destination::Paper, PageOrientation::Portrait);
    BeginKeepTogether();
    PrintNumberedLines(MaxKeepTogetherLines);
    QVERIFY_THROWS_EXCEPTION(cFatalFault, PrintLine(QStringLiteral("one too many")));
}

void TestPrintCntrl::closingNoticeHasTheMakersLines()
{
    PrintStart(Destination::Paper, PageOrientation::Portrait);
    PrintLine(QStringLiteral(" "));
    BuildClosingNotice();
    QCOMPARE(ClosingLines(),
             (QStringList{QString(), NoticeLine, QStringLiteral("Velmora! Software."), QString()}));
    PrintEnd();

    const QList<cRunningLine> expected{
        {1, 138, QString(), 8, FontStyle::Italic},
        {1, 176, QString(), 8, FontStyle::Italic},
        {1, 214, NoticeLine, 8, FontStyle::Italic},
        {1, 252, QStringLiteral("Velmora! Software."), 8, FontStyle::Italic},
        {1, 290, QString(), 8, FontStyle::Italic},
    };
    QCOMPARE(RunningLines().mid(1), expected);
    QCOMPARE(PrintFontStyle(), FontStyle::Normal);
}

void TestPrintCntrl::closingNoticeIsBuiltAtSixPointsButPrintsAtTheReportsSize()
{
    PrintStart(Destination::Paper, PageOrientation::Portrait);
    PrintLine(QStringLiteral(" "));
    SetPrintFont(QString(), FontStyle::Bold, 0);
    BuildClosingNotice();
    QCOMPARE(PrintFontSize(), 8);
    // The size is restored with a negative style: building the notice ends bold.
    QCOMPARE(PrintFontStyle(), FontStyle::Normal);
    PrintEnd();
    QCOMPARE(LastLine().FontSize, 8);
    QCOMPARE(Document().Page(1).Texts.constLast().FontHeight, 80);
}

void TestPrintCntrl::closingNoticeMovesWholeToANewPage()
{
    PrintStart(Destination::Paper, PageOrientation::Portrait);
    // At 2646 the notice of four lines and its lead need (4 + 4) x 26 = 208: it fits.
    PrintNumberedLines(67);
    BuildClosingNotice();
    PrintEnd();
    QCOMPARE(RunningLines().at(67).Page, 1);
    QCOMPARE(RunningLines().at(67).Y, 2646);
    QCOMPARE(LastLine().Page, 1);

    // One line further down it does not, and the notice opens the next page.
    PrintStart(Destination::Paper, PageOrientation::Portrait);
    PrintNumberedLines(68);
    BuildClosingNotice();
    PrintEnd();
    QCOMPARE(RunningLines().at(68), (cRunningLine{2, 100, QString(), 8, FontStyle::Italic}));
    QCOMPARE(LastLine().Page, 2);
    QCOMPARE(LastLine().Y, 252);
}

void TestPrintCntrl::closingNoticeBeyondElevenLinesIsAFault()
{
    PrintStart(Destination::Paper, PageOrientation::Portrait);
    BuildClosingNotice();
    BuildClosingNotice();
    QVERIFY_THROWS_EXCEPTION(cFatalFault, BuildClosingNotice());
}

void TestPrintCntrl::makerLinesLeaveOutEmptyDetailsWithTheirSeparators()
{
    cMakerDetails maker;
    maker.Name = QStringLiteral("Example Maker");
    maker.Street = QStringLiteral("1 Long Lane");
    maker.Town = QStringLiteral("Easton");
    maker.County = QStringLiteral("Westshire");
    maker.Postcode = QStringLiteral("EA1 2BC");
    maker.Telephone = QStringLiteral("0100 000000");
    maker.EMail = QStringLiteral("sales@example.invalid");
    QCOMPARE(MakerLines(maker),
             (QStringList{QStringLiteral("Example Maker, 1 Long Lane, Easton, Westshire. EA1 2BC."),
                          QStringLiteral("Tel: 0100 000000 EMail: sales@example.invalid")}));

    maker.Street.clear();
    maker.County.clear();
    maker.Telephone.clear();
    QCOMPARE(MakerLines(maker), (QStringList{QStringLiteral("Example Maker, Easton. EA1 2BC."),
                                             QStringLiteral("EMail: sales@example.invalid")}));

    QCOMPARE(MakerLines(Maker()), (QStringList{QStringLiteral("Velmora! Software."), QString()}));
}

void TestPrintCntrl::pageNumbersStampEveryPageAtTheUpperRight()
{
    PrintStart(Destination::Paper, PageOrientation::Portrait);
    PrintNumberedLines(150);
    BuildClosingNotice();
    PrintEnd();
    PrintPageNumbers();
    QCOMPARE(Document().PageCount(), 3);
    for (qint32 page = 1; page <= 3; ++page) {
        const QList<cPageText> stamps = TextsAt(page, 1990, 100);
        QCOMPARE(stamps.size(), 1);
        QCOMPARE(stamps.at(0).Text, QStringLiteral("Page %1 of 3").arg(page));
        QCOMPARE(stamps.at(0).Align, TextAlign::BottomRight);
        QCOMPARE(stamps.at(0).FontHeight, 60);
    }
    // No running line carries a stamp.
    for (const cRunningLine &line : RunningLines())
        QVERIFY(!line.Text.startsWith(QStringLiteral("Page ")));
}

void TestPrintCntrl::setPrintPageReturnsToAnEarlierPageAndAddsToIt()
{
    SetPrintMargin(0);
    PrintStart(Destination::Preview, PageOrientation::Landscape);
    SetPrintPage(1);
    PrintLine(QStringLiteral("card one"), 50, 100);
    SetPrintPage(2);
    PrintLine(QStringLiteral("card two"), 50, 100);
    SetPrintPage(1);
    PrintLine(QStringLiteral("added to one"), 50, 855);
    QCOMPARE(Document().PageCount(), 2);
    QCOMPARE(TextsAt(1, 50, 855).at(0).Text, QStringLiteral("added to one"));
    QCOMPARE(TextsAt(2, 50, 100).at(0).Text, QStringLiteral("card two"));
    QVERIFY(TextsAt(2, 50, 855).isEmpty());
}

void TestPrintCntrl::rulesTakeTheLinePenAndWholeUnits()
{
    SetPrintMargin(0);
    PrintStart(Destination::Preview, PageOrientation::Portrait);
    SetLinePen(0, 20.0, 0);
    DrawRule(0, 0, 0, 2808);
    SetLinePen(0, 2.4, 0);
    DrawRule(410.4, 156.6, 2000.5, 1.5);
    const QList<cPageRule> &rules = Document().Page(1).Rules;
    QCOMPARE(rules.size(), 2);
    QCOMPARE(rules.at(0).PenWidth, 20);
    QCOMPARE(rules.at(0).Y2, 2808);
    QCOMPARE(rules.at(1).PenWidth, 2);
    QCOMPARE(rules.at(1).X1, 410);
    QCOMPARE(rules.at(1).Y1, 157);
    // Halves go to the even neighbour.
    QCOMPARE(rules.at(1).X2, 2000);
    QCOMPARE(rules.at(1).Y2, 2);
    QCOMPARE(qRed(rules.at(1).PenColour) + qGreen(rules.at(1).PenColour) +
                 qBlue(rules.at(1).PenColour),
             0);
}

void TestPrintCntrl::printFontResetsTheLinePen()
{
    SetPrintMargin(0);
    PrintStart(Destination::Preview, PageOrientation::Portrait);
    SetLinePen(0, 20, 0);
    SetPrintFont(QString(), -1, 20);
    DrawRule(0, 0, 100, 0);
    QCOMPARE(Document().Page(1).Rules.at(0).PenWidth, 2);
}

void TestPrintCntrl::sendToPrinterPrintsOnlyAPaperReport()
{
    PrintStart(Destination::Preview, PageOrientation::Portrait);
    PrintLine(QStringLiteral("preview"));
    SendToPrinter();
    QCOMPARE(host_->printed, 0);

    PrintStart(Destination::WebPage, PageOrientation::Portrait);
    PrintEnd();
    SendToPrinter();
    QCOMPARE(host_->printed, 0);

    PrintStart(Destination::Paper, PageOrientation::Portrait);
    PrintNumberedLines(100);
    SendToPrinter();
    QCOMPARE(host_->printed, 1);
    QCOMPARE(host_->pagesHandedOver, 2);
}

void TestPrintCntrl::previewSetupAndWebPreviewGoToTheHost()
{
    PrintStart(Destination::Preview, PageOrientation::Portrait);
    PrintLine(QStringLiteral("preview"));
    ShowPrintPreview();
    QCOMPARE(host_->previewed, 1);
    QCOMPARE(host_->pagesHandedOver, 1);
    ShowPrintSetup();
    QCOMPARE(host_->setups, 1);
    ShowWebPreview();
    QCOMPARE(host_->webPreviews, QStringList{WebPagePath()});
    QVERIFY(WebPagePath().startsWith(
        QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation)));
    QVERIFY(WebPagePath().endsWith(QStringLiteral("/web.htm")));
}

void TestPrintCntrl::webPageHoldsTheRunningLinesEscaped()
{
    PrintStart(Destination::WebPage, PageOrientation::Portrait);
    PrintLine(QStringLiteral(" "));
    PrintTitleLine(QStringLiteral("Fish & Chips <Open>"));
    AddPageHeading(QStringLiteral("Pos Player"));
    PrintLine(QStringLiteral("  1 O'Brien, \"Pat\"  >= 5"));
    PrintLine(QStringLiteral("placed, not running"), 50, 500);
    const QString wide = QString(150, u'=') + QStringLiteral("end");
    PrintLine(wide);
    BuildClosingNotice();
    PrintEnd();
    PrintPageNumbers();

    const QByteArray expected =
        QByteArrayLiteral("<HTML><HEAD><meta charset=\"utf-8\"></HEAD><BODY><PRE>\r\n"
                          " \r\n"
                          "Fish &amp; Chips &lt;Open&gt;\r\n"
                          "Pos Player\r\n"
                          "  1 O'Brien, \"Pat\"  &gt;= 5\r\n") +
        wide.toLatin1() +
        QByteArrayLiteral("\r\n"
                          "\r\n"
                          "\r\n"
                          "This print out was was produced by Velmora! which is available "
                          "from\r\n"
                          "Velmora! Software.\r\n"
                          "\r\n"
                          "</PRE></BODY></HTML>\r\n");
    QCOMPARE(ReadWebPage(), expected);
}

void TestPrintCntrl::webPageRepeatsTheHeadingWhereAPageBreaks()
{
    PrintStart(Destination::WebPage, PageOrientation::Portrait);
    AddPageHeading(QStringLiteral("Bd White"));
    PrintNumberedLines(100, QStringLiteral("Board "));
    BuildClosingNotice();
    PrintEnd();
    PrintPageNumbers();
    QCOMPARE(Document().PageCount(), 2);

    QByteArray expected =
        QByteArrayLiteral("<HTML><HEAD><meta charset=\"utf-8\"></HEAD><BODY><PRE>\r\n");
    for (const cRunningLine &line : RunningLines())
        expected += line.Text.toUtf8() + QByteArrayLiteral("\r\n");
    expected += QByteArrayLiteral("</PRE></BODY></HTML>\r\n");
    const QByteArray page = ReadWebPage();
    QCOMPARE(page, expected);
    QCOMPARE(page.count(QByteArrayLiteral("Bd White\r\n")), 2);
    QVERIFY(page.indexOf(QByteArrayLiteral("Board 72\r\nBd White\r\nBoard 73\r\n")) > 0);
    QVERIFY(!page.contains(QByteArrayLiteral("Page ")));
    QVERIFY(!page.contains('\f'));
}

void TestPrintCntrl::webPageIsReplacedByTheNextWebReport()
{
    PrintStart(Destination::WebPage, PageOrientation::Portrait);
    PrintNumberedLines(30);
    BuildClosingNotice();
    PrintEnd();

    PrintStart(Destination::WebPage, PageOrientation::Landscape);
    PrintLine(QStringLiteral("second"));
    PrintEnd();
    QCOMPARE(ReadWebPage(),
             QByteArrayLiteral("<HTML><HEAD><meta charset=\"utf-8\"></HEAD><BODY><PRE>\r\n"
                               "second\r\n"
                               "\r\n"
                               "</PRE></BODY></HTML>\r\n"));
}

void TestPrintCntrl::paperReportWritesNoWebPage()
{
    PrintStart(Destination::WebPage, PageOrientation::Portrait);
    PrintLine(QStringLiteral("web"));
    PrintEnd();
    const QByteArray before = ReadWebPage();

    PrintStart(Destination::Paper, PageOrientation::Portrait);
    PrintLine(QStringLiteral("paper"));
    BuildClosingNotice();
    PrintEnd();
    PrintStart(Destination::Preview, PageOrientation::Portrait);
    PrintLine(QStringLiteral("preview"));
    PrintEnd();
    QCOMPARE(ReadWebPage(), before);
}

void TestPrintCntrl::webPageThatCanNotBeCreatedIsAFault()
{
    QFile::remove(WebPagePath());
    QVERIFY(QDir().mkpath(WebPagePath()));
    QVERIFY_THROWS_EXCEPTION(cFatalFault, PrintStart(Destination::WebPage, 1));
    QVERIFY(QDir().rmdir(WebPagePath()));
    PrintStart(Destination::WebPage, PageOrientation::Portrait);
    PrintEnd();
    QVERIFY(ReadWebPage().startsWith("<HTML><HEAD><meta charset=\"utf-8\"></HEAD><BODY><PRE>\r\n"));
}

VELMORA_TEST_MAIN(TestPrintCntrl)
#include "test_print_cntrl.moc"
