#include "support/test_environment.h"
#include "support/tournament_fixture.h"
#include "support/widget_driving.h"
#include "ui/cntl_master_list.h"
#include "ui/frm_main.h"
#include "ui/frm_master.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QMap>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>

// The Alt letters of the main window as a person meets them: each letter reaches one
// thing only, so Alt and a menu's letter opens that menu, wherever the focus stands.

namespace {

// The Alt letter of a caption, in capitals, or none.
QChar AltLetter(const QString &caption)
{
    for (qsizetype i = 0; i + 1 < caption.size(); ++i) {
        if (caption.at(i) != u'&')
            continue;
        if (caption.at(i + 1) == u'&') {
            ++i;
            continue;
        }
        return caption.at(i + 1).toUpper();
    }
    return {};
}

// What each Alt letter reaches in the window now: the menus, the commands on view and
// the captions of fields on view that can take the focus.
QMap<QChar, QStringList> AltLetters(const QMainWindow &window)
{
    QMap<QChar, QStringList> letters;
    const auto note = [&letters](const QString &caption, const QString &owner) {
        const QChar letter = AltLetter(caption);
        if (!letter.isNull())
            letters[letter] << owner;
    };
    for (const QAction *menu : window.menuBar()->actions())
        if (menu->isVisible())
            note(menu->text(), menu->text());
    for (const QAbstractButton *button : window.findChildren<QAbstractButton *>())
        if (button->isVisible() && button->isEnabled())
            note(button->text(), button->objectName());
    for (const QLabel *label : window.findChildren<QLabel *>()) {
        const QWidget *buddy = label->buddy();
        if (label->isVisible() && buddy && buddy->isVisible() && buddy->isEnabled() &&
            buddy->focusPolicy() != Qt::NoFocus)
            note(label->text(), label->objectName() + u'>' + buddy->objectName());
    }
    return letters;
}

QStringList Clashes(const QMainWindow &window)
{
    QStringList clashes;
    const QMap<QChar, QStringList> letters = AltLetters(window);
    for (auto letter = letters.cbegin(); letter != letters.cend(); ++letter)
        if (letter.value().size() > 1)
            clashes << QString(letter.key()) + QStringLiteral(": ") +
                           letter.value().join(QStringLiteral(", "));
    return clashes;
}

} // namespace

class TestAltLetters : public QObject
{
    Q_OBJECT

private slots:
    void init() { session_ = std::make_unique<cTestSession>(); }
    void cleanup() { session_.reset(); }

    void noAltLetterOfTheMasterViewIsTakenTwice();
    void noAltLetterOfTheTournamentViewIsTakenTwice();
    void altAndAMenusLetterOpensItFromTheMasterView();

private:
    std::unique_ptr<cTestSession> session_;
};

void TestAltLetters::noAltLetterOfTheMasterViewIsTakenTwice()
{
    AddMasterPlayer(QStringLiteral("Adams"), QStringLiteral("Ann"), QStringLiteral("150"));
    frmMain window;
    ShowActive(window);
    window.ShowMasterView();
    // A person on view, so that every command of the window is offered.
    auto *list = window.findChild<cntlMasterList *>(QStringLiteral("lstMaster"));
    QVERIFY(list);
    list->SetTab(QStringLiteral("A"));
    QApplication::processEvents();
    QVERIFY(window.findChild<QPushButton *>(QStringLiteral("cmdView"))->isEnabled());
    const QStringList clashes = Clashes(window);
    QVERIFY2(clashes.isEmpty(), qPrintable(clashes.join(QStringLiteral("; "))));
}

void TestAltLetters::noAltLetterOfTheTournamentViewIsTakenTwice()
{
    OpenNewTournament(QStringLiteral("Spring Congress"));
    AddEntrant(QStringLiteral("Baker"), QStringLiteral("Bob"), QStringLiteral("140"));
    frmMain window;
    ShowActive(window);
    window.ShowTournamentView(true);
    QApplication::processEvents();
    const QStringList clashes = Clashes(window);
    QVERIFY2(clashes.isEmpty(), qPrintable(clashes.join(QStringLiteral("; "))));
}

void TestAltLetters::altAndAMenusLetterOpensItFromTheMasterView()
{
    AddMasterPlayer(QStringLiteral("Adams"), QStringLiteral("Ann"), QStringLiteral("150"));
    frmMain window;
    ShowActive(window);
    window.ShowMasterView();
    QApplication::processEvents();
    const QList<std::pair<Qt::Key, QMenu *>> menus = {{Qt::Key_F, window.mnuFile},
                                                      {Qt::Key_T, window.mnuTools},
                                                      {Qt::Key_V, window.mnuView},
                                                      {Qt::Key_H, window.mnuHelp}};
    for (const auto &[key, menu] : menus) {
        QWidget *focus = QApplication::focusWidget();
        QVERIFY(focus);
        QTest::keyClick(focus, key, Qt::AltModifier);
        QTRY_COMPARE(QApplication::activePopupWidget(), static_cast<QWidget *>(menu));
        QTest::keyClick(menu, Qt::Key_Escape);
        QTRY_VERIFY(!menu->isVisible());
        // A second Escape leaves the menu bar, and the focus is back where it was.
        if (QApplication::focusWidget() == window.menuBar())
            QTest::keyClick(window.menuBar(), Qt::Key_Escape);
        QTRY_COMPARE(QApplication::focusWidget(), focus);
    }
}

VELMORA_WIDGET_TEST_MAIN(TestAltLetters)
#include "test_alt_letters.moc"
