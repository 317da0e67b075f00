#include "reports/report_text.h"

#include "base/common.h"
#include "register/master.h"
#include "reports/print_cntrl.h"
#include "session/tournament.h"

using namespace mPrintCntrl;

QString RightAligned(const QString &value, int width)
{
    return value.rightJustified(width, u' ', false);
}

void PrintTournamentTitles(const cTournament &tournament)
{
    PrintLine(QStringLiteral(" "));
    PrintTitleLine(tournament.Title());
    PrintTitleLine(tournament.Tourn());
}

void PrintTournamentTexts(const cTournament &tournament)
{
    for (const QString &text : {tournament.TText1(), tournament.TText2(), tournament.TText3(),
                                tournament.TText4(), tournament.TText5()})
        if (!text.isEmpty())
            PrintLine(QStringLiteral(" ") + text);
}

bool cListGroups::SameGroup(const QString &value)
{
    ++counter_;
    if (value != key_)
        return false;
    if (counter_ == 10) {
        PrintLine(QString());
        counter_ = 0;
    }
    return true;
}

void cListGroups::NextByName(const QString &initial)
{
    if (SameGroup(initial))
        return;
    key_ = initial;
    PrintLine(QString());
    counter_ = 0;
}

void cListGroups::NextByValue(const QString &value, const QString &heading)
{
    if (SameGroup(value))
        return;
    key_ = value;
    ClearPageHeading();
    AddPageHeading(QString());
    AddPageHeading(heading);
    counter_ = 0;
}

QString UnknownOr(const QString &value, const QString &heading)
{
    return value.trimmed().isEmpty() ? QStringLiteral("Unknown") : heading;
}

QString NameAndAddressRow(const QString &displayName, const cMaster &master)
{
    return PadRight(displayName, 30, QStringLiteral(" ")) + u' ' +
           PadRight(master.DisplayAddress(), 80, QStringLiteral(" ")) +
           PadRight(master.Phone(), 18, QStringLiteral(" ")) + master.eMail();
}
