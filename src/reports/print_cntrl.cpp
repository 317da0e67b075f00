#include "reports/print_cntrl.h"

#include "base/app_info.h"
#include "base/common.h"
#include "base/fatal_fault.h"
#include "reports/print_host.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <cmath>
#include <memory>

namespace mPrintCntrl {

namespace {

constexpr int SubscriptOutOfRange = 9;

// The one font of every text report.
const QString ReportFont = QStringLiteral("Courier New");

// Running lines follow one another at this multiple of the line height, while the
// test for a full page uses the smaller height of a line at 8/10 of the size, so a
// line may stand in the last position that its own small height still fits.
constexpr double LinePitch = 1.2;

const QRgb Black = qRgb(0, 0, 0);

struct cState
{
    cPageDocument document;
    qint32 destination = Destination::Paper;
    std::unique_ptr<QFile> webFile;
    qint32 margin = 0;
    qint32 left = 0;
    qint32 top = 0;
    qint32 right = 0;
    qint32 bottom = 0;
    qint32 centre = 0;
    QString fontName;
    qint32 fontSize = 0;
    qint32 fontStyle = FontStyle::Normal;
    qint32 lineHeight = 0;
    qint32 smallLineHeight = 0;
    bool headingPrinted = false;
    QStringList headingLines;
    QStringList closingLines;
    bool keepTogetherOn = false;
    QStringList keepTogetherLines;
    QList<cRunningLine> runningLines;
};

cState &State()
{
    static cState state;
    return state;
}

// A whole number of units from a measurement; halves go to the even neighbour.
qint32 WholeUnits(double value)
{
    return static_cast<qint32>(std::lrint(value));
}

void Overflow(const QString &routine, const QString &block, int room)
{
    RaiseFatal(QStringLiteral("mPrintCntrl.") + routine, SubscriptOutOfRange,
               QStringLiteral("The ") + block + QStringLiteral(" holds no more than ") +
                   QString::number(room) + QStringLiteral(" lines"));
}

// The web page shows exactly the report's lines, so the three characters that a
// browser would read as mark-up are written as their entities.
QString WebText(const QString &text)
{
    QString escaped;
    escaped.reserve(text.size());
    for (const QChar c : text) {
        if (c == u'&')
            escaped += QStringLiteral("&amp;");
        else if (c == u'<')
            escaped += QStringLiteral("&lt;");
        else if (c == u'>')
            escaped += QStringLiteral("&gt;");
        else
            escaped += c;
    }
    return escaped;
}

// Lines of the web page end in CR LF, the line ending of the web's own texts.
void WriteWebLine(const QString &line)
{
    QFile &file = *State().webFile;
    const QByteArray bytes = line.toUtf8() + QByteArrayLiteral("\r\n");
    if (file.write(bytes) != bytes.size())
        RaiseFatal(QStringLiteral("mPrintCntrl.PrintLine"), FaultNumber::File,
                   QStringLiteral("The web page ") + QDir::toNativeSeparators(file.fileName()) +
                       QStringLiteral(" could not be written: ") + file.errorString());
}

void OpenWebPage()
{
    cState &s = State();
    s.webFile.reset();
    const QString path = WebPagePath();
    QDir().mkpath(QFileInfo(path).absolutePath());
    auto file = std::make_unique<QFile>(path);
    if (!file->open(QIODevice::WriteOnly | QIODevice::Truncate))
        RaiseFatal(QStringLiteral("mPrintCntrl.PrintStart"), FaultNumber::File,
                   QStringLiteral("The web page ") + QDir::toNativeSeparators(path) +
                       QStringLiteral(" could not be created: ") + file->errorString());
    s.webFile = std::move(file);
    // The page is written in UTF-8 and says so, so that a browser shows names with
    // accents as they are.
    WriteWebLine(QStringLiteral("<HTML><HEAD><meta charset=\"utf-8\"></HEAD><BODY><PRE>"));
}

void CloseWebPage()
{
    cState &s = State();
    if (!s.webFile)
        return;
    WriteWebLine(QStringLiteral("</PRE></BODY></HTML>"));
    s.webFile->close();
    s.webFile.reset();
}

void AddClosingLine(const QString &text)
{
    cState &s = State();
    if (s.closingLines.size() >= MaxClosingLines)
        Overflow(QStringLiteral("BuildClosingNotice"), QStringLiteral("closing notice"),
                 MaxClosingLines);
    s.closingLines.append(text);
}

void PrintClosingNotice()
{
    cState &s = State();
    cPageDocument &document = s.document;
    // The notice is kept whole on the page where it begins.
    if (document.CurrentY() + (s.closingLines.size() + 4) * s.smallLineHeight > s.bottom) {
        document.setCurrentPage(document.CurrentPage() + 1);
        document.setCurrentY(s.top);
    }
    SetPrintFont(QString(), FontStyle::Italic, 0);
    PrintLine(QString());
    const QStringList lines = s.closingLines;
    for (const QString &line : lines)
        PrintLine(line);
    SetPrintFont(QString(), -1, 0);
}

} // namespace

const cMakerDetails &Maker()
{
    // The maker's details as the closing notice of every report names them. Only the
    // name is given: the notice leaves out what is empty here.
    static const cMakerDetails maker{
        QStringLiteral("Velmora! Software"), // Name
        QString(),                           // Street
        QString(),                           // Town
        QString(),                           // County
        QString(),                           // Postcode
        QString(),                           // Telephone
        QString(),                           // EMail
    };
    return maker;
}

QStringList MakerLines(const cMakerDetails &maker)
{
    QString postal;
    const auto append = [&postal](const QString &separator, const QString &detail) {
        if (detail.isEmpty())
            return;
        if (!postal.isEmpty())
            postal += separator;
        postal += detail;
    };
    append(QString(), maker.Name);
    append(QStringLiteral(", "), maker.Street);
    append(QStringLiteral(", "), maker.Town);
    append(QStringLiteral(", "), maker.County);
    append(QStringLiteral(". "), maker.Postcode);
    if (!postal.isEmpty())
        postal += u'.';

    QStringList contact;
    if (!maker.Telephone.isEmpty())
        contact.append(QStringLiteral("Tel: ") + maker.Telephone);
    if (!maker.EMail.isEmpty())
        contact.append(QStringLiteral("EMail: ") + maker.EMail);
    return {postal, contact.join(u' ')};
}

void SetPrintMargin(qint32 margin)
{
    State().margin = margin;
}

void PrintStart(qint32 destination, qint32 orientation)
{
    cState &s = State();
    s.destination = destination;
    s.headingPrinted = false;
    s.headingLines.clear();
    s.closingLines.clear();
    s.keepTogetherOn = false;
    s.keepTogetherLines.clear();
    s.runningLines.clear();
    s.webFile.reset();

    cPageDocument &document = s.document;
    document.NewDocument();
    document.setDocumentTitle(PrintHost().DocumentTitle());
    document.setOrientation(orientation);
    document.setPrinterLayout(PrintHost().PrinterLayout(document.PaperOrientation()));

    document.GetPrintableArea(s.left, s.top, s.right, s.bottom);
    s.left = MaxOf(s.left, s.margin);
    s.top = MaxOf(s.top, s.margin);
    // Only the right edge gives up half a margin against what the printer reaches.
    s.right = MinOf(s.right - s.margin / 2, document.PageWidth() - s.margin);
    s.bottom = MinOf(s.bottom, document.PageHeight() - s.margin);
    s.centre = (s.right - s.left) / 2 + s.left;
    document.setCurrentY(s.top);

    SetPrintFont(ReportFont, -1, 8);

    if (destination == Destination::WebPage)
        OpenWebPage();
}

void SetPrintFont(const QString &name, qint32 style, qint32 size)
{
    cState &s = State();
    if (!name.isEmpty())
        s.fontName = name;
    if (size != 0)
        s.fontSize = size;
    if (style != 0)
        s.fontStyle = MaxOf(style, 0);

    cPageDocument &document = s.document;
    document.SetPen(0, 2, Black);
    qint32 width = 0;
    document.SetFont(s.fontName, s.fontSize * 8, FontStyle::Normal);
    document.MeasureText(QStringLiteral("abg"), width, s.smallLineHeight);
    document.SetFont(s.fontName, s.fontSize * 10, FontStyle::Bold);
    document.MeasureText(QStringLiteral("abg"), width, s.lineHeight);
    document.SetFont(s.fontName, s.fontSize * 10, s.fontStyle);
    document.setTextAlign(TextAlign::TopLeft);
}

void PrintLine(const QString &text, qint32 x, qint32 y)
{
    cState &s = State();
    if (s.keepTogetherOn) {
        if (s.keepTogetherLines.size() >= MaxKeepTogetherLines)
            Overflow(QStringLiteral("PrintLine"), QStringLiteral("kept block"),
                     MaxKeepTogetherLines);
        s.keepTogetherLines.append(text);
        return;
    }
    if (!s.headingPrinted)
        PrintPageHeading();

    cPageDocument &document = s.document;
    if (x == 0 && y == 0) {
        if (document.CurrentY() + s.smallLineHeight > s.bottom) {
            document.setCurrentPage(document.CurrentPage() + 1);
            document.setCurrentY(s.top);
            PrintPageHeading();
        }
        document.setTextAlign(TextAlign::TopLeft);
        const qint32 lineY = document.CurrentY();
        // A line longer than the page is cut at the right edge, never wrapped.
        document.DrawTextClipped(s.left, lineY, text, s.left, lineY, s.right, lineY + s.lineHeight);
        s.runningLines.append({document.CurrentPage(), lineY, text, s.fontSize, s.fontStyle});
        document.setCurrentY(WholeUnits(lineY + s.lineHeight * LinePitch));
        if (s.destination == Destination::WebPage && s.webFile)
            WriteWebLine(WebText(text));
    } else {
        document.setTextAlign(TextAlign::TopLeft);
        document.DrawTextClipped(x, y, text, x, y, s.right, y + s.lineHeight);
    }
}

void PrintTitleLine(const QString &text)
{
    const qint32 size = State().fontSize;
    SetPrintFont(QString(), FontStyle::Bold, size + 2);
    PrintLine(text);
    SetPrintFont(QString(), -1, size);
}

void ClearPageHeading()
{
    State().headingLines.clear();
}

void AddPageHeading(const QString &text)
{
    cState &s = State();
    if (s.headingLines.size() >= MaxHeadingLines)
        Overflow(QStringLiteral("AddPageHeading"), QStringLiteral("page heading"), MaxHeadingLines);
    s.headingLines.append(text);
    s.headingPrinted = false;
}

void PrintPageHeading()
{
    cState &s = State();
    s.headingPrinted = true;
    SetPrintFont(QString(), FontStyle::Bold, 0);
    cPageDocument &document = s.document;
    // A heading never stands at the foot of a page with fewer than two lines after it.
    if (document.CurrentY() + (s.headingLines.size() + 2) * s.smallLineHeight > s.bottom) {
        document.setCurrentPage(document.CurrentPage() + 1);
        document.setCurrentY(s.top);
    }
    const QStringList lines = s.headingLines;
    for (const QString &line : lines)
        PrintLine(line);
    SetPrintFont(QString(), -1, 0);
}

void BeginKeepTogether()
{
    State().keepTogetherOn = true;
}

void EndKeepTogether()
{
    cState &s = State();
    s.keepTogetherOn = false;
    cPageDocument &document = s.document;
    if (document.CurrentY() + (s.keepTogetherLines.size() + 1) * s.smallLineHeight > s.bottom) {
        document.setCurrentPage(document.CurrentPage() + 1);
        document.setCurrentY(s.top);
    }
    // The block is followed by one empty line, which sets it off from what comes next.
    const QStringList lines = s.keepTogetherLines;
    for (const QString &line : lines)
        PrintLine(line);
    PrintLine(QString());
    s.keepTogetherLines.clear();
}

void BuildClosingNotice()
{
    cState &s = State();
    const qint32 size = s.fontSize;
    SetPrintFont(QString(), -1, 6);
    AddClosingLine(QString());
    AddClosingLine(QStringLiteral("This print out was was produced by ") + AppInfo::Title() +
                   QStringLiteral(" which is available from"));
    const QStringList makerLines = MakerLines(Maker());
    for (const QString &line : makerLines)
        AddClosingLine(line);
    SetPrintFont(QString(), -1, size);
}

void PrintEnd()
{
    PrintClosingNotice();
    if (State().destination == Destination::WebPage)
        CloseWebPage();
}

void PrintPageNumbers()
{
    cState &s = State();
    cPageDocument &document = s.document;
    const qint32 pageCount = document.PageCount();
    for (qint32 page = 1; page <= pageCount; ++page) {
        document.setCurrentPage(page);
        document.SetFont(s.fontName, 60, FontStyle::Normal);
        document.setTextAlign(TextAlign::BottomRight);
        document.DrawText(s.right - 10, s.top,
                          QStringLiteral("Page ") + QString::number(page) + QStringLiteral(" of ") +
                              QString::number(pageCount));
    }
}

void SetPrintPage(qint32 page)
{
    State().document.setCurrentPage(page);
}

void SetLinePen(qint32 style, double width, QRgb colour)
{
    State().document.SetPen(style, WholeUnits(width), colour);
}

void DrawRule(double x1, double y1, double x2, double y2)
{
    cPageDocument &document = State().document;
    document.MoveTo(WholeUnits(x1), WholeUnits(y1));
    document.LineTo(WholeUnits(x2), WholeUnits(y2));
}

void ShowPrintPreview()
{
    PrintHost().ShowPreview(State().document);
}

void ShowPrintSetup()
{
    PrintHost().ShowPrinterSetup();
}

void SendToPrinter()
{
    if (State().destination == Destination::Paper)
        PrintHost().PrintDocument(State().document);
}

void ShowWebPreview()
{
    PrintHost().ShowWebPreview(WebPagePath());
}

QString WebPagePath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) +
           QStringLiteral("/Velmora/web.htm");
}

const cPageDocument &Document()
{
    return State().document;
}

const QList<cRunningLine> &RunningLines()
{
    return State().runningLines;
}

qint32 PrintDestination()
{
    return State().destination;
}

qint32 PrintMargin()
{
    return State().margin;
}

qint32 PrintLeft()
{
    return State().left;
}

qint32 PrintTop()
{
    return State().top;
}

qint32 PrintRight()
{
    return State().right;
}

qint32 PrintBottom()
{
    return State().bottom;
}

qint32 PrintCentre()
{
    return State().centre;
}

QString PrintFontName()
{
    return State().fontName;
}

qint32 PrintFontSize()
{
    return State().fontSize;
}

qint32 PrintFontStyle()
{
    return State().fontStyle;
}

qint32 LineHeight()
{
    return State().lineHeight;
}

qint32 SmallLineHeight()
{
    return State().smallLineHeight;
}

bool HeadingPrinted()
{
    return State().headingPrinted;
}

QStringList PageHeadingLines()
{
    return State().headingLines;
}

QStringList ClosingLines()
{
    return State().closingLines;
}

} // namespace mPrintCntrl
