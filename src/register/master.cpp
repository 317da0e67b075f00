#include "register/master.h"

#include "base/app_info.h"
#include "base/common.h"
#include "base/user_interaction.h"
#include "database/database.h"
#include "database/sql.h"
#include "session/globals.h"

cMaster::cMaster() : cPersonRecord(QStringLiteral("Master"), QStringLiteral("MasterId")) {}

bool cMaster::DeleteRequired() const
{
    const QVariant entrant =
        SqlScalar(QStringLiteral("Select 1 From Player Where MasterId = ? Limit 1"),
                  {WholeValue(MasterId())});
    if (entrant.isNull())
        return true;
    return Interaction().AskYesNo(QStringLiteral("The Player has been included in a Tournament. "
                                                 "Do you still want to delete the player?"),
                                  AppInfo::Title());
}

QString cMaster::NextId() const
{
    return Database().NextMasterId();
}
