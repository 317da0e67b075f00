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

class TestPlayer : public QObject
{
    Q_OBJECT

private slots:
    void gradeFollowsTheTournamentType_data();
    void gradeFollowsTheTournamentType();
    void gradeLetterFollowsTheTournamentType_data();
    void gradeLetterFollowsTheTournamentType();
    void fideTournamentConvertsALongPlayGrade();
    void zeroLongPlayGradeCountsAsNone();
    void ungradedEntrantTakesTheDefaultGrade();
    void mixedTournamentHasNoGrade();
    void nullDefaultGradeCountsAsZero();
    void storedChangeOfTypeOrDefaultShowsAtTheNextRead();
    void displayScoreShowsQuarters_data();
    void displayScoreShowsQuarters();
    void displayTieBreakShowsQuarters_data();
    void displayTieBreakShowsQuarters();
    void ageAboveTheHighestShownAgeShowsPlus();
    void ageGroupIsTheUnderGroup();
    void displayNameWithoutForenameHasNoComma();
    void fullNameJoinsBothNames();
    void performanceGradeRoundsPointsPerGame();
    void clearKeepsAgeAndPairingValues();
    void createWritesIntoTheOpenTournamentUnderItsNextId();
    void everyFieldReadsBackAsWritten();
    void emptyGradeWritesNullGradeAndEmptyLetter();
    void emptyClubCodeLosesTheClubName();
    void loadByMasterIdWinsOverPlayerId();
    void ageComesFromTheRowOnlyBesideADateOfBirth();
    void namesWithQuotesWorkEverywhere();
    void deleteRemovesTheRowAndEveryGameOfTheEntrant();
    void createFromMasterCopiesTheRegisterRecord();
    void updateGradesFromMasterTakesOnlyTheGrades();
    void validDeleteIsAlwaysTrue();
    void createWithNoOpenTournamentIsAFatalFault();
    void nextPlayerIdCountsInTheTournamentGiven();
};

namespace {

std::shared_ptr<cTournament> OpenTournament(const QString &type, const QString &defGrade)
{
    auto tournament = std::make_shared<cTournament>();
    tournament->setTitle(QStringLiteral("Congress"));
    tournament->setTType(type);
    tournament->setDefGrade(defGrade);
    tournament->Create();
    Control().setTournament(tournament);
    return tournament;
}

std::shared_ptr<cPlayer> Entrant(const QString &longPlay, const QString &longLett,
                                 const QString &rapidPlay, const QString &rapidLett,
                                 const QString &fide)
{
    auto player = std::make_shared<cPlayer>();
    player->setTournId(Control().Tournament()->TournId());
    player->setSurname(QStringLiteral("Smith"));
    player->setLongPlay(longPlay);
    player->setLongPlayLett(longLett);
    player->setRapidPlay(rapidPlay);
    player->setRapidPlayLett(rapidLett);
    player->setFIDE(fide);
    player->Create();
    return player;
}

QVariant StoredField(const QString &field, const cPlayer &player)
{
    return SqlScalar(QStringLiteral("Select \"") + field +
                         QStringLiteral("\" From Player Where TId = ? and PId = ?"),
                     {player.TournId().toLongLong(), player.PlayerId().toLongLong()});
}

void AddGradeColumns()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("longPlay");
    QTest::addColumn<QString>("rapidPlay");
    QTest::addColumn<QString>("fide");
}

} // namespace

void TestPlayer::gradeFollowsTheTournamentType_data()
{
    AddGradeColumns();
    QTest::addColumn<QString>("grade");
    const QString none;
    const QString lp = QStringLiteral("150");
    const QString rp = QStringLiteral("140");
    const QString elo = QStringLiteral("2100");
    // Standard play: the long-play grade first.
    QTest::newRow("B both") << "B" << lp << rp << elo << lp;
    QTest::newRow("B rapid only") << "B" << none << rp << elo << rp;
    QTest::newRow("B neither") << "B" << none << none << elo << "75";
    QTest::newRow("empty type both") << "" << lp << rp << none << lp;
    QTest::newRow("empty type neither") << "" << none << none << none << "75";
    // Rapid play and double rapid: the rapid-play grade first.
    QTest::newRow("R both") << "R" << lp << rp << elo << rp;
    QTest::newRow("R long only") << "R" << lp << none << none << lp;
    QTest::newRow("R neither") << "R" << none << none << none << "75";
    QTest::newRow("D both") << "D" << lp << rp << none << rp;
    QTest::newRow("D long only") << "D" << lp << "0" << none << lp;
    QTest::newRow("D neither") << "D" << none << none << none << "75";
    // Rated: the rating, else a converted grade, else the default unconverted.
    QTest::newRow("F rating") << "F" << lp << rp << elo << elo;
    QTest::newRow("F long") << "F" << lp << rp << none << "1800";
    QTest::newRow("F rapid") << "F" << none << rp << "0"
                             << "1720";
    QTest::newRow("F neither") << "F" << none << none << none << "75";
    // Mixed and unknown types have no grade here.
    QTest::newRow("M") << "M" << lp << rp << elo << none;
    QTest::newRow("unknown") << "Q" << lp << rp << elo << none;
}

void TestPlayer::gradeFollowsTheTournamentType()
{
    QFETCH(QString, type);
    QFETCH(QString, longPlay);
    QFETCH(QString, rapidPlay);
    QFETCH(QString, fide);
    QFETCH(QString, grade);
    cTestSession session;
    OpenTournament(type, QStringLiteral("75"));
    const auto player =
        Entrant(longPlay, QStringLiteral("A"), rapidPlay, QStringLiteral("B"), fide);
    QCOMPARE(player->Grade(), grade);
}

void TestPlayer::gradeLetterFollowsTheTournamentType_data()
{
    AddGradeColumns();
    QTest::addColumn<QString>("letter");
    const QString none;
    const QString lp = QStringLiteral("150");
    const QString rp = QStringLiteral("140");
    QTest::newRow("B both") << "B" << lp << rp << none << "L";
    QTest::newRow("B rapid only") << "B" << none << rp << none << "R";
    QTest::newRow("B neither") << "B" << none << none << none << " ";
    QTest::newRow("empty type long") << "" << lp << none << none << "L";
    QTest::newRow("R both") << "R" << lp << rp << none << "R";
    QTest::newRow("R long only") << "R" << lp << none << none << "L";
    QTest::newRow("R neither") << "R" << none << none << none << " ";
    QTest::newRow("D both") << "D" << lp << rp << none << "R";
    QTest::newRow("D long only") << "D" << lp << "0" << none << "L";
    QTest::newRow("F") << "F" << lp << rp << none << none;
    QTest::newRow("M") << "M" << lp << rp << none << none;
    QTest::newRow("unknown") << "Q" << lp << rp << none << none;
}

void TestPlayer::gradeLetterFollowsTheTournamentType()
{
    QFETCH(QString, type);
    QFETCH(QString, longPlay);
    QFETCH(QString, rapidPlay);
    QFETCH(QString, fide);
    QFETCH(QString, letter);
    cTestSession session;
    OpenTournament(type, QStringLiteral("75"));
    const auto player =
        Entrant(longPlay, QStringLiteral("L"), rapidPlay, QStringLiteral("R"), fide);
    QCOMPARE(player->GradeLett(), letter);
}

void TestPlayer::fideTournamentConvertsALongPlayGrade()
{
    cTestSession session;
    OpenTournament(QStringLiteral("F"), QString());
    const auto player =
        Entrant(QStringLiteral("150"), QStringLiteral("A"), QString(), QString(), QString());
    QCOMPARE(player->Grade(), QStringLiteral("1800"));
    QCOMPARE(player->GradeLett(), QString());
}

void TestPlayer::zeroLongPlayGradeCountsAsNone()
{
    cTestSession session;
    OpenTournament(QStringLiteral("B"), QString());
    const auto player = Entrant(QStringLiteral("0"), QStringLiteral("C"), QStringLiteral("120"),
                                QStringLiteral("A"), QString());
    QCOMPARE(player->Grade(), QStringLiteral("120"));
    QCOMPARE(player->GradeLett(), QStringLiteral("A"));
}

void TestPlayer::ungradedEntrantTakesTheDefaultGrade()
{
    cTestSession session;
    OpenTournament(QStringLiteral("B"), QStringLiteral("100"));
    const auto player = Entrant(QString(), QString(), QString(), QString(), QString());
    QCOMPARE(player->Grade(), QStringLiteral("100"));
    QCOMPARE(player->GradeLett(), QStringLiteral(" "));
    QCOMPARE(player->DisplayGrade(), QStringLiteral("100 "));
}

void TestPlayer::mixedTournamentHasNoGrade()
{
    cTestSession session;
    OpenTournament(QStringLiteral("M"), QStringLiteral("100"));
    const auto player = Entrant(QStringLiteral("150"), QStringLiteral("A"), QStringLiteral("140"),
                                QStringLiteral("B"), QStringLiteral("2000"));
    QCOMPARE(player->Grade(), QString());
    QCOMPARE(player->DisplayGrade(), QStringLiteral("    "));
}

void TestPlayer::nullDefaultGradeCountsAsZero()
{
    cTestSession session;
    OpenTournament(QStringLiteral("R"), QString());
    const auto player = Entrant(QString(), QString(), QString(), QString(), QString());
    QCOMPARE(player->Grade(), QStringLiteral("0"));
    QCOMPARE(player->DisplayGrade(), QStringLiteral("  0 "));
}

void TestPlayer::storedChangeOfTypeOrDefaultShowsAtTheNextRead()
{
    cTestSession session;
    const auto tournament = OpenTournament(QStringLiteral("B"), QStringLiteral("100"));
    const auto graded = Entrant(QStringLiteral("150"), QStringLiteral("A"), QStringLiteral("140"),
                                QStringLiteral("B"), QString());
    const auto ungraded = Entrant(QString(), QString(), QString(), QString(), QString());
    QCOMPARE(graded->Grade(), QStringLiteral("150"));
    QCOMPARE(ungraded->Grade(), QStringLiteral("100"));

    // A change not yet stored has no effect.
    tournament->setTType(QStringLiteral("R"));
    tournament->setDefGrade(QStringLiteral("90"));
    QCOMPARE(graded->Grade(), QStringLiteral("150"));
    QCOMPARE(ungraded->Grade(), QStringLiteral("100"));

    tournament->Update();
    QCOMPARE(graded->Grade(), QStringLiteral("140"));
    QCOMPARE(graded->GradeLett(), QStringLiteral("B"));
    QCOMPARE(ungraded->Grade(), QStringLiteral("90"));

    // A change made to the file by any other means shows too.
    RunSql(QStringLiteral("Update Velmora Set TType = 'M', DefGrade = 50"));
    QCOMPARE(graded->Grade(), QString());
    RunSql(QStringLiteral("Update Velmora Set TType = 'B'"));
    QCOMPARE(ungraded->Grade(), QStringLiteral("50"));
}

void TestPlayer::displayScoreShowsQuarters_data()
{
    QTest::addColumn<QString>("score");
    QTest::addColumn<QString>("shown");
    QTest::newRow("half") << "0.5" << QStringLiteral("  \u00BD");
    QTest::newRow("quarter") << "0.25" << QStringLiteral("  \u00BC");
    QTest::newRow("three quarters") << "0.75" << QStringLiteral("  \u00BE");
    QTest::newRow("zero") << "0" << QStringLiteral(" 0 ");
    QTest::newRow("empty") << "" << QStringLiteral(" 0 ");
    QTest::newRow("three and a half") << "3.5" << QStringLiteral(" 3\u00BD");
    QTest::newRow("five") << "5" << QStringLiteral(" 5 ");
    QTest::newRow("ten and three quarters") << "10.75" << QStringLiteral("10\u00BE");
    QTest::newRow("longer stands") << "100.5" << QStringLiteral("100\u00BD");
}

void TestPlayer::displayScoreShowsQuarters()
{
    QFETCH(QString, score);
    QFETCH(QString, shown);
    cPlayer player;
    player.setScore(score);
    QCOMPARE(player.DisplayScore(), shown);
}

void TestPlayer::displayTieBreakShowsQuarters_data()
{
    QTest::addColumn<QString>("tieBreak");
    QTest::addColumn<QString>("shown");
    QTest::newRow("quarter has three characters") << "0.25" << QStringLiteral("  \u00BC");
    QTest::newRow("half") << "0.5" << QStringLiteral("  \u00BD");
    QTest::newRow("one and a quarter has four") << "1.25" << QStringLiteral("  1\u00BC");
    QTest::newRow("zero") << "0" << QStringLiteral("  0 ");
    QTest::newRow("twelve and a half") << "12.5" << QStringLiteral(" 12\u00BD");
}

void TestPlayer::displayTieBreakShowsQuarters()
{
    QFETCH(QString, tieBreak);
    QFETCH(QString, shown);
    cPlayer player;
    player.setTieBreak(tieBreak);
    QCOMPARE(player.DisplayTieBreak(), shown);
}

void TestPlayer::ageAboveTheHighestShownAgeShowsPlus()
{
    cTestSession session;
    Control().setMaxDisplayAge(QStringLiteral("20"));
    cPlayer player;
    player.setAge(QStringLiteral("25"));
    QCOMPARE(player.Age(), QStringLiteral("20+"));
    QCOMPARE(player.AgeGroup(), QString());
    player.setAge(QStringLiteral("20"));
    QCOMPARE(player.Age(), QStringLiteral("20"));
    QCOMPARE(player.AgeGroup(), QStringLiteral("(U21)"));
    player.setAge(QString());
    QCOMPARE(player.Age(), QString());
    QCOMPARE(player.AgeGroup(), QString());
}

void TestPlayer::ageGroupIsTheUnderGroup()
{
    cTestSession session;
    Control().setMaxDisplayAge(QStringLiteral("20"));
    cPlayer player;
    player.setAge(QStringLiteral("11"));
    QCOMPARE(player.AgeGroup(), QStringLiteral("(U12)"));
    QCOMPARE(player.Age(), QStringLiteral("11"));
}

void TestPlayer::displayNameWithoutForenameHasNoComma()
{
    cPlayer player;
    player.setSurname(QStringLiteral("O'Brien"));
    QCOMPARE(player.DisplayName(true), QStringLiteral("O'BRIEN"));
    QCOMPARE(player.DisplayName(false), QStringLiteral("O'Brien"));
    player.setForename(QStringLiteral("Sean"));
    QCOMPARE(player.DisplayName(true), QStringLiteral("O'BRIEN, Sean"));
    QCOMPARE(player.DisplayName(false), QStringLiteral("O'Brien, Sean"));
    player.setSurname(QString());
    QCOMPARE(player.DisplayName(true), QStringLiteral("Sean"));
}

void TestPlayer::fullNameJoinsBothNames()
{
    cPlayer player;
    player.setForename(QStringLiteral("Ann"));
    QCOMPARE(player.FullName(), QStringLiteral("Ann"));
    player.setSurname(QStringLiteral("Lee"));
    QCOMPARE(player.FullName(), QStringLiteral("Ann Lee"));
    player.setForename(QString());
    QCOMPARE(player.FullName(), QStringLiteral("Lee"));
}

void TestPlayer::performanceGradeRoundsPointsPerGame()
{
    cPlayer player;
    QCOMPARE(player.PerformanceGrade(), QString());
    player.setGames(QStringLiteral("3"));
    player.setGPoints(QStringLiteral("400"));
    QCOMPARE(player.PerformanceGrade(), QStringLiteral("133"));
    player.setGPoints(QStringLiteral("401"));
    QCOMPARE(player.PerformanceGrade(), QStringLiteral("134"));
    player.setGames(QStringLiteral("0"));
    QCOMPARE(player.PerformanceGrade(), QString());
}

void TestPlayer::clearKeepsAgeAndPairingValues()
{
    cTestSession session;
    Control().setMaxDisplayAge(QStringLiteral("20"));
    cPlayer player;
    player.setSurname(QStringLiteral("Smith"));
    player.setWithdrawn(true);
    player.setAge(QStringLiteral("12"));
    player.setColourPreference(2);
    player.setColourSeeker(1.5f);
    player.Clear();
    QCOMPARE(player.Surname(), QString());
    QVERIFY(!player.Withdrawn());
    QCOMPARE(player.Age(), QStringLiteral("12"));
    QCOMPARE(player.ColourPreference(), qint16(2));
    QCOMPARE(player.ColourSeeker(), 1.5f);
}

void TestPlayer::createWritesIntoTheOpenTournamentUnderItsNextId()
{
    cTestSession session;
    const auto other = OpenTournament(QStringLiteral("B"), QString());
    const auto tournament = OpenTournament(QStringLiteral("B"), QString());
    cPlayer first;
    first.setTournId(other->TournId());
    first.setSurname(QStringLiteral("Adams"));
    first.Create();
    QCOMPARE(first.PlayerId(), QStringLiteral("1"));
    cPlayer second;
    second.Create();
    QCOMPARE(second.PlayerId(), QStringLiteral("2"));
    QCOMPARE(SqlScalar(QStringLiteral("Select count(*) From Player Where TId = ?"),
                       {tournament->TournId().toLongLong()})
                 .toInt(),
             2);
    QCOMPARE(SqlScalar(QStringLiteral("Select count(*) From Player Where TId = ?"),
                       {other->TournId().toLongLong()})
                 .toInt(),
             0);
}

void TestPlayer::everyFieldReadsBackAsWritten()
{
    cTestSession session;
    const auto tournament = OpenTournament(QStringLiteral("B"), QString());
    cPlayer player;
    player.setTournId(tournament->TournId());
    player.setMasterId(QStringLiteral("17"));
    player.setPin(QStringLiteral("4"));
    player.setForename(QStringLiteral("Ann"));
    player.setSurname(QStringLiteral("Lee"));
    player.setBCFCode(QStringLiteral("123456A"));
    player.setLongPlay(QStringLiteral("150"));
    player.setLongPlayLett(QStringLiteral("A"));
    player.setRapidPlay(QStringLiteral("140"));
    player.setRapidPlayLett(QStringLiteral("B"));
    player.setFIDE(QStringLiteral("2010"));
    player.setDOB(QStringLiteral("29/02/2012"));
    player.setAge(QStringLiteral("13"));
    player.setClub(QStringLiteral("Town"));
    player.setClubCode(QStringLiteral("TWN"));
    player.setClubName(QStringLiteral("Town Chess Club"));
    player.setSchool(QStringLiteral("High"));
    player.setGMTitle(QStringLiteral("IM"));
    player.setScore(QStringLiteral("3.5"));
    player.setTieBreak(QStringLiteral("12"));
    player.setGames(QStringLiteral("5"));
    player.setGPoints(QStringLiteral("700"));
    player.setPlace(QStringLiteral("2"));
    player.setWithdrawn(true);
    player.Create();
    QCOMPARE(StoredField(QStringLiteral("DOB"), player).toString(), QStringLiteral("2012-02-29"));

    cPlayer loaded;
    loaded.Load(tournament->TournId(), player.PlayerId(), QString());
    QCOMPARE(loaded.TournId(), tournament->TournId());
    QCOMPARE(loaded.PlayerId(), player.PlayerId());
    QCOMPARE(loaded.MasterId(), QStringLiteral("17"));
    QCOMPARE(loaded.Pin(), QStringLiteral("4"));
    QCOMPARE(loaded.Forename(), QStringLiteral("Ann"));
    QCOMPARE(loaded.Surname(), QStringLiteral("Lee"));
    QCOMPARE(loaded.BCFCode(), QStringLiteral("123456A"));
    QCOMPARE(loaded.LongPlay(), QStringLiteral("150"));
    QCOMPARE(loaded.LongPlayLett(), QStringLiteral("A"));
    QCOMPARE(loaded.RapidPlay(), QStringLiteral("140"));
    QCOMPARE(loaded.RapidPlayLett(), QStringLiteral("B"));
    QCOMPARE(loaded.FIDE(), QStringLiteral("2010"));
    QCOMPARE(loaded.DOB(), QStringLiteral("29/02/2012"));
    QCOMPARE(loaded.Age(), QStringLiteral("13"));
    QCOMPARE(loaded.Club(), QStringLiteral("Town"));
    QCOMPARE(loaded.ClubCode(), QStringLiteral("TWN"));
    QCOMPARE(loaded.ClubName(), QStringLiteral("Town Chess Club"));
    QCOMPARE(loaded.School(), QStringLiteral("High"));
    QCOMPARE(loaded.GMTitle(), QStringLiteral("IM"));
    QCOMPARE(loaded.Score(), QStringLiteral("3.5"));
    QCOMPARE(loaded.TieBreak(), QStringLiteral("12"));
    QCOMPARE(loaded.Games(), QStringLiteral("5"));
    QCOMPARE(loaded.GPoints(), QStringLiteral("700"));
    QCOMPARE(loaded.Place(), QStringLiteral("2"));
    QVERIFY(loaded.Withdrawn());

    loaded.setScore(QStringLiteral("4"));
    loaded.setWithdrawn(false);
    loaded.Update();
    cPlayer again;
    again.Load(tournament->TournId(), player.PlayerId(), QString());
    QCOMPARE(again.Score(), QStringLiteral("4"));
    QVERIFY(!again.Withdrawn());
}

void TestPlayer::emptyGradeWritesNullGradeAndEmptyLetter()
{
    cTestSession session;
    OpenTournament(QStringLiteral("B"), QString());
    const auto player =
        Entrant(QString(), QStringLiteral("A"), QString(), QStringLiteral("B"), QString());
    QVERIFY(StoredField(QStringLiteral("Grade"), *player).isNull());
    QCOMPARE(StoredField(QStringLiteral("GLett"), *player), QVariant(QStringLiteral("")));
    QVERIFY(!StoredField(QStringLiteral("GLett"), *player).isNull());
    QVERIFY(StoredField(QStringLiteral("RGrade"), *player).isNull());
    QCOMPARE(StoredField(QStringLiteral("RLett"), *player).toString(), QString());
    QVERIFY(StoredField(QStringLiteral("ELO"), *player).isNull());
    QVERIFY(StoredField(QStringLiteral("DOB"), *player).isNull());
    QVERIFY(StoredField(QStringLiteral("Pin"), *player).isNull());
    // Plain texts left empty are stored as empty strings, not nulls.
    QCOMPARE(SqlScalar(QStringLiteral("Select typeof(Forename) From Player")).toString(),
             QStringLiteral("text"));
}

void TestPlayer::emptyClubCodeLosesTheClubName()
{
    cTestSession session;
    const auto tournament = OpenTournament(QStringLiteral("B"), QString());
    cPlayer player;
    player.setTournId(tournament->TournId());
    player.setClub(QStringLiteral("Town"));
    player.setClubName(QStringLiteral("Town Chess Club"));
    player.Create();
    QCOMPARE(StoredField(QStringLiteral("ClubName"), player).toString(), QString());
    QCOMPARE(StoredField(QStringLiteral("ClubCode"), player).toString(), QString());
    QCOMPARE(StoredField(QStringLiteral("Club"), player).toString(), QStringLiteral("Town"));
}

void TestPlayer::loadByMasterIdWinsOverPlayerId()
{
    cTestSession session;
    const auto tournament = OpenTournament(QStringLiteral("B"), QString());
    cPlayer first;
    first.setMasterId(QStringLiteral("5"));
    first.setSurname(QStringLiteral("First"));
    first.Create();
    cPlayer second;
    second.setMasterId(QStringLiteral("9"));
    second.setSurname(QStringLiteral("Second"));
    second.Create();

    cPlayer loaded;
    loaded.Load(tournament->TournId(), QStringLiteral("1"), QStringLiteral("9"));
    QCOMPARE(loaded.Surname(), QStringLiteral("Second"));
    loaded.Load(tournament->TournId(), QString(), QStringLiteral("5"));
    QCOMPARE(loaded.Surname(), QStringLiteral("First"));
    loaded.Load(tournament->TournId(), QStringLiteral("2"), QString());
    QCOMPARE(loaded.Surname(), QStringLiteral("Second"));
    loaded.Load(QString(), QStringLiteral("2"), QString());
    QCOMPARE(loaded.Surname(), QString());
    loaded.Load(tournament->TournId(), QStringLiteral("99"), QString());
    QCOMPARE(loaded.PlayerId(), QString());
}

void TestPlayer::ageComesFromTheRowOnlyBesideADateOfBirth()
{
    cTestSession session;
    Control().setAgeDate(QStringLiteral("01/09/2025"));
    Control().setMaxDisplayAge(QStringLiteral("20"));
    const auto tournament = OpenTournament(QStringLiteral("B"), QString());
    const qint64 id = tournament->TournId().toLongLong();
    RunSql(QStringLiteral("Insert Into Player (TId, PId, Surname, DOB, Age) Values "
                          "(?, 1, 'NoDob', NULL, 14), (?, 2, 'NoAge', '2014-09-01', NULL), "
                          "(?, 3, 'Both', '2014-09-01', 9)"),
           {id, id, id});
    cPlayer player;
    player.Load(tournament->TournId(), QStringLiteral("1"), QString());
    QCOMPARE(player.Age(), QString());
    player.Load(tournament->TournId(), QStringLiteral("2"), QString());
    QCOMPARE(player.DOB(), QStringLiteral("01/09/2014"));
    QCOMPARE(player.Age(), QStringLiteral("10"));
    player.Load(tournament->TournId(), QStringLiteral("3"), QString());
    QCOMPARE(player.Age(), QStringLiteral("9"));
    player.Load(tournament->TournId(), QStringLiteral("1"), QString());
    QCOMPARE(player.Age(), QString());
}

void TestPlayer::namesWithQuotesWorkEverywhere()
{
    cTestSession session;
    const auto tournament = OpenTournament(QStringLiteral("B"), QString());
    cPlayer player;
    player.setTournId(tournament->TournId());
    player.setSurname(QStringLiteral("O'Brien"));
    player.setForename(QStringLiteral("Jo \"JJ\""));
    player.Create();
    player.setClub(QStringLiteral("St. Mary's"));
    player.Update();
    cPlayer loaded;
    loaded.Load(tournament->TournId(), player.PlayerId(), QString());
    QCOMPARE(loaded.Surname(), QStringLiteral("O'Brien"));
    QCOMPARE(loaded.Forename(), QStringLiteral("Jo \"JJ\""));
    QCOMPARE(loaded.Club(), QStringLiteral("St. Mary's"));
    loaded.Delete();
    QCOMPARE(SqlScalar(QStringLiteral("Select count(*) From Player")).toInt(), 0);
}

void TestPlayer::deleteRemovesTheRowAndEveryGameOfTheEntrant()
{
    cTestSession session;
    const auto tournament = OpenTournament(QStringLiteral("B"), QString());
    const auto a = Entrant(QString(), QString(), QString(), QString(), QString());
    const auto b = Entrant(QString(), QString(), QString(), QString(), QString());
    const auto c = Entrant(QString(), QString(), QString(), QString(), QString());
    const qint64 id = tournament->TournId().toLongLong();
    RunSql(QStringLiteral("Insert Into Result (TId, \"Round\", Board, White, Black, \"Result\") "
                          "Values (?, 1, 1, 1, 2, 'W'), (?, 2, 1, 3, 1, 'D'), (?, 3, 1, 2, 3, 'B'),"
                          " (?, 4, 1, 1, 0, '')"),
           {id, id, id, id});
    a->Delete();
    QCOMPARE(a->PlayerId(), QString());
    QCOMPARE(SqlScalar(QStringLiteral("Select count(*) From Player")).toInt(), 2);
    QCOMPARE(SqlScalar(QStringLiteral("Select count(*) From Result")).toInt(), 1);
    QCOMPARE(SqlScalar(QStringLiteral("Select \"Round\" From Result")).toInt(), 3);
}

void TestPlayer::createFromMasterCopiesTheRegisterRecord()
{
    cTestSession session;
    Control().setAgeDate(QStringLiteral("01/09/2025"));
    Control().setMaxDisplayAge(QStringLiteral("20"));
    const auto tournament = OpenTournament(QStringLiteral("B"), QString());
    cMaster master;
    master.setForename(QStringLiteral("Ann"));
    master.setSurname(QStringLiteral("O'Neil"));
    master.setDOB(QStringLiteral("15/03/1990"));
    master.setClub(QStringLiteral("Town"));
    master.setClubCode(QStringLiteral("TWN"));
    master.setClubName(QStringLiteral("Town Chess Club"));
    master.setSchool(QStringLiteral("None"));
    master.setGMTitle(QStringLiteral("WF"));
    master.setLongPlay(QStringLiteral("160"));
    master.setLongPlayLett(QStringLiteral("A"));
    master.setRapidPlay(QStringLiteral("150"));
    master.setRapidPlayLett(QStringLiteral("B"));
    master.setFIDE(QStringLiteral("2050"));
    master.setBCFCode(QStringLiteral("222222B"));
    master.setAddress1(QStringLiteral("Not copied"));
    master.Create();

    cPlayer player;
    player.CreateFromMaster(tournament->TournId(), master);
    QCOMPARE(player.PlayerId(), QStringLiteral("1"));
    cPlayer loaded;
    loaded.Load(tournament->TournId(), QStringLiteral("1"), QString());
    QCOMPARE(loaded.MasterId(), master.MasterId());
    QCOMPARE(loaded.Forename(), QStringLiteral("Ann"));
    QCOMPARE(loaded.Surname(), QStringLiteral("O'Neil"));
    QCOMPARE(loaded.DOB(), QStringLiteral("15/03/1990"));
    // Written as the stored number; shown with the plus sign above the limit.
    QCOMPARE(StoredField(QStringLiteral("Age"), loaded).toInt(), 35);
    QCOMPARE(loaded.Age(), QStringLiteral("20+"));
    QCOMPARE(loaded.Club(), QStringLiteral("Town"));
    QCOMPARE(loaded.ClubCode(), QStringLiteral("TWN"));
    QCOMPARE(loaded.ClubName(), QStringLiteral("Town Chess Club"));
    QCOMPARE(loaded.School(), QStringLiteral("None"));
    QCOMPARE(loaded.GMTitle(), QStringLiteral("WF"));
    QCOMPARE(loaded.LongPlay(), QStringLiteral("160"));
    QCOMPARE(loaded.LongPlayLett(), QStringLiteral("A"));
    QCOMPARE(loaded.RapidPlay(), QStringLiteral("150"));
    QCOMPARE(loaded.RapidPlayLett(), QStringLiteral("B"));
    QCOMPARE(loaded.FIDE(), QStringLiteral("2050"));
    QCOMPARE(loaded.BCFCode(), QStringLiteral("222222B"));
}

void TestPlayer::updateGradesFromMasterTakesOnlyTheGrades()
{
    cTestSession session;
    const auto tournament = OpenTournament(QStringLiteral("B"), QString());
    cMaster master;
    master.setSurname(QStringLiteral("Changed"));
    master.setClub(QStringLiteral("New Club"));
    master.setLongPlay(QStringLiteral("170"));
    master.setLongPlayLett(QStringLiteral("C"));
    master.setRapidPlay(QString());
    master.setFIDE(QStringLiteral("2100"));
    const auto player = Entrant(QStringLiteral("150"), QStringLiteral("A"), QStringLiteral("140"),
                                QStringLiteral("B"), QString());
    player->setClub(QStringLiteral("Old Club"));
    player->Update();
    player->UpdateGradesFromMaster(master);
    cPlayer loaded;
    loaded.Load(tournament->TournId(), player->PlayerId(), QString());
    QCOMPARE(loaded.LongPlay(), QStringLiteral("170"));
    QCOMPARE(loaded.LongPlayLett(), QStringLiteral("C"));
    QCOMPARE(loaded.RapidPlay(), QString());
    QCOMPARE(loaded.RapidPlayLett(), QString());
    QCOMPARE(loaded.FIDE(), QStringLiteral("2100"));
    QCOMPARE(loaded.Surname(), QStringLiteral("Smith"));
    QCOMPARE(loaded.Club(), QStringLiteral("Old Club"));
}

void TestPlayer::validDeleteIsAlwaysTrue()
{
    cPlayer player;
    QVERIFY(player.ValidDelete());
    player.setWithdrawn(true);
    QVERIFY(player.ValidDelete());
}

void TestPlayer::createWithNoOpenTournamentIsAFatalFault()
{
    cTestSession session;
    cPlayer player;
    player.setTournId(QStringLiteral("1"));
    QVERIFY_THROWS_EXCEPTION(cFatalFault, player.Create());
    QCOMPARE(SqlScalar(QStringLiteral("Select count(*) From Player")).toInt(), 0);
}

void TestPlayer::nextPlayerIdCountsInTheTournamentGiven()
{
    cTestSession session;
    const auto first = OpenTournament(QStringLiteral("L"), QStringLiteral("0"));
    QCOMPARE(cPlayer::NextPlayerId(first->TournId()), QStringLiteral("1"));
    Entrant(QString(), QString(), QString(), QString(), QString());
    Entrant(QString(), QString(), QString(), QString(), QString());
    const auto second = OpenTournament(QStringLiteral("L"), QStringLiteral("0"));
    QCOMPARE(cPlayer::NextPlayerId(first->TournId()), QStringLiteral("3"));
    QCOMPARE(cPlayer::NextPlayerId(second->TournId()), QStringLiteral("1"));
}

VELMORA_TEST_MAIN(TestPlayer)
#include "test_player.moc"
