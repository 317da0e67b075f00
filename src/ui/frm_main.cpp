#include "ui/frm_main.h"

#include "base/app_info.h"
#include "base/busy.h"
#include "base/common.h"
#include "base/settings_store.h"
#include "base/user_interaction.h"
#include "conduct/trf_tournament.h"
#include "database/database.h"
#include "database/sql.h"
#include "register/contact.h"
#include "register/master.h"
#include "reports/print_cntrl.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/player.h"
#include "session/players.h"
#include "session/tournament.h"
#include "ui/cntl_data_list.h"
#include "ui/cntl_tournament.h"
#include "ui/file_locations.h"
#include "ui/frm_about.h"
#include "ui/frm_bcf_master.h"
#include "ui/frm_contact.h"
#include "ui/frm_export.h"
#include "ui/frm_load_bcf_list.h"
#include "ui/frm_load_club_list.h"
#include "ui/frm_master.h"
#include "ui/frm_options.h"
#include "ui/frm_print.h"
#include "ui/frm_tournament.h"
#include "ui/frm_tournament_details.h"
#include "ui/frm_tournament_open.h"
#include "ui/main_commands.h"
#include "ui/twips.h"
#include "ui/whole_file_writer.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QFile>
#include <QMenuBar>
#include <QStackedWidget>
#include <QToolBar>

namespace {

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
    setMainCommandsWindow(this);
    setObjectName(QStringLiteral("frmMain"));
    setWindowTitle(AppInfo::Title());

    mnuFile = menuBar()->addMenu(tr("&File"));
    mnuFile->setObjectName(QStringLiteral("mnuFile"));
    mnuFileNew = AddCommand(mnuFile, QStringLiteral("mnuFileNew"), tr("&New Tournament..."));
    mnuFileNew->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_N));
    mnuFileOpen = AddCommand(mnuFile, QStringLiteral("mnuFileOpen"), tr("&Open Tournament..."));
    mnuFileOpen->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_O));
    mnuFileCopy = AddCommand(mnuFile, QStringLiteral("mnuFileCopy"), tr("&Copy Tournament..."));
    mnuFileDelete =
        AddCommand(mnuFile, QStringLiteral("mnuFileDelete"), tr("&Delete Tournament..."));
    mnuFileExportTRF =
        AddCommand(mnuFile, QStringLiteral("mnuFileExportTRF"), tr("&Export TRF..."));
    mnuFileImportTRF =
        AddCommand(mnuFile, QStringLiteral("mnuFileImportTRF"), tr("&Import TRF..."));
    mnuFile->addSeparator()->setObjectName(QStringLiteral("mnuFileSep4"));
    mnuPrint = AddCommand(mnuFile, QStringLiteral("mnuPrint"), tr("&Print..."));
    mnuPPrintSetup = AddCommand(mnuFile, QStringLiteral("mnuPPrintSetup"), tr("Print setup..."));
    mnuFile->addSeparator()->setObjectName(QStringLiteral("mnuFileSep3"));
    mnuFileExit = AddCommand(mnuFile, QStringLiteral("mnuFileExit"), tr("E&xit"));

    mnuTools = menuBar()->addMenu(tr("&Tools"));
    mnuTools->setObjectName(QStringLiteral("mnuTools"));
    mnuTBCFMaster = AddCommand(mnuTools, QStringLiteral("mnuTBCFMaster"),
                               tr("Match Players to BCF Master List"));
    mnuTools->addSeparator()->setObjectName(QStringLiteral("mnuTSep1"));
    mnuTRemoveAllPlayers = AddCommand(mnuTools, QStringLiteral("mnuTRemoveAllPlayers"),
                                      tr("Remove all players from Tournament"));
    mnuTRefreshGrades = AddCommand(mnuTools, QStringLiteral("mnuTRefreshGrades"),
                                   tr("Refresh players grades for Tournament"));
    mnuTools->addSeparator()->setObjectName(QStringLiteral("mnuTSep2"));
    mnuTExport = AddCommand(mnuTools, QStringLiteral("mnuTExport"), tr("Export..."));
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
    mnuViewTournament = AddCommand(mnuView, QStringLiteral("mnuViewTournament"), tr("&Tournament"));
    mnuViewTournament->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_T));
    mnuViewContacts = AddCommand(mnuView, QStringLiteral("mnuViewContacts"), tr("&Contacts"));
    mnuViewContacts->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_K));
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
    tbrTournament = Toolbar->addAction(tr("Tournament"));
    tbrTournament->setObjectName(QStringLiteral("Tournament"));
    tbrTournament->setCheckable(true);
    tbrOpenTournament = Toolbar->addAction(tr("Open Tournament"));
    tbrOpenTournament->setObjectName(QStringLiteral("OpenTournament"));

    views_ = new QStackedWidget(this);
    masterView_ = new frmMaster(views_);
    views_->addWidget(masterView_);
    setCentralWidget(views_);

    connect(mnuFileExit, &QAction::triggered, this, &QWidget::close);
    connect(mnuPrint, &QAction::triggered, this, [this] { frmPrint::Run(this); });
    connect(mnuPPrintSetup, &QAction::triggered, this, &mPrintCntrl::ShowPrintSetup);
    connect(mnuTExport, &QAction::triggered, this, [this] { frmExport::Run(this); });
    connect(mnuLoadClubList, &QAction::triggered, this, &frmMain::mnuLoadClubList_Click);
    connect(mnuLoadBCFMasterList, &QAction::triggered, this, &frmMain::mnuLoadBCFMasterList_Click);
    connect(mnuTBCFMaster, &QAction::triggered, this, &frmMain::mnuTBCFMaster_Click);
    connect(mnuFileDBTidy, &QAction::triggered, this, &frmMain::mnuFileDBTidy_Click);
    connect(mnuFileDBBackup, &QAction::triggered, this, &frmMain::mnuFileDBBackup_Click);
    connect(mnuFileDBRestore, &QAction::triggered, this, &frmMain::mnuFileDBRestore_Click);
    connect(mnuVOptions, &QAction::triggered, this, &frmMain::mnuVOptions_Click);
    connect(mnuViewPlayers, &QAction::triggered, this, &frmMain::ShowMasterView);
    connect(tbrPlayers, &QAction::triggered, this, &frmMain::ShowMasterView);
    connect(mnuFileNew, &QAction::triggered, this, &frmMain::mnuFileNew_Click);
    connect(mnuFileOpen, &QAction::triggered, this, &frmMain::mnuFileOpen_Click);
    connect(tbrOpenTournament, &QAction::triggered, this, &frmMain::mnuFileOpen_Click);
    connect(mnuFileCopy, &QAction::triggered, this, &frmMain::mnuFileCopy_Click);
    connect(mnuFileDelete, &QAction::triggered, this, &frmMain::mnuFileDelete_Click);
    connect(mnuFileExportTRF, &QAction::triggered, this, &frmMain::mnuFileExportTRF_Click);
    connect(mnuFileImportTRF, &QAction::triggered, this, &frmMain::mnuFileImportTRF_Click);
    connect(mnuTRefreshGrades, &QAction::triggered, this, &frmMain::mnuTRefreshGrades_Click);
    connect(mnuTRemoveAllPlayers, &QAction::triggered, this, &frmMain::mnuTRemoveAllPlayers_Click);
    connect(mnuViewTournament, &QAction::triggered, this, &frmMain::mnuViewTournament_Click);
    connect(mnuViewContacts, &QAction::triggered, this, &frmMain::ShowContactView);
    connect(tbrTournament, &QAction::triggered, this, &frmMain::mnuViewTournament_Click);
    connect(mnuViewToolbar, &QAction::triggered, this, &frmMain::mnuViewToolbar_Click);
    connect(mnuHelpAbout, &QAction::triggered, this, &frmMain::mnuHelpAbout_Click);

    RestorePosition();
    ShowMasterView();
}

frmMain::~frmMain()
{
    if (MainCommandsWindow() == this)
        setMainCommandsWindow(nullptr);
}

frmMain *frmMain::Instance()
{
    return qobject_cast<frmMain *>(MainCommandsWindow());
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
    // Until the organiser has left a size of their own, the window grows from its
    // default to show the whole of what it holds, as far as the screen has room.
    const bool sizeLeft = !GetSetting(AppInfo::WindowSettingsApplication(), AppInfo::Title(),
                                      QString::fromLatin1(WidthKey.key), QString())
                               .isEmpty();
    if (!sizeLeft && screen())
        resize(size().expandedTo(sizeHint().boundedTo(screen()->availableGeometry().size())));
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
    tbrTournament->setChecked(false);
    views_->setCurrentWidget(masterView_);
    masterView_->Reload(Control().Master() ? Control().Master()->MasterId() : QString());
}

void frmMain::ShowContactView()
{
    tbrPlayers->setChecked(false);
    tbrTournament->setChecked(false);
    if (!contactView_) {
        contactView_ = new frmContact(views_);
        views_->addWidget(contactView_);
    } else {
        contactView_->Reload(contactView_->Contact()->ContactId());
    }
    views_->setCurrentWidget(contactView_);
    contactView_->setFocus();
}

void frmMain::mnuLoadClubList_Click()
{
    frmLoadClubList dialog(this);
    dialog.exec();
    cBusySection busy;
    // The load clears the old list and reads the new one as one unit of work, so a
    // file that fails keeps the clubs that were there.
    if (!dialog.Cancelled)
        Database().LoadClubTable(dialog.FileName());
    SetMainCommands();
}

void frmMain::mnuLoadBCFMasterList_Click()
{
    frmLoadBCFList dialog(this);
    dialog.exec();
    cBusySection busy;
    if (!dialog.Cancelled)
        Database().LoadBCFMastList(dialog.FileName());
    // Matching to the list is offered only when a list is loaded.
    if (tbrPlayers->isChecked())
        ShowMasterView();
    else
        SetMainCommands();
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
    UnloadTournamentWindow();
    ShowMasterView();
}

void frmMain::mnuVOptions_Click()
{
    frmOptions options(this);
    options.exec();
    // The master view and the contacts show the captions of the user-defined flags, so
    // they are shown afresh after the settings may have changed them.
    if (tbrPlayers->isChecked())
        ShowMasterView();
    else if (contactView_ && views_->currentWidget() == contactView_)
        ShowContactView();
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

void frmMain::UnloadTournamentWindow()
{
    if (!tournamentView_)
        return;
    // The keys stay with this window when the widget that had them goes.
    if (tournamentView_->isAncestorOf(QApplication::focusWidget()))
        views_->setFocus();
    views_->removeWidget(tournamentView_);
    delete tournamentView_;
    tournamentView_ = nullptr;
}

void frmMain::ShowTournamentView(bool freshWindow)
{
    if (freshWindow)
        UnloadTournamentWindow();
    tbrPlayers->setChecked(false);
    tbrTournament->setChecked(true);
    if (!tournamentView_) {
        tournamentView_ = new frmTournament(views_);
        views_->addWidget(tournamentView_);
    } else {
        tournamentView_->Display();
        tournamentView_->DisplayList();
    }
    views_->setCurrentWidget(tournamentView_);
    SetTournamentCommands();
    tournamentView_->lstPlayer->setFocus();
}

void frmMain::mnuFileNew_Click()
{
    if (RunTournamentDetails(cntlTournament::New, this))
        return;
    ShowTournamentView(true);
}

void frmMain::mnuFileOpen_Click()
{
    const auto old = Control().Tournament();
    frmTournamentOpen dialog(this);
    dialog.exec();
    if (!dialog.Cancelled) {
        switch (dialog.Action) {
        case frmTournamentOpen::Opened:
        case frmTournamentOpen::New:
        case frmTournamentOpen::Copy:
            ShowTournamentView(true);
            break;
        case frmTournamentOpen::Delete:
            if (old) {
                const auto now = Control().Tournament();
                if (!now || WholeValue(now->TournId()) != WholeValue(old->TournId())) {
                    UnloadTournamentWindow();
                    ShowMasterView();
                }
            }
            break;
        default:
            break;
        }
    }
    if (!Control().Tournament()) {
        UnloadTournamentWindow();
        ShowMasterView();
    } else if (views_->currentWidget() != tournamentView_ || !tournamentView_) {
        // A cancelled dialog leaves the pressed button where the view is.
        tbrTournament->setChecked(false);
    }
}

void frmMain::mnuFileCopy_Click()
{
    if (!Control().Tournament() || RunTournamentDetails(cntlTournament::Copy, this))
        return;
    ShowTournamentView(true);
}

void frmMain::mnuFileDelete_Click()
{
    if (!Control().Tournament() || RunTournamentDetails(cntlTournament::Remove, this))
        return;
    UnloadTournamentWindow();
    ShowMasterView();
    SetMainCommands();
}

namespace {

cFileRequest TrfFileRequest(const QString &title, const QString &fileName = QString())
{
    cFileRequest request;
    request.title = title;
    request.folder = FileDialogFolder();
    request.fileName = fileName;
    request.filter =
        QStringLiteral("Tournament report files (*.trf *.txt)|*.trf *.txt|All files (*)|*");
    request.filterIndex = 1;
    request.defaultExtension = QStringLiteral("trf");
    return request;
}

// The tournament's name as a file name that any folder takes.
QString TrfFileName(const QString &name)
{
    QString fileName;
    for (const QChar character : name)
        fileName += character.isLetterOrNumber() || character == u' ' || character == u'-'
                        ? character
                        : u'_';
    fileName = fileName.simplified();
    return (fileName.isEmpty() ? QStringLiteral("Tournament") : fileName) + QStringLiteral(".trf");
}

QString Counted(int count, const QString &one, const QString &many)
{
    return QString::number(count) + u' ' + (count == 1 ? one : many);
}

} // namespace

void frmMain::mnuFileExportTRF_Click()
{
    const auto tournament = Control().Tournament();
    if (!tournament)
        return;
    const QString path = Interaction().ChooseSaveFile(
        TrfFileRequest(tr("Export TRF"), TrfFileName(tournament->DisplayName())));
    if (path.isEmpty())
        return;
    RememberFileFolder(path);
    mSwiss::cTrfFile file;
    std::string text;
    {
        cBusySection busy;
        file = mTrfTournament::TrfOfTournament(*tournament);
        text = mSwiss::WriteTrf(file);
    }
    const WriteOutcome outcome = WriteWholeFile(path, [&text](QIODevice &device) {
        return device.write(text.data(), qint64(text.size())) == qint64(text.size())
                   ? WriteOutcome::Written
                   : WriteOutcome::Failed;
    });
    if (outcome != WriteOutcome::Written)
        return;
    Interaction().ShowMessage(
        Counted(int(file.tournament.entrants.size()), tr("player"), tr("players")) + tr(" and ") +
            Counted(file.tournament.RoundsPlayed(), tr("round"), tr("rounds")) +
            tr(" written to ") + QDir::toNativeSeparators(path) + u'.',
        MessageIcon::Information, AppInfo::Title());
}

void frmMain::mnuFileImportTRF_Click()
{
    const QString path = Interaction().ChooseOpenFile(TrfFileRequest(tr("Import TRF")));
    if (path.isEmpty())
        return;
    RememberFileFolder(path);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        Interaction().ShowMessage(tr("The file ") + QDir::toNativeSeparators(path) +
                                      tr(" can not be read.\n\n") + file.errorString(),
                                  MessageIcon::Exclamation, AppInfo::Title());
        return;
    }
    const QByteArray bytes = file.readAll();
    mTrfTournament::cTrfImport imported;
    {
        cBusySection busy;
        imported = mTrfTournament::ImportTrf(bytes.toStdString());
    }
    if (!imported.ok) {
        Interaction().ShowMessage(tr("The file ") + QDir::toNativeSeparators(path) +
                                      tr(" was not imported.\n\n") + imported.message,
                                  MessageIcon::Exclamation, AppInfo::Title());
        return;
    }
    ShowTournamentView(true);
    const QString name = imported.tournament->DisplayName();
    Interaction().ShowMessage((name.isEmpty() ? tr("The tournament") : name) + tr(" imported: ") +
                                  Counted(imported.players, tr("player"), tr("players")) +
                                  tr(" and ") +
                                  Counted(imported.rounds, tr("round"), tr("rounds")) + u'.',
                              MessageIcon::Information, AppInfo::Title());
}

void frmMain::mnuTRefreshGrades_Click()
{
    const auto tournament = Control().Tournament();
    if (!tournament)
        return;
    {
        cBusySection busy;
        tournament->Players().LoadGradesFromMaster();
        if (tournamentView_)
            tournamentView_->DisplayList();
    }
    Interaction().ShowMessage(
        tr("All grades for all the players in this tournament have been updated."),
        MessageIcon::Information, AppInfo::Title());
}

void frmMain::mnuTRemoveAllPlayers_Click()
{
    const auto tournament = Control().Tournament();
    if (!tournament)
        return;
    if (Interaction().AskYesNo(tr("Do you want to clear all players from this Tournament?"),
                               AppInfo::Title())) {
        if (RunSql(QStringLiteral("Select * From Result Where TId = ?"),
                   {WholeValue(tournament->TournId())})
                .next()) {
            Interaction().ShowMessage(
                tr("Some Players have taken part in this tournament, so they can not be removed."),
                MessageIcon::Plain, AppInfo::Title());
            return;
        }
        cBusySection busy;
        while (tournament->Players().Count() >= 1)
            tournament->Players().Remove(1);
        tournament->setSelPlayer(nullptr);
        if (tournamentView_)
            tournamentView_->DisplayList();
    }
    SetTournamentCommands();
}

void frmMain::mnuViewTournament_Click()
{
    if (Control().Tournament())
        ShowTournamentView(false);
    else
        mnuFileOpen_Click();
}
