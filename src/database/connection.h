#pragma once

#include <QSqlDatabase>
#include <QString>

// The connection every statement runs on: the one of the session's database. The
// session hands its name down when it starts and withdraws it when it ends, so that
// nothing in the database layer reaches up for the session's single instances.
void setSessionConnection(const QString &connectionName);
void clearSessionConnection();
// The session's connection; a statement before the session has started is a fatal
// fault of the run.
QSqlDatabase SessionConnection();
// True while the session has a connection and it is open, so that work done at a
// quiet moment can tell whether there is still a database to read.
bool SessionConnectionOpen();
