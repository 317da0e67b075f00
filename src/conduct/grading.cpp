#include "session/common.h"
#include "session/player.h"
#include "session/result.h"

#include <cmath>

namespace {

// The grade that the grading arithmetic works with. A mixed tournament shows no
// grade, but its games are graded as a standard tournament's would be, so that
// recalculation never meets an empty grade in a played game.
qint16 ArithmeticGrade(const cPlayer *player, const cGradeBasis &basis)
{
    if (!player)
        return 0;
    if (basis.type == u'M')
        return qint16(std::nearbyint(
            NumericValue(player->Grade(cGradeBasis{QStringLiteral("B"), basis.defGrade}))));
    return qint16(std::nearbyint(NumericValue(player->Grade(basis))));
}

// The points one side gains: the opponent's grade held within 40 points of the
// player's own, on both sides, then the adjustment for the result. An ungraded
// player stands at the default grade both as opponent and as the anchor of the
// window.
qint16 GradePoints(const cResult &result, bool white, const cGradeBasis &basis)
{
    if (result.Result() == u'Z')
        return 0;
    const qint16 defGrade = qint16(std::nearbyint(NumericValue(basis.defGrade)));
    const cPlayer *own = white ? result.White().get() : result.Black().get();
    const cPlayer *opponent = white ? result.Black().get() : result.White().get();
    qint16 ownGrade = ArithmeticGrade(own, basis);
    if (ownGrade == 0)
        ownGrade = defGrade;
    qint16 opponentGrade = ArithmeticGrade(opponent, basis);
    if (opponentGrade == 0)
        opponentGrade = defGrade;
    qint16 adjustment = 0;
    const QString win = white ? QStringLiteral("W") : QStringLiteral("B");
    const QString loss = white ? QStringLiteral("B") : QStringLiteral("W");
    if (result.Result() == win)
        adjustment = 50;
    else if (result.Result() == loss)
        adjustment = -50;
    const qint16 clamped =
        MinOf(MaxOf(opponentGrade, qint16(ownGrade - 40)), qint16(ownGrade + 40));
    return qint16(clamped + adjustment);
}

// The basis of the tournament of whichever side the row has.
cGradeBasis BasisOf(const cResult &result)
{
    const cPlayer *side = result.White() ? result.White().get() : result.Black().get();
    return cGradeBasis::Stored(side ? side->TournId() : QString());
}

} // namespace

qint16 cResult::WhiteGradePoints() const
{
    return GradePoints(*this, true, BasisOf(*this));
}

qint16 cResult::WhiteGradePoints(const cGradeBasis &basis) const
{
    return GradePoints(*this, true, basis);
}

qint16 cResult::BlackGradePoints() const
{
    return GradePoints(*this, false, BasisOf(*this));
}

qint16 cResult::BlackGradePoints(const cGradeBasis &basis) const
{
    return GradePoints(*this, false, basis);
}
