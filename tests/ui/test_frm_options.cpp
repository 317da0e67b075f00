#include "database/sql.h"
#include "session/control.h"
#include "session/globals.h"
#include "support/scripted_interaction.h"
#include "support/test_environment.h"
#include "support/widget_driving.h"
#include "ui/frm_options.h"

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QStatusBar>
#include <QTest>

namespace {

void TypeInto(QLineEdit *field, const QString &text)
{
    field->setFocus();
    QTRY_VERIFY(field->hasFocus());
    ReplaceText(field, text);
}

void Leave(QWidget *field)
{
    QTest::keyClick(field, Qt::Key_Tab);
    QApplication::processEvents();
}

void InsertPeople()
{
    RunSql(QStringLiteral("INSERT INTO Master (MasterId, Surname, DOB, Age) VALUES "
                          "(1, 'Born', '2010-09-01', 3), (2, 'Unknown', NULL, 40)"));
}

} // namespace

class TestFrmOptions : public QObject
{
    Q_OBJECT

private slots:
    void fieldsAreFilledFromSettings();
    void dateThatIsNotADateIsRefusedWithBeepAndFocusStays();
    void acceptedDateIsReformatted();
    void gradeLettersAreUpperCasedOnLeaving();
    void focusShowsHelpTextInStatusBar();
    void okWritesEverySettingAndGradeLettersGetTheirBlank();
    void okIsRefusedWhileTheDateIsBad();
    void recalcAgesWithEmptyDateStoresNullDateAndNullAges();
    void recalcAgesWorksOutAgesAtTheDate();
    void cancelAfterRecalcAgesKeepsTheNewAges();
    void changedSurnameCaseHoldsForTheSessionOnly();
    void closingTheWindowCancels();
};

void TestFrmOptions::fieldsAreFilledFromSettings()
{
    cTestSession session;
    Control().setAgeDate(QStringLiteral("1/9/26"));
    frmOptions options;
    QCOMPARE(options.windowTitle(), QStringLiteral("Options"));
    QCOMPARE(options.txtAgeDate->text(), QStringLiteral("01/09/2026"));
    QCOMPARE(options.txtMaxJuniorAge->text(), QStringLiteral("17"));
    QCOMPARE(options.txtMaxDisplayAge->text(), QStringLiteral("20"));
    QCOMPARE(options.txtBCFGradeChars->text(), QStringLiteral("ABCDEFR*"));
    QCOMPARE(options.txtUD1->text(), QStringLiteral("User Defined 1"));
    QCOMPARE(options.txtUD4->text(), QStringLiteral("User Defined 4"));
    QVERIFY(!options.chkCase->isChecked());
    QCOMPARE(options.chkCase->text(), QStringLiteral("Print peoples Surname's in capitials"));
    QCOMPARE(options.cmdCalcAges->text(), QStringLiteral("Recalc Ages"));
}

void TestFrmOptions::dateThatIsNotADateIsRefusedWithBeepAndFocusStays()
{
    cTestSession session;
    cScriptedInteraction seam;
    frmOptions options;
    ShowActive(options);
    TypeInto(options.txtAgeDate, QStringLiteral("31/02/2026"));
    Leave(options.txtAgeDate);
    QTRY_VERIFY(options.txtAgeDate->hasFocus());
    QCOMPARE(seam.Count(QStringLiteral("beep")), 1);
    QCOMPARE(options.txtAgeDate->text(), QStringLiteral("31/02/2026"));
    // Only the date field looks focused: the field that had the focus for a moment
    // shows no selected text.
    QTest::qWait(20);
    for (const QLineEdit *field : options.findChildren<QLineEdit *>())
        if (field != options.txtAgeDate)
            QVERIFY2(!field->hasSelectedText(), qPrintable(field->objectName()));
}

void TestFrmOptions::acceptedDateIsReformatted()
{
    cTestSession session;
    cScriptedInteraction seam;
    frmOptions options;
    ShowActive(options);
    TypeInto(options.txtAgeDate, QStringLiteral("1/9/26"));
    Leave(options.txtAgeDate);
    QCOMPARE(options.txtAgeDate->text(), QStringLiteral("01/09/2026"));
    QTRY_VERIFY(options.txtMaxJuniorAge->hasFocus());
    QCOMPARE(seam.Count(QStringLiteral("beep")), 0);
}

void TestFrmOptions::gradeLettersAreUpperCasedOnLeaving()
{
    cTestSession session;
    frmOptions options;
    ShowActive(options);
    TypeInto(options.txtBCFGradeChars, QStringLiteral("abc*"));
    Leave(options.txtBCFGradeChars);
    QCOMPARE(options.txtBCFGradeChars->text(), QStringLiteral("ABC*"));
}

void TestFrmOptions::focusShowsHelpTextInStatusBar()
{
    cTestSession session;
    frmOptions options;
    ShowActive(options);
    options.txtMaxDisplayAge->setFocus();
    QTRY_COMPARE(options.sbMsg->currentMessage(),
                 QStringLiteral("Enter the maximum age to be displayed"));
    options.txtUD2->setFocus();
    QTRY_COMPARE(options.sbMsg->currentMessage(),
                 QStringLiteral("Enter the literal to be used for the second user defined field"));
    QTRY_COMPARE(options.txtUD2->selectedText(), QStringLiteral("User Defined 2"));
}

void TestFrmOptions::okWritesEverySettingAndGradeLettersGetTheirBlank()
{
    cTestSession session;
    frmOptions options;
    ShowActive(options);
    TypeInto(options.txtAgeDate, QStringLiteral("31/08/2026"));
    TypeInto(options.txtMaxJuniorAge, QStringLiteral("18"));
    TypeInto(options.txtBCFGradeChars, QStringLiteral("abc"));
    TypeInto(options.txtMaxDisplayAge, QStringLiteral("21"));
    TypeInto(options.txtUD1, QStringLiteral("  Junior  "));
    TypeInto(options.txtUD3, QStringLiteral("O'Neill \"Cup\""));
    options.cmdOk->click();
    QVERIFY(!options.Cancelled);
    QCOMPARE(Control().AgeDate(), QStringLiteral("31/08/2026"));
    QCOMPARE(Control().MaxJuniorAge(), QStringLiteral("18"));
    QCOMPARE(Control().MaxDisplayAge(), QStringLiteral("21"));
    QCOMPARE(Control().BCFGradeChars(), QStringLiteral("ABC "));
    QCOMPARE(Control().UserDefined1(), QStringLiteral("Junior"));
    QCOMPARE(TextOf(SqlScalar(QStringLiteral("SELECT AgeDate FROM Cntrl"))),
             QStringLiteral("2026-08-31"));
    QCOMPARE(TextOf(SqlScalar(QStringLiteral("SELECT BCFGradeChars FROM Cntrl"))),
             QStringLiteral("ABC "));
    QCOMPARE(TextOf(SqlScalar(QStringLiteral("SELECT UserDefined3 FROM Cntrl"))),
             QStringLiteral("O'Neill \"Cup\""));
    QCOMPARE(SqlScalar(QStringLiteral("SELECT MaxJuniorAge FROM Cntrl")).toInt(), 18);
}

void TestFrmOptions::okIsRefusedWhileTheDateIsBad()
{
    cTestSession session;
    cScriptedInteraction seam;
    frmOptions options;
    ShowActive(options);
    options.txtAgeDate->setText(QStringLiteral("not a date"));
    options.cmdOk->click();
    QVERIFY(options.Cancelled);
    QVERIFY(options.isVisible());
    QVERIFY(seam.Count(QStringLiteral("beep")) >= 1);
    QVERIFY(SqlScalar(QStringLiteral("SELECT AgeDate FROM Cntrl")).isNull());
}

void TestFrmOptions::recalcAgesWithEmptyDateStoresNullDateAndNullAges()
{
    cTestSession session;
    InsertPeople();
    Control().setAgeDate(QStringLiteral("01/01/2026"));
    Control().Update();
    frmOptions options;
    options.txtAgeDate->clear();
    options.cmdCalcAges->click();
    QVERIFY(SqlScalar(QStringLiteral("SELECT AgeDate FROM Cntrl")).isNull());
    QVERIFY(SqlScalar(QStringLiteral("SELECT Age FROM Master WHERE MasterId = 1")).isNull());
    QVERIFY(SqlScalar(QStringLiteral("SELECT Age FROM Master WHERE MasterId = 2")).isNull());
}

void TestFrmOptions::recalcAgesWorksOutAgesAtTheDate()
{
    cTestSession session;
    InsertPeople();
    frmOptions options;
    // On the birthday itself the age is still that of the day before.
    options.txtAgeDate->setText(QStringLiteral("01/09/2026"));
    options.cmdCalcAges->click();
    QCOMPARE(SqlScalar(QStringLiteral("SELECT Age FROM Master WHERE MasterId = 1")).toInt(), 15);
    QVERIFY(SqlScalar(QStringLiteral("SELECT Age FROM Master WHERE MasterId = 2")).isNull());
    options.txtAgeDate->setText(QStringLiteral("02/09/2026"));
    options.cmdCalcAges->click();
    QCOMPARE(SqlScalar(QStringLiteral("SELECT Age FROM Master WHERE MasterId = 1")).toInt(), 16);
}

void TestFrmOptions::cancelAfterRecalcAgesKeepsTheNewAges()
{
    cTestSession session;
    InsertPeople();
    frmOptions options;
    options.txtAgeDate->setText(QStringLiteral("02/09/2026"));
    options.txtMaxJuniorAge->setText(QStringLiteral("12"));
    options.cmdCalcAges->click();
    options.cmdCancel->click();
    QVERIFY(options.Cancelled);
    QCOMPARE(SqlScalar(QStringLiteral("SELECT Age FROM Master WHERE MasterId = 1")).toInt(), 16);
    QCOMPARE(TextOf(SqlScalar(QStringLiteral("SELECT AgeDate FROM Cntrl"))),
             QStringLiteral("2026-09-02"));
    QCOMPARE(Control().AgeDate(), QStringLiteral("02/09/2026"));
    // What only OK would have written is not kept.
    QCOMPARE(SqlScalar(QStringLiteral("SELECT MaxJuniorAge FROM Cntrl")).toInt(), 17);
}

void TestFrmOptions::changedSurnameCaseHoldsForTheSessionOnly()
{
    cTestSession session;
    frmOptions options;
    options.chkCase->setChecked(true);
    options.cmdOk->click();
    QCOMPARE(Control().SurnameCase(), qint16(1));
    QCOMPARE(SqlScalar(QStringLiteral("SELECT SurnameCase FROM Cntrl")).toInt(), 0);
}

void TestFrmOptions::closingTheWindowCancels()
{
    cTestSession session;
    frmOptions options;
    ShowActive(options);
    options.txtUD1->setText(QStringLiteral("Changed"));
    options.close();
    QVERIFY(options.Cancelled);
    QCOMPARE(TextOf(SqlScalar(QStringLiteral("SELECT UserDefined1 FROM Cntrl"))),
             QStringLiteral("User Defined 1"));
}

VELMORA_WIDGET_TEST_MAIN(TestFrmOptions)
#include "test_frm_options.moc"
