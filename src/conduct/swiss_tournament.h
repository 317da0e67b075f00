#pragma once

#include <string>
#include <vector>

// A Swiss tournament as the pairing engine sees it: entrants by pairing number with
// their record round by round, in the terms of the tournament report file, and no
// database behind it, so that the engine can be run on plain data.
namespace mSwiss {

enum class eColour { None, White, Black };

eColour Opposite(eColour colour);

// One round of an entrant's record. The result is the report file's code:
// '1' '=' '0' a played game, 'W' 'D' 'L' a played game not rated, '+' '-' a game won
// or lost by default (with an opponent) or '-' an absence (without one), 'U' the
// pairing-allocated bye, 'H' 'F' 'Z' a half, full or zero point bye.
struct cSwissGame
{
    int opponent = 0;
    eColour colour = eColour::None;
    char result = '-';

    // True when the two sat down and played: only such games count for colours and
    // for having met.
    bool Played() const;
    // The points the round brought, in half points.
    int HalfPoints() const;
    // True when the round counts as having floated down: any round not played.
    bool Unplayed() const { return !Played(); }
    // A pairing-allocated bye or a win by default: either rules out another bye.
    bool BarsBye() const { return result == 'U' || result == '+'; }
};

// The result codes a record may hold.
bool IsResultCode(char code);

struct cSwissEntrant
{
    int number = 0;
    int rating = 0;
    std::string name;
    // False when the entrant takes no part in the round to pair (withdrawn, or a bye
    // asked for beforehand).
    bool paired = true;
    std::vector<cSwissGame> games;

    int HalfPoints() const;
};

struct cSwissTournament
{
    int rounds = 0;
    eColour firstColour = eColour::White;
    // By pairing number: entrants[i].number == i + 1.
    std::vector<cSwissEntrant> entrants;

    // The number of rounds already in the records.
    int RoundsPlayed() const;
};

// A board of the round: black 0 is the pairing-allocated bye for white.
struct cBoard
{
    int white = 0;
    int black = 0;

    bool operator==(const cBoard &) const = default;
};

struct cRoundPairing
{
    bool paired = false;
    std::string message;
    std::vector<cBoard> boards;
};

} // namespace mSwiss
