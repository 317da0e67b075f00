#pragma once

#include <QDialog>

class QCheckBox;
class QLineEdit;
class QPushButton;
class QStatusBar;

// Edits the organiser's settings and recalculates the ages of the register.
class frmOptions : public QDialog
{
    Q_OBJECT

public:
    explicit frmOptions(QWidget *parent = nullptr);

    bool Cancelled = true;

    QLineEdit *txtAgeDate;
    QLineEdit *txtMaxJuniorAge;
    QLineEdit *txtBCFGradeChars;
    QLineEdit *txtMaxDisplayAge;
    QCheckBox *chkCase;
    QLineEdit *txtUD1;
    QLineEdit *txtUD2;
    QLineEdit *txtUD3;
    QLineEdit *txtUD4;
    QPushButton *cmdCalcAges;
    QPushButton *cmdOk;
    QPushButton *cmdCancel;
    QStatusBar *sbMsg;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void Fill();
    // The leaving rule of the age date: a text that is not empty and not a date is
    // refused with a beep and the focus stays. True when the text may stand.
    bool AcceptAgeDate();
    void cmdOk_Click();
    void cmdCancel_Click();
    void cmdCalcAges_Click();
    QLineEdit *AddField(const QString &name, const QString &help, int maxLength);
};
