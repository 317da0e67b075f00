#include "base/fatal_fault.h"
#include "database/sql.h"
#include "register/bcf_master.h"
#include "register/master.h"
#include "session/control.h"
#include "session/globals.h"
#include "support/scripted_interaction.h"
#include "support/test_environment.h"

#include <QGuiApplication>
#include <QTest>

class TestMaster : public QObject
{
    Q_OBJECT

private slots:
    void ageAboveTheHighestShownAgeShowsPlus();
    void genderKeepsOneLetterAndShowsAWord();
    void settersTrimTheirValues();
    void dateOfBirthIsFormattedAndGivesTheAge();
    void emptyDateOfBirthEmptiesTheAge();
    void displayAddressJoinsLinesAfterAFilledFirstLine();
    void displayAddressWithEmptyFirstLineIsEmpty();
    void displayAddressKeepsThePostcodeAfterTheCut();
    void namesForListsAndLabels();
    void everyPropertyReadsBackAsWritten();
    void blankGradeWithALetterWritesNullGradeAndEmptyLetter();
    void blankDateOfBirthWritesNullDateAndAge();
    void ageIsWrittenAsTheStoredNumberNotTheShownForm();
    void loadWithBlankIdGivesAClearRecordAndRunsNoQuery();
    void loadOfAnUnknownIdGivesAClearRecord();
    void loadKeepsTheStoredAgeAndWorksOutAMissingOne();
    void nullFieldsLoadAsEmptyTexts();
    void createAllotsTheNextId();
    void deleteEmptiesTheIdButKeepsTheOtherValues();
    void deleteRequiredWithoutEntrantsAsksNothing();
    void deleteRequiredForAnEntrantAsksTheUser();
    void updateFromTheListCopiesCodeAndAllFourGrades();
    void updateFromAListRecordWithoutCodeEmptiesTheCodeOnly();
    void quotesInNamesWorkEverywhere();
    void updateOfAVanishedRowIsAFatalFault();
};

namespace {

QVariant StoredField(const QString &field, const cMaster &master)
{
    return SqlScalar(QStringLiteral("Select \"") + field +
                         QStringLiteral("\" From Master Where MasterId = ?"),
                     {master.MasterId().toLongLong()});
}

} // namespace

void TestMaster::ageAboveTheHighestShownAgeShowsPlus()
{
    cTestSession session;
    Control().setMaxDisplayAge(QStringLiteral("20"));
    cMaster master;
    master.setAge(QStringLiteral("20"));
    QCOMPARE(master.Age(), QStringLiteral("20"));
    master.setAge(QStringLiteral("21"));
    QCOMPARE(master.Age(), QStringLiteral("20+"));
    QCOMPARE(master.StoredAge(), QStringLiteral("21"));
    master.setAge(QString());
    QCOMPARE(master.Age(), QString());
}

void TestMaster::genderKeepsOneLetterAndShowsAWord()
{
    cTestSession session;
    cMaster master;
    master.setSurname(QStringLiteral("Lee"));
    master.setGender(QStringLiteral("female"));
    QCOMPARE(master.Gender(), QString());
    master.Create();
    QCOMPARE(StoredField(QStringLiteral("Gender"), master).toString(), QStringLiteral("f"));
    master.setGender(QStringLiteral("Male"));
    QCOMPARE(master.Gender(), QStringLiteral("Male"));
    master.Update();
    QCOMPARE(StoredField(QStringLiteral("Gender"), master).toString(), QStringLiteral("M"));
    master.setGender(QStringLiteral(" F "));
    QCOMPARE(master.Gender(), QStringLiteral("Female"));
    master.setGender(QString());
    QCOMPARE(master.Gender(), QString());
}

void TestMaster::settersTrimTheirValues()
{
    cMaster master;
    master.setSurname(QStringLiteral("  Lee "));
    master.setAddress2(QStringLiteral(" 2 High St "));
    master.setUnion(QStringLiteral(" E "));
    master.setMasterId(QStringLiteral(" 12 "));
    QCOMPARE(master.Surname(), QStringLiteral("Lee"));
    QCOMPARE(master.Address2(), QStringLiteral("2 High St"));
    QCOMPARE(master.Union(), QStringLiteral("E"));
    QCOMPARE(master.MasterId(), QStringLiteral("12"));
}

void TestMaster::dateOfBirthIsFormattedAndGivesTheAge()
{
    cTestSession session;
    Control().setAgeDate(QStringLiteral("31/08/2025"));
    cMaster master;
    master.setDOB(QStringLiteral(" 1/9/2010 "));
    QCOMPARE(master.DOB(), QStringLiteral("01/09/2010"));
    QCOMPARE(master.StoredAge(), QStringLiteral("14"));
    master.setDOB(QStringLiteral("31/08/2010"));
    QCOMPARE(master.StoredAge(), QStringLiteral("14"));
    master.setDOB(QStringLiteral("30/08/2010"));
    QCOMPARE(master.StoredAge(), QStringLiteral("15"));
}

void TestMaster::emptyDateOfBirthEmptiesTheAge()
{
    cTestSession session;
    Control().setAgeDate(QStringLiteral("31/08/2025"));
    cMaster master;
    master.setDOB(QStringLiteral("01/09/2010"));
    master.setDOB(QStringLiteral("   "));
    QCOMPARE(master.DOB(), QString());
    QCOMPARE(master.StoredAge(), QString());
}

void TestMaster::displayAddressJoinsLinesAfterAFilledFirstLine()
{
    cMaster master;
    master.setAddress1(QStringLiteral("1 High St"));
    master.setAddress3(QStringLiteral("Town"));
    master.setPostcode(QStringLiteral("AB1 2CD"));
    QCOMPARE(master.DisplayAddress(), QStringLiteral("1 High St, Town, AB1 2CD"));
}

void TestMaster::displayAddressWithEmptyFirstLineIsEmpty()
{
    cMaster master;
    master.setAddress2(QStringLiteral("Second line"));
    master.setAddress4(QStringLiteral("County"));
    master.setPostcode(QStringLiteral("AB1 2CD"));
    QCOMPARE(master.DisplayAddress(), QString());
}

void TestMaster::displayAddressKeepsThePostcodeAfterTheCut()
{
    cMaster master;
    master.setAddress1(QString(30, u'a'));
    master.setAddress2(QString(30, u'b'));
    master.setAddress3(QString(30, u'c'));
    master.setPostcode(QStringLiteral("AB1 2CD"));
    // 70 characters reach six letters into the third line; the postcode follows.
    const QString expected = QString(30, u'a') + QStringLiteral(", ") + QString(30, u'b') +
                             QStringLiteral(", ") + QString(6, u'c') + QStringLiteral(", AB1 2CD");
    QCOMPARE(master.DisplayAddress(), expected);
}

void TestMaster::namesForListsAndLabels()
{
    cMaster master;
    master.setSurname(QStringLiteral("Smith-Jones"));
    QCOMPARE(master.DisplayName(true), QStringLiteral("SMITH-JONES"));
    QCOMPARE(master.FullName(), QStringLiteral("Smith-Jones"));
    master.setForename(QStringLiteral("Amy"));
    QCOMPARE(master.DisplayName(false), QStringLiteral("Smith-Jones, Amy"));
    QCOMPARE(master.FullName(), QStringLiteral("Amy Smith-Jones"));
    master.setSurname(QString());
    QCOMPARE(master.DisplayName(true), QStringLiteral("Amy"));
    QCOMPARE(master.FullName(), QStringLiteral("Amy"));
}

void TestMaster::everyPropertyReadsBackAsWritten()
{
    cTestSession session;
    Control().setAgeDate(QStringLiteral("01/09/2025"));
    cMaster master;
    master.setGMTitle(QStringLiteral("FM"));
    master.setFIDE(QStringLiteral("2301"));
    master.setRapidPlayLett(QStringLiteral("B"));
    master.setRapidPlay(QStringLiteral("190"));
    master.setLongPlayLett(QStringLiteral("A"));
    master.setLongPlay(QStringLiteral("200"));
    master.setBCFCode(QStringLiteral("123456C"));
    master.setNation(QStringLiteral("ENG"));
    master.setUnion(QStringLiteral("E"));
    master.setSchool(QStringLiteral("Grammar"));
    master.setClubName(QStringLiteral("Town Chess Club"));
    master.setClubCode(QStringLiteral("TWN"));
    master.setClub(QStringLiteral("Town"));
    master.setSpecial4(QStringLiteral("4"));
    master.setSpecial3(QStringLiteral("3"));
    master.setSpecial2(QStringLiteral("2"));
    master.setSpecial1(QStringLiteral("Y"));
    master.setGender(QStringLiteral("M"));
    master.setDOB(QStringLiteral("15/06/1980"));
    master.seteMail(QStringLiteral("a@b.example"));
    master.setPhone(QStringLiteral("01234 567890"));
    master.setPostcode(QStringLiteral("AB1 2CD"));
    master.setAddress4(QStringLiteral("Shire"));
    master.setAddress3(QStringLiteral("Town"));
    master.setAddress2(QStringLiteral("Lane"));
    master.setAddress1(QStringLiteral("1 House"));
    master.setForename(QStringLiteral("Bob"));
    master.setSurname(QStringLiteral("Ray"));
    master.Create();
    QCOMPARE(StoredField(QStringLiteral("DOB"), master).toString(), QStringLiteral("1980-06-15"));
    QCOMPARE(StoredField(QStringLiteral("ELO"), master).toInt(), 2301);

    cMaster loaded;
    loaded.Load(master.MasterId());
    QCOMPARE(loaded.MasterId(), master.MasterId());
    QCOMPARE(loaded.GMTitle(), QStringLiteral("FM"));
    QCOMPARE(loaded.FIDE(), QStringLiteral("2301"));
    QCOMPARE(loaded.RapidPlayLett(), QStringLiteral("B"));
    QCOMPARE(loaded.RapidPlay(), QStringLiteral("190"));
    QCOMPARE(loaded.LongPlayLett(), QStringLiteral("A"));
    QCOMPARE(loaded.LongPlay(), QStringLiteral("200"));
    QCOMPARE(loaded.BCFCode(), QStringLiteral("123456C"));
    QCOMPARE(loaded.Nation(), QStringLiteral("ENG"));
    QCOMPARE(loaded.Union(), QStringLiteral("E"));
    QCOMPARE(loaded.School(), QStringLiteral("Grammar"));
    QCOMPARE(loaded.ClubName(), QStringLiteral("Town Chess Club"));
    QCOMPARE(loaded.ClubCode(), QStringLiteral("TWN"));
    QCOMPARE(loaded.Club(), QStringLiteral("Town"));
    QCOMPARE(loaded.Special4(), QStringLiteral("4"));
    QCOMPARE(loaded.Special3(), QStringLiteral("3"));
    QCOMPARE(loaded.Special2(), QStringLiteral("2"));
    QCOMPARE(loaded.Special1(), QStringLiteral("Y"));
    QCOMPARE(loaded.Gender(), QStringLiteral("Male"));
    QCOMPARE(loaded.DOB(), QStringLiteral("15/06/1980"));
    QCOMPARE(loaded.StoredAge(), QStringLiteral("45"));
    QCOMPARE(loaded.eMail(), QStringLiteral("a@b.example"));
    QCOMPARE(loaded.Phone(), QStringLiteral("01234 567890"));
    QCOMPARE(loaded.Postcode(), QStringLiteral("AB1 2CD"));
    QCOMPARE(loaded.Address4(), QStringLiteral("Shire"));
    QCOMPARE(loaded.Address3(), QStringLiteral("Town"));
    QCOMPARE(loaded.Address2(), QStringLiteral("Lane"));
    QCOMPARE(loaded.Address1(), QStringLiteral("1 House"));
    QCOMPARE(loaded.Forename(), QStringLiteral("Bob"));
    QCOMPARE(loaded.Surname(), QStringLiteral("Ray"));
}

void TestMaster::blankGradeWithALetterWritesNullGradeAndEmptyLetter()
{
    cTestSession session;
    cMaster master;
    master.setSurname(QStringLiteral("Lee"));
    master.setLongPlayLett(QStringLiteral("A"));
    master.setRapidPlayLett(QStringLiteral("B"));
    master.Create();
    QVERIFY(StoredField(QStringLiteral("Grade"), master).isNull());
    QCOMPARE(StoredField(QStringLiteral("GLett"), master), QVariant(QStringLiteral("")));
    QVERIFY(StoredField(QStringLiteral("RGrade"), master).isNull());
    QCOMPARE(StoredField(QStringLiteral("RLett"), master), QVariant(QStringLiteral("")));
    QVERIFY(StoredField(QStringLiteral("ELO"), master).isNull());
    cMaster loaded;
    loaded.Load(master.MasterId());
    QCOMPARE(loaded.LongPlayLett(), QString());
    QCOMPARE(loaded.RapidPlayLett(), QString());
}

void TestMaster::blankDateOfBirthWritesNullDateAndAge()
{
    cTestSession session;
    cMaster master;
    master.setAge(QStringLiteral("30"));
    master.Create();
    QVERIFY(StoredField(QStringLiteral("DOB"), master).isNull());
    QVERIFY(StoredField(QStringLiteral("Age"), master).isNull());
}

void TestMaster::ageIsWrittenAsTheStoredNumberNotTheShownForm()
{
    cTestSession session;
    Control().setAgeDate(QStringLiteral("01/09/2025"));
    Control().setMaxDisplayAge(QStringLiteral("20"));
    cMaster master;
    master.setDOB(QStringLiteral("01/01/1970"));
    QCOMPARE(master.Age(), QStringLiteral("20+"));
    master.Create();
    QCOMPARE(StoredField(QStringLiteral("Age"), master), QVariant(qlonglong(55)));
}

void TestMaster::loadWithBlankIdGivesAClearRecordAndRunsNoQuery()
{
    cTestSession session;
    cMaster master;
    master.setSurname(QStringLiteral("Left over"));
    master.setMasterId(QStringLiteral("3"));
    // With the table gone, any query would fail.
    RunSql(QStringLiteral("Alter Table Master Rename To MasterAway"));
    master.Load(QStringLiteral("   "));
    QCOMPARE(master.Surname(), QString());
    QCOMPARE(master.MasterId(), QString());
    QVERIFY_THROWS_EXCEPTION(cFatalFault, master.Load(QStringLiteral("1")));
}

void TestMaster::loadOfAnUnknownIdGivesAClearRecord()
{
    cTestSession session;
    cMaster master;
    master.setSurname(QStringLiteral("Lee"));
    master.Create();
    master.Load(QStringLiteral("42"));
    QCOMPARE(master.MasterId(), QString());
    QCOMPARE(master.Surname(), QString());
}

void TestMaster::loadKeepsTheStoredAgeAndWorksOutAMissingOne()
{
    cTestSession session;
    Control().setAgeDate(QStringLiteral("01/09/2025"));
    RunSql(QStringLiteral("Insert Into Master (MasterId, Surname, DOB, Age) Values "
                          "(1, 'Stale', '2010-01-01', 9), (2, 'Missing', '2010-01-01', NULL), "
                          "(3, 'NoDob', NULL, 30)"));
    cMaster master;
    master.Load(QStringLiteral("1"));
    QCOMPARE(master.StoredAge(), QStringLiteral("9"));
    master.Load(QStringLiteral("2"));
    QCOMPARE(master.StoredAge(), QStringLiteral("15"));
    master.Load(QStringLiteral("3"));
    QCOMPARE(master.StoredAge(), QString());
    QCOMPARE(master.DOB(), QString());
}

void TestMaster::nullFieldsLoadAsEmptyTexts()
{
    cTestSession session;
    RunSql(QStringLiteral("Insert Into Master (MasterId) Values (7)"));
    cMaster master;
    master.setSurname(QStringLiteral("Left over"));
    master.Load(QStringLiteral("7"));
    QCOMPARE(master.MasterId(), QStringLiteral("7"));
    QCOMPARE(master.Surname(), QString());
    QCOMPARE(master.LongPlay(), QString());
    QCOMPARE(master.Gender(), QString());
    QCOMPARE(master.DisplayAddress(), QString());
}

void TestMaster::createAllotsTheNextId()
{
    cTestSession session;
    cMaster first;
    first.Create();
    QCOMPARE(first.MasterId(), QStringLiteral("1"));
    cMaster second;
    second.setMasterId(QStringLiteral("40"));
    second.Create();
    QCOMPARE(second.MasterId(), QStringLiteral("2"));
}

void TestMaster::deleteEmptiesTheIdButKeepsTheOtherValues()
{
    cTestSession session;
    cMaster master;
    master.setSurname(QStringLiteral("Lee"));
    master.setForename(QStringLiteral("Ann"));
    master.Create();
    RunSql(
        QStringLiteral("Insert Into Player (TId, PId, MasterId, Surname) Values (1, 1, ?, 'Lee')"),
        {master.MasterId().toLongLong()});
    master.Delete();
    QCOMPARE(master.MasterId(), QString());
    QCOMPARE(master.Surname(), QStringLiteral("Lee"));
    QCOMPARE(master.Forename(), QStringLiteral("Ann"));
    QCOMPARE(SqlScalar(QStringLiteral("Select count(*) From Master")).toInt(), 0);
    // The entrant keeps the old number.
    QCOMPARE(SqlScalar(QStringLiteral("Select MasterId From Player")).toInt(), 1);
}

void TestMaster::deleteRequiredWithoutEntrantsAsksNothing()
{
    cTestSession session;
    cScriptedInteraction seam;
    cMaster master;
    master.Create();
    QVERIFY(master.DeleteRequired());
    QCOMPARE(seam.Count(QStringLiteral("ask|")), 0);
}

void TestMaster::deleteRequiredForAnEntrantAsksTheUser()
{
    cTestSession session;
    cScriptedInteraction seam;
    cMaster master;
    master.Create();
    RunSql(QStringLiteral("Insert Into Player (TId, PId, MasterId) Values (1, 1, ?)"),
           {master.MasterId().toLongLong()});
    seam.QueueAnswer(false);
    QVERIFY(!master.DeleteRequired());
    seam.QueueAnswer(true);
    QVERIFY(master.DeleteRequired());
    const QStringList asked = seam.CallsStartingWith(QStringLiteral("ask|"));
    QCOMPARE(asked.size(), 2);
    QCOMPARE(asked[0], QStringLiteral("ask|Velmora!|The Player has been included in a Tournament. "
                                      "Do you still want to delete the player?"));
    QVERIFY(!seam.HadUnexpectedQuestion());
}

void TestMaster::updateFromTheListCopiesCodeAndAllFourGrades()
{
    cTestSession session;
    cMaster master;
    master.setSurname(QStringLiteral("Lee"));
    master.setFIDE(QStringLiteral("2000"));
    master.setGMTitle(QStringLiteral("CM"));
    master.setLongPlay(QStringLiteral("150"));
    master.setLongPlayLett(QStringLiteral("A"));
    master.setRapidPlay(QStringLiteral("140"));
    master.setRapidPlayLett(QStringLiteral("B"));
    master.Create();
    cBCFMaster listed;
    listed.setBCFCode(QStringLiteral("765432D"));
    listed.setLongPlay(QStringLiteral("160"));
    listed.setLongPlayLett(QStringLiteral("C"));
    // The list no longer holds a rapid-play grade, so the register loses it.
    master.UpdateFrom(listed);
    cMaster loaded;
    loaded.Load(master.MasterId());
    QCOMPARE(loaded.BCFCode(), QStringLiteral("765432D"));
    QCOMPARE(loaded.LongPlay(), QStringLiteral("160"));
    QCOMPARE(loaded.LongPlayLett(), QStringLiteral("C"));
    QCOMPARE(loaded.RapidPlay(), QString());
    QCOMPARE(loaded.RapidPlayLett(), QString());
    QCOMPARE(loaded.FIDE(), QStringLiteral("2000"));
    QCOMPARE(loaded.GMTitle(), QStringLiteral("CM"));
    QCOMPARE(loaded.Surname(), QStringLiteral("Lee"));
}

void TestMaster::updateFromAListRecordWithoutCodeEmptiesTheCodeOnly()
{
    cTestSession session;
    cMaster master;
    master.setBCFCode(QStringLiteral("111111A"));
    master.setLongPlay(QStringLiteral("150"));
    master.setLongPlayLett(QStringLiteral("A"));
    master.setRapidPlay(QStringLiteral("140"));
    master.Create();
    cBCFMaster cleared;
    cleared.Clear();
    master.UpdateFrom(cleared);
    cMaster loaded;
    loaded.Load(master.MasterId());
    QCOMPARE(loaded.BCFCode(), QString());
    QCOMPARE(loaded.LongPlay(), QStringLiteral("150"));
    QCOMPARE(loaded.LongPlayLett(), QStringLiteral("A"));
    QCOMPARE(loaded.RapidPlay(), QStringLiteral("140"));
}

void TestMaster::quotesInNamesWorkEverywhere()
{
    cTestSession session;
    cScriptedInteraction seam;
    cMaster master;
    master.setSurname(QStringLiteral("O'Brien"));
    master.setForename(QStringLiteral("\"Red\""));
    master.setAddress1(QStringLiteral("1 Kings' Rd"));
    master.Create();
    master.setClub(QStringLiteral("St. Ann's"));
    master.Update();
    cMaster loaded;
    loaded.Load(master.MasterId());
    QCOMPARE(loaded.Surname(), QStringLiteral("O'Brien"));
    QCOMPARE(loaded.Forename(), QStringLiteral("\"Red\""));
    QCOMPARE(loaded.Club(), QStringLiteral("St. Ann's"));
    QVERIFY(loaded.DeleteRequired());
    loaded.Delete();
    QCOMPARE(SqlScalar(QStringLiteral("Select count(*) From Master")).toInt(), 0);
}

void TestMaster::updateOfAVanishedRowIsAFatalFault()
{
    cTestSession session;
    cMaster master;
    master.Create();
    RunSql(QStringLiteral("Delete From Master"));
    QVERIFY_THROWS_EXCEPTION(cFatalFault, master.Update());
}

VELMORA_TEST_MAIN(TestMaster)
#include "test_master.moc"
