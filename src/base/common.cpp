#include "base/common.h"

#include <QLocale>

double NumericValue(const QString &text)
{
    QString digits;
    digits.reserve(text.size());
    bool seenDigit = false;
    bool seenPoint = false;
    for (const QChar character : text) {
        if (character == u' ' || character == u'\t' || character == u'\n' || character == u'\r')
            continue;
        if ((character == u'-' || character == u'+') && digits.isEmpty()) {
            digits.append(character);
            continue;
        }
        if (character.isDigit() && character.unicode() < 128) {
            digits.append(character);
            seenDigit = true;
            continue;
        }
        if (character == u'.' && !seenPoint) {
            digits.append(character);
            seenPoint = true;
            continue;
        }
        break;
    }
    if (!seenDigit)
        return 0.0;
    return QLocale::c().toDouble(digits);
}

qint64 WholeValue(const QString &text)
{
    return static_cast<qint64>(NumericValue(text));
}

bool IsNumeric(const QString &text)
{
    const QString trimmed = text.trimmed();
    if (trimmed.isEmpty())
        return false;
    bool ok = false;
    QLocale::c().toDouble(trimmed, &ok);
    return ok;
}

QString NumberText(double value)
{
    return QString::number(value, 'g', 15);
}

QDate DateFromText(const QString &text)
{
    const QString trimmed = text.trimmed();
    const QStringList parts = trimmed.split(u'/');
    if (parts.size() != 3)
        return {};
    for (const QString &part : parts) {
        if (part.isEmpty() || part.size() > 4)
            return {};
        for (const QChar character : part)
            if (!character.isDigit() || character.unicode() >= 128)
                return {};
    }
    if (parts[0].size() > 2 || parts[1].size() > 2)
        return {};
    int year = parts[2].toInt();
    if (parts[2].size() <= 2)
        year += year < 30 ? 2000 : 1900;
    else if (parts[2].size() != 4)
        return {};
    return QDate(year, parts[1].toInt(), parts[0].toInt());
}

bool IsDate(const QString &text)
{
    return DateFromText(text).isValid();
}

QString DisplayDate(const QDate &date)
{
    return date.isValid() ? date.toString(u"dd/MM/yyyy") : QString();
}

QString DisplayDateToIso(const QString &text)
{
    const QDate date = DateFromText(text);
    return date.isValid() ? date.toString(Qt::ISODate) : QString();
}

QString IsoToDisplayDate(const QString &iso)
{
    const QDate date = QDate::fromString(iso.trimmed().left(10), Qt::ISODate);
    return DisplayDate(date);
}

namespace {

// True when a is to be taken as the larger: by numbers when either side is numeric.
bool FirstIsLarger(const QString &a, const QString &b)
{
    if (IsNumeric(a) || IsNumeric(b))
        return NumericValue(a) > NumericValue(b);
    return a > b;
}

bool FirstIsSmaller(const QString &a, const QString &b)
{
    if (IsNumeric(a) || IsNumeric(b))
        return NumericValue(a) < NumericValue(b);
    return a < b;
}

} // namespace

QString MaxOf(const QString &a, const QString &b)
{
    return FirstIsLarger(a, b) ? a : b;
}

QString MinOf(const QString &a, const QString &b)
{
    return FirstIsSmaller(a, b) ? a : b;
}

QString CapitaliseWords(const QString &text)
{
    if (text.trimmed().isEmpty())
        return QString();
    QString result = text;
    result[0] = result[0].toUpper();
    for (qsizetype position = 0; position + 1 < result.size(); ++position) {
        if (result[position] == u' ' || result[position] == u'\n')
            result[position + 1] = result[position + 1].toUpper();
    }
    return result;
}

QString ProperCase(const QString &text)
{
    if (text.isEmpty())
        return text;
    static const QString alphabet = QStringLiteral("abcdefghijklmnopqrstuvwxyz");
    QString result = text;
    result[0] = text[0].toUpper();
    for (qsizetype position = 1; position < text.size(); ++position) {
        const bool afterLetter = alphabet.contains(text[position - 1].toLower());
        result[position] = afterLetter ? text[position].toLower() : text[position].toUpper();
    }
    return result;
}

QString QuoteTrimmed(const QString &value)
{
    return u'"' + value.trimmed() + u'"';
}

QString QuoteText(const QString &text)
{
    return u'"' + text + u'"';
}

QString &DoubleAmpersands(QString &text)
{
    text.replace(QStringLiteral("&"), QStringLiteral("&&"));
    return text;
}

QString PadRight(const QString &text, int width, const QString &pad)
{
    if (width <= 0)
        return QString();
    const QChar padCharacter = pad.isEmpty() ? QChar(u' ') : pad.at(0);
    return QString(text + QString(width, padCharacter)).left(width);
}

QString AgeAtDate(const QString &atDate, const QString &birthDate)
{
    if (atDate.trimmed().isEmpty() || birthDate.trimmed().isEmpty())
        return QString();
    const QDate at = DateFromText(atDate);
    const QDate birth = DateFromText(birthDate);
    if (!at.isValid() || !birth.isValid())
        return QString();
    int age = at.year() - birth.year();
    if (at.month() > birth.month())
        ++age;
    if (at.month() == birth.month() && at.day() > birth.day())
        ++age;
    --age;
    return QString::number(age);
}
