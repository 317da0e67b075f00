#include "database/database.h"
#include "database/sql.h"
#include "session/control.h"
#include "session/globals.h"
#include "support/test_environment.h"

#include <QGuiApplication>
#include <QSqlQuery>
#include <QTest>

namespace {

// A database as Create leaves it, before its first upgrade.
void CreateAtFirstVersion()
{
    Database().Create();
}

QString MasterField(int masterId, const QString &field)
{
    return TextOf(SqlScalar(QStringLiteral("SELECT \"") + field +
                                QStringLiteral("\" FROM Master WHERE MasterId = ?"),
                            {masterId}));
}

bool ControlHasSurnameCase()
{
    return SqlScalar(QStringLiteral("SELECT count(*) FROM pragma_table_info('Cntrl') "
                                    "WHERE name = 'SurnameCase'"))
               .toInt() == 1;
}

void InsertNames()
{
    RunSql(QStringLiteral("INSERT INTO Master (MasterId, Surname, Forename, Address1, Address4) "
                          "VALUES (1, 'SMITH-JONES', 'ANNE', 'HIGH STREET', 'WEST YORKSHIRE'), "
                          "(2, 'O''BRIEN', 'PAT', '', ''), (3, '', 'NOBODY', NULL, NULL)"));
    RunSql(QStringLiteral("INSERT INTO Player (MasterId, TId, PId, Surname, Forename) "
                          "VALUES (1, 1, 1, 'MCDONALD', 'IAN')"));
}

} // namespace

class TestVersionUpgrade : public QObject
{
    Q_OBJECT

private slots:
    void newDatabasePassesBothStepsInOneStart();
    void namesInCapitalsBecomeProperCase();
    void otherFieldsAreNotTouched();
    void emptySurnameStaysEmpty();
    void versionOneZeroOneSkipsNamesAndGetsField();
    void textThatIsNotANumberIsUpgradedFromTheStart();
    void presentVersionChangesNothing();
    void repeatedUpgradeDoesNoHarm();
};

void TestVersionUpgrade::newDatabasePassesBothStepsInOneStart()
{
    cTestSession session(cTestSession::Start::Empty);
    CreateAtFirstVersion();
    QVERIFY(!ControlHasSurnameCase());
    Database().CheckVersion();
    QCOMPARE(TextOf(SqlScalar(QStringLiteral("SELECT Vrsn FROM Cntrl"))), QStringLiteral("1.02"));
    QVERIFY(ControlHasSurnameCase());
    QCOMPARE(SqlScalar(QStringLiteral("SELECT SurnameCase FROM Cntrl")).toInt(), 0);
    QVERIFY(!SqlScalar(QStringLiteral("SELECT SurnameCase FROM Cntrl")).isNull());
}

void TestVersionUpgrade::namesInCapitalsBecomeProperCase()
{
    cTestSession session(cTestSession::Start::Empty);
    CreateAtFirstVersion();
    InsertNames();
    Database().CheckVersion();
    QCOMPARE(MasterField(1, QStringLiteral("Surname")), QStringLiteral("Smith-Jones"));
    QCOMPARE(MasterField(2, QStringLiteral("Surname")), QStringLiteral("O'Brien"));
    QCOMPARE(MasterField(1, QStringLiteral("Address4")), QStringLiteral("West Yorkshire"));
    QCOMPARE(TextOf(SqlScalar(QStringLiteral("SELECT Surname FROM Player"))),
             QStringLiteral("Mcdonald"));
    Control().Load(QStringLiteral("All"));
    QCOMPARE(Control().Vrsn(), QStringLiteral("1.02"));
    QCOMPARE(Control().SurnameCase(), qint16(0));
}

void TestVersionUpgrade::otherFieldsAreNotTouched()
{
    cTestSession session(cTestSession::Start::Empty);
    CreateAtFirstVersion();
    InsertNames();
    Database().CheckVersion();
    QCOMPARE(MasterField(1, QStringLiteral("Forename")), QStringLiteral("ANNE"));
    QCOMPARE(MasterField(1, QStringLiteral("Address1")), QStringLiteral("HIGH STREET"));
    QCOMPARE(TextOf(SqlScalar(QStringLiteral("SELECT Forename FROM Player"))),
             QStringLiteral("IAN"));
}

void TestVersionUpgrade::emptySurnameStaysEmpty()
{
    cTestSession session(cTestSession::Start::Empty);
    CreateAtFirstVersion();
    InsertNames();
    Database().CheckVersion();
    const QVariant surname =
        SqlScalar(QStringLiteral("SELECT Surname FROM Master WHERE MasterId = 3"));
    QVERIFY(!surname.isNull());
    QCOMPARE(surname.toString(), QString());
    QVERIFY(SqlScalar(QStringLiteral("SELECT Address4 FROM Master WHERE MasterId = 3")).isNull());
}

void TestVersionUpgrade::versionOneZeroOneSkipsNamesAndGetsField()
{
    cTestSession session(cTestSession::Start::Empty);
    CreateAtFirstVersion();
    InsertNames();
    RunSql(QStringLiteral("UPDATE Cntrl SET Vrsn = '1.01'"));
    Database().CheckVersion();
    QCOMPARE(MasterField(1, QStringLiteral("Surname")), QStringLiteral("SMITH-JONES"));
    QVERIFY(ControlHasSurnameCase());
    QCOMPARE(TextOf(SqlScalar(QStringLiteral("SELECT Vrsn FROM Cntrl"))), QStringLiteral("1.02"));
}

void TestVersionUpgrade::textThatIsNotANumberIsUpgradedFromTheStart()
{
    cTestSession session(cTestSession::Start::Empty);
    CreateAtFirstVersion();
    InsertNames();
    RunSql(QStringLiteral("UPDATE Cntrl SET Vrsn = 'beta'"));
    Database().CheckVersion();
    QCOMPARE(MasterField(1, QStringLiteral("Surname")), QStringLiteral("Smith-Jones"));
    QCOMPARE(TextOf(SqlScalar(QStringLiteral("SELECT Vrsn FROM Cntrl"))), QStringLiteral("1.02"));
}

void TestVersionUpgrade::presentVersionChangesNothing()
{
    cTestSession session;
    RunSql(QStringLiteral("INSERT INTO Master (MasterId, Surname) VALUES (9, 'LEFT ALONE')"));
    RunSql(QStringLiteral("UPDATE Cntrl SET Vrsn = '1.05', SurnameCase = 1"));
    Database().CheckVersion();
    QCOMPARE(MasterField(9, QStringLiteral("Surname")), QStringLiteral("LEFT ALONE"));
    QCOMPARE(TextOf(SqlScalar(QStringLiteral("SELECT Vrsn FROM Cntrl"))), QStringLiteral("1.05"));
    QCOMPARE(SqlScalar(QStringLiteral("SELECT SurnameCase FROM Cntrl")).toInt(), 1);
}

void TestVersionUpgrade::repeatedUpgradeDoesNoHarm()
{
    cTestSession session(cTestSession::Start::Empty);
    CreateAtFirstVersion();
    InsertNames();
    Database().CheckVersion();
    // As if the first step ran again after a failure: names already converted stay.
    RunSql(QStringLiteral("UPDATE Cntrl SET Vrsn = '1.00'"));
    RunSql(QStringLiteral("ALTER TABLE Cntrl DROP COLUMN SurnameCase"));
    Database().CheckVersion();
    QCOMPARE(MasterField(1, QStringLiteral("Surname")), QStringLiteral("Smith-Jones"));
    QVERIFY(ControlHasSurnameCase());
}

VELMORA_TEST_MAIN(TestVersionUpgrade)
#include "test_version_upgrade.moc"
