#pragma once

#include "session/record_row.h"

#include <QString>

#include <memory>
#include <vector>

class cMaster;
class QSqlQuery;
class QSqlRecord;

// Where the fields of Player stand in a query, found once for a query that reads
// many rows.
struct cPlayerColumns
{
    explicit cPlayerColumns(const QSqlRecord &record);
    int tId, pId, masterId, pin, forename, surname, code, grade, gLett, rGrade, rLett, elo, dob,
        age, club, clubCode, clubName, school, gmTitle, score, aCount, numGames, gPoints, place,
        withdrawn;
};

// The type letter and default grade of a tournament as they stand in the file, so that
// a stored change shows at once and an unsaved one not at all. A pass over many
// entrants reads them once and chooses every grade from them.
struct cGradeBasis
{
    QString type;
    QString defGrade;
    static cGradeBasis Stored(const QString &tournId);
};

// One entrant of one tournament: its row of Player as text, with the texts that lists
// and screens show for it. An entrant is a copy of a register record taken at entry,
// so a tournament keeps the name, club and grades it was played with.
class cPlayer
{
public:
    // Working values of the pairing stage; never stored.
    float ColourSeeker() const { return colourSeeker_; }
    void setColourSeeker(float value) { colourSeeker_ = value; }
    qint16 ColourPreference() const { return colourPreference_; }
    void setColourPreference(qint16 value) { colourPreference_ = value; }
    QString MasterId() const { return masterId_; }
    void setMasterId(const QString &value);
    bool Withdrawn() const { return withdrawn_; }
    void setWithdrawn(bool value) { withdrawn_ = value; }
    QString GMTitle() const { return gmTitle_; }
    void setGMTitle(const QString &value);
    QString School() const { return school_; }
    void setSchool(const QString &value);
    QString ClubCode() const { return clubCode_; }
    void setClubCode(const QString &value);
    QString ClubName() const { return clubName_; }
    void setClubName(const QString &value);
    QString Club() const { return club_; }
    void setClub(const QString &value);
    QString FIDE() const { return fide_; }
    void setFIDE(const QString &value);
    QString RapidPlay() const { return rapidPlay_; }
    void setRapidPlay(const QString &value);
    QString RapidPlayLett() const { return rapidPlayLett_; }
    void setRapidPlayLett(const QString &value);
    QString LongPlay() const { return longPlay_; }
    void setLongPlay(const QString &value);
    QString LongPlayLett() const { return longPlayLett_; }
    void setLongPlayLett(const QString &value);
    QString Surname() const { return surname_; }
    void setSurname(const QString &value);
    QString Place() const { return place_; }
    void setPlace(const QString &value);
    QString GPoints() const { return gPoints_; }
    void setGPoints(const QString &value);
    // Grading points per game, rounded; "" before any game counts.
    QString PerformanceGrade() const;
    QString Games() const { return games_; }
    void setGames(const QString &value);
    QString TieBreak() const { return tieBreak_; }
    void setTieBreak(const QString &value);
    // The tie-break right-aligned in 4 characters, quarters as ¼ ½ ¾.
    QString DisplayTieBreak() const;
    QString Score() const { return score_; }
    void setScore(const QString &value);
    // The score right-aligned in 3 characters, quarters as ¼ ½ ¾.
    QString DisplayScore() const;
    // Grade and letter right-aligned in 4 characters.
    QString DisplayGrade() const;
    QString DisplayGrade(const cGradeBasis &basis) const;
    // The grade this entrant plays with, chosen by the type of the tournament as it
    // stands in the file; an ungraded entrant has the tournament's default grade.
    QString Grade() const;
    QString Grade(const cGradeBasis &basis) const;
    // The letter of the grade chosen by Grade, one character; "" where the type
    // has no letters.
    QString GradeLett() const;
    QString GradeLett(const cGradeBasis &basis) const;
    // dd/mm/yyyy.
    QString DOB() const { return dob_; }
    void setDOB(const QString &value);
    // The stored age, or the session's highest shown age with "+" above it.
    QString Age() const;
    void setAge(const QString &value);
    // "(U12)" for an age of 11, up to the highest shown age; else "".
    QString AgeGroup() const;
    QString BCFCode() const { return bcfCode_; }
    void setBCFCode(const QString &value);
    QString Forename() const { return forename_; }
    void setForename(const QString &value);
    QString FullName() const;
    // Surname (in capitals when asked), ", " when both names are there, forename.
    QString DisplayName(bool upperCaseSurname) const;
    QString Pin() const { return pin_; }
    void setPin(const QString &value);
    QString PlayerId() const { return playerId_; }
    void setPlayerId(const QString &value);
    QString TournId() const { return tournId_; }
    void setTournId(const QString &value);

    // Every text "" and not withdrawn; the age and the pairing values stay.
    void Clear();
    // Reads the entrant of the tournament by player id, or by master id when one is
    // given; the master id wins.
    void Load(const QString &tournId, const QString &playerId, const QString &masterId);
    // Fills the record from a row of Player that the caller has read.
    void LoadFromRow(const QSqlQuery &row, const cPlayerColumns &columns);
    // The next free player id of a tournament, from the file: one past the highest,
    // 1 for the first entrant.
    static QString NextPlayerId(const QString &tournId);
    // Writes a new row into the open tournament under its next free player id.
    void Create();
    void Update();
    // Writes the rows of many entrants exactly as Update writes each one, through one
    // prepared statement: recalculation writes back the whole field this way.
    static void UpdateEach(const std::vector<std::shared_ptr<cPlayer>> &players);
    // Takes the grades of the register record over and writes the row; name, club
    // and the rest stay as entered.
    void UpdateGradesFromMaster(const cMaster &master);
    // Removes the row and every game this entrant played.
    void Delete();
    bool ValidDelete() const { return true; }
    // Makes the entrant a copy of the register record and writes it.
    void CreateFromMaster(const QString &tournId, const cMaster &master);

private:
    cFieldValues WriteFields() const;

    QString masterId_;
    QString tournId_;
    QString playerId_;
    QString pin_;
    QString forename_;
    QString surname_;
    QString bcfCode_;
    QString longPlay_;
    QString longPlayLett_;
    QString rapidPlay_;
    QString rapidPlayLett_;
    QString fide_;
    QString dob_;
    QString age_;
    QString club_;
    QString clubCode_;
    QString clubName_;
    QString school_;
    QString gmTitle_;
    QString score_;
    QString tieBreak_;
    QString games_;
    QString gPoints_;
    QString place_;
    bool withdrawn_ = false;
    qint16 colourPreference_ = 0;
    float colourSeeker_ = 0.0f;
};
