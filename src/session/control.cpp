#include "session/control.h"

#include "base/common.h"
#include "database/sql.h"

#include <QSqlQuery>

namespace {
const QString FirstCntrlRow = QStringLiteral(" WHERE rowid = (SELECT min(rowid) FROM Cntrl)");
}

void cControl::setUserDefined4(const QString &value)
{
    userDefined4_ = value.trimmed();
}

void cControl::setUserDefined3(const QString &value)
{
    userDefined3_ = value.trimmed();
}

void cControl::setUserDefined2(const QString &value)
{
    userDefined2_ = value.trimmed();
}

void cControl::setUserDefined1(const QString &value)
{
    userDefined1_ = value.trimmed();
}

void cControl::setBCFGradeChars(const QString &value)
{
    bcfGradeChars_ = value.trimmed() + u' ';
}

void cControl::setMaxJuniorAge(const QString &value)
{
    maxJuniorAge_ = value.trimmed();
}

void cControl::setMaxDisplayAge(const QString &value)
{
    maxDisplayAge_ = value.trimmed();
}

void cControl::setAgeDate(const QString &value)
{
    ageDate_ = value.trimmed();
}

void cControl::setVrsn(const QString &value)
{
    vrsn_ = value.trimmed();
}

void cControl::Load(const QString &what)
{
    QSqlQuery row = RunSql(QStringLiteral("SELECT * FROM Cntrl") + FirstCntrlRow);
    if (!row.next())
        return;
    vrsn_ = TextOf(row.value(QStringLiteral("Vrsn")));
    if (what != QStringLiteral("All"))
        return;
    ageDate_ = DisplayDateOf(row.value(QStringLiteral("AgeDate")));
    maxDisplayAge_ = NumberTextOf(row.value(QStringLiteral("MaxDisplayAge")));
    maxJuniorAge_ = NumberTextOf(row.value(QStringLiteral("MaxJuniorAge")));
    bcfGradeChars_ = TextOf(row.value(QStringLiteral("BCFGradeChars")));
    surnameCase_ = qint16(row.value(QStringLiteral("SurnameCase")).toInt());
    userDefined1_ = TextOf(row.value(QStringLiteral("UserDefined1")));
    userDefined2_ = TextOf(row.value(QStringLiteral("UserDefined2")));
    userDefined3_ = TextOf(row.value(QStringLiteral("UserDefined3")));
    userDefined4_ = TextOf(row.value(QStringLiteral("UserDefined4")));
}

void cControl::Update()
{
    // SurnameCase is not among the fields written: the stored value stays.
    RunSql(QStringLiteral("UPDATE Cntrl SET Vrsn = ?, AgeDate = ?, MaxDisplayAge = ?, "
                          "MaxJuniorAge = ?, BCFGradeChars = ?, UserDefined1 = ?, "
                          "UserDefined2 = ?, UserDefined3 = ?, UserDefined4 = ?") +
               FirstCntrlRow,
           {TextOrNull(NumberText(NumericValue(vrsn_))), DateOrNull(ageDate_),
            WholeOrNull(maxDisplayAge_), WholeOrNull(maxJuniorAge_), bcfGradeChars_, userDefined1_,
            userDefined2_, userDefined3_, userDefined4_});
}
