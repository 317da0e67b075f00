#pragma once

#include <QDialog>

class QLineEdit;
class QPushButton;

// Shown when there is no database: make a new empty one, import the data folder of
// the DOS predecessor, or leave the program.
class frmNewDb : public QDialog
{
    Q_OBJECT

public:
    explicit frmNewDb(QWidget *parent = nullptr);

    // True from the moment the dialog is made; only a command that goes on to a new
    // database clears it, so closing the window ends the program.
    bool Cancelled = true;

    QLineEdit *txtSelectDb;
    QPushButton *cmdNew;
    QPushButton *cmdBrowse;
    QPushButton *cmdCopy;
    QPushButton *cmdExit;

private:
    void cmdNew_Click();
    void cmdBrowse_Click();
    void cmdCopy_Click();
    void cmdExit_Click();
    // Tells why the file in the box can't be imported and puts the usual name back.
    void Refuse(const QString &text);
};
