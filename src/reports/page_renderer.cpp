#include "reports/page_renderer.h"

#include "reports/page_document.h"

#include <QFont>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPen>

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

// The font a text is drawn in, sized so that its em on the sheet is the em that the
// fixed metrics measured, whatever the resolution of the device.
QFont DeviceFont(const cPageText &text, double scale, int deviceDpi)
{
    QFont font(text.FontName);
    font.setStyleHint(QFont::TypeWriter, QFont::PreferMatch);
    font.setFixedPitch(true);
    font.setKerning(false);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setBold((text.FontStyle & FontStyle::Bold) != 0);
    font.setItalic((text.FontStyle & FontStyle::Italic) != 0);
    const double pixels = cPageDocument::EmSize(text.FontHeight) * scale;
    font.setPointSizeF(qMax(0.1, pixels * 72.0 / qMax(1, deviceDpi)));
    return font;
}

} // namespace

void PaintPage(const cPageDocument &document, int page, QPainter &painter, double dotsPerInch)
{
    // Device units in a tenth of a millimetre.
    const double scale = dotsPerInch / 254.0;
    const cPage &content = document.Page(page);

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
        painter.setFont(DeviceFont(text, scale, painter.device()->logicalDpiY()));
        const cPageRect box = text.Box();
        painter.drawText(QPointF(box.Left * scale, (box.Top + text.BaselineOffset()) * scale),
                         text.Text);
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
    QPainter painter;
    if (!painter.begin(&device))
        return false;
    const double dotsPerInch = device.logicalDpiX();
    for (int page = 1; page <= document.PageCount(); ++page) {
        if (page > 1 && !device.newPage()) {
            painter.end();
            return false;
        }
        PaintPage(document, page, painter, dotsPerInch);
    }
    return painter.end();
}
