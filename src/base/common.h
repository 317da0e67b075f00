#pragma once

#include <QDate>
#include <QString>

#include <concepts>

// The small shared routines that every part of the program uses: text helpers, the
// age routine and the conversions between the text that records keep and the
// numbers and dates that arithmetic and the database need.

// The numeric value of the text's leading number, as the record classes read their
// text fields: blanks are skipped, an optional sign, digits and one decimal point.
// Empty or non-numeric text is 0.
double NumericValue(const QString &text);
// The numeric value cut to a whole number, for ids, pins, rounds and grades.
qint64 WholeValue(const QString &text);
// True when the trimmed text is a number as a person would type it ("12", "-3.5").
bool IsNumeric(const QString &text);
// A number as text with no trailing ".0": 3 gives "3", 2.5 gives "2.5".
QString NumberText(double value);

// Dates are typed and shown as dd/mm/yyyy (dd/mm/yy is accepted: 00-29 are this
// century, 30-99 the last). The database holds them as yyyy-mm-dd.
bool IsDate(const QString &text);
QDate DateFromText(const QString &text);
QString DisplayDate(const QDate &date);
// dd/mm/yyyy (or dd/mm/yy) to yyyy-mm-dd; "" for an empty or unreadable text.
QString DisplayDateToIso(const QString &text);
// yyyy-mm-dd to dd/mm/yyyy; "" for an empty or unreadable text.
QString IsoToDisplayDate(const QString &iso);

template <typename T>
concept ArithmeticValue = std::integral<T> || std::floating_point<T>;

// The larger of two values; on a tie the second. Text values compare by their
// numeric values when at least one of them is numeric, else as text.
template <ArithmeticValue T> T MaxOf(T a, T b)
{
    return a > b ? a : b;
}
template <ArithmeticValue T> T MinOf(T a, T b)
{
    return a < b ? a : b;
}
QString MaxOf(const QString &a, const QString &b);
QString MinOf(const QString &a, const QString &b);

// The first character and every character after a blank or a line feed in capitals;
// nothing is made lower case.
QString CapitaliseWords(const QString &text);
// Each character in lower case when the character before it is one of the 26
// letters a to z in either case, else in capitals: O'BRIEN gives O'Brien.
QString ProperCase(const QString &text);
// The value trimmed, between double quotes; inner quotes are not doubled.
QString QuoteTrimmed(const QString &value);
// The text between double quotes, not trimmed; inner quotes are not doubled.
QString QuoteText(const QString &text);
// Every "&" doubled, so that a caption shows it as a literal ampersand.
QString &DoubleAmpersands(QString &text);
// The text followed by width copies of the first character of pad, cut to width.
QString PadRight(const QString &text, int width, const QString &pad);
// The age in whole years at atDate of someone born on birthDate, both as typed.
// On the birthday itself the age is still that of the day before.
QString AgeAtDate(const QString &atDate, const QString &birthDate);
