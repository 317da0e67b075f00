#pragma once

#include <QString>
#include <QTemporaryDir>

#include <memory>

// Every test runs with its own home, settings, data and cache folders, so that no
// test reads or writes the settings or files of the person who runs it.
void PrepareIsolatedEnvironment();

// A fresh session for one test case: new single instances, a data folder of its
// own and, on request, a new database in it brought up to the present version.
class cTestSession
{
public:
    enum class Start { Empty, NewDatabase };
    explicit cTestSession(Start start = Start::NewDatabase);
    ~cTestSession();

    QString DataDir() const;
    QString Path(const QString &name) const;

private:
    QTemporaryDir folder_;
};

// Copies a sample file (tests/data/samples, else the optional extra folder beside
// the repository) into folder, writable.
QString CopySharedFile(const QString &relativePath, const QString &folder);
// Copies the sample DOS data folder (its five tables) into folder; false on failure.
bool CopySharedDosFolder(const QString &folder);
// The number of rows of a table of the open database.
qint64 RowCount(const QString &table);

// Declares main() for a Qt Test class, after isolating the environment. Logic tests
// run under QGuiApplication (fonts and page layouts need it), window tests under
// QApplication; both on the offscreen platform that CTest sets.
#define VELMORA_TEST_MAIN_WITH(ApplicationType, TestClass)                                         \
    int main(int argc, char **argv)                                                                \
    {                                                                                              \
        PrepareIsolatedEnvironment();                                                              \
        ApplicationType app(argc, argv);                                                           \
        TestClass test;                                                                            \
        QTEST_SET_MAIN_SOURCE_PATH                                                                 \
        return QTest::qExec(&test, argc, argv);                                                    \
    }
#define VELMORA_TEST_MAIN(TestClass) VELMORA_TEST_MAIN_WITH(QGuiApplication, TestClass)
#define VELMORA_WIDGET_TEST_MAIN(TestClass) VELMORA_TEST_MAIN_WITH(QApplication, TestClass)
