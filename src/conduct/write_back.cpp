#include "base/common.h"
#include "base/fatal_fault.h"
#include "database/sql.h"
#include "session/player.h"

// The same statement as Update's, made once for the whole field: preparing it anew for
// each entrant would cost more than everything else a recalculation does.
void cPlayer::UpdateEach(const std::vector<std::shared_ptr<cPlayer>> &players)
{
    if (players.empty())
        return;
    const cFieldValues layout = players.front()->WriteFields();
    QString assignments;
    for (const cFieldValue &field : layout) {
        if (!assignments.isEmpty())
            assignments += QStringLiteral(", ");
        assignments += u'"' + field.field + QStringLiteral("\" = ?");
    }
    cPreparedSql update(QStringLiteral("UPDATE \"Player\" SET ") + assignments +
                        QStringLiteral(" WHERE rowid = (SELECT rowid FROM \"Player\" WHERE "
                                       "TId = ? and PId = ? LIMIT 1)"));
    cTransaction transaction;
    for (const std::shared_ptr<cPlayer> &player : players) {
        QVariantList values;
        values.reserve(layout.size() + 2);
        for (const cFieldValue &field : player->WriteFields())
            values.append(field.value);
        values.append(WholeValue(player->tournId_));
        values.append(WholeValue(player->playerId_));
        if (update.Run(values).numRowsAffected() < 1)
            RaiseFatal(QStringLiteral("Velmora! database"), FaultNumber::Database,
                       QStringLiteral("No current record. (Player)"));
    }
    transaction.Commit();
}
