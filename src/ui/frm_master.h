#pragma once

#include <QWidget>

class QPushButton;
class QTabWidget;
class cntlMasterDetails;
class cntlMasterList;
class cntlPlayerHist;

// The master window: the register of players, a letter tab at a time, with the
// commands that add, change, show, delete and match a person, and the details and
// history of the person selected.
class frmMaster : public QWidget
{
    Q_OBJECT

public:
    explicit frmMaster(QWidget *parent = nullptr);
    ~frmMaster() override;

    // The master window of the run, or none.
    static frmMaster *Instance();

    // Reads the list again, selects the person of the id and shows them.
    void Reload(const QString &masterId);
    // Shows the session's current person in the tab on view.
    void DisplayMasterTab();

    cntlMasterList *lstMaster;
    QPushButton *cmdNew;
    QPushButton *cmdUpdate;
    QPushButton *cmdDelete;
    QPushButton *cmdView;
    QPushButton *cmdMatch;
    QTabWidget *tbMaster;
    cntlMasterDetails *cntlDetails;
    cntlPlayerHist *cntlHist;

private:
    void lstMaster_SelectionChanged();
    void LoadSelected();
    void cmdNew_Click();
    void cmdUpdate_Click();
    void cmdDelete_Click();
    void cmdView_Click();
    void cmdMatch_Click();
    // After a dialog: the list afresh, the person of the id selected and shown.
    void AfterChange(const QString &masterId);
};

// Enables the commands of the master window by the session's current person and
// whether a grading list is loaded, then those of the main window.
void SetMasterCommands();
