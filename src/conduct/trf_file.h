#pragma once

#include "conduct/swiss_tournament.h"

#include <string>
#include <utility>
#include <vector>

// FIDE's tournament report file (the 2016 layout): a header line per tournament field,
// a player line per entrant with the record round by round, and the common extension
// lines XXR (the number of rounds) and XXC (the first player's colour in round 1).
namespace mSwiss {

// The player line's fields besides those the pairing uses.
struct cTrfPlayer
{
    char sex = ' ';
    std::string title;
    std::string federation;
    std::string fideId;
    std::string birthDate;
    int halfPoints = 0;
    int rank = 0;
    int line = 0; // where the reader met it; not written
};

struct cTrfFile
{
    // Header lines other than the player lines and the extensions, as code and text.
    std::vector<std::pair<std::string, std::string>> headers;
    std::vector<int> headerLines; // beside headers, where the reader met them
    cSwissTournament tournament;
    std::vector<cTrfPlayer> players; // beside tournament.entrants
    bool roundsGiven = false;        // an XXR line is written
    int roundsLine = 0;              // where the reader met the XXR line
    bool colourGiven = false;        // an XXC line is written

    // The header text of a code ("012" the tournament's name), empty when absent.
    std::string Header(const std::string &code) const;
};

struct cTrfReading
{
    bool ok = false;
    int line = 0;
    std::string message;
    cTrfFile file;
};

cTrfReading ReadTrf(const std::string &text);
std::string WriteTrf(const cTrfFile &file);

} // namespace mSwiss
