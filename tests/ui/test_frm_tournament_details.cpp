#include "database/sql.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/players.h"
#include "session/tournament.h"
#include "support/scripted_interaction.h"
#include "support/test_environment.h"
#include "support/tournament_fixture.h"
#include "support/widget_driving.h"
#include "ui/cntl_tournament.h"
#include "ui/frm_tournament_details.h"

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

qint64 Tournaments()
{
    return RowCount(QStringLiteral("Velmora"));
}

QString StoredText(const char *column, const QString &id)
{
    return SqlScalar(QStringLiteral("Select %1 From Velmora Where TId = ?")
                         .arg(QString::fromLatin1(column)),
                     {id.toLongLong()})
        .toString();
}

} // namespace

class TestFrmTournamentDetails : public QObject
{
    Q_OBJECT

private slots:
    void newTournamentWithoutTitleOrEventShowsMessageAndStays();
    void eventAloneIsEnough();
    void viewModeShowsLabelsAndWritesNothing();
    void roundsOfLettersKeepFocusWithBeep();
    void impossibleDateIsRefusedInTheBox();
    void newTournamentTypedWithSevenRoundsHasFive();
    void typeListOffersTheFiveTypesInOrder();
    void updateWritesTheChangedFields();
    void copyHasNoEntrantsAndIsTitledCopyOf();
    void copyOfALongTitleIsCutToTheField();
    void deleteModeAsksAndDeletesWithEverythingUnderIt();
    void deleteAnsweredNoKeepsTheTournament();
    void titlesWithQuotesAndMarkupWork();
    void fieldsNeverTakeMoreThanTheirSize();
    void focusShowsTheHelpText();
    void cancelWritesNothing();
};

void TestFrmTournamentDetails::newTournamentWithoutTitleOrEventShowsMessageAndStays()
{
    cTestSession session;
    cScriptedInteraction seam;
    frmTournamentDetails dialog(cntlTournament::New);
    ShowActive(dialog);
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Tournament Details"));
    QVERIFY(dialog.tournamentControl->frmText->isVisible());
    QTest::mouseClick(dialog.cmdOk, Qt::LeftButton);
    QCOMPARE(seam.CallsStartingWith(QStringLiteral("message|")),
             QStringList{
                 QStringLiteral("message|plain|Velmora!|Either Title or Event must be entered")});
    QVERIFY(dialog.isVisible());
    QVERIFY(dialog.Cancelled);
    QTRY_VERIFY(dialog.tournamentControl->txtTitle->hasFocus());
    QCOMPARE(Tournaments(), 0);
}

void TestFrmTournamentDetails::eventAloneIsEnough()
{
    cTestSession session;
    cScriptedInteraction seam;
    frmTournamentDetails dialog(cntlTournament::New);
    ShowActive(dialog);
    TypeInto(dialog.tournamentControl->txtTourn, QStringLiteral("Open"));
    QTest::mouseClick(dialog.cmdOk, Qt::LeftButton);
    QVERIFY(!dialog.Cancelled);
    QVERIFY(!dialog.isVisible());
    QCOMPARE(Tournaments(), 1);
    QCOMPARE(Control().Tournament()->DisplayName(), QStringLiteral("Open"));
    QCOMPARE(seam.Count(QStringLiteral("message|")), 0);
}

void TestFrmTournamentDetails::viewModeShowsLabelsAndWritesNothing()
{
    cTestSession session;
    cScriptedInteraction seam;
    auto tournament = OpenNewTournament(QStringLiteral("Spring Congress"));
    tournament->setTourn(QStringLiteral("Major"));
    tournament->setTDate(QStringLiteral("01/04/2026"));
    tournament->Update();
    frmTournamentDetails dialog(cntlTournament::View);
    ShowActive(dialog);
    QVERIFY(dialog.tournamentControl->frmLabel->isVisible());
    QVERIFY(!dialog.tournamentControl->frmText->isVisible());
    QVERIFY(!dialog.cmdOk->isVisible());
    QCOMPARE(dialog.cmdCancel->text(), QStringLiteral("Close"));
    QCOMPARE(dialog.tournamentControl->lblTitle->text(), QStringLiteral("Spring Congress"));
    QCOMPARE(dialog.tournamentControl->lblTourn->text(), QStringLiteral("Major"));
    QCOMPARE(dialog.tournamentControl->lblFDate->text(), QStringLiteral("01/04/2026"));
    QCOMPARE(dialog.tournamentControl->txtCurrRound->text(), QStringLiteral("1"));
    QVERIFY(dialog.tournamentControl->Valid());
    QTest::mouseClick(dialog.cmdCancel, Qt::LeftButton);
    QVERIFY(dialog.Cancelled);
    QCOMPARE(StoredText("Tourn", tournament->TournId()), QStringLiteral("Major"));
    QCOMPARE(seam.Calls().filter(QStringLiteral("ask|")).size(), 0);
}

void TestFrmTournamentDetails::roundsOfLettersKeepFocusWithBeep()
{
    cTestSession session;
    cScriptedInteraction seam;
    frmTournamentDetails dialog(cntlTournament::New);
    ShowActive(dialog);
    TypeInto(dialog.tournamentControl->txtRounds, QStringLiteral("abc"));
    Leave(dialog.tournamentControl->txtRounds);
    QTRY_VERIFY(dialog.tournamentControl->txtRounds->hasFocus());
    QCOMPARE(seam.Count(QStringLiteral("beep")), 1);
    QCOMPARE(dialog.tournamentControl->txtRounds->selectedText(), QStringLiteral("abc"));
    // OK does not get past it either.
    TypeInto(dialog.tournamentControl->txtTitle, QStringLiteral("Winter"));
    QTRY_VERIFY(dialog.tournamentControl->txtRounds->hasFocus());
    QTest::mouseClick(dialog.cmdOk, Qt::LeftButton);
    QVERIFY(dialog.isVisible());
    QCOMPARE(Tournaments(), 0);
    QTRY_VERIFY(dialog.tournamentControl->txtRounds->hasFocus());
}

void TestFrmTournamentDetails::impossibleDateIsRefusedInTheBox()
{
    cTestSession session;
    cScriptedInteraction seam;
    frmTournamentDetails dialog(cntlTournament::New);
    ShowActive(dialog);
    TypeInto(dialog.tournamentControl->txtFDate, QStringLiteral("31/02/2001"));
    Leave(dialog.tournamentControl->txtFDate);
    QTRY_VERIFY(dialog.tournamentControl->txtFDate->hasFocus());
    QCOMPARE(seam.Count(QStringLiteral("beep")), 1);
    TypeInto(dialog.tournamentControl->txtFDate, QStringLiteral("28/02/2001"));
    Leave(dialog.tournamentControl->txtFDate);
    QTRY_VERIFY(dialog.tournamentControl->txtTDate->hasFocus());
    QCOMPARE(seam.Count(QStringLiteral("beep")), 1);
}

void TestFrmTournamentDetails::newTournamentTypedWithSevenRoundsHasFive()
{
    cTestSession session;
    cScriptedInteraction seam;
    frmTournamentDetails dialog(cntlTournament::New);
    ShowActive(dialog);
    TypeInto(dialog.tournamentControl->txtTitle, QStringLiteral("Summer"));
    TypeInto(dialog.tournamentControl->txtRounds, QStringLiteral("7"));
    QTest::mouseClick(dialog.cmdOk, Qt::LeftButton);
    QVERIFY(!dialog.Cancelled);
    const auto tournament = Control().Tournament();
    QCOMPARE(tournament->Rounds(), QStringLiteral("5"));
    QCOMPARE(StoredText("Rounds", tournament->TournId()), QStringLiteral("5"));
    QCOMPARE(StoredText("CurrRound", tournament->TournId()), QStringLiteral("1"));
}

void TestFrmTournamentDetails::typeListOffersTheFiveTypesInOrder()
{
    cTestSession session;
    frmTournamentDetails dialog(cntlTournament::New);
    QComboBox *types = dialog.tournamentControl->txtType;
    QStringList items;
    for (int index = 0; index < types->count(); ++index)
        items.append(types->itemText(index));
    QCOMPARE(items, (QStringList{QStringLiteral("BCF Standard"), QStringLiteral("Rapidplay"),
                                 QStringLiteral("FIDE Rated"), QStringLiteral("Mixed BCF/FIDE"),
                                 QStringLiteral("Double Rnd Rpd")}));
}

void TestFrmTournamentDetails::updateWritesTheChangedFields()
{
    cTestSession session;
    cScriptedInteraction seam;
    auto tournament = OpenNewTournament(QStringLiteral("Autumn"));
    frmTournamentDetails dialog(cntlTournament::Change);
    ShowActive(dialog);
    QCOMPARE(dialog.tournamentControl->txtTitle->text(), QStringLiteral("Autumn"));
    TypeInto(dialog.tournamentControl->txtRounds, QStringLiteral("7"));
    TypeInto(dialog.tournamentControl->txtFDate, QStringLiteral("3/10/26"));
    dialog.tournamentControl->txtType->setCurrentText(QStringLiteral("Rapidplay"));
    TypeInto(dialog.tournamentControl->txtText[5], QStringLiteral("Arbiter: A. Person"));
    QTest::mouseClick(dialog.cmdOk, Qt::LeftButton);
    QVERIFY(!dialog.Cancelled);
    QCOMPARE(StoredText("Rounds", tournament->TournId()), QStringLiteral("7"));
    QCOMPARE(StoredText("TType", tournament->TournId()), QStringLiteral("R"));
    QCOMPARE(StoredText("TText6", tournament->TournId()), QStringLiteral("Arbiter: A. Person"));
    QCOMPARE(tournament->TDate(), QStringLiteral("03/10/2026"));
    QCOMPARE(Control().Tournament(), tournament);
}

void TestFrmTournamentDetails::copyHasNoEntrantsAndIsTitledCopyOf()
{
    cTestSession session;
    cScriptedInteraction seam;
    auto original = OpenNewTournament(QStringLiteral("Easter"));
    AddEntrant(QStringLiteral("Ames"), QStringLiteral("Jo"));
    AddEntrant(QStringLiteral("Best"), QStringLiteral("Al"));
    frmTournamentDetails dialog(cntlTournament::Copy);
    ShowActive(dialog);
    QCOMPARE(dialog.tournamentControl->txtTitle->text(), QStringLiteral("Copy of Easter"));
    QTest::mouseClick(dialog.cmdOk, Qt::LeftButton);
    QVERIFY(!dialog.Cancelled);
    const auto copy = Control().Tournament();
    QVERIFY(copy != original);
    QVERIFY(copy->TournId() != original->TournId());
    QCOMPARE(StoredText("Title", copy->TournId()), QStringLiteral("Copy of Easter"));
    QCOMPARE(copy->Players().Count(), 0);
    QCOMPARE(SqlScalar(QStringLiteral("Select count(*) From Player Where TId = ?"),
                       {copy->TournId().toLongLong()})
                 .toInt(),
             0);
    QCOMPARE(RowCount(QStringLiteral("Player")), 2);
}

void TestFrmTournamentDetails::copyOfALongTitleIsCutToTheField()
{
    cTestSession session;
    cScriptedInteraction seam;
    const QString title(40, u'T');
    OpenNewTournament(title);
    frmTournamentDetails dialog(cntlTournament::Copy);
    ShowActive(dialog);
    const QString expected = QString(QStringLiteral("Copy of ") + title).left(40);
    QCOMPARE(dialog.tournamentControl->txtTitle->text(), expected);
    QTest::mouseClick(dialog.cmdOk, Qt::LeftButton);
    QVERIFY(!dialog.Cancelled);
    QCOMPARE(StoredText("Title", Control().Tournament()->TournId()), expected);
}

void TestFrmTournamentDetails::deleteModeAsksAndDeletesWithEverythingUnderIt()
{
    cTestSession session;
    cScriptedInteraction seam;
    OpenNewTournament(QStringLiteral("Doomed"));
    const auto white = AddEntrant(QStringLiteral("Ames"), QStringLiteral("Jo"));
    const auto black = AddEntrant(QStringLiteral("Best"), QStringLiteral("Al"));
    AddGame(1, 1, *white, *black);
    frmTournamentDetails dialog(cntlTournament::Remove);
    ShowActive(dialog);
    QCOMPARE(dialog.cmdOk->text(), QStringLiteral("Delete"));
    QCOMPARE(dialog.lblMsg->text(),
             QStringLiteral("Check that this is the tournament you want to delete."));
    QVERIFY(dialog.tournamentControl->frmLabel->isVisible());
    seam.QueueAnswer(true);
    QTest::mouseClick(dialog.cmdOk, Qt::LeftButton);
    QCOMPARE(
        seam.CallsStartingWith(QStringLiteral("ask|")),
        QStringList{QStringLiteral("ask|Velmora!|Players have been included in the Tournament.\n"
                                   "Do you  want to delete this Tournament?")});
    QVERIFY(!dialog.Cancelled);
    QVERIFY(!Control().Tournament());
    QCOMPARE(Tournaments(), 0);
    QCOMPARE(RowCount(QStringLiteral("Player")), 0);
    QCOMPARE(RowCount(QStringLiteral("Result")), 0);
}

void TestFrmTournamentDetails::deleteAnsweredNoKeepsTheTournament()
{
    cTestSession session;
    cScriptedInteraction seam;
    auto tournament = OpenNewTournament(QStringLiteral("Kept"));
    frmTournamentDetails dialog(cntlTournament::Remove);
    ShowActive(dialog);
    seam.QueueAnswer(false);
    QTest::mouseClick(dialog.cmdOk, Qt::LeftButton);
    QVERIFY(dialog.isVisible());
    QVERIFY(dialog.Cancelled);
    QCOMPARE(Tournaments(), 1);
    QCOMPARE(Control().Tournament(), tournament);
}

void TestFrmTournamentDetails::titlesWithQuotesAndMarkupWork()
{
    cTestSession session;
    cScriptedInteraction seam;
    const QString title = QStringLiteral("O'Neil \"Cup\" 100% _A_ & <b>B</b>");
    frmTournamentDetails dialog(cntlTournament::New);
    ShowActive(dialog);
    TypeInto(dialog.tournamentControl->txtTitle, title);
    QTest::mouseClick(dialog.cmdOk, Qt::LeftButton);
    QVERIFY(!dialog.Cancelled);
    QCOMPARE(StoredText("Title", Control().Tournament()->TournId()), title);
    frmTournamentDetails view(cntlTournament::View);
    QCOMPARE(view.tournamentControl->lblTitle->text(), title);
    QCOMPARE(view.tournamentControl->lblTitle->textFormat(), Qt::PlainText);
}

void TestFrmTournamentDetails::fieldsNeverTakeMoreThanTheirSize()
{
    cTestSession session;
    cScriptedInteraction seam;
    frmTournamentDetails dialog(cntlTournament::New);
    ShowActive(dialog);
    TypeInto(dialog.tournamentControl->txtTitle, QString(50, u'x'));
    TypeInto(dialog.tournamentControl->txtTourn, QString(50, u'y'));
    TypeInto(dialog.tournamentControl->txtText[0], QString(70, u'z'));
    QCOMPARE(dialog.tournamentControl->txtTitle->text().size(), 40);
    QCOMPARE(dialog.tournamentControl->txtTourn->text().size(), 40);
    QCOMPARE(dialog.tournamentControl->txtText[0]->text().size(), 60);
    QTest::mouseClick(dialog.cmdOk, Qt::LeftButton);
    QVERIFY(!dialog.Cancelled);
    QCOMPARE(StoredText("Title", Control().Tournament()->TournId()), QString(40, u'x'));
}

void TestFrmTournamentDetails::focusShowsTheHelpText()
{
    cTestSession session;
    frmTournamentDetails dialog(cntlTournament::New);
    ShowActive(dialog);
    dialog.tournamentControl->txtTourn->setFocus();
    QTRY_COMPARE(dialog.sbMsg->currentMessage(), QStringLiteral("Enter the name of the section"));
    dialog.tournamentControl->txtRounds->setFocus();
    QTRY_COMPARE(dialog.sbMsg->currentMessage(), QStringLiteral("Enter the number of rounds"));
}

void TestFrmTournamentDetails::cancelWritesNothing()
{
    cTestSession session;
    frmTournamentDetails dialog(cntlTournament::New);
    ShowActive(dialog);
    TypeInto(dialog.tournamentControl->txtTitle, QStringLiteral("Never"));
    QTest::mouseClick(dialog.cmdCancel, Qt::LeftButton);
    QVERIFY(dialog.Cancelled);
    QCOMPARE(Tournaments(), 0);
    QVERIFY(!Control().Tournament());
}

VELMORA_WIDGET_TEST_MAIN(TestFrmTournamentDetails)
#include "test_frm_tournament_details.moc"
