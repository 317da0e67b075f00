#include "reports/print_cntrl.h"
#include "reports/report_options.h"
#include "support/test_environment.h"

#include "report_fixtures.h"

#include <QGuiApplication>
#include <QTest>

class TestPairingCards : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void oneCardAPageInPinOrderOnALandscapeCard();
    void onlyPinNameAndGradeAreLarge();
    void firstCardPrintsItsLargeTypeInNormalWeight();
    void userDetailsNameTheFirstTwoFlags();
    void userDetailsCanBeLeftOff();
    void clubAndSchoolOnlyWhenThere();
    void cardsCarryNoNoticeAndNoPageNumbers();

private:
    std::unique_ptr<cTestSession> session_;
};

namespace {

// The card's texts by position.
std::optional<cPageText> TextAt(qint32 page, qint32 x, qint32 y)
{
    for (const cPageText &text : mPrintCntrl::Document().Page(page).Texts)
        if (text.X == x && text.Y == y)
            return text;
    return std::nullopt;
}

void PrintCards(bool userDetails = true)
{
    cPrintOptions options;
    options.UserDetails = userDetails;
    Control().Tournament()->Players().ListPairingCards(mPrintCntrl::Destination::Preview, options);
}

} // namespace

void TestPairingCards::init()
{
    session_ = std::make_unique<cTestSession>();
    Control().setSurnameCase(1);
    Control().setUserDefined1(u"Junior Squad"_s);
    Control().setUserDefined2(u"Paid by card"_s);
    OpenCongress(true);
}

void TestPairingCards::cleanup()
{
    Control().setTournament(nullptr);
    session_.reset();
}

void TestPairingCards::oneCardAPageInPinOrderOnALandscapeCard()
{
    PrintCards();
    const cPageDocument &document = mPrintCntrl::Document();
    QCOMPARE(document.Orientation(), PageOrientation::Landscape);
    QCOMPARE(document.PageCount(), 9);
    const QStringList pins{u"  1"_s, u"  2"_s, u"  3"_s, u"  4"_s, u"  5"_s,
                           u"  6"_s, u"  8"_s, u"  9"_s, u"1001"_s};
    for (int page = 1; page <= 9; ++page)
        QCOMPARE(TextAt(page, 50, 100)->Text, pins.at(page - 1));
    QCOMPARE(TextAt(1, 300, 100)->Text, u"ASHWORTH, Daniel"_s);
    QCOMPARE(TextAt(1, 1150, 100)->Text, u"185A"_s);
    QCOMPARE(TextAt(9, 300, 100)->Text, u"KOWALSKI, Piotr"_s);
    QCOMPARE(TextAt(7, 1150, 100)->Text, u" 95 "_s);
}

void TestPairingCards::onlyPinNameAndGradeAreLarge()
{
    PrintCards();
    for (int page = 1; page <= 9; ++page) {
        QList<qint32> largeColumns;
        for (const cPageText &text : mPrintCntrl::Document().Page(page).Texts) {
            if (text.Text.isEmpty())
                continue;
            const bool large = text.Y == 100;
            QCOMPARE(text.FontHeight, large ? 160 : 80);
            if (large)
                largeColumns.append(text.X);
        }
        // The pin, the name and the grade, and nothing else.
        QCOMPARE(largeColumns, QList<qint32>({50, 300, 1150}));
    }
    QCOMPARE(TextAt(2, 50, 855)->Text, u"Open"_s);
}

void TestPairingCards::firstCardPrintsItsLargeTypeInNormalWeight()
{
    PrintCards();
    for (const qint32 x : {50, 300, 1150}) {
        QCOMPARE(TextAt(1, x, 100)->FontStyle, FontStyle::Normal);
        QCOMPARE(TextAt(2, x, 100)->FontStyle, FontStyle::Bold);
        QCOMPARE(TextAt(9, x, 100)->FontStyle, FontStyle::Bold);
    }
}

void TestPairingCards::userDetailsNameTheFirstTwoFlags()
{
    PrintCards();
    // Ashworth carries the first flag, Dempsey both; Lee has no register record.
    QCOMPARE(TextAt(1, 50, 200)->Text, u"Junior Squad"_s);
    QVERIFY(!TextAt(1, 50, 230));
    QCOMPARE(TextAt(5, 50, 200)->Text, u"Junior Squad"_s);
    QCOMPARE(TextAt(5, 50, 230)->Text, u"Paid by card"_s);
    QVERIFY(!TextAt(2, 50, 200));
    QVERIFY(!TextAt(7, 50, 200));
}

void TestPairingCards::userDetailsCanBeLeftOff()
{
    PrintCards(false);
    QVERIFY(!TextAt(1, 50, 200));
    QVERIFY(!TextAt(5, 50, 230));
}

void TestPairingCards::clubAndSchoolOnlyWhenThere()
{
    PrintCards();
    QCOMPARE(TextAt(5, 550, 855)->Text, u"Bath"_s);
    QCOMPARE(TextAt(5, 1030, 855)->Text, u"Kingswood"_s);
    QVERIFY(!TextAt(1, 1030, 855));
    // Lee has no club.
    QVERIFY(!TextAt(7, 550, 855));
    QCOMPARE(TextAt(7, 50, 855)->Text, u"Open"_s);
}

void TestPairingCards::cardsCarryNoNoticeAndNoPageNumbers()
{
    PrintCards();
    for (int page = 1; page <= 9; ++page)
        for (const cPageText &text : mPrintCntrl::Document().Page(page).Texts) {
            QVERIFY(!text.Text.startsWith(u"Page "_s));
            QVERIFY(!text.Text.contains(u"was was"_s));
        }
}

VELMORA_TEST_MAIN(TestPairingCards)
#include "test_pairing_cards.moc"
