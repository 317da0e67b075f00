// The grading cross table: one line an entrant, a six-character cell for each game,
// then score, graded games, grading points and grading performance.

#include "base/common.h"
#include "conduct/player_array.h"
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

#include <QHash>

using namespace mPlayerArray;
using namespace mPrintCntrl;

namespace {

constexpr int CellWidth = 6;

qint16 RowOrder(CrossTableOrder order)
{
    switch (order) {
    case CrossTableOrder::ByGrade:
        return 1;
    case CrossTableOrder::ByName:
        return 2;
    case CrossTableOrder::ByPin:
        return 4;
    case CrossTableOrder::ByScore:
        return 5;
    }
    return 4;
}

// How rows and cells name an entrant: by position in this table or by pin.
QString OpponentNumber(const cPlayer &opponent, const cIdMap &idMap, bool byPosition)
{
    if (!byPosition)
        return opponent.Pin();
    const qint64 id = WholeValue(opponent.PlayerId());
    return QString::number(id >= 0 && id < qint64(idMap.size()) ? idMap[size_t(id)] : 0);
}

// The cells of every entrant's games, by player id, in the order the games stand,
// one after the other: a round without a game leaves no gap, so later games move
// left. One walk of the games serves the whole table.
QHash<QString, QString> GameCells(const cResults &results, const cIdMap &idMap, bool byPosition)
{
    QHash<QString, QString> cells;
    const auto append = [&cells](const cPlayer &player, const QString &cell) {
        cells[player.PlayerId()] += PadRight(cell, CellWidth, QStringLiteral(" "));
    };
    for (const std::shared_ptr<cResult> &game : results) {
        const std::shared_ptr<cPlayer> white = game->White();
        const std::shared_ptr<cPlayer> black = game->Black();
        if (white) {
            QString cell;
            if (!black)
                cell = game->Result() == QStringLiteral("B") ? QStringLiteral("def")
                                                             : QStringLiteral("bye");
            else
                cell = u'w' + OpponentNumber(*black, idMap, byPosition);
            append(*white, cell + game->DisplayWhiteResult());
        }
        if (black) {
            QString cell;
            if (!white)
                cell = game->Result() == QStringLiteral("W") ? QStringLiteral("def")
                                                             : QStringLiteral("bye");
            else
                cell = u'b' + OpponentNumber(*white, idMap, byPosition);
            append(*black, cell + game->DisplayBlackResult());
        }
    }
    return cells;
}

} // namespace

void cPlayers::ListCrossTable(qint32 destination, const cPrintOptions &options)
{
    cTournament &tournament = *Control().Tournament();
    const qint32 rounds = qint32(WholeValue(tournament.Rounds()));
    RecalcAll(qint16(rounds), options.TieBreak);

    SetPrintMargin(100);
    // Landscape is the only answer to a wide table: what is wider still is clipped.
    PrintStart(destination, rounds <= 8 ? PageOrientation::Portrait : PageOrientation::Landscape);
    PrintTournamentTitles(tournament);
    PrintLine(QString());
    PrintTournamentTexts(tournament);
    PrintLine(QStringLiteral(" "));
    QString dates = QStringLiteral("Date of Congress: ") + tournament.TDate();
    if (!tournament.TEnd().isEmpty())
        dates += QStringLiteral(" to ") + tournament.TEnd();
    PrintLine(dates);
    PrintLine(QString());

    const bool byPosition = options.Numbering == RowNumbering::Position;
    const bool codes = options.PlayerCodes;
    QString heading = QStringLiteral("                               BCF  ");
    if (codes)
        heading += QStringLiteral("        ");
    heading += QStringLiteral("           R O U N D S");
    AddPageHeading(heading);
    heading = byPosition ? QStringLiteral("Pos") : QStringLiteral("PIN");
    heading += QStringLiteral(" Player                    Grade  ");
    if (codes)
        heading += QStringLiteral("  Code  ");
    heading += QStringLiteral("  ");
    for (qint32 round = 1; round <= rounds; ++round)
        heading += PadRight(u' ' + QString::number(round), CellWidth, QStringLiteral(" "));
    heading += QStringLiteral(" A   B   C   D");
    AddPageHeading(heading);

    cPlayerArray &players = PlayerArray();
    SortPlayerArray(RowOrder(options.Order), players);
    IndexPlayerArray(*this, players, IdMap());

    const bool byScore = options.Order == CrossTableOrder::ByScore;
    const bool upperCaseSurname = Control().SurnameCase() != 0;
    const QHash<QString, QString> cells = GameCells(tournament.Results(), IdMap(), byPosition);
    const QString blank = QStringLiteral(" ");
    float previousScore = players.empty() ? 0.0f : float(NumericValue(players.front()->Score()));
    qint32 row = 0;
    for (const std::shared_ptr<cPlayer> &player : players) {
        ++row;
        if (byScore) {
            const float score = float(NumericValue(player->Score()));
            if (score != previousScore) {
                previousScore = score;
                PrintLine(QString());
            }
        } else if ((row - 1) % 10 == 0 && row != 1) {
            PrintLine(QStringLiteral(" "));
        }

        QString line = PadRight(RightAligned(byPosition ? QString::number(row) : player->Pin(), 3),
                                3, QStringLiteral(" ")) +
                       u' ' +
                       PadRight(player->DisplayName(upperCaseSurname), 25, QStringLiteral(".")) +
                       QStringLiteral("  ") + player->DisplayGrade() + QStringLiteral("  ");
        if (codes)
            line += PadRight(player->BCFCode(), 7, QStringLiteral(" ")) + u' ';
        line += QStringLiteral("  ") +
                PadRight(cells.value(player->PlayerId()), CellWidth * qMax(rounds, 0), blank) +
                RightAligned(player->DisplayScore(), 3) + RightAligned(player->Games(), 3) + u' ' +
                RightAligned(player->GPoints(), 4) + u' ' +
                RightAligned(player->PerformanceGrade(), 3);
        PrintLine(line);
    }

    ClearPageHeading();
    // The key to the last four columns stays whole on one page.
    BeginKeepTogether();
    PrintLine(QString());
    PrintLine(
        QStringLiteral("Index: A = Player score             B = Number of graded games played"));
    PrintLine(QStringLiteral("       C = Total grading points     D = Grading performance"));
    EndKeepTogether();
    BuildClosingNotice();
    PrintEnd();
    PrintPageNumbers();
}
