#include "database/load_values.h"

#include "base/common.h"
#include "base/fatal_fault.h"
#include "database/dbase_table.h"

#include <QDate>
#include <QLocale>

#include <algorithm>
#include <cmath>

void RaiseLoadFault(const QString &reason)
{
    throw cLoadFault{reason};
}

QString SourceText(const QVariant &value)
{
    if (value.isNull())
        return QString();
    switch (value.typeId()) {
    case QMetaType::Double:
        return NumberText(value.toDouble());
    case QMetaType::QDate:
        return DisplayDate(value.toDate());
    case QMetaType::Bool:
        return value.toBool() ? QStringLiteral("T") : QStringLiteral("F");
    default:
        return value.toString();
    }
}

bool SourceNumber(const QVariant &value, double *number)
{
    switch (value.typeId()) {
    case QMetaType::LongLong:
    case QMetaType::Int:
        *number = double(value.toLongLong());
        return true;
    case QMetaType::Double:
        *number = value.toDouble();
        return std::isfinite(*number);
    case QMetaType::QString: {
        const QString text = value.toString().trimmed();
        bool ok = false;
        *number = QLocale::c().toDouble(text, &ok);
        return ok && std::isfinite(*number);
    }
    default:
        return false;
    }
}

QString WithoutControlCharacters(const QString &text)
{
    const auto isControl = [](QChar c) { return c.category() == QChar::Other_Control; };
    if (std::none_of(text.begin(), text.end(), isControl))
        return text;
    QString kept = text;
    kept.removeIf(isControl);
    return kept;
}

QString MessageExcerpt(const QString &value)
{
    constexpr qsizetype Longest = 60;
    if (value.size() <= Longest)
        return value;
    return value.left(Longest) + QChar(0x2026);
}

QString RowPlace(const cDbaseTable &table)
{
    return QStringLiteral("Row ") + QString::number(table.RowNumber()) + QStringLiteral(" of ") +
           table.FileName();
}

const FieldDefinition &FieldOf(const TableDefinition &table, const QString &name)
{
    return table.fields[ColumnOf(table, name)];
}

int ColumnOf(const TableDefinition &table, const QString &name)
{
    for (qsizetype column = 0; column < table.fields.size(); ++column)
        if (table.fields[column].name == name)
            return int(column);
    RaiseFatal(QStringLiteral("Velmora! database"), FaultNumber::UnknownKey,
               QStringLiteral("The table ") + table.name + QStringLiteral(" has no field ") + name +
                   u'.');
}

QString InsertStatement(const TableDefinition &table)
{
    QStringList names;
    QStringList marks;
    for (const FieldDefinition &field : table.fields) {
        names.append(u'"' + field.name + u'"');
        marks.append(QStringLiteral("?"));
    }
    return QStringLiteral("INSERT INTO \"") + table.name + QStringLiteral("\" (") +
           names.join(QStringLiteral(", ")) + QStringLiteral(") VALUES (") +
           marks.join(QStringLiteral(", ")) + u')';
}

void OpenSource(cDbaseTable &table, const QString &folder, const QString &name,
                const QStringList &requiredFields)
{
    if (!table.Open(folder, name))
        RaiseLoadFault(table.ErrorText());
    const QStringList missing = table.MissingFields(requiredFields);
    if (!missing.isEmpty())
        RaiseLoadFault(QStringLiteral("The file ") + table.FileName() +
                       (missing.size() == 1 ? QStringLiteral(" has no field ")
                                            : QStringLiteral(" lacks the fields ")) +
                       missing.join(QStringLiteral(", ")) + u'.');
}

void cValueMapper::Refuse(const QString &sourceName, const QVariant &value,
                          const QString &what) const
{
    RaiseLoadFault(place_ + QStringLiteral(": the ") + sourceName + QStringLiteral(" \"") +
                   MessageExcerpt(SourceText(value)) + QStringLiteral("\" ") + what + u'.');
}

QVariant cValueMapper::Stored(const FieldDefinition &field, const QVariant &value, bool trimmed,
                              const QString &sourceName) const
{
    switch (field.type) {
    case FieldType::Text:
        return Text(field, value, trimmed, sourceName);
    case FieldType::Long:
    case FieldType::Integer:
    case FieldType::Double:
        return Number(field, value, sourceName);
    case FieldType::Date:
        return Date(field, value, sourceName);
    case FieldType::Boolean:
        return Boolean(field, value, sourceName);
    }
    return QVariant();
}

QVariant cValueMapper::Text(const FieldDefinition &field, const QVariant &value, bool trimmed,
                            const QString &sourceName) const
{
    if (value.isNull())
        return QVariant();
    QString text = WithoutControlCharacters(SourceText(value));
    if (trimmed)
        text = text.trimmed();
    if (text.size() > field.size)
        Refuse(sourceName, value,
               QStringLiteral("is longer than ") + QString::number(field.size) +
                   QStringLiteral(" characters"));
    // The four fields that refuse an empty text hold null for a blank value.
    if (text.isEmpty() && field.refusesEmpty)
        return QVariant();
    return QVariant(text);
}

QVariant cValueMapper::Number(const FieldDefinition &field, const QVariant &value,
                              const QString &sourceName) const
{
    if (value.isNull())
        return QVariant();
    if (value.typeId() == QMetaType::QString && value.toString().trimmed().isEmpty())
        return QVariant();
    if (value.typeId() == QMetaType::Bool)
        return QVariant(value.toBool() ? 1 : 0);
    double number = 0;
    if (!SourceNumber(value, &number))
        Refuse(sourceName, value, QStringLiteral("is not a number"));
    if (field.type == FieldType::Double)
        return QVariant(number);
    const double limit = field.type == FieldType::Integer ? 32767.0 : 2147483647.0;
    const double whole = std::round(number);
    if (whole > limit || whole < -limit - 1)
        Refuse(sourceName, value, QStringLiteral("is too large for its field"));
    return QVariant(qint64(whole));
}

QVariant cValueMapper::Date(const FieldDefinition &, const QVariant &value,
                            const QString &sourceName) const
{
    if (value.isNull())
        return QVariant();
    if (value.typeId() == QMetaType::QDate) {
        const QDate date = value.toDate();
        if (!date.isValid() || date.year() < 1 || date.year() > 9999)
            Refuse(sourceName, value, QStringLiteral("is not a date"));
        return QVariant(date.toString(QStringLiteral("yyyy-MM-dd")));
    }
    const QString text = SourceText(value).trimmed();
    if (text.isEmpty())
        return QVariant();
    QDate date = QDate::fromString(text, QStringLiteral("yyyyMMdd"));
    if (!date.isValid() && IsDate(text))
        date = DateFromText(text);
    if (!date.isValid())
        Refuse(sourceName, value, QStringLiteral("is not a date"));
    return QVariant(date.toString(QStringLiteral("yyyy-MM-dd")));
}

QVariant cValueMapper::Boolean(const FieldDefinition &, const QVariant &value,
                               const QString &sourceName) const
{
    if (value.isNull())
        return QVariant();
    if (value.typeId() == QMetaType::Bool)
        return QVariant(value.toBool() ? 1 : 0);
    double number = 0;
    if (SourceNumber(value, &number))
        return QVariant(number != 0 ? 1 : 0);
    const QString text = SourceText(value).trimmed().toUpper();
    if (text.isEmpty())
        return QVariant();
    if (text == u"T" || text == u"Y" || text == u"TRUE" || text == u"YES")
        return QVariant(1);
    if (text == u"F" || text == u"N" || text == u"FALSE" || text == u"NO")
        return QVariant(0);
    Refuse(sourceName, value, QStringLiteral("is neither true nor false"));
}
