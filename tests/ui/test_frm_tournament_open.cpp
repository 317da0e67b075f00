#include "database/sql.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/player.h"
#include "session/players.h"
#include "session/results.h"
#include "session/tournament.h"
#include "support/scripted_interaction.h"
#include "support/test_environment.h"
#include "support/tournament_fixture.h"
#include "support/widget_driving.h"
#include "ui/cntl_data_list.h"
#include "ui/cntl_tournament.h"
#include "ui/frm_tournament_details.h"
#include "ui/frm_tournament_open.h"

#include <QApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTest>

namespace {

std::shared_ptr<cTournament> Dated(const QString &title, const QString &from, const QString &to)
{
    auto tournament = OpenNewTournament(title);
    tournament->setTDate(from);
    tournament->setTEnd(to);
    tournament->Update();
    return tournament;
}

QString Cell(const frmTournamentOpen &dialog, int row, int column)
{
    return dialog.lstVelmora->Model()->Cell(row, column);
}

void SelectRowOf(frmTournamentOpen &dialog, const QString &id)
{
    dialog.lstVelmora->setSelKey(id);
    QCOMPARE(dialog.lstVelmora->SelKey(), id);
}

} // namespace

class TestFrmTournamentOpen : public QObject
{
    Q_OBJECT

private slots:
    void listsTournamentsNewestFirstWithTheOpenOneSelected();
    void aTournamentWithoutEndDateShowsOneDate();
    void secondClickOnDatesGivesOldestFirst();
    void emptyListOffersOnlyNewAndCancel();
    void openLoadsEntrantsGamesAndScores();
    void newCreatesATournamentAndEndsInModeNew();
    void deletingAnotherTournamentClosesTheOpenOne();
    void cancelledDeleteKeepsTheOpenTournamentWhole();
    void deleteWorksWithNoTournamentOpen();
    void copyWithNoTournamentOpenMakesTheCopy();
    void cancelledCopyKeepsTheOpenTournamentWhole();
    void cancelEndsCancelled();
};

void TestFrmTournamentOpen::listsTournamentsNewestFirstWithTheOpenOneSelected()
{
    cTestSession session;
    cScriptedInteraction seam;
    Dated(QStringLiteral("Old"), QStringLiteral("01/01/2020"), QStringLiteral("02/01/2020"));
    const auto newest =
        Dated(QStringLiteral("New"), QStringLiteral("01/06/2026"), QStringLiteral("02/06/2026"));
    const auto middle =
        Dated(QStringLiteral("Mid"), QStringLiteral("01/06/2023"), QStringLiteral("03/06/2023"));
    middle->setTourn(QStringLiteral("Open"));
    middle->Update();
    frmTournamentOpen dialog;
    ShowActive(dialog);
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Open Tournament"));
    QCOMPARE(dialog.cmdOk->text(), QStringLiteral("Open"));
    QCOMPARE(Cell(dialog, 0, cDataListModel::TitleColumn), QStringLiteral("New: "));
    QCOMPARE(Cell(dialog, 1, cDataListModel::TitleColumn), QStringLiteral("Mid: Open"));
    QCOMPARE(Cell(dialog, 1, cDataListModel::DatesColumn),
             QStringLiteral("01/06/2023 - 03/06/2023"));
    QCOMPARE(Cell(dialog, 2, cDataListModel::TitleColumn), QStringLiteral("Old: "));
    // The open tournament (the last made) is selected.
    QCOMPARE(dialog.lstVelmora->SelKey(), middle->TournId());
    QVERIFY(dialog.cmdOk->isEnabled());
    QVERIFY(dialog.cmdCopy->isEnabled());
    QVERIFY(dialog.cmdDelete->isEnabled());
}

void TestFrmTournamentOpen::aTournamentWithoutEndDateShowsOneDate()
{
    cTestSession session;
    Dated(QStringLiteral("One day"), QStringLiteral("05/05/2025"), QString());
    frmTournamentOpen dialog;
    QCOMPARE(Cell(dialog, 0, cDataListModel::DatesColumn), QStringLiteral("05/05/2025"));
}

void TestFrmTournamentOpen::secondClickOnDatesGivesOldestFirst()
{
    cTestSession session;
    const auto old =
        Dated(QStringLiteral("Old"), QStringLiteral("01/01/2020"), QStringLiteral("02/01/2020"));
    Dated(QStringLiteral("New"), QStringLiteral("01/06/2026"), QStringLiteral("02/06/2026"));
    frmTournamentOpen dialog;
    ShowActive(dialog);
    SelectRowOf(dialog, old->TournId());
    dialog.lstVelmora->ClickHeading(cDataListModel::DatesColumn);
    QCOMPARE(Cell(dialog, 0, cDataListModel::TitleColumn), QStringLiteral("New: "));
    dialog.lstVelmora->ClickHeading(cDataListModel::DatesColumn);
    QCOMPARE(Cell(dialog, 0, cDataListModel::TitleColumn), QStringLiteral("Old: "));
    QCOMPARE(dialog.lstVelmora->SelKey(), old->TournId());
}

void TestFrmTournamentOpen::emptyListOffersOnlyNewAndCancel()
{
    cTestSession session;
    frmTournamentOpen dialog;
    ShowActive(dialog);
    QCOMPARE(dialog.lstVelmora->SelKey(), QString());
    QVERIFY(!dialog.cmdOk->isEnabled());
    QVERIFY(!dialog.cmdCopy->isEnabled());
    QVERIFY(!dialog.cmdDelete->isEnabled());
    QVERIFY(dialog.cmdNew->isEnabled());
    QVERIFY(dialog.cmdCancel->isEnabled());
}

void TestFrmTournamentOpen::openLoadsEntrantsGamesAndScores()
{
    cTestSession session;
    cScriptedInteraction seam;
    const auto stored = OpenNewTournament(QStringLiteral("Stored"));
    const auto white = AddEntrant(QStringLiteral("Ames"), QStringLiteral("Jo"));
    const auto black = AddEntrant(QStringLiteral("Best"), QStringLiteral("Al"));
    AddGame(1, 1, *white, *black);
    Control().setTournament(nullptr);
    frmTournamentOpen dialog;
    ShowActive(dialog);
    dialog.lstVelmora->setSelKey(dialog.lstVelmora->Model()->Cell(0, cDataListModel::KeyColumn));
    QTest::mouseClick(dialog.cmdOk, Qt::LeftButton);
    QVERIFY(!dialog.Cancelled);
    QCOMPARE(dialog.Action, int(frmTournamentOpen::Opened));
    const auto open = Control().Tournament();
    QVERIFY(open);
    QCOMPARE(open->TournId(), stored->TournId());
    QCOMPARE(open->Players().Count(), 2);
    QCOMPARE(open->Players().item(white->PlayerId())->Score(), QStringLiteral("1"));
}

void TestFrmTournamentOpen::newCreatesATournamentAndEndsInModeNew()
{
    cTestSession session;
    cScriptedInteraction seam;
    frmTournamentOpen dialog;
    ShowActive(dialog);
    bool shown = false;
    WhenModalShows<frmTournamentDetails>(
        [](frmTournamentDetails *details) {
            QCOMPARE(details->Mode(), int(cntlTournament::New));
            ReplaceText(details->tournamentControl->txtTitle, QStringLiteral("Fresh"));
            QTest::mouseClick(details->cmdOk, Qt::LeftButton);
        },
        &shown);
    QTest::mouseClick(dialog.cmdNew, Qt::LeftButton);
    QVERIFY(shown);
    QVERIFY(!dialog.Cancelled);
    QCOMPARE(dialog.Action, int(frmTournamentOpen::New));
    QCOMPARE(Control().Tournament()->Title(), QStringLiteral("Fresh"));
}

void TestFrmTournamentOpen::deletingAnotherTournamentClosesTheOpenOne()
{
    cTestSession session;
    cScriptedInteraction seam;
    const auto other = OpenNewTournament(QStringLiteral("Other"));
    const auto open = OpenNewTournament(QStringLiteral("Open one"));
    frmTournamentOpen dialog;
    ShowActive(dialog);
    SelectRowOf(dialog, other->TournId());
    seam.QueueAnswer(true);
    WhenModalShows<frmTournamentDetails>(
        [](frmTournamentDetails *details) {
            QCOMPARE(details->Mode(), int(cntlTournament::Remove));
            QTest::mouseClick(details->cmdOk, Qt::LeftButton);
        },
        nullptr);
    QTest::mouseClick(dialog.cmdDelete, Qt::LeftButton);
    QVERIFY(!dialog.Cancelled);
    QCOMPARE(dialog.Action, int(frmTournamentOpen::Delete));
    QVERIFY(!Control().Tournament());
    QCOMPARE(RowCount(QStringLiteral("Velmora")), 1);
    QCOMPARE(SqlScalar(QStringLiteral("Select Title From Velmora")).toString(),
             QStringLiteral("Open one"));
}

void TestFrmTournamentOpen::cancelledDeleteKeepsTheOpenTournamentWhole()
{
    cTestSession session;
    cScriptedInteraction seam;
    const auto other = OpenNewTournament(QStringLiteral("Other"));
    const auto open = OpenNewTournament(QStringLiteral("Open one"));
    AddEntrant(QStringLiteral("Ames"), QStringLiteral("Jo"));
    frmTournamentOpen dialog;
    ShowActive(dialog);
    SelectRowOf(dialog, other->TournId());
    WhenModalShows<frmTournamentDetails>(
        [](frmTournamentDetails *details) {
            QTest::mouseClick(details->cmdCancel, Qt::LeftButton);
        },
        nullptr);
    QTest::mouseClick(dialog.cmdDelete, Qt::LeftButton);
    QVERIFY(dialog.Cancelled);
    QCOMPARE(Control().Tournament(), open);
    QCOMPARE(open->Players().Count(), 1);
    QCOMPARE(RowCount(QStringLiteral("Velmora")), 2);
}

void TestFrmTournamentOpen::deleteWorksWithNoTournamentOpen()
{
    cTestSession session;
    cScriptedInteraction seam;
    OpenNewTournament(QStringLiteral("Doomed"));
    Control().setTournament(nullptr);
    frmTournamentOpen dialog;
    ShowActive(dialog);
    dialog.lstVelmora->setSelKey(dialog.lstVelmora->Model()->Cell(0, cDataListModel::KeyColumn));
    seam.QueueAnswer(true);
    WhenModalShows<frmTournamentDetails>(
        [](frmTournamentDetails *details) { QTest::mouseClick(details->cmdOk, Qt::LeftButton); },
        nullptr);
    QTest::mouseClick(dialog.cmdDelete, Qt::LeftButton);
    QVERIFY(!dialog.Cancelled);
    QVERIFY(!Control().Tournament());
    QCOMPARE(RowCount(QStringLiteral("Velmora")), 0);
    QCOMPARE(seam.CallsStartingWith(QStringLiteral("ask|")),
             QStringList{QStringLiteral("ask|Velmora!|Do you  want to delete this Tournament?")});
}

void TestFrmTournamentOpen::copyWithNoTournamentOpenMakesTheCopy()
{
    cTestSession session;
    cScriptedInteraction seam;
    const auto source = OpenNewTournament(QStringLiteral("Source"));
    AddEntrant(QStringLiteral("Ames"), QStringLiteral("Jo"));
    Control().setTournament(nullptr);
    frmTournamentOpen dialog;
    ShowActive(dialog);
    dialog.lstVelmora->setSelKey(dialog.lstVelmora->Model()->Cell(0, cDataListModel::KeyColumn));
    WhenModalShows<frmTournamentDetails>(
        [](frmTournamentDetails *details) {
            QCOMPARE(details->tournamentControl->txtTitle->text(),
                     QStringLiteral("Copy of Source"));
            QTest::mouseClick(details->cmdOk, Qt::LeftButton);
        },
        nullptr);
    QTest::mouseClick(dialog.cmdCopy, Qt::LeftButton);
    QVERIFY(!dialog.Cancelled);
    QCOMPARE(dialog.Action, int(frmTournamentOpen::Copy));
    const auto copy = Control().Tournament();
    QVERIFY(copy->TournId() != source->TournId());
    QCOMPARE(copy->Players().Count(), 0);
    QCOMPARE(RowCount(QStringLiteral("Player")), 1);
}

void TestFrmTournamentOpen::cancelledCopyKeepsTheOpenTournamentWhole()
{
    cTestSession session;
    cScriptedInteraction seam;
    const auto source = OpenNewTournament(QStringLiteral("Source"));
    const auto open = OpenNewTournament(QStringLiteral("Open one"));
    AddEntrant(QStringLiteral("Ames"), QStringLiteral("Jo"));
    frmTournamentOpen dialog;
    ShowActive(dialog);
    SelectRowOf(dialog, source->TournId());
    WhenModalShows<frmTournamentDetails>(
        [](frmTournamentDetails *details) {
            QTest::mouseClick(details->cmdCancel, Qt::LeftButton);
        },
        nullptr);
    QTest::mouseClick(dialog.cmdCopy, Qt::LeftButton);
    QVERIFY(dialog.Cancelled);
    QCOMPARE(Control().Tournament(), open);
    QCOMPARE(open->Players().Count(), 1);
    QCOMPARE(RowCount(QStringLiteral("Velmora")), 2);
}

void TestFrmTournamentOpen::cancelEndsCancelled()
{
    cTestSession session;
    OpenNewTournament(QStringLiteral("Any"));
    frmTournamentOpen dialog;
    ShowActive(dialog);
    QTest::keyClick(&dialog, Qt::Key_Escape);
    QVERIFY(dialog.Cancelled);
    QVERIFY(!dialog.isVisible());
}

VELMORA_WIDGET_TEST_MAIN(TestFrmTournamentOpen)
#include "test_frm_tournament_open.moc"
