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
#include "ui/cntl_player_details.h"
#include "ui/frm_player_details.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStatusBar>
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

VELMORA_WIDGET_TEST_MAIN(TestFrmPlayerDetails)
#include "test_frm_player_details.moc"
