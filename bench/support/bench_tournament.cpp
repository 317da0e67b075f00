#include "bench_tournament.h"

#include "database/database.h"
#include "database/sql.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/player.h"
#include "session/players.h"
#include "session/result.h"
#include "session/results.h"
#include "session/tournament.h"

#include <QDir>
#include <QStringList>

void OpenFreshDatabase(const QString &dataDir)
{
    CreateSessionObjects();
    Database().setDataDir(QDir::toNativeSeparators(dataDir));
    Database().Create();
    OpenSessionDatabase();
}

QString BuildBenchTournament(int entrants, int rounds)
{
    auto tournament = std::make_shared<cTournament>();
    tournament->setTitle(QStringLiteral("Bench Congress"));
    tournament->setTourn(QStringLiteral("Open"));
    tournament->setTType(QStringLiteral("B"));
    tournament->setDefGrade(QStringLiteral("100"));
    tournament->Create();
    tournament->setRounds(QString::number(rounds));
    tournament->Update();
    Control().setTournament(tournament);

    const QStringList titles{
        QString(),           QString(), QString(), QStringLiteral("FM"), QStringLiteral("IM"),
        QStringLiteral("GM")};
    cTransaction transaction;
    for (int index = 1; index <= entrants; ++index) {
        cPlayer player;
        player.setSurname(QStringLiteral("Surname") + QString::number(index % 97));
        player.setForename(QStringLiteral("Forename") + QString::number(index));
        player.setPin(QString::number(index));
        player.setMasterId(QString::number(index));
        // Every seventh entrant is ungraded and plays at the default grade.
        if (index % 7 != 0) {
            player.setLongPlay(QString::number(100 + index % 120));
            player.setLongPlayLett(QStringLiteral("ABCD").mid(index % 4, 1));
        }
        player.setGMTitle(titles[index % titles.size()]);
        player.setDOB(QStringLiteral("01/01/1990"));
        player.setAge(QStringLiteral("35"));
        player.setClub(QStringLiteral("Club"));
        player.Create();
    }
    transaction.Commit();

    tournament->Players().LoadAllPlayers();
    cResults &results = tournament->Results();
    results.LoadAllResults();
    // Fill each round's rows with pairings of every entrant, then store the round.
    for (int round = 1; round <= rounds; ++round) {
        int board = 0;
        for (const auto &entry : results) {
            if (entry->Round().toInt() != round)
                continue;
            if (board == entrants / 2)
                break;
            const int white = (board * 2 + round) % entrants + 1;
            const int black = (board * 2 + 1 + round * 3) % entrants + 1;
            entry->setBoard(QString::number(board + 1));
            entry->setWhite(tournament->Players().item(QString::number(white)));
            entry->setBlack(tournament->Players().item(QString::number(black)));
            entry->setResult(QStringLiteral("WDBWZN").mid(board % 6, 1));
            ++board;
        }
        results.UpdateResults(qint16(round));
    }
    return tournament->TournId();
}
