// The final standing: position, name, grade, score and the chosen tie-break.

#include "base/common.h"
#include "conduct/player_array.h"
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

void cPlayers::ListResults(qint32 destination, const cPrintOptions &options)
{
    const cTournament &tournament = *Control().Tournament();
    RecalcAll(qint16(WholeValue(tournament.Rounds())), options.TieBreak);
    cPlayerArray &players = PlayerArray();
    SortPlayerArray(6, players);
    IndexPlayerArray(*this, players, IdMap());

    SetPrintMargin(100);
    PrintStart(destination, PageOrientation::Portrait);
    PrintTournamentTitles(tournament);
    PrintLine(QString());
    PrintTournamentTexts(tournament);
    PrintLine(QStringLiteral(" "));
    // The closing " to " stands even when the congress has no last day.
    PrintLine(QStringLiteral("Date of Congress: ") + tournament.TDate() + QStringLiteral(" to ") +
              tournament.TEnd());
    PrintLine(QStringLiteral(" "));

    QString heading =
        QStringLiteral("Pos") + QStringLiteral(" Player                     Grade   Score  ");
    QString title;
    switch (options.TieBreak) {
    case TieBreakMode::optSum:
        heading += QStringLiteral(" OS ");
        title = QStringLiteral("Tie break via Sum of Opponents Scores");
        break;
    case TieBreakMode::optPro:
        heading += QStringLiteral(" PS ");
        title = QStringLiteral("Tie break via Progressive scores");
        break;
    case TieBreakMode::optSB:
        heading += QStringLiteral(" SB ");
        title = QStringLiteral("Tie break via Sonneborn-Berger");
        break;
    case TieBreakMode::optNone:
        break;
    }
    const bool withTieBreak = options.TieBreak != TieBreakMode::optNone;
    if (withTieBreak) {
        AddPageHeading(QString());
        AddPageHeading(title);
        AddPageHeading(QString());
    }
    AddPageHeading(heading);

    const bool upperCaseSurname = Control().SurnameCase() != 0;
    float previousScore = players.empty() ? 0.0f : float(NumericValue(players.front()->Score()));
    qint32 position = 0;
    for (const std::shared_ptr<cPlayer> &player : players) {
        ++position;
        const float score = float(NumericValue(player->Score()));
        // Score groups stand apart by an empty line; tied entrants keep their own
        // positions.
        if (score != previousScore) {
            previousScore = score;
            PrintLine(QString());
        }
        QString line = RightAligned(QString::number(position), 3) + u' ' +
                       PadRight(player->DisplayName(upperCaseSurname), 25, QStringLiteral(".")) +
                       QStringLiteral("  ") + player->DisplayGrade() + u' ' +
                       RightAligned(player->DisplayScore(), 5) + QStringLiteral("   ");
        if (withTieBreak)
            line += player->DisplayTieBreak();
        PrintLine(line);
    }

    ClearPageHeading();
    BuildClosingNotice();
    PrintEnd();
    PrintPageNumbers();
}
