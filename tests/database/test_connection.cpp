#include "base/fatal_fault.h"
#include "database/connection.h"
#include "database/database.h"
#include "database/sql.h"
#include "session/globals.h"
#include "support/test_environment.h"

#include <QGuiApplication>
#include <QTest>

class TestConnection : public QObject
{
    Q_OBJECT

private slots:
    void statementsRunOnTheConnectionOfTheSessionsDatabase();
    void anotherDatabaseDoesNotTakeTheStatementsOver();
    void aStatementBeforeTheSessionIsAFatalFault();
    void aStatementAfterTheSessionIsAFatalFault();
};

void TestConnection::statementsRunOnTheConnectionOfTheSessionsDatabase()
{
    cTestSession session;
    QCOMPARE(SessionConnection().connectionName(), Database().ConnectionName());
    QVERIFY(SessionConnection().isOpen());
    QCOMPARE(SqlScalar(QStringLiteral("Select count(*) From Cntrl")).toInt(), 1);
}

void TestConnection::anotherDatabaseDoesNotTakeTheStatementsOver()
{
    cTestSession session;
    const cDatabase other;
    QVERIFY(other.ConnectionName() != Database().ConnectionName());
    QCOMPARE(SessionConnection().connectionName(), Database().ConnectionName());
}

void TestConnection::aStatementBeforeTheSessionIsAFatalFault()
{
    DestroySessionObjects();
    try {
        RunSql(QStringLiteral("Select 1"));
        QFAIL("A statement ran with no session");
    } catch (const cFatalFault &fault) {
        QCOMPARE(fault.Number(), FaultNumber::UnknownKey);
        QCOMPARE(fault.Description(), QStringLiteral("The session has not been started."));
    }
}

void TestConnection::aStatementAfterTheSessionIsAFatalFault()
{
    {
        cTestSession session;
        QVERIFY(SessionConnection().isOpen());
    }
    QVERIFY_THROWS_EXCEPTION(cFatalFault, SessionConnection());
}

VELMORA_TEST_MAIN(TestConnection)
#include "test_connection.moc"
