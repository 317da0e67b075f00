#include "support/scripted_interaction.h"
#include "support/test_environment.h"
#include "ui/whole_file_writer.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QIODevice>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

QByteArray Contents(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void WriteEarlier(const QString &fileName)
{
    QFile file(fileName);
    if (file.open(QIODevice::WriteOnly))
        file.write("earlier file");
}

} // namespace

class TestWholeFileWriter : public QObject
{
    Q_OBJECT

private slots:
    void writtenFileReplacesTheEarlierOne();
    void failureHalfWayLeavesTheEarlierFileWholeAndIsTold();
    void cancelLeavesTheEarlierFileWholeSilently();
    void aFolderThatDoesNotExistIsTold();
};

void TestWholeFileWriter::writtenFileReplacesTheEarlierOne()
{
    cScriptedInteraction interaction;
    QTemporaryDir folder;
    const QString fileName = folder.filePath(u"out.txt"_s);
    WriteEarlier(fileName);
    const WriteOutcome outcome = WriteWholeFile(fileName, [](QIODevice &device) {
        device.write("new");
        return WriteOutcome::Written;
    });
    QCOMPARE(outcome, WriteOutcome::Written);
    QCOMPARE(Contents(fileName), QByteArray("new"));
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList{u"out.txt"_s});
    QVERIFY(interaction.Calls().isEmpty());
}

void TestWholeFileWriter::failureHalfWayLeavesTheEarlierFileWholeAndIsTold()
{
    cScriptedInteraction interaction;
    QTemporaryDir folder;
    const QString fileName = folder.filePath(u"out.txt"_s);
    WriteEarlier(fileName);
    const WriteOutcome outcome = WriteWholeFile(fileName, [](QIODevice &device) {
        device.write("half of it");
        return WriteOutcome::Failed;
    });
    QCOMPARE(outcome, WriteOutcome::Failed);
    QCOMPARE(Contents(fileName), QByteArray("earlier file"));
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList{u"out.txt"_s});
    QCOMPARE(interaction.Count(u"message|exclamation|Velmora!|The file "_s +
                               QDir::toNativeSeparators(fileName) + u" could not be written"_s),
             1);
}

void TestWholeFileWriter::cancelLeavesTheEarlierFileWholeSilently()
{
    cScriptedInteraction interaction;
    QTemporaryDir folder;
    const QString fileName = folder.filePath(u"out.txt"_s);
    WriteEarlier(fileName);
    const WriteOutcome outcome = WriteWholeFile(fileName, [](QIODevice &device) {
        device.write("part");
        return WriteOutcome::Cancelled;
    });
    QCOMPARE(outcome, WriteOutcome::Cancelled);
    QCOMPARE(Contents(fileName), QByteArray("earlier file"));
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList{u"out.txt"_s});
    QVERIFY(interaction.Calls().isEmpty());
}

void TestWholeFileWriter::aFolderThatDoesNotExistIsTold()
{
    cScriptedInteraction interaction;
    QTemporaryDir folder;
    const QString fileName = folder.filePath(u"missing/out.txt"_s);
    bool asked = false;
    const WriteOutcome outcome = WriteWholeFile(fileName, [&asked](QIODevice &) {
        asked = true;
        return WriteOutcome::Written;
    });
    QCOMPARE(outcome, WriteOutcome::Failed);
    QVERIFY(!asked);
    QVERIFY(!QFile::exists(fileName));
    QCOMPARE(interaction.Count(u"message|exclamation|Velmora!|The file "_s +
                               QDir::toNativeSeparators(fileName)),
             1);
}

VELMORA_TEST_MAIN(TestWholeFileWriter)
#include "test_whole_file_writer.moc"
