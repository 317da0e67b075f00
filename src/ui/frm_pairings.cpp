#include "ui/frm_pairings.h"

#include "base/busy.h"
#include "base/common.h"
#include "base/user_interaction.h"
#include "conduct/auto_pair.h"
#include "conduct/tournament_pairing.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/players.h"
#include "session/results.h"
#include "session/tournament.h"
#include "ui/cntl_result_list.h"

#include <QAbstractItemModel>
#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStatusBar>
#include <QTableView>
#include <QTimer>
#include <QVBoxLayout>

namespace {

const char HelpProperty[] = "statusHelp";

cTournament &Tournament()
{
    return *Control().Tournament();
}

// A first board is a whole number the board cells can hold.
bool IsFirstBoard(const QString &text)
{
    if (text.isEmpty() || text.size() > 3)
        return false;
    for (const QChar c : text)
        if (!c.isDigit())
            return false;
    return text.toInt() > 0;
}

} // namespace

QPushButton *frmPairings::AddButton(const QString &name, const QString &caption,
                                    const QString &help)
{
    auto *button = new QPushButton(caption, this);
    button->setObjectName(name);
    button->setAutoDefault(false);
    button->setProperty(HelpProperty, help);
    button->installEventFilter(this);
    return button;
}

frmPairings::frmPairings(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmPairings"));
    setWindowTitle(tr("Pairings and Results"));

    cmbRound = new QComboBox(this);
    cmbRound->setObjectName(QStringLiteral("cmbRound"));
    cmbRound->setProperty(HelpProperty, tr("Select the round"));
    cmbRound->installEventFilter(this);
    txtFirstBoard = new QLineEdit(this);
    txtFirstBoard->setObjectName(QStringLiteral("txtFirstBoard"));
    txtFirstBoard->setMaxLength(3);
    txtFirstBoard->setProperty(HelpProperty, tr("Enter the first board number of the round"));
    txtFirstBoard->installEventFilter(this);
    txtFirstBoard->setMaximumWidth(txtFirstBoard->fontMetrics().horizontalAdvance(u'9') * 6 + 12);
    lstResults = new cntlResultList(this);
    lblKeys1 = new QLabel(tr("Result keys: W=White win, D=Draw, B=Black win"), this);
    lblKeys1->setObjectName(QStringLiteral("lblKeys1"));
    lblKeys2 = new QLabel(tr("Z=Double default, N=No result, Delete=Remove result"), this);
    lblKeys2->setObjectName(QStringLiteral("lblKeys2"));

    cmdRenumber = AddButton(QStringLiteral("cmdRenumber"), tr("Renumber"),
                            tr("Number the boards from the first board"));
    cmdRemove = AddButton(QStringLiteral("cmdRemove"), tr("Remove Blanks"),
                          tr("Remove the pairings without players"));
    cmdReorder = AddButton(QStringLiteral("cmdReorder"), tr("Reorder Boards"),
                           tr("Put the top pairings on the top boards"));
    cmdValidate = AddButton(QStringLiteral("cmdValidate"), tr("Validate"),
                            tr("Check the pairings and results of the round"));
    cmdPairRound = AddButton(QStringLiteral("cmdPairRound"), tr("&Pair Round"),
                             tr("Pair the round by the Dutch system for checking"));
    cmdOk = AddButton(QStringLiteral("cmdOk"), tr("OK"), tr("Store the round and close"));
    cmdCancel =
        AddButton(QStringLiteral("cmdCancel"), tr("Cancel"), tr("Close without storing the round"));
    // Automatic pairing goes no further than splitting the score groups, so its two
    // buttons stay out of sight.
    cmdAuto = AddButton(QStringLiteral("cmdAuto"), tr("Auto"), QString());
    cmdAuto->hide();
    cmdAutoPair = AddButton(QStringLiteral("cmdAutoPair"), tr("Auto pair"), QString());
    cmdAutoPair->hide();
    cmdAutoPair->setEnabled(false);
    sbMsg = new QStatusBar(this);
    sbMsg->setObjectName(QStringLiteral("sbMsg"));
    sbMsg->setSizeGripEnabled(false);
    lstResults->setStatusBar(sbMsg);

    auto *top = new QHBoxLayout;
    auto *lblRound = new QLabel(tr("Round:"), this);
    lblRound->setObjectName(QStringLiteral("lblRound"));
    lblRound->setBuddy(cmbRound);
    auto *lblFirstBoard = new QLabel(tr("First Board:"), this);
    lblFirstBoard->setObjectName(QStringLiteral("lblFirstBoard"));
    lblFirstBoard->setBuddy(txtFirstBoard);
    top->addWidget(lblRound);
    top->addWidget(cmbRound);
    top->addSpacing(24);
    top->addWidget(lblFirstBoard);
    top->addWidget(txtFirstBoard);
    top->addStretch(1);
    auto *roundCommands = new QHBoxLayout;
    roundCommands->addWidget(cmdRenumber);
    roundCommands->addWidget(cmdRemove);
    roundCommands->addWidget(cmdReorder);
    roundCommands->addWidget(cmdValidate);
    roundCommands->addWidget(cmdPairRound);
    roundCommands->addStretch(1);
    roundCommands->addWidget(cmdAuto);
    roundCommands->addWidget(cmdAutoPair);
    roundCommands->addWidget(cmdOk);
    roundCommands->addWidget(cmdCancel);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(lstResults, 1);
    layout->addWidget(lblKeys1);
    layout->addWidget(lblKeys2);
    layout->addLayout(roundCommands);
    layout->addWidget(sbMsg);

    setTabOrder(cmbRound, txtFirstBoard);
    setTabOrder(txtFirstBoard, lstResults);
    setTabOrder(lstResults, cmdRenumber);
    setTabOrder(cmdRenumber, cmdRemove);
    setTabOrder(cmdRemove, cmdReorder);
    setTabOrder(cmdReorder, cmdValidate);
    setTabOrder(cmdValidate, cmdPairRound);
    setTabOrder(cmdPairRound, cmdOk);
    setTabOrder(cmdOk, cmdCancel);

    connect(cmbRound, &QComboBox::currentIndexChanged, this, &frmPairings::cmbRound_Click);
    connect(lstResults, &cntlResultList::RowsDisplayed, this, &frmPairings::EnableRoundCommands);
    connect(cmdRenumber, &QPushButton::clicked, this, &frmPairings::cmdRenumber_Click);
    connect(cmdRemove, &QPushButton::clicked, this, &frmPairings::cmdRemove_Click);
    connect(cmdReorder, &QPushButton::clicked, this, &frmPairings::cmdReorder_Click);
    connect(cmdValidate, &QPushButton::clicked, this, &frmPairings::cmdValidate_Click);
    connect(cmdPairRound, &QPushButton::clicked, this, &frmPairings::cmdPairRound_Click);
    // A pairing typed by hand makes the round no longer empty.
    connect(lstResults->lstData->model(), &QAbstractItemModel::dataChanged, this,
            &frmPairings::EnablePairRound);
    connect(cmdOk, &QPushButton::clicked, this, &frmPairings::cmdOk_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmPairings::cmdCancel_Click);
    connect(cmdAuto, &QPushButton::clicked, this, &frmPairings::cmdAuto_Click);

    Load();
    resize(sizeHint().width(), 560);
}

void frmPairings::Load()
{
    loading_ = true;
    cBusySection busy;
    cTournament &tournament = Tournament();
    // The games are read afresh, so what another window changed is on view.
    tournament.setResults(std::make_shared<cResults>());
    tournament.Results().LoadAllResults();
    cTournament stored;
    stored.Load(tournament.TournId());
    const qint64 rounds = WholeValue(stored.Rounds());
    for (qint64 round = 1; round <= rounds; ++round)
        cmbRound->addItem(QString::number(round));
    const QString current = stored.CurrRound().isEmpty()
                                ? QStringLiteral("1")
                                : QString::number(WholeValue(stored.CurrRound()));
    if (cmbRound->findText(current) < 0)
        cmbRound->addItem(current);
    cmbRound->setCurrentIndex(cmbRound->findText(current));
    DisplayRound(SelectedRound());
    loading_ = false;
}

void frmPairings::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    // The controller starts typing at once: the first board cell has the focus.
    layout()->activate();
    QTimer::singleShot(0, lstResults, &cntlResultList::SetFocus);
}

qint16 frmPairings::SelectedRound() const
{
    return qint16(WholeValue(cmbRound->currentText()));
}

void frmPairings::DisplayRound(qint16 round)
{
    lstResults->DisplayList(round);
    txtFirstBoard->setText(Tournament().Results().FirstBoard(round));
}

void frmPairings::EnableRoundCommands(int rows)
{
    const bool any = rows != 0;
    cmdRenumber->setEnabled(any);
    cmdRemove->setEnabled(any);
    cmdReorder->setEnabled(any);
    cmdValidate->setEnabled(any);
    EnablePairRound();
}

void frmPairings::EnablePairRound()
{
    cmdPairRound->setEnabled(mTournamentPairing::CanPairRound(Tournament(), SelectedRound()));
}

bool frmPairings::AcceptFirstBoard()
{
    if (IsFirstBoard(txtFirstBoard->text().trimmed()))
        return true;
    Interaction().Beep();
    txtFirstBoard->setFocus(Qt::OtherFocusReason);
    txtFirstBoard->selectAll();
    return false;
}

bool frmPairings::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::FocusIn:
        if (auto *field = qobject_cast<QLineEdit *>(watched))
            QTimer::singleShot(0, field, &QLineEdit::selectAll);
        sbMsg->showMessage(watched->property(HelpProperty).toString());
        break;
    case QEvent::KeyPress:
        // The first board is checked before the focus can leave it by Tab.
        if (watched == txtFirstBoard) {
            const int key = static_cast<QKeyEvent *>(event)->key();
            if ((key == Qt::Key_Tab || key == Qt::Key_Backtab) && !AcceptFirstBoard())
                return true;
        }
        break;
    case QEvent::FocusOut: {
        const auto reason = static_cast<QFocusEvent *>(event)->reason();
        if (watched == txtFirstBoard && reason != Qt::ActiveWindowFocusReason &&
            reason != Qt::PopupFocusReason && isVisible() &&
            !IsFirstBoard(txtFirstBoard->text().trimmed())) {
            Interaction().Beep();
            QTimer::singleShot(0, txtFirstBoard, [this] {
                txtFirstBoard->setFocus(Qt::OtherFocusReason);
                txtFirstBoard->selectAll();
            });
        }
        break;
    }
    default:
        break;
    }
    return QDialog::eventFilter(watched, event);
}

void frmPairings::cmbRound_Click()
{
    if (loading_)
        return;
    cBusySection busy;
    stored_ = true;
    // The round moved to is stored, not the one left: edits of the round left stay
    // in memory until that round is chosen again.
    const qint16 round = SelectedRound();
    Tournament().Results().UpdateResults(round);
    DisplayRound(round);
}

void frmPairings::cmdRenumber_Click()
{
    if (!lstResults->CommitEdit() || !AcceptFirstBoard())
        return;
    cBusySection busy;
    const qint16 round = SelectedRound();
    Tournament().Results().RenumberBoards(round, qint16(WholeValue(txtFirstBoard->text())));
    lstResults->DisplayList(round);
}

void frmPairings::cmdRemove_Click()
{
    if (!lstResults->CommitEdit())
        return;
    cBusySection busy;
    stored_ = true;
    const qint16 round = SelectedRound();
    cResults &games = Tournament().Results();
    games.RemoveEmptyBoards(round);
    games.UpdateResults(round);
    lstResults->DisplayList(round);
}

void frmPairings::cmdReorder_Click()
{
    if (!lstResults->CommitEdit() || !AcceptFirstBoard())
        return;
    const qint16 round = SelectedRound();
    cResults &games = Tournament().Results();
    games.RemoveEmptyBoards(round);
    games.ReOrderBoards(round);
    games.RenumberBoards(round, qint16(WholeValue(txtFirstBoard->text())));
    lstResults->DisplayList(round);
}

void frmPairings::cmdValidate_Click()
{
    if (!lstResults->CommitEdit())
        return;
    Tournament().ValidatePairings(SelectedRound());
}

void frmPairings::cmdPairRound_Click()
{
    if (!lstResults->CommitEdit() || !AcceptFirstBoard())
        return;
    cTournament &tournament = Tournament();
    const qint16 round = SelectedRound();
    if (!mTournamentPairing::CanPairRound(tournament, round)) {
        Interaction().Beep();
        EnablePairRound();
        return;
    }
    mTournamentPairing::cPairedRound pairing;
    {
        cBusySection busy;
        pairing = mTournamentPairing::PairRound(tournament, round);
    }
    if (!pairing.paired) {
        Interaction().ShowMessage(pairing.message, MessageIcon::Exclamation, windowTitle());
        return;
    }
    // The rows stay in memory for the director to check; OK stores them as usual.
    mTournamentPairing::FillRound(tournament.Results(), round, pairing,
                                  qint16(WholeValue(txtFirstBoard->text())));
    lstResults->DisplayList(round);
    lstResults->SetFocus();
}

void frmPairings::cmdOk_Click()
{
    if (!lstResults->CommitEdit())
        return;
    cBusySection busy;
    hide();
    stored_ = true;
    cTournament &tournament = Tournament();
    tournament.Results().UpdateResults(SelectedRound());
    tournament.Players().RecalcAll(qint16(WholeValue(tournament.Rounds())));
    cancelled_ = false;
    accept();
}

void frmPairings::cmdCancel_Click()
{
    cancelled_ = true;
    hide();
    if (stored_) {
        cBusySection busy;
        cTournament &tournament = Tournament();
        tournament.Players().RecalcAll(qint16(WholeValue(tournament.Rounds())));
    }
    QDialog::reject();
}

void frmPairings::reject()
{
    // Escape and the window's close box are Cancel.
    cmdCancel_Click();
}

void frmPairings::cmdAuto_Click()
{
    mFIDEPairings::AutoPairRound(SelectedRound());
}

bool ShowPairingsAndResults(QWidget *parent, bool pairingOn, bool resultOn)
{
    frmPairings window(parent);
    window.PairingOn = pairingOn;
    window.ResultOn = resultOn;
    window.exec();
    return window.Stored();
}
