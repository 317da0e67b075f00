#pragma once

// The whole run of the program, from the application object to the exit status:
// the start-up sequence, the event loop of the main window and the orderly end.
int RunProgram(int &argc, char **argv);
