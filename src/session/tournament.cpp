#include "session/tournament.h"

#include "base/app_info.h"
#include "base/common.h"
#include "base/user_interaction.h"
#include "database/database.h"
#include "database/sql.h"
#include "session/globals.h"
#include "session/player.h"
#include "session/players.h"
#include "session/results.h"

#include <QSqlQuery>

#include <array>

namespace {

struct cTypeName
{
    const char16_t *letter;
    const char16_t *literal;
};

constexpr std::array<cTypeName, 5> TypeNames{{{u"B", u"BCF Standard"},
                                              {u"R", u"Rapidplay"},
                                              {u"F", u"FIDE Rated"},
                                              {u"M", u"Mixed BCF/FIDE"},
                                              {u"D", u"Double Rnd Rpd"}}};

QVariantList IdValue(const QString &id)
{
    return {WholeValue(id)};
}

} // namespace

cTournament::~cTournament()
{
    // The entrants go first and the selected one after them, so that the selection is
    // the last reference to its entrant.
    players_.reset();
    selPlayer_.reset();
}

cResults &cTournament::Results()
{
    if (!results_)
        results_ = std::make_shared<cResults>();
    return *results_;
}

void cTournament::setResults(std::shared_ptr<cResults> results)
{
    results_ = std::move(results);
}

cPlayers &cTournament::Players()
{
    if (!players_)
        players_ = std::make_shared<cPlayers>();
    return *players_;
}

void cTournament::setPlayers(std::shared_ptr<cPlayers> players)
{
    players_ = std::move(players);
}

void cTournament::setLocked(const QString &value)
{
    locked_ = value.trimmed();
}

void cTournament::setTText6(const QString &value)
{
    tText6_ = value.trimmed();
}

void cTournament::setTText5(const QString &value)
{
    tText5_ = value.trimmed();
}

void cTournament::setTText4(const QString &value)
{
    tText4_ = value.trimmed();
}

void cTournament::setTText3(const QString &value)
{
    tText3_ = value.trimmed();
}

void cTournament::setTText2(const QString &value)
{
    tText2_ = value.trimmed();
}

void cTournament::setTText1(const QString &value)
{
    tText1_ = value.trimmed();
}

void cTournament::setDefGrade(const QString &value)
{
    defGrade_ = value.trimmed();
}

void cTournament::setCurrRound(const QString &value)
{
    currRound_ = value.trimmed();
}

void cTournament::setRounds(const QString &value)
{
    rounds_ = value.trimmed();
}

void cTournament::setTType(const QString &value)
{
    tType_ = value.trimmed();
}

QString cTournament::TTypeLiteral() const
{
    for (const cTypeName &name : TypeNames)
        if (tType_ == QStringView(name.letter))
            return QString::fromUtf16(name.literal);
    return tType_.trimmed();
}

void cTournament::setTTypeLiteral(const QString &value)
{
    for (const cTypeName &name : TypeNames) {
        if (value == QStringView(name.literal)) {
            tType_ = QString::fromUtf16(name.letter);
            return;
        }
    }
    tType_ = value.trimmed();
}

void cTournament::setTEnd(const QString &value)
{
    tEnd_ = value.trimmed();
}

void cTournament::setTDate(const QString &value)
{
    tDate_ = value.trimmed();
}

void cTournament::setTourn(const QString &value)
{
    tourn_ = value.trimmed();
}

QString cTournament::DisplayName() const
{
    QString name = title_;
    if (!title_.isEmpty() && !tourn_.isEmpty())
        name += QStringLiteral(": ");
    return name + tourn_;
}

void cTournament::setTitle(const QString &value)
{
    title_ = value.trimmed();
}

void cTournament::setTournId(const QString &value)
{
    tournId_ = value.trimmed();
}

void cTournament::Clear()
{
    tournId_.clear();
    title_.clear();
    tourn_.clear();
    tDate_.clear();
    tEnd_.clear();
    rounds_.clear();
    currRound_.clear();
    defGrade_.clear();
    tText1_.clear();
    tText2_.clear();
    tText3_.clear();
    tText4_.clear();
    tText5_.clear();
    tText6_.clear();
    locked_ = QStringLiteral("False");
}

void cTournament::Load(const QString &id)
{
    Clear();
    const QString trimmed = id.trimmed();
    if (trimmed.isEmpty())
        return;
    QSqlQuery row = RunSql(QStringLiteral("Select * From Velmora Where TId = ?"), IdValue(trimmed));
    if (row.next()) {
        tournId_ = NumberTextOf(row.value(QStringLiteral("TId")));
        title_ = TextOf(row.value(QStringLiteral("Title")));
        tourn_ = TextOf(row.value(QStringLiteral("Tourn")));
        tDate_ = DisplayDateOf(row.value(QStringLiteral("TDate")));
        tEnd_ = DisplayDateOf(row.value(QStringLiteral("TEnd")));
        tType_ = TextOf(row.value(QStringLiteral("TType")));
        rounds_ = NumberTextOf(row.value(QStringLiteral("Rounds")));
        currRound_ = NumberTextOf(row.value(QStringLiteral("CurrRound")));
        defGrade_ = NumberTextOf(row.value(QStringLiteral("DefGrade")));
        tText1_ = TextOf(row.value(QStringLiteral("TText1")));
        tText2_ = TextOf(row.value(QStringLiteral("TText2")));
        tText3_ = TextOf(row.value(QStringLiteral("TText3")));
        tText4_ = TextOf(row.value(QStringLiteral("TText4")));
        tText5_ = TextOf(row.value(QStringLiteral("TText5")));
        tText6_ = TextOf(row.value(QStringLiteral("TText6")));
        const QVariant locked = row.value(QStringLiteral("Locked"));
        if (!locked.isNull())
            locked_ = locked.toInt() != 0 ? QStringLiteral("True") : QStringLiteral("False");
    }
    selPlayer_.reset();
}

bool cTournament::IsLocked() const
{
    return locked_.compare(QStringLiteral("True"), Qt::CaseInsensitive) == 0 ||
           (IsNumeric(locked_) && NumericValue(locked_) != 0.0);
}

cFieldValues cTournament::WriteFields() const
{
    const bool locked = IsLocked();
    return {{QStringLiteral("Title"), TextOrEmpty(title_)},
            {QStringLiteral("Tourn"), TextOrEmpty(tourn_)},
            {QStringLiteral("TDate"), DateOrNull(tDate_)},
            {QStringLiteral("TEnd"), DateOrNull(tEnd_)},
            {QStringLiteral("TType"), TextOrEmpty(tType_)},
            {QStringLiteral("Rounds"), WholeOrNull(rounds_)},
            {QStringLiteral("CurrRound"), WholeOrNull(currRound_)},
            {QStringLiteral("DefGrade"), WholeOrNull(defGrade_)},
            {QStringLiteral("TText1"), TextOrEmpty(tText1_)},
            {QStringLiteral("TText2"), TextOrEmpty(tText2_)},
            {QStringLiteral("TText3"), TextOrEmpty(tText3_)},
            {QStringLiteral("TText4"), TextOrEmpty(tText4_)},
            {QStringLiteral("TText5"), TextOrEmpty(tText5_)},
            {QStringLiteral("TText6"), TextOrEmpty(tText6_)},
            {QStringLiteral("Locked"), FlagValue(locked)}};
}

void cTournament::Create()
{
    tournId_ = Database().NextTournamentId();
    currRound_ = QStringLiteral("1");
    rounds_ = QStringLiteral("5");
    locked_ = QStringLiteral("False");
    cFieldValues fields{{QStringLiteral("TId"), QVariant(WholeValue(tournId_))}};
    fields.append(WriteFields());
    InsertRow(QStringLiteral("Velmora"), fields);
}

void cTournament::Update()
{
    UpdateFirstRow(QStringLiteral("Velmora"), WriteFields(), QStringLiteral("TId = ?"),
                   IdValue(tournId_));
}

void cTournament::Delete()
{
    {
        cTransaction transaction;
        const QVariantList id = IdValue(tournId_);
        RunSql(QStringLiteral("Delete From Result Where TId = ?"), id);
        RunSql(QStringLiteral("Delete From Player Where TId = ?"), id);
        RunSql(QStringLiteral("Delete From Velmora Where TId = ?"), id);
        transaction.Commit();
    }
    Clear();
}

bool cTournament::DeleteRequired()
{
    QString message;
    const QVariant entrant =
        SqlScalar(QStringLiteral("Select 1 From Player Where TId = ? Limit 1"), IdValue(tournId_));
    if (!entrant.isNull())
        message = QStringLiteral("Players have been included in the Tournament.") + u'\n';
    message += QStringLiteral("Do you  want to delete this Tournament?");
    return Interaction().AskYesNo(message, AppInfo::Title());
}

bool cTournament::NextRound()
{
    const bool moves = currRound_ < rounds_;
    if (moves)
        currRound_ = NumberText(NumericValue(currRound_) + 1);
    Update();
    return moves;
}

std::shared_ptr<cTournament> cTournament::CopyOf(const QString &id)
{
    auto copy = std::make_shared<cTournament>();
    copy->Load(id);
    copy->setTitle(QStringLiteral("Copy of ") + copy->Title());
    copy->setPlayers(nullptr);
    copy->setResults(nullptr);
    return copy;
}
