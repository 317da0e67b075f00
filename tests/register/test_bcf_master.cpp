#include "base/fatal_fault.h"
#include "database/sql.h"
#include "register/bcf_master.h"
#include "register/master.h"
#include "session/control.h"
#include "session/globals.h"
#include "support/test_environment.h"

#include <QGuiApplication>
#include <QTest>

class TestBCFMaster : public QObject
{
    Q_OBJECT

private slots:
    void loadReadsEveryFieldTrimmed();
    void loadWithBlankCodeGivesAClearRecordAndRunsNoQuery();
    void loadOfAnUnknownCodeGivesAClearRecord();
    void codesWithQuotesAreLookedUpAsTyped();
    void missingAgeBesideADateOfBirthIsWorkedOut();
    void ageIsReadOnlyBesideADateOfBirth();
    void genderKeepsOneLetterAndShowsAWord();
    void clubNamesAreLookedUpByTheirCodes();
    void clubNamesAreLookedUpAtEachRead();
    void matchCopiesCodeAndGradesToThePersonAtOnce();
    void clearedListRecordRemovesTheCodeButLeavesTheGrades();
};

namespace {

void InsertListRow()
{
    RunSql(QStringLiteral(
        "Insert Into BCFMast (Ref, Name, Sex, Age, Cat, Grade, Cat1, Grade1, RCat, RGrade, RCat1, "
        "RGrade1, DOB, Club1, Club2, Club3, Club4, Club5, Club6, FIDECode) Values "
        "('123456A', ' Smith, John ', 'M', '45 ', 'A', 150, 'B', 145.5, 'C', 140, 'D', 138, "
        "'1980-02-03', 'TWN ', 'CTY', 'UNI', 'SCH', 'OTH', 'LST', 400123456)"));
}

void InsertClubs()
{
    RunSql(QStringLiteral("Insert Into Club (Code, Club) Values ('TWN', 'Town Chess Club'), "
                          "('CTY', 'City'), ('UNI', 'University'), ('SCH', 'School'), "
                          "('OTH', 'Other'), ('LST', 'Last''s')"));
}

} // namespace

void TestBCFMaster::loadReadsEveryFieldTrimmed()
{
    cTestSession session;
    InsertListRow();
    cBCFMaster listed;
    listed.Load(QStringLiteral(" 123456A "));
    QCOMPARE(listed.BCFCode(), QStringLiteral("123456A"));
    QCOMPARE(listed.FullName(), QStringLiteral("Smith, John"));
    QCOMPARE(listed.Gender(), QStringLiteral("Male"));
    QCOMPARE(listed.Age(), QStringLiteral("45"));
    QCOMPARE(listed.LongPlay(), QStringLiteral("150"));
    QCOMPARE(listed.LongPlayLett(), QStringLiteral("A"));
    QCOMPARE(listed.PrevLongPlay(), QStringLiteral("145.5"));
    QCOMPARE(listed.PrevLongPlayLett(), QStringLiteral("B"));
    QCOMPARE(listed.RapidPlay(), QStringLiteral("140"));
    QCOMPARE(listed.RapidPlayLett(), QStringLiteral("C"));
    QCOMPARE(listed.PrevRapidPlay(), QStringLiteral("138"));
    QCOMPARE(listed.PrevRapidPlayLett(), QStringLiteral("D"));
    QCOMPARE(listed.DOB(), QStringLiteral("03/02/1980"));
    QCOMPARE(listed.Club1(), QStringLiteral("TWN"));
    QCOMPARE(listed.Club2(), QStringLiteral("CTY"));
    QCOMPARE(listed.Club3(), QStringLiteral("UNI"));
    QCOMPARE(listed.Club4(), QStringLiteral("SCH"));
    QCOMPARE(listed.Club5(), QStringLiteral("OTH"));
    QCOMPARE(listed.Club6(), QStringLiteral("LST"));
    QCOMPARE(listed.FIDECode(), QStringLiteral("400123456"));
}

void TestBCFMaster::loadWithBlankCodeGivesAClearRecordAndRunsNoQuery()
{
    cTestSession session;
    cBCFMaster listed;
    listed.setBCFCode(QStringLiteral("999999Z"));
    listed.setLongPlay(QStringLiteral("100"));
    RunSql(QStringLiteral("Alter Table BCFMast Rename To BCFMastAway"));
    listed.Load(QStringLiteral("  "));
    QCOMPARE(listed.BCFCode(), QString());
    QCOMPARE(listed.LongPlay(), QString());
    QVERIFY_THROWS_EXCEPTION(cFatalFault, listed.Load(QStringLiteral("123456A")));
}

void TestBCFMaster::loadOfAnUnknownCodeGivesAClearRecord()
{
    cTestSession session;
    InsertListRow();
    cBCFMaster listed;
    listed.Load(QStringLiteral("123456A"));
    listed.Load(QStringLiteral("000000X"));
    QCOMPARE(listed.BCFCode(), QString());
    QCOMPARE(listed.FullName(), QString());
    QCOMPARE(listed.Club1(), QString());
}

void TestBCFMaster::codesWithQuotesAreLookedUpAsTyped()
{
    cTestSession session;
    RunSql(QStringLiteral("Insert Into BCFMast (Ref, Name) Values ('12\"4''6', 'O''Brien, Pat')"));
    cBCFMaster listed;
    listed.Load(QStringLiteral("12\"4'6"));
    QCOMPARE(listed.BCFCode(), QStringLiteral("12\"4'6"));
    QCOMPARE(listed.FullName(), QStringLiteral("O'Brien, Pat"));
    listed.Load(QStringLiteral("\" or \"\"=\""));
    QCOMPARE(listed.BCFCode(), QString());
}

void TestBCFMaster::missingAgeBesideADateOfBirthIsWorkedOut()
{
    cTestSession session;
    Control().setAgeDate(QStringLiteral("01/09/2025"));
    RunSql(QStringLiteral("Insert Into BCFMast (Ref, DOB) Values ('1', '2012-09-01')"));
    cBCFMaster listed;
    listed.Load(QStringLiteral("1"));
    QCOMPARE(listed.Age(), QStringLiteral("12"));
}

void TestBCFMaster::ageIsReadOnlyBesideADateOfBirth()
{
    cTestSession session;
    RunSql(QStringLiteral("Insert Into BCFMast (Ref, Age, DOB) Values ('1', '33', NULL)"));
    cBCFMaster listed;
    listed.Load(QStringLiteral("1"));
    QCOMPARE(listed.Age(), QString());
    QCOMPARE(listed.DOB(), QString());
}

void TestBCFMaster::genderKeepsOneLetterAndShowsAWord()
{
    cTestSession session;
    RunSql(QStringLiteral("Insert Into BCFMast (Ref, Sex) Values ('1', 'F'), ('2', 'm'), "
                          "('3', 'Male')"));
    cBCFMaster listed;
    listed.Load(QStringLiteral("1"));
    QCOMPARE(listed.Gender(), QStringLiteral("Female"));
    listed.Load(QStringLiteral("2"));
    QCOMPARE(listed.Gender(), QString());
    listed.Load(QStringLiteral("3"));
    QCOMPARE(listed.Gender(), QStringLiteral("Male"));
    listed.setGender(QStringLiteral(" Female"));
    QCOMPARE(listed.Gender(), QStringLiteral("Female"));
}

void TestBCFMaster::clubNamesAreLookedUpByTheirCodes()
{
    cTestSession session;
    InsertListRow();
    InsertClubs();
    cBCFMaster listed;
    listed.Load(QStringLiteral("123456A"));
    QCOMPARE(listed.ClubName1(), QStringLiteral("Town Chess Club"));
    QCOMPARE(listed.ClubName2(), QStringLiteral("City"));
    QCOMPARE(listed.ClubName3(), QStringLiteral("University"));
    QCOMPARE(listed.ClubName4(), QStringLiteral("School"));
    QCOMPARE(listed.ClubName5(), QStringLiteral("Other"));
    QCOMPARE(listed.ClubName6(), QStringLiteral("Last's"));
    listed.setClub3(QStringLiteral("NONE"));
    QCOMPARE(listed.ClubName3(), QString());
    listed.setClub4(QString());
    QCOMPARE(listed.ClubName4(), QString());
}

void TestBCFMaster::clubNamesAreLookedUpAtEachRead()
{
    cTestSession session;
    InsertListRow();
    cBCFMaster listed;
    listed.Load(QStringLiteral("123456A"));
    QCOMPARE(listed.ClubName1(), QString());
    InsertClubs();
    QCOMPARE(listed.ClubName1(), QStringLiteral("Town Chess Club"));
    RunSql(QStringLiteral("Update Club Set Club = 'Renamed' Where Code = 'TWN'"));
    QCOMPARE(listed.ClubName1(), QStringLiteral("Renamed"));
}

void TestBCFMaster::matchCopiesCodeAndGradesToThePersonAtOnce()
{
    cTestSession session;
    InsertListRow();
    cMaster master;
    master.setSurname(QStringLiteral("Smith"));
    master.Create();
    cBCFMaster listed;
    listed.Load(QStringLiteral("123456A"));
    master.UpdateFrom(listed);
    QCOMPARE(SqlScalar(QStringLiteral("Select Code From Master")).toString(),
             QStringLiteral("123456A"));
    QCOMPARE(SqlScalar(QStringLiteral("Select Grade From Master")).toInt(), 150);
    QCOMPARE(SqlScalar(QStringLiteral("Select GLett From Master")).toString(), QStringLiteral("A"));
    QCOMPARE(SqlScalar(QStringLiteral("Select RGrade From Master")).toInt(), 140);
    QCOMPARE(SqlScalar(QStringLiteral("Select RLett From Master")).toString(), QStringLiteral("C"));
}

void TestBCFMaster::clearedListRecordRemovesTheCodeButLeavesTheGrades()
{
    cTestSession session;
    InsertListRow();
    cMaster master;
    master.setSurname(QStringLiteral("Smith"));
    master.Create();
    auto listed = std::make_shared<cBCFMaster>();
    listed->Load(QStringLiteral("123456A"));
    master.UpdateFrom(*listed);
    // Clearing the match empties the list record the session holds.
    Control().setBCFMaster(listed);
    Control().BCFMaster()->Clear();
    QCOMPARE(listed->BCFCode(), QString());
    master.UpdateFrom(*Control().BCFMaster());
    cMaster loaded;
    loaded.Load(master.MasterId());
    QCOMPARE(loaded.BCFCode(), QString());
    QCOMPARE(loaded.LongPlay(), QStringLiteral("150"));
    QCOMPARE(loaded.LongPlayLett(), QStringLiteral("A"));
    QCOMPARE(loaded.RapidPlay(), QStringLiteral("140"));
    QCOMPARE(loaded.RapidPlayLett(), QStringLiteral("C"));
}

VELMORA_TEST_MAIN(TestBCFMaster)
#include "test_bcf_master.moc"
