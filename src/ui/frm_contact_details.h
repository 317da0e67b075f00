#pragma once

#include "ui/frm_person_details.h"

#include <memory>

class cContact;
class cntlContactDetails;

// The dialog that adds, changes, shows or deletes one contact.
class frmContactDetails : public frmPersonDetails
{
    Q_OBJECT

public:
    // Mode 0 view, 1 new, 2 change, 5 delete; the record is none for a new contact.
    frmContactDetails(qint16 mode, std::shared_ptr<cContact> contact, QWidget *parent = nullptr);

    // The record written, after OK.
    std::shared_ptr<cContact> Contact() const;

    cntlContactDetails *cntlDetails;
};
