// The name-and-address list of the register: every person, or those flagged for one
// of the user-defined purposes, in a chosen sequence.

#include "base/common.h"
#include "database/sql.h"
#include "register/master.h"
#include "reports/print_cntrl.h"
#include "reports/report_options.h"
#include "reports/report_text.h"
#include "session/control.h"

#include <QSqlQuery>
#include <QSqlRecord>

#include <optional>

using namespace mPrintCntrl;

namespace {

// The condition and the title line of one of the user-defined flags.
struct cFlagSelection
{
    QString condition;
    QString caption;
};

std::optional<cFlagSelection> FlagSelection(PlayerSelection selection, const cControl &control)
{
    switch (selection) {
    case PlayerSelection::User1:
        return cFlagSelection{QStringLiteral(" Where Special1 = 'Y'"), control.UserDefined1()};
    case PlayerSelection::User2:
        return cFlagSelection{QStringLiteral(" Where Special2 = 'Y'"), control.UserDefined2()};
    case PlayerSelection::User3:
        return cFlagSelection{QStringLiteral(" Where Special3 = 'Y'"), control.UserDefined3()};
    case PlayerSelection::User4:
        return cFlagSelection{QStringLiteral(" Where Special4 = 'Y'"), control.UserDefined4()};
    case PlayerSelection::All:
    case PlayerSelection::Tournament:
        break;
    }
    return std::nullopt;
}

// The field that orders the list ahead of the name.
QString SequenceField(PlayerSequence sequence)
{
    switch (sequence) {
    case PlayerSequence::Age:
        return QStringLiteral(" Age ");
    case PlayerSequence::County:
        return QStringLiteral(" Address4");
    case PlayerSequence::GradeCode:
        return QStringLiteral(" ClubName");
    case PlayerSequence::Club:
        return QStringLiteral(" Club");
    case PlayerSequence::School:
        return QStringLiteral(" School");
    case PlayerSequence::Name:
        break;
    }
    return QString();
}

void GroupRow(cListGroups &groups, PlayerSequence sequence, const cMaster &master)
{
    switch (sequence) {
    case PlayerSequence::Name:
        groups.NextByName(master.Surname().left(1));
        break;
    case PlayerSequence::Age:
        groups.NextByValue(master.Age(), master.Age().isEmpty()
                                             ? QStringLiteral("Unknown")
                                             : QStringLiteral("Age: ") + master.Age());
        break;
    case PlayerSequence::County:
        groups.NextByValue(master.Address4(), UnknownOr(master.Address4(), master.Address4()));
        break;
    case PlayerSequence::GradeCode:
        groups.NextByValue(
            master.ClubCode(),
            UnknownOr(master.ClubCode(), master.ClubCode() + u' ' + master.ClubName()));
        break;
    case PlayerSequence::Club:
        groups.NextByValue(master.Club(), UnknownOr(master.Club(), master.Club()));
        break;
    case PlayerSequence::School:
        groups.NextByValue(master.School(), UnknownOr(master.School(), master.School()));
        break;
    }
}

} // namespace

void cControl::ListPlayers(qint32 destination, const cPrintOptions &options) const
{
    SetPrintMargin(100);
    PrintStart(destination, PageOrientation::Landscape);
    PrintLine(QStringLiteral(" "));

    QString statement = QStringLiteral("Select * From Master ");
    const std::optional<cFlagSelection> flag = FlagSelection(options.Selection, *this);
    if (options.Selection == PlayerSelection::All) {
        PrintTitleLine(QStringLiteral("Name and Address List"));
    } else if (flag) {
        statement += flag->condition;
        PrintTitleLine(QStringLiteral("Name and Address List"));
        PrintTitleLine(QString());
        PrintTitleLine(flag->caption);
    }
    PrintLine(QStringLiteral(" "));

    const QString field = SequenceField(options.Sequence);
    if (!field.isEmpty())
        statement += QStringLiteral(" Order by ") + field + QStringLiteral(", Surname, Forename");
    else
        statement += QStringLiteral(" Order by Surname, Forename");

    QSqlQuery rows = RunSql(statement);
    const int masterIdColumn = rows.record().indexOf(QStringLiteral("MasterId"));
    const int surnameColumn = rows.record().indexOf(QStringLiteral("Surname"));
    std::optional<cListGroups> groups;
    while (rows.next()) {
        if (!groups)
            groups.emplace(TextOf(rows.value(surnameColumn)).trimmed().left(1));
        cMaster master;
        master.Load(TextOf(rows.value(masterIdColumn)));
        GroupRow(*groups, options.Sequence, master);
        PrintLine(NameAndAddressRow(master.DisplayName(false), master));
    }

    PrintLine(QString());
    BuildClosingNotice();
    PrintEnd();
    PrintPageNumbers();
}
