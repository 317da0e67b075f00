#include "reports/pdf_renderer.h"

#include "base/app_info.h"
#include "reports/page_document.h"
#include "reports/page_renderer.h"

#include <QPdfWriter>

namespace {

// Fine enough that a rule of a tenth of a millimetre keeps its width.
constexpr int PdfResolution = 1200;

void PrepareWriter(const cPageDocument &document, QPdfWriter &writer)
{
    writer.setResolution(PdfResolution);
    writer.setTitle(document.DocumentTitle());
    writer.setCreator(AppInfo::Title());
    PreparePagedDevice(document, writer);
}

} // namespace

bool WritePdf(const cPageDocument &document, const QString &fileName)
{
    QPdfWriter writer(fileName);
    PrepareWriter(document, writer);
    return PaintDocument(document, writer);
}

bool WritePdf(const cPageDocument &document, QIODevice &device,
              const std::function<bool(int page)> &beforePage)
{
    QPdfWriter writer(&device);
    PrepareWriter(document, writer);
    return PaintDocument(document, writer, beforePage);
}
