// A run of the program cut down to one commit, for the crash test to kill at each of
// its writes: it opens the database of a data folder as start-up does, stores one
// change and closes the database as the end of a run does.
//
//   velmora_commit_child round <data folder>        every game of round 1 drawn
//   velmora_commit_child list <data folder> <file>  the grading list replaced
//   velmora_commit_child clubs <data folder> <file> the club list replaced
//   velmora_commit_child import <data folder> <DOS folder>  a new database made from it
#include "database/database.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/players.h"
#include "session/result.h"
#include "session/results.h"
#include "session/tournament.h"
#include "support/scripted_interaction.h"

#include <QCoreApplication>

#include <cstdio>
#include <memory>

namespace {

void DrawEveryGameOfRoundOne()
{
    auto tournament = std::make_shared<cTournament>();
    tournament->Load(QStringLiteral("1"));
    Control().setTournament(tournament);
    tournament->Players().LoadAllPlayers();
    cResults &results = tournament->Results();
    results.LoadAllResults();
    for (const auto &game : results)
        if (game->Round() == u"1" && game->White() && game->Black())
            game->setResult(QStringLiteral("D"));
    results.UpdateResults(1);
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.size() < 3)
        return 2;
    cScriptedInteraction seam;
    CreateSessionObjects();
    Database().setDataDir(arguments[2]);
    bool done = false;
    if (arguments[1] == u"import" && arguments.size() > 3) {
        Database().setSourceDb(arguments[3]);
        done = Database().Create([] { return Database().Copy(Database().SourceDb()); });
        DestroySessionObjects();
        return done ? 0 : 1;
    }
    OpenSessionDatabase();
    if (arguments[1] == u"round") {
        DrawEveryGameOfRoundOne();
        done = true;
    } else if (arguments[1] == u"list" && arguments.size() > 3) {
        done = Database().LoadBCFMastList(arguments[3]);
    } else if (arguments[1] == u"clubs" && arguments.size() > 3) {
        done = Database().LoadClubTable(arguments[3]);
    }
    DestroySessionObjects();
    if (!done)
        std::fputs(qPrintable(seam.Calls().join(u'\n')), stderr);
    return done ? 0 : 1;
}
