// The members of the tournament's entrants that read the register: an entrant is
// made from a register record, and its grades are refreshed from it. They are
// declared with cPlayer and cPlayers and defined here, on the register's floor, so
// that the session's records never include the register.
#include "database/sql.h"
#include "register/master.h"
#include "session/player.h"
#include "session/players.h"

void cPlayer::UpdateGradesFromMaster(const cMaster &master)
{
    longPlay_ = master.LongPlay();
    longPlayLett_ = master.LongPlayLett();
    rapidPlay_ = master.RapidPlay();
    rapidPlayLett_ = master.RapidPlayLett();
    fide_ = master.FIDE();
    Update();
}

void cPlayer::CreateFromMaster(const QString &tournId, const cMaster &master)
{
    setTournId(tournId);
    masterId_ = master.MasterId();
    forename_ = master.Forename();
    surname_ = master.Surname();
    dob_ = master.DOB();
    // The age as stored, not the shown form with its plus sign.
    age_ = master.StoredAge();
    club_ = master.Club();
    clubCode_ = master.ClubCode();
    clubName_ = master.ClubName();
    school_ = master.School();
    gmTitle_ = master.GMTitle();
    longPlay_ = master.LongPlay();
    longPlayLett_ = master.LongPlayLett();
    rapidPlay_ = master.RapidPlay();
    rapidPlayLett_ = master.RapidPlayLett();
    fide_ = master.FIDE();
    bcfCode_ = master.BCFCode();
    Create();
}

void cPlayers::LoadGradesFromMaster()
{
    cTransaction transaction;
    for (const std::shared_ptr<cPlayer> &player : entries_) {
        if (player->MasterId().isEmpty())
            continue;
        cMaster master;
        master.Load(player->MasterId());
        player->UpdateGradesFromMaster(master);
    }
    transaction.Commit();
}

std::shared_ptr<cPlayer> cPlayers::AddFromMaster(const QString &tournId, const cMaster &master)
{
    auto player = std::make_shared<cPlayer>();
    player->CreateFromMaster(tournId, master);
    Add(player->PlayerId(), player);
    return player;
}
