#pragma once

#include "base/user_interaction.h"

#include <QList>
#include <QStringList>

// The seam for tests: records every call as one line of text and answers questions
// from a queue. It installs itself on construction and removes itself on destruction.
//
// Recorded lines:
//   "ask|<title>|<question>"       "message|<icon>|<title>|<text>"
//   "progress-start|<text>|<max>"  "progress-update|<value>"  "progress-end"
//   "long|<title>|<text>"          "beep"                     "busy|<0 or 1>"
//   "save-file|<title>|<folder>|<file name>|<filter>|<index>|<extension>"
//   "open-file|<title>|<folder>|<file name>|<filter>|<index>|<extension>"
class cScriptedInteraction final : public cUserInteraction
{
public:
    cScriptedInteraction();
    ~cScriptedInteraction() override;

    // Answers for the questions to come, in order. An unanswered question is
    // recorded as unexpected and answered Yes.
    void QueueAnswer(bool yes) { answers_.append(yes); }
    // Paths for the file dialogs to come, in order; "" stands for a cancel. A dialog
    // with no path queued is recorded as unexpected and cancelled.
    void QueueFile(const QString &path) { files_.append(path); }

    const QStringList &Calls() const { return calls_; }
    QStringList CallsStartingWith(const QString &prefix) const;
    int Count(const QString &prefix) const { return int(CallsStartingWith(prefix).size()); }
    bool HadUnexpectedQuestion() const { return unexpectedQuestion_; }
    bool BusyPointerShown() const { return busy_; }
    void Clear() { calls_.clear(); }

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

private:
    QString ChooseFile(const QString &kind, const cFileRequest &request);

    QList<bool> answers_;
    QStringList files_;
    QStringList calls_;
    bool unexpectedQuestion_ = false;
    bool busy_ = false;
};

QString IconName(MessageIcon icon);
