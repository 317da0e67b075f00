#pragma once

#include <QList>
#include <QPageLayout>
#include <QPageSize>
#include <QRgb>
#include <QString>

#include <optional>

// The document that every report is composed into before it goes to paper, to the
// preview or to a PDF file: pages of positioned texts and rules.
//
// Every length is in tenths of a millimetre, measured from the top left corner of
// the sheet (an index card of 4 by 6 inches is about 1016 by 1524 of them). Font
// heights are in tenths of a point. Texts are measured with the fixed metrics of
// Courier New whatever font is named, so that line heights and page breaks come out
// the same on every machine and for every destination.

// The fixed metrics of Courier New in font units; its metric-compatible stand-ins
// carry the same figures, so rendering with either keeps the columns in place.
namespace CourierMetrics {
inline constexpr qint32 UnitsPerEm = 2048;
inline constexpr qint32 Advance = 1229;
inline constexpr qint32 Ascent = 1705;
inline constexpr qint32 Descent = 615;
} // namespace CourierMetrics

namespace PageOrientation {
inline constexpr qint32 Portrait = 1;
inline constexpr qint32 Landscape = 2;
} // namespace PageOrientation

namespace TextAlign {
// The point is the top left corner of the text: the text hangs right and down.
inline constexpr qint32 TopLeft = 0;
// The point is the lower right corner: the text ends at it and stands above it.
inline constexpr qint32 BottomRight = 10;
} // namespace TextAlign

// Font styles as the print channel passes them; they combine as bits.
namespace FontStyle {
inline constexpr qint32 Normal = 0;
inline constexpr qint32 Bold = 4;
inline constexpr qint32 Italic = 8;
} // namespace FontStyle

struct cPageRect
{
    qint32 Left = 0;
    qint32 Top = 0;
    qint32 Right = 0;
    qint32 Bottom = 0;

    bool operator==(const cPageRect &) const = default;
};

struct cPageText
{
    qint32 X = 0;
    qint32 Y = 0;
    QString Text;
    QString FontName;
    qint32 FontHeight = 0; // tenths of a point
    qint32 FontStyle = 0;
    qint32 Align = TextAlign::TopLeft;
    // Drawn only inside this rectangle when set; a text is never wrapped.
    std::optional<cPageRect> Clip;

    // The cell the text fills, whatever its alignment.
    cPageRect Box() const;
    // Distance from the top of the cell to the baseline, unrounded.
    double BaselineOffset() const;
};

struct cPageRule
{
    qint32 X1 = 0;
    qint32 Y1 = 0;
    qint32 X2 = 0;
    qint32 Y2 = 0;
    qint32 PenStyle = 0; // 0 solid, 1 dash, 2 dot, 3 dash-dot, 4 dash-dot-dot, 5 none
    qint32 PenWidth = 0;
    QRgb PenColour = 0;
};

struct cPage
{
    QList<cPageText> Texts;
    QList<cPageRule> Rules;
};

class cPageDocument
{
public:
    cPageDocument();

    // Discards what was drawn and starts again with one empty page, pen and text
    // position back at the top. The chosen printer and the orientation are kept.
    void NewDocument();

    QString DocumentTitle() const { return documentTitle_; }
    void setDocumentTitle(const QString &title) { documentTitle_ = title; }

    // 1 portrait, 2 landscape.
    qint32 Orientation() const { return orientation_; }
    void setOrientation(qint32 orientation);

    // The page layout of the chosen printer, or none: then the page is A4 and all of
    // it can be reached. The layout's margins that the printer cannot go inside
    // (its minimum margins) bound the printable area.
    void setPrinterLayout(const std::optional<QPageLayout> &layout);
    bool HasPrinter() const { return printerLayout_.has_value(); }

    // The sheet as a renderer sets it up on its device.
    QPageSize PaperSize() const;
    QPageLayout::Orientation PaperOrientation() const;

    // What the printer can reach on the page.
    void GetPrintableArea(qint32 &left, qint32 &top, qint32 &right, qint32 &bottom) const;
    qint32 PageWidth() const;
    qint32 PageHeight() const;

    qint32 CurrentY() const { return currentY_; }
    void setCurrentY(qint32 y) { currentY_ = y; }

    // The page under the pen. A number beyond the last page opens new pages up to
    // it; an earlier number returns to that page, and what is drawn is added to it.
    qint32 CurrentPage() const { return currentPage_; }
    void setCurrentPage(qint32 page);
    qint32 PageCount() const { return static_cast<qint32>(pages_.size()); }

    qint32 TextAlignment() const { return textAlign_; }
    void setTextAlign(qint32 align);

    void SetPen(qint32 style, qint32 width, QRgb colour);
    void SetFont(const QString &name, qint32 height, qint32 style);
    QString FontName() const { return fontName_; }
    qint32 FontHeight() const { return fontHeight_; }
    qint32 FontStyle() const { return fontStyle_; }

    // The size of the text in the present font.
    void MeasureText(const QString &text, qint32 &width, qint32 &height) const;

    void DrawTextClipped(qint32 x, qint32 y, const QString &text, qint32 left, qint32 top,
                         qint32 right, qint32 bottom);
    void DrawText(qint32 x, qint32 y, const QString &text);
    void MoveTo(qint32 x, qint32 y);
    void LineTo(qint32 x, qint32 y);

    // Pages are numbered from 1.
    const cPage &Page(qint32 number) const;

    // The fixed metrics, for a font height in tenths of a point, in tenths of a
    // millimetre: rounded for measuring, exact for drawing.
    static qint32 TextWidth(const QString &text, qint32 fontHeight);
    static qint32 TextHeight(qint32 fontHeight);
    static double EmSize(qint32 fontHeight);

private:
    cPageText PlacedText(qint32 x, qint32 y, const QString &text) const;
    QPageLayout OrientedPrinterLayout() const;

    QList<cPage> pages_;
    QString documentTitle_;
    qint32 orientation_ = PageOrientation::Portrait;
    std::optional<QPageLayout> printerLayout_;
    qint32 currentPage_ = 1;
    qint32 currentY_ = 0;
    qint32 penX_ = 0;
    qint32 penY_ = 0;
    qint32 textAlign_ = TextAlign::TopLeft;
    qint32 penStyle_ = 0;
    qint32 penWidth_ = 0;
    QRgb penColour_ = 0;
    QString fontName_;
    qint32 fontHeight_ = 100;
    qint32 fontStyle_ = FontStyle::Normal;
};
