// The tournament window on a full-sized congress, offscreen: 100,000 people in the
// register and a tournament of 500 entrants with 11 rounds of results. Prints the
// median of several timings for opening the tournament from the open dialog until
// its window is painted, adding one entrant from the register with ">>>" until the
// list shows it, and allocating pins by grade until the window shows them.

#include "bench_environment.h"
#include "bench_tournament.h"
#include "database/sql.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/players.h"
#include "session/tournament.h"
#include "ui/cntl_data_list.h"
#include "ui/cntl_master_list.h"
#include "ui/cntl_player_list.h"
#include "ui/frm_main.h"
#include "ui/frm_player_list.h"
#include "ui/frm_player_pins.h"
#include "ui/frm_tournament.h"
#include "ui/frm_tournament_open.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTableView>
#include <QTemporaryDir>

#include <cstdio>
#include <vector>

namespace {

constexpr int MasterRows = 100000;
constexpr int Entrants = 500;
constexpr int Rounds = 11;
constexpr int Runs = 7;

// People whose surnames spread over the 26 letters, after the entrants' own ids.
void FillRegister()
{
    cTransaction transaction;
    cPreparedSql insert(
        QStringLiteral("INSERT INTO Master (MasterId, Surname, Forename, Club, Code, Grade, GLett) "
                       "VALUES (?, ?, ?, ?, ?, ?, ?)"));
    const int first =
        int(SqlScalar(QStringLiteral("Select ifnull(max(MasterId), 0) From Master")).toLongLong()) +
        1;
    for (int id = first; id < first + MasterRows; ++id) {
        const QChar initial(u'A' + id % 26);
        insert.Run({id, QString(initial + QStringLiteral("surname") + QString::number(id % 997)),
                    QString(QStringLiteral("Forename") + QString::number(id)),
                    QStringLiteral("Anytown"), QString(QString::number(100000 + id) + u'A'),
                    80 + id % 150, QStringLiteral("B")});
    }
    transaction.Commit();
}

double Elapsed(const QElapsedTimer &timer)
{
    return double(timer.nsecsElapsed()) / 1e6;
}

} // namespace

int main(int argc, char **argv)
{
    QTemporaryDir root;
    if (!root.isValid()) {
        std::fprintf(stderr, "No temporary folder could be made.\n");
        return 1;
    }
    IsolateEnvironment(root.path());
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);

    OpenFreshDatabase(root.path() + QStringLiteral("/data"));
    const QString id = BuildBenchTournament(Entrants, Rounds);
    FillRegister();
    Control().setTournament(nullptr);

    frmMain window;
    window.resize(1200, 800);
    window.show();
    QApplication::processEvents();

    std::vector<double> open;
    for (int run = 0; run < Runs; ++run) {
        frmTournamentOpen dialog(&window);
        dialog.show();
        dialog.lstVelmora->setSelKey(id);
        QApplication::processEvents();
        QElapsedTimer timer;
        timer.start();
        dialog.cmdOk->click();
        window.ShowTournamentView(true);
        window.repaint();
        open.push_back(Elapsed(timer));
    }
    const int shown = window.TournamentWindow()->lstPlayer->RowCount();

    std::vector<double> add;
    {
        frmPlayerList desk(&window);
        desk.show();
        desk.lstMaster->tabChar->setCurrentIndex(17);
        QApplication::processEvents();
        const int registerRows = desk.lstMaster->lstMaster->RowCount();
        QTableView *grid = desk.lstMaster->lstMaster->lstData;
        int row = 0;
        for (int run = 0; run < Runs; ++run) {
            do
                desk.lstMaster->lstMaster->setSelKey(
                    desk.lstMaster->lstMaster->Model()->Cell(row++, cDataListModel::KeyColumn));
            while (!desk.cmdAdd->isEnabled() && row < registerRows);
            QApplication::processEvents();
            QElapsedTimer timer;
            timer.start();
            desk.cmdAdd->click();
            desk.lstPlayer->repaint();
            add.push_back(Elapsed(timer));
        }
        std::printf("tournament_window: register tab of %d of %d people, grid %d\n", registerRows,
                    MasterRows, grid->model()->rowCount());
    }

    std::vector<double> pins;
    for (int run = 0; run < Runs; ++run) {
        frmPlayerPins dialog(QStringLiteral("Tournament"), &window);
        dialog.show();
        dialog.optGrade->setChecked(true);
        QApplication::processEvents();
        QElapsedTimer timer;
        timer.start();
        dialog.cmdApply->click();
        window.repaint();
        pins.push_back(Elapsed(timer));
    }

    std::printf("tournament_window: %d entrants shown, %d rounds, median of %d runs; goals "
                "100, 20 and 50 ms\n",
                shown, Rounds, Runs);
    std::printf("open tournament: %.1f ms\n", Median(open));
    std::printf("add entrant: %.1f ms\n", Median(add));
    std::printf("allocate pins: %.1f ms\n", Median(pins));

    window.close();
    Control().setTournament(nullptr);
    DestroySessionObjects();
    return 0;
}
