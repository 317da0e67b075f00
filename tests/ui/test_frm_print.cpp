#include "reports/page_document.h"
#include "reports/print_cntrl.h"
#include "reports/print_host.h"
#include "reports/report_fixtures.h"
#include "support/pdf_text.h"
#include "support/scripted_interaction.h"
#include "support/test_environment.h"
#include "support/widget_driving.h"
#include "ui/file_locations.h"
#include "ui/frm_export.h"
#include "ui/frm_main.h"
#include "ui/frm_print.h"
#include "ui/main_commands.h"
#include "ui/print_progress.h"
#include "ui/print_renderer.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QProgressDialog>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>

using namespace mPrintCntrl;

namespace {

const QStringList TournamentReports{u"Player List"_s,   u"-----------"_s, u"Pairing List"_s,
                                    u"Results List"_s,  u"Cross Table"_s, u"-----------"_s,
                                    u"Pairing Cards"_s, u"Wall Chart"_s};

QStringList Entries(const QComboBox &combo)
{
    QStringList entries;
    for (int index = 0; index < combo.count(); ++index)
        entries.append(combo.itemText(index));
    return entries;
}

// Moves through the report list with the arrow keys, as a person does, until the
// entry at index is chosen.
void ChooseReport(frmPrint &dialog, int index)
{
    dialog.cmbPrint->setFocus();
    while (dialog.cmbPrint->currentIndex() < index)
        QTest::keyClick(dialog.cmbPrint, Qt::Key_Down);
    while (dialog.cmbPrint->currentIndex() > index)
        QTest::keyClick(dialog.cmbPrint, Qt::Key_Up);
}

void Click(QAbstractButton *button)
{
    QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2));
}

// Register records until the name-and-address list runs to exactly the pages asked.
void FillRegisterToPages(int pages)
{
    cPrintOptions options;
    for (int added = 0; added < 400; ++added) {
        cMaster master;
        master.setSurname(u"Surname%1"_s.arg(added, 3, 10, QChar(u'0')));
        master.setForename(u"Anne"_s);
        master.setAddress1(u"1 High Street"_s);
        master.Create();
        if (added % 5 != 4)
            continue;
        Control().ListPlayers(Destination::Preview, options);
        if (Document().PageCount() == pages)
            return;
    }
}

QString ReadAll(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

} // namespace

class TestFrmPrint : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void withNoTournamentTheListHoldsPlayerListAlone();
    void anOpenTournamentAddsItsReportsAndRounds();
    void aDashedEntryDisablesTheOutputsButNotClose();
    void eachReportShowsItsOwnFrame();
    void currentTournamentWithCountyFallsBackToName();
    void positionIsOfferedOnlyForTheScoreOrder();
    void misspeltCaptionsStayAsTheyAre();
    void noControlIsCutOffForAnyReport();
    void theReportAndItsOptionsAreRememberedBetweenOpenings();
    void aReportThatNoLongerExistsFallsBackToPlayerList();
    void closeRunsNoReport();
    void eachReportSavedAsPdfReadsBackAsItsPageDocument_data();
    void eachReportSavedAsPdfReadsBackAsItsPageDocument();
    void pdfDialogOpensInDocumentsThenInTheLastFolder();
    void cancellingThePdfDialogChangesNothing();
    void pdfToAFolderNameIsToldAndTheRunGoesOn();
    void cancelledPdfLeavesTheEarlierFileWhole();
    void previewOfAThreePageReportShowsThreePages();
    void htmlWritesAWellFormedWebPage();
    void printGoesThroughThePrintDialogToThePrinter();
    void cancellingThePrintDialogPrintsNothing();
    void aLongPrintShowsProgressAndCanBeCancelled();
    void aPrinterThatFailsIsToldNotFatal();
    void printSetupChoiceHoldsForLaterReports();
    void mainWindowOffersPrintSetupAndExportWithOrWithoutATournament();

private:
    void OpenCongress(const QString &title = u"Spring Congress"_s);

    std::unique_ptr<cTestSession> session_;
    std::unique_ptr<cScriptedInteraction> interaction_;
    std::unique_ptr<cQtPrintHost> host_;
    std::unique_ptr<QTemporaryDir> folder_;
};

void TestFrmPrint::init()
{
    folder_ = std::make_unique<QTemporaryDir>();
    session_ = std::make_unique<cTestSession>();
    interaction_ = std::make_unique<cScriptedInteraction>();
    host_ = std::make_unique<cQtPrintHost>([]() -> QWidget * { return nullptr; });
    host_->Printer().setOutputFormat(QPrinter::PdfFormat);
    host_->Printer().setOutputFileName(folder_->filePath(u"printed.pdf"_s));
    InstallPrintHost(host_.get());
    ForgetFileFolder();
    Control().setTournament(nullptr);
}

void TestFrmPrint::cleanup()
{
    InstallPrintHost(nullptr);
    host_.reset();
    interaction_.reset();
    Control().setTournament(nullptr);
    session_.reset();
    QFile::remove(folder_->filePath(u"printed.pdf"_s));
}

void TestFrmPrint::OpenCongress(const QString &title)
{
    cFixtureTournament details;
    details.title = title;
    OpenFixture(details, CongressEntrants, CongressGames, true);
    Control().Tournament()->setCurrRound(u"4"_s);
}

void TestFrmPrint::withNoTournamentTheListHoldsPlayerListAlone()
{
    frmPrint dialog;
    ShowActive(dialog);
    QCOMPARE(dialog.windowTitle(), u"Print"_s);
    QCOMPARE(Entries(*dialog.cmbPrint), QStringList{u"Player List"_s});
    QVERIFY(!dialog.optTournament->isEnabled());
    QVERIFY(dialog.fPlayerList->isVisible());
    QVERIFY(dialog.optAll->isChecked());
    QVERIFY(dialog.optName->isChecked());
    for (QPushButton *button : {dialog.cmdPrint, dialog.cmdPreview, dialog.cmdHTML, dialog.cmdPDF})
        QVERIFY(button->isEnabled());
}

void TestFrmPrint::anOpenTournamentAddsItsReportsAndRounds()
{
    Control().setUserDefined1(u"Juniors"_s);
    OpenCongress(u"Bath & Wells"_s);
    frmPrint dialog;
    ShowActive(dialog);
    QCOMPARE(Entries(*dialog.cmbPrint), TournamentReports);
    QVERIFY(dialog.optTournament->isEnabled());
    // Title, colon, a new line and the event; the ampersand shows as itself.
    QCOMPARE(dialog.optTournament->text(), u"Bath && Wells:\nOpen"_s);
    QCOMPARE(dialog.optUser1->text(), u"Juniors"_s);
    QCOMPARE(Entries(*dialog.cmbRound),
             (QStringList{u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s, u"6"_s, u"7"_s, u"8"_s, u"9"_s}));
    QCOMPARE(dialog.cmbRound->currentText(), u"4"_s);
    QCOMPARE(dialog.cmbPrint->currentText(), u"Player List"_s);
}

void TestFrmPrint::aDashedEntryDisablesTheOutputsButNotClose()
{
    OpenCongress();
    frmPrint dialog;
    ShowActive(dialog);
    for (int dashed : {1, 5}) {
        ChooseReport(dialog, dashed);
        QCOMPARE(dialog.cmbPrint->currentText(), u"-----------"_s);
        for (QPushButton *button :
             {dialog.cmdPrint, dialog.cmdPreview, dialog.cmdHTML, dialog.cmdPDF})
            QVERIFY(!button->isEnabled());
        QVERIFY(dialog.cmdCancel->isEnabled());
        for (QWidget *frame :
             {dialog.fPlayerList, dialog.fPairingList, static_cast<QWidget *>(dialog.fResultList),
              dialog.fCrossTable, dialog.fPairingCards})
            QVERIFY(!frame->isVisible());
    }
}

void TestFrmPrint::eachReportShowsItsOwnFrame()
{
    OpenCongress();
    frmPrint dialog;
    ShowActive(dialog);
    const QList<QPair<int, QWidget *>> frames{{0, dialog.fPlayerList},   {2, dialog.fPairingList},
                                              {3, dialog.fResultList},   {4, dialog.fCrossTable},
                                              {6, dialog.fPairingCards}, {7, nullptr}};
    for (const auto &[index, shown] : frames) {
        ChooseReport(dialog, index);
        for (QWidget *frame :
             {dialog.fPlayerList, dialog.fPairingList, static_cast<QWidget *>(dialog.fResultList),
              dialog.fCrossTable, dialog.fPairingCards})
            QCOMPARE(frame->isVisible(), frame == shown);
        // Cards and the wall chart have no web page.
        QCOMPARE(dialog.cmdHTML->isEnabled(), index < 6);
        QVERIFY(dialog.cmdPreview->isEnabled());
        QVERIFY(dialog.cmdPrint->isEnabled());
        QVERIFY(dialog.cmdPDF->isEnabled());
    }
}

void TestFrmPrint::currentTournamentWithCountyFallsBackToName()
{
    OpenCongress();
    frmPrint dialog;
    ShowActive(dialog);
    Click(dialog.optCounty);
    QVERIFY(dialog.optCounty->isChecked());
    Click(dialog.optTournament);
    QVERIFY(dialog.optName->isChecked());
    QVERIFY(!dialog.optCounty->isEnabled());
    QCOMPARE(dialog.Options().Selection, PlayerSelection::Tournament);
    QCOMPARE(dialog.Options().Sequence, PlayerSequence::Name);
    Click(dialog.optUser2);
    QVERIFY(dialog.optCounty->isEnabled());
    QCOMPARE(dialog.Options().Selection, PlayerSelection::User2);
}

void TestFrmPrint::positionIsOfferedOnlyForTheScoreOrder()
{
    OpenCongress();
    frmPrint dialog;
    ShowActive(dialog);
    ChooseReport(dialog, 4);
    QVERIFY(dialog.optPPin->isChecked());
    QVERIFY(!dialog.optPPos->isEnabled());
    QVERIFY(!dialog.optPPin->isEnabled());
    Click(dialog.optByScore);
    QVERIFY(dialog.optPPos->isChecked());
    QVERIFY(dialog.optPPos->isEnabled());
    QVERIFY(dialog.optPPin->isEnabled());
    QCOMPARE(dialog.Options().Numbering, RowNumbering::Position);
    // Pin stays open under the score order.
    Click(dialog.optPPin);
    QCOMPARE(dialog.Options().Numbering, RowNumbering::Pin);
    Click(dialog.optByGrade);
    QVERIFY(dialog.optPPin->isChecked());
    QVERIFY(!dialog.optPPos->isEnabled());
    QCOMPARE(dialog.Options().Order, CrossTableOrder::ByGrade);
}

void TestFrmPrint::misspeltCaptionsStayAsTheyAre()
{
    frmPrint dialog;
    QCOMPARE(dialog.optPPos->text(), u"Positon"_s);
    QCOMPARE(dialog.Label5->text(),
             u"Enusre that the paper size is set to Index Card (4\" x 6\") before you print. The "
             "system will automatically set the orientation to landscape for correct priniting."_s);
    QVERIFY(dialog.Label7->text().startsWith(u"Experiment to find thecorrect way"_s));
    QVERIFY(dialog.Label6->font().bold());
    QCOMPARE(Entries(*dialog.cmbCardType),
             QStringList{u"Pre Printed - Tournament Chess Supplies"_s});
    QCOMPARE(Entries(*dialog.cmbRounds), QStringList{u"9 Rounds"_s});
    QCOMPARE(dialog.fResultList->title(), u"Tie break method"_s);
    QVERIFY(dialog.optNone->isChecked());
    QVERIFY(dialog.chkUserDetails->isChecked());
    QVERIFY(!dialog.chkPlayerCodes->isChecked());
}

void TestFrmPrint::noControlIsCutOffForAnyReport()
{
    OpenCongress(u"Northern Counties Chess Congress"_s);
    frmPrint dialog;
    ShowActive(dialog);
    for (int report : {0, 2, 3, 4, 6, 7}) {
        ChooseReport(dialog, report);
        QApplication::processEvents();
        const QList<QWidget *> controls = dialog.findChildren<QWidget *>();
        for (QWidget *control : controls) {
            if (!control->isVisible() || control->objectName().isEmpty())
                continue;
            const QSize needed = control->minimumSizeHint();
            QVERIFY2(control->width() >= needed.width() && control->height() >= needed.height(),
                     qPrintable(control->objectName()));
        }
    }
}

void TestFrmPrint::theReportAndItsOptionsAreRememberedBetweenOpenings()
{
    OpenCongress();
    frmPrint dialog;
    ShowActive(dialog);
    ChooseReport(dialog, 4);
    Click(dialog.optByScore);
    Click(dialog.chkPlayerCodes);
    Click(dialog.cmdCancel);
    QVERIFY(!dialog.isVisible());
    ShowActive(dialog);
    QCOMPARE(dialog.cmbPrint->currentText(), u"Cross Table"_s);
    QVERIFY(dialog.fCrossTable->isVisible());
    QVERIFY(dialog.optByScore->isChecked());
    QVERIFY(dialog.optPPos->isChecked());
    QVERIFY(dialog.chkPlayerCodes->isChecked());
}

void TestFrmPrint::aReportThatNoLongerExistsFallsBackToPlayerList()
{
    OpenCongress();
    frmPrint dialog;
    ShowActive(dialog);
    ChooseReport(dialog, 7);
    Click(dialog.optTournament);
    Click(dialog.cmdCancel);
    Control().setTournament(nullptr);
    ShowActive(dialog);
    QCOMPARE(Entries(*dialog.cmbPrint), QStringList{u"Player List"_s});
    QCOMPARE(dialog.cmbPrint->currentText(), u"Player List"_s);
    QVERIFY(dialog.fPlayerList->isVisible());
    // The tournament's list has nothing to work on now.
    QVERIFY(!dialog.optTournament->isEnabled());
    QVERIFY(dialog.optAll->isChecked());
    QCOMPARE(dialog.optTournament->text(), u"Current Tournament"_s);
}

void TestFrmPrint::closeRunsNoReport()
{
    frmPrint dialog;
    ShowActive(dialog);
    PrintStart(Destination::Preview, PageOrientation::Portrait);
    const int before = RunningLines().size();
    QTest::keyClick(&dialog, Qt::Key_Escape);
    QVERIFY(!dialog.isVisible());
    QCOMPARE(dialog.result(), 0);
    QCOMPARE(int(RunningLines().size()), before);
    QVERIFY(interaction_->Calls().filter(u"message|"_s).isEmpty());
}

void TestFrmPrint::eachReportSavedAsPdfReadsBackAsItsPageDocument_data()
{
    QTest::addColumn<int>("report");
    QTest::addColumn<bool>("ofTournament");
    QTest::newRow("register list") << 0 << false;
    QTest::newRow("tournament list") << 0 << true;
    QTest::newRow("pairing list") << 2 << false;
    QTest::newRow("results list") << 3 << false;
    QTest::newRow("cross table") << 4 << false;
    QTest::newRow("pairing cards") << 6 << false;
    QTest::newRow("wall chart") << 7 << false;
}

void TestFrmPrint::eachReportSavedAsPdfReadsBackAsItsPageDocument()
{
    QFETCH(int, report);
    QFETCH(bool, ofTournament);
    if (QStandardPaths::findExecutable(u"pdftotext"_s).isEmpty())
        QSKIP("pdftotext (poppler-utils) is not installed");
    OpenCongress();
    frmPrint dialog;
    ShowActive(dialog);
    ChooseReport(dialog, report);
    if (ofTournament)
        Click(dialog.optTournament);
    const QString fileName = folder_->filePath(u"report.pdf"_s);
    interaction_->QueueFile(fileName);
    Click(dialog.cmdPDF);
    QVERIFY(!dialog.isVisible());
    QVERIFY(QFile::exists(fileName));
    QCOMPARE(interaction_->CallsStartingWith(u"message|"_s),
             QStringList{u"message|plain|Velmora!|Report saved to "_s +
                         QDir::toNativeSeparators(fileName)});

    const QList<QStringList> expected = SimplifiedDocumentPages(Document());
    QVERIFY(!expected.isEmpty());
    const QList<QStringList> extracted = SimplifiedPdfPages(ExtractedPdfText(fileName));
    if (report < 6) {
        QCOMPARE(extracted, expected);
        return;
    }
    // On cards and charts a long name runs under the clip into the next column, and the
    // extraction then breaks the row in two: the page's words still come in order.
    QCOMPARE(extracted.size(), expected.size());
    for (qsizetype page = 0; page < expected.size(); ++page)
        QCOMPARE(extracted.at(page).join(u' '), expected.at(page).join(u' '));
}

void TestFrmPrint::pdfDialogOpensInDocumentsThenInTheLastFolder()
{
    frmPrint dialog;
    ShowActive(dialog);
    const QString documents = QDir::toNativeSeparators(
        QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    QDir().mkpath(documents);
    const QString fileName = folder_->filePath(u"list.pdf"_s);
    interaction_->QueueFile(fileName);
    Click(dialog.cmdPDF);
    ShowActive(dialog);
    interaction_->QueueFile(QString());
    Click(dialog.cmdPDF);
    const QStringList asked = interaction_->CallsStartingWith(u"save-file|"_s);
    QCOMPARE(asked.size(), 2);
    QCOMPARE(asked.at(0),
             u"save-file|Save as PDF|"_s + documents +
                 u"|Player List.pdf|PDF file (*.pdf)|*.pdf|All Files (*.*)|*.*|1|pdf"_s);
    QVERIFY(asked.at(1).startsWith(u"save-file|Save as PDF|"_s +
                                   QDir::toNativeSeparators(folder_->path()) + u'|'));
}

void TestFrmPrint::cancellingThePdfDialogChangesNothing()
{
    frmPrint dialog;
    ShowActive(dialog);
    PrintStart(Destination::Preview, PageOrientation::Portrait);
    PrintLine(u"earlier report"_s);
    interaction_->QueueFile(QString());
    Click(dialog.cmdPDF);
    // The dialog stays up and no report was composed.
    QVERIFY(dialog.isVisible());
    QCOMPARE(RunningLines().constLast().Text, u"earlier report"_s);
    QVERIFY(QDir(folder_->path()).entryList(QDir::Files).isEmpty());
    QCOMPARE(interaction_->Count(u"message|"_s), 0);
}

void TestFrmPrint::pdfToAFolderNameIsToldAndTheRunGoesOn()
{
    frmPrint dialog;
    ShowActive(dialog);
    const QString folderName = folder_->filePath(u"a folder.pdf"_s);
    QVERIFY(QDir().mkpath(folderName));
    interaction_->QueueFile(folderName);
    Click(dialog.cmdPDF);
    QVERIFY(QFileInfo(folderName).isDir());
    // A location nobody may write to.
    interaction_->QueueFile(u"/proc/velmora-report.pdf"_s);
    ShowActive(dialog);
    Click(dialog.cmdPDF);
    const QStringList messages = interaction_->CallsStartingWith(u"message|exclamation|"_s);
    QCOMPARE(messages.size(), 2);
    QVERIFY(messages.at(0).contains(u"The file "_s + QDir::toNativeSeparators(folderName) +
                                    u" could not be written"_s));
    QVERIFY(messages.at(1).contains(u"The file /proc/velmora-report.pdf could not be written"_s));
}

void TestFrmPrint::cancelledPdfLeavesTheEarlierFileWhole()
{
    FillRegisterToPages(6);
    const QString fileName = folder_->filePath(u"kept.pdf"_s);
    {
        QFile earlier(fileName);
        QVERIFY(earlier.open(QIODevice::WriteOnly));
        earlier.write("earlier file");
    }
    cPrintProgress::setShowDelay(0);
    frmPrint dialog;
    ShowActive(dialog);
    interaction_->QueueFile(fileName);
    bool shown = false;
    WhenModalShows<QProgressDialog>(
        [](QProgressDialog *progress) {
            QCOMPARE(progress->objectName(), u"frmPrintProgress"_s);
            progress->cancel();
        },
        &shown);
    Click(dialog.cmdPDF);
    cPrintProgress::setShowDelay(700);
    QVERIFY(shown);
    QCOMPARE(ReadAll(fileName), u"earlier file"_s);
    QCOMPARE(interaction_->Count(u"message|"_s), 0);
    QCOMPARE(QDir(folder_->path()).entryList(QDir::Files), QStringList{u"kept.pdf"_s});
}

void TestFrmPrint::previewOfAThreePageReportShowsThreePages()
{
    FillRegisterToPages(3);
    QCOMPARE(Document().PageCount(), 3);
    frmPrint dialog;
    ShowActive(dialog);
    int pages = -1;
    bool shown = false;
    bool zoomed = false;
    int pageAfterNext = 0;
    QStringList commands;
    WhenModalShows<QPrintPreviewDialog>(
        [&](QPrintPreviewDialog *preview) {
            auto *view = preview->findChild<QPrintPreviewWidget *>();
            QVERIFY(view);
            pages = view->pageCount();
            const qreal zoom = view->zoomFactor();
            view->zoomIn();
            zoomed = view->zoomFactor() > zoom;
            view->setCurrentPage(2);
            pageAfterNext = view->currentPage();
            // The preview's own bar pages, zooms and prints.
            for (const QAction *action : preview->findChildren<QAction *>())
                if (action->isEnabled())
                    commands.append(action->text());
        },
        &shown);
    Click(dialog.cmdPreview);
    QVERIFY(shown);
    QCOMPARE(pages, 3);
    QVERIFY(zoomed);
    QCOMPARE(pageAfterNext, 2);
    for (const QString &command :
         {u"Next page"_s, u"Last page"_s, u"Zoom in"_s, u"Zoom out"_s, u"Print"_s})
        QVERIFY2(commands.contains(command), qPrintable(commands.join(u", "_s)));
    QCOMPARE(Document().PageCount(), 3);
}

void TestFrmPrint::htmlWritesAWellFormedWebPage()
{
    OpenCongress();
    QStringList shown;
    host_->setWebPreview([&shown](const QString &path) { shown.append(path); });
    frmPrint dialog;
    ShowActive(dialog);
    ChooseReport(dialog, 3);
    Click(dialog.cmdHTML);
    QCOMPARE(shown, QStringList{WebPagePath()});
    const QString page = ReadAll(WebPagePath());
    QVERIFY(page.contains(u"Spring Congress"_s));
    // Every element opened is closed, in order, apart from those that stand alone.
    QStringList open;
    const QRegularExpression tag(u"<(/?)([A-Za-z]+)[^>]*>"_s);
    for (auto match = tag.globalMatch(page); match.hasNext();) {
        const auto found = match.next();
        const QString name = found.captured(2).toLower();
        if (name == u"meta"_s || name == u"br"_s)
            continue;
        if (found.captured(1).isEmpty()) {
            open.append(name);
        } else {
            QVERIFY2(!open.isEmpty() && open.constLast() == name, qPrintable(name));
            open.removeLast();
        }
    }
    QVERIFY(open.isEmpty());
    QCOMPARE(page.count(u"<html>"_s, Qt::CaseInsensitive), 1);
    // The text holds no bare mark-up of its own: the report's "&" is written escaped.
    QVERIFY(!page.contains(u"Bath & Wells"_s));
    QVERIFY(page.contains(u"<meta charset=\"utf-8\">"_s, Qt::CaseInsensitive));
}

void TestFrmPrint::printGoesThroughThePrintDialogToThePrinter()
{
    if (QStandardPaths::findExecutable(u"pdftotext"_s).isEmpty())
        QSKIP("pdftotext (poppler-utils) is not installed");
    OpenCongress();
    frmPrint dialog;
    ShowActive(dialog);
    ChooseReport(dialog, 2);
    bool shown = false;
    WhenModalShows<QPrintDialog>([](QPrintDialog *print) { print->accept(); }, &shown);
    Click(dialog.cmdPrint);
    QVERIFY(shown);
    const QString printed = folder_->filePath(u"printed.pdf"_s);
    QCOMPARE(SimplifiedPdfPages(ExtractedPdfText(printed)), SimplifiedDocumentPages(Document()));
    QCOMPARE(interaction_->Count(u"message|"_s), 0);
}

void TestFrmPrint::cancellingThePrintDialogPrintsNothing()
{
    frmPrint dialog;
    ShowActive(dialog);
    bool shown = false;
    WhenModalShows<QPrintDialog>([](QPrintDialog *print) { print->reject(); }, &shown);
    Click(dialog.cmdPrint);
    QVERIFY(shown);
    QVERIFY(!QFile::exists(folder_->filePath(u"printed.pdf"_s)));
    QCOMPARE(interaction_->Count(u"message|"_s), 0);
}

void TestFrmPrint::aLongPrintShowsProgressAndCanBeCancelled()
{
    FillRegisterToPages(6);
    cPrintProgress::setShowDelay(0);
    frmPrint dialog;
    ShowActive(dialog);
    bool progressShown = false;
    QString label;
    WhenModalShows<QPrintDialog>(
        [&](QPrintDialog *print) {
            print->accept();
            WhenModalShows<QProgressDialog>(
                [&label](QProgressDialog *progress) {
                    label = progress->labelText();
                    progress->cancel();
                },
                &progressShown);
        },
        nullptr);
    Click(dialog.cmdPrint);
    cPrintProgress::setShowDelay(700);
    QVERIFY(progressShown);
    QVERIFY(label.contains(u" of 6"_s));
    // A cancelled report is no failure of the printer.
    QCOMPARE(interaction_->Count(u"message|"_s), 0);
}

void TestFrmPrint::aPrinterThatFailsIsToldNotFatal()
{
    host_->Printer().setOutputFileName(folder_->filePath(u"no/such/folder/out.pdf"_s));
    frmPrint dialog;
    ShowActive(dialog);
    WhenModalShows<QPrintDialog>([](QPrintDialog *print) { print->accept(); }, nullptr);
    QTest::ignoreMessage(QtWarningMsg, "QPainter::begin(): Returned false");
    Click(dialog.cmdPrint);
    QCOMPARE(interaction_->CallsStartingWith(u"message|"_s),
             QStringList{
                 u"message|exclamation|Velmora!|The report could not be sent to the printer."_s});
}

void TestFrmPrint::printSetupChoiceHoldsForLaterReports()
{
    // Cancelled, the setup changes nothing: reports stay on a whole A4 sheet.
    bool shown = false;
    WhenModalShows<QPageSetupDialog>([](QPageSetupDialog *setup) { setup->reject(); }, &shown);
    ShowPrintSetup();
    QVERIFY(shown);
    QVERIFY(!host_->PrinterLayout(QPageLayout::Portrait).has_value());

    host_->Printer().setPageSize(QPageSize(QPageSize::A5));
    WhenModalShows<QPageSetupDialog>([](QPageSetupDialog *setup) { setup->accept(); }, &shown);
    ShowPrintSetup();
    QVERIFY(shown);
    for (int report = 0; report < 2; ++report) {
        Control().ListPlayers(Destination::Preview, cPrintOptions{});
        QCOMPARE(Document().PaperSize().id(), QPageSize::A5);
    }
}

void TestFrmPrint::mainWindowOffersPrintSetupAndExportWithOrWithoutATournament()
{
    frmMain window;
    QCOMPARE(window.Command(u"mnuPrint"_s)->text(), u"&Print..."_s);
    QCOMPARE(window.Command(u"mnuPPrintSetup"_s)->text(), u"Print setup..."_s);
    QCOMPARE(window.Command(u"mnuTExport"_s)->text(), u"Export..."_s);
    for (bool open : {false, true}) {
        if (open)
            OpenCongress();
        SetMainCommands();
        for (const QString &name : {u"mnuPrint"_s, u"mnuPPrintSetup"_s, u"mnuTExport"_s})
            QVERIFY(window.Command(name)->isEnabled());
    }

    QString printCaption;
    QString printEntry;
    WhenModalShows<frmPrint>(
        [&](frmPrint *dialog) {
            printCaption = dialog->windowTitle();
            printEntry = dialog->cmbPrint->itemText(2);
            Click(dialog->cmdCancel);
        },
        nullptr);
    window.mnuPrint->trigger();
    QCOMPARE(printCaption, u"Print"_s);
    QCOMPARE(printEntry, u"Pairing List"_s);

    QString exportCaption;
    WhenModalShows<frmExport>(
        [&](frmExport *dialog) {
            exportCaption = dialog->windowTitle();
            Click(dialog->cmdCancel);
        },
        nullptr);
    window.mnuTExport->trigger();
    QCOMPARE(exportCaption, u"Export"_s);

    bool shown = false;
    WhenModalShows<QPageSetupDialog>([](QPageSetupDialog *setup) { setup->reject(); }, &shown);
    window.mnuPPrintSetup->trigger();
    QVERIFY(shown);
}

VELMORA_WIDGET_TEST_MAIN(TestFrmPrint)
#include "test_frm_print.moc"
