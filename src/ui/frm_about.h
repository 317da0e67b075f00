#pragma once

#include <QDialog>
#include <QWidget>

class QLabel;
class QPushButton;

// The splash window shown while the program starts.
class frmSplash : public QWidget
{
    Q_OBJECT

public:
    explicit frmSplash(QWidget *parent = nullptr);

    QLabel *lblVersion;
};

// The program's title, version and maker.
class frmAbout : public QDialog
{
    Q_OBJECT

public:
    explicit frmAbout(QWidget *parent = nullptr);

    QLabel *lblVersion;
    QPushButton *cmdOk;
    QPushButton *cmdSysInfo;

private:
    void cmdSysInfo_Click();
};

// "Version " and the three version numbers of the program.
QString VersionCaption();
