#include "conduct/tournament_pairing.h"

#include "base/common.h"
#include "conduct/dutch_pairing.h"
#include "session/player.h"
#include "session/players.h"
#include "session/result.h"
#include "session/results.h"
#include "session/tournament.h"

#include <algorithm>
#include <unordered_map>

namespace mTournamentPairing {

namespace {

using mSwiss::cSwissGame;
using mSwiss::eColour;

bool HasPlayer(const cResult &game)
{
    return game.White() != nullptr || game.Black() != nullptr;
}

qint64 PinNumber(const cPlayer &player)
{
    const QString pin = player.Pin().trimmed();
    return pin.isEmpty() ? 0 : WholeValue(pin);
}

// One side of a game with both players. A double default and a game without a result
// were not played: they bring nothing and do not count as having met.
cSwissGame SideOfGame(const QString &code, int opponent, eColour colour)
{
    cSwissGame game;
    game.opponent = opponent;
    game.colour = colour;
    const bool white = colour == eColour::White;
    if (code == u"W")
        game.result = white ? '1' : '0';
    else if (code == u"B")
        game.result = white ? '0' : '1';
    else if (code == u"D")
        game.result = '=';
    else
        game.result = '-';
    return game;
}

// A row of one player: a win is the bye the pairing gave, a draw a half-point bye,
// anything else a round without points.
cSwissGame SideOfBye(const QString &code, bool white)
{
    cSwissGame game;
    if (code == (white ? u"W" : u"B"))
        game.result = 'U';
    else if (code == u"D")
        game.result = 'H';
    else
        game.result = 'Z';
    return game;
}

} // namespace

bool IsSwissType(const QString &type)
{
    static const QStringList swiss{QString(),           QStringLiteral("B"), QStringLiteral("R"),
                                   QStringLiteral("F"), QStringLiteral("M"), QStringLiteral("D")};
    return swiss.contains(type.trimmed().toUpper());
}

bool RoundComplete(const cResults &results, qint16 round)
{
    bool any = false;
    for (const auto &game : results) {
        if (WholeValue(game->Round()) != round || !HasPlayer(*game))
            continue;
        if (game->Result().isEmpty())
            return false;
        any = true;
    }
    return any;
}

bool RoundEmpty(const cResults &results, qint16 round)
{
    for (const auto &game : results)
        if (WholeValue(game->Round()) == round && HasPlayer(*game))
            return false;
    return true;
}

bool CanPairRound(cTournament &tournament, qint16 round)
{
    if (!IsSwissType(tournament.TType()) || round < 1)
        return false;
    const cResults &results = tournament.Results();
    return RoundEmpty(results, round) && (round == 1 || RoundComplete(results, qint16(round - 1)));
}

mSwiss::cSwissTournament SwissTournamentBefore(cTournament &tournament, qint16 round,
                                               std::vector<std::shared_ptr<cPlayer>> &byNumber)
{
    byNumber.assign(tournament.Players().begin(), tournament.Players().end());
    std::stable_sort(byNumber.begin(), byNumber.end(), [](const auto &a, const auto &b) {
        const qint64 pinA = PinNumber(*a);
        const qint64 pinB = PinNumber(*b);
        if ((pinA > 0) != (pinB > 0))
            return pinA > 0;
        return pinA < pinB;
    });

    mSwiss::cSwissTournament swiss;
    swiss.rounds = int(WholeValue(tournament.Rounds()));
    std::unordered_map<const cPlayer *, int> numberOf;
    const int earlier = std::max(0, round - 1);
    for (size_t i = 0; i < byNumber.size(); ++i) {
        const cPlayer &player = *byNumber[i];
        mSwiss::cSwissEntrant entrant;
        entrant.number = int(i + 1);
        entrant.rating = int(WholeValue(player.Grade()));
        entrant.name = player.FullName().toStdString();
        entrant.paired = !player.Withdrawn();
        entrant.games.resize(size_t(earlier));
        swiss.entrants.push_back(entrant);
        numberOf[&player] = entrant.number;
    }

    auto entrantOf = [&](const std::shared_ptr<cPlayer> &player) -> mSwiss::cSwissEntrant * {
        const auto found = player ? numberOf.find(player.get()) : numberOf.end();
        return found == numberOf.end() ? nullptr : &swiss.entrants[size_t(found->second - 1)];
    };
    for (const auto &game : tournament.Results()) {
        const qint64 gameRound = WholeValue(game->Round());
        if (gameRound < 1 || gameRound > earlier)
            continue;
        const size_t r = size_t(gameRound - 1);
        const QString code = game->Result().trimmed().toUpper();
        mSwiss::cSwissEntrant *white = entrantOf(game->White());
        mSwiss::cSwissEntrant *black = entrantOf(game->Black());
        if (white && black) {
            white->games[r] = SideOfGame(code, black->number, eColour::White);
            black->games[r] = SideOfGame(code, white->number, eColour::Black);
        } else if (white) {
            white->games[r] = SideOfBye(code, true);
        } else if (black) {
            black->games[r] = SideOfBye(code, false);
        }
    }
    return swiss;
}

cPairedRound PairRound(cTournament &tournament, qint16 round)
{
    std::vector<std::shared_ptr<cPlayer>> byNumber;
    const mSwiss::cSwissTournament swiss = SwissTournamentBefore(tournament, round, byNumber);
    const mSwiss::cRoundPairing pairing = mSwiss::PairNextRound(swiss);
    cPairedRound paired;
    paired.paired = pairing.paired;
    paired.message = QString::fromStdString(pairing.message);
    if (!pairing.paired)
        return paired;
    auto playerOf = [&](int number) {
        return number > 0 ? byNumber[size_t(number - 1)] : std::shared_ptr<cPlayer>();
    };
    for (const auto &board : pairing.boards)
        paired.boards.emplace_back(playerOf(board.white), playerOf(board.black));
    return paired;
}

void FillRound(cResults &results, qint16 round, const cPairedRound &pairing, qint16 firstBoard)
{
    const QString roundText = QString::number(round);
    qint16 board = firstBoard;
    for (const auto &[white, black] : pairing.boards) {
        const QString code = black ? QString() : QStringLiteral("W");
        results.Add(roundText, QString::number(board++), white, black, code);
    }
    // The pairs go before the spare rows, which come back as a fresh set after them.
    results.RemoveEmptyBoards(round);
}

} // namespace mTournamentPairing
