#include "conduct/auto_pair.h"
#include "conduct/conduct_fixture.h"
#include "support/scripted_interaction.h"
#include "support/test_environment.h"

#include <QGuiApplication>
#include <QTest>

using namespace conduct_fixture;
using namespace mFIDEPairings;

class TestAutoPair : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void oneEntrantOrNoneEndsAtOnce();
    void roundOneWithFiveEntrantsSplitsTwice();
    void evenFieldIsSplitOnce();
    void differentScoresEndTheStageAtOnce();
    void alternateColoursStartsWithMinusOne();
    void roundOneGivesTheSortedFieldAlternateColours();
    void roundTwoRecalculatesTheRoundBeforeAndFormsNoPairs();

private:
    std::unique_ptr<cTestSession> session_;
    std::unique_ptr<cScriptedInteraction> interaction_;
};

namespace {

cPlayerArray Field(int entrants)
{
    for (int index = 1; index <= entrants; ++index)
        Graded(QStringLiteral("P") + QString::number(index), QString::number(100 + 10 * index));
    cPlayerArray playerArray(Control().Tournament()->Players().begin(),
                             Control().Tournament()->Players().end());
    return playerArray;
}

} // namespace

void TestAutoPair::init()
{
    session_ = std::make_unique<cTestSession>();
    interaction_ = std::make_unique<cScriptedInteraction>();
    OpenTournament();
}

void TestAutoPair::cleanup()
{
    Control().setTournament(nullptr);
    interaction_.reset();
    session_.reset();
}

void TestAutoPair::oneEntrantOrNoneEndsAtOnce()
{
    QVERIFY(SplitScoreGroups(cPlayerArray()).empty());
    QVERIFY(SplitScoreGroups(Field(1)).empty());
    AutoPairRound(1);
    QCOMPARE(Control().Tournament()->Results().Count(), 0);
}

void TestAutoPair::roundOneWithFiveEntrantsSplitsTwice()
{
    const cPlayerArray field = Field(5);
    const std::vector<cScoreGroupSplit> splits = SplitScoreGroups(field);
    QCOMPARE(splits.size(), size_t(2));
    QCOMPARE(splits[0].groupStart, 1);
    QCOMPARE(splits[0].groupEnd, 5);
    QCOMPARE(splits[0].upperSize, 3);
    QCOMPARE(splits[0].lowerSize, 2);
    // Positions 1-2 above, 3-4 below; the fifth is in neither half.
    QCOMPARE(Surnames(splits[0].upperHalf), Texts({"P1", "P2"}));
    QCOMPARE(Surnames(splits[0].lowerHalf), Texts({"P3", "P4"}));
    QCOMPARE(splits[1].groupStart, 4);
    QCOMPARE(splits[1].groupEnd, 5);
    QCOMPARE(splits[1].upperSize, 1);
    QCOMPARE(splits[1].lowerSize, 1);
    QCOMPARE(Surnames(splits[1].upperHalf), Texts({"P4"}));
    QCOMPARE(Surnames(splits[1].lowerHalf), Texts({"P5"}));
}

void TestAutoPair::evenFieldIsSplitOnce()
{
    cPlayerArray field = Field(4);
    AlternateColours(field);
    const std::vector<cScoreGroupSplit> splits = SplitScoreGroups(field);
    QCOMPARE(splits.size(), size_t(1));
    QCOMPARE(splits[0].upperSize, 2);
    QCOMPARE(splits[0].lowerSize, 2);
    QCOMPARE(splits[0].minusOneCount, 2);
    QCOMPARE(splits[0].otherCount, 2);
}

void TestAutoPair::differentScoresEndTheStageAtOnce()
{
    cPlayerArray field = Field(4);
    field[3]->setScore(QStringLiteral("1"));
    QVERIFY(SplitScoreGroups(field).empty());
    // Scores compare as text: "1" and "1.0" differ.
    for (const auto &player : field)
        player->setScore(QStringLiteral("1"));
    field[2]->setScore(QStringLiteral("1.0"));
    QVERIFY(SplitScoreGroups(field).empty());
}

void TestAutoPair::alternateColoursStartsWithMinusOne()
{
    cPlayerArray field = Field(5);
    AlternateColours(field);
    QList<qint16> colours;
    for (const auto &player : field)
        colours.append(player->ColourPreference());
    QCOMPARE(colours, QList<qint16>({-1, 1, -1, 1, -1}));
}

void TestAutoPair::roundOneGivesTheSortedFieldAlternateColours()
{
    // Grades 110 to 150 in order of entry; order 5 puts the highest first.
    Field(5);
    AutoPairRound(1);
    cPlayers &players = Control().Tournament()->Players();
    QCOMPARE(players.item(QStringLiteral("5"))->ColourPreference(), qint16(-1));
    QCOMPARE(players.item(QStringLiteral("4"))->ColourPreference(), qint16(1));
    QCOMPARE(players.item(QStringLiteral("3"))->ColourPreference(), qint16(-1));
    QCOMPARE(players.item(QStringLiteral("2"))->ColourPreference(), qint16(1));
    QCOMPARE(players.item(QStringLiteral("1"))->ColourPreference(), qint16(-1));
    QCOMPARE(Control().Tournament()->Results().Count(), 0);
    QCOMPARE(interaction_->Count(QStringLiteral("message")), 0);
    QCOMPARE(interaction_->Count(QStringLiteral("long")), 0);
}

void TestAutoPair::roundTwoRecalculatesTheRoundBeforeAndFormsNoPairs()
{
    Field(4);
    cPlayers &players = Control().Tournament()->Players();
    Game(1, players.item(1), players.item(2), QStringLiteral("W"));
    Game(1, players.item(3), players.item(4), QStringLiteral("D"));
    Game(2, players.item(2), players.item(1), QStringLiteral("W"));
    AutoPairRound(2);
    // The figures are those before round 2, and stored.
    QCOMPARE(players.item(1)->Score(), QStringLiteral("1"));
    QCOMPARE(players.item(3)->Score(), QStringLiteral("0.5"));
    QCOMPARE(SqlScalar(QStringLiteral("Select Score From Player Where PId = 1")).toDouble(), 1.0);
    // Colours are left as the recalculation made them, not alternated.
    QCOMPARE(players.item(1)->ColourPreference(), qint16(1));
    QCOMPARE(players.item(2)->ColourPreference(), qint16(-1));
    QCOMPARE(Control().Tournament()->Results().Count(), 3);
}

VELMORA_TEST_MAIN(TestAutoPair)
#include "test_auto_pair.moc"
