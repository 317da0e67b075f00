#include "reports/print_host.h"

#include "base/app_info.h"

namespace {

class cQuietPrintHost final : public cPrintHost
{
public:
    QString DocumentTitle() override { return AppInfo::Title(); }
    std::optional<QPageLayout> PrinterLayout(QPageLayout::Orientation) override
    {
        return std::nullopt;
    }
    void PrintDocument(const cPageDocument &) override {}
    void ShowPreview(const cPageDocument &) override {}
    void ShowPrinterSetup() override {}
    void ShowWebPreview(const QString &) override {}
};

cQuietPrintHost quietHost;
cPrintHost *installedHost = nullptr;

} // namespace

cPrintHost &PrintHost()
{
    return installedHost ? *installedHost : quietHost;
}

void InstallPrintHost(cPrintHost *host)
{
    installedHost = host;
}
