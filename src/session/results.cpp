#include "session/results.h"

#include "base/common.h"
#include "base/fatal_fault.h"
#include "database/sql.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/player.h"
#include "session/players.h"
#include "session/record_row.h"
#include "session/result.h"
#include "session/tournament.h"

#include <QHash>
#include <QSqlQuery>

namespace {

const QString Source = QStringLiteral("cResults");

cTournament &OpenTournament()
{
    const std::shared_ptr<cTournament> tournament = Control().Tournament();
    if (!tournament)
        RaiseFatal(Source, FaultNumber::UnknownKey, QStringLiteral("No tournament is open."));
    return *tournament;
}

QVariant SideValue(const std::shared_ptr<cPlayer> &player)
{
    return player ? QVariant(WholeValue(player->PlayerId())) : QVariant(qint64(0));
}

} // namespace

qint16 cResults::CountForRound(qint16 round) const
{
    qint16 count = 0;
    for (const std::shared_ptr<cResult> &entry : entries_)
        if (NumericValue(entry->Round()) == round)
            ++count;
    return count;
}

void cResults::LoadAllResults()
{
    cTournament &tournament = OpenTournament();
    cPlayers &players = tournament.Players();
    QSqlQuery rows = RunSql(QStringLiteral("Select \"Round\", Board, White, Black, \"Result\" "
                                           "From Result Where TId = ? order by \"Round\", Board"),
                            {WholeValue(tournament.TournId())});
    // The games of each round are counted as they come, which gives what
    // CountForRound would give before any spare row is added.
    QHash<double, qint32> gamesOfRound;
    while (rows.next()) {
        const std::shared_ptr<cPlayer> white = players.item(NumberTextOf(rows.value(2)));
        const std::shared_ptr<cPlayer> black = players.item(NumberTextOf(rows.value(3)));
        const auto entry = Add(NumberTextOf(rows.value(0)), NumberTextOf(rows.value(1)), white,
                               black, TextOf(rows.value(4)));
        ++gamesOfRound[NumericValue(entry->Round())];
    }
    const qint64 rounds = WholeValue(tournament.Rounds());
    const qint32 entrants = players.Count();
    for (qint64 round = 1; round <= rounds; ++round) {
        const qint32 spare = MaxOf(qint32(5), entrants / 2 - gamesOfRound.value(double(round)) + 5);
        const QString roundText = QString::number(round);
        for (qint32 row = 0; row < spare; ++row)
            Add(roundText, QString(), nullptr, nullptr, QString());
    }
}

void cResults::UpdateResults(qint16 round)
{
    const QString tournId = OpenTournament().TournId();
    cTransaction transaction;
    RunSql(QStringLiteral("Delete From Result Where TId = ? and \"Round\" = ?"),
           {WholeValue(tournId), round});
    cPreparedSql insert(QStringLiteral("Insert Into Result (TId, \"Round\", Board, White, Black, "
                                       "\"Result\") Values (?, ?, ?, ?, ?, ?)"));
    for (const std::shared_ptr<cResult> &entry : entries_) {
        if (NumericValue(entry->Round()) != round)
            continue;
        if (!entry->White() && !entry->Black())
            continue;
        insert.Run({WholeValue(tournId), WholeOrNull(entry->Round()), WholeOrNull(entry->Board()),
                    SideValue(entry->White()), SideValue(entry->Black()),
                    TextOrEmpty(entry->Result())});
    }
    transaction.Commit();
}

std::shared_ptr<cResult> cResults::Add(const QString &round, const QString &board,
                                       std::shared_ptr<cPlayer> white,
                                       std::shared_ptr<cPlayer> black, const QString &result,
                                       const QString &key)
{
    Q_UNUSED(key);
    auto entry = std::make_shared<cResult>();
    entry->setRound(round);
    entry->setBoard(board);
    entry->setWhite(std::move(white));
    entry->setBlack(std::move(black));
    entry->setResult(result);
    entries_.push_back(entry);
    return entry;
}

std::shared_ptr<cResult> cResults::item(qint32 position) const
{
    if (position < 1 || position > Count())
        RaiseFatal(Source, FaultNumber::UnknownKey,
                   QStringLiteral("There is no game at position ") + QString::number(position) +
                       u'.');
    return entries_[size_t(position - 1)];
}

void cResults::Remove(qint32 position)
{
    item(position);
    entries_.erase(entries_.begin() + (position - 1));
}
