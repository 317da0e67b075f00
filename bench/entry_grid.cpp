// The pairing and result grid on a round of 250 boards in a tournament of 500 entrants
// and 11 rounds, offscreen: opening the window until the grid is painted, one key in a
// pin cell until the entrant's name is shown, and OK until the round is stored and the
// tournament recalculated. Prints each figure as "label: value ms".

#include "bench_environment.h"
#include "bench_tournament.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/tournament.h"
#include "ui/cntl_result_list.h"
#include "ui/frm_pairings.h"

#include <QAbstractItemModel>
#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <memory>
#include <vector>

namespace {

constexpr int Entrants = 500;
constexpr int Rounds = 11;
constexpr int Opens = 10;
constexpr int PinKeys = 1000;

double Milliseconds(const QElapsedTimer &timer)
{
    return double(timer.nsecsElapsed()) / 1e6;
}

// The processor time of this thread: on a loaded machine a key can wait for the
// processor longer than it works, and this figure tells the two apart.
double ThreadMilliseconds()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return double(now.tv_sec) * 1e3 + double(now.tv_nsec) / 1e6;
}

// The window opened and its grid painted, as the person first sees it.
std::unique_ptr<frmPairings> OpenWindow()
{
    auto window = std::make_unique<frmPairings>();
    window->show();
    window->lstResults->lstData->viewport()->repaint();
    return window;
}

// A key pressed and released on the widget, as the keyboard delivers it.
void Press(QWidget *widget, int key, const QString &text = QString())
{
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(widget, &press);
    QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier, text);
    QApplication::sendEvent(widget, &release);
}

void Type(QWidget *widget, const QString &text)
{
    for (const QChar c : text)
        Press(widget, c.unicode(), QString(c));
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
    BuildBenchTournament(Entrants, Rounds);
    cTournament &tournament = *Control().Tournament();
    tournament.setCurrRound(QString::number(Rounds));
    tournament.Update();

    std::printf("entry grid: round %d of %d, %d boards, %d entrants, offscreen; goals: open "
                "grid 50 ms, pin key median 2 ms and worst 5 ms, store round 100 ms\n",
                Rounds, Rounds, Entrants / 2, Entrants);

    std::vector<double> opens;
    for (int run = 0; run < Opens; ++run) {
        QElapsedTimer timer;
        timer.start();
        auto window = OpenWindow();
        opens.push_back(Milliseconds(timer));
        window->close();
    }

    // The pin key: a pin typed into White's cell of a board, then the key that
    // leaves it in place (Enter), timed until the name is in its cell.
    std::vector<double> pinKeys;
    std::vector<double> pinKeysWorking;
    {
        auto window = OpenWindow();
        QApplication::setActiveWindow(window.get());
        QApplication::processEvents();
        QLineEdit *txtInp = window->lstResults->txtInp;
        const QAbstractItemModel *grid = window->lstResults->lstData->model();
        Press(txtInp, Qt::Key_Tab);
        for (int key = 0; key < PinKeys; ++key) {
            const int pin = key % Entrants + 1;
            txtInp->selectAll();
            Type(txtInp, QString::number(pin));
            QElapsedTimer timer;
            const double working = ThreadMilliseconds();
            timer.start();
            Press(txtInp, Qt::Key_Return, QStringLiteral("\r"));
            const QString name = grid->index(0, 3).data().toString();
            pinKeys.push_back(Milliseconds(timer));
            pinKeysWorking.push_back(ThreadMilliseconds() - working);
            if (name.isEmpty()) {
                std::fprintf(stderr, "The name of pin %d was not shown.\n", pin);
                return 1;
            }
        }
        window->cmdCancel->click();
    }

    std::vector<double> stores;
    for (int run = 0; run < Opens; ++run) {
        auto window = OpenWindow();
        QElapsedTimer timer;
        timer.start();
        window->cmdOk->click();
        QApplication::processEvents();
        stores.push_back(Milliseconds(timer));
    }

    std::printf("open grid: %.2f ms\n", Median(opens));
    std::printf("pin key median: %.3f ms\n", Median(pinKeys));
    std::printf("pin key worst: %.3f ms\n", *std::max_element(pinKeys.begin(), pinKeys.end()));
    std::printf("pin key worst, processor time only: %.3f ms\n",
                *std::max_element(pinKeysWorking.begin(), pinKeysWorking.end()));
    std::printf("store round: %.2f ms\n", Median(stores));
    Control().setTournament(nullptr);
    DestroySessionObjects();
    return 0;
}
