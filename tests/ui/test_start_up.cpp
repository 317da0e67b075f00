#include "database/database.h"
#include "database/sql.h"
#include "session/app_info.h"
#include "session/busy.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/settings_store.h"
#include "support/scripted_interaction.h"
#include "support/test_environment.h"
#include "ui/frm_main.h"
#include "ui/frm_new_db.h"
#include "ui/start_up.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLockFile>
#include <QPushButton>
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

// Acts on the new-database dialog once it is on screen: start-up lets events run
// before the dialog exists, so the test looks for it until it comes.
void WhenNewDbShows(std::function<void(frmNewDb *)> action, bool *shown)
{
    auto *poll = new QTimer(qApp);
    poll->setInterval(5);
    QObject::connect(poll, &QTimer::timeout, [poll, action, shown] {
        auto *dialog = qobject_cast<frmNewDb *>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        poll->stop();
        poll->deleteLater();
        *shown = dialog->isVisible() && dialog->windowTitle() == QStringLiteral("New Database");
        action(dialog);
    });
    poll->start();
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
    void surnameCaseHoldsForTheRunOnly();

private:
    std::unique_ptr<QTemporaryDir> folder_;
    std::unique_ptr<cScriptedInteraction> seam_;
};

void TestStartUp::init()
{
    folder_ = std::make_unique<QTemporaryDir>();
    SetDataDir(folder_->path() + QStringLiteral("/data"));
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
    WhenNewDbShows([](frmNewDb *dialog) { dialog->cmdExit->click(); }, &shown);
    {
        cStartUp startUp;
        QVERIFY(!startUp.Main());
        QCOMPARE(startUp.ExitCode(), 0);
        QVERIFY(!startUp.MainWindow());
    }
    QVERIFY(shown);
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

VELMORA_WIDGET_TEST_MAIN(TestStartUp)
#include "test_start_up.moc"
