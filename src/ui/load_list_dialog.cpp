#include "ui/load_list_dialog.h"

#include "base/app_info.h"
#include "base/user_interaction.h"
#include "database/dbase_table.h"

#include <QFileInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

const QString ListExtension = QStringLiteral("dbf");

// How the platform's file dialog describes a cancel, with its number.
const QString CancelDescription = QStringLiteral("Cancel was selected.");
constexpr int CancelNumber = 32755;

} // namespace

cLoadListDialog::cLoadListDialog(const QString &objectName, const QString &title,
                                 const QString &prompt, const QString &defaultFile, QWidget *parent)
    : QDialog(parent)
{
    setObjectName(objectName);
    setWindowTitle(title);

    lblPrompt = new QLabel(prompt, this);
    lblPrompt->setObjectName(QStringLiteral("lblPrompt"));
    lblPrompt->setWordWrap(true);
    txtSelectDb = new QLineEdit(defaultFile, this);
    txtSelectDb->setObjectName(QStringLiteral("txtSelectDb"));
    cmdBrowse = new QPushButton(tr("..."), this);
    cmdBrowse->setObjectName(QStringLiteral("cmdBrowse"));
    cmdOk = new QPushButton(tr("OK"), this);
    cmdOk->setObjectName(QStringLiteral("cmdOk"));
    cmdOk->setDefault(true);
    cmdCancel = new QPushButton(tr("Cancel"), this);
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));

    auto *layout = new QGridLayout(this);
    layout->addWidget(lblPrompt, 0, 0, 1, 2);
    layout->addWidget(txtSelectDb, 1, 0);
    layout->addWidget(cmdBrowse, 1, 1);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdOk);
    buttons->addWidget(cmdCancel);
    layout->addLayout(buttons, 2, 0, 1, 2);
    layout->setColumnStretch(0, 1);
    setMinimumWidth(440);

    connect(cmdBrowse, &QPushButton::clicked, this, &cLoadListDialog::cmdBrowse_Click);
    connect(cmdOk, &QPushButton::clicked, this, &cLoadListDialog::cmdOk_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &cLoadListDialog::cmdCancel_Click);
}

void cLoadListDialog::cmdBrowse_Click()
{
    const cFileRequest request{QStringLiteral("Open"), QString(), txtSelectDb->text(), QString(), 1,
                               ListExtension};
    const QString chosen = Interaction().ChooseOpenFile(request);
    if (chosen.isEmpty()) {
        Interaction().ShowMessage(CancelDescription + u' ' + QString::number(CancelNumber),
                                  MessageIcon::Plain, AppInfo::Title());
        txtSelectDb->clear();
        return;
    }
    const QString suffix = QFileInfo(chosen).suffix();
    if (!suffix.isEmpty() && suffix.compare(ListExtension, Qt::CaseInsensitive) != 0) {
        Interaction().Beep();
        txtSelectDb->clear();
        return;
    }

    txtSelectDb->setText(chosen);
    const qsizetype slash = qMax(chosen.lastIndexOf(u'/'), chosen.lastIndexOf(u'\\'));
    const QString folder = slash < 0 ? QStringLiteral(".") : chosen.left(qMax<qsizetype>(slash, 1));
    const QString table = chosen.mid(slash + 1);
    // A file that does not open as a dBase table is refused by emptying the box; the
    // file dialog has already said that it exists.
    cDbaseTable list;
    if (!list.Open(folder, table))
        txtSelectDb->clear();
    list.Close();
}

void cLoadListDialog::cmdOk_Click()
{
    if (txtSelectDb->text().isEmpty()) {
        Interaction().Beep();
        txtSelectDb->setFocus();
        return;
    }
    fileName_ = txtSelectDb->text();
    Cancelled = false;
    accept();
}

void cLoadListDialog::cmdCancel_Click()
{
    Cancelled = true;
    reject();
}
