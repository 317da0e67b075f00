#pragma once

#include <QString>

#include <functional>

class QIODevice;

enum class WriteOutcome { Written, Cancelled, Failed };

// Writes a file so that it is either whole or as it was: the bytes go to a temporary
// file beside it, which takes the name only once everything is written. A file that
// can not be written (a folder that refuses it, a full disk, a name that is a folder)
// is told to the person with its name, and an earlier file of that name stays whole.
// write fills the open device and says how it went; Cancelled leaves everything as it
// was without a message.
WriteOutcome WriteWholeFile(const QString &path,
                            const std::function<WriteOutcome(QIODevice &device)> &write);
