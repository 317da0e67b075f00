#include "ui/frm_new_db.h"

#include "session/busy.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

QLabel *WrappedLabel(const QString &text, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setWordWrap(true);
    return label;
}

} // namespace

frmNewDb::frmNewDb(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmNewDb"));
    setWindowTitle(tr("New Database"));

    cmdNew = new QPushButton(tr("New"), this);
    cmdNew->setObjectName(QStringLiteral("cmdNew"));
    cmdNew->setDefault(true);
    cmdExit = new QPushButton(tr("Exit"), this);
    cmdExit->setObjectName(QStringLiteral("cmdExit"));

    auto *newGroup = new QGroupBox(tr("New empty database"), this);
    auto *newLayout = new QGridLayout(newGroup);
    newLayout->addWidget(
        WrappedLabel(tr("To create a new empty database click on 'New'"), newGroup), 0, 0);
    newLayout->addWidget(cmdNew, 0, 1);
    newLayout->setColumnStretch(0, 1);

    auto *exitGroup = new QGroupBox(tr("Exit:"), this);
    auto *exitLayout = new QGridLayout(exitGroup);
    exitLayout->addWidget(WrappedLabel(tr("To exit Velmora! click on 'Exit'"), exitGroup), 0, 0);
    exitLayout->addWidget(cmdExit, 0, 1);
    exitLayout->setColumnStretch(0, 1);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(newGroup);
    layout->addWidget(exitGroup);
    setMinimumWidth(480);

    connect(cmdNew, &QPushButton::clicked, this, &frmNewDb::cmdNew_Click);
    connect(cmdExit, &QPushButton::clicked, this, &frmNewDb::cmdExit_Click);
}

void frmNewDb::cmdNew_Click()
{
    cBusySection busy;
    Cancelled = false;
    accept();
}

void frmNewDb::cmdExit_Click()
{
    reject();
}
