#pragma once

#include "session/players.h"

#include <QString>

// The choices a report or an export reads while it runs. The print dialog and the
// export dialog fill one of these from their controls and hand it over; the reports
// never look at a window. Each member names the controls it stands for, and starts
// in the state those controls start in.

// The frame "Selection": optAll, optUser1 to optUser4, optTournament.
enum class PlayerSelection { All, User1, User2, User3, User4, Tournament };

// The frame "Sequence": optName, optAge, optClub, optGradeCode, optSchool, optCounty.
enum class PlayerSequence { Name, Age, Club, GradeCode, School, County };

// The frame "Order" of the cross table: optByPin, optByName, optByGrade, optByScore.
enum class CrossTableOrder { ByPin, ByName, ByGrade, ByScore };

// The frame "Details" of the cross table: optPPos numbers rows and opponents by
// their position in the table, optPPin by pin.
enum class RowNumbering { Position, Pin };

struct cPrintOptions
{
    PlayerSelection Selection = PlayerSelection::All;
    PlayerSequence Sequence = PlayerSequence::Name;
    // The frame "Tie break method": optSum, optPro, optSB, optNone.
    TieBreakMode TieBreak = TieBreakMode::optNone;
    CrossTableOrder Order = CrossTableOrder::ByPin;
    RowNumbering Numbering = RowNumbering::Pin;
    // chkPlayerCodes: the cross table shows each entrant's BCF code.
    bool PlayerCodes = false;
    // chkUserDetails: pairing cards name the first two user-defined flags.
    bool UserDetails = true;
    // The text of cmbRound: the round of the pairing list.
    QString Round;
};

struct cExportOptions
{
    PlayerSelection Selection = PlayerSelection::All;
    // chkPersonal, chkContact, chkClub, chkGrade, chkUser, chkResults.
    bool Personal = false;
    bool Contact = false;
    bool Club = false;
    bool Grade = false;
    bool User = false;
    // Read by the tournament export only; the register export ignores it.
    bool Results = false;
    // The text of txtDestination: the file the export replaces.
    QString Destination;
};
