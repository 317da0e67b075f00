#include "register/master.h"
#include "reports/report_fixtures.h"
#include "support/scripted_interaction.h"
#include "support/test_environment.h"
#include "support/widget_driving.h"
#include "ui/file_locations.h"
#include "ui/frm_export.h"

#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QStandardPaths>
#include <QTemporaryDir>

namespace {

void Click(QAbstractButton *button)
{
    QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2));
}

void AddPerson(const QString &surname, const QString &forename, bool flagged)
{
    cMaster master;
    master.setSurname(surname);
    master.setForename(forename);
    master.setAddress1(u"1 Park Road"_s);
    master.setAddress4(u"Somerset"_s);
    master.setSpecial1(flagged ? u"Y"_s : QString());
    master.Create();
}

QStringList LinesOf(const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QStringList lines = QString::fromUtf8(file.readAll()).split(u"\r\n"_s);
    if (!lines.isEmpty() && lines.constLast().isEmpty())
        lines.removeLast();
    return lines;
}

QString ReadAll(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

} // namespace

class TestFrmExport : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void startsWithAllPlayersNoDetailsAndAFileInDocuments();
    void noControlIsCutOff();
    void withNoBoxTickedTheRegisterHasSurnameAndForename();
    void theRegisterIsQuotedAndTheTournamentIsPlain();
    void tournamentGradesArePaddedToFourColumns();
    void tournamentResultsBoxFollowsTheSelectionAndKeepsItsTick();
    void userFlagOneFiltersOnItsFieldWhateverItsCaption();
    void anEmptySelectionWritesNoFileAndSaysSo();
    void browseProposesACsvInDocumentsThenTheLastFolder();
    void cancellingBrowseKeepsTheName();
    void cancelWritesNothing();
    void aFolderNameIsToldAndTheEarlierFileStaysWhole();
    void registerReadsBackWithPythonsCsvModule();

private:
    QString Export(frmExport &dialog);

    std::unique_ptr<cTestSession> session_;
    std::unique_ptr<cScriptedInteraction> interaction_;
    std::unique_ptr<QTemporaryDir> folder_;
};

void TestFrmExport::init()
{
    folder_ = std::make_unique<QTemporaryDir>();
    session_ = std::make_unique<cTestSession>();
    interaction_ = std::make_unique<cScriptedInteraction>();
    ForgetFileFolder();
    Control().setTournament(nullptr);
}

void TestFrmExport::cleanup()
{
    interaction_.reset();
    Control().setTournament(nullptr);
    session_.reset();
}

// Types the destination and presses Enter, which is OK; returns the file's name.
QString TestFrmExport::Export(frmExport &dialog)
{
    const QString fileName = folder_->filePath(u"export.csv"_s);
    ReplaceText(dialog.txtDestination, fileName);
    QTest::keyClick(dialog.txtDestination, Qt::Key_Return);
    return fileName;
}

void TestFrmExport::startsWithAllPlayersNoDetailsAndAFileInDocuments()
{
    frmExport dialog;
    ShowActive(dialog);
    QCOMPARE(dialog.windowTitle(), u"Export"_s);
    QVERIFY(dialog.optAll->isChecked());
    QVERIFY(!dialog.optTournament->isEnabled());
    QVERIFY(!dialog.chkResults->isEnabled());
    for (QCheckBox *box : {dialog.chkPersonal, dialog.chkContact, dialog.chkClub, dialog.chkGrade,
                           dialog.chkUser, dialog.chkResults})
        QVERIFY(!box->isChecked());
    QVERIFY(dialog.cmdOk->isDefault());
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    QCOMPARE(dialog.txtDestination->text(),
             QDir::toNativeSeparators(documents) + QDir::separator() + u"Export.csv"_s);
}

void TestFrmExport::noControlIsCutOff()
{
    OpenFixture(cFixtureTournament{}, {}, {}, false);
    frmExport dialog;
    ShowActive(dialog);
    const QList<QWidget *> controls = dialog.findChildren<QWidget *>();
    for (QWidget *control : controls) {
        if (!control->isVisible() || control->objectName().isEmpty())
            continue;
        const QSize needed = control->minimumSizeHint();
        QVERIFY2(control->width() >= needed.width() && control->height() >= needed.height(),
                 qPrintable(control->objectName()));
    }
}

void TestFrmExport::withNoBoxTickedTheRegisterHasSurnameAndForename()
{
    AddPerson(u"Brown"_s, u"Amy"_s, false);
    AddPerson(u"Adams"_s, u"Tom"_s, true);
    frmExport dialog;
    ShowActive(dialog);
    const QString fileName = Export(dialog);
    QVERIFY(!dialog.isVisible());
    QCOMPARE(dialog.result(), 0);
    QCOMPARE(LinesOf(fileName), (QStringList{u"\"Surname\",\"Forename\""_s, u"\"Adams\",\"Tom\""_s,
                                             u"\"Brown\",\"Amy\""_s}));
    QCOMPARE(interaction_->CallsStartingWith(u"message|"_s),
             QStringList{u"message|plain|Velmora!|Export Completed.\n\n2 rows written to "_s +
                         QDir::toNativeSeparators(fileName) + u'.'});
}

void TestFrmExport::theRegisterIsQuotedAndTheTournamentIsPlain()
{
    OpenFixture(cFixtureTournament{}, CongressEntrants.mid(0, 2), {}, true);
    frmExport dialog;
    ShowActive(dialog);
    QVERIFY(dialog.optTournament->isEnabled());
    QCOMPARE(dialog.optTournament->text(), u"Spring Congress: Open"_s);
    Click(dialog.optTournament);
    Click(dialog.chkPersonal);
    QString fileName = Export(dialog);
    const QStringList tournament = LinesOf(fileName);
    QCOMPARE(tournament.value(0), u"Surname, Forename, DOB, Age"_s);
    QCOMPARE(tournament.value(1), u"Ashworth,Daniel,,"_s);
    QCOMPARE(tournament.size(), 3);

    ShowActive(dialog);
    Click(dialog.optAll);
    fileName = Export(dialog);
    const QStringList master = LinesOf(fileName);
    QCOMPARE(master.value(0), u"\"Surname\",\"Forename\",\"DOB\",\"Age\",\"Gender\""_s);
    QVERIFY(master.value(1).startsWith(u"\"Ashworth\",\"Daniel\","_s));
}

void TestFrmExport::tournamentGradesArePaddedToFourColumns()
{
    OpenFixture(cFixtureTournament{}, {CongressEntrants.at(0), CongressEntrants.at(7)}, {}, false);
    frmExport dialog;
    ShowActive(dialog);
    Click(dialog.optTournament);
    Click(dialog.chkGrade);
    const QStringList lines = LinesOf(Export(dialog));
    QCOMPARE(lines.size(), 3);
    QCOMPARE(lines.value(0), u"Surname, Forename, Grade,  BCF Code, GM Title"_s);
    QCOMPARE(lines.value(1), u"Ashworth,Daniel,185A,123456A,"_s);
    // A grade of two figures and no letter still fills four columns.
    QCOMPARE(lines.value(2).split(u',').value(2).size(), 4);
    QVERIFY(lines.value(2).startsWith(u"Lee,,"_s));
}

void TestFrmExport::tournamentResultsBoxFollowsTheSelectionAndKeepsItsTick()
{
    AddPerson(u"Adams"_s, u"Tom"_s, false);
    OpenFixture(cFixtureTournament{}, CongressEntrants.mid(0, 1), {}, false);
    frmExport dialog;
    ShowActive(dialog);
    QVERIFY(!dialog.chkResults->isEnabled());
    Click(dialog.optTournament);
    QVERIFY(dialog.chkResults->isEnabled());
    Click(dialog.chkResults);
    Click(dialog.optUser3);
    QVERIFY(!dialog.chkResults->isEnabled());
    QVERIFY(dialog.chkResults->isChecked());
    Click(dialog.optAll);
    // The register's export has no results columns, ticked or not.
    QCOMPARE(LinesOf(Export(dialog)).value(0), u"\"Surname\",\"Forename\""_s);
}

void TestFrmExport::userFlagOneFiltersOnItsFieldWhateverItsCaption()
{
    Control().setUserDefined1(u"Committee"_s);
    AddPerson(u"Adams"_s, u"Tom"_s, true);
    AddPerson(u"Brown"_s, u"Amy"_s, false);
    frmExport dialog;
    ShowActive(dialog);
    QCOMPARE(dialog.optUser1->text(), u"Committee"_s);
    Click(dialog.optUser1);
    Click(dialog.chkUser);
    const QStringList lines = LinesOf(Export(dialog));
    QCOMPARE(lines.value(0), u"\"Surname\",\"Forename\",\"Committee\",\"User Defined 2\","
                             "\"User Defined 3\",\"User Defined 4\""_s);
    QCOMPARE(lines.mid(1), QStringList{u"\"Adams\",\"Tom\",\"Y\",\"\",\"\",\"\""_s});
}

void TestFrmExport::anEmptySelectionWritesNoFileAndSaysSo()
{
    AddPerson(u"Brown"_s, u"Amy"_s, false);
    frmExport dialog;
    ShowActive(dialog);
    Click(dialog.optUser1);
    const QString fileName = Export(dialog);
    QVERIFY(!QFile::exists(fileName));
    QCOMPARE(interaction_->CallsStartingWith(u"message|"_s),
             QStringList{u"message|information|Velmora!|No players match the selection."_s});

    // A tournament with nobody entered says the same.
    OpenFixture(cFixtureTournament{}, {}, {}, false);
    ShowActive(dialog);
    Click(dialog.optTournament);
    Export(dialog);
    QVERIFY(!QFile::exists(fileName));
    QCOMPARE(interaction_->Count(u"message|information|Velmora!|No players match"_s), 2);
}

void TestFrmExport::browseProposesACsvInDocumentsThenTheLastFolder()
{
    frmExport dialog;
    ShowActive(dialog);
    const QString documents = QDir::toNativeSeparators(
        QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    QDir().mkpath(documents);
    const QString chosen = folder_->filePath(u"players.csv"_s);
    interaction_->QueueFile(chosen);
    Click(dialog.cmdBrowse);
    QCOMPARE(dialog.txtDestination->text(), chosen);
    interaction_->QueueFile(QString());
    Click(dialog.cmdBrowse);
    const QStringList asked = interaction_->CallsStartingWith(u"save-file|"_s);
    QCOMPARE(asked.value(0),
             u"save-file|Export|"_s + documents +
                 u"|Export.csv|Text file (*.csv)|*.csv|All Files (*.*)|*.*|1|csv"_s);
    QCOMPARE(asked.value(1),
             u"save-file|Export|"_s + QDir::toNativeSeparators(folder_->path()) +
                 u"|players.csv|Text file (*.csv)|*.csv|All Files (*.*)|*.*|1|csv"_s);
}

void TestFrmExport::cancellingBrowseKeepsTheName()
{
    frmExport dialog;
    ShowActive(dialog);
    ReplaceText(dialog.txtDestination, u"/tmp/kept.csv"_s);
    interaction_->QueueFile(QString());
    Click(dialog.cmdBrowse);
    QCOMPARE(dialog.txtDestination->text(), u"/tmp/kept.csv"_s);
    QVERIFY(dialog.isVisible());
}

void TestFrmExport::cancelWritesNothing()
{
    AddPerson(u"Brown"_s, u"Amy"_s, false);
    frmExport dialog;
    ShowActive(dialog);
    const QString fileName = folder_->filePath(u"never.csv"_s);
    ReplaceText(dialog.txtDestination, fileName);
    Click(dialog.cmdCancel);
    QVERIFY(!dialog.isVisible());
    QCOMPARE(dialog.result(), -1);
    QVERIFY(!QFile::exists(fileName));
    QCOMPARE(interaction_->Count(u"message|"_s), 0);
}

void TestFrmExport::aFolderNameIsToldAndTheEarlierFileStaysWhole()
{
    AddPerson(u"Brown"_s, u"Amy"_s, false);
    frmExport dialog;
    ShowActive(dialog);
    const QString folderName = folder_->filePath(u"folder.csv"_s);
    QVERIFY(QDir().mkpath(folderName));
    ReplaceText(dialog.txtDestination, folderName);
    Click(dialog.cmdOk);
    QVERIFY(QFileInfo(folderName).isDir());
    QCOMPARE(interaction_->Count(u"message|exclamation|Velmora!|The file "_s +
                                 QDir::toNativeSeparators(folderName) + u" could not be written"_s),
             1);

    // A location nobody may write to.
    ShowActive(dialog);
    ReplaceText(dialog.txtDestination, u"/proc/velmora-export.csv"_s);
    Click(dialog.cmdOk);
    QCOMPARE(interaction_->Count(
                 u"message|exclamation|Velmora!|The file /proc/velmora-export.csv could not"_s),
             1);

    // An earlier export of the same name is replaced whole.
    const QString fileName = folder_->filePath(u"again.csv"_s);
    {
        QFile earlier(fileName);
        QVERIFY(earlier.open(QIODevice::WriteOnly));
        earlier.write("earlier,export\r\nwith,two rows and more text than the new one\r\n");
    }
    ShowActive(dialog);
    ReplaceText(dialog.txtDestination, fileName);
    Click(dialog.cmdOk);
    QCOMPARE(ReadAll(fileName), u"\"Surname\",\"Forename\"\r\n\"Brown\",\"Amy\"\r\n"_s);
}

void TestFrmExport::registerReadsBackWithPythonsCsvModule()
{
    const QString python = QStandardPaths::findExecutable(u"python3"_s);
    if (python.isEmpty())
        QSKIP("python3 is not installed");
    // A comma and a double quote inside a value come back as they were typed.
    AddPerson(u"O\"Brien, Jr"_s, u"Mary Ann"_s, false);
    AddPerson(u"Smith-Jones"_s, u"Li"_s, false);
    frmExport dialog;
    ShowActive(dialog);
    Click(dialog.chkContact);
    const QString fileName = Export(dialog);
    QProcess reader;
    reader.start(python, {u"-c"_s,
                          u"import csv,sys\n"
                          "for row in csv.reader(open(sys.argv[1], newline='', "
                          "encoding='utf-8')):\n"
                          "    print('|'.join(row))\n"_s,
                          fileName});
    QVERIFY(reader.waitForFinished(30000));
    QCOMPARE(reader.exitCode(), 0);
    const QStringList rows =
        QString::fromUtf8(reader.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts);
    QCOMPARE(rows, (QStringList{
                       u"Surname|Forename|Address1|Address2|Address3|County|Postcode|Phone|eMail"_s,
                       u"O\"Brien, Jr|Mary Ann|1 Park Road|||Somerset|||"_s,
                       u"Smith-Jones|Li|1 Park Road|||Somerset|||"_s}));
}

VELMORA_WIDGET_TEST_MAIN(TestFrmExport)
#include "test_frm_export.moc"
