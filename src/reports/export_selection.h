#pragma once

#include "reports/report_options.h"

#include <QtGlobal>

// How many people an export of the selection writes: the entrants of the open
// tournament, or the register's people carrying the chosen user-defined flag, or
// the whole register.
qint64 PlayersInSelection(PlayerSelection selection);
