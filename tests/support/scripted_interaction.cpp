#include "support/scripted_interaction.h"

cScriptedInteraction::cScriptedInteraction()
{
    InstallInteraction(this);
}

cScriptedInteraction::~cScriptedInteraction()
{
    if (&Interaction() == this)
        InstallInteraction(nullptr);
}

QStringList cScriptedInteraction::CallsStartingWith(const QString &prefix) const
{
    QStringList matching;
    for (const QString &call : calls_)
        if (call.startsWith(prefix))
            matching.append(call);
    return matching;
}

bool cScriptedInteraction::AskYesNo(const QString &question, const QString &title)
{
    calls_.append(QStringLiteral("ask|") + title + u'|' + question);
    if (answers_.isEmpty()) {
        unexpectedQuestion_ = true;
        return true;
    }
    return answers_.takeFirst();
}

QString IconName(MessageIcon icon)
{
    switch (icon) {
    case MessageIcon::Plain:
        return QStringLiteral("plain");
    case MessageIcon::Information:
        return QStringLiteral("information");
    case MessageIcon::Exclamation:
        return QStringLiteral("exclamation");
    case MessageIcon::Critical:
        return QStringLiteral("critical");
    }
    return QString();
}

void cScriptedInteraction::ShowMessage(const QString &text, MessageIcon icon, const QString &title)
{
    calls_.append(QStringLiteral("message|") + IconName(icon) + u'|' + title + u'|' + text);
}

void cScriptedInteraction::ProgressStart(const QString &text, qint32 maximum)
{
    calls_.append(QStringLiteral("progress-start|") + text + u'|' + QString::number(maximum));
}

void cScriptedInteraction::ProgressUpdate(qint32 value)
{
    calls_.append(QStringLiteral("progress-update|") + QString::number(value));
}

void cScriptedInteraction::ProgressTerminate()
{
    calls_.append(QStringLiteral("progress-end"));
}

void cScriptedInteraction::ShowLongText(const QString &title, const QString &text)
{
    calls_.append(QStringLiteral("long|") + title + u'|' + text);
}

void cScriptedInteraction::Beep()
{
    calls_.append(QStringLiteral("beep"));
}

void cScriptedInteraction::SetBusyPointer(bool busy)
{
    busy_ = busy;
    calls_.append(QStringLiteral("busy|") + (busy ? u'1' : u'0'));
}

QString cScriptedInteraction::ChooseFile(const QString &kind, const cFileRequest &request)
{
    calls_.append(kind + u'|' + request.title + u'|' + request.folder + u'|' + request.fileName +
                  u'|' + request.filter + u'|' + QString::number(request.filterIndex) + u'|' +
                  request.defaultExtension);
    if (files_.isEmpty()) {
        unexpectedQuestion_ = true;
        return QString();
    }
    return files_.takeFirst();
}

QString cScriptedInteraction::ChooseSaveFile(const cFileRequest &request)
{
    return ChooseFile(QStringLiteral("save-file"), request);
}

QString cScriptedInteraction::ChooseOpenFile(const cFileRequest &request)
{
    return ChooseFile(QStringLiteral("open-file"), request);
}
