#include "base/fatal_fault.h"
#include "database/sql.h"
#include "register/master.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/player.h"
#include "session/players.h"
#include "session/tournament.h"
#include "support/test_environment.h"

#include <QGuiApplication>
#include <QTest>

class TestPlayers : public QObject
{
    Q_OBJECT

private slots:
    void nextPlayerIdOfAnEmptyTournamentIsOne();
    void nextPlayerIdGivesARemovedHighestIdAgain();
    void nextPinFollowsTheHighestPin();
    void emptyAndZeroKeysGiveNoneWithoutFailure();
    void unknownKeyIsAFatalFault();
    void positionsCountFromOne();
    void duplicateKeyIsAFatalFault();
    void validAddPlayerRefusesAPersonAlreadyEntered();
    void validAddPlayerWithEmptyIdMatchesAnEntrantWithoutMaster();
    void loadGradesFromMasterLeavesEntrantsWithoutMasterAsTheyAre();
    void loadGradesFromMasterIsOneUnit();
    void equalPinsComeInSurnameThenForenameOrder();
    void loadAllPlayersReadsWhatSingleLoadsRead();
    void loadAllPlayersReadsOnlyTheOpenTournament();
    void addFromMasterWritesAndKeysTheNewEntrant();
    void loadAddsUnderThePlayerId();
    void removeDeletesTheEntrantWithItsGames();
    void removeByPositionTakesThatEntrant();
    void walkingMeetsEntrantsInTheOrderOfAdding();
    void noOpenTournamentIsAFatalFault();
};

namespace {

std::shared_ptr<cTournament> OpenTournament()
{
    auto tournament = std::make_shared<cTournament>();
    tournament->setTitle(QStringLiteral("Congress"));
    tournament->setTType(QStringLiteral("B"));
    tournament->Create();
    Control().setTournament(tournament);
    return tournament;
}

std::shared_ptr<cPlayer> Entrant(const QString &surname, const QString &forename = QString(),
                                 const QString &pin = QString(),
                                 const QString &masterId = QString())
{
    auto player = std::make_shared<cPlayer>();
    player->setTournId(Control().Tournament()->TournId());
    player->setSurname(surname);
    player->setForename(forename);
    player->setPin(pin);
    player->setMasterId(masterId);
    player->Create();
    return player;
}

QString MasterWithGrade(const QString &surname, const QString &grade)
{
    cMaster master;
    master.setSurname(surname);
    master.setLongPlay(grade);
    master.setLongPlayLett(QStringLiteral("A"));
    master.setFIDE(QStringLiteral("1900"));
    master.Create();
    return master.MasterId();
}

QStringList Surnames(const cPlayers &players)
{
    QStringList names;
    for (const auto &player : players)
        names.append(player->Surname());
    return names;
}

} // namespace

void TestPlayers::nextPlayerIdOfAnEmptyTournamentIsOne()
{
    cTestSession session;
    const auto tournament = OpenTournament();
    QCOMPARE(tournament->Players().NextPlayerId(), QStringLiteral("1"));
    Entrant(QStringLiteral("Adams"));
    QCOMPARE(tournament->Players().NextPlayerId(), QStringLiteral("2"));
}

void TestPlayers::nextPlayerIdGivesARemovedHighestIdAgain()
{
    cTestSession session;
    const auto tournament = OpenTournament();
    Entrant(QStringLiteral("Adams"));
    Entrant(QStringLiteral("Brown"));
    Entrant(QStringLiteral("Clark"));
    cPlayers &players = tournament->Players();
    players.LoadAllPlayers();
    QCOMPARE(players.NextPlayerId(), QStringLiteral("4"));
    players.Remove(QStringLiteral("3"));
    QCOMPARE(players.NextPlayerId(), QStringLiteral("3"));
    players.Remove(QStringLiteral("1"));
    QCOMPARE(players.NextPlayerId(), QStringLiteral("3"));
}

void TestPlayers::nextPinFollowsTheHighestPin()
{
    cTestSession session;
    const auto tournament = OpenTournament();
    QCOMPARE(tournament->Players().NextPin(), QStringLiteral("1"));
    Entrant(QStringLiteral("Adams"), QString(), QStringLiteral("7"));
    Entrant(QStringLiteral("Brown"));
    QCOMPARE(tournament->Players().NextPin(), QStringLiteral("8"));
}

void TestPlayers::emptyAndZeroKeysGiveNoneWithoutFailure()
{
    cTestSession session;
    const auto tournament = OpenTournament();
    Entrant(QStringLiteral("Adams"));
    tournament->Players().LoadAllPlayers();
    QVERIFY(!tournament->Players().item(QString()));
    QVERIFY(!tournament->Players().item(QStringLiteral("0")));
    QVERIFY(tournament->Players().item(QStringLiteral("1")));
}

void TestPlayers::unknownKeyIsAFatalFault()
{
    cTestSession session;
    const auto tournament = OpenTournament();
    Entrant(QStringLiteral("Adams"));
    tournament->Players().LoadAllPlayers();
    try {
        tournament->Players().item(QStringLiteral("2"));
        QFAIL("An unknown key gave an entrant");
    } catch (const cFatalFault &fault) {
        QCOMPARE(fault.Number(), FaultNumber::UnknownKey);
        QVERIFY(fault.Description().contains(QStringLiteral("\"2\"")));
    }
    QVERIFY_THROWS_EXCEPTION(cFatalFault, tournament->Players().Remove(QStringLiteral("2")));
    QCOMPARE(tournament->Players().Count(), 1);
}

void TestPlayers::positionsCountFromOne()
{
    cTestSession session;
    const auto tournament = OpenTournament();
    Entrant(QStringLiteral("Adams"), QString(), QStringLiteral("2"));
    Entrant(QStringLiteral("Brown"), QString(), QStringLiteral("1"));
    cPlayers &players = tournament->Players();
    players.LoadAllPlayers();
    QCOMPARE(players.item(1)->Surname(), QStringLiteral("Brown"));
    QCOMPARE(players.item(2)->Surname(), QStringLiteral("Adams"));
    QVERIFY_THROWS_EXCEPTION(cFatalFault, players.item(0));
    QVERIFY_THROWS_EXCEPTION(cFatalFault, players.item(3));
}

void TestPlayers::duplicateKeyIsAFatalFault()
{
    cTestSession session;
    const auto tournament = OpenTournament();
    Entrant(QStringLiteral("Adams"));
    cPlayers &players = tournament->Players();
    players.Load(tournament->TournId(), QStringLiteral("1"));
    QVERIFY_THROWS_EXCEPTION(cFatalFault, players.Load(tournament->TournId(), QStringLiteral("1")));
    QCOMPARE(players.Count(), 1);
}

void TestPlayers::validAddPlayerRefusesAPersonAlreadyEntered()
{
    cTestSession session;
    const auto tournament = OpenTournament();
    const QString id = MasterWithGrade(QStringLiteral("Adams"), QStringLiteral("150"));
    cMaster master;
    master.Load(id);
    cPlayers &players = tournament->Players();
    QVERIFY(players.ValidAddPlayer(id));
    players.AddFromMaster(tournament->TournId(), master);
    QVERIFY(!players.ValidAddPlayer(id));
    QVERIFY(players.ValidAddPlayer(QStringLiteral("99")));
    // Compared exactly as text.
    QVERIFY(players.ValidAddPlayer(QStringLiteral(" ") + id));
}

void TestPlayers::validAddPlayerWithEmptyIdMatchesAnEntrantWithoutMaster()
{
    cTestSession session;
    const auto tournament = OpenTournament();
    Entrant(QStringLiteral("Adams"), QString(), QString(), QStringLiteral("4"));
    cPlayers &players = tournament->Players();
    players.LoadAllPlayers();
    QVERIFY(players.ValidAddPlayer(QString()));
    Entrant(QStringLiteral("Brown"));
    players.Load(tournament->TournId(), QStringLiteral("2"));
    QVERIFY(!players.ValidAddPlayer(QString()));
}

void TestPlayers::loadGradesFromMasterLeavesEntrantsWithoutMasterAsTheyAre()
{
    cTestSession session;
    const auto tournament = OpenTournament();
    const QString id = MasterWithGrade(QStringLiteral("Adams"), QStringLiteral("150"));
    cMaster master;
    master.Load(id);
    cPlayers &players = tournament->Players();
    players.AddFromMaster(tournament->TournId(), master);
    const auto unlinked = Entrant(QStringLiteral("Brown"));
    unlinked->setLongPlay(QStringLiteral("99"));
    unlinked->setLongPlayLett(QStringLiteral("E"));
    unlinked->Update();
    players.Load(tournament->TournId(), unlinked->PlayerId());

    master.setLongPlay(QStringLiteral("165"));
    master.setLongPlayLett(QStringLiteral("B"));
    master.setSurname(QStringLiteral("Renamed"));
    master.Update();
    players.LoadGradesFromMaster();

    QCOMPARE(players.item(QStringLiteral("1"))->LongPlay(), QStringLiteral("165"));
    QCOMPARE(players.item(QStringLiteral("1"))->LongPlayLett(), QStringLiteral("B"));
    QCOMPARE(players.item(QStringLiteral("1"))->Surname(), QStringLiteral("Adams"));
    QCOMPARE(players.item(QStringLiteral("2"))->LongPlay(), QStringLiteral("99"));
    cPlayer stored;
    stored.Load(tournament->TournId(), QStringLiteral("1"), QString());
    QCOMPARE(stored.LongPlay(), QStringLiteral("165"));
    stored.Load(tournament->TournId(), QStringLiteral("2"), QString());
    QCOMPARE(stored.LongPlay(), QStringLiteral("99"));
    QCOMPARE(stored.LongPlayLett(), QStringLiteral("E"));
}

void TestPlayers::loadGradesFromMasterIsOneUnit()
{
    cTestSession session;
    const auto tournament = OpenTournament();
    cPlayers &players = tournament->Players();
    for (const QString &name : {QStringLiteral("Adams"), QStringLiteral("Brown")}) {
        cMaster master;
        master.Load(MasterWithGrade(name, QStringLiteral("120")));
        players.AddFromMaster(tournament->TournId(), master);
    }
    RunSql(QStringLiteral("Update Master Set Grade = 130"));
    // The second entrant's write is refused, so the first must not stay written.
    RunSql(QStringLiteral("Create Temp Trigger Refuse Before Update On main.Player "
                          "When new.PId = 2 Begin Select Raise(Abort, 'refused'); End"));
    QVERIFY_THROWS_EXCEPTION(cFatalFault, players.LoadGradesFromMaster());
    QCOMPARE(SqlScalar(QStringLiteral("Select Grade From Player Where PId = 1")).toInt(), 120);
}

void TestPlayers::equalPinsComeInSurnameThenForenameOrder()
{
    cTestSession session;
    const auto tournament = OpenTournament();
    Entrant(QStringLiteral("Young"), QStringLiteral("Zoe"), QStringLiteral("2"));
    Entrant(QStringLiteral("Baker"), QStringLiteral("Tom"), QStringLiteral("1"));
    Entrant(QStringLiteral("Baker"), QStringLiteral("Ann"), QStringLiteral("1"));
    Entrant(QStringLiteral("Adams"), QStringLiteral("Max"), QStringLiteral("1"));
    Entrant(QStringLiteral("Zeta"), QStringLiteral("Ian"));
    cPlayers &players = tournament->Players();
    players.LoadAllPlayers();
    QStringList order;
    for (const auto &player : players)
        order.append(player->DisplayName(false));
    QCOMPARE(order, QStringList({QStringLiteral("Zeta, Ian"), QStringLiteral("Adams, Max"),
                                 QStringLiteral("Baker, Ann"), QStringLiteral("Baker, Tom"),
                                 QStringLiteral("Young, Zoe")}));
}

void TestPlayers::loadAllPlayersReadsWhatSingleLoadsRead()
{
    cTestSession session;
    Control().setAgeDate(QStringLiteral("01/09/2025"));
    const auto tournament = OpenTournament();
    auto full = Entrant(QStringLiteral("O'Hara"), QStringLiteral("Kim"), QStringLiteral("3"),
                        QStringLiteral("8"));
    full->setLongPlay(QStringLiteral("150"));
    full->setLongPlayLett(QStringLiteral("A"));
    full->setRapidPlay(QStringLiteral("140"));
    full->setRapidPlayLett(QStringLiteral("B"));
    full->setFIDE(QStringLiteral("1990"));
    full->setDOB(QStringLiteral("02/03/2010"));
    full->setClub(QStringLiteral("Town"));
    full->setClubCode(QStringLiteral("TWN"));
    full->setClubName(QStringLiteral("Town CC"));
    full->setSchool(QStringLiteral("High"));
    full->setGMTitle(QStringLiteral("CM"));
    full->setScore(QStringLiteral("2.5"));
    full->setTieBreak(QStringLiteral("7"));
    full->setGames(QStringLiteral("4"));
    full->setGPoints(QStringLiteral("560"));
    full->setPlace(QStringLiteral("3"));
    full->setWithdrawn(true);
    full->Update();
    Entrant(QStringLiteral("Empty"));

    cPlayers &players = tournament->Players();
    players.LoadAllPlayers();
    QCOMPARE(players.Count(), 2);
    for (const auto &loaded : players) {
        cPlayer single;
        single.Load(tournament->TournId(), loaded->PlayerId(), QString());
        QCOMPARE(loaded->TournId(), single.TournId());
        QCOMPARE(loaded->PlayerId(), single.PlayerId());
        QCOMPARE(loaded->MasterId(), single.MasterId());
        QCOMPARE(loaded->Pin(), single.Pin());
        QCOMPARE(loaded->Forename(), single.Forename());
        QCOMPARE(loaded->Surname(), single.Surname());
        QCOMPARE(loaded->BCFCode(), single.BCFCode());
        QCOMPARE(loaded->LongPlay(), single.LongPlay());
        QCOMPARE(loaded->LongPlayLett(), single.LongPlayLett());
        QCOMPARE(loaded->RapidPlay(), single.RapidPlay());
        QCOMPARE(loaded->RapidPlayLett(), single.RapidPlayLett());
        QCOMPARE(loaded->FIDE(), single.FIDE());
        QCOMPARE(loaded->DOB(), single.DOB());
        QCOMPARE(loaded->Age(), single.Age());
        QCOMPARE(loaded->Club(), single.Club());
        QCOMPARE(loaded->ClubCode(), single.ClubCode());
        QCOMPARE(loaded->ClubName(), single.ClubName());
        QCOMPARE(loaded->School(), single.School());
        QCOMPARE(loaded->GMTitle(), single.GMTitle());
        QCOMPARE(loaded->Score(), single.Score());
        QCOMPARE(loaded->TieBreak(), single.TieBreak());
        QCOMPARE(loaded->Games(), single.Games());
        QCOMPARE(loaded->GPoints(), single.GPoints());
        QCOMPARE(loaded->Place(), single.Place());
        QCOMPARE(loaded->Withdrawn(), single.Withdrawn());
    }
    const auto kim = players.item(QStringLiteral("1"));
    QCOMPARE(kim->Surname(), QStringLiteral("O'Hara"));
    QCOMPARE(kim->DOB(), QStringLiteral("02/03/2010"));
    QCOMPARE(kim->Score(), QStringLiteral("2.5"));
    QVERIFY(kim->Withdrawn());
}

void TestPlayers::loadAllPlayersReadsOnlyTheOpenTournament()
{
    cTestSession session;
    OpenTournament();
    Entrant(QStringLiteral("Elsewhere"));
    const auto tournament = OpenTournament();
    Entrant(QStringLiteral("Here"));
    tournament->Players().LoadAllPlayers();
    QCOMPARE(Surnames(tournament->Players()), QStringList({QStringLiteral("Here")}));
}

void TestPlayers::addFromMasterWritesAndKeysTheNewEntrant()
{
    cTestSession session;
    const auto tournament = OpenTournament();
    cMaster master;
    master.Load(MasterWithGrade(QStringLiteral("Adams"), QStringLiteral("150")));
    Entrant(QStringLiteral("First"));
    const auto added = tournament->Players().AddFromMaster(tournament->TournId(), master);
    QCOMPARE(added->PlayerId(), QStringLiteral("2"));
    QCOMPARE(tournament->Players().item(QStringLiteral("2")), added);
    QCOMPARE(SqlScalar(QStringLiteral("Select Surname From Player Where PId = 2")).toString(),
             QStringLiteral("Adams"));
}

void TestPlayers::loadAddsUnderThePlayerId()
{
    cTestSession session;
    const auto tournament = OpenTournament();
    Entrant(QStringLiteral("Adams"));
    Entrant(QStringLiteral("Brown"));
    const auto loaded = tournament->Players().Load(tournament->TournId(), QStringLiteral("2"));
    QCOMPARE(loaded->Surname(), QStringLiteral("Brown"));
    QCOMPARE(tournament->Players().item(QStringLiteral("2")), loaded);
    QCOMPARE(tournament->Players().Count(), 1);
}

void TestPlayers::removeDeletesTheEntrantWithItsGames()
{
    cTestSession session;
    const auto tournament = OpenTournament();
    Entrant(QStringLiteral("Adams"));
    Entrant(QStringLiteral("Brown"));
    Entrant(QStringLiteral("Clark"));
    const qint64 id = tournament->TournId().toLongLong();
    RunSql(QStringLiteral("Insert Into Result (TId, \"Round\", Board, White, Black, \"Result\") "
                          "Values (?, 1, 1, 1, 2, 'W'), (?, 1, 2, 3, 0, ''), (?, 2, 1, 2, 3, 'D')"),
           {id, id, id});
    cPlayers &players = tournament->Players();
    players.LoadAllPlayers();
    const auto brown = players.item(QStringLiteral("2"));
    players.Remove(QStringLiteral("2"));
    QCOMPARE(players.Count(), 2);
    QCOMPARE(Surnames(players), QStringList({QStringLiteral("Adams"), QStringLiteral("Clark")}));
    QCOMPARE(brown->Surname(), QString());
    QCOMPARE(SqlScalar(QStringLiteral("Select count(*) From Player")).toInt(), 2);
    QCOMPARE(SqlScalar(QStringLiteral("Select count(*) From Result")).toInt(), 1);
    QVERIFY_THROWS_EXCEPTION(cFatalFault, players.item(QStringLiteral("2")));
}

void TestPlayers::removeByPositionTakesThatEntrant()
{
    cTestSession session;
    const auto tournament = OpenTournament();
    Entrant(QStringLiteral("Adams"));
    Entrant(QStringLiteral("Brown"));
    cPlayers &players = tournament->Players();
    players.LoadAllPlayers();
    players.Remove(1);
    QCOMPARE(Surnames(players), QStringList({QStringLiteral("Brown")}));
    QCOMPARE(SqlScalar(QStringLiteral("Select Surname From Player")).toString(),
             QStringLiteral("Brown"));
    QVERIFY_THROWS_EXCEPTION(cFatalFault, players.Remove(2));
}

void TestPlayers::walkingMeetsEntrantsInTheOrderOfAdding()
{
    cTestSession session;
    const auto tournament = OpenTournament();
    Entrant(QStringLiteral("Adams"));
    Entrant(QStringLiteral("Brown"));
    Entrant(QStringLiteral("Clark"));
    cPlayers &players = tournament->Players();
    players.Load(tournament->TournId(), QStringLiteral("3"));
    players.Load(tournament->TournId(), QStringLiteral("1"));
    players.Load(tournament->TournId(), QStringLiteral("2"));
    QCOMPARE(Surnames(players), QStringList({QStringLiteral("Clark"), QStringLiteral("Adams"),
                                             QStringLiteral("Brown")}));
    QCOMPARE(players.Count(), 3);
}

void TestPlayers::noOpenTournamentIsAFatalFault()
{
    cTestSession session;
    cPlayers players;
    QVERIFY_THROWS_EXCEPTION(cFatalFault, players.NextPlayerId());
    QVERIFY_THROWS_EXCEPTION(cFatalFault, players.LoadAllPlayers());
}

VELMORA_TEST_MAIN(TestPlayers)
#include "test_players.moc"
