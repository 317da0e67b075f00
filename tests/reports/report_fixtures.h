#pragma once

// Fixture tournaments of the report tests, built in the test session's database
// and opened as the windows open one: entrants, then games.

#include "database/sql.h"
#include "register/master.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/player.h"
#include "session/players.h"
#include "session/results.h"
#include "session/tournament.h"

#include <QList>
#include <QString>

#include <memory>

using namespace Qt::Literals::StringLiterals;

struct cFixtureEntrant
{
    QString pin, surname, forename, longPlay, longPlayLett, rapidPlay, rapidPlayLett, club, school,
        bcfCode;
    bool withdrawn = false;
};

struct cFixtureGame
{
    int round = 0, board = 0, white = 0, black = 0;
    QString result;
};

#include "congress_fixture.inc"

struct cFixtureTournament
{
    QString title = u"Spring Congress"_s;
    QString tourn = u"Open"_s;
    QString tDate = u"12/04/2025"_s;
    QString tEnd;
    QString rounds = u"9"_s;
    QString tText1 = u"Arbiter: R. Hall"_s;
    QString tText3 = u"Sponsored by the Bath & Wells Trust"_s;
};

// A register record for the entrant, as the player list and the cards read it.
inline QString FixtureMaster(const cFixtureEntrant &entrant)
{
    cMaster master;
    master.setSurname(entrant.surname);
    master.setForename(entrant.forename);
    master.setAddress1(entrant.pin + u" Chess Street"_s);
    master.setAddress2(u"Bristol"_s);
    master.setPostcode(u"BS1 "_s + entrant.pin.right(1) + u"AA"_s);
    master.setPhone(u"0117 496 "_s + entrant.pin.rightJustified(4, u'0'));
    master.seteMail(entrant.surname.toLower().left(8) + u"@example.org"_s);
    master.setSpecial1(
        entrant.surname == u"Ashworth"_s || entrant.surname == u"Dempsey"_s ? u"Y"_s : QString());
    master.setSpecial2(entrant.surname == u"Dempsey"_s ? u"Y"_s : QString());
    master.Create();
    return master.MasterId();
}

// Creates the tournament, its entrants (player ids 1, 2, ... in the order given) and
// its games, then opens it. Entrants named in withMasters get a register record.
inline std::shared_ptr<cTournament> OpenFixture(const cFixtureTournament &details,
                                                const QList<cFixtureEntrant> &entrants,
                                                const QList<cFixtureGame> &games,
                                                bool withMasters = false)
{
    auto tournament = std::make_shared<cTournament>();
    tournament->setTitle(details.title);
    tournament->setTourn(details.tourn);
    tournament->setTDate(details.tDate);
    tournament->setTEnd(details.tEnd);
    tournament->setTType(u"B"_s);
    tournament->setDefGrade(u"100"_s);
    tournament->setTText1(details.tText1);
    tournament->setTText3(details.tText3);
    tournament->Create();
    tournament->setRounds(details.rounds);
    tournament->Update();
    Control().setTournament(tournament);
    {
        cTransaction transaction;
        for (const cFixtureEntrant &entrant : entrants) {
            cPlayer player;
            if (withMasters && entrant.surname != u"Lee"_s)
                player.setMasterId(FixtureMaster(entrant));
            player.setPin(entrant.pin);
            player.setSurname(entrant.surname);
            player.setForename(entrant.forename);
            player.setLongPlay(entrant.longPlay);
            player.setLongPlayLett(entrant.longPlayLett);
            player.setRapidPlay(entrant.rapidPlay);
            player.setRapidPlayLett(entrant.rapidPlayLett);
            player.setClub(entrant.club);
            player.setSchool(entrant.school);
            player.setBCFCode(entrant.bcfCode);
            player.setWithdrawn(entrant.withdrawn);
            player.Create();
        }
        const qint64 id = tournament->TournId().toLongLong();
        for (const cFixtureGame &game : games)
            RunSql(u"Insert Into Result (TId, \"Round\", Board, White, Black, \"Result\") "
                   "Values (?, ?, ?, ?, ?, ?)"_s,
                   {id, game.round, game.board, game.white, game.black,
                    game.result.isEmpty() ? QVariant(QMetaType(QMetaType::QString))
                                          : QVariant(game.result)});
        transaction.Commit();
    }
    // Opened afresh, as the tournament window opens it.
    auto opened = std::make_shared<cTournament>();
    opened->Load(tournament->TournId());
    Control().setTournament(opened);
    opened->Players().LoadAllPlayers();
    opened->Results().LoadAllResults();
    return opened;
}

inline std::shared_ptr<cTournament> OpenCongress(bool withMasters = false)
{
    return OpenFixture(cFixtureTournament{}, CongressEntrants, CongressGames, withMasters);
}

// count entrants named Player01, Player02, ... with pins 1, 2, ... and grades falling
// from 200, none of them with a game.
inline QList<cFixtureEntrant> NumberedEntrants(int count)
{
    QList<cFixtureEntrant> entrants;
    for (int index = 1; index <= count; ++index)
        entrants.append({QString::number(index),
                         u"Player"_s + QString::number(index).rightJustified(2, u'0'), u"Sam"_s,
                         QString::number(200 - index), u"A"_s, QString(), QString(), u"Club"_s,
                         QString(), QString(), false});
    return entrants;
}
