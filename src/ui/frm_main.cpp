#include "ui/frm_main.h"

#include "database/database.h"
#include "database/sql.h"
#include "register/master.h"
#include "session/app_info.h"
#include "session/busy.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/settings_store.h"
#include "session/user_interaction.h"
#include "ui/commands.h"
#include "ui/frm_about.h"
#include "ui/frm_bcf_master.h"
#include "ui/frm_load_bcf_list.h"
#include "ui/frm_load_club_list.h"
#include "ui/frm_master.h"
#include "ui/frm_options.h"

#include <QAction>
#include <QCloseEvent>
#include <QMenuBar>
#include <QStackedWidget>
#include <QToolBar>

namespace {

frmMain *instance = nullptr;

struct PositionKey
{
    const char *key;
    int defaultTwips;
};
const PositionKey LeftKey{"MainLeft", 0};
const PositionKey TopKey{"MainTop", 0};
const PositionKey WidthKey{"MainWidth", 12200};
const PositionKey HeightKey{"MainHeight", 8100};

int ReadPixels(const PositionKey &position)
{
    const QString twips =
        GetSetting(AppInfo::WindowSettingsApplication(), AppInfo::Title(),
                   QString::fromLatin1(position.key), QString::number(position.defaultTwips));
    bool ok = false;
    const int value = twips.toInt(&ok);
    return (ok ? value : position.defaultTwips) / TwipsPerPixel;
}

void WritePixels(const PositionKey &position, int pixels)
{
    SaveSetting(AppInfo::WindowSettingsApplication(), AppInfo::Title(),
                QString::fromLatin1(position.key), QString::number(pixels * TwipsPerPixel));
}

} // namespace

frmMain::frmMain(QWidget *parent) : QMainWindow(parent)
{
    instance = this;
    setObjectName(QStringLiteral("frmMain"));
    setWindowTitle(AppInfo::Title());

    mnuFile = menuBar()->addMenu(tr("&File"));
    mnuFile->setObjectName(QStringLiteral("mnuFile"));
    mnuFileExit = AddCommand(mnuFile, QStringLiteral("mnuFileExit"), tr("E&xit"));

    mnuTools = menuBar()->addMenu(tr("&Tools"));
    mnuTools->setObjectName(QStringLiteral("mnuTools"));
    mnuTBCFMaster = AddCommand(mnuTools, QStringLiteral("mnuTBCFMaster"),
                               tr("Match Players to BCF Master List"));
    mnuFileDB = mnuTools->addMenu(tr("Import"));
    mnuFileDB->setObjectName(QStringLiteral("mnuFileDB"));
    mnuLoadClubList =
        AddCommand(mnuFileDB, QStringLiteral("mnuLoadClubList"), tr("Import new BCF Club List..."));
    mnuLoadBCFMasterList = AddCommand(mnuFileDB, QStringLiteral("mnuLoadBCFMasterList"),
                                      tr("Import new BCF Master List..."));
    // The administration items are on every platform that the program runs on.
    mnuTools->addSeparator()->setObjectName(QStringLiteral("mnuSep1"));
    mnuFileDBAdmin = mnuTools->addMenu(tr("Database administration"));
    mnuFileDBAdmin->setObjectName(QStringLiteral("mnuFileDBAdmin"));
    mnuFileDBTidy = AddCommand(mnuFileDBAdmin, QStringLiteral("mnuFileDBTidy"), tr("&Tidy"));
    mnuFileDBAdmin->addSeparator()->setObjectName(QStringLiteral("mnuFileBar0"));
    mnuFileDBBackup =
        AddCommand(mnuFileDBAdmin, QStringLiteral("mnuFileDBBackup"), tr("&Backup..."));
    mnuFileDBRestore =
        AddCommand(mnuFileDBAdmin, QStringLiteral("mnuFileDBRestore"), tr("&Restore..."));
    mnuTools->addSeparator()->setObjectName(QStringLiteral("mnuViewBar2"));
    mnuVOptions = AddCommand(mnuTools, QStringLiteral("mnuVOptions"), tr("&Options..."));

    mnuView = menuBar()->addMenu(tr("&View"));
    mnuView->setObjectName(QStringLiteral("mnuView"));
    mnuViewPlayers = AddCommand(mnuView, QStringLiteral("mnuViewPlayers"), tr("&Master"));
    mnuViewPlayers->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_M));
    mnuView->addSeparator()->setObjectName(QStringLiteral("mnuViewBar0"));
    mnuViewToolbar = AddCommand(mnuView, QStringLiteral("mnuViewToolbar"), tr("&Button bar"));
    mnuViewToolbar->setCheckable(true);
    mnuViewToolbar->setChecked(true);

    mnuHelp = menuBar()->addMenu(tr("&Help"));
    mnuHelp->setObjectName(QStringLiteral("mnuHelp"));
    mnuHelpAbout = AddCommand(mnuHelp, QStringLiteral("mnuHelpAbout"), tr("&About Velmora!..."));

    Toolbar = addToolBar(tr("Button bar"));
    Toolbar->setObjectName(QStringLiteral("Toolbar"));
    Toolbar->setMovable(false);
    // The button bar is shown and hidden by its menu item alone, so its tick stays true.
    Toolbar->toggleViewAction()->setEnabled(false);
    setContextMenuPolicy(Qt::NoContextMenu);
    Toolbar->setToolButtonStyle(Qt::ToolButtonTextOnly);
    tbrPlayers = Toolbar->addAction(tr("Master"));
    tbrPlayers->setObjectName(QStringLiteral("Players"));
    tbrPlayers->setCheckable(true);

    views_ = new QStackedWidget(this);
    masterView_ = new frmMaster(views_);
    views_->addWidget(masterView_);
    setCentralWidget(views_);

    connect(mnuFileExit, &QAction::triggered, this, &QWidget::close);
    connect(mnuLoadClubList, &QAction::triggered, this, &frmMain::mnuLoadClubList_Click);
    connect(mnuLoadBCFMasterList, &QAction::triggered, this, &frmMain::mnuLoadBCFMasterList_Click);
    connect(mnuTBCFMaster, &QAction::triggered, this, &frmMain::mnuTBCFMaster_Click);
    connect(mnuFileDBTidy, &QAction::triggered, this, &frmMain::mnuFileDBTidy_Click);
    connect(mnuFileDBBackup, &QAction::triggered, this, &frmMain::mnuFileDBBackup_Click);
    connect(mnuFileDBRestore, &QAction::triggered, this, &frmMain::mnuFileDBRestore_Click);
    connect(mnuVOptions, &QAction::triggered, this, &frmMain::mnuVOptions_Click);
    connect(mnuViewPlayers, &QAction::triggered, this, &frmMain::ShowMasterView);
    connect(tbrPlayers, &QAction::triggered, this, &frmMain::ShowMasterView);
    connect(mnuViewToolbar, &QAction::triggered, this, &frmMain::mnuViewToolbar_Click);
    connect(mnuHelpAbout, &QAction::triggered, this, &frmMain::mnuHelpAbout_Click);

    RestorePosition();
    ShowMasterView();
}

frmMain::~frmMain()
{
    if (instance == this)
        instance = nullptr;
}

frmMain *frmMain::Instance()
{
    return instance;
}

QAction *frmMain::AddCommand(QMenu *menu, const QString &name, const QString &caption)
{
    QAction *action = menu->addAction(caption);
    action->setObjectName(name);
    return action;
}

QAction *frmMain::Command(const QString &name) const
{
    if (auto *action = findChild<QAction *>(name))
        return action;
    if (auto *menu = findChild<QMenu *>(name))
        return menu->menuAction();
    return nullptr;
}

void frmMain::RestorePosition()
{
    move(ReadPixels(LeftKey), ReadPixels(TopKey));
    resize(ReadPixels(WidthKey), ReadPixels(HeightKey));
}

void frmMain::SavePosition()
{
    WritePixels(LeftKey, x());
    WritePixels(TopKey, y());
    WritePixels(WidthKey, width());
    WritePixels(HeightKey, height());
}

void frmMain::closeEvent(QCloseEvent *event)
{
    cBusySection busy;
    // A maximised or minimised window keeps the position of its last normal close.
    if (!isMaximized() && !isMinimized() && !isFullScreen())
        SavePosition();
    QMainWindow::closeEvent(event);
}

void frmMain::ShowMasterView()
{
    tbrPlayers->setChecked(true);
    views_->setCurrentWidget(masterView_);
    masterView_->Reload(Control().Master() ? Control().Master()->MasterId() : QString());
}

void frmMain::mnuLoadClubList_Click()
{
    frmLoadClubList dialog(this);
    dialog.exec();
    cBusySection busy;
    // The load clears the old list and reads the new one as one unit of work, so a
    // file that fails keeps the clubs that were there.
    if (!dialog.Cancelled && Database().LoadClubTable(dialog.FileName()))
        ReportListLoaded(QStringLiteral("Club"), tr("clubs"));
    SetMainCommands();
}

void frmMain::mnuLoadBCFMasterList_Click()
{
    frmLoadBCFList dialog(this);
    dialog.exec();
    cBusySection busy;
    if (!dialog.Cancelled && Database().LoadBCFMastList(dialog.FileName()))
        ReportListLoaded(QStringLiteral("BCFMast"), tr("players"));
    // Matching to the list is offered only when a list is loaded.
    if (tbrPlayers->isChecked())
        ShowMasterView();
    else
        SetMainCommands();
}

void frmMain::ReportListLoaded(const QString &table, const QString &what)
{
    const qint64 rows = SqlScalar(QStringLiteral("SELECT COUNT(*) FROM ") + table).toLongLong();
    Interaction().ShowMessage(tr("%1 %2 loaded.").arg(rows).arg(what), MessageIcon::Information,
                              AppInfo::Title());
}

void frmMain::mnuTBCFMaster_Click()
{
    MatchWalk(this);
    if (tbrPlayers->isChecked())
        ShowMasterView();
}

void frmMain::mnuFileDBTidy_Click()
{
    Database().TidyDb();
}

void frmMain::mnuFileDBBackup_Click()
{
    Database().BackupDB();
}

void frmMain::mnuFileDBRestore_Click()
{
    if (!Database().RestoreDb())
        return;
    cBusySection busy;
    // The restore has reopened and upgraded the file now in place; its settings and
    // records are what the screen shows, and an open tournament may not exist in it.
    Control().Load(QStringLiteral("All"));
    Control().setTournament(nullptr);
    ShowMasterView();
}

void frmMain::mnuVOptions_Click()
{
    frmOptions options(this);
    options.exec();
    // The master view shows the captions of the user-defined flags, so it is shown
    // afresh after the settings may have changed them.
    if (tbrPlayers->isChecked())
        ShowMasterView();
}

void frmMain::mnuViewToolbar_Click()
{
    Toolbar->setVisible(mnuViewToolbar->isChecked());
}

void frmMain::mnuHelpAbout_Click()
{
    frmAbout about(this);
    about.exec();
}
