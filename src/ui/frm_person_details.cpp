#include "ui/frm_person_details.h"

#include "base/busy.h"
#include "ui/cntl_person_details.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStatusBar>
#include <QVBoxLayout>

frmPersonDetails::frmPersonDetails(qint16 mode, cntlPersonDetails *details, const QString &title,
                                   const QString &deleteWarning, QWidget *parent)
    : QDialog(parent), mode_(mode), details_(details)
{
    setWindowTitle(title);
    details_->setParent(this);
    lblMsg = new QLabel(deleteWarning, this);
    lblMsg->setObjectName(QStringLiteral("lblMsg"));
    QFont bold = lblMsg->font();
    bold.setBold(true);
    lblMsg->setFont(bold);
    cmdOk = new QPushButton(tr("OK"), this);
    cmdOk->setObjectName(QStringLiteral("cmdOk"));
    cmdOk->setDefault(true);
    cmdCancel = new QPushButton(tr("Cancel"), this);
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    cmdCancel->setAutoDefault(false);
    sbMsg = new QStatusBar(this);
    sbMsg->setObjectName(QStringLiteral("sbMsg"));
    sbMsg->setSizeGripEnabled(false);

    auto *buttons = new QHBoxLayout;
    buttons->addWidget(lblMsg, 1);
    buttons->addWidget(cmdOk);
    buttons->addWidget(cmdCancel);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(details_, 1);
    layout->addLayout(buttons);
    layout->addWidget(sbMsg);

    lblMsg->setVisible(mode == 5 || mode == 4);
    cmdOk->setVisible(mode != 0);
    if (mode == 0)
        cmdCancel->setText(tr("Close"));
    if (mode == 5 || mode == 4)
        cmdOk->setText(tr("&Delete"));

    details_->setDisplayMode(mode);
    details_->setStatusBar(sbMsg);
    cmdOk->installEventFilter(this);
    cmdCancel->installEventFilter(this);
    connect(cmdOk, &QPushButton::clicked, this, &frmPersonDetails::cmdOk_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmPersonDetails::Start()
{
    details_->Display();
    if (mode_ == 1 || mode_ == 2)
        details_->txtForename->setFocus();
    else
        (mode_ == 0 ? cmdCancel : cmdOk)->setFocus();
}

void frmPersonDetails::cmdOk_Click()
{
    if (!details_->Valid())
        return;
    cBusySection busy;
    hide();
    details_->Update();
    Written();
    Cancelled = false;
    accept();
}

bool frmPersonDetails::eventFilter(QObject *watched, QEvent *event)
{
    // The help text of a field goes when a command takes the focus.
    if (event->type() == QEvent::FocusIn && (watched == cmdOk || watched == cmdCancel))
        sbMsg->clearMessage();
    return QDialog::eventFilter(watched, event);
}
