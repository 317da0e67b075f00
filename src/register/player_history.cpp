#include "register/player_history.h"

#include "base/fatal_fault.h"
#include "database/sql.h"
#include "register/master.h"
#include "session/player.h"
#include "session/result.h"
#include "session/tournament.h"

namespace {

const QString FiveBlanks = QStringLiteral("     ");

QString FiguresLine(const cPlayer &player)
{
    if (player.Games().toLongLong() <= 0)
        return QStringLiteral("No games played");
    return QStringLiteral("Result: ") + player.DisplayScore() + u'/' + player.Games() +
           QStringLiteral("   Performance Grade: ") + player.PerformanceGrade() +
           QStringLiteral(" (") + player.GPoints() + u'/' + player.Games() + u')';
}

QString OpponentName(const QString &tournId, const QString &playerId)
{
    cPlayer opponent;
    opponent.Load(tournId, playerId, QString());
    return opponent.DisplayName(false);
}

} // namespace

std::vector<cHistoryTournament> PlayerHistory(const cMaster &master,
                                              const std::function<void()> &progress)
{
    std::vector<cHistoryTournament> history;
    if (master.MasterId().isEmpty())
        return history;
    const QString ownName = master.DisplayName(false);
    QSqlQuery tournaments = RunSql(QStringLiteral("SELECT TId FROM Velmora WHERE TId IN "
                                                  "(SELECT TId FROM Player WHERE MasterId = ?) "
                                                  "ORDER BY TDate DESC, TEnd DESC, Title, Tourn"),
                                   {master.MasterId()});
    while (tournaments.next()) {
        cTournament tournament;
        tournament.Load(tournaments.value(0).toString());
        cPlayer player;
        player.Load(tournament.TournId(), QString(), master.MasterId());
        if (progress)
            progress();
        cHistoryTournament node;
        node.key = u'I' + tournament.TournId();
        node.text = tournament.TDate() + QStringLiteral(" - ") + tournament.TEnd() + u' ' +
                    tournament.DisplayName();
        node.lines << FiguresLine(player);
        QSqlQuery games = RunSql(QStringLiteral("SELECT \"Round\", White, Black, \"Result\" "
                                                "FROM Result WHERE TId = ? "
                                                "AND (White = ? OR Black = ?) ORDER BY \"Round\""),
                                 {tournament.TournId(), player.PlayerId(), player.PlayerId()});
        while (games.next()) {
            cResult game;
            game.setResult(TextOf(games.value(3)));
            const QString round = games.value(0).toString();
            const QString white = games.value(1).toString();
            const QString black = games.value(2).toString();
            const QString result = game.DisplayResult();
            QString line = FiveBlanks + round;
            if (white == player.PlayerId()) {
                line += QStringLiteral(": ") + ownName + QStringLiteral("  ") + result;
                line += (black.isEmpty() || black == u'0')
                            ? QStringLiteral("  Bye")
                            : QStringLiteral("  ") + OpponentName(tournament.TournId(), black);
            } else if (black == player.PlayerId()) {
                if (white.isEmpty() || white == u'0')
                    line += QStringLiteral(": Bye  ");
                else
                    line += QStringLiteral(": ") + OpponentName(tournament.TournId(), white) +
                            QStringLiteral("  ");
                line += result + QStringLiteral("  ") + ownName;
            } else {
                RaiseFatal(QStringLiteral("PlayerHistory"), FaultNumber::UnknownKey,
                           QStringLiteral("A game of the history names neither side."));
            }
            node.lines << line;
        }
        history.push_back(std::move(node));
    }
    if (history.empty())
        history.push_back({QStringLiteral("I0"), QStringLiteral("No Tournaments played"), {}});
    return history;
}
