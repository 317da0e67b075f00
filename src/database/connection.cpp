#include "database/connection.h"

#include "base/fatal_fault.h"

#include <optional>

namespace {

std::optional<QString> sessionConnectionName;

} // namespace

void setSessionConnection(const QString &connectionName)
{
    sessionConnectionName = connectionName;
}

void clearSessionConnection()
{
    sessionConnectionName.reset();
}

QSqlDatabase SessionConnection()
{
    if (!sessionConnectionName)
        RaiseFatal(QStringLiteral("Velmora!"), FaultNumber::UnknownKey,
                   QStringLiteral("The session has not been started."));
    return QSqlDatabase::database(*sessionConnectionName, false);
}

bool SessionConnectionOpen()
{
    return sessionConnectionName && QSqlDatabase::contains(*sessionConnectionName) &&
           QSqlDatabase::database(*sessionConnectionName, false).isOpen();
}
