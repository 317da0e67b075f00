#pragma once

#include <QDialog>

class QPushButton;

// Shown when there is no database: make a new empty one, or leave the program.
class frmNewDb : public QDialog
{
    Q_OBJECT

public:
    explicit frmNewDb(QWidget *parent = nullptr);

    // True from the moment the dialog is made; only a command that goes on to a new
    // database clears it, so closing the window ends the program.
    bool Cancelled = true;

    QPushButton *cmdNew;
    QPushButton *cmdExit;

private:
    void cmdNew_Click();
    void cmdExit_Click();
};
