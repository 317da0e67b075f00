#include "base/user_interaction.h"

namespace {

class cQuietInteraction final : public cUserInteraction
{
public:
    bool AskYesNo(const QString &, const QString &) override { return true; }
    void ShowMessage(const QString &, MessageIcon, const QString &) override {}
    void ProgressStart(const QString &, qint32) override {}
    void ProgressUpdate(qint32) override {}
    void ProgressTerminate() override {}
    void ShowLongText(const QString &, const QString &) override {}
    QString ChooseSaveFile(const cFileRequest &) override { return QString(); }
    QString ChooseOpenFile(const cFileRequest &) override { return QString(); }
    void Beep() override {}
    void SetBusyPointer(bool) override {}
};

cQuietInteraction quietInteraction;
cUserInteraction *installedInteraction = nullptr;

} // namespace

cUserInteraction &Interaction()
{
    return installedInteraction ? *installedInteraction : quietInteraction;
}

void InstallInteraction(cUserInteraction *interaction)
{
    installedInteraction = interaction;
}
