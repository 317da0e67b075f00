#pragma once

#include <QDialog>

class QPushButton;
class QRadioButton;

// Allocates the pins of the open tournament's entrants in one sweep, clears them and
// shows the check of the allocation.
class frmPlayerPins : public QDialog
{
    Q_OBJECT

public:
    // The caller is "Tournament" or "ListPlayer", the window that opened the dialog.
    explicit frmPlayerPins(const QString &caller, QWidget *parent = nullptr);

    QString Caller() const { return caller_; }

    QRadioButton *optOrder;
    QRadioButton *optRandom;
    QRadioButton *optGrade;
    QRadioButton *optName;
    QPushButton *cmdApply;
    QPushButton *cmdValidate;
    QPushButton *cmdClear;
    QPushButton *cmdClose;

signals:
    // The pins changed; the window that opened the dialog shows them again.
    void PinsChanged();

private:
    void cmdApply_Click();
    void cmdValidate_Click();
    void cmdClear_Click();
    void Refresh();

    QString caller_;
};
