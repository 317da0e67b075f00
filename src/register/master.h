#pragma once

#include "register/person_record.h"

// One person of the register of players, table Master. The session root holds the
// one that the master window shows; entrants are copies of these records.
class cMaster : public cPersonRecord
{
public:
    cMaster();

    // Empty means no record.
    QString MasterId() const { return Id(); }
    void setMasterId(const QString &value) { setId(value); }

    // True when the person may go: at once when no tournament names them, else only
    // when the user says so. Their entrants stay either way.
    bool DeleteRequired() const;

protected:
    QString NextId() const override;
};
