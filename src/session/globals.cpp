#include "session/globals.h"

#include "base/fatal_fault.h"
#include "database/connection.h"
#include "database/database.h"
#include "session/control.h"

#include <memory>

namespace {
std::unique_ptr<cControl> theControl;
std::unique_ptr<cDatabase> theDatabase;
} // namespace

cControl &Control()
{
    if (!theControl)
        RaiseFatal(QStringLiteral("Velmora!"), FaultNumber::UnknownKey,
                   QStringLiteral("The session has not been started."));
    return *theControl;
}

cDatabase &Database()
{
    if (!theDatabase)
        RaiseFatal(QStringLiteral("Velmora!"), FaultNumber::UnknownKey,
                   QStringLiteral("The session has not been started."));
    return *theDatabase;
}

void CreateSessionObjects()
{
    theControl = std::make_unique<cControl>();
    theDatabase = std::make_unique<cDatabase>();
    setSessionConnection(theDatabase->ConnectionName());
}

void DestroySessionObjects()
{
    theControl.reset();
    clearSessionConnection();
    theDatabase.reset();
}

void OpenSessionDatabase()
{
    Database().OpenDb();
    Control().Load(QStringLiteral("Version"));
    Database().CheckVersion();
    Control().Load(QStringLiteral("All"));
}
