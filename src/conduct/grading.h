#pragma once

#include <QString>

class cPlayer;
struct cGradeBasis;

// The grade a player's games are graded with, as a whole number; a side with no
// player counts as ungraded. A mixed tournament shows no grade, but its games are
// graded as a standard tournament's would be, so that recalculation never meets an
// empty grade in a played game.
qint16 ArithmeticGrade(const cPlayer *player, const cGradeBasis &basis);

// The grading points of one side of a game with the result code: the opponent's grade
// held within 40 points of the player's own, on both sides, then 50 more for a win or
// 50 less for a loss; 0 for a "Z" game. A grade of 0 stands for the default grade.
qint16 GradePoints(const QString &code, bool white, qint16 ownGrade, qint16 opponentGrade,
                   qint16 defGrade);
