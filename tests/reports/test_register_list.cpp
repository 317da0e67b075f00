#include "database/sql.h"
#include "register/master.h"
#include "reports/print_cntrl.h"
#include "reports/report_options.h"
#include "session/control.h"
#include "session/globals.h"
#include "support/test_environment.h"

#include "report_golden.h"

#include <QGuiApplication>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

class TestRegisterList : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void byNameHasNoEmptyLineAheadOfTheFirstRow();
    void byNameKeepsTheSurnameAsStoredWhateverTheSurnameCase();
    void byAgeHeadsEachGroupAndCallsAMissingAgeUnknown();
    void userDefinedSelectionFiltersOnItsFlagAndNamesItInTheTitle();
    void byCountyGroupsOnTheFourthAddressLine();
    void currentTournamentSelectionPrintsNoTitle();
    void reportIsLandscape();

private:
    std::unique_ptr<cTestSession> session_;
};

namespace {

struct cPerson
{
    QString surname, forename, address1, address2, address3, address4, postcode, phone, mail, dob,
        club, clubCode, clubName, school, special1;
};

// The register of the golden files; written out by hand from the list's layout.
const QList<cPerson> &People()
{
    static const QList<cPerson> people{
#include "register_people.inc"
    };
    return people;
}

void CreateRegister()
{
    for (const cPerson &person : People()) {
        cMaster master;
        master.setSurname(person.surname);
        master.setForename(person.forename);
        master.setAddress1(person.address1);
        master.setAddress2(person.address2);
        master.setAddress3(person.address3);
        master.setAddress4(person.address4);
        master.setPostcode(person.postcode);
        master.setPhone(person.phone);
        master.seteMail(person.mail);
        master.setDOB(person.dob);
        master.setClub(person.club);
        master.setClubCode(person.clubCode);
        master.setClubName(person.clubName);
        master.setSchool(person.school);
        master.setSpecial1(person.special1);
        master.Create();
    }
}

QStringList TextsOf(const QStringList &composed)
{
    QStringList texts;
    for (const QString &line : composed)
        texts.append(line.section(u'|', 3));
    return texts;
}

} // namespace

void TestRegisterList::init()
{
    session_ = std::make_unique<cTestSession>();
    Control().setAgeDate(u"01/01/2025"_s);
    Control().setMaxDisplayAge(u"20"_s);
    Control().setUserDefined1(u"Junior Squad"_s);
    Control().setUserDefined2(u"Newsletter"_s);
    Control().setSurnameCase(0);
    CreateRegister();
}

void TestRegisterList::cleanup()
{
    session_.reset();
}

void TestRegisterList::byNameHasNoEmptyLineAheadOfTheFirstRow()
{
    Control().ListPlayers(mPrintCntrl::Destination::Preview, cPrintOptions{});
    VERIFY_GOLDEN(u"register_by_name.txt"_s);
    QVERIFY(ComposedLines().at(3).startsWith(u"1|8|0|Adams, John"_s));
}

void TestRegisterList::byNameKeepsTheSurnameAsStoredWhateverTheSurnameCase()
{
    Control().setSurnameCase(1);
    Control().ListPlayers(mPrintCntrl::Destination::Preview, cPrintOptions{});
    VERIFY_GOLDEN(u"register_by_name.txt"_s);
}

void TestRegisterList::byAgeHeadsEachGroupAndCallsAMissingAgeUnknown()
{
    cPrintOptions options;
    options.Sequence = PlayerSequence::Age;
    Control().ListPlayers(mPrintCntrl::Destination::Preview, options);
    VERIFY_GOLDEN(u"register_by_age.txt"_s);
}

void TestRegisterList::userDefinedSelectionFiltersOnItsFlagAndNamesItInTheTitle()
{
    cPrintOptions options;
    options.Selection = PlayerSelection::User1;
    Control().ListPlayers(mPrintCntrl::Destination::Preview, options);
    VERIFY_GOLDEN(u"register_user1.txt"_s);

    // The flag of the second purpose is set on nobody: the list has no rows.
    options.Selection = PlayerSelection::User2;
    Control().ListPlayers(mPrintCntrl::Destination::Preview, options);
    const QStringList texts = TextsOf(ComposedLines());
    QCOMPARE(texts.mid(0, 6), (QStringList{u" "_s, u"Name and Address List"_s, QString(),
                                           u"Newsletter"_s, u" "_s, QString()}));
    QCOMPARE(texts.size(), 6 + 5);
}

void TestRegisterList::byCountyGroupsOnTheFourthAddressLine()
{
    cPrintOptions options;
    options.Sequence = PlayerSequence::County;
    Control().ListPlayers(mPrintCntrl::Destination::Preview, options);
    const QStringList texts = TextsOf(ComposedLines());
    // Ordered by county, then name: the person with no county comes first.
    const QStringList headings{u"Unknown"_s, u"North Yorkshire"_s, u"Shropshire"_s, u"Yorkshire"_s};
    qsizetype from = 0;
    for (const QString &heading : headings) {
        const qsizetype at = texts.indexOf(heading, from);
        QVERIFY2(at > 0, qPrintable(heading));
        QCOMPARE(texts.at(at - 1), QString());
        from = at + 1;
    }
    QVERIFY(texts.at(texts.indexOf(u"Unknown"_s) + 1).startsWith(u"O'Brien, Siobhan"_s));
    QVERIFY(texts.at(texts.indexOf(u"Shropshire"_s) + 1).startsWith(u"Featherstonehaugh-Ru"_s));
    // Yorkshire holds Adams and the six even-numbered York addresses.
    const qsizetype yorkshire = texts.indexOf(u"Yorkshire"_s);
    QVERIFY(texts.at(yorkshire + 1).startsWith(u"Adams, John"_s));
    QVERIFY(texts.at(yorkshire + 7).startsWith(u"Bull, Rhys"_s));
    QCOMPARE(texts.at(yorkshire + 8), QString());
}

void TestRegisterList::currentTournamentSelectionPrintsNoTitle()
{
    cPrintOptions options;
    options.Selection = PlayerSelection::Tournament;
    Control().ListPlayers(mPrintCntrl::Destination::Preview, options);
    const QStringList composed = ComposedLines();
    QCOMPARE(composed.at(0), u"1|8|0| "_s);
    QCOMPARE(composed.at(1), u"1|8|0| "_s);
    // Every person of the register is listed.
    QCOMPARE(composed.size(), ExpectedLines(u"register_by_name.txt"_s).size() - 1);
}

void TestRegisterList::reportIsLandscape()
{
    Control().ListPlayers(mPrintCntrl::Destination::Preview, cPrintOptions{});
    QCOMPARE(mPrintCntrl::Document().Orientation(), PageOrientation::Landscape);
    QCOMPARE(mPrintCntrl::Document().PageCount(), 1);
    // The page stamp stands on the only page.
    bool stamped = false;
    for (const cPageText &text : mPrintCntrl::Document().Page(1).Texts)
        stamped = stamped || text.Text == u"Page 1 of 1"_s;
    QVERIFY(stamped);
}

VELMORA_TEST_MAIN(TestRegisterList)
#include "test_register_list.moc"
