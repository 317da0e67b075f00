#pragma once

#include <QObject>
#include <QString>

#include <functional>
#include <vector>

class QLineEdit;
class QStatusBar;
class QWidget;

// The rules that every entry field of the detail windows follows: a field that gets
// the focus has its text selected and its help text on the status bar; a field whose
// text is refused on leaving beeps, selects its text and keeps the focus, so a wrong
// value never leaves its field.
class cFieldRules : public QObject
{
    Q_OBJECT

public:
    using Check = std::function<bool(const QString &)>;

    explicit cFieldRules(QObject *parent = nullptr) : QObject(parent) {}

    // The status bar that the help texts go to; may be none.
    void setStatusBar(QStatusBar *statusBar) { statusBar_ = statusBar; }
    QStatusBar *StatusBar() const { return statusBar_; }

    // Watches a field or button: its help text shows while it has the focus.
    void Watch(QWidget *widget, const QString &help);
    // Watches an entry field with a check for the moment it is left. The message, if
    // any, goes to the status bar when the check refuses the text.
    void Watch(QLineEdit *field, const QString &help, Check check,
               const QString &refusal = QString());
    // Runs every check as if each field were left; the first refused field gets the
    // focus back with a beep. True when every field may stand.
    bool AllAccepted();

    // The checks of the entry fields.
    static bool EmptyOrNumeric(const QString &text);
    static bool EmptyOrDate(const QString &text);
    static bool EmptyOrWholeNumber(const QString &text);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Rule
    {
        QLineEdit *field;
        Check check;
        QString refusal;
    };
    const Rule *RuleOf(QObject *widget) const;
    void Refuse(const Rule &rule);

    QStatusBar *statusBar_ = nullptr;
    std::vector<Rule> rules_;
};
