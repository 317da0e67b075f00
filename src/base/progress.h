#pragma once

#include <QString>

// The progress window of every long pass. Start begins a busy section and Terminate
// ends it, so a pass shows the busy pointer for as long as its window stands.
namespace Progress {
void Start(const QString &text, qint32 maximum);
void Update(qint32 value);
void Terminate();
} // namespace Progress
