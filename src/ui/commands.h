#pragma once

// Which commands of the main window are available, from whether a tournament is
// open, whether it is locked and whether a grading list is loaded. Items that the
// window does not carry are passed over.
void SetMainCommands();

// Which commands of the tournament window are available, from whether the tournament
// is locked, whether an entrant is selected and how many there are; then the main
// window's commands.
void SetTournamentCommands();
