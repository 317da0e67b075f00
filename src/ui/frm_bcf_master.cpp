#include "ui/frm_bcf_master.h"

#include "base/busy.h"
#include "database/sql.h"
#include "register/bcf_master.h"
#include "register/master.h"
#include "session/control.h"
#include "session/globals.h"
#include "ui/cntl_bcf_master_details.h"
#include "ui/cntl_data_list.h"
#include "ui/cntl_master_list.h"
#include "ui/cntl_master_summary.h"

#include <QApplication>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

frmBCFMaster::frmBCFMaster(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmBCFMaster"));
    setWindowTitle(tr("Match Players to BCF Master List"));
    cntlSummary = new cntlMasterSummary(this);
    cntlBCFDetails = new cntlBCFMasterDetails(this);
    lstBCF = new cntlMasterList(this);
    lstBCF->setObjectName(QStringLiteral("lstBCF"));
    lstBCF->setDisplayType(int(DataListKind::BCFList));
    lblMsg = new QLabel(this);
    lblMsg->setObjectName(QStringLiteral("lblMsg"));
    cmdMatch = new QPushButton(tr("&Match"), this);
    cmdMatch->setObjectName(QStringLiteral("cmdMatch"));
    cmdMatch->setDefault(true);
    cmdNoMatch = new QPushButton(this);
    cmdNoMatch->setObjectName(QStringLiteral("cmdNoMatch"));
    cmdNoMatch->setAutoDefault(false);
    cmdClear = new QPushButton(tr("C&lear"), this);
    cmdClear->setObjectName(QStringLiteral("cmdClear"));
    cmdClear->setAutoDefault(false);
    cmdStop = new QPushButton(tr("S&top"), this);
    cmdStop->setObjectName(QStringLiteral("cmdStop"));
    cmdStop->setAutoDefault(false);

    auto *registerSide = new QGroupBox(tr("Master"), this);
    (new QVBoxLayout(registerSide))->addWidget(cntlSummary);
    auto *listSide = new QGroupBox(tr("BCF Master List"), this);
    (new QVBoxLayout(listSide))->addWidget(cntlBCFDetails);
    auto *top = new QHBoxLayout;
    top->addWidget(registerSide, 1);
    top->addWidget(listSide, 1);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(lblMsg, 1);
    buttons->addWidget(cmdMatch);
    buttons->addWidget(cmdClear);
    buttons->addWidget(cmdNoMatch);
    buttons->addWidget(cmdStop);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(lstBCF, 1);
    layout->addLayout(buttons);
    resize(9000 / 15, 7500 / 15);
    setTabOrder(lstBCF->lstMaster->lstData, cmdMatch);

    connect(lstBCF, &cntlMasterList::SelectionChanged, this,
            &frmBCFMaster::lstBCF_SelectionChanged);
    connect(lstBCF, &cntlMasterList::DoubleClicked, this, [this] {
        if (cmdMatch->isVisible())
            cmdMatch->click();
    });
    connect(cmdMatch, &QPushButton::clicked, this, &QWidget::hide);
    connect(cmdNoMatch, &QPushButton::clicked, this, [this] {
        Cancelled = true;
        hide();
    });
    connect(cmdClear, &QPushButton::clicked, this, [this] {
        auto cleared = std::make_shared<cBCFMaster>();
        Control().setBCFMaster(cleared);
        hide();
    });
    connect(cmdStop, &QPushButton::clicked, this, [this] {
        Stopped = true;
        hide();
    });
}

void frmBCFMaster::reject()
{
    // Escape is the closing command of the mode: no match.
    Cancelled = true;
    hide();
}

void frmBCFMaster::Activate()
{
    cBusySection busy;
    Stopped = false;
    Cancelled = false;
    cntlSummary->setMaster(Master);
    cntlSummary->Display();
    lblMsg->setText(tr("Select the matching player from the BCF Master List."));
    const bool single = Mode == SingleMatch;
    const auto codeHolder = single ? Master : Control().Master();
    const bool hasCode = codeHolder && !codeHolder->BCFCode().isEmpty();
    cmdStop->setVisible(!single);
    cmdClear->setVisible(single && hasCode);
    cmdMatch->setVisible(single || !hasCode);
    cmdNoMatch->setVisible(single || !hasCode);
    cmdNoMatch->setText(single ? tr("Close") : tr("Next >>>"));
    lstBCF->setDisplayType(int(DataListKind::BCFList));
    lstBCF->SelSearch(Master ? Master->DisplayName(false) : QString());
    if (hasCode && Master)
        lstBCF->setSelKey(Master->BCFCode());
    lstBCF_SelectionChanged();
    lstBCF->SetFocus();
}

void frmBCFMaster::lstBCF_SelectionChanged()
{
    auto bcfMaster = std::make_shared<cBCFMaster>();
    bcfMaster->Load(lstBCF->SelKey());
    Control().setBCFMaster(bcfMaster);
    cntlBCFDetails->setBCFMaster(bcfMaster);
    cntlBCFDetails->Display();
    // Nothing to match to when no row is there.
    cmdMatch->setEnabled(!lstBCF->SelKey().isEmpty());
}

bool MatchSingle(const std::shared_ptr<cMaster> &master, QWidget *parent)
{
    if (!master || master->MasterId().isEmpty())
        return false;
    frmBCFMaster window(parent);
    window.Mode = frmBCFMaster::SingleMatch;
    window.Master = master;
    window.Activate();
    window.exec();
    if (window.Cancelled || !Control().BCFMaster())
        return false;
    master->UpdateFrom(*Control().BCFMaster());
    return true;
}

void MatchWalk(QWidget *parent)
{
    const QString remembered = Control().Master() ? Control().Master()->MasterId() : QString();
    QStringList ids;
    {
        QSqlQuery query =
            RunSql(QStringLiteral("SELECT MasterId FROM Master ORDER BY Surname, Forename"));
        while (query.next())
            ids << query.value(0).toString();
    }
    frmBCFMaster window(parent);
    for (const QString &id : ids) {
        auto master = std::make_shared<cMaster>();
        master->Load(id);
        Control().setMaster(master);
        window.hide();
        window.Mode = frmBCFMaster::Walk;
        window.Master = master;
        if (!master->BCFCode().isEmpty()) {
            window.Activate();
            window.show();
            QApplication::processEvents();
            if (window.Stopped)
                break;
            window.hide();
            // The row of the person's own code, whatever the name search found; a code
            // gone from the list leaves the row empty, which takes the code away.
            auto bcfMaster = Control().BCFMaster();
            if (!bcfMaster || bcfMaster->BCFCode() != master->BCFCode()) {
                bcfMaster = std::make_shared<cBCFMaster>();
                bcfMaster->Load(master->BCFCode());
                Control().setBCFMaster(bcfMaster);
            }
            master->UpdateFrom(*bcfMaster);
        } else {
            window.Activate();
            window.exec();
            if (window.Stopped)
                break;
            if (!window.Cancelled && Control().BCFMaster())
                master->UpdateFrom(*Control().BCFMaster());
            window.hide();
        }
    }
    auto current = std::make_shared<cMaster>();
    current->Load(remembered);
    Control().setMaster(current);
}
