#include "base/busy.h"
#include "base/common.h"
#include "support/scripted_interaction.h"
#include "support/test_environment.h"

#include <QGuiApplication>
#include <QTest>

class TestCommon : public QObject
{
    Q_OBJECT

private slots:
    void numericValueReadsLeadingDigits_data();
    void numericValueReadsLeadingDigits();
    void isNumericAcceptsTypedNumbersOnly();
    void numberTextDropsTrailingZero();
    void isDateAcceptsBothYearForms();
    void datesRoundTripThroughIsoText();
    void maxOfAndMinOfCompareNumbersAndReturnSecondOnTie();
    void capitaliseWordsRaisesAfterBlanksAndLineFeeds();
    void capitaliseWordsOfBlankTextIsEmpty();
    void properCaseFollowsTheLetterBefore_data();
    void properCaseFollowsTheLetterBefore();
    void quoteTrimmedTrimsAndKeepsInnerQuotes();
    void quoteTextKeepsBlanks();
    void doubleAmpersandsDoublesEachOnce();
    void padRightCutsAndPads();
    void ageOnBirthdayIsOneLessThanCalendarDifference();
    void ageWithEmptyBirthDateIsEmpty();
    void endBusyWithoutBeginLeavesCountAtZero();
    void nestedBusySectionsKeepPointerUntilOutermostEnds();
};

void TestCommon::numericValueReadsLeadingDigits_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("value");
    QTest::newRow("empty") << QString() << 0.0;
    QTest::newRow("digits") << QStringLiteral("123") << 123.0;
    QTest::newRow("trailing letters") << QStringLiteral("12abc") << 12.0;
    QTest::newRow("blanks skipped") << QStringLiteral(" 1 2 ") << 12.0;
    QTest::newRow("decimal") << QStringLiteral("2.5") << 2.5;
    QTest::newRow("negative") << QStringLiteral("-3") << -3.0;
    QTest::newRow("letters first") << QStringLiteral("abc") << 0.0;
    QTest::newRow("version text") << QStringLiteral("1.02") << 1.02;
}

void TestCommon::numericValueReadsLeadingDigits()
{
    QFETCH(QString, text);
    QFETCH(double, value);
    QCOMPARE(NumericValue(text), value);
}

void TestCommon::isNumericAcceptsTypedNumbersOnly()
{
    QVERIFY(IsNumeric(QStringLiteral("12")));
    QVERIFY(IsNumeric(QStringLiteral(" -3.5 ")));
    QVERIFY(!IsNumeric(QString()));
    QVERIFY(!IsNumeric(QStringLiteral("12a")));
    QVERIFY(!IsNumeric(QStringLiteral("A1234")));
}

void TestCommon::numberTextDropsTrailingZero()
{
    QCOMPARE(NumberText(3.0), QStringLiteral("3"));
    QCOMPARE(NumberText(2.5), QStringLiteral("2.5"));
    QCOMPARE(NumberText(-0.25), QStringLiteral("-0.25"));
    QCOMPARE(NumberText(123456789.0), QStringLiteral("123456789"));
}

void TestCommon::isDateAcceptsBothYearForms()
{
    QVERIFY(IsDate(QStringLiteral("15/03/2001")));
    QVERIFY(IsDate(QStringLiteral("15/03/01")));
    QCOMPARE(DateFromText(QStringLiteral("15/03/01")), QDate(2001, 3, 15));
    QCOMPARE(DateFromText(QStringLiteral("15/03/65")), QDate(1965, 3, 15));
    QVERIFY(!IsDate(QStringLiteral("31/02/2001")));
    QVERIFY(!IsDate(QStringLiteral("hello")));
    QVERIFY(!IsDate(QString()));
    QVERIFY(!IsDate(QStringLiteral("1/2/3/4")));
}

void TestCommon::datesRoundTripThroughIsoText()
{
    QCOMPARE(DisplayDateToIso(QStringLiteral("05/11/2026")), QStringLiteral("2026-11-05"));
    QCOMPARE(IsoToDisplayDate(QStringLiteral("2026-11-05")), QStringLiteral("05/11/2026"));
    QCOMPARE(DisplayDateToIso(QString()), QString());
    QCOMPARE(IsoToDisplayDate(QString()), QString());
}

void TestCommon::maxOfAndMinOfCompareNumbersAndReturnSecondOnTie()
{
    QCOMPARE(MaxOf(3, 5), 5);
    QCOMPARE(MinOf(3, 5), 3);
    QCOMPARE(MaxOf(QStringLiteral("9"), QStringLiteral("10")), QStringLiteral("10"));
    QCOMPARE(MinOf(QStringLiteral("9"), QStringLiteral("10")), QStringLiteral("9"));
    // A tie returns the second value, which shows when the two texts differ.
    QCOMPARE(MaxOf(QStringLiteral("5"), QStringLiteral("5.0")), QStringLiteral("5.0"));
    QCOMPARE(MinOf(QStringLiteral("5.0"), QStringLiteral("5")), QStringLiteral("5"));
    QCOMPARE(MaxOf(QStringLiteral("apple"), QStringLiteral("pear")), QStringLiteral("pear"));
}

void TestCommon::capitaliseWordsRaisesAfterBlanksAndLineFeeds()
{
    QCOMPARE(CapitaliseWords(QStringLiteral("mary anne smith")), QStringLiteral("Mary Anne Smith"));
    QCOMPARE(CapitaliseWords(QStringLiteral("line one\nline two")),
             QStringLiteral("Line One\nLine Two"));
    QCOMPARE(CapitaliseWords(QStringLiteral("mcDonald")), QStringLiteral("McDonald"));
}

void TestCommon::capitaliseWordsOfBlankTextIsEmpty()
{
    QCOMPARE(CapitaliseWords(QStringLiteral("   ")), QString());
}

void TestCommon::properCaseFollowsTheLetterBefore_data()
{
    QTest::addColumn<QString>("input");
    QTest::addColumn<QString>("expected");
    QTest::newRow("hyphen") << QStringLiteral("SMITH-JONES") << QStringLiteral("Smith-Jones");
    QTest::newRow("apostrophe") << QStringLiteral("O'BRIEN") << QStringLiteral("O'Brien");
    QTest::newRow("mc") << QStringLiteral("MCDONALD") << QStringLiteral("Mcdonald");
    QTest::newRow("two words") << QStringLiteral("VAN DYKE") << QStringLiteral("Van Dyke");
    QTest::newRow("empty") << QString() << QString();
    QTest::newRow("after accent") << QStringLiteral("J\u00c9AN") << QStringLiteral("J\u00e9An");
    QTest::newRow("idempotent") << QStringLiteral("Smith-Jones") << QStringLiteral("Smith-Jones");
}

void TestCommon::properCaseFollowsTheLetterBefore()
{
    QFETCH(QString, input);
    QFETCH(QString, expected);
    QCOMPARE(ProperCase(input), expected);
}

void TestCommon::quoteTrimmedTrimsAndKeepsInnerQuotes()
{
    QCOMPARE(QuoteTrimmed(QStringLiteral("  Smith ")), QStringLiteral("\"Smith\""));
    QCOMPARE(QuoteTrimmed(QStringLiteral("a\"b")), QStringLiteral("\"a\"b\""));
}

void TestCommon::quoteTextKeepsBlanks()
{
    QCOMPARE(QuoteText(QStringLiteral(" x ")), QStringLiteral("\" x \""));
}

void TestCommon::doubleAmpersandsDoublesEachOnce()
{
    QString text = QStringLiteral("Bishop & Knight && Rook");
    QCOMPARE(DoubleAmpersands(text), QStringLiteral("Bishop && Knight &&&& Rook"));
    QCOMPARE(text, QStringLiteral("Bishop && Knight &&&& Rook"));
}

void TestCommon::padRightCutsAndPads()
{
    QCOMPARE(PadRight(QStringLiteral("ab"), 1, QStringLiteral(" ")), QStringLiteral("a"));
    QCOMPARE(PadRight(QString(), 1, QStringLiteral(" ")), QStringLiteral(" "));
    QCOMPARE(PadRight(QStringLiteral("ab"), 5, QStringLiteral("-x")), QStringLiteral("ab---"));
}

void TestCommon::ageOnBirthdayIsOneLessThanCalendarDifference()
{
    QCOMPARE(AgeAtDate(QStringLiteral("01/09/2026"), QStringLiteral("01/09/2010")),
             QStringLiteral("15"));
    QCOMPARE(AgeAtDate(QStringLiteral("02/09/2026"), QStringLiteral("01/09/2010")),
             QStringLiteral("16"));
    QCOMPARE(AgeAtDate(QStringLiteral("01/10/2026"), QStringLiteral("01/09/2010")),
             QStringLiteral("16"));
    QCOMPARE(AgeAtDate(QStringLiteral("31/08/2026"), QStringLiteral("01/09/2010")),
             QStringLiteral("15"));
}

void TestCommon::ageWithEmptyBirthDateIsEmpty()
{
    QCOMPARE(AgeAtDate(QStringLiteral("01/09/2026"), QString()), QString());
    QCOMPARE(AgeAtDate(QString(), QStringLiteral("01/09/2010")), QString());
}

void TestCommon::endBusyWithoutBeginLeavesCountAtZero()
{
    cScriptedInteraction seam;
    EndBusy();
    QCOMPARE(BusyCount(), qint16(0));
    EndBusy();
    QCOMPARE(BusyCount(), qint16(0));
    BeginBusy();
    QCOMPARE(BusyCount(), qint16(1));
    EndBusy();
    QCOMPARE(BusyCount(), qint16(0));
}

void TestCommon::nestedBusySectionsKeepPointerUntilOutermostEnds()
{
    cScriptedInteraction seam;
    {
        cBusySection outer;
        {
            cBusySection inner;
            QCOMPARE(BusyCount(), qint16(2));
        }
        QVERIFY(seam.BusyPointerShown());
    }
    QVERIFY(!seam.BusyPointerShown());
    QCOMPARE(BusyCount(), qint16(0));
}

VELMORA_TEST_MAIN(TestCommon)
#include "test_common.moc"
