// Pairing cards: one index card a page for each entrant, in pin order, with pin,
// name and grade in large type and the rest small.

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

void cPlayers::ListPairingCards(qint32 destination, const cPrintOptions &options)
{
    const cControl &control = Control();
    const cTournament &tournament = *control.Tournament();
    cPlayerArray &players = PlayerArray();
    LoadPlayerArray(*this, players);
    SortPlayerArray(4, players);
    IndexPlayerArray(*this, players, IdMap());

    SetPrintMargin(0);
    PrintStart(destination, PageOrientation::Landscape);
    SetPrintFont(QString(), FontStyle::Bold, 14);

    const bool upperCaseSurname = control.SurnameCase() != 0;
    qint32 page = 0;
    for (const std::shared_ptr<cPlayer> &player : players) {
        // The first card's first text meets the empty running heading, which sets
        // the style back to normal: that card's large type is not bold.
        SetPrintFont(QString(), FontStyle::Bold, 16);
        SetPrintPage(++page);
        PrintLine(RightAligned(player->Pin(), 3), 50, 100);
        PrintLine(player->DisplayName(upperCaseSurname), 300, 100);
        PrintLine(player->DisplayGrade(), 1150, 100);
        SetPrintFont(QString(), -1, 8);
        if (options.UserDetails && !player->MasterId().isEmpty()) {
            cMaster master;
            master.Load(player->MasterId());
            if (master.Special1() == QStringLiteral("Y"))
                PrintLine(control.UserDefined1(), 50, 200);
            if (master.Special2() == QStringLiteral("Y"))
                PrintLine(control.UserDefined2(), 50, 230);
        }
        PrintLine(tournament.Tourn(), 50, 855);
        if (!player->Club().isEmpty())
            PrintLine(player->Club(), 550, 855);
        if (!player->School().isEmpty())
            PrintLine(player->School(), 1030, 855);
    }

    PrintEnd();
}
