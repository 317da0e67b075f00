#include "ui/frm_msg.h"

#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

frmMsg::frmMsg(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmMsg"));
    txtNotes = new QPlainTextEdit(this);
    txtNotes->setObjectName(QStringLiteral("txtNotes"));
    txtNotes->setReadOnly(true);
    txtNotes->setLineWrapMode(QPlainTextEdit::NoWrap);
    // Reports of checks line up in columns, so they need a fixed-pitch font.
    txtNotes->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    cmdClose = new QPushButton(tr("Close"), this);
    cmdClose->setObjectName(QStringLiteral("cmdClose"));
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::close);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(txtNotes, 1);
    layout->addWidget(cmdClose, 0, Qt::AlignHCenter);
    // The window never gets smaller than the button needs plus a margin.
    setMinimumSize(cmdClose->sizeHint().width() + 34, cmdClose->sizeHint().height() + 34);
    resize(600, 450);
}
