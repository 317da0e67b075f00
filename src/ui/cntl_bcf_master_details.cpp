#include "ui/cntl_bcf_master_details.h"

#include "register/bcf_master.h"

#include <QGridLayout>
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

cntlBCFMasterDetails::cntlBCFMasterDetails(QWidget *parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("cntlBCFMasterDetails"));
    lblName = Value(this, "lblName");
    lblCode = Value(this, "lblCode");
    lblFIDE = Value(this, "lblFIDE");
    lblAge = Value(this, "lblAge");
    lblGender = Value(this, "lblGender");
    lblDOB = Value(this, "lblDOB");
    lblLongPlay = Value(this, "lblLongPlay");
    lblPrevLongPlay = Value(this, "lblPrevLongPlay");
    lblRapidPlay = Value(this, "lblRapidPlay");
    lblPrevRapidPlay = Value(this, "lblPrevRapidPlay");
    lblClubs = Value(this, "lblClubs");
    lblClubs->setWordWrap(true);
    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(4, 4, 4, 4);
    int row = 0;
    const auto add = [&](const QString &caption, QLabel *value) {
        grid->addWidget(new QLabel(caption, this), row, 0);
        grid->addWidget(value, row++, 1, 1, 2);
    };
    add(tr("Name:"), lblName);
    add(tr("BCF Code:"), lblCode);
    add(tr("FIDE:"), lblFIDE);
    add(tr("Age:"), lblAge);
    add(tr("Gender:"), lblGender);
    add(tr("DOB:"), lblDOB);
    grid->addWidget(new QLabel(tr("Current:"), this), row, 1);
    grid->addWidget(new QLabel(tr("Previous:"), this), row++, 2);
    grid->addWidget(new QLabel(tr("Long play:"), this), row, 0);
    grid->addWidget(lblLongPlay, row, 1);
    grid->addWidget(lblPrevLongPlay, row++, 2);
    grid->addWidget(new QLabel(tr("Rapid play:"), this), row, 0);
    grid->addWidget(lblRapidPlay, row, 1);
    grid->addWidget(lblPrevRapidPlay, row++, 2);
    add(tr("Clubs:"), lblClubs);
    grid->setRowStretch(row, 1);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(2, 1);
}

void cntlBCFMasterDetails::Display()
{
    cBCFMaster empty;
    const cBCFMaster &shown = bcfMaster_ ? *bcfMaster_ : empty;
    lblName->setText(shown.FullName());
    lblCode->setText(shown.BCFCode());
    lblFIDE->setText(shown.FIDECode());
    lblAge->setText(shown.Age());
    lblGender->setText(shown.Gender());
    lblDOB->setText(shown.DOB());
    lblLongPlay->setText(GradeText(shown.LongPlay(), shown.LongPlayLett()));
    lblPrevLongPlay->setText(GradeText(shown.PrevLongPlay(), shown.PrevLongPlayLett()));
    lblRapidPlay->setText(GradeText(shown.RapidPlay(), shown.RapidPlayLett()));
    lblPrevRapidPlay->setText(GradeText(shown.PrevRapidPlay(), shown.PrevRapidPlayLett()));
    QStringList clubs;
    for (const QString &club : {shown.ClubName1(), shown.ClubName2(), shown.ClubName3(),
                                shown.ClubName4(), shown.ClubName5(), shown.ClubName6()}) {
        if (!club.isEmpty())
            clubs << club;
    }
    lblClubs->setText(clubs.join(QStringLiteral(", ")));
}
