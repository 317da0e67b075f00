#pragma once

#include <QDate>
#include <QSqlDatabase>
#include <QString>
#include <QStringList>

#include <functional>

// The owner of the one open data file, Velmora.mdb in the data folder, and of the
// three working folders. Other classes borrow the handle for each query and keep
// nothing of it.
class cDatabase
{
public:
    // Finds the three working folders from the settings store.
    cDatabase();
    ~cDatabase();
    cDatabase(const cDatabase &) = delete;
    cDatabase &operator=(const cDatabase &) = delete;

    QSqlDatabase Db() const;
    QString ConnectionName() const { return connectionName_; }
    bool IsOpen() const;

    QString SourceDb() const { return sourceDb_; }
    void setSourceDb(const QString &folder) { sourceDb_ = folder; }
    QString BackupDir() const { return backupDir_; }
    void setBackupDir(const QString &folder);
    QString DataDir() const { return dataDir_; }
    void setDataDir(const QString &folder);
    QString SystemDir() const { return systemDir_; }
    void setSystemDir(const QString &folder);
    // The data file: DataDir followed by "Velmora.mdb".
    QString DataDb() const;

    // Opens the data file for reading and writing; a failure is fatal.
    void OpenDb();
    // Closes the data file; the next query needs OpenDb again.
    void CloseDb();
    // True only for a file that the engine opens and that holds the table Cntrl.
    bool Exists() const;
    // Makes a new database with its seven tables and the row of Cntrl. A file that
    // stands in the way is moved aside, never destroyed, and the user is told where.
    // The fill, when given, runs on the new file before it is put in place: when it
    // reports failure or throws, the new file is discarded, so no half-filled
    // database is ever left where the next start would open it. True when the new
    // database stands in place.
    bool Create(const std::function<bool()> &fill = {});
    void CreateBCFMastList();

    // The loads of the BCF grading list and club list. Each Copy… routine appends
    // its whole source as one unit of work, or nothing: a file that can't be read to
    // its end, lacks a field or holds a value that doesn't fit adds no row, and
    // returns false with the reason in LoadFaultText(). A table name given with an
    // extension is cut at its first ".".
    void ClearBCFMastList();
    void ClearClubTable();
    bool CopyBCFMastList(const QString &folder, const QString &table);
    // An empty folder means the base copy "club.txt" in SystemDir.
    bool CopyClubTable(const QString &folder, const QString &table);
    // Writes the base copy "club.txt" in SystemDir from the table "Club" of a folder.
    bool OutputClubTable(const QString &folder);
    // Replaces the list with the one in the file as one unit of work: a load that
    // fails keeps the list that was there and tells the person why.
    bool LoadBCFMastList(const QString &fileName);
    bool LoadClubTable(const QString &fileName);
    QString LoadFaultText() const { return loadFaultText_; }
    // What the last load met but took anyway (grades it could not read, damaged
    // bytes of the base copy), for the person to hear of.
    QStringList LoadNotes() const { return loadNotes_; }
    // The import of a folder of the DOS predecessor into a new database. Each
    // Copy…Table routine appends its table as one unit of work or nothing, and
    // returns false with the reason in LoadFaultText(). Names stay as the DOS
    // files give them; the version upgrade puts them into proper case.
    bool CopyMasterTable(const QString &folder);
    bool CopyVelmoraTable(const QString &folder);
    bool CopyPlayerTable(const QString &folder);
    bool CopyResultTable(const QString &folder);
    // Fills a new database: the four tables of a DOS folder, if one is given, and
    // the clubs (from the folder, or from the base copy without one). The whole
    // import is one unit of work: a folder that fails part way leaves the new
    // database empty, and the person is told why.
    bool Copy(const QString &source);
    // The folder of the DOS data files named by a path to their Master.dbf, in any
    // case of letters ("d:\old\master.dbf" gives "d:\old"); "" when the path does
    // not name a Master.dbf.
    static QString DosFolderOfMaster(const QString &masterFile);

    // Safeguarding of the data file with SQLite's own copy. BackupDB writes a copy
    // to a file that the person names; TidyDb compacts the file, keeping a safety
    // copy "Velmora.bak"; RestoreDb puts a copy back in place of the data file,
    // after a question, and only when the file is a database of this program. Each
    // is true when it has done its work, false when cancelled or refused.
    bool BackupDB();
    bool TidyDb();
    bool RestoreDb();
    // The name proposed for a backup made on a date: "T" + yymmdd + ".bak".
    static QString BackupFileName(const QDate &date);
    // A file size as the tidy message shows it, in kilobytes: "1,500KB".
    static QString SizeInKilobytes(qint64 bytes);

    // Brings an older database up to the present version, one step after another.
    void CheckVersion();

    bool BCFMasterIsEmpty() const;
    bool BCFClubIsEmpty() const;
    QString NextMasterId() const;
    QString NextTournamentId() const;

    // The folder of the data file when the settings name none.
    static QString DefaultDataDir();
    // The data folder that a new cDatabase would use, read from the settings store.
    static QString ConfiguredDataDir();
    // The folder text with the platform separator at its end.
    static QString WithClosingSeparator(const QString &folder);
    static QString SettingsApplication();

private:
    // Clears a list table and copies the named file into it, as one unit of work;
    // a copy that fails keeps the old list and tells the user why.
    // A load that yields no row replaces a list that has rows only after a question;
    // a load that succeeds says how many rows it brought ("2,000 players loaded").
    bool ReplaceList(const QString &fileName, const QString &what, const QString &listTable,
                     const QString &rowWord, void (cDatabase::*clear)(),
                     bool (cDatabase::*copy)(const QString &, const QString &));
    void CreateCntrlTable();
    void CreateMasterTable();
    void CreateVelmoraTable();
    void CreatePlayerTable();
    void CreateResultTable();
    void CreateClubTable();
    // Moves an existing data file aside under a name with the date and time.
    void MoveAsideExistingFile();

    QString connectionName_;
    QString systemDir_;
    QString dataDir_;
    QString backupDir_;
    QString sourceDb_;
    QString loadFaultText_;
    QStringList loadNotes_;
};
