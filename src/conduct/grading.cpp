#include "conduct/grading.h"

#include "base/common.h"
#include "session/player.h"
#include "session/result.h"

#include <cmath>

namespace {

qint16 WholeGrade(const QString &text)
{
    return qint16(std::nearbyint(NumericValue(text)));
}

qint16 SidePoints(const cResult &result, bool white, const cGradeBasis &basis)
{
    const cPlayer *own = white ? result.White().get() : result.Black().get();
    const cPlayer *opponent = white ? result.Black().get() : result.White().get();
    return GradePoints(result.Result(), white, ArithmeticGrade(own, basis),
                       ArithmeticGrade(opponent, basis), WholeGrade(basis.defGrade));
}

// The basis of the tournament of whichever side the row has.
cGradeBasis BasisOf(const cResult &result)
{
    const cPlayer *side = result.White() ? result.White().get() : result.Black().get();
    return cGradeBasis::Stored(side ? side->TournId() : QString());
}

} // namespace

qint16 ArithmeticGrade(const cPlayer *player, const cGradeBasis &basis)
{
    if (!player)
        return 0;
    if (basis.type == u'M')
        return WholeGrade(player->Grade(cGradeBasis{QStringLiteral("B"), basis.defGrade}));
    return WholeGrade(player->Grade(basis));
}

qint16 GradePoints(const QString &code, bool white, qint16 ownGrade, qint16 opponentGrade,
                   qint16 defGrade)
{
    if (code == u'Z')
        return 0;
    // An ungraded player stands at the default grade both as the opponent and as
    // the anchor of the window.
    if (ownGrade == 0)
        ownGrade = defGrade;
    if (opponentGrade == 0)
        opponentGrade = defGrade;
    qint16 adjustment = 0;
    if (code == (white ? u'W' : u'B'))
        adjustment = 50;
    else if (code == (white ? u'B' : u'W'))
        adjustment = -50;
    const qint16 clamped =
        MinOf(MaxOf(opponentGrade, qint16(ownGrade - 40)), qint16(ownGrade + 40));
    return qint16(clamped + adjustment);
}

qint16 cResult::WhiteGradePoints() const
{
    return SidePoints(*this, true, BasisOf(*this));
}

qint16 cResult::WhiteGradePoints(const cGradeBasis &basis) const
{
    return SidePoints(*this, true, basis);
}

qint16 cResult::BlackGradePoints() const
{
    return SidePoints(*this, false, BasisOf(*this));
}

qint16 cResult::BlackGradePoints(const cGradeBasis &basis) const
{
    return SidePoints(*this, false, basis);
}
