#include "ui/frm_new_db.h"

#include "base/app_info.h"
#include "base/busy.h"
#include "base/user_interaction.h"
#include "database/database.h"
#include "database/dbase_table.h"
#include "session/globals.h"

#include <QDir>
#include <QFileInfo>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

// An example of where the DOS program's files may stand, as a path of this platform.
QString UsualMasterFile()
{
    return QDir::toNativeSeparators(QDir::homePath() + QStringLiteral("/Chess/Master.dbf"));
}

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
    txtSelectDb = new QLineEdit(UsualMasterFile(), this);
    txtSelectDb->setObjectName(QStringLiteral("txtSelectDb"));
    cmdBrowse = new QPushButton(tr("..."), this);
    cmdBrowse->setObjectName(QStringLiteral("cmdBrowse"));
    cmdCopy = new QPushButton(tr("Import"), this);
    cmdCopy->setObjectName(QStringLiteral("cmdCopy"));
    cmdExit = new QPushButton(tr("Exit"), this);
    cmdExit->setObjectName(QStringLiteral("cmdExit"));

    auto *newGroup = new QGroupBox(tr("New empty database"), this);
    auto *newLayout = new QGridLayout(newGroup);
    newLayout->addWidget(
        WrappedLabel(tr("To create a new empty database click on 'New'"), newGroup), 0, 0);
    newLayout->addWidget(cmdNew, 0, 1);
    newLayout->setColumnStretch(0, 1);

    auto *importGroup =
        new QGroupBox(tr("Import a database from an existing Velmora Director database:"), this);
    auto *importLayout = new QGridLayout(importGroup);
    importLayout->addWidget(
        WrappedLabel(tr("To import data from an exitsing DOS Velmora Director database into "
                        "Velmora!, click on '...', select the database and then click on "
                        "'Import'"),
                     importGroup),
        0, 0, 1, 3);
    importLayout->addWidget(txtSelectDb, 1, 0);
    importLayout->addWidget(cmdBrowse, 1, 1);
    importLayout->addWidget(cmdCopy, 1, 2);
    importLayout->setColumnStretch(0, 1);

    auto *warning = WrappedLabel(tr("Warning: If you import a database, any changes you make to "
                                    "the database will not be reflected in Velmora Director"),
                                 this);
    warning->setObjectName(QStringLiteral("lblWarning"));

    auto *exitGroup = new QGroupBox(tr("Exit:"), this);
    auto *exitLayout = new QGridLayout(exitGroup);
    exitLayout->addWidget(WrappedLabel(tr("To exit Velmora! click on 'Exit'"), exitGroup), 0, 0);
    exitLayout->addWidget(cmdExit, 0, 1);
    exitLayout->setColumnStretch(0, 1);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(newGroup);
    layout->addWidget(importGroup);
    layout->addWidget(warning);
    layout->addWidget(exitGroup);
    setMinimumWidth(520);

    connect(cmdNew, &QPushButton::clicked, this, &frmNewDb::cmdNew_Click);
    connect(cmdBrowse, &QPushButton::clicked, this, &frmNewDb::cmdBrowse_Click);
    connect(cmdCopy, &QPushButton::clicked, this, &frmNewDb::cmdCopy_Click);
    connect(cmdExit, &QPushButton::clicked, this, &frmNewDb::cmdExit_Click);
}

void frmNewDb::cmdNew_Click()
{
    cBusySection busy;
    Database().setSourceDb(QString());
    Cancelled = false;
    accept();
}

void frmNewDb::cmdBrowse_Click()
{
    // The dialog starts in the folder of the file in the box when there is one.
    const QFileInfo current(QDir::fromNativeSeparators(txtSelectDb->text()));
    const cFileRequest request{QStringLiteral("Open"),
                               current.absoluteDir().exists()
                                   ? QDir::toNativeSeparators(current.absolutePath())
                                   : QString(),
                               QStringLiteral("Master.dbf"),
                               QString(),
                               1,
                               QStringLiteral("dbf")};
    const QString chosen = Interaction().ChooseOpenFile(request);
    if (chosen.isEmpty())
        return;
    txtSelectDb->setText(chosen);
    const QString suffix = QFileInfo(chosen).suffix();
    if (!suffix.isEmpty() && suffix.compare(request.defaultExtension, Qt::CaseInsensitive) != 0)
        Interaction().Beep();
}

void frmNewDb::Refuse(const QString &text)
{
    Interaction().ShowMessage(text, MessageIcon::Exclamation, AppInfo::Title());
    txtSelectDb->setText(UsualMasterFile());
    txtSelectDb->setFocus();
}

void frmNewDb::cmdCopy_Click()
{
    const QString chosen = txtSelectDb->text();
    if (chosen.isEmpty()) {
        Interaction().Beep();
        Refuse(QStringLiteral("A master.dbf must be selected"));
        return;
    }
    if (!chosen.toUpper().contains(QStringLiteral("MASTER.DBF"))) {
        Interaction().Beep();
        Refuse(QStringLiteral("Master.dbf has not been selected"));
        return;
    }

    // A name without a folder names no folder: an empty source would mean a new
    // database without an import, which is not what was asked for.
    QString folder = cDatabase::DosFolderOfMaster(chosen);
    bool isMaster = !folder.isEmpty();
    if (isMaster) {
        folder = QDir::toNativeSeparators(QFileInfo(folder).absoluteFilePath());
        cDbaseTable master;
        isMaster = master.Open(folder, QStringLiteral("Master"));
        master.Close();
    }
    if (!isMaster) {
        Refuse(QStringLiteral("The database ") + chosen +
               QStringLiteral(" is not a Velmora Director master database."));
        return;
    }

    const QFileInfo source(folder);
    if (!source.isDir() || !source.isReadable()) {
        Refuse(QStringLiteral("The file ") + chosen +
               QStringLiteral(" does not exist or is not a database."));
        return;
    }
    Database().setSourceDb(folder);
    Cancelled = false;
    accept();
}

void frmNewDb::cmdExit_Click()
{
    reject();
}
