#include "base/busy.h"
#include "base/settings_store.h"
#include "database/database.h"
#include "database/sql.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/tournament.h"
#include "support/scripted_interaction.h"
#include "support/test_environment.h"
#include "ui/cntl_data_list.h"
#include "ui/cntl_master_list.h"
#include "ui/frm_main.h"
#include "ui/frm_master.h"

#include <QLineEdit>

#include <QAction>
#include <QApplication>
#include <QDate>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QMenu>
#include <QTemporaryDir>
#include <QTest>

namespace {

QStringList Captions(const QMenu *menu)
{
    QStringList captions;
    for (const QAction *action : menu->actions())
        captions.append(action->isSeparator() ? QStringLiteral("-") : action->text());
    return captions;
}

QString Setting(const QString &key)
{
    return GetSetting(QStringLiteral("Velmora!"), QStringLiteral("Configuration"), key,
                      QStringLiteral("unset"));
}

void ForgetBackupFolders()
{
    for (const char *key : {"BackupDir", "Backup"})
        SaveSetting(QStringLiteral("Velmora!"), QStringLiteral("Configuration"),
                    QString::fromLatin1(key), QStringLiteral("unset"));
}

qint64 RegisterCount()
{
    return SqlScalar(QStringLiteral("SELECT count(*) FROM Master")).toLongLong();
}

QString Folder(const QTemporaryDir &folder)
{
    return QDir::toNativeSeparators(folder.path()) + QDir::separator();
}

// Asks the master window for everybody, by the search "*", so that the count of its
// rows is the register as the window last read it.
void ShowEverybody(const frmMain &window)
{
    cntlMasterList *list = window.findChild<frmMaster *>()->lstMaster;
    list->txtSearch->setText(QStringLiteral("*"));
    list->SetTab(QStringLiteral("?"));
}

QString CountText(const frmMain &window)
{
    const int rows = window.findChild<frmMaster *>()->lstMaster->lstMaster->RowCount();
    return QStringLiteral("The register holds %1 players.").arg(rows);
}

} // namespace

class TestDbAdmin : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void toolsMenuCarriesImportAndAdministration();
    void tidyAsksThenReportsBothSizes();
    void tidyRefusedDoesNothing();
    void backupProposesTodaysNameAndRemembersTheFolder();
    void restoreRefusedAtTheQuestionChangesNothing();
    void restoreOfAFileThatIsNoDatabaseIsRefused();
    void restoreBringsBackSettingsAndShowsTheRestoredRegister();

private:
    std::unique_ptr<cTestSession> session_;
    std::unique_ptr<cScriptedInteraction> seam_;
    std::unique_ptr<QTemporaryDir> backups_;
};

void TestDbAdmin::init()
{
    ForgetBackupFolders();
    session_ = std::make_unique<cTestSession>();
    seam_ = std::make_unique<cScriptedInteraction>();
    backups_ = std::make_unique<QTemporaryDir>();
    RunSql(
        QStringLiteral("INSERT INTO Master (MasterId, Surname) VALUES (1, 'Ames'), (2, 'Bell')"));
}

void TestDbAdmin::cleanup()
{
    seam_.reset();
    session_.reset();
    backups_.reset();
    ForgetBackupFolders();
}

void TestDbAdmin::toolsMenuCarriesImportAndAdministration()
{
    frmMain window;
    window.show();
    const QStringList tools = Captions(window.mnuTools);
    const qsizetype import = tools.indexOf(QStringLiteral("Import"));
    QVERIFY(import >= 0);
    QCOMPARE(tools.mid(import), QStringList({QStringLiteral("Import"), QStringLiteral("-"),
                                             QStringLiteral("Database administration"),
                                             QStringLiteral("-"), QStringLiteral("&Options...")}));
    QCOMPARE(Captions(window.mnuFileDB),
             QStringList({QStringLiteral("Import new BCF Club List..."),
                          QStringLiteral("Import new BCF Master List...")}));
    QCOMPARE(Captions(window.mnuFileDBAdmin),
             QStringList({QStringLiteral("&Tidy"), QStringLiteral("-"),
                          QStringLiteral("&Backup..."), QStringLiteral("&Restore...")}));
    for (const char *name :
         {"mnuFileDB", "mnuLoadClubList", "mnuLoadBCFMasterList", "mnuSep1", "mnuFileDBAdmin",
          "mnuFileDBTidy", "mnuFileBar0", "mnuFileDBBackup", "mnuFileDBRestore", "mnuViewBar2"}) {
        QAction *command = window.Command(QString::fromLatin1(name));
        QVERIFY2(command, name);
        QVERIFY2(command->isVisible(), name);
        QVERIFY2(command->isEnabled(), name);
    }
}

void TestDbAdmin::tidyAsksThenReportsBothSizes()
{
    frmMain window;
    window.show();
    seam_->QueueAnswer(true);
    window.mnuFileDBTidy->trigger();
    QCOMPARE(
        seam_->CallsStartingWith(QStringLiteral("ask|")),
        QStringList{QStringLiteral("ask|Velmora!|Do you want to tidy the Velmora! database?")});
    const QStringList messages = seam_->CallsStartingWith(QStringLiteral("message|"));
    QCOMPARE(messages.size(), 1);
    QVERIFY(messages.first().startsWith(
        QStringLiteral("message|information|Velmora!|Database Compact completed.\nSize before: ")));
    QVERIFY(messages.first().contains(QStringLiteral("KB\nSize after   : ")));
    QVERIFY(QFile::exists(session_->DataDir() + QStringLiteral("Velmora.bak")));
    QVERIFY(!QFile::exists(session_->DataDir() + QStringLiteral("Velmora.tmp")));
    // The database is open again and whole.
    QCOMPARE(RegisterCount(), 2);
    QCOMPARE(BusyCount(), qint16(0));
}

void TestDbAdmin::tidyRefusedDoesNothing()
{
    frmMain window;
    window.show();
    seam_->QueueAnswer(false);
    window.mnuFileDBTidy->trigger();
    QCOMPARE(seam_->Count(QStringLiteral("ask|")), 1);
    QCOMPARE(seam_->Count(QStringLiteral("message|")), 0);
    QVERIFY(!QFile::exists(session_->DataDir() + QStringLiteral("Velmora.bak")));
}

void TestDbAdmin::backupProposesTodaysNameAndRemembersTheFolder()
{
    frmMain window;
    window.show();
    const QString chosen = backups_->path() + QStringLiteral("/first.bak");
    seam_->QueueFile(chosen);
    window.mnuFileDBBackup->trigger();
    const QStringList requests = seam_->CallsStartingWith(QStringLiteral("save-file|"));
    QCOMPARE(requests.size(), 1);
    QVERIFY(requests.first().startsWith(QStringLiteral("save-file|Backup Database|")));
    QVERIFY(requests.first().contains(
        u'|' + cDatabase::BackupFileName(QDate::currentDate()) +
        QStringLiteral("|Backup (*.bak)|*.bak|All Files (*.*)|*.*|1|BAK")));
    QVERIFY(QFile::exists(chosen));
    QCOMPARE(seam_->CallsStartingWith(QStringLiteral("message|")),
             QStringList{QStringLiteral(
                 "message|information|Velmora!|The backup has successfully completed")});
    QCOMPARE(Setting(QStringLiteral("Backup")), Folder(*backups_));

    // The next restore opens in the folder just used; cancelling it does nothing.
    seam_->Clear();
    seam_->QueueFile(QString());
    window.mnuFileDBRestore->trigger();
    const QStringList restores = seam_->CallsStartingWith(QStringLiteral("open-file|"));
    QCOMPARE(restores,
             QStringList{QStringLiteral("open-file|Restore Database|") + Folder(*backups_) +
                         QStringLiteral("|*.bak|Backup (*.bak)|*.mdb|All Files (*.*)|*.*|1|BAK")});
    QCOMPARE(seam_->Count(QStringLiteral("ask|")), 0);
    QCOMPARE(seam_->Count(QStringLiteral("message|")), 0);
    QCOMPARE(BusyCount(), qint16(0));
}

void TestDbAdmin::restoreRefusedAtTheQuestionChangesNothing()
{
    frmMain window;
    window.show();
    ShowEverybody(window);
    const QString backup = backups_->path() + QStringLiteral("/T.bak");
    seam_->QueueFile(backup);
    window.mnuFileDBBackup->trigger();
    QVERIFY(QFile::exists(backup));
    RunSql(QStringLiteral("INSERT INTO Master (MasterId, Surname) VALUES (3, 'Cole')"));

    QTemporaryDir elsewhere;
    Database().setBackupDir(elsewhere.path());
    SaveSetting(QStringLiteral("Velmora!"), QStringLiteral("Configuration"),
                QStringLiteral("Backup"), QStringLiteral("before"));
    const QString backupDir = Database().BackupDir();
    seam_->Clear();
    seam_->QueueFile(backup);
    seam_->QueueAnswer(false);
    window.mnuFileDBRestore->trigger();
    QCOMPARE(seam_->CallsStartingWith(QStringLiteral("ask|")),
             QStringList{QStringLiteral(
                 "ask|Velmora!|Restoring this database will overwrite the current details.\n\n"
                 "All changes since this backup will be lost.\n\n"
                 "Do you want to restore the database selected ?")});
    QCOMPARE(seam_->Count(QStringLiteral("message|")), 0);
    QCOMPARE(RegisterCount(), 3);
    QCOMPARE(Database().BackupDir(), backupDir);
    QCOMPARE(Setting(QStringLiteral("Backup")), QStringLiteral("before"));
    QCOMPARE(CountText(window), QStringLiteral("The register holds 2 players."));
}

void TestDbAdmin::restoreOfAFileThatIsNoDatabaseIsRefused()
{
    frmMain window;
    window.show();
    const QString junk = backups_->path() + QStringLiteral("/T010105.bak");
    {
        QFile file(junk);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("these are not the organiser's data\n");
    }
    const QString backupDir = Database().BackupDir();
    seam_->QueueFile(junk);
    seam_->QueueAnswer(true);
    window.mnuFileDBRestore->trigger();
    const QStringList messages = seam_->CallsStartingWith(QStringLiteral("message|"));
    QCOMPARE(messages.size(), 1);
    QCOMPARE(messages.first(),
             QStringLiteral("message|exclamation|Velmora!|The file ") + junk +
                 QStringLiteral(" is not a Velmora! database, so nothing has been restored."));
    QCOMPARE(RegisterCount(), 2);
    QVERIFY(Database().Exists());
    QCOMPARE(Database().BackupDir(), backupDir);
    QCOMPARE(BusyCount(), qint16(0));
}

void TestDbAdmin::restoreBringsBackSettingsAndShowsTheRestoredRegister()
{
    Control().setUserDefined1(QStringLiteral("Paid"));
    Control().Update();
    frmMain window;
    window.show();
    ShowEverybody(window);
    const QString backup = backups_->path() + QStringLiteral("/T.bak");
    seam_->QueueFile(backup);
    window.mnuFileDBBackup->trigger();

    // Work done after the backup: a new player, a new caption, an open tournament.
    RunSql(QStringLiteral("INSERT INTO Master (MasterId, Surname) VALUES (3, 'Cole')"));
    Control().setUserDefined1(QStringLiteral("Member"));
    Control().Update();
    Control().setTournament(std::make_shared<cTournament>());
    window.ShowMasterView();
    QCOMPARE(CountText(window), QStringLiteral("The register holds 3 players."));

    seam_->Clear();
    seam_->QueueFile(backup);
    seam_->QueueAnswer(true);
    window.mnuFileDBRestore->trigger();
    QCOMPARE(seam_->CallsStartingWith(QStringLiteral("message|")),
             QStringList{QStringLiteral(
                 "message|information|Velmora!|The restore has successfully completed")});
    QCOMPARE(RegisterCount(), 2);
    QCOMPARE(Control().UserDefined1(), QStringLiteral("Paid"));
    QCOMPARE(Control().Vrsn(), QStringLiteral("1.02"));
    QVERIFY(!Control().Tournament());
    QVERIFY(window.tbrPlayers->isChecked());
    QCOMPARE(CountText(window), QStringLiteral("The register holds 2 players."));
    QCOMPARE(Setting(QStringLiteral("Backup")), Folder(*backups_));
    QCOMPARE(BusyCount(), qint16(0));
}

VELMORA_WIDGET_TEST_MAIN(TestDbAdmin)
#include "test_db_admin.moc"
