#include "ui/frm_tournament_open.h"

#include "session/busy.h"
#include "session/common.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/players.h"
#include "session/results.h"
#include "session/tournament.h"
#include "ui/cntl_tournament.h"
#include "ui/frm_main.h"
#include "ui/frm_tournament_details.h"
#include "ui/tournament_rows.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QTableView>
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
    model_ = new cTournamentRowsModel(this);
    lstVelmora = new QTableView(this);
    lstVelmora->setObjectName(QStringLiteral("lstVelmora"));
    lstVelmora->setModel(model_);
    lstVelmora->setSelectionBehavior(QAbstractItemView::SelectRows);
    lstVelmora->setSelectionMode(QAbstractItemView::SingleSelection);
    lstVelmora->setEditTriggers(QAbstractItemView::NoEditTriggers);
    lstVelmora->setTabKeyNavigation(false);
    lstVelmora->verticalHeader()->hide();
    lstVelmora->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    lstVelmora->setColumnHidden(cTournamentRowsModel::Key, true);
    lstVelmora->setColumnHidden(cTournamentRowsModel::DateOrder, true);
    lstVelmora->setColumnWidth(cTournamentRowsModel::Name,
                               fontMetrics().horizontalAdvance(QString(60, u'n')));
    lstVelmora->horizontalHeader()->setStretchLastSection(true);
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

    connect(lstVelmora->horizontalHeader(), &QHeaderView::sectionClicked, this, [this](int column) {
        if (model_->rowCount() == 0)
            return;
        const QString key = SelKey();
        model_->HeadingClicked(column);
        setSelKey(key);
        lstVelmora->setFocus();
    });
    connect(lstVelmora, &QTableView::doubleClicked, this, [this] {
        if (cmdOk->isEnabled())
            cmdOk_Click();
    });
    connect(cmdOk, &QPushButton::clicked, this, &frmTournamentOpen::cmdOk_Click);
    connect(cmdNew, &QPushButton::clicked, this, &frmTournamentOpen::cmdNew_Click);
    connect(cmdCopy, &QPushButton::clicked, this, &frmTournamentOpen::cmdCopy_Click);
    connect(cmdDelete, &QPushButton::clicked, this, &frmTournamentOpen::cmdDelete_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);

    model_->Load();
    if (model_->rowCount() > 0) {
        const auto open = Control().Tournament();
        setSelKey(open ? open->TournId() : QString());
    }
    connect(lstVelmora->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &frmTournamentOpen::SetCommands);
    SetCommands();
    lstVelmora->setFocus();
}

QString frmTournamentOpen::SelKey() const
{
    const QModelIndex current = lstVelmora->currentIndex();
    return model_->Text(current.isValid() ? current.row() : 0, cTournamentRowsModel::Key);
}

void frmTournamentOpen::setSelKey(const QString &key)
{
    if (model_->rowCount() == 0)
        return;
    const int found = model_->RowOfKey(key.trimmed());
    const QModelIndex index = model_->index(found < 0 ? 0 : found, cTournamentRowsModel::Name);
    lstVelmora->selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect |
                                                             QItemSelectionModel::Rows);
    lstVelmora->scrollTo(index);
}

void frmTournamentOpen::SetCommands()
{
    const bool selected = !SelKey().isEmpty();
    cmdCopy->setEnabled(selected);
    cmdDelete->setEnabled(selected);
    cmdOk->setEnabled(selected);
}

void frmTournamentOpen::cmdOk_Click()
{
    const QString key = SelKey();
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
    const QString key = SelKey();
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
    const QString key = SelKey();
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
