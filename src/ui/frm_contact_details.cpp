#include "ui/frm_contact_details.h"

#include "register/contact.h"
#include "ui/cntl_contact_details.h"

frmContactDetails::frmContactDetails(qint16 mode, std::shared_ptr<cContact> contact,
                                     QWidget *parent)
    : frmPersonDetails(mode, new cntlContactDetails, tr("Contact Details"),
                       tr("Check that this is the contact you want to delete."), parent)
{
    setObjectName(QStringLiteral("frmContactDetails"));
    cntlDetails = static_cast<cntlContactDetails *>(Details());
    cntlDetails->setContact(std::move(contact));
    Start();
}

std::shared_ptr<cContact> frmContactDetails::Contact() const
{
    return cntlDetails->Contact();
}
