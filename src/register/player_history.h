#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

class cMaster;

// One tournament of a person's history: the line of its node, its key ("I" and the
// tournament id, "I0" for the node that says there is none) and the lines below it,
// the final figures first and then one line a game.
struct cHistoryTournament
{
    QString key;
    QString text;
    QStringList lines;
};

// Every tournament the person of the register has entered, newest first, with the
// figures of the last recalculation and each game, White's name first as on a score
// sheet. A person who never played gets the one node "No Tournaments played"; a
// record without an id gets nothing. progress runs once a tournament.
std::vector<cHistoryTournament> PlayerHistory(const cMaster &master,
                                              const std::function<void()> &progress = {});
