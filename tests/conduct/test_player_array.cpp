#include "base/fatal_fault.h"
#include "conduct/conduct_fixture.h"
#include "conduct/player_array.h"
#include "support/scripted_interaction.h"
#include "support/test_environment.h"

#include <QGuiApplication>
#include <QTest>

#include <algorithm>

using namespace conduct_fixture;

class TestPlayerArray : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void loadFillsTheArrayInCollectionOrder();
    void indexMapsEveryIdToItsPositionAndLeavesUnusedIdsAtZero();
    void eachOrderOnAFieldWithTies_data();
    void eachOrderOnAFieldWithTies();
    void playerIdOrderPutsAReversedArrayRight();
    void oneEntrantOrNoneIsLeftAsItIs();
    void orderSixWithAllTieBreaksZeroFallsToNames();
    void orderFourPutsEmptyPinsFirst();
    void orderSevenCountsAgesAboveTheShownMaximumAsThatMaximum();
    void orderFiveRanksAnUntitledPlayerAboveAGrandmaster();
    void orderFiveHasNoNameKey();
    void titleRanksFollowTheirPlaceInTheRankText();
    void unknownOrderLeavesTheArrayButStillShowsProgress();
    void sortShowsItsProgressWindow();
    void sortReadsTheGradeAsStoredWhenItStarts();
    void swapPlayersExchangesTwoReferences();

private:
    std::unique_ptr<cTestSession> session_;
    std::unique_ptr<cScriptedInteraction> interaction_;
};

namespace {

void Details(cPlayer &player, const QString &grade, const QString &score, const QString &tieBreak,
             const QString &age, const QString &clubName, const QString &club,
             const QString &school, const QString &pin, const QString &title)
{
    player.setLongPlay(grade);
    player.setLongPlayLett(grade.isEmpty() ? QString() : QStringLiteral("A"));
    player.setScore(score);
    player.setTieBreak(tieBreak);
    player.setDOB(QStringLiteral("01/01/2000"));
    player.setAge(age);
    if (!clubName.isEmpty())
        player.setClubCode(QStringLiteral("C"));
    player.setClubName(clubName);
    player.setClub(club);
    player.setSchool(school);
    player.setPin(pin);
    player.setGMTitle(title);
}

// Five entrants, PlayerIds 1 to 5 in collection order, with ties on every order:
//
//  id  name        grade  score tb  age club name club  school pin title
//  1   Smith, Jo   150 A  2     5   12  Hull      Hull  Oak    3
//  2   Brown, Al   160 B  3     4   25  York      York         -   GM
//  3   Smith, Jo   150 A  2     5   12  Hull      hull  Oak    3   FM
//  4   smith, al   (100)  2     6   20            York  Ash    1
//  5   Adams, Zoe  150 A  3     4   21  York      Hull  Oak    -
void EnterFieldWithTies()
{
    Enter(QStringLiteral("Smith"), QStringLiteral("Jo"), [](cPlayer &p) {
        Details(p, QStringLiteral("150"), QStringLiteral("2"), QStringLiteral("5"),
                QStringLiteral("12"), QStringLiteral("Hull"), QStringLiteral("Hull"),
                QStringLiteral("Oak"), QStringLiteral("3"), QString());
    });
    Enter(QStringLiteral("Brown"), QStringLiteral("Al"), [](cPlayer &p) {
        Details(p, QStringLiteral("160"), QStringLiteral("3"), QStringLiteral("4"),
                QStringLiteral("25"), QStringLiteral("York"), QStringLiteral("York"), QString(),
                QString(), QStringLiteral("GM"));
        p.setLongPlayLett(QStringLiteral("B"));
    });
    Enter(QStringLiteral("Smith"), QStringLiteral("Jo"), [](cPlayer &p) {
        Details(p, QStringLiteral("150"), QStringLiteral("2"), QStringLiteral("5"),
                QStringLiteral("12"), QStringLiteral("Hull"), QStringLiteral("hull"),
                QStringLiteral("Oak"), QStringLiteral("3"), QStringLiteral("FM"));
    });
    Enter(QStringLiteral("smith"), QStringLiteral("al"), [](cPlayer &p) {
        Details(p, QString(), QStringLiteral("2"), QStringLiteral("6"), QStringLiteral("20"),
                QString(), QStringLiteral("York"), QStringLiteral("Ash"), QStringLiteral("1"),
                QString());
    });
    Enter(QStringLiteral("Adams"), QStringLiteral("Zoe"), [](cPlayer &p) {
        Details(p, QStringLiteral("150"), QStringLiteral("3"), QStringLiteral("4"),
                QStringLiteral("21"), QStringLiteral("York"), QStringLiteral("Hull"),
                QStringLiteral("Oak"), QString(), QString());
    });
}

cPlayerArray SortedField(qint16 order)
{
    cPlayerArray playerArray;
    mPlayerArray::LoadPlayerArray(Control().Tournament()->Players(), playerArray);
    mPlayerArray::SortPlayerArray(order, playerArray);
    return playerArray;
}

} // namespace

void TestPlayerArray::init()
{
    session_ = std::make_unique<cTestSession>();
    interaction_ = std::make_unique<cScriptedInteraction>();
    Control().setMaxDisplayAge(QStringLiteral("20"));
    OpenTournament();
}

void TestPlayerArray::cleanup()
{
    Control().setTournament(nullptr);
    interaction_.reset();
    session_.reset();
}

void TestPlayerArray::loadFillsTheArrayInCollectionOrder()
{
    Graded(QStringLiteral("Cole"), QStringLiteral("120"), QStringLiteral("2"));
    Graded(QStringLiteral("Able"), QStringLiteral("130"), QStringLiteral("1"));
    cPlayerArray playerArray{nullptr, nullptr, nullptr, nullptr};
    mPlayerArray::LoadPlayerArray(Control().Tournament()->Players(), playerArray);
    QCOMPARE(Surnames(playerArray), Texts({"Cole", "Able"}));
}

void TestPlayerArray::indexMapsEveryIdToItsPositionAndLeavesUnusedIdsAtZero()
{
    cPlayers &players = Control().Tournament()->Players();
    Graded(QStringLiteral("One"), QStringLiteral("120"));
    Graded(QStringLiteral("Two"), QStringLiteral("130"));
    Graded(QStringLiteral("Three"), QStringLiteral("140"));
    Graded(QStringLiteral("Four"), QStringLiteral("150"));
    players.Remove(QStringLiteral("2"));
    cPlayerArray playerArray;
    mPlayerArray::LoadPlayerArray(players, playerArray);
    mPlayerArray::SortPlayerArray(1, playerArray);
    cIdMap idMap;
    mPlayerArray::IndexPlayerArray(players, playerArray, idMap);
    // Slots 1 to the next free id, which is 5.
    QCOMPARE(idMap.size(), size_t(6));
    QCOMPARE(idMap[4], 1); // Four, 150
    QCOMPARE(idMap[3], 2); // Three, 140
    QCOMPARE(idMap[1], 3); // One, 120
    QCOMPARE(idMap[2], 0); // removed
    QCOMPARE(idMap[5], 0); // not yet given out
}

void TestPlayerArray::eachOrderOnAFieldWithTies_data()
{
    QTest::addColumn<int>("order");
    QTest::addColumn<QStringList>("ids");
    // Each worked by hand through the exchange sort from the collection order 1..5.
    // Where two entrants are equal on every key, the sort can leave them in the
    // reverse of the order they came in (1 and 3 below): that is the sort's own
    // outcome and is kept.
    QTest::newRow("1 grade, letter, name") << 1 << Texts({"2", "5", "3", "1", "4"});
    QTest::newRow("2 name") << 2 << Texts({"5", "2", "3", "1", "4"});
    QTest::newRow("3 player id") << 3 << Texts({"1", "2", "3", "4", "5"});
    QTest::newRow("4 pin") << 4 << Texts({"2", "5", "4", "1", "3"});
    QTest::newRow("5 score, grade, letter, title") << 5 << Texts({"2", "5", "1", "3", "4"});
    QTest::newRow("6 score, tie-break, name") << 6 << Texts({"5", "2", "4", "1", "3"});
    QTest::newRow("7 age, name") << 7 << Texts({"1", "3", "5", "2", "4"});
    QTest::newRow("8 club name, name") << 8 << Texts({"4", "3", "1", "5", "2"});
    QTest::newRow("9 club, name") << 9 << Texts({"5", "1", "2", "4", "3"});
    QTest::newRow("10 school, name") << 10 << Texts({"2", "4", "5", "1", "3"});
}

void TestPlayerArray::eachOrderOnAFieldWithTies()
{
    QFETCH(int, order);
    QFETCH(QStringList, ids);
    EnterFieldWithTies();
    QCOMPARE(PlayerIds(SortedField(qint16(order))), ids);
}

void TestPlayerArray::playerIdOrderPutsAReversedArrayRight()
{
    EnterFieldWithTies();
    cPlayerArray playerArray;
    mPlayerArray::LoadPlayerArray(Control().Tournament()->Players(), playerArray);
    std::reverse(playerArray.begin(), playerArray.end());
    mPlayerArray::SortPlayerArray(3, playerArray);
    QCOMPARE(PlayerIds(playerArray), Texts({"1", "2", "3", "4", "5"}));
}

void TestPlayerArray::oneEntrantOrNoneIsLeftAsItIs()
{
    cPlayerArray none;
    mPlayerArray::SortPlayerArray(1, none);
    QVERIFY(none.empty());
    QCOMPARE(interaction_->Count(QStringLiteral("progress-update")), 0);

    Graded(QStringLiteral("Only"), QStringLiteral("120"));
    interaction_->Clear();
    const cPlayerArray one = SortedField(2);
    QCOMPARE(Surnames(one), Texts({"Only"}));
    QCOMPARE(interaction_->CallsStartingWith(QStringLiteral("progress-update")),
             Texts({"progress-update|1"}));
}

void TestPlayerArray::orderSixWithAllTieBreaksZeroFallsToNames()
{
    for (const char *surname : {"Moss", "Bell", "Hart"})
        Enter(QString::fromLatin1(surname), QStringLiteral("A"), [](cPlayer &player) {
            player.setScore(QStringLiteral("1.5"));
            player.setTieBreak(QStringLiteral("0"));
        });
    QCOMPARE(Surnames(SortedField(6)), Texts({"Bell", "Hart", "Moss"}));
}

void TestPlayerArray::orderFourPutsEmptyPinsFirst()
{
    Graded(QStringLiteral("Two"), QStringLiteral("120"), QStringLiteral("2"));
    Graded(QStringLiteral("None"), QStringLiteral("120"));
    Graded(QStringLiteral("One"), QStringLiteral("120"), QStringLiteral("1"));
    QCOMPARE(Surnames(SortedField(4)), Texts({"None", "One", "Two"}));
}

void TestPlayerArray::orderSevenCountsAgesAboveTheShownMaximumAsThatMaximum()
{
    const auto aged = [](const QString &age) {
        return [age](cPlayer &player) {
            if (age.isEmpty())
                return;
            player.setDOB(QStringLiteral("01/01/2000"));
            player.setAge(age);
        };
    };
    Enter(QStringLiteral("Old"), QStringLiteral("Zed"), aged(QStringLiteral("45")));
    Enter(QStringLiteral("Twenty"), QString(), aged(QStringLiteral("20")));
    Enter(QStringLiteral("Old"), QStringLiteral("Amy"), aged(QStringLiteral("30")));
    Enter(QStringLiteral("Young"), QString(), aged(QStringLiteral("19")));
    Enter(QStringLiteral("Unknown"), QString(), aged(QString()));
    // 45 and 30 show as "20+" and sort as 20, by name among the three of that age; an
    // entrant without an age counts as 0.
    QCOMPARE(Surnames(SortedField(7)), Texts({"Unknown", "Young", "Old", "Old", "Twenty"}));
    const cPlayerArray sorted = SortedField(7);
    QCOMPARE(sorted[2]->Forename(), QStringLiteral("Amy"));
    QCOMPARE(sorted[3]->Forename(), QStringLiteral("Zed"));
}

void TestPlayerArray::orderFiveRanksAnUntitledPlayerAboveAGrandmaster()
{
    Enter(QStringLiteral("Master"), QString(), [](cPlayer &player) {
        player.setLongPlay(QStringLiteral("200"));
        player.setLongPlayLett(QStringLiteral("A"));
        player.setScore(QStringLiteral("2"));
        player.setGMTitle(QStringLiteral("GM"));
    });
    Enter(QStringLiteral("Plain"), QString(), [](cPlayer &player) {
        player.setLongPlay(QStringLiteral("200"));
        player.setLongPlayLett(QStringLiteral("A"));
        player.setScore(QStringLiteral("2"));
    });
    QCOMPARE(Surnames(SortedField(5)), Texts({"Plain", "Master"}));
}

void TestPlayerArray::orderFiveHasNoNameKey()
{
    for (const char *surname : {"Zeta", "Alpha"})
        Enter(QString::fromLatin1(surname), QString(), [](cPlayer &player) {
            player.setLongPlay(QStringLiteral("150"));
            player.setScore(QStringLiteral("1"));
        });
    QCOMPARE(Surnames(SortedField(5)), Texts({"Zeta", "Alpha"}));
}

void TestPlayerArray::titleRanksFollowTheirPlaceInTheRankText()
{
    QCOMPARE(mPlayerArray::TitleRank(QStringLiteral("GM")), 2);
    QCOMPARE(mPlayerArray::TitleRank(QStringLiteral("WGM")), 6);
    QCOMPARE(mPlayerArray::TitleRank(QStringLiteral("IM")), 10);
    QCOMPARE(mPlayerArray::TitleRank(QStringLiteral("WIM")), 14);
    QCOMPARE(mPlayerArray::TitleRank(QStringLiteral("FM")), 18);
    QCOMPARE(mPlayerArray::TitleRank(QStringLiteral("WFM")), 22);
    QCOMPARE(mPlayerArray::TitleRank(QString()), 26);
    QCOMPARE(mPlayerArray::TitleRank(QStringLiteral("CM")), 0);
    // The search is case-sensitive.
    QCOMPARE(mPlayerArray::TitleRank(QStringLiteral("gm")), 0);

    // A title of three letters fits only in memory; there it takes its place among
    // the others: WFM before FM, and a title outside the text last of all.
    const QStringList titles = Texts({"GM", "CM", "WFM", "FM", ""});
    for (const QString &title : titles)
        Enter(title.isEmpty() ? QStringLiteral("None") : title, QString(),
              [](cPlayer &player) { player.setScore(QStringLiteral("1")); });
    for (const auto &player : Control().Tournament()->Players())
        if (player->Surname() != QStringLiteral("None"))
            player->setGMTitle(player->Surname());
    QCOMPARE(Surnames(SortedField(5)), Texts({"None", "WFM", "FM", "GM", "CM"}));
}

void TestPlayerArray::unknownOrderLeavesTheArrayButStillShowsProgress()
{
    EnterFieldWithTies();
    for (const qint16 order : {qint16(0), qint16(11)}) {
        interaction_->Clear();
        cPlayerArray playerArray;
        mPlayerArray::LoadPlayerArray(Control().Tournament()->Players(), playerArray);
        std::reverse(playerArray.begin(), playerArray.end());
        mPlayerArray::SortPlayerArray(order, playerArray);
        QCOMPARE(PlayerIds(playerArray), Texts({"5", "4", "3", "2", "1"}));
        QCOMPARE(interaction_->Count(QStringLiteral("progress-start")), 1);
        QCOMPARE(interaction_->Count(QStringLiteral("progress-end")), 1);
    }
}

void TestPlayerArray::sortShowsItsProgressWindow()
{
    EnterFieldWithTies();
    interaction_->Clear();
    SortedField(2);
    QCOMPARE(interaction_->CallsStartingWith(QStringLiteral("progress")),
             Texts({"progress-start|Sorting players for:\nCongress\nOpen|5", "progress-update|1",
                    "progress-update|2", "progress-update|3", "progress-update|4",
                    "progress-update|5", "progress-end"}));
}

void TestPlayerArray::sortReadsTheGradeAsStoredWhenItStarts()
{
    Graded(QStringLiteral("Low"), QStringLiteral("120"));
    Enter(QStringLiteral("Ungraded"), QString());
    // The ungraded entrant plays with the default grade as the file holds it.
    QCOMPARE(Surnames(SortedField(1)), Texts({"Low", "Ungraded"}));
    RunSql(QStringLiteral("Update Velmora Set DefGrade = 130 Where TId = ?"),
           {Control().Tournament()->TournId().toLongLong()});
    QCOMPARE(Surnames(SortedField(1)), Texts({"Ungraded", "Low"}));
}

void TestPlayerArray::swapPlayersExchangesTwoReferences()
{
    auto first = Graded(QStringLiteral("First"), QStringLiteral("120"));
    auto second = Graded(QStringLiteral("Second"), QStringLiteral("130"));
    std::shared_ptr<cPlayer> a = first;
    std::shared_ptr<cPlayer> b = second;
    mPlayerArray::SwapPlayers(a, b);
    QCOMPARE(a, second);
    QCOMPARE(b, first);
}

VELMORA_TEST_MAIN(TestPlayerArray)
#include "test_player_array.moc"
