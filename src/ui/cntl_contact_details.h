#pragma once

#include "ui/cntl_person_details.h"

class cContact;

// One contact, shown or edited: name, address, telephone, e-mail, codes and flags,
// without the fields that only a player has.
class cntlContactDetails : public cntlPersonDetails
{
    Q_OBJECT

public:
    explicit cntlContactDetails(QWidget *parent = nullptr);

    std::shared_ptr<cContact> Contact() const;
    void setContact(std::shared_ptr<cContact> contact);

protected:
    std::shared_ptr<cPersonRecord> NewRecord() const override;
};
