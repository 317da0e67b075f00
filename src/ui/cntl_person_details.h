#pragma once

#include <QWidget>

#include <memory>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QStatusBar;
class cPersonRecord;

// One person of a register, shown or edited: used read-only on a register's window and
// for editing in its details dialog. Every box is limited to the size of its field,
// and dates and numbers are checked as the box is left, so nothing typed here can reach
// a refused write. The register of players has the player's fields too: gender, date
// of birth and age, club, school and the grading club with its picker; the form of a
// contact does without them, and their members stay null there.
class cntlPersonDetails : public QWidget
{
    Q_OBJECT

public:
    enum Mode : qint16 { ViewMode = 0, NewMode = 1, ChangeMode = 2, EditMode = 3 };

    qint16 DisplayMode() const { return displayMode_; }
    void setDisplayMode(qint16 mode) { displayMode_ = mode; }
    QStatusBar *StatusBar() const { return statusBar_; }
    void setStatusBar(QStatusBar *statusBar) { statusBar_ = statusBar; }

    // Fills the lists and shows the record, editable or read-only by the mode.
    void Display();
    // The surname is there and every date and number box holds what it may; if not,
    // tells why, puts the focus on the box and answers false.
    bool Valid();
    // Writes by the mode: adds the new person, writes the changed one or deletes.
    void Update();

    QLineEdit *txtId;
    QLineEdit *txtForename;
    QLineEdit *txtSurname;
    QLineEdit *txtAddress1;
    QLineEdit *txtAddress2;
    QLineEdit *txtAddress3;
    QLineEdit *txtAddress4;
    QLineEdit *txtPostCode;
    QLineEdit *txtPhone;
    QLineEdit *txtEMail;
    QComboBox *cmbGender = nullptr;
    QLineEdit *txtDOB = nullptr;
    QLineEdit *txtAge = nullptr;
    QComboBox *cmbClub = nullptr;
    QComboBox *cmbSchool = nullptr;
    QLineEdit *txtGradeCode = nullptr;
    QLineEdit *txtGradeClub = nullptr;
    QPushButton *cmdGradeClub = nullptr;
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
    // The id box takes the name of the register's id field.
    cntlPersonDetails(const char *idBoxName, bool playerFields, QWidget *parent);

    const std::shared_ptr<cPersonRecord> &Record() const { return record_; }
    void setRecord(std::shared_ptr<cPersonRecord> record) { record_ = std::move(record); }
    // An empty record of the register, for a new person.
    virtual std::shared_ptr<cPersonRecord> NewRecord() const = 0;

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void AddPlayerFields();
    void LayOut();
    bool Editing() const;
    void SetEditable(bool editable);
    void FillFrom(cPersonRecord &person) const;
    void ShowStatus(const QString &text);
    // Checks a box as it is left; false, with a beep and the box kept, when it fails.
    bool CheckField(QLineEdit *field);
    void cmdGradeClub_Click();

    const bool playerFields_;
    qint16 displayMode_ = ViewMode;
    std::shared_ptr<cPersonRecord> record_;
    QStatusBar *statusBar_ = nullptr;
    // The box whose text was refused as it was left, until it has the focus again.
    QObject *refusedBox_ = nullptr;
};
