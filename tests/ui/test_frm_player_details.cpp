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
#include "ui/cntl_master_details.h"
#include "ui/cntl_master_list.h"
#include "ui/cntl_player_details.h"
#include "ui/frm_bcf_master.h"
#include "ui/frm_grade_club.h"
#include "ui/frm_master_details.h"
#include "ui/frm_player_details.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStatusBar>
#include <QTableView>
#include <QTest>

namespace {

void TypeInto(QLineEdit *field, const QString &text)
{
    field->setFocus();
    QTRY_VERIFY(field->hasFocus());
    ReplaceText(field, text);
}

void Leave(QWidget *field)
{
    QTest::keyClick(field, Qt::Key_Tab);
    QApplication::processEvents();
}

// An entrant of the open tournament made from a new person of the register.
std::shared_ptr<cPlayer> AddEntrantFromMaster(const QString &surname, const QString &forename,
                                              const QString &grade = QString())
{
    const QString id = AddMasterPlayer(surname, forename, grade);
    cMaster master;
    master.Load(id);
    auto tournament = Control().Tournament();
    return tournament->Players().AddFromMaster(tournament->TournId(), master);
}

void AddClubs()
{
    RunSql(QStringLiteral("INSERT INTO Club (Code, Club, County, \"Union\") VALUES "
                          "('BRI', 'Brighton', 'SUS', 'E'), ('HAS', 'Hastings', 'SUS', 'E'), "
                          "('LEW', 'Lewes', 'SUS', 'E')"));
}

} // namespace

class TestFrmPlayerDetails : public QObject
{
    Q_OBJECT

private slots:
    void gradeWithAPointOrLettersIsRefusedWithoutMessage();
    void emptyGradePasses();
    void wrongDateOfBirthKeepsTheFocusAndSaysWhy();
    void goodDateOfBirthGivesTheAge();
    void surnameMustBeEntered();
    void updateWithoutMasterIdAsksNothing();
    void updateWithMasterIdAsksAndUpdatesTheRegisterOnYes();
    void deleteModeReadsDeleteAndCancelAndEditsNothing();
    void deleteModeRemovesTheEntrant();
    void viewModeHasOnlyClose();
    void fieldsAndLabelsShowTheEntrant();
    void cancelChangesNothing();
    void viewMasterShowsTheRegisterRecord();
    void viewMasterNeedsARegisterRecord();
    void selectMatchesTheEntrantAndTakesTheGrades();
    void selectNeedsARegisterRecordAndAGradingList();
    void gradeClubOpensOnTheEntrantsClubAndFillsTheFields();
    void gradeClubClearAndAnEmptyClubList();
};

void TestFrmPlayerDetails::gradeWithAPointOrLettersIsRefusedWithoutMessage()
{
    cTestSession session;
    cScriptedInteraction seam;
    OpenNewTournament(QStringLiteral("T"));
    auto player = AddEntrant(QStringLiteral("Ames"), QStringLiteral("Jo"));
    frmPlayerDetails dialog(frmPlayerDetails::Change, player);
    ShowActive(dialog);
    for (const QString &bad : {QStringLiteral("120.5"), QStringLiteral("abc")}) {
        TypeInto(dialog.playerControl->txtGrade, bad);
        Leave(dialog.playerControl->txtGrade);
        QTRY_VERIFY(dialog.playerControl->txtGrade->hasFocus());
        QCOMPARE(dialog.playerControl->txtGrade->selectedText(), bad);
    }
    QCOMPARE(seam.Count(QStringLiteral("beep")), 2);
    QCOMPARE(seam.Count(QStringLiteral("message|")), 0);
    ReplaceText(dialog.playerControl->txtGrade, QStringLiteral("120"));
    TypeInto(dialog.playerControl->txtRGrade, QStringLiteral("9x"));
    Leave(dialog.playerControl->txtRGrade);
    QTRY_VERIFY(dialog.playerControl->txtRGrade->hasFocus());
    QCOMPARE(seam.Count(QStringLiteral("beep")), 3);
    // OK does not store a refused grade either.
    QTest::mouseClick(dialog.cmdOk, Qt::LeftButton);
    QVERIFY(dialog.isVisible());
    QCOMPARE(dialog.Result, -1);
    QVERIFY(SqlScalar(QStringLiteral("Select Grade From Player")).isNull());
    QCOMPARE(seam.Count(QStringLiteral("message|")), 0);
}

void TestFrmPlayerDetails::emptyGradePasses()
{
    cTestSession session;
    cScriptedInteraction seam;
    OpenNewTournament(QStringLiteral("T"));
    auto player = AddEntrant(QStringLiteral("Ames"), QStringLiteral("Jo"), QStringLiteral("150"));
    frmPlayerDetails dialog(frmPlayerDetails::Change, player);
    ShowActive(dialog);
    TypeInto(dialog.playerControl->txtGrade, QString());
    Leave(dialog.playerControl->txtGrade);
    QTRY_VERIFY(!dialog.playerControl->txtGrade->hasFocus());
    QCOMPARE(seam.Count(QStringLiteral("beep")), 0);
    QTest::mouseClick(dialog.cmdOk, Qt::LeftButton);
    QCOMPARE(dialog.Result, 0);
    QVERIFY(SqlScalar(QStringLiteral("Select Grade From Player")).isNull());
    QCOMPARE(player->LongPlay(), QString());
}

void TestFrmPlayerDetails::wrongDateOfBirthKeepsTheFocusAndSaysWhy()
{
    cTestSession session;
    cScriptedInteraction seam;
    OpenNewTournament(QStringLiteral("T"));
    frmPlayerDetails dialog(frmPlayerDetails::New, nullptr);
    ShowActive(dialog);
    TypeInto(dialog.playerControl->txtDOB, QStringLiteral("31/02/2001"));
    Leave(dialog.playerControl->txtDOB);
    QTRY_VERIFY(dialog.playerControl->txtDOB->hasFocus());
    QCOMPARE(seam.Count(QStringLiteral("beep")), 1);
    QCOMPARE(dialog.sbMsg->currentMessage(),
             QStringLiteral("Date of Birth must be entered in DD/MM/YYYY format"));
}

void TestFrmPlayerDetails::goodDateOfBirthGivesTheAge()
{
    cTestSession session;
    cScriptedInteraction seam;
    Control().setAgeDate(QStringLiteral("01/09/2026"));
    OpenNewTournament(QStringLiteral("T"));
    frmPlayerDetails dialog(frmPlayerDetails::New, nullptr);
    ShowActive(dialog);
    TypeInto(dialog.playerControl->txtDOB, QStringLiteral("2/9/2014"));
    Leave(dialog.playerControl->txtDOB);
    QTRY_COMPARE(dialog.playerControl->txtAge->text(), QStringLiteral("11"));
    QCOMPARE(dialog.playerControl->txtDOB->text(), QStringLiteral("02/09/2014"));
    TypeInto(dialog.playerControl->txtSurname, QStringLiteral("Young"));
    QTest::mouseClick(dialog.cmdOk, Qt::LeftButton);
    QCOMPARE(dialog.Result, 0);
    QCOMPARE(SqlScalar(QStringLiteral("Select Age From Player")).toInt(), 11);
    QCOMPARE(SqlScalar(QStringLiteral("Select DOB From Player")).toString().left(10),
             QStringLiteral("2014-09-02"));
}

void TestFrmPlayerDetails::surnameMustBeEntered()
{
    cTestSession session;
    cScriptedInteraction seam;
    auto tournament = OpenNewTournament(QStringLiteral("T"));
    frmPlayerDetails dialog(frmPlayerDetails::New, nullptr);
    ShowActive(dialog);
    TypeInto(dialog.playerControl->txtForename, QStringLiteral("Jo"));
    QTest::mouseClick(dialog.cmdOk, Qt::LeftButton);
    QCOMPARE(seam.CallsStartingWith(QStringLiteral("message|")),
             QStringList{QStringLiteral("message|plain|Velmora!|Surname must be entered")});
    QVERIFY(dialog.isVisible());
    QTRY_VERIFY(dialog.playerControl->txtSurname->hasFocus());
    QCOMPARE(RowCount(QStringLiteral("Player")), 0);
    QCOMPARE(tournament->Players().Count(), 0);
}

void TestFrmPlayerDetails::updateWithoutMasterIdAsksNothing()
{
    cTestSession session;
    cScriptedInteraction seam;
    OpenNewTournament(QStringLiteral("T"));
    auto player = AddEntrant(QStringLiteral("Ames"), QStringLiteral("Jo"));
    frmPlayerDetails dialog(frmPlayerDetails::Change, player);
    ShowActive(dialog);
    TypeInto(dialog.playerControl->txtGrade, QStringLiteral("135"));
    dialog.playerControl->cmbGLett->setCurrentText(QStringLiteral("A"));
    QTest::mouseClick(dialog.cmdOk, Qt::LeftButton);
    QCOMPARE(dialog.Result, 0);
    QCOMPARE(seam.Count(QStringLiteral("ask|")), 0);
    QCOMPARE(SqlScalar(QStringLiteral("Select Grade From Player")).toInt(), 135);
    QCOMPARE(SqlScalar(QStringLiteral("Select GLett From Player")).toString(), QStringLiteral("A"));
}

void TestFrmPlayerDetails::updateWithMasterIdAsksAndUpdatesTheRegisterOnYes()
{
    cTestSession session;
    cScriptedInteraction seam;
    auto tournament = OpenNewTournament(QStringLiteral("T"));
    const QString id = AddMasterPlayer(QStringLiteral("Ames"), QStringLiteral("Jo"));
    cMaster master;
    master.Load(id);
    auto player = tournament->Players().AddFromMaster(tournament->TournId(), master);
    frmPlayerDetails dialog(frmPlayerDetails::Change, player);
    ShowActive(dialog);
    QVERIFY(dialog.playerControl->txtMasterId->text() == id);
    TypeInto(dialog.playerControl->txtSurname, QStringLiteral("Amos"));
    seam.QueueAnswer(true);
    QTest::mouseClick(dialog.cmdOk, Qt::LeftButton);
    QCOMPARE(seam.CallsStartingWith(QStringLiteral("ask|")),
             QStringList{QStringLiteral(
                 "ask|Velmora!|Do you want to update the master details with these changes?")});
    QCOMPARE(SqlScalar(QStringLiteral("Select Surname From Master")).toString(),
             QStringLiteral("Amos"));
    QCOMPARE(SqlScalar(QStringLiteral("Select Surname From Player")).toString(),
             QStringLiteral("Amos"));
}

void TestFrmPlayerDetails::deleteModeReadsDeleteAndCancelAndEditsNothing()
{
    cTestSession session;
    cScriptedInteraction seam;
    OpenNewTournament(QStringLiteral("T"));
    auto player = AddEntrant(QStringLiteral("Ames"), QStringLiteral("Jo"));
    frmPlayerDetails dialog(frmPlayerDetails::Remove, player);
    ShowActive(dialog);
    QCOMPARE(dialog.cmdOk->text(), QStringLiteral("Delete"));
    QCOMPARE(dialog.cmdCancel->text(), QStringLiteral("Cancel"));
    QCOMPARE(dialog.lblWarning->text(),
             QStringLiteral("Check that this is the player you want to delete and then click on "
                            "the 'Delete' button"));
    QVERIFY(!dialog.playerControl->frmText->isVisible());
    QVERIFY(dialog.playerControl->frmLabel->isVisible());
    for (QLineEdit *field : dialog.findChildren<QLineEdit *>())
        QVERIFY2(!field->isVisible(), qPrintable(field->objectName()));
    QCOMPARE(dialog.playerControl->lblSurname->text(), QStringLiteral("Ames"));
}

void TestFrmPlayerDetails::deleteModeRemovesTheEntrant()
{
    cTestSession session;
    cScriptedInteraction seam;
    auto tournament = OpenNewTournament(QStringLiteral("T"));
    auto player = AddEntrant(QStringLiteral("Ames"), QStringLiteral("Jo"));
    frmPlayerDetails dialog(frmPlayerDetails::Remove, player);
    ShowActive(dialog);
    QTest::mouseClick(dialog.cmdOk, Qt::LeftButton);
    QCOMPARE(dialog.Result, 0);
    QCOMPARE(RowCount(QStringLiteral("Player")), 0);
    QCOMPARE(tournament->Players().Count(), 0);
}

void TestFrmPlayerDetails::viewModeHasOnlyClose()
{
    cTestSession session;
    cScriptedInteraction seam;
    auto tournament = OpenNewTournament(QStringLiteral("Congress"));
    tournament->setTourn(QStringLiteral("Major"));
    auto player = AddEntrant(QStringLiteral("Ames"), QStringLiteral("Jo"));
    frmPlayerDetails dialog(frmPlayerDetails::View, player);
    ShowActive(dialog);
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Player Details"));
    QVERIFY(!dialog.cmdOk->isVisible());
    QCOMPARE(dialog.cmdCancel->text(), QStringLiteral("Close"));
    QCOMPARE(dialog.lblVelmora->text(), QStringLiteral("Congress: Major"));
    QCOMPARE(dialog.lblWarning->text(), QString());
    QTest::mouseClick(dialog.cmdCancel, Qt::LeftButton);
    QCOMPARE(dialog.Result, -1);
}

void TestFrmPlayerDetails::fieldsAndLabelsShowTheEntrant()
{
    cTestSession session;
    cScriptedInteraction seam;
    OpenNewTournament(QStringLiteral("T"));
    auto player =
        AddEntrant(QStringLiteral("O'Brien"), QStringLiteral("Sean <Jr>"), QStringLiteral("160"));
    player->setLongPlayLett(QStringLiteral("B"));
    player->setClub(QStringLiteral("Chess & Draughts"));
    player->Update();
    frmPlayerDetails update(frmPlayerDetails::Change, player);
    QCOMPARE(update.playerControl->txtSurname->text(), QStringLiteral("O'Brien"));
    QCOMPARE(update.playerControl->txtGrade->text(), QStringLiteral("160"));
    QCOMPARE(update.playerControl->cmbGLett->currentText(), QStringLiteral("B"));
    QCOMPARE(update.playerControl->cmbClub->currentText(), QStringLiteral("Chess & Draughts"));
    frmPlayerDetails view(frmPlayerDetails::View, player);
    QCOMPARE(view.playerControl->lblForename->text(), QStringLiteral("Sean <Jr>"));
    QCOMPARE(view.playerControl->lblGrade->text(), QStringLiteral("160B"));
    QCOMPARE(view.playerControl->lblClub->text(), QStringLiteral("Chess & Draughts"));
    // Typed values never exceed the size of their fields.
    QCOMPARE(update.playerControl->txtSurname->maxLength(), 20);
    QCOMPARE(update.playerControl->txtForename->maxLength(), 15);
    QCOMPARE(update.playerControl->txtCode->maxLength(), 7);
    QCOMPARE(update.playerControl->txtGMTitle->maxLength(), 2);
    QCOMPARE(update.playerControl->cmbClub->lineEdit()->maxLength(), 25);
}

void TestFrmPlayerDetails::cancelChangesNothing()
{
    cTestSession session;
    cScriptedInteraction seam;
    OpenNewTournament(QStringLiteral("T"));
    auto player = AddEntrant(QStringLiteral("Ames"), QStringLiteral("Jo"));
    frmPlayerDetails dialog(frmPlayerDetails::Change, player);
    ShowActive(dialog);
    TypeInto(dialog.playerControl->txtSurname, QStringLiteral("Other"));
    QTest::mouseClick(dialog.cmdCancel, Qt::LeftButton);
    QCOMPARE(dialog.Result, -1);
    QCOMPARE(player->Surname(), QStringLiteral("Ames"));
    QCOMPARE(SqlScalar(QStringLiteral("Select Surname From Player")).toString(),
             QStringLiteral("Ames"));
}

void TestFrmPlayerDetails::viewMasterShowsTheRegisterRecord()
{
    cTestSession session;
    cScriptedInteraction seam;
    OpenNewTournament(QStringLiteral("T"));
    auto player =
        AddEntrantFromMaster(QStringLiteral("Ames"), QStringLiteral("Jo"), QStringLiteral("150"));
    for (int mode : {int(frmPlayerDetails::View), int(frmPlayerDetails::Change)}) {
        frmPlayerDetails dialog(mode, player);
        ShowActive(dialog);
        QCOMPARE(dialog.cmdMaster->text(), QStringLiteral("View Master"));
        QVERIFY(dialog.cmdMaster->isEnabled());
        bool shown = false;
        QString id;
        QString surname;
        bool readOnly = false;
        WhenModalShows<frmMasterDetails>(
            [&](frmMasterDetails *master) {
                id = master->cntlDetails->txtMasterId->text();
                surname = master->cntlDetails->txtSurname->text();
                readOnly =
                    master->cntlDetails->txtSurname->isReadOnly() && !master->cmdOk->isVisible();
                QTest::mouseClick(master->cmdCancel, Qt::LeftButton);
            },
            &shown);
        QTest::mouseClick(dialog.cmdMaster, Qt::LeftButton);
        QVERIFY(shown);
        QCOMPARE(id, player->MasterId());
        QCOMPARE(surname, QStringLiteral("Ames"));
        QVERIFY(readOnly);
        // The entrant's own dialog is still there.
        QVERIFY(dialog.isVisible());
        QCOMPARE(dialog.Result, -1);
    }
}

void TestFrmPlayerDetails::viewMasterNeedsARegisterRecord()
{
    cTestSession session;
    cScriptedInteraction seam;
    OpenNewTournament(QStringLiteral("T"));
    auto walkIn = AddEntrant(QStringLiteral("Ames"), QStringLiteral("Jo"));
    frmPlayerDetails withoutId(frmPlayerDetails::Change, walkIn);
    QVERIFY(!withoutId.cmdMaster->isEnabled());
    frmPlayerDetails newEntrant(frmPlayerDetails::New, nullptr);
    QVERIFY(!newEntrant.cmdMaster->isEnabled());
    // A register record deleted since the entry leaves nothing to show.
    auto entered = AddEntrantFromMaster(QStringLiteral("Best"), QStringLiteral("Al"));
    RunSql(QStringLiteral("DELETE FROM Master"));
    frmPlayerDetails gone(frmPlayerDetails::View, entered);
    QVERIFY(!gone.cmdMaster->isEnabled());
}

void TestFrmPlayerDetails::selectMatchesTheEntrantAndTakesTheGrades()
{
    cTestSession session;
    cScriptedInteraction seam;
    OpenNewTournament(QStringLiteral("T"));
    auto player =
        AddEntrantFromMaster(QStringLiteral("Smith"), QStringLiteral("Ann"), QStringLiteral("100"));
    RunSql(QStringLiteral("INSERT INTO BCFMast (Ref, Name, Age, Grade, Cat, RGrade, RCat) VALUES "
                          "('100001A', 'Smith, Alan', 'A', 120, 'A', NULL, NULL), "
                          "('100002B', 'Smith, Ann', 'A', 155, 'B', 140, 'C')"));
    frmPlayerDetails dialog(frmPlayerDetails::Change, player);
    ShowActive(dialog);
    cntlPlayerDetails *fields = dialog.playerControl;
    QVERIFY(fields->cmdSelect->isVisible());
    QVERIFY(fields->cmdSelect->isEnabled());
    bool changed = false;
    connect(fields, &cntlPlayerDetails::Changed, this, [&changed] { changed = true; });
    bool shown = false;
    QString searched;
    WhenModalShows<frmBCFMaster>(
        [&](frmBCFMaster *window) {
            searched = window->lstBCF->txtSearch->text();
            QTest::keyClicks(window->lstBCF->lstMaster->lstData, QStringLiteral("smith, an"));
            QTest::mouseClick(window->cmdMatch, Qt::LeftButton);
        },
        &shown);
    QTest::mouseClick(fields->cmdSelect, Qt::LeftButton);
    QVERIFY(shown);
    QCOMPARE(searched, QStringLiteral("Smith, A"));
    QVERIFY(changed);
    QCOMPARE(fields->txtCode->text(), QStringLiteral("100002B"));
    QCOMPARE(fields->txtGrade->text(), QStringLiteral("155"));
    QCOMPARE(fields->cmbGLett->currentText(), QStringLiteral("B"));
    QCOMPARE(fields->txtRGrade->text(), QStringLiteral("140"));
    QCOMPARE(player->BCFCode(), QStringLiteral("100002B"));
    QCOMPARE(SqlScalar(QStringLiteral("Select Code From Master")).toString(),
             QStringLiteral("100002B"));
    QCOMPARE(SqlScalar(QStringLiteral("Select Grade From Player")).toInt(), 155);
    QCOMPARE(SqlScalar(QStringLiteral("Select GLett From Player")).toString(), QStringLiteral("B"));
    // Closing the list takes nothing.
    WhenModalShows<frmBCFMaster>(
        [](frmBCFMaster *window) { QTest::mouseClick(window->cmdNoMatch, Qt::LeftButton); },
        &shown);
    changed = false;
    QTest::mouseClick(fields->cmdSelect, Qt::LeftButton);
    QVERIFY(shown);
    QVERIFY(!changed);
    QCOMPARE(fields->txtCode->text(), QStringLiteral("100002B"));
}

void TestFrmPlayerDetails::selectNeedsARegisterRecordAndAGradingList()
{
    cTestSession session;
    cScriptedInteraction seam;
    OpenNewTournament(QStringLiteral("T"));
    auto entered = AddEntrantFromMaster(QStringLiteral("Smith"), QStringLiteral("Ann"));
    auto walkIn = AddEntrant(QStringLiteral("Ames"), QStringLiteral("Jo"));
    {
        frmPlayerDetails noList(frmPlayerDetails::Change, entered);
        QVERIFY(!noList.playerControl->cmdSelect->isEnabled());
    }
    RunSql(QStringLiteral("INSERT INTO BCFMast (Ref, Name, Grade, Cat) VALUES "
                          "('100002B', 'Smith, Ann', 155, 'B')"));
    frmPlayerDetails withRecord(frmPlayerDetails::Change, entered);
    QVERIFY(withRecord.playerControl->cmdSelect->isEnabled());
    frmPlayerDetails withoutRecord(frmPlayerDetails::Change, walkIn);
    QVERIFY(!withoutRecord.playerControl->cmdSelect->isEnabled());
    frmPlayerDetails newEntrant(frmPlayerDetails::New, nullptr);
    QVERIFY(!newEntrant.playerControl->cmdSelect->isEnabled());
    // Viewing offers no command that writes.
    frmPlayerDetails view(frmPlayerDetails::View, entered);
    ShowActive(view);
    QVERIFY(!view.playerControl->cmdSelect->isVisible());
    QVERIFY(!view.playerControl->cmdGradeClub->isVisible());
}

void TestFrmPlayerDetails::gradeClubOpensOnTheEntrantsClubAndFillsTheFields()
{
    cTestSession session;
    cScriptedInteraction seam;
    OpenNewTournament(QStringLiteral("T"));
    AddClubs();
    frmPlayerDetails dialog(frmPlayerDetails::New, nullptr);
    ShowActive(dialog);
    cntlPlayerDetails *fields = dialog.playerControl;
    QVERIFY(fields->cmdGradeClub->isEnabled());
    fields->cmbClub->setFocus();
    QTest::keyClicks(fields->cmbClub->lineEdit(), QStringLiteral("Hastings"));
    bool shown = false;
    QString preselected;
    WhenModalShows<frmGradeClub>(
        [&](frmGradeClub *picker) {
            preselected = picker->lstClub->SelKey();
            QTest::mouseClick(picker->cmdOk, Qt::LeftButton);
        },
        &shown);
    QTest::mouseClick(fields->cmdGradeClub, Qt::LeftButton);
    QVERIFY(shown);
    QCOMPARE(preselected, QStringLiteral("HAS"));
    QCOMPARE(fields->txtGradeClub->text(), QStringLiteral("Hastings"));
    QCOMPARE(fields->txtGradeCode->text(), QStringLiteral("HAS"));
    // The grading club given comes before the club typed.
    ReplaceText(fields->txtGradeClub, QStringLiteral("Lewes"));
    WhenModalShows<frmGradeClub>(
        [&](frmGradeClub *picker) {
            preselected = picker->lstClub->SelKey();
            QTest::mouseClick(picker->cmdOk, Qt::LeftButton);
        },
        &shown);
    QTest::mouseClick(fields->cmdGradeClub, Qt::LeftButton);
    QCOMPARE(preselected, QStringLiteral("LEW"));
    QCOMPARE(fields->txtGradeCode->text(), QStringLiteral("LEW"));
    QCOMPARE(fields->txtGradeClub->text(), QStringLiteral("Lewes"));
    // Saved with the entrant.
    fields->txtSurname->setFocus();
    QTest::keyClicks(fields->txtSurname, QStringLiteral("Ames"));
    QTest::mouseClick(dialog.cmdOk, Qt::LeftButton);
    QCOMPARE(dialog.Result, 0);
    QCOMPARE(SqlScalar(QStringLiteral("Select ClubCode From Player")).toString(),
             QStringLiteral("LEW"));
}

void TestFrmPlayerDetails::gradeClubClearAndAnEmptyClubList()
{
    cTestSession session;
    cScriptedInteraction seam;
    OpenNewTournament(QStringLiteral("T"));
    {
        frmPlayerDetails noClubs(frmPlayerDetails::New, nullptr);
        QVERIFY(!noClubs.playerControl->cmdGradeClub->isEnabled());
    }
    AddClubs();
    frmPlayerDetails dialog(frmPlayerDetails::New, nullptr);
    ShowActive(dialog);
    cntlPlayerDetails *fields = dialog.playerControl;
    fields->txtGradeCode->setText(QStringLiteral("HAS"));
    fields->txtGradeClub->setText(QStringLiteral("Hastings"));
    // Cancel leaves the fields.
    WhenModalShows<frmGradeClub>(
        [](frmGradeClub *picker) { QTest::mouseClick(picker->cmdCancel, Qt::LeftButton); },
        nullptr);
    QTest::mouseClick(fields->cmdGradeClub, Qt::LeftButton);
    QCOMPARE(fields->txtGradeCode->text(), QStringLiteral("HAS"));
    QCOMPARE(fields->txtGradeClub->text(), QStringLiteral("Hastings"));
    // Clear empties both.
    WhenModalShows<frmGradeClub>(
        [](frmGradeClub *picker) { QTest::mouseClick(picker->cmdClear, Qt::LeftButton); }, nullptr);
    QTest::mouseClick(fields->cmdGradeClub, Qt::LeftButton);
    QCOMPARE(fields->txtGradeCode->text(), QString());
    QCOMPARE(fields->txtGradeClub->text(), QString());
}

VELMORA_WIDGET_TEST_MAIN(TestFrmPlayerDetails)
#include "test_frm_player_details.moc"
