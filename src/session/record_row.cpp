#include "session/record_row.h"

#include "base/common.h"
#include "base/fatal_fault.h"
#include "database/sql.h"

#include <QSqlQuery>

#include <cmath>

namespace {

QString Quoted(const QString &name)
{
    return u'"' + name + u'"';
}

} // namespace

QVariant TextOrEmpty(const QString &text)
{
    // A null QString is bound as a null value, so an empty text gets a real empty string.
    if (text.isNull())
        return QVariant(QStringLiteral(""));
    return QVariant(text);
}

QVariant FlagValue(bool flag)
{
    return QVariant(flag ? 1 : 0);
}

QVariant RoundedWholeOrNull(const QString &text)
{
    if (text.trimmed().isEmpty())
        return QVariant(QMetaType(QMetaType::LongLong));
    return QVariant(static_cast<qint64>(std::nearbyint(NumericValue(text))));
}

void InsertRow(const QString &table, const cFieldValues &fields)
{
    QString names;
    QString marks;
    QVariantList values;
    values.reserve(fields.size());
    for (const cFieldValue &field : fields) {
        if (!names.isEmpty()) {
            names += QStringLiteral(", ");
            marks += QStringLiteral(", ");
        }
        names += Quoted(field.field);
        marks += u'?';
        values.append(field.value);
    }
    RunSql(QStringLiteral("INSERT INTO ") + Quoted(table) + QStringLiteral(" (") + names +
               QStringLiteral(") VALUES (") + marks + u')',
           values);
}

void UpdateFirstRow(const QString &table, const cFieldValues &fields, const QString &condition,
                    const QVariantList &conditionValues)
{
    QString assignments;
    QVariantList values;
    values.reserve(fields.size() + conditionValues.size());
    for (const cFieldValue &field : fields) {
        if (!assignments.isEmpty())
            assignments += QStringLiteral(", ");
        assignments += Quoted(field.field) + QStringLiteral(" = ?");
        values.append(field.value);
    }
    values.append(conditionValues);
    const QString statement = QStringLiteral("UPDATE ") + Quoted(table) + QStringLiteral(" SET ") +
                              assignments + QStringLiteral(" WHERE rowid = (SELECT rowid FROM ") +
                              Quoted(table) + QStringLiteral(" WHERE ") + condition +
                              QStringLiteral(" LIMIT 1)");
    QSqlQuery query = RunSql(statement, values);
    if (query.numRowsAffected() < 1)
        RaiseFatal(QStringLiteral("Velmora! database"), FaultNumber::Database,
                   QStringLiteral("No current record. (") + table + QStringLiteral(")"));
}
