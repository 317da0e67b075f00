#pragma once

#include <QtGlobal>

// The counted busy pointer: a busy section may call another, and the pointer only
// returns to normal when the outermost one ends.
void BeginBusy();
void EndBusy();
qint16 BusyCount();

// Begins a busy section and ends it when the scope is left, by any path.
class cBusySection
{
public:
    cBusySection() { BeginBusy(); }
    ~cBusySection() { EndBusy(); }
    cBusySection(const cBusySection &) = delete;
    cBusySection &operator=(const cBusySection &) = delete;
};
