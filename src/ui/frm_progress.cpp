#include "ui/frm_progress.h"

#include "base/app_info.h"

#include <QApplication>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

frmProgress::frmProgress(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmProgress"));
    setWindowTitle(AppInfo::Title());
    lblMsg = new QLabel(this);
    lblMsg->setObjectName(QStringLiteral("lblMsg"));
    lblMsg->setWordWrap(true);
    pnlProgress = new QProgressBar(this);
    pnlProgress->setObjectName(QStringLiteral("pnlProgress"));
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(lblMsg);
    layout->addWidget(pnlProgress);
    setMinimumWidth(400);
}

void frmProgress::Start(const QString &text, qint32 maximum)
{
    lblMsg->setText(text);
    pnlProgress->setRange(0, maximum);
    pnlProgress->setValue(0);
    show();
    raise();
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    sinceRedraw_.start();
}

void frmProgress::Update(qint32 value)
{
    const int bounded = qBound(pnlProgress->minimum(), value, pnlProgress->maximum());
    if (bounded != pnlProgress->maximum() && sinceRedraw_.isValid() && sinceRedraw_.elapsed() < 100)
        return;
    pnlProgress->setValue(bounded);
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    sinceRedraw_.start();
}

void frmProgress::Terminate()
{
    hide();
    QApplication::processEvents();
}
