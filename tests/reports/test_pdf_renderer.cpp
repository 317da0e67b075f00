#include "base/common.h"
#include "reports/page_document.h"
#include "reports/pdf_renderer.h"
#include "reports/print_cntrl.h"
#include "support/pdf_text.h"
#include "support/test_environment.h"

#include <QFile>
#include <QGuiApplication>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

using namespace mPrintCntrl;

namespace {

QString PdfInfo(const QString &fileName)
{
    QProcess info;
    info.start(QStringLiteral("pdfinfo"), {fileName});
    if (!info.waitForFinished(60000) || info.exitCode() != 0)
        return QString();
    return QString::fromUtf8(info.readAllStandardOutput());
}

// The lines of each page that hold any text, without the blanks at their ends that
// the left margin and the layout add.
QList<QStringList> PagesOfText(const QString &text, int indent)
{
    QList<QStringList> pages;
    const QStringList formFed = text.split(u'\f');
    for (const QString &page : formFed) {
        QStringList lines;
        const QStringList pageLines = page.split(u'\n');
        for (const QString &line : pageLines) {
            if (line.trimmed().isEmpty())
                continue;
            QString kept = line;
            while (kept.endsWith(u' '))
                kept.chop(1);
            lines.append(kept.mid(indent));
        }
        if (!lines.isEmpty())
            pages.append(lines);
    }
    return pages;
}

// What each page should show: its stamp, then its running lines that hold text.
// Lines in other sizes than 8 points keep their words but not their columns, since
// the extraction counts columns of 8 points.
struct cExpectedLine
{
    QString Text;
    bool Columns = true;
};

QList<QList<cExpectedLine>> ExpectedPages()
{
    QList<QList<cExpectedLine>> pages;
    const qint32 pageCount = Document().PageCount();
    for (qint32 page = 1; page <= pageCount; ++page) {
        QList<cExpectedLine> lines{
            {QStringLiteral("Page %1 of %2").arg(page).arg(pageCount), false}};
        for (const cRunningLine &line : RunningLines()) {
            if (line.Page != page || line.Text.trimmed().isEmpty())
                continue;
            QString text = line.Text;
            while (text.endsWith(u' '))
                text.chop(1);
            lines.append({text, line.FontSize == 8});
        }
        pages.append(lines);
    }
    return pages;
}

// A results list of 80 entrants in the layout the reports use: it runs to a second
// page, where its heading comes again.
void ComposeResultsList()
{
    SetPrintMargin(100);
    PrintStart(Destination::Preview, PageOrientation::Portrait);
    PrintLine(QStringLiteral(" "));
    PrintTitleLine(QStringLiteral("Spring Congress & Open"));
    PrintTitleLine(QStringLiteral("Major <under 160>"));
    PrintLine(QString());
    PrintLine(QStringLiteral("Date of Congress: 12/04/2025 to 13/04/2025"));
    PrintLine(QStringLiteral(" "));
    AddPageHeading(QString());
    AddPageHeading(QStringLiteral("Tie break via Sonneborn-Berger"));
    AddPageHeading(QString());
    AddPageHeading(QStringLiteral("Pos Player                     Grade   Score   SB "));
    const QStringList names{QStringLiteral("Smith, John"), QStringLiteral("O'Brien, Pat"),
                            QStringLiteral("Featherstonehaugh-Smythe, Rupert"),
                            QStringLiteral("Lee, Al")};
    for (int i = 1; i <= 80; ++i) {
        if (i % 10 == 1 && i > 1)
            PrintLine(QString());
        const QString name = PadRight(names.at(i % names.size()), 25, QStringLiteral("."));
        PrintLine(QStringLiteral("%1 %2  %3 %4   %5")
                      .arg(i, 3)
                      .arg(name)
                      .arg(100 + i, 4)
                      .arg(QString::number(8 - i / 10) + QStringLiteral("\u00BD"), 5)
                      .arg(QString::number(40 - i / 3.0, 'f', 1), 4));
    }
    ClearPageHeading();
    BuildClosingNotice();
    PrintEnd();
    PrintPageNumbers();
}

} // namespace

class TestPdfRenderer : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void pdfShowsTheRunningLinesAndPageStampsColumnByColumn();
    void pdfHasOnePagePerDocumentPageOnItsSheet();
    void pdfOfALandscapeReportIsALandscapeSheet();
    void pdfOfCardsAndChartsHoldsThePositionedTexts();
    void pdfThatCanNotBeWrittenReportsFailure();

private:
    QTemporaryDir folder_;
};

void TestPdfRenderer::initTestCase()
{
    QVERIFY(folder_.isValid());
    if (QStandardPaths::findExecutable(QStringLiteral("pdftotext")).isEmpty())
        QSKIP("pdftotext (poppler-utils) is not installed");
}

void TestPdfRenderer::pdfShowsTheRunningLinesAndPageStampsColumnByColumn()
{
    ComposeResultsList();
    QCOMPARE(Document().PageCount(), 2);
    const QString fileName = folder_.filePath(QStringLiteral("results.pdf"));
    QVERIFY(WritePdf(Document(), fileName));

    const QString text = ExtractedPdfText(fileName);
    QVERIFY(!text.isEmpty());
    // The left edge at 10 mm stands six 4.8-point columns in.
    const QList<QStringList> pages = PagesOfText(text, 6);
    const QList<QList<cExpectedLine>> expected = ExpectedPages();
    QCOMPARE(pages.size(), expected.size());
    for (int page = 0; page < expected.size(); ++page) {
        QCOMPARE(pages.at(page).size(), expected.at(page).size());
        // The stamp stands alone at the upper right, ending near the right edge.
        QVERIFY(pages.at(page).at(0).startsWith(QString(80, u' ')));
        for (int line = 0; line < expected.at(page).size(); ++line) {
            const cExpectedLine &want = expected.at(page).at(line);
            if (want.Columns)
                QCOMPARE(pages.at(page).at(line), want.Text);
            else
                QCOMPARE(pages.at(page).at(line).simplified(), want.Text.simplified());
        }
    }
    QCOMPARE(pages.at(1).at(1), QStringLiteral("Tie break via Sonneborn-Berger"));
}

void TestPdfRenderer::pdfHasOnePagePerDocumentPageOnItsSheet()
{
    ComposeResultsList();
    const QString fileName = folder_.filePath(QStringLiteral("pages.pdf"));
    QVERIFY(WritePdf(Document(), fileName));
    const QString info = PdfInfo(fileName);
    QVERIFY(info.contains(QRegularExpression(QStringLiteral("Pages:\\s+2\\n"))));
    QVERIFY(
        info.contains(QRegularExpression(QStringLiteral("Page size:\\s+595(\\.\\d+)? x 84[12]"))));
    QVERIFY(info.contains(QRegularExpression(QStringLiteral("Title:\\s+Velmora!"))));
}

void TestPdfRenderer::pdfOfALandscapeReportIsALandscapeSheet()
{
    SetPrintMargin(100);
    PrintStart(Destination::Preview, PageOrientation::Landscape);
    PrintLine(QStringLiteral("Across the sheet"));
    BuildClosingNotice();
    PrintEnd();
    PrintPageNumbers();
    const QString fileName = folder_.filePath(QStringLiteral("landscape.pdf"));
    QVERIFY(WritePdf(Document(), fileName));
    QVERIFY(PdfInfo(fileName).contains(
        QRegularExpression(QStringLiteral("Page size:\\s+84[12](\\.\\d+)? x 595"))));
    const QList<QStringList> pages = PagesOfText(ExtractedPdfText(fileName), 6);
    QCOMPARE(pages.size(), 1);
    QCOMPARE(pages.at(0).at(0).trimmed(), QStringLiteral("Page 1 of 1"));
    QCOMPARE(pages.at(0).at(1), QStringLiteral("Across the sheet"));
}

void TestPdfRenderer::pdfOfCardsAndChartsHoldsThePositionedTexts()
{
    SetPrintMargin(0);
    PrintStart(Destination::Preview, PageOrientation::Portrait);
    for (qint32 page = 1; page <= 3; ++page) {
        SetPrintPage(page);
        SetPrintFont(QString(), -1, 8);
        PrintLine(QStringLiteral("Pin %1").arg(page), 200, 300);
        SetLinePen(0, 20, 0);
        DrawRule(100, 100, 100, 2000);
    }
    PrintEnd();
    const QString fileName = folder_.filePath(QStringLiteral("cards.pdf"));
    QVERIFY(WritePdf(Document(), fileName));
    QList<QStringList> pages = PagesOfText(ExtractedPdfText(fileName), 0);
    for (QStringList &lines : pages)
        for (QString &line : lines)
            line = line.trimmed();
    QCOMPARE(pages.size(), 3);
    for (int page = 0; page < 3; ++page)
        QCOMPARE(pages.at(page), QStringList{QStringLiteral("Pin %1").arg(page + 1)});
    // No closing notice and no stamp on cards and charts: only the lead of PrintEnd.
    QVERIFY(!ExtractedPdfText(fileName).contains(QStringLiteral("Page ")));
}

void TestPdfRenderer::pdfThatCanNotBeWrittenReportsFailure()
{
    ComposeResultsList();
    QTest::ignoreMessage(QtWarningMsg, "QPainter::begin(): Returned false");
    QVERIFY(!WritePdf(Document(), folder_.filePath(QStringLiteral("no/such/folder/x.pdf"))));
}

VELMORA_TEST_MAIN(TestPdfRenderer)
#include "test_pdf_renderer.moc"
