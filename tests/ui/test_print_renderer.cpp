#include "base/app_info.h"
#include "reports/page_document.h"
#include "reports/print_cntrl.h"
#include "reports/print_host.h"
#include "support/scripted_interaction.h"
#include "support/test_environment.h"
#include "support/widget_driving.h"
#include "ui/print_renderer.h"

#include <QApplication>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QWidget>

using namespace mPrintCntrl;

namespace {

// The lines of the PDF's text that hold anything, without the blanks at either end.
QStringList TextLinesOf(const QString &fileName, bool keepIndent = false)
{
    QProcess extraction;
    extraction.start(QStringLiteral("pdftotext"),
                     {QStringLiteral("-layout"), QStringLiteral("-fixed"), QStringLiteral("4.8"),
                      QStringLiteral("-enc"), QStringLiteral("UTF-8"), fileName,
                      QStringLiteral("-")});
    if (!extraction.waitForFinished(60000) || extraction.exitCode() != 0)
        return {};
    QStringList lines;
    const QStringList all = QString::fromUtf8(extraction.readAllStandardOutput()).split(u'\n');
    for (const QString &line : all)
        if (!line.trimmed().isEmpty())
            lines.append(keepIndent
                             ? QString(line).remove(QRegularExpression(QStringLiteral(" +$")))
                             : line.trimmed());
    return lines;
}

// A report of two pages as the text reports compose it.
void ComposeTwoPages()
{
    SetPrintMargin(100);
    PrintStart(Destination::Paper, PageOrientation::Portrait);
    PrintLine(QStringLiteral(" "));
    AddPageHeading(QStringLiteral(" Bd White"));
    for (int board = 1; board <= 80; ++board)
        PrintLine(QStringLiteral("%1 Board row").arg(board, 3));
    BuildClosingNotice();
    PrintEnd();
    PrintPageNumbers();
}

} // namespace

class TestPrintRenderer : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void printerReceivesEveryPageFromTheCornerOfTheSheet();
    void previewShowsEveryPageOfTheDocument();
    void hostWithoutAPrinterComposesOnAWholeA4Sheet();
    void hostNamesDocumentsAfterTheMainWindow();
    void hostPrintsThroughTheChannelOnlyForPaper();
    void hostTellsWhenThePrinterCanNotBeReached();
    void hostHandsTheWebPageToTheWebPreview();

private:
    QTemporaryDir folder_;
};

void TestPrintRenderer::init()
{
    if (QStandardPaths::findExecutable(QStringLiteral("pdftotext")).isEmpty())
        QSKIP("pdftotext (poppler-utils) is not installed");
}

void TestPrintRenderer::cleanup()
{
    InstallPrintHost(nullptr);
}

void TestPrintRenderer::printerReceivesEveryPageFromTheCornerOfTheSheet()
{
    ComposeTwoPages();
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    const QString fileName = folder_.filePath(QStringLiteral("paper.pdf"));
    printer.setOutputFileName(fileName);
    QVERIFY(PrintOnPrinter(Document(), printer));
    QVERIFY(printer.fullPage());
    QCOMPARE(printer.pageLayout().orientation(), QPageLayout::Portrait);

    const QStringList lines = TextLinesOf(fileName);
    QCOMPARE(lines.count(QStringLiteral("Page 1 of 2")), 1);
    QCOMPARE(lines.count(QStringLiteral("Page 2 of 2")), 1);
    QCOMPARE(lines.count(QStringLiteral("Bd White")), 2);
    QVERIFY(lines.contains(QStringLiteral("80 Board row")));
    QVERIFY(lines.contains(QStringLiteral("Velmora! Software.")));
    // Drawn from the corner of the sheet: the left edge at 10 mm is six columns of
    // 4.8 points in, as on the PDF written by the core.
    QVERIFY(TextLinesOf(fileName, true).contains(QStringLiteral("      Velmora! Software.")));
}

void TestPrintRenderer::previewShowsEveryPageOfTheDocument()
{
    ComposeTwoPages();
    QPrinter printer(QPrinter::HighResolution);
    int pagesShown = -1;
    QTimer::singleShot(0, this, [&pagesShown]() {
        const QWidgetList windows = QApplication::topLevelWidgets();
        for (QWidget *window : windows) {
            auto *preview = qobject_cast<QPrintPreviewDialog *>(window);
            if (!preview)
                continue;
            if (auto *pages = preview->findChild<QPrintPreviewWidget *>())
                pagesShown = pages->pageCount();
            preview->reject();
        }
    });
    ShowDocumentPreview(Document(), printer, nullptr);
    QCOMPARE(pagesShown, 2);
    QCOMPARE(printer.pageLayout().orientation(), QPageLayout::Portrait);
}

void TestPrintRenderer::hostWithoutAPrinterComposesOnAWholeA4Sheet()
{
    cQtPrintHost host([]() -> QWidget * { return nullptr; });
    host.Printer().setOutputFormat(QPrinter::PdfFormat);
    QVERIFY(!host.PrinterLayout(QPageLayout::Portrait).has_value());
    InstallPrintHost(&host);
    SetPrintMargin(100);
    PrintStart(Destination::Preview, PageOrientation::Landscape);
    QVERIFY(!Document().HasPrinter());
    QCOMPARE(Document().PageWidth(), 2970);
    QCOMPARE(PrintRight(), 2870);
}

void TestPrintRenderer::hostNamesDocumentsAfterTheMainWindow()
{
    QWidget mainWindow;
    mainWindow.setWindowTitle(QStringLiteral("Velmora! - Spring Congress"));
    QWidget *shown = &mainWindow;
    cQtPrintHost host([&shown]() { return shown; });
    QCOMPARE(host.DocumentTitle(), QStringLiteral("Velmora! - Spring Congress"));
    shown = nullptr;
    QCOMPARE(host.DocumentTitle(), AppInfo::Title());
}

void TestPrintRenderer::hostPrintsThroughTheChannelOnlyForPaper()
{
    cQtPrintHost host([]() -> QWidget * { return nullptr; });
    host.Printer().setOutputFormat(QPrinter::PdfFormat);
    const QString fileName = folder_.filePath(QStringLiteral("sent.pdf"));
    host.Printer().setOutputFileName(fileName);
    InstallPrintHost(&host);

    SetPrintMargin(100);
    PrintStart(Destination::Preview, PageOrientation::Portrait);
    PrintLine(QStringLiteral("preview only"));
    PrintEnd();
    SendToPrinter();
    QVERIFY(!QFile::exists(fileName));

    ComposeTwoPages();
    bool asked = false;
    WhenModalShows<QPrintDialog>([](QPrintDialog *dialog) { dialog->accept(); }, &asked);
    SendToPrinter();
    QVERIFY(asked);
    QVERIFY(TextLinesOf(fileName).contains(QStringLiteral("Page 2 of 2")));
}

void TestPrintRenderer::hostTellsWhenThePrinterCanNotBeReached()
{
    cScriptedInteraction interaction;
    cQtPrintHost host([]() -> QWidget * { return nullptr; });
    host.Printer().setOutputFormat(QPrinter::PdfFormat);
    host.Printer().setOutputFileName(folder_.filePath(QStringLiteral("no/such/folder/x.pdf")));
    InstallPrintHost(&host);
    ComposeTwoPages();
    WhenModalShows<QPrintDialog>([](QPrintDialog *dialog) { dialog->accept(); }, nullptr);
    QTest::ignoreMessage(QtWarningMsg, "QPainter::begin(): Returned false");
    SendToPrinter();
    QCOMPARE(interaction.Count(QStringLiteral("message|")), 1);
}

void TestPrintRenderer::hostHandsTheWebPageToTheWebPreview()
{
    cQtPrintHost host([]() -> QWidget * { return nullptr; });
    QStringList shown;
    host.setWebPreview([&shown](const QString &path) { shown.append(path); });
    InstallPrintHost(&host);
    ShowWebPreview();
    QCOMPARE(shown, QStringList{WebPagePath()});
}

VELMORA_WIDGET_TEST_MAIN(TestPrintRenderer)
#include "test_print_renderer.moc"
