#include "conduct/conduct_fixture.h"
#include "support/scripted_interaction.h"
#include "support/test_environment.h"

#include <QGuiApplication>
#include <QTest>

using namespace conduct_fixture;

class TestValidation : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void roundWithNoRowsReportsEveryUnpairedEntrant();
    void oneCompleteGameIsCompleteAndCorrect();
    void byeWithoutAResultIsReportedAndCounted();
    void blackSideByeAndGameWithoutResultsAreReported();
    void blankRowsAreReportedNowhere();
    void otherRoundsHaveNoInfluence();
    void clashingBoardsAreNotReportedButEmptyOnesAre();
    void selfPairingIsFoundByPinAndCountsTwice();
    void withdrawnEntrantPairedTwiceGetsBothLines();
    void withdrawnEntrantNotPairedIsFine();
    void noResultCodeCountsAsAResult();
    void reportChangesNothing();

private:
    QString Report();

    std::unique_ptr<cTestSession> session_;
    std::unique_ptr<cScriptedInteraction> interaction_;
};

namespace {

const char *const Separator = "=========================================";

QString Lines(std::initializer_list<const char *> lines)
{
    QString text;
    for (const char *line : lines)
        text += QString::fromUtf8(line) + QStringLiteral("\r\n");
    return text;
}

std::shared_ptr<cPlayer> Player(const QString &surname, const QString &pin, bool withdrawn = false)
{
    return Enter(surname, QStringLiteral("Sam"), [&](cPlayer &player) {
        player.setPin(pin);
        player.setWithdrawn(withdrawn);
    });
}

} // namespace

void TestValidation::init()
{
    session_ = std::make_unique<cTestSession>();
    interaction_ = std::make_unique<cScriptedInteraction>();
    OpenTournament();
}

void TestValidation::cleanup()
{
    Control().setTournament(nullptr);
    interaction_.reset();
    session_.reset();
}

QString TestValidation::Report()
{
    interaction_->Clear();
    Control().Tournament()->ValidatePairings(1);
    const QStringList shown = interaction_->CallsStartingWith(QStringLiteral("long|"));
    if (shown.size() != 1)
        return QStringLiteral("(the message window was shown %1 times)").arg(shown.size());
    const QString prefix = QStringLiteral("long|Validate results|");
    if (!shown.first().startsWith(prefix))
        return QStringLiteral("(wrong title) ") + shown.first();
    return shown.first().mid(prefix.size());
}

void TestValidation::roundWithNoRowsReportsEveryUnpairedEntrant()
{
    Player(QStringLiteral("Able"), QStringLiteral("1"));
    Player(QStringLiteral("Gone"), QStringLiteral("2"), true);
    Player(QStringLiteral("Cole"), QStringLiteral("3"));
    QCOMPARE(Report(), Lines({"There are 0 byes.", "Able, Sam has not been paired.",
                              "Cole, Sam has not been paired.", Separator,
                              "All results have been entered."}));
}

void TestValidation::oneCompleteGameIsCompleteAndCorrect()
{
    const auto a = Player(QStringLiteral("Able"), QStringLiteral("1"));
    const auto b = Player(QStringLiteral("Baker"), QStringLiteral("2"));
    Game(1, a, b, QStringLiteral("W"), QStringLiteral("1"));
    QCOMPARE(Report(), Lines({"There are 0 byes.", "Pairings are complete and correct.", Separator,
                              "All results have been entered."}));
}

void TestValidation::byeWithoutAResultIsReportedAndCounted()
{
    const auto a = Player(QStringLiteral("Able"), QStringLiteral("1"));
    const auto b = Player(QStringLiteral("Baker"), QStringLiteral("2"));
    const auto c = Player(QStringLiteral("Cole"), QStringLiteral("3"));
    Game(1, a, b, QStringLiteral("D"), QStringLiteral("1"));
    Game(1, c, nullptr, QString(), QStringLiteral("2"));
    QCOMPARE(Report(), Lines({"There is 1 bye.", "Pairings are complete and correct.", Separator,
                              "No result for the bye for Cole, Sam."}));
}

void TestValidation::blackSideByeAndGameWithoutResultsAreReported()
{
    const auto a = Player(QStringLiteral("Able"), QStringLiteral("1"));
    const auto b = Player(QStringLiteral("Baker"), QStringLiteral("2"));
    const auto c = Player(QStringLiteral("Cole"), QStringLiteral("3"));
    const auto d = Player(QStringLiteral("Dunn"), QStringLiteral("4"));
    Game(1, a, b, QString());
    Game(1, nullptr, c, QString(), QStringLiteral("5"));
    Game(1, nullptr, d, QString(), QStringLiteral("6"));
    QCOMPARE(Report(), Lines({"1 pairings have not been allocated board numbers.",
                              "There are 2 byes.", "Pairings are complete and correct.", Separator,
                              "No result for Able, Sam vs Baker, Sam.",
                              "No result for the bye for Cole, Sam.",
                              "No result for the bye for Dunn, Sam."}));
}

void TestValidation::blankRowsAreReportedNowhere()
{
    const auto a = Player(QStringLiteral("Able"), QStringLiteral("1"));
    const auto b = Player(QStringLiteral("Baker"), QStringLiteral("2"));
    Game(1, nullptr, nullptr, QString());
    Game(1, a, b, QStringLiteral("B"), QStringLiteral("1"));
    Game(1, nullptr, nullptr, QString());
    QCOMPARE(Report(), Lines({"There are 0 byes.", "Pairings are complete and correct.", Separator,
                              "All results have been entered."}));
}

void TestValidation::otherRoundsHaveNoInfluence()
{
    const auto a = Player(QStringLiteral("Able"), QStringLiteral("1"));
    const auto b = Player(QStringLiteral("Baker"), QStringLiteral("2"));
    Game(1, a, b, QStringLiteral("W"), QStringLiteral("1"));
    Game(2, a, nullptr, QString());
    Game(2, a, b, QString());
    Game(0, b, b, QString());
    QCOMPARE(Report(), Lines({"There are 0 byes.", "Pairings are complete and correct.", Separator,
                              "All results have been entered."}));
}

void TestValidation::clashingBoardsAreNotReportedButEmptyOnesAre()
{
    const auto a = Player(QStringLiteral("Able"), QStringLiteral("1"));
    const auto b = Player(QStringLiteral("Baker"), QStringLiteral("2"));
    const auto c = Player(QStringLiteral("Cole"), QStringLiteral("3"));
    const auto d = Player(QStringLiteral("Dunn"), QStringLiteral("4"));
    const auto e = Player(QStringLiteral("Eve"), QStringLiteral("5"));
    const auto f = Player(QStringLiteral("Fox"), QStringLiteral("6"));
    Game(1, a, b, QStringLiteral("W"), QStringLiteral("3"));
    Game(1, c, d, QStringLiteral("W"), QStringLiteral("3"));
    Game(1, e, f, QStringLiteral("W"));
    QCOMPARE(Report(), Lines({"1 pairings have not been allocated board numbers.",
                              "There are 0 byes.", "Pairings are complete and correct.", Separator,
                              "All results have been entered."}));
}

void TestValidation::selfPairingIsFoundByPinAndCountsTwice()
{
    const auto a = Player(QStringLiteral("Able"), QStringLiteral("1"));
    const auto b = Player(QStringLiteral("Baker"), QStringLiteral("2"));
    const auto c = Player(QStringLiteral("Cole"), QStringLiteral("3"));
    Game(1, a, a, QStringLiteral("D"), QStringLiteral("1"));
    Game(1, b, c, QStringLiteral("D"), QStringLiteral("2"));
    QCOMPARE(Report(), Lines({"There are 0 byes.", "Able, Sam is paired against themselves.",
                              "Able, Sam is in more than one pairing.", Separator,
                              "All results have been entered."}));
}

void TestValidation::withdrawnEntrantPairedTwiceGetsBothLines()
{
    const auto a = Player(QStringLiteral("Able"), QStringLiteral("1"));
    const auto b = Player(QStringLiteral("Baker"), QStringLiteral("2"));
    const auto gone = Player(QStringLiteral("Gone"), QStringLiteral("3"), true);
    Game(1, a, gone, QStringLiteral("W"), QStringLiteral("1"));
    Game(1, gone, b, QStringLiteral("B"), QStringLiteral("2"));
    QCOMPARE(Report(), Lines({"There are 0 byes.", "Gone, Sam is in more than one pairing.",
                              "Gone, Sam has been withdrawn, but has been included in a pairing.",
                              Separator, "All results have been entered."}));
}

void TestValidation::withdrawnEntrantNotPairedIsFine()
{
    const auto a = Player(QStringLiteral("Able"), QStringLiteral("1"));
    const auto b = Player(QStringLiteral("Baker"), QStringLiteral("2"));
    Player(QStringLiteral("Gone"), QStringLiteral("3"), true);
    Game(1, a, b, QStringLiteral("W"), QStringLiteral("1"));
    QCOMPARE(Report(), Lines({"There are 0 byes.", "Pairings are complete and correct.", Separator,
                              "All results have been entered."}));
}

void TestValidation::noResultCodeCountsAsAResult()
{
    const auto a = Player(QStringLiteral("Able"), QStringLiteral("1"));
    const auto b = Player(QStringLiteral("Baker"), QStringLiteral("2"));
    Game(1, a, b, QStringLiteral("N"), QStringLiteral("1"));
    QVERIFY(Report().endsWith(QStringLiteral("All results have been entered.\r\n")));
}

void TestValidation::reportChangesNothing()
{
    const auto a = Player(QStringLiteral("Able"), QStringLiteral("1"));
    const auto b = Player(QStringLiteral("Baker"), QStringLiteral("2"));
    Game(1, a, b, QString());
    Game(1, nullptr, nullptr, QString());
    Report();
    QCOMPARE(Control().Tournament()->Results().Count(), 2);
    QCOMPARE(Control().Tournament()->Results().item(1)->Board(), QString());
    QCOMPARE(Control().Tournament()->Results().item(1)->Result(), QString());
    QCOMPARE(SqlScalar(QStringLiteral("Select count(*) From Result")).toInt(), 0);
}

VELMORA_TEST_MAIN(TestValidation)
#include "test_validation.moc"
