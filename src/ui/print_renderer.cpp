#include "ui/print_renderer.h"

#include "base/app_info.h"
#include "base/user_interaction.h"
#include "reports/page_document.h"
#include "reports/page_renderer.h"

#include <QDesktopServices>
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
    PreparePrinter(document, printer);
    return PaintDocument(document, printer);
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

QString cQtPrintHost::DocumentTitle()
{
    QWidget *window = mainWindow_ ? mainWindow_() : nullptr;
    return window ? window->windowTitle() : AppInfo::Title();
}

std::optional<QPageLayout> cQtPrintHost::PrinterLayout(QPageLayout::Orientation orientation)
{
    // Without a printer the report is composed on a whole A4 sheet.
    if (printer_.outputFormat() != QPrinter::NativeFormat || printer_.printerName().isEmpty())
        return std::nullopt;
    printer_.setPageOrientation(orientation);
    return printer_.pageLayout();
}

void cQtPrintHost::PrintDocument(const cPageDocument &document)
{
    if (!PrintOnPrinter(document, printer_))
        Interaction().ShowMessage(QStringLiteral("The report could not be sent to the printer."),
                                  MessageIcon::Exclamation, AppInfo::Title());
}

void cQtPrintHost::ShowPreview(const cPageDocument &document)
{
    ShowDocumentPreview(document, printer_, mainWindow_ ? mainWindow_() : nullptr);
}

void cQtPrintHost::ShowPrinterSetup()
{
    QPrintDialog setup(&printer_, mainWindow_ ? mainWindow_() : nullptr);
    setup.exec();
}

void cQtPrintHost::ShowWebPreview(const QString &path)
{
    if (webPreview_)
        webPreview_(path);
    else
        QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}
