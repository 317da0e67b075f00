#pragma once

// Driving real windows in window tests: showing one active, typing over a field,
// and acting on a modal dialog that the code under test opens.

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

#include <functional>

inline void ShowActive(QWidget &window)
{
    window.show();
    QApplication::setActiveWindow(&window);
    QVERIFY(QTest::qWaitForWindowActive(&window));
}

// Replaces what the field holds by typing, as a person would.
inline void ReplaceText(QLineEdit *field, const QString &text)
{
    field->selectAll();
    QTest::keyClick(field, Qt::Key_Delete);
    if (!text.isEmpty())
        QTest::keyClicks(field, text);
}

// Acts on a modal dialog of the given kind once the code under test has put it on
// screen; the code may let events run before the dialog exists, so it is looked for
// until it comes. shown tells that it was on view, closedByAction that the action
// closed it. A dialog that the action leaves open is rejected, so a failing test ends.
template <typename Dialog>
void WhenModalShows(std::function<void(Dialog *)> action, bool *shown,
                    bool *closedByAction = nullptr)
{
    auto *poll = new QTimer(qApp);
    poll->setInterval(5);
    QObject::connect(poll, &QTimer::timeout, [poll, action, shown, closedByAction] {
        auto *dialog = qobject_cast<Dialog *>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        poll->stop();
        poll->deleteLater();
        const bool visible = dialog->isVisible();
        if (shown)
            *shown = visible;
        action(dialog);
        if (closedByAction)
            *closedByAction = visible && !dialog->isVisible();
        if (dialog->isVisible())
            dialog->reject();
    });
    poll->start();
}
