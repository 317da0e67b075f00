#include "support/scripted_interaction.h"
#include "support/test_environment.h"
#include "support/widget_driving.h"
#include "ui/file_locations.h"
#include "ui/frm_web_preview.h"

#include <QAction>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <QToolBar>
#include <QUrl>

using namespace Qt::Literals::StringLiterals;

// Stands in for the desktop's browser: notes each page it is asked to open.
class cBrowserStandIn : public QObject
{
    Q_OBJECT

public:
    QList<QUrl> opened;

public slots:
    void open(const QUrl &url) { opened.append(url); }
};

class TestFrmWebPreview : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void showsThePageOfTheReport();
    void savingToANameThatExistsReplacesIt();
    void cancellingTheSaveDialogChangesNothing();
    void savingToAFolderNameIsTold();
    void opensThePageInTheDesktopsBrowser();

private:
    QString WritePage(const QString &name, const QByteArray &content);

    std::unique_ptr<cScriptedInteraction> interaction_;
    std::unique_ptr<QTemporaryDir> folder_;
};

void TestFrmWebPreview::init()
{
    folder_ = std::make_unique<QTemporaryDir>();
    interaction_ = std::make_unique<cScriptedInteraction>();
    ForgetFileFolder();
}

void TestFrmWebPreview::cleanup()
{
    interaction_.reset();
}

QString TestFrmWebPreview::WritePage(const QString &name, const QByteArray &content)
{
    const QString path = folder_->filePath(name);
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(content);
    return path;
}

void TestFrmWebPreview::showsThePageOfTheReport()
{
    frmWebPreview window;
    window.PreviewUrl = WritePage(u"web.htm"_s, "<HTML><BODY><PRE>Spring Congress\n"
                                                "1 Ashworth, Daniel</PRE></BODY></HTML>\n");
    ShowActive(window);
    QCOMPARE(window.windowTitle(), u"Web page preview"_s);
    QVERIFY(window.brwWebBrowser->toPlainText().contains(u"1 Ashworth, Daniel"_s));
    QVERIFY(window.tbCommands->actions().contains(window.SaveAs));
    QVERIFY(window.tbCommands->actions().contains(window.OpenInBrowser));
}

void TestFrmWebPreview::savingToANameThatExistsReplacesIt()
{
    const QByteArray page = "<HTML><BODY><PRE>new page</PRE></BODY></HTML>\n";
    frmWebPreview window;
    window.PreviewUrl = WritePage(u"web.htm"_s, page);
    const QString target = WritePage(u"saved.htm"_s, "an older and longer page than the new one");
    ShowActive(window);
    interaction_->QueueFile(target);
    QTest::keySequence(&window, QKeySequence::Save);
    QFile saved(target);
    QVERIFY(saved.open(QIODevice::ReadOnly));
    QCOMPARE(saved.readAll(), page);
    const QString documents = QDir::toNativeSeparators(
        QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    QCOMPARE(interaction_->CallsStartingWith(u"save-file|"_s),
             QStringList{u"save-file|Save As|"_s + documents +
                         u"||HTML (*.htm *.html)|*.htm *.html|All Files(*.*)|*.*|1|htm"_s});
    QCOMPARE(interaction_->CallsStartingWith(u"message|"_s),
             QStringList{u"message|plain|Velmora!|Web page saved to "_s + target});
}

void TestFrmWebPreview::cancellingTheSaveDialogChangesNothing()
{
    frmWebPreview window;
    window.PreviewUrl = WritePage(u"web.htm"_s, "<HTML><BODY><PRE>page</PRE></BODY></HTML>\n");
    ShowActive(window);
    interaction_->QueueFile(QString());
    window.SaveAs->trigger();
    QCOMPARE(QDir(folder_->path()).entryList(QDir::Files), QStringList{u"web.htm"_s});
    QCOMPARE(interaction_->Count(u"message|"_s), 0);
    QVERIFY(window.isVisible());
}

void TestFrmWebPreview::savingToAFolderNameIsTold()
{
    frmWebPreview window;
    window.PreviewUrl = WritePage(u"web.htm"_s, "<HTML><BODY><PRE>page</PRE></BODY></HTML>\n");
    const QString folderName = folder_->filePath(u"pages.htm"_s);
    QVERIFY(QDir().mkpath(folderName));
    ShowActive(window);
    interaction_->QueueFile(folderName);
    window.SaveAs->trigger();
    QVERIFY(QFileInfo(folderName).isDir());
    QCOMPARE(interaction_->Count(u"message|exclamation|Velmora!|The file "_s +
                                 QDir::toNativeSeparators(folderName) + u" could not be written"_s),
             1);
}

void TestFrmWebPreview::opensThePageInTheDesktopsBrowser()
{
    cBrowserStandIn browser;
    QDesktopServices::setUrlHandler(u"file"_s, &browser, "open");
    frmWebPreview window;
    window.PreviewUrl = WritePage(u"web.htm"_s, "<HTML><BODY><PRE>page</PRE></BODY></HTML>\n");
    ShowActive(window);
    QTest::keyClick(&window, Qt::Key_B, Qt::ControlModifier);
    QDesktopServices::unsetUrlHandler(u"file"_s);
    QCOMPARE(browser.opened, QList<QUrl>{QUrl::fromLocalFile(window.PreviewUrl)});
    QCOMPARE(interaction_->Count(u"message|"_s), 0);
}

VELMORA_WIDGET_TEST_MAIN(TestFrmWebPreview)
#include "test_frm_web_preview.moc"
