#include "ui/cntl_master_summary.h"

#include "register/master.h"

#include <QFormLayout>
#include <QLabel>

namespace {

QLabel *Value(QWidget *parent, const char *name)
{
    auto *label = new QLabel(parent);
    label->setObjectName(QString::fromLatin1(name));
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

QString GradeText(const QString &grade, const QString &letter)
{
    return QString(grade + u' ' + letter).trimmed();
}

} // namespace

cntlMasterSummary::cntlMasterSummary(QWidget *parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("cntlMasterSummary"));
    lblName = Value(this, "lblName");
    lblCode = Value(this, "lblCode");
    lblAddress = Value(this, "lblAddress");
    lblAddress->setWordWrap(true);
    lblPostcode = Value(this, "lblPostcode");
    lblGender = Value(this, "lblGender");
    lblDOB = Value(this, "lblDOB");
    lblAge = Value(this, "lblAge");
    lblClub = Value(this, "lblClub");
    lblGrades = Value(this, "lblGrades");
    auto *form = new QFormLayout(this);
    form->setContentsMargins(4, 4, 4, 4);
    form->addRow(tr("Name:"), lblName);
    form->addRow(tr("BCF Code:"), lblCode);
    form->addRow(tr("Address:"), lblAddress);
    form->addRow(tr("Post code:"), lblPostcode);
    form->addRow(tr("Gender:"), lblGender);
    form->addRow(tr("DOB:"), lblDOB);
    form->addRow(tr("Age:"), lblAge);
    form->addRow(tr("Club:"), lblClub);
    form->addRow(tr("Long play:"), lblGrades);
}

void cntlMasterSummary::Display()
{
    cMaster empty;
    const cMaster &shown = master_ ? *master_ : empty;
    lblName->setText(shown.DisplayName(false));
    lblCode->setText(shown.BCFCode());
    lblAddress->setText(shown.DisplayAddress());
    lblPostcode->setText(shown.Postcode());
    lblGender->setText(shown.Gender());
    lblDOB->setText(shown.DOB());
    lblAge->setText(shown.Age());
    lblClub->setText(shown.Club());
    lblGrades->setText(
        GradeText(shown.LongPlay(), shown.LongPlayLett()) +
        (shown.RapidPlay().isEmpty()
             ? QString()
             : tr("   Rapid play: ") + GradeText(shown.RapidPlay(), shown.RapidPlayLett())));
}
