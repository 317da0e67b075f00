#include "ui/cntl_contact_details.h"

#include "register/contact.h"

cntlContactDetails::cntlContactDetails(QWidget *parent)
    : cntlPersonDetails("txtContactId", false, parent)
{
    setObjectName(QStringLiteral("cntlContactDetails"));
}

std::shared_ptr<cContact> cntlContactDetails::Contact() const
{
    return std::static_pointer_cast<cContact>(Record());
}

void cntlContactDetails::setContact(std::shared_ptr<cContact> contact)
{
    setRecord(std::move(contact));
}

std::shared_ptr<cPersonRecord> cntlContactDetails::NewRecord() const
{
    return std::make_shared<cContact>();
}
