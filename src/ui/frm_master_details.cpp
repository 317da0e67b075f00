#include "ui/frm_master_details.h"

#include "register/master.h"
#include "session/control.h"
#include "session/globals.h"
#include "ui/cntl_master_details.h"

frmMasterDetails::frmMasterDetails(qint16 mode, std::shared_ptr<cMaster> master, QWidget *parent)
    : frmPersonDetails(mode, new cntlMasterDetails, tr("Player Details"),
                       tr("Check that this is the player you want to delete."), parent)
{
    setObjectName(QStringLiteral("frmMasterDetails"));
    cntlDetails = static_cast<cntlMasterDetails *>(Details());
    cntlDetails->setMaster(std::move(master));
    Start();
}

std::shared_ptr<cMaster> frmMasterDetails::Master() const
{
    return cntlDetails->Master();
}

void frmMasterDetails::Written()
{
    Control().setMaster(cntlDetails->Master());
}
