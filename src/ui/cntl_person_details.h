#pragma once

#include <QWidget>

#include <memory>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QStatusBar;
class cMaster;

// One person of the register, shown or edited: used read-only on the master window
// and for editing in the details dialog. Every box is limited to the size of its
// field, and dates and numbers are checked as the box is left, so nothing typed here
// can reach a refused write.
class cntlMasterDetails : public QWidget
{
    Q_OBJECT

public:
    enum Mode : qint16 { ViewMode = 0, NewMode = 1, ChangeMode = 2, EditMode = 3 };

    explicit cntlMasterDetails(QWidget *parent = nullptr);

    qint16 DisplayMode() const { return displayMode_; }
    void setDisplayMode(qint16 mode) { displayMode_ = mode; }
    std::shared_ptr<cMaster> Master() const { return master_; }
    void setMaster(std::shared_ptr<cMaster> master) { master_ = std::move(master); }
    QStatusBar *StatusBar() const { return statusBar_; }
    void setStatusBar(QStatusBar *statusBar) { statusBar_ = statusBar; }

    // Fills the lists and shows the record, editable or read-only by the mode.
    void Display();
    // The surname is there and every date and number box holds what it may; if not,
    // tells why, puts the focus on the box and answers false.
    bool Valid();
    // Writes by the mode: adds the new person, writes the changed one or deletes.
    void Update();

    QLineEdit *txtMasterId;
    QLineEdit *txtForename;
    QLineEdit *txtSurname;
    QLineEdit *txtAddress1;
    QLineEdit *txtAddress2;
    QLineEdit *txtAddress3;
    QLineEdit *txtAddress4;
    QLineEdit *txtPostCode;
    QLineEdit *txtPhone;
    QLineEdit *txtEMail;
    QComboBox *cmbGender;
    QLineEdit *txtDOB;
    QLineEdit *txtAge;
    QComboBox *cmbClub;
    QComboBox *cmbSchool;
    QLineEdit *txtGradeCode;
    QLineEdit *txtGradeClub;
    QPushButton *cmdGradeClub;
    QLineEdit *txtUnion;
    QLineEdit *txtNation;
    QLineEdit *txtGMTitle;
    QLineEdit *txtGrade;
    QComboBox *cmbGLett;
    QLineEdit *txtRGrade;
    QComboBox *cmbRLett;
    QLineEdit *txtELO;
    QLineEdit *txtCode;
    QLabel *lblUD[4];
    QComboBox *cmbUD[4];

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool Editing() const;
    void SetEditable(bool editable);
    void FillFrom(cMaster &master) const;
    void ShowStatus(const QString &text);
    // Checks a box as it is left; false, with a beep and the box kept, when it fails.
    bool CheckField(QLineEdit *field);
    void cmdGradeClub_Click();

    qint16 displayMode_ = ViewMode;
    std::shared_ptr<cMaster> master_;
    QStatusBar *statusBar_ = nullptr;
    // The box whose text was refused as it was left, until it has the focus again.
    QObject *refusedBox_ = nullptr;
};
