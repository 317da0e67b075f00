#pragma once

#include <QMainWindow>

class QAction;
class QMenu;
class QStackedWidget;
class QToolBar;
class frmContact;
class frmMaster;
class frmTournament;

// The frame of the program: the menu, the button bar and the view on screen.
class frmMain : public QMainWindow
{
    Q_OBJECT

public:
    explicit frmMain(QWidget *parent = nullptr);
    ~frmMain() override;

    // The one main window of the run, or none before start-up has made it.
    static frmMain *Instance();

    // A menu item or menu by its control name ("mnuFileExit"), or none.
    QAction *Command(const QString &name) const;

    // Sets the master view on screen and refreshes what depends on it.
    void ShowMasterView();
    // Puts the open tournament's window on view; a fresh window when asked, which is
    // how a tournament that replaced another one starts.
    void ShowTournamentView(bool freshWindow);
    // Puts the register of contacts on view, read afresh.
    void ShowContactView();
    // The contacts' window, or none when it has not been shown.
    frmContact *ContactWindow() const { return contactView_; }
    // The tournament window, or none when no tournament has been shown.
    frmTournament *TournamentWindow() const { return tournamentView_; }

    QMenu *mnuFile;
    QMenu *mnuTools;
    QMenu *mnuView;
    QMenu *mnuHelp;
    QMenu *mnuFileDB;
    QMenu *mnuFileDBAdmin;
    QAction *mnuFileNew;
    QAction *mnuFileOpen;
    QAction *mnuFileCopy;
    QAction *mnuFileDelete;
    QAction *mnuFileExportTRF;
    QAction *mnuFileImportTRF;
    QAction *mnuFileExit;
    QAction *mnuTRemoveAllPlayers;
    QAction *mnuTRefreshGrades;
    QAction *mnuViewTournament;
    QAction *mnuViewContacts;
    QAction *tbrTournament;
    QAction *tbrOpenTournament;
    QAction *mnuPrint;
    QAction *mnuPPrintSetup;
    QAction *mnuTExport;
    QAction *mnuLoadClubList;
    QAction *mnuLoadBCFMasterList;
    QAction *mnuTBCFMaster;
    QAction *mnuFileDBTidy;
    QAction *mnuFileDBBackup;
    QAction *mnuFileDBRestore;
    QAction *mnuVOptions;
    QAction *mnuViewPlayers;
    QAction *mnuViewToolbar;
    QAction *mnuHelpAbout;
    QToolBar *Toolbar;
    QAction *tbrPlayers;

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void RestorePosition();
    void SavePosition();
    QAction *AddCommand(QMenu *menu, const QString &name, const QString &caption);
    void mnuLoadClubList_Click();
    void mnuLoadBCFMasterList_Click();
    void mnuTBCFMaster_Click();
    // Tells how many rows the list now holds.
    void mnuFileDBTidy_Click();
    void mnuFileDBBackup_Click();
    void mnuFileDBRestore_Click();
    void mnuVOptions_Click();
    void mnuViewToolbar_Click();
    void mnuHelpAbout_Click();
    void mnuFileNew_Click();
    void mnuFileOpen_Click();
    void mnuFileCopy_Click();
    void mnuFileDelete_Click();
    // Writes the open tournament as a tournament report file.
    void mnuFileExportTRF_Click();
    // Makes a new tournament of a tournament report file and opens it.
    void mnuFileImportTRF_Click();
    void mnuTRefreshGrades_Click();
    void mnuTRemoveAllPlayers_Click();
    void mnuViewTournament_Click();
    void UnloadTournamentWindow();

    QStackedWidget *views_;
    frmMaster *masterView_;
    frmTournament *tournamentView_ = nullptr;
    frmContact *contactView_ = nullptr;
};
