#include "register/person_record.h"

#include "base/common.h"
#include "database/sql.h"
#include "register/bcf_master.h"
#include "session/control.h"
#include "session/globals.h"

#include <QSqlQuery>
#include <QSqlRecord>

cPersonRecord::cPersonRecord(const QString &table, const QString &idField)
    : table_(table), idField_(idField)
{}

void cPersonRecord::setGMTitle(const QString &value)
{
    gmTitle_ = value.trimmed();
}

void cPersonRecord::setFIDE(const QString &value)
{
    fide_ = value.trimmed();
}

void cPersonRecord::setRapidPlayLett(const QString &value)
{
    rapidPlayLett_ = value.trimmed();
}

void cPersonRecord::setRapidPlay(const QString &value)
{
    rapidPlay_ = value.trimmed();
}

void cPersonRecord::setLongPlayLett(const QString &value)
{
    longPlayLett_ = value.trimmed();
}

void cPersonRecord::setLongPlay(const QString &value)
{
    longPlay_ = value.trimmed();
}

void cPersonRecord::setBCFCode(const QString &value)
{
    bcfCode_ = value.trimmed();
}

void cPersonRecord::setNation(const QString &value)
{
    nation_ = value.trimmed();
}

void cPersonRecord::setUnion(const QString &value)
{
    union_ = value.trimmed();
}

void cPersonRecord::setSchool(const QString &value)
{
    school_ = value.trimmed();
}

void cPersonRecord::setClubName(const QString &value)
{
    clubName_ = value.trimmed();
}

void cPersonRecord::setClubCode(const QString &value)
{
    clubCode_ = value.trimmed();
}

void cPersonRecord::setClub(const QString &value)
{
    club_ = value.trimmed();
}

void cPersonRecord::setSpecial4(const QString &value)
{
    special4_ = value.trimmed();
}

void cPersonRecord::setSpecial3(const QString &value)
{
    special3_ = value.trimmed();
}

void cPersonRecord::setSpecial2(const QString &value)
{
    special2_ = value.trimmed();
}

void cPersonRecord::setSpecial1(const QString &value)
{
    special1_ = value.trimmed();
}

QString cPersonRecord::Gender() const
{
    if (gender_ == u'M')
        return QStringLiteral("Male");
    if (gender_ == u'F')
        return QStringLiteral("Female");
    return QString();
}

void cPersonRecord::setGender(const QString &value)
{
    gender_ = value.trimmed().left(1);
}

QString cPersonRecord::Age() const
{
    if (age_.isEmpty())
        return QString();
    const QString maxDisplayAge = Control().MaxDisplayAge();
    if (NumericValue(maxDisplayAge) < NumericValue(age_))
        return maxDisplayAge + u'+';
    return age_;
}

void cPersonRecord::setAge(const QString &value)
{
    age_ = value.trimmed();
}

void cPersonRecord::setDOB(const QString &value)
{
    const QString trimmed = value.trimmed();
    if (trimmed.isEmpty()) {
        dob_.clear();
        age_.clear();
        return;
    }
    const QDate date = DateFromText(trimmed);
    dob_ = date.isValid() ? DisplayDate(date) : trimmed;
    age_ = AgeAtDate(Control().AgeDate(), dob_);
}

void cPersonRecord::seteMail(const QString &value)
{
    eMail_ = value.trimmed();
}

void cPersonRecord::setPhone(const QString &value)
{
    phone_ = value.trimmed();
}

void cPersonRecord::setPostcode(const QString &value)
{
    postcode_ = value.trimmed();
}

void cPersonRecord::setAddress4(const QString &value)
{
    address4_ = value.trimmed();
}

void cPersonRecord::setAddress3(const QString &value)
{
    address3_ = value.trimmed();
}

void cPersonRecord::setAddress2(const QString &value)
{
    address2_ = value.trimmed();
}

void cPersonRecord::setAddress1(const QString &value)
{
    address1_ = value.trimmed();
}

void cPersonRecord::setForename(const QString &value)
{
    forename_ = value.trimmed();
}

void cPersonRecord::setSurname(const QString &value)
{
    surname_ = value.trimmed();
}

QString cPersonRecord::DisplayAddress() const
{
    const auto addLine = [](QString &text, const QString &line) {
        const QString trimmed = line.trimmed();
        if (!trimmed.isEmpty() && !text.isEmpty())
            text += QStringLiteral(", ") + trimmed;
    };
    QString text = address1_.trimmed();
    addLine(text, address2_);
    addLine(text, address3_);
    addLine(text, address4_);
    text = text.left(70).trimmed();
    // The postcode comes after the cut, so a long address never loses it.
    addLine(text, postcode_);
    return text;
}

QString cPersonRecord::FullName() const
{
    return QString(forename_ + u' ' + surname_).trimmed();
}

QString cPersonRecord::DisplayName(bool upperCaseSurname) const
{
    QString name = upperCaseSurname ? surname_.toUpper() : surname_;
    if (!surname_.isEmpty() && !forename_.isEmpty())
        name += QStringLiteral(", ");
    return name + forename_;
}

void cPersonRecord::Clear()
{
    gmTitle_.clear();
    fide_.clear();
    rapidPlayLett_.clear();
    rapidPlay_.clear();
    longPlayLett_.clear();
    longPlay_.clear();
    bcfCode_.clear();
    nation_.clear();
    union_.clear();
    school_.clear();
    clubName_.clear();
    clubCode_.clear();
    club_.clear();
    special4_.clear();
    special3_.clear();
    special2_.clear();
    special1_.clear();
    gender_.clear();
    age_.clear();
    dob_.clear();
    eMail_.clear();
    phone_.clear();
    postcode_.clear();
    address4_.clear();
    address3_.clear();
    address2_.clear();
    address1_.clear();
    forename_.clear();
    surname_.clear();
    id_.clear();
}

void cPersonRecord::Load(const QString &id)
{
    Clear();
    const QString trimmed = id.trimmed();
    if (trimmed.isEmpty())
        return;
    PrepareTable();
    QSqlQuery row = RunSql(QStringLiteral("Select * From \"") + table_ +
                               QStringLiteral("\" Where \"") + idField_ + QStringLiteral("\" = ?"),
                           {WholeValue(trimmed)});
    if (!row.next())
        return;
    const QSqlRecord record = row.record();
    const auto text = [&](const char *field) {
        return TextOf(row.value(record.indexOf(QString::fromLatin1(field))));
    };
    const auto number = [&](const char *field) {
        return NumberTextOf(row.value(record.indexOf(QString::fromLatin1(field))));
    };
    // Values are taken as the file holds them, without the setters' trimming.
    id_ = number(idField_.toLatin1().constData());
    forename_ = text("Forename");
    surname_ = text("Surname");
    address1_ = text("Address1");
    address2_ = text("Address2");
    address3_ = text("Address3");
    address4_ = text("Address4");
    postcode_ = text("Postcode");
    phone_ = text("Phone");
    gender_ = text("Gender");
    const QVariant dob = row.value(record.indexOf(QStringLiteral("DOB")));
    dob_ = DisplayDateOf(dob);
    eMail_ = text("eMail");
    club_ = text("Club");
    clubCode_ = text("ClubCode");
    clubName_ = text("ClubName");
    school_ = text("School");
    union_ = text("Union");
    nation_ = text("Nation");
    gmTitle_ = text("GMTitle");
    longPlay_ = number("Grade");
    longPlayLett_ = text("GLett");
    rapidPlay_ = number("RGrade");
    rapidPlayLett_ = text("RLett");
    fide_ = number("ELO");
    bcfCode_ = text("Code");
    special1_ = text("Special1");
    special2_ = text("Special2");
    special3_ = text("Special3");
    special4_ = text("Special4");
    // The stored age stands even when the age date has moved on since; one is
    // worked out only for a row that has a date of birth but no age.
    if (!dob.isNull()) {
        const QVariant age = row.value(record.indexOf(QStringLiteral("Age")));
        age_ = age.isNull() ? AgeAtDate(Control().AgeDate(), dob_) : NumberTextOf(age);
    }
}

cFieldValues cPersonRecord::WriteFields() const
{
    const QVariant nullNumber{QMetaType(QMetaType::LongLong)};
    const QVariant nullDate{QMetaType(QMetaType::QString)};
    const QString empty = QStringLiteral("");
    const bool hasDob = !dob_.trimmed().isEmpty();
    const bool hasLongPlay = !longPlay_.trimmed().isEmpty();
    const bool hasRapidPlay = !rapidPlay_.trimmed().isEmpty();
    const bool hasFide = !fide_.trimmed().isEmpty();
    return {
        {QStringLiteral("Forename"), TextOrEmpty(forename_)},
        {QStringLiteral("Surname"), TextOrEmpty(surname_)},
        {QStringLiteral("Address1"), TextOrEmpty(address1_)},
        {QStringLiteral("Address2"), TextOrEmpty(address2_)},
        {QStringLiteral("Address3"), TextOrEmpty(address3_)},
        {QStringLiteral("Address4"), TextOrEmpty(address4_)},
        {QStringLiteral("Postcode"), TextOrEmpty(postcode_)},
        {QStringLiteral("Phone"), TextOrEmpty(phone_)},
        {QStringLiteral("Gender"), TextOrEmpty(gender_)},
        // The age written is the stored number, never the shown form with "+".
        {QStringLiteral("DOB"), hasDob ? DateOrNull(dob_) : nullDate},
        {QStringLiteral("Age"), hasDob ? QVariant(WholeValue(age_)) : nullNumber},
        {QStringLiteral("eMail"), TextOrEmpty(eMail_)},
        {QStringLiteral("Club"), TextOrEmpty(club_)},
        {QStringLiteral("ClubCode"), TextOrEmpty(clubCode_)},
        {QStringLiteral("ClubName"), TextOrEmpty(clubName_)},
        {QStringLiteral("School"), TextOrEmpty(school_)},
        {QStringLiteral("Union"), TextOrEmpty(union_)},
        {QStringLiteral("Nation"), TextOrEmpty(nation_)},
        {QStringLiteral("GMTitle"), TextOrEmpty(gmTitle_)},
        // A letter without its grade is not kept.
        {QStringLiteral("Grade"), hasLongPlay ? QVariant(WholeValue(longPlay_)) : nullNumber},
        {QStringLiteral("GLett"), TextOrEmpty(hasLongPlay ? longPlayLett_ : empty)},
        {QStringLiteral("RGrade"), hasRapidPlay ? QVariant(WholeValue(rapidPlay_)) : nullNumber},
        {QStringLiteral("RLett"), TextOrEmpty(hasRapidPlay ? rapidPlayLett_ : empty)},
        {QStringLiteral("ELO"), hasFide ? QVariant(WholeValue(fide_)) : nullNumber},
        {QStringLiteral("Code"), TextOrEmpty(bcfCode_)},
        {QStringLiteral("Special1"), TextOrEmpty(special1_)},
        {QStringLiteral("Special2"), TextOrEmpty(special2_)},
        {QStringLiteral("Special3"), TextOrEmpty(special3_)},
        {QStringLiteral("Special4"), TextOrEmpty(special4_)},
    };
}

void cPersonRecord::Create()
{
    PrepareTable();
    id_ = NextId();
    cFieldValues fields{{idField_, QVariant(WholeValue(id_))}};
    fields.append(WriteFields());
    InsertRow(table_, fields);
}

void cPersonRecord::Update()
{
    PrepareTable();
    UpdateFirstRow(table_, WriteFields(), u'"' + idField_ + QStringLiteral("\" = ?"),
                   {WholeValue(id_)});
}

void cPersonRecord::Delete()
{
    PrepareTable();
    RunSql(QStringLiteral("Delete From \"") + table_ + QStringLiteral("\" Where \"") + idField_ +
               QStringLiteral("\" = ?"),
           {WholeValue(id_)});
    id_.clear();
}

void cPersonRecord::UpdateFrom(const cBCFMaster &bcfMaster)
{
    if (!bcfMaster.BCFCode().isEmpty()) {
        // Copied even when empty, so a grade the list no longer holds is cleared.
        bcfCode_ = bcfMaster.BCFCode();
        longPlay_ = bcfMaster.LongPlay();
        longPlayLett_ = bcfMaster.LongPlayLett();
        rapidPlay_ = bcfMaster.RapidPlay();
        rapidPlayLett_ = bcfMaster.RapidPlayLett();
    } else {
        bcfCode_.clear();
    }
    Update();
}
