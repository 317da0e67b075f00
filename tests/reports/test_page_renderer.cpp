#include "reports/page_document.h"
#include "reports/page_renderer.h"
#include "support/test_environment.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPicture>
#include <QTest>

namespace {

// One pixel to the tenth of a millimetre: 254 to the inch, 10000 to the metre.
constexpr double DotsPerInch = 254.0;

QImage PictureOfPage(const cPageDocument &document, int page)
{
    QImage picture(document.PageWidth(), document.PageHeight(), QImage::Format_RGB32);
    picture.setDotsPerMeterX(10000);
    picture.setDotsPerMeterY(10000);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    PaintPage(document, page, painter, DotsPerInch);
    painter.end();
    return picture;
}

bool IsInked(const QImage &picture, int x, int y)
{
    return qGray(picture.pixel(x, y)) < 128;
}

// The smallest rectangle that holds every inked pixel inside the area, or an empty
// one when none is inked.
QRect InkedArea(const QImage &picture, const QRect &area)
{
    QRect inked;
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x)
            if (IsInked(picture, x, y))
                inked |= QRect(x, y, 1, 1);
    return inked;
}

cPageDocument EightPointDocument()
{
    cPageDocument document;
    document.setOrientation(PageOrientation::Portrait);
    document.SetFont(QStringLiteral("Courier New"), 80, FontStyle::Normal);
    return document;
}

} // namespace

class TestPageRenderer : public QObject
{
    Q_OBJECT

private slots:
    void textHangsDownAndRightFromItsPoint();
    void textAlignedBottomRightEndsAtItsPoint();
    void textIsCutAtItsClipRectangle();
    void columnsOfALongLineStayInTheirCells();
    void aRecordedPageKeepsItsColumnsAndStaysSmall();
    void rulesHaveThePensWidth();
    void eachPageIsDrawnOnItsOwn();
};

void TestPageRenderer::textHangsDownAndRightFromItsPoint()
{
    cPageDocument document = EightPointDocument();
    document.DrawText(300, 300, QStringLiteral("MMMMMM"));
    const QImage picture = PictureOfPage(document, 1);
    const QRect inked = InkedArea(picture, QRect(200, 200, 400, 200));
    QVERIFY(!inked.isEmpty());
    // Six cells of 16.94 from 300, the cell 32 high from 300.
    QVERIFY2(inked.left() >= 300 && inked.left() <= 303, qPrintable(QString::number(inked.left())));
    QVERIFY(inked.right() <= 300 + 102);
    QVERIFY(inked.right() >= 300 + 95);
    QVERIFY(inked.top() >= 300);
    QVERIFY(inked.bottom() <= 332);
    // Capitals stand on the baseline, 23.5 below the point.
    QVERIFY(qAbs(inked.bottom() - 323) <= 1);
}

void TestPageRenderer::textAlignedBottomRightEndsAtItsPoint()
{
    cPageDocument document = EightPointDocument();
    document.SetFont(QStringLiteral("Courier New"), 60, FontStyle::Normal);
    document.setTextAlign(TextAlign::BottomRight);
    document.DrawText(1990, 100, QStringLiteral("Page 1 of 1"));
    const QImage picture = PictureOfPage(document, 1);
    const QRect inked = InkedArea(picture, QRect(1700, 40, 380, 100));
    QVERIFY(!inked.isEmpty());
    QVERIFY(inked.right() < 1990);
    QVERIFY(inked.right() > 1975);
    QVERIFY(inked.left() >= 1990 - 140);
    QVERIFY(inked.bottom() < 100);
    QVERIFY(inked.top() >= 100 - 24);
}

void TestPageRenderer::textIsCutAtItsClipRectangle()
{
    cPageDocument document = EightPointDocument();
    document.DrawTextClipped(100, 100, QString(200, u'M'), 100, 100, 2000, 132);
    const QImage picture = PictureOfPage(document, 1);
    QVERIFY(!InkedArea(picture, QRect(1900, 100, 100, 32)).isEmpty());
    QVERIFY(InkedArea(picture, QRect(2001, 80, 99, 80)).isEmpty());
}

void TestPageRenderer::columnsOfALongLineStayInTheirCells()
{
    // The 111th character of an 8-point line begins 110 cells of 16.94 in.
    cPageDocument document = EightPointDocument();
    const QString line = QString(110, u' ') + QStringLiteral("I");
    document.DrawText(0, 100, line);
    const QImage picture = PictureOfPage(document, 1);
    const QRect inked = InkedArea(picture, QRect(0, 100, 2100, 32));
    const double cellLeft =
        110 * cPageDocument::EmSize(80) * CourierMetrics::Advance / CourierMetrics::UnitsPerEm;
    QVERIFY2(inked.left() >= cellLeft && inked.right() <= cellLeft + 17,
             qPrintable(QStringLiteral("%1..%2 for a cell at %3")
                            .arg(inked.left())
                            .arg(inked.right())
                            .arg(cellLeft)));
}

void TestPageRenderer::aRecordedPageKeepsItsColumnsAndStaysSmall()
{
    cPageDocument document = EightPointDocument();
    document.DrawText(0, 100, QString(110, u' ') + QStringLiteral("I"));
    for (int row = 0; row < 60; ++row)
        document.DrawText(0, 200 + row * 40, QString(120, u'M'));
    // The print preview keeps each page as a recording like this one.
    QPicture recording;
    QPainter recorder(&recording);
    const double dotsPerInch = recording.logicalDpiX();
    PaintPage(document, 1, recorder, dotsPerInch);
    recorder.end();
    // Drawn as outlines, the 7,200 characters take over four megabytes.
    QVERIFY2(recording.size() < 2000000, qPrintable(QString::number(recording.size())));

    QImage picture(document.PageWidth(), document.PageHeight(), QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.scale(DotsPerInch / dotsPerInch, DotsPerInch / dotsPerInch);
    painter.drawPicture(0, 0, recording);
    painter.end();
    const QRect inked = InkedArea(picture, QRect(0, 100, 2100, 32));
    const double cellLeft =
        110 * cPageDocument::EmSize(80) * CourierMetrics::Advance / CourierMetrics::UnitsPerEm;
    QVERIFY2(inked.left() >= cellLeft && inked.right() <= cellLeft + 17,
             qPrintable(QStringLiteral("%1..%2 for a cell at %3")
                            .arg(inked.left())
                            .arg(inked.right())
                            .arg(cellLeft)));
}

void TestPageRenderer::rulesHaveThePensWidth()
{
    cPageDocument document = EightPointDocument();
    document.SetPen(0, 20, 0);
    document.MoveTo(100, 100);
    document.LineTo(100, 1000);
    document.SetPen(0, 2, 0);
    document.MoveTo(100, 600);
    document.LineTo(1000, 600);
    const QImage picture = PictureOfPage(document, 1);
    QVERIFY(IsInked(picture, 92, 500));
    QVERIFY(IsInked(picture, 108, 500));
    QVERIFY(!IsInked(picture, 113, 500));
    QVERIFY(!IsInked(picture, 87, 500));
    QVERIFY(IsInked(picture, 500, 600));
    QVERIFY(!IsInked(picture, 500, 603));
    QVERIFY(!IsInked(picture, 500, 597));
    QVERIFY(!IsInked(picture, 1010, 600));
}

void TestPageRenderer::eachPageIsDrawnOnItsOwn()
{
    cPageDocument document = EightPointDocument();
    document.DrawText(300, 300, QStringLiteral("MMM"));
    document.setCurrentPage(2);
    document.DrawText(300, 900, QStringLiteral("MMM"));
    const QImage first = PictureOfPage(document, 1);
    const QImage second = PictureOfPage(document, 2);
    QVERIFY(!InkedArea(first, QRect(290, 290, 80, 50)).isEmpty());
    QVERIFY(InkedArea(first, QRect(290, 890, 80, 50)).isEmpty());
    QVERIFY(InkedArea(second, QRect(290, 290, 80, 50)).isEmpty());
    QVERIFY(!InkedArea(second, QRect(290, 890, 80, 50)).isEmpty());
}

VELMORA_TEST_MAIN(TestPageRenderer)
#include "test_page_renderer.moc"
