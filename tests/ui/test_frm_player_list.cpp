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
#include "ui/cntl_bcf_master_details.h"
#include "ui/cntl_data_list.h"
#include "ui/cntl_master_details.h"
#include "ui/cntl_master_list.h"
#include "ui/cntl_player_details.h"
#include "ui/cntl_player_list.h"
#include "ui/entrant_list.h"
#include "ui/frm_bcf_master.h"
#include "ui/frm_master_details.h"
#include "ui/frm_player_details.h"
#include "ui/frm_player_list.h"
#include "ui/frm_player_pins.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTableView>
#include <QTest>
#include <QTimer>

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

QString StoredMaster(const QString &id, const char *field)
{
    return TextOf(SqlScalar(QStringLiteral("SELECT ") + QString::fromLatin1(field) +
                                QStringLiteral(" FROM Master WHERE MasterId = ?"),
                            {id}));
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
    void registerCommandsNeedASelectedPerson();
    void masterViewShowsThePersonReadOnly();
    void masterUpdateStoresAndKeepsTheSelection();
    void masterNewShowsThePersonUnderTheirLetter();
    void masterDeleteTakesThePersonFromTheRegister();
    void masterDeleteOfAnEntrantAsksFirst();
    void matchTakesCodeAndGradesAndKeepsTheSelection();
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

void TestFrmPlayerList::registerCommandsNeedASelectedPerson()
{
    cTestSession session;
    cScriptedInteraction seam;
    OpenNewTournament(QStringLiteral("Desk"));
    AddMasterPlayer(QStringLiteral("Ames"), QStringLiteral("Jo"));
    frmPlayerList desk;
    ShowActive(desk);
    QCOMPARE(desk.cmdMasterView->text(), QStringLiteral("View"));
    QCOMPARE(desk.cmdMasterUpdate->text(), QStringLiteral("Update"));
    QCOMPARE(desk.cmdMasterNew->text(), QStringLiteral("New"));
    QCOMPARE(desk.cmdMasterDelete->text(), QStringLiteral("Delete"));
    QCOMPARE(desk.cmdMatch->text(), QStringLiteral("Match to BCF Grading List"));
    for (QPushButton *command :
         {desk.cmdMasterView, desk.cmdMasterUpdate, desk.cmdMasterDelete, desk.cmdMatch})
        QVERIFY2(!command->isEnabled(), qPrintable(command->objectName()));
    QVERIFY(desk.cmdMasterNew->isEnabled());
    // Nothing to act on: the commands do nothing.
    QTest::mouseClick(desk.cmdMasterDelete, Qt::LeftButton);
    QCOMPARE(RowCount(QStringLiteral("Master")), 1);
    ChooseTab(desk, QStringLiteral("A"));
    ClickMasterRow(desk, 0);
    for (QPushButton *command :
         {desk.cmdMasterView, desk.cmdMasterUpdate, desk.cmdMasterDelete, desk.cmdMatch})
        QVERIFY2(command->isEnabled(), qPrintable(command->objectName()));
}

void TestFrmPlayerList::masterViewShowsThePersonReadOnly()
{
    cTestSession session;
    cScriptedInteraction seam;
    OpenNewTournament(QStringLiteral("Desk"));
    AddMasterPlayer(QStringLiteral("Abbot"), QStringLiteral("Di"));
    const QString ames =
        AddMasterPlayer(QStringLiteral("Ames"), QStringLiteral("Jo"), QStringLiteral("150"));
    frmPlayerList desk;
    ShowActive(desk);
    ChooseTab(desk, QStringLiteral("A"));
    ClickMasterRow(desk, 1);
    bool shown = false;
    QString surname;
    QString grade;
    bool readOnly = false;
    bool okHidden = false;
    QString closeText;
    WhenModalShows<frmMasterDetails>(
        [&](frmMasterDetails *dialog) {
            surname = dialog->cntlDetails->txtSurname->text();
            grade = dialog->cntlDetails->txtGrade->text();
            readOnly = dialog->cntlDetails->txtSurname->isReadOnly();
            okHidden = !dialog->cmdOk->isVisible();
            closeText = dialog->cmdCancel->text();
            QTest::mouseClick(dialog->cmdCancel, Qt::LeftButton);
        },
        &shown);
    QTest::mouseClick(desk.cmdMasterView, Qt::LeftButton);
    QVERIFY(shown);
    QCOMPARE(surname, QStringLiteral("Ames"));
    QCOMPARE(grade, QStringLiteral("150"));
    QVERIFY(readOnly);
    QVERIFY(okHidden);
    QCOMPARE(closeText, QStringLiteral("Close"));
    QCOMPARE(desk.lstMaster->SelKey(), ames);
}

void TestFrmPlayerList::masterUpdateStoresAndKeepsTheSelection()
{
    cTestSession session;
    cScriptedInteraction seam;
    OpenNewTournament(QStringLiteral("Desk"));
    AddMasterPlayer(QStringLiteral("Abbot"), QStringLiteral("Di"));
    const QString ames = AddMasterPlayer(QStringLiteral("Ames"), QStringLiteral("Jo"));
    AddMasterPlayer(QStringLiteral("Axe"), QStringLiteral("Al"));
    frmPlayerList desk;
    ShowActive(desk);
    ChooseTab(desk, QStringLiteral("A"));
    ClickMasterRow(desk, 1);
    bool shown = false;
    WhenModalShows<frmMasterDetails>(
        [](frmMasterDetails *dialog) {
            QLineEdit *surname = dialog->cntlDetails->txtSurname;
            QVERIFY(!surname->isReadOnly());
            surname->setFocus();
            ReplaceText(surname, QStringLiteral("Aaron"));
            QTest::mouseClick(dialog->cmdOk, Qt::LeftButton);
        },
        &shown);
    QTest::mouseClick(desk.cmdMasterUpdate, Qt::LeftButton);
    QVERIFY(shown);
    QCOMPARE(StoredMaster(ames, "Surname"), QStringLiteral("Aaron"));
    // The list is read again: the person now sorts first and is still the one selected.
    QAbstractItemModel *rows = desk.lstMaster->lstMaster->lstData->model();
    QCOMPARE(rows->index(0, cDataListModel::NameColumn).data().toString(),
             QStringLiteral("Aaron, Jo"));
    QCOMPARE(desk.lstMaster->SelKey(), ames);
    QCOMPARE(Control().Master()->Surname(), QStringLiteral("Aaron"));
    QVERIFY(desk.cmdAdd->isEnabled());
}

void TestFrmPlayerList::masterNewShowsThePersonUnderTheirLetter()
{
    cTestSession session;
    cScriptedInteraction seam;
    auto tournament = OpenNewTournament(QStringLiteral("Desk"));
    AddMasterPlayer(QStringLiteral("Ames"), QStringLiteral("Jo"));
    frmPlayerList desk;
    ShowActive(desk);
    ChooseTab(desk, QStringLiteral("A"));
    bool shown = false;
    WhenModalShows<frmMasterDetails>(
        [](frmMasterDetails *dialog) {
            QTest::keyClicks(dialog->cntlDetails->txtForename, QStringLiteral("Zoe"));
            dialog->cntlDetails->txtSurname->setFocus();
            QTest::keyClicks(dialog->cntlDetails->txtSurname, QStringLiteral("Zed"));
            QTest::mouseClick(dialog->cmdOk, Qt::LeftButton);
        },
        &shown);
    QTest::mouseClick(desk.cmdMasterNew, Qt::LeftButton);
    QVERIFY(shown);
    QCOMPARE(RowCount(QStringLiteral("Master")), 2);
    const QString zed =
        TextOf(SqlScalar(QStringLiteral("Select MasterId From Master Where Surname = 'Zed'")));
    QVERIFY(!zed.isEmpty());
    QCOMPARE(desk.lstMaster->Tab(), QStringLiteral("Z"));
    QCOMPARE(desk.lstMaster->SelKey(), zed);
    QCOMPARE(desk.lstMaster->SelName(), QStringLiteral("Zed, Zoe"));
    QCOMPARE(Control().Master()->MasterId(), zed);
    // The new person goes straight into the tournament.
    QVERIFY(desk.cmdAdd->isEnabled());
    QTest::mouseClick(desk.cmdAdd, Qt::LeftButton);
    QCOMPARE(tournament->Players().Count(), 1);
    QCOMPARE(EntrantCell(desk, 0, cEntrantListModel::Name), QStringLiteral("Zed, Zoe"));
}

void TestFrmPlayerList::masterDeleteTakesThePersonFromTheRegister()
{
    cTestSession session;
    cScriptedInteraction seam;
    OpenNewTournament(QStringLiteral("Desk"));
    const QString abbot = AddMasterPlayer(QStringLiteral("Abbot"), QStringLiteral("Di"));
    const QString ames = AddMasterPlayer(QStringLiteral("Ames"), QStringLiteral("Jo"));
    frmPlayerList desk;
    ShowActive(desk);
    ChooseTab(desk, QStringLiteral("A"));
    ClickMasterRow(desk, 0);
    QString okText;
    bool warned = false;
    bool shown = false;
    WhenModalShows<frmMasterDetails>(
        [&](frmMasterDetails *dialog) {
            okText = dialog->cmdOk->text();
            warned = dialog->lblMsg->isVisible();
            QTest::mouseClick(dialog->cmdOk, Qt::LeftButton);
        },
        &shown);
    QTest::mouseClick(desk.cmdMasterDelete, Qt::LeftButton);
    QVERIFY(shown);
    QCOMPARE(okText.remove(u'&'), QStringLiteral("Delete"));
    QVERIFY(warned);
    QCOMPARE(seam.Count(QStringLiteral("ask|")), 0);
    QCOMPARE(RowCount(QStringLiteral("Master")), 1);
    QCOMPARE(StoredMaster(abbot, "Surname"), QString());
    QCOMPARE(desk.lstMaster->lstMaster->RowCount(), 1);
    QCOMPARE(desk.lstMaster->SelKey(), ames);
    QCOMPARE(Control().Master()->MasterId(), ames);
    // Cancel in the dialog keeps the person.
    WhenModalShows<frmMasterDetails>(
        [](frmMasterDetails *dialog) { QTest::mouseClick(dialog->cmdCancel, Qt::LeftButton); },
        nullptr);
    QTest::mouseClick(desk.cmdMasterDelete, Qt::LeftButton);
    QCOMPARE(RowCount(QStringLiteral("Master")), 1);
    QCOMPARE(desk.lstMaster->SelKey(), ames);
}

void TestFrmPlayerList::masterDeleteOfAnEntrantAsksFirst()
{
    cTestSession session;
    cScriptedInteraction seam;
    auto tournament = OpenNewTournament(QStringLiteral("Desk"));
    const QString ames = AddMasterPlayer(QStringLiteral("Ames"), QStringLiteral("Jo"));
    frmPlayerList desk;
    ShowActive(desk);
    ChooseTab(desk, QStringLiteral("A"));
    ClickMasterRow(desk, 0);
    QTest::mouseClick(desk.cmdAdd, Qt::LeftButton);
    QCOMPARE(tournament->Players().Count(), 1);
    // No to the question: no dialog, the person stays.
    seam.QueueAnswer(false);
    bool shown = false;
    {
        QTimer guard;
        guard.setInterval(5);
        connect(&guard, &QTimer::timeout, this, [&shown] {
            if (auto *dialog =
                    qobject_cast<frmMasterDetails *>(QApplication::activeModalWidget())) {
                shown = true;
                dialog->reject();
            }
        });
        guard.start();
        QTest::mouseClick(desk.cmdMasterDelete, Qt::LeftButton);
        QTest::qWait(20);
    }
    QCOMPARE(seam.CallsStartingWith(QStringLiteral("ask|")),
             QStringList{QStringLiteral("ask|Velmora!|The Player has been included in a "
                                        "Tournament. Do you still want to delete the player?")});
    QVERIFY(!shown);
    QCOMPARE(StoredMaster(ames, "Surname"), QStringLiteral("Ames"));
    // Yes, then Delete in the dialog: two confirmations. The entrant stays entered.
    seam.QueueAnswer(true);
    WhenModalShows<frmMasterDetails>(
        [](frmMasterDetails *dialog) { QTest::mouseClick(dialog->cmdOk, Qt::LeftButton); }, &shown);
    QTest::mouseClick(desk.cmdMasterDelete, Qt::LeftButton);
    QVERIFY(shown);
    QCOMPARE(seam.Count(QStringLiteral("ask|")), 2);
    QCOMPARE(RowCount(QStringLiteral("Master")), 0);
    QCOMPARE(desk.lstMaster->lstMaster->RowCount(), 0);
    QVERIFY(!desk.cmdMasterUpdate->isEnabled());
    QVERIFY(!desk.cmdAdd->isEnabled());
    QCOMPARE(tournament->Players().Count(), 1);
}

void TestFrmPlayerList::matchTakesCodeAndGradesAndKeepsTheSelection()
{
    cTestSession session;
    cScriptedInteraction seam;
    OpenNewTournament(QStringLiteral("Desk"));
    AddMasterPlayer(QStringLiteral("Smart"), QStringLiteral("Al"));
    const QString smith = AddMasterPlayer(QStringLiteral("Smith"), QStringLiteral("Ann"));
    RunSql(QStringLiteral("INSERT INTO BCFMast (Ref, Name, Age, Grade, Cat, RGrade, RCat) VALUES "
                          "('100001A', 'Smith, Alan', 'A', 120, 'A', NULL, NULL), "
                          "('100002B', 'Smith, Ann', 'A', 155, 'B', 140, 'C')"));
    frmPlayerList desk;
    ShowActive(desk);
    ChooseTab(desk, QStringLiteral("S"));
    ClickMasterRow(desk, 1);
    QCOMPARE(desk.lstMaster->SelKey(), smith);
    bool shown = false;
    QString searched;
    WhenModalShows<frmBCFMaster>(
        [&](frmBCFMaster *dialog) {
            searched = dialog->lstBCF->txtSearch->text();
            QTest::keyClicks(dialog->lstBCF->lstMaster->lstData, QStringLiteral("smith, an"));
            QCOMPARE(dialog->cntlBCFDetails->lblCode->text(), QStringLiteral("100002B"));
            QTest::mouseClick(dialog->cmdMatch, Qt::LeftButton);
        },
        &shown);
    QTest::mouseClick(desk.cmdMatch, Qt::LeftButton);
    QVERIFY(shown);
    QCOMPARE(searched, QStringLiteral("Smith, A"));
    QCOMPARE(StoredMaster(smith, "Code"), QStringLiteral("100002B"));
    QCOMPARE(StoredMaster(smith, "Grade"), QStringLiteral("155"));
    QCOMPARE(StoredMaster(smith, "RGrade"), QStringLiteral("140"));
    QCOMPARE(desk.lstMaster->SelKey(), smith);
    QCOMPARE(desk.lstMaster->SelCode(), QStringLiteral("100002B"));
    QCOMPARE(Control().Master()->BCFCode(), QStringLiteral("100002B"));
    // Closing the window takes nothing.
    WhenModalShows<frmBCFMaster>(
        [](frmBCFMaster *dialog) { QTest::mouseClick(dialog->cmdNoMatch, Qt::LeftButton); },
        nullptr);
    QTest::mouseClick(desk.cmdMatch, Qt::LeftButton);
    QCOMPARE(StoredMaster(smith, "Code"), QStringLiteral("100002B"));
    QCOMPARE(desk.lstMaster->SelKey(), smith);
}

VELMORA_WIDGET_TEST_MAIN(TestFrmPlayerList)
#include "test_frm_player_list.moc"
