#include "database/database.h"
#include "session/globals.h"
#include "support/test_environment.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QLockFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

// Every way out of a run ends the process in order: the session and its database
// close before the application object, so the run ends with its own exit status and
// never in a crash on the way down. Each case starts the program's whole run in a
// child process on the offscreen platform and leaves it one way.

namespace {

struct cRunEnd
{
    QProcess::ExitStatus status = QProcess::CrashExit;
    int code = -1;
    QString errors;
};

cRunEnd RunAndLeave(const QString &dataHome, const QString &wayOut)
{
    QProcess child;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_DATA_HOME"), dataHome);
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    child.setProcessEnvironment(environment);
    child.start(QStringLiteral(VELMORA_WAY_OUT_CHILD), {wayOut});
    cRunEnd end;
    if (!child.waitForFinished(60000)) {
        child.kill();
        child.waitForFinished();
        end.errors = QStringLiteral("the run did not end");
        return end;
    }
    end.status = child.exitStatus();
    end.code = child.exitCode();
    end.errors = QString::fromLocal8Bit(child.readAllStandardError());
    return end;
}

QString DataFolder(const QTemporaryDir &dataHome)
{
    return dataHome.path() + QStringLiteral("/Velmora/");
}

void MakeDatabase(const QTemporaryDir &dataHome)
{
    cTestSession session(cTestSession::Start::Empty);
    Database().setDataDir(DataFolder(dataHome));
    QVERIFY(Database().Create());
}

} // namespace

class TestEndOfRun : public QObject
{
    Q_OBJECT

private slots:
    void everyWayOutEndsWithItsStatus_data();
    void everyWayOutEndsWithItsStatus();
    void secondCopyEndsWithStatusZero();
};

void TestEndOfRun::everyWayOutEndsWithItsStatus_data()
{
    QTest::addColumn<QString>("wayOut");
    QTest::addColumn<bool>("withDatabase");
    QTest::addColumn<int>("code");
    QTest::newRow("Exit in the New Database dialog") << QStringLiteral("new-db-exit") << false << 0;
    QTest::newRow("File, Exit") << QStringLiteral("exit") << true << 0;
    QTest::newRow("the window closed") << QStringLiteral("close") << true << 0;
    // The failure handler ends the run at once, with the status of a failed run.
    QTest::newRow("failure handler") << QStringLiteral("fault") << true << 1;
}

void TestEndOfRun::everyWayOutEndsWithItsStatus()
{
    QFETCH(QString, wayOut);
    QFETCH(bool, withDatabase);
    QFETCH(int, code);
    QTemporaryDir dataHome;
    if (withDatabase)
        MakeDatabase(dataHome);
    const cRunEnd end = RunAndLeave(dataHome.path(), wayOut);
    QVERIFY2(end.status == QProcess::NormalExit, qPrintable(end.errors));
    QCOMPARE(end.code, code);
    const QString file = DataFolder(dataHome) + QStringLiteral("Velmora.mdb");
    QCOMPARE(QFileInfo::exists(file), withDatabase);
    // The database was closed, its log written back into the file.
    QVERIFY(!QFileInfo::exists(file + QStringLiteral("-wal")));
}

void TestEndOfRun::secondCopyEndsWithStatusZero()
{
    QTemporaryDir dataHome;
    MakeDatabase(dataHome);
    QLockFile firstCopy(DataFolder(dataHome) + QStringLiteral("Velmora.lock"));
    QVERIFY(firstCopy.tryLock(0));
    const cRunEnd end = RunAndLeave(dataHome.path(), QStringLiteral("exit"));
    QVERIFY2(end.status == QProcess::NormalExit, qPrintable(end.errors));
    QCOMPARE(end.code, 0);
}

VELMORA_WIDGET_TEST_MAIN(TestEndOfRun)
#include "test_end_of_run.moc"
