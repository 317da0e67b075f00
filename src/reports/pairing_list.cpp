// The pairing list of one round: each board with both sides' names, grades, scores
// before the round and pins, and the result where there is one.

#include "base/common.h"
#include "reports/print_cntrl.h"
#include "reports/report_options.h"
#include "reports/report_text.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/player.h"
#include "session/players.h"
#include "session/result.h"
#include "session/results.h"
#include "session/tournament.h"

using namespace mPrintCntrl;

namespace {

// The score before the round in brackets; round 1 has no score to show.
QString ScoreSoFar(const cPlayer &player, qint64 round)
{
    if (round > 1)
        return RightAligned(u'(' + player.DisplayScore().trimmed() + u')', 6);
    return QStringLiteral("      ");
}

// Name, grade and score of one side; the list shows the surname as stored.
QString Side(const cPlayer &player, qint64 round)
{
    return PadRight(player.DisplayName(false), 25, QStringLiteral(" ")) + u' ' +
           player.DisplayGrade() + u' ' + ScoreSoFar(player, round);
}

} // namespace

void cResults::ListPairings(qint32 destination, const cPrintOptions &options) const
{
    cTournament &tournament = *Control().Tournament();
    const QString roundText = options.Round;
    const qint64 round = WholeValue(roundText);
    // Scores are those before this round.
    tournament.Players().RecalcAll(qint16(round - 1), options.TieBreak);

    SetPrintMargin(100);
    PrintStart(destination, PageOrientation::Portrait);
    PrintTournamentTitles(tournament);
    PrintTitleLine(QString());
    PrintTitleLine(QStringLiteral("Round: ") + roundText);
    PrintTitleLine(QString());
    AddPageHeading(QStringLiteral(" Bd White                                  Result  Black        "
                                  "                            --Pin--"));

    const QString bye = PadRight(QStringLiteral("Bye"), 38, QStringLiteral(" "));
    // The pins of the row. A row with no white player keeps, ahead of black's pin,
    // the pins of the row before it: organisers know the list so.
    QString pins;
    qint32 counter = 1;
    for (const std::shared_ptr<cResult> &game : *this) {
        const std::shared_ptr<cPlayer> &white = game->White();
        const std::shared_ptr<cPlayer> &black = game->Black();
        if (game->Round() != roundText || (!white && !black))
            continue;
        // Every ten boards stand apart by one line.
        if ((counter - 1) % 10 == 0 && counter != 1) {
            counter = 1;
            PrintLine(QStringLiteral(" "));
        }

        QString line = PadRight(RightAligned(game->Board(), 3), 4, QStringLiteral(" "));
        if (white) {
            // A game not yet played keeps the five columns of its result blank.
            line += Side(*white, round) + QStringLiteral("  ") +
                    PadRight(game->DisplayResult(), 5, QStringLiteral(" ")) + QStringLiteral("   ");
            pins = RightAligned(white->Pin(), 3);
        } else {
            line += bye;
        }
        if (black) {
            line += Side(*black, round) + u' ';
            pins += QStringLiteral("  ") + RightAligned(black->Pin(), 3);
        } else {
            line += bye;
        }
        PrintLine(line + QStringLiteral("  ") + pins);
        ++counter;
    }

    BuildClosingNotice();
    PrintEnd();
    PrintPageNumbers();
}
