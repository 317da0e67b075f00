#pragma once

#include <QtGlobal>

#include <optional>

// A mark of what the session's database holds: two equal marks mean the same opening
// of the file and no row written in between, so that rows read at the first may be
// shown again at the second without reading them anew.
struct cContentStamp
{
    quint64 opening = 0;
    qint64 changes = 0;

    bool operator==(const cContentStamp &) const = default;
};

// The mark now; none when the driver keeps a SQLite library of its own, whose count of
// written rows this program cannot read.
std::optional<cContentStamp> ContentStamp();

// Counts an opening of the session's connection: a file opened afresh, after a
// restore for instance, may hold anything, whatever the count of written rows says.
void NoteDatabaseOpened();
