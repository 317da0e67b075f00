#include "base/fatal_fault.h"
#include "reports/page_document.h"
#include "support/test_environment.h"

#include <QGuiApplication>
#include <QTest>

class TestPageDocument : public QObject
{
    Q_OBJECT

private slots:
    void newDocumentHasOneEmptyPage();
    void newDocumentDiscardsEarlierPages();
    void nextPageNumberOpensANewPage();
    void earlierPageNumberReturnsAndAddsToIt();
    void pageNumberFarBeyondOpensEveryPageUpToIt();
    void pageNumberBelowOneIsAFault();
    void readingAMissingPageIsAFault();
    void noPrinterGivesAWholeA4Sheet();
    void noPrinterLandscapeTurnsTheSheet();
    void printerLayoutBoundsThePrintableArea();
    void printerLayoutTurnsToTheDocumentsOrientation();
    void unknownOrientationIsAFault();
    void metricsAreCourierNewsFixedOnes_data();
    void metricsAreCourierNewsFixedOnes();
    void measureTextUsesThePresentFont();
    void clippedTextKeepsItsRectangleAndFont();
    void textAlignedBottomRightEndsAtItsPoint();
    void rulesTakeThePenInForceAndMoveIt();
    void baselineStandsAtTheAscent();
};

void TestPageDocument::newDocumentHasOneEmptyPage()
{
    cPageDocument document;
    QCOMPARE(document.PageCount(), 1);
    QCOMPARE(document.CurrentPage(), 1);
    QCOMPARE(document.CurrentY(), 0);
    QVERIFY(document.Page(1).Texts.isEmpty());
    QVERIFY(document.Page(1).Rules.isEmpty());
}

void TestPageDocument::newDocumentDiscardsEarlierPages()
{
    cPageDocument document;
    document.DrawText(10, 10, QStringLiteral("first"));
    document.setCurrentPage(2);
    document.setCurrentY(500);
    document.setTextAlign(TextAlign::BottomRight);
    document.NewDocument();
    QCOMPARE(document.PageCount(), 1);
    QCOMPARE(document.CurrentPage(), 1);
    QCOMPARE(document.CurrentY(), 0);
    QCOMPARE(document.TextAlignment(), TextAlign::TopLeft);
    QVERIFY(document.Page(1).Texts.isEmpty());
}

void TestPageDocument::nextPageNumberOpensANewPage()
{
    cPageDocument document;
    document.setCurrentPage(2);
    QCOMPARE(document.PageCount(), 2);
    QCOMPARE(document.CurrentPage(), 2);
    document.DrawText(100, 200, QStringLiteral("on two"));
    QCOMPARE(document.Page(2).Texts.size(), 1);
    QVERIFY(document.Page(1).Texts.isEmpty());
}

void TestPageDocument::earlierPageNumberReturnsAndAddsToIt()
{
    cPageDocument document;
    document.DrawText(100, 100, QStringLiteral("one"));
    document.setCurrentPage(2);
    document.DrawText(100, 100, QStringLiteral("two"));
    document.setCurrentPage(1);
    document.DrawText(100, 300, QStringLiteral("one again"));
    QCOMPARE(document.PageCount(), 2);
    QCOMPARE(document.Page(1).Texts.size(), 2);
    QCOMPARE(document.Page(1).Texts.at(1).Text, QStringLiteral("one again"));
    QCOMPARE(document.Page(2).Texts.size(), 1);
}

void TestPageDocument::pageNumberFarBeyondOpensEveryPageUpToIt()
{
    cPageDocument document;
    document.setCurrentPage(4);
    QCOMPARE(document.PageCount(), 4);
    QVERIFY(document.Page(3).Texts.isEmpty());
}

void TestPageDocument::pageNumberBelowOneIsAFault()
{
    cPageDocument document;
    QVERIFY_THROWS_EXCEPTION(cFatalFault, document.setCurrentPage(0));
    QCOMPARE(document.CurrentPage(), 1);
}

void TestPageDocument::readingAMissingPageIsAFault()
{
    cPageDocument document;
    QVERIFY_THROWS_EXCEPTION(cFatalFault, document.Page(2));
}

void TestPageDocument::noPrinterGivesAWholeA4Sheet()
{
    cPageDocument document;
    document.setOrientation(PageOrientation::Portrait);
    QVERIFY(!document.HasPrinter());
    QCOMPARE(document.PageWidth(), 2100);
    QCOMPARE(document.PageHeight(), 2970);
    qint32 left = -1, top = -1, right = -1, bottom = -1;
    document.GetPrintableArea(left, top, right, bottom);
    QCOMPARE(left, 0);
    QCOMPARE(top, 0);
    QCOMPARE(right, 2100);
    QCOMPARE(bottom, 2970);
    QCOMPARE(document.PaperSize().id(), QPageSize::A4);
}

void TestPageDocument::noPrinterLandscapeTurnsTheSheet()
{
    cPageDocument document;
    document.setOrientation(PageOrientation::Landscape);
    QCOMPARE(document.PageWidth(), 2970);
    QCOMPARE(document.PageHeight(), 2100);
    qint32 left = -1, top = -1, right = -1, bottom = -1;
    document.GetPrintableArea(left, top, right, bottom);
    QCOMPARE(right, 2970);
    QCOMPARE(bottom, 2100);
    QCOMPARE(document.PaperOrientation(), QPageLayout::Landscape);
}

void TestPageDocument::printerLayoutBoundsThePrintableArea()
{
    // A letter sheet (215.9 by 279.4 mm) on a printer that can not reach the outer
    // 4.2 mm at the sides, 5 mm at the top and 12.7 mm at the foot.
    const QMarginsF reach(4.2, 5.0, 4.2, 12.7);
    cPageDocument document;
    document.setOrientation(PageOrientation::Portrait);
    document.setPrinterLayout(QPageLayout(QPageSize(QPageSize::Letter), QPageLayout::Portrait,
                                          reach, QPageLayout::Millimeter, reach));
    QVERIFY(document.HasPrinter());
    QCOMPARE(document.PageWidth(), 2159);
    QCOMPARE(document.PageHeight(), 2794);
    qint32 left = -1, top = -1, right = -1, bottom = -1;
    document.GetPrintableArea(left, top, right, bottom);
    QCOMPARE(left, 42);
    QCOMPARE(top, 50);
    QCOMPARE(right, 2159 - 42);
    QCOMPARE(bottom, 2794 - 127);

    document.setPrinterLayout(std::nullopt);
    QVERIFY(!document.HasPrinter());
    QCOMPARE(document.PageWidth(), 2100);
}

void TestPageDocument::printerLayoutTurnsToTheDocumentsOrientation()
{
    // An index card of 4 by 6 inches handed in upright, printed across.
    const QPageSize card(QSizeF(4.0, 6.0), QPageSize::Inch, QStringLiteral("Index card"));
    cPageDocument document;
    document.setOrientation(PageOrientation::Landscape);
    document.setPrinterLayout(
        QPageLayout(card, QPageLayout::Portrait, QMarginsF(), QPageLayout::Millimeter));
    QCOMPARE(document.PageWidth(), 1524);
    QCOMPARE(document.PageHeight(), 1016);
    qint32 left = -1, top = -1, right = -1, bottom = -1;
    document.GetPrintableArea(left, top, right, bottom);
    QCOMPARE(left, 0);
    QCOMPARE(top, 0);
    QCOMPARE(right, 1524);
    QCOMPARE(bottom, 1016);
}

void TestPageDocument::unknownOrientationIsAFault()
{
    cPageDocument document;
    QVERIFY_THROWS_EXCEPTION(cFatalFault, document.setOrientation(3));
    QCOMPARE(document.Orientation(), PageOrientation::Portrait);
}

void TestPageDocument::metricsAreCourierNewsFixedOnes_data()
{
    QTest::addColumn<qint32>("fontHeight");
    QTest::addColumn<QString>("text");
    QTest::addColumn<qint32>("width");
    QTest::addColumn<qint32>("height");
    // An em of h tenths of a point is h x 254 / 720 tenths of a millimetre; the cell
    // is 2320/2048 of it high and each character 1229/2048 of it wide.
    QTest::newRow("8 point") << 80 << QStringLiteral("abg") << 51 << 32;
    QTest::newRow("8/10 of 8 point") << 64 << QStringLiteral("abg") << 41 << 26;
    QTest::newRow("10 point title") << 100 << QStringLiteral("abg") << 64 << 40;
    QTest::newRow("6 point stamp") << 60 << QStringLiteral("Page 1 of 1") << 140 << 24;
    QTest::newRow("20 point chart") << 200 << QStringLiteral("Smith") << 212 << 80;
    QTest::newRow("empty text") << 80 << QString() << 0 << 32;
}

void TestPageDocument::metricsAreCourierNewsFixedOnes()
{
    QFETCH(qint32, fontHeight);
    QFETCH(QString, text);
    QFETCH(qint32, width);
    QFETCH(qint32, height);
    QCOMPARE(cPageDocument::TextWidth(text, fontHeight), width);
    QCOMPARE(cPageDocument::TextHeight(fontHeight), height);
}

void TestPageDocument::measureTextUsesThePresentFont()
{
    cPageDocument document;
    qint32 width = 0, height = 0;
    document.SetFont(QStringLiteral("Courier New"), 80, FontStyle::Bold);
    document.MeasureText(QStringLiteral("abg"), width, height);
    QCOMPARE(width, 51);
    QCOMPARE(height, 32);
    // Bold and other faces share the metrics: only the height counts.
    document.SetFont(QStringLiteral("Courier New"), 64, FontStyle::Normal);
    document.MeasureText(QStringLiteral("abg"), width, height);
    QCOMPARE(width, 41);
    QCOMPARE(height, 26);
}

void TestPageDocument::clippedTextKeepsItsRectangleAndFont()
{
    cPageDocument document;
    document.SetFont(QStringLiteral("Courier New"), 80, FontStyle::Bold);
    document.DrawTextClipped(100, 200, QStringLiteral("Heading"), 100, 200, 2000, 232);
    const cPageText &text = document.Page(1).Texts.at(0);
    QCOMPARE(text.X, 100);
    QCOMPARE(text.Y, 200);
    QCOMPARE(text.Text, QStringLiteral("Heading"));
    QCOMPARE(text.FontName, QStringLiteral("Courier New"));
    QCOMPARE(text.FontHeight, 80);
    QCOMPARE(text.FontStyle, FontStyle::Bold);
    QCOMPARE(text.Align, TextAlign::TopLeft);
    QVERIFY(text.Clip.has_value());
    QCOMPARE(*text.Clip, (cPageRect{100, 200, 2000, 232}));
    QCOMPARE(text.Box(), (cPageRect{100, 200, 100 + 119, 232}));
}

void TestPageDocument::textAlignedBottomRightEndsAtItsPoint()
{
    cPageDocument document;
    document.SetFont(QStringLiteral("Courier New"), 60, FontStyle::Normal);
    document.setTextAlign(TextAlign::BottomRight);
    document.DrawText(1990, 100, QStringLiteral("Page 1 of 1"));
    const cPageText &text = document.Page(1).Texts.at(0);
    QVERIFY(!text.Clip.has_value());
    QCOMPARE(text.Align, TextAlign::BottomRight);
    QCOMPARE(text.Box(), (cPageRect{1990 - 140, 100 - 24, 1990, 100}));
    QVERIFY_THROWS_EXCEPTION(cFatalFault, document.setTextAlign(1));
}

void TestPageDocument::rulesTakeThePenInForceAndMoveIt()
{
    cPageDocument document;
    document.SetPen(0, 20, 0);
    document.MoveTo(0, 0);
    document.LineTo(0, 2808);
    document.SetPen(0, 2, 0);
    document.LineTo(2000, 2808);
    const QList<cPageRule> &rules = document.Page(1).Rules;
    QCOMPARE(rules.size(), 2);
    QCOMPARE(rules.at(0).X1, 0);
    QCOMPARE(rules.at(0).Y2, 2808);
    QCOMPARE(rules.at(0).PenWidth, 20);
    // A second LineTo goes on from where the first ended.
    QCOMPARE(rules.at(1).X1, 0);
    QCOMPARE(rules.at(1).Y1, 2808);
    QCOMPARE(rules.at(1).X2, 2000);
    QCOMPARE(rules.at(1).PenWidth, 2);
    QCOMPARE(rules.at(1).PenStyle, 0);
}

void TestPageDocument::baselineStandsAtTheAscent()
{
    cPageText text;
    text.FontHeight = 80;
    // 28.2222 tenths of a millimetre to the em, 1705/2048 of it above the baseline.
    QVERIFY(qAbs(text.BaselineOffset() - 23.4952) < 0.001);
}

VELMORA_TEST_MAIN(TestPageDocument)
#include "test_page_document.moc"
