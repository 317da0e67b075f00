#include "reports/page_renderer.h"

#include "reports/page_document.h"

#include <QFont>
#include <QGlyphRun>
#include <QHash>
#include <QPagedPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QPen>
#include <QRawFont>

namespace {

Qt::PenStyle QtPenStyle(qint32 style)
{
    switch (style) {
    case 1:
        return Qt::DashLine;
    case 2:
        return Qt::DotLine;
    case 3:
        return Qt::DashDotLine;
    case 4:
        return Qt::DashDotDotLine;
    case 5:
        return Qt::NoPen;
    default:
        return Qt::SolidLine;
    }
}

QColor QtColour(QRgb colour)
{
    return QColor(qRed(colour), qGreen(colour), qBlue(colour));
}

// The face a text is drawn in, at the em on the sheet that the fixed metrics
// measured, in device pixels and fractions of them.
QRawFont DeviceFont(const cPageText &text, double scale)
{
    QFont font(text.FontName);
    font.setStyleHint(QFont::TypeWriter, QFont::PreferMatch);
    font.setFixedPitch(true);
    font.setKerning(false);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setBold((text.FontStyle & FontStyle::Bold) != 0);
    font.setItalic((text.FontStyle & FontStyle::Italic) != 0);
    font.setPixelSize(100);
    QRawFont face = QRawFont::fromFont(font);
    face.setPixelSize(cPageDocument::EmSize(text.FontHeight) * scale);
    return face;
}

// Faces already looked up for one page, by font name, style and height.
class cFaceCache
{
public:
    explicit cFaceCache(double scale) : scale_(scale) {}

    const QRawFont &Face(const cPageText &text)
    {
        const QString key = text.FontName + u'/' + QString::number(text.FontStyle) + u'/' +
                            QString::number(text.FontHeight);
        auto found = faces_.find(key);
        if (found == faces_.end())
            found = faces_.insert(key, DeviceFont(text, scale_));
        return found.value();
    }

private:
    double scale_;
    QHash<QString, QRawFont> faces_;
};

// Fonts for texts drawn as characters, by font name, style and height.
class cCellFontCache
{
public:
    const QFont &Font(const cPageText &text)
    {
        const QString key = text.FontName + u'/' + QString::number(text.FontStyle) + u'/' +
                            QString::number(text.FontHeight);
        auto found = fonts_.find(key);
        if (found == fonts_.end()) {
            QFont font(text.FontName);
            font.setStyleHint(QFont::TypeWriter, QFont::PreferMatch);
            font.setFixedPitch(true);
            font.setKerning(false);
            font.setBold((text.FontStyle & FontStyle::Bold) != 0);
            font.setItalic((text.FontStyle & FontStyle::Italic) != 0);
            font.setPointSizeF(text.FontHeight / 10.0);
            found = fonts_.insert(key, font);
        }
        return found.value();
    }

private:
    QHash<QString, QFont> fonts_;
};

// Each character stands in its own cell of the fixed advance, so the columns of a
// report line up on every device, whatever the device does with fractions of a pixel.
QGlyphRun PlacedGlyphs(const QRawFont &face, const QString &text, double advance)
{
    const QList<quint32> glyphs = face.glyphIndexesForString(text);
    QList<QPointF> positions;
    positions.reserve(glyphs.size());
    for (qsizetype i = 0; i < glyphs.size(); ++i)
        positions.append(QPointF(i * advance, 0.0));
    QGlyphRun run;
    run.setRawFont(face);
    run.setGlyphIndexes(glyphs);
    run.setPositions(positions);
    return run;
}

} // namespace

void PaintPage(const cPageDocument &document, int page, QPainter &painter, double dotsPerInch)
{
    // Device units in a tenth of a millimetre.
    const double scale = dotsPerInch / 254.0;
    const cPage &content = document.Page(page);
    cFaceCache faces(scale);
    // A recording device (the print preview keeps each page as a recording) stores a
    // run of placed glyphs as outlines, many times the size of the text, and plays
    // them back slowly; it gets the text as characters instead, each word in its cell.
    const bool recorded =
        painter.paintEngine() && painter.paintEngine()->type() == QPaintEngine::Picture;
    cCellFontCache cellFonts;

    painter.save();
    for (const cPageRule &rule : content.Rules) {
        QPen pen(QtColour(rule.PenColour));
        pen.setStyle(QtPenStyle(rule.PenStyle));
        pen.setWidthF(rule.PenWidth * scale);
        pen.setCapStyle(Qt::SquareCap);
        painter.setPen(pen);
        painter.drawLine(QPointF(rule.X1 * scale, rule.Y1 * scale),
                         QPointF(rule.X2 * scale, rule.Y2 * scale));
    }

    painter.setPen(QColor(Qt::black));
    for (const cPageText &text : content.Texts) {
        if (text.Clip) {
            const cPageRect &clip = *text.Clip;
            painter.setClipRect(QRectF(clip.Left * scale, clip.Top * scale,
                                       (clip.Right - clip.Left) * scale,
                                       (clip.Bottom - clip.Top) * scale),
                                Qt::ReplaceClip);
        } else {
            painter.setClipping(false);
        }
        const cPageRect box = text.Box();
        const double advance = cPageDocument::EmSize(text.FontHeight) * CourierMetrics::Advance /
                               CourierMetrics::UnitsPerEm * scale;
        const QPointF origin(box.Left * scale, (box.Top + text.BaselineOffset()) * scale);
        if (recorded) {
            // Each run of characters between blanks starts in its own cell, so the
            // columns stay true whatever the playback does to the font's advance.
            painter.setFont(cellFonts.Font(text));
            const QString &line = text.Text;
            for (qsizetype at = 0; at < line.size();) {
                if (line.at(at).isSpace()) {
                    ++at;
                    continue;
                }
                qsizetype end = at;
                while (end < line.size() && !line.at(end).isSpace())
                    ++end;
                painter.drawText(origin + QPointF(at * advance, 0.0), line.mid(at, end - at));
                at = end;
            }
        } else {
            painter.drawGlyphRun(origin, PlacedGlyphs(faces.Face(text), text.Text, advance));
        }
    }
    painter.restore();
}

void PreparePagedDevice(const cPageDocument &document, QPagedPaintDevice &device)
{
    device.setPageLayout(QPageLayout(document.PaperSize(), document.PaperOrientation(),
                                     QMarginsF(0, 0, 0, 0), QPageLayout::Millimeter));
}

bool PaintDocument(const cPageDocument &document, QPagedPaintDevice &device)
{
    return PaintDocument(document, device, [](int) { return true; });
}

bool PaintDocument(const cPageDocument &document, QPagedPaintDevice &device,
                   const std::function<bool(int page)> &beforePage)
{
    QPainter painter;
    if (!painter.begin(&device))
        return false;
    const double dotsPerInch = device.logicalDpiX();
    for (int page = 1; page <= document.PageCount(); ++page) {
        if (!beforePage(page)) {
            painter.end();
            return false;
        }
        if (page > 1 && !device.newPage()) {
            painter.end();
            return false;
        }
        PaintPage(document, page, painter, dotsPerInch);
    }
    return painter.end();
}
