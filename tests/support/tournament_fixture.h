#pragma once

#include <QString>
#include <QStringList>

#include <initializer_list>
#include <memory>
#include <string>

class cPlayer;
class cTournament;

// Builds the records that tournament window tests start from, through the record
// classes, in the database of the current test session.

// A new person of the register with a long-play grade ("" for none); gives the id.
QString AddMasterPlayer(const QString &surname, const QString &forename,
                        const QString &grade = QString());
// A new tournament, created and then updated to the rounds given, made the open one
// with empty collections.
std::shared_ptr<cTournament>
OpenNewTournament(const QString &title, const QString &rounds = QStringLiteral("5"),
                  const QString &type = QStringLiteral("BCF Standard"));
// An entrant of the open tournament with no register record.
std::shared_ptr<cPlayer> AddEntrant(const QString &surname, const QString &forename,
                                    const QString &grade = QString(),
                                    const QString &pin = QString());
// A game of the open tournament between two entrants, White winning.
void AddGame(int round, int board, const cPlayer &white, const cPlayer &black);
// A player line of a tournament report file, columns as the file has them, with the
// rounds' "opponent colour result" blocks of eight characters.
std::string TrfPlayerLine(int number, const std::string &name, int rating,
                          std::initializer_list<const char *> rounds);
