#include "base/busy.h"

#include "base/user_interaction.h"

namespace {
qint16 busyCount = 0;
}

void BeginBusy()
{
    ++busyCount;
    if (busyCount >= 1)
        Interaction().SetBusyPointer(true);
}

void EndBusy()
{
    --busyCount;
    if (busyCount < 1) {
        Interaction().SetBusyPointer(false);
        busyCount = 0;
    }
}

qint16 BusyCount()
{
    return busyCount;
}
