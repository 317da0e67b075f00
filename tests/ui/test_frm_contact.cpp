#include "database/sql.h"
#include "register/contact.h"
#include "session/control.h"
#include "session/globals.h"
#include "support/scripted_interaction.h"
#include "support/test_environment.h"
#include "support/widget_driving.h"
#include "ui/cntl_contact_details.h"
#include "ui/cntl_data_list.h"
#include "ui/cntl_master_list.h"
#include "ui/frm_contact.h"
#include "ui/frm_contact_details.h"
#include "ui/frm_main.h"
#include "ui/frm_master.h"

#include <QComboBox>
#include <QDir>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QStatusBar>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>
#include <QToolBar>

namespace {

void AddContact(int id, const QString &surname, const QString &forename)
{
    cContact::EnsureContactTable();
    RunSql(QStringLiteral("INSERT INTO Contact (ContactId, Surname, Forename) VALUES (?, ?, ?)"),
           {id, surname, forename});
}

QString Stored(int id, const char *field)
{
    return TextOf(SqlScalar(QStringLiteral("SELECT ") + QString::fromLatin1(field) +
                                QStringLiteral(" FROM Contact WHERE ContactId = ?"),
                            {id}));
}

qint64 Contacts()
{
    cContact::EnsureContactTable();
    return RowCount(QStringLiteral("Contact"));
}

// Makes the dialog the active window, so that keys go where a person's would.
void Activate(QDialog *dialog)
{
    QApplication::setActiveWindow(dialog);
    QVERIFY(QTest::qWaitForWindowActive(dialog));
}

// Types into whatever has the focus, then moves on with Tab.
void TypeAndTab(const QString &text)
{
    QTest::keyClicks(QApplication::focusWidget(), text);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
}

} // namespace

class TestFrmContact : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void viewContactsShowsTheWindowWithTheListFocused();
    void aContactAddedByKeysIsListedAndStored();
    void aContactWithoutSurnameIsRefused();
    void escapeLeavesTheNewContactUnsaved();
    void viewShowsTheContactReadOnlyInTheMainWindow();
    void updateChangesTheStoredContact();
    void updateKeepsFieldsTheFormDoesNotShow();
    void aDoubleClickOpensTheContactForChange();
    void deleteAsksAndRemovesTheContact();
    void deletingAContactAlreadyGoneOnlyReadsTheListAgain();
    void quotesAndWildcardsInANameWork();
    void letterTabsAndTypingFindAContact();
    void theFormHasNoPlayerFieldsAndNoMatch();
    void tabGoesFromTheListToTheCommandsAndTheDetails();
    void tooLongATextCannotBeTyped();
    void commandsShowTheirWholeCaptions();

private:
    std::unique_ptr<cTestSession> session_;
    std::unique_ptr<cScriptedInteraction> seam_;
};

void TestFrmContact::init()
{
    session_ = std::make_unique<cTestSession>();
    seam_ = std::make_unique<cScriptedInteraction>();
    Control().Load(QStringLiteral("All"));
}

void TestFrmContact::cleanup()
{
    Control().setMaster(nullptr);
    seam_.reset();
    session_.reset();
}

void TestFrmContact::viewContactsShowsTheWindowWithTheListFocused()
{
    frmMain main;
    ShowActive(main);
    const QList<QAction *> view = main.mnuView->actions();
    QCOMPARE(view.indexOf(main.mnuViewContacts), view.indexOf(main.mnuViewTournament) + 1);
    QCOMPARE(main.mnuViewContacts->text(), QStringLiteral("&Contacts"));
    QCOMPARE(main.mnuViewContacts->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_K));
    // The button bar has no button for the contacts.
    for (const QAction *button : main.Toolbar->actions())
        QVERIFY(!button->text().contains(QStringLiteral("Contact")));
    QVERIFY(!main.ContactWindow());

    QTest::keyClick(&main, Qt::Key_K, Qt::ControlModifier);
    frmContact *contacts = main.ContactWindow();
    QVERIFY(contacts);
    QVERIFY(contacts->isVisible());
    QVERIFY(!main.findChild<frmMaster *>()->isVisible());
    QVERIFY(!main.tbrPlayers->isChecked());
    QVERIFY(!main.tbrTournament->isChecked());
    QTRY_COMPARE(QApplication::focusWidget(), contacts->lstContact->lstMaster->lstData);

    QTest::keyClick(&main, Qt::Key_M, Qt::ControlModifier);
    QVERIFY(!contacts->isVisible());
    QVERIFY(main.findChild<frmMaster *>()->isVisible());
    // Shown again, the list is read afresh.
    AddContact(1, QStringLiteral("Arbiter"), QStringLiteral("Ann"));
    contacts->lstContact->SetTab(QStringLiteral("A"));
    main.mnuViewContacts->trigger();
    QCOMPARE(contacts->lstContact->SelName(), QStringLiteral("Arbiter, Ann"));
    QCOMPARE(contacts->cntlDetails->txtSurname->text(), QStringLiteral("Arbiter"));
}

void TestFrmContact::aContactAddedByKeysIsListedAndStored()
{
    Control().setUserDefined1(QStringLiteral("Paid"));
    frmContact window;
    ShowActive(window);
    QVERIFY(!window.cmdUpdate->isEnabled());
    QVERIFY(!window.cmdDelete->isEnabled());
    QVERIFY(!window.cmdView->isEnabled());
    bool shown = false;
    bool closed = false;
    WhenModalShows<frmContactDetails>(
        [](frmContactDetails *dialog) {
            Activate(dialog);
            QCOMPARE(QApplication::focusWidget(), dialog->cntlDetails->txtForename);
            TypeAndTab(QStringLiteral("Ada"));
            TypeAndTab(QStringLiteral("Quinn"));
            TypeAndTab(QStringLiteral("2 Low Rd"));
            TypeAndTab(QStringLiteral("Hove"));
            TypeAndTab(QString());
            TypeAndTab(QString());
            TypeAndTab(QStringLiteral("BN3 1AA"));
            TypeAndTab(QStringLiteral("01273 000000"));
            TypeAndTab(QStringLiteral("ada@example.org"));
            TypeAndTab(QStringLiteral("123456A"));
            // The grade, its letter, the rapid grade, its letter, FIDE, title, union,
            // nation, then the first flag.
            TypeAndTab(QStringLiteral("150"));
            for (int box = 0; box < 7; ++box)
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            QCOMPARE(QApplication::focusWidget(), dialog->cntlDetails->cmbUD[0]);
            dialog->cntlDetails->cmbUD[0]->setCurrentText(QStringLiteral("Yes"));
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        },
        &shown, &closed);
    // A mnemonic presses its button the way a click shows: a moment later.
    QTest::keyClick(&window, Qt::Key_N, Qt::AltModifier);
    QTRY_VERIFY(closed);
    QVERIFY(shown);
    QCOMPARE(Contacts(), 1);
    QCOMPARE(Stored(1, "Forename"), QStringLiteral("Ada"));
    QCOMPARE(Stored(1, "Surname"), QStringLiteral("Quinn"));
    QCOMPARE(Stored(1, "Address1"), QStringLiteral("2 Low Rd"));
    QCOMPARE(Stored(1, "Address2"), QStringLiteral("Hove"));
    QCOMPARE(Stored(1, "Postcode"), QStringLiteral("BN3 1AA"));
    QCOMPARE(Stored(1, "Phone"), QStringLiteral("01273 000000"));
    QCOMPARE(Stored(1, "eMail"), QStringLiteral("ada@example.org"));
    QCOMPARE(Stored(1, "Code"), QStringLiteral("123456A"));
    QCOMPARE(Stored(1, "Grade"), QStringLiteral("150"));
    QCOMPARE(Stored(1, "Special1"), QStringLiteral("Y"));
    // Listed under her own letter, selected, shown, and the list has the keys back.
    QCOMPARE(window.lstContact->Tab(), QStringLiteral("Q"));
    QCOMPARE(window.lstContact->SelName(), QStringLiteral("Quinn, Ada"));
    QCOMPARE(window.cntlDetails->txtId->text(), QStringLiteral("1"));
    QCOMPARE(window.cntlDetails->txtPhone->text(), QStringLiteral("01273 000000"));
    QCOMPARE(window.cntlDetails->lblUD[0]->text(), QStringLiteral("Paid:"));
    QVERIFY(window.cntlDetails->txtSurname->isReadOnly());
    QVERIFY(window.cmdUpdate->isEnabled());
    QTRY_COMPARE(window.focusWidget(), window.lstContact->lstMaster->lstData);
}

void TestFrmContact::aContactWithoutSurnameIsRefused()
{
    frmContact window;
    ShowActive(window);
    bool stayed = false;
    QString status;
    bool surnameFocused = false;
    WhenModalShows<frmContactDetails>(
        [&](frmContactDetails *dialog) {
            Activate(dialog);
            QTest::keyClicks(dialog->cntlDetails->txtForename, QStringLiteral("Ann"));
            QTest::keyClick(dialog->cntlDetails->txtForename, Qt::Key_Return);
            stayed = dialog->isVisible();
            status = dialog->sbMsg->currentMessage();
            surnameFocused = dialog->focusWidget() == dialog->cntlDetails->txtSurname;
        },
        nullptr);
    QTest::mouseClick(window.cmdNew, Qt::LeftButton);
    QVERIFY(stayed);
    QCOMPARE(status, QStringLiteral("Surname must be entered"));
    QVERIFY(surnameFocused);
    QCOMPARE(Contacts(), 0);
}

void TestFrmContact::escapeLeavesTheNewContactUnsaved()
{
    frmContact window;
    ShowActive(window);
    bool closed = false;
    WhenModalShows<frmContactDetails>(
        [](frmContactDetails *dialog) {
            Activate(dialog);
            QTest::keyClicks(dialog->cntlDetails->txtSurname, QStringLiteral("Gone"));
            QTest::keyClick(dialog->cntlDetails->txtSurname, Qt::Key_Escape);
        },
        nullptr, &closed);
    QTest::mouseClick(window.cmdNew, Qt::LeftButton);
    QVERIFY(closed);
    QCOMPARE(Contacts(), 0);
}

void TestFrmContact::viewShowsTheContactReadOnlyInTheMainWindow()
{
    AddContact(1, QStringLiteral("Vane"), QStringLiteral("Viv"));
    frmMain main;
    ShowActive(main);
    main.mnuViewContacts->trigger();
    frmContact *contacts = main.ContactWindow();
    contacts->lstContact->SetTab(QStringLiteral("V"));
    QString surname;
    bool readOnly = false;
    bool closed = false;
    WhenModalShows<frmContactDetails>(
        [&](frmContactDetails *dialog) {
            Activate(dialog);
            surname = dialog->cntlDetails->txtSurname->text();
            readOnly = dialog->cntlDetails->txtSurname->isReadOnly() &&
                       !dialog->cmdOk->isVisible() &&
                       dialog->cmdCancel->text() == QLatin1String("Close");
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        },
        nullptr, &closed);
    // Alt+V belongs to the View menu; the command has Alt+I.
    QTest::keyClick(&main, Qt::Key_I, Qt::AltModifier);
    QTRY_VERIFY(closed);
    QCOMPARE(surname, QStringLiteral("Vane"));
    QVERIFY(readOnly);
    QCOMPARE(Contacts(), 1);
}

void TestFrmContact::updateChangesTheStoredContact()
{
    AddContact(1, QStringLiteral("Smith"), QStringLiteral("Ann"));
    AddContact(2, QStringLiteral("Shaw"), QStringLiteral("Bob"));
    frmContact window;
    ShowActive(window);
    window.lstContact->SetTab(QStringLiteral("S"));
    window.lstContact->setSelKey(QStringLiteral("1"));
    QCOMPARE(window.Contact()->Surname(), QStringLiteral("Smith"));
    QString shownSurname;
    bool closed = false;
    WhenModalShows<frmContactDetails>(
        [&](frmContactDetails *dialog) {
            Activate(dialog);
            shownSurname = dialog->cntlDetails->txtSurname->text();
            QVERIFY(!dialog->cntlDetails->txtSurname->isReadOnly());
            ReplaceText(dialog->cntlDetails->txtSurname, QStringLiteral("Smythe"));
            ReplaceText(dialog->cntlDetails->txtAddress1, QStringLiteral("3 Mill Lane"));
            QTest::keyClick(dialog->cntlDetails->txtAddress1, Qt::Key_Return);
        },
        nullptr, &closed);
    QTest::keyClick(&window, Qt::Key_U, Qt::AltModifier);
    QTRY_VERIFY(closed);
    QCOMPARE(shownSurname, QStringLiteral("Smith"));
    QCOMPARE(Contacts(), 2);
    QCOMPARE(Stored(1, "Surname"), QStringLiteral("Smythe"));
    QCOMPARE(Stored(1, "Address1"), QStringLiteral("3 Mill Lane"));
    QCOMPARE(Stored(2, "Surname"), QStringLiteral("Shaw"));
    QCOMPARE(window.lstContact->SelName(), QStringLiteral("Smythe, Ann"));
    QCOMPARE(window.cntlDetails->txtAddress1->text(), QStringLiteral("3 Mill Lane"));
}

void TestFrmContact::updateKeepsFieldsTheFormDoesNotShow()
{
    AddContact(1, QStringLiteral("Smith"), QStringLiteral("Ann"));
    RunSql(QStringLiteral("UPDATE Contact SET Club = 'Hove', Gender = 'F', DOB = '1970-05-04', "
                          "Age = 55 WHERE ContactId = 1"));
    frmContact window;
    ShowActive(window);
    window.lstContact->SetTab(QStringLiteral("S"));
    WhenModalShows<frmContactDetails>(
        [](frmContactDetails *dialog) {
            Activate(dialog);
            ReplaceText(dialog->cntlDetails->txtPhone, QStringLiteral("999"));
            QTest::keyClick(dialog->cntlDetails->txtPhone, Qt::Key_Return);
        },
        nullptr);
    QTest::mouseClick(window.cmdUpdate, Qt::LeftButton);
    QCOMPARE(Stored(1, "Phone"), QStringLiteral("999"));
    QCOMPARE(Stored(1, "Club"), QStringLiteral("Hove"));
    QCOMPARE(Stored(1, "Gender"), QStringLiteral("F"));
    QCOMPARE(Stored(1, "DOB"), QStringLiteral("1970-05-04"));
}

void TestFrmContact::aDoubleClickOpensTheContactForChange()
{
    AddContact(1, QStringLiteral("Smith"), QStringLiteral("Ann"));
    frmContact window;
    ShowActive(window);
    window.lstContact->SetTab(QStringLiteral("S"));
    bool editable = false;
    WhenModalShows<frmContactDetails>(
        [&editable](frmContactDetails *dialog) {
            editable = dialog->cntlDetails->DisplayMode() == cntlContactDetails::ChangeMode &&
                       dialog->cntlDetails->txtSurname->text() == QLatin1String("Smith") &&
                       !dialog->cntlDetails->txtSurname->isReadOnly();
            dialog->reject();
        },
        nullptr);
    cntlDataList *list = window.lstContact->lstMaster;
    const QRect cell = list->lstData->visualRect(list->Model()->index(0, 1));
    QTest::mouseClick(list->lstData->viewport(), Qt::LeftButton, {}, cell.center());
    QTest::mouseDClick(list->lstData->viewport(), Qt::LeftButton, {}, cell.center());
    QVERIFY(editable);
}

void TestFrmContact::deleteAsksAndRemovesTheContact()
{
    AddContact(1, QStringLiteral("Smith"), QStringLiteral("Ann"));
    AddContact(2, QStringLiteral("Shaw"), QStringLiteral("Bob"));
    frmContact window;
    ShowActive(window);
    window.lstContact->SetTab(QStringLiteral("S"));
    window.lstContact->setSelKey(QStringLiteral("1"));
    // Escape keeps the contact.
    bool warned = false;
    bool closed = false;
    WhenModalShows<frmContactDetails>(
        [&](frmContactDetails *dialog) {
            Activate(dialog);
            warned = dialog->lblMsg->isVisible() &&
                     dialog->lblMsg->text() ==
                         QLatin1String("Check that this is the contact you want to delete.") &&
                     dialog->cmdOk->text() == QLatin1String("&Delete") &&
                     dialog->cntlDetails->txtSurname->isReadOnly();
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        },
        nullptr, &closed);
    QTest::keyClick(&window, Qt::Key_D, Qt::AltModifier);
    QTRY_VERIFY(closed);
    QVERIFY(warned);
    QCOMPARE(Contacts(), 2);
    // Enter on the dialog's default command deletes.
    WhenModalShows<frmContactDetails>(
        [](frmContactDetails *dialog) {
            Activate(dialog);
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        },
        nullptr, &closed);
    closed = false;
    // The offscreen platform gives the window its activation back only when asked.
    ShowActive(window);
    QTest::keyClick(&window, Qt::Key_D, Qt::AltModifier);
    QTRY_VERIFY(closed);
    QCOMPARE(Contacts(), 1);
    QCOMPARE(Stored(2, "Surname"), QStringLiteral("Shaw"));
    QCOMPARE(window.lstContact->lstMaster->RowCount(), 1);
    QCOMPARE(window.Contact()->ContactId(), QStringLiteral("2"));
    QCOMPARE(seam_->Count(QStringLiteral("ask|")), 0);
}

void TestFrmContact::deletingAContactAlreadyGoneOnlyReadsTheListAgain()
{
    AddContact(1, QStringLiteral("Smith"), QStringLiteral("Ann"));
    AddContact(2, QStringLiteral("Shaw"), QStringLiteral("Bob"));
    frmContact window;
    ShowActive(window);
    window.lstContact->SetTab(QStringLiteral("S"));
    window.lstContact->setSelKey(QStringLiteral("1"));
    RunSql(QStringLiteral("DELETE FROM Contact WHERE ContactId = 1"));
    bool shown = false;
    QTimer::singleShot(20, &window, [&shown] {
        if (auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget())) {
            shown = true;
            dialog->reject();
        }
    });
    QTest::mouseClick(window.cmdDelete, Qt::LeftButton);
    QTest::qWait(50);
    QVERIFY(!shown);
    QCOMPARE(window.lstContact->lstMaster->RowCount(), 1);
    QCOMPARE(window.Contact()->ContactId(), QStringLiteral("2"));
    QCOMPARE(Contacts(), 1);
}

void TestFrmContact::quotesAndWildcardsInANameWork()
{
    const QString odd = QStringLiteral("O'Brien \"%_&<>");
    AddContact(1, QStringLiteral("Oddie"), QStringLiteral("Bill"));
    frmContact window;
    ShowActive(window);
    WhenModalShows<frmContactDetails>(
        [&](frmContactDetails *dialog) {
            Activate(dialog);
            QTest::keyClicks(dialog->cntlDetails->txtForename, QStringLiteral("Kate & <Co>"));
            QTest::keyClicks(dialog->cntlDetails->txtSurname, odd);
            QTest::keyClick(dialog->cntlDetails->txtSurname, Qt::Key_Return);
        },
        nullptr);
    QTest::mouseClick(window.cmdNew, Qt::LeftButton);
    QCOMPARE(Stored(2, "Surname"), odd);
    QCOMPARE(Stored(2, "Forename"), QStringLiteral("Kate & <Co>"));
    QCOMPARE(window.lstContact->SelName(), odd + QStringLiteral(", Kate & <Co>"));
    QCOMPARE(window.cntlDetails->txtSurname->text(), odd);
    // A search takes % and _ as letters of the name.
    window.lstContact->SetTab(QStringLiteral("?"));
    window.lstContact->txtSearch->setText(QStringLiteral("O'Brien \"%_"));
    QTest::mouseClick(window.lstContact->cmdSearch, Qt::LeftButton);
    QCOMPARE(window.lstContact->lstMaster->RowCount(), 1);
    QCOMPARE(window.lstContact->SelKey(), QStringLiteral("2"));
    window.lstContact->txtSearch->setText(QStringLiteral("O%"));
    QTest::mouseClick(window.lstContact->cmdSearch, Qt::LeftButton);
    QCOMPARE(window.lstContact->lstMaster->RowCount(), 0);
}

void TestFrmContact::letterTabsAndTypingFindAContact()
{
    AddContact(1, QStringLiteral("Adams"), QStringLiteral("Al"));
    AddContact(2, QStringLiteral("Baker"), QStringLiteral("Bea"));
    AddContact(3, QStringLiteral("Brown"), QStringLiteral("Bo"));
    AddContact(4, QStringLiteral("Bell"), QStringLiteral("Ben"));
    frmContact window;
    ShowActive(window);
    // Nothing is read until a letter is picked.
    QCOMPARE(window.lstContact->lstMaster->RowCount(), 0);
    QTabBar *tabs = window.lstContact->tabChar;
    int b = -1;
    for (int tab = 0; tab < tabs->count(); ++tab) {
        if (tabs->tabText(tab) == QLatin1String("B"))
            b = tab;
    }
    QVERIFY(b > 0);
    QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(b).center());
    QCOMPARE(window.lstContact->lstMaster->RowCount(), 3);
    QCOMPARE(window.lstContact->SelName(), QStringLiteral("Baker, Bea"));
    QTableView *grid = window.lstContact->lstMaster->lstData;
    grid->setFocus();
    QTest::keyClicks(grid, QStringLiteral("br"));
    QCOMPARE(window.lstContact->SelName(), QStringLiteral("Brown, Bo"));
    QCOMPARE(window.Contact()->ContactId(), QStringLiteral("3"));
    QCOMPARE(window.cntlDetails->txtSurname->text(), QStringLiteral("Brown"));
    // A heading click sorts the names the other way and keeps Brown selected.
    // The first click on the heading keeps the names ascending, the second reverses them.
    const QPoint heading(grid->horizontalHeader()->sectionViewportPosition(1) + 5, 5);
    QTest::mouseClick(grid->horizontalHeader()->viewport(), Qt::LeftButton, {}, heading);
    QCOMPARE(grid->model()->index(0, 1).data().toString(), QStringLiteral("Baker, Bea"));
    QTest::mouseClick(grid->horizontalHeader()->viewport(), Qt::LeftButton, {}, heading);
    QCOMPARE(window.lstContact->SelName(), QStringLiteral("Brown, Bo"));
    QCOMPARE(grid->model()->index(0, 1).data().toString(), QStringLiteral("Brown, Bo"));
}

void TestFrmContact::theFormHasNoPlayerFieldsAndNoMatch()
{
    AddContact(1, QStringLiteral("Adams"), QStringLiteral("Al"));
    frmContact window;
    ShowActive(window);
    window.lstContact->SetTab(QStringLiteral("A"));
    cntlContactDetails *details = window.cntlDetails;
    for (const char *name : {"cmbGender", "txtDOB", "txtAge", "cmbClub", "cmbSchool",
                             "txtGradeCode", "txtGradeClub", "cmdGradeClub", "txtMasterId"})
        QVERIFY2(!details->findChild<QWidget *>(QString::fromLatin1(name)), name);
    QVERIFY(!details->cmbGender && !details->txtDOB && !details->cmdGradeClub);
    for (const char *name :
         {"txtContactId", "txtForename", "txtSurname", "txtAddress1", "txtAddress2", "txtAddress3",
          "txtAddress4",  "txtPostCode", "txtPhone",   "txtEMail",    "txtUnion",    "txtNation",
          "txtGMTitle",   "txtGrade",    "cmbGLett",   "txtRGrade",   "cmbRLett",    "txtELO",
          "txtCode",      "cmbUD1",      "cmbUD2",     "cmbUD3",      "cmbUD4"}) {
        auto *field = details->findChild<QWidget *>(QString::fromLatin1(name));
        QVERIFY2(field && field->isVisible(), name);
    }
    QVERIFY(!window.findChild<QPushButton *>(QStringLiteral("cmdMatch")));
    // The read-only form leaves the Alt letters to the window's commands.
    for (const QLabel *caption : details->findChildren<QLabel *>())
        QVERIFY2(!caption->text().contains(u'&'), qPrintable(caption->text()));
    QCOMPARE(window.tbContact->count(), 1);
    QCOMPARE(window.tbContact->tabText(0), QStringLiteral("Details"));
    for (const char *name : {"lstContact", "cmdNew", "cmdUpdate", "cmdDelete", "cmdView",
                             "tbContact", "cntlContactDetails"})
        QVERIFY2(window.findChild<QWidget *>(QString::fromLatin1(name)), name);
}

void TestFrmContact::tabGoesFromTheListToTheCommandsAndTheDetails()
{
    AddContact(1, QStringLiteral("Adams"), QStringLiteral("Al"));
    frmContact window;
    ShowActive(window);
    window.lstContact->SetTab(QStringLiteral("A"));
    window.lstContact->SetFocus();
    QCOMPARE(QApplication::focusWidget(), window.lstContact->lstMaster->lstData);
    const QList<QWidget *> order{window.cmdNew,
                                 window.cmdUpdate,
                                 window.cmdDelete,
                                 window.cmdView,
                                 window.tbContact->tabBar(),
                                 window.cntlDetails->txtForename,
                                 window.cntlDetails->txtSurname};
    for (QWidget *next : order) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), next);
    }
}

void TestFrmContact::tooLongATextCannotBeTyped()
{
    frmContactDetails dialog(1, nullptr);
    ShowActive(dialog);
    QTest::keyClicks(dialog.cntlDetails->txtSurname, QString(25, u'x'));
    QCOMPARE(dialog.cntlDetails->txtSurname->text().size(), 20);
    QTest::keyClicks(dialog.cntlDetails->txtPostCode, QStringLiteral("AB12 3CDEF"));
    QCOMPARE(dialog.cntlDetails->txtPostCode->text(), QStringLiteral("AB12 3CD"));
}

void TestFrmContact::commandsShowTheirWholeCaptions()
{
    AddContact(1, QStringLiteral("Featherstonehaugh"), QStringLiteral("Maximilian"));
    // The main window at its first size.
    frmMain main;
    ShowActive(main);
    main.mnuViewContacts->trigger();
    frmContact &window = *main.ContactWindow();
    window.lstContact->SetTab(QStringLiteral("F"));
    const QString folder = qEnvironmentVariable("VELMORA_SHOT_FOLDER");
    if (!folder.isEmpty())
        main.grab().save(QDir(folder).filePath(QStringLiteral("frmContact-in-frmMain.png")));
    // The details are never cut at the side.
    const auto *area =
        qobject_cast<QScrollArea *>(window.cntlDetails->parentWidget()->parentWidget());
    QVERIFY(area);
    QVERIFY(!area->horizontalScrollBar()->isVisible());
    QVERIFY(window.cntlDetails->width() >= window.cntlDetails->minimumSizeHint().width());
    QVERIFY(area->viewport()->width() >= window.cntlDetails->minimumSizeHint().width());
    for (const QPushButton *button : window.findChildren<QPushButton *>()) {
        if (!button->isVisible())
            continue;
        QString text = button->text();
        text.remove(u'&');
        QVERIFY2(button->fontMetrics().horizontalAdvance(text) < button->width(), qPrintable(text));
    }
}

VELMORA_WIDGET_TEST_MAIN(TestFrmContact)
#include "test_frm_contact.moc"
