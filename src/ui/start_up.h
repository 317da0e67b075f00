#pragma once

#include <QLockFile>
#include <QString>

#include <memory>

class frmMain;
class frmSplash;

// The start-up sequence of the program: splash window, the single-copy test, the
// database found or made, upgraded and read, and the main window on screen.
class cStartUp
{
public:
    cStartUp();
    ~cStartUp();

    // Runs the sequence. True when the main window is up and the event loop is to
    // run; false when the program is to end, with ExitCode telling how.
    bool Main();
    int ExitCode() const { return exitCode_; }
    frmMain *MainWindow() const { return mainWindow_.get(); }

private:
    bool RunSequence();
    bool IsAnotherCopyRunning();
    // Makes the database and fills it from the DOS folder chosen or from the base copy
    // of the club list. A fill that fails leaves no database file behind.
    bool CreateDatabase();
    // Says what an import brought ("1,200 players, 12 tournaments and 600 clubs
    // loaded") and what it met but took anyway.
    void TellWhatWasImported();

    std::unique_ptr<frmSplash> splash_;
    std::unique_ptr<frmMain> mainWindow_;
    std::unique_ptr<QLockFile> singleCopyLock_;
    int exitCode_ = 0;
};

// The failure handler's message: title and version, the program's folder, and the
// fault's source, number and description.
QString FailureMessage(const QString &source, int number, const QString &description);
// Shows the failure message as a critical message box.
void ShowFailure(const QString &source, int number, const QString &description);
