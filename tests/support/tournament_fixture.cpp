#include "support/tournament_fixture.h"

#include "base/common.h"
#include "database/sql.h"
#include "register/master.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/player.h"
#include "session/players.h"
#include "session/tournament.h"

QString AddMasterPlayer(const QString &surname, const QString &forename, const QString &grade)
{
    cMaster master;
    master.setSurname(surname);
    master.setForename(forename);
    master.setLongPlay(grade);
    master.Create();
    return master.MasterId();
}

std::shared_ptr<cTournament> OpenNewTournament(const QString &title, const QString &rounds,
                                               const QString &type)
{
    auto tournament = std::make_shared<cTournament>();
    tournament->setTitle(title);
    tournament->setTTypeLiteral(type);
    tournament->Create();
    tournament->setRounds(rounds);
    tournament->Update();
    Control().setTournament(tournament);
    return tournament;
}

std::shared_ptr<cPlayer> AddEntrant(const QString &surname, const QString &forename,
                                    const QString &grade, const QString &pin)
{
    auto tournament = Control().Tournament();
    cPlayer player;
    player.setTournId(tournament->TournId());
    player.setSurname(surname);
    player.setForename(forename);
    player.setLongPlay(grade);
    player.setPin(pin);
    player.Create();
    return tournament->Players().Load(tournament->TournId(), player.PlayerId());
}

void AddGame(int round, int board, const cPlayer &white, const cPlayer &black)
{
    RunSql(QStringLiteral("INSERT INTO Result (TId, Round, Board, White, Black, Result) "
                          "VALUES (?, ?, ?, ?, ?, 'W')"),
           {WholeValue(Control().Tournament()->TournId()), round, board,
            WholeValue(white.PlayerId()), WholeValue(black.PlayerId())});
}

std::string TrfPlayerLine(int number, const std::string &name, int rating,
                          std::initializer_list<const char *> rounds)
{
    auto padded = [](const std::string &text, size_t width, bool right) {
        const std::string pad(width > text.size() ? width - text.size() : 0, ' ');
        return right ? pad + text : text + pad;
    };
    // Number, sex and title, name, rating, federation, id, birth date, points, rank.
    std::string line =
        "001 " + padded(std::to_string(number), 4, true) + "      " + padded(name, 33, false) +
        " " + padded(rating ? std::to_string(rating) : std::string(), 4, true) + " " +
        std::string(3 + 1 + 11 + 1 + 10 + 1, ' ') + " 0.0" + " " + std::string(4, ' ');
    for (const char *round : rounds)
        line += std::string("  ") + round;
    return line + "\n";
}
