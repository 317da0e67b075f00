#include "reports/pdf_renderer.h"
#include "reports/print_cntrl.h"
#include "reports/report_options.h"
#include "support/test_environment.h"

#include "report_fixtures.h"
#include "report_golden.h"

#include <QFile>
#include <QGuiApplication>
#include <QProcess>
#include <QStandardPaths>
#include <QTest>

// A composed report as it leaves the program: the web page and a PDF file.
class TestReportOutput : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void webPageOfTheResultsListHoldsItsLinesEscaped();
    void pdfOfTheCrossTableReadsBackLineByLine();

private:
    std::unique_ptr<cTestSession> session_;
};

void TestReportOutput::init()
{
    session_ = std::make_unique<cTestSession>();
    Control().setSurnameCase(0);
}

void TestReportOutput::cleanup()
{
    Control().setTournament(nullptr);
    session_.reset();
}

void TestReportOutput::webPageOfTheResultsListHoldsItsLinesEscaped()
{
    OpenCongress()->Players().ListResults(mPrintCntrl::Destination::WebPage, cPrintOptions{});
    QFile written(mPrintCntrl::WebPagePath());
    QVERIFY(written.open(QIODevice::ReadOnly));
    QFile expected(QStringLiteral(VELMORA_TEST_DATA "/reports/results_list_none.htm"));
    QVERIFY(expected.open(QIODevice::ReadOnly));
    QCOMPARE(written.readAll(), expected.readAll());
}

void TestReportOutput::pdfOfTheCrossTableReadsBackLineByLine()
{
    const QString pdftotext = QStandardPaths::findExecutable(u"pdftotext"_s);
    if (pdftotext.isEmpty())
        QSKIP("pdftotext is not installed");
    OpenCongress()->Players().ListCrossTable(mPrintCntrl::Destination::Preview, cPrintOptions{});
    const QString pdf = session_->Path(u"cross_table.pdf"_s);
    QVERIFY(WritePdf(mPrintCntrl::Document(), pdf));

    // Read back at the pitch of 8-point Courier, 4.8 points, so that the columns of
    // the report come back as columns of text.
    QProcess process;
    process.start(pdftotext,
                  {u"-layout"_s, u"-fixed"_s, u"4.8"_s, u"-enc"_s, u"UTF-8"_s, pdf, u"-"_s});
    QVERIFY(process.waitForFinished(30000));
    QCOMPARE(process.exitCode(), 0);
    QStringList read;
    for (const QString &line : QString::fromUtf8(process.readAllStandardOutput()).split(u'\n'))
        if (!line.trimmed().isEmpty())
            read.append(line);

    // The page stamp stands above the first line; the text area starts where the
    // column heading starts.
    QVERIFY(!read.isEmpty());
    QCOMPARE(read.takeFirst().trimmed(), u"Page 1 of 1"_s);
    qsizetype indent = -1;
    for (const QString &line : read)
        if (line.contains(u"PIN Player"_s))
            indent = line.indexOf(u"PIN Player"_s);
    QVERIFY(indent > 0);

    QStringList expected;
    QStringList actual;
    qsizetype next = 0;
    for (const QString &line : ExpectedLines(u"cross_table_by_pin.txt"_s)) {
        const QString text = line.section(u'|', 3);
        if (text.trimmed().isEmpty())
            continue;
        QVERIFY2(next < read.size(), qPrintable(u"missing: "_s + text));
        const QString pdfLine = read.at(next++);
        // The lines at 8 point keep their columns; the larger title lines are
        // compared by their words.
        if (line.section(u'|', 1, 1) == u"8"_s) {
            expected.append(text.trimmed().isEmpty() ? QString() : text);
            actual.append(pdfLine.mid(indent));
        } else {
            expected.append(text.simplified());
            actual.append(pdfLine.simplified());
        }
        // Trailing blanks do not reach the file.
        while (expected.constLast().endsWith(u' '))
            expected.last().chop(1);
        while (actual.constLast().endsWith(u' '))
            actual.last().chop(1);
    }
    QCOMPARE(next, read.size());
    const QString difference = FirstDifference(actual, expected);
    QVERIFY2(difference.isEmpty(), qPrintable(difference));
}

VELMORA_TEST_MAIN(TestReportOutput)
#include "test_report_output.moc"
