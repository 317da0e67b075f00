#include "conduct/swiss_tournament.h"

#include <algorithm>
#include <cstring>

namespace mSwiss {

eColour Opposite(eColour colour)
{
    switch (colour) {
    case eColour::White:
        return eColour::Black;
    case eColour::Black:
        return eColour::White;
    case eColour::None:
        break;
    }
    return eColour::None;
}

bool IsResultCode(char code)
{
    return code != '\0' && std::strchr("10=WDL+-UHFZ", code) != nullptr;
}

bool cSwissGame::Played() const
{
    return opponent != 0 && colour != eColour::None && std::strchr("10=WDL", result) != nullptr;
}

int cSwissGame::HalfPoints() const
{
    switch (result) {
    case '1':
    case 'W':
    case '+':
    case 'U':
    case 'F':
        return 2;
    case '=':
    case 'D':
    case 'H':
        return 1;
    default:
        return 0;
    }
}

int cSwissEntrant::HalfPoints() const
{
    int points = 0;
    for (const auto &game : games)
        points += game.HalfPoints();
    return points;
}

int cSwissTournament::RoundsPlayed() const
{
    size_t played = 0;
    for (const auto &entrant : entrants)
        played = std::max(played, entrant.games.size());
    return int(played);
}

} // namespace mSwiss
