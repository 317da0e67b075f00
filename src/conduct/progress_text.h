#pragma once

#include <QString>

// The text of a progress window of the conduct passes: what is being done, then the
// open tournament's title and event on lines of their own.
QString ProgressText(const QString &caption);
