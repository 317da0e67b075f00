#pragma once

#include "session/record_row.h"

#include <QString>

#include <memory>

class cPlayer;
class cPlayers;
class cResults;

// One tournament: its row of Velmora as text, the collection of its entrants, the
// collection of its games and the entrant selected on the screen.
//
// Loading reads the row only; the caller fills the entrants and then the games, in
// that order, as opening a tournament does.
class cTournament
{
public:
    cTournament() = default;
    ~cTournament();
    cTournament(const cTournament &) = delete;
    cTournament &operator=(const cTournament &) = delete;

    // The games and the entrants are never none when read: a collection set to none
    // comes back as a new empty one.
    cResults &Results();
    void setResults(std::shared_ptr<cResults> results);
    std::shared_ptr<cPlayer> SelPlayer() const { return selPlayer_; }
    void setSelPlayer(std::shared_ptr<cPlayer> player) { selPlayer_ = std::move(player); }
    cPlayers &Players();
    void setPlayers(std::shared_ptr<cPlayers> players);
    // "True" or "False".
    QString Locked() const { return locked_; }
    // True when the text of Locked sets the flag: "True", or a number other than 0.
    bool IsLocked() const;
    void setLocked(const QString &value);
    QString TText6() const { return tText6_; }
    void setTText6(const QString &value);
    QString TText5() const { return tText5_; }
    void setTText5(const QString &value);
    QString TText4() const { return tText4_; }
    void setTText4(const QString &value);
    QString TText3() const { return tText3_; }
    void setTText3(const QString &value);
    QString TText2() const { return tText2_; }
    void setTText2(const QString &value);
    QString TText1() const { return tText1_; }
    void setTText1(const QString &value);
    // The grade that an ungraded entrant plays with.
    QString DefGrade() const { return defGrade_; }
    void setDefGrade(const QString &value);
    QString CurrRound() const { return currRound_; }
    void setCurrRound(const QString &value);
    QString Rounds() const { return rounds_; }
    void setRounds(const QString &value);
    // The type letter: B, R, F, M or D.
    QString TType() const { return tType_; }
    void setTType(const QString &value);
    // The type as people read it ("BCF Standard"); an unknown letter or text passes
    // through unchanged in both directions.
    QString TTypeLiteral() const;
    void setTTypeLiteral(const QString &value);
    // Last day, dd/mm/yyyy.
    QString TEnd() const { return tEnd_; }
    void setTEnd(const QString &value);
    // First day, dd/mm/yyyy.
    QString TDate() const { return tDate_; }
    void setTDate(const QString &value);
    // The name of the section ("Event:").
    QString Tourn() const { return tourn_; }
    void setTourn(const QString &value);
    // Title and event joined by ": " when both are there; what lists and headings show.
    QString DisplayName() const;
    QString Title() const { return title_; }
    void setTitle(const QString &value);
    QString TournId() const { return tournId_; }
    void setTournId(const QString &value);

    // Every field "" and Locked "False"; the type stays, and so do the collections.
    void Clear();
    // Reads the row of the id; an id with no row leaves an empty record.
    void Load(const QString &id);
    // Writes a new row under the next free id. A new tournament always starts with
    // 5 rounds, at round 1 and unlocked, whatever the dialog held.
    void Create();
    void Update();
    // Removes the games, then the entrants, then the tournament's own row.
    void Delete();
    // Asks whether the tournament is to go, mentioning its entrants when it has any.
    bool DeleteRequired();
    // Reports in the message window what is missing or wrong in the round as it
    // stands in memory; changes nothing.
    void ValidatePairings(qint16 round);

    // The command Next Round: moves on one round when CurrRound sorts before Rounds
    // as text, and rewrites the row in any case. So a tournament of 10 or more rounds
    // stops at round 2 - kept as the organisers know it. True when the round moved.
    bool NextRound();

    // A new tournament holding the details of the one with the id, titled "Copy of"
    // the old title and with no entrants or games. Create gives it its own id.
    static std::shared_ptr<cTournament> CopyOf(const QString &id);

private:
    cFieldValues WriteFields() const;

    QString tournId_;
    QString title_;
    QString tourn_;
    QString tDate_;
    QString tEnd_;
    QString tType_;
    QString rounds_;
    QString currRound_;
    QString defGrade_;
    QString tText1_;
    QString tText2_;
    QString tText3_;
    QString tText4_;
    QString tText5_;
    QString tText6_;
    QString locked_ = QStringLiteral("False");
    std::shared_ptr<cPlayer> selPlayer_;
    std::shared_ptr<cPlayers> players_;
    std::shared_ptr<cResults> results_;
};
