#pragma once

#include "base/user_interaction.h"

#include "ui/frm_msg.h"
#include "ui/frm_progress.h"

#include <memory>

// The seam as the person at the desk sees it: message boxes, the progress window,
// the message window, the beep and the hourglass pointer.
class cQtInteraction final : public cUserInteraction
{
public:
    bool AskYesNo(const QString &question, const QString &title) override;
    void ShowMessage(const QString &text, MessageIcon icon, const QString &title) override;
    void ProgressStart(const QString &text, qint32 maximum) override;
    void ProgressUpdate(qint32 value) override;
    void ProgressTerminate() override;
    void ShowLongText(const QString &title, const QString &text) override;
    QString ChooseSaveFile(const cFileRequest &request) override;
    QString ChooseOpenFile(const cFileRequest &request) override;
    void Beep() override;
    void SetBusyPointer(bool busy) override;

    // The two windows of the seam, made on first use.
    frmProgress &ProgressWindow();
    frmMsg &MessageWindow();

private:
    bool busyPointerShown_ = false;
    std::unique_ptr<frmProgress> progress_;
    std::unique_ptr<frmMsg> message_;
};
