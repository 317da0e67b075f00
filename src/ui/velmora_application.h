#pragma once

#include <QApplication>

// The application object. A fatal fault raised while the event loop runs (a failing
// database call, an unknown stored code) reaches the failure handler here: its
// message is shown and the run ends.
class cVelmoraApplication : public QApplication
{
    Q_OBJECT

public:
    cVelmoraApplication(int &argc, char **argv);

    bool notify(QObject *receiver, QEvent *event) override;

private:
    [[noreturn]] static void EndRunAfterFailure();
};
