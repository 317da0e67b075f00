#pragma once

#include <QString>

// The text of a progress window of the conduct passes: what is being done, then the
// open tournament's title and event on lines of their own.
QString ProgressText(const QString &caption);

// The progress window of one pass, closed however the pass ends: a fatal fault on the
// way must not leave the window standing or the busy pointer counted.
class cProgressWindow
{
public:
    cProgressWindow(const QString &caption, qint32 maximum);
    ~cProgressWindow();
    cProgressWindow(const cProgressWindow &) = delete;
    cProgressWindow &operator=(const cProgressWindow &) = delete;

    void Update(qint32 value);
};
