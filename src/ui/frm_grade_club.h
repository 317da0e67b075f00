#pragma once

#include <QDialog>

class QPushButton;
class cntlDataList;

// Picks a club from the club list for a person's grading club; Clear gives no club.
class frmGradeClub : public QDialog
{
    Q_OBJECT

public:
    explicit frmGradeClub(QWidget *parent = nullptr);

    // The code picked, "" for Clear.
    QString Code() const { return code_; }
    bool Cancelled = true;

    cntlDataList *lstClub;
    QPushButton *cmdOk;
    QPushButton *cmdClear;
    QPushButton *cmdCancel;

private:
    void cmdOk_Click();

    QString code_;
};
