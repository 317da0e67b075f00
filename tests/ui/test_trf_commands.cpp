#include "base/common.h"
#include "conduct/trf_file.h"
#include "database/sql.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/player.h"
#include "session/players.h"
#include "session/results.h"
#include "session/tournament.h"
#include "support/scripted_interaction.h"
#include "support/test_environment.h"
#include "support/tournament_fixture.h"
#include "support/widget_driving.h"
#include "ui/cntl_data_list.h"
#include "ui/cntl_player_list.h"
#include "ui/file_locations.h"
#include "ui/frm_main.h"
#include "ui/frm_tournament.h"
#include "ui/main_commands.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QMenu>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

class TestTrfCommands : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void fileMenuCarriesExportAndImport();
    void exportNeedsAnOpenTournament();
    void exportWritesTheOpenTournament();
    void cancelledExportWritesNothing();
    void importCreatesAndOpensTheTournament();
    void refusedImportTellsTheLineAndWritesNothing();
    void importIsReachableFromTheKeyboard();

private:
    std::unique_ptr<QTemporaryDir> folder_;
    std::unique_ptr<cTestSession> session_;
    std::unique_ptr<cScriptedInteraction> interaction_;
};

namespace {

const QString TrfFilter = u"Tournament report files (*.trf *.txt)|*.trf *.txt|All files (*)|*"_s;

// Two entrants with pins and one game stored, opened as the open command opens it.
void OpenTournamentWithAGame(frmMain &window)
{
    OpenNewTournament(u"Spring Congress"_s);
    auto white = AddEntrant(u"Adams"_s, u"Ann"_s, u"180"_s, u"1"_s);
    auto black = AddEntrant(u"Brown"_s, u"Bob"_s, u"170"_s, u"2"_s);
    AddGame(1, 1, *white, *black);
    Control().Tournament()->Results().LoadAllResults();
    window.ShowTournamentView(true);
}

QByteArray Contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool TournamentOnView(const frmMain &window)
{
    const frmTournament *view = window.TournamentWindow();
    return view && view->isVisible() && window.tbrTournament->isChecked() &&
           !window.tbrPlayers->isChecked();
}

QString WriteFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(bytes);
    return path;
}

QByteArray ImportedFile()
{
    const std::string text = "012 Autumn Open: Major\n042 2025/10/04\n092 Rapidplay\n" +
                             TrfPlayerLine(1, "Carter, Cy", 150, {"   2 w 1"}) +
                             TrfPlayerLine(2, "Drake, Di", 140, {"   1 b 0"}) + "XXR 5\n";
    return QByteArray::fromStdString(text);
}

} // namespace

void TestTrfCommands::init()
{
    folder_ = std::make_unique<QTemporaryDir>();
    session_ = std::make_unique<cTestSession>();
    interaction_ = std::make_unique<cScriptedInteraction>();
    ForgetFileFolder();
    Control().setTournament(nullptr);
}

void TestTrfCommands::cleanup()
{
    interaction_.reset();
    Control().setTournament(nullptr);
    session_.reset();
    folder_.reset();
}

void TestTrfCommands::fileMenuCarriesExportAndImport()
{
    frmMain window;
    auto *exportTrf = window.findChild<QAction *>(u"mnuFileExportTRF"_s);
    auto *importTrf = window.findChild<QAction *>(u"mnuFileImportTRF"_s);
    QVERIFY(exportTrf && importTrf);
    QCOMPARE(exportTrf->text(), u"&Export TRF..."_s);
    QCOMPARE(importTrf->text(), u"&Import TRF..."_s);
    QVERIFY(window.mnuFile->actions().contains(exportTrf));
    QVERIFY(window.mnuFile->actions().contains(importTrf));
    // Import needs no open tournament.
    QVERIFY(importTrf->isEnabled());
}

void TestTrfCommands::exportNeedsAnOpenTournament()
{
    frmMain window;
    ShowActive(window);
    QVERIFY(!window.mnuFileExportTRF->isEnabled());
    OpenTournamentWithAGame(window);
    QVERIFY(window.mnuFileExportTRF->isEnabled());
    window.ShowMasterView();
    Control().setTournament(nullptr);
    SetMainCommands();
    QVERIFY(!window.mnuFileExportTRF->isEnabled());
}

void TestTrfCommands::exportWritesTheOpenTournament()
{
    frmMain window;
    ShowActive(window);
    OpenTournamentWithAGame(window);
    const QString path = folder_->filePath(u"spring.trf"_s);
    interaction_->QueueFile(path);
    window.mnuFileExportTRF->trigger();

    const QString documents = QDir::toNativeSeparators(
        QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    QCOMPARE(interaction_->CallsStartingWith(u"save-file|"_s),
             QStringList{u"save-file|Export TRF|"_s + documents + u"|Spring Congress.trf|"_s +
                         TrfFilter + u"|1|trf"_s});
    QCOMPARE(interaction_->CallsStartingWith(u"message|"_s),
             QStringList{u"message|information|Velmora!|2 players and 1 round written to "_s +
                         QDir::toNativeSeparators(path) + u'.'});

    const mSwiss::cTrfReading reading = mSwiss::ReadTrf(Contents(path).toStdString());
    QVERIFY2(reading.ok, reading.message.c_str());
    QCOMPARE(reading.file.Header("012"), std::string("Spring Congress"));
    QCOMPARE(reading.file.tournament.rounds, 5);
    const auto &entrants = reading.file.tournament.entrants;
    QCOMPARE(entrants.size(), size_t(2));
    QCOMPARE(entrants[0].name, std::string("Adams, Ann"));
    QCOMPARE(entrants[0].rating, 180);
    QCOMPARE(entrants[0].games.size(), size_t(1));
    QCOMPARE(entrants[0].games[0].opponent, 2);
    QCOMPARE(entrants[0].games[0].result, '1');
    QCOMPARE(entrants[1].games[0].result, '0');

    // The next dialog opens where the file went.
    interaction_->QueueFile(QString());
    window.mnuFileExportTRF->trigger();
    QCOMPARE(interaction_->CallsStartingWith(u"save-file|"_s).value(1),
             u"save-file|Export TRF|"_s + QDir::toNativeSeparators(folder_->path()) +
                 u"|Spring Congress.trf|"_s + TrfFilter + u"|1|trf"_s);
}

void TestTrfCommands::cancelledExportWritesNothing()
{
    frmMain window;
    ShowActive(window);
    OpenTournamentWithAGame(window);
    interaction_->QueueFile(QString());
    window.mnuFileExportTRF->trigger();
    QCOMPARE(QDir(folder_->path()).entryList(QDir::Files), QStringList());
    QCOMPARE(interaction_->Count(u"message|"_s), 0);
}

void TestTrfCommands::importCreatesAndOpensTheTournament()
{
    frmMain window;
    ShowActive(window);
    const QString path = WriteFile(folder_->filePath(u"autumn.trf"_s), ImportedFile());
    interaction_->QueueFile(path);
    window.mnuFileImportTRF->trigger();

    QCOMPARE(interaction_->CallsStartingWith(u"open-file|"_s).size(), 1);
    QVERIFY(interaction_->CallsStartingWith(u"open-file|"_s)
                .value(0)
                .endsWith(u"||"_s + TrfFilter + u"|1|trf"_s));
    QCOMPARE(interaction_->CallsStartingWith(u"message|"_s),
             QStringList{u"message|information|Velmora!|Autumn Open: Major imported: 2 players "
                         "and 5 rounds."_s});
    QVERIFY(TournamentOnView(window));
    const auto tournament = Control().Tournament();
    QVERIFY(tournament);
    QCOMPARE(tournament->Title(), u"Autumn Open"_s);
    QCOMPARE(tournament->Tourn(), u"Major"_s);
    QCOMPARE(tournament->TDate(), u"04/10/2025"_s);
    QCOMPARE(tournament->TType(), u"R"_s);
    QCOMPARE(tournament->Rounds(), u"5"_s);
    QCOMPARE(window.windowTitle(), u"Velmora! - Autumn Open: Major"_s);
    QCOMPARE(window.TournamentWindow()->lstPlayer->Model()->rowCount(), 2);
    QCOMPARE(RowCount(u"Player"_s), 2);
    QCOMPARE(RowCount(u"Master"_s), 2);
    QCOMPARE(SqlScalar(u"Select \"Result\" From Result Where White = 1 And Black = 2"_s).toString(),
             u"W"_s);
    QVERIFY(window.mnuFileExportTRF->isEnabled());
}

void TestTrfCommands::refusedImportTellsTheLineAndWritesNothing()
{
    frmMain window;
    ShowActive(window);
    QByteArray broken = ImportedFile();
    broken.replace("w 1\n", "w =\n");
    const QString path = WriteFile(folder_->filePath(u"broken.trf"_s), broken);
    interaction_->QueueFile(path);
    window.mnuFileImportTRF->trigger();

    QCOMPARE(interaction_->CallsStartingWith(u"message|"_s),
             QStringList{u"message|exclamation|Velmora!|The file "_s +
                         QDir::toNativeSeparators(path) +
                         u" was not imported.\n\nLine 4: the results '=' and '0' of round 1 "
                         "against player 2 do not go together."_s});
    QVERIFY(!Control().Tournament());
    QVERIFY(!window.TournamentWindow());
    QCOMPARE(RowCount(u"Velmora"_s), 0);
    QCOMPARE(RowCount(u"Player"_s), 0);
    QCOMPARE(RowCount(u"Master"_s), 0);
}

void TestTrfCommands::importIsReachableFromTheKeyboard()
{
    frmMain window;
    ShowActive(window);
    const QString path = WriteFile(folder_->filePath(u"autumn.trf"_s), ImportedFile());
    interaction_->QueueFile(path);
    // The File menu open, its mnemonic takes the command.
    window.mnuFile->popup(window.mapToGlobal(QPoint(0, 0)));
    QTRY_VERIFY(window.mnuFile->isVisible());
    QTest::keyClick(window.mnuFile, Qt::Key_I);
    QTRY_VERIFY(TournamentOnView(window));
    QCOMPARE(Control().Tournament()->Title(), u"Autumn Open"_s);
}

VELMORA_WIDGET_TEST_MAIN(TestTrfCommands)
#include "test_trf_commands.moc"
