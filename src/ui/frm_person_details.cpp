#include "ui/frm_master_details.h"

#include "base/busy.h"
#include "register/master.h"
#include "session/control.h"
#include "session/globals.h"
#include "ui/cntl_master_details.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStatusBar>
#include <QVBoxLayout>

frmMasterDetails::frmMasterDetails(qint16 mode, std::shared_ptr<cMaster> master, QWidget *parent)
    : QDialog(parent)
{
    setObjectName(QStringLiteral("frmMasterDetails"));
    setWindowTitle(tr("Player Details"));
    cntlDetails = new cntlMasterDetails(this);
    lblMsg = new QLabel(tr("Check that this is the player you want to delete."), this);
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
    layout->addWidget(cntlDetails, 1);
    layout->addLayout(buttons);
    layout->addWidget(sbMsg);

    lblMsg->setVisible(mode == 5 || mode == 4);
    cmdOk->setVisible(mode != 0);
    if (mode == 0)
        cmdCancel->setText(tr("Close"));
    if (mode == 5 || mode == 4)
        cmdOk->setText(tr("&Delete"));

    cntlDetails->setDisplayMode(mode);
    cntlDetails->setMaster(std::move(master));
    cntlDetails->setStatusBar(sbMsg);
    cntlDetails->Display();
    cmdOk->installEventFilter(this);
    cmdCancel->installEventFilter(this);
    connect(cmdOk, &QPushButton::clicked, this, &frmMasterDetails::cmdOk_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    if (mode == 1 || mode == 2)
        cntlDetails->txtForename->setFocus();
    else
        (mode == 0 ? cmdCancel : cmdOk)->setFocus();
}

std::shared_ptr<cMaster> frmMasterDetails::Master() const
{
    return cntlDetails->Master();
}

void frmMasterDetails::cmdOk_Click()
{
    if (!cntlDetails->Valid())
        return;
    cBusySection busy;
    hide();
    cntlDetails->Update();
    Control().setMaster(cntlDetails->Master());
    Cancelled = false;
    accept();
}

bool frmMasterDetails::eventFilter(QObject *watched, QEvent *event)
{
    // The help text of a field goes when a command takes the focus.
    if (event->type() == QEvent::FocusIn && (watched == cmdOk || watched == cmdCancel))
        sbMsg->clearMessage();
    return QDialog::eventFilter(watched, event);
}
