#include "ui/frm_export.h"

#include "base/app_info.h"
#include "base/busy.h"
#include "base/common.h"
#include "base/fatal_fault.h"
#include "base/user_interaction.h"
#include "reports/export_selection.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/players.h"
#include "session/tournament.h"
#include "ui/file_locations.h"
#include "ui/whole_file_writer.h"

#include <QBuffer>
#include <QCheckBox>
#include <QDir>
#include <QFileInfo>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QStatusBar>
#include <QVBoxLayout>

namespace {

QPointer<frmExport> instance;

template <typename Control> Control *Named(Control *control, const QString &name)
{
    control->setObjectName(name);
    return control;
}

} // namespace

frmExport::frmExport(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmExport"));
    setWindowTitle(QStringLiteral("Export"));
    setModal(true);

    Frame1 = Named(new QGroupBox(QStringLiteral("Selection"), this), QStringLiteral("Frame1"));
    optAll =
        Named(new QRadioButton(QStringLiteral("All players"), Frame1), QStringLiteral("optAll"));
    optUser1 = Named(new QRadioButton(QStringLiteral("User Defined 1"), Frame1),
                     QStringLiteral("optUser1"));
    optUser2 = Named(new QRadioButton(QStringLiteral("User Defined 2"), Frame1),
                     QStringLiteral("optUser2"));
    optUser3 = Named(new QRadioButton(QStringLiteral("User Defined 3"), Frame1),
                     QStringLiteral("optUser3"));
    optUser4 = Named(new QRadioButton(QStringLiteral("User Defined 4"), Frame1),
                     QStringLiteral("optUser4"));
    optTournament = Named(new QRadioButton(QStringLiteral("Current Tournament"), Frame1),
                          QStringLiteral("optTournament"));
    auto *selection = new QVBoxLayout(Frame1);
    for (QRadioButton *option : {optAll, optUser1, optUser2, optUser3, optUser4, optTournament}) {
        selection->addWidget(option);
        connect(option, &QRadioButton::clicked, this, &frmExport::SelectionClicked);
    }
    optAll->setChecked(true);

    Frame3 = Named(new QGroupBox(QStringLiteral("Details"), this), QStringLiteral("Frame3"));
    chkPersonal = Named(new QCheckBox(QStringLiteral("Personal details"), Frame3),
                        QStringLiteral("chkPersonal"));
    chkContact = Named(new QCheckBox(QStringLiteral("Contact details"), Frame3),
                       QStringLiteral("chkContact"));
    chkClub = Named(new QCheckBox(QStringLiteral("Club/School details"), Frame3),
                    QStringLiteral("chkClub"));
    chkGrade =
        Named(new QCheckBox(QStringLiteral("Grade details"), Frame3), QStringLiteral("chkGrade"));
    chkUser = Named(new QCheckBox(QStringLiteral("User defined details"), Frame3),
                    QStringLiteral("chkUser"));
    chkResults = Named(new QCheckBox(QStringLiteral("Tournament Results"), Frame3),
                       QStringLiteral("chkResults"));
    chkResults->setEnabled(false);
    auto *details = new QVBoxLayout(Frame3);
    for (QCheckBox *box : {chkPersonal, chkContact, chkClub, chkGrade, chkUser, chkResults})
        details->addWidget(box);
    details->addStretch();

    Label1 = Named(new QLabel(QStringLiteral("Destination:"), this), QStringLiteral("Label1"));
    txtDestination = Named(new QLineEdit(this), QStringLiteral("txtDestination"));
    Label1->setBuddy(txtDestination);
    cmdBrowse = Named(new QPushButton(QStringLiteral("..."), this), QStringLiteral("cmdBrowse"));
    cmdBrowse->setAutoDefault(false);
    cmdBrowse->setToolTip(QStringLiteral("Choose the file"));
    cmdOk = Named(new QPushButton(QStringLiteral("OK"), this), QStringLiteral("cmdOk"));
    cmdOk->setDefault(true);
    cmdCancel = Named(new QPushButton(QStringLiteral("Cancel"), this), QStringLiteral("cmdCancel"));
    cmdCancel->setAutoDefault(false);
    sbMsg = Named(new QStatusBar(this), QStringLiteral("sbMsg"));
    sbMsg->setSizeGripEnabled(false);

    auto *frames = new QHBoxLayout;
    frames->addWidget(Frame1, 1);
    frames->addWidget(Frame3, 1);
    auto *destination = new QHBoxLayout;
    destination->addWidget(Label1);
    destination->addWidget(txtDestination, 1);
    destination->addWidget(cmdBrowse);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdOk);
    buttons->addWidget(cmdCancel);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(frames);
    layout->addLayout(destination);
    layout->addLayout(buttons);
    layout->addWidget(sbMsg);

    // On load: the file proposed stands in the person's documents folder.
    txtDestination->setText(QDir(FileDialogFolder()).filePath(QStringLiteral("Export.csv")));
    txtDestination->setMinimumWidth(320);

    connect(cmdBrowse, &QPushButton::clicked, this, &frmExport::cmdBrowse_Click);
    connect(cmdOk, &QPushButton::clicked, this, &frmExport::cmdOk_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmExport::cmdCancel_Click);
}

frmExport &frmExport::Instance(QWidget *parent)
{
    if (!instance || instance->parentWidget() != parent)
        instance = new frmExport(parent);
    return *instance;
}

void frmExport::Run(QWidget *parent)
{
    Instance(parent).exec();
}

void frmExport::showEvent(QShowEvent *event)
{
    Activate();
    QDialog::showEvent(event);
}

void frmExport::Activate()
{
    chkResults->setEnabled(false);
    const cControl &control = Control();
    optUser1->setText(control.UserDefined1());
    optUser2->setText(control.UserDefined2());
    optUser3->setText(control.UserDefined3());
    optUser4->setText(control.UserDefined4());
    if (const std::shared_ptr<cTournament> tournament = control.Tournament()) {
        optTournament->setEnabled(true);
        QString caption = tournament->DisplayName();
        optTournament->setText(DoubleAmpersands(caption));
    } else {
        optTournament->setEnabled(false);
        optTournament->setText(QStringLiteral("Current Tournament"));
        // There is no tournament to export any more.
        if (optTournament->isChecked())
            optAll->setChecked(true);
    }
    SelectionClicked();
}

void frmExport::SelectionClicked()
{
    // The box keeps its tick when disabled; only the tournament's export reads it.
    chkResults->setEnabled(optTournament->isChecked());
}

void frmExport::cmdBrowse_Click()
{
    cFileRequest request;
    request.title = QStringLiteral("Export");
    request.folder = FileDialogFolder();
    request.fileName = QFileInfo(txtDestination->text()).fileName();
    request.filter = QStringLiteral("Text file (*.csv)|*.csv|All Files (*.*)|*.*");
    request.filterIndex = 1;
    request.defaultExtension = QStringLiteral("csv");
    const QString fileName = Interaction().ChooseSaveFile(request);
    // A cancel keeps the name that was there.
    if (fileName.isEmpty())
        return;
    RememberFileFolder(fileName);
    txtDestination->setText(fileName);
}

void frmExport::cmdCancel_Click()
{
    done(-1);
}

void frmExport::cmdOk_Click()
{
    const cExportOptions options = Options();
    done(0);
    WriteExport(options);
}

cExportOptions frmExport::Options() const
{
    cExportOptions options;
    if (optUser1->isChecked())
        options.Selection = PlayerSelection::User1;
    else if (optUser2->isChecked())
        options.Selection = PlayerSelection::User2;
    else if (optUser3->isChecked())
        options.Selection = PlayerSelection::User3;
    else if (optUser4->isChecked())
        options.Selection = PlayerSelection::User4;
    else if (optTournament->isChecked())
        options.Selection = PlayerSelection::Tournament;
    else
        options.Selection = PlayerSelection::All;
    options.Personal = chkPersonal->isChecked();
    options.Contact = chkContact->isChecked();
    options.Club = chkClub->isChecked();
    options.Grade = chkGrade->isChecked();
    options.User = chkUser->isChecked();
    options.Results = chkResults->isChecked();
    options.Destination = txtDestination->text().trimmed();
    return options;
}

void frmExport::WriteExport(const cExportOptions &options)
{
    const qint64 rows = PlayersInSelection(options.Selection);
    // Nobody to export: no file is written, and the person is told why.
    if (rows == 0) {
        Interaction().ShowMessage(QStringLiteral("No players match the selection."),
                                  MessageIcon::Information, AppInfo::Title());
        return;
    }
    if (options.Destination.isEmpty()) {
        Interaction().ShowMessage(QStringLiteral("Enter the name of the file to export to."),
                                  MessageIcon::Exclamation, AppInfo::Title());
        return;
    }

    cBusySection busy;
    const std::shared_ptr<cTournament> tournament = Control().Tournament();
    const WriteOutcome outcome =
        WriteWholeFile(options.Destination, [&options, &tournament](QIODevice &device) {
            try {
                if (options.Selection == PlayerSelection::Tournament && tournament)
                    tournament->Players().ListPlayersExport(device, options);
                else
                    Control().ListPlayersExport(device, options);
            } catch (const cFatalFault &fault) {
                // A file that fills its disk is told as such; the run goes on.
                if (fault.Number() == FaultNumber::File)
                    return WriteOutcome::Failed;
                throw;
            }
            return WriteOutcome::Written;
        });
    if (outcome != WriteOutcome::Written)
        return;
    RememberFileFolder(options.Destination);
    Interaction().ShowMessage(QStringLiteral("Export Completed.\n\n") + QString::number(rows) +
                                  (rows == 1 ? QStringLiteral(" row") : QStringLiteral(" rows")) +
                                  QStringLiteral(" written to ") +
                                  QDir::toNativeSeparators(options.Destination) + u'.',
                              MessageIcon::Plain, AppInfo::Title());
}
