#include "ui/frm_contact.h"

#include "register/contact.h"
#include "ui/cntl_contact_details.h"
#include "ui/cntl_master_list.h"
#include "ui/command_button.h"
#include "ui/data_list_model.h"
#include "ui/frm_contact_details.h"
#include "ui/register_window_layout.h"

#include <QPushButton>
#include <QTabWidget>

frmContact::frmContact(QWidget *parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("frmContact"));
    setWindowTitle(tr("Contacts"));
    lstContact = new cntlMasterList(this);
    lstContact->setObjectName(QStringLiteral("lstContact"));
    lstContact->setDisplayType(qint32(DataListKind::Contacts));
    cmdNew = NewCommand(this, "cmdNew", tr("&New"));
    cmdUpdate = NewCommand(this, "cmdUpdate", tr("&Update"));
    cmdDelete = NewCommand(this, "cmdDelete", tr("&Delete"));
    // Alt+V stays with the main window's View menu.
    cmdView = NewCommand(this, "cmdView", tr("V&iew"));
    tbContact = new QTabWidget(this);
    tbContact->setObjectName(QStringLiteral("tbContact"));
    cntlDetails = new cntlContactDetails;
    AddScrollingTab(tbContact, cntlDetails, tr("Details"));
    // The list holds names alone, and the details fit beside it in the main window's
    // first size.
    LayOutRegisterWindow(this, lstContact, 1, {cmdNew, cmdUpdate, cmdDelete, cmdView}, tbContact,
                         2);

    connect(lstContact, &cntlMasterList::SelectionChanged, this, [this] {
        LoadSelected();
        SetContactCommands();
    });
    connect(lstContact, &cntlMasterList::DoubleClicked, this, [this] {
        if (cmdUpdate->isEnabled())
            cmdUpdate_Click();
    });
    connect(cmdNew, &QPushButton::clicked, this, &frmContact::cmdNew_Click);
    connect(cmdUpdate, &QPushButton::clicked, this, &frmContact::cmdUpdate_Click);
    connect(cmdDelete, &QPushButton::clicked, this, &frmContact::cmdDelete_Click);
    connect(cmdView, &QPushButton::clicked, this, &frmContact::cmdView_Click);

    Reload(QString());
}

void frmContact::LoadSelected()
{
    contact_ = std::make_shared<cContact>();
    contact_->Load(lstContact->SelKey());
    cntlDetails->setContact(contact_);
    cntlDetails->Display();
}

void frmContact::SetContactCommands()
{
    const bool none = contact_->ContactId().isEmpty();
    cmdUpdate->setEnabled(!none);
    cmdDelete->setEnabled(!none);
    cmdView->setEnabled(!none);
}

void frmContact::Reload(const QString &contactId)
{
    lstContact->DisplayList();
    if (!contactId.isEmpty())
        lstContact->setSelKey(contactId);
    LoadSelected();
    SetContactCommands();
}

void frmContact::AfterChange(const QString &contactId)
{
    lstContact->ShowUnderOwnLetter(contactId);
    Reload(contactId);
    lstContact->TakeFocusAfterDialog();
}

void frmContact::cmdNew_Click()
{
    frmContactDetails dialog(1, nullptr, this);
    dialog.exec();
    if (dialog.Cancelled || !dialog.Contact())
        return;
    AfterChange(dialog.Contact()->ContactId());
}

void frmContact::cmdUpdate_Click()
{
    if (contact_->ContactId().isEmpty())
        return;
    frmContactDetails dialog(2, contact_, this);
    dialog.exec();
    if (dialog.Cancelled)
        return;
    AfterChange(contact_->ContactId());
}

void frmContact::cmdView_Click()
{
    auto contact = std::make_shared<cContact>();
    contact->Load(lstContact->SelKey());
    frmContactDetails dialog(0, contact, this);
    dialog.exec();
    lstContact->TakeFocusAfterDialog();
}

void frmContact::cmdDelete_Click()
{
    // DeleteRequired is false for a row that is no longer there: the list is only read
    // afresh.
    if (contact_->ContactId().isEmpty() || !contact_->DeleteRequired()) {
        Reload(QString());
        return;
    }
    frmContactDetails dialog(5, contact_, this);
    dialog.exec();
    if (dialog.Cancelled)
        return;
    Reload(QString());
    lstContact->TakeFocusAfterDialog();
}
