#include "ui/frm_print.h"

#include "base/app_info.h"
#include "base/busy.h"
#include "base/common.h"
#include "base/user_interaction.h"
#include "reports/page_document.h"
#include "reports/pdf_renderer.h"
#include "reports/print_cntrl.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/players.h"
#include "session/results.h"
#include "session/tournament.h"
#include "ui/file_locations.h"
#include "ui/print_progress.h"
#include "ui/select_combo_text.h"
#include "ui/whole_file_writer.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QStatusBar>
#include <QVBoxLayout>

namespace {

const QString PlayerListEntry = QStringLiteral("Player List");
const QString PairingListEntry = QStringLiteral("Pairing List");
const QString ResultsListEntry = QStringLiteral("Results List");
const QString CrossTableEntry = QStringLiteral("Cross Table");
const QString PairingCardsEntry = QStringLiteral("Pairing Cards");
const QString WallChartEntry = QStringLiteral("Wall Chart");
const QString DashedEntry = QStringLiteral("-----------");

QPointer<frmPrint> instance;

template <typename Control> Control *Named(Control *control, const QString &name)
{
    control->setObjectName(name);
    return control;
}

QRadioButton *Option(QWidget *parent, const QString &name, const QString &caption)
{
    return Named(new QRadioButton(caption, parent), name);
}

QGroupBox *Frame(QWidget *parent, const QString &name, const QString &caption)
{
    auto *frame = Named(new QGroupBox(caption, parent), name);
    new QVBoxLayout(frame);
    return frame;
}

} // namespace

frmPrint::frmPrint(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmPrint"));
    setWindowTitle(QStringLiteral("Print"));
    setModal(true);

    Label1 = Named(new QLabel(QStringLiteral("Print:"), this), QStringLiteral("Label1"));
    cmbPrint = Named(new QComboBox(this), QStringLiteral("cmbPrint"));
    Label1->setBuddy(cmbPrint);
    cmdPrint = Named(new QPushButton(QStringLiteral("Print"), this), QStringLiteral("cmdPrint"));
    cmdPreview =
        Named(new QPushButton(QStringLiteral("Preview"), this), QStringLiteral("cmdPreview"));
    cmdHTML = Named(new QPushButton(QStringLiteral("HTML"), this), QStringLiteral("cmdHTML"));
    cmdPDF = Named(new QPushButton(QStringLiteral("PDF"), this), QStringLiteral("cmdPDF"));
    cmdCancel = Named(new QPushButton(QStringLiteral("Close"), this), QStringLiteral("cmdCancel"));
    for (QPushButton *button : {cmdPrint, cmdPreview, cmdHTML, cmdPDF, cmdCancel})
        button->setAutoDefault(false);
    sbMsg = Named(new QStatusBar(this), QStringLiteral("sbMsg"));
    sbMsg->setSizeGripEnabled(false);

    BuildPlayerListFrame();
    BuildPairingListFrame();
    BuildResultListFrame();
    BuildCrossTableFrame();
    BuildPairingCardsFrame();

    // On load: the cards have one type and one size.
    cmbCardType->clear();
    cmbCardType->addItem(QStringLiteral("Pre Printed - Tournament Chess Supplies"));
    cmbCardType->setCurrentIndex(0);
    cmbRounds->clear();
    cmbRounds->addItem(QStringLiteral("9 Rounds"));
    cmbRounds->setCurrentIndex(0);

    framesArea_ = new QWidget(this);
    auto *framesLayout = new QVBoxLayout(framesArea_);
    framesLayout->setContentsMargins(0, 0, 0, 0);
    for (QWidget *frame : Frames())
        framesLayout->addWidget(frame);
    framesLayout->addStretch();
    KeepRoomForEveryFrame();

    auto *choice = new QHBoxLayout;
    choice->addWidget(Label1);
    choice->addWidget(cmbPrint, 1);
    auto *left = new QVBoxLayout;
    left->addLayout(choice);
    left->addWidget(framesArea_, 1);
    auto *buttons = new QVBoxLayout;
    for (QPushButton *button : {cmdPrint, cmdPreview, cmdHTML, cmdPDF})
        buttons->addWidget(button);
    buttons->addStretch();
    buttons->addWidget(cmdCancel);
    auto *body = new QHBoxLayout;
    body->addLayout(left, 1);
    body->addLayout(buttons);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(body, 1);
    layout->addWidget(sbMsg);

    connect(cmbPrint, &QComboBox::currentIndexChanged, this, &frmPrint::cmbPrint_Click);
    for (QRadioButton *option : {optAll, optUser1, optUser2, optUser3, optUser4})
        connect(option, &QRadioButton::clicked, this, &frmPrint::SelectionClicked);
    connect(optTournament, &QRadioButton::clicked, this, &frmPrint::optTournament_Click);
    for (QRadioButton *option : {optByGrade, optByName, optByPin, optByScore})
        connect(option, &QRadioButton::clicked, this, &frmPrint::CrossTableOrderClicked);
    connect(cmdPrint, &QPushButton::clicked, this, [this] { RunOutput(Output::Paper); });
    connect(cmdPreview, &QPushButton::clicked, this, [this] { RunOutput(Output::Preview); });
    connect(cmdHTML, &QPushButton::clicked, this, [this] { RunOutput(Output::WebPage); });
    connect(cmdPDF, &QPushButton::clicked, this, [this] { RunOutput(Output::Pdf); });
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmPrint::BuildPlayerListFrame()
{
    fPlayerList = Named(new QWidget(this), QStringLiteral("fPlayerList"));
    Frame1 = Frame(fPlayerList, QStringLiteral("Frame1"), QStringLiteral("Selection"));
    optAll = Option(Frame1, QStringLiteral("optAll"), QStringLiteral("All players"));
    optUser1 = Option(Frame1, QStringLiteral("optUser1"), QStringLiteral("User Defined 1"));
    optUser2 = Option(Frame1, QStringLiteral("optUser2"), QStringLiteral("User Defined 2"));
    optUser3 = Option(Frame1, QStringLiteral("optUser3"), QStringLiteral("User Defined 3"));
    optUser4 = Option(Frame1, QStringLiteral("optUser4"), QStringLiteral("User Defined 4"));
    optTournament =
        Option(Frame1, QStringLiteral("optTournament"), QStringLiteral("Current Tournament"));
    for (QRadioButton *option : {optAll, optUser1, optUser2, optUser3, optUser4, optTournament})
        Frame1->layout()->addWidget(option);
    optAll->setChecked(true);

    Frame2 = Frame(fPlayerList, QStringLiteral("Frame2"), QStringLiteral("Sequence"));
    optName = Option(Frame2, QStringLiteral("optName"), QStringLiteral("Name"));
    optAge = Option(Frame2, QStringLiteral("optAge"), QStringLiteral("Age"));
    optClub = Option(Frame2, QStringLiteral("optClub"), QStringLiteral("Club"));
    optGradeCode = Option(Frame2, QStringLiteral("optGradeCode"), QStringLiteral("Grade Club"));
    optSchool = Option(Frame2, QStringLiteral("optSchool"), QStringLiteral("School"));
    optCounty = Option(Frame2, QStringLiteral("optCounty"), QStringLiteral("County"));
    for (QRadioButton *option : {optName, optAge, optClub, optGradeCode, optSchool, optCounty})
        Frame2->layout()->addWidget(option);
    optName->setChecked(true);

    auto *layout = new QHBoxLayout(fPlayerList);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(Frame1, 1);
    layout->addWidget(Frame2, 1);
}

void frmPrint::BuildPairingListFrame()
{
    fPairingList = Named(new QWidget(this), QStringLiteral("fPairingList"));
    Label2 = Named(new QLabel(QStringLiteral("Round:"), fPairingList), QStringLiteral("Label2"));
    cmbRound = Named(new QComboBox(fPairingList), QStringLiteral("cmbRound"));
    Label2->setBuddy(cmbRound);
    auto *layout = new QHBoxLayout(fPairingList);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(Label2);
    layout->addWidget(cmbRound);
    layout->addStretch();
}

void frmPrint::BuildResultListFrame()
{
    fResultList = Frame(this, QStringLiteral("fResultList"), QStringLiteral("Tie break method"));
    optSum =
        Option(fResultList, QStringLiteral("optSum"), QStringLiteral("Sum of opponents scores"));
    optPro = Option(fResultList, QStringLiteral("optPro"), QStringLiteral("Progressive scores"));
    optSB = Option(fResultList, QStringLiteral("optSB"), QStringLiteral("Sonneborn-Berger"));
    optNone = Option(fResultList, QStringLiteral("optNone"), QStringLiteral("None"));
    for (QRadioButton *option : {optSum, optPro, optSB, optNone})
        fResultList->layout()->addWidget(option);
    optNone->setChecked(true);
}

void frmPrint::BuildCrossTableFrame()
{
    fCrossTable = Named(new QWidget(this), QStringLiteral("fCrossTable"));
    Frame5 = Frame(fCrossTable, QStringLiteral("Frame5"), QStringLiteral("Order"));
    optByPin = Option(Frame5, QStringLiteral("optByPin"), QStringLiteral("By Pin"));
    optByName = Option(Frame5, QStringLiteral("optByName"), QStringLiteral("By Name"));
    optByGrade = Option(Frame5, QStringLiteral("optByGrade"), QStringLiteral("By Grade"));
    optByScore = Option(Frame5, QStringLiteral("optByScore"), QStringLiteral("By Score"));
    for (QRadioButton *option : {optByPin, optByName, optByGrade, optByScore})
        Frame5->layout()->addWidget(option);
    optByPin->setChecked(true);

    Frame4 = Frame(fCrossTable, QStringLiteral("Frame4"), QStringLiteral("Details"));
    optPPos = Option(Frame4, QStringLiteral("optPPos"), QStringLiteral("Positon"));
    optPPin = Option(Frame4, QStringLiteral("optPPin"), QStringLiteral("Pin"));
    chkPlayerCodes = Named(new QCheckBox(QStringLiteral("Player codes"), Frame4),
                           QStringLiteral("chkPlayerCodes"));
    for (QWidget *control : std::initializer_list<QWidget *>{optPPos, optPPin, chkPlayerCodes})
        Frame4->layout()->addWidget(control);
    optPPin->setChecked(true);
    optPPos->setEnabled(false);
    optPPin->setEnabled(false);

    auto *layout = new QHBoxLayout(fCrossTable);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(Frame5, 1);
    layout->addWidget(Frame4, 1);
}

void frmPrint::BuildPairingCardsFrame()
{
    fPairingCards = Named(new QWidget(this), QStringLiteral("fPairingCards"));
    chkUserDetails = Named(new QCheckBox(QStringLiteral("Include User details."), fPairingCards),
                           QStringLiteral("chkUserDetails"));
    chkUserDetails->setChecked(true);
    Label3 = Named(new QLabel(QStringLiteral("Card:"), fPairingCards), QStringLiteral("Label3"));
    cmbCardType = Named(new QComboBox(fPairingCards), QStringLiteral("cmbCardType"));
    cmbCardType->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    Label3->setBuddy(cmbCardType);
    Label4 = Named(new QLabel(QStringLiteral("Rounds:"), fPairingCards), QStringLiteral("Label4"));
    cmbRounds = Named(new QComboBox(fPairingCards), QStringLiteral("cmbRounds"));
    Label4->setBuddy(cmbRounds);
    Label6 =
        Named(new QLabel(QStringLiteral("Important"), fPairingCards), QStringLiteral("Label6"));
    QFont bold = Label6->font();
    bold.setBold(true);
    Label6->setFont(bold);
    Label5 = Named(new QLabel(QStringLiteral("Enusre that the paper size is set to Index Card (4\" "
                                             "x 6\") before you print. The system will "
                                             "automatically set the orientation to landscape for "
                                             "correct priniting."),
                              fPairingCards),
                   QStringLiteral("Label5"));
    Label7 = Named(new QLabel(QStringLiteral("Experiment to find thecorrect way to put the pairing "
                                             "cards in the printer. On a HP deskjet the need to be "
                                             "face down with the top of the card to the left."),
                              fPairingCards),
                   QStringLiteral("Label7"));
    for (QLabel *label : {Label5, Label7}) {
        label->setWordWrap(true);
        // Wide enough that the notes keep a readable measure.
        label->setMinimumWidth(320);
    }

    auto *grid = new QGridLayout;
    grid->addWidget(Label3, 0, 0);
    grid->addWidget(cmbCardType, 0, 1);
    grid->addWidget(Label4, 1, 0);
    grid->addWidget(cmbRounds, 1, 1);
    grid->setColumnStretch(1, 1);
    auto *layout = new QVBoxLayout(fPairingCards);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(chkUserDetails);
    layout->addLayout(grid);
    layout->addWidget(Label6);
    layout->addWidget(Label5);
    layout->addWidget(Label7);
}

QList<QWidget *> frmPrint::Frames() const
{
    return {fPlayerList, fPairingList, fResultList, fCrossTable, fPairingCards};
}

void frmPrint::KeepRoomForEveryFrame()
{
    // The frames lie in one place and at most one shows; the place is as large as the
    // largest, so the dialog keeps its size from one report to the next. A caption
    // that changes on activation may make a frame larger.
    QSize largest;
    for (QWidget *frame : Frames())
        largest = largest.expandedTo(frame->sizeHint());
    framesArea_->setMinimumSize(largest);
}

frmPrint &frmPrint::Instance(QWidget *parent)
{
    if (!instance || instance->parentWidget() != parent)
        instance = new frmPrint(parent);
    return *instance;
}

void frmPrint::Run(QWidget *parent)
{
    Instance(parent).exec();
}

void frmPrint::showEvent(QShowEvent *event)
{
    Activate();
    QDialog::showEvent(event);
}

void frmPrint::Activate()
{
    // Taken as an unsigned 16-bit number, the index of a first activation (none) is
    // above any entry count, and so selects the first entry.
    rememberedIndex_ = cmbPrint->currentIndex();
    {
        const QSignalBlocker quiet(cmbPrint);
        cmbPrint->clear();
        cmbPrint->addItem(PlayerListEntry);
    }
    const std::shared_ptr<cTournament> tournament = Control().Tournament();
    if (!tournament) {
        optTournament->setEnabled(false);
        optTournament->setText(QStringLiteral("Current Tournament"));
        // The list of the tournament has nothing to work on any more.
        if (optTournament->isChecked()) {
            optAll->setChecked(true);
            SelectionClicked();
        }
        cmbRound->clear();
    } else {
        optTournament->setEnabled(true);
        QString caption = tournament->Title() + QStringLiteral(":\n") + tournament->Tourn();
        optTournament->setText(DoubleAmpersands(caption));
        const QSignalBlocker quiet(cmbPrint);
        for (const QString &entry :
             {DashedEntry, PairingListEntry, ResultsListEntry, CrossTableEntry, DashedEntry,
              PairingCardsEntry, WallChartEntry})
            cmbPrint->addItem(entry);
        cmbRound->clear();
        const int rounds = int(WholeValue(tournament->Rounds()));
        for (int round = 1; round <= rounds; ++round)
            cmbRound->addItem(QString::number(round));
        SelectComboText(tournament->CurrRound(), *cmbRound);
    }
    fPlayerList->hide();
    const cControl &control = Control();
    optUser1->setText(control.UserDefined1());
    optUser2->setText(control.UserDefined2());
    optUser3->setText(control.UserDefined3());
    optUser4->setText(control.UserDefined4());
    KeepRoomForEveryFrame();

    // The report of the last opening stays chosen while the list still holds it.
    const int remembered = quint16(rememberedIndex_);
    {
        const QSignalBlocker quiet(cmbPrint);
        cmbPrint->setCurrentIndex(remembered >= cmbPrint->count() ? 0 : remembered);
    }
    cmbPrint_Click();
}

void frmPrint::cmbPrint_Click()
{
    for (QWidget *frame : Frames())
        frame->hide();
    for (QPushButton *button : {cmdHTML, cmdPreview, cmdPrint, cmdPDF})
        button->setEnabled(true);
    const QString text = cmbPrint->currentText();
    if (text == PlayerListEntry) {
        fPlayerList->show();
    } else if (text == PairingListEntry) {
        fPairingList->show();
    } else if (text == ResultsListEntry) {
        fResultList->show();
    } else if (text == CrossTableEntry) {
        fCrossTable->show();
    } else if (text == PairingCardsEntry) {
        fPairingCards->show();
        cmdHTML->setEnabled(false);
    } else if (text == WallChartEntry) {
        cmdHTML->setEnabled(false);
    } else {
        for (QPushButton *button : {cmdHTML, cmdPreview, cmdPrint, cmdPDF})
            button->setEnabled(false);
    }
}

void frmPrint::SelectionClicked()
{
    optCounty->setEnabled(true);
}

void frmPrint::optTournament_Click()
{
    // The entrant records hold no county, so the tournament's list has no such order.
    optCounty->setEnabled(false);
    if (optCounty->isChecked())
        optName->setChecked(true);
}

void frmPrint::CrossTableOrderClicked()
{
    // Numbering by position is offered only for the score order, where pin stays open.
    const bool byScore = optByScore->isChecked();
    if (byScore)
        optPPos->setChecked(true);
    else
        optPPin->setChecked(true);
    optPPos->setEnabled(byScore);
    optPPin->setEnabled(byScore);
}

cPrintOptions frmPrint::Options() const
{
    cPrintOptions options;
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

    if (optAge->isChecked())
        options.Sequence = PlayerSequence::Age;
    else if (optClub->isChecked())
        options.Sequence = PlayerSequence::Club;
    else if (optGradeCode->isChecked())
        options.Sequence = PlayerSequence::GradeCode;
    else if (optSchool->isChecked())
        options.Sequence = PlayerSequence::School;
    else if (optCounty->isChecked())
        options.Sequence = PlayerSequence::County;
    else
        options.Sequence = PlayerSequence::Name;

    if (optSum->isChecked())
        options.TieBreak = TieBreakMode::optSum;
    else if (optPro->isChecked())
        options.TieBreak = TieBreakMode::optPro;
    else if (optSB->isChecked())
        options.TieBreak = TieBreakMode::optSB;
    else
        options.TieBreak = TieBreakMode::optNone;

    if (optByName->isChecked())
        options.Order = CrossTableOrder::ByName;
    else if (optByGrade->isChecked())
        options.Order = CrossTableOrder::ByGrade;
    else if (optByScore->isChecked())
        options.Order = CrossTableOrder::ByScore;
    else
        options.Order = CrossTableOrder::ByPin;
    options.Numbering = optPPos->isChecked() ? RowNumbering::Position : RowNumbering::Pin;
    options.PlayerCodes = chkPlayerCodes->isChecked();
    options.UserDetails = chkUserDetails->isChecked();
    options.Round = cmbRound->currentText();
    return options;
}

bool frmPrint::ComposeReport(qint32 destination)
{
    const QString text = cmbPrint->currentText();
    const cPrintOptions options = Options();
    const std::shared_ptr<cTournament> tournament = Control().Tournament();
    if (text == PlayerListEntry) {
        if (options.Selection == PlayerSelection::Tournament && tournament)
            tournament->Players().ListPlayers(destination, options);
        else
            Control().ListPlayers(destination, options);
        return true;
    }
    if (!tournament)
        return false;
    if (text == PairingListEntry)
        tournament->Results().ListPairings(destination, options);
    else if (text == ResultsListEntry)
        tournament->Players().ListResults(destination, options);
    else if (text == CrossTableEntry)
        tournament->Players().ListCrossTable(destination, options);
    else if (text == PairingCardsEntry)
        tournament->Players().ListPairingCards(destination, options);
    else if (text == WallChartEntry)
        tournament->Players().ListWallChart(destination, options);
    else
        return false;
    return true;
}

void frmPrint::RunOutput(Output output)
{
    QString pdfName;
    if (output == Output::Pdf) {
        cFileRequest request;
        request.title = QStringLiteral("Save as PDF");
        request.folder = FileDialogFolder();
        request.fileName = cmbPrint->currentText() + QStringLiteral(".pdf");
        request.filter = QStringLiteral("PDF file (*.pdf)|*.pdf|All Files (*.*)|*.*");
        request.filterIndex = 1;
        request.defaultExtension = QStringLiteral("pdf");
        pdfName = Interaction().ChooseSaveFile(request);
        // A cancelled file dialog changes nothing.
        if (pdfName.isEmpty())
            return;
        RememberFileFolder(pdfName);
    }

    const qint32 destination = output == Output::Paper     ? mPrintCntrl::Destination::Paper
                               : output == Output::WebPage ? mPrintCntrl::Destination::WebPage
                                                           : mPrintCntrl::Destination::Preview;
    {
        cBusySection busy;
        hide();
        ComposeReport(destination);
        hide();
    }

    switch (output) {
    case Output::Paper:
        mPrintCntrl::SendToPrinter();
        break;
    case Output::Preview:
        mPrintCntrl::ShowPrintPreview();
        break;
    case Output::WebPage:
        mPrintCntrl::ShowWebPreview();
        break;
    case Output::Pdf:
        SavePdf(pdfName);
        break;
    }
}

void frmPrint::SavePdf(const QString &fileName)
{
    const cPageDocument &document = mPrintCntrl::Document();
    QWidget *owner = parentWidget();
    const WriteOutcome outcome = WriteWholeFile(fileName, [&](QIODevice &device) {
        cPrintProgress progress(document.DocumentTitle(), document.PageCount(), owner);
        if (WritePdf(document, device, [&progress](int page) { return progress.BeforePage(page); }))
            return WriteOutcome::Written;
        return progress.Cancelled() ? WriteOutcome::Cancelled : WriteOutcome::Failed;
    });
    if (outcome == WriteOutcome::Written)
        Interaction().ShowMessage(QStringLiteral("Report saved to ") +
                                      QDir::toNativeSeparators(fileName),
                                  MessageIcon::Plain, AppInfo::Title());
}
