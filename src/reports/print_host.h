#pragma once

#include <QPageLayout>
#include <QString>

#include <optional>

class cPageDocument;

// What the print channel needs of the windows and the printer, which the logic
// cannot see: the main window's caption, the chosen printer's page, and the three
// ways of showing a finished document. The windowed program installs its own at
// start-up; tests install one that records what it is handed.
class cPrintHost
{
public:
    virtual ~cPrintHost() = default;

    // The caption of the main window, which names every document.
    virtual QString DocumentTitle() = 0;
    // The page of the chosen printer turned to the orientation asked for, or none
    // when no printer is set up.
    virtual std::optional<QPageLayout> PrinterLayout(QPageLayout::Orientation orientation) = 0;
    // Sends the finished document to the chosen printer.
    virtual void PrintDocument(const cPageDocument &document) = 0;
    // Shows the finished document in the print preview; returns when it closes.
    virtual void ShowPreview(const cPageDocument &document) = 0;
    // Lets the person choose the printer and its paper.
    virtual void ShowPrinterSetup() = 0;
    // Shows the web page at path in the web page preview; returns when it closes.
    virtual void ShowWebPreview(const QString &path) = 0;
};

// The host in force. Until one is installed, a quiet one names documents after the
// program, knows no printer and shows nothing, which is what a headless run wants.
cPrintHost &PrintHost();

// Installs a host that the caller keeps alive; nullptr restores the quiet one.
void InstallPrintHost(cPrintHost *host);
