#include "ui/print_renderer.h"

#include "base/app_info.h"
#include "base/user_interaction.h"
#include "reports/page_document.h"
#include "reports/page_renderer.h"
#include "ui/print_progress.h"

#include <QDesktopServices>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QUrl>
#include <QWidget>

namespace {

// The document is drawn from the corner of the sheet: the printer's own margins play
// no part, since the report kept inside what the printer can reach when it was
// composed.
void PreparePrinter(const cPageDocument &document, QPrinter &printer)
{
    printer.setDocName(document.DocumentTitle());
    printer.setFullPage(true);
    printer.setPageSize(document.PaperSize());
    printer.setPageOrientation(document.PaperOrientation());
}

} // namespace

bool PrintOnPrinter(const cPageDocument &document, QPrinter &printer)
{
    return PrintOnPrinter(document, printer, [](int) { return true; });
}

bool PrintOnPrinter(const cPageDocument &document, QPrinter &printer,
                    const std::function<bool(int page)> &beforePage)
{
    PreparePrinter(document, printer);
    return PaintDocument(document, printer, beforePage);
}

void ShowDocumentPreview(const cPageDocument &document, QPrinter &printer, QWidget *parent)
{
    PreparePrinter(document, printer);
    QPrintPreviewDialog preview(&printer, parent);
    QObject::connect(
        &preview, &QPrintPreviewDialog::paintRequested, &preview,
        [&document](QPrinter *previewPrinter) { PaintDocument(document, *previewPrinter); });
    preview.exec();
}

cQtPrintHost::cQtPrintHost(std::function<QWidget *()> mainWindow)
    : mainWindow_(std::move(mainWindow))
{}

void cQtPrintHost::setWebPreview(std::function<void(const QString &)> webPreview)
{
    webPreview_ = std::move(webPreview);
}

QWidget *cQtPrintHost::Owner() const
{
    return mainWindow_ ? mainWindow_() : nullptr;
}

QString cQtPrintHost::DocumentTitle()
{
    QWidget *window = Owner();
    return window ? window->windowTitle() : AppInfo::Title();
}

std::optional<QPageLayout> cQtPrintHost::PrinterLayout(QPageLayout::Orientation orientation)
{
    // Without a printer or a chosen page the report is composed on a whole A4 sheet.
    if (!pageChosen_ &&
        (printer_.outputFormat() != QPrinter::NativeFormat || printer_.printerName().isEmpty()))
        return std::nullopt;
    printer_.setPageOrientation(orientation);
    return printer_.pageLayout();
}

void cQtPrintHost::PrintDocument(const cPageDocument &document)
{
    PreparePrinter(document, printer_);
    QPrintDialog dialog(&printer_, Owner());
    dialog.setObjectName(QStringLiteral("PrintDialog"));
    // A cancelled dialog prints nothing and changes nothing.
    if (dialog.exec() != QDialog::Accepted)
        return;
    cPrintProgress progress(document.DocumentTitle(), document.PageCount(), Owner());
    if (PrintOnPrinter(document, printer_,
                       [&progress](int page) { return progress.BeforePage(page); }))
        return;
    if (progress.Cancelled()) {
        printer_.abort();
        return;
    }
    // A printer that fails is told, and the run goes on.
    Interaction().ShowMessage(QStringLiteral("The report could not be sent to the printer."),
                              MessageIcon::Exclamation, AppInfo::Title());
}

void cQtPrintHost::ShowPreview(const cPageDocument &document)
{
    ShowDocumentPreview(document, printer_, Owner());
}

void cQtPrintHost::ShowPrinterSetup()
{
    QPageSetupDialog setup(&printer_, Owner());
    setup.setObjectName(QStringLiteral("PageSetupDialog"));
    if (setup.exec() == QDialog::Accepted)
        pageChosen_ = true;
}

void cQtPrintHost::ShowWebPreview(const QString &path)
{
    if (webPreview_)
        webPreview_(path);
    else
        QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}
