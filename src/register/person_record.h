#pragma once

#include "session/record_row.h"

#include <QString>

class cBCFMaster;

// A person as the register keeps one: name, address, club, flags and grades, all
// as text, converted to the field types when written. The register of players
// (cMaster) and the register of contacts (cContact) share it; each names its own
// table and id field.
class cPersonRecord
{
public:
    virtual ~cPersonRecord() = default;

    // The id of the row, whatever the register calls its id field; empty means no
    // record.
    const QString &Id() const { return id_; }

    QString GMTitle() const { return gmTitle_; }
    void setGMTitle(const QString &value);
    QString FIDE() const { return fide_; }
    void setFIDE(const QString &value);
    QString RapidPlayLett() const { return rapidPlayLett_; }
    void setRapidPlayLett(const QString &value);
    QString RapidPlay() const { return rapidPlay_; }
    void setRapidPlay(const QString &value);
    QString LongPlayLett() const { return longPlayLett_; }
    void setLongPlayLett(const QString &value);
    QString LongPlay() const { return longPlay_; }
    void setLongPlay(const QString &value);
    QString BCFCode() const { return bcfCode_; }
    void setBCFCode(const QString &value);
    QString Nation() const { return nation_; }
    void setNation(const QString &value);
    QString Union() const { return union_; }
    void setUnion(const QString &value);
    QString School() const { return school_; }
    void setSchool(const QString &value);
    QString ClubName() const { return clubName_; }
    void setClubName(const QString &value);
    QString ClubCode() const { return clubCode_; }
    void setClubCode(const QString &value);
    QString Club() const { return club_; }
    void setClub(const QString &value);
    QString Special4() const { return special4_; }
    void setSpecial4(const QString &value);
    QString Special3() const { return special3_; }
    void setSpecial3(const QString &value);
    QString Special2() const { return special2_; }
    void setSpecial2(const QString &value);
    QString Special1() const { return special1_; }
    void setSpecial1(const QString &value);
    // "Male" for a stored M, "Female" for F, else "". Setting keeps the first
    // character only, so "Male" stores M.
    QString Gender() const;
    void setGender(const QString &value);
    // The stored age, or the session's highest shown age with "+" when above it.
    QString Age() const;
    void setAge(const QString &value);
    // The age as stored and written, without the plus sign of the shown form.
    QString StoredAge() const { return age_; }
    // dd/mm/yyyy. Setting works the age out at once at the session's age date; an
    // empty date empties the age too.
    QString DOB() const { return dob_; }
    void setDOB(const QString &value);
    QString eMail() const { return eMail_; }
    void seteMail(const QString &value);
    QString Phone() const { return phone_; }
    void setPhone(const QString &value);
    QString Postcode() const { return postcode_; }
    void setPostcode(const QString &value);
    QString Address4() const { return address4_; }
    void setAddress4(const QString &value);
    QString Address3() const { return address3_; }
    void setAddress3(const QString &value);
    QString Address2() const { return address2_; }
    void setAddress2(const QString &value);
    QString Address1() const { return address1_; }
    void setAddress1(const QString &value);
    QString Forename() const { return forename_; }
    void setForename(const QString &value);
    QString Surname() const { return surname_; }
    void setSurname(const QString &value);

    // The address on one line: the lines after the first joined by ", " only while
    // there is text before them, cut to 70 characters, then the postcode by the same
    // rule. An empty first line therefore gives an empty address.
    QString DisplayAddress() const;
    QString FullName() const;
    // Surname (in capitals when asked), ", " when both names are there, forename.
    QString DisplayName(bool upperCaseSurname) const;

    // Every property "", the id too.
    void Clear();
    // Reads the row of the id; a blank id runs no query and an unknown one leaves the
    // record clear.
    void Load(const QString &id);
    // Adds a new row under a newly allotted id.
    void Create();
    // Writes the record over the row of its id.
    void Update();
    // Removes the row and empties the id; the other values stay until the next Load
    // or Clear.
    void Delete();
    // Takes code and grades over from the national list and writes the row. A list
    // record without a code empties the code only and leaves the grades.
    void UpdateFrom(const cBCFMaster &bcfMaster);

protected:
    cPersonRecord(const QString &table, const QString &idField);

    void setId(const QString &value) { id_ = value.trimmed(); }
    // The id for a new row.
    virtual QString NextId() const = 0;
    // Makes sure the table is there before a statement names it.
    virtual void PrepareTable() const {}

private:
    cFieldValues WriteFields() const;

    QString table_;
    QString idField_;

    QString gmTitle_;
    QString fide_;
    QString rapidPlayLett_;
    QString rapidPlay_;
    QString longPlayLett_;
    QString longPlay_;
    QString bcfCode_;
    QString nation_;
    QString union_;
    QString school_;
    QString clubName_;
    QString clubCode_;
    QString club_;
    QString special4_;
    QString special3_;
    QString special2_;
    QString special1_;
    QString gender_;
    QString age_;
    QString dob_;
    QString eMail_;
    QString phone_;
    QString postcode_;
    QString address4_;
    QString address3_;
    QString address2_;
    QString address1_;
    QString forename_;
    QString surname_;
    QString id_;
};
