#pragma once

#include <QWidget>

#include <memory>

class QPushButton;
class QTabWidget;
class cContact;
class cntlContactDetails;
class cntlMasterList;

// The register of contacts - arbiters, sponsors, helpers - a letter tab at a time, with
// the commands that add, change, show and delete a contact, and the details of the one
// selected.
class frmContact : public QWidget
{
    Q_OBJECT

public:
    explicit frmContact(QWidget *parent = nullptr);

    // Reads the list again, selects the contact of the id and shows them.
    void Reload(const QString &contactId);
    // The contact selected, an empty record when there is none.
    std::shared_ptr<cContact> Contact() const { return contact_; }

    cntlMasterList *lstContact;
    QPushButton *cmdNew;
    QPushButton *cmdUpdate;
    QPushButton *cmdDelete;
    QPushButton *cmdView;
    QTabWidget *tbContact;
    cntlContactDetails *cntlDetails;

private:
    void LoadSelected();
    void SetContactCommands();
    void cmdNew_Click();
    void cmdUpdate_Click();
    void cmdDelete_Click();
    void cmdView_Click();
    // After a dialog: the list afresh, the contact of the id selected and shown.
    void AfterChange(const QString &contactId);

    std::shared_ptr<cContact> contact_;
};
