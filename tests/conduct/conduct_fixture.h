#pragma once

// Builders shared by the tests of the conduct layer: an open tournament of the
// session, entrants written to it and added to its collection in the order they are
// entered, and games added to its collection in memory.

#include "database/sql.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/player.h"
#include "session/players.h"
#include "session/result.h"
#include "session/results.h"
#include "session/tournament.h"

#include <QStringList>

#include <functional>
#include <initializer_list>
#include <memory>

namespace conduct_fixture {

inline std::shared_ptr<cTournament> OpenTournament(const QString &type = QStringLiteral("B"),
                                                   const QString &defGrade = QStringLiteral("100"),
                                                   const QString &rounds = QStringLiteral("9"))
{
    auto tournament = std::make_shared<cTournament>();
    tournament->setTitle(QStringLiteral("Congress"));
    tournament->setTourn(QStringLiteral("Open"));
    tournament->setTType(type);
    tournament->setDefGrade(defGrade);
    tournament->Create();
    tournament->setRounds(rounds);
    tournament->Update();
    Control().setTournament(tournament);
    return tournament;
}

// Writes an entrant of the open tournament and adds it to the collection, so that the
// collection keeps the order of entry.
inline std::shared_ptr<cPlayer> Enter(const QString &surname, const QString &forename,
                                      const std::function<void(cPlayer &)> &details = {})
{
    cTournament &tournament = *Control().Tournament();
    cPlayer player;
    player.setTournId(tournament.TournId());
    player.setSurname(surname);
    player.setForename(forename);
    if (details)
        details(player);
    player.Create();
    return tournament.Players().Load(tournament.TournId(), player.PlayerId());
}

inline std::shared_ptr<cPlayer> Graded(const QString &surname, const QString &grade,
                                       const QString &pin = QString())
{
    return Enter(surname, QString(), [&](cPlayer &player) {
        player.setLongPlay(grade);
        player.setLongPlayLett(QStringLiteral("A"));
        player.setPin(pin);
    });
}

inline std::shared_ptr<cResult> Game(int round, const std::shared_ptr<cPlayer> &white,
                                     const std::shared_ptr<cPlayer> &black, const QString &result,
                                     const QString &board = QString())
{
    return Control().Tournament()->Results().Add(QString::number(round), board, white, black,
                                                 result);
}

// A list of texts written as plain literals.
inline QStringList Texts(std::initializer_list<const char *> texts)
{
    QStringList list;
    for (const char *text : texts)
        list.append(QString::fromUtf8(text));
    return list;
}

inline QStringList PlayerIds(const cPlayerArray &playerArray)
{
    QStringList ids;
    for (const auto &player : playerArray)
        ids.append(player->PlayerId());
    return ids;
}

inline QStringList Surnames(const cPlayerArray &playerArray)
{
    QStringList names;
    for (const auto &player : playerArray)
        names.append(player->Surname());
    return names;
}

} // namespace conduct_fixture
