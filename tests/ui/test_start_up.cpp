#include "base/app_info.h"
#include "base/busy.h"
#include "base/settings_store.h"
#include "database/database.h"
#include "database/sql.h"
#include "session/control.h"
#include "session/globals.h"
#include "support/scripted_interaction.h"
#include "support/test_environment.h"
#include "support/widget_driving.h"
#include "ui/frm_about.h"
#include "ui/frm_main.h"
#include "ui/frm_new_db.h"
#include "ui/start_up.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QLockFile>
#include <QPushButton>
#include <QSysInfo>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <functional>

namespace {

void SetDataDir(const QString &folder)
{
    SaveSetting(QStringLiteral("Velmora!"), QStringLiteral("Configuration"),
                QStringLiteral("DataDir"), folder);
}

// The folder of the installed program, with the base copy of the club list in it.
void SetSystemDir(const QString &folder)
{
    SaveSetting(QStringLiteral("Velmora!"), QStringLiteral("Configuration"),
                QStringLiteral("SystemDir"), folder);
}

bool WriteFile(const QString &path, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

// Types a path into the dialog's box, as a person would, and presses Import.
void ImportThroughTheBox(frmNewDb *dialog, const QString &path)
{
    ReplaceText(dialog->txtSelectDb, path);
    QTest::mouseClick(dialog->cmdCopy, Qt::LeftButton);
}

// Acts on the new-database dialog once start-up has put it on screen.
void WhenNewDbShows(std::function<void(frmNewDb *)> action, bool *shown)
{
    WhenModalShows<frmNewDb>(
        [action, shown](frmNewDb *dialog) {
            *shown = dialog->isVisible() && dialog->windowTitle() == QStringLiteral("New Database");
            action(dialog);
        },
        nullptr);
}

// Types the file into the new-database dialog and imports it.
void WhenNewDbShowsImport(const QString &masterFile, bool *shown)
{
    WhenNewDbShows([masterFile](frmNewDb *dialog) { ImportThroughTheBox(dialog, masterFile); },
                   shown);
}

frmSplash *VisibleSplash()
{
    for (QWidget *widget : QApplication::topLevelWidgets())
        if (auto *splash = qobject_cast<frmSplash *>(widget); splash && splash->isVisible())
            return splash;
    return nullptr;
}

QStringList FilesIn(const QString &folder)
{
    return QDir(folder).entryList(QDir::Files | QDir::Hidden | QDir::NoDotAndDotDot);
}

} // namespace

class TestStartUp : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void firstRunLeftByExitEndsAndLeavesNoFile();
    void firstRunLeftByWindowCloseEndsAndLeavesNoFile();
    void firstRunWithNewMakesUpgradedDatabaseAndShowsMasterView();
    void emptyDatabaseStartsWithNoTournamentOpen();
    void secondCopyIsRefusedWithMessage();
    void fileThatIsNotADatabaseIsKeptAside();
    void dataFolderThatCannotBeCreatedGivesClearMessage();
    void failureMessageIsComposedAsWritten();
    void splashNamesThePlatformItRunsOn();
    void surnameCaseHoldsForTheRunOnly();
    void newDatabaseReadsTheClubsFromTheBaseCopy();
    void missingBaseCopyLeavesNoDatabaseAndAsksAgainNextTime();
    void importThroughTheDialogFillsTheNewDatabase();
    void importThatFailsPartWayLeavesNoDatabaseAndAsksAgainNextTime();
    void failedImportKeepsTheFileThatStoodInTheWay();

private:
    std::unique_ptr<QTemporaryDir> folder_;
    std::unique_ptr<cScriptedInteraction> seam_;
};

void TestStartUp::splashNamesThePlatformItRunsOn()
{
    frmSplash splash;
    auto *platform = splash.findChild<QLabel *>(QStringLiteral("lblPlatform"));
    QVERIFY(platform);
    QCOMPARE(platform->text(), QSysInfo::prettyProductName());
    QVERIFY(!platform->text().contains(QStringLiteral("Windows '95")));
}

void TestStartUp::init()
{
    folder_ = std::make_unique<QTemporaryDir>();
    SetDataDir(folder_->path() + QStringLiteral("/data"));
    SetSystemDir(folder_->path() + QStringLiteral("/program"));
    QVERIFY(WriteFile(folder_->path() + QStringLiteral("/program/club.txt"),
                      "\"BRI\",\"Brighton\",\"ESX\",\"S\"\r\n"
                      "\"LEW\",\"Lewes\",\"ESX\",\"S\"\r\n"));
    seam_ = std::make_unique<cScriptedInteraction>();
}

void TestStartUp::cleanup()
{
    DestroySessionObjects();
    seam_.reset();
    folder_.reset();
}

void TestStartUp::firstRunLeftByExitEndsAndLeavesNoFile()
{
    bool shown = false;
    bool splashBehind = false;
    WhenNewDbShows(
        [&splashBehind](frmNewDb *dialog) {
            splashBehind = VisibleSplash() != nullptr;
            // Behind, not above: the splash is not kept on top of the dialog.
            splashBehind =
                splashBehind && !VisibleSplash()->windowFlags().testFlag(Qt::WindowStaysOnTopHint);
            dialog->cmdExit->click();
        },
        &shown);
    {
        cStartUp startUp;
        QVERIFY(!startUp.Main());
        QCOMPARE(startUp.ExitCode(), 0);
        QVERIFY(!startUp.MainWindow());
    }
    QVERIFY(shown);
    // The dialog came up over the splash window, and leaving it took the splash away too.
    QVERIFY(splashBehind);
    QVERIFY(!VisibleSplash());
    QVERIFY(FilesIn(folder_->path() + QStringLiteral("/data")).isEmpty());
    QCOMPARE(BusyCount(), qint16(0));
}

void TestStartUp::firstRunLeftByWindowCloseEndsAndLeavesNoFile()
{
    bool shown = false;
    WhenNewDbShows([](frmNewDb *dialog) { dialog->close(); }, &shown);
    {
        cStartUp startUp;
        QVERIFY(!startUp.Main());
    }
    QVERIFY(shown);
    QVERIFY(FilesIn(folder_->path() + QStringLiteral("/data")).isEmpty());
}

void TestStartUp::firstRunWithNewMakesUpgradedDatabaseAndShowsMasterView()
{
    bool shown = false;
    WhenNewDbShows([](frmNewDb *dialog) { dialog->cmdNew->click(); }, &shown);
    cStartUp startUp;
    QVERIFY(startUp.Main());
    QVERIFY(shown);
    QVERIFY(QFile::exists(folder_->path() + QStringLiteral("/data/Velmora.mdb")));
    QCOMPARE(Control().Vrsn(), QStringLiteral("1.02"));
    QCOMPARE(Control().BCFGradeChars(), QStringLiteral("ABCDEFR*"));
    QVERIFY(startUp.MainWindow()->isVisible());
    QVERIFY(startUp.MainWindow()->tbrPlayers->isChecked());
    QCOMPARE(BusyCount(), qint16(0));
    QVERIFY(!QApplication::activeModalWidget());
}

void TestStartUp::emptyDatabaseStartsWithNoTournamentOpen()
{
    {
        cTestSession existing(cTestSession::Start::Empty);
        Database().setDataDir(folder_->path() + QStringLiteral("/data"));
        Database().Create();
        DestroySessionObjects();
    }
    cStartUp startUp;
    QVERIFY(startUp.Main());
    QVERIFY(!Control().Tournament());
    QVERIFY(startUp.MainWindow()->tbrPlayers->isChecked());
    QCOMPARE(Control().Vrsn(), QStringLiteral("1.02"));
    QVERIFY(seam_->CallsStartingWith(QStringLiteral("message|")).isEmpty());
}

void TestStartUp::secondCopyIsRefusedWithMessage()
{
    QDir().mkpath(folder_->path() + QStringLiteral("/data"));
    QLockFile otherCopy(folder_->path() + QStringLiteral("/data/Velmora.lock"));
    QVERIFY(otherCopy.tryLock(0));
    cStartUp startUp;
    QVERIFY(!startUp.Main());
    const QStringList messages = seam_->CallsStartingWith(QStringLiteral("message|"));
    QCOMPARE(messages.size(), 1);
    QCOMPARE(messages.first(),
             QStringLiteral("message|critical|Velmora!|You can only run one copy of Velmora! on a "
                            "machine at a time!"));
    QVERIFY(!QFile::exists(folder_->path() + QStringLiteral("/data/Velmora.mdb")));
}

void TestStartUp::fileThatIsNotADatabaseIsKeptAside()
{
    const QString data = folder_->path() + QStringLiteral("/data");
    QDir().mkpath(data);
    {
        QFile junk(data + QStringLiteral("/Velmora.mdb"));
        QVERIFY(junk.open(QIODevice::WriteOnly));
        junk.write("not a database");
    }
    bool shown = false;
    WhenNewDbShows([](frmNewDb *dialog) { dialog->cmdNew->click(); }, &shown);
    cStartUp startUp;
    QVERIFY(startUp.Main());
    QVERIFY(shown);
    const QStringList aside = QDir(data).entryList({QStringLiteral("Velmora-*.mdb")}, QDir::Files);
    QCOMPARE(aside.size(), 1);
    QFile kept(data + u'/' + aside.first());
    QVERIFY(kept.open(QIODevice::ReadOnly));
    QCOMPARE(kept.readAll(), QByteArray("not a database"));
    QVERIFY(Database().Exists());
}

void TestStartUp::dataFolderThatCannotBeCreatedGivesClearMessage()
{
    const QString blocker = folder_->path() + QStringLiteral("/blocker");
    {
        QFile file(blocker);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("x");
    }
    SetDataDir(blocker + QStringLiteral("/data"));
    cStartUp startUp;
    QVERIFY(!startUp.Main());
    QCOMPARE(startUp.ExitCode(), 1);
    const QStringList messages = seam_->CallsStartingWith(QStringLiteral("message|critical|"));
    QCOMPARE(messages.size(), 1);
    QVERIFY(messages.first().contains(QStringLiteral("An unknown error has occured")));
    QVERIFY(messages.first().contains(blocker + QStringLiteral("/data/ cannot be created.")));
}

void TestStartUp::failureMessageIsComposedAsWritten()
{
    const QString expected =
        QStringLiteral("Velmora! (Version: ") + AppInfo::VersionText() + QStringLiteral(")\n") +
        QCoreApplication::applicationDirPath() +
        QStringLiteral(
            "\n\nAn unknown error has occured\nVelmora! database\n3146: disk I/O error\n");
    QCOMPARE(
        FailureMessage(QStringLiteral("Velmora! database"), 3146, QStringLiteral("disk I/O error")),
        expected);
}

void TestStartUp::surnameCaseHoldsForTheRunOnly()
{
    bool shown = false;
    WhenNewDbShows([](frmNewDb *dialog) { dialog->cmdNew->click(); }, &shown);
    {
        cStartUp startUp;
        QVERIFY(startUp.Main());
        Control().setSurnameCase(1);
        Control().Update();
        QCOMPARE(Control().SurnameCase(), qint16(1));
        DestroySessionObjects();
    }
    cStartUp again;
    QVERIFY(again.Main());
    QCOMPARE(Control().SurnameCase(), qint16(0));
}

void TestStartUp::newDatabaseReadsTheClubsFromTheBaseCopy()
{
    bool shown = false;
    WhenNewDbShows([](frmNewDb *dialog) { QTest::mouseClick(dialog->cmdNew, Qt::LeftButton); },
                   &shown);
    cStartUp startUp;
    QVERIFY(startUp.Main());
    QVERIFY(shown);
    QVERIFY(Database().SourceDb().isEmpty());
    QCOMPARE(RowCount(QStringLiteral("Club")), 2);
    QCOMPARE(SqlScalar(QStringLiteral("SELECT Club FROM Club WHERE Code = 'LEW'")).toString(),
             QStringLiteral("Lewes"));
    QCOMPARE(RowCount(QStringLiteral("Master")), 0);
    QCOMPARE(
        seam_->CallsStartingWith(QStringLiteral("progress-start|")),
        QStringList{QStringLiteral("progress-start|Copying the Club table from a base copy|1")});
}

void TestStartUp::missingBaseCopyLeavesNoDatabaseAndAsksAgainNextTime()
{
    QVERIFY(QFile::remove(folder_->path() + QStringLiteral("/program/club.txt")));
    bool shown = false;
    WhenNewDbShows([](frmNewDb *dialog) { dialog->cmdNew->click(); }, &shown);
    {
        cStartUp startUp;
        QVERIFY(!startUp.Main());
        QCOMPARE(startUp.ExitCode(), 1);
        QVERIFY(!startUp.MainWindow());
    }
    QVERIFY(shown);
    const QStringList messages = seam_->CallsStartingWith(QStringLiteral("message|"));
    QCOMPARE(messages.size(), 1);
    QVERIFY(messages[0].startsWith(QStringLiteral("message|exclamation|Velmora!|")));
    QVERIFY(messages[0].contains(QStringLiteral("club.txt, cannot be found.")));
    QVERIFY(messages[0].contains(QStringLiteral("No database has been created.")));
    QVERIFY(!QFile::exists(folder_->path() + QStringLiteral("/data/Velmora.mdb")));
    QCOMPARE(BusyCount(), qint16(0));

    DestroySessionObjects();
    shown = false;
    WhenNewDbShows([](frmNewDb *dialog) { dialog->cmdExit->click(); }, &shown);
    cStartUp again;
    QVERIFY(!again.Main());
    QVERIFY(shown);
}

void TestStartUp::importThroughTheDialogFillsTheNewDatabase()
{
    const QString dos = folder_->path() + QStringLiteral("/old");
    QVERIFY(CopySharedDosFolder(dos));
    bool shown = false;
    // The name check takes any case of letters.
    WhenNewDbShowsImport(dos + QStringLiteral("/mASTER.dbf"), &shown);
    cStartUp startUp;
    QVERIFY(startUp.Main());
    QVERIFY(shown);
    QCOMPARE(Database().SourceDb(), dos);
    QCOMPARE(seam_->CallsStartingWith(QStringLiteral("message|")),
             QStringList{QStringLiteral(
                 "message|information|Velmora!|297 players, 6 tournaments and 5 clubs loaded")});
    QCOMPARE(RowCount(QStringLiteral("Master")), 297);
    QCOMPARE(RowCount(QStringLiteral("Velmora")), 6);
    QCOMPARE(RowCount(QStringLiteral("Player")), 106);
    QCOMPARE(RowCount(QStringLiteral("Result")), 302);
    // The clubs come from the folder, not from the base copy.
    QCOMPARE(RowCount(QStringLiteral("Club")), 5);
    QCOMPARE(SqlScalar(QStringLiteral("SELECT count(*) FROM Club WHERE Code = 'LEW'")).toInt(), 0);
    const QStringList progress = seam_->CallsStartingWith(QStringLiteral("progress-start|"));
    QCOMPARE(progress.size(), 5);
    QCOMPARE(progress.first(),
             QStringLiteral(
                 "progress-start|Copying the Master table from the Velmora DOS database|300"));
    QCOMPARE(seam_->Count(QStringLiteral("progress-end")), 5);
    // A tournament of this century that the DOS files date 19xx.
    QCOMPARE(SqlScalar(QStringLiteral("SELECT TDate FROM Velmora WHERE TId = 3")).toString(),
             QStringLiteral("2001-03-13"));
    // The upgrade that follows the import puts the names into proper case.
    QCOMPARE(SqlScalar(QStringLiteral("SELECT Surname FROM Master WHERE MasterId = 1")).toString(),
             QStringLiteral("Khan"));
    QCOMPARE(Control().Vrsn(), QStringLiteral("1.02"));
    QVERIFY(startUp.MainWindow()->isVisible());
    QCOMPARE(BusyCount(), qint16(0));
}

void TestStartUp::importThatFailsPartWayLeavesNoDatabaseAndAsksAgainNextTime()
{
    const QString dos = folder_->path() + QStringLiteral("/old");
    QVERIFY(CopySharedDosFolder(dos));
    // The results table is cut short: the first three tables read well, the fourth fails.
    QVERIFY(QFile::resize(dos + QStringLiteral("/Result.dbf"), 700));
    bool shown = false;
    WhenNewDbShowsImport(dos + QStringLiteral("/Master.dbf"), &shown);
    {
        cStartUp startUp;
        QVERIFY(!startUp.Main());
        QCOMPARE(startUp.ExitCode(), 1);
        QVERIFY(!startUp.MainWindow());
    }
    QVERIFY(shown);
    const QStringList messages = seam_->CallsStartingWith(QStringLiteral("message|"));
    QCOMPARE(messages.size(), 1);
    QVERIFY(messages[0].contains(QStringLiteral("could not be imported")));
    QVERIFY(messages[0].contains(QStringLiteral("No database has been created.")));
    QVERIFY(FilesIn(folder_->path() + QStringLiteral("/data"))
                .filter(QStringLiteral("Velmora.mdb"))
                .isEmpty());
    QCOMPARE(BusyCount(), qint16(0));

    // The next start offers the choice again, and a sound folder imports.
    DestroySessionObjects();
    QVERIFY(CopySharedDosFolder(dos));
    shown = false;
    WhenNewDbShowsImport(dos + QStringLiteral("/Master.dbf"), &shown);
    cStartUp again;
    QVERIFY(again.Main());
    QVERIFY(shown);
    QCOMPARE(RowCount(QStringLiteral("Result")), 302);
}

void TestStartUp::failedImportKeepsTheFileThatStoodInTheWay()
{
    const QString data = folder_->path() + QStringLiteral("/data");
    QVERIFY(WriteFile(data + QStringLiteral("/Velmora.mdb"), "not a database"));
    const QString dos = folder_->path() + QStringLiteral("/old");
    QVERIFY(CopySharedDosFolder(dos));
    QVERIFY(QFile::resize(dos + QStringLiteral("/Players.dbf"), 900));
    bool shown = false;
    WhenNewDbShowsImport(dos + QStringLiteral("/Master.dbf"), &shown);
    cStartUp startUp;
    QVERIFY(!startUp.Main());
    QVERIFY(shown);
    QVERIFY(!QFile::exists(data + QStringLiteral("/Velmora.mdb")));
    const QStringList aside = QDir(data).entryList({QStringLiteral("Velmora-*.mdb")}, QDir::Files);
    QCOMPARE(aside.size(), 1);
    QFile kept(data + u'/' + aside.first());
    QVERIFY(kept.open(QIODevice::ReadOnly));
    QCOMPARE(kept.readAll(), QByteArray("not a database"));
}

VELMORA_WIDGET_TEST_MAIN(TestStartUp)
#include "test_start_up.moc"
