#pragma once

#include <QMainWindow>

class QAction;
class QMenu;
class QStackedWidget;
class QToolBar;
class frmMaster;

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

    QMenu *mnuFile;
    QMenu *mnuTools;
    QMenu *mnuView;
    QMenu *mnuHelp;
    QMenu *mnuFileDB;
    QMenu *mnuFileDBAdmin;
    QAction *mnuFileExit;
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
    void ReportListLoaded(const QString &table, const QString &what);
    void mnuFileDBTidy_Click();
    void mnuFileDBBackup_Click();
    void mnuFileDBRestore_Click();
    void mnuVOptions_Click();
    void mnuViewToolbar_Click();
    void mnuHelpAbout_Click();

    QStackedWidget *views_;
    frmMaster *masterView_;
};

// The window position is kept in twips, a twentieth of a point; the screen counts
// fifteen of them to a pixel.
inline constexpr int TwipsPerPixel = 15;
