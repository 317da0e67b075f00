#include "database/database.h"
#include "database/sql.h"
#include "session/globals.h"
#include "support/scripted_interaction.h"
#include "support/test_environment.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QProcess>
#include <QSqlRecord>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

// A commit cut off at any of its writes (a crash, a power cut, kill -9) must leave a
// database that the next start opens whole, holding either everything before the
// commit or everything after it. The test runs a real commit in a child process
// under strace, which kills the child at its n-th write to any file; then it starts
// up on what the child left. It samples the writes; with VELMORA_KILL_POINTS=all in
// the environment it tries every one of them.

namespace {

const QStringList Tables = {QStringLiteral("Cntrl"),   QStringLiteral("Master"),
                            QStringLiteral("Velmora"), QStringLiteral("Player"),
                            QStringLiteral("Result"),  QStringLiteral("Club"),
                            QStringLiteral("BCFMast")};

// Every row of every table as one digest: equal digests, equal data.
QByteArray Contents()
{
    QCryptographicHash digest(QCryptographicHash::Sha256);
    for (const QString &table : Tables) {
        QStringList rows;
        QSqlQuery query = RunSql(QStringLiteral("SELECT * FROM \"") + table + u'"');
        while (query.next()) {
            QStringList values;
            for (int column = 0; column < query.record().count(); ++column)
                values.append(query.value(column).isNull() ? QStringLiteral("<null>")
                                                           : query.value(column).toString());
            rows.append(values.join(u'|'));
        }
        rows.sort();
        digest.addData(table.toUtf8());
        digest.addData(rows.join(u'\n').toUtf8());
    }
    return digest.result();
}

struct cStartOutcome
{
    bool opened = false;
    QString integrity;
    QByteArray contents;
};

// What the next start finds in a data folder: the start-up's test, open and upgrade.
cStartOutcome StartUpOn(const QString &folder)
{
    cScriptedInteraction seam;
    cStartOutcome outcome;
    cTestSession session(cTestSession::Start::Empty);
    Database().setDataDir(folder);
    if (!Database().Exists())
        return outcome;
    OpenSessionDatabase();
    outcome.opened = true;
    outcome.integrity = SqlScalar(QStringLiteral("PRAGMA integrity_check")).toString();
    outcome.contents = Contents();
    return outcome;
}

QString StraceProgram()
{
    return QStandardPaths::findExecutable(QStringLiteral("strace"));
}

// Runs the child on a copy of the base database; killAt 0 lets it run to its end.
// Gives the number of writes the child made (up to the kill) and whether it ended
// normally.
bool RunChild(const QString &folder, const QStringList &arguments, int killAt, int *writes)
{
    const QString log = folder + QStringLiteral("/writes.log");
    QStringList straceArguments = {QStringLiteral("-f"), QStringLiteral("-qq"),
                                   QStringLiteral("-o"), log,
                                   QStringLiteral("-e"), QStringLiteral("trace=pwrite64")};
    if (killAt > 0)
        straceArguments << QStringLiteral("-e")
                        << QStringLiteral("inject=pwrite64:signal=SIGKILL:when=") +
                               QString::number(killAt);
    straceArguments << QStringLiteral("--") << QStringLiteral(VELMORA_COMMIT_CHILD)
                    << arguments.first() << folder << arguments.mid(1);
    QProcess child;
    // A sanitized build looks for leaks at the end of a process, which can't be done
    // under strace; the other tests look for leaks in the same code.
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    const QString sanitizerOptions = environment.value(QStringLiteral("ASAN_OPTIONS"));
    environment.insert(QStringLiteral("ASAN_OPTIONS"),
                       sanitizerOptions +
                           (sanitizerOptions.isEmpty() ? QString() : QStringLiteral(":")) +
                           QStringLiteral("detect_leaks=0"));
    child.setProcessEnvironment(environment);
    child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    child.start(StraceProgram(), straceArguments);
    child.waitForFinished(120000);
    QFile file(log);
    *writes = file.open(QIODevice::ReadOnly) ? int(file.readAll().count("pwrite64(")) : 0;
    return child.exitStatus() == QProcess::NormalExit && child.exitCode() == 0;
}

// The kill points tried: every write when asked for, otherwise the first and last
// and an even spread between them.
QList<int> KillPoints(int writes)
{
    QList<int> points;
    const bool every = qEnvironmentVariable("VELMORA_KILL_POINTS") == u"all";
    const int wanted = every ? writes : qMin(writes, 20);
    for (int step = 0; step < wanted; ++step) {
        const int point = wanted == 1 ? 1 : 1 + int(qint64(step) * (writes - 1) / (wanted - 1));
        if (points.isEmpty() || points.last() != point)
            points.append(point);
    }
    return points;
}

} // namespace

class TestCrashSafety : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void killedCommitLeavesTheOldOrTheNewDatabase_data();
    void killedCommitLeavesTheOldOrTheNewDatabase();

private:
    QTemporaryDir base_;
    QTemporaryDir lists_;
    QString list_;
    QString clubs_;
    QString dosFolder_;
};

void TestCrashSafety::initTestCase()
{
    if (StraceProgram().isEmpty())
        QSKIP("strace is not installed");
    // Some containers forbid tracing another process.
    if (QProcess::execute(StraceProgram(), {QStringLiteral("-o"), QStringLiteral("/dev/null"),
                                            QStringLiteral("true")}) != 0)
        QSKIP("strace may not trace a process here");
    list_ = CopySharedFile(QStringLiteral("grading-list/Players.dbf"), lists_.path());
    clubs_ = CopySharedFile(QStringLiteral("grading-list/clubs.dbf"), lists_.path());
    QVERIFY(!list_.isEmpty() && !clubs_.isEmpty());
    dosFolder_ = lists_.filePath(QStringLiteral("dos"));
    QVERIFY(CopySharedDosFolder(dosFolder_));
    cTestSession session(cTestSession::Start::Empty);
    Database().setDataDir(base_.path());
    QVERIFY(Database().Create());
    OpenSessionDatabase();
    cTransaction unit;
    RunSql(QStringLiteral("INSERT INTO Velmora (TId, Title, TType, Rounds, CurrRound, Locked) "
                          "VALUES (1, 'Congress', 'B', 5, 1, 0)"));
    for (int pin = 1; pin <= 40; ++pin)
        RunSql(QStringLiteral("INSERT INTO Player (MasterId, TId, PId, Surname, Pin, Withdrawn, "
                              "Active) VALUES (?, 1, ?, ?, ?, 0, 1)"),
               {pin, pin, QString(QStringLiteral("Player ") + QString::number(pin)), pin});
    for (int board = 1; board <= 20; ++board)
        RunSql(QStringLiteral("INSERT INTO Result (TId, \"Round\", Board, White, Black, "
                              "\"Result\") VALUES (1, 1, ?, ?, ?, 'W')"),
               {board, 2 * board - 1, 2 * board});
    // The grading list loaded before, which a cut-off load must leave in place.
    for (const char *ref : {"100001A", "100002B", "100003C"})
        RunSql(QStringLiteral("INSERT INTO BCFMast (Ref, Name, Sex) VALUES (?, 'Old list', 'M')"),
               {QString::fromLatin1(ref)});
    RunSql(QStringLiteral("INSERT INTO Club (Code, Club, County, \"Union\") VALUES ('OLDC', "
                          "'Old Club', 'OLD', 'E')"));
    unit.Commit();
}

void TestCrashSafety::killedCommitLeavesTheOldOrTheNewDatabase_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<bool>("onDatabase");
    QTest::newRow("round of results") << QStringList{QStringLiteral("round")} << true;
    QTest::newRow("grading list load") << QStringList{QStringLiteral("list"), list_} << true;
    QTest::newRow("club list load") << QStringList{QStringLiteral("clubs"), clubs_} << true;
    // Before the import there is no database, and a cut-off import must leave none,
    // so that the next start offers the import again.
    QTest::newRow("import of a DOS folder")
        << QStringList{QStringLiteral("import"), dosFolder_} << false;
}

void TestCrashSafety::killedCommitLeavesTheOldOrTheNewDatabase()
{
    QFETCH(QStringList, arguments);
    QFETCH(bool, onDatabase);
    const QString baseFile = base_.filePath(QStringLiteral("Velmora.mdb"));
    const auto freshCopy = [&baseFile, onDatabase](QTemporaryDir &folder) {
        return !onDatabase || QFile::copy(baseFile, folder.filePath(QStringLiteral("Velmora.mdb")));
    };
    const QByteArray before = onDatabase ? StartUpOn(base_.path()).contents : QByteArray();

    QTemporaryDir whole;
    QVERIFY(freshCopy(whole));
    int writes = 0;
    QVERIFY(RunChild(whole.path(), arguments, 0, &writes));
    QVERIFY(writes > 0);
    const cStartOutcome after = StartUpOn(whole.path());
    QVERIFY(after.opened);
    QVERIFY(after.contents != before);

    int tried = 0;
    int old = 0;
    int fresh = 0;
    QStringList faults;
    for (const int point : KillPoints(writes)) {
        QTemporaryDir folder;
        QVERIFY(freshCopy(folder));
        int written = 0;
        QVERIFY2(!RunChild(folder.path(), arguments, point, &written),
                 qPrintable(QStringLiteral("the child was not killed at write ") +
                            QString::number(point)));
        ++tried;
        const cStartOutcome outcome = StartUpOn(folder.path());
        if (!outcome.opened && !onDatabase)
            ++old;
        else if (!outcome.opened)
            faults.append(QStringLiteral("write %1: no database").arg(point));
        else if (outcome.integrity != u"ok")
            faults.append(QStringLiteral("write %1: %2").arg(point).arg(outcome.integrity));
        else if (outcome.contents == before)
            ++old;
        else if (outcome.contents == after.contents)
            ++fresh;
        else
            faults.append(QStringLiteral("write %1: a mixture of old and new").arg(point));
    }
    qInfo("%s: %d writes, %d kill points tried, %d left the old state, %d the new, %d faulty",
          QTest::currentDataTag(), writes, tried, old, fresh, int(faults.size()));
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
}

VELMORA_TEST_MAIN(TestCrashSafety)
#include "test_crash_safety.moc"
