#include "ui/print_progress.h"

#include <QApplication>

namespace {

// Long enough that a page or two never flashes a window on screen.
int showDelay = 700;

} // namespace

cPrintProgress::cPrintProgress(const QString &text, int pages, QWidget *parent)
    : text_(text), dialog_(text, QStringLiteral("Cancel"), 0, pages, parent)
{
    dialog_.setObjectName(QStringLiteral("frmPrintProgress"));
    dialog_.setWindowTitle(QStringLiteral("Printing"));
    dialog_.setWindowModality(Qt::ApplicationModal);
    dialog_.setAutoClose(true);
    dialog_.setAutoReset(false);
    dialog_.setMinimumDuration(showDelay);
    dialog_.setValue(0);
}

bool cPrintProgress::BeforePage(int page)
{
    // A modal progress lets events run while it counts, so the Cancel button is heard.
    dialog_.setLabelText(text_ +
                         QStringLiteral("\nPage %1 of %2").arg(page).arg(dialog_.maximum()));
    dialog_.setValue(page - 1);
    if (dialog_.wasCanceled())
        cancelled_ = true;
    return !cancelled_;
}

int cPrintProgress::ShowDelay()
{
    return showDelay;
}

void cPrintProgress::setShowDelay(int milliseconds)
{
    showDelay = milliseconds;
}
