#include "support/test_environment.h"
#include "ui/frm_about.h"
#include "ui/frm_contact.h"
#include "ui/frm_contact_details.h"
#include "ui/frm_load_bcf_list.h"
#include "ui/frm_load_club_list.h"
#include "ui/frm_main.h"
#include "ui/frm_msg.h"
#include "ui/frm_new_db.h"
#include "ui/frm_options.h"
#include "ui/frm_progress.h"

#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QProcess>
#include <QTest>
#include <QTextDocument>

#include <functional>
#include <memory>

// Every window built so far, rendered offscreen, at 100 % and at 150 % (the second
// in a child process, as the scale is fixed when the application starts): no label's
// text may be wider than the label, so no text is ever cut off. Each window is also
// grabbed to a PNG in VELMORA_SHOT_FOLDER, when set, to be looked at.

namespace {

struct cWindowMaker
{
    const char *name;
    std::function<std::unique_ptr<QWidget>()> make;
};

template <typename Window> std::unique_ptr<QWidget> Make()
{
    return std::make_unique<Window>();
}

const QList<cWindowMaker> &Windows()
{
    static const QList<cWindowMaker> windows = {
        {"frmMain", Make<frmMain>},
        {"frmSplash", Make<frmSplash>},
        {"frmAbout", Make<frmAbout>},
        {"frmNewDb", Make<frmNewDb>},
        {"frmOptions", Make<frmOptions>},
        {"frmLoadBCFList", Make<frmLoadBCFList>},
        {"frmLoadClubList", Make<frmLoadClubList>},
        {"frmProgress", Make<frmProgress>},
        {"frmMsg", Make<frmMsg>},
        {"frmContact", Make<frmContact>},
        {"frmContactDetails", [] { return std::make_unique<frmContactDetails>(1, nullptr); }}};
    return windows;
}

// The labels of a window whose text does not fit them.
QStringList CutLabels(const QWidget &window)
{
    QStringList cut;
    for (const QLabel *label : window.findChildren<QLabel *>()) {
        if (!label->isVisible() || label->text().isEmpty() || !label->pixmap().isNull())
            continue;
        QString text = label->text();
        if (Qt::mightBeRichText(text)) {
            QTextDocument document;
            document.setHtml(text);
            text = document.toPlainText();
        }
        text.remove(u'&'); // a mnemonic's mark takes no room
        const QFontMetrics metrics = label->fontMetrics();
        const QRect room = label->contentsRect();
        bool fits = true;
        if (label->wordWrap()) {
            fits = label->heightForWidth(room.width()) <= room.height() + 1;
        } else {
            for (const QString &line : text.split(u'\n'))
                fits = fits && metrics.horizontalAdvance(line) <= room.width() + 1;
        }
        if (!fits)
            cut.append(label->objectName() + QStringLiteral(" \"") + text.left(40) +
                       QStringLiteral("\""));
    }
    return cut;
}

} // namespace

class TestWindowTexts : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { session_ = std::make_unique<cTestSession>(); }
    void cleanupTestCase() { session_.reset(); }

    void everyLabelHoldsItsText_data()
    {
        QTest::addColumn<int>("window");
        for (qsizetype index = 0; index < Windows().size(); ++index)
            QTest::newRow(Windows()[index].name) << int(index);
    }
    void everyLabelHoldsItsText()
    {
        QFETCH(int, window);
        const std::unique_ptr<QWidget> shown = Windows()[window].make();
        shown->show();
        QVERIFY(QTest::qWaitForWindowExposed(shown.get()));
        const QString folder = qEnvironmentVariable("VELMORA_SHOT_FOLDER");
        if (!folder.isEmpty())
            shown->grab().save(
                QDir(folder).filePath(QString::fromLatin1(Windows()[window].name) + u'-' +
                                      qEnvironmentVariable("QT_SCALE_FACTOR", QStringLiteral("1")) +
                                      QStringLiteral(".png")));
        const QStringList cut = CutLabels(*shown);
        QVERIFY2(cut.isEmpty(), qPrintable(cut.join(QStringLiteral("; "))));
    }

    void everyLabelHoldsItsTextAtOneAndAHalfTimesTheSize()
    {
        if (qEnvironmentVariableIsSet("QT_SCALE_FACTOR"))
            QSKIP("this run is the scaled one");
        QProcess scaled;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("QT_SCALE_FACTOR"), QStringLiteral("1.5"));
        scaled.setProcessEnvironment(environment);
        scaled.setProcessChannelMode(QProcess::MergedChannels);
        scaled.start(QCoreApplication::applicationFilePath(),
                     {QStringLiteral("everyLabelHoldsItsText")});
        QVERIFY(scaled.waitForFinished(120000));
        QVERIFY2(scaled.exitStatus() == QProcess::NormalExit && scaled.exitCode() == 0,
                 scaled.readAll().constData());
    }

private:
    std::unique_ptr<cTestSession> session_;
};

VELMORA_WIDGET_TEST_MAIN(TestWindowTexts)
#include "test_window_texts.moc"
