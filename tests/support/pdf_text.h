#pragma once

// Reading a PDF back as text, as poppler lays it out, to compare it with the page
// document it was drawn from.

#include "reports/page_document.h"

#include <QList>
#include <QMap>
#include <QProcess>
#include <QString>
#include <QStringList>

#include <algorithm>
#include <cmath>

// The text of a PDF file as poppler lays it out. The width of one character at
// 8 points (0.6 em of 8 points, 4.8 points) is given so that each column of an
// 8-point line lands in its own column of the text.
inline QString ExtractedPdfText(const QString &fileName)
{
    QProcess extraction;
    extraction.start(QStringLiteral("pdftotext"),
                     {QStringLiteral("-layout"), QStringLiteral("-fixed"), QStringLiteral("4.8"),
                      QStringLiteral("-enc"), QStringLiteral("UTF-8"), fileName,
                      QStringLiteral("-")});
    if (!extraction.waitForFinished(60000) || extraction.exitCode() != 0)
        return QString();
    return QString::fromUtf8(extraction.readAllStandardOutput());
}

// Each page of the extracted text as its lines that hold anything, with the runs of
// blanks between words made one, since a line that mixes sizes keeps its words but
// not its columns.
inline QList<QStringList> SimplifiedPdfPages(const QString &text)
{
    QList<QStringList> pages;
    const QStringList formFed = text.split(u'\f');
    for (const QString &page : formFed) {
        QStringList lines;
        for (const QString &line : page.split(u'\n'))
            if (!line.trimmed().isEmpty())
                lines.append(line.simplified());
        if (!lines.isEmpty())
            pages.append(lines);
    }
    return pages;
}

// What each page of the document shows, line by line: the texts that share a
// baseline, left to right, with the same blanks made one.
inline QList<QStringList> SimplifiedDocumentPages(const cPageDocument &document)
{
    QList<QStringList> pages;
    for (qint32 page = 1; page <= document.PageCount(); ++page) {
        QMap<qint64, QList<const cPageText *>> byBaseline;
        for (const cPageText &text : document.Page(page).Texts) {
            if (text.Text.trimmed().isEmpty())
                continue;
            const double baseline = text.Box().Top + text.BaselineOffset();
            byBaseline[std::llround(baseline)].append(&text);
        }
        QStringList lines;
        for (QList<const cPageText *> &row : byBaseline) {
            std::stable_sort(row.begin(), row.end(), [](const cPageText *a, const cPageText *b) {
                return a->Box().Left < b->Box().Left;
            });
            QString line;
            for (const cPageText *text : row)
                line += text->Text + u' ';
            lines.append(line.simplified());
        }
        if (!lines.isEmpty())
            pages.append(lines);
    }
    return pages;
}
