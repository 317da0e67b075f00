#include "conduct/progress_window.h"

#include "base/progress.h"
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

cProgressWindow::cProgressWindow(const QString &caption, qint32 maximum)
{
    Progress::Start(ProgressText(caption), maximum);
}

cProgressWindow::~cProgressWindow()
{
    Progress::Terminate();
}

void cProgressWindow::Update(qint32 value)
{
    Progress::Update(value);
}
