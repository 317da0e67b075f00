#include "session/result.h"

#include "base/fatal_fault.h"

namespace {

const QString FiveBlanks = QStringLiteral("     ");

float ScoreOf(const QString &code, bool white)
{
    if (code == u'W')
        return white ? 1.0f : 0.0f;
    if (code == u'D')
        return 0.5f;
    if (code == u'B')
        return white ? 0.0f : 1.0f;
    if (code == u'Z' || code == u'N' || code.isEmpty())
        return 0.0f;
    RaiseFatal(QStringLiteral("cResult"), FaultNumber::UnknownCode,
               QStringLiteral("The result code \"") + code + QStringLiteral("\" gives no score."));
}

} // namespace

void cResult::setResult(const QString &value)
{
    result_ = value.trimmed();
}

QString cResult::DisplayResult() const
{
    const QString code = result_.toUpper();
    if (code == u'W')
        return QStringLiteral("1 - 0");
    if (code == u'D')
        return QStringLiteral("\u00BD - \u00BD");
    if (code == u'B')
        return QStringLiteral("0 - 1");
    if (code == u'Z')
        return QStringLiteral("0 - 0");
    if (code == u'N' || code == u'C')
        return FiveBlanks;
    return QString();
}

void cResult::setDisplayResult(const QString &value)
{
    const QString text = value.trimmed();
    if (text == QStringLiteral("1 - 0"))
        result_ = QStringLiteral("W");
    else if (text == QStringLiteral("\u00BD - \u00BD"))
        result_ = QStringLiteral("D");
    else if (text == QStringLiteral("0 - 1"))
        result_ = QStringLiteral("B");
    else if (text == QStringLiteral("0 - 0"))
        result_ = QStringLiteral("Z");
    else if (text.isEmpty())
        result_ = QStringLiteral("N");
    else
        result_ = QString();
}

QString cResult::DisplayWhiteResult() const
{
    if (result_ == u'W')
        return QStringLiteral("+");
    if (result_ == u'D')
        return QStringLiteral("=");
    if (result_ == u'B')
        return QStringLiteral("-");
    return QStringLiteral(" ");
}

QString cResult::DisplayBlackResult() const
{
    if (result_ == u'W')
        return QStringLiteral("-");
    if (result_ == u'D')
        return QStringLiteral("=");
    if (result_ == u'B')
        return QStringLiteral("+");
    return QStringLiteral(" ");
}

void cResult::setBoard(const QString &value)
{
    board_ = value.trimmed();
}

void cResult::setRound(const QString &value)
{
    round_ = value.trimmed();
}

void cResult::Load(const QString &round, const QString &board, std::shared_ptr<cPlayer> white,
                   std::shared_ptr<cPlayer> black, const QString &result)
{
    round_ = round;
    board_ = board;
    white_ = std::move(white);
    black_ = std::move(black);
    result_ = result;
}

float cResult::WhiteScore() const
{
    return ScoreOf(result_, true);
}

float cResult::BlackScore() const
{
    return ScoreOf(result_, false);
}
