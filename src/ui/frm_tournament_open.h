#pragma once

#include <QDialog>

class QPushButton;
class cntlDataList;

// The list of tournaments, newest first, from which one is opened, created, copied
// or deleted.
class frmTournamentOpen : public QDialog
{
    Q_OBJECT

public:
    // What the dialog ended in: opened, new, copy or delete.
    enum Mode { Opened = 0, New = 1, Copy = 3, Delete = 5 };

    explicit frmTournamentOpen(QWidget *parent = nullptr);

    int Action = Opened;
    bool Cancelled = true;

    cntlDataList *lstVelmora;
    QPushButton *cmdNew;
    QPushButton *cmdCopy;
    QPushButton *cmdDelete;
    QPushButton *cmdOk;
    QPushButton *cmdCancel;

private:
    void SetCommands();
    void cmdOk_Click();
    void cmdNew_Click();
    void cmdCopy_Click();
    void cmdDelete_Click();
};
