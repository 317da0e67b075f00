#include "base/progress.h"
#include "support/test_environment.h"
#include "ui/frm_msg.h"
#include "ui/frm_progress.h"
#include "ui/qt_interaction.h"

#include <QApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>

class TestSmallDialogs : public QObject
{
    Q_OBJECT

private slots:
    void progressWithMaximumZeroRunsToOne();
    void progressShowsTextAndValueAndCloses();
    void messageWindowShowsLongTextAndCloses();
    void messageWindowKeepsRoomForItsButton();
};

void TestSmallDialogs::progressWithMaximumZeroRunsToOne()
{
    cQtInteraction interaction;
    InstallInteraction(&interaction);
    Progress::Start(QStringLiteral("Copying"), 0);
    QCOMPARE(interaction.ProgressWindow().pnlProgress->minimum(), 0);
    QCOMPARE(interaction.ProgressWindow().pnlProgress->maximum(), 1);
    Progress::Terminate();
    InstallInteraction(nullptr);
}

void TestSmallDialogs::progressShowsTextAndValueAndCloses()
{
    cQtInteraction interaction;
    InstallInteraction(&interaction);
    Progress::Start(QStringLiteral("Sorting players for: Results"), 40);
    frmProgress &window = interaction.ProgressWindow();
    QVERIFY(window.isVisible());
    QCOMPARE(window.lblMsg->text(), QStringLiteral("Sorting players for: Results"));
    QCOMPARE(window.pnlProgress->value(), 0);
    QTest::qWait(120);
    Progress::Update(25);
    QCOMPARE(window.pnlProgress->value(), 25);
    // Updates that follow at once wait for the next redraw, but the last one shows.
    Progress::Update(30);
    QCOMPARE(window.pnlProgress->value(), 25);
    Progress::Update(40);
    QCOMPARE(window.pnlProgress->value(), 40);
    Progress::Terminate();
    QVERIFY(!window.isVisible());
    InstallInteraction(nullptr);
}

void TestSmallDialogs::messageWindowShowsLongTextAndCloses()
{
    cQtInteraction interaction;
    interaction.ShowLongText(QStringLiteral("Validate results"),
                             QStringLiteral("Line one\nLine two"));
    frmMsg *window = &interaction.MessageWindow();
    QVERIFY(window->isVisible());
    QVERIFY(window);
    QCOMPARE(window->windowTitle(), QStringLiteral("Validate results"));
    QCOMPARE(window->txtNotes->toPlainText(), QStringLiteral("Line one\nLine two"));
    QCOMPARE(window->cmdClose->text(), QStringLiteral("Close"));
    window->cmdClose->click();
    QVERIFY(!window->isVisible());
}

void TestSmallDialogs::messageWindowKeepsRoomForItsButton()
{
    frmMsg window;
    window.show();
    window.resize(10, 10);
    QVERIFY(window.width() > window.cmdClose->sizeHint().width());
    QVERIFY(window.height() > window.cmdClose->sizeHint().height());
}

VELMORA_WIDGET_TEST_MAIN(TestSmallDialogs)
#include "test_small_dialogs.moc"
