#include "ui/cntl_person_details.h"

#include "base/app_info.h"
#include "base/common.h"
#include "base/user_interaction.h"
#include "database/database.h"
#include "database/sql.h"
#include "register/person_record.h"
#include "session/control.h"
#include "session/globals.h"
#include "ui/frm_grade_club.h"

#include <QApplication>
#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QStatusBar>
#include <QTimer>

namespace {

QLineEdit *Box(QWidget *parent, const char *name, int maxLength, const QString &help)
{
    auto *box = new QLineEdit(parent);
    box->setObjectName(QString::fromLatin1(name));
    box->setMaxLength(maxLength);
    box->setProperty("Tag", help);
    // Wide enough for the field, up to fifteen characters; longer texts scroll.
    const int characters = qMin(maxLength, 15) + 1;
    box->setMinimumWidth(
        box->fontMetrics().horizontalAdvance(QLatin1Char('M')) * characters * 3 / 4 + 10);
    return box;
}

QComboBox *List(QWidget *parent, const char *name, bool freeText, int maxLength,
                const QString &help)
{
    auto *list = new QComboBox(parent);
    list->setObjectName(QString::fromLatin1(name));
    list->setEditable(freeText);
    if (freeText) {
        list->setInsertPolicy(QComboBox::NoInsert);
        list->lineEdit()->setMaxLength(maxLength);
        list->setMinimumWidth(list->fontMetrics().horizontalAdvance(QLatin1Char('M')) * 11);
    }
    list->setProperty("Tag", help);
    return list;
}

QLabel *Caption(QWidget *parent, const QString &text, QWidget *buddy)
{
    auto *caption = new QLabel(text, parent);
    caption->setBuddy(buddy);
    caption->setProperty("Caption", text);
    return caption;
}

// Shows the text in the list, adding it when a free-text list does not offer it.
void ShowInList(QComboBox *list, const QString &text)
{
    if (list->isEditable()) {
        list->setEditText(text);
        return;
    }
    list->setCurrentIndex(qMax(0, list->findText(text)));
}

QString FlagWord(const QString &flag)
{
    if (flag == u'Y')
        return QStringLiteral("Yes");
    if (flag == u'N')
        return QStringLiteral("No");
    return QString();
}

QString FlagLetter(const QString &word)
{
    if (word == QLatin1String("Yes"))
        return QStringLiteral("Y");
    if (word == QLatin1String("No"))
        return QStringLiteral("N");
    return QString();
}

QStringList DistinctValues(const QString &field)
{
    QStringList values;
    QSqlQuery query =
        RunSql(QStringLiteral("SELECT DISTINCT ") + field + QStringLiteral(" FROM Master WHERE ") +
               field + QStringLiteral(" <> '' ORDER BY ") + field);
    while (query.next())
        values << query.value(0).toString();
    return values;
}

bool IsWholeNumber(const QString &text)
{
    static const QRegularExpression whole(QStringLiteral("^[+-]?[0-9]+$"));
    return whole.match(text.trimmed()).hasMatch();
}

} // namespace

cntlPersonDetails::cntlPersonDetails(const char *idBoxName, bool playerFields, QWidget *parent)
    : QWidget(parent), playerFields_(playerFields)
{
    txtId = Box(this, idBoxName, 10, QString());
    txtId->setReadOnly(true);
    txtId->setFocusPolicy(Qt::NoFocus);
    txtForename = Box(this, "txtForename", 15, tr("The forename or forenames"));
    txtSurname = Box(this, "txtSurname", 20, tr("The surname; it must be entered"));
    txtAddress1 = Box(this, "txtAddress1", 30, tr("The first line of the address"));
    txtAddress2 = Box(this, "txtAddress2", 30, tr("The second line of the address"));
    txtAddress3 = Box(this, "txtAddress3", 30, tr("The third line of the address"));
    txtAddress4 = Box(this, "txtAddress4", 30, tr("The fourth line of the address"));
    txtPostCode = Box(this, "txtPostCode", 8, tr("The post code"));
    txtPhone = Box(this, "txtPhone", 18, tr("The telephone number"));
    txtEMail = Box(this, "txtEMail", 40, tr("The e-mail address"));
    if (playerFields_)
        AddPlayerFields();
    txtUnion = Box(this, "txtUnion", 1, tr("The union, one letter"));
    txtNation = Box(this, "txtNation", 3, tr("The nation, up to three letters"));
    txtGMTitle = Box(this, "txtGMTitle", 2, tr("The title, such as GM or IM"));
    txtGrade = Box(this, "txtGrade", 4, tr("The long-play grade, a whole number"));
    cmbGLett = List(this, "cmbGLett", false, 0, tr("The letter of the long-play grade"));
    txtRGrade = Box(this, "txtRGrade", 4, tr("The rapid-play grade, a whole number"));
    cmbRLett = List(this, "cmbRLett", false, 0, tr("The letter of the rapid-play grade"));
    txtELO = Box(this, "txtELO", 4, tr("The FIDE rating, a whole number"));
    txtCode = Box(this, "txtCode", 7, tr("The code in the grading list"));
    for (int flag = 0; flag < 4; ++flag) {
        cmbUD[flag] = List(this, "", false, 0, tr("Yes, No or left empty"));
        cmbUD[flag]->setObjectName(QStringLiteral("cmbUD%1").arg(flag + 1));
        lblUD[flag] = Caption(this, QString(), cmbUD[flag]);
        lblUD[flag]->setObjectName(QStringLiteral("lblUD%1").arg(flag + 1));
        cmbUD[flag]->addItems({QString(), QStringLiteral("Yes"), QStringLiteral("No")});
    }
    LayOut();

    // The order in which an organiser reads the form.
    QList<QWidget *> order{
        txtForename, txtSurname, txtAddress1, txtAddress2, txtAddress3,  txtAddress4, txtPostCode,
        txtPhone,    txtEMail,   cmbClub,     cmbSchool,   cmdGradeClub, cmbGender,   txtDOB,
        txtCode,     txtGrade,   cmbGLett,    txtRGrade,   cmbRLett,     txtELO,      txtGMTitle,
        txtUnion,    txtNation,  cmbUD[0],    cmbUD[1],    cmbUD[2],     cmbUD[3]};
    order.removeAll(nullptr);
    for (qsizetype i = 1; i < order.size(); ++i)
        setTabOrder(order[i - 1], order[i]);
    for (QLineEdit *box : findChildren<QLineEdit *>())
        box->installEventFilter(this);
    for (QComboBox *list : findChildren<QComboBox *>())
        list->installEventFilter(this);
    setFocusProxy(txtForename);
}

void cntlPersonDetails::AddPlayerFields()
{
    cmbGender = List(this, "cmbGender", false, 0, tr("Male or Female"));
    cmbGender->addItems({QString(), QStringLiteral("Male"), QStringLiteral("Female")});
    txtDOB = Box(this, "txtDOB", 10, tr("The date of birth as DD/MM/YYYY"));
    txtAge = Box(this, "txtAge", 4, tr("The age, worked out from the date of birth"));
    txtAge->setReadOnly(true);
    txtAge->setFocusPolicy(Qt::NoFocus);
    cmbClub = List(this, "cmbClub", true, 25, tr("The club, typed or picked"));
    cmbSchool = List(this, "cmbSchool", true, 25, tr("The school, typed or picked"));
    txtGradeCode = Box(this, "txtGradeCode", 4, tr("The code of the club in the club list"));
    txtGradeCode->setReadOnly(true);
    txtGradeClub = Box(this, "txtGradeClub", 30, tr("The club in the club list"));
    txtGradeClub->setReadOnly(true);
    cmdGradeClub = new QPushButton(tr("&Pick..."), this);
    cmdGradeClub->setObjectName(QStringLiteral("cmdGradeClub"));
    cmdGradeClub->setAutoDefault(false);
    connect(cmdGradeClub, &QPushButton::clicked, this, &cntlPersonDetails::cmdGradeClub_Click);
}

void cntlPersonDetails::LayOut()
{
    const auto pair = [](QWidget *left, QWidget *right) {
        auto *box = new QHBoxLayout;
        box->setContentsMargins(0, 0, 0, 0);
        box->addWidget(left, 1);
        box->addWidget(right, 1);
        return box;
    };
    // A cell of the form: a caption, or none under the first line of the address, and
    // a box or a pair of boxes.
    struct cCell
    {
        QLabel *caption;
        QWidget *box;
        QLayout *boxes;
    };
    const auto cell = [this](const QString &caption, QWidget *box, QLayout *boxes = nullptr,
                             QWidget *buddy = nullptr) {
        return cCell{Caption(this, caption, buddy ? buddy : box), box, boxes};
    };
    const auto under = [](QWidget *box) { return cCell{nullptr, box, nullptr}; };

    // A player's names stand side by side; a contact's form, without the club row, is
    // narrower, with the surname under the forename, so it fits beside the list.
    QList<cCell> left;
    if (playerFields_)
        left << cell(tr("&Name:"), nullptr, pair(txtForename, txtSurname), txtForename);
    else
        left << cell(tr("&Name:"), txtForename) << under(txtSurname);
    left << cell(tr("&Address:"), txtAddress1) << under(txtAddress2) << under(txtAddress3)
         << under(txtAddress4) << cell(tr("P&ost code:"), txtPostCode)
         << cell(tr("&Phone:"), txtPhone) << cell(tr("&eMail:"), txtEMail);
    QList<cCell> right{cell(tr("Id:"), txtId)};
    if (playerFields_) {
        left << cell(tr("&Club:"), cmbClub) << cell(tr("&School:"), cmbSchool);
        right << cell(tr("&Gender:"), cmbGender) << cell(tr("&DOB:"), txtDOB)
              << cell(tr("Age:"), txtAge);
    }
    right << cell(tr("&BCF Code:"), txtCode)
          << cell(tr("&Long play:"), nullptr, pair(txtGrade, cmbGLett), txtGrade)
          << cell(tr("&Rapid play:"), nullptr, pair(txtRGrade, cmbRLett), txtRGrade)
          << cell(tr("&FIDE:"), txtELO) << cell(tr("&Title:"), txtGMTitle)
          << cell(tr("&Union:"), nullptr, pair(txtUnion, txtNation), txtUnion);

    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(4, 4, 4, 4);
    const auto place = [grid](const cCell &at, int row, int column) {
        if (at.caption)
            grid->addWidget(at.caption, row, column);
        if (at.box)
            grid->addWidget(at.box, row, column + 1);
        else
            grid->addLayout(at.boxes, row, column + 1);
    };
    int row = 0;
    for (; row < qMax(left.size(), right.size()); ++row) {
        if (row < left.size())
            place(left[row], row, 0);
        if (row < right.size())
            place(right[row], row, 2);
    }
    if (playerFields_) {
        grid->addWidget(Caption(this, tr("Grade Cl&ub:"), cmdGradeClub), row, 0);
        auto *gradeClub = new QHBoxLayout;
        gradeClub->setContentsMargins(0, 0, 0, 0);
        gradeClub->addWidget(txtGradeCode, 1);
        gradeClub->addWidget(txtGradeClub, 4);
        gradeClub->addWidget(cmdGradeClub);
        grid->addLayout(gradeClub, row++, 1, 1, 3);
    }
    for (int flag = 0; flag < 4; flag += 2) {
        grid->addWidget(lblUD[flag], row, 0);
        grid->addWidget(cmbUD[flag], row, 1);
        grid->addWidget(lblUD[flag + 1], row, 2);
        grid->addWidget(cmbUD[flag + 1], row++, 3);
    }
    grid->setColumnStretch(1, 3);
    grid->setColumnStretch(3, 2);
    grid->setRowStretch(row, 1);
}

bool cntlPersonDetails::Editing() const
{
    return displayMode_ >= NewMode && displayMode_ <= EditMode;
}

void cntlPersonDetails::Display()
{
    const cControl &control = Control();
    for (QComboBox *letters : {cmbGLett, cmbRLett}) {
        letters->clear();
        letters->addItem(QString());
        for (const QChar letter : control.BCFGradeChars()) {
            if (!letter.isSpace())
                letters->addItem(QString(letter));
        }
    }
    const QString userDefined[4] = {control.UserDefined1(), control.UserDefined2(),
                                    control.UserDefined3(), control.UserDefined4()};
    for (int flag = 0; flag < 4; ++flag)
        lblUD[flag]->setText(userDefined[flag] + u':');

    const std::shared_ptr<cPersonRecord> empty = NewRecord();
    const cPersonRecord &shown = (record_ && displayMode_ != NewMode) ? *record_ : *empty;
    txtId->setText(shown.Id());
    txtForename->setText(shown.Forename());
    txtSurname->setText(shown.Surname());
    txtAddress1->setText(shown.Address1());
    txtAddress2->setText(shown.Address2());
    txtAddress3->setText(shown.Address3());
    txtAddress4->setText(shown.Address4());
    txtPostCode->setText(shown.Postcode());
    txtPhone->setText(shown.Phone());
    txtEMail->setText(shown.eMail());
    if (playerFields_) {
        ShowInList(cmbGender, shown.Gender());
        txtDOB->setText(shown.DOB());
        txtAge->setText(shown.Age());
        cmbClub->clear();
        cmbClub->addItems(DistinctValues(QStringLiteral("Club")));
        ShowInList(cmbClub, shown.Club());
        cmbSchool->clear();
        cmbSchool->addItems(DistinctValues(QStringLiteral("School")));
        ShowInList(cmbSchool, shown.School());
        txtGradeCode->setText(shown.ClubCode());
        txtGradeClub->setText(shown.ClubName());
    }
    txtUnion->setText(shown.Union());
    txtNation->setText(shown.Nation());
    txtGMTitle->setText(shown.GMTitle());
    txtGrade->setText(shown.LongPlay());
    ShowInList(cmbGLett, shown.LongPlayLett());
    txtRGrade->setText(shown.RapidPlay());
    ShowInList(cmbRLett, shown.RapidPlayLett());
    txtELO->setText(shown.FIDE());
    txtCode->setText(shown.BCFCode());
    const QString flags[4] = {shown.Special1(), shown.Special2(), shown.Special3(),
                              shown.Special4()};
    for (int flag = 0; flag < 4; ++flag)
        ShowInList(cmbUD[flag], FlagWord(flags[flag]));
    SetEditable(Editing());
}

void cntlPersonDetails::SetEditable(bool editable)
{
    for (QLineEdit *box : findChildren<QLineEdit *>()) {
        if (box == txtId || box == txtAge || box == txtGradeCode || box == txtGradeClub)
            continue;
        // The line of an editable list is that list's business.
        if (qobject_cast<QComboBox *>(box->parentWidget()))
            continue;
        box->setReadOnly(!editable);
    }
    for (QComboBox *list : findChildren<QComboBox *>())
        list->setEnabled(editable);
    if (cmdGradeClub) {
        cmdGradeClub->setVisible(editable);
        cmdGradeClub->setEnabled(editable && !Database().BCFClubIsEmpty());
    }
    // A read-only form offers no Alt letters, so the window around it keeps its own.
    for (QLabel *caption : findChildren<QLabel *>()) {
        const QString text = caption->property("Caption").toString();
        if (!text.isEmpty())
            caption->setText(editable ? text : QString(text).remove(u'&'));
    }
}

void cntlPersonDetails::FillFrom(cPersonRecord &person) const
{
    person.setForename(txtForename->text());
    person.setSurname(txtSurname->text());
    person.setAddress1(txtAddress1->text());
    person.setAddress2(txtAddress2->text());
    person.setAddress3(txtAddress3->text());
    person.setAddress4(txtAddress4->text());
    person.setPostcode(txtPostCode->text());
    person.setPhone(txtPhone->text());
    person.seteMail(txtEMail->text());
    // A contact's form leaves the player's fields as the record holds them.
    if (playerFields_) {
        person.setGender(cmbGender->currentText());
        person.setDOB(txtDOB->text());
        person.setClub(cmbClub->currentText());
        person.setSchool(cmbSchool->currentText());
        person.setClubCode(txtGradeCode->text());
        person.setClubName(txtGradeClub->text());
    }
    person.setUnion(txtUnion->text());
    person.setNation(txtNation->text());
    person.setGMTitle(txtGMTitle->text());
    person.setLongPlay(txtGrade->text());
    person.setLongPlayLett(cmbGLett->currentText());
    person.setRapidPlay(txtRGrade->text());
    person.setRapidPlayLett(cmbRLett->currentText());
    person.setFIDE(txtELO->text());
    person.setBCFCode(txtCode->text());
    person.setSpecial1(FlagLetter(cmbUD[0]->currentText()));
    person.setSpecial2(FlagLetter(cmbUD[1]->currentText()));
    person.setSpecial3(FlagLetter(cmbUD[2]->currentText()));
    person.setSpecial4(FlagLetter(cmbUD[3]->currentText()));
}

void cntlPersonDetails::ShowStatus(const QString &text)
{
    if (statusBar_)
        statusBar_->showMessage(text);
}

bool cntlPersonDetails::CheckField(QLineEdit *field)
{
    const QString text = field->text().trimmed();
    if (field && field == txtDOB) {
        if (!text.isEmpty() && !IsDate(text)) {
            Interaction().Beep();
            refusedBox_ = field;
            ShowStatus(tr("Date of Birth must be entered in DD/MM/YYYY format"));
            return false;
        }
        const std::shared_ptr<cPersonRecord> worked = NewRecord();
        worked->setDOB(text);
        txtDOB->setText(worked->DOB());
        txtAge->setText(worked->Age());
        return true;
    }
    if (field == txtGrade || field == txtRGrade || field == txtELO) {
        if (!text.isEmpty() && !IsWholeNumber(text)) {
            Interaction().Beep();
            return false;
        }
    }
    return true;
}

bool cntlPersonDetails::Valid()
{
    if (!Editing())
        return true;
    if (txtSurname->text().trimmed().isEmpty()) {
        const QString message = tr("Surname must be entered");
        txtSurname->setFocus();
        if (statusBar_)
            statusBar_->showMessage(message);
        else
            Interaction().ShowMessage(message, MessageIcon::Exclamation, AppInfo::Title());
        return false;
    }
    for (QLineEdit *field : {txtDOB, txtGrade, txtRGrade, txtELO}) {
        if (field && !CheckField(field)) {
            field->setFocus();
            field->selectAll();
            return false;
        }
    }
    return true;
}

void cntlPersonDetails::Update()
{
    switch (displayMode_) {
    case NewMode: {
        std::shared_ptr<cPersonRecord> person = NewRecord();
        FillFrom(*person);
        person->Create();
        record_ = std::move(person);
        break;
    }
    case ChangeMode:
        if (record_) {
            FillFrom(*record_);
            record_->Update();
        }
        break;
    case 4:
    case 5:
        if (record_)
            record_->Delete();
        break;
    default:
        break;
    }
}

bool cntlPersonDetails::eventFilter(QObject *watched, QEvent *event)
{
    auto *box = qobject_cast<QLineEdit *>(watched);
    if (event->type() == QEvent::FocusIn) {
        if (box)
            QTimer::singleShot(0, box, [box] { box->selectAll(); });
        // The reason for a refusal stays on view until the refused box has the focus
        // back; only the next box entered shows its help.
        if (!refusedBox_)
            ShowStatus(watched->property("Tag").toString());
        else if (watched == refusedBox_)
            refusedBox_ = nullptr;
    } else if (event->type() == QEvent::FocusOut && box && Editing() && !box->isReadOnly() &&
               !CheckField(box)) {
        // The box keeps the focus, unless the person is leaving the dialog.
        QTimer::singleShot(0, box, [box] {
            const QWidget *now = QApplication::focusWidget();
            if (now && now->objectName() == QLatin1String("cmdCancel"))
                return;
            if (!box->isVisible())
                return;
            box->setFocus();
            box->selectAll();
        });
    }
    return QWidget::eventFilter(watched, event);
}

void cntlPersonDetails::cmdGradeClub_Click()
{
    frmGradeClub picker(this);
    picker.exec();
    if (picker.Cancelled)
        return;
    const QString code = picker.Code();
    if (code.isEmpty()) {
        txtGradeCode->clear();
        txtGradeClub->clear();
        return;
    }
    QSqlQuery club =
        RunSql(QStringLiteral("SELECT Club, \"Union\" FROM Club WHERE Code = ?"), {code});
    if (club.next()) {
        txtGradeCode->setText(code);
        txtGradeClub->setText(TextOf(club.value(0)));
        txtUnion->setText(TextOf(club.value(1)));
    }
}
