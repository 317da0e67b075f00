#include "reports/export_selection.h"

#include "database/sql.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/players.h"
#include "session/tournament.h"

qint64 PlayersInSelection(PlayerSelection selection)
{
    switch (selection) {
    case PlayerSelection::Tournament: {
        const auto tournament = Control().Tournament();
        return tournament ? tournament->Players().Count() : 0;
    }
    case PlayerSelection::User1:
        return SqlScalar(QStringLiteral("Select Count(*) From Master Where Special1 = 'Y'"))
            .toLongLong();
    case PlayerSelection::User2:
        return SqlScalar(QStringLiteral("Select Count(*) From Master Where Special2 = 'Y'"))
            .toLongLong();
    case PlayerSelection::User3:
        return SqlScalar(QStringLiteral("Select Count(*) From Master Where Special3 = 'Y'"))
            .toLongLong();
    case PlayerSelection::User4:
        return SqlScalar(QStringLiteral("Select Count(*) From Master Where Special4 = 'Y'"))
            .toLongLong();
    case PlayerSelection::All:
        break;
    }
    return SqlScalar(QStringLiteral("Select Count(*) From Master")).toLongLong();
}
