// The name-and-address list of the open tournament's entrants, in a chosen sequence.

#include "conduct/player_array.h"
#include "register/master.h"
#include "reports/print_cntrl.h"
#include "reports/report_options.h"
#include "reports/report_text.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/player.h"
#include "session/players.h"
#include "session/tournament.h"

using namespace mPlayerArray;
using namespace mPrintCntrl;

namespace {

// The standing order that puts the list in its sequence; by county there is no
// such order for entrants, and the list stands by name.
qint16 SequenceOrder(PlayerSequence sequence)
{
    switch (sequence) {
    case PlayerSequence::Age:
        return 7;
    case PlayerSequence::GradeCode:
        return 8;
    case PlayerSequence::Club:
        return 9;
    case PlayerSequence::School:
        return 10;
    case PlayerSequence::Name:
    case PlayerSequence::County:
        break;
    }
    return 2;
}

// False when the list is for one of the user-defined purposes and the person's
// register record does not carry its flag.
bool Selected(PlayerSelection selection, const cMaster &master)
{
    const QString yes = QStringLiteral("Y");
    switch (selection) {
    case PlayerSelection::User1:
        return master.Special1() == yes;
    case PlayerSelection::User2:
        return master.Special2() == yes;
    case PlayerSelection::User3:
        return master.Special3() == yes;
    case PlayerSelection::User4:
        return master.Special4() == yes;
    case PlayerSelection::All:
    case PlayerSelection::Tournament:
        break;
    }
    return true;
}

void GroupRow(cListGroups &groups, PlayerSequence sequence, const cPlayer &player)
{
    switch (sequence) {
    case PlayerSequence::Name:
        groups.NextByName(player.Surname().left(1));
        break;
    case PlayerSequence::Age: {
        const QString age = player.Age();
        groups.NextByValue(age, age.isEmpty() ? QStringLiteral("Unknown")
                                              : QStringLiteral("Age: ") + age);
        break;
    }
    case PlayerSequence::GradeCode:
        groups.NextByValue(
            player.ClubCode(),
            UnknownOr(player.ClubCode(), player.ClubCode() + u' ' + player.ClubName()));
        break;
    case PlayerSequence::Club:
        groups.NextByValue(player.Club(), UnknownOr(player.Club(), player.Club()));
        break;
    case PlayerSequence::School:
        groups.NextByValue(player.School(), UnknownOr(player.School(), player.School()));
        break;
    case PlayerSequence::County:
        // Entrants keep no county: the list by county has no groups.
        break;
    }
}

} // namespace

void cPlayers::ListPlayers(qint32 destination, const cPrintOptions &options)
{
    const cTournament &tournament = *Control().Tournament();
    SetPrintMargin(100);
    PrintStart(destination, PageOrientation::Landscape);
    PrintTournamentTitles(tournament);
    PrintLine(QString());

    cPlayerArray &players = PlayerArray();
    LoadPlayerArray(*this, players);
    SortPlayerArray(SequenceOrder(options.Sequence), players);
    IndexPlayerArray(*this, players, IdMap());

    // The first key is a whole surname, so the first row by name opens a group of
    // its own unless that surname is a single letter.
    cListGroups groups(players.empty() ? QString() : players.front()->Surname().toUpper());
    const bool upperCaseSurname = Control().SurnameCase() != 0;
    for (const std::shared_ptr<cPlayer> &player : players) {
        cMaster master;
        master.Load(player->MasterId());
        if (!Selected(options.Selection, master))
            continue;
        GroupRow(groups, options.Sequence, *player);
        PrintLine(NameAndAddressRow(player->DisplayName(upperCaseSurname), master));
    }

    PrintLine(QString());
    BuildClosingNotice();
    PrintEnd();
    PrintPageNumbers();
}
