#pragma once

class QMainWindow;

// The main window whose menu items and title the routines below set. The frame names
// itself here when it is made and takes its name back when it goes, so the windows
// inside it can refresh its commands without knowing the frame.
void setMainCommandsWindow(QMainWindow *window);
QMainWindow *MainCommandsWindow();

// Which commands of the main window are available, from whether a tournament is
// open, whether it is locked and whether a grading list is loaded; then the title,
// which names the open tournament. Items that the window does not carry are passed
// over.
void SetMainCommands();
