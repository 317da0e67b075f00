#include "ui/frm_master.h"

#include "base/busy.h"
#include "database/database.h"
#include "register/master.h"
#include "session/control.h"
#include "session/globals.h"
#include "ui/cntl_data_list.h"
#include "ui/cntl_master_details.h"
#include "ui/cntl_master_list.h"
#include "ui/cntl_player_hist.h"
#include "ui/command_button.h"
#include "ui/frm_bcf_master.h"
#include "ui/frm_master_details.h"
#include "ui/main_commands.h"
#include "ui/register_window_layout.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>

namespace {

frmMaster *instance = nullptr;

} // namespace

frmMaster::frmMaster(QWidget *parent) : QWidget(parent)
{
    instance = this;
    setObjectName(QStringLiteral("frmMaster"));
    setWindowTitle(tr("Master"));
    lstMaster = new cntlMasterList(this);
    lstMaster->setObjectName(QStringLiteral("lstMaster"));
    lstMaster->setDisplayType(int(DataListKind::Master));
    cmdNew = NewCommand(this, "cmdNew", tr("&New"));
    cmdUpdate = NewCommand(this, "cmdUpdate", tr("&Update"));
    cmdDelete = NewCommand(this, "cmdDelete", tr("&Delete"));
    cmdView = NewCommand(this, "cmdView", tr("V&iew"));
    cmdMatch = NewCommand(this, "cmdMatch", tr("Match to &BCF Grading List"));
    tbMaster = new QTabWidget(this);
    tbMaster->setObjectName(QStringLiteral("tbMaster"));
    cntlDetails = new cntlMasterDetails;
    cntlHist = new cntlPlayerHist(tbMaster);
    AddScrollingTab(tbMaster, cntlDetails, tr("Details"));
    tbMaster->addTab(cntlHist, tr("History"));
    LayOutRegisterWindow(this, lstMaster, 2, {cmdNew, cmdUpdate, cmdDelete, cmdView, cmdMatch},
                         tbMaster, 3);

    connect(lstMaster, &cntlMasterList::SelectionChanged, this,
            &frmMaster::lstMaster_SelectionChanged);
    connect(lstMaster, &cntlMasterList::DoubleClicked, this, [this] {
        if (cmdUpdate->isEnabled())
            cmdUpdate_Click();
    });
    connect(tbMaster, &QTabWidget::currentChanged, this, &frmMaster::DisplayMasterTab);
    connect(cmdNew, &QPushButton::clicked, this, &frmMaster::cmdNew_Click);
    connect(cmdUpdate, &QPushButton::clicked, this, &frmMaster::cmdUpdate_Click);
    connect(cmdDelete, &QPushButton::clicked, this, &frmMaster::cmdDelete_Click);
    connect(cmdView, &QPushButton::clicked, this, &frmMaster::cmdView_Click);
    connect(cmdMatch, &QPushButton::clicked, this, &frmMaster::cmdMatch_Click);

    lstMaster->DisplayList();
    LoadSelected();
    DisplayMasterTab();
    SetMasterCommands();
}

frmMaster::~frmMaster()
{
    if (instance == this)
        instance = nullptr;
}

frmMaster *frmMaster::Instance()
{
    return instance;
}

void frmMaster::LoadSelected()
{
    auto master = std::make_shared<cMaster>();
    master->Load(lstMaster->SelKey());
    Control().setMaster(master);
}

void frmMaster::DisplayMasterTab()
{
    const QString caption = tbMaster->tabText(tbMaster->currentIndex());
    if (caption == tr("Details")) {
        cntlDetails->setMaster(Control().Master());
        cntlDetails->Display();
    } else if (caption == tr("History")) {
        cntlHist->setMaster(Control().Master());
        cntlHist->Display();
    }
}

void frmMaster::lstMaster_SelectionChanged()
{
    LoadSelected();
    DisplayMasterTab();
    SetMasterCommands();
}

void frmMaster::Reload(const QString &masterId)
{
    lstMaster->DisplayList();
    if (!masterId.isEmpty())
        lstMaster->setSelKey(masterId);
    LoadSelected();
    DisplayMasterTab();
    SetMasterCommands();
}

void frmMaster::AfterChange(const QString &masterId)
{
    lstMaster->ShowUnderOwnLetter(masterId);
    Reload(masterId);
    lstMaster->TakeFocusAfterDialog();
}

void frmMaster::cmdNew_Click()
{
    frmMasterDetails dialog(1, nullptr, this);
    dialog.exec();
    if (dialog.Cancelled || !dialog.Master())
        return;
    AfterChange(dialog.Master()->MasterId());
}

void frmMaster::cmdUpdate_Click()
{
    const auto master = Control().Master();
    if (!master || master->MasterId().isEmpty())
        return;
    frmMasterDetails dialog(2, master, this);
    dialog.exec();
    if (dialog.Cancelled)
        return;
    AfterChange(master->MasterId());
}

void frmMaster::cmdView_Click()
{
    auto master = std::make_shared<cMaster>();
    master->Load(lstMaster->SelKey());
    frmMasterDetails dialog(0, master, this);
    dialog.exec();
}

void frmMaster::cmdDelete_Click()
{
    const auto master = Control().Master();
    if (!master || master->MasterId().isEmpty())
        return;
    if (!master->DeleteRequired())
        return;
    frmMasterDetails dialog(5, master, this);
    dialog.exec();
    if (dialog.Cancelled)
        return;
    lstMaster->DisplayList();
    LoadSelected();
    DisplayMasterTab();
    SetMasterCommands();
    lstMaster->SetFocus();
}

void frmMaster::cmdMatch_Click()
{
    const auto master = Control().Master();
    if (!master || master->MasterId().isEmpty())
        return;
    const QString id = master->MasterId();
    MatchSingle(master, this);
    Reload(id);
}

void SetMasterCommands()
{
    if (frmMaster *master = frmMaster::Instance()) {
        const auto current = Control().Master();
        const bool none = !current || current->MasterId().isEmpty();
        master->cmdUpdate->setEnabled(!none);
        master->cmdDelete->setEnabled(!none);
        master->cmdView->setEnabled(!none);
        if (none) {
            master->cmdMatch->setVisible(true);
            master->cmdMatch->setEnabled(false);
        } else {
            master->cmdMatch->setVisible(!Database().BCFMasterIsEmpty());
            master->cmdMatch->setEnabled(true);
        }
    }
    SetMainCommands();
}
