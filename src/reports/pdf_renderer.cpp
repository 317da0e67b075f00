#include "reports/pdf_renderer.h"

#include "base/app_info.h"
#include "reports/page_document.h"
#include "reports/page_renderer.h"

#include <QPdfWriter>

namespace {

// Fine enough that a rule of a tenth of a millimetre keeps its width.
constexpr int PdfResolution = 1200;

} // namespace

bool WritePdf(const cPageDocument &document, const QString &fileName)
{
    QPdfWriter writer(fileName);
    writer.setResolution(PdfResolution);
    writer.setTitle(document.DocumentTitle());
    writer.setCreator(AppInfo::Title());
    PreparePagedDevice(document, writer);
    return PaintDocument(document, writer);
}
