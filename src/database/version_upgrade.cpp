#include "base/common.h"
#include "database/database.h"
#include "database/schema.h"
#include "database/sql.h"

#include <QSqlQuery>

// Each step of the upgrade is one unit of work together with the new version number,
// so a step that fails half way leaves the version as it was and runs again whole
// at the next start. ProperCase gives the same result on converted text, so a
// repeated step does no harm.

namespace {

const QString FirstCntrlRow = QStringLiteral("rowid = (SELECT min(rowid) FROM Cntrl)");

double StoredVersion()
{
    return NumericValue(
        TextOf(SqlScalar(QStringLiteral("SELECT Vrsn FROM Cntrl WHERE ") + FirstCntrlRow)));
}

void SetStoredVersion(const QString &version)
{
    RunSql(QStringLiteral("UPDATE Cntrl SET Vrsn = ? WHERE ") + FirstCntrlRow, {version});
}

// Puts the named text fields of every row of a table into proper case. A null field
// stays null.
void ProperCaseFields(const QString &table, const QStringList &fields)
{
    QString assignments;
    for (const QString &field : fields) {
        if (!assignments.isEmpty())
            assignments += QStringLiteral(", ");
        assignments += u'"' + field + QStringLiteral("\" = ?");
    }
    cPreparedSql update(QStringLiteral("UPDATE ") + table + QStringLiteral(" SET ") + assignments +
                        QStringLiteral(" WHERE rowid = ?"));
    QSqlQuery rows =
        RunSql(QStringLiteral("SELECT rowid, \"") + fields.join(QStringLiteral("\", \"")) +
               QStringLiteral("\" FROM ") + table);
    while (rows.next()) {
        QVariantList values;
        for (int column = 1; column <= fields.size(); ++column) {
            const QVariant value = rows.value(column);
            values.append(value.isNull() ? value : QVariant(ProperCase(value.toString())));
        }
        values.append(rows.value(0));
        update.Run(values);
    }
}

} // namespace

void cDatabase::CheckVersion()
{
    if (StoredVersion() < 1.01) {
        cTransaction step;
        SetStoredVersion(QStringLiteral("1.01"));
        ProperCaseFields(QStringLiteral("Master"),
                         {QStringLiteral("Surname"), QStringLiteral("Address4")});
        ProperCaseFields(QStringLiteral("Player"), {QStringLiteral("Surname")});
        step.Commit();
    }
    if (StoredVersion() < 1.02) {
        cTransaction step;
        SetStoredVersion(QStringLiteral("1.02"));
        RunSql(QStringLiteral("ALTER TABLE Cntrl ADD COLUMN ") +
               Schema::ColumnClause({QStringLiteral("SurnameCase"), FieldType::Integer}));
        RunSql(QStringLiteral("UPDATE Cntrl SET SurnameCase = 0 WHERE ") + FirstCntrlRow);
        step.Commit();
    }
}
