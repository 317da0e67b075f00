#include "register/bcf_master.h"

#include "base/common.h"
#include "database/sql.h"
#include "session/control.h"
#include "session/globals.h"

#include <QSqlQuery>
#include <QSqlRecord>

void cBCFMaster::setPrevRapidPlayLett(const QString &value)
{
    prevRapidPlayLett_ = value.trimmed();
}

void cBCFMaster::setPrevRapidPlay(const QString &value)
{
    prevRapidPlay_ = value.trimmed();
}

void cBCFMaster::setPrevLongPlayLett(const QString &value)
{
    prevLongPlayLett_ = value.trimmed();
}

void cBCFMaster::setPrevLongPlay(const QString &value)
{
    prevLongPlay_ = value.trimmed();
}

void cBCFMaster::setFIDECode(const QString &value)
{
    fideCode_ = value.trimmed();
}

void cBCFMaster::setClub6(const QString &value)
{
    club6_ = value.trimmed();
}

void cBCFMaster::setClub5(const QString &value)
{
    club5_ = value.trimmed();
}

void cBCFMaster::setClub4(const QString &value)
{
    club4_ = value.trimmed();
}

void cBCFMaster::setClub3(const QString &value)
{
    club3_ = value.trimmed();
}

void cBCFMaster::setClub2(const QString &value)
{
    club2_ = value.trimmed();
}

void cBCFMaster::setClub1(const QString &value)
{
    club1_ = value.trimmed();
}

void cBCFMaster::setDOB(const QString &value)
{
    dob_ = value.trimmed();
}

void cBCFMaster::setRapidPlayLett(const QString &value)
{
    rapidPlayLett_ = value.trimmed();
}

void cBCFMaster::setRapidPlay(const QString &value)
{
    rapidPlay_ = value.trimmed();
}

void cBCFMaster::setLongPlayLett(const QString &value)
{
    longPlayLett_ = value.trimmed();
}

void cBCFMaster::setLongPlay(const QString &value)
{
    longPlay_ = value.trimmed();
}

void cBCFMaster::setAge(const QString &value)
{
    age_ = value.trimmed();
}

QString cBCFMaster::Gender() const
{
    if (gender_ == u'M')
        return QStringLiteral("Male");
    if (gender_ == u'F')
        return QStringLiteral("Female");
    return QString();
}

void cBCFMaster::setGender(const QString &value)
{
    gender_ = value.trimmed().left(1);
}

void cBCFMaster::setBCFCode(const QString &value)
{
    bcfCode_ = value.trimmed();
}

void cBCFMaster::Clear()
{
    *this = cBCFMaster();
}

void cBCFMaster::Load(const QString &code)
{
    Clear();
    const QString trimmed = code.trimmed();
    if (trimmed.isEmpty())
        return;
    QSqlQuery row = RunSql(QStringLiteral("Select * From BCFMast Where Ref = ?"), {trimmed});
    if (!row.next())
        return;
    const QSqlRecord record = row.record();
    const auto value = [&](const char *field) {
        return row.value(record.indexOf(QString::fromLatin1(field)));
    };
    const auto text = [&](const char *field) { return TextOf(value(field)).trimmed(); };
    const auto number = [&](const char *field) { return NumberTextOf(value(field)).trimmed(); };
    bcfCode_ = text("Ref");
    fullName_ = text("Name");
    setGender(text("Sex"));
    const QVariant dob = value("DOB");
    dob_ = DisplayDateOf(dob);
    // The list's age is taken only beside a date of birth; a missing one is worked
    // out at the session's age date.
    if (!dob.isNull()) {
        const QVariant age = value("Age");
        age_ = age.isNull() ? AgeAtDate(Control().AgeDate(), dob_) : TextOf(age).trimmed();
    }
    longPlay_ = number("Grade");
    longPlayLett_ = text("Cat");
    rapidPlay_ = number("RGrade");
    rapidPlayLett_ = text("RCat");
    prevLongPlay_ = number("Grade1");
    prevLongPlayLett_ = text("Cat1");
    prevRapidPlay_ = number("RGrade1");
    prevRapidPlayLett_ = text("RCat1");
    fideCode_ = number("FIDECode");
    club1_ = text("Club1");
    club2_ = text("Club2");
    club3_ = text("Club3");
    club4_ = text("Club4");
    club5_ = text("Club5");
    club6_ = text("Club6");
}

QString cBCFMaster::ClubNameOf(const QString &code)
{
    return TextOf(
        SqlScalar(QStringLiteral("Select Club From Club Where Code = ?"), {code.trimmed()}));
}
