#pragma once

#include "ui/cntl_person_details.h"

class cMaster;

// One person of the register of players, shown or edited, with the player's fields.
class cntlMasterDetails : public cntlPersonDetails
{
    Q_OBJECT

public:
    explicit cntlMasterDetails(QWidget *parent = nullptr);

    std::shared_ptr<cMaster> Master() const;
    void setMaster(std::shared_ptr<cMaster> master);

    QLineEdit *txtMasterId;

protected:
    std::shared_ptr<cPersonRecord> NewRecord() const override;
};
