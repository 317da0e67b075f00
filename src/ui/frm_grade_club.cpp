#include "ui/frm_grade_club.h"

#include "ui/cntl_data_list.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

frmGradeClub::frmGradeClub(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmGradeClub"));
    setWindowTitle(tr("BCF Club List"));
    lstClub = new cntlDataList(this);
    lstClub->setObjectName(QStringLiteral("lstClub"));
    lstClub->setDisplayType(int(DataListKind::Clubs));
    lstClub->setDisplayFilter(QStringLiteral("*"));
    cmdOk = new QPushButton(tr("OK"), this);
    cmdOk->setObjectName(QStringLiteral("cmdOk"));
    cmdOk->setDefault(true);
    cmdClear = new QPushButton(tr("C&lear"), this);
    cmdClear->setObjectName(QStringLiteral("cmdClear"));
    cmdClear->setAutoDefault(false);
    cmdCancel = new QPushButton(tr("Cancel"), this);
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    cmdCancel->setAutoDefault(false);

    auto *buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdOk);
    buttons->addWidget(cmdClear);
    buttons->addWidget(cmdCancel);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(lstClub, 1);
    layout->addLayout(buttons);
    resize(5500 / 15, 5000 / 15);

    connect(cmdOk, &QPushButton::clicked, this, &frmGradeClub::cmdOk_Click);
    connect(lstClub, &cntlDataList::DoubleClicked, this, &frmGradeClub::cmdOk_Click);
    connect(cmdClear, &QPushButton::clicked, this, [this] {
        code_.clear();
        Cancelled = false;
        accept();
    });
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);

    lstClub->DisplayList();
    lstClub->SetFocus();
}

void frmGradeClub::cmdOk_Click()
{
    code_ = lstClub->SelKey();
    Cancelled = false;
    accept();
}
