#pragma once

#include <QDialog>

#include <memory>

class QLabel;
class QPushButton;
class QStatusBar;
class cMaster;
class cntlMasterDetails;

// The dialog that adds, changes, shows or deletes one person of the register.
class frmMasterDetails : public QDialog
{
    Q_OBJECT

public:
    // Mode 0 view, 1 new, 2 change, 5 delete; the record is none for a new person.
    frmMasterDetails(qint16 mode, std::shared_ptr<cMaster> master, QWidget *parent = nullptr);

    bool Cancelled = true;
    // The record written, after OK.
    std::shared_ptr<cMaster> Master() const;

    cntlMasterDetails *cntlDetails;
    QLabel *lblMsg;
    QPushButton *cmdOk;
    QPushButton *cmdCancel;
    QStatusBar *sbMsg;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void cmdOk_Click();
};
