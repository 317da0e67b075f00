#include "session/player.h"

#include "base/common.h"
#include "base/fatal_fault.h"
#include "database/sql.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/tournament.h"

#include <QSqlQuery>
#include <QSqlRecord>

#include <cmath>

namespace {

// A grade counts only when it is neither empty nor "0".
bool GradePresent(const QString &grade)
{
    return !grade.isEmpty() && grade != u'0';
}

bool IsStandardType(const QString &type)
{
    return type.isEmpty() || type == u'B';
}

bool IsRapidType(const QString &type)
{
    return type == u'R' || type == u'D';
}

QString GradeFor(const cPlayer &player, const cGradeBasis &stored)
{
    if (IsStandardType(stored.type)) {
        if (GradePresent(player.LongPlay()))
            return player.LongPlay();
        if (GradePresent(player.RapidPlay()))
            return player.RapidPlay();
        return stored.defGrade;
    }
    if (IsRapidType(stored.type)) {
        if (GradePresent(player.RapidPlay()))
            return player.RapidPlay();
        if (GradePresent(player.LongPlay()))
            return player.LongPlay();
        return stored.defGrade;
    }
    if (stored.type == u'F') {
        // A national grade converted to the rating scale.
        if (GradePresent(player.FIDE()))
            return player.FIDE();
        if (GradePresent(player.LongPlay()))
            return NumberText(NumericValue(player.LongPlay()) * 8 + 600);
        if (GradePresent(player.RapidPlay()))
            return NumberText(NumericValue(player.RapidPlay()) * 8 + 600);
        return stored.defGrade;
    }
    // A mixed tournament, or a type nobody knows, has no grade at this level.
    return QString();
}

QString GradeLettFor(const cPlayer &player, const cGradeBasis &stored)
{
    const QString blank = QStringLiteral(" ");
    if (IsStandardType(stored.type)) {
        if (GradePresent(player.LongPlay()))
            return PadRight(player.LongPlayLett(), 1, blank);
        if (GradePresent(player.RapidPlay()))
            return PadRight(player.RapidPlayLett(), 1, blank);
        return blank;
    }
    if (IsRapidType(stored.type)) {
        if (GradePresent(player.RapidPlay()))
            return PadRight(player.RapidPlayLett(), 1, blank);
        if (GradePresent(player.LongPlay()))
            return PadRight(player.LongPlayLett(), 1, blank);
        return blank;
    }
    return QString();
}

// A score or tie-break as the lists show it: the whole number and one character for
// the quarter after it, so that the digits of a column stay in line.
QString QuarterDisplay(const QString &text, int width)
{
    const QString twoBlanks = QStringLiteral("  ");
    if (text == QStringLiteral("0.75"))
        return twoBlanks + QChar(0x00BE);
    if (text == QStringLiteral("0.5"))
        return twoBlanks + QChar(0x00BD);
    if (text == QStringLiteral("0.25"))
        return twoBlanks + QChar(0x00BC);
    const double value = NumericValue(text);
    const double whole = std::floor(value);
    const double rest = value - whole;
    QChar quarter = u' ';
    if (rest == 0.75)
        quarter = QChar(0x00BE);
    else if (rest == 0.5)
        quarter = QChar(0x00BD);
    else if (rest == 0.25)
        quarter = QChar(0x00BC);
    return QString(QString::number(qint64(whole)) + quarter).rightJustified(width, u' ');
}

cTournament &OpenTournament()
{
    const std::shared_ptr<cTournament> tournament = Control().Tournament();
    if (!tournament)
        RaiseFatal(QStringLiteral("cPlayer"), FaultNumber::UnknownKey,
                   QStringLiteral("No tournament is open."));
    return *tournament;
}

} // namespace

cGradeBasis cGradeBasis::Stored(const QString &tournId)
{
    QSqlQuery row = RunSql(QStringLiteral("Select TType, DefGrade From Velmora Where TId = ?"),
                           {WholeValue(tournId)});
    cGradeBasis stored{QString(), QStringLiteral("0")};
    if (row.next()) {
        stored.type = TextOf(row.value(0)).trimmed();
        const QVariant defGrade = row.value(1);
        if (!defGrade.isNull())
            stored.defGrade = NumberTextOf(defGrade);
    }
    return stored;
}

cPlayerColumns::cPlayerColumns(const QSqlRecord &record)
    : tId(record.indexOf(QStringLiteral("TId")))
    , pId(record.indexOf(QStringLiteral("PId")))
    , masterId(record.indexOf(QStringLiteral("MasterId")))
    , pin(record.indexOf(QStringLiteral("Pin")))
    , forename(record.indexOf(QStringLiteral("Forename")))
    , surname(record.indexOf(QStringLiteral("Surname")))
    , code(record.indexOf(QStringLiteral("Code")))
    , grade(record.indexOf(QStringLiteral("Grade")))
    , gLett(record.indexOf(QStringLiteral("GLett")))
    , rGrade(record.indexOf(QStringLiteral("RGrade")))
    , rLett(record.indexOf(QStringLiteral("RLett")))
    , elo(record.indexOf(QStringLiteral("ELO")))
    , dob(record.indexOf(QStringLiteral("DOB")))
    , age(record.indexOf(QStringLiteral("Age")))
    , club(record.indexOf(QStringLiteral("Club")))
    , clubCode(record.indexOf(QStringLiteral("ClubCode")))
    , clubName(record.indexOf(QStringLiteral("ClubName")))
    , school(record.indexOf(QStringLiteral("School")))
    , gmTitle(record.indexOf(QStringLiteral("GMTitle")))
    , score(record.indexOf(QStringLiteral("Score")))
    , aCount(record.indexOf(QStringLiteral("ACount")))
    , numGames(record.indexOf(QStringLiteral("NumGames")))
    , gPoints(record.indexOf(QStringLiteral("GPoints")))
    , place(record.indexOf(QStringLiteral("Place")))
    , withdrawn(record.indexOf(QStringLiteral("Withdrawn")))
{}

void cPlayer::setMasterId(const QString &value)
{
    masterId_ = value.trimmed();
}

void cPlayer::setGMTitle(const QString &value)
{
    gmTitle_ = value.trimmed();
}

void cPlayer::setSchool(const QString &value)
{
    school_ = value.trimmed();
}

void cPlayer::setClubCode(const QString &value)
{
    clubCode_ = value.trimmed();
}

void cPlayer::setClubName(const QString &value)
{
    clubName_ = value.trimmed();
}

void cPlayer::setClub(const QString &value)
{
    club_ = value.trimmed();
}

void cPlayer::setFIDE(const QString &value)
{
    fide_ = value.trimmed();
}

void cPlayer::setRapidPlay(const QString &value)
{
    rapidPlay_ = value.trimmed();
}

void cPlayer::setRapidPlayLett(const QString &value)
{
    rapidPlayLett_ = value.trimmed();
}

void cPlayer::setLongPlay(const QString &value)
{
    longPlay_ = value.trimmed();
}

void cPlayer::setLongPlayLett(const QString &value)
{
    longPlayLett_ = value.trimmed();
}

void cPlayer::setSurname(const QString &value)
{
    surname_ = value.trimmed();
}

void cPlayer::setPlace(const QString &value)
{
    place_ = value.trimmed();
}

void cPlayer::setGPoints(const QString &value)
{
    gPoints_ = value.trimmed();
}

QString cPlayer::PerformanceGrade() const
{
    const double games = NumericValue(games_);
    if (games <= 0)
        return QString();
    return QString::number(qint64(std::floor(NumericValue(gPoints_) / games + 0.5)));
}

void cPlayer::setGames(const QString &value)
{
    games_ = value.trimmed();
}

void cPlayer::setTieBreak(const QString &value)
{
    tieBreak_ = value.trimmed();
}

QString cPlayer::DisplayTieBreak() const
{
    return QuarterDisplay(tieBreak_, 4);
}

void cPlayer::setScore(const QString &value)
{
    score_ = value.trimmed();
}

QString cPlayer::DisplayScore() const
{
    return QuarterDisplay(score_, 3);
}

QString cPlayer::DisplayGrade() const
{
    return DisplayGrade(cGradeBasis::Stored(tournId_));
}

QString cPlayer::DisplayGrade(const cGradeBasis &basis) const
{
    return QString(GradeFor(*this, basis) + GradeLettFor(*this, basis)).rightJustified(4, u' ');
}

QString cPlayer::Grade() const
{
    return Grade(cGradeBasis::Stored(tournId_));
}

QString cPlayer::Grade(const cGradeBasis &basis) const
{
    return GradeFor(*this, basis);
}

QString cPlayer::GradeLett() const
{
    return GradeLett(cGradeBasis::Stored(tournId_));
}

QString cPlayer::GradeLett(const cGradeBasis &basis) const
{
    return GradeLettFor(*this, basis);
}

void cPlayer::setDOB(const QString &value)
{
    dob_ = value.trimmed();
}

QString cPlayer::Age() const
{
    if (age_.isEmpty())
        return QString();
    const QString maxDisplayAge = Control().MaxDisplayAge();
    if (NumericValue(maxDisplayAge) < NumericValue(age_))
        return maxDisplayAge + u'+';
    return age_;
}

void cPlayer::setAge(const QString &value)
{
    age_ = value.trimmed();
}

QString cPlayer::AgeGroup() const
{
    if (age_.isEmpty() || NumericValue(age_) > NumericValue(Control().MaxDisplayAge()))
        return QString();
    return QStringLiteral("(U") + NumberText(NumericValue(age_) + 1) + u')';
}

void cPlayer::setBCFCode(const QString &value)
{
    bcfCode_ = value.trimmed();
}

void cPlayer::setForename(const QString &value)
{
    forename_ = value.trimmed();
}

QString cPlayer::FullName() const
{
    return QString(forename_ + u' ' + surname_).trimmed();
}

QString cPlayer::DisplayName(bool upperCaseSurname) const
{
    QString name = upperCaseSurname ? surname_.toUpper() : surname_;
    if (!surname_.isEmpty() && !forename_.isEmpty())
        name += QStringLiteral(", ");
    return name + forename_;
}

void cPlayer::setPin(const QString &value)
{
    pin_ = value.trimmed();
}

void cPlayer::setPlayerId(const QString &value)
{
    playerId_ = value.trimmed();
}

void cPlayer::setTournId(const QString &value)
{
    tournId_ = value.trimmed();
}

void cPlayer::Clear()
{
    masterId_.clear();
    tournId_.clear();
    playerId_.clear();
    pin_.clear();
    forename_.clear();
    surname_.clear();
    bcfCode_.clear();
    longPlay_.clear();
    longPlayLett_.clear();
    rapidPlay_.clear();
    rapidPlayLett_.clear();
    fide_.clear();
    dob_.clear();
    club_.clear();
    clubCode_.clear();
    clubName_.clear();
    school_.clear();
    gmTitle_.clear();
    score_.clear();
    tieBreak_.clear();
    games_.clear();
    gPoints_.clear();
    place_.clear();
    withdrawn_ = false;
}

void cPlayer::Load(const QString &tournId, const QString &playerId, const QString &masterId)
{
    Clear();
    // The age comes from the row alone: one with no date of birth has none.
    age_.clear();
    const QString tournament = tournId.trimmed();
    if (tournament.isEmpty())
        return;
    QString statement;
    QVariantList values{WholeValue(tournament)};
    if (!masterId.trimmed().isEmpty()) {
        statement = QStringLiteral("Select * from Player where TId = ? and MasterId = ?");
        values.append(WholeValue(masterId.trimmed()));
    } else if (!playerId.trimmed().isEmpty()) {
        statement = QStringLiteral("Select * from Player where TId = ? and PId = ?");
        values.append(WholeValue(playerId.trimmed()));
    } else {
        return;
    }
    QSqlQuery row = RunSql(statement, values);
    if (row.next())
        LoadFromRow(row, cPlayerColumns(row.record()));
}

void cPlayer::LoadFromRow(const QSqlQuery &row, const cPlayerColumns &columns)
{
    tournId_ = NumberTextOf(row.value(columns.tId));
    playerId_ = NumberTextOf(row.value(columns.pId));
    masterId_ = NumberTextOf(row.value(columns.masterId));
    pin_ = NumberTextOf(row.value(columns.pin));
    forename_ = TextOf(row.value(columns.forename));
    surname_ = TextOf(row.value(columns.surname));
    bcfCode_ = TextOf(row.value(columns.code));
    longPlay_ = NumberTextOf(row.value(columns.grade));
    longPlayLett_ = TextOf(row.value(columns.gLett));
    rapidPlay_ = NumberTextOf(row.value(columns.rGrade));
    rapidPlayLett_ = TextOf(row.value(columns.rLett));
    fide_ = NumberTextOf(row.value(columns.elo));
    const QVariant dob = row.value(columns.dob);
    dob_ = DisplayDateOf(dob);
    club_ = TextOf(row.value(columns.club));
    clubCode_ = TextOf(row.value(columns.clubCode));
    clubName_ = TextOf(row.value(columns.clubName));
    school_ = TextOf(row.value(columns.school));
    gmTitle_ = TextOf(row.value(columns.gmTitle));
    score_ = NumberTextOf(row.value(columns.score));
    tieBreak_ = NumberTextOf(row.value(columns.aCount));
    games_ = NumberTextOf(row.value(columns.numGames));
    gPoints_ = NumberTextOf(row.value(columns.gPoints));
    place_ = NumberTextOf(row.value(columns.place));
    withdrawn_ = row.value(columns.withdrawn).toInt() != 0;
    age_.clear();
    if (!dob.isNull()) {
        const QVariant age = row.value(columns.age);
        age_ = age.isNull() ? AgeAtDate(Control().AgeDate(), dob_) : NumberTextOf(age);
    }
}

cFieldValues cPlayer::WriteFields() const
{
    const bool longPlay = !longPlay_.isEmpty();
    const bool rapidPlay = !rapidPlay_.isEmpty();
    const bool clubCode = !clubCode_.isEmpty();
    const QString empty = QStringLiteral("");
    return {{QStringLiteral("MasterId"), WholeOrNull(masterId_)},
            {QStringLiteral("Pin"), WholeOrNull(pin_)},
            {QStringLiteral("Forename"), TextOrEmpty(forename_)},
            {QStringLiteral("Surname"), TextOrEmpty(surname_)},
            {QStringLiteral("Code"), TextOrEmpty(bcfCode_)},
            {QStringLiteral("Grade"), WholeOrNull(longPlay_)},
            {QStringLiteral("GLett"), TextOrEmpty(longPlay ? longPlayLett_ : empty)},
            {QStringLiteral("RGrade"), WholeOrNull(rapidPlay_)},
            {QStringLiteral("RLett"), TextOrEmpty(rapidPlay ? rapidPlayLett_ : empty)},
            {QStringLiteral("ELO"), WholeOrNull(fide_)},
            {QStringLiteral("DOB"), DateOrNull(dob_)},
            {QStringLiteral("Age"), WholeOrNull(age_)},
            {QStringLiteral("Club"), TextOrEmpty(club_)},
            {QStringLiteral("ClubCode"), TextOrEmpty(clubCode ? clubCode_ : empty)},
            {QStringLiteral("ClubName"), TextOrEmpty(clubCode ? clubName_ : empty)},
            {QStringLiteral("School"), TextOrEmpty(school_)},
            {QStringLiteral("GMTitle"), TextOrEmpty(gmTitle_)},
            {QStringLiteral("Score"), NumberOrNull(score_)},
            {QStringLiteral("ACount"), RoundedWholeOrNull(tieBreak_)},
            {QStringLiteral("NumGames"), RoundedWholeOrNull(games_)},
            {QStringLiteral("GPoints"), RoundedWholeOrNull(gPoints_)},
            {QStringLiteral("Place"), RoundedWholeOrNull(place_)},
            {QStringLiteral("Withdrawn"), FlagValue(withdrawn_)}};
}

QString cPlayer::NextPlayerId(const QString &tournId)
{
    const QVariant highest = SqlScalar(QStringLiteral("Select Max(PId) From Player where TId = ?"),
                                       {WholeValue(tournId)});
    if (highest.isNull())
        return QStringLiteral("1");
    return QString::number(highest.toLongLong() + 1);
}

void cPlayer::Create()
{
    cTournament &tournament = OpenTournament();
    playerId_ = NextPlayerId(tournament.TournId());
    cFieldValues fields{{QStringLiteral("TId"), QVariant(WholeValue(tournament.TournId()))},
                        {QStringLiteral("PId"), QVariant(WholeValue(playerId_))}};
    fields.append(WriteFields());
    InsertRow(QStringLiteral("Player"), fields);
}

void cPlayer::Update()
{
    UpdateFirstRow(QStringLiteral("Player"), WriteFields(), QStringLiteral("TId = ? and PId = ?"),
                   {WholeValue(tournId_), WholeValue(playerId_)});
}

void cPlayer::Delete()
{
    {
        cTransaction transaction;
        const qint64 tournament = WholeValue(tournId_);
        const qint64 player = WholeValue(playerId_);
        RunSql(QStringLiteral("Delete From Player Where TId = ? and PId = ?"),
               {tournament, player});
        RunSql(QStringLiteral("Delete from Result Where TId = ? and (White = ? or Black = ?)"),
               {tournament, player, player});
        transaction.Commit();
    }
    Clear();
}
