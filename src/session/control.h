#pragma once

#include <QString>

#include <memory>

class cMaster;
class cBCFMaster;
class cTournament;
class QIODevice;
struct cExportOptions;
struct cPrintOptions;

// The session root: the organiser's settings from table Cntrl and the records that
// are current in the windows. Settings are kept as trimmed text.
class cControl
{
public:
    QString UserDefined4() const { return userDefined4_; }
    void setUserDefined4(const QString &value);
    QString UserDefined3() const { return userDefined3_; }
    void setUserDefined3(const QString &value);
    QString UserDefined2() const { return userDefined2_; }
    void setUserDefined2(const QString &value);
    QString UserDefined1() const { return userDefined1_; }
    void setUserDefined1(const QString &value);
    qint16 SurnameCase() const { return surnameCase_; }
    void setSurnameCase(qint16 value) { surnameCase_ = value; }
    QString BCFGradeChars() const { return bcfGradeChars_; }
    // Keeps a blank after the letters, so that no letter at all is allowed too.
    void setBCFGradeChars(const QString &value);
    QString MaxJuniorAge() const { return maxJuniorAge_; }
    void setMaxJuniorAge(const QString &value);
    QString MaxDisplayAge() const { return maxDisplayAge_; }
    void setMaxDisplayAge(const QString &value);
    // The date at which ages are worked out, as dd/mm/yyyy; "" when none is set.
    QString AgeDate() const { return ageDate_; }
    void setAgeDate(const QString &value);
    QString Vrsn() const { return vrsn_; }
    void setVrsn(const QString &value);

    std::shared_ptr<cMaster> Master() const { return master_; }
    void setMaster(std::shared_ptr<cMaster> master) { master_ = std::move(master); }
    std::shared_ptr<cBCFMaster> BCFMaster() const { return bcfMaster_; }
    void setBCFMaster(std::shared_ptr<cBCFMaster> bcfMaster) { bcfMaster_ = std::move(bcfMaster); }
    std::shared_ptr<cTournament> Tournament() const { return tournament_; }
    void setTournament(std::shared_ptr<cTournament> tournament)
    {
        tournament_ = std::move(tournament);
    }

    // Reads the row of Cntrl: the version always, the rest only for "All", because
    // SurnameCase does not exist until the upgrade has run.
    void Load(const QString &what);
    // Writes the settings back. SurnameCase keeps its stored value: a change of it
    // holds for the session only.
    void Update();

    // Reports of the register (src/reports): the name-and-address list, and the
    // comma-separated export to the device or to the options' destination file.
    void ListPlayers(qint32 destination, const cPrintOptions &options) const;
    void ListPlayersExport(QIODevice &device, const cExportOptions &options) const;
    void ListPlayersExport(const cExportOptions &options) const;

private:
    std::shared_ptr<cMaster> master_;
    std::shared_ptr<cBCFMaster> bcfMaster_;
    std::shared_ptr<cTournament> tournament_;
    QString vrsn_;
    QString ageDate_;
    QString maxDisplayAge_;
    QString maxJuniorAge_;
    QString bcfGradeChars_;
    qint16 surnameCase_ = 0;
    QString userDefined1_;
    QString userDefined2_;
    QString userDefined3_;
    QString userDefined4_;
};
