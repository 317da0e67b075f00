#include "reports/page_document.h"

#include "base/fatal_fault.h"

#include <QMarginsF>
#include <QRectF>

#include <cmath>

namespace {

// A caller that names a page or a setting the document does not have made a mistake
// that no report makes; it ends the run like any other fault of the program.
constexpr int SubscriptOutOfRange = 9;
constexpr int InvalidValue = 380;

// Tenths of a millimetre in one point.
constexpr double TenthsPerPoint = 254.0 / 72.0;

qint32 Rounded(double value)
{
    return static_cast<qint32>(std::lround(value));
}

} // namespace

cPageRect cPageText::Box() const
{
    const qint32 width = cPageDocument::TextWidth(Text, FontHeight);
    const qint32 height = cPageDocument::TextHeight(FontHeight);
    if (Align == TextAlign::BottomRight)
        return {X - width, Y - height, X, Y};
    return {X, Y, X + width, Y + height};
}

double cPageText::BaselineOffset() const
{
    return cPageDocument::EmSize(FontHeight) * CourierMetrics::Ascent / CourierMetrics::UnitsPerEm;
}

cPageDocument::cPageDocument()
{
    NewDocument();
}

void cPageDocument::NewDocument()
{
    pages_.clear();
    pages_.append(cPage());
    currentPage_ = 1;
    currentY_ = 0;
    penX_ = 0;
    penY_ = 0;
    textAlign_ = TextAlign::TopLeft;
}

void cPageDocument::setOrientation(qint32 orientation)
{
    if (orientation != PageOrientation::Portrait && orientation != PageOrientation::Landscape)
        RaiseFatal(QStringLiteral("cPageDocument.Orientation"), InvalidValue,
                   QStringLiteral("Invalid orientation ") + QString::number(orientation));
    orientation_ = orientation;
}

void cPageDocument::setPrinterLayout(const std::optional<QPageLayout> &layout)
{
    if (layout && layout->isValid())
        printerLayout_ = layout;
    else
        printerLayout_.reset();
}

QPageSize cPageDocument::PaperSize() const
{
    return printerLayout_ ? printerLayout_->pageSize() : QPageSize(QPageSize::A4);
}

QPageLayout::Orientation cPageDocument::PaperOrientation() const
{
    return orientation_ == PageOrientation::Landscape ? QPageLayout::Landscape
                                                      : QPageLayout::Portrait;
}

QPageLayout cPageDocument::OrientedPrinterLayout() const
{
    QPageLayout layout = *printerLayout_;
    layout.setOrientation(PaperOrientation());
    layout.setUnits(QPageLayout::Millimeter);
    return layout;
}

void cPageDocument::GetPrintableArea(qint32 &left, qint32 &top, qint32 &right, qint32 &bottom) const
{
    if (!printerLayout_) {
        left = 0;
        top = 0;
        right = PageWidth();
        bottom = PageHeight();
        return;
    }
    const QPageLayout layout = OrientedPrinterLayout();
    const QMarginsF reach = layout.minimumMargins();
    const QRectF sheet = layout.fullRect(QPageLayout::Millimeter);
    left = Rounded(reach.left() * 10.0);
    top = Rounded(reach.top() * 10.0);
    right = Rounded((sheet.width() - reach.right()) * 10.0);
    bottom = Rounded((sheet.height() - reach.bottom()) * 10.0);
}

qint32 cPageDocument::PageWidth() const
{
    const QSizeF sheet = PaperSize().size(QPageSize::Millimeter);
    return Rounded((PaperOrientation() == QPageLayout::Landscape ? sheet.height() : sheet.width()) *
                   10.0);
}

qint32 cPageDocument::PageHeight() const
{
    const QSizeF sheet = PaperSize().size(QPageSize::Millimeter);
    return Rounded((PaperOrientation() == QPageLayout::Landscape ? sheet.width() : sheet.height()) *
                   10.0);
}

void cPageDocument::setCurrentPage(qint32 page)
{
    if (page < 1)
        RaiseFatal(QStringLiteral("cPageDocument.CurrentPage"), SubscriptOutOfRange,
                   QStringLiteral("There is no page ") + QString::number(page));
    while (PageCount() < page)
        pages_.append(cPage());
    currentPage_ = page;
}

void cPageDocument::setTextAlign(qint32 align)
{
    if (align != TextAlign::TopLeft && align != TextAlign::BottomRight)
        RaiseFatal(QStringLiteral("cPageDocument.TextAlign"), InvalidValue,
                   QStringLiteral("Invalid text alignment ") + QString::number(align));
    textAlign_ = align;
}

void cPageDocument::SetPen(qint32 style, qint32 width, QRgb colour)
{
    penStyle_ = style;
    penWidth_ = width;
    penColour_ = colour;
}

void cPageDocument::SetFont(const QString &name, qint32 height, qint32 style)
{
    fontName_ = name;
    fontHeight_ = height;
    fontStyle_ = style;
}

void cPageDocument::MeasureText(const QString &text, qint32 &width, qint32 &height) const
{
    width = TextWidth(text, fontHeight_);
    height = TextHeight(fontHeight_);
}

cPageText cPageDocument::PlacedText(qint32 x, qint32 y, const QString &text) const
{
    cPageText placed;
    placed.X = x;
    placed.Y = y;
    placed.Text = text;
    placed.FontName = fontName_;
    placed.FontHeight = fontHeight_;
    placed.FontStyle = fontStyle_;
    placed.Align = textAlign_;
    return placed;
}

void cPageDocument::DrawTextClipped(qint32 x, qint32 y, const QString &text, qint32 left,
                                    qint32 top, qint32 right, qint32 bottom)
{
    cPageText placed = PlacedText(x, y, text);
    placed.Clip = cPageRect{left, top, right, bottom};
    pages_[currentPage_ - 1].Texts.append(placed);
}

void cPageDocument::DrawText(qint32 x, qint32 y, const QString &text)
{
    pages_[currentPage_ - 1].Texts.append(PlacedText(x, y, text));
}

void cPageDocument::MoveTo(qint32 x, qint32 y)
{
    penX_ = x;
    penY_ = y;
}

void cPageDocument::LineTo(qint32 x, qint32 y)
{
    pages_[currentPage_ - 1].Rules.append(
        cPageRule{penX_, penY_, x, y, penStyle_, penWidth_, penColour_});
    penX_ = x;
    penY_ = y;
}

const cPage &cPageDocument::Page(qint32 number) const
{
    if (number < 1 || number > PageCount())
        RaiseFatal(QStringLiteral("cPageDocument.Page"), SubscriptOutOfRange,
                   QStringLiteral("There is no page ") + QString::number(number));
    return pages_[number - 1];
}

double cPageDocument::EmSize(qint32 fontHeight)
{
    return fontHeight / 10.0 * TenthsPerPoint;
}

qint32 cPageDocument::TextWidth(const QString &text, qint32 fontHeight)
{
    return Rounded(EmSize(fontHeight) * text.size() * CourierMetrics::Advance /
                   CourierMetrics::UnitsPerEm);
}

qint32 cPageDocument::TextHeight(qint32 fontHeight)
{
    return Rounded(EmSize(fontHeight) * (CourierMetrics::Ascent + CourierMetrics::Descent) /
                   CourierMetrics::UnitsPerEm);
}
