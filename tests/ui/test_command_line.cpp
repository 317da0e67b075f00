#include "support/test_environment.h"
#include "ui/command_line.h"

#include <QApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <map>
#include <sstream>

class TestCommandLine : public QObject
{
    Q_OBJECT

private slots:
    void otherArgumentsStartTheProgramAsUsual();
    void pairPrintsTheBoardsOfTheNextRound();
    void pairOfAFinishedOrPairedRoundIsRefused();
    void badFileIsRefusedWithTheLine();
    void missingFileOrArgumentIsRefused();
    void checkListsTheRoundsThatDiffer();
    void programPairsWithoutOpeningAWindow();

private:
    struct cRun
    {
        std::optional<int> code;
        QString out;
        QString err;
    };
    cRun Run(std::initializer_list<const char *> arguments);
    QString Write(const QByteArray &text);

    QTemporaryDir folder_;
    int written_ = 0;
};

namespace {

QByteArray Fixture(const QString &name)
{
    QFile file(QStringLiteral(VELMORA_TEST_DATA "/pairing/") + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

TestCommandLine::cRun TestCommandLine::Run(std::initializer_list<const char *> arguments)
{
    std::vector<const char *> argv{"velmora"};
    argv.insert(argv.end(), arguments.begin(), arguments.end());
    std::ostringstream out;
    std::ostringstream err;
    const auto code = RunCommandLine(int(argv.size()), argv.data(), out, err);
    return {code, QString::fromStdString(out.str()), QString::fromStdString(err.str())};
}

QString TestCommandLine::Write(const QByteArray &text)
{
    const QString path = folder_.filePath(QStringLiteral("t%1.trf").arg(++written_));
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(text);
    return path;
}

void TestCommandLine::otherArgumentsStartTheProgramAsUsual()
{
    QVERIFY(!Run({}).code);
    QVERIFY(!Run({"--other"}).code);
    QVERIFY(!Run({"file.trf"}).code);
}

void TestCommandLine::pairPrintsTheBoardsOfTheNextRound()
{
    const QByteArray path = Write(Fixture(QStringLiteral("round2_floater.trf"))).toLocal8Bit();
    const cRun run = Run({"--pair", path.constData()});
    QCOMPARE(run.code, std::optional<int>(0));
    QCOMPARE(run.out, QStringLiteral("3\n3 1\n4 5\n2 6\n"));
    QCOMPARE(run.err, QString());
}

void TestCommandLine::pairOfAFinishedOrPairedRoundIsRefused()
{
    QByteArray finished = Fixture(QStringLiteral("round2_floater.trf"));
    finished.replace("XXR 5", "XXR 1");
    const QByteArray path = Write(finished).toLocal8Bit();
    const cRun run = Run({"--pair", path.constData()});
    QCOMPARE(run.code, std::optional<int>(1));
    QCOMPARE(run.out, QString());
    QCOMPARE(run.err, QStringLiteral("All 1 rounds are paired.\n"));

    QByteArray pairedOnly = Fixture(QStringLiteral("round2_floater.trf"));
    pairedOnly.replace(" w 1\n", " w\n").replace(" b 0\n", " b\n");
    const QByteArray second = Write(pairedOnly).toLocal8Bit();
    const cRun paired = Run({"--pair", second.constData()});
    QCOMPARE(paired.code, std::optional<int>(1));
    QCOMPARE(paired.err,
             QStringLiteral("Round 1 is already paired: its results are not all in.\n"));
}

void TestCommandLine::badFileIsRefusedWithTheLine()
{
    QByteArray bad = Fixture(QStringLiteral("round1_even.trf"));
    bad.replace("XXC white1", "XXC green1");
    const QString path = Write(bad);
    const QByteArray local = path.toLocal8Bit();
    const cRun run = Run({"--pair", local.constData()});
    QCOMPARE(run.code, std::optional<int>(2));
    QCOMPARE(run.out, QString());
    QCOMPARE(run.err, path + QStringLiteral(": Line 11: the first colour \"green1\" is neither "
                                            "white1 nor black1.\n"));
}

void TestCommandLine::missingFileOrArgumentIsRefused()
{
    const QByteArray path = folder_.filePath(QStringLiteral("none.trf")).toLocal8Bit();
    const cRun missing = Run({"--check", path.constData()});
    QCOMPARE(missing.code, std::optional<int>(2));
    QCOMPARE(missing.err, QStringLiteral("The file ") + QString::fromLocal8Bit(path) +
                              QStringLiteral(" cannot be read.\n"));
    const cRun bare = Run({"--pair"});
    QCOMPARE(bare.code, std::optional<int>(2));
    QCOMPARE(bare.err,
             QStringLiteral("Usage: velmora --pair FILE.trf | velmora --check FILE.trf\n"));
}

void TestCommandLine::checkListsTheRoundsThatDiffer()
{
    // The floater fixture with a second round added: as the rules give it, it agrees;
    // with two opponents swapped, round 2 is listed.
    const auto withSecondRound = [](const std::map<int, QByteArray> &blocks) {
        QByteArray text = Fixture(QStringLiteral("round2_floater.trf"));
        for (const auto &[number, block] : blocks) {
            const QByteArray start = "001    " + QByteArray::number(number) + " ";
            const int at = int(text.indexOf(start));
            text.insert(int(text.indexOf('\n', at)), block);
        }
        return text;
    };
    const QByteArray first = Write(withSecondRound({{1, "     3 b 1"},
                                                    {3, "     1 w 0"},
                                                    {4, "     5 w ="},
                                                    {5, "     4 b ="},
                                                    {2, "     6 w 1"},
                                                    {6, "     2 b 0"}}))
                                 .toLocal8Bit();
    const cRun run = Run({"--check", first.constData()});
    QCOMPARE(run.err, QString());
    QCOMPARE(run.out, QStringLiteral("Every round agrees with the pairing the rules give.\n"));
    QCOMPARE(run.code, std::optional<int>(0));

    const QByteArray second = Write(withSecondRound({{1, "     3 b 1"},
                                                     {3, "     1 w 0"},
                                                     {4, "     2 w ="},
                                                     {2, "     4 b ="},
                                                     {5, "     6 w 1"},
                                                     {6, "     5 b 0"}}))
                                  .toLocal8Bit();
    const cRun differs = Run({"--check", second.constData()});
    QCOMPARE(differs.err, QString());
    QCOMPARE(differs.out, QStringLiteral("Round 2 differs from the pairing the rules give.\n"));
    QCOMPARE(differs.code, std::optional<int>(1));
}

void TestCommandLine::programPairsWithoutOpeningAWindow()
{
    const QString path = Write(Fixture(QStringLiteral("round1_odd.trf")));
    QProcess program;
    // No display at all: a window would fail to open and end the run.
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("DISPLAY"));
    environment.remove(QStringLiteral("WAYLAND_DISPLAY"));
    environment.remove(QStringLiteral("QT_QPA_PLATFORM"));
    program.setProcessEnvironment(environment);
    program.start(QStringLiteral(VELMORA_PROGRAM), {QStringLiteral("--pair"), path});
    QVERIFY(program.waitForFinished(30000));
    QCOMPARE(program.exitCode(), 0);
    QCOMPARE(program.readAllStandardOutput(), QByteArray("4\n1 4\n5 2\n3 6\n7 0\n"));
    QCOMPARE(program.readAllStandardError(), QByteArray());
}

VELMORA_WIDGET_TEST_MAIN(TestCommandLine)
#include "test_command_line.moc"
