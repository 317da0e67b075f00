#include "base/fatal_fault.h"
#include "database/sql.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/player.h"
#include "session/players.h"
#include "session/results.h"
#include "session/tournament.h"
#include "support/scripted_interaction.h"
#include "support/test_environment.h"

#include <QGuiApplication>
#include <QSqlQuery>
#include <QTest>

class TestTournament : public QObject
{
    Q_OBJECT

private slots:
    void displayNameJoinsTitleAndEventOnlyWhenBothAreThere_data();
    void displayNameJoinsTitleAndEventOnlyWhenBothAreThere();
    void clearLeavesLockedFalseAndKeepsTheType();
    void settersTrimTheirValues();
    void typeLiteralMapsEveryTypeBothWays_data();
    void typeLiteralMapsEveryTypeBothWays();
    void typeLiteralPassesAnUnknownTextThrough();
    void createStartsWithFiveRoundsAtRoundOneUnlocked();
    void createAllotsTheNextId();
    void loadReadsEveryFieldBackAsWritten();
    void datesReadBackAsEnteredAndStandAsIsoInTheFile();
    void updateWithEmptyEndStoresNullAndLoadsEmpty();
    void loadOfAnUnknownIdGivesAnEmptyRecord();
    void loadLeavesTheCollectionsAndClearsTheSelection();
    void nextRoundAdvancesWhileCurrentSortsBeforeRounds();
    void nextRoundComparesAsTextAndStillRewritesTheRow();
    void deleteRemovesGamesThenEntrantsThenTheRow();
    void deleteThatFailsLeavesEverythingInPlace();
    void deleteRequiredMentionsEntrantsAndAsks();
    void deleteRequiredWithoutEntrantsAsksOnly();
    void copyTakesTheDetailsButNoEntrantsOrGames();
    void collectionsSetToNoneComeBackEmpty();
    void quotesInTextsAreStoredAsTyped();
    void updateOfAVanishedRowIsAFatalFault();
};

namespace {

std::shared_ptr<cTournament> CreatedTournament(const QString &title = QStringLiteral("Spring"))
{
    auto tournament = std::make_shared<cTournament>();
    tournament->setTitle(title);
    tournament->setTourn(QStringLiteral("Open"));
    tournament->setTType(QStringLiteral("B"));
    tournament->Create();
    return tournament;
}

QVariant Stored(const QString &field, const QString &tournId)
{
    return SqlScalar(QStringLiteral("Select \"") + field +
                         QStringLiteral("\" From Velmora Where TId = ?"),
                     {tournId.toLongLong()});
}

qint64 CountOf(const QString &table, const QString &tournId)
{
    return SqlScalar(QStringLiteral("Select count(*) From ") + table +
                         QStringLiteral(" Where TId = ?"),
                     {tournId.toLongLong()})
        .toLongLong();
}

void AddEntrantAndGame(const std::shared_ptr<cTournament> &tournament)
{
    Control().setTournament(tournament);
    cPlayer first;
    first.setSurname(QStringLiteral("Adams"));
    first.Create();
    cPlayer second;
    second.setSurname(QStringLiteral("Brown"));
    second.Create();
    RunSql(QStringLiteral("Insert Into Result (TId, \"Round\", Board, White, Black, \"Result\") "
                          "Values (?, 1, 1, 1, 2, 'W')"),
           {tournament->TournId().toLongLong()});
}

} // namespace

void TestTournament::displayNameJoinsTitleAndEventOnlyWhenBothAreThere_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("tourn");
    QTest::addColumn<QString>("name");
    QTest::newRow("title only") << QStringLiteral("Spring Congress") << QString()
                                << QStringLiteral("Spring Congress");
    QTest::newRow("event only") << QString() << QStringLiteral("Minor") << QStringLiteral("Minor");
    QTest::newRow("both") << QStringLiteral("Spring Congress") << QStringLiteral("Minor")
                          << QStringLiteral("Spring Congress: Minor");
    QTest::newRow("neither") << QString() << QString() << QString();
}

void TestTournament::displayNameJoinsTitleAndEventOnlyWhenBothAreThere()
{
    QFETCH(QString, title);
    QFETCH(QString, tourn);
    QFETCH(QString, name);
    cTournament tournament;
    tournament.setTitle(title);
    tournament.setTourn(tourn);
    QCOMPARE(tournament.DisplayName(), name);
}

void TestTournament::clearLeavesLockedFalseAndKeepsTheType()
{
    cTournament tournament;
    tournament.setTType(QStringLiteral("R"));
    tournament.setTitle(QStringLiteral("Title"));
    tournament.setLocked(QStringLiteral("True"));
    tournament.setRounds(QStringLiteral("7"));
    tournament.Clear();
    QCOMPARE(tournament.Locked(), QStringLiteral("False"));
    QCOMPARE(tournament.TType(), QStringLiteral("R"));
    QCOMPARE(tournament.Title(), QString());
    QCOMPARE(tournament.Rounds(), QString());
}

void TestTournament::settersTrimTheirValues()
{
    cTournament tournament;
    tournament.setTitle(QStringLiteral("  Spring  "));
    tournament.setTText3(QStringLiteral(" line "));
    tournament.setDefGrade(QStringLiteral(" 100 "));
    QCOMPARE(tournament.Title(), QStringLiteral("Spring"));
    QCOMPARE(tournament.TText3(), QStringLiteral("line"));
    QCOMPARE(tournament.DefGrade(), QStringLiteral("100"));
}

void TestTournament::typeLiteralMapsEveryTypeBothWays_data()
{
    QTest::addColumn<QString>("letter");
    QTest::addColumn<QString>("literal");
    QTest::newRow("B") << QStringLiteral("B") << QStringLiteral("BCF Standard");
    QTest::newRow("R") << QStringLiteral("R") << QStringLiteral("Rapidplay");
    QTest::newRow("F") << QStringLiteral("F") << QStringLiteral("FIDE Rated");
    QTest::newRow("M") << QStringLiteral("M") << QStringLiteral("Mixed BCF/FIDE");
    QTest::newRow("D") << QStringLiteral("D") << QStringLiteral("Double Rnd Rpd");
}

void TestTournament::typeLiteralMapsEveryTypeBothWays()
{
    QFETCH(QString, letter);
    QFETCH(QString, literal);
    cTournament tournament;
    tournament.setTTypeLiteral(literal);
    QCOMPARE(tournament.TType(), letter);
    tournament.setTType(QStringLiteral("X"));
    tournament.setTType(letter);
    QCOMPARE(tournament.TTypeLiteral(), literal);
}

void TestTournament::typeLiteralPassesAnUnknownTextThrough()
{
    cTournament tournament;
    tournament.setTTypeLiteral(QStringLiteral("X"));
    QCOMPARE(tournament.TType(), QStringLiteral("X"));
    QCOMPARE(tournament.TTypeLiteral(), QStringLiteral("X"));
    tournament.setTTypeLiteral(QStringLiteral("  Blitz  "));
    QCOMPARE(tournament.TType(), QStringLiteral("Blitz"));
    tournament.setTType(QString());
    QCOMPARE(tournament.TTypeLiteral(), QString());
}

void TestTournament::createStartsWithFiveRoundsAtRoundOneUnlocked()
{
    cTestSession session;
    cTournament tournament;
    tournament.setTitle(QStringLiteral("Winter"));
    tournament.setRounds(QStringLiteral("9"));
    tournament.setCurrRound(QStringLiteral("4"));
    tournament.setLocked(QStringLiteral("True"));
    tournament.Create();
    QCOMPARE(tournament.Rounds(), QStringLiteral("5"));
    QCOMPARE(tournament.CurrRound(), QStringLiteral("1"));
    QCOMPARE(tournament.Locked(), QStringLiteral("False"));
    cTournament loaded;
    loaded.Load(tournament.TournId());
    QCOMPARE(loaded.Rounds(), QStringLiteral("5"));
    QCOMPARE(loaded.CurrRound(), QStringLiteral("1"));
    QCOMPARE(loaded.Locked(), QStringLiteral("False"));
}

void TestTournament::createAllotsTheNextId()
{
    cTestSession session;
    const auto first = CreatedTournament();
    const auto second = CreatedTournament();
    QCOMPARE(first->TournId(), QStringLiteral("1"));
    QCOMPARE(second->TournId(), QStringLiteral("2"));
}

void TestTournament::loadReadsEveryFieldBackAsWritten()
{
    cTestSession session;
    cTournament tournament;
    tournament.setTitle(QStringLiteral("Spring Congress"));
    tournament.setTourn(QStringLiteral("Major"));
    tournament.setTDate(QStringLiteral("05/04/2025"));
    tournament.setTEnd(QStringLiteral("06/04/2025"));
    tournament.setTType(QStringLiteral("R"));
    tournament.setDefGrade(QStringLiteral("80"));
    tournament.setTText1(QStringLiteral("one"));
    tournament.setTText2(QStringLiteral("two"));
    tournament.setTText3(QStringLiteral("three"));
    tournament.setTText4(QStringLiteral("four"));
    tournament.setTText5(QStringLiteral("five"));
    tournament.setTText6(QStringLiteral("six"));
    tournament.Create();
    tournament.setRounds(QStringLiteral("7"));
    tournament.setLocked(QStringLiteral("True"));
    tournament.Update();

    cTournament loaded;
    loaded.Load(QStringLiteral(" ") + tournament.TournId() + QStringLiteral(" "));
    QCOMPARE(loaded.TournId(), tournament.TournId());
    QCOMPARE(loaded.Title(), QStringLiteral("Spring Congress"));
    QCOMPARE(loaded.Tourn(), QStringLiteral("Major"));
    QCOMPARE(loaded.TDate(), QStringLiteral("05/04/2025"));
    QCOMPARE(loaded.TEnd(), QStringLiteral("06/04/2025"));
    QCOMPARE(loaded.TType(), QStringLiteral("R"));
    QCOMPARE(loaded.TTypeLiteral(), QStringLiteral("Rapidplay"));
    QCOMPARE(loaded.Rounds(), QStringLiteral("7"));
    QCOMPARE(loaded.CurrRound(), QStringLiteral("1"));
    QCOMPARE(loaded.DefGrade(), QStringLiteral("80"));
    QCOMPARE(loaded.TText1(), QStringLiteral("one"));
    QCOMPARE(loaded.TText6(), QStringLiteral("six"));
    QCOMPARE(loaded.Locked(), QStringLiteral("True"));
}

void TestTournament::datesReadBackAsEnteredAndStandAsIsoInTheFile()
{
    cTestSession session;
    cTournament tournament;
    tournament.setTDate(QStringLiteral("31/12/1999"));
    tournament.setTEnd(QStringLiteral("01/01/2030"));
    tournament.Create();
    QCOMPARE(Stored(QStringLiteral("TDate"), tournament.TournId()).toString(),
             QStringLiteral("1999-12-31"));
    QCOMPARE(Stored(QStringLiteral("TEnd"), tournament.TournId()).toString(),
             QStringLiteral("2030-01-01"));
    cTournament loaded;
    loaded.Load(tournament.TournId());
    QCOMPARE(loaded.TDate(), QStringLiteral("31/12/1999"));
    QCOMPARE(loaded.TEnd(), QStringLiteral("01/01/2030"));
}

void TestTournament::updateWithEmptyEndStoresNullAndLoadsEmpty()
{
    cTestSession session;
    cTournament tournament;
    tournament.setTEnd(QStringLiteral("06/04/2025"));
    tournament.Create();
    tournament.setTEnd(QString());
    tournament.setDefGrade(QString());
    tournament.Update();
    QVERIFY(Stored(QStringLiteral("TEnd"), tournament.TournId()).isNull());
    QVERIFY(Stored(QStringLiteral("DefGrade"), tournament.TournId()).isNull());
    cTournament loaded;
    loaded.Load(tournament.TournId());
    QCOMPARE(loaded.TEnd(), QString());
    QCOMPARE(loaded.DefGrade(), QString());
}

void TestTournament::loadOfAnUnknownIdGivesAnEmptyRecord()
{
    cTestSession session;
    CreatedTournament();
    cTournament tournament;
    tournament.setTitle(QStringLiteral("Left over"));
    tournament.Load(QStringLiteral("99"));
    QCOMPARE(tournament.TournId(), QString());
    QCOMPARE(tournament.Title(), QString());
    QCOMPARE(tournament.Locked(), QStringLiteral("False"));
    tournament.Load(QStringLiteral("   "));
    QCOMPARE(tournament.TournId(), QString());
}

void TestTournament::loadLeavesTheCollectionsAndClearsTheSelection()
{
    cTestSession session;
    const auto stored = CreatedTournament();
    AddEntrantAndGame(stored);
    auto tournament = std::make_shared<cTournament>();
    Control().setTournament(tournament);
    tournament->Load(stored->TournId());
    QCOMPARE(tournament->Players().Count(), 0);
    QCOMPARE(tournament->Results().Count(), 0);
    tournament->Players().LoadAllPlayers();
    tournament->setSelPlayer(tournament->Players().item(1));
    QVERIFY(tournament->SelPlayer());
    tournament->Load(stored->TournId());
    QVERIFY(!tournament->SelPlayer());
    QCOMPARE(tournament->Players().Count(), 2);
}

void TestTournament::nextRoundAdvancesWhileCurrentSortsBeforeRounds()
{
    cTestSession session;
    const auto tournament = CreatedTournament();
    QVERIFY(tournament->NextRound());
    QCOMPARE(tournament->CurrRound(), QStringLiteral("2"));
    for (int step = 0; step < 3; ++step)
        QVERIFY(tournament->NextRound());
    QCOMPARE(tournament->CurrRound(), QStringLiteral("5"));
    QVERIFY(!tournament->NextRound());
    QCOMPARE(tournament->CurrRound(), QStringLiteral("5"));
    QCOMPARE(Stored(QStringLiteral("CurrRound"), tournament->TournId()).toInt(), 5);
}

void TestTournament::nextRoundComparesAsTextAndStillRewritesTheRow()
{
    cTestSession session;
    const auto tournament = CreatedTournament();
    tournament->setRounds(QStringLiteral("12"));
    tournament->setCurrRound(QStringLiteral("2"));
    tournament->Update();
    tournament->setTitle(QStringLiteral("Renamed"));
    QVERIFY(!tournament->NextRound());
    QCOMPARE(tournament->CurrRound(), QStringLiteral("2"));
    QCOMPARE(Stored(QStringLiteral("Title"), tournament->TournId()).toString(),
             QStringLiteral("Renamed"));

    tournament->setRounds(QStringLiteral("10"));
    tournament->setCurrRound(QStringLiteral("1"));
    QVERIFY(tournament->NextRound());
    QCOMPARE(tournament->CurrRound(), QStringLiteral("2"));
    QVERIFY(!tournament->NextRound());
    QCOMPARE(tournament->CurrRound(), QStringLiteral("2"));
}

void TestTournament::deleteRemovesGamesThenEntrantsThenTheRow()
{
    cTestSession session;
    const auto tournament = CreatedTournament();
    const auto other = CreatedTournament(QStringLiteral("Other"));
    AddEntrantAndGame(other);
    AddEntrantAndGame(tournament);
    RunSql(QStringLiteral("Create Temp Table DeleteLog (Seq Integer Primary Key, Tbl Text)"));
    for (const QString &table :
         {QStringLiteral("Result"), QStringLiteral("Player"), QStringLiteral("Velmora")})
        RunSql(QStringLiteral("Create Temp Trigger Log") + table +
               QStringLiteral(" After Delete On main.") + table +
               QStringLiteral(" Begin Insert Into DeleteLog (Tbl) Values ('") + table +
               QStringLiteral("'); End"));

    const QString id = tournament->TournId();
    tournament->setTitle(QStringLiteral("Not cleared yet"));
    tournament->Delete();

    QSqlQuery log = RunSql(QStringLiteral("Select Tbl From DeleteLog Order By Seq"));
    QStringList order;
    while (log.next())
        order.append(log.value(0).toString());
    QCOMPARE(order, QStringList({QStringLiteral("Result"), QStringLiteral("Player"),
                                 QStringLiteral("Player"), QStringLiteral("Velmora")}));
    QCOMPARE(CountOf(QStringLiteral("Result"), id), 0);
    QCOMPARE(CountOf(QStringLiteral("Player"), id), 0);
    QCOMPARE(CountOf(QStringLiteral("Velmora"), id), 0);
    QCOMPARE(CountOf(QStringLiteral("Result"), other->TournId()), 1);
    QCOMPARE(CountOf(QStringLiteral("Player"), other->TournId()), 2);
    QCOMPARE(tournament->Title(), QString());
    QCOMPARE(tournament->TournId(), QString());
}

void TestTournament::deleteThatFailsLeavesEverythingInPlace()
{
    cTestSession session;
    const auto tournament = CreatedTournament();
    AddEntrantAndGame(tournament);
    RunSql(QStringLiteral("Create Temp Trigger Refuse Before Delete On main.Velmora "
                          "Begin Select Raise(Abort, 'refused'); End"));
    QVERIFY_THROWS_EXCEPTION(cFatalFault, tournament->Delete());
    QCOMPARE(CountOf(QStringLiteral("Result"), tournament->TournId()), 1);
    QCOMPARE(CountOf(QStringLiteral("Player"), tournament->TournId()), 2);
    QCOMPARE(CountOf(QStringLiteral("Velmora"), tournament->TournId()), 1);
}

void TestTournament::deleteRequiredMentionsEntrantsAndAsks()
{
    cTestSession session;
    cScriptedInteraction seam;
    const auto tournament = CreatedTournament();
    AddEntrantAndGame(tournament);
    seam.QueueAnswer(false);
    QVERIFY(!tournament->DeleteRequired());
    seam.QueueAnswer(true);
    QVERIFY(tournament->DeleteRequired());
    const QStringList asked = seam.CallsStartingWith(QStringLiteral("ask|"));
    QCOMPARE(asked.size(), 2);
    QCOMPARE(asked[0], QStringLiteral("ask|Velmora!|Players have been included in the "
                                      "Tournament.\nDo you  want to delete this Tournament?"));
    QVERIFY(!seam.HadUnexpectedQuestion());
}

void TestTournament::deleteRequiredWithoutEntrantsAsksOnly()
{
    cTestSession session;
    cScriptedInteraction seam;
    const auto tournament = CreatedTournament();
    seam.QueueAnswer(true);
    QVERIFY(tournament->DeleteRequired());
    QCOMPARE(seam.CallsStartingWith(QStringLiteral("ask|")),
             QStringList({QStringLiteral("ask|Velmora!|Do you  want to delete this Tournament?")}));
}

void TestTournament::copyTakesTheDetailsButNoEntrantsOrGames()
{
    cTestSession session;
    const auto original = CreatedTournament(QStringLiteral("Spring"));
    original->setRounds(QStringLiteral("7"));
    original->setCurrRound(QStringLiteral("3"));
    original->setLocked(QStringLiteral("True"));
    original->setDefGrade(QStringLiteral("90"));
    original->Update();
    AddEntrantAndGame(original);
    original->Players().LoadAllPlayers();
    original->Results().LoadAllResults();
    QVERIFY(original->Players().Count() > 0);

    const auto copy = cTournament::CopyOf(original->TournId());
    QCOMPARE(copy->Title(), QStringLiteral("Copy of Spring"));
    QCOMPARE(copy->Tourn(), QStringLiteral("Open"));
    QCOMPARE(copy->Rounds(), QStringLiteral("7"));
    QCOMPARE(copy->Players().Count(), 0);
    QCOMPARE(copy->Results().Count(), 0);
    copy->Create();
    QCOMPARE(copy->TournId(), QStringLiteral("2"));
    QCOMPARE(copy->Rounds(), QStringLiteral("5"));
    QCOMPARE(copy->CurrRound(), QStringLiteral("1"));
    QCOMPARE(copy->Locked(), QStringLiteral("False"));
    QCOMPARE(copy->DefGrade(), QStringLiteral("90"));
    QCOMPARE(CountOf(QStringLiteral("Player"), copy->TournId()), 0);
    QCOMPARE(CountOf(QStringLiteral("Result"), copy->TournId()), 0);
    QCOMPARE(CountOf(QStringLiteral("Player"), original->TournId()), 2);
}

void TestTournament::collectionsSetToNoneComeBackEmpty()
{
    cTestSession session;
    const auto tournament = CreatedTournament();
    AddEntrantAndGame(tournament);
    tournament->Players().LoadAllPlayers();
    QCOMPARE(tournament->Players().Count(), 2);
    tournament->setPlayers(nullptr);
    QCOMPARE(tournament->Players().Count(), 0);
    tournament->Results().Add(QStringLiteral("1"), QString(), nullptr, nullptr, QString());
    tournament->setResults(nullptr);
    QCOMPARE(tournament->Results().Count(), 0);
}

void TestTournament::quotesInTextsAreStoredAsTyped()
{
    cTestSession session;
    const auto tournament = CreatedTournament(QStringLiteral("O'Brien \"Memorial\""));
    tournament->setTText1(QStringLiteral("'; Drop Table Velmora; --"));
    tournament->Update();
    cTournament loaded;
    loaded.Load(tournament->TournId());
    QCOMPARE(loaded.Title(), QStringLiteral("O'Brien \"Memorial\""));
    QCOMPARE(loaded.TText1(), QStringLiteral("'; Drop Table Velmora; --"));
}

void TestTournament::updateOfAVanishedRowIsAFatalFault()
{
    cTestSession session;
    const auto tournament = CreatedTournament();
    RunSql(QStringLiteral("Delete From Velmora"));
    QVERIFY_THROWS_EXCEPTION(cFatalFault, tournament->Update());
}

VELMORA_TEST_MAIN(TestTournament)
#include "test_tournament.moc"
