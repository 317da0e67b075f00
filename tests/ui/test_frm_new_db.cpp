#include "database/database.h"
#include "session/globals.h"
#include "support/scripted_interaction.h"
#include "support/test_environment.h"
#include "support/widget_driving.h"
#include "ui/frm_new_db.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

namespace {

// The example path that the dialog offers: one of this platform.
QString UsualMasterFile()
{
    return QDir::toNativeSeparators(QDir::homePath() + QStringLiteral("/Chess/Master.dbf"));
}

QStringList Texts(const QWidget &window)
{
    QStringList texts;
    for (const QLabel *label : window.findChildren<QLabel *>())
        texts.append(label->text());
    for (const QGroupBox *group : window.findChildren<QGroupBox *>())
        texts.append(group->title());
    return texts;
}

void TypeIntoBox(frmNewDb &dialog, const QString &text)
{
    ReplaceText(dialog.txtSelectDb, text);
}

// Works in another current folder for the length of a scope.
class cCurrentFolder
{
public:
    explicit cCurrentFolder(const QString &folder) : old_(QDir::currentPath())
    {
        changed_ = QDir::setCurrent(folder);
    }
    ~cCurrentFolder() { QDir::setCurrent(old_); }
    bool Changed() const { return changed_; }

private:
    QString old_;
    bool changed_ = false;
};

} // namespace

class TestFrmNewDb : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void showsItsTextsAndTheUsualMasterFile();
    void emptyBoxBeepsWarnsAndPutsTheUsualFileBack();
    void boxWithoutMasterDbfIsRefused();
    void nameCheckTakesAnyCaseAndGivesTheFolderBeforeIt();
    void folderWithoutAMasterTableIsRefused();
    void fileThatIsNotADbaseTableIsRefused();
    void nameWithoutAFolderIsRefused();
    void browseFillsTheBoxAndBeepsOnAnotherExtension();
    void browseCancelLeavesTheBoxAsItWas();
    void newClearsCancelledWithoutASource();
    void windowCloseLeavesCancelledSet();
    void escapeLeavesCancelledSet();

private:
    std::unique_ptr<cTestSession> session_;
    std::unique_ptr<cScriptedInteraction> seam_;
    std::unique_ptr<QTemporaryDir> folder_;
};

void TestFrmNewDb::init()
{
    session_ = std::make_unique<cTestSession>(cTestSession::Start::Empty);
    seam_ = std::make_unique<cScriptedInteraction>();
    folder_ = std::make_unique<QTemporaryDir>();
}

void TestFrmNewDb::cleanup()
{
    seam_.reset();
    session_.reset();
    folder_.reset();
}

void TestFrmNewDb::showsItsTextsAndTheUsualMasterFile()
{
    frmNewDb dialog;
    QCOMPARE(dialog.windowTitle(), QStringLiteral("New Database"));
    QVERIFY(dialog.Cancelled);
    QCOMPARE(dialog.txtSelectDb->text(), UsualMasterFile());
    QCOMPARE(dialog.cmdCopy->text(), QStringLiteral("Import"));
    QCOMPARE(dialog.cmdExit->text(), QStringLiteral("Exit"));
    QCOMPARE(dialog.cmdBrowse->text(), QStringLiteral("..."));
    const QStringList texts = Texts(dialog);
    for (const QString &expected :
         {QStringLiteral("New empty database"),
          QStringLiteral("To create a new empty database click on 'New'"),
          QStringLiteral("Import a database from an existing Velmora Director database:"),
          QStringLiteral("To import data from an exitsing DOS Velmora Director database into "
                         "Velmora!, click on '...', select the database and then click on "
                         "'Import'"),
          QStringLiteral("Warning: If you import a database, any changes you make to the "
                         "database will not be reflected in Velmora Director"),
          QStringLiteral("Exit:"), QStringLiteral("To exit Velmora! click on 'Exit'")})
        QVERIFY2(texts.contains(expected), qPrintable(expected));
}

void TestFrmNewDb::emptyBoxBeepsWarnsAndPutsTheUsualFileBack()
{
    frmNewDb dialog;
    ShowActive(dialog);
    TypeIntoBox(dialog, QString());
    QVERIFY(dialog.txtSelectDb->text().isEmpty());
    QTest::mouseClick(dialog.cmdCopy, Qt::LeftButton);
    QCOMPARE(seam_->Calls().filter(QStringLiteral("beep")).size(), 1);
    QCOMPARE(
        seam_->CallsStartingWith(QStringLiteral("message|")),
        QStringList{QStringLiteral("message|exclamation|Velmora!|A master.dbf must be selected")});
    QCOMPARE(dialog.txtSelectDb->text(), UsualMasterFile());
    QVERIFY(dialog.txtSelectDb->hasFocus());
    QVERIFY(dialog.isVisible());
    QVERIFY(dialog.Cancelled);
}

void TestFrmNewDb::boxWithoutMasterDbfIsRefused()
{
    frmNewDb dialog;
    ShowActive(dialog);
    TypeIntoBox(dialog, QStringLiteral("d:\\old\\players.dbf"));
    QTest::mouseClick(dialog.cmdCopy, Qt::LeftButton);
    QCOMPARE(seam_->Count(QStringLiteral("beep")), 1);
    QCOMPARE(seam_->CallsStartingWith(QStringLiteral("message|")),
             QStringList{
                 QStringLiteral("message|exclamation|Velmora!|Master.dbf has not been selected")});
    QCOMPARE(dialog.txtSelectDb->text(), UsualMasterFile());
    QVERIFY(dialog.txtSelectDb->hasFocus());
    QVERIFY(dialog.Cancelled);
    QVERIFY(Database().SourceDb().isEmpty());
}

void TestFrmNewDb::nameCheckTakesAnyCaseAndGivesTheFolderBeforeIt()
{
    // A folder named as a drive path of the DOS machine, so that the box can hold
    // exactly what the organiser would have typed there.
    const cCurrentFolder current(folder_->path());
    QVERIFY(current.Changed());
    QVERIFY(QDir().mkdir(QStringLiteral("d:\\old")));
    QVERIFY(!CopySharedFile(QStringLiteral("dos/Master.dbf"),
                            folder_->path() + QStringLiteral("/d:\\old"))
                 .isEmpty());
    for (const QString &typed :
         {QStringLiteral("d:\\old\\master.dbf"), QStringLiteral("d:\\old\\MASTER.DBF"),
          QStringLiteral("d:\\old\\Master.Dbf")}) {
        Database().setSourceDb(QString());
        frmNewDb dialog;
        ShowActive(dialog);
        TypeIntoBox(dialog, typed);
        QTest::mouseClick(dialog.cmdCopy, Qt::LeftButton);
        QVERIFY2(!dialog.Cancelled, qPrintable(typed));
        QVERIFY(!dialog.isVisible());
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
        QCOMPARE(Database().SourceDb(), folder_->path() + QStringLiteral("/d:\\old"));
    }
    QCOMPARE(seam_->Count(QStringLiteral("message|")), 0);
    QCOMPARE(seam_->Count(QStringLiteral("beep")), 0);
}

void TestFrmNewDb::folderWithoutAMasterTableIsRefused()
{
    frmNewDb dialog;
    ShowActive(dialog);
    const QString typed = folder_->path() + QStringLiteral("/nowhere/Master.dbf");
    TypeIntoBox(dialog, typed);
    QTest::mouseClick(dialog.cmdCopy, Qt::LeftButton);
    QCOMPARE(seam_->CallsStartingWith(QStringLiteral("message|")),
             QStringList{QStringLiteral("message|exclamation|Velmora!|The database ") + typed +
                         QStringLiteral(" is not a Velmora Director master database.")});
    QCOMPARE(seam_->Count(QStringLiteral("beep")), 0);
    QCOMPARE(dialog.txtSelectDb->text(), UsualMasterFile());
    QVERIFY(dialog.txtSelectDb->hasFocus());
    QVERIFY(dialog.isVisible());
    QVERIFY(dialog.Cancelled);
    QVERIFY(Database().SourceDb().isEmpty());
}

void TestFrmNewDb::fileThatIsNotADbaseTableIsRefused()
{
    const QString typed = folder_->path() + QStringLiteral("/Master.dbf");
    {
        QFile junk(typed);
        QVERIFY(junk.open(QIODevice::WriteOnly));
        junk.write("this is no table of the DOS program");
    }
    frmNewDb dialog;
    ShowActive(dialog);
    TypeIntoBox(dialog, typed);
    QTest::keyClick(dialog.txtSelectDb, Qt::Key_Tab);
    QTest::mouseClick(dialog.cmdCopy, Qt::LeftButton);
    QCOMPARE(seam_->CallsStartingWith(QStringLiteral("message|")),
             QStringList{QStringLiteral("message|exclamation|Velmora!|The database ") + typed +
                         QStringLiteral(" is not a Velmora Director master database.")});
    QVERIFY(dialog.Cancelled);
    QVERIFY(Database().SourceDb().isEmpty());
}

void TestFrmNewDb::nameWithoutAFolderIsRefused()
{
    frmNewDb dialog;
    ShowActive(dialog);
    TypeIntoBox(dialog, QStringLiteral("Master.dbf"));
    QTest::mouseClick(dialog.cmdCopy, Qt::LeftButton);
    QCOMPARE(seam_->CallsStartingWith(QStringLiteral("message|")),
             QStringList{QStringLiteral("message|exclamation|Velmora!|The database Master.dbf is "
                                        "not a Velmora Director master database.")});
    QVERIFY(dialog.Cancelled);
    QVERIFY(Database().SourceDb().isEmpty());
}

void TestFrmNewDb::browseFillsTheBoxAndBeepsOnAnotherExtension()
{
    const QString master = CopySharedFile(QStringLiteral("dos/Master.dbf"), folder_->path());
    QVERIFY(!master.isEmpty());
    const QString other = folder_->path() + QStringLiteral("/master.dbf.txt");
    QVERIFY(QFile::copy(master, other));
    frmNewDb dialog;
    ShowActive(dialog);
    seam_->QueueFile(master);
    QTest::mouseClick(dialog.cmdBrowse, Qt::LeftButton);
    QCOMPARE(dialog.txtSelectDb->text(), master);
    QCOMPARE(seam_->Count(QStringLiteral("beep")), 0);
    const QStringList requests = seam_->CallsStartingWith(QStringLiteral("open-file|"));
    QCOMPARE(requests.size(), 1);
    QVERIFY(requests.first().startsWith(QStringLiteral("open-file|Open|")));
    QVERIFY(requests.first().endsWith(QStringLiteral("|Master.dbf||1|dbf")));

    seam_->QueueFile(other);
    QTest::mouseClick(dialog.cmdBrowse, Qt::LeftButton);
    QCOMPARE(dialog.txtSelectDb->text(), other);
    QCOMPARE(seam_->Count(QStringLiteral("beep")), 1);
    // The dialog starts in the folder of the file already chosen.
    QCOMPARE(seam_->CallsStartingWith(QStringLiteral("open-file|")).last().section(u'|', 2, 2),
             QDir::toNativeSeparators(folder_->path()));
    QVERIFY(dialog.isVisible());
    QVERIFY(dialog.Cancelled);
    QVERIFY(!seam_->HadUnexpectedQuestion());
}

void TestFrmNewDb::browseCancelLeavesTheBoxAsItWas()
{
    frmNewDb dialog;
    ShowActive(dialog);
    TypeIntoBox(dialog, QStringLiteral("/somewhere/Master.dbf"));
    seam_->QueueFile(QString());
    QTest::mouseClick(dialog.cmdBrowse, Qt::LeftButton);
    QCOMPARE(seam_->Count(QStringLiteral("open-file|")), 1);
    QCOMPARE(dialog.txtSelectDb->text(), QStringLiteral("/somewhere/Master.dbf"));
    QCOMPARE(seam_->Count(QStringLiteral("message|")), 0);
    QCOMPARE(seam_->Count(QStringLiteral("beep")), 0);
    QVERIFY(dialog.Cancelled);
}

void TestFrmNewDb::newClearsCancelledWithoutASource()
{
    Database().setSourceDb(QStringLiteral("/left/over"));
    frmNewDb dialog;
    ShowActive(dialog);
    QTest::mouseClick(dialog.cmdNew, Qt::LeftButton);
    QVERIFY(!dialog.Cancelled);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QVERIFY(Database().SourceDb().isEmpty());
}

void TestFrmNewDb::windowCloseLeavesCancelledSet()
{
    frmNewDb dialog;
    ShowActive(dialog);
    QVERIFY(dialog.close());
    QVERIFY(!dialog.isVisible());
    QVERIFY(dialog.Cancelled);
    QCOMPARE(dialog.result(), int(QDialog::Rejected));
}

void TestFrmNewDb::escapeLeavesCancelledSet()
{
    frmNewDb dialog;
    ShowActive(dialog);
    QTest::keyClick(&dialog, Qt::Key_Escape);
    QVERIFY(!dialog.isVisible());
    QVERIFY(dialog.Cancelled);
}

VELMORA_WIDGET_TEST_MAIN(TestFrmNewDb)
#include "test_frm_new_db.moc"
