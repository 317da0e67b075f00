#include "conduct/progress_text.h"

#include "session/control.h"
#include "session/globals.h"
#include "session/tournament.h"

QString ProgressText(const QString &caption)
{
    QString text = caption + u'\n';
    if (const std::shared_ptr<cTournament> tournament = Control().Tournament())
        text += tournament->Title() + u'\n' + tournament->Tourn();
    else
        text += u'\n';
    return text;
}
