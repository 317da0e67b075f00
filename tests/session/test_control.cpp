#include "database/database.h"
#include "database/sql.h"
#include "session/control.h"
#include "session/globals.h"
#include "support/test_environment.h"

#include <QGuiApplication>
#include <QTest>

namespace {

// What a restart does to the settings: read them again from the file.
void Restart()
{
    Control() = cControl();
    Control().Load(QStringLiteral("Version"));
    Control().Load(QStringLiteral("All"));
}

} // namespace

class TestControl : public QObject
{
    Q_OBJECT

private slots:
    void newControlIsEmpty();
    void settersTrim();
    void gradeCharsSetterAddsTrailingBlank();
    void gradeCharsAfterRestartHasNoBlankUnlessStored();
    void loadVersionReadsOnlyTheVersion();
    void loadAllReadsEverySetting();
    void updateWithEmptyMaxDisplayAgeStoresNull();
    void updateStoresAgeDateAsDateAndReadsItBack();
    void surnameCaseChangeHoldsForSessionOnly();
};

void TestControl::newControlIsEmpty()
{
    cControl control;
    QCOMPARE(control.Vrsn(), QString());
    QCOMPARE(control.AgeDate(), QString());
    QCOMPARE(control.SurnameCase(), qint16(0));
    QVERIFY(!control.Tournament());
    QVERIFY(!control.Master());
    QVERIFY(!control.BCFMaster());
}

void TestControl::settersTrim()
{
    cControl control;
    control.setUserDefined1(QStringLiteral("  Junior  "));
    control.setMaxJuniorAge(QStringLiteral(" 17 "));
    control.setAgeDate(QStringLiteral(" 01/09/2026 "));
    QCOMPARE(control.UserDefined1(), QStringLiteral("Junior"));
    QCOMPARE(control.MaxJuniorAge(), QStringLiteral("17"));
    QCOMPARE(control.AgeDate(), QStringLiteral("01/09/2026"));
}

void TestControl::gradeCharsSetterAddsTrailingBlank()
{
    cControl control;
    control.setBCFGradeChars(QStringLiteral(" ABC "));
    QCOMPARE(control.BCFGradeChars(), QStringLiteral("ABC "));
}

void TestControl::gradeCharsAfterRestartHasNoBlankUnlessStored()
{
    cTestSession session;
    QCOMPARE(Control().BCFGradeChars(), QStringLiteral("ABCDEFR*"));
    Control().setBCFGradeChars(QStringLiteral("ABCD"));
    QCOMPARE(Control().BCFGradeChars(), QStringLiteral("ABCD "));
    Control().Update();
    Restart();
    // The options dialog saved the letters with their blank, so the file holds it.
    QCOMPARE(Control().BCFGradeChars(), QStringLiteral("ABCD "));
    RunSql(QStringLiteral("UPDATE Cntrl SET BCFGradeChars = 'XYZ'"));
    Restart();
    QCOMPARE(Control().BCFGradeChars(), QStringLiteral("XYZ"));
}

void TestControl::loadVersionReadsOnlyTheVersion()
{
    cTestSession session;
    cControl control;
    control.Load(QStringLiteral("Version"));
    QCOMPARE(control.Vrsn(), QStringLiteral("1.02"));
    QCOMPARE(control.BCFGradeChars(), QString());
    QCOMPARE(control.MaxJuniorAge(), QString());
}

void TestControl::loadAllReadsEverySetting()
{
    cTestSession session;
    QCOMPARE(Control().Vrsn(), QStringLiteral("1.02"));
    QCOMPARE(Control().MaxDisplayAge(), QStringLiteral("20"));
    QCOMPARE(Control().MaxJuniorAge(), QStringLiteral("17"));
    QCOMPARE(Control().UserDefined1(), QStringLiteral("User Defined 1"));
    QCOMPARE(Control().UserDefined2(), QStringLiteral("User Defined 2"));
    QCOMPARE(Control().UserDefined3(), QStringLiteral("User Defined 3"));
    QCOMPARE(Control().UserDefined4(), QStringLiteral("User Defined 4"));
    QCOMPARE(Control().AgeDate(), QString());
}

void TestControl::updateWithEmptyMaxDisplayAgeStoresNull()
{
    cTestSession session;
    Control().setMaxDisplayAge(QString());
    Control().Update();
    QVERIFY(SqlScalar(QStringLiteral("SELECT MaxDisplayAge FROM Cntrl")).isNull());
    Restart();
    QCOMPARE(Control().MaxDisplayAge(), QString());
}

void TestControl::updateStoresAgeDateAsDateAndReadsItBack()
{
    cTestSession session;
    Control().setAgeDate(QStringLiteral("31/08/2026"));
    Control().setUserDefined3(QStringLiteral("O'Brien \"Cup\""));
    Control().Update();
    QCOMPARE(TextOf(SqlScalar(QStringLiteral("SELECT AgeDate FROM Cntrl"))),
             QStringLiteral("2026-08-31"));
    Restart();
    QCOMPARE(Control().AgeDate(), QStringLiteral("31/08/2026"));
    QCOMPARE(Control().UserDefined3(), QStringLiteral("O'Brien \"Cup\""));
    QCOMPARE(Control().Vrsn(), QStringLiteral("1.02"));
}

void TestControl::surnameCaseChangeHoldsForSessionOnly()
{
    cTestSession session;
    Control().setSurnameCase(1);
    Control().Update();
    QCOMPARE(Control().SurnameCase(), qint16(1));
    QCOMPARE(SqlScalar(QStringLiteral("SELECT SurnameCase FROM Cntrl")).toInt(), 0);
    Restart();
    QCOMPARE(Control().SurnameCase(), qint16(0));
}

VELMORA_TEST_MAIN(TestControl)
#include "test_control.moc"
