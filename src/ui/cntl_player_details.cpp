#include "ui/cntl_player_details.h"

#include "base/app_info.h"
#include "base/busy.h"
#include "base/common.h"
#include "base/user_interaction.h"
#include "database/database.h"
#include "database/sql.h"
#include "register/master.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/player.h"
#include "session/players.h"
#include "session/tournament.h"
#include "ui/cntl_data_list.h"
#include "ui/field_rules.h"
#include "ui/frm_bcf_master.h"
#include "ui/frm_grade_club.h"

#include <QComboBox>
#include <QEvent>
#include <QFormLayout>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSqlQuery>
#include <QStackedLayout>

namespace {

QLineEdit *NewField(QWidget *parent, const char *name, int maxLength)
{
    auto *field = new QLineEdit(parent);
    field->setObjectName(QString::fromLatin1(name));
    field->setMaxLength(maxLength);
    return field;
}

QComboBox *NewList(QWidget *parent, const char *name, bool freeText, int maxLength = 0)
{
    auto *list = new QComboBox(parent);
    list->setObjectName(QString::fromLatin1(name));
    list->setEditable(freeText);
    if (freeText) {
        list->lineEdit()->setMaxLength(maxLength);
        list->setInsertPolicy(QComboBox::NoInsert);
    }
    return list;
}

QLabel *NewValue(QWidget *parent, const char *name)
{
    auto *label = new QLabel(parent);
    label->setObjectName(QString::fromLatin1(name));
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

// The distinct non-empty values of a column of the register, for the lists that
// offer them and take free text too.
QStringList DistinctValues(const QString &statement)
{
    QStringList values;
    QSqlQuery query = RunSql(statement);
    while (query.next())
        values.append(query.value(0).toString());
    return values;
}

void SelectLetter(QComboBox *list, const QString &letter)
{
    const int index = list->findText(letter.isEmpty() ? QStringLiteral(" ") : letter);
    list->setCurrentIndex(index < 0 ? 0 : index);
}

QString Letter(const QComboBox *list)
{
    return list->currentText().trimmed();
}

} // namespace

cntlPlayerDetails::cntlPlayerDetails(QWidget *parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("cntlPlayerDetails"));
    rules_ = new cFieldRules(this);
    frames_ = new QStackedLayout(this);
    frames_->setContentsMargins(0, 0, 0, 0);
    BuildFields();
    BuildLabels();
    frames_->addWidget(frmLabel);
    frames_->addWidget(frmText);
    setDisplayMode(View);
}

void cntlPlayerDetails::BuildFields()
{
    frmText = new QWidget(this);
    frmText->setObjectName(QStringLiteral("frmText"));
    txtMasterId = NewField(frmText, "txtMasterId", 10);
    txtMasterId->setReadOnly(true);
    txtMasterId->setFocusPolicy(Qt::NoFocus);
    txtForename = NewField(frmText, "txtForename", 15);
    rules_->Watch(txtForename, tr("Enter the player's forename"));
    txtSurname = NewField(frmText, "txtSurname", 20);
    rules_->Watch(txtSurname, tr("Enter the player's surname"));
    txtDOB = NewField(frmText, "txtDOB", 10);
    rules_->Watch(txtDOB, tr("Enter the date of birth in DD/MM/YYYY format"),
                  &cFieldRules::EmptyOrDate,
                  tr("Date of Birth must be entered in DD/MM/YYYY format"));
    txtAge = NewField(frmText, "txtAge", 3);
    txtAge->setReadOnly(true);
    txtAge->setFocusPolicy(Qt::NoFocus);
    cmbClub = NewList(frmText, "cmbClub", true, 25);
    rules_->Watch(cmbClub, tr("Enter or select the player's club"));
    txtGradeClub = NewField(frmText, "txtGradeClub", 30);
    rules_->Watch(txtGradeClub, tr("Enter the club's name in the club list"));
    txtGradeCode = NewField(frmText, "txtGradeCode", 4);
    rules_->Watch(txtGradeCode, tr("Enter the club's code in the club list"));
    cmbSchool = NewList(frmText, "cmbSchool", true, 25);
    rules_->Watch(cmbSchool, tr("Enter or select the player's school"));
    txtGMTitle = NewField(frmText, "txtGMTitle", 2);
    rules_->Watch(txtGMTitle, tr("Enter the player's FIDE title"));
    txtGrade = NewField(frmText, "txtGrade", 5);
    rules_->Watch(txtGrade, tr("Enter the player's grade"), &cFieldRules::EmptyOrWholeNumber);
    cmbGLett = NewList(frmText, "cmbGLett", false);
    rules_->Watch(cmbGLett, tr("Select the letter of the grade"));
    txtRGrade = NewField(frmText, "txtRGrade", 5);
    rules_->Watch(txtRGrade, tr("Enter the player's rapidplay grade"),
                  &cFieldRules::EmptyOrWholeNumber);
    cmbRLett = NewList(frmText, "cmbRLett", false);
    rules_->Watch(cmbRLett, tr("Select the letter of the rapidplay grade"));
    txtELO = NewField(frmText, "txtELO", 5);
    rules_->Watch(txtELO, tr("Enter the player's FIDE rating"), &cFieldRules::EmptyOrWholeNumber);
    txtCode = NewField(frmText, "txtCode", 7);
    rules_->Watch(txtCode, tr("Enter the player's BCF code"));
    cmdGradeClub = new QPushButton(tr("Pick..."), frmText);
    cmdGradeClub->setObjectName(QStringLiteral("cmdGradeClub"));
    cmdGradeClub->setAutoDefault(false);
    cmdSelect = new QPushButton(tr("Select..."), frmText);
    cmdSelect->setObjectName(QStringLiteral("cmdSelect"));
    cmdSelect->setAutoDefault(false);
    connect(cmdGradeClub, &QPushButton::clicked, this, &cntlPlayerDetails::cmdGradeClub_Click);
    connect(cmdSelect, &QPushButton::clicked, this, &cntlPlayerDetails::cmdSelect_Click);
    txtForename->installEventFilter(this);
    txtSurname->installEventFilter(this);
    txtDOB->installEventFilter(this);

    auto *grid = new QGridLayout(frmText);
    grid->setContentsMargins(0, 0, 0, 0);
    int row = 0;
    auto add = [&](const QString &caption, QWidget *field, QWidget *second = nullptr,
                   QWidget *command = nullptr) {
        grid->addWidget(new QLabel(caption, frmText), row, 0);
        grid->addWidget(field, row, 1, 1, second ? 1 : 2);
        if (second)
            grid->addWidget(second, row, 2);
        if (command)
            grid->addWidget(command, row, 3);
        ++row;
    };
    add(tr("Master Id:"), txtMasterId);
    add(tr("Forename:"), txtForename);
    add(tr("Surname:"), txtSurname);
    add(tr("Date of Birth:"), txtDOB, txtAge);
    add(tr("Club:"), cmbClub);
    add(tr("Grading Club:"), txtGradeClub, txtGradeCode, cmdGradeClub);
    add(tr("School:"), cmbSchool);
    add(tr("Title:"), txtGMTitle);
    add(tr("Grade:"), txtGrade, cmbGLett);
    add(tr("Rapidplay:"), txtRGrade, cmbRLett);
    add(tr("ELO:"), txtELO);
    add(tr("BCF Code:"), txtCode, nullptr, cmdSelect);
    grid->setColumnStretch(1, 1);

    const auto changed = [this] { emit Changed(); };
    for (QLineEdit *field : frmText->findChildren<QLineEdit *>())
        connect(field, &QLineEdit::textEdited, this, changed);
    for (QComboBox *list : frmText->findChildren<QComboBox *>())
        connect(list, &QComboBox::currentTextChanged, this, changed);
}

void cntlPlayerDetails::BuildLabels()
{
    frmLabel = new QWidget(this);
    frmLabel->setObjectName(QStringLiteral("frmLabel"));
    lblMasterId = NewValue(frmLabel, "lblMasterId");
    lblForename = NewValue(frmLabel, "lblForename");
    lblSurname = NewValue(frmLabel, "lblSurname");
    lblDOB = NewValue(frmLabel, "lblDOB");
    lblAge = NewValue(frmLabel, "lblAge");
    lblClub = NewValue(frmLabel, "lblClub");
    lblGradeClub = NewValue(frmLabel, "lblGradeClub");
    lblSchool = NewValue(frmLabel, "lblSchool");
    lblGMTitle = NewValue(frmLabel, "lblGMTitle");
    lblGrade = NewValue(frmLabel, "lblGrade");
    lblRGrade = NewValue(frmLabel, "lblRGrade");
    lblELO = NewValue(frmLabel, "lblELO");
    lblCode = NewValue(frmLabel, "lblCode");
    auto *form = new QFormLayout(frmLabel);
    form->setContentsMargins(0, 0, 0, 0);
    form->addRow(tr("Master Id:"), lblMasterId);
    form->addRow(tr("Forename:"), lblForename);
    form->addRow(tr("Surname:"), lblSurname);
    form->addRow(tr("Date of Birth:"), lblDOB);
    form->addRow(tr("Age:"), lblAge);
    form->addRow(tr("Club:"), lblClub);
    form->addRow(tr("Grading Club:"), lblGradeClub);
    form->addRow(tr("School:"), lblSchool);
    form->addRow(tr("Title:"), lblGMTitle);
    form->addRow(tr("Grade:"), lblGrade);
    form->addRow(tr("Rapidplay:"), lblRGrade);
    form->addRow(tr("ELO:"), lblELO);
    form->addRow(tr("BCF Code:"), lblCode);
}

void cntlPlayerDetails::setDisplayMode(int mode)
{
    displayMode_ = mode;
    QWidget *shown = mode == New || mode == Change ? frmText : frmLabel;
    QWidget *hidden = shown == frmLabel ? frmText : frmLabel;
    // Only the frame on view asks for room.
    shown->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    hidden->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    frames_->setCurrentWidget(shown);
}

QStatusBar *cntlPlayerDetails::StatusBar() const
{
    return rules_->StatusBar();
}

void cntlPlayerDetails::setStatusBar(QStatusBar *statusBar)
{
    rules_->setStatusBar(statusBar);
}

void cntlPlayerDetails::Display()
{
    cBusySection busy;
    cmbGLett->clear();
    cmbRLett->clear();
    for (const QChar letter : Control().BCFGradeChars()) {
        cmbGLett->addItem(QString(letter));
        cmbRLett->addItem(QString(letter));
    }
    // A file whose letters do not end in a blank still allows no letter.
    if (cmbGLett->findText(QStringLiteral(" ")) < 0) {
        cmbGLett->addItem(QStringLiteral(" "));
        cmbRLett->addItem(QStringLiteral(" "));
    }
    cmbClub->clear();
    cmbClub->addItems(
        DistinctValues(QStringLiteral("SELECT DISTINCT Club From Master WHERE Club <> ''")));
    cmbSchool->clear();
    cmbSchool->addItems(
        DistinctValues(QStringLiteral("SELECT DISTINCT School From Master WHERE School <> ''")));
    cmdGradeClub->setEnabled(!Database().BCFClubIsEmpty());
    // Matching needs the entrant's register record and a grading list to match it to.
    cmdSelect->setEnabled(player_ && !player_->MasterId().isEmpty() &&
                          !Database().BCFMasterIsEmpty());
    if (!player_)
        return;
    const cPlayer &p = *player_;
    txtMasterId->setText(p.MasterId());
    txtForename->setText(p.Forename());
    txtSurname->setText(p.Surname());
    txtDOB->setText(p.DOB());
    txtAge->setText(p.Age());
    cmbClub->setEditText(p.Club());
    txtGradeClub->setText(p.ClubName());
    txtGradeCode->setText(p.ClubCode());
    cmbSchool->setEditText(p.School());
    txtGMTitle->setText(p.GMTitle());
    txtGrade->setText(p.LongPlay());
    SelectLetter(cmbGLett, p.LongPlayLett());
    txtRGrade->setText(p.RapidPlay());
    SelectLetter(cmbRLett, p.RapidPlayLett());
    txtELO->setText(p.FIDE());
    txtCode->setText(p.BCFCode());

    lblMasterId->setText(p.MasterId());
    lblForename->setText(p.Forename());
    lblSurname->setText(p.Surname());
    lblDOB->setText(p.DOB());
    lblAge->setText(p.Age());
    lblClub->setText(p.Club());
    lblGradeClub->setText(p.ClubCode().isEmpty()
                              ? p.ClubName()
                              : p.ClubName() + QStringLiteral(" (") + p.ClubCode() + u')');
    lblSchool->setText(p.School());
    lblGMTitle->setText(p.GMTitle());
    lblGrade->setText(p.LongPlay() + p.LongPlayLett());
    lblRGrade->setText(p.RapidPlay() + p.RapidPlayLett());
    lblELO->setText(p.FIDE());
    lblCode->setText(p.BCFCode());
}

bool cntlPlayerDetails::Valid()
{
    if (displayMode_ != New && displayMode_ != Change)
        return true;
    if (!rules_->AllAccepted())
        return false;
    if (txtSurname->text().trimmed().isEmpty()) {
        Interaction().ShowMessage(tr("Surname must be entered"), MessageIcon::Plain,
                                  AppInfo::Title());
        txtSurname->setFocus();
        return false;
    }
    return true;
}

void cntlPlayerDetails::CopyFields(cPlayer &player) const
{
    player.setForename(CapitaliseWords(txtForename->text()));
    player.setSurname(CapitaliseWords(txtSurname->text()));
    player.setDOB(DisplayDate(DateFromText(txtDOB->text())));
    player.setAge(txtAge->text());
    player.setClub(cmbClub->currentText());
    player.setClubName(txtGradeClub->text());
    player.setClubCode(txtGradeCode->text());
    player.setSchool(cmbSchool->currentText());
    player.setGMTitle(txtGMTitle->text());
    player.setLongPlay(txtGrade->text());
    player.setLongPlayLett(Letter(cmbGLett));
    player.setRapidPlay(txtRGrade->text());
    player.setRapidPlayLett(Letter(cmbRLett));
    player.setFIDE(txtELO->text());
    player.setBCFCode(txtCode->text());
}

void cntlPlayerDetails::Update()
{
    if (!player_)
        return;
    cPlayer &player = *player_;
    switch (displayMode_) {
    case New: {
        CopyFields(player);
        player.Create();
        auto tournament = Control().Tournament();
        // The new entrant joins the collection as it stands in the file.
        auto added = tournament->Players().Load(player.TournId(), player.PlayerId());
        tournament->setSelPlayer(added);
        player_ = added;
        break;
    }
    case Change:
        CopyFields(player);
        player.Update();
        if (!player.MasterId().isEmpty() &&
            Interaction().AskYesNo(
                tr("Do you want to update the master details with these changes?"),
                AppInfo::Title())) {
            cMaster master;
            master.Load(player.MasterId());
            master.setForename(player.Forename());
            master.setSurname(player.Surname());
            master.setDOB(player.DOB());
            master.setAge(player.Age());
            master.setClub(player.Club());
            master.setClubName(player.ClubName());
            master.setClubCode(player.ClubCode());
            master.setSchool(player.School());
            master.setGMTitle(player.GMTitle());
            master.setLongPlay(player.LongPlay());
            master.setLongPlayLett(player.LongPlayLett());
            master.setRapidPlay(player.RapidPlay());
            master.setRapidPlayLett(player.RapidPlayLett());
            master.setFIDE(player.FIDE());
            master.setBCFCode(player.BCFCode());
            master.Update();
        }
        break;
    case 4:
    case Remove:
        // Taking the entrant out of the collection deletes its row and its games.
        if (auto tournament = Control().Tournament();
            tournament && tournament->Players().Count() > 0 && !player.PlayerId().isEmpty()) {
            const QString key = player.PlayerId();
            if (tournament->SelPlayer() == player_)
                tournament->setSelPlayer(nullptr);
            tournament->Players().Remove(key);
        } else {
            player.Delete();
        }
        break;
    default:
        break;
    }
}

void cntlPlayerDetails::cmdSelect_Click()
{
    if (!player_ || player_->MasterId().isEmpty())
        return;
    auto master = std::make_shared<cMaster>();
    master->Load(player_->MasterId());
    if (!MatchSingle(master, this))
        return;
    player_->setBCFCode(master->BCFCode());
    player_->UpdateGradesFromMaster(*master);
    Display();
    emit Changed();
}

void cntlPlayerDetails::cmdGradeClub_Click()
{
    frmGradeClub picker(this);
    // The club list opens on the club the entrant most likely plays for.
    for (const QString &name :
         {txtGradeClub->text(), cmbClub->currentText(), cmbSchool->currentText()}) {
        if (!name.trimmed().isEmpty()) {
            picker.lstClub->setSelName(name.trimmed());
            break;
        }
    }
    picker.exec();
    if (picker.Cancelled)
        return;
    const QString code = picker.Code();
    QSqlQuery club = RunSql(QStringLiteral("SELECT Club FROM Club WHERE Code = ?"), {code});
    txtGradeCode->setText(code);
    txtGradeClub->setText(club.next() ? TextOf(club.value(0)) : QString());
    emit Changed();
}

bool cntlPlayerDetails::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::FocusOut) {
        auto *field = static_cast<QLineEdit *>(watched);
        if (watched == txtForename || watched == txtSurname) {
            field->setText(CapitaliseWords(field->text()));
        } else if (watched == txtDOB && IsDate(txtDOB->text())) {
            txtDOB->setText(DisplayDate(DateFromText(txtDOB->text())));
            txtAge->setText(AgeAtDate(Control().AgeDate(), txtDOB->text()));
        } else if (watched == txtDOB && txtDOB->text().trimmed().isEmpty()) {
            txtAge->clear();
        }
    }
    return QWidget::eventFilter(watched, event);
}
