#include "database/database.h"

#include "base/app_info.h"
#include "base/busy.h"
#include "base/fatal_fault.h"
#include "base/settings_store.h"
#include "base/user_interaction.h"
#include "database/connection.h"
#include "database/sql.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QSqlError>
#include <QSqlQuery>

#include <cmath>
#include <cstdio>

// The data file is copied with SQLite's own means (VACUUM INTO), which gives a
// whole, consistent database even while the file is open; a copy is made under a
// work name and put in place by a rename, so no file is ever left half-written.

namespace {

const QString ConfigurationSection = QStringLiteral("Configuration");

QString FolderOf(const QString &file)
{
    return cDatabase::WithClosingSeparator(
        QDir::toNativeSeparators(QFileInfo(file).absolutePath()));
}

void SaveFolderSetting(const QString &key, const QString &folder)
{
    SaveSetting(cDatabase::SettingsApplication(), ConfigurationSection, key, folder);
}

// Puts a finished work file in place of target, replacing it in one step.
bool ReplaceFile(const QString &work, const QString &target, QString *reason)
{
    if (std::rename(QFile::encodeName(work).constData(), QFile::encodeName(target).constData()) ==
        0)
        return true;
    *reason = QStringLiteral("The file ") + QDir::toNativeSeparators(target) +
              QStringLiteral(" could not be replaced.");
    QFile::remove(work);
    return false;
}

void TellFault(const QString &description, int number)
{
    Interaction().ShowMessage(description + u' ' + QString::number(number), MessageIcon::Critical,
                              AppInfo::Title());
}

// A copy of the open database written to target through a work file beside it.
bool CopyOpenDatabase(const QString &target, QString *reason)
{
    const QString work = target + QStringLiteral(".part");
    QFile::remove(work);
    QSqlQuery query(SessionConnection());
    if (!query.prepare(QStringLiteral("VACUUM INTO ?"))) {
        *reason = query.lastError().text();
        return false;
    }
    query.bindValue(0, work);
    if (!query.exec()) {
        *reason = query.lastError().text();
        QFile::remove(work);
        return false;
    }
    return ReplaceFile(work, target, reason);
}

// True when the file is a database of this program: SQLite opens it read-only and
// finds the tables of the data file and a version in Cntrl. On true, a copy of it
// is written to copyTo.
bool CopyVelmoraDatabase(const QString &file, const QString &copyTo, QString *reason)
{
    static int probes = 0;
    const QString name = QStringLiteral("VelmoraRestore") + QString::number(++probes);
    bool copied = false;
    {
        QSqlDatabase probe = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
        probe.setDatabaseName(file);
        probe.setConnectOptions(QStringLiteral("QSQLITE_OPEN_READONLY"));
        if (probe.open()) {
            QSqlQuery query(probe);
            bool sound =
                query.exec(QStringLiteral(
                    "SELECT count(*) FROM sqlite_master WHERE type = 'table' AND name IN "
                    "('Cntrl', 'Master', 'Velmora', 'Player', 'Result', 'Club', 'BCFMast')")) &&
                query.next() && query.value(0).toInt() == 7;
            sound = sound && query.exec(QStringLiteral("SELECT Vrsn FROM Cntrl")) && query.next() &&
                    !query.value(0).toString().isEmpty();
            sound = sound && query.exec(QStringLiteral("PRAGMA quick_check")) && query.next() &&
                    query.value(0).toString() == u"ok";
            if (sound) {
                QFile::remove(copyTo);
                query.prepare(QStringLiteral("VACUUM INTO ?"));
                query.bindValue(0, copyTo);
                copied = query.exec();
                if (!copied)
                    *reason = query.lastError().text();
            } else {
                *reason = QStringLiteral("The file ") + QDir::toNativeSeparators(file) +
                          QStringLiteral(" is not a ") + AppInfo::Title() +
                          QStringLiteral(" database, so nothing has been restored.");
            }
            query.finish();
            probe.close();
        } else {
            *reason = probe.lastError().text();
        }
    }
    QSqlDatabase::removeDatabase(name);
    if (!copied)
        QFile::remove(copyTo);
    return copied;
}

} // namespace

QString cDatabase::BackupFileName(const QDate &date)
{
    return QStringLiteral("T") + date.toString(QStringLiteral("yyMMdd")) + QStringLiteral(".bak");
}

QString cDatabase::SizeInKilobytes(qint64 bytes)
{
    const qint64 kilobytes = std::llround(double(bytes) / 1024.0);
    return QLocale(QLocale::English).toString(kilobytes) + QStringLiteral("KB");
}

bool cDatabase::BackupDB()
{
    const cFileRequest request{QStringLiteral("Backup Database"),
                               backupDir_,
                               BackupFileName(QDate::currentDate()),
                               QStringLiteral("Backup (*.bak)|*.bak|All Files (*.*)|*.*"),
                               1,
                               QStringLiteral("BAK")};
    const QString chosen = Interaction().ChooseSaveFile(request);
    if (chosen.isEmpty())
        return false;
    const QString folder = FolderOf(chosen);
    backupDir_ = folder;
    SaveFolderSetting(QStringLiteral("BackupDir"), folder);
    {
        cBusySection busy;
        QString reason;
        if (!CopyOpenDatabase(chosen, &reason)) {
            TellFault(reason, FaultNumber::File);
            return false;
        }
    }
    backupDir_ = folder;
    SaveFolderSetting(QStringLiteral("Backup"), folder);
    Interaction().ShowMessage(QStringLiteral("The backup has successfully completed"),
                              MessageIcon::Information, AppInfo::Title());
    return true;
}

bool cDatabase::TidyDb()
{
    if (!Interaction().AskYesNo(QStringLiteral("Do you want to tidy the ") + AppInfo::Title() +
                                    QStringLiteral(" database?"),
                                AppInfo::Title()))
        return false;
    qint64 sizeBefore = 0;
    qint64 sizeAfter = 0;
    {
        cBusySection busy;
        // Commits still in the write-ahead log count, as they would after a close.
        RunSql(QStringLiteral("PRAGMA wal_checkpoint(TRUNCATE)"));
        sizeBefore = QFileInfo(DataDb()).size();
        const QString safetyCopy = dataDir_ + QStringLiteral("Velmora") + QStringLiteral(".bak");
        const QString compacted = dataDir_ + QStringLiteral("Velmora") + QStringLiteral(".tmp");
        QString reason;
        // The safety copy is kept until the next tidy, for the case that the
        // compaction fails. A full disk or a folder that can't be written stops the
        // tidy before the data file is touched.
        if (!CopyOpenDatabase(safetyCopy, &reason)) {
            TellFault(reason, FaultNumber::File);
            return false;
        }
        QFile::remove(compacted);
        QSqlQuery compaction(Db());
        compaction.prepare(QStringLiteral("VACUUM INTO ?"));
        compaction.bindValue(0, compacted);
        if (!compaction.exec()) {
            QFile::remove(compacted);
            TellFault(compaction.lastError().text(), FaultNumber::File);
            return false;
        }
        compaction.finish();
        CloseDb();
        const bool replaced = ReplaceFile(compacted, DataDb(), &reason);
        OpenDb();
        if (!replaced)
            RaiseFatal(QStringLiteral("Velmora! database"), FaultNumber::File, reason);
        sizeAfter = QFileInfo(DataDb()).size();
    }
    Interaction().ShowMessage(QStringLiteral("Database Compact completed.\nSize before: ") +
                                  SizeInKilobytes(sizeBefore) +
                                  QStringLiteral("\nSize after   : ") + SizeInKilobytes(sizeAfter),
                              MessageIcon::Information, AppInfo::Title());
    return true;
}

bool cDatabase::RestoreDb()
{
    const cFileRequest request{QStringLiteral("Restore Database"),
                               backupDir_,
                               QStringLiteral("*.bak"),
                               QStringLiteral("Backup (*.bak)|*.mdb|All Files (*.*)|*.*"),
                               1,
                               QStringLiteral("BAK")};
    const QString chosen = Interaction().ChooseOpenFile(request);
    if (chosen.isEmpty())
        return false;
    if (!Interaction().AskYesNo(
            QStringLiteral("Restoring this database will overwrite the current details.\n\n"
                           "All changes since this backup will be lost.\n\n"
                           "Do you want to restore the database selected ?"),
            AppInfo::Title()))
        return false;
    QString reason;
    bool isDatabase = false;
    bool replaced = false;
    {
        cBusySection busy;
        const QString staging = dataDir_ + QStringLiteral("Velmora.restore");
        isDatabase = CopyVelmoraDatabase(chosen, staging, &reason);
        if (isDatabase) {
            CloseDb();
            replaced = ReplaceFile(staging, DataDb(), &reason);
            OpenDb();
            // A backup made by an older version is brought up to this one, as at
            // start-up.
            if (replaced)
                CheckVersion();
        }
    }
    if (!isDatabase) {
        Interaction().ShowMessage(reason, MessageIcon::Exclamation, AppInfo::Title());
        return false;
    }
    if (!replaced) {
        TellFault(reason, FaultNumber::File);
        return false;
    }
    backupDir_ = FolderOf(chosen);
    SaveFolderSetting(QStringLiteral("Backup"), backupDir_);
    Interaction().ShowMessage(QStringLiteral("The restore has successfully completed"),
                              MessageIcon::Information, AppInfo::Title());
    return true;
}
