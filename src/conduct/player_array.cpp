#include "conduct/player_array.h"

#include "base/common.h"
#include "conduct/grade_bases.h"
#include "conduct/progress_window.h"
#include "session/player.h"

#include <array>
#include <utility>

namespace mPlayerArray {

namespace {

constexpr int MaxKeys = 4;

enum class KeyKind { None, Number, Text };

struct cKeyRule
{
    KeyKind kind = KeyKind::None;
    bool descending = false;
};

using cOrderKeys = std::array<cKeyRule, MaxKeys>;

constexpr cKeyRule NumberDown{KeyKind::Number, true};
constexpr cKeyRule NumberUp{KeyKind::Number, false};
constexpr cKeyRule TextUp{KeyKind::Text, false};

// The keys of the ten orders. The title rank of order 5 is a number that goes first
// when larger: an untitled entrant ahead of a titled one of equal score and grade.
constexpr std::array<cOrderKeys, 10> Orders{{
    {NumberDown, TextUp, TextUp, {}},
    {TextUp, {}, {}, {}},
    {NumberUp, {}, {}, {}},
    {NumberUp, {}, {}, {}},
    {NumberDown, NumberDown, TextUp, NumberDown},
    {NumberDown, NumberDown, TextUp, {}},
    {NumberUp, TextUp, {}, {}},
    {TextUp, TextUp, {}, {}},
    {TextUp, TextUp, {}, {}},
    {TextUp, TextUp, {}, {}},
}};

// One entrant's keys for the order, worked out once before the sort, so that no
// comparison reads the file or rebuilds a text.
struct cEntrantKeys
{
    std::array<double, MaxKeys> numbers{};
    std::array<QString, MaxKeys> texts;
};

cEntrantKeys KeysFor(qint16 order, const cPlayer &player, cGradeBases &bases)
{
    cEntrantKeys keys;
    const auto name = [&] { return player.DisplayName(false); };
    switch (order) {
    case 1: {
        const cGradeBasis &basis = bases.Of(player);
        keys.numbers[0] = NumericValue(player.Grade(basis));
        keys.texts[1] = player.GradeLett(basis);
        keys.texts[2] = name();
        break;
    }
    case 2:
        keys.texts[0] = name();
        break;
    case 3:
        keys.numbers[0] = NumericValue(player.PlayerId());
        break;
    case 4:
        keys.numbers[0] = NumericValue(player.Pin());
        break;
    case 5: {
        const cGradeBasis &basis = bases.Of(player);
        keys.numbers[0] = NumericValue(player.Score());
        keys.numbers[1] = NumericValue(player.Grade(basis));
        keys.texts[2] = player.GradeLett(basis);
        keys.numbers[3] = TitleRank(player.GMTitle());
        break;
    }
    case 6:
        keys.numbers[0] = NumericValue(player.Score());
        keys.numbers[1] = NumericValue(player.TieBreak());
        keys.texts[2] = name();
        break;
    case 7:
        // The age as shown: above the highest shown age every entrant counts as
        // exactly that age.
        keys.numbers[0] = NumericValue(player.Age());
        keys.texts[1] = name();
        break;
    case 8:
        keys.texts[0] = player.ClubName();
        keys.texts[1] = name();
        break;
    case 9:
        keys.texts[0] = player.Club();
        keys.texts[1] = name();
        break;
    case 10:
        keys.texts[0] = player.School();
        keys.texts[1] = name();
        break;
    default:
        break;
    }
    return keys;
}

// True when the entrant at j is to go before the one at i. Keys are looked at in
// turn; the next only when the two are equal; all equal leaves the pair.
bool GoesFirst(const cOrderKeys &orderKeys, const cEntrantKeys &j, const cEntrantKeys &i)
{
    for (int key = 0; key < MaxKeys; ++key) {
        switch (orderKeys[size_t(key)].kind) {
        case KeyKind::None:
            return false;
        case KeyKind::Number: {
            const double jValue = j.numbers[size_t(key)];
            const double iValue = i.numbers[size_t(key)];
            if (jValue == iValue)
                continue;
            return orderKeys[size_t(key)].descending ? jValue > iValue : iValue > jValue;
        }
        case KeyKind::Text: {
            const int compared =
                QString::compare(j.texts[size_t(key)], i.texts[size_t(key)], Qt::CaseSensitive);
            if (compared == 0)
                continue;
            return orderKeys[size_t(key)].descending ? compared > 0 : compared < 0;
        }
        }
    }
    return false;
}

} // namespace

void LoadPlayerArray(const cPlayers &players, cPlayerArray &playerArray)
{
    playerArray.assign(players.begin(), players.end());
}

void IndexPlayerArray(const cPlayers &players, const cPlayerArray &playerArray, cIdMap &idMap)
{
    // Slots 1 to the next free id; slot 0 is never an id.
    idMap.assign(size_t(WholeValue(players.NextPlayerId())) + 1, 0);
    for (size_t position = 0; position < playerArray.size(); ++position) {
        const qint64 id = WholeValue(playerArray[position]->PlayerId());
        if (id < 0)
            continue;
        // An entrant not yet written has an id beyond what the file knows.
        if (size_t(id) >= idMap.size())
            idMap.resize(size_t(id) + 1, 0);
        idMap[size_t(id)] = qint32(position + 1);
    }
}

void SortPlayerArray(qint16 order, cPlayerArray &playerArray)
{
    const qint32 count = qint32(playerArray.size());
    const bool known = order >= 1 && order <= qint16(Orders.size());
    std::vector<cEntrantKeys> keys;
    if (known) {
        cGradeBases bases;
        keys.reserve(playerArray.size());
        for (const std::shared_ptr<cPlayer> &player : playerArray)
            keys.push_back(KeysFor(order, *player, bases));
    }

    cProgressWindow progressWindow(QStringLiteral("Sorting players for:"), count);
    for (qint32 i = 0; i < count; ++i) {
        progressWindow.Update(i + 1);
        if (!known)
            continue;
        const cOrderKeys &orderKeys = Orders[size_t(order - 1)];
        for (qint32 j = i + 1; j < count; ++j) {
            if (GoesFirst(orderKeys, keys[size_t(j)], keys[size_t(i)])) {
                SwapPlayers(playerArray[size_t(i)], playerArray[size_t(j)]);
                std::swap(keys[size_t(i)], keys[size_t(j)]);
            }
        }
    }
}

void SwapPlayers(std::shared_ptr<cPlayer> &first, std::shared_ptr<cPlayer> &second)
{
    first.swap(second);
}

qint32 TitleRank(const QString &gmTitle)
{
    static const QString Ranks = QStringLiteral("#GM #WGM#IM #WIM#FM #WFM#   #");
    return qint32(Ranks.indexOf(PadRight(gmTitle, 3, QStringLiteral(" ")), 0, Qt::CaseSensitive) +
                  1);
}

} // namespace mPlayerArray
