#pragma once

#include "reports/page_document.h"

#include <QList>
#include <QString>
#include <QStringList>

// The print channel: every report is composed through these routines, line by line
// or text by text, into the one page document of the run, and the same run of lines
// goes to paper, to the preview or to the web page. Only one report is open at a
// time; the routines keep their state between calls as a report goes along.
//
// A text report runs SetPrintMargin (100), PrintStart, its lines, BuildClosingNotice,
// PrintEnd and PrintPageNumbers; the print dialog then calls SendToPrinter,
// ShowPrintPreview or ShowWebPreview. Pairing cards and wall charts call
// SetPrintMargin (0) and PrintStart, draw with positioned texts and rules, and end
// with PrintEnd alone.
namespace mPrintCntrl {

namespace Destination {
inline constexpr qint32 Paper = 0;
inline constexpr qint32 Preview = 1;
inline constexpr qint32 WebPage = 2;
} // namespace Destination

// The room the running block may hold.
inline constexpr int MaxHeadingLines = 6;
inline constexpr int MaxClosingLines = 11;
inline constexpr int MaxKeepTogetherLines = 21;

// One line of the running text as it was placed: on which page, at which height,
// and in which size and style.
struct cRunningLine
{
    qint32 Page = 0;
    qint32 Y = 0;
    QString Text;
    qint32 FontSize = 0;
    qint32 FontStyle = 0;

    bool operator==(const cRunningLine &) const = default;
};

// Set before PrintStart; it keeps its value from one report to the next.
void SetPrintMargin(qint32 margin);
// Opens a report for destination (0 paper, 1 preview, 2 web page) on a page of
// orientation (1 portrait, 2 landscape).
void PrintStart(qint32 destination, qint32 orientation);
// "" keeps the font; style 0 keeps the style and a negative style sets normal;
// size 0 keeps the size (in points).
void SetPrintFont(const QString &name, qint32 style, qint32 size);
// x and y both 0: the next running line. Otherwise the text at that position.
void PrintLine(const QString &text, qint32 x = 0, qint32 y = 0);
// One running line, bold and two points larger.
void PrintTitleLine(const QString &text);
// Empties the running heading block without touching what is printed.
void ClearPageHeading();
// Appends to the running heading block; it prints ahead of the next line and at the
// head of every later page.
void AddPageHeading(const QString &text);
void PrintPageHeading();
// Lines between the two are buffered and printed as one block on one page,
// followed by one empty line.
void BeginKeepTogether();
void EndKeepTogether();
void BuildClosingNotice();
// Prints the closing notice and ends the web page.
void PrintEnd();
// Stamps "Page n of m" at the upper right of every page.
void PrintPageNumbers();
// The page under the pen, for cards and charts; the next number opens a new page.
void SetPrintPage(qint32 page);
void SetLinePen(qint32 style, double width, QRgb colour);
void DrawRule(double x1, double y1, double x2, double y2);

void ShowPrintPreview();
void ShowPrintSetup();
// Prints the document when the report was opened for paper; otherwise nothing.
void SendToPrinter();
void ShowWebPreview();

// Where the web page of the last web report stands.
QString WebPagePath();

// What the composers and the tests read back.
const cPageDocument &Document();
const QList<cRunningLine> &RunningLines();
qint32 PrintDestination();
qint32 PrintMargin();
qint32 PrintLeft();
qint32 PrintTop();
qint32 PrintRight();
qint32 PrintBottom();
qint32 PrintCentre();
QString PrintFontName();
qint32 PrintFontSize();
qint32 PrintFontStyle();
qint32 LineHeight();
qint32 SmallLineHeight();
bool HeadingPrinted();
QStringList PageHeadingLines();
QStringList ClosingLines();

// The maker's details that the closing notice names. A detail left empty drops out
// of its line together with the separator ahead of it.
struct cMakerDetails
{
    QString Name;
    QString Street;
    QString Town;
    QString County;
    QString Postcode;
    QString Telephone;
    QString EMail;
};
const cMakerDetails &Maker();
// The two lines of the closing notice that name the maker: postal, then telephone
// and mail.
QStringList MakerLines(const cMakerDetails &maker);

} // namespace mPrintCntrl
