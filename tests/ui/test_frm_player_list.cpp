#include "database/sql.h"
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
#include "ui/entrant_list.h"
#include "ui/frm_player_details.h"
#include "ui/frm_player_list.h"
#include "ui/frm_player_pins.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTableView>
#include <QTest>

namespace {

int TabOf(const frmPlayerList &desk, const QString &caption)
{
    for (int tab = 0; tab < desk.lstMaster->tabChar->count(); ++tab)
        if (desk.lstMaster->tabChar->tabText(tab) == caption)
            return tab;
    return -1;
}

void ChooseTab(frmPlayerList &desk, const QString &caption)
{
    QTabBar *tabs = desk.lstMaster->tabChar;
    const QRect tab = tabs->tabRect(TabOf(desk, caption));
    tabs->setCurrentIndex(TabOf(desk, caption));
    QTest::mouseClick(tabs, Qt::LeftButton, {}, tab.center());
}

void ClickMasterRow(frmPlayerList &desk, int row)
{
    QTableView *list = desk.lstMaster->lstMaster->lstData;
    const QRect cell = list->visualRect(list->model()->index(row, cDataListModel::NameColumn));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, cell.center());
}

void ClickEntrantRow(frmPlayerList &desk, int row)
{
    cEntrantList *list = desk.lstPlayer->lstData;
    const QRect cell = list->visualRect(list->Model()->index(row, cEntrantListModel::Name));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, cell.center());
}

QString EntrantCell(const frmPlayerList &desk, int row, int column)
{
    return desk.lstPlayer->lstData->Model()->Text(row, column);
}

int EntrantRows(const frmPlayerList &desk)
{
    return desk.lstPlayer->lstData->Model()->rowCount();
}

} // namespace

class TestFrmPlayerList : public QObject
{
    Q_OBJECT

private slots:
    void registerShowsNobodyUntilATabIsChosen();
    void letterTabListsTheSurnamesOfThatLetter();
    void searchTabFindsByTheStartOfTheSurname();
    void searchTextWithPatternCharactersMatchesThemLiterally();
    void addEntersTheSelectedPersonAndIsThenDisabled();
    void doubleClickOnTheRegisterAdds();
    void newEntrantWithoutRegisterRecord();
    void lettersInThePinBoxBlockLeavingTheRow();
    void pinTypedInPlaceIsSavedOnLeaving();
    void downOnTheLastRowAndUpOnRowZeroDoNothing();
    void withdrawTwiceBringsTheEntrantBack();
    void removeTakesTheEntrantAndSelectsTheNext();
    void entrantCommandsNeedASelectedEntrant();
    void allocatePinsFromTheDeskReloadsItsList();
};

void TestFrmPlayerList::registerShowsNobodyUntilATabIsChosen()
{
    cTestSession session;
    cScriptedInteraction seam;
    OpenNewTournament(QStringLiteral("Desk"));
    AddMasterPlayer(QStringLiteral("Ames"), QStringLiteral("Jo"));
    frmPlayerList desk;
    ShowActive(desk);
    QCOMPARE(desk.lstMaster->tabChar->count(), 27);
    QCOMPARE(desk.lstMaster->tabChar->tabText(0), QStringLiteral("?"));
    QCOMPARE(desk.lstMaster->tabChar->tabText(26), QStringLiteral("Z"));
    QCOMPARE(desk.lstMaster->lstMaster->lstData->model()->rowCount(), 0);
    QVERIFY(!desk.cmdAdd->isEnabled());
    QVERIFY(!desk.lstMaster->cmdSearch->isEnabled());
}

void TestFrmPlayerList::letterTabListsTheSurnamesOfThatLetter()
{
    cTestSession session;
    cScriptedInteraction seam;
    OpenNewTournament(QStringLiteral("Desk"));
    AddMasterPlayer(QStringLiteral("Best"), QStringLiteral("Al"));
    AddMasterPlayer(QStringLiteral("Ames"), QStringLiteral("Jo"));
    AddMasterPlayer(QStringLiteral("Cole"), QStringLiteral("Cy"));
    AddMasterPlayer(QStringLiteral("Abbot"), QStringLiteral("Di"));
    frmPlayerList desk;
    ShowActive(desk);
    ChooseTab(desk, QStringLiteral("A"));
    QAbstractItemModel *rows = desk.lstMaster->lstMaster->lstData->model();
    QCOMPARE(rows->rowCount(), 2);
    QCOMPARE(rows->index(0, cDataListModel::NameColumn).data().toString(),
             QStringLiteral("Abbot, Di"));
    QCOMPARE(rows->index(1, cDataListModel::NameColumn).data().toString(),
             QStringLiteral("Ames, Jo"));
    QVERIFY(!desk.lstMaster->txtSearch->isVisible());
    QVERIFY(desk.cmdAdd->isEnabled());
}

void TestFrmPlayerList::searchTabFindsByTheStartOfTheSurname()
{
    cTestSession session;
    cScriptedInteraction seam;
    OpenNewTournament(QStringLiteral("Desk"));
    AddMasterPlayer(QStringLiteral("Smith"), QStringLiteral("Al"));
    AddMasterPlayer(QStringLiteral("Smythe"), QStringLiteral("Bo"));
    AddMasterPlayer(QStringLiteral("Jones"), QStringLiteral("Cy"));
    frmPlayerList desk;
    ShowActive(desk);
    QVERIFY(desk.lstMaster->txtSearch->isVisible());
    desk.lstMaster->txtSearch->setFocus();
    QTest::keyClicks(desk.lstMaster->txtSearch, QStringLiteral("smi"));
    QVERIFY(desk.lstMaster->cmdSearch->isEnabled());
    QTest::mouseClick(desk.lstMaster->cmdSearch, Qt::LeftButton);
    QAbstractItemModel *rows = desk.lstMaster->lstMaster->lstData->model();
    QCOMPARE(rows->rowCount(), 1);
    QCOMPARE(rows->index(0, cDataListModel::NameColumn).data().toString(),
             QStringLiteral("Smith, Al"));
    QVERIFY(desk.lstMaster->lstMaster->lstData->hasFocus());
}

void TestFrmPlayerList::searchTextWithPatternCharactersMatchesThemLiterally()
{
    cTestSession session;
    cScriptedInteraction seam;
    OpenNewTournament(QStringLiteral("Desk"));
    AddMasterPlayer(QStringLiteral("O'Brien"), QStringLiteral("Al"));
    AddMasterPlayer(QStringLiteral("Oxford"), QStringLiteral("Bo"));
    frmPlayerList desk;
    ShowActive(desk);
    for (const QString &text : {QStringLiteral("%"), QStringLiteral("_"), QStringLiteral("\"")}) {
        ReplaceText(desk.lstMaster->txtSearch, text);
        QTest::mouseClick(desk.lstMaster->cmdSearch, Qt::LeftButton);
        QCOMPARE(desk.lstMaster->lstMaster->lstData->model()->rowCount(), 0);
    }
    ReplaceText(desk.lstMaster->txtSearch, QStringLiteral("O'"));
    QTest::mouseClick(desk.lstMaster->cmdSearch, Qt::LeftButton);
    QCOMPARE(desk.lstMaster->lstMaster->lstData->model()->rowCount(), 1);
}

void TestFrmPlayerList::addEntersTheSelectedPersonAndIsThenDisabled()
{
    cTestSession session;
    cScriptedInteraction seam;
    auto tournament = OpenNewTournament(QStringLiteral("Desk"));
    const QString ames =
        AddMasterPlayer(QStringLiteral("Ames"), QStringLiteral("Jo"), QStringLiteral("150"));
    AddMasterPlayer(QStringLiteral("Abbot"), QStringLiteral("Di"));
    frmPlayerList desk;
    ShowActive(desk);
    ChooseTab(desk, QStringLiteral("A"));
    ClickMasterRow(desk, 1);
    QCOMPARE(desk.lstMaster->SelKey(), ames);
    QVERIFY(desk.cmdAdd->isEnabled());
    QTest::mouseClick(desk.cmdAdd, Qt::LeftButton);
    QCOMPARE(tournament->Players().Count(), 1);
    QCOMPARE(EntrantRows(desk), 1);
    QCOMPARE(EntrantCell(desk, 0, cEntrantListModel::Name), QStringLiteral("Ames, Jo"));
    QCOMPARE(EntrantCell(desk, 0, cEntrantListModel::Grade), QStringLiteral("150 "));
    QCOMPARE(tournament->SelPlayer()->MasterId(), ames);
    QCOMPARE(desk.lstPlayer->SelKey(), tournament->SelPlayer()->PlayerId());
    // The same person can not be entered twice.
    QVERIFY(!desk.cmdAdd->isEnabled());
    ClickMasterRow(desk, 0);
    QVERIFY(desk.cmdAdd->isEnabled());
    ClickMasterRow(desk, 1);
    QVERIFY(!desk.cmdAdd->isEnabled());
    QCOMPARE(SqlScalar(QStringLiteral("Select count(*) From Player")).toInt(), 1);
}

void TestFrmPlayerList::doubleClickOnTheRegisterAdds()
{
    cTestSession session;
    cScriptedInteraction seam;
    auto tournament = OpenNewTournament(QStringLiteral("Desk"));
    AddMasterPlayer(QStringLiteral("Ames"), QStringLiteral("Jo"));
    frmPlayerList desk;
    ShowActive(desk);
    ChooseTab(desk, QStringLiteral("A"));
    QTableView *list = desk.lstMaster->lstMaster->lstData;
    const QRect cell = list->visualRect(list->model()->index(0, cDataListModel::NameColumn));
    // A double click starts with the press of its first click.
    QTest::mousePress(list->viewport(), Qt::LeftButton, {}, cell.center());
    QTest::mouseRelease(list->viewport(), Qt::LeftButton, {}, cell.center());
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, cell.center());
    QCOMPARE(tournament->Players().Count(), 1);
    // A second double click on the person already entered adds nobody.
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, cell.center());
    QCOMPARE(tournament->Players().Count(), 1);
}

void TestFrmPlayerList::newEntrantWithoutRegisterRecord()
{
    cTestSession session;
    cScriptedInteraction seam;
    auto tournament = OpenNewTournament(QStringLiteral("Desk"));
    frmPlayerList desk;
    ShowActive(desk);
    bool shown = false;
    WhenModalShows<frmPlayerDetails>(
        [](frmPlayerDetails *details) {
            cntlPlayerDetails *fields = details->playerControl;
            QVERIFY(fields->frmText->isVisible());
            QApplication::setActiveWindow(details);
            fields->txtForename->setFocus();
            QTRY_VERIFY(fields->txtForename->hasFocus());
            QTest::keyClicks(fields->txtForename, QStringLiteral("mary ann"));
            QTest::keyClick(fields->txtForename, Qt::Key_Tab);
            QTest::keyClicks(fields->txtSurname, QStringLiteral("o'neil"));
            QTest::keyClick(fields->txtSurname, Qt::Key_Tab);
            QTRY_COMPARE(fields->txtSurname->text(), QStringLiteral("O'neil"));
            QCOMPARE(fields->txtForename->text(), QStringLiteral("Mary Ann"));
            QTest::mouseClick(details->cmdOk, Qt::LeftButton);
        },
        &shown);
    QTest::mouseClick(desk.cmdPlayerNew, Qt::LeftButton);
    QVERIFY(shown);
    QCOMPARE(tournament->Players().Count(), 1);
    QCOMPARE(EntrantCell(desk, 0, cEntrantListModel::Name), QStringLiteral("O'neil, Mary Ann"));
    QCOMPARE(tournament->SelPlayer()->MasterId(), QString());
    QCOMPARE(SqlScalar(QStringLiteral("Select Surname From Player")).toString(),
             QStringLiteral("O'neil"));
}

void TestFrmPlayerList::lettersInThePinBoxBlockLeavingTheRow()
{
    cTestSession session;
    cScriptedInteraction seam;
    OpenNewTournament(QStringLiteral("Desk"));
    AddEntrant(QStringLiteral("Ames"), QStringLiteral("Jo"), QString(), QStringLiteral("1"));
    AddEntrant(QStringLiteral("Best"), QStringLiteral("Al"), QString(), QStringLiteral("2"));
    frmPlayerList desk;
    ShowActive(desk);
    ClickEntrantRow(desk, 0);
    QLineEdit *pin = desk.lstPlayer->txtInp;
    QTRY_VERIFY(pin->hasFocus());
    QVERIFY(pin->isVisible());
    ReplaceText(pin, QStringLiteral("ab"));
    QTest::keyClick(pin, Qt::Key_Down);
    QCOMPARE(desk.lstPlayer->Row(), 0);
    QCOMPARE(seam.Count(QStringLiteral("beep")), 1);
    ClickEntrantRow(desk, 1);
    QCOMPARE(desk.lstPlayer->Row(), 0);
    QCOMPARE(seam.Count(QStringLiteral("beep")), 2);
    QTRY_VERIFY(pin->hasFocus());
    QCOMPARE(SqlScalar(QStringLiteral("Select Pin From Player Where Surname = 'Ames'")).toInt(), 1);
}

void TestFrmPlayerList::pinTypedInPlaceIsSavedOnLeaving()
{
    cTestSession session;
    cScriptedInteraction seam;
    auto tournament = OpenNewTournament(QStringLiteral("Desk"));
    auto ames =
        AddEntrant(QStringLiteral("Ames"), QStringLiteral("Jo"), QString(), QStringLiteral("1"));
    auto best =
        AddEntrant(QStringLiteral("Best"), QStringLiteral("Al"), QString(), QStringLiteral("2"));
    frmPlayerList desk;
    ShowActive(desk);
    ClickEntrantRow(desk, 0);
    QLineEdit *pin = desk.lstPlayer->txtInp;
    QTRY_VERIFY(pin->hasFocus());
    QCOMPARE(pin->text(), QStringLiteral("1"));
    ReplaceText(pin, QStringLiteral("7"));
    QTest::keyClick(pin, Qt::Key_Down);
    QCOMPARE(desk.lstPlayer->Row(), 1);
    QCOMPARE(ames->Pin(), QStringLiteral("7"));
    QCOMPARE(SqlScalar(QStringLiteral("Select Pin From Player Where Surname = 'Ames'")).toInt(), 7);
    QCOMPARE(EntrantCell(desk, 0, cEntrantListModel::Pin), QStringLiteral("  7"));
    QCOMPARE(pin->text(), QStringLiteral("2"));
    ReplaceText(pin, QStringLiteral("8"));
    QTest::keyClick(pin, Qt::Key_Tab);
    QTRY_COMPARE(best->Pin(), QStringLiteral("8"));
    QCOMPARE(seam.Count(QStringLiteral("beep")), 0);
    // The tab keys pass through the pin box both ways.
    QTRY_VERIFY(!pin->hasFocus());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
    QTRY_VERIFY(pin->hasFocus());
    QTest::keyClick(pin, Qt::Key_Backtab);
    QTRY_VERIFY(!pin->hasFocus());
    QVERIFY(!desk.lstPlayer->lstData->hasFocus());
}

void TestFrmPlayerList::downOnTheLastRowAndUpOnRowZeroDoNothing()
{
    cTestSession session;
    cScriptedInteraction seam;
    OpenNewTournament(QStringLiteral("Desk"));
    AddEntrant(QStringLiteral("Ames"), QStringLiteral("Jo"), QString(), QStringLiteral("1"));
    AddEntrant(QStringLiteral("Best"), QStringLiteral("Al"), QString(), QStringLiteral("2"));
    frmPlayerList desk;
    ShowActive(desk);
    ClickEntrantRow(desk, 0);
    QLineEdit *pin = desk.lstPlayer->txtInp;
    QTRY_VERIFY(pin->hasFocus());
    QTest::keyClick(pin, Qt::Key_Up);
    QCOMPARE(desk.lstPlayer->Row(), 0);
    QTest::keyClick(pin, Qt::Key_Down);
    QCOMPARE(desk.lstPlayer->Row(), 1);
    QTest::keyClick(pin, Qt::Key_Down);
    QCOMPARE(desk.lstPlayer->Row(), 1);
    QVERIFY(pin->hasFocus());
    QTest::keyClick(pin, Qt::Key_Up);
    QCOMPARE(desk.lstPlayer->Row(), 0);
}

void TestFrmPlayerList::withdrawTwiceBringsTheEntrantBack()
{
    cTestSession session;
    cScriptedInteraction seam;
    OpenNewTournament(QStringLiteral("Desk"));
    auto ames = AddEntrant(QStringLiteral("Ames"), QStringLiteral("Jo"));
    frmPlayerList desk;
    ShowActive(desk);
    ClickEntrantRow(desk, 0);
    QTest::mouseClick(desk.cmdWithdraw, Qt::LeftButton);
    QVERIFY(ames->Withdrawn());
    const auto font = [&desk] {
        return desk.lstPlayer->lstData->Model()
            ->index(0, cEntrantListModel::Name)
            .data(Qt::FontRole);
    };
    QVERIFY(font().value<QFont>().strikeOut());
    QCOMPARE(desk.cmdWithdraw->text(), QStringLiteral("Reinstate"));
    QTest::mouseClick(desk.cmdWithdraw, Qt::LeftButton);
    QVERIFY(!ames->Withdrawn());
    QVERIFY(!font().isValid());
    QCOMPARE(SqlScalar(QStringLiteral("Select Withdrawn From Player")).toBool(), false);
}

void TestFrmPlayerList::removeTakesTheEntrantAndSelectsTheNext()
{
    cTestSession session;
    cScriptedInteraction seam;
    auto tournament = OpenNewTournament(QStringLiteral("Desk"));
    AddEntrant(QStringLiteral("Ames"), QStringLiteral("Jo"), QString(), QStringLiteral("1"));
    auto best =
        AddEntrant(QStringLiteral("Best"), QStringLiteral("Al"), QString(), QStringLiteral("2"));
    frmPlayerList desk;
    ShowActive(desk);
    ClickEntrantRow(desk, 0);
    QTest::mouseClick(desk.cmdRemove, Qt::LeftButton);
    QCOMPARE(tournament->Players().Count(), 1);
    QCOMPARE(EntrantRows(desk), 1);
    QCOMPARE(tournament->SelPlayer(), best);
    QCOMPARE(RowCount(QStringLiteral("Player")), 1);
}

void TestFrmPlayerList::entrantCommandsNeedASelectedEntrant()
{
    cTestSession session;
    cScriptedInteraction seam;
    OpenNewTournament(QStringLiteral("Desk"));
    frmPlayerList desk;
    ShowActive(desk);
    for (QPushButton *command :
         {desk.cmdPlayerUpdate, desk.cmdRemove, desk.cmdWithdraw, desk.cmdTPin})
        QVERIFY2(!command->isEnabled(), qPrintable(command->objectName()));
    QVERIFY(desk.cmdPlayerNew->isEnabled());
    QTest::mouseClick(desk.cmdRemove, Qt::LeftButton);
    QCOMPARE(RowCount(QStringLiteral("Player")), 0);
}

void TestFrmPlayerList::allocatePinsFromTheDeskReloadsItsList()
{
    cTestSession session;
    cScriptedInteraction seam;
    OpenNewTournament(QStringLiteral("Desk"));
    AddEntrant(QStringLiteral("Zeta"), QStringLiteral("A"));
    AddEntrant(QStringLiteral("Alpha"), QStringLiteral("B"));
    frmPlayerList desk;
    ShowActive(desk);
    ClickEntrantRow(desk, 0);
    bool shown = false;
    WhenModalShows<frmPlayerPins>(
        [&desk](frmPlayerPins *pins) {
            QCOMPARE(pins->Caller(), QStringLiteral("ListPlayer"));
            pins->optName->setChecked(true);
            QTest::mouseClick(pins->cmdApply, Qt::LeftButton);
            // The desk's list shows the pins while the dialog is still open.
            QCOMPARE(EntrantCell(desk, 0, cEntrantListModel::Pin), QStringLiteral("  1"));
            QCOMPARE(EntrantCell(desk, 0, cEntrantListModel::Name), QStringLiteral("Alpha, B"));
            QTest::mouseClick(pins->cmdClose, Qt::LeftButton);
        },
        &shown);
    QTest::mouseClick(desk.cmdTPin, Qt::LeftButton);
    QVERIFY(shown);
    QCOMPARE(SqlScalar(QStringLiteral("Select Pin From Player Where Surname = 'Zeta'")).toInt(), 2);
}

VELMORA_WIDGET_TEST_MAIN(TestFrmPlayerList)
#include "test_frm_player_list.moc"
