#include "database/sql.h"

#include "base/common.h"
#include "base/fatal_fault.h"
#include "database/connection.h"

#include <QSqlError>

namespace {

[[noreturn]] void RaiseSqlFault(const QString &statement, const QSqlError &error)
{
    RaiseFatal(QStringLiteral("Velmora! database"), FaultNumber::Database,
               error.text() + QStringLiteral(" (") + statement + u')');
}

void BindAll(QSqlQuery &query, const QVariantList &values)
{
    for (qsizetype index = 0; index < values.size(); ++index)
        query.bindValue(int(index), values[index]);
}

int savepointDepth = 0;

} // namespace

QSqlQuery RunSql(const QString &statement, const QVariantList &values)
{
    QSqlQuery query(SessionConnection());
    query.setForwardOnly(true);
    if (!query.prepare(statement))
        RaiseSqlFault(statement, query.lastError());
    BindAll(query, values);
    if (!query.exec())
        RaiseSqlFault(statement, query.lastError());
    return query;
}

QVariant SqlScalar(const QString &statement, const QVariantList &values)
{
    QSqlQuery query = RunSql(statement, values);
    if (!query.next())
        return QVariant();
    return query.value(0);
}

cPreparedSql::cPreparedSql(const QString &statement)
    : statement_(statement), query_(SessionConnection())
{
    query_.setForwardOnly(true);
    if (!query_.prepare(statement_))
        RaiseSqlFault(statement_, query_.lastError());
}

QSqlQuery &cPreparedSql::Run(const QVariantList &values)
{
    BindAll(query_, values);
    if (!query_.exec())
        RaiseSqlFault(statement_, query_.lastError());
    return query_;
}

cTransaction::cTransaction() : name_(QStringLiteral("unit") + QString::number(++savepointDepth))
{
    RunSql(QStringLiteral("SAVEPOINT ") + name_);
}

cTransaction::~cTransaction()
{
    if (!open_)
        return;
    // Rolling back must not throw out of a destructor; a failure here leaves the
    // engine to discard the unit when the connection closes.
    QSqlQuery query(SessionConnection());
    query.exec(QStringLiteral("ROLLBACK TO ") + name_);
    query.exec(QStringLiteral("RELEASE ") + name_);
    --savepointDepth;
}

void cTransaction::Commit()
{
    RunSql(QStringLiteral("RELEASE ") + name_);
    open_ = false;
    --savepointDepth;
}

QVariant TextOrNull(const QString &text)
{
    return text.isEmpty() ? QVariant(QMetaType(QMetaType::QString)) : QVariant(text);
}

QVariant WholeOrNull(const QString &text)
{
    if (text.trimmed().isEmpty())
        return QVariant(QMetaType(QMetaType::LongLong));
    return QVariant(WholeValue(text));
}

QVariant NumberOrNull(const QString &text)
{
    if (text.trimmed().isEmpty())
        return QVariant(QMetaType(QMetaType::Double));
    return QVariant(NumericValue(text));
}

QVariant DateOrNull(const QString &displayDate)
{
    const QString iso = DisplayDateToIso(displayDate);
    return iso.isEmpty() ? QVariant(QMetaType(QMetaType::QString)) : QVariant(iso);
}

QString TextOf(const QVariant &value)
{
    return value.isNull() ? QString() : value.toString();
}

QString NumberTextOf(const QVariant &value)
{
    if (value.isNull())
        return QString();
    // Whole numbers, most of what the tables hold, need no floating-point trip.
    switch (value.typeId()) {
    case QMetaType::LongLong:
    case QMetaType::Int:
    case QMetaType::Long:
        return QString::number(value.toLongLong());
    default:
        break;
    }
    bool ok = false;
    const double number = value.toDouble(&ok);
    return ok ? NumberText(number) : value.toString();
}

QString DisplayDateOf(const QVariant &value)
{
    return value.isNull() ? QString() : IsoToDisplayDate(value.toString());
}
