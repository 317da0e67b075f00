// The print dialog on a tournament of 500 entrants and 11 complete rounds, offscreen:
// the dialog from being opened to being on screen, the cross table from the Preview
// button to a preview with every page drawn, and the same report from the PDF button
// to the file written. Prints the median of several runs of each as "label: value ms".

#include "base/user_interaction.h"
#include "bench_environment.h"
#include "bench_tournament.h"
#include "reports/page_document.h"
#include "reports/print_cntrl.h"
#include "reports/print_host.h"
#include "session/control.h"
#include "session/globals.h"
#include "ui/frm_print.h"
#include "ui/print_renderer.h"

#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>

#include <cstdio>
#include <functional>
#include <vector>

namespace {

constexpr int Entrants = 500;
constexpr int Rounds = 11;
constexpr int Runs = 7;

// Answers the PDF button's save dialog with one file, and keeps every message quiet.
class cBenchInteraction final : public cUserInteraction
{
public:
    explicit cBenchInteraction(QString pdfName) : pdfName_(std::move(pdfName)) {}

    bool AskYesNo(const QString &, const QString &) override { return true; }
    void ShowMessage(const QString &, MessageIcon, const QString &) override {}
    void ProgressStart(const QString &, qint32) override {}
    void ProgressUpdate(qint32) override {}
    void ProgressTerminate() override {}
    void ShowLongText(const QString &, const QString &) override {}
    QString ChooseSaveFile(const cFileRequest &) override { return pdfName_; }
    QString ChooseOpenFile(const cFileRequest &) override { return QString(); }
    void Beep() override {}
    void SetBusyPointer(bool) override {}

private:
    QString pdfName_;
};

double TimeOnce(const std::function<void()> &work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return double(timer.nsecsElapsed()) / 1e6;
}

double MedianOf(const std::function<double()> &run)
{
    std::vector<double> timings;
    for (int at = 0; at < Runs; ++at)
        timings.push_back(run());
    return Median(timings);
}

void ChooseCrossTable(frmPrint &dialog)
{
    dialog.cmbPrint->setCurrentIndex(dialog.cmbPrint->findText(QStringLiteral("Cross Table")));
}

} // namespace

int main(int argc, char **argv)
{
    QTemporaryDir root;
    if (!root.isValid()) {
        std::fprintf(stderr, "No temporary folder could be made.\n");
        return 1;
    }
    IsolateEnvironment(root.path());
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    OpenFreshDatabase(root.path() + QStringLiteral("/data"));
    BuildBenchTournament(Entrants, Rounds);

    const QString pdfName = root.path() + QStringLiteral("/cross table.pdf");
    cBenchInteraction interaction(pdfName);
    InstallInteraction(&interaction);
    cQtPrintHost host([]() -> QWidget * { return nullptr; });
    InstallPrintHost(&host);

    // Opened as the menu opens it: made, filled for the open tournament, and shown.
    const double open = MedianOf([] {
        return TimeOnce([] {
            frmPrint dialog;
            dialog.show();
            QApplication::processEvents();
            if (!dialog.isVisible())
                std::fprintf(stderr, "The dialog did not show.\n");
        });
    });

    frmPrint dialog;
    int pagesDrawn = 0;
    const double preview = MedianOf([&] {
        dialog.show();
        ChooseCrossTable(dialog);
        // Every page is drawn before the preview shows; the all-pages view then puts
        // each of them on screen once.
        QTimer::singleShot(0, [&pagesDrawn] {
            auto *shown = qobject_cast<QPrintPreviewDialog *>(QApplication::activeModalWidget());
            if (!shown)
                return;
            auto *view = shown->findChild<QPrintPreviewWidget *>();
            view->setViewMode(QPrintPreviewWidget::AllPagesView);
            view->grab();
            pagesDrawn = view->pageCount();
            shown->reject();
        });
        return TimeOnce([&] { dialog.cmdPreview->click(); });
    });

    const double pdf = MedianOf([&] {
        dialog.show();
        ChooseCrossTable(dialog);
        return TimeOnce([&] { dialog.cmdPDF->click(); });
    });

    std::printf("print dialog: %d entrants, %d rounds; cross table of %d pages (%d in the "
                "preview), PDF of %lld bytes; median of %d runs; goals 100, 1000 and 1000 ms\n",
                Entrants, Rounds, int(mPrintCntrl::Document().PageCount()), pagesDrawn,
                QFileInfo(pdfName).size(), Runs);
    std::printf("open dialog: %.1f ms\n", open);
    std::printf("preview cross table: %.1f ms\n", preview);
    std::printf("save pdf: %.1f ms\n", pdf);

    InstallPrintHost(nullptr);
    InstallInteraction(nullptr);
    Control().setTournament(nullptr);
    DestroySessionObjects();
    return 0;
}
