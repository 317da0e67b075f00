#include "conduct/pins.h"

#include "base/common.h"
#include "conduct/player_array.h"
#include "database/sql.h"
#include "session/player.h"
#include "session/players.h"

#include <chrono>
#include <cmath>
#include <random>

namespace {

const QString LineEnd = QStringLiteral("\r\n");

} // namespace

std::vector<qint32> RandomPinSlots(qint32 count, const std::function<double()> &uniform)
{
    std::vector<qint32> pinSlots(size_t(MaxOf(count, qint32(0))), 0);
    for (qint32 pin = 1; pin <= count; ++pin) {
        qint32 slot = qint32(std::floor(uniform() * count)) + 1;
        // Linear probing makes the draw a little less than uniform; that is how pins
        // have always been drawn.
        while (pinSlots[size_t(slot - 1)] != 0)
            slot = slot == count ? 1 : slot + 1;
        pinSlots[size_t(slot - 1)] = pin;
    }
    return pinSlots;
}

bool cPlayers::ValidPin(const QString &pin) const
{
    const QString wanted = pin.trimmed();
    for (const std::shared_ptr<cPlayer> &player : entries_)
        if (player->Pin() == wanted)
            return true;
    return false;
}

void cPlayers::PinsClear()
{
    for (const std::shared_ptr<cPlayer> &player : entries_)
        player->setPin(QString());
    // One prepared statement writes the whole field as one unit of work.
    cPlayer::UpdateEach(entries_);
}

void cPlayers::PinsInOrder(qint16 order)
{
    mPlayerArray::LoadPlayerArray(*this, playerArray_);
    mPlayerArray::SortPlayerArray(order, playerArray_);
    mPlayerArray::IndexPlayerArray(*this, playerArray_, idMap_);
    for (size_t position = 0; position < playerArray_.size(); ++position)
        playerArray_[position]->setPin(QString::number(position + 1));
    cPlayer::UpdateEach(playerArray_);
}

void cPlayers::PinsByGrade()
{
    PinsInOrder(1);
}

void cPlayers::PinsByName()
{
    PinsInOrder(2);
}

void cPlayers::PinsByOrder()
{
    PinsInOrder(3);
}

void cPlayers::PinsByRandom()
{
    // A fresh seed from the clock on every call: no draw is meant to be repeatable.
    std::mt19937 generator(
        std::uint_fast32_t(std::chrono::system_clock::now().time_since_epoch().count()));
    std::uniform_real_distribution<double> draw(0.0, 1.0);
    const std::vector<qint32> pinSlots = RandomPinSlots(Count(), [&] {
        // The distribution can round up to its upper end; a draw stays below 1.
        double value = draw(generator);
        while (value >= 1.0)
            value = draw(generator);
        return value;
    });
    for (size_t position = 0; position < entries_.size(); ++position)
        entries_[position]->setPin(QString::number(pinSlots[position]));
    cPlayer::UpdateEach(entries_);
}

QString cPlayers::PinsValidate()
{
    mPlayerArray::LoadPlayerArray(*this, playerArray_);
    mPlayerArray::SortPlayerArray(4, playerArray_);
    mPlayerArray::IndexPlayerArray(*this, playerArray_, idMap_);
    QString report;
    qint64 previous = 0;
    QString previousName;
    for (const std::shared_ptr<cPlayer> &player : playerArray_) {
        const qint64 pin = WholeValue(player->Pin());
        const QString name = player->DisplayName(false);
        if (pin == 0) {
            // A withdrawn entrant needs no pin; one with a pin counts like any other.
            if (!player->Withdrawn())
                report += QStringLiteral("No Pin number for ") + name + u'.' + LineEnd;
        } else {
            if (pin == previous)
                report += QStringLiteral("Pin: ") + player->Pin() + QStringLiteral(" Shared by ") +
                          previousName + QStringLiteral(" and ") + name + u'.' + LineEnd;
            // A shared pin is neither of the next two cases, so it is followed by a gap
            // line whose upper end lies below its lower one; organisers know that line.
            if (pin == previous + 2) {
                report += QStringLiteral("Pin number ") + QString::number(previous + 1) +
                          QStringLiteral(" not allocated.") + LineEnd;
            } else if (pin != previous + 1) {
                report += QStringLiteral("Pin numbers ") + QString::number(previous + 1) +
                          QStringLiteral(" to ") + QString::number(pin - 1) +
                          QStringLiteral(" not allocated.") + LineEnd;
            }
        }
        previous = pin;
        previousName = name;
    }
    return report;
}
