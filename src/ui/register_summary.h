#pragma once

#include <QWidget>

class QLabel;

// What the master view shows until the register window is built: how many people
// the register holds, read afresh each time the view comes on screen. It offers no
// command, so nothing on it can be mistaken for the register's own window.
class cRegisterSummary : public QWidget
{
    Q_OBJECT

public:
    explicit cRegisterSummary(QWidget *parent = nullptr);

    void Refresh();
    QLabel *lblCount;

protected:
    void showEvent(QShowEvent *event) override;
};
