#pragma once

#include <QString>

class cMaster;
class cTournament;

// Pieces of text that several reports share: the right-aligned number columns, the
// head of a tournament's report and the grouping of a list of people.

// The value right-aligned in width columns with blanks on the left, as a format of
// that many at-signs gives it; a longer value stands whole and widens the line.
QString RightAligned(const QString &value, int width);

// A blank line, the tournament's title and its event as title lines.
void PrintTournamentTitles(const cTournament &tournament);
// " " and the text for each of the five free texts that is not empty.
void PrintTournamentTexts(const cTournament &tournament);

// The breaks of a list of people in a sequence: an empty line after every tenth
// row of a group, and at each new group either an empty line (by name) or a new
// running heading (by any other sequence).
class cListGroups
{
public:
    explicit cListGroups(const QString &key) : key_(key) {}

    // By name: the initial of the row's surname opens a new group when it differs
    // from the key, with an empty line ahead of the row.
    void NextByName(const QString &initial);
    // By any other sequence: a new value opens a group under its own heading,
    // which repeats at the head of each later page of the group.
    void NextByValue(const QString &value, const QString &heading);

private:
    // True when the row stays in the present group; the tenth row of a group is
    // followed by an empty line.
    bool SameGroup(const QString &value);

    QString key_;
    int counter_ = 0;
};

// The heading of a group whose value is empty.
QString UnknownOr(const QString &value, const QString &heading);

// A row of a name-and-address list: the name, the register's address on one line,
// the telephone number and the mail address, in fixed columns; a long text loses
// its tail, the mail address stands whole.
QString NameAndAddressRow(const QString &displayName, const cMaster &master);
