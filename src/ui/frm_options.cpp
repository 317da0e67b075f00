#include "ui/frm_options.h"

#include "base/busy.h"
#include "base/common.h"
#include "base/user_interaction.h"
#include "register/master_ages.h"
#include "session/control.h"
#include "session/globals.h"

#include <QCheckBox>
#include <QEvent>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QIntValidator>
#include <QLineEdit>
#include <QPushButton>
#include <QStatusBar>
#include <QTimer>
#include <QVBoxLayout>

namespace {
const char HelpProperty[] = "statusHelp";
}

QLineEdit *frmOptions::AddField(const QString &name, const QString &help, int maxLength)
{
    auto *field = new QLineEdit(this);
    field->setObjectName(name);
    field->setMaxLength(maxLength);
    field->setProperty(HelpProperty, help);
    field->installEventFilter(this);
    return field;
}

frmOptions::frmOptions(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmOptions"));
    setWindowTitle(tr("Options"));

    txtAgeDate = AddField(QStringLiteral("txtAgeDate"),
                          tr("Enter the date as DD/MM/YY at which ages are to be calculated"), 10);
    txtMaxJuniorAge =
        AddField(QStringLiteral("txtMaxJuniorAge"),
                 tr("Enter the maximum age at which a player is considered to be a junior."), 3);
    txtMaxJuniorAge->setValidator(new QIntValidator(0, 999, txtMaxJuniorAge));
    // One place of the stored twenty is kept for the blank that allows no letter.
    txtBCFGradeChars = AddField(QStringLiteral("txtBCFGradeChars"),
                                tr("Enter the allowable BCF Grade characters"), 19);
    txtMaxDisplayAge = AddField(QStringLiteral("txtMaxDisplayAge"),
                                tr("Enter the maximum age to be displayed"), 3);
    txtMaxDisplayAge->setValidator(new QIntValidator(0, 999, txtMaxDisplayAge));
    chkCase = new QCheckBox(tr("Print peoples Surname's in capitials"), this);
    chkCase->setObjectName(QStringLiteral("chkCase"));
    txtUD1 = AddField(QStringLiteral("txtUD1"),
                      tr("Enter the literal to be used for the first user defined field"), 20);
    txtUD2 = AddField(QStringLiteral("txtUD2"),
                      tr("Enter the literal to be used for the second user defined field"), 20);
    txtUD3 = AddField(QStringLiteral("txtUD3"),
                      tr("Enter the literal to be used for the third user defined field"), 20);
    txtUD4 = AddField(QStringLiteral("txtUD4"),
                      tr("Enter the literal to be used for the fourth user defined field"), 20);

    cmdCalcAges = new QPushButton(tr("Recalc Ages"), this);
    cmdCalcAges->setObjectName(QStringLiteral("cmdCalcAges"));
    cmdCalcAges->setProperty(HelpProperty, tr("Recalculate ages of all players."));
    cmdCalcAges->installEventFilter(this);
    cmdOk = new QPushButton(tr("OK"), this);
    cmdOk->setObjectName(QStringLiteral("cmdOk"));
    cmdOk->setDefault(true);
    cmdCancel = new QPushButton(tr("Cancel"), this);
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    sbMsg = new QStatusBar(this);
    sbMsg->setObjectName(QStringLiteral("sbMsg"));
    sbMsg->setSizeGripEnabled(false);

    auto *form = new QFormLayout;
    form->addRow(tr("Ages calulated as at:"), txtAgeDate);
    form->addRow(tr("Junior age:"), txtMaxJuniorAge);
    form->addRow(tr("BCF Grade characters:"), txtBCFGradeChars);
    form->addRow(tr("Maximum display age:"), txtMaxDisplayAge);
    form->addRow(QString(), chkCase);
    form->addRow(tr("User Defined Field 1"), txtUD1);
    form->addRow(tr("User Defined Field 2"), txtUD2);
    form->addRow(tr("User Defined Field 3"), txtUD3);
    form->addRow(tr("User Defined Field 4"), txtUD4);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(cmdCalcAges);
    buttons->addStretch(1);
    buttons->addWidget(cmdOk);
    buttons->addWidget(cmdCancel);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addLayout(buttons);
    layout->addWidget(sbMsg);
    // Wide enough for the longest help text of the status bar.
    setMinimumWidth(fontMetrics().horizontalAdvance(txtAgeDate->property(HelpProperty).toString()) +
                    60);

    connect(cmdOk, &QPushButton::clicked, this, &frmOptions::cmdOk_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmOptions::cmdCancel_Click);
    connect(cmdCalcAges, &QPushButton::clicked, this, &frmOptions::cmdCalcAges_Click);
    Fill();
}

void frmOptions::Fill()
{
    cBusySection busy;
    const cControl &control = Control();
    txtAgeDate->setText(DisplayDate(DateFromText(control.AgeDate())));
    txtMaxJuniorAge->setText(control.MaxJuniorAge());
    txtBCFGradeChars->setText(control.BCFGradeChars());
    txtMaxDisplayAge->setText(control.MaxDisplayAge());
    chkCase->setChecked(control.SurnameCase() == 1);
    txtUD1->setText(control.UserDefined1());
    txtUD2->setText(control.UserDefined2());
    txtUD3->setText(control.UserDefined3());
    txtUD4->setText(control.UserDefined4());
}

bool frmOptions::AcceptAgeDate()
{
    const QString text = txtAgeDate->text().trimmed();
    if (text.isEmpty())
        return true;
    if (!IsDate(text)) {
        Interaction().Beep();
        return false;
    }
    txtAgeDate->setText(DisplayDate(DateFromText(text)));
    return true;
}

bool frmOptions::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::FocusIn) {
        // The text is selected once the focus has settled; a field that the focus only
        // passed through (a refused date takes it back) is left unselected, so that one
        // field alone looks focused.
        if (auto *field = qobject_cast<QLineEdit *>(watched))
            QTimer::singleShot(0, field, [field] {
                if (field->hasFocus())
                    field->selectAll();
            });
        sbMsg->showMessage(watched->property(HelpProperty).toString());
    } else if (event->type() == QEvent::FocusOut) {
        if (watched == txtAgeDate && !AcceptAgeDate())
            QTimer::singleShot(0, txtAgeDate, [this] { txtAgeDate->setFocus(); });
        else if (watched == txtBCFGradeChars)
            txtBCFGradeChars->setText(txtBCFGradeChars->text().toUpper());
    }
    return QDialog::eventFilter(watched, event);
}

void frmOptions::cmdOk_Click()
{
    if (!AcceptAgeDate()) {
        txtAgeDate->setFocus();
        return;
    }
    cBusySection busy;
    cControl &control = Control();
    control.setAgeDate(txtAgeDate->text());
    control.setMaxJuniorAge(txtMaxJuniorAge->text());
    control.setBCFGradeChars(txtBCFGradeChars->text().toUpper());
    control.setMaxDisplayAge(txtMaxDisplayAge->text());
    control.setSurnameCase(chkCase->isChecked() ? 1 : 0);
    control.setUserDefined1(txtUD1->text());
    control.setUserDefined2(txtUD2->text());
    control.setUserDefined3(txtUD3->text());
    control.setUserDefined4(txtUD4->text());
    control.Update();
    Cancelled = false;
    accept();
}

void frmOptions::cmdCancel_Click()
{
    Cancelled = true;
    reject();
}

void frmOptions::cmdCalcAges_Click()
{
    if (!AcceptAgeDate()) {
        txtAgeDate->setFocus();
        return;
    }
    Control().setAgeDate(txtAgeDate->text());
    Control().Update();
    RecalcMasterAges(txtAgeDate->text());
}
