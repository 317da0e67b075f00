#include "database/sql.h"
#include "register/bcf_master.h"
#include "register/master.h"
#include "session/control.h"
#include "session/globals.h"
#include "support/scripted_interaction.h"
#include "support/test_environment.h"
#include "support/widget_driving.h"
#include "ui/cntl_bcf_master_details.h"
#include "ui/cntl_data_list.h"
#include "ui/cntl_master_details.h"
#include "ui/cntl_master_list.h"
#include "ui/cntl_player_hist.h"
#include "ui/frm_bcf_master.h"
#include "ui/frm_grade_club.h"
#include "ui/frm_load_bcf_list.h"
#include "ui/frm_main.h"
#include "ui/frm_master.h"
#include "ui/frm_master_details.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStatusBar>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>
#include <QTreeWidget>

#include <deque>

namespace {

void AddMaster(int id, const QString &surname, const QString &forename,
               const QString &code = QString(), const QString &grade = QString(),
               const QString &letter = QString())
{
    RunSql(QStringLiteral("INSERT INTO Master (MasterId, Surname, Forename, Code, Grade, GLett) "
                          "VALUES (?, ?, ?, ?, ?, ?)"),
           {id, surname, forename, TextOrNull(code), WholeOrNull(grade), TextOrNull(letter)});
}

void AddGraded(const QString &ref, const QString &name, int grade, const QString &letter,
               int rapid = 0)
{
    RunSql(QStringLiteral("INSERT INTO BCFMast (Ref, Name, Age, Grade, Cat, RGrade, RCat) "
                          "VALUES (?, ?, 'A', ?, ?, ?, ?)"),
           {ref, name, grade, letter, rapid > 0 ? QVariant(rapid) : QVariant(),
            rapid > 0 ? QVariant(QStringLiteral("B")) : QVariant()});
}

QString Stored(int id, const char *field)
{
    return TextOf(SqlScalar(QStringLiteral("SELECT ") + QString::fromLatin1(field) +
                                QStringLiteral(" FROM Master WHERE MasterId = ?"),
                            {id}));
}

// Acts on the modal dialogs of a kind as they come, one action each, in order; the
// same window shown again counts as the next one.
template <typename Dialog> class cModalScript : public QObject
{
public:
    explicit cModalScript(std::deque<std::function<void(Dialog *)>> actions)
        : actions_(std::move(actions))
    {
        timer_.setInterval(5);
        QObject::connect(&timer_, &QTimer::timeout, this, [this] {
            auto *dialog = qobject_cast<Dialog *>(QApplication::activeModalWidget());
            if (!dialog || !dialog->isVisible() || actions_.empty())
                return;
            auto action = std::move(actions_.front());
            actions_.pop_front();
            ++acted_;
            action(dialog);
            if (dialog->isVisible())
                dialog->reject();
        });
        timer_.start();
    }
    int Acted() const { return acted_; }
    bool Done() const { return actions_.empty(); }

private:
    std::deque<std::function<void(Dialog *)>> actions_;
    QTimer timer_;
    int acted_ = 0;
};

void Click(QAbstractButton *button)
{
    QTest::mouseClick(button, Qt::LeftButton);
}

QStringList TopNodes(const QTreeWidget *tree)
{
    QStringList texts;
    for (int i = 0; i < tree->topLevelItemCount(); ++i)
        texts << tree->topLevelItem(i)->text(0);
    return texts;
}

QStringList ChildLines(const QTreeWidget *tree, int node)
{
    QStringList texts;
    const QTreeWidgetItem *item = tree->topLevelItem(node);
    for (int i = 0; i < item->childCount(); ++i)
        texts << item->child(i)->text(0);
    return texts;
}

} // namespace

class TestFrmMaster : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void theWindowShowsTheSelectedPerson();
    void newWithAnEmptySurnameStaysAndSavesNothing();
    void newPersonIsStoredWithEveryField();
    void anImpossibleDateIsRefusedAndKeepsTheFocus();
    void aDateWorksOutTheAge();
    void aGradeWithAFractionIsRefused();
    void tooLongATextCannotBeTyped();
    void updateChangesTheStoredPerson();
    void deletingSomeoneWhoNeverPlayedAsksOnce();
    void deletingSomeoneWhoPlayedAsksTwice();
    void answeringNoToTheFirstQuestionKeepsThePerson();
    void clubPickerIsDisabledWithoutClubs();
    void clubPickerFillsTheGradingClub();
    void gradeLettersComeFromTheSetting();
    void historyOfSomeoneWhoNeverPlayed();
    void historyOfAnEntrantWithoutGames();
    void historyWithoutAnIdIsEmpty();
    void historySortsSameDatesByTitleThenTourn();
    void historyShowsTheStoredFigures();
    void singleMatchTakesCodeAndGrades();
    void clearIsOfferedOnlyToSomeoneWithACode();
    void walkMatchesNextsAndStops();
    void walkGoesBySurnameThenForename();
    void walkLeavesTheCurrentPersonCurrentAndReloaded();
    void mainWindowCommandsLeadToTheRegister();
    void scenarioThroughTheWindows();
    void windowsShowEveryTextWhole();

private:
    std::unique_ptr<cTestSession> session_;
    std::unique_ptr<cScriptedInteraction> seam_;
};

void TestFrmMaster::init()
{
    session_ = std::make_unique<cTestSession>();
    seam_ = std::make_unique<cScriptedInteraction>();
    Control().Load(QStringLiteral("All"));
}

void TestFrmMaster::cleanup()
{
    Control().setMaster(nullptr);
    Control().setBCFMaster(nullptr);
    seam_.reset();
    session_.reset();
}

void TestFrmMaster::theWindowShowsTheSelectedPerson()
{
    AddMaster(1, QStringLiteral("Smith"), QStringLiteral("Ann"), QStringLiteral("123456A"));
    AddMaster(2, QStringLiteral("Shaw"), QStringLiteral("Bob"));
    frmMaster window;
    ShowActive(window);
    QCOMPARE(window.lstMaster->lstMaster->RowCount(), 0);
    QVERIFY(!window.cmdUpdate->isEnabled());
    window.lstMaster->SetTab(QStringLiteral("S"));
    QCOMPARE(window.lstMaster->SelName(), QStringLiteral("Shaw, Bob"));
    QCOMPARE(window.cntlDetails->txtSurname->text(), QStringLiteral("Shaw"));
    QVERIFY(window.cntlDetails->txtSurname->isReadOnly());
    QVERIFY(window.cmdUpdate->isEnabled());
    window.lstMaster->SetFocus();
    QTest::keyClick(window.lstMaster->lstMaster->lstData, Qt::Key_Down);
    QCOMPARE(Control().Master()->MasterId(), QStringLiteral("1"));
    QCOMPARE(window.cntlDetails->txtCode->text(), QStringLiteral("123456A"));
}

void TestFrmMaster::newWithAnEmptySurnameStaysAndSavesNothing()
{
    frmMaster window;
    ShowActive(window);
    bool stayed = false;
    QString status;
    bool surnameFocused = false;
    WhenModalShows<frmMasterDetails>(
        [&](frmMasterDetails *dialog) {
            QTest::keyClicks(dialog->cntlDetails->txtForename, QStringLiteral("Ann"));
            Click(dialog->cmdOk);
            stayed = dialog->isVisible();
            status = dialog->sbMsg->currentMessage();
            surnameFocused = dialog->focusWidget() == dialog->cntlDetails->txtSurname;
        },
        nullptr);
    Click(window.cmdNew);
    QVERIFY(stayed);
    QCOMPARE(status, QStringLiteral("Surname must be entered"));
    QVERIFY(surnameFocused);
    QCOMPARE(RowCount(QStringLiteral("Master")), 0);
}

void TestFrmMaster::newPersonIsStoredWithEveryField()
{
    Control().setUserDefined1(QStringLiteral("Paid"));
    frmMaster window;
    ShowActive(window);
    WhenModalShows<frmMasterDetails>(
        [](frmMasterDetails *dialog) {
            cntlMasterDetails *d = dialog->cntlDetails;
            QTest::keyClicks(d->txtForename, QStringLiteral("Ann"));
            QTest::keyClicks(d->txtSurname, QStringLiteral("O'Brien \"%_&<>"));
            QTest::keyClicks(d->txtAddress1, QStringLiteral("1 High St"));
            QTest::keyClicks(d->txtPostCode, QStringLiteral("AB1 2CD"));
            d->cmbGender->setCurrentText(QStringLiteral("Female"));
            QTest::keyClicks(d->txtDOB, QStringLiteral("01/02/2001"));
            QTest::keyClicks(d->txtGrade, QStringLiteral("150"));
            d->cmbUD[0]->setCurrentText(QStringLiteral("Yes"));
            QTest::keyClicks(d->cmbClub->lineEdit(), QStringLiteral("Hastings"));
            QTest::keyClick(dialog->cmdOk, Qt::Key_Space);
        },
        nullptr);
    Click(window.cmdNew);
    QCOMPARE(RowCount(QStringLiteral("Master")), 1);
    QCOMPARE(Stored(1, "Surname"), QStringLiteral("O'Brien \"%_&<>"));
    QCOMPARE(Stored(1, "Forename"), QStringLiteral("Ann"));
    QCOMPARE(Stored(1, "Address1"), QStringLiteral("1 High St"));
    QCOMPARE(Stored(1, "Gender"), QStringLiteral("F"));
    QCOMPARE(Stored(1, "DOB"), QStringLiteral("2001-02-01"));
    QCOMPARE(Stored(1, "Grade"), QStringLiteral("150"));
    QCOMPARE(Stored(1, "Special1"), QStringLiteral("Y"));
    QCOMPARE(Stored(1, "Club"), QStringLiteral("Hastings"));
    // The new person is selected under their own letter and shown.
    QCOMPARE(window.lstMaster->Tab(), QStringLiteral("O"));
    QCOMPARE(window.lstMaster->SelKey(), QStringLiteral("1"));
    QCOMPARE(window.cntlDetails->txtSurname->text(), QStringLiteral("O'Brien \"%_&<>"));
    QTRY_COMPARE(window.focusWidget(), window.lstMaster->lstMaster->lstData);
}

void TestFrmMaster::anImpossibleDateIsRefusedAndKeepsTheFocus()
{
    frmMaster window;
    ShowActive(window);
    bool focusKept = false;
    QString status;
    WhenModalShows<frmMasterDetails>(
        [&](frmMasterDetails *dialog) {
            cntlMasterDetails *d = dialog->cntlDetails;
            QApplication::setActiveWindow(dialog);
            QVERIFY(QTest::qWaitForWindowActive(dialog));
            QTest::keyClicks(d->txtSurname, QStringLiteral("Cole"));
            d->txtDOB->setFocus();
            QTest::keyClicks(d->txtDOB, QStringLiteral("31/02/2001"));
            QTest::keyClick(d->txtDOB, Qt::Key_Tab);
            QTest::qWait(20);
            focusKept = dialog->focusWidget() == d->txtDOB &&
                        d->txtDOB->selectedText() == d->txtDOB->text();
            status = dialog->sbMsg->currentMessage();
            // OK does not save it either.
            Click(dialog->cmdOk);
            if (dialog->isVisible())
                Click(dialog->cmdCancel);
        },
        nullptr);
    Click(window.cmdNew);
    QVERIFY(focusKept);
    QCOMPARE(status, QStringLiteral("Date of Birth must be entered in DD/MM/YYYY format"));
    QVERIFY(seam_->Count(QStringLiteral("beep")) >= 1);
    QCOMPARE(RowCount(QStringLiteral("Master")), 0);
}

void TestFrmMaster::aDateWorksOutTheAge()
{
    RunSql(QStringLiteral("UPDATE Cntrl SET AgeDate = '2025-01-01'"));
    Control().Load(QStringLiteral("All"));
    frmMasterDetails dialog(1, nullptr);
    ShowActive(dialog);
    cntlMasterDetails *d = dialog.cntlDetails;
    d->txtDOB->setFocus();
    QTest::keyClicks(d->txtDOB, QStringLiteral("02/01/2015"));
    QTest::keyClick(d->txtDOB, Qt::Key_Tab);
    QCOMPARE(d->txtAge->text(), QStringLiteral("9"));
    QCOMPARE(seam_->Count(QStringLiteral("beep")), 0);
}

void TestFrmMaster::aGradeWithAFractionIsRefused()
{
    frmMasterDetails dialog(1, nullptr);
    ShowActive(dialog);
    cntlMasterDetails *d = dialog.cntlDetails;
    d->txtGrade->setFocus();
    QTest::keyClicks(d->txtGrade, QStringLiteral("12.5"));
    QTest::keyClick(d->txtGrade, Qt::Key_Tab);
    QTest::qWait(20);
    QVERIFY(d->txtGrade->hasFocus());
    QCOMPARE(seam_->Count(QStringLiteral("beep")), 1);
    ReplaceText(d->txtGrade, QStringLiteral("125"));
    QTest::keyClick(d->txtGrade, Qt::Key_Tab);
    QTest::qWait(20);
    QVERIFY(!d->txtGrade->hasFocus());
    QCOMPARE(seam_->Count(QStringLiteral("beep")), 1);
}

void TestFrmMaster::tooLongATextCannotBeTyped()
{
    frmMasterDetails dialog(1, nullptr);
    ShowActive(dialog);
    cntlMasterDetails *d = dialog.cntlDetails;
    d->txtSurname->setFocus();
    QTest::keyClicks(d->txtSurname, QString(30, u'x'));
    QCOMPARE(d->txtSurname->text().size(), 20);
    QTest::keyClicks(d->txtUnion, QStringLiteral("EN"));
    QCOMPARE(d->txtUnion->text(), QStringLiteral("E"));
    QTest::keyClicks(d->cmbClub->lineEdit(), QString(40, u'c'));
    QCOMPARE(d->cmbClub->currentText().size(), 25);
    Click(dialog.cmdOk);
    QCOMPARE(RowCount(QStringLiteral("Master")), 1);
}

void TestFrmMaster::updateChangesTheStoredPerson()
{
    AddMaster(1, QStringLiteral("Smith"), QStringLiteral("Ann"));
    frmMaster window;
    ShowActive(window);
    window.lstMaster->SetTab(QStringLiteral("S"));
    WhenModalShows<frmMasterDetails>(
        [](frmMasterDetails *dialog) {
            QCOMPARE(dialog->cntlDetails->txtSurname->text(), QStringLiteral("Smith"));
            ReplaceText(dialog->cntlDetails->txtForename, QStringLiteral("Anne"));
            QTest::keyClick(dialog->cntlDetails->txtForename, Qt::Key_Return);
        },
        nullptr);
    // A double click on the list is Update.
    cntlDataList *list = window.lstMaster->lstMaster;
    const QRect cell = list->lstData->visualRect(list->Model()->index(0, 1));
    QTest::mouseClick(list->lstData->viewport(), Qt::LeftButton, {}, cell.center());
    QTest::mouseDClick(list->lstData->viewport(), Qt::LeftButton, {}, cell.center());
    QCOMPARE(Stored(1, "Forename"), QStringLiteral("Anne"));
    QCOMPARE(window.lstMaster->SelName(), QStringLiteral("Smith, Anne"));
}

void TestFrmMaster::deletingSomeoneWhoNeverPlayedAsksOnce()
{
    AddMaster(1, QStringLiteral("Smith"), QStringLiteral("Ann"));
    AddMaster(2, QStringLiteral("Stone"), QStringLiteral("Bob"));
    frmMaster window;
    ShowActive(window);
    window.lstMaster->SetTab(QStringLiteral("S"));
    QString okText;
    bool warned = false;
    WhenModalShows<frmMasterDetails>(
        [&](frmMasterDetails *dialog) {
            okText = dialog->cmdOk->text();
            warned = dialog->lblMsg->isVisible() &&
                     dialog->lblMsg->text() ==
                         QStringLiteral("Check that this is the player you want to delete.");
            Click(dialog->cmdOk);
        },
        nullptr);
    Click(window.cmdDelete);
    QCOMPARE(okText.remove(u'&'), QStringLiteral("Delete"));
    QVERIFY(warned);
    QCOMPARE(seam_->Count(QStringLiteral("ask|")), 0);
    QCOMPARE(RowCount(QStringLiteral("Master")), 1);
    QCOMPARE(window.lstMaster->SelKey(), QStringLiteral("2"));
    QCOMPARE(Control().Master()->MasterId(), QStringLiteral("2"));
}

void TestFrmMaster::deletingSomeoneWhoPlayedAsksTwice()
{
    AddMaster(1, QStringLiteral("Smith"), QStringLiteral("Ann"));
    RunSql(QStringLiteral("INSERT INTO Velmora (TId, Title) VALUES (1, 'Congress')"));
    RunSql(QStringLiteral("INSERT INTO Player (MasterId, TId, PId, Surname) VALUES (1, 1, 1, "
                          "'Smith')"));
    frmMaster window;
    ShowActive(window);
    window.lstMaster->SetTab(QStringLiteral("S"));
    seam_->QueueAnswer(true);
    bool secondShown = false;
    WhenModalShows<frmMasterDetails>(
        [&](frmMasterDetails *dialog) {
            secondShown = dialog->lblMsg->isVisible();
            Click(dialog->cmdOk);
        },
        nullptr);
    Click(window.cmdDelete);
    QCOMPARE(seam_->CallsStartingWith(QStringLiteral("ask|")),
             QStringList{QStringLiteral("ask|Velmora!|The Player has been included in a "
                                        "Tournament. Do you still want to delete the player?")});
    QVERIFY(secondShown);
    QCOMPARE(RowCount(QStringLiteral("Master")), 0);
    // The entrant stays.
    QCOMPARE(RowCount(QStringLiteral("Player")), 1);
    QVERIFY(!window.cmdDelete->isEnabled());
}

void TestFrmMaster::answeringNoToTheFirstQuestionKeepsThePerson()
{
    AddMaster(1, QStringLiteral("Smith"), QStringLiteral("Ann"));
    RunSql(QStringLiteral("INSERT INTO Velmora (TId, Title) VALUES (1, 'Congress')"));
    RunSql(QStringLiteral("INSERT INTO Player (MasterId, TId, PId) VALUES (1, 1, 1)"));
    frmMaster window;
    ShowActive(window);
    window.lstMaster->SetTab(QStringLiteral("S"));
    seam_->QueueAnswer(false);
    Click(window.cmdDelete);
    QCOMPARE(seam_->Count(QStringLiteral("ask|")), 1);
    QCOMPARE(RowCount(QStringLiteral("Master")), 1);
    // Cancel at the second confirmation keeps the person too.
    seam_->QueueAnswer(true);
    WhenModalShows<frmMasterDetails>([](frmMasterDetails *dialog) { Click(dialog->cmdCancel); },
                                     nullptr);
    Click(window.cmdDelete);
    QCOMPARE(RowCount(QStringLiteral("Master")), 1);
}

void TestFrmMaster::clubPickerIsDisabledWithoutClubs()
{
    frmMasterDetails dialog(1, nullptr);
    QVERIFY(!dialog.cntlDetails->cmdGradeClub->isEnabled());
    RunSql(QStringLiteral("INSERT INTO Club (Code, Club, County, \"Union\") VALUES "
                          "('HAS', 'Hastings', 'SUS', 'E')"));
    frmMasterDetails again(1, nullptr);
    QVERIFY(again.cntlDetails->cmdGradeClub->isEnabled());
}

void TestFrmMaster::clubPickerFillsTheGradingClub()
{
    RunSql(QStringLiteral("INSERT INTO Club (Code, Club, County, \"Union\") VALUES "
                          "('HAS', 'Hastings', 'SUS', 'ENG'), ('BRI', 'Brighton', 'SUS', 'E')"));
    frmMasterDetails dialog(1, nullptr);
    ShowActive(dialog);
    cntlMasterDetails *d = dialog.cntlDetails;
    QString title;
    int rows = 0;
    WhenModalShows<frmGradeClub>(
        [&](frmGradeClub *picker) {
            title = picker->windowTitle();
            rows = picker->lstClub->RowCount();
            // Sorted by club: Brighton, Hastings; typing finds Hastings.
            QTest::keyClicks(picker->lstClub->lstData, QStringLiteral("ha"));
            QTest::keyClick(picker->lstClub->lstData, Qt::Key_Return);
        },
        nullptr);
    Click(d->cmdGradeClub);
    QCOMPARE(title, QStringLiteral("BCF Club List"));
    QCOMPARE(rows, 2);
    QCOMPARE(d->txtGradeCode->text(), QStringLiteral("HAS"));
    QCOMPARE(d->txtGradeClub->text(), QStringLiteral("Hastings"));
    QCOMPARE(d->txtUnion->text(), QStringLiteral("E"));
    WhenModalShows<frmGradeClub>([](frmGradeClub *picker) { Click(picker->cmdClear); }, nullptr);
    Click(d->cmdGradeClub);
    QCOMPARE(d->txtGradeCode->text(), QString());
    QCOMPARE(d->txtGradeClub->text(), QString());
    WhenModalShows<frmGradeClub>([](frmGradeClub *picker) { Click(picker->cmdOk); }, nullptr);
    Click(d->cmdGradeClub);
    QCOMPARE(d->txtGradeCode->text(), QStringLiteral("BRI"));
}

void TestFrmMaster::gradeLettersComeFromTheSetting()
{
    Control().setBCFGradeChars(QStringLiteral("ABC"));
    frmMasterDetails dialog(1, nullptr);
    ShowActive(dialog);
    cntlMasterDetails *d = dialog.cntlDetails;
    QStringList letters;
    for (int i = 0; i < d->cmbGLett->count(); ++i)
        letters << d->cmbGLett->itemText(i);
    QCOMPARE(letters, (QStringList{QString(), QStringLiteral("A"), QStringLiteral("B"),
                                   QStringLiteral("C")}));
    QVERIFY(!d->cmbGLett->isEditable());
    d->cmbRLett->setFocus();
    QTest::keyClicks(d->cmbRLett, QStringLiteral("Z"));
    QCOMPARE(d->cmbRLett->currentText(), QString());
    QTest::qWait(QApplication::keyboardInputInterval() + 100);
    QTest::keyClicks(d->cmbRLett, QStringLiteral("B"));
    QCOMPARE(d->cmbRLett->currentText(), QStringLiteral("B"));
    Control().setBCFGradeChars(QStringLiteral("XY"));
    d->Display();
    QCOMPARE(d->cmbGLett->count(), 3);
    QCOMPARE(d->cmbGLett->itemText(2), QStringLiteral("Y"));
}

void TestFrmMaster::historyOfSomeoneWhoNeverPlayed()
{
    AddMaster(1, QStringLiteral("Smith"), QStringLiteral("Ann"));
    frmMaster window;
    ShowActive(window);
    window.lstMaster->SetTab(QStringLiteral("S"));
    window.tbMaster->setCurrentIndex(1);
    QCOMPARE(window.cntlHist->lblName->text(), QStringLiteral("Smith, Ann"));
    QCOMPARE(TopNodes(window.cntlHist->treHist),
             QStringList{QStringLiteral("No Tournaments played")});
    QCOMPARE(window.cntlHist->treHist->topLevelItem(0)->data(0, Qt::UserRole).toString(),
             QStringLiteral("I0"));
}

void TestFrmMaster::historyOfAnEntrantWithoutGames()
{
    AddMaster(1, QStringLiteral("Smith"), QStringLiteral("Ann"));
    RunSql(QStringLiteral("INSERT INTO Velmora (TId, Title, Tourn, TDate, TEnd) VALUES "
                          "(4, 'Congress', 'Open', '2025-05-01', '2025-05-03')"));
    RunSql(QStringLiteral("INSERT INTO Player (MasterId, TId, PId, Surname, Forename) "
                          "VALUES (1, 4, 1, 'Smith', 'Ann')"));
    cntlPlayerHist history;
    auto master = std::make_shared<cMaster>();
    master->Load(QStringLiteral("1"));
    history.setMaster(master);
    history.Display();
    QCOMPARE(TopNodes(history.treHist),
             QStringList{QStringLiteral("01/05/2025 - 03/05/2025 Congress: Open")});
    QCOMPARE(history.treHist->topLevelItem(0)->data(0, Qt::UserRole).toString(),
             QStringLiteral("I4"));
    QCOMPARE(ChildLines(history.treHist, 0), QStringList{QStringLiteral("No games played")});
}

void TestFrmMaster::historyWithoutAnIdIsEmpty()
{
    cntlPlayerHist history;
    auto master = std::make_shared<cMaster>();
    master->setSurname(QStringLiteral("Smith"));
    master->setForename(QStringLiteral("Ann"));
    history.setMaster(master);
    history.Display();
    QCOMPARE(history.lblName->text(), QStringLiteral("Smith, Ann"));
    QCOMPARE(history.treHist->topLevelItemCount(), 0);
}

void TestFrmMaster::historySortsSameDatesByTitleThenTourn()
{
    AddMaster(1, QStringLiteral("Smith"), QStringLiteral("Ann"));
    RunSql(QStringLiteral("INSERT INTO Velmora (TId, Title, Tourn, TDate, TEnd) VALUES "
                          "(1, 'Rapid', 'Open', '2025-05-01', NULL), "
                          "(2, 'Congress', 'Minor', '2025-05-01', NULL), "
                          "(3, 'Congress', 'Major', '2025-05-01', NULL), "
                          "(4, 'Old', 'Open', '2020-01-01', NULL)"));
    for (int tournament = 1; tournament <= 4; ++tournament)
        RunSql(QStringLiteral("INSERT INTO Player (MasterId, TId, PId) VALUES (1, ?, 1)"),
               {tournament});
    cntlPlayerHist history;
    auto master = std::make_shared<cMaster>();
    master->Load(QStringLiteral("1"));
    history.setMaster(master);
    history.Display();
    QCOMPARE(TopNodes(history.treHist),
             (QStringList{QStringLiteral("01/05/2025 -  Congress: Major"),
                          QStringLiteral("01/05/2025 -  Congress: Minor"),
                          QStringLiteral("01/05/2025 -  Rapid: Open"),
                          QStringLiteral("01/01/2020 -  Old: Open")}));
}

void TestFrmMaster::historyShowsTheStoredFigures()
{
    AddMaster(1, QStringLiteral("Smith"), QStringLiteral("Ann"));
    RunSql(QStringLiteral("INSERT INTO Velmora (TId, Title, Tourn, TDate, TEnd) VALUES "
                          "(1, 'Congress', 'Open', '2025-05-01', '2025-05-02')"));
    // Stored figures that no recalculation has touched since: 1.5 from 3, 450 points.
    RunSql(QStringLiteral("INSERT INTO Player (MasterId, TId, PId, Surname, Forename, Score, "
                          "NumGames, GPoints) VALUES "
                          "(1, 1, 1, 'Smith', 'Ann', 1.5, 3, 450), "
                          "(0, 1, 2, 'Jones', 'Bob', 0, 0, 0)"));
    RunSql(QStringLiteral("INSERT INTO Result (TId, \"Round\", Board, White, Black, \"Result\") "
                          "VALUES (1, 1, 1, 1, 2, 'W'), (1, 2, 1, 2, 1, 'D'), "
                          "(1, 3, 1, 0, 1, 'B'), (1, 4, 1, 1, 0, 'W')"));
    frmMaster window;
    ShowActive(window);
    window.lstMaster->SetTab(QStringLiteral("S"));
    window.tbMaster->setCurrentIndex(1);
    const QTreeWidget *tree = window.cntlHist->treHist;
    QCOMPARE(TopNodes(tree), QStringList{QStringLiteral("01/05/2025 - 02/05/2025 Congress: Open")});
    QCOMPARE(ChildLines(tree, 0),
             (QStringList{QStringLiteral("Result:  1\u00BD/3   Performance Grade: 150 (450/3)"),
                          QStringLiteral("     1: Smith, Ann  1 - 0  Jones, Bob"),
                          QStringLiteral("     2: Jones, Bob  \u00BD - \u00BD  Smith, Ann"),
                          QStringLiteral("     3: Bye  0 - 1  Smith, Ann"),
                          QStringLiteral("     4: Smith, Ann  1 - 0  Bye")}));
}

void TestFrmMaster::singleMatchTakesCodeAndGrades()
{
    AddMaster(1, QStringLiteral("Smith"), QStringLiteral("Ann"));
    AddGraded(QStringLiteral("100001A"), QStringLiteral("Smith, Alan"), 120, QStringLiteral("A"));
    AddGraded(QStringLiteral("100002B"), QStringLiteral("Smith, Ann"), 155, QStringLiteral("B"),
              140);
    AddGraded(QStringLiteral("100003C"), QStringLiteral("Taylor, Ann"), 90, QStringLiteral("C"));
    frmMaster window;
    ShowActive(window);
    window.lstMaster->SetTab(QStringLiteral("S"));
    QVERIFY(window.cmdMatch->isVisible());
    QStringList shown;
    bool clearShown = true;
    QString closeText;
    WhenModalShows<frmBCFMaster>(
        [&](frmBCFMaster *dialog) {
            shown.clear();
            for (int row = 0; row < dialog->lstBCF->lstMaster->RowCount(); ++row)
                shown << dialog->lstBCF->lstMaster->Model()->Cell(row, 1);
            clearShown = dialog->cmdClear->isVisible();
            closeText = dialog->cmdNoMatch->text();
            QCOMPARE(dialog->lstBCF->txtSearch->text(), QStringLiteral("Smith, A"));
            QCOMPARE(dialog->lblMsg->text(),
                     QStringLiteral("Select the matching player from the BCF Master List."));
            QTest::keyClicks(dialog->lstBCF->lstMaster->lstData, QStringLiteral("smith, an"));
            QCOMPARE(dialog->cntlBCFDetails->lblCode->text(), QStringLiteral("100002B"));
            Click(dialog->cmdMatch);
        },
        nullptr);
    Click(window.cmdMatch);
    QCOMPARE(shown, (QStringList{QStringLiteral("Smith, Alan"), QStringLiteral("Smith, Ann")}));
    QVERIFY(!clearShown);
    QCOMPARE(closeText, QStringLiteral("Close"));
    QCOMPARE(Stored(1, "Code"), QStringLiteral("100002B"));
    QCOMPARE(Stored(1, "Grade"), QStringLiteral("155"));
    QCOMPARE(Stored(1, "GLett"), QStringLiteral("B"));
    QCOMPARE(Stored(1, "RGrade"), QStringLiteral("140"));
    QCOMPARE(window.cntlDetails->txtCode->text(), QStringLiteral("100002B"));
    QCOMPARE(window.lstMaster->SelCode(), QStringLiteral("100002B"));
}

void TestFrmMaster::clearIsOfferedOnlyToSomeoneWithACode()
{
    AddMaster(1, QStringLiteral("Smith"), QStringLiteral("Ann"), QStringLiteral("100002B"),
              QStringLiteral("155"), QStringLiteral("B"));
    AddGraded(QStringLiteral("100001A"), QStringLiteral("Smith, Alan"), 120, QStringLiteral("A"));
    AddGraded(QStringLiteral("100002B"), QStringLiteral("Smith, Ann"), 155, QStringLiteral("B"));
    frmMaster window;
    ShowActive(window);
    window.lstMaster->SetTab(QStringLiteral("S"));
    bool clearShown = false;
    QString selected;
    WhenModalShows<frmBCFMaster>(
        [&](frmBCFMaster *dialog) {
            clearShown = dialog->cmdClear->isVisible();
            selected = dialog->lstBCF->SelKey();
            Click(dialog->cmdClear);
        },
        nullptr);
    Click(window.cmdMatch);
    QVERIFY(clearShown);
    QCOMPARE(selected, QStringLiteral("100002B"));
    QCOMPARE(Stored(1, "Code"), QString());
    QCOMPARE(Stored(1, "Grade"), QStringLiteral("155"));
    QCOMPARE(Stored(1, "GLett"), QStringLiteral("B"));
}

void TestFrmMaster::walkMatchesNextsAndStops()
{
    AddMaster(1, QStringLiteral("Adams"), QStringLiteral("Al"));
    AddMaster(2, QStringLiteral("Brown"), QStringLiteral("Bo"));
    AddMaster(3, QStringLiteral("Carter"), QStringLiteral("Cy"), QStringLiteral("300003C"),
              QStringLiteral("50"), QStringLiteral("E"));
    AddMaster(4, QStringLiteral("Dunn"), QStringLiteral("Di"));
    AddMaster(5, QStringLiteral("Evans"), QStringLiteral("Ed"));
    AddGraded(QStringLiteral("100001A"), QStringLiteral("Adams, Al"), 111, QStringLiteral("A"));
    AddGraded(QStringLiteral("200002B"), QStringLiteral("Brown, Bo"), 122, QStringLiteral("B"));
    AddGraded(QStringLiteral("300003C"), QStringLiteral("Carter, Cy"), 133, QStringLiteral("C"));
    AddGraded(QStringLiteral("500005E"), QStringLiteral("Evans, Ed"), 155, QStringLiteral("E"));
    frmMain main;
    main.show();
    QString adamsCodeWhenBrownCame;
    QStringList nextTexts;
    cModalScript<frmBCFMaster> script({
        [&](frmBCFMaster *dialog) {
            QVERIFY(dialog->cmdStop->isVisible());
            nextTexts << dialog->cmdNoMatch->text();
            Click(dialog->cmdMatch);
        },
        [&](frmBCFMaster *dialog) {
            adamsCodeWhenBrownCame = Stored(1, "Code");
            Click(dialog->cmdNoMatch);
        },
        // Carter has a code and goes by without a question; Dunn comes next.
        [&](frmBCFMaster *dialog) {
            QCOMPARE(dialog->Master->Surname(), QStringLiteral("Dunn"));
            Click(dialog->cmdStop);
        },
    });
    main.mnuTBCFMaster->trigger();
    QVERIFY(script.Done());
    QCOMPARE(adamsCodeWhenBrownCame, QStringLiteral("100001A"));
    QCOMPARE(Stored(1, "Grade"), QStringLiteral("111"));
    QCOMPARE(Stored(2, "Code"), QString());
    QCOMPARE(Stored(3, "Grade"), QStringLiteral("133"));
    QCOMPARE(Stored(3, "GLett"), QStringLiteral("C"));
    QCOMPARE(Stored(5, "Code"), QString());
    QCOMPARE(nextTexts, QStringList{QStringLiteral("Next >>>")});
}

void TestFrmMaster::walkGoesBySurnameThenForename()
{
    AddMaster(1, QStringLiteral("Brown"), QStringLiteral("Zoe"));
    AddMaster(2, QStringLiteral("Adams"), QStringLiteral("Cy"));
    AddMaster(3, QStringLiteral("Brown"), QStringLiteral("Al"));
    AddGraded(QStringLiteral("100001A"), QStringLiteral("Zed, Al"), 111, QStringLiteral("A"));
    QStringList order;
    const auto note = [&order](frmBCFMaster *dialog) {
        order << dialog->Master->DisplayName(false);
        Click(dialog->cmdNoMatch);
    };
    cModalScript<frmBCFMaster> script({note, note, note});
    MatchWalk(nullptr);
    QCOMPARE(order, (QStringList{QStringLiteral("Adams, Cy"), QStringLiteral("Brown, Al"),
                                 QStringLiteral("Brown, Zoe")}));
}

void TestFrmMaster::walkLeavesTheCurrentPersonCurrentAndReloaded()
{
    AddMaster(1, QStringLiteral("Adams"), QStringLiteral("Al"));
    AddMaster(2, QStringLiteral("Brown"), QStringLiteral("Bo"));
    AddGraded(QStringLiteral("100001A"), QStringLiteral("Adams, Al"), 111, QStringLiteral("A"));
    frmMain main;
    main.show();
    auto *master = main.findChild<frmMaster *>();
    master->lstMaster->SetTab(QStringLiteral("A"));
    QCOMPARE(Control().Master()->MasterId(), QStringLiteral("1"));
    cModalScript<frmBCFMaster> script({
        [](frmBCFMaster *dialog) { Click(dialog->cmdMatch); },
        [](frmBCFMaster *dialog) { Click(dialog->cmdNoMatch); },
    });
    main.mnuTBCFMaster->trigger();
    QCOMPARE(Control().Master()->MasterId(), QStringLiteral("1"));
    QCOMPARE(Control().Master()->BCFCode(), QStringLiteral("100001A"));
    QCOMPARE(master->cntlDetails->txtCode->text(), QStringLiteral("100001A"));
    QCOMPARE(master->lstMaster->SelCode(), QStringLiteral("100001A"));
}

void TestFrmMaster::mainWindowCommandsLeadToTheRegister()
{
    frmMain main;
    main.show();
    QVERIFY(!main.mnuTBCFMaster->isEnabled());
    auto *master = main.findChild<frmMaster *>();
    QVERIFY(master->isVisible());
    // No person: update and delete are off, matching shown but off.
    QVERIFY(!master->cmdUpdate->isEnabled());
    QVERIFY(!master->cmdDelete->isEnabled());
    QVERIFY(!master->cmdMatch->isEnabled());
    AddMaster(1, QStringLiteral("Adams"), QStringLiteral("Al"));
    master->lstMaster->SetTab(QStringLiteral("A"));
    QVERIFY(master->cmdUpdate->isEnabled());
    // Without a grading list the match command is not offered.
    QVERIFY(!master->cmdMatch->isVisibleTo(master));
    AddGraded(QStringLiteral("100001A"), QStringLiteral("Adams, Al"), 111, QStringLiteral("A"));
    QCOMPARE(main.mnuViewPlayers->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_M));
    main.mnuViewPlayers->trigger();
    QVERIFY(master->cmdMatch->isVisibleTo(master));
    QVERIFY(main.mnuTBCFMaster->isEnabled());
    QVERIFY(main.tbrPlayers->isChecked());
}

void TestFrmMaster::scenarioThroughTheWindows()
{
    // The grading list of the samples, loaded through its dialog.
    QTemporaryDir folder;
    const QString list = CopySharedFile(QStringLiteral("grading-list/Players.dbf"), folder.path());
    QVERIFY(!list.isEmpty());
    frmMain main;
    main.show();
    seam_->QueueFile(list);
    WhenModalShows<frmLoadBCFList>(
        [](QDialog *dialog) {
            QTest::mouseClick(dialog->findChild<QPushButton *>(QStringLiteral("cmdBrowse")),
                              Qt::LeftButton);
            QTest::mouseClick(dialog->findChild<QPushButton *>(QStringLiteral("cmdOk")),
                              Qt::LeftButton);
        },
        nullptr);
    main.mnuLoadBCFMasterList->trigger();
    QCOMPARE(RowCount(QStringLiteral("BCFMast")), 1997);
    // Two names from the list, and one the list does not have.
    QSqlQuery rows = RunSql(QStringLiteral("SELECT Name FROM BCFMast WHERE Name LIKE '%, %' "
                                           "ORDER BY Ref LIMIT 2"));
    QStringList names;
    while (rows.next())
        names << rows.value(0).toString().trimmed();
    QCOMPARE(names.size(), 2);
    names << QStringLiteral("Zzyzx, Quentin");

    auto *master = main.findChild<frmMaster *>();
    for (int person = 0; person < 3; ++person) {
        const QString surname = names[person].section(u',', 0, 0).trimmed();
        const QString forename = names[person].section(u',', 1).trimmed();
        WhenModalShows<frmMasterDetails>(
            [&](frmMasterDetails *dialog) {
                QTest::keyClicks(dialog->cntlDetails->txtForename, forename.left(15));
                QTest::keyClicks(dialog->cntlDetails->txtSurname, surname.left(20));
                Click(dialog->cmdOk);
            },
            nullptr);
        Click(master->cmdNew);
        QCOMPARE(RowCount(QStringLiteral("Master")), person + 1);
        QCOMPARE(Stored(person + 1, "Surname"), surname.left(20));
    }
    // Find the first by typing under the search tab.
    master->lstMaster->SetTab(QStringLiteral("?"));
    ReplaceText(master->lstMaster->txtSearch, QStringLiteral("*"));
    Click(master->lstMaster->cmdSearch);
    QCOMPARE(master->lstMaster->lstMaster->RowCount(), 3);
    QTest::keyClicks(master->lstMaster->lstMaster->lstData, names[0].left(4));
    QCOMPARE(master->lstMaster->SelKey(), QStringLiteral("1"));

    // Match the first two to the list.
    for (int person = 0; person < 2; ++person) {
        master->lstMaster->setSelKey(QString::number(person + 1));
        const QString name = names[person];
        WhenModalShows<frmBCFMaster>(
            [&](frmBCFMaster *dialog) {
                QTest::keyClicks(dialog->lstBCF->lstMaster->lstData, name);
                Click(dialog->cmdMatch);
            },
            nullptr);
        Click(master->cmdMatch);
        const QString code = Stored(person + 1, "Code");
        QVERIFY(!code.isEmpty());
        QCOMPARE(TextOf(SqlScalar(QStringLiteral("SELECT Name FROM BCFMast WHERE Ref = ?"), {code}))
                     .trimmed(),
                 name);
    }
    // Delete the one who never played.
    master->lstMaster->setSelKey(QStringLiteral("3"));
    WhenModalShows<frmMasterDetails>([](frmMasterDetails *dialog) { Click(dialog->cmdOk); },
                                     nullptr);
    Click(master->cmdDelete);
    QCOMPARE(RowCount(QStringLiteral("Master")), 2);
    QCOMPARE(SqlScalar(QStringLiteral("SELECT COUNT(*) FROM Master WHERE MasterId = 3")).toInt(),
             0);
    QCOMPARE(seam_->Count(QStringLiteral("ask|")), 0);
}

// Every caption fits its control; with VELMORA_SHOTS set to a folder, each window is
// also saved there as a picture to look at (run again with QT_SCALE_FACTOR=1.5).
void TestFrmMaster::windowsShowEveryTextWhole()
{
    AddMaster(1, QStringLiteral("Smith"), QStringLiteral("Ann"), QStringLiteral("100002B"),
              QStringLiteral("155"), QStringLiteral("B"));
    AddGraded(QStringLiteral("100002B"), QStringLiteral("Smith, Ann"), 155, QStringLiteral("B"));
    RunSql(QStringLiteral("INSERT INTO Club (Code, Club, County, \"Union\") VALUES "
                          "('HAS', 'Hastings', 'SUS', 'E')"));
    Control().setUserDefined1(QStringLiteral("Paid"));
    const QString shots = qEnvironmentVariable("VELMORA_SHOTS");
    const auto check = [&shots](QWidget *window, const QString &name) {
        ShowActive(*window);
        QTest::qWait(50);
        for (const QLabel *label : window->findChildren<QLabel *>()) {
            if (label->isVisible() && !label->wordWrap() && !label->text().isEmpty())
                QVERIFY2(label->width() >= label->sizeHint().width(),
                         qPrintable(name + QStringLiteral(": ") + label->text()));
        }
        for (const QPushButton *button : window->findChildren<QPushButton *>()) {
            if (button->isVisible())
                QVERIFY2(button->width() >= button->sizeHint().width() - 1,
                         qPrintable(name + QStringLiteral(": ") + button->text()));
        }
        if (!shots.isEmpty())
            window->grab().save(shots + u'/' + name + QStringLiteral(".png"));
    };
    frmMaster master;
    master.resize(12200 / 15, 8100 / 15);
    master.lstMaster->SetTab(QStringLiteral("S"));
    check(&master, QStringLiteral("frmMaster"));
    master.tbMaster->setCurrentIndex(1);
    check(&master, QStringLiteral("frmMaster-history"));
    frmMasterDetails details(2, Control().Master());
    check(&details, QStringLiteral("frmMasterDetails"));
    frmMasterDetails deleting(5, Control().Master());
    check(&deleting, QStringLiteral("frmMasterDetails-delete"));
    frmGradeClub clubs;
    check(&clubs, QStringLiteral("frmGradeClub"));
    frmBCFMaster matching;
    matching.Master = Control().Master();
    matching.Activate();
    check(&matching, QStringLiteral("frmBCFMaster"));
}

VELMORA_WIDGET_TEST_MAIN(TestFrmMaster)
#include "test_frm_master.moc"
