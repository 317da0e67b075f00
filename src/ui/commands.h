#pragma once

// Which commands of the main window are available, from whether a tournament is
// open, whether it is locked and whether a grading list is loaded. Items that the
// window does not carry are passed over.
void SetMainCommands();
