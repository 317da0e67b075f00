#include "base/progress.h"

#include "base/busy.h"
#include "base/common.h"
#include "base/user_interaction.h"

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
