#include "session/players.h"

#include "base/common.h"
#include "base/fatal_fault.h"
#include "database/sql.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/player.h"
#include "session/tournament.h"

#include <QSqlQuery>
#include <QSqlRecord>

#include <algorithm>

namespace {

const QString Source = QStringLiteral("cPlayers");

QString OpenTournamentId()
{
    const std::shared_ptr<cTournament> tournament = Control().Tournament();
    if (!tournament)
        RaiseFatal(Source, FaultNumber::UnknownKey, QStringLiteral("No tournament is open."));
    return tournament->TournId();
}

QString NextOf(const QString &statement)
{
    const QVariant maximum = SqlScalar(statement, {WholeValue(OpenTournamentId())});
    if (maximum.isNull())
        return QStringLiteral("1");
    return QString::number(maximum.toLongLong() + 1);
}

} // namespace

QString cPlayers::NextPlayerId() const
{
    return cPlayer::NextPlayerId(OpenTournamentId());
}

QString cPlayers::NextPin() const
{
    return NextOf(QStringLiteral("Select Max(Pin) From Player where TId = ?"));
}

bool cPlayers::ValidAddPlayer(const QString &masterId) const
{
    return std::none_of(entries_.begin(), entries_.end(),
                        [&](const auto &player) { return player->MasterId() == masterId; });
}

void cPlayers::LoadAllPlayers()
{
    // One pass over the rows of the tournament reads exactly what a query per
    // entrant would, in the same order.
    QSqlQuery rows =
        RunSql(QStringLiteral("Select * From Player Where TId = ? Order by Pin, Surname, Forename"),
               {WholeValue(OpenTournamentId())});
    const cPlayerColumns columns(rows.record());
    while (rows.next()) {
        auto player = std::make_shared<cPlayer>();
        player->LoadFromRow(rows, columns);
        Add(player->PlayerId(), player);
    }
}

std::shared_ptr<cPlayer> cPlayers::Load(const QString &tournId, const QString &playerId)
{
    auto player = std::make_shared<cPlayer>();
    player->Load(tournId, playerId, QString());
    Add(playerId.trimmed(), player);
    return player;
}

std::shared_ptr<cPlayer> cPlayers::item(const QString &key) const
{
    if (key.isEmpty() || key == u'0')
        return nullptr;
    const auto found = byKey_.constFind(key);
    if (found == byKey_.constEnd())
        RaiseFatal(Source, FaultNumber::UnknownKey,
                   QStringLiteral("There is no entrant under the key \"") + key +
                       QStringLiteral("\"."));
    return found.value();
}

std::shared_ptr<cPlayer> cPlayers::item(qint32 position) const
{
    if (position < 1 || position > Count())
        RaiseFatal(Source, FaultNumber::UnknownKey,
                   QStringLiteral("There is no entrant at position ") + QString::number(position) +
                       u'.');
    return entries_[size_t(position - 1)];
}

void cPlayers::Remove(const QString &key)
{
    const std::shared_ptr<cPlayer> player = item(key);
    if (!player)
        RaiseFatal(Source, FaultNumber::UnknownKey,
                   QStringLiteral("There is no entrant under the key \"") + key +
                       QStringLiteral("\"."));
    const auto found = std::find(entries_.begin(), entries_.end(), player);
    RemoveAt(found - entries_.begin());
}

void cPlayers::Remove(qint32 position)
{
    item(position);
    RemoveAt(position - 1);
}

void cPlayers::Add(const QString &key, std::shared_ptr<cPlayer> player)
{
    if (byKey_.contains(key))
        RaiseFatal(Source, FaultNumber::UnknownKey,
                   QStringLiteral("An entrant is already under the key \"") + key +
                       QStringLiteral("\"."));
    byKey_.insert(key, player);
    entries_.push_back(std::move(player));
}

void cPlayers::RemoveAt(qsizetype index)
{
    const std::shared_ptr<cPlayer> player = entries_[size_t(index)];
    entries_.erase(entries_.begin() + index);
    byKey_.remove(byKey_.key(player));
    player->Delete();
}
