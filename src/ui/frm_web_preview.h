#pragma once

#include <QDialog>

class QAction;
class QTextBrowser;
class QToolBar;

// Shows the web page of a report as a browser shows it, and saves it under a name
// the person chooses or opens it in the desktop's own browser.
class frmWebPreview : public QDialog
{
    Q_OBJECT

public:
    explicit frmWebPreview(QWidget *parent = nullptr);

    // Shows the page at path modally; returns when the window closes.
    static void ShowPage(const QString &path, QWidget *parent);

    // The page on view; set before the window is shown.
    QString PreviewUrl;

    QToolBar *tbCommands;
    QAction *SaveAs;
    QAction *OpenInBrowser;
    QTextBrowser *brwWebBrowser;

protected:
    void showEvent(QShowEvent *event) override;

private:
    void SaveAs_Click();
    void OpenInBrowser_Click();
};
