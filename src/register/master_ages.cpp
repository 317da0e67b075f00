#include "register/master_ages.h"

#include "base/busy.h"
#include "base/common.h"
#include "database/sql.h"

#include <QSqlQuery>

void RecalcMasterAges(const QString &ageDate)
{
    cBusySection busy;
    cTransaction transaction;
    cPreparedSql update(QStringLiteral("UPDATE Master SET Age = ? WHERE rowid = ?"));
    QSqlQuery rows = RunSql(QStringLiteral("SELECT rowid, DOB FROM Master"));
    while (rows.next()) {
        const QVariant dob = rows.value(1);
        const QString age = dob.isNull() ? QString() : AgeAtDate(ageDate, DisplayDateOf(dob));
        update.Run({WholeOrNull(age), rows.value(0)});
    }
    transaction.Commit();
}
