#include "session/progress.h"

#include "session/busy.h"
#include "session/common.h"
#include "session/user_interaction.h"

namespace Progress {

void Start(const QString &text, qint32 maximum)
{
    BeginBusy();
    Interaction().ProgressStart(text, MaxOf(maximum, qint32(1)));
}

void Update(qint32 value)
{
    Interaction().ProgressUpdate(value);
}

void Terminate()
{
    Interaction().ProgressTerminate();
    EndBusy();
}

} // namespace Progress
