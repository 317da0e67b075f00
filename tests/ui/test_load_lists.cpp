#include "base/busy.h"
#include "database/database.h"
#include "database/sql.h"
#include "session/globals.h"
#include "support/scripted_interaction.h"
#include "support/test_environment.h"
#include "support/widget_driving.h"
#include "ui/frm_load_bcf_list.h"
#include "ui/frm_load_club_list.h"
#include "ui/frm_main.h"
#include "ui/main_commands.h"

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <functional>

namespace {

void InsertOldLists()
{
    RunSql(QStringLiteral("INSERT INTO BCFMast (Ref, Name) VALUES ('111111A', 'Old, Ann'), "
                          "('222222B', 'Old, Bob')"));
    RunSql(QStringLiteral("INSERT INTO Club (Code, Club, County, \"Union\") VALUES "
                          "('OLD', 'Old Club', 'OLD', 'O')"));
}

// The matching command of the Tools menu, as the refresh of the enabled commands left it.
QAction *AddMatchCommand(frmMain &window)
{
    SetMainCommands();
    return window.mnuTBCFMaster;
}

} // namespace

class TestLoadLists : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void dialogsShowTheirOwnWords();
    void cancellingTheGradingListDialogLeavesTheListUntouched();
    void escapeOnTheClubListDialogLeavesTheClubsUntouched();
    void gradingListChosenByBrowseReplacesTheListAndEnablesMatching();
    void clubListChosenByBrowseReplacesTheClubs();
    void typedTableNameWithoutExtensionLoadsTheSameList();
    void typedFileThatBreaksKeepsTheOldListAndSaysWhy();
    void browseCancelShowsTheCancelAndEmptiesTheBox();
    void browseOfAnotherExtensionBeepsAndEmptiesTheBox();
    void browseOfAFileThatIsNoTableEmptiesTheBoxSilently();
    void okWithAnEmptyBoxBeepsAndStays();

private:
    std::unique_ptr<cTestSession> session_;
    std::unique_ptr<cScriptedInteraction> seam_;
    std::unique_ptr<QTemporaryDir> folder_;
};

void TestLoadLists::init()
{
    session_ = std::make_unique<cTestSession>();
    seam_ = std::make_unique<cScriptedInteraction>();
    folder_ = std::make_unique<QTemporaryDir>();
}

void TestLoadLists::cleanup()
{
    seam_.reset();
    session_.reset();
    folder_.reset();
}

void TestLoadLists::dialogsShowTheirOwnWords()
{
    frmLoadBCFList grading;
    QCOMPARE(grading.windowTitle(), QStringLiteral("Select New BCF Master List"));
    QCOMPARE(grading.lblPrompt->text(),
             QStringLiteral("Select the new BCF Grading List to be loaded to Velmora!"));
    QCOMPARE(grading.txtSelectDb->text(), QStringLiteral("Players.dbf"));
    QCOMPARE(grading.cmdCancel->text(), QStringLiteral("Cancel"));
    QVERIFY(grading.cmdOk->isDefault());
    QVERIFY(grading.Cancelled);

    frmLoadClubList clubs;
    QCOMPARE(clubs.windowTitle(), QStringLiteral("Select New BCF Club List"));
    QCOMPARE(clubs.lblPrompt->text(),
             QStringLiteral("Select the new BCF Club List to be loaded to Velmora!"));
    QCOMPARE(clubs.txtSelectDb->text(), QStringLiteral("clubs.dbf"));
    QCOMPARE(clubs.cmdCancel->text(), QStringLiteral("Cancel"));
    QVERIFY(clubs.Cancelled);
}

void TestLoadLists::cancellingTheGradingListDialogLeavesTheListUntouched()
{
    InsertOldLists();
    frmMain window;
    QAction *match = AddMatchCommand(window);
    window.show();
    bool shown = false;
    WhenModalShows<frmLoadBCFList>(
        [](frmLoadBCFList *dialog) { QTest::mouseClick(dialog->cmdCancel, Qt::LeftButton); },
        nullptr, &shown);
    window.mnuLoadBCFMasterList->trigger();
    QVERIFY(shown);
    QCOMPARE(RowCount(QStringLiteral("BCFMast")), 2);
    QCOMPARE(SqlScalar(QStringLiteral("SELECT Name FROM BCFMast WHERE Ref = '111111A'")).toString(),
             QStringLiteral("Old, Ann"));
    QCOMPARE(seam_->Count(QStringLiteral("progress-start|")), 0);
    QCOMPARE(seam_->Count(QStringLiteral("message|")), 0);
    QVERIFY(match->isEnabled());
    QCOMPARE(BusyCount(), qint16(0));
}

void TestLoadLists::escapeOnTheClubListDialogLeavesTheClubsUntouched()
{
    InsertOldLists();
    frmMain window;
    window.show();
    bool shown = false;
    WhenModalShows<frmLoadClubList>(
        [](frmLoadClubList *dialog) { QTest::keyClick(dialog, Qt::Key_Escape); }, nullptr, &shown);
    window.mnuLoadClubList->trigger();
    QVERIFY(shown);
    QCOMPARE(RowCount(QStringLiteral("Club")), 1);
    QCOMPARE(SqlScalar(QStringLiteral("SELECT Club FROM Club")).toString(),
             QStringLiteral("Old Club"));
    QCOMPARE(seam_->Count(QStringLiteral("progress-start|")), 0);
}

void TestLoadLists::gradingListChosenByBrowseReplacesTheListAndEnablesMatching()
{
    const QString list =
        CopySharedFile(QStringLiteral("grading-list/Players.dbf"), folder_->path());
    QVERIFY(!list.isEmpty());
    frmMain window;
    QAction *match = AddMatchCommand(window);
    window.show();
    QVERIFY(!match->isEnabled());
    seam_->QueueFile(list);
    bool shown = false;
    QString inBox;
    WhenModalShows<frmLoadBCFList>(
        [&inBox](frmLoadBCFList *dialog) {
            QTest::mouseClick(dialog->cmdBrowse, Qt::LeftButton);
            inBox = dialog->txtSelectDb->text();
            QTest::mouseClick(dialog->cmdOk, Qt::LeftButton);
        },
        nullptr, &shown);
    window.mnuLoadBCFMasterList->trigger();
    QVERIFY(shown);
    QCOMPARE(inBox, list);
    const QStringList requests = seam_->CallsStartingWith(QStringLiteral("open-file|"));
    QCOMPARE(requests, QStringList{QStringLiteral("open-file|Open||Players.dbf||1|dbf")});
    // Numeric references are not players of the list.
    QCOMPARE(RowCount(QStringLiteral("BCFMast")), 1997);
    QCOMPARE(seam_->CallsStartingWith(QStringLiteral("progress-start|")),
             QStringList{QStringLiteral("progress-start|Copying the BCF Master List|2000")});
    QCOMPARE(seam_->CallsStartingWith(QStringLiteral("message|")),
             QStringList{QStringLiteral("message|information|Velmora!|1,997 players loaded")});
    QVERIFY(match->isEnabled());
    QCOMPARE(BusyCount(), qint16(0));
}

void TestLoadLists::clubListChosenByBrowseReplacesTheClubs()
{
    InsertOldLists();
    const QString list = CopySharedFile(QStringLiteral("grading-list/clubs.dbf"), folder_->path());
    QVERIFY(!list.isEmpty());
    frmMain window;
    window.show();
    seam_->QueueFile(list);
    bool shown = false;
    WhenModalShows<frmLoadClubList>(
        [](frmLoadClubList *dialog) {
            QTest::mouseClick(dialog->cmdBrowse, Qt::LeftButton);
            // Back into the box and Enter, which is OK.
            QTest::keyClick(dialog->cmdBrowse, Qt::Key_Backtab);
            QTest::keyClick(dialog->focusWidget(), Qt::Key_Return);
        },
        nullptr, &shown);
    window.mnuLoadClubList->trigger();
    QVERIFY(shown);
    QCOMPARE(RowCount(QStringLiteral("Club")), 600);
    QCOMPARE(SqlScalar(QStringLiteral("SELECT count(*) FROM Club WHERE Code = 'OLD'")).toInt(), 0);
    QCOMPARE(seam_->CallsStartingWith(QStringLiteral("progress-start|")),
             QStringList{QStringLiteral(
                 "progress-start|Copying the Club table from the Velmora DOS database|600")});
    QCOMPARE(seam_->CallsStartingWith(QStringLiteral("message|")),
             QStringList{QStringLiteral("message|information|Velmora!|600 clubs loaded")});
    // The grading list is not touched by a load of the clubs.
    QCOMPARE(RowCount(QStringLiteral("BCFMast")), 2);
    QCOMPARE(BusyCount(), qint16(0));
}

void TestLoadLists::typedTableNameWithoutExtensionLoadsTheSameList()
{
    QVERIFY(!CopySharedFile(QStringLiteral("grading-list/Players.dbf"), folder_->path()).isEmpty());
    frmMain window;
    window.show();
    const QString typed = folder_->path() + QStringLiteral("/Players");
    bool shown = false;
    WhenModalShows<frmLoadBCFList>(
        [typed](frmLoadBCFList *dialog) {
            ReplaceText(dialog->txtSelectDb, typed);
            QTest::mouseClick(dialog->cmdOk, Qt::LeftButton);
        },
        nullptr, &shown);
    window.mnuLoadBCFMasterList->trigger();
    QVERIFY(shown);
    QCOMPARE(RowCount(QStringLiteral("BCFMast")), 1997);
}

void TestLoadLists::typedFileThatBreaksKeepsTheOldListAndSaysWhy()
{
    InsertOldLists();
    const QString list =
        CopySharedFile(QStringLiteral("grading-list/Players.dbf"), folder_->path());
    QVERIFY(!list.isEmpty());
    // Cut short half way through its rows.
    QVERIFY(QFile::resize(list, QFileInfo(list).size() / 2));
    frmMain window;
    QAction *match = AddMatchCommand(window);
    window.show();
    bool shown = false;
    WhenModalShows<frmLoadBCFList>(
        [list](frmLoadBCFList *dialog) {
            ReplaceText(dialog->txtSelectDb, list);
            QTest::mouseClick(dialog->cmdOk, Qt::LeftButton);
        },
        nullptr, &shown);
    window.mnuLoadBCFMasterList->trigger();
    QVERIFY(shown);
    const QStringList messages = seam_->CallsStartingWith(QStringLiteral("message|"));
    QCOMPARE(messages.size(), 1);
    QVERIFY(messages.first().startsWith(
        QStringLiteral("message|exclamation|Velmora!|The BCF Master List could not be loaded.")));
    QVERIFY(messages.first().endsWith(QStringLiteral("The list that was loaded before is kept.")));
    QCOMPARE(RowCount(QStringLiteral("BCFMast")), 2);
    QCOMPARE(SqlScalar(QStringLiteral("SELECT Name FROM BCFMast WHERE Ref = '222222B'")).toString(),
             QStringLiteral("Old, Bob"));
    QVERIFY(match->isEnabled());
    QCOMPARE(BusyCount(), qint16(0));
}

void TestLoadLists::browseCancelShowsTheCancelAndEmptiesTheBox()
{
    frmLoadBCFList dialog;
    ShowActive(dialog);
    seam_->QueueFile(QString());
    QTest::mouseClick(dialog.cmdBrowse, Qt::LeftButton);
    QCOMPARE(seam_->CallsStartingWith(QStringLiteral("message|")),
             QStringList{QStringLiteral("message|plain|Velmora!|Cancel was selected. 32755")});
    QVERIFY(dialog.txtSelectDb->text().isEmpty());
    QVERIFY(dialog.isVisible());
    QVERIFY(dialog.Cancelled);
}

void TestLoadLists::browseOfAnotherExtensionBeepsAndEmptiesTheBox()
{
    const QString list = CopySharedFile(QStringLiteral("grading-list/clubs.dbf"), folder_->path());
    const QString renamed = folder_->path() + QStringLiteral("/clubs.txt");
    QVERIFY(QFile::rename(list, renamed));
    frmLoadClubList dialog;
    ShowActive(dialog);
    seam_->QueueFile(renamed);
    QTest::mouseClick(dialog.cmdBrowse, Qt::LeftButton);
    QCOMPARE(seam_->Count(QStringLiteral("beep")), 1);
    QVERIFY(dialog.txtSelectDb->text().isEmpty());
    QCOMPARE(seam_->Count(QStringLiteral("message|")), 0);

    // The same file under its own extension, in capitals, is taken.
    const QString upper = folder_->path() + QStringLiteral("/CLUBS.DBF");
    QVERIFY(QFile::rename(renamed, upper));
    seam_->QueueFile(upper);
    QTest::mouseClick(dialog.cmdBrowse, Qt::LeftButton);
    QCOMPARE(dialog.txtSelectDb->text(), upper);
    QCOMPARE(seam_->Count(QStringLiteral("beep")), 1);
}

void TestLoadLists::browseOfAFileThatIsNoTableEmptiesTheBoxSilently()
{
    const QString junk = folder_->path() + QStringLiteral("/Players.dbf");
    {
        QFile file(junk);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("Ref,Name\n123456A,Smith\n");
    }
    frmLoadBCFList dialog;
    ShowActive(dialog);
    seam_->QueueFile(junk);
    QTest::mouseClick(dialog.cmdBrowse, Qt::LeftButton);
    QVERIFY(dialog.txtSelectDb->text().isEmpty());
    QCOMPARE(seam_->Count(QStringLiteral("message|")), 0);
    QCOMPARE(seam_->Count(QStringLiteral("beep")), 0);
    QVERIFY(dialog.isVisible());
}

void TestLoadLists::okWithAnEmptyBoxBeepsAndStays()
{
    frmLoadBCFList dialog;
    ShowActive(dialog);
    ReplaceText(dialog.txtSelectDb, QString());
    QTest::mouseClick(dialog.cmdOk, Qt::LeftButton);
    QCOMPARE(seam_->Count(QStringLiteral("beep")), 1);
    QVERIFY(dialog.isVisible());
    QVERIFY(dialog.txtSelectDb->hasFocus());
    QVERIFY(dialog.Cancelled);
    QVERIFY(dialog.FileName().isEmpty());
}

VELMORA_WIDGET_TEST_MAIN(TestLoadLists)
#include "test_load_lists.moc"
