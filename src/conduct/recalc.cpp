#include "base/common.h"
#include "base/fatal_fault.h"
#include "conduct/grading.h"
#include "conduct/player_array.h"
#include "conduct/progress_window.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/player.h"
#include "session/players.h"
#include "session/result.h"
#include "session/results.h"
#include "session/tournament.h"

#include <QHash>

#include <cmath>

namespace {

// The running figures of one entrant while the games are walked; turned into the
// record's text once at the end.
struct cFigures
{
    double score = 0;
    double tieBreak = 0;
    double games = 0;
    double gPoints = 0;
    qint16 colourPreference = 0;
    float colourSeeker = 0;
};

cTournament &OpenTournament()
{
    const std::shared_ptr<cTournament> tournament = Control().Tournament();
    if (!tournament)
        RaiseFatal(QStringLiteral("cPlayers"), FaultNumber::UnknownKey,
                   QStringLiteral("No tournament is open."));
    return *tournament;
}

// Position in the player array, from 0, of the entrant a side of a game names. A
// game row entered on the grid holds its own copy of the entrant, so the id decides,
// never the object.
size_t PositionOf(const cIdMap &idMap, const cPlayer &player)
{
    const qint64 id = WholeValue(player.PlayerId());
    if (id <= 0 || size_t(id) >= idMap.size() || idMap[size_t(id)] == 0)
        RaiseFatal(QStringLiteral("cPlayers"), FaultNumber::UnknownKey,
                   QStringLiteral("A game names the player id ") + player.PlayerId() +
                       QStringLiteral(", which no entrant has."));
    return size_t(idMap[size_t(id)] - 1);
}

} // namespace

void cPlayers::RecalcAll(qint16 roundLimit, std::optional<TieBreakMode> mode)
{
    if (entries_.empty())
        return;
    cTournament &tournament = OpenTournament();
    cResults &results = tournament.Results();
    const qint32 entrants = Count();
    const qint32 rows = results.Count();

    cProgressWindow progressWindow(QStringLiteral("Recalculating scores for:"),
                                   entrants * 2 + 2 + rows + (mode ? rows : 0));
    qint32 progress = 0;
    const auto advance = [&] { progressWindow.Update(++progress); };

    mPlayerArray::LoadPlayerArray(*this, playerArray_);
    mPlayerArray::IndexPlayerArray(*this, playerArray_, idMap_);
    const cGradeBasis basis = cGradeBasis::Stored(tournament.TournId());
    const qint16 defGrade = qint16(std::nearbyint(NumericValue(basis.defGrade)));
    // Each side's grade is worked out once per object met: the rows name the same
    // entrants many times over.
    QHash<const cPlayer *, qint16> grades;
    const auto gradeOf = [&](const cPlayer *player) {
        if (!player)
            return qint16(0);
        auto found = grades.constFind(player);
        if (found == grades.constEnd())
            found = grades.insert(player, ArithmeticGrade(player, basis));
        return found.value();
    };

    // Every figure starts again from nothing.
    std::vector<cFigures> figures(playerArray_.size());
    for (qint32 position = 0; position < entrants; ++position)
        advance();

    // First pass: scores, graded games, grading points, progressive scores and the
    // colour history, White's side of a row before Black's.
    for (const std::shared_ptr<cResult> &row : results) {
        advance();
        const double round = NumericValue(row->Round());
        if (round > roundLimit)
            continue;
        for (const bool white : {true, false}) {
            const cPlayer *player = white ? row->White().get() : row->Black().get();
            if (!player)
                continue;
            const bool hasOpponent = white ? bool(row->Black()) : bool(row->White());
            cFigures &entrant = figures[PositionOf(idMap_, *player)];
            // A bye scores by its code like any row.
            entrant.score += white ? row->WhiteScore() : row->BlackScore();
            // Only a row with an opponent and a result is a graded game; "Z" and "N"
            // rows count as games.
            if (hasOpponent && !row->Result().isEmpty()) {
                const cPlayer *opponent = white ? row->Black().get() : row->White().get();
                entrant.games += 1;
                entrant.gPoints +=
                    GradePoints(row->Result(), white, gradeOf(player), gradeOf(opponent), defGrade);
            }
            // Rows come in round order, so this sums the running score after each
            // round the entrant has a row in.
            if (mode == TieBreakMode::optPro)
                entrant.tieBreak += entrant.score;
            // A pairing counts in the colour history whether or not it was played;
            // later rounds weigh more, the last counted round one more still.
            if (hasOpponent) {
                const qint16 sign = white ? 1 : -1;
                entrant.colourPreference = qint16(entrant.colourPreference + sign);
                entrant.colourSeeker += float(sign * round);
                if (round == roundLimit)
                    entrant.colourSeeker += float(sign);
            }
        }
    }

    for (size_t position = 0; position < playerArray_.size(); ++position)
        playerArray_[position]->setScore(NumberText(figures[position].score));

    // Second pass: the tie-breaks that need the opponents' final scores. Those are
    // read through the row's own references, which for rows loaded from the file are
    // the entrants just totalled.
    if (mode) {
        for (const std::shared_ptr<cResult> &row : results) {
            advance();
            if (NumericValue(row->Round()) > roundLimit)
                continue;
            for (const bool white : {true, false}) {
                const cPlayer *player = white ? row->White().get() : row->Black().get();
                const cPlayer *opponent = white ? row->Black().get() : row->White().get();
                if (!player || !opponent)
                    continue;
                cFigures &entrant = figures[PositionOf(idMap_, *player)];
                const double opponentScore = NumericValue(opponent->Score());
                if (mode == TieBreakMode::optSum)
                    entrant.tieBreak += opponentScore;
                else if (mode == TieBreakMode::optSB)
                    entrant.tieBreak +=
                        (white ? row->WhiteScore() : row->BlackScore()) * opponentScore;
            }
        }
    }

    for (size_t position = 0; position < playerArray_.size(); ++position) {
        advance();
        cPlayer &player = *playerArray_[position];
        const cFigures &entrant = figures[position];
        player.setTieBreak(NumberText(entrant.tieBreak));
        player.setGames(NumberText(entrant.games));
        player.setGPoints(NumberText(entrant.gPoints));
        player.setColourPreference(entrant.colourPreference);
        player.setColourSeeker(entrant.colourSeeker);
    }
    // Every entrant is stored, in one unit of work.
    cPlayer::UpdateEach(playerArray_);
}
