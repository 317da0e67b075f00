// Opening a tournament: LoadAllPlayers and LoadAllResults for 500 entrants and
// 11 complete rounds, in a fresh database in a folder of its own. Prints the median
// of 10 timings.

#include "bench_environment.h"
#include "database/database.h"
#include "database/sql.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/player.h"
#include "session/players.h"
#include "session/result.h"
#include "session/results.h"
#include "session/tournament.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

constexpr int Entrants = 500;
constexpr int Rounds = 11;
constexpr int Runs = 10;

QString BuildTournament()
{
    auto tournament = std::make_shared<cTournament>();
    tournament->setTitle(QStringLiteral("Bench Congress"));
    tournament->setTourn(QStringLiteral("Open"));
    tournament->setTType(QStringLiteral("B"));
    tournament->setDefGrade(QStringLiteral("100"));
    tournament->Create();
    tournament->setRounds(QString::number(Rounds));
    tournament->Update();
    Control().setTournament(tournament);

    cTransaction transaction;
    for (int index = 1; index <= Entrants; ++index) {
        cPlayer player;
        player.setSurname(QStringLiteral("Surname") + QString::number(index % 97));
        player.setForename(QStringLiteral("Forename") + QString::number(index));
        player.setPin(QString::number(index));
        player.setMasterId(QString::number(index));
        player.setLongPlay(QString::number(100 + index % 120));
        player.setLongPlayLett(QStringLiteral("A"));
        player.setDOB(QStringLiteral("01/01/1990"));
        player.setAge(QStringLiteral("35"));
        player.setClub(QStringLiteral("Club"));
        player.setScore(QStringLiteral("5.5"));
        player.Create();
    }
    transaction.Commit();

    tournament->Players().LoadAllPlayers();
    cResults &results = tournament->Results();
    results.LoadAllResults();
    // Fill each round's rows with pairings of every entrant, then store the round.
    for (int round = 1; round <= Rounds; ++round) {
        int board = 0;
        for (const auto &entry : results) {
            if (entry->Round().toInt() != round)
                continue;
            if (board == Entrants / 2)
                break;
            const int white = (board * 2 + round) % Entrants + 1;
            const int black = (board * 2 + 1 + round) % Entrants + 1;
            entry->setBoard(QString::number(board + 1));
            entry->setWhite(tournament->Players().item(QString::number(white)));
            entry->setBlack(tournament->Players().item(QString::number(black)));
            entry->setResult(QStringLiteral("WDB").mid(board % 3, 1));
            ++board;
        }
        results.UpdateResults(qint16(round));
    }
    return tournament->TournId();
}

} // namespace

int main(int argc, char **argv)
{
    QTemporaryDir root;
    if (!root.isValid()) {
        std::fprintf(stderr, "No temporary folder could be made.\n");
        return 1;
    }
    IsolateEnvironment(root.path());
    QCoreApplication application(argc, argv);

    CreateSessionObjects();
    Database().setDataDir(QDir::toNativeSeparators(root.path() + QStringLiteral("/data")));
    Database().Create();
    Database().OpenDb();
    Control().Load(QStringLiteral("Version"));
    Database().CheckVersion();
    Control().Load(QStringLiteral("All"));

    const QString id = BuildTournament();
    const qint64 games =
        SqlScalar(QStringLiteral("Select count(*) From Result Where TId = ?"), {id.toLongLong()})
            .toLongLong();

    std::vector<double> timings;
    int loaded = 0;
    int rows = 0;
    for (int run = 0; run < Runs; ++run) {
        auto tournament = std::make_shared<cTournament>();
        tournament->Load(id);
        Control().setTournament(tournament);
        QElapsedTimer timer;
        timer.start();
        tournament->Players().LoadAllPlayers();
        tournament->Results().LoadAllResults();
        timings.push_back(double(timer.nsecsElapsed()) / 1e6);
        loaded = tournament->Players().Count();
        rows = tournament->Results().Count();
    }
    const double median = Median(timings);
    std::sort(timings.begin(), timings.end());

    std::printf("open_tournament: %d entrants, %lld stored games in %d rounds, %d rows in memory\n",
                loaded, games, Rounds, rows);
    std::printf("LoadAllPlayers + LoadAllResults: median of %d runs %.2f ms (fastest %.2f, "
                "slowest %.2f); goal 30 ms or less\n",
                Runs, median, timings.front(), timings.back());

    Control().setTournament(nullptr);
    DestroySessionObjects();
    return 0;
}
