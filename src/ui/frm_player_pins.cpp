#include "ui/frm_player_pins.h"

#include "base/busy.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/players.h"
#include "session/tournament.h"
#include "ui/frm_msg.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {

QRadioButton *NewOption(QWidget *parent, const char *name, const QString &caption)
{
    auto *option = new QRadioButton(caption, parent);
    option->setObjectName(QString::fromLatin1(name));
    return option;
}

QPushButton *NewCommand(QWidget *parent, const char *name, const QString &caption)
{
    auto *button = new QPushButton(caption, parent);
    button->setObjectName(QString::fromLatin1(name));
    button->setAutoDefault(false);
    return button;
}

} // namespace

frmPlayerPins::frmPlayerPins(const QString &caller, QWidget *parent)
    : QDialog(parent), caller_(caller)
{
    setObjectName(QStringLiteral("frmPlayerPins"));
    setWindowTitle(tr("Allocate Pin Numbers"));
    auto *options = new QGroupBox(this);
    optOrder =
        NewOption(options, "optOrder", tr("In the order the players were added to the tournament"));
    optRandom = NewOption(options, "optRandom", tr("In Random order"));
    optGrade = NewOption(options, "optGrade", tr("By Grade"));
    optName = NewOption(options, "optName", tr("By Surname, Forename"));
    optGrade->setChecked(true);
    auto *optionLayout = new QVBoxLayout(options);
    optionLayout->addWidget(optOrder);
    optionLayout->addWidget(optRandom);
    optionLayout->addWidget(optGrade);
    optionLayout->addWidget(optName);

    cmdApply = NewCommand(this, "cmdApply", tr("Allocate"));
    cmdApply->setDefault(true);
    cmdValidate = NewCommand(this, "cmdValidate", tr("Validate"));
    cmdClear = NewCommand(this, "cmdClear", tr("Clear"));
    cmdClose = NewCommand(this, "cmdClose", tr("Close"));
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(cmdApply);
    buttons->addWidget(cmdValidate);
    buttons->addWidget(cmdClear);
    buttons->addStretch(1);
    buttons->addWidget(cmdClose);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(options);
    layout->addLayout(buttons);

    connect(cmdApply, &QPushButton::clicked, this, &frmPlayerPins::cmdApply_Click);
    connect(cmdValidate, &QPushButton::clicked, this, &frmPlayerPins::cmdValidate_Click);
    connect(cmdClear, &QPushButton::clicked, this, &frmPlayerPins::cmdClear_Click);
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::accept);
}

void frmPlayerPins::cmdApply_Click()
{
    {
        cBusySection busy;
        cPlayers &players = Control().Tournament()->Players();
        if (optGrade->isChecked())
            players.PinsByGrade();
        else if (optName->isChecked())
            players.PinsByName();
        else if (optOrder->isChecked())
            players.PinsByOrder();
        else if (optRandom->isChecked())
            players.PinsByRandom();
    }
    Refresh();
}

void frmPlayerPins::cmdClear_Click()
{
    {
        cBusySection busy;
        Control().Tournament()->Players().PinsClear();
    }
    Refresh();
}

void frmPlayerPins::cmdValidate_Click()
{
    QString report = Control().Tournament()->Players().PinsValidate();
    if (report.isEmpty())
        report = tr("All Pin numbers correctly allocated");
    frmMsg message(this);
    message.setWindowTitle(tr("Validate Pin numbers for Tournament"));
    message.txtNotes->setPlainText(report);
    message.exec();
}

void frmPlayerPins::Refresh()
{
    cBusySection busy;
    // The window that opened this dialog shows the pins again, while it stays open.
    emit PinsChanged();
}
