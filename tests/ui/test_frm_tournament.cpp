#include "base/busy.h"
#include "database/sql.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/player.h"
#include "session/players.h"
#include "session/results.h"
#include "session/tournament.h"
#include "support/scripted_interaction.h"
#include "support/test_environment.h"
#include "support/tournament_fixture.h"
#include "support/widget_driving.h"
#include "ui/cntl_data_list.h"
#include "ui/cntl_player_details.h"
#include "ui/cntl_result_list.h"
#include "ui/cntl_tournament.h"
#include "ui/frm_msg.h"
#include "ui/frm_pairings.h"
#include "ui/frm_player_details.h"
#include "ui/frm_player_list.h"
#include "ui/frm_player_pins.h"
#include "ui/frm_tournament.h"
#include "ui/frm_tournament_details.h"

#include <QApplication>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QTest>

namespace {

// The row of the list that shows the entrant, or -1.
int RowOf(const frmTournament &window, const cPlayer &player)
{
    return window.lstPlayer->Model()->FindKey(player.PlayerId());
}

void ClickRow(frmTournament &window, int row)
{
    const QRect cell = window.lstPlayer->lstData->visualRect(
        window.lstPlayer->Model()->index(row, cDataListModel::EntrantNameColumn));
    QTest::mouseClick(window.lstPlayer->lstData->viewport(), Qt::LeftButton, {}, cell.center());
}

QString Cell(const frmTournament &window, int row, int column)
{
    return window.lstPlayer->Model()->Cell(row, column);
}

} // namespace

class TestFrmTournament : public QObject
{
    Q_OBJECT

private slots:
    void showsTheDetailsAndTheEntrantsWithPinsGradesAndScores();
    void commandsOfAnUnlockedTournamentWithNobodySelected();
    void lastRoundDisablesNextRound();
    void nextRoundStopsAtRoundTwoOfATenRoundTournament();
    void lockAsksNothingAndUnlockAsks();
    void lockedTournamentDisablesItsCommandsAndStillViewsOnDoubleClick();
    void withdrawTwiceReinstatesAndTheStrikeThroughGoes();
    void updateOpensTheDetailsAndShowsTheChange();
    void updateOfAnEntrantShowsTheChange();
    void allocatePinsByGradeShowsThePinsAndTheirCheck();
    void pinCheckReportsGapsAndClashes();
    void pinsOfATournamentWithoutEntrantsAreAllCorrect();
    void updatePlayerListOpensTheEntryDesk();
    void headingClickSortsAndKeepsTheSelection();
    void pairingAndResultsNeedsTwoEntrantsAndAnUnlockedTournament();
    void pairingAndResultsStoresTheRoundTypedAndShowsTheScores();
};

void TestFrmTournament::showsTheDetailsAndTheEntrantsWithPinsGradesAndScores()
{
    cTestSession session;
    cScriptedInteraction seam;
    auto tournament = OpenNewTournament(QStringLiteral("Club Championship"));
    auto ames = AddEntrant(QStringLiteral("Ames"), QStringLiteral("Jo"), QStringLiteral("150"),
                           QStringLiteral("2"));
    auto best =
        AddEntrant(QStringLiteral("Best"), QStringLiteral("Al"), QString(), QStringLiteral("1"));
    AddGame(1, 1, *ames, *best);
    tournament->Results().LoadAllResults();
    tournament->Players().RecalcAll(5);
    frmTournament window;
    ShowActive(window);
    QCOMPARE(window.objectName(), QStringLiteral("frmTournament"));
    QCOMPARE(window.tournamentControl->lblTitle->text(), QStringLiteral("Club Championship"));
    QVERIFY(window.tournamentControl->frmLabel->isVisible());
    QCOMPARE(window.tournamentControl->txtCurrRound->text(), QStringLiteral("1"));
    QCOMPARE(window.lstPlayer->Model()->rowCount(), 2);
    // Sorted on the pin column, ascending.
    QCOMPARE(Cell(window, 0, cDataListModel::EntrantNameColumn), QStringLiteral("Best, Al"));
    QCOMPARE(Cell(window, 0, cDataListModel::PinColumn), QStringLiteral("  1"));
    QCOMPARE(Cell(window, 0, cDataListModel::ScoreColumn), QStringLiteral(" 0 /1"));
    QCOMPARE(Cell(window, 1, cDataListModel::GradeColumn), QStringLiteral("150 "));
    QCOMPARE(Cell(window, 1, cDataListModel::ScoreColumn), QStringLiteral(" 1 /1"));
    QVERIFY(window.lstPlayer->lstData->isColumnHidden(cDataListModel::KeyColumn));
    QVERIFY(window.lstPlayer->lstData->isColumnHidden(cDataListModel::WithdrawnColumn));
}

void TestFrmTournament::commandsOfAnUnlockedTournamentWithNobodySelected()
{
    cTestSession session;
    cScriptedInteraction seam;
    OpenNewTournament(QStringLiteral("Empty"));
    frmTournament window;
    ShowActive(window);
    QCOMPARE(window.cmdTLocked->text(), QStringLiteral("Lock"));
    QCOMPARE(window.fTournament->title(), QString());
    QVERIFY(window.cmdTUpdate->isEnabled());
    QVERIFY(window.cmdAdd->isEnabled());
    QVERIFY(window.cmdTNextRound->isEnabled());
    QVERIFY(!window.cmdUpdate->isEnabled());
    QVERIFY(!window.cmdWithdraw->isEnabled());
    QVERIFY(!window.cmdTPin->isEnabled());
    QCOMPARE(window.cmdAdd->text(), QStringLiteral("Update Player List"));
    QCOMPARE(window.cmdTPin->text(), QStringLiteral("Allocate Pins"));
}

void TestFrmTournament::lastRoundDisablesNextRound()
{
    cTestSession session;
    cScriptedInteraction seam;
    auto tournament = OpenNewTournament(QStringLiteral("Short"), QStringLiteral("2"));
    frmTournament window;
    ShowActive(window);
    QVERIFY(window.cmdTNextRound->isEnabled());
    QTest::mouseClick(window.cmdTNextRound, Qt::LeftButton);
    QCOMPARE(window.tournamentControl->txtCurrRound->text(), QStringLiteral("2"));
    QCOMPARE(SqlScalar(QStringLiteral("Select CurrRound From Velmora")).toString(),
             QStringLiteral("2"));
    QVERIFY(!window.cmdTNextRound->isEnabled());
}

void TestFrmTournament::nextRoundStopsAtRoundTwoOfATenRoundTournament()
{
    cTestSession session;
    cScriptedInteraction seam;
    OpenNewTournament(QStringLiteral("Long"), QStringLiteral("10"));
    frmTournament window;
    ShowActive(window);
    QTest::mouseClick(window.cmdTNextRound, Qt::LeftButton);
    QTest::mouseClick(window.cmdTNextRound, Qt::LeftButton);
    QCOMPARE(window.tournamentControl->txtCurrRound->text(), QStringLiteral("2"));
    // "2" and "10" are different texts, so the command stays offered.
    QVERIFY(window.cmdTNextRound->isEnabled());
}

void TestFrmTournament::lockAsksNothingAndUnlockAsks()
{
    cTestSession session;
    cScriptedInteraction seam;
    auto tournament = OpenNewTournament(QStringLiteral("Lockable"));
    frmTournament window;
    ShowActive(window);
    QTest::mouseClick(window.cmdTLocked, Qt::LeftButton);
    QCOMPARE(seam.Count(QStringLiteral("ask|")), 0);
    QCOMPARE(window.cmdTLocked->text(), QStringLiteral("Unlock"));
    QCOMPARE(window.fTournament->title(), QStringLiteral("Locked"));
    QVERIFY(tournament->IsLocked());
    seam.QueueAnswer(false);
    QTest::mouseClick(window.cmdTLocked, Qt::LeftButton);
    QCOMPARE(seam.CallsStartingWith(QStringLiteral("ask|")),
             QStringList{QStringLiteral("ask|Velmora!|Do you want to unlock this Tournament?")});
    QVERIFY(tournament->IsLocked());
    seam.QueueAnswer(true);
    QTest::mouseClick(window.cmdTLocked, Qt::LeftButton);
    QVERIFY(!tournament->IsLocked());
    QCOMPARE(SqlScalar(QStringLiteral("Select Locked From Velmora")).toInt(), 0);
    QCOMPARE(window.cmdTLocked->text(), QStringLiteral("Lock"));
}

void TestFrmTournament::lockedTournamentDisablesItsCommandsAndStillViewsOnDoubleClick()
{
    cTestSession session;
    cScriptedInteraction seam;
    auto tournament = OpenNewTournament(QStringLiteral("Locked one"));
    AddEntrant(QStringLiteral("Ames"), QStringLiteral("Jo"));
    tournament->setLocked(QStringLiteral("True"));
    tournament->Update();
    frmTournament window;
    ShowActive(window);
    ClickRow(window, 0);
    QVERIFY(tournament->SelPlayer());
    for (QPushButton *command : {window.cmdTUpdate, window.cmdTNextRound, window.cmdAdd,
                                 window.cmdUpdate, window.cmdWithdraw, window.cmdTPin})
        QVERIFY2(!command->isEnabled(), qPrintable(command->objectName()));
    QVERIFY(window.cmdTLocked->isEnabled());
    bool shown = false;
    WhenModalShows<frmPlayerDetails>(
        [](frmPlayerDetails *details) {
            QVERIFY(!details->cmdOk->isVisible());
            QCOMPARE(details->cmdCancel->text(), QStringLiteral("Close"));
            QTest::mouseClick(details->cmdCancel, Qt::LeftButton);
        },
        &shown);
    const QRect cell = window.lstPlayer->lstData->visualRect(
        window.lstPlayer->Model()->index(0, cDataListModel::EntrantNameColumn));
    QTest::mouseDClick(window.lstPlayer->lstData->viewport(), Qt::LeftButton, {}, cell.center());
    QTRY_VERIFY(shown);
}

void TestFrmTournament::withdrawTwiceReinstatesAndTheStrikeThroughGoes()
{
    cTestSession session;
    cScriptedInteraction seam;
    OpenNewTournament(QStringLiteral("Withdrawals"));
    auto ames = AddEntrant(QStringLiteral("Ames"), QStringLiteral("Jo"));
    frmTournament window;
    ShowActive(window);
    ClickRow(window, 0);
    QCOMPARE(window.cmdWithdraw->text(), QStringLiteral("Withdraw"));
    const qint16 busyBefore = BusyCount();
    QTest::mouseClick(window.cmdWithdraw, Qt::LeftButton);
    QVERIFY(ames->Withdrawn());
    QCOMPARE(SqlScalar(QStringLiteral("Select Withdrawn From Player")).toBool(), true);
    const QModelIndex name =
        window.lstPlayer->Model()->index(RowOf(window, *ames), cDataListModel::EntrantNameColumn);
    QVERIFY(name.data(Qt::FontRole).value<QFont>().strikeOut());
    QVERIFY(name.data(Qt::FontRole).value<QFont>().bold());
    QCOMPARE(window.cmdWithdraw->text(), QStringLiteral("Reinstate"));
    // The command leaves the busy count raised twice, as it always has.
    QCOMPARE(BusyCount(), qint16(busyBefore + 2));
    QTest::mouseClick(window.cmdWithdraw, Qt::LeftButton);
    QVERIFY(!ames->Withdrawn());
    QVERIFY(!window.lstPlayer->Model()
                 ->index(RowOf(window, *ames), cDataListModel::EntrantNameColumn)
                 .data(Qt::FontRole)
                 .isValid());
    QCOMPARE(window.cmdWithdraw->text(), QStringLiteral("Withdraw"));
    while (BusyCount() > 0)
        EndBusy();
}

void TestFrmTournament::updateOpensTheDetailsAndShowsTheChange()
{
    cTestSession session;
    cScriptedInteraction seam;
    OpenNewTournament(QStringLiteral("Before"));
    frmTournament window;
    ShowActive(window);
    bool shown = false;
    WhenModalShows<frmTournamentDetails>(
        [](frmTournamentDetails *details) {
            QCOMPARE(details->Mode(), int(cntlTournament::Change));
            ReplaceText(details->tournamentControl->txtTitle, QStringLiteral("After"));
            QTest::mouseClick(details->cmdOk, Qt::LeftButton);
        },
        &shown);
    QTest::mouseClick(window.cmdTUpdate, Qt::LeftButton);
    QVERIFY(shown);
    QCOMPARE(window.tournamentControl->lblTitle->text(), QStringLiteral("After"));
    QCOMPARE(SqlScalar(QStringLiteral("Select Title From Velmora")).toString(),
             QStringLiteral("After"));
}

void TestFrmTournament::updateOfAnEntrantShowsTheChange()
{
    cTestSession session;
    cScriptedInteraction seam;
    OpenNewTournament(QStringLiteral("Entrant update"));
    AddEntrant(QStringLiteral("Ames"), QStringLiteral("Jo"));
    frmTournament window;
    ShowActive(window);
    ClickRow(window, 0);
    bool shown = false;
    WhenModalShows<frmPlayerDetails>(
        [](frmPlayerDetails *details) {
            ReplaceText(details->playerControl->txtSurname, QStringLiteral("Amesbury"));
            QTest::mouseClick(details->cmdOk, Qt::LeftButton);
        },
        &shown);
    QTest::mouseClick(window.cmdUpdate, Qt::LeftButton);
    QVERIFY(shown);
    QCOMPARE(Cell(window, 0, cDataListModel::EntrantNameColumn), QStringLiteral("Amesbury, Jo"));
    // An entrant with no register record asks nothing.
    QCOMPARE(seam.Count(QStringLiteral("ask|")), 0);
}

void TestFrmTournament::allocatePinsByGradeShowsThePinsAndTheirCheck()
{
    cTestSession session;
    cScriptedInteraction seam;
    OpenNewTournament(QStringLiteral("Pins"));
    auto low = AddEntrant(QStringLiteral("Low"), QStringLiteral("Al"), QStringLiteral("100"));
    auto high = AddEntrant(QStringLiteral("High"), QStringLiteral("Bo"), QStringLiteral("180"));
    auto middle = AddEntrant(QStringLiteral("Mid"), QStringLiteral("Cy"), QStringLiteral("140"));
    frmTournament window;
    ShowActive(window);
    ClickRow(window, 0);
    bool shown = false;
    QString report;
    WhenModalShows<frmPlayerPins>(
        [&report](frmPlayerPins *pins) {
            QCOMPARE(pins->windowTitle(), QStringLiteral("Allocate Pin Numbers"));
            QCOMPARE(pins->Caller(), QStringLiteral("Tournament"));
            pins->optGrade->setChecked(true);
            QTest::mouseClick(pins->cmdApply, Qt::LeftButton);
            bool messageShown = false;
            WhenModalShows<frmMsg>(
                [&report](frmMsg *message) {
                    QCOMPARE(message->windowTitle(),
                             QStringLiteral("Validate Pin numbers for Tournament"));
                    report = message->txtNotes->toPlainText();
                    QTest::mouseClick(message->cmdClose, Qt::LeftButton);
                },
                &messageShown);
            QTest::mouseClick(pins->cmdValidate, Qt::LeftButton);
            QVERIFY(messageShown);
            QVERIFY(pins->isVisible());
            QTest::mouseClick(pins->cmdClose, Qt::LeftButton);
        },
        &shown);
    QTest::mouseClick(window.cmdTPin, Qt::LeftButton);
    QVERIFY(shown);
    QCOMPARE(report, QStringLiteral("All Pin numbers correctly allocated"));
    QCOMPARE(high->Pin(), QStringLiteral("1"));
    QCOMPARE(middle->Pin(), QStringLiteral("2"));
    QCOMPARE(low->Pin(), QStringLiteral("3"));
    QCOMPARE(Cell(window, 0, cDataListModel::EntrantNameColumn), QStringLiteral("High, Bo"));
    QCOMPARE(Cell(window, 2, cDataListModel::PinColumn), QStringLiteral("  3"));
    QCOMPARE(SqlScalar(QStringLiteral("Select Pin From Player Where Surname = 'Low'")).toInt(), 3);
}

void TestFrmTournament::pinCheckReportsGapsAndClashes()
{
    cTestSession session;
    cScriptedInteraction seam;
    OpenNewTournament(QStringLiteral("Gaps"));
    AddEntrant(QStringLiteral("One"), QStringLiteral("A"), QString(), QStringLiteral("1"));
    AddEntrant(QStringLiteral("Two"), QStringLiteral("B"), QString(), QStringLiteral("2"));
    AddEntrant(QStringLiteral("Four"), QStringLiteral("C"), QString(), QStringLiteral("4"));
    frmPlayerPins pins(QStringLiteral("Tournament"));
    ShowActive(pins);
    QString report;
    bool shown = false;
    WhenModalShows<frmMsg>(
        [&report](frmMsg *message) {
            report = message->txtNotes->toPlainText();
            message->close();
        },
        &shown);
    QTest::mouseClick(pins.cmdValidate, Qt::LeftButton);
    QVERIFY(shown);
    QCOMPARE(report.trimmed(), QStringLiteral("Pin number 3 not allocated."));
    // Clearing takes every pin away.
    QTest::mouseClick(pins.cmdClear, Qt::LeftButton);
    QCOMPARE(SqlScalar(QStringLiteral("Select count(*) From Player Where Pin Is Not Null")).toInt(),
             0);
}

void TestFrmTournament::pinsOfATournamentWithoutEntrantsAreAllCorrect()
{
    cTestSession session;
    cScriptedInteraction seam;
    OpenNewTournament(QStringLiteral("Nobody"));
    frmPlayerPins pins(QStringLiteral("Tournament"));
    ShowActive(pins);
    pins.optRandom->setChecked(true);
    QTest::mouseClick(pins.cmdApply, Qt::LeftButton);
    QString report;
    WhenModalShows<frmMsg>(
        [&report](frmMsg *message) {
            report = message->txtNotes->toPlainText();
            message->close();
        },
        nullptr);
    QTest::mouseClick(pins.cmdValidate, Qt::LeftButton);
    QCOMPARE(report, QStringLiteral("All Pin numbers correctly allocated"));
    QCOMPARE(RowCount(QStringLiteral("Player")), 0);
}

void TestFrmTournament::updatePlayerListOpensTheEntryDesk()
{
    cTestSession session;
    cScriptedInteraction seam;
    OpenNewTournament(QStringLiteral("Desk"));
    AddMasterPlayer(QStringLiteral("Ames"), QStringLiteral("Jo"), QStringLiteral("120"));
    frmTournament window;
    ShowActive(window);
    bool shown = false;
    WhenModalShows<frmPlayerList>(
        [](frmPlayerList *desk) {
            QCOMPARE(desk->windowTitle(), QStringLiteral("Player List"));
            QTest::mouseClick(desk->cmdClose, Qt::LeftButton);
        },
        &shown);
    QTest::mouseClick(window.cmdAdd, Qt::LeftButton);
    QVERIFY(shown);
}

void TestFrmTournament::headingClickSortsAndKeepsTheSelection()
{
    cTestSession session;
    cScriptedInteraction seam;
    OpenNewTournament(QStringLiteral("Sorting"));
    AddEntrant(QStringLiteral("Cole"), QStringLiteral("A"), QString(), QStringLiteral("1"));
    auto ames =
        AddEntrant(QStringLiteral("Ames"), QStringLiteral("B"), QString(), QStringLiteral("2"));
    AddEntrant(QStringLiteral("Bell"), QStringLiteral("C"), QString(), QStringLiteral("3"));
    frmTournament window;
    ShowActive(window);
    ClickRow(window, 1);
    QCOMPARE(window.lstPlayer->SelKey(), ames->PlayerId());
    window.lstPlayer->ClickHeading(cDataListModel::EntrantNameColumn);
    QCOMPARE(Cell(window, 0, cDataListModel::EntrantNameColumn), QStringLiteral("Ames, B"));
    QCOMPARE(window.lstPlayer->SelKey(), ames->PlayerId());
    window.lstPlayer->ClickHeading(cDataListModel::EntrantNameColumn);
    QCOMPARE(Cell(window, 0, cDataListModel::EntrantNameColumn), QStringLiteral("Cole, A"));
    QCOMPARE(window.lstPlayer->SelKey(), ames->PlayerId());
}

void TestFrmTournament::pairingAndResultsNeedsTwoEntrantsAndAnUnlockedTournament()
{
    cTestSession session;
    cScriptedInteraction seam;
    OpenNewTournament(QStringLiteral("Pairs"));
    AddEntrant(QStringLiteral("Ames"), QStringLiteral("Jo"), QStringLiteral("150"),
               QStringLiteral("1"));
    frmTournament window;
    ShowActive(window);
    QCOMPARE(window.cmdTPairResult->text(), QStringLiteral("Pairing && Results"));
    QVERIFY(window.cmdTPairResult->isVisible());
    QVERIFY(!window.cmdTPairResult->isEnabled());
    AddEntrant(QStringLiteral("Best"), QStringLiteral("Al"), QString(), QStringLiteral("2"));
    SetTournamentCommands();
    QVERIFY(window.cmdTPairResult->isEnabled());
    // Locking asks nothing and takes the round entry away.
    QTest::mouseClick(window.cmdTLocked, Qt::LeftButton);
    QVERIFY(!window.cmdTPairResult->isEnabled());
}

void TestFrmTournament::pairingAndResultsStoresTheRoundTypedAndShowsTheScores()
{
    cTestSession session;
    cScriptedInteraction seam;
    OpenNewTournament(QStringLiteral("Pairs"));
    auto ames = AddEntrant(QStringLiteral("Ames"), QStringLiteral("Jo"), QStringLiteral("150"),
                           QStringLiteral("1"));
    auto best =
        AddEntrant(QStringLiteral("Best"), QStringLiteral("Al"), QString(), QStringLiteral("2"));
    frmTournament window;
    ShowActive(window);
    // No game yet, so no score.
    QCOMPARE(Cell(window, RowOf(window, *ames), cDataListModel::ScoreColumn), QString());
    bool shown = false;
    WhenModalShows<frmPairings>(
        [](frmPairings *grid) {
            QLineEdit *input = grid->lstResults->txtInp;
            // Board 1 is proposed; white pin 1 wins against black pin 2.
            QTest::keyClick(input, Qt::Key_Tab);
            QTest::keyClicks(input, QStringLiteral("1"));
            QTest::keyClick(input, Qt::Key_Tab);
            QTest::keyClicks(input, QStringLiteral("W"));
            QTest::keyClick(input, Qt::Key_Tab);
            QTest::keyClicks(input, QStringLiteral("2"));
            QTest::keyClick(input, Qt::Key_Tab);
            grid->cmdOk->click();
        },
        &shown);
    QTest::mouseClick(window.cmdTPairResult, Qt::LeftButton);
    QVERIFY(shown);
    QCOMPARE(
        SqlScalar(QStringLiteral("SELECT count(*) FROM Result WHERE \"Result\" = 'W'")).toInt(), 1);
    QCOMPARE(Cell(window, RowOf(window, *ames), cDataListModel::ScoreColumn),
             QStringLiteral(" 1 /1"));
    QCOMPARE(Cell(window, RowOf(window, *best), cDataListModel::ScoreColumn),
             QStringLiteral(" 0 /1"));
}

VELMORA_WIDGET_TEST_MAIN(TestFrmTournament)
#include "test_frm_tournament.moc"
