#pragma once

#include <QString>

// A fresh database in dataDir, brought up to the present version and read, as the
// program has it after start-up.
void OpenFreshDatabase(const QString &dataDir);

// A tournament of the given size with every round paired and played: graded and
// ungraded entrants, titles, and wins, draws, byes and defaults among the results.
// It is the open tournament afterwards. Returns its id.
QString BuildBenchTournament(int entrants, int rounds);
