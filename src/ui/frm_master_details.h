#pragma once

#include "ui/frm_person_details.h"

#include <memory>

class cMaster;
class cntlMasterDetails;

// The dialog that adds, changes, shows or deletes one person of the register of
// players.
class frmMasterDetails : public frmPersonDetails
{
    Q_OBJECT

public:
    // Mode 0 view, 1 new, 2 change, 5 delete; the record is none for a new person.
    frmMasterDetails(qint16 mode, std::shared_ptr<cMaster> master, QWidget *parent = nullptr);

    // The record written, after OK.
    std::shared_ptr<cMaster> Master() const;

    cntlMasterDetails *cntlDetails;

protected:
    // The person written becomes the session's current person.
    void Written() override;
};
