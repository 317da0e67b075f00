#pragma once

#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;

// The small dialog in which the organiser picks the dBase file of a new list from
// the federation. The grading list and the club list use it with their own words.
class cLoadListDialog : public QDialog
{
    Q_OBJECT

public:
    // The file chosen, once the dialog has been left with OK.
    QString FileName() const { return fileName_; }
    // True unless the dialog was left with OK: a window closed by other means has
    // chosen nothing either.
    bool Cancelled = true;

    QLabel *lblPrompt;
    QLineEdit *txtSelectDb;
    QPushButton *cmdBrowse;
    QPushButton *cmdOk;
    QPushButton *cmdCancel;

protected:
    cLoadListDialog(const QString &objectName, const QString &title, const QString &prompt,
                    const QString &defaultFile, QWidget *parent);

private:
    void cmdBrowse_Click();
    void cmdOk_Click();
    void cmdCancel_Click();

    QString fileName_;
};
