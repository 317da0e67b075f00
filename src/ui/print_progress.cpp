#include "ui/print_progress.h"

#include <QApplication>

#include <limits>

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
    dialog_.setAutoClose(false);
    dialog_.setAutoReset(false);
    // The window is shown here, once the report has run for the delay, not by the
    // dialog's own guess of the time left.
    dialog_.setMinimumDuration(std::numeric_limits<int>::max());
    dialog_.hide();
    sinceStart_.start();
}

bool cPrintProgress::BeforePage(int page)
{
    dialog_.setLabelText(text_ +
                         QStringLiteral("\nPage %1 of %2").arg(page).arg(dialog_.maximum()));
    dialog_.setValue(page - 1);
    if (!dialog_.isVisible() && sinceStart_.elapsed() >= showDelay)
        dialog_.show();
    // Events run between pages, so the Cancel button is heard.
    if (dialog_.isVisible())
        QApplication::processEvents();
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
