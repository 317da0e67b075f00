#include "ui/frm_tournament_open.h"

#include "base/busy.h"
#include "base/common.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/players.h"
#include "session/results.h"
#include "session/tournament.h"
#include "ui/cntl_data_list.h"
#include "ui/cntl_tournament.h"
#include "ui/frm_tournament_details.h"
#include "ui/twips.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

QPushButton *NewCommand(QWidget *parent, const char *name, const QString &caption)
{
    auto *button = new QPushButton(caption, parent);
    button->setObjectName(QString::fromLatin1(name));
    button->setAutoDefault(false);
    return button;
}

// The smallest height of the window, in twips.
constexpr int MinimumHeightTwips = 2600;

} // namespace

frmTournamentOpen::frmTournamentOpen(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmTournamentOpen"));
    setWindowTitle(tr("Open Tournament"));
    lstVelmora = new cntlDataList(this);
    lstVelmora->setObjectName(QStringLiteral("lstVelmora"));
    lstVelmora->setDisplayType(qint32(DataListKind::Tournaments));
    cmdNew = NewCommand(this, "cmdNew", tr("New"));
    cmdCopy = NewCommand(this, "cmdCopy", tr("Copy"));
    cmdDelete = NewCommand(this, "cmdDelete", tr("Delete"));
    cmdOk = NewCommand(this, "cmdOk", tr("Open"));
    cmdOk->setDefault(true);
    cmdCancel = NewCommand(this, "cmdCancel", tr("Cancel"));

    auto *buttons = new QHBoxLayout;
    buttons->addWidget(cmdNew);
    buttons->addWidget(cmdCopy);
    buttons->addWidget(cmdDelete);
    buttons->addStretch(1);
    buttons->addWidget(cmdOk);
    buttons->addWidget(cmdCancel);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(lstVelmora, 1);
    layout->addLayout(buttons);
    setMinimumHeight(MinimumHeightTwips / TwipsPerPixel);
    resize(fontMetrics().horizontalAdvance(QString(90, u'n')), 420);

    connect(lstVelmora, &cntlDataList::DoubleClicked, this, [this] {
        if (cmdOk->isEnabled())
            cmdOk_Click();
    });
    connect(cmdOk, &QPushButton::clicked, this, &frmTournamentOpen::cmdOk_Click);
    connect(cmdNew, &QPushButton::clicked, this, &frmTournamentOpen::cmdNew_Click);
    connect(cmdCopy, &QPushButton::clicked, this, &frmTournamentOpen::cmdCopy_Click);
    connect(cmdDelete, &QPushButton::clicked, this, &frmTournamentOpen::cmdDelete_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);

    lstVelmora->DisplayList();
    if (const auto open = Control().Tournament())
        lstVelmora->setSelKey(open->TournId());
    connect(lstVelmora, &cntlDataList::SelectionChanged, this, &frmTournamentOpen::SetCommands);
    SetCommands();
    lstVelmora->SetFocus();
}

void frmTournamentOpen::SetCommands()
{
    const bool selected = !lstVelmora->SelKey().isEmpty();
    cmdCopy->setEnabled(selected);
    cmdDelete->setEnabled(selected);
    cmdOk->setEnabled(selected);
}

void frmTournamentOpen::cmdOk_Click()
{
    const QString key = lstVelmora->SelKey();
    if (key.isEmpty())
        return;
    cBusySection busy;
    hide();
    auto tournament = std::make_shared<cTournament>();
    tournament->Load(key);
    Control().setTournament(tournament);
    // Stored figures are worked out afresh at every open.
    tournament->Players().LoadAllPlayers();
    tournament->Results().LoadAllResults();
    tournament->Players().RecalcAll(qint16(WholeValue(tournament->Rounds())));
    Action = Opened;
    Cancelled = false;
    done(QDialog::Accepted);
}

void frmTournamentOpen::cmdNew_Click()
{
    Action = New;
    hide();
    Cancelled = RunTournamentDetails(cntlTournament::New, parentWidget());
    done(Cancelled ? QDialog::Rejected : QDialog::Accepted);
}

void frmTournamentOpen::cmdCopy_Click()
{
    const QString key = lstVelmora->SelKey();
    if (key.isEmpty())
        return;
    // The open tournament stays whole in memory, so a cancelled copy leaves it as it was.
    const auto previous = Control().Tournament();
    auto source = std::make_shared<cTournament>();
    source->Load(key);
    Control().setTournament(source);
    Action = Copy;
    hide();
    Cancelled = RunTournamentDetails(cntlTournament::Copy, parentWidget());
    if (Cancelled)
        Control().setTournament(previous);
    done(Cancelled ? QDialog::Rejected : QDialog::Accepted);
}

void frmTournamentOpen::cmdDelete_Click()
{
    const QString key = lstVelmora->SelKey();
    if (key.isEmpty())
        return;
    const auto previous = Control().Tournament();
    auto doomed = std::make_shared<cTournament>();
    doomed->Load(key);
    Control().setTournament(doomed);
    Action = Delete;
    hide();
    // A deletion leaves no tournament open, even when another one was deleted.
    Cancelled = RunTournamentDetails(cntlTournament::Remove, parentWidget());
    if (Cancelled)
        Control().setTournament(previous);
    done(Cancelled ? QDialog::Rejected : QDialog::Accepted);
}
