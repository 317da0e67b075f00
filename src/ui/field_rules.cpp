#include "ui/field_rules.h"

#include "base/common.h"
#include "base/user_interaction.h"

#include <QEvent>
#include <QFocusEvent>
#include <QLineEdit>
#include <QStatusBar>
#include <QTimer>

namespace {
const char HelpProperty[] = "statusHelp";
}

void cFieldRules::Watch(QWidget *widget, const QString &help)
{
    widget->setProperty(HelpProperty, help);
    widget->installEventFilter(this);
}

void cFieldRules::Watch(QLineEdit *field, const QString &help, Check check, const QString &refusal)
{
    Watch(field, help);
    rules_.push_back({field, std::move(check), refusal});
}

const cFieldRules::Rule *cFieldRules::RuleOf(QObject *widget) const
{
    for (const Rule &rule : rules_)
        if (rule.field == widget)
            return &rule;
    return nullptr;
}

void cFieldRules::Refuse(const Rule &rule)
{
    Interaction().Beep();
    rule.field->setFocus();
    rule.field->selectAll();
    if (statusBar_ && !rule.refusal.isEmpty())
        statusBar_->showMessage(rule.refusal);
}

bool cFieldRules::AllAccepted()
{
    for (const Rule &rule : rules_) {
        if (rule.field->isVisibleTo(rule.field->window()) && rule.field->isEnabled() &&
            !rule.check(rule.field->text())) {
            Refuse(rule);
            return false;
        }
    }
    return true;
}

bool cFieldRules::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::FocusIn) {
        if (auto *field = qobject_cast<QLineEdit *>(watched))
            QTimer::singleShot(0, field, &QLineEdit::selectAll);
        if (statusBar_)
            statusBar_->showMessage(watched->property(HelpProperty).toString());
    } else if (event->type() == QEvent::FocusOut) {
        const auto *focusOut = static_cast<QFocusEvent *>(event);
        // A focus lost to another window (a message box) is no leaving of the field.
        const Rule *rule = RuleOf(watched);
        if (rule && focusOut->reason() != Qt::ActiveWindowFocusReason &&
            focusOut->reason() != Qt::PopupFocusReason && !rule->check(rule->field->text())) {
            QLineEdit *field = rule->field;
            const Rule refused = *rule;
            // The focus is taken back once the move that left the field has finished.
            QTimer::singleShot(0, field, [this, refused] { Refuse(refused); });
        }
    }
    return QObject::eventFilter(watched, event);
}

bool cFieldRules::EmptyOrNumeric(const QString &text)
{
    return text.trimmed().isEmpty() || IsNumeric(text);
}

bool cFieldRules::EmptyOrDate(const QString &text)
{
    return text.trimmed().isEmpty() || IsDate(text);
}

bool cFieldRules::EmptyOrWholeNumber(const QString &text)
{
    if (text.trimmed().isEmpty())
        return true;
    bool whole = false;
    text.trimmed().toLongLong(&whole);
    return whole && IsNumeric(text);
}
