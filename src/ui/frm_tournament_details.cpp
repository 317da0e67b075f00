#include "ui/frm_tournament_details.h"

#include "base/busy.h"
#include "base/common.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/players.h"
#include "session/tournament.h"
#include "ui/cntl_tournament.h"
#include "ui/field_rules.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStatusBar>
#include <QVBoxLayout>

namespace {

// The longest title a tournament row holds.
constexpr int TitleLength = 40;

} // namespace

frmTournamentDetails::frmTournamentDetails(int mode, QWidget *parent) : QDialog(parent), mode_(mode)
{
    cBusySection busy;
    setObjectName(QStringLiteral("frmTournamentDetails"));
    setWindowTitle(tr("Tournament Details"));

    tournamentControl = new cntlTournament(this);
    lblMsg = new QLabel(this);
    lblMsg->setObjectName(QStringLiteral("lblMsg"));
    cmdOk = new QPushButton(tr("OK"), this);
    cmdOk->setObjectName(QStringLiteral("cmdOk"));
    cmdOk->setDefault(true);
    cmdCancel = new QPushButton(tr("Cancel"), this);
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    sbMsg = new QStatusBar(this);
    sbMsg->setObjectName(QStringLiteral("sbMsg"));
    sbMsg->setSizeGripEnabled(false);

    auto *buttons = new QHBoxLayout;
    buttons->addWidget(lblMsg, 1);
    buttons->addWidget(cmdOk);
    buttons->addWidget(cmdCancel);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(tournamentControl);
    layout->addLayout(buttons);
    layout->addWidget(sbMsg);

    auto *help = new cFieldRules(this);
    help->setStatusBar(sbMsg);
    help->Watch(cmdOk, tr("Save the tournament details"));
    help->Watch(cmdCancel, tr("Close without saving"));

    tournamentControl->setDisplayMode(mode);
    tournamentControl->setStatusBar(sbMsg);
    std::shared_ptr<cTournament> tournament;
    switch (mode) {
    case cntlTournament::View:
        cmdOk->hide();
        cmdCancel->setText(tr("Close"));
        tournament = Control().Tournament();
        break;
    case cntlTournament::New:
        tournament = std::make_shared<cTournament>();
        break;
    case cntlTournament::Change:
        tournament = Control().Tournament();
        break;
    case cntlTournament::Copy:
        // A copy takes the row of the open tournament and none of its entrants or
        // games; its title is cut to what the field holds.
        tournament = cTournament::CopyOf(Control().Tournament()->TournId());
        tournament->setTitle(tournament->Title().left(TitleLength));
        break;
    case cntlTournament::Remove:
        lblMsg->setText(tr("Check that this is the tournament you want to delete."));
        cmdOk->setText(tr("Delete"));
        tournament = Control().Tournament();
        break;
    default:
        break;
    }
    tournamentControl->setTournament(tournament);
    tournamentControl->Display();

    connect(cmdOk, &QPushButton::clicked, this, &frmTournamentDetails::cmdOk_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmTournamentDetails::cmdCancel_Click);
    connect(this, &QDialog::rejected, this, [this] { Cancelled = true; });
    setMinimumWidth(sbMsg->fontMetrics().horizontalAdvance(
                        tr("Enter the default grade to be used for any ungraded players")) +
                    60);
}

void frmTournamentDetails::cmdOk_Click()
{
    if (!tournamentControl->Valid()) {
        Cancelled = true;
        return;
    }
    cBusySection busy;
    hide();
    tournamentControl->Update();
    if (mode_ == cntlTournament::Remove) {
        Control().setTournament(nullptr);
    } else {
        auto tournament = tournamentControl->Tournament();
        Control().setTournament(tournament);
        tournament->Players().RecalcAll(qint16(WholeValue(tournament->Rounds())));
    }
    Cancelled = false;
    done(QDialog::Accepted);
}

void frmTournamentDetails::cmdCancel_Click()
{
    Cancelled = true;
    reject();
}

bool RunTournamentDetails(int mode, QWidget *parent)
{
    frmTournamentDetails dialog(mode, parent);
    dialog.exec();
    return dialog.Cancelled;
}
