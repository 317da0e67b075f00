#pragma once

#include <QString>

// How the logic speaks to the person at the desk. The logic never opens a window
// itself: it asks, tells and shows progress through the one installed
// implementation. The program installs the windowed one at start-up; tests install
// a scripted one that records every call and answers from a queue.
enum class MessageIcon { Plain, Information, Exclamation, Critical };

// What a common file dialog is to show. The filter pairs a label with a pattern,
// "Backup (*.bak)|*.bak|All Files (*.*)|*.*", and filterIndex picks one from 1.
struct cFileRequest
{
    QString title;
    QString folder;
    QString fileName;
    QString filter;
    int filterIndex = 1;
    QString defaultExtension;
};

class cUserInteraction
{
public:
    virtual ~cUserInteraction() = default;

    // A question with Yes and No buttons, Yes being the default. True means Yes.
    virtual bool AskYesNo(const QString &question, const QString &title) = 0;
    // A message box with an OK button.
    virtual void ShowMessage(const QString &text, MessageIcon icon, const QString &title) = 0;

    // The progress window: shown without waiting, its bar running from 0 to maximum.
    virtual void ProgressStart(const QString &text, qint32 maximum) = 0;
    virtual void ProgressUpdate(qint32 value) = 0;
    virtual void ProgressTerminate() = 0;

    // The message window that shows a long report of checks.
    virtual void ShowLongText(const QString &title, const QString &text) = 0;

    // The common save-file dialog, which asks before overwriting a file. The chosen
    // path, or "" when the person cancels.
    virtual QString ChooseSaveFile(const cFileRequest &request) = 0;
    // The common open-file dialog, which takes only a file that exists. The chosen
    // path, or "" when the person cancels.
    virtual QString ChooseOpenFile(const cFileRequest &request) = 0;

    virtual void Beep() = 0;
    virtual void SetBusyPointer(bool busy) = 0;
};

// The implementation in force. Until one is installed, a quiet one answers every
// question with its default and shows nothing, which is what a headless run wants.
cUserInteraction &Interaction();

// Installs an implementation that the caller keeps alive; nullptr restores the quiet one.
void InstallInteraction(cUserInteraction *interaction);
