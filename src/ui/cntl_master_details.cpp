#include "ui/cntl_master_details.h"

#include "register/master.h"

cntlMasterDetails::cntlMasterDetails(QWidget *parent)
    : cntlPersonDetails("txtMasterId", true, parent), txtMasterId(txtId)
{
    setObjectName(QStringLiteral("cntlMasterDetails"));
}

std::shared_ptr<cMaster> cntlMasterDetails::Master() const
{
    return std::static_pointer_cast<cMaster>(Record());
}

void cntlMasterDetails::setMaster(std::shared_ptr<cMaster> master)
{
    setRecord(std::move(master));
}

std::shared_ptr<cPersonRecord> cntlMasterDetails::NewRecord() const
{
    return std::make_shared<cMaster>();
}
