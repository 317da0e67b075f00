#include "base/app_info.h"
#include "base/settings_store.h"
#include "database/sql.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/tournament.h"
#include "support/scripted_interaction.h"
#include "support/test_environment.h"
#include "ui/cntl_data_list.h"
#include "ui/cntl_master_list.h"
#include "ui/frm_about.h"
#include "ui/frm_main.h"
#include "ui/frm_master.h"
#include "ui/main_commands.h"

#include <QLineEdit>

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QTimer>
#include <QToolBar>

namespace {

QString Setting(const char *key)
{
    return GetSetting(QStringLiteral("Velmora! Software"), QStringLiteral("Velmora!"),
                      QString::fromLatin1(key), QStringLiteral("unset"));
}

void SavePosition(int left, int top, int width, int height)
{
    const QString application = QStringLiteral("Velmora! Software");
    const QString section = QStringLiteral("Velmora!");
    SaveSetting(application, section, QStringLiteral("MainLeft"), QString::number(left));
    SaveSetting(application, section, QStringLiteral("MainTop"), QString::number(top));
    SaveSetting(application, section, QStringLiteral("MainWidth"), QString::number(width));
    SaveSetting(application, section, QStringLiteral("MainHeight"), QString::number(height));
}

void ClearPosition()
{
    for (const char *key : {"MainLeft", "MainTop", "MainWidth", "MainHeight"})
        SaveSetting(QStringLiteral("Velmora! Software"), QStringLiteral("Velmora!"),
                    QString::fromLatin1(key), QString());
}

QStringList Captions(const QMenu *menu)
{
    QStringList captions;
    for (const QAction *action : menu->actions())
        captions.append(action->isSeparator() ? QStringLiteral("-") : action->text());
    return captions;
}

} // namespace

class TestFrmMain : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { ClearPosition(); }
    void defaultPositionComesFromTwips();
    void firstWindowGrowsToShowTheMasterView();
    void positionIsRestoredFromSettings();
    void closeSavesPositionInTwips();
    void closingWhileMaximisedKeepsTheLastNormalPosition();
    void menusCarryTheirCaptionsAndShortcuts();
    void masterViewIsOnScreenAtStart();
    void ctrlMShowsTheMasterView();
    void buttonBarItemTogglesTheBar();
    void aboutShowsTitleAndVersion();
    void systemInfoFallsBackToItsMessage();
    void exitClosesTheWindow();
    void commandsFollowTheOpenTournament();
};

void TestFrmMain::defaultPositionComesFromTwips()
{
    cTestSession session;
    {
        // The first time, the default grows to show the whole master view where the
        // screen has room, and never shrinks below it.
        frmMain window;
        const QSize room = window.screen()->availableGeometry().size();
        const QSize wanted = window.sizeHint().boundedTo(room);
        QCOMPARE(window.size(), QSize(12200 / 15, 8100 / 15).expandedTo(wanted));
        QCOMPARE(window.windowTitle(), QStringLiteral("Velmora!"));
        window.close();
    }
    // A size the organiser left is kept as it was, even a small one.
    SaveSetting(AppInfo::WindowSettingsApplication(), AppInfo::Title(), QStringLiteral("MainWidth"),
                QStringLiteral("9000"));
    SaveSetting(AppInfo::WindowSettingsApplication(), AppInfo::Title(),
                QStringLiteral("MainHeight"), QStringLiteral("6000"));
    frmMain window;
    QCOMPARE(window.size(), QSize(9000 / 15, 6000 / 15));
}

void TestFrmMain::firstWindowGrowsToShowTheMasterView()
{
    cTestSession session;
    frmMain window;
    const QSize defaultSize(12200 / 15, 8100 / 15);
    const QSize room = window.screen()->availableGeometry().size();
    if (room.width() <= defaultSize.width())
        QSKIP("needs a screen wider than the window's default size");
    QVERIFY(window.sizeHint().width() > defaultSize.width());
    QVERIFY(window.width() > defaultSize.width());
    QCOMPARE(window.size(), defaultSize.expandedTo(window.sizeHint().boundedTo(room)));
}

void TestFrmMain::positionIsRestoredFromSettings()
{
    cTestSession session;
    SavePosition(1500, 3000, 9000, 6000);
    frmMain window;
    QCOMPARE(window.pos(), QPoint(100, 200));
    QCOMPARE(window.size(), QSize(600, 400));
}

void TestFrmMain::closeSavesPositionInTwips()
{
    cTestSession session;
    frmMain window;
    window.show();
    window.move(40, 60);
    window.resize(700, 500);
    window.close();
    QCOMPARE(Setting("MainLeft"), QString::number(window.x() * 15));
    QCOMPARE(Setting("MainTop"), QString::number(window.y() * 15));
    QCOMPARE(Setting("MainWidth"), QStringLiteral("10500"));
    QCOMPARE(Setting("MainHeight"), QStringLiteral("7500"));
}

void TestFrmMain::closingWhileMaximisedKeepsTheLastNormalPosition()
{
    cTestSession session;
    SavePosition(1500, 3000, 9000, 6000);
    frmMain window;
    window.showMaximized();
    QTRY_VERIFY(window.isMaximized());
    window.close();
    QCOMPARE(Setting("MainLeft"), QStringLiteral("1500"));
    QCOMPARE(Setting("MainWidth"), QStringLiteral("9000"));
}

void TestFrmMain::menusCarryTheirCaptionsAndShortcuts()
{
    cTestSession session;
    frmMain window;
    QCOMPARE(window.mnuFile->title(), QStringLiteral("&File"));
    QCOMPARE(window.mnuTools->title(), QStringLiteral("&Tools"));
    QCOMPARE(window.mnuView->title(), QStringLiteral("&View"));
    QCOMPARE(window.mnuHelp->title(), QStringLiteral("&Help"));
    QVERIFY(Captions(window.mnuFile).contains(QStringLiteral("E&xit")));
    QVERIFY(Captions(window.mnuTools).contains(QStringLiteral("&Options...")));
    QVERIFY(Captions(window.mnuView).contains(QStringLiteral("&Master")));
    QVERIFY(Captions(window.mnuView).contains(QStringLiteral("&Button bar")));
    QCOMPARE(Captions(window.mnuHelp), QStringList{QStringLiteral("&About Velmora!...")});
    QCOMPARE(window.mnuViewPlayers->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_M));
    QVERIFY(window.mnuViewToolbar->isChecked());
    QCOMPARE(window.Command(QStringLiteral("mnuFileExit")), window.mnuFileExit);
    QCOMPARE(window.Command(QStringLiteral("mnuHelp")), window.mnuHelp->menuAction());
    QVERIFY(!window.Command(QStringLiteral("mnuNoSuchItem")));
    QCOMPARE(window.tbrPlayers->text(), QStringLiteral("Master"));
}

void TestFrmMain::masterViewIsOnScreenAtStart()
{
    cTestSession session;
    RunSql(
        QStringLiteral("INSERT INTO Master (MasterId, Surname) VALUES (1, 'Ames'), (2, 'Bell')"));
    frmMain window;
    window.show();
    QVERIFY(window.tbrPlayers->isChecked());
    auto *master = window.findChild<frmMaster *>();
    QVERIFY(master && master->isVisible());
    // The register opens on the search tab with nothing asked for; a letter shows its people.
    QCOMPARE(master->lstMaster->Tab(), QStringLiteral("?"));
    QCOMPARE(master->lstMaster->lstMaster->RowCount(), 0);
    master->lstMaster->SetTab(QStringLiteral("B"));
    QCOMPARE(master->lstMaster->lstMaster->SelName(), QStringLiteral("Bell, "));
}

void TestFrmMain::ctrlMShowsTheMasterView()
{
    cTestSession session;
    frmMain window;
    window.show();
    QApplication::setActiveWindow(&window);
    QVERIFY(QTest::qWaitForWindowActive(&window));
    window.tbrPlayers->setChecked(false);
    QTest::keyClick(&window, Qt::Key_M, Qt::ControlModifier);
    QVERIFY(window.tbrPlayers->isChecked());
}

void TestFrmMain::buttonBarItemTogglesTheBar()
{
    cTestSession session;
    frmMain window;
    window.show();
    QVERIFY(window.Toolbar->isVisible());
    window.mnuViewToolbar->trigger();
    QVERIFY(!window.mnuViewToolbar->isChecked());
    QVERIFY(!window.Toolbar->isVisible());
    window.mnuViewToolbar->trigger();
    QVERIFY(window.mnuViewToolbar->isChecked());
    QVERIFY(window.Toolbar->isVisible());
}

void TestFrmMain::aboutShowsTitleAndVersion()
{
    cTestSession session;
    frmAbout about;
    QCOMPARE(about.windowTitle(), QStringLiteral("About Velmora!"));
    QCOMPARE(about.lblVersion->text(), QStringLiteral("Version ") + AppInfo::VersionText());
    QCOMPARE(about.cmdOk->text(), QStringLiteral("Close"));
    QCOMPARE(about.cmdSysInfo->text(), QStringLiteral("System Info"));
    frmSplash splash;
    QCOMPARE(splash.lblVersion->text(), QStringLiteral("Version 1.0.0"));
}

void TestFrmMain::systemInfoFallsBackToItsMessage()
{
    cTestSession session;
    cScriptedInteraction seam;
    frmAbout about;
    about.cmdSysInfo->click();
    QCOMPARE(seam.CallsStartingWith(QStringLiteral("message|")),
             QStringList{QStringLiteral(
                 "message|plain|About Velmora!|System Information Is Unavailable At This Time")});
}

void TestFrmMain::exitClosesTheWindow()
{
    cTestSession session;
    frmMain window;
    window.show();
    window.mnuFileExit->trigger();
    QVERIFY(!window.isVisible());
}

void TestFrmMain::commandsFollowTheOpenTournament()
{
    cTestSession session;
    frmMain window;
    QAction *copy = window.mnuFileCopy;
    QAction *refresh = window.mnuTRefreshGrades;
    // Items of later windows are added by name; the routine acts on whatever exists.
    QAction *match = window.mnuTBCFMaster;
    QCOMPARE(match->text(), QStringLiteral("Match Players to BCF Master List"));

    SetMainCommands();
    QVERIFY(!copy->isEnabled());
    QVERIFY(!refresh->isEnabled());
    QVERIFY(!match->isEnabled());

    auto tournament = std::make_shared<cTournament>();
    tournament->setLocked(QStringLiteral("False"));
    Control().setTournament(tournament);
    RunSql(QStringLiteral("INSERT INTO BCFMast (Ref, Name) VALUES ('123456A', 'Ames, Jo')"));
    SetMainCommands();
    QVERIFY(copy->isEnabled());
    QVERIFY(refresh->isEnabled());
    QVERIFY(match->isEnabled());

    tournament->setLocked(QStringLiteral("True"));
    SetMainCommands();
    QVERIFY(copy->isEnabled());
    QVERIFY(!refresh->isEnabled());
    Control().setTournament(nullptr);
}

VELMORA_WIDGET_TEST_MAIN(TestFrmMain)
#include "test_frm_main.moc"
