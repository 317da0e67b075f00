#include "base/busy.h"
#include "database/sql.h"
#include "register/master.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/player.h"
#include "session/players.h"
#include "session/tournament.h"
#include "support/scripted_interaction.h"
#include "support/test_environment.h"
#include "support/tournament_fixture.h"
#include "support/widget_driving.h"
#include "ui/cntl_data_list.h"
#include "ui/cntl_master_list.h"
#include "ui/cntl_player_details.h"
#include "ui/cntl_player_list.h"
#include "ui/cntl_tournament.h"
#include "ui/entrant_list.h"
#include "ui/frm_main.h"
#include "ui/frm_player_details.h"
#include "ui/frm_player_list.h"
#include "ui/frm_player_pins.h"
#include "ui/frm_tournament.h"
#include "ui/frm_tournament_details.h"
#include "ui/frm_tournament_open.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <QTabBar>
#include <QTableView>
#include <QTest>
#include <QToolBar>

namespace {

bool TournamentOnView(const frmMain &window)
{
    const frmTournament *view = window.TournamentWindow();
    return view && view->isVisible() &&
           window.findChild<QAction *>(QStringLiteral("Tournament"))->isChecked() &&
           !window.tbrPlayers->isChecked();
}

bool MasterOnView(const frmMain &window)
{
    const frmTournament *view = window.TournamentWindow();
    return (!view || !view->isVisible()) && window.tbrPlayers->isChecked() &&
           !window.tbrTournament->isChecked();
}

// A shortcut of the main window, pressed once the window is active again after the
// dialogs that came before it.
void PressShortcut(frmMain &window, Qt::Key key)
{
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QTest::keyClick(&window, key, Qt::ControlModifier);
}

void ClickToolButton(frmMain &window, QAction *action)
{
    QTest::mouseClick(window.Toolbar->widgetForAction(action), Qt::LeftButton);
}

// Types a new tournament's title into the details dialog and presses OK.
void NewTournamentNamed(const QString &title)
{
    WhenModalShows<frmTournamentDetails>(
        [title](frmTournamentDetails *details) {
            QCOMPARE(details->Mode(), int(cntlTournament::New));
            ReplaceText(details->tournamentControl->txtTitle, title);
            details->tournamentControl->txtType->setCurrentText(QStringLiteral("BCF Standard"));
            QTest::mouseClick(details->cmdOk, Qt::LeftButton);
        },
        nullptr);
}

void OpenFromTheDialog(const QString &id)
{
    WhenModalShows<frmTournamentOpen>(
        [id](frmTournamentOpen *open) {
            open->lstVelmora->setSelKey(id);
            QTest::mouseClick(open->cmdOk, Qt::LeftButton);
        },
        nullptr);
}

int TabOf(const cntlMasterList *list, const QString &caption)
{
    for (int tab = 0; tab < list->tabChar->count(); ++tab)
        if (list->tabChar->tabText(tab) == caption)
            return tab;
    return -1;
}

// On the entry desk: chooses the letter tab and enters the person of the row.
void AddFromRegister(frmPlayerList *desk, const QString &letter, int row)
{
    desk->lstMaster->tabChar->setCurrentIndex(TabOf(desk->lstMaster, letter));
    QTableView *list = desk->lstMaster->lstMaster->lstData;
    const QRect cell = list->visualRect(list->model()->index(row, cDataListModel::NameColumn));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, cell.center());
    QVERIFY(desk->cmdAdd->isEnabled());
    QTest::mouseClick(desk->cmdAdd, Qt::LeftButton);
}

void NewPersonAtTheDesk(frmPlayerList *desk, const QString &surname, const QString &grade)
{
    WhenModalShows<frmPlayerDetails>(
        [surname, grade](frmPlayerDetails *details) {
            ReplaceText(details->playerControl->txtSurname, surname);
            ReplaceText(details->playerControl->txtForename, QStringLiteral("New"));
            ReplaceText(details->playerControl->txtGrade, grade);
            QTest::mouseClick(details->cmdOk, Qt::LeftButton);
        },
        nullptr);
    QTest::mouseClick(desk->cmdPlayerNew, Qt::LeftButton);
}

void ClickEntrant(frmTournament *view, const QString &playerId)
{
    const int row = view->lstPlayer->Model()->FindKey(playerId);
    const QRect cell = view->lstPlayer->lstData->visualRect(
        view->lstPlayer->Model()->index(row, cDataListModel::EntrantNameColumn));
    QTest::mouseClick(view->lstPlayer->lstData->viewport(), Qt::LeftButton, {}, cell.center());
}

} // namespace

class TestFrmMainTournament : public QObject
{
    Q_OBJECT

private slots:
    void fileAndToolsCarryTheTournamentCommands();
    void withNoTournamentCtrlTOpensTheOpenDialogAndCancelKeepsTheMaster();
    void withNoTournamentTheTournamentButtonOpensTheOpenDialog();
    void newTournamentIsPutOnViewAndNamedInTheTitle();
    void masterAndTournamentSwitchWithThePressedButton();
    void deletingTheOpenTournamentShowsTheMasterWithCopyAndDeleteDisabled();
    void copyFromTheMenuShowsTheCopy();
    void removingAllPlayersWithGamesRemovesNobody();
    void removingAllPlayersWithoutGames();
    void refreshingGradesTakesThemFromTheRegister();
    void lockedTournamentDisablesRefreshAndRemove();
    void deletingAnotherTournamentFromTheOpenDialogShowsTheMaster();
    void scenarioThroughTheWindows();
};

void TestFrmMainTournament::fileAndToolsCarryTheTournamentCommands()
{
    cTestSession session;
    frmMain window;
    QCOMPARE(window.mnuFileNew->text(), QStringLiteral("&New Tournament..."));
    QCOMPARE(window.mnuFileNew->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_N));
    QCOMPARE(window.mnuFileOpen->text(), QStringLiteral("&Open Tournament..."));
    QCOMPARE(window.mnuFileOpen->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_O));
    QCOMPARE(window.mnuFileCopy->text(), QStringLiteral("&Copy Tournament..."));
    QCOMPARE(window.mnuFileDelete->text(), QStringLiteral("&Delete Tournament..."));
    QCOMPARE(window.mnuTRemoveAllPlayers->text(),
             QStringLiteral("Remove all players from Tournament"));
    QCOMPARE(window.mnuTRefreshGrades->text(),
             QStringLiteral("Refresh players grades for Tournament"));
    QCOMPARE(window.mnuViewTournament->text(), QStringLiteral("&Tournament"));
    QCOMPARE(window.mnuViewTournament->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_T));
    QCOMPARE(window.tbrTournament->text(), QStringLiteral("Tournament"));
    QCOMPARE(window.tbrOpenTournament->text(), QStringLiteral("Open Tournament"));
    QCOMPARE(window.tbrOpenTournament->objectName(), QStringLiteral("OpenTournament"));
    QVERIFY(!window.mnuFileCopy->isEnabled());
    QVERIFY(!window.mnuFileDelete->isEnabled());
    QVERIFY(!window.mnuTRefreshGrades->isEnabled());
    QVERIFY(!window.mnuTRemoveAllPlayers->isEnabled());
    QVERIFY(MasterOnView(window));
}

void TestFrmMainTournament::withNoTournamentCtrlTOpensTheOpenDialogAndCancelKeepsTheMaster()
{
    cTestSession session;
    cScriptedInteraction seam;
    frmMain window;
    ShowActive(window);
    bool shown = false;
    WhenModalShows<frmTournamentOpen>(
        [](frmTournamentOpen *open) { QTest::mouseClick(open->cmdCancel, Qt::LeftButton); },
        &shown);
    PressShortcut(window, Qt::Key_T);
    QVERIFY(shown);
    QVERIFY(MasterOnView(window));
    QVERIFY(!Control().Tournament());
}

void TestFrmMainTournament::withNoTournamentTheTournamentButtonOpensTheOpenDialog()
{
    cTestSession session;
    cScriptedInteraction seam;
    const auto stored = OpenNewTournament(QStringLiteral("Stored"));
    Control().setTournament(nullptr);
    frmMain window;
    ShowActive(window);
    bool shown = false;
    WhenModalShows<frmTournamentOpen>(
        [](frmTournamentOpen *open) { QTest::mouseClick(open->cmdCancel, Qt::LeftButton); },
        &shown);
    ClickToolButton(window, window.tbrTournament);
    QVERIFY(shown);
    QVERIFY(MasterOnView(window));
    OpenFromTheDialog(stored->TournId());
    ClickToolButton(window, window.tbrOpenTournament);
    QVERIFY(TournamentOnView(window));
    QCOMPARE(Control().Tournament()->TournId(), stored->TournId());
}

void TestFrmMainTournament::newTournamentIsPutOnViewAndNamedInTheTitle()
{
    cTestSession session;
    cScriptedInteraction seam;
    frmMain window;
    ShowActive(window);
    NewTournamentNamed(QStringLiteral("Summer <Open> & Co"));
    PressShortcut(window, Qt::Key_N);
    QVERIFY(TournamentOnView(window));
    QCOMPARE(window.windowTitle(), QStringLiteral("Velmora! - Summer <Open> & Co"));
    QCOMPARE(window.TournamentWindow()->tournamentControl->lblTitle->text(),
             QStringLiteral("Summer <Open> & Co"));
    QVERIFY(window.mnuFileCopy->isEnabled());
    QVERIFY(window.mnuTRemoveAllPlayers->isEnabled());
    // A change of the title through Update shows in the window's title at once.
    WhenModalShows<frmTournamentDetails>(
        [](frmTournamentDetails *details) {
            ReplaceText(details->tournamentControl->txtTitle, QStringLiteral("Renamed"));
            QTest::mouseClick(details->cmdOk, Qt::LeftButton);
        },
        nullptr);
    QTest::mouseClick(window.TournamentWindow()->cmdTUpdate, Qt::LeftButton);
    QCOMPARE(window.windowTitle(), QStringLiteral("Velmora! - Renamed"));
}

void TestFrmMainTournament::masterAndTournamentSwitchWithThePressedButton()
{
    cTestSession session;
    cScriptedInteraction seam;
    frmMain window;
    ShowActive(window);
    NewTournamentNamed(QStringLiteral("Switching"));
    window.mnuFileNew->trigger();
    frmTournament *view = window.TournamentWindow();
    QVERIFY(TournamentOnView(window));
    ClickToolButton(window, window.tbrPlayers);
    QVERIFY(MasterOnView(window));
    // Going to the master only hides the tournament window.
    QCOMPARE(window.TournamentWindow(), view);
    PressShortcut(window, Qt::Key_T);
    QVERIFY(TournamentOnView(window));
    QCOMPARE(window.TournamentWindow(), view);
    PressShortcut(window, Qt::Key_M);
    QVERIFY(MasterOnView(window));
}

void TestFrmMainTournament::deletingTheOpenTournamentShowsTheMasterWithCopyAndDeleteDisabled()
{
    cTestSession session;
    cScriptedInteraction seam;
    frmMain window;
    ShowActive(window);
    NewTournamentNamed(QStringLiteral("Doomed"));
    window.mnuFileNew->trigger();
    seam.QueueAnswer(true);
    WhenModalShows<frmTournamentDetails>(
        [](frmTournamentDetails *details) {
            QCOMPARE(details->Mode(), int(cntlTournament::Remove));
            QTest::mouseClick(details->cmdOk, Qt::LeftButton);
        },
        nullptr);
    window.mnuFileDelete->trigger();
    QVERIFY(MasterOnView(window));
    QVERIFY(!window.TournamentWindow());
    QVERIFY(!window.mnuFileCopy->isEnabled());
    QVERIFY(!window.mnuFileDelete->isEnabled());
    QCOMPARE(RowCount(QStringLiteral("Velmora")), 0);
    QCOMPARE(window.windowTitle(), QStringLiteral("Velmora!"));
}

void TestFrmMainTournament::copyFromTheMenuShowsTheCopy()
{
    cTestSession session;
    cScriptedInteraction seam;
    frmMain window;
    ShowActive(window);
    NewTournamentNamed(QStringLiteral("Original"));
    window.mnuFileNew->trigger();
    AddEntrant(QStringLiteral("Ames"), QStringLiteral("Jo"));
    WhenModalShows<frmTournamentDetails>(
        [](frmTournamentDetails *details) { QTest::mouseClick(details->cmdOk, Qt::LeftButton); },
        nullptr);
    window.mnuFileCopy->trigger();
    QVERIFY(TournamentOnView(window));
    QCOMPARE(window.windowTitle(), QStringLiteral("Velmora! - Copy of Original"));
    QCOMPARE(window.TournamentWindow()->lstPlayer->RowCount(), 0);
    QCOMPARE(RowCount(QStringLiteral("Velmora")), 2);
}

void TestFrmMainTournament::removingAllPlayersWithGamesRemovesNobody()
{
    cTestSession session;
    cScriptedInteraction seam;
    frmMain window;
    ShowActive(window);
    NewTournamentNamed(QStringLiteral("Played"));
    window.mnuFileNew->trigger();
    const auto white = AddEntrant(QStringLiteral("Ames"), QStringLiteral("Jo"));
    const auto black = AddEntrant(QStringLiteral("Best"), QStringLiteral("Al"));
    AddGame(1, 1, *white, *black);
    seam.QueueAnswer(true);
    window.mnuTRemoveAllPlayers->trigger();
    QCOMPARE(seam.CallsStartingWith(QStringLiteral("ask|")),
             QStringList{QStringLiteral(
                 "ask|Velmora!|Do you want to clear all players from this Tournament?")});
    QCOMPARE(seam.CallsStartingWith(QStringLiteral("message|")),
             QStringList{QStringLiteral("message|plain|Velmora!|Some Players have taken part in "
                                        "this tournament, so they can not be removed.")});
    QCOMPARE(Control().Tournament()->Players().Count(), 2);
    QCOMPARE(RowCount(QStringLiteral("Player")), 2);
}

void TestFrmMainTournament::removingAllPlayersWithoutGames()
{
    cTestSession session;
    cScriptedInteraction seam;
    frmMain window;
    ShowActive(window);
    NewTournamentNamed(QStringLiteral("Unplayed"));
    window.mnuFileNew->trigger();
    AddEntrant(QStringLiteral("Ames"), QStringLiteral("Jo"));
    AddEntrant(QStringLiteral("Best"), QStringLiteral("Al"));
    window.TournamentWindow()->DisplayList();
    seam.QueueAnswer(false);
    window.mnuTRemoveAllPlayers->trigger();
    QCOMPARE(RowCount(QStringLiteral("Player")), 2);
    seam.QueueAnswer(true);
    window.mnuTRemoveAllPlayers->trigger();
    QCOMPARE(RowCount(QStringLiteral("Player")), 0);
    QCOMPARE(Control().Tournament()->Players().Count(), 0);
    QCOMPARE(window.TournamentWindow()->lstPlayer->RowCount(), 0);
    QVERIFY(!Control().Tournament()->SelPlayer());
    QVERIFY(!window.TournamentWindow()->cmdWithdraw->isEnabled());
}

void TestFrmMainTournament::refreshingGradesTakesThemFromTheRegister()
{
    cTestSession session;
    cScriptedInteraction seam;
    frmMain window;
    ShowActive(window);
    NewTournamentNamed(QStringLiteral("Regraded"));
    window.mnuFileNew->trigger();
    const QString id =
        AddMasterPlayer(QStringLiteral("Ames"), QStringLiteral("Jo"), QStringLiteral("120"));
    cMaster master;
    master.Load(id);
    auto tournament = Control().Tournament();
    auto entrant = tournament->Players().AddFromMaster(tournament->TournId(), master);
    tournament->setSelPlayer(entrant);
    master.setLongPlay(QStringLiteral("155"));
    master.Update();
    window.mnuTRefreshGrades->trigger();
    QCOMPARE(entrant->LongPlay(), QStringLiteral("155"));
    QCOMPARE(SqlScalar(QStringLiteral("Select Grade From Player")).toInt(), 155);
    QCOMPARE(window.TournamentWindow()->lstPlayer->Model()->Cell(0, cDataListModel::GradeColumn),
             QStringLiteral("155 "));
    QCOMPARE(seam.CallsStartingWith(QStringLiteral("message|")),
             QStringList{QStringLiteral("message|information|Velmora!|All grades for all the "
                                        "players in this tournament have been updated.")});
}

void TestFrmMainTournament::lockedTournamentDisablesRefreshAndRemove()
{
    cTestSession session;
    cScriptedInteraction seam;
    frmMain window;
    ShowActive(window);
    NewTournamentNamed(QStringLiteral("Locking"));
    window.mnuFileNew->trigger();
    QTest::mouseClick(window.TournamentWindow()->cmdTLocked, Qt::LeftButton);
    QVERIFY(!window.mnuTRefreshGrades->isEnabled());
    QVERIFY(!window.mnuTRemoveAllPlayers->isEnabled());
    // Copying and deleting a locked tournament stay available.
    QVERIFY(window.mnuFileCopy->isEnabled());
    QVERIFY(window.mnuFileDelete->isEnabled());
}

void TestFrmMainTournament::deletingAnotherTournamentFromTheOpenDialogShowsTheMaster()
{
    cTestSession session;
    cScriptedInteraction seam;
    const auto other = OpenNewTournament(QStringLiteral("Other"));
    Control().setTournament(nullptr);
    frmMain window;
    ShowActive(window);
    NewTournamentNamed(QStringLiteral("Open one"));
    window.mnuFileNew->trigger();
    seam.QueueAnswer(true);
    WhenModalShows<frmTournamentOpen>(
        [other](frmTournamentOpen *open) {
            open->lstVelmora->setSelKey(other->TournId());
            WhenModalShows<frmTournamentDetails>(
                [](frmTournamentDetails *details) {
                    QTest::mouseClick(details->cmdOk, Qt::LeftButton);
                },
                nullptr);
            QTest::mouseClick(open->cmdDelete, Qt::LeftButton);
        },
        nullptr);
    window.mnuFileOpen->trigger();
    QVERIFY(!Control().Tournament());
    QVERIFY(MasterOnView(window));
    QVERIFY(!window.TournamentWindow());
    QCOMPARE(SqlScalar(QStringLiteral("Select Title From Velmora")).toString(),
             QStringLiteral("Open one"));
}

void TestFrmMainTournament::scenarioThroughTheWindows()
{
    cTestSession session;
    cScriptedInteraction seam;
    // The register as the organiser has it.
    AddMasterPlayer(QStringLiteral("Adams"), QStringLiteral("Ann"), QStringLiteral("170"));
    AddMasterPlayer(QStringLiteral("Baker"), QStringLiteral("Bob"), QStringLiteral("150"));
    AddMasterPlayer(QStringLiteral("Brown"), QStringLiteral("Cas"), QStringLiteral("130"));
    AddMasterPlayer(QStringLiteral("Clark"), QStringLiteral("Dee"), QStringLiteral("110"));
    AddMasterPlayer(QStringLiteral("Cole"), QStringLiteral("Eve"), QStringLiteral("190"));
    AddMasterPlayer(QStringLiteral("Davis"), QStringLiteral("Fay"), QStringLiteral("90"));

    QString originalId;
    {
        auto window = std::make_unique<frmMain>();
        ShowActive(*window);
        // A new "BCF Standard" tournament of 5 rounds.
        NewTournamentNamed(QStringLiteral("Spring Congress"));
        PressShortcut(*window, Qt::Key_N);
        QVERIFY(TournamentOnView(*window));
        frmTournament *view = window->TournamentWindow();
        QCOMPARE(view->tournamentControl->lblType->text(), QStringLiteral("BCF Standard"));
        QCOMPARE(view->tournamentControl->lblRounds->text(), QStringLiteral("5"));
        originalId = Control().Tournament()->TournId();

        // Eight entrants: six from the register, two new people made on the way.
        WhenModalShows<frmPlayerList>(
            [](frmPlayerList *desk) {
                AddFromRegister(desk, QStringLiteral("A"), 0);
                AddFromRegister(desk, QStringLiteral("B"), 0);
                AddFromRegister(desk, QStringLiteral("B"), 1);
                AddFromRegister(desk, QStringLiteral("C"), 0);
                AddFromRegister(desk, QStringLiteral("C"), 1);
                NewPersonAtTheDesk(desk, QStringLiteral("Evans"), QStringLiteral("160"));
                AddFromRegister(desk, QStringLiteral("D"), 0);
                NewPersonAtTheDesk(desk, QStringLiteral("Ford"), QString());
                QCOMPARE(desk->lstPlayer->lstData->Model()->rowCount(), 8);
                QTest::mouseClick(desk->cmdClose, Qt::LeftButton);
            },
            nullptr);
        QTest::mouseClick(view->cmdAdd, Qt::LeftButton);
        QCOMPARE(view->lstPlayer->RowCount(), 8);
        QCOMPARE(RowCount(QStringLiteral("Player")), 8);

        // Pins by grade.
        ClickEntrant(view, view->lstPlayer->Model()->Cell(0, cDataListModel::KeyColumn));
        WhenModalShows<frmPlayerPins>(
            [](frmPlayerPins *pins) {
                pins->optGrade->setChecked(true);
                QTest::mouseClick(pins->cmdApply, Qt::LeftButton);
                QTest::mouseClick(pins->cmdClose, Qt::LeftButton);
            },
            nullptr);
        QTest::mouseClick(view->cmdTPin, Qt::LeftButton);
        QCOMPARE(view->lstPlayer->Model()->Cell(0, cDataListModel::EntrantNameColumn),
                 QStringLiteral("Cole, Eve"));
        QCOMPARE(view->lstPlayer->Model()->Cell(0, cDataListModel::PinColumn),
                 QStringLiteral("  1"));
        QCOMPARE(view->lstPlayer->Model()->Cell(7, cDataListModel::EntrantNameColumn),
                 QStringLiteral("Ford, New"));

        // One withdrawn and reinstated.
        const QString bakerId = view->lstPlayer->Model()->Cell(3, cDataListModel::KeyColumn);
        ClickEntrant(view, bakerId);
        QTest::mouseClick(view->cmdWithdraw, Qt::LeftButton);
        QVERIFY(SqlScalar(QStringLiteral("Select Withdrawn From Player Where PId = ?"),
                          {bakerId.toLongLong()})
                    .toBool());
        QTest::mouseClick(view->cmdWithdraw, Qt::LeftButton);
        QVERIFY(!SqlScalar(QStringLiteral("Select Withdrawn From Player Where PId = ?"),
                           {bakerId.toLongLong()})
                     .toBool());

        // The tournament copied, and the copy deleted.
        WhenModalShows<frmTournamentDetails>(
            [](frmTournamentDetails *details) {
                QTest::mouseClick(details->cmdOk, Qt::LeftButton);
            },
            nullptr);
        window->mnuFileCopy->trigger();
        QCOMPARE(window->windowTitle(), QStringLiteral("Velmora! - Copy of Spring Congress"));
        QCOMPARE(window->TournamentWindow()->lstPlayer->RowCount(), 0);
        seam.QueueAnswer(true);
        WhenModalShows<frmTournamentDetails>(
            [](frmTournamentDetails *details) {
                QTest::mouseClick(details->cmdOk, Qt::LeftButton);
            },
            nullptr);
        window->mnuFileDelete->trigger();
        QVERIFY(MasterOnView(*window));
        QCOMPARE(RowCount(QStringLiteral("Velmora")), 1);

        // The original reopened and locked.
        OpenFromTheDialog(originalId);
        PressShortcut(*window, Qt::Key_O);
        QVERIFY(TournamentOnView(*window));
        QCOMPARE(window->TournamentWindow()->lstPlayer->RowCount(), 8);
        QTest::mouseClick(window->TournamentWindow()->cmdTLocked, Qt::LeftButton);
        QCOMPARE(window->TournamentWindow()->fTournament->title(), QStringLiteral("Locked"));
        window->close();
    }

    // A restart of the main window: no tournament is open until one is opened.
    Control().setTournament(nullptr);
    frmMain restarted;
    ShowActive(restarted);
    QVERIFY(MasterOnView(restarted));
    OpenFromTheDialog(originalId);
    PressShortcut(restarted, Qt::Key_O);
    QVERIFY(TournamentOnView(restarted));
    frmTournament *view = restarted.TournamentWindow();
    QCOMPARE(restarted.windowTitle(), QStringLiteral("Velmora! - Spring Congress"));
    QCOMPARE(view->cmdTLocked->text(), QStringLiteral("Unlock"));
    QVERIFY(!view->cmdAdd->isEnabled());
    QCOMPARE(view->lstPlayer->RowCount(), 8);
    QCOMPARE(view->lstPlayer->Model()->Cell(1, cDataListModel::EntrantNameColumn),
             QStringLiteral("Adams, Ann"));
    QCOMPARE(view->lstPlayer->Model()->Cell(1, cDataListModel::PinColumn), QStringLiteral("  2"));
    QVERIFY(!restarted.mnuTRemoveAllPlayers->isEnabled());
    QCOMPARE(seam.Count(QStringLiteral("message|")), 0);
    QVERIFY(!seam.HadUnexpectedQuestion());
    while (BusyCount() > 0)
        EndBusy();
}

VELMORA_WIDGET_TEST_MAIN(TestFrmMainTournament)
#include "test_frm_main_tournament.moc"
