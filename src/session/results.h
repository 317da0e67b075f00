#pragma once

#include <QString>

#include <memory>
#include <vector>

class cPlayer;
class cResult;
struct cPrintOptions;

// The games of one tournament in memory, every round at once, in the order of adding,
// with the spare empty rows that the entry grid offers. Spare rows live in memory
// only and never reach the file.
//
// The collection works on the open tournament of the session: its id, its entrants
// and its number of rounds. Board handling and the pairing list are defined in the
// layers that own them.
class cResults
{
public:
    using cEntries = std::vector<std::shared_ptr<cResult>>;

    // How many entries, spare rows included, belong to the round.
    qint16 CountForRound(qint16 round) const;

    // Boards. A round with no boards yet continues from the lowest board of the
    // earlier rounds, so a section sharing a hall keeps its own numbers.
    QString FirstBoard(qint16 round) const;
    // The board the grid offers for a new pairing of the round.
    qint16 NextBoard(qint16 round) const;
    // Numbers every row of the round from the first board on, blank rows too, and
    // stores the round.
    void RenumberBoards(qint16 round, qint16 firstBoard);
    // Drops the blank rows of the round and adds a fresh set at the end.
    void RemoveEmptyBoards(qint16 round);
    // Puts the top pairings of the round on the top boards, by the scores before the
    // round, with byes last; nothing is stored.
    void ReOrderBoards(qint16 round);
    // The pairing list of the options' round, with the scores before it (src/reports).
    void ListPairings(qint32 destination, const cPrintOptions &options) const;
    // How many blank rows a round is given: at least 5, and room for every entrant
    // not yet paired with 5 to spare.
    qint32 BlankRowCount(qint16 round) const;
    // Reads the games of the open tournament in round and board order, after its
    // entrants are loaded, and gives every round its spare rows: at least 5, and
    // room for every entrant not yet paired with 5 to spare.
    void LoadAllResults();
    // Replaces the stored round as a whole by the entries of that round that have
    // at least one side; the rest of the file is untouched.
    void UpdateResults(qint16 round);
    // Adds an entry; the key is not used, as entries have none.
    std::shared_ptr<cResult> Add(const QString &round, const QString &board,
                                 std::shared_ptr<cPlayer> white, std::shared_ptr<cPlayer> black,
                                 const QString &result, const QString &key = QString());
    // The entry at a position counted from 1; a position outside is a fatal fault.
    std::shared_ptr<cResult> item(qint32 position) const;
    qint32 Count() const { return qint32(entries_.size()); }
    // Takes the entry out of the collection only; the file is not touched.
    void Remove(qint32 position);

    cEntries::const_iterator begin() const { return entries_.begin(); }
    cEntries::const_iterator end() const { return entries_.end(); }

private:
    void SwapBoards(qint32 first, qint32 second);

    cEntries entries_;
    // The rows of a round while ReOrderBoards sorts them.
    cEntries boardArray_;
};
