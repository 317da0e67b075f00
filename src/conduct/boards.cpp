#include "base/common.h"
#include "base/fatal_fault.h"
#include "conduct/grade_bases.h"
#include "conduct/progress_window.h"
#include "database/sql.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/player.h"
#include "session/players.h"
#include "session/result.h"
#include "session/results.h"
#include "session/tournament.h"

#include <array>
#include <cmath>
#include <utility>

namespace {

cTournament &OpenTournament()
{
    const std::shared_ptr<cTournament> tournament = Control().Tournament();
    if (!tournament)
        RaiseFatal(QStringLiteral("cResults"), FaultNumber::UnknownKey,
                   QStringLiteral("No tournament is open."));
    return *tournament;
}

bool OfRound(const cResult &row, qint16 round)
{
    return NumericValue(row.Round()) == round;
}

bool HasBoard(const cResult &row)
{
    return !row.Board().isEmpty();
}

qint16 Short(const QString &text)
{
    return qint16(std::nearbyint(NumericValue(text)));
}

// The ten keys of a row, worked out once before the boards are sorted.
constexpr int BoardKeys = 10;
enum class KeyKind { Number, Text };
struct cBoardKeySpec
{
    KeyKind kind;
    bool higherFirst;
};
// Score of the leader, score of the other, top grade and its letter, low grade and
// its letter, first and last name, low and high pin.
constexpr std::array<cBoardKeySpec, BoardKeys> BoardOrder{{{KeyKind::Number, true},
                                                           {KeyKind::Number, true},
                                                           {KeyKind::Number, true},
                                                           {KeyKind::Text, false},
                                                           {KeyKind::Number, true},
                                                           {KeyKind::Text, false},
                                                           {KeyKind::Text, false},
                                                           {KeyKind::Text, false},
                                                           {KeyKind::Number, false},
                                                           {KeyKind::Number, false}}};

struct cRowKeys
{
    std::array<double, BoardKeys> numbers{};
    std::array<QString, BoardKeys> texts;
};

cRowKeys KeysOf(const cResult &row, cGradeBases &bases)
{
    cRowKeys keys;
    const cPlayer *white = row.White().get();
    const cPlayer *black = row.Black().get();
    if (white && black) {
        const double whiteScore = NumericValue(white->Score());
        const double blackScore = NumericValue(black->Score());
        keys.numbers[0] = MaxOf(whiteScore, blackScore);
        keys.numbers[1] = MinOf(whiteScore, blackScore);
        const qint16 whiteGrade = Short(white->Grade(bases.Of(*white)));
        const qint16 blackGrade = Short(black->Grade(bases.Of(*black)));
        // On equal grades the Black player stands for the pair on both keys.
        const cPlayer *top = whiteGrade > blackGrade ? white : black;
        const cPlayer *low = whiteGrade < blackGrade ? white : black;
        keys.numbers[2] = MaxOf(whiteGrade, blackGrade);
        keys.texts[3] = top->GradeLett(bases.Of(*top));
        keys.numbers[4] = MinOf(whiteGrade, blackGrade);
        keys.texts[5] = low->GradeLett(bases.Of(*low));
        const QString whiteName = white->DisplayName(false);
        const QString blackName = black->DisplayName(false);
        keys.texts[6] = MinOf(whiteName, blackName);
        keys.texts[7] = MaxOf(whiteName, blackName);
        const qint16 whitePin = Short(white->Pin());
        const qint16 blackPin = Short(black->Pin());
        keys.numbers[8] = MinOf(whitePin, blackPin);
        keys.numbers[9] = MaxOf(whitePin, blackPin);
    } else {
        const cPlayer *player = white ? white : black;
        keys.numbers[0] = NumericValue(player->Score());
        keys.numbers[2] = Short(player->Grade(bases.Of(*player)));
        keys.texts[3] = player->GradeLett(bases.Of(*player));
        keys.texts[5] = QStringLiteral(" ");
        keys.texts[6] = player->DisplayName(false);
        keys.numbers[8] = Short(player->Pin());
    }
    return keys;
}

// True when the row with the keys j ranks before the row with the keys i: the first
// key on which they differ decides, and rows equal on all ten stay as they are.
bool RanksFirst(const cRowKeys &j, const cRowKeys &i)
{
    for (size_t key = 0; key < BoardOrder.size(); ++key) {
        if (BoardOrder[key].kind == KeyKind::Number) {
            if (j.numbers[key] == i.numbers[key])
                continue;
            return BoardOrder[key].higherFirst ? j.numbers[key] > i.numbers[key]
                                               : j.numbers[key] < i.numbers[key];
        }
        const int compared = QString::compare(j.texts[key], i.texts[key], Qt::CaseSensitive);
        if (compared == 0)
            continue;
        return BoardOrder[key].higherFirst ? compared > 0 : compared < 0;
    }
    return false;
}

} // namespace

qint32 cResults::BlankRowCount(qint16 round) const
{
    return MaxOf(qint32(5), OpenTournament().Players().Count() / 2 - CountForRound(round) + 5);
}

QString cResults::FirstBoard(qint16 round) const
{
    const double none = 99999;
    double lowestOfRound = none;
    double lowestEarlier = none;
    for (const std::shared_ptr<cResult> &row : entries_) {
        if (!HasBoard(*row))
            continue;
        const double rowRound = NumericValue(row->Round());
        const double board = NumericValue(row->Board());
        if (rowRound == round)
            lowestOfRound = MinOf(lowestOfRound, board);
        else if (rowRound < round)
            lowestEarlier = MinOf(lowestEarlier, board);
    }
    if (lowestOfRound != none)
        return NumberText(lowestOfRound);
    if (lowestEarlier != none)
        return NumberText(lowestEarlier);
    return QStringLiteral("1");
}

qint16 cResults::NextBoard(qint16 round) const
{
    double lowest = 999999;
    double highestOfRound = 0;
    for (const std::shared_ptr<cResult> &row : entries_) {
        const double rowRound = NumericValue(row->Round());
        const double board = NumericValue(row->Board());
        if (HasBoard(*row) && rowRound <= round + 1)
            lowest = MinOf(lowest, board);
        if (rowRound == round)
            highestOfRound = MaxOf(highestOfRound, board);
    }
    if (lowest == 999999)
        lowest = 1;
    return qint16(MaxOf(lowest, highestOfRound + 1));
}

void cResults::RenumberBoards(qint16 round, qint16 firstBoard)
{
    qint32 board = firstBoard;
    for (const std::shared_ptr<cResult> &row : entries_)
        if (OfRound(*row, round))
            row->setBoard(QString::number(board++));
    UpdateResults(round);
}

void cResults::RemoveEmptyBoards(qint16 round)
{
    for (qsizetype index = qsizetype(entries_.size()) - 1; index >= 0; --index) {
        const cResult &row = *entries_[size_t(index)];
        if (OfRound(row, round) && !row.White() && !row.Black())
            entries_.erase(entries_.begin() + index);
    }
    const qint32 blanks = BlankRowCount(round);
    for (qint32 blank = 0; blank < blanks; ++blank)
        Add(QString::number(round), QString(), nullptr, nullptr, QString());
}

void cResults::ReOrderBoards(qint16 round)
{
    cTournament &tournament = OpenTournament();
    boardArray_.clear();
    boardArray_.reserve(size_t(CountForRound(round)));
    // The pairs are ranked by the scores before this round.
    tournament.Players().RecalcAll(qint16(round - 1));
    for (const std::shared_ptr<cResult> &row : entries_)
        if (OfRound(*row, round) && (row->White() || row->Black()))
            boardArray_.push_back(row);
    const qint32 count = qint32(boardArray_.size());

    std::vector<cRowKeys> keys;
    keys.reserve(boardArray_.size());
    cGradeBases bases;
    for (const std::shared_ptr<cResult> &row : boardArray_)
        keys.push_back(KeysOf(*row, bases));

    {
        cProgressWindow progressWindow(QStringLiteral("Sorting boards for:"), count - 1);
        for (qint32 i = 1; i <= count - 1; ++i) {
            progressWindow.Update(i);
            for (qint32 j = i + 1; j <= count; ++j) {
                if (RanksFirst(keys[size_t(j - 1)], keys[size_t(i - 1)])) {
                    SwapBoards(i, j);
                    std::swap(keys[size_t(i - 1)], keys[size_t(j - 1)]);
                }
            }
        }
    }

    // Byes go below the games. The walk moves on after each bubble, so of two byes
    // next to each other the first goes to the end and the second stays.
    for (qint32 i = 1; i <= count; ++i) {
        const cResult &row = *boardArray_[size_t(i - 1)];
        if (!row.White() || !row.Black())
            for (qint32 k = i; k <= count - 1; ++k)
                SwapBoards(k, k + 1);
    }

    qint32 board = qint32(WholeValue(FirstBoard(round)));
    for (const std::shared_ptr<cResult> &row : boardArray_)
        row->setBoard(QString::number(board++));

    for (qsizetype index = qsizetype(entries_.size()) - 1; index >= 0; --index)
        if (OfRound(*entries_[size_t(index)], round))
            entries_.erase(entries_.begin() + index);
    entries_.insert(entries_.end(), boardArray_.begin(), boardArray_.end());
    const qint32 blanks = BlankRowCount(round);
    for (qint32 blank = 0; blank < blanks; ++blank)
        Add(QString::number(round), QString(), nullptr, nullptr, QString());
}

void cResults::SwapBoards(qint32 first, qint32 second)
{
    std::swap(boardArray_[size_t(first - 1)], boardArray_[size_t(second - 1)]);
}
