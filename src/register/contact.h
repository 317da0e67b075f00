#pragma once

#include "register/person_record.h"

// A person who is not a player - an arbiter, a helper, a venue's keeper - kept in a
// register of their own, table Contact, which is made the first time it is needed.
class cContact : public cPersonRecord
{
public:
    cContact();

    // Empty means no record.
    QString ContactId() const { return Id(); }
    void setContactId(const QString &value) { setId(value); }

    // Nothing in a tournament refers to a contact, so a contact may always go once
    // its row is there; false when there is no such row to delete.
    bool DeleteRequired() const;

    // The next free contact id: one above the highest, "1" for an empty register.
    static QString NextContactId();
    // Makes the table Contact, with the fields of Master and ContactId for MasterId,
    // when the file has none. The schema version stays as it is.
    static void EnsureContactTable();

protected:
    QString NextId() const override;
    void PrepareTable() const override;
};
