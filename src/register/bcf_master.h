#pragma once

#include <QString>

// One row of the national grading list, table BCFMast, as text. Matching copies its
// code and grades on to a person of the register.
class cBCFMaster
{
public:
    QString PrevRapidPlayLett() const { return prevRapidPlayLett_; }
    void setPrevRapidPlayLett(const QString &value);
    QString PrevRapidPlay() const { return prevRapidPlay_; }
    void setPrevRapidPlay(const QString &value);
    QString PrevLongPlayLett() const { return prevLongPlayLett_; }
    void setPrevLongPlayLett(const QString &value);
    QString PrevLongPlay() const { return prevLongPlay_; }
    void setPrevLongPlay(const QString &value);
    QString FIDECode() const { return fideCode_; }
    void setFIDECode(const QString &value);
    // The club codes, and the names the club list gives them, looked up at each read.
    QString ClubName6() const { return ClubNameOf(club6_); }
    QString Club6() const { return club6_; }
    void setClub6(const QString &value);
    QString ClubName5() const { return ClubNameOf(club5_); }
    QString Club5() const { return club5_; }
    void setClub5(const QString &value);
    QString ClubName4() const { return ClubNameOf(club4_); }
    QString Club4() const { return club4_; }
    void setClub4(const QString &value);
    QString ClubName3() const { return ClubNameOf(club3_); }
    QString Club3() const { return club3_; }
    void setClub3(const QString &value);
    QString ClubName2() const { return ClubNameOf(club2_); }
    QString Club2() const { return club2_; }
    void setClub2(const QString &value);
    QString ClubName1() const { return ClubNameOf(club1_); }
    QString Club1() const { return club1_; }
    void setClub1(const QString &value);
    // dd/mm/yyyy.
    QString DOB() const { return dob_; }
    void setDOB(const QString &value);
    QString RapidPlayLett() const { return rapidPlayLett_; }
    void setRapidPlayLett(const QString &value);
    QString RapidPlay() const { return rapidPlay_; }
    void setRapidPlay(const QString &value);
    QString LongPlayLett() const { return longPlayLett_; }
    void setLongPlayLett(const QString &value);
    QString LongPlay() const { return longPlay_; }
    void setLongPlay(const QString &value);
    QString Age() const { return age_; }
    void setAge(const QString &value);
    // "Male" for M, "Female" for F, else ""; setting keeps the first character.
    QString Gender() const;
    void setGender(const QString &value);
    // The list's own form of the name; read only.
    QString FullName() const { return fullName_; }
    QString BCFCode() const { return bcfCode_; }
    void setBCFCode(const QString &value);

    void Clear();
    // Reads the row of the code; a blank or unknown code leaves the record clear.
    void Load(const QString &code);

private:
    // The name of the club with the code in the club list, "" when it has none.
    static QString ClubNameOf(const QString &code);

    QString bcfCode_;
    QString fullName_;
    QString gender_;
    QString age_;
    QString longPlay_;
    QString longPlayLett_;
    QString prevLongPlay_;
    QString prevLongPlayLett_;
    QString rapidPlay_;
    QString rapidPlayLett_;
    QString prevRapidPlay_;
    QString prevRapidPlayLett_;
    QString dob_;
    QString club1_;
    QString club2_;
    QString club3_;
    QString club4_;
    QString club5_;
    QString club6_;
    QString fideCode_;
};
