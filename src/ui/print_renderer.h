#pragma once

#include "reports/print_host.h"

#include <QPrinter>

#include <functional>

class QWidget;

// Paper: the finished document drawn on the printer from the corner of the sheet, on
// the document's paper and orientation. Returns false when the printer can not be
// painted on.
bool PrintOnPrinter(const cPageDocument &document, QPrinter &printer);
// As above, asking beforePage (the page about to be drawn, from 1) whether to go on.
bool PrintOnPrinter(const cPageDocument &document, QPrinter &printer,
                    const std::function<bool(int page)> &beforePage);

// The print preview of the finished document on the printer's pages; it returns when
// the person closes it.
void ShowDocumentPreview(const cPageDocument &document, QPrinter &printer, QWidget *parent);

// The print channel's host in the windowed program: the main window's caption, one
// printer for the run whose page the print setup chooses, and the three ways of
// showing a finished document. Paper goes through the system's print dialog first, and
// a long report shows its progress and can be cancelled there.
class cQtPrintHost final : public cPrintHost
{
public:
    // mainWindow gives the window that owns the dialogs and names the documents; it
    // may give nullptr while there is none.
    explicit cQtPrintHost(std::function<QWidget *()> mainWindow);

    // The window that shows a web page; until one is set, the page opens in the
    // desktop's browser.
    void setWebPreview(std::function<void(const QString &path)> webPreview);

    QPrinter &Printer() { return printer_; }

    QString DocumentTitle() override;
    std::optional<QPageLayout> PrinterLayout(QPageLayout::Orientation orientation) override;
    void PrintDocument(const cPageDocument &document) override;
    void ShowPreview(const cPageDocument &document) override;
    void ShowPrinterSetup() override;
    void ShowWebPreview(const QString &path) override;

private:
    QWidget *Owner() const;

    QPrinter printer_{QPrinter::HighResolution};
    // Once the person has chosen a page in the print setup, reports are composed on it
    // for the rest of the run, with or without a printer installed.
    bool pageChosen_ = false;
    std::function<QWidget *()> mainWindow_;
    std::function<void(const QString &)> webPreview_;
};
