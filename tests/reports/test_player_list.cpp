#include "base/common.h"
#include "reports/print_cntrl.h"
#include "reports/report_options.h"
#include "support/test_environment.h"

#include "report_fixtures.h"
#include "report_golden.h"

#include <QGuiApplication>
#include <QTest>

class TestPlayerList : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void byNameOpensTheFirstLetterWithAnEmptyLine();
    void byClubHeadsEachClubAndCallsNoClubUnknown();
    void byAgePutsEntrantsWithoutAnAgeUnderUnknown();
    void byGradeClubGroupsOnTheCodeButSortsOnTheName();
    void emptySurnameOpensANewLetterGroup();
    void groupHeadingRepeatsAtTheHeadOfTheNextPage();
    void tenthRowOfAGroupIsFollowedByAnEmptyLine();
    void userDefinedSelectionDropsEntrantsWithoutTheFlag();
    void byCountyHasNoGroups();

private:
    std::unique_ptr<cTestSession> session_;
};

namespace {

QStringList BoldTexts()
{
    QStringList texts;
    for (const mPrintCntrl::cRunningLine &line : mPrintCntrl::RunningLines())
        if (line.FontSize == 8 && line.FontStyle == FontStyle::Bold)
            texts.append(line.Text);
    return texts;
}

cPrintOptions BySequence(PlayerSequence sequence)
{
    cPrintOptions options;
    options.Selection = PlayerSelection::Tournament;
    options.Sequence = sequence;
    return options;
}

} // namespace

void TestPlayerList::init()
{
    session_ = std::make_unique<cTestSession>();
    Control().setSurnameCase(0);
    Control().setAgeDate(u"01/01/2025"_s);
    Control().setMaxDisplayAge(u"20"_s);
}

void TestPlayerList::cleanup()
{
    Control().setTournament(nullptr);
    session_.reset();
}

void TestPlayerList::byNameOpensTheFirstLetterWithAnEmptyLine()
{
    Control().setSurnameCase(1);
    OpenCongress(true)->Players().ListPlayers(mPrintCntrl::Destination::Preview,
                                              BySequence(PlayerSequence::Name));
    VERIFY_GOLDEN(u"player_list_by_name.txt"_s);
    QCOMPARE(mPrintCntrl::Document().Orientation(), PageOrientation::Landscape);
}

void TestPlayerList::byClubHeadsEachClubAndCallsNoClubUnknown()
{
    OpenCongress(true)->Players().ListPlayers(mPrintCntrl::Destination::Preview,
                                              BySequence(PlayerSequence::Club));
    VERIFY_GOLDEN(u"player_list_by_club.txt"_s);
}

void TestPlayerList::byAgePutsEntrantsWithoutAnAgeUnderUnknown()
{
    auto tournament = OpenFixture(cFixtureTournament{}, NumberedEntrants(4), {});
    const auto setAge = [](const QString &id, const QString &dob) {
        cPlayers &players = Control().Tournament()->Players();
        players.item(id)->setDOB(dob);
        players.item(id)->setAge(AgeAtDate(Control().AgeDate(), dob));
    };
    setAge(u"1"_s, u"01/06/2013"_s);
    setAge(u"3"_s, u"01/06/2013"_s);
    setAge(u"4"_s, u"01/06/1990"_s);
    tournament->Players().ListPlayers(mPrintCntrl::Destination::Preview,
                                      BySequence(PlayerSequence::Age));
    QCOMPARE(BoldTexts(), (QStringList{QString(), u"Unknown"_s, QString(), u"Age: 11"_s, QString(),
                                       u"Age: 20+"_s}));
    const QStringList texts = Texts();
    QVERIFY(texts.at(texts.indexOf(u"Unknown"_s) + 1).startsWith(u"Player02, Sam"_s));
    QVERIFY(texts.at(texts.indexOf(u"Age: 11"_s) + 1).startsWith(u"Player01, Sam"_s));
    QVERIFY(texts.at(texts.indexOf(u"Age: 11"_s) + 2).startsWith(u"Player03, Sam"_s));
}

void TestPlayerList::byGradeClubGroupsOnTheCodeButSortsOnTheName()
{
    auto tournament = OpenFixture(cFixtureTournament{}, NumberedEntrants(3), {});
    // Two codes under one name sort together by name, then alternate as groups.
    const QList<std::pair<QString, QString>> clubs{
        {u"BAT1"_s, u"Bath"_s}, {u"BAT2"_s, u"Bath"_s}, {u"BAT1"_s, u"Bath"_s}};
    for (int index = 0; index < 3; ++index) {
        const auto player = tournament->Players().item(QString::number(index + 1));
        player->setClubCode(clubs.at(index).first);
        player->setClubName(clubs.at(index).second);
    }
    tournament->Players().ListPlayers(mPrintCntrl::Destination::Preview,
                                      BySequence(PlayerSequence::GradeCode));
    QCOMPARE(BoldTexts(), (QStringList{QString(), u"BAT1 Bath"_s, QString(), u"BAT2 Bath"_s,
                                       QString(), u"BAT1 Bath"_s}));
}

void TestPlayerList::emptySurnameOpensANewLetterGroup()
{
    auto tournament = OpenFixture(cFixtureTournament{}, NumberedEntrants(3), {});
    tournament->Players().item(u"2"_s)->setSurname(QString());
    tournament->Players().item(u"2"_s)->setForename(u"Zed"_s);
    tournament->Players().ListPlayers(mPrintCntrl::Destination::Preview,
                                      BySequence(PlayerSequence::Name));
    const QStringList texts = Texts();
    // The entrant with no surname sorts by the forename, after the P's, and its
    // initial "" differs from "P": a new group.
    const qsizetype first = texts.indexOf(u"Zed"_s.leftJustified(129));
    QVERIFY(first > 3);
    QCOMPARE(texts.at(first - 1), QString());
    QVERIFY(texts.at(first - 2).startsWith(u"Player03, Sam"_s));
    QVERIFY(texts.at(first - 3).startsWith(u"Player01, Sam"_s));
    QCOMPARE(texts.at(first - 4), QString());
}

void TestPlayerList::groupHeadingRepeatsAtTheHeadOfTheNextPage()
{
    OpenFixture(cFixtureTournament{}, NumberedEntrants(70), {});
    Control().Tournament()->Players().ListPlayers(mPrintCntrl::Destination::Preview,
                                                  BySequence(PlayerSequence::Club));
    QVector<mPrintCntrl::cRunningLine> second;
    for (const mPrintCntrl::cRunningLine &line : mPrintCntrl::RunningLines())
        if (line.Page == 2)
            second.append(line);
    QVERIFY(second.size() > 3);
    QCOMPARE(second.at(0).Text, QString());
    QCOMPARE(second.at(0).FontStyle, FontStyle::Bold);
    QCOMPARE(second.at(0).Y, mPrintCntrl::PrintTop());
    QCOMPARE(second.at(1).Text, u"Club"_s);
    QCOMPARE(second.at(1).FontStyle, FontStyle::Bold);
    QCOMPARE(second.at(2).FontStyle, FontStyle::Normal);
}

void TestPlayerList::tenthRowOfAGroupIsFollowedByAnEmptyLine()
{
    OpenFixture(cFixtureTournament{}, NumberedEntrants(25), {});
    Control().Tournament()->Players().ListPlayers(mPrintCntrl::Destination::Preview,
                                                  BySequence(PlayerSequence::Club));
    const QStringList texts = Texts();
    const qsizetype heading = texts.indexOf(u"Club"_s);
    QVERIFY(heading > 0);
    QVERIFY(texts.at(heading + 10).startsWith(u"Player10"_s));
    QCOMPARE(texts.at(heading + 11), QString());
    QVERIFY(texts.at(heading + 12).startsWith(u"Player11"_s));
    QVERIFY(texts.at(heading + 21).startsWith(u"Player20"_s));
    QCOMPARE(texts.at(heading + 22), QString());
    QVERIFY(texts.at(heading + 23).startsWith(u"Player21"_s));
}

void TestPlayerList::userDefinedSelectionDropsEntrantsWithoutTheFlag()
{
    OpenCongress(true);
    cPrintOptions options = BySequence(PlayerSequence::Name);
    options.Selection = PlayerSelection::User1;
    Control().Tournament()->Players().ListPlayers(mPrintCntrl::Destination::Preview, options);
    QStringList rows;
    for (const QString &text : Texts())
        if (text.size() >= 129)
            rows.append(text.left(30).trimmed());
    QCOMPARE(rows, (QStringList{u"Ashworth, Daniel"_s, u"Dempsey, Ruth"_s}));
}

void TestPlayerList::byCountyHasNoGroups()
{
    OpenCongress(true)->Players().ListPlayers(mPrintCntrl::Destination::Preview,
                                              BySequence(PlayerSequence::County));
    QVERIFY(BoldTexts().isEmpty());
    const QStringList texts = Texts();
    const qsizetype first = texts.indexOf(u""_s, 3) + 1;
    QVERIFY(texts.at(first).startsWith(u"Ashworth, Daniel"_s));
    // By name, with no empty line between letters.
    QVERIFY(texts.at(first + 1).startsWith(u"Brennan, Siobhan"_s));
}

VELMORA_TEST_MAIN(TestPlayerList)
#include "test_player_list.moc"
