#pragma once

#include <QElapsedTimer>
#include <QProgressDialog>

// The progress of a finished report on its way to the printer or to a file, page by
// page, with a button that cancels it. A short report is done before the window
// would appear; a long one shows it.
class cPrintProgress
{
public:
    cPrintProgress(const QString &text, int pages, QWidget *parent);

    // Called ahead of each page, counted from 1; false once the person has cancelled.
    bool BeforePage(int page);
    bool Cancelled() const { return cancelled_; }

    // How long a report runs before its progress shows, in milliseconds.
    static int ShowDelay();
    static void setShowDelay(int milliseconds);

private:
    QString text_;
    QProgressDialog dialog_;
    QElapsedTimer sinceStart_;
    bool cancelled_ = false;
};
