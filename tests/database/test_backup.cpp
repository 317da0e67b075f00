#include "base/settings_store.h"
#include "database/database.h"
#include "database/sql.h"
#include "session/globals.h"
#include "support/full_disk.h"
#include "support/scripted_interaction.h"
#include "support/test_environment.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <QTest>

namespace {

QString Setting(const QString &key)
{
    return GetSetting(cDatabase::SettingsApplication(), QStringLiteral("Configuration"), key,
                      QStringLiteral("unset"));
}

void AddPlayer(int id, const QString &surname)
{
    RunSql(QStringLiteral("INSERT INTO Master (MasterId, Surname) VALUES (?, ?)"), {id, surname});
}

qint64 Players()
{
    return SqlScalar(QStringLiteral("SELECT count(*) FROM Master")).toLongLong();
}

QString Folder(const QTemporaryDir &dir)
{
    return cDatabase::WithClosingSeparator(QDir::toNativeSeparators(dir.path()));
}

// The folder that the recorded file dialog opened in.
QString DialogFolder(const QString &call)
{
    return call.section(u'|', 2, 2);
}

} // namespace

class TestBackup : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        for (const char *key : {"BackupDir", "Backup"})
            SaveSetting(cDatabase::SettingsApplication(), QStringLiteral("Configuration"),
                        QString::fromLatin1(key), QStringLiteral("unset"));
    }

    void proposesABackupNameFromTheDate()
    {
        QCOMPARE(cDatabase::BackupFileName(QDate(2001, 1, 5)), QStringLiteral("T010105.bak"));
        QCOMPARE(cDatabase::BackupFileName(QDate(2001, 12, 31)), QStringLiteral("T011231.bak"));

        cTestSession session;
        cScriptedInteraction seam;
        QVERIFY(!Database().BackupDB()); // cancelled
        QCOMPARE(seam.CallsStartingWith(QStringLiteral("save-file|")),
                 QStringList{QStringLiteral("save-file|Backup Database|") + Database().BackupDir() +
                             u'|' + cDatabase::BackupFileName(QDate::currentDate()) +
                             QStringLiteral("|Backup (*.bak)|*.bak|All Files (*.*)|*.*|1|BAK")});
        QCOMPARE(seam.Count(QStringLiteral("message|")), 0);
    }

    void backsUpTheDatabaseToTheChosenFile()
    {
        cTestSession session;
        cScriptedInteraction seam;
        AddPlayer(1, QStringLiteral("O'Brien"));
        QTemporaryDir backups;
        const QString target = backups.filePath(QStringLiteral("T010105.bak"));
        QFile stale(target);
        QVERIFY(stale.open(QIODevice::WriteOnly));
        stale.write("an older backup that the person chose to overwrite");
        stale.close();
        seam.QueueFile(target);
        QVERIFY(Database().BackupDB());
        QCOMPARE(seam.CallsStartingWith(QStringLiteral("message|")),
                 QStringList{QStringLiteral(
                     "message|information|Velmora!|The backup has successfully completed")});
        QVERIFY(!QFile::exists(target + QStringLiteral(".part")));
        QVERIFY(!seam.BusyPointerShown());

        // The copy is a whole database with the player in it.
        const QString name = QStringLiteral("check");
        {
            QSqlDatabase copy = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
            copy.setDatabaseName(target);
            QVERIFY(copy.open());
            QSqlQuery query(copy);
            QVERIFY(query.exec(QStringLiteral("SELECT Surname FROM Master")));
            QVERIFY(query.next());
            QCOMPARE(query.value(0).toString(), QStringLiteral("O'Brien"));
        }
        QSqlDatabase::removeDatabase(name);
    }

    void backupAndTidyOnAFullDiskSayWhyAndGoOn()
    {
        cTestSession session;
        cScriptedInteraction seam;
        {
            cTransaction unit;
            for (int id = 1; id <= 3000; ++id)
                AddPlayer(id, QStringLiteral("Player number ") + QString::number(id));
            unit.Commit();
        }
        RunSql(QStringLiteral("PRAGMA wal_checkpoint(TRUNCATE)"));
        QTemporaryDir backups;
        const QString backup = backups.filePath(QStringLiteral("T010105.bak"));
        seam.QueueFile(backup);
        seam.QueueAnswer(true);
        {
            cFullDisk full(16 * 1024);
            QVERIFY(!Database().BackupDB());
            QVERIFY(!Database().TidyDb());
        }
        const QStringList messages = seam.CallsStartingWith(QStringLiteral("message|"));
        QCOMPARE(messages.size(), 2);
        for (const QString &message : messages)
            QVERIFY2(message.startsWith(QStringLiteral("message|critical|Velmora!|")) &&
                         message.contains(QStringLiteral("disk")),
                     qPrintable(message));
        QVERIFY(!QFileInfo::exists(backup));
        QVERIFY(QDir(backups.path()).isEmpty());
        QCOMPARE(Players(), 3000);
        QCOMPARE(SqlScalar(QStringLiteral("PRAGMA integrity_check")).toString(),
                 QStringLiteral("ok"));
        seam.QueueFile(backup);
        QVERIFY(Database().BackupDB());
    }

    void opensTheNextBackupAndRestoreInTheFolderJustUsed()
    {
        cTestSession session;
        cScriptedInteraction seam;
        QTemporaryDir backups;
        seam.QueueFile(backups.filePath(QStringLiteral("T010105.bak")));
        QVERIFY(Database().BackupDB());
        QCOMPARE(Database().BackupDir(), Folder(backups));
        QCOMPARE(Setting(QStringLiteral("BackupDir")), Folder(backups));
        QCOMPARE(Setting(QStringLiteral("Backup")), Folder(backups));

        seam.Clear();
        QVERIFY(!Database().BackupDB());
        QVERIFY(!Database().RestoreDb());
        const QStringList dialogs = seam.Calls().filter(QStringLiteral("-file|"));
        QCOMPARE(dialogs.size(), 2);
        QCOMPARE(DialogFolder(dialogs[0]), Folder(backups));
        QCOMPARE(DialogFolder(dialogs[1]), Folder(backups));
        QCOMPARE(dialogs[1],
                 QStringLiteral("open-file|Restore Database|") + Folder(backups) +
                     QStringLiteral("|*.bak|Backup (*.bak)|*.mdb|All Files (*.*)|*.*|1|BAK"));

        // A new run starts in the same folder.
        DestroySessionObjects();
        CreateSessionObjects();
        QCOMPARE(Database().BackupDir(), Folder(backups));
    }

    void restoresABackupOverTheDatabase()
    {
        cTestSession session;
        cScriptedInteraction seam;
        AddPlayer(1, QStringLiteral("Smith"));
        QTemporaryDir backups;
        const QString backup = backups.filePath(QStringLiteral("T010105.bak"));
        seam.QueueFile(backup);
        QVERIFY(Database().BackupDB());
        AddPlayer(2, QStringLiteral("Jones"));
        QCOMPARE(Players(), 2);

        seam.Clear();
        seam.QueueFile(backup);
        seam.QueueAnswer(true);
        QVERIFY(Database().RestoreDb());
        QCOMPARE(seam.CallsStartingWith(QStringLiteral("ask|")),
                 QStringList{QStringLiteral(
                     "ask|Velmora!|Restoring this database will overwrite the current details.\n\n"
                     "All changes since this backup will be lost.\n\n"
                     "Do you want to restore the database selected ?")});
        QCOMPARE(seam.CallsStartingWith(QStringLiteral("message|")),
                 QStringList{QStringLiteral(
                     "message|information|Velmora!|The restore has successfully completed")});
        QVERIFY(Database().IsOpen());
        QCOMPARE(Players(), 1);
        QCOMPARE(SqlScalar(QStringLiteral("SELECT Surname FROM Master")).toString(),
                 QStringLiteral("Smith"));
        QCOMPARE(Setting(QStringLiteral("Backup")), Folder(backups));
        QVERIFY(!QFile::exists(Database().DataDir() + QStringLiteral("Velmora.restore")));
    }

    void changesNothingWhenTheRestoreIsRefusedAtTheQuestion()
    {
        cTestSession session;
        cScriptedInteraction seam;
        AddPlayer(1, QStringLiteral("Smith"));
        QTemporaryDir backups;
        const QString backup = backups.filePath(QStringLiteral("T010105.bak"));
        seam.QueueFile(backup);
        QVERIFY(Database().BackupDB());
        AddPlayer(2, QStringLiteral("Jones"));

        Database().setBackupDir(QDir::tempPath());
        SaveSetting(cDatabase::SettingsApplication(), QStringLiteral("Configuration"),
                    QStringLiteral("Backup"), QStringLiteral("unset"));
        const QString backupDir = Database().BackupDir();
        const QByteArray before = [] {
            QFile file(Database().DataDb());
            return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
        }();
        seam.Clear();
        seam.QueueFile(backup);
        seam.QueueAnswer(false);
        QVERIFY(!Database().RestoreDb());
        QCOMPARE(seam.Count(QStringLiteral("ask|")), 1);
        QCOMPARE(seam.Count(QStringLiteral("message|")), 0);
        QCOMPARE(Players(), 2);
        QCOMPARE(Database().BackupDir(), backupDir);
        QCOMPARE(Setting(QStringLiteral("Backup")), QStringLiteral("unset"));
        QFile after(Database().DataDb());
        QVERIFY(after.open(QIODevice::ReadOnly));
        QCOMPARE(after.readAll(), before);
    }

    void refusesToRestoreAFileThatIsNotItsDatabase_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<bool>("sqlite");
        QTest::newRow("text") << QByteArray("not a database at all\n") << false;
        QTest::newRow("other SQLite database") << QByteArray() << true;
    }
    void refusesToRestoreAFileThatIsNotItsDatabase()
    {
        QFETCH(QByteArray, content);
        QFETCH(bool, sqlite);
        cTestSession session;
        cScriptedInteraction seam;
        AddPlayer(1, QStringLiteral("Smith"));
        QTemporaryDir other;
        const QString file = other.filePath(QStringLiteral("other.bak"));
        if (sqlite) {
            const QString name = QStringLiteral("other");
            {
                QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
                db.setDatabaseName(file);
                QVERIFY(db.open());
                QSqlQuery query(db);
                QVERIFY(query.exec(QStringLiteral("CREATE TABLE Cntrl (Vrsn TEXT)")));
            }
            QSqlDatabase::removeDatabase(name);
        } else {
            QFile text(file);
            QVERIFY(text.open(QIODevice::WriteOnly));
            text.write(content);
        }
        const QString backupDir = Database().BackupDir();
        seam.QueueFile(file);
        seam.QueueAnswer(true);
        QVERIFY(!Database().RestoreDb());
        const QStringList messages = seam.CallsStartingWith(QStringLiteral("message|"));
        QCOMPARE(messages.size(), 1);
        QVERIFY2(messages[0].startsWith(QStringLiteral("message|exclamation|Velmora!|")),
                 qPrintable(messages[0]));
        if (!sqlite)
            QVERIFY(messages[0].contains(QStringLiteral("not a Velmora! database")) ||
                    messages[0].contains(QStringLiteral("not a database")));
        else
            QVERIFY(messages[0].contains(
                QStringLiteral("is not a Velmora! database, so nothing has been restored.")));
        QVERIFY(Database().IsOpen());
        QCOMPARE(Players(), 1);
        QCOMPARE(Database().BackupDir(), backupDir);
        QCOMPARE(Setting(QStringLiteral("Backup")), QStringLiteral("unset"));
        QVERIFY(!seam.BusyPointerShown());
    }

    void showsSizesInKilobytes()
    {
        QCOMPARE(cDatabase::SizeInKilobytes(1536000), QStringLiteral("1,500KB"));
        QCOMPARE(cDatabase::SizeInKilobytes(0), QStringLiteral("0KB"));
        QCOMPARE(cDatabase::SizeInKilobytes(1024LL * 1234567), QStringLiteral("1,234,567KB"));
    }

    void tidiesTheDatabaseKeepingASafetyCopy()
    {
        cTestSession session;
        cScriptedInteraction seam;
        {
            cTransaction unit;
            for (int id = 1; id <= 3000; ++id)
                AddPlayer(id, QStringLiteral("Player number ") + QString::number(id));
            unit.Commit();
        }
        RunSql(QStringLiteral("DELETE FROM Master WHERE MasterId > 10"));
        // The rows stand in the write-ahead log until it is written into the file.
        RunSql(QStringLiteral("PRAGMA wal_checkpoint(TRUNCATE)"));
        const qint64 before = QFileInfo(Database().DataDb()).size();
        seam.QueueAnswer(true);
        QVERIFY(Database().TidyDb());
        const qint64 after = QFileInfo(Database().DataDb()).size();
        QVERIFY(after < before);
        QCOMPARE(
            seam.CallsStartingWith(QStringLiteral("ask|")),
            QStringList{QStringLiteral("ask|Velmora!|Do you want to tidy the Velmora! database?")});
        QCOMPARE(
            seam.CallsStartingWith(QStringLiteral("message|")),
            QStringList{
                QStringLiteral(
                    "message|information|Velmora!|Database Compact completed.\nSize before: ") +
                cDatabase::SizeInKilobytes(before) + QStringLiteral("\nSize after   : ") +
                cDatabase::SizeInKilobytes(after)});
        QVERIFY(QFile::exists(Database().DataDir() + QStringLiteral("Velmora.bak")));
        QVERIFY(!QFile::exists(Database().DataDir() + QStringLiteral("Velmora.tmp")));
        QVERIFY(Database().IsOpen());
        QCOMPARE(Players(), 10);
        QCOMPARE(SqlScalar(QStringLiteral("PRAGMA integrity_check")).toString(),
                 QStringLiteral("ok"));
        QVERIFY(!seam.BusyPointerShown());
    }

    void leavesTheDatabaseAloneWhenTheTidyIsDeclined()
    {
        cTestSession session;
        cScriptedInteraction seam;
        seam.QueueAnswer(false);
        QVERIFY(!Database().TidyDb());
        QVERIFY(!QFile::exists(Database().DataDir() + QStringLiteral("Velmora.bak")));
        QCOMPARE(seam.Count(QStringLiteral("message|")), 0);
    }
};

VELMORA_TEST_MAIN(TestBackup)
#include "test_backup.moc"
