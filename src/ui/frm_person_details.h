#pragma once

#include <QDialog>

class QLabel;
class QPushButton;
class QStatusBar;
class cntlPersonDetails;

// The dialog that adds, changes, shows or deletes one person of a register, around the
// details form of that register.
class frmPersonDetails : public QDialog
{
    Q_OBJECT

public:
    bool Cancelled = true;

    QLabel *lblMsg;
    QPushButton *cmdOk;
    QPushButton *cmdCancel;
    QStatusBar *sbMsg;

protected:
    // Mode 0 view, 1 new, 2 change, 5 delete. The warning is shown beside the commands
    // when deleting.
    frmPersonDetails(qint16 mode, cntlPersonDetails *details, const QString &title,
                     const QString &deleteWarning, QWidget *parent);
    cntlPersonDetails *Details() const { return details_; }
    // Shows the record the form was given and puts the focus where the mode wants it.
    void Start();

    // After the write: what the register's window is to know of the record.
    virtual void Written() {}

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void cmdOk_Click();

    qint16 mode_;
    cntlPersonDetails *details_;
};
