#pragma once

// Golden comparison of a composed report: each running line as
// "page|size|style|text", compared with a file of tests/data/reports that was
// written out by hand from the report's layout.

#include "reports/print_cntrl.h"

#include <QFile>
#include <QString>
#include <QStringList>

inline QStringList ComposedLines()
{
    QStringList lines;
    for (const mPrintCntrl::cRunningLine &line : mPrintCntrl::RunningLines())
        lines.append(QString::number(line.Page) + u'|' + QString::number(line.FontSize) + u'|' +
                     QString::number(line.FontStyle) + u'|' + line.Text);
    return lines;
}

// The plain texts of the running lines, for checks of single rows.
inline QStringList Texts()
{
    QStringList texts;
    for (const mPrintCntrl::cRunningLine &line : mPrintCntrl::RunningLines())
        texts.append(line.Text);
    return texts;
}

inline QStringList ExpectedLines(const QString &name)
{
    QFile file(QStringLiteral(VELMORA_TEST_DATA "/reports/") + name);
    if (!file.open(QIODevice::ReadOnly))
        return {QStringLiteral("<no expected file ") + name + u'>'};
    QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n');
    if (!lines.isEmpty() && lines.constLast().isEmpty())
        lines.removeLast();
    return lines;
}

// "" when the two agree; else where they first part, with both lines shown.
inline QString FirstDifference(const QStringList &actual, const QStringList &expected)
{
    const qsizetype common = qMin(actual.size(), expected.size());
    for (qsizetype index = 0; index < common; ++index)
        if (actual.at(index) != expected.at(index))
            return QStringLiteral("line %1 differs:\n  actual:   [%2]\n  expected: [%3]")
                .arg(index + 1)
                .arg(actual.at(index), expected.at(index));
    if (actual.size() != expected.size())
        return QStringLiteral("%1 lines composed, %2 expected; first extra: [%3]")
            .arg(actual.size())
            .arg(expected.size())
            .arg(actual.size() > common ? actual.at(common) : expected.at(common));
    return QString();
}

#define VERIFY_GOLDEN(name)                                                                        \
    do {                                                                                           \
        const QString difference = FirstDifference(ComposedLines(), ExpectedLines(name));          \
        QVERIFY2(difference.isEmpty(), qPrintable(difference));                                    \
    } while (false)

// The lines of the closing notice as a report at 8 point prints them.
inline QStringList NoticeLines(int page)
{
    const QString head = QString::number(page) + QStringLiteral("|8|8|");
    return {head, head,
            head + QStringLiteral(
                       "This print out was was produced by Velmora! which is available from"),
            head + QStringLiteral("Velmora! Software."), head};
}
