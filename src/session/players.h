#pragma once

#include <QHash>
#include <QString>

#include <memory>
#include <optional>
#include <vector>

class cMaster;
class cPlayer;
class QIODevice;
struct cExportOptions;
struct cPrintOptions;

// The tie-break a report asks recalculation for: sum of opponents' scores,
// progressive scores, Sonneborn-Berger, or none. A caller without a print dialog
// gives no mode at all, and then no tie-break is worked out.
enum class TieBreakMode { optSum, optPro, optSB, optNone };

// The sorted view of the entrants that recalculation, pins and reports work on:
// references, so a change to an element is a change to the entrant.
using cPlayerArray = std::vector<std::shared_ptr<cPlayer>>;
// PlayerId to position in the player array, positions counted from 1; 0 for an id
// not in use.
using cIdMap = std::vector<qint32>;

// The entrants of one tournament in memory, keyed by PlayerId and kept in the order
// in which they were added, which is the order every later walk meets them in.
//
// The collection works on the open tournament of the session: ids, pins and the load
// are those of Control().Tournament(). Other members of this class (recalculation,
// pins, reports) are defined in the layers that own them.
class cPlayers
{
public:
    using cEntries = std::vector<std::shared_ptr<cPlayer>>;

    // The next free player id of the open tournament, from the file: a removed
    // highest id is given out again.
    QString NextPlayerId() const;
    // The next free pin number of the open tournament, from the file.
    QString NextPin() const;
    // Refreshes every entrant's grades from the register and writes each entrant;
    // one without a register record is left as it is. Scores are not recalculated.
    void LoadGradesFromMaster();
    // Enters the person of the register record and writes the new entrant.
    std::shared_ptr<cPlayer> AddFromMaster(const QString &tournId, const cMaster &master);
    // False when the person is already entered: master ids compared exactly as text.
    bool ValidAddPlayer(const QString &masterId) const;
    // Reads every entrant of the open tournament in pin, surname and forename order.
    // Meant for a fresh collection; it does not empty it first.
    void LoadAllPlayers();
    // Reads one entrant and adds it under its player id.
    std::shared_ptr<cPlayer> Load(const QString &tournId, const QString &playerId);

    // Reports of the entrants (src/reports). Each composes its whole document through
    // the print channel; the print dialog shows or prints it afterwards. Those that
    // need an order sort the player array, and those that show figures recalculate
    // them first for the round they show.
    void ListPlayers(qint32 destination, const cPrintOptions &options);
    void ListResults(qint32 destination, const cPrintOptions &options);
    void ListCrossTable(qint32 destination, const cPrintOptions &options);
    void ListPairingCards(qint32 destination, const cPrintOptions &options);
    void ListWallChart(qint32 destination, const cPrintOptions &options);
    // The comma-separated export of the entrants in collection order, to the device
    // or to the options' destination file.
    void ListPlayersExport(QIODevice &device, const cExportOptions &options) const;
    void ListPlayersExport(const cExportOptions &options) const;

    // The entrant under the key. "" and "0" give none: that is how a game finds its
    // empty side. Any other unknown key is a fatal fault.
    std::shared_ptr<cPlayer> item(const QString &key) const;
    // The entrant at a position counted from 1; a position outside is a fatal fault.
    std::shared_ptr<cPlayer> item(qint32 position) const;
    qint32 Count() const { return qint32(entries_.size()); }
    // Takes the entrant out of the collection and deletes it with its games.
    void Remove(const QString &key);
    void Remove(qint32 position);

    cEntries::const_iterator begin() const { return entries_.begin(); }
    cEntries::const_iterator end() const { return entries_.end(); }

    // The work members that the player array routines fill; recalculation and the
    // pin routines leave them behind for the reports that follow.
    cPlayerArray &PlayerArray() { return playerArray_; }
    cIdMap &IdMap() { return idMap_; }

    // Rebuilds Score, Games, GPoints, TieBreak and the colour counters of every
    // entrant from the games of rounds up to the limit, and writes every entrant.
    void RecalcAll(qint16 roundLimit, std::optional<TieBreakMode> mode = std::nullopt);

    // Pins: allocation in one sweep, clearing and the report of gaps and clashes.
    bool ValidPin(const QString &pin) const;
    void PinsClear();
    void PinsByGrade();
    void PinsByName();
    void PinsByOrder();
    void PinsByRandom();
    QString PinsValidate();

private:
    // Adds under the key; a key already present is a fatal fault.
    void Add(const QString &key, std::shared_ptr<cPlayer> player);
    void RemoveAt(qsizetype index);

    void PinsInOrder(qint16 order);

    cEntries entries_;
    QHash<QString, std::shared_ptr<cPlayer>> byKey_;
    cPlayerArray playerArray_;
    cIdMap idMap_;
};
