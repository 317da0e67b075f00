// The wall chart: every entrant by pin in ruled rows of 156 units, grade and age
// group, name and pin, with empty rows down to the foot of the grid.

#include "conduct/player_array.h"
#include "reports/print_cntrl.h"
#include "reports/report_options.h"
#include "reports/report_text.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/player.h"
#include "session/players.h"

using namespace mPlayerArray;
using namespace mPrintCntrl;

namespace {

constexpr qint32 RowHeight = 156;
constexpr qint32 ChartWidth = 2000;
constexpr QRgb Black = 0;

// The frame of a page: a heavy left edge, the top line and the column lines.
void DrawFrame(qint32 left, qint32 top, qint32 gridBottom)
{
    SetLinePen(0, 20, Black);
    DrawRule(left, top, left, gridBottom);
    SetLinePen(0, 2, Black);
    DrawRule(left, top, left + ChartWidth, top);
    DrawRule(left + 410, top, left + 410, gridBottom);
    DrawRule(left + 1680, top, left + 1680, gridBottom);
    DrawRule(left + ChartWidth, top, left + ChartWidth, gridBottom);
}

} // namespace

void cPlayers::ListWallChart(qint32 destination, const cPrintOptions &)
{
    cPlayerArray &players = PlayerArray();
    LoadPlayerArray(*this, players);
    SortPlayerArray(4, players);
    IndexPlayerArray(*this, players, IdMap());

    SetPrintMargin(0);
    PrintStart(destination, PageOrientation::Portrait);
    const qint32 left = PrintLeft();
    const qint32 top = PrintTop();
    const qint32 bottom = PrintBottom();
    const qint32 gridBottom = top + (bottom - top) / RowHeight * RowHeight;

    const bool upperCaseSurname = Control().SurnameCase() != 0;
    qint32 page = 0;
    // Starting at the foot makes the first entrant open page 1.
    qint32 y = bottom;
    for (const std::shared_ptr<cPlayer> &player : players) {
        y += RowHeight;
        if (y > bottom) {
            SetPrintPage(++page);
            y = top + RowHeight;
            DrawFrame(left, top, gridBottom);
        }
        DrawRule(left, y, left + ChartWidth, y);
        SetPrintFont(QString(), -1, 20);
        PrintLine(RightAligned(player->DisplayGrade(), 4), left + 60, y - 90);
        SetPrintFont(QString(), -1, 12);
        PrintLine(player->AgeGroup(), left + 265, y - 75);
        SetPrintFont(QString(), -1, 20);
        PrintLine(player->DisplayName(upperCaseSurname), left + 470, y - 90);
        PrintLine(RightAligned(player->Pin(), 3), left + 1740, y - 90);
    }
    // Empty rows finish the last page.
    while (y < gridBottom) {
        y += RowHeight;
        DrawRule(left, y, left + ChartWidth, y);
    }

    PrintEnd();
}
