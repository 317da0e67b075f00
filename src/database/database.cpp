#include "database/database.h"

#include "base/app_info.h"
#include "base/fatal_fault.h"
#include "base/settings_store.h"
#include "base/user_interaction.h"
#include "database/content_stamp.h"
#include "database/schema.h"
#include "database/sql.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSqlError>
#include <QSqlQuery>
#include <QStandardPaths>

#include <algorithm>
#include <atomic>

namespace {

const QString ConfigurationSection = QStringLiteral("Configuration");

QString ExecutableDir()
{
    const QString path =
        QCoreApplication::instance() ? QCoreApplication::applicationDirPath() : QDir::currentPath();
    return cDatabase::WithClosingSeparator(QDir::toNativeSeparators(path));
}

QString FolderSetting(const QString &key, const QString &defaultValue)
{
    return cDatabase::WithClosingSeparator(
        GetSetting(cDatabase::SettingsApplication(), ConfigurationSection, key, defaultValue));
}

// Each cDatabase has a connection name of its own, so that tests may make a fresh
// one while an old one is still being taken down.
QString NewConnectionName()
{
    static std::atomic<int> counter{0};
    return QStringLiteral("Velmora") + QString::number(++counter);
}

[[noreturn]] void RaiseFileFault(const QString &description)
{
    RaiseFatal(QStringLiteral("Velmora! database"), FaultNumber::File, description);
}

// The files that SQLite keeps beside a database while a change is under way. A
// database file is only whole together with them: after a crash they hold what
// undoes or completes the last commit.
const QStringList CompanionSuffixes = {QStringLiteral("-journal"), QStringLiteral("-wal"),
                                       QStringLiteral("-shm")};

bool HasDatabaseHeader(const QString &file)
{
    QFile probe(file);
    return probe.open(QIODevice::ReadOnly) && probe.read(16) == QByteArray("SQLite format 3", 16);
}

// The engine's answers that mean another connection holds the file at the moment.
bool IsLockedError(const QSqlError &error)
{
    const int code = error.nativeErrorCode().toInt() & 0xff;
    return code == 5 /* SQLITE_BUSY */ || code == 6 /* SQLITE_LOCKED */;
}

// The answers that mean the file is no database, or one damaged beyond use.
bool IsNotADatabaseError(const QSqlError &error)
{
    const int code = error.nativeErrorCode().toInt() & 0xff;
    return code == 11 /* SQLITE_CORRUPT */ || code == 26 /* SQLITE_NOTADB */;
}

} // namespace

cDatabase::cDatabase() : connectionName_(NewConnectionName())
{
    systemDir_ = ExecutableDir();
    dataDir_ = DefaultDataDir();
    backupDir_ = WithClosingSeparator(QDir::toNativeSeparators(QDir::homePath()));
    systemDir_ = FolderSetting(QStringLiteral("SystemDir"), systemDir_);
    dataDir_ = FolderSetting(QStringLiteral("DataDir"), dataDir_);
    backupDir_ = FolderSetting(QStringLiteral("BackupDir"), backupDir_);
}

cDatabase::~cDatabase()
{
    CloseDb();
}

QString cDatabase::SettingsApplication()
{
    return AppInfo::Title();
}

QString cDatabase::WithClosingSeparator(const QString &folder)
{
    const QChar separator = QDir::separator();
    if (folder.isEmpty() || !folder.endsWith(separator))
        return folder + separator;
    return folder;
}

QString cDatabase::DefaultDataDir()
{
    const QString base = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return WithClosingSeparator(QDir::toNativeSeparators(base + QStringLiteral("/Velmora")));
}

QString cDatabase::ConfiguredDataDir()
{
    return FolderSetting(QStringLiteral("DataDir"), DefaultDataDir());
}

void cDatabase::setBackupDir(const QString &folder)
{
    backupDir_ = WithClosingSeparator(folder);
}

void cDatabase::setDataDir(const QString &folder)
{
    dataDir_ = WithClosingSeparator(folder);
}

void cDatabase::setSystemDir(const QString &folder)
{
    systemDir_ = WithClosingSeparator(folder);
}

QString cDatabase::DataDb() const
{
    return dataDir_ + QStringLiteral("Velmora.mdb");
}

QSqlDatabase cDatabase::Db() const
{
    return QSqlDatabase::database(connectionName_, false);
}

bool cDatabase::IsOpen() const
{
    return QSqlDatabase::contains(connectionName_) && Db().isOpen();
}

void cDatabase::OpenDb()
{
    CloseDb();
    if (!QFileInfo::exists(DataDb()))
        RaiseFileFault(QStringLiteral("The database ") + DataDb() +
                       QStringLiteral(" does not exist."));
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connectionName_);
        NoteDatabaseOpened();
        db.setDatabaseName(DataDb());
        if (!db.open())
            RaiseFatal(QStringLiteral("Velmora! database"), FaultNumber::Database,
                       db.lastError().text());
    }
    // A result once written must survive a power cut: each commit is appended to the
    // write-ahead log and the log reaches the disk before the commit returns. A crash
    // at any point leaves the file and its log, from which the engine rebuilds the
    // last commit whole or not at all the next time it opens the file.
    RunSql(QStringLiteral("PRAGMA journal_mode = WAL"));
    RunSql(QStringLiteral("PRAGMA synchronous = FULL"));
    RunSql(QStringLiteral("PRAGMA foreign_keys = OFF"));
    // A grading list is loaded in one unit of work; a cache that holds all of it
    // keeps the engine from spilling half-written pages to the file on the way.
    RunSql(QStringLiteral("PRAGMA cache_size = -65536"));
}

void cDatabase::CloseDb()
{
    if (!QSqlDatabase::contains(connectionName_))
        return;
    {
        QSqlDatabase db = QSqlDatabase::database(connectionName_, false);
        if (db.isOpen()) {
            // The log is written into the file before it closes, so that the file
            // alone holds everything (a copy of it is a whole backup).
            QSqlQuery(db).exec(QStringLiteral("PRAGMA wal_checkpoint(TRUNCATE)"));
            db.close();
        }
    }
    QSqlDatabase::removeDatabase(connectionName_);
}

bool cDatabase::Exists() const
{
    if (!QFileInfo(DataDb()).isFile())
        return false;
    // The file is opened for writing, as OpenDb will: after a crash the engine first
    // undoes or completes the cut-off commit from the journal or log beside it, which
    // a read-only open refuses to do.
    const QString probeName = connectionName_ + QStringLiteral("Probe");
    bool found = false;
    {
        QSqlDatabase probe = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), probeName);
        probe.setDatabaseName(DataDb());
        probe.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=2000"));
        if (probe.open()) {
            QSqlQuery query(probe);
            if (query.exec(QStringLiteral("SELECT count(*) FROM sqlite_master WHERE type = "
                                          "'table' AND name = 'Cntrl'")) &&
                query.next()) {
                found = query.value(0).toInt() == 1;
            } else {
                // A database that another process is writing, or that can't be read
                // just now, is still a database: it is never offered for replacing.
                const QSqlError error = query.lastError();
                found = IsLockedError(error) ||
                        (HasDatabaseHeader(DataDb()) && !IsNotADatabaseError(error));
            }
            query.finish();
            probe.close();
        } else {
            found = HasDatabaseHeader(DataDb());
        }
    }
    QSqlDatabase::removeDatabase(probeName);
    return found;
}

void cDatabase::MoveAsideExistingFile()
{
    const bool hasFile = QFileInfo::exists(DataDb());
    const bool hasCompanion =
        std::any_of(CompanionSuffixes.begin(), CompanionSuffixes.end(),
                    [this](const QString &suffix) { return QFileInfo::exists(DataDb() + suffix); });
    if (!hasFile && !hasCompanion)
        return;
    const QString stamp = QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-hhmmss"));
    QString aside = dataDir_ + QStringLiteral("Velmora-") + stamp + QStringLiteral(".mdb");
    for (int attempt = 2; QFileInfo::exists(aside) || QFileInfo::exists(aside + u"-journal") ||
                          QFileInfo::exists(aside + u"-wal");
         ++attempt)
        aside = dataDir_ + QStringLiteral("Velmora-") + stamp + u'-' + QString::number(attempt) +
                QStringLiteral(".mdb");
    // Its journal and log go first and with it: left behind, the engine would play
    // them into the new database that takes the name.
    for (const QString &suffix : CompanionSuffixes)
        if (QFileInfo::exists(DataDb() + suffix) &&
            !QFile::rename(DataDb() + suffix, aside + suffix))
            RaiseFileFault(QStringLiteral("The file ") + DataDb() + suffix +
                           QStringLiteral(" could not be moved aside."));
    // A journal or log without its file is kept too, never played into a new file.
    if (!hasFile)
        return;
    if (!QFile::rename(DataDb(), aside))
        RaiseFileFault(QStringLiteral("The file ") + DataDb() +
                       QStringLiteral(" is not a Velmora! database and could not be moved aside."));
    Interaction().ShowMessage(
        QStringLiteral("The file ") + DataDb() +
            QStringLiteral(" was not a Velmora! database. It has been kept as ") + aside + u'.',
        MessageIcon::Information, AppInfo::Title());
}

bool cDatabase::Create(const std::function<bool()> &fill)
{
    CloseDb();
    if (!QDir().mkpath(dataDir_))
        RaiseFileFault(QStringLiteral("The data folder ") + dataDir_ +
                       QStringLiteral(" cannot be created."));
    MoveAsideExistingFile();

    // The database is built and filled in a file of its own name first and put in
    // place only when complete, so an interrupted creation never leaves a half-made
    // database behind.
    const QString building = DataDb() + QStringLiteral(".new");
    const auto discardBuilding = [this, &building] {
        CloseDb();
        for (const QString &suffix : CompanionSuffixes)
            QFile::remove(building + suffix);
        QFile::remove(building);
    };
    discardBuilding();
    {
        QFile probe(building);
        if (!probe.open(QIODevice::WriteOnly))
            RaiseFileFault(QStringLiteral("The data folder ") + dataDir_ +
                           QStringLiteral(" cannot be written: ") + probe.errorString());
        probe.close();
        probe.remove();
    }
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connectionName_);
        NoteDatabaseOpened();
        db.setDatabaseName(building);
        if (!db.open())
            RaiseFatal(QStringLiteral("Velmora! database"), FaultNumber::Database,
                       db.lastError().text());
    }
    try {
        {
            cTransaction transaction;
            CreateCntrlTable();
            CreateMasterTable();
            CreateVelmoraTable();
            CreatePlayerTable();
            CreateResultTable();
            CreateClubTable();
            CreateBCFMastList();
            transaction.Commit();
        }
        if (fill && !fill()) {
            discardBuilding();
            return false;
        }
    } catch (...) {
        discardBuilding();
        throw;
    }
    CloseDb();
    if (!QFile::rename(building, DataDb()))
        RaiseFileFault(QStringLiteral("The database ") + DataDb() +
                       QStringLiteral(" could not be put in place."));
    OpenDb();
    return true;
}

void cDatabase::CreateCntrlTable()
{
    Schema::CreateTable(Schema::CntrlTable());
    RunSql(QStringLiteral("INSERT INTO Cntrl (Vrsn, MaxDisplayAge, MaxJuniorAge, BCFGradeChars, "
                          "UserDefined1, UserDefined2, UserDefined3, UserDefined4) "
                          "VALUES (?, ?, ?, ?, ?, ?, ?, ?)"),
           {QStringLiteral("1.00"), 20, 17, QStringLiteral("ABCDEFR*"),
            QStringLiteral("User Defined 1"), QStringLiteral("User Defined 2"),
            QStringLiteral("User Defined 3"), QStringLiteral("User Defined 4")});
}

void cDatabase::CreateMasterTable()
{
    Schema::CreateTable(Schema::MasterTable());
}

void cDatabase::CreateVelmoraTable()
{
    Schema::CreateTable(Schema::VelmoraTable());
}

void cDatabase::CreatePlayerTable()
{
    Schema::CreateTable(Schema::PlayerTable());
}

void cDatabase::CreateResultTable()
{
    Schema::CreateTable(Schema::ResultTable());
}

void cDatabase::CreateClubTable()
{
    Schema::CreateTable(Schema::ClubTable());
}

void cDatabase::CreateBCFMastList()
{
    Schema::CreateTable(Schema::BCFMastTable());
}

bool cDatabase::BCFMasterIsEmpty() const
{
    return SqlScalar(QStringLiteral("Select Count(*) From BCFMast")).toLongLong() == 0;
}

bool cDatabase::BCFClubIsEmpty() const
{
    return SqlScalar(QStringLiteral("Select Count(*) From Club")).toLongLong() == 0;
}

QString cDatabase::NextMasterId() const
{
    const QVariant maximum = SqlScalar(QStringLiteral("Select Max(MasterId) From Master"));
    return maximum.isNull() ? QStringLiteral("1") : QString::number(maximum.toLongLong() + 1);
}

QString cDatabase::NextTournamentId() const
{
    const QVariant maximum = SqlScalar(QStringLiteral("Select Max(TId) From Velmora"));
    return maximum.isNull() ? QStringLiteral("1") : QString::number(maximum.toLongLong() + 1);
}
