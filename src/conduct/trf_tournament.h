#pragma once

#include "conduct/trf_file.h"

#include <QString>

#include <memory>
#include <string>

class cTournament;

// A tournament of the database as FIDE's tournament report file, and a report file
// made into a new tournament. The games' codes meet the file's result codes in this
// one place, both ways:
//
//   two players    W  white '1', black '0'   (also read: '+'/'-', 'W'/'L')
//                  B  white '0', black '1'   (also read: '-'/'+', 'L'/'W')
//                  D  '=' both               (also read: 'D'/'D')
//                  Z  '-' both, a double default
//                  N  '0' both               (also read: 'L'/'L')
//                  "" ' ' both, a round paired and not yet played
//   one player     a full point    'U'       (also read: 'F', '+' without opponent)
//                  a half point    'H'       (stored as a one-player row with D)
//                  no point        '-'       (written alike for no row at all;
//                                             'Z', '-' are read as no row)
//
// The database keeps no difference between a game won over the board and one won by
// default, nor between the kinds of full-point bye, so those come back as a played
// win and as the pairing-allocated bye. The file keeps no board numbers: a file's
// round is put on boards from 1 in the order of the higher-placed player of each
// game, its byes after the games. The file's name line (012) holds the title, ": "
// and the event, and is read back split at its first ": ".
namespace mTrfTournament {

// The tournament's entrants by pairing number (the pin order of the pairing), their
// games of every stored round, the points from those games and the rank they give.
// The entrants and games must be loaded.
mSwiss::cTrfFile TrfOfTournament(cTournament &tournament);
// The same written out.
std::string TrfTextOfTournament(cTournament &tournament);

struct cTrfImport
{
    bool ok = false;
    // Why the file was refused, starting with its line: "Line 7: ...".
    QString message;
    // The new tournament, open with its entrants and games loaded.
    std::shared_ptr<cTournament> tournament;
    int players = 0;
    int rounds = 0;
};

// Makes a new tournament of the file, its entrants taken from the register by name
// or added to it, in one unit of work, and opens it. A file refused writes nothing
// and leaves the open tournament as it was.
cTrfImport ImportTrf(const std::string &text);

} // namespace mTrfTournament
