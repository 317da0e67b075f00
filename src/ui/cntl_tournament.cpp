#include "ui/cntl_tournament.h"

#include "base/app_info.h"
#include "base/busy.h"
#include "base/common.h"
#include "base/user_interaction.h"
#include "session/tournament.h"
#include "ui/field_rules.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QStackedLayout>

namespace {

// The longest text a date field takes: dd/mm/yyyy.
constexpr int DateLength = 10;
// Whole numbers of the tournament row; the file keeps them as 16-bit integers.
constexpr int NumberLength = 5;

QLineEdit *NewField(QWidget *parent, const char *name, int maxLength)
{
    auto *field = new QLineEdit(parent);
    field->setObjectName(QString::fromLatin1(name));
    field->setMaxLength(maxLength);
    return field;
}

QLabel *NewValue(QWidget *parent, const QString &name)
{
    auto *label = new QLabel(parent);
    label->setObjectName(name);
    // Titles may hold < > & and must show as typed.
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

QWidget *Pair(QWidget *parent, QWidget *from, const QString &between, QWidget *to)
{
    auto *row = new QWidget(parent);
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(from, 1);
    layout->addWidget(new QLabel(between, row));
    layout->addWidget(to, 1);
    return row;
}

} // namespace

cntlTournament::cntlTournament(QWidget *parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("cntlTournament"));
    rules_ = new cFieldRules(this);
    frames_ = new QStackedLayout(this);
    frames_->setContentsMargins(0, 0, 0, 0);
    BuildFields();
    BuildLabels();
    frames_->addWidget(frmLabel);
    frames_->addWidget(frmText);
    setDisplayMode(View);
}

void cntlTournament::BuildFields()
{
    frmText = new QWidget(this);
    frmText->setObjectName(QStringLiteral("frmText"));
    txtTitle = NewField(frmText, "txtTitle", 40);
    rules_->Watch(txtTitle, tr("Enter the Tournament name."));
    txtTourn = NewField(frmText, "txtTourn", 40);
    rules_->Watch(txtTourn, tr("Enter the name of the section"));
    txtFDate = NewField(frmText, "txtFDate", DateLength);
    rules_->Watch(txtFDate, tr("Enter the start date of the tournament in DD/MM/YYYY format"),
                  &cFieldRules::EmptyOrDate);
    txtTDate = NewField(frmText, "txtTDate", DateLength);
    rules_->Watch(txtTDate, tr("Enter the end date of the tournament in DD/MM/YYYY format"),
                  &cFieldRules::EmptyOrDate);
    txtType = new QComboBox(frmText);
    txtType->setObjectName(QStringLiteral("txtType"));
    rules_->Watch(txtType, tr("Select the type of tournament"));
    txtRounds = NewField(frmText, "txtRounds", NumberLength);
    rules_->Watch(txtRounds, tr("Enter the number of rounds"), &cFieldRules::EmptyOrNumeric);
    txtDefGrade = NewField(frmText, "txtDefGrade", NumberLength);
    rules_->Watch(txtDefGrade, tr("Enter the default grade to be used for any ungraded players"),
                  &cFieldRules::EmptyOrNumeric);

    auto *form = new QFormLayout(frmText);
    form->setContentsMargins(0, 0, 0, 0);
    form->addRow(tr("Title:"), txtTitle);
    form->addRow(tr("Event:"), txtTourn);
    form->addRow(tr("Date:"), Pair(frmText, txtFDate, tr("to"), txtTDate));
    form->addRow(tr("Type:"), txtType);
    form->addRow(tr("No. Rounds:"), txtRounds);
    form->addRow(tr("Default grade:"), txtDefGrade);
    for (int line = 0; line < 6; ++line) {
        txtText[line] = NewField(frmText, "", 60);
        txtText[line]->setObjectName(QStringLiteral("txtText%1").arg(line + 1));
        rules_->Watch(txtText[line], tr("Enter any additional information for the tournament"));
        form->addRow(line == 0 ? tr("Data:") : QString(), txtText[line]);
    }
    // Room for a full title of 40 characters.
    txtTitle->setMinimumWidth(txtTitle->fontMetrics().horizontalAdvance(QString(40, u'W')) / 2);
}

void cntlTournament::BuildLabels()
{
    frmLabel = new QWidget(this);
    frmLabel->setObjectName(QStringLiteral("frmLabel"));
    lblTitle = NewValue(frmLabel, QStringLiteral("lblTitle"));
    lblTourn = NewValue(frmLabel, QStringLiteral("lblTourn"));
    lblFDate = NewValue(frmLabel, QStringLiteral("lblFDate"));
    lblTDate = NewValue(frmLabel, QStringLiteral("lblTDate"));
    lblType = NewValue(frmLabel, QStringLiteral("lblType"));
    lblRounds = NewValue(frmLabel, QStringLiteral("lblRounds"));
    lblDefGrade = NewValue(frmLabel, QStringLiteral("lblDefGrade"));
    txtCurrRound = new QLineEdit(frmLabel);
    txtCurrRound->setObjectName(QStringLiteral("txtCurrRound"));
    txtCurrRound->setReadOnly(true);
    txtCurrRound->setFocusPolicy(Qt::NoFocus);
    txtCurrRound->setMaximumWidth(
        txtCurrRound->fontMetrics().horizontalAdvance(QStringLiteral("00000")) + 16);

    auto *form = new QFormLayout(frmLabel);
    form->setContentsMargins(0, 0, 0, 0);
    form->addRow(tr("Title:"), lblTitle);
    form->addRow(tr("Event:"), lblTourn);
    form->addRow(tr("Date:"), Pair(frmLabel, lblFDate, tr("to:"), lblTDate));
    form->addRow(tr("Type:"), lblType);
    form->addRow(tr("No. Rounds:"), lblRounds);
    form->addRow(tr("Default grade:"), lblDefGrade);
    form->addRow(tr("Current Round:"), txtCurrRound);
    for (int line = 0; line < 6; ++line) {
        lblText[line] = NewValue(frmLabel, QStringLiteral("lblText%1").arg(line + 1));
        form->addRow(line == 0 ? tr("Data:") : QString(), lblText[line]);
    }
}

void cntlTournament::setDisplayMode(int mode)
{
    // A mode above that of deletion has no meaning and changes nothing.
    if (mode > Remove)
        return;
    displayMode_ = mode;
    QWidget *shown = mode == View || mode == Remove || mode == 4 ? frmLabel : frmText;
    QWidget *hidden = shown == frmLabel ? frmText : frmLabel;
    // Only the frame on view asks for room, so the labels do not take the fields' height.
    shown->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    hidden->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    frames_->setCurrentWidget(shown);
}

QStatusBar *cntlTournament::StatusBar() const
{
    return rules_->StatusBar();
}

void cntlTournament::setStatusBar(QStatusBar *statusBar)
{
    rules_->setStatusBar(statusBar);
}

void cntlTournament::Display()
{
    BeginBusy();
    txtType->clear();
    txtType->addItems({QStringLiteral("BCF Standard"), QStringLiteral("Rapidplay"),
                       QStringLiteral("FIDE Rated"), QStringLiteral("Mixed BCF/FIDE"),
                       QStringLiteral("Double Rnd Rpd")});
    // With no tournament the busy section is left open, as the organisers know it.
    if (!tournament_)
        return;
    const cTournament &t = *tournament_;
    txtTitle->setText(t.Title());
    txtTourn->setText(t.Tourn());
    txtFDate->setText(t.TDate());
    txtTDate->setText(t.TEnd());
    const int type = txtType->findText(t.TTypeLiteral());
    if (t.TTypeLiteral().isEmpty()) {
        txtType->setCurrentIndex(-1);
    } else if (type >= 0) {
        txtType->setCurrentIndex(type);
    } else {
        // An unknown type from an old file stays what it is.
        txtType->addItem(t.TTypeLiteral());
        txtType->setCurrentIndex(txtType->count() - 1);
    }
    txtRounds->setText(t.Rounds());
    txtDefGrade->setText(t.DefGrade());
    const QString texts[6] = {t.TText1(), t.TText2(), t.TText3(),
                              t.TText4(), t.TText5(), t.TText6()};
    for (int line = 0; line < 6; ++line) {
        txtText[line]->setText(texts[line]);
        lblText[line]->setText(texts[line]);
    }
    lblTitle->setText(t.Title());
    lblTourn->setText(t.Tourn());
    lblFDate->setText(t.TDate());
    lblTDate->setText(t.TEnd());
    lblType->setText(t.TTypeLiteral());
    lblRounds->setText(t.Rounds());
    lblDefGrade->setText(t.DefGrade());
    txtCurrRound->setText(t.CurrRound());
    EndBusy();
}

bool cntlTournament::Valid()
{
    switch (displayMode_) {
    case New:
    case Change:
    case Copy:
        if (!rules_->AllAccepted())
            return false;
        if (txtTitle->text().trimmed().isEmpty() && txtTourn->text().trimmed().isEmpty()) {
            Interaction().ShowMessage(tr("Either Title or Event must be entered"),
                                      MessageIcon::Plain, AppInfo::Title());
            txtTitle->setFocus();
            return false;
        }
        return true;
    case Remove:
        return tournament_ && tournament_->DeleteRequired();
    default:
        return true;
    }
}

void cntlTournament::CopyFields()
{
    cTournament &t = *tournament_;
    t.setTitle(txtTitle->text());
    t.setTourn(txtTourn->text());
    t.setTDate(DisplayDate(DateFromText(txtFDate->text())));
    t.setTEnd(DisplayDate(DateFromText(txtTDate->text())));
    t.setTTypeLiteral(txtType->currentText());
    t.setRounds(txtRounds->text());
    t.setDefGrade(txtDefGrade->text());
    t.setTText1(txtText[0]->text());
    t.setTText2(txtText[1]->text());
    t.setTText3(txtText[2]->text());
    t.setTText4(txtText[3]->text());
    t.setTText5(txtText[4]->text());
    t.setTText6(txtText[5]->text());
}

void cntlTournament::Update()
{
    if (!tournament_)
        return;
    switch (displayMode_) {
    case New:
    case Copy:
        CopyFields();
        tournament_->Create();
        break;
    case Change:
        CopyFields();
        tournament_->Update();
        break;
    case Remove:
        tournament_->Delete();
        break;
    default:
        break;
    }
}
