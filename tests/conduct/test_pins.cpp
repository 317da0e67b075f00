#include "conduct/conduct_fixture.h"
#include "conduct/pins.h"
#include "support/scripted_interaction.h"
#include "support/test_environment.h"

#include <QGuiApplication>
#include <QSqlQuery>
#include <QTest>

#include <algorithm>

using namespace conduct_fixture;

class TestPins : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void noEntrantsAllocateNothingAndValidateClean();
    void pinsByGradeFollowGradeLetterAndName();
    void pinsByNameFollowTheName();
    void pinsByOrderFollowTheOrderOfEntry();
    void withdrawnEntrantsGetPinsLikeAnyOther();
    void pinsByRandomAreAlwaysAPermutation();
    void randomSlotsProbeOnAndWrapPastTheEnd();
    void pinsClearEmptiesAndStoresEveryPin();
    void validPinComparesTheTrimmedTextExactly();
    void oneMissingPinIsReportedAlone();
    void aRunOfMissingPinsIsReportedAsARange();
    void gapsBeforeTheFirstPinAreReported();
    void sharedPinIsFollowedByTheBackwardsGapLine();
    void withdrawnEntrantWithoutAPinIsNotReported();
    void twoWithoutPinsAndPinOneGiveTwoLinesAndNoGap();
    void nothingComparesTheHighestPinWithTheEntrants();

private:
    std::unique_ptr<cTestSession> session_;
    std::unique_ptr<cScriptedInteraction> interaction_;
};

namespace {

cPlayers &Players()
{
    return Control().Tournament()->Players();
}

QStringList PinsInCollectionOrder()
{
    QStringList pins;
    for (const auto &player : Players())
        pins.append(player->Pin());
    return pins;
}

QStringList StoredPins()
{
    QSqlQuery rows = RunSql(QStringLiteral("Select Pin From Player Where TId = ? Order By PId"),
                            {Control().Tournament()->TournId().toLongLong()});
    QStringList pins;
    while (rows.next())
        pins.append(NumberTextOf(rows.value(0)));
    return pins;
}

std::shared_ptr<cPlayer> WithPin(const QString &surname, const QString &pin, bool withdrawn = false)
{
    return Enter(surname, QStringLiteral("Kim"), [&](cPlayer &player) {
        player.setPin(pin);
        player.setWithdrawn(withdrawn);
    });
}

const QString CrLf = QStringLiteral("\r\n");

} // namespace

void TestPins::init()
{
    session_ = std::make_unique<cTestSession>();
    interaction_ = std::make_unique<cScriptedInteraction>();
    OpenTournament();
}

void TestPins::cleanup()
{
    Control().setTournament(nullptr);
    interaction_.reset();
    session_.reset();
}

void TestPins::noEntrantsAllocateNothingAndValidateClean()
{
    Players().PinsByGrade();
    Players().PinsByName();
    Players().PinsByOrder();
    Players().PinsByRandom();
    Players().PinsClear();
    QCOMPARE(Players().Count(), 0);
    QCOMPARE(Players().PinsValidate(), QString());
}

void TestPins::pinsByGradeFollowGradeLetterAndName()
{
    Graded(QStringLiteral("Low"), QStringLiteral("110"));
    Graded(QStringLiteral("Top"), QStringLiteral("190"));
    Enter(QStringLiteral("Mid"), QStringLiteral("B"), [](cPlayer &player) {
        player.setLongPlay(QStringLiteral("150"));
        player.setLongPlayLett(QStringLiteral("B"));
    });
    Graded(QStringLiteral("Mid"), QStringLiteral("150"));
    Players().PinsByGrade();
    QCOMPARE(PinsInCollectionOrder(), Texts({"4", "1", "3", "2"}));
    QCOMPARE(StoredPins(), Texts({"4", "1", "3", "2"}));
}

void TestPins::pinsByNameFollowTheName()
{
    WithPin(QStringLiteral("Young"), QString());
    WithPin(QStringLiteral("Adams"), QString());
    WithPin(QStringLiteral("Moore"), QString());
    Players().PinsByName();
    QCOMPARE(StoredPins(), Texts({"3", "1", "2"}));
}

void TestPins::pinsByOrderFollowTheOrderOfEntry()
{
    // The collection reads in pin order, so its order is not the order of entry.
    WithPin(QStringLiteral("First"), QStringLiteral("9"));
    WithPin(QStringLiteral("Second"), QStringLiteral("2"));
    WithPin(QStringLiteral("Third"), QStringLiteral("5"));
    Control().Tournament()->setPlayers(nullptr);
    Players().LoadAllPlayers();
    Players().PinsByOrder();
    QCOMPARE(StoredPins(), Texts({"1", "2", "3"}));
}

void TestPins::withdrawnEntrantsGetPinsLikeAnyOther()
{
    WithPin(QStringLiteral("Active"), QString());
    WithPin(QStringLiteral("Gone"), QString(), true);
    Players().PinsByOrder();
    QCOMPARE(PinsInCollectionOrder(), Texts({"1", "2"}));
}

void TestPins::pinsByRandomAreAlwaysAPermutation()
{
    for (int index = 1; index <= 25; ++index)
        WithPin(QStringLiteral("P") + QString::number(index), QString());
    QStringList expected;
    for (int pin = 1; pin <= 25; ++pin)
        expected.append(QString::number(pin));
    for (int run = 0; run < 40; ++run) {
        Players().PinsByRandom();
        QStringList pins = StoredPins();
        QCOMPARE(pins.size(), 25);
        QCOMPARE(pins, PinsInCollectionOrder());
        std::sort(pins.begin(), pins.end(),
                  [](const QString &a, const QString &b) { return a.toInt() < b.toInt(); });
        QCOMPARE(pins, expected);
    }
    // Probing keeps a permutation whatever the draws are.
    for (const double value : {0.0, 0.5, 0.999999}) {
        std::vector<qint32> drawn = RandomPinSlots(7, [value] { return value; });
        std::sort(drawn.begin(), drawn.end());
        QCOMPARE(drawn, std::vector<qint32>({1, 2, 3, 4, 5, 6, 7}));
    }
}

void TestPins::randomSlotsProbeOnAndWrapPastTheEnd()
{
    // Every draw lands on slot 3 of 3: 1 takes it, 2 wraps to slot 1, 3 probes to 2.
    QCOMPARE(RandomPinSlots(3, [] { return 0.99; }), std::vector<qint32>({2, 3, 1}));
    // Every draw lands on slot 1: each pin probes on to the next free slot.
    QCOMPARE(RandomPinSlots(4, [] { return 0.0; }), std::vector<qint32>({1, 2, 3, 4}));
    std::vector<double> draws{0.5, 0.5, 0.0, 0.9};
    size_t next = 0;
    // 4 slots: 1 to slot 3, 2 to slot 4, 3 to slot 1, 4 draws slot 4 and wraps to 2.
    QCOMPARE(RandomPinSlots(4, [&] { return draws[next++]; }), std::vector<qint32>({3, 4, 1, 2}));
    QVERIFY(RandomPinSlots(0, [] { return 0.5; }).empty());
}

void TestPins::pinsClearEmptiesAndStoresEveryPin()
{
    WithPin(QStringLiteral("A"), QStringLiteral("1"));
    WithPin(QStringLiteral("B"), QStringLiteral("2"));
    Players().PinsClear();
    QCOMPARE(PinsInCollectionOrder(), Texts({"", ""}));
    QCOMPARE(StoredPins(), Texts({"", ""}));
}

void TestPins::validPinComparesTheTrimmedTextExactly()
{
    WithPin(QStringLiteral("A"), QStringLiteral("5"));
    QVERIFY(Players().ValidPin(QStringLiteral(" 5 ")));
    QVERIFY(!Players().ValidPin(QStringLiteral("05")));
    QVERIFY(!Players().ValidPin(QStringLiteral("6")));
}

void TestPins::oneMissingPinIsReportedAlone()
{
    WithPin(QStringLiteral("A"), QStringLiteral("1"));
    WithPin(QStringLiteral("B"), QStringLiteral("2"));
    WithPin(QStringLiteral("D"), QStringLiteral("4"));
    QCOMPARE(Players().PinsValidate(), QStringLiteral("Pin number 3 not allocated.") + CrLf);
}

void TestPins::aRunOfMissingPinsIsReportedAsARange()
{
    WithPin(QStringLiteral("A"), QStringLiteral("1"));
    WithPin(QStringLiteral("B"), QStringLiteral("2"));
    WithPin(QStringLiteral("G"), QStringLiteral("7"));
    QCOMPARE(Players().PinsValidate(), QStringLiteral("Pin numbers 3 to 6 not allocated.") + CrLf);
}

void TestPins::gapsBeforeTheFirstPinAreReported()
{
    WithPin(QStringLiteral("C"), QStringLiteral("3"));
    QCOMPARE(Players().PinsValidate(), QStringLiteral("Pin numbers 1 to 2 not allocated.") + CrLf);
    Players().PinsClear();
    Players().item(1)->setPin(QStringLiteral("2"));
    QCOMPARE(Players().PinsValidate(), QStringLiteral("Pin number 1 not allocated.") + CrLf);
}

void TestPins::sharedPinIsFollowedByTheBackwardsGapLine()
{
    for (int pin = 1; pin <= 4; ++pin)
        WithPin(QStringLiteral("P") + QString::number(pin), QString::number(pin));
    Enter(QStringLiteral("Able"), QStringLiteral("Ann"),
          [](cPlayer &player) { player.setPin(QStringLiteral("5")); });
    Enter(QStringLiteral("Baker"), QStringLiteral("Bob"),
          [](cPlayer &player) { player.setPin(QStringLiteral("5")); });
    QCOMPARE(Players().PinsValidate(),
             QStringLiteral("Pin: 5 Shared by Able, Ann and Baker, Bob.") + CrLf +
                 QStringLiteral("Pin numbers 6 to 4 not allocated.") + CrLf);
}

void TestPins::withdrawnEntrantWithoutAPinIsNotReported()
{
    WithPin(QStringLiteral("Gone"), QString(), true);
    WithPin(QStringLiteral("Here"), QString());
    WithPin(QStringLiteral("Left"), QStringLiteral("2"), true);
    // The withdrawn entrant with pin 2 counts like any other, so pin 1 is missing.
    QCOMPARE(Players().PinsValidate(), QStringLiteral("No Pin number for Here, Kim.") + CrLf +
                                           QStringLiteral("Pin number 1 not allocated.") + CrLf);
}

void TestPins::twoWithoutPinsAndPinOneGiveTwoLinesAndNoGap()
{
    WithPin(QStringLiteral("One"), QStringLiteral("1"));
    WithPin(QStringLiteral("Blank"), QString());
    WithPin(QStringLiteral("Empty"), QString());
    const QString report = Players().PinsValidate();
    QCOMPARE(report.count(QStringLiteral("No Pin number for ")), 2);
    QVERIFY(!report.contains(QStringLiteral("not allocated")));
    QVERIFY(report.contains(QStringLiteral("No Pin number for Blank, Kim.\r\n")));
    QVERIFY(report.contains(QStringLiteral("No Pin number for Empty, Kim.\r\n")));
}

void TestPins::nothingComparesTheHighestPinWithTheEntrants()
{
    WithPin(QStringLiteral("A"), QStringLiteral("1"));
    WithPin(QStringLiteral("B"), QStringLiteral("2"));
    QCOMPARE(Players().PinsValidate(), QString());
    Players().item(1)->setPin(QStringLiteral("3"));
    // Pins 2 and 3 of two entrants: only the missing 1 is reported.
    QCOMPARE(Players().PinsValidate(), QStringLiteral("Pin number 1 not allocated.") + CrLf);
}

VELMORA_TEST_MAIN(TestPins)
#include "test_pins.moc"
