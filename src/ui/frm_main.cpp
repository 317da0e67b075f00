#include "ui/frm_main.h"

#include "session/app_info.h"
#include "session/busy.h"
#include "session/settings_store.h"
#include "ui/commands.h"
#include "ui/frm_about.h"
#include "ui/frm_options.h"
#include "ui/register_summary.h"

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
    masterView_ = new cRegisterSummary(views_);
    views_->addWidget(masterView_);
    setCentralWidget(views_);

    connect(mnuFileExit, &QAction::triggered, this, &QWidget::close);
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
    masterView_->Refresh();
    SetMainCommands();
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
