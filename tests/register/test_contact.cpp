#include "database/sql.h"
#include "register/bcf_master.h"
#include "register/contact.h"
#include "session/control.h"
#include "session/globals.h"
#include "support/scripted_interaction.h"
#include "support/test_environment.h"

#include <QGuiApplication>
#include <QSqlQuery>
#include <QTest>

class TestContact : public QObject
{
    Q_OBJECT

private slots:
    void tableIsMadeWhenMissingWithoutChangingTheVersion();
    void tableHasTheFieldsOfTheRegisterWithContactId();
    void idsFollowTheHighestOne();
    void contactReadsBackAsWritten();
    void updateAndDeleteWorkOnTheContactRow();
    void deleteRequiredTellsWhetherTheRowIsThere();
    void updateFromTheListCopiesCodeAndGrades();
    void existingContactsSurviveTheNextUse();
};

namespace {

bool ContactTableExists()
{
    return SqlScalar(
               QStringLiteral(
                   "Select count(*) From sqlite_master Where type = 'table' And name = 'Contact'"))
               .toInt() == 1;
}

} // namespace

void TestContact::tableIsMadeWhenMissingWithoutChangingTheVersion()
{
    cTestSession session;
    const QString version = TextOf(SqlScalar(QStringLiteral("Select Vrsn From Cntrl")));
    QVERIFY(!ContactTableExists());
    QCOMPARE(cContact::NextContactId(), QStringLiteral("1"));
    QVERIFY(ContactTableExists());
    QCOMPARE(TextOf(SqlScalar(QStringLiteral("Select Vrsn From Cntrl"))), version);
    QCOMPARE(SqlScalar(QStringLiteral("Select count(*) From sqlite_master Where type = 'index' "
                                      "And name = 'ContactIndex'"))
                 .toInt(),
             1);
}

void TestContact::tableHasTheFieldsOfTheRegisterWithContactId()
{
    cTestSession session;
    cContact::EnsureContactTable();
    const auto columns = [](const QString &table) {
        QSqlQuery rows = RunSql(QStringLiteral("Select name From pragma_table_info(?)"), {table});
        QStringList names;
        while (rows.next())
            names.append(rows.value(0).toString());
        return names;
    };
    QStringList master = columns(QStringLiteral("Master"));
    master[0] = QStringLiteral("ContactId");
    QCOMPARE(columns(QStringLiteral("Contact")), master);
}

void TestContact::idsFollowTheHighestOne()
{
    cTestSession session;
    cContact first;
    first.Create();
    cContact second;
    second.Create();
    QCOMPARE(first.ContactId(), QStringLiteral("1"));
    QCOMPARE(second.ContactId(), QStringLiteral("2"));
    QCOMPARE(cContact::NextContactId(), QStringLiteral("3"));
    second.Delete();
    QCOMPARE(cContact::NextContactId(), QStringLiteral("2"));
}

void TestContact::contactReadsBackAsWritten()
{
    cTestSession session;
    Control().setAgeDate(QStringLiteral("01/09/2025"));
    cContact contact;
    contact.setSurname(QStringLiteral("O'Brien"));
    contact.setForename(QStringLiteral("Kate \"KT\""));
    contact.setAddress1(QStringLiteral("1 High St"));
    contact.setPostcode(QStringLiteral("AB1 2CD"));
    contact.setPhone(QStringLiteral("0123"));
    contact.seteMail(QStringLiteral("k@example.org"));
    contact.setGender(QStringLiteral("Female"));
    contact.setDOB(QStringLiteral("02/01/1975"));
    contact.setUnion(QStringLiteral("W"));
    contact.Create();
    cContact loaded;
    loaded.Load(contact.ContactId());
    QCOMPARE(loaded.ContactId(), contact.ContactId());
    QCOMPARE(loaded.Surname(), QStringLiteral("O'Brien"));
    QCOMPARE(loaded.Forename(), QStringLiteral("Kate \"KT\""));
    QCOMPARE(loaded.DisplayAddress(), QStringLiteral("1 High St, AB1 2CD"));
    QCOMPARE(loaded.Phone(), QStringLiteral("0123"));
    QCOMPARE(loaded.eMail(), QStringLiteral("k@example.org"));
    QCOMPARE(loaded.Gender(), QStringLiteral("Female"));
    QCOMPARE(loaded.DOB(), QStringLiteral("02/01/1975"));
    QCOMPARE(loaded.StoredAge(), QStringLiteral("50"));
    QCOMPARE(loaded.Union(), QStringLiteral("W"));
    QCOMPARE(loaded.DisplayName(true), QStringLiteral("O'BRIEN, Kate \"KT\""));
}

void TestContact::updateAndDeleteWorkOnTheContactRow()
{
    cTestSession session;
    cContact contact;
    contact.setSurname(QStringLiteral("Lee"));
    contact.Create();
    contact.setSurname(QStringLiteral("Leigh"));
    contact.Update();
    QCOMPARE(SqlScalar(QStringLiteral("Select Surname From Contact")).toString(),
             QStringLiteral("Leigh"));
    contact.Delete();
    QCOMPARE(contact.ContactId(), QString());
    QCOMPARE(contact.Surname(), QStringLiteral("Leigh"));
    QCOMPARE(SqlScalar(QStringLiteral("Select count(*) From Contact")).toInt(), 0);
}

void TestContact::deleteRequiredTellsWhetherTheRowIsThere()
{
    cTestSession session;
    cScriptedInteraction seam;
    cContact contact;
    contact.Create();
    QVERIFY(contact.DeleteRequired());
    cContact missing;
    missing.setContactId(QStringLiteral("12"));
    QVERIFY(!missing.DeleteRequired());
    QCOMPARE(seam.Count(QStringLiteral("ask|")), 0);
}

void TestContact::updateFromTheListCopiesCodeAndGrades()
{
    cTestSession session;
    cContact contact;
    contact.Create();
    cBCFMaster listed;
    listed.setBCFCode(QStringLiteral("100000A"));
    listed.setLongPlay(QStringLiteral("120"));
    listed.setLongPlayLett(QStringLiteral("D"));
    contact.UpdateFrom(listed);
    QCOMPARE(SqlScalar(QStringLiteral("Select Code From Contact")).toString(),
             QStringLiteral("100000A"));
    QCOMPARE(SqlScalar(QStringLiteral("Select Grade From Contact")).toInt(), 120);
}

void TestContact::existingContactsSurviveTheNextUse()
{
    cTestSession session;
    cContact first;
    first.setSurname(QStringLiteral("Kept"));
    first.Create();
    cContact::EnsureContactTable();
    cContact loaded;
    loaded.Load(QStringLiteral("1"));
    QCOMPARE(loaded.Surname(), QStringLiteral("Kept"));
}

VELMORA_TEST_MAIN(TestContact)
#include "test_contact.moc"
