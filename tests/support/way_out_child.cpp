// The program's whole run, as main() runs it, with a hand that leaves it one way:
//
//   velmora_way_out_child new-db-exit   Exit in the New Database dialog
//   velmora_way_out_child exit          File, Exit in the main window
//   velmora_way_out_child close         the main window's close
//   velmora_way_out_child fault         a fatal fault while the event loop runs
//
// Any message box on the way is answered with its default button.
#include "base/fatal_fault.h"
#include "ui/frm_main.h"
#include "ui/program.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include <cstring>

namespace {

const char *wayOut = "";

void TakeTheWayOut()
{
    auto *hand = new QTimer(QCoreApplication::instance());
    hand->setInterval(50);
    QObject::connect(hand, &QTimer::timeout, [] {
        static bool taken = false;
        QWidget *modal = QApplication::activeModalWidget();
        if (auto *box = qobject_cast<QMessageBox *>(modal)) {
            box->accept();
            return;
        }
        if (modal && modal->objectName() == u"frmNewDb") {
            if (std::strcmp(wayOut, "new-db-exit") == 0)
                if (auto *exit = modal->findChild<QPushButton *>(QStringLiteral("cmdExit")))
                    exit->click();
            return;
        }
        frmMain *window = frmMain::Instance();
        if (taken || !window || !window->isVisible())
            return;
        taken = true;
        if (std::strcmp(wayOut, "exit") == 0)
            window->Command(QStringLiteral("mnuFileExit"))->trigger();
        else if (std::strcmp(wayOut, "close") == 0)
            window->close();
        else if (std::strcmp(wayOut, "fault") == 0)
            QTimer::singleShot(0, window, [] {
                RaiseFatal(QStringLiteral("Velmora! database"), FaultNumber::Database,
                           QStringLiteral("disk I/O error"));
            });
    });
    hand->start();
}

} // namespace

int main(int argc, char **argv)
{
    if (argc > 1)
        wayOut = argv[1];
    qAddPreRoutine(TakeTheWayOut);
    return RunProgram(argc, argv);
}
