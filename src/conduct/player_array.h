#pragma once

#include "session/players.h"

#include <QString>

// The player array: the one way entrants are put in an order. The collection keeps
// the order of adding only; every report and allocation that needs a standing fills
// the array, sorts it by one of the ten orders and, after sorting, builds the id map.
//
// The orders, keys in turn:
//   1  Grade descending, GradeLett ascending, DisplayName ascending
//   2  DisplayName ascending
//   3  PlayerId ascending
//   4  Pin ascending
//   5  Score descending, Grade descending, GradeLett ascending, title rank
//   6  Score descending, TieBreak descending, DisplayName ascending
//   7  Age (as shown) ascending, DisplayName ascending
//   8  ClubName ascending, DisplayName ascending
//   9  Club ascending, DisplayName ascending
//   10 School ascending, DisplayName ascending
// Numeric keys compare by the leading number of their text (empty is 0); text keys by
// character code, so case matters and empty text comes first. DisplayName is the
// mixed-case form.
namespace mPlayerArray {

// The array sized to the entrants and filled in collection order.
void LoadPlayerArray(const cPlayers &players, cPlayerArray &playerArray);
// The map sized to the next free player id, each entrant's id giving its position.
void IndexPlayerArray(const cPlayers &players, const cPlayerArray &playerArray, cIdMap &idMap);
// Sorts in place by the order number; a number outside 1 to 10 leaves the array as it
// is. The sort is a plain exchange sort on purpose: the orders are not strict, and
// which of two equal entrants comes first depends on its exact shape.
void SortPlayerArray(qint16 order, cPlayerArray &playerArray);
void SwapPlayers(std::shared_ptr<cPlayer> &first, std::shared_ptr<cPlayer> &second);

// The rank of a title in order 5: its position, padded to three characters, in
// "#GM #WGM#IM #WIM#FM #WFM#   #", 0 when not found. A larger rank goes first.
qint32 TitleRank(const QString &gmTitle);

} // namespace mPlayerArray
