#include "conduct/conduct_fixture.h"
#include "database/shared_handle.h"
#include "database/sql.h"
#include "support/test_environment.h"
#include "support/widget_driving.h"
#include "ui/cntl_data_list.h"
#include "ui/cntl_master_list.h"

#include <QAbstractItemModelTester>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRandomGenerator>
#include <QScrollBar>
#include <QSignalSpy>
#include <QSqlQuery>
#include <QTabBar>
#include <QTableView>
#include <QTest>
#include <QTimer>

#include <algorithm>

namespace {

void AddMaster(int id, const QString &surname, const QString &forename,
               const QString &code = QString())
{
    RunSql(QStringLiteral("INSERT INTO Master (MasterId, Surname, Forename, Code) "
                          "VALUES (?, ?, ?, ?)"),
           {id, surname, forename, TextOrNull(code)});
}

void AddGraded(const QString &ref, const QString &name)
{
    RunSql(QStringLiteral("INSERT INTO BCFMast (Ref, Name, Age) VALUES (?, ?, 'A')"), {ref, name});
}

void AddTournament(int id, const QString &title, const QString &start, const QString &end)
{
    RunSql(QStringLiteral("INSERT INTO Velmora (TId, Title, Tourn, TDate, TEnd) "
                          "VALUES (?, ?, 'Open', ?, ?)"),
           {id, title, DateOrNull(start), DateOrNull(end)});
}

// The names shown, from the top, in the name column of the kind.
QStringList ShownNames(const cntlDataList &list, int column = 1)
{
    QStringList names;
    for (int row = 0; row < list.RowCount(); ++row)
        names << list.Model()->Cell(row, column);
    return names;
}

void Type(cntlDataList &list, const QString &text)
{
    QTest::keyClicks(list.lstData, text);
}

} // namespace

class TestCntlDataList : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void everyKindPassesTheModelChecks();
    void anEmptyFilterShowsNoRowsAndAStarShowsAll();
    void aLetterFilterShowsTheNamesThatStartWithIt();
    void percentAndUnderscoreFindOnlyNamesHoldingThem();
    void aFilterFindsWhatTheEnginesLikeFinds();
    void rowsWrittenAfterAListWasShownAppearOnTheNextLoad();
    void aDatabaseOpenedAfreshIsReadAfresh();
    void listsReadThroughQtShowTheSameRows();
    void eachKindShowsItsHeadings();
    void typingFindsTheFirstNameAndShowsTheText();
    void typingAfterFiveSecondsStartsAfresh();
    void backspaceAndEscapeChangeTheTypedText();
    void typedTextWithoutMatchSelectsTheFirstRow();
    void gradingListTakesTheLongestStartReached();
    void halvingFindsWhatTheWalkFinds();
    void aSortIsTheOrderOfCapitalsAndEqualTextsKeepTheirOrder();
    void datesSortNewestFirstThenOldestFirst();
    void nameHeadingSortsAscendingThenDescending();
    void aSortKeepsTheSelectedRowByItsKey();
    void aReloadKeepsTheSelectedRowByItsKey();
    void theFoundRowKeepsItsHeightOnScreen();
    void typeAheadPutsTheRowFiveBelowTheTop();
    void aOneDayTournamentShowsOneDate();
    void selectedValuesByKind();
    void withdrawnEntrantsAreStruckOutInBold();
    void selectionAndDoubleClickAreSignalled();
    void masterListHasTheSearchTabAndALetterTabEach();
    void masterListTabsNarrowTheList();
    void masterListSearchRowFollowsItsText();
    void selSearchTakesSurnameAndInitial();

private:
    std::unique_ptr<cTestSession> session_;
};

void TestCntlDataList::init()
{
    session_ = std::make_unique<cTestSession>();
}

void TestCntlDataList::cleanup()
{
    Control().setTournament(nullptr);
    session_.reset();
}

void TestCntlDataList::everyKindPassesTheModelChecks()
{
    AddMaster(1, QStringLiteral("Smith"), QStringLiteral("Ann"), QStringLiteral("123456A"));
    AddMaster(2, QStringLiteral("Jones"), QStringLiteral("Bob"));
    AddGraded(QStringLiteral("111111A"), QStringLiteral("Smith, Ann"));
    AddGraded(QStringLiteral("222222B"), QStringLiteral("Brown, Cy"));
    RunSql(QStringLiteral("INSERT INTO Club (Code, Club, County, \"Union\") VALUES "
                          "('ABC', 'Abbey', 'KEN', 'E'), ('XYZ', 'Xeno', 'SUR', 'E')"));
    AddTournament(5, QStringLiteral("Spring"), QStringLiteral("01/03/2025"), QString());
    conduct_fixture::OpenTournament();
    conduct_fixture::Graded(QStringLiteral("Ames"), QStringLiteral("120"), QStringLiteral("1"));
    conduct_fixture::Graded(QStringLiteral("Bell"), QStringLiteral("110"), QStringLiteral("2"));

    cntlDataList list;
    QAbstractItemModelTester tester(const_cast<cDataListModel *>(list.Model()),
                                    QAbstractItemModelTester::FailureReportingMode::QtTest);
    for (int kind = 0; kind <= 4; ++kind) {
        list.setDisplayType(kind);
        list.setDisplayFilter(QStringLiteral("*"));
        list.DisplayList();
        QVERIFY2(list.RowCount() >= 2, qPrintable(QString::number(kind)));
        QCOMPARE(list.Model()->columnCount(), cDataListModel::ColumnCountOf(DataListKind(kind)));
        for (int column = 0; column < list.Model()->columnCount(); ++column)
            list.ClickHeading(column);
    }
}

void TestCntlDataList::anEmptyFilterShowsNoRowsAndAStarShowsAll()
{
    AddMaster(1, QStringLiteral("Smith"), QStringLiteral("Ann"));
    AddMaster(2, QStringLiteral("Jones"), QStringLiteral("Bob"));
    cntlDataList list;
    list.setDisplayFilter(QString());
    QCOMPARE(list.DisplayFilter(), QStringLiteral("<empty list>"));
    list.DisplayList();
    QCOMPARE(list.RowCount(), 0);
    QCOMPARE(list.SelKey(), QString());
    QCOMPARE(list.SelName(), QString());
    list.setDisplayFilter(QStringLiteral("*"));
    QCOMPARE(list.DisplayFilter(), QString());
    list.DisplayList();
    QCOMPARE(ShownNames(list),
             (QStringList{QStringLiteral("Jones, Bob"), QStringLiteral("Smith, Ann")}));
}

void TestCntlDataList::aLetterFilterShowsTheNamesThatStartWithIt()
{
    AddMaster(1, QStringLiteral("smith"), QStringLiteral("Ann"));
    AddMaster(2, QStringLiteral("Jones"), QStringLiteral("Bob"));
    AddMaster(3, QStringLiteral("Stone"), QStringLiteral("Cy"));
    cntlDataList list;
    list.setDisplayFilter(QStringLiteral("S"));
    list.DisplayList();
    QCOMPARE(ShownNames(list),
             (QStringList{QStringLiteral("smith, Ann"), QStringLiteral("Stone, Cy")}));
    AddGraded(QStringLiteral("1A"), QStringLiteral("Stone, Cy"));
    AddGraded(QStringLiteral("2B"), QStringLiteral("Jones, Di"));
    list.setDisplayType(4);
    list.setDisplayFilter(QStringLiteral("jo"));
    list.DisplayList();
    QCOMPARE(ShownNames(list), QStringList{QStringLiteral("Jones, Di")});
}

void TestCntlDataList::percentAndUnderscoreFindOnlyNamesHoldingThem()
{
    AddMaster(1, QStringLiteral("100%"), QStringLiteral("Ann"));
    AddMaster(2, QStringLiteral("1000"), QStringLiteral("Bob"));
    AddMaster(3, QStringLiteral("A_B"), QStringLiteral("Cy"));
    AddMaster(4, QStringLiteral("AXB"), QStringLiteral("Di"));
    AddMaster(5, QStringLiteral("O'Brien \"<&>\""), QStringLiteral("Ed"));
    cntlDataList list;
    list.setDisplayFilter(QStringLiteral("100%"));
    list.DisplayList();
    QCOMPARE(ShownNames(list), QStringList{QStringLiteral("100%, Ann")});
    list.setDisplayFilter(QStringLiteral("A_"));
    list.DisplayList();
    QCOMPARE(ShownNames(list), QStringList{QStringLiteral("A_B, Cy")});
    list.setDisplayFilter(QStringLiteral("%"));
    list.DisplayList();
    QCOMPARE(list.RowCount(), 0);
    list.setDisplayFilter(QStringLiteral("O'Brien \""));
    list.DisplayList();
    QCOMPARE(ShownNames(list), QStringList{QStringLiteral("O'Brien \"<&>\", Ed")});
}

void TestCntlDataList::aFilterFindsWhatTheEnginesLikeFinds()
{
    // Letters beyond ASCII match only in the case typed, ASCII letters in either case,
    // a missing surname never, and a filter of blanks every surname there is.
    const QStringList surnames{
        QStringLiteral("smith"),      QStringLiteral("Smith"),       QStringLiteral("\u00e9mile"),
        QStringLiteral("\u00c9mile"), QStringLiteral("stra\u00dfe"), QStringLiteral("STRASSE"),
        QStringLiteral("O'Brien"),    QStringLiteral("o'brien"),     QStringLiteral("50%"),
        QStringLiteral("a_b"),        QStringLiteral("\u0131van"),   QStringLiteral("Ivan"),
        QStringLiteral("S"),          QStringLiteral(" Smith")};
    int id = 0;
    for (const QString &surname : surnames)
        AddMaster(++id, surname, QStringLiteral("F"));
    RunSql(QStringLiteral("INSERT INTO Master (MasterId, Forename) VALUES (?, 'NoSurname')"),
           {++id});
    const QStringList filters{
        QStringLiteral("s"),      QStringLiteral("S"),          QStringLiteral("\u00e9"),
        QStringLiteral("\u00c9"), QStringLiteral("stra\u00df"), QStringLiteral("o'"),
        QStringLiteral("50%"),    QStringLiteral("a_"),         QStringLiteral("i"),
        QStringLiteral("   "),    QStringLiteral(" sm"),        QStringLiteral("Smithy")};
    for (const QString &filter : filters) {
        QString pattern;
        for (const QChar c : filter.trimmed().toUpper()) {
            if (c == u'%' || c == u'_' || c == u'\\')
                pattern += u'\\';
            pattern += c;
        }
        pattern += u'%';
        QStringList expected;
        QSqlQuery query = RunSql(QStringLiteral("SELECT MasterId FROM Master WHERE Surname "
                                                "LIKE ? ESCAPE '\\' ORDER BY MasterId"),
                                 {pattern});
        while (query.next())
            expected << query.value(0).toString();
        cDataListModel model;
        model.Load(DataListKind::Master, filter);
        QStringList shown;
        for (int row = 0; row < model.RowCount(); ++row)
            shown << model.Cell(row, cDataListModel::KeyColumn);
        QVERIFY2(shown == expected, qPrintable(filter + QStringLiteral(": ") + shown.join(u',') +
                                               QStringLiteral(" / ") + expected.join(u',')));
    }
}

void TestCntlDataList::rowsWrittenAfterAListWasShownAppearOnTheNextLoad()
{
    AddMaster(1, QStringLiteral("Adams"), QStringLiteral("Ann"));
    AddGraded(QStringLiteral("100001A"), QStringLiteral("Adams, Ann"));
    cntlDataList list;
    list.setDisplayType(int(DataListKind::Master));
    list.setDisplayFilter(QStringLiteral("*"));
    list.DisplayList();
    QCOMPARE(list.RowCount(), 1);

    AddMaster(2, QStringLiteral("Baker"), QStringLiteral("Bob"));
    list.DisplayList();
    QCOMPARE(ShownNames(list),
             QStringList({QStringLiteral("Adams, Ann"), QStringLiteral("Baker, Bob")}));
    RunSql(QStringLiteral("UPDATE Master SET Surname = 'Aaron' WHERE MasterId = 2"));
    list.DisplayList();
    QCOMPARE(ShownNames(list),
             QStringList({QStringLiteral("Aaron, Bob"), QStringLiteral("Adams, Ann")}));
    RunSql(QStringLiteral("DELETE FROM Master WHERE MasterId = 1"));
    list.DisplayList();
    QCOMPARE(ShownNames(list), QStringList({QStringLiteral("Aaron, Bob")}));

    list.setDisplayType(int(DataListKind::BCFList));
    list.setDisplayFilter(QStringLiteral("*"));
    list.DisplayList();
    QCOMPARE(list.RowCount(), 1);
    RunSql(QStringLiteral("DELETE FROM BCFMast"));
    list.DisplayList();
    QCOMPARE(list.RowCount(), 0);
}

void TestCntlDataList::aDatabaseOpenedAfreshIsReadAfresh()
{
    AddMaster(1, QStringLiteral("Adams"), QStringLiteral("Ann"));
    {
        cDataListModel model;
        model.Load(DataListKind::Master, QString());
        QCOMPARE(model.RowCount(), 1);
    }
    // A fresh database whose count of written rows may match the one before.
    session_.reset();
    session_ = std::make_unique<cTestSession>();
    AddMaster(7, QStringLiteral("Young"), QStringLiteral("Yvonne"));
    cDataListModel model;
    model.Load(DataListKind::Master, QString());
    QCOMPARE(model.RowCount(), 1);
    QCOMPARE(model.Cell(0, cDataListModel::NameColumn), QStringLiteral("Young, Yvonne"));
}

void TestCntlDataList::listsReadThroughQtShowTheSameRows()
{
    AddMaster(1, QStringLiteral("Smith"), QStringLiteral("Ann"), QStringLiteral("123456A"));
    AddMaster(2, QStringLiteral("\u00c9mile"), QStringLiteral("Zo\u00eb"));
    RunSql(QStringLiteral("INSERT INTO Master (MasterId, Forename) VALUES (3, 'NoSurname')"));
    AddGraded(QStringLiteral("100001A"), QStringLiteral("Smith, Ann"));
    const auto rowsOf = [](DataListKind kind, const QString &filter) {
        cDataListModel model;
        model.Load(kind, filter);
        QStringList rows;
        for (int row = 0; row < model.RowCount(); ++row)
            rows << model.Cell(row, 0) + u'|' + model.Cell(row, 1) + u'|' + model.Cell(row, 2);
        return rows;
    };
    const QStringList direct = rowsOf(DataListKind::Master, QString());
    const QStringList letter = rowsOf(DataListKind::Master, QStringLiteral("s"));
    const QStringList graded = rowsOf(DataListKind::BCFList, QString());
    QCOMPARE(direct, QStringList({QStringLiteral("1|Smith, Ann|123456A"),
                                  QStringLiteral("2|\u00c9mile, Zo\u00eb|"),
                                  QStringLiteral("3|, NoSurname|")}));
    // As with a driver that keeps a SQLite library of its own: no shared handle, no
    // list kept between loads, the same rows.
    setSharedHandleRefused(true);
    const QStringList throughQt = rowsOf(DataListKind::Master, QString());
    AddMaster(4, QStringLiteral("Stone"), QStringLiteral("Sam"));
    const QStringList letterThroughQt = rowsOf(DataListKind::Master, QStringLiteral("s"));
    const QStringList gradedThroughQt = rowsOf(DataListKind::BCFList, QString());
    setSharedHandleRefused(false);
    QCOMPARE(throughQt, direct);
    QCOMPARE(letterThroughQt, letter + QStringList{QStringLiteral("4|Stone, Sam|")});
    QCOMPARE(gradedThroughQt, graded);
}

void TestCntlDataList::eachKindShowsItsHeadings()
{
    cntlDataList list;
    const auto shownHeadings = [&list] {
        QStringList headings;
        for (int column = 0; column < list.Model()->columnCount(); ++column) {
            if (!list.lstData->isColumnHidden(column))
                headings << list.Model()->headerData(column, Qt::Horizontal).toString();
        }
        return headings;
    };
    QCOMPARE(shownHeadings(), (QStringList{QStringLiteral("Name"), QStringLiteral("Code")}));
    QCOMPARE(list.lstData->horizontalHeader()->sectionSize(1), 2000 / 15);
    list.setDisplayType(1);
    QCOMPARE(shownHeadings(), (QStringList{QStringLiteral("Pin"), QStringLiteral("Name"),
                                           QStringLiteral("Grade"), QStringLiteral("Score")}));
    QCOMPARE(list.lstData->horizontalHeader()->sectionSize(1), 350 / 15);
    list.setDisplayType(2);
    QCOMPARE(shownHeadings(), (QStringList{QStringLiteral("Code"), QStringLiteral("Club"),
                                           QStringLiteral("County"), QStringLiteral("Union")}));
    QCOMPARE(list.lstData->horizontalHeader()->sectionSize(1), 3000 / 15);
    list.setDisplayType(3);
    QCOMPARE(shownHeadings(), (QStringList{QStringLiteral("Tournament"), QStringLiteral("Dates")}));
    QCOMPARE(list.SortColumn(), 3);
    QCOMPARE(list.SortMode(), cntlDataList::SortDescending);
    list.setDisplayType(4);
    QCOMPARE(shownHeadings(), (QStringList{QStringLiteral("Name"), QStringLiteral("Code")}));
    QCOMPARE(list.property("DisplayType").toInt(), 4);
}

void TestCntlDataList::typingFindsTheFirstNameAndShowsTheText()
{
    AddMaster(1, QStringLiteral("Adams"), QStringLiteral("Ann"));
    AddMaster(2, QStringLiteral("Baker"), QStringLiteral("Bob"));
    AddMaster(3, QStringLiteral("Barton"), QStringLiteral("Cy"));
    AddMaster(4, QStringLiteral("Carter"), QStringLiteral("Di"));
    cntlDataList list;
    list.setDisplayFilter(QStringLiteral("*"));
    list.DisplayList();
    ShowActive(list);
    list.SetFocus();
    Type(list, QStringLiteral("bar"));
    QCOMPARE(list.lblQStr->text(), QStringLiteral("bar"));
    QCOMPARE(list.TypedText(), QStringLiteral("bar"));
    QCOMPARE(list.SelName(), QStringLiteral("Barton, Cy"));
    QCOMPARE(list.SelKey(), QStringLiteral("3"));
    QVERIFY(list.tmrQuery->isActive());
    QCOMPARE(list.tmrQuery->interval(), 5000);
}

void TestCntlDataList::typingAfterFiveSecondsStartsAfresh()
{
    AddMaster(1, QStringLiteral("Abel"), QStringLiteral("Ann"));
    AddMaster(2, QStringLiteral("Brown"), QStringLiteral("Bob"));
    AddMaster(3, QStringLiteral("Cole"), QStringLiteral("Cy"));
    AddMaster(4, QStringLiteral("Colt"), QStringLiteral("Di"));
    cntlDataList list;
    list.setDisplayFilter(QStringLiteral("*"));
    list.DisplayList();
    ShowActive(list);
    list.SetFocus();
    Type(list, QStringLiteral("col"));
    QCOMPARE(list.SelName(), QStringLiteral("Cole, Cy"));
    QTest::qWait(cntlDataList::TypedTextMilliseconds + 300);
    QCOMPARE(list.lblQStr->text(), QString());
    Type(list, QStringLiteral("b"));
    QCOMPARE(list.lblQStr->text(), QStringLiteral("b"));
    QCOMPARE(list.SelName(), QStringLiteral("Brown, Bob"));
}

void TestCntlDataList::backspaceAndEscapeChangeTheTypedText()
{
    AddMaster(1, QStringLiteral("Cole"), QStringLiteral("Ann"));
    AddMaster(2, QStringLiteral("Colt"), QStringLiteral("Bob"));
    cntlDataList list;
    list.setDisplayFilter(QStringLiteral("*"));
    list.DisplayList();
    ShowActive(list);
    list.SetFocus();
    Type(list, QStringLiteral("colt"));
    QCOMPARE(list.SelName(), QStringLiteral("Colt, Bob"));
    QTest::keyClick(list.lstData, Qt::Key_Backspace);
    QCOMPARE(list.lblQStr->text(), QStringLiteral("col"));
    QCOMPARE(list.SelName(), QStringLiteral("Cole, Ann"));
    QTest::keyClick(list.lstData, Qt::Key_Escape);
    QCOMPARE(list.lblQStr->text(), QString());
    QCOMPARE(list.TypedText(), QString());
}

void TestCntlDataList::typedTextWithoutMatchSelectsTheFirstRow()
{
    AddMaster(1, QStringLiteral("Abel"), QStringLiteral("Ann"));
    AddMaster(2, QStringLiteral("Brown"), QStringLiteral("Bob"));
    AddMaster(3, QStringLiteral("Cole"), QStringLiteral("Cy"));
    RunSql(QStringLiteral("INSERT INTO Club (Code, Club) VALUES ('A1', 'Abbey'), ('B1', 'Bath')"));
    AddTournament(1, QStringLiteral("Autumn"), QStringLiteral("01/10/2024"), QString());
    AddTournament(2, QStringLiteral("Bristol"), QStringLiteral("01/11/2024"), QString());
    cntlDataList list;
    ShowActive(list);
    for (int kind : {0, 2, 3}) {
        list.setDisplayType(kind);
        list.setDisplayFilter(QStringLiteral("*"));
        list.DisplayList();
        list.SetFocus();
        list.setSelKey(list.Model()->Cell(list.RowCount() - 1, 0));
        QCOMPARE(list.Row(), list.RowCount() - 1);
        QTest::keyClick(list.lblQStr, Qt::Key_Escape);
        Type(list, QStringLiteral("zz"));
        QCOMPARE(list.Row(), 0);
        QTest::keyClick(list.lstData, Qt::Key_Escape);
    }
}

void TestCntlDataList::gradingListTakesTheLongestStartReached()
{
    AddGraded(QStringLiteral("1A"), QStringLiteral("Smart, Al"));
    AddGraded(QStringLiteral("2B"), QStringLiteral("Smith, Ann"));
    AddGraded(QStringLiteral("3C"), QStringLiteral("Smith, Bob"));
    AddGraded(QStringLiteral("4D"), QStringLiteral("Smyth, Cy"));
    AddGraded(QStringLiteral("5E"), QStringLiteral("Taylor, Di"));
    cntlDataList list;
    list.setDisplayType(4);
    list.setDisplayFilter(QStringLiteral("*"));
    list.DisplayList();
    ShowActive(list);
    list.SetFocus();
    // "Smith, C" is not in the list: the longest start reached is "Smith, ".
    Type(list, QStringLiteral("smith, c"));
    QCOMPARE(list.SelName(), QStringLiteral("Smith, Ann"));
    QCOMPARE(list.SelKey(), QStringLiteral("2B"));
    QTest::keyClick(list.lstData, Qt::Key_Escape);
    Type(list, QStringLiteral("smz"));
    QCOMPARE(list.SelName(), QStringLiteral("Smart, Al"));
    QTest::keyClick(list.lstData, Qt::Key_Escape);
    Type(list, QStringLiteral("q"));
    QCOMPARE(list.Row(), 0);
    // The register takes no part of a text: no row starts with it, so the first row.
    list.setDisplayType(0);
    AddMaster(1, QStringLiteral("Smart"), QStringLiteral("Al"));
    AddMaster(2, QStringLiteral("Smith"), QStringLiteral("Ann"));
    AddMaster(3, QStringLiteral("Taylor"), QStringLiteral("Bo"));
    list.setDisplayFilter(QStringLiteral("*"));
    list.DisplayList();
    list.setSelKey(QStringLiteral("3"));
    QTest::keyClick(list.lstData, Qt::Key_Escape);
    Type(list, QStringLiteral("smith, c"));
    QCOMPARE(list.Row(), 0);
}

void TestCntlDataList::halvingFindsWhatTheWalkFinds()
{
    QRandomGenerator random(17);
    const QString letters = QStringLiteral("abAB _%'c");
    const auto randomText = [&](int length) {
        QString text;
        for (int i = 0; i < length; ++i)
            text += letters.at(random.bounded(letters.size()));
        return text;
    };
    for (int i = 1; i <= 300; ++i) {
        AddMaster(i, randomText(1 + random.bounded(4)), randomText(2));
        AddGraded(QString::number(i), randomText(1 + random.bounded(6)));
    }
    for (int kind : {0, 4}) {
        for (bool descending : {false, true}) {
            cDataListModel model;
            model.Load(DataListKind(kind), QString());
            model.SortBy(1, descending);
            for (int i = 0; i < 500; ++i) {
                const QString typed = randomText(1 + random.bounded(5));
                QCOMPARE(model.FindName(typed), model.WalkName(typed));
            }
        }
    }
}

void TestCntlDataList::aSortIsTheOrderOfCapitalsAndEqualTextsKeepTheirOrder()
{
    // Long shared starts, letters beyond ASCII whose capitals differ in length or need
    // two code units, and empty and missing names: the order must be the one that a
    // plain comparison of the capitals gives, rows of equal capitals in stored order.
    QRandomGenerator random(29);
    const QStringList pieces{QStringLiteral("smith"),      QStringLiteral("Smith"),
                             QStringLiteral("a"),          QStringLiteral("\u00e9"),
                             QStringLiteral("\u00df"),     QStringLiteral("\u01c6"),
                             QStringLiteral("\U00010428"), QStringLiteral("Z"),
                             QStringLiteral(" "),          QStringLiteral("-")};
    const auto randomText = [&] {
        QString text;
        for (int i = random.bounded(4); i > 0; --i)
            text += pieces.at(random.bounded(pieces.size()));
        return text;
    };
    for (int i = 1; i <= 400; ++i) {
        const QString surname = randomText();
        if (i % 50 == 0)
            RunSql(QStringLiteral("INSERT INTO Master (MasterId, Forename) VALUES (?, ?)"),
                   {i, randomText()});
        else
            AddMaster(i, surname, randomText(), randomText().left(7));
    }
    for (int column : {1, 2}) {
        for (bool descending : {false, true}) {
            cDataListModel model;
            model.Load(DataListKind::Master, QString());
            QList<int> stored;
            for (int row = 0; row < model.RowCount(); ++row)
                stored << row;
            QStringList keys;
            for (int row = 0; row < model.RowCount(); ++row)
                keys << model.Cell(row, column).toUpper();
            QList<int> expected = stored;
            std::stable_sort(expected.begin(), expected.end(), [&](int a, int b) {
                const int difference = QString::compare(keys[a], keys[b]);
                return descending ? difference > 0 : difference < 0;
            });
            QStringList expectedKeys;
            for (int row : expected)
                expectedKeys << model.Cell(row, cDataListModel::KeyColumn);
            model.SortBy(column, descending);
            QStringList sortedKeys;
            for (int row = 0; row < model.RowCount(); ++row)
                sortedKeys << model.Cell(row, cDataListModel::KeyColumn);
            QCOMPARE(sortedKeys, expectedKeys);
        }
    }
}

void TestCntlDataList::datesSortNewestFirstThenOldestFirst()
{
    AddTournament(1, QStringLiteral("Middle"), QStringLiteral("01/06/2024"),
                  QStringLiteral("02/06/2024"));
    AddTournament(2, QStringLiteral("Newest"), QStringLiteral("01/01/2025"), QString());
    AddTournament(3, QStringLiteral("Oldest"), QStringLiteral("01/01/2020"),
                  QStringLiteral("03/01/2020"));
    cntlDataList list;
    list.setDisplayType(3);
    list.DisplayList();
    ShowActive(list);
    const QStringList newestFirst{QStringLiteral("Newest: Open"), QStringLiteral("Middle: Open"),
                                  QStringLiteral("Oldest: Open")};
    QCOMPARE(ShownNames(list), newestFirst);
    // The heading "Dates" stands over column 2.
    QHeaderView *header = list.lstData->horizontalHeader();
    const auto clickDates = [&] {
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                          QPoint(header->sectionViewportPosition(2) + 5, header->height() / 2));
    };
    clickDates();
    QCOMPARE(ShownNames(list), newestFirst);
    clickDates();
    QCOMPARE(ShownNames(list),
             (QStringList{QStringLiteral("Oldest: Open"), QStringLiteral("Middle: Open"),
                          QStringLiteral("Newest: Open")}));
    clickDates();
    QCOMPARE(ShownNames(list), newestFirst);
}

void TestCntlDataList::nameHeadingSortsAscendingThenDescending()
{
    AddMaster(1, QStringLiteral("Brown"), QStringLiteral("A"), QStringLiteral("3"));
    AddMaster(2, QStringLiteral("Adams"), QStringLiteral("B"), QStringLiteral("2"));
    AddMaster(3, QStringLiteral("Cole"), QStringLiteral("C"), QStringLiteral("1"));
    cntlDataList list;
    list.setDisplayFilter(QStringLiteral("*"));
    list.DisplayList();
    ShowActive(list);
    QCOMPARE(ShownNames(list, 0), conduct_fixture::Texts({"2", "1", "3"}));
    list.ClickHeading(1);
    QCOMPARE(ShownNames(list, 0), conduct_fixture::Texts({"2", "1", "3"}));
    list.ClickHeading(1);
    QCOMPARE(ShownNames(list, 0), conduct_fixture::Texts({"3", "1", "2"}));
    QCOMPARE(list.SortMode(), cntlDataList::SortDescending);
    list.ClickHeading(2);
    QCOMPARE(ShownNames(list, 0), conduct_fixture::Texts({"3", "2", "1"}));
    QCOMPARE(list.SortMode(), cntlDataList::SortAscending);
    QVERIFY(list.lstData->hasFocus());
}

void TestCntlDataList::aSortKeepsTheSelectedRowByItsKey()
{
    for (int i = 1; i <= 40; ++i)
        AddMaster(i, QStringLiteral("Name%1").arg(i, 2, 10, QLatin1Char('0')), QString(),
                  QString::number(1000 - i));
    cntlDataList list;
    list.setDisplayFilter(QStringLiteral("*"));
    list.DisplayList();
    ShowActive(list);
    list.setSelKey(QStringLiteral("7"));
    QSignalSpy changed(&list, &cntlDataList::SelectionChanged);
    list.ClickHeading(2);
    QCOMPARE(list.SelKey(), QStringLiteral("7"));
    QCOMPARE(list.Row(), 33);
    list.ClickHeading(1);
    QCOMPARE(list.SelKey(), QStringLiteral("7"));
    QCOMPARE(list.Row(), 6);
    QCOMPARE(changed.count(), 0);
}

void TestCntlDataList::aReloadKeepsTheSelectedRowByItsKey()
{
    AddMaster(1, QStringLiteral("Brown"), QStringLiteral("A"));
    AddMaster(2, QStringLiteral("Cole"), QStringLiteral("B"));
    cntlDataList list;
    list.setDisplayFilter(QStringLiteral("*"));
    list.DisplayList();
    list.setSelKey(QStringLiteral("2"));
    AddMaster(3, QStringLiteral("Adams"), QStringLiteral("C"));
    list.DisplayList();
    QCOMPARE(list.SelKey(), QStringLiteral("2"));
    QCOMPARE(list.Row(), 2);
    RunSql(QStringLiteral("DELETE FROM Master WHERE MasterId = 2"));
    list.DisplayList();
    QCOMPARE(list.Row(), 0);
}

void TestCntlDataList::theFoundRowKeepsItsHeightOnScreen()
{
    for (int i = 1; i <= 200; ++i)
        AddMaster(i, QStringLiteral("Name%1").arg(i, 3, 10, QLatin1Char('0')), QString());
    cntlDataList list;
    list.resize(300, 300);
    list.setDisplayFilter(QStringLiteral("*"));
    list.DisplayList();
    ShowActive(list);
    list.SetFocus();
    // The user moves three rows down from the top.
    for (int i = 0; i < 3; ++i)
        QTest::keyClick(list.lstData, Qt::Key_Down);
    QCOMPARE(list.Row(), 3);
    list.setSelKey(QStringLiteral("120"));
    QCOMPARE(list.Row(), 119);
    QCOMPARE(list.lstData->verticalScrollBar()->value(), 116);
}

void TestCntlDataList::typeAheadPutsTheRowFiveBelowTheTop()
{
    for (int i = 1; i <= 200; ++i)
        AddMaster(i, QStringLiteral("Name%1").arg(i, 3, 10, QLatin1Char('0')), QString());
    cntlDataList list;
    list.resize(300, 300);
    list.setDisplayFilter(QStringLiteral("*"));
    list.DisplayList();
    ShowActive(list);
    list.SetFocus();
    Type(list, QStringLiteral("name150"));
    QCOMPARE(list.Row(), 149);
    QCOMPARE(list.lstData->verticalScrollBar()->value(), 144);
    QVERIFY(list.lstData->visualRect(list.Model()->index(149, 1))
                .intersects(list.lstData->viewport()->rect()));
}

void TestCntlDataList::aOneDayTournamentShowsOneDate()
{
    AddTournament(1, QStringLiteral("Rapid"), QStringLiteral("05/04/2025"), QString());
    AddTournament(2, QStringLiteral("Congress"), QStringLiteral("01/05/2025"),
                  QStringLiteral("03/05/2025"));
    cntlDataList list;
    list.setDisplayType(3);
    list.DisplayList();
    QCOMPARE(ShownNames(list, 2), (QStringList{QStringLiteral("01/05/2025 - 03/05/2025"),
                                               QStringLiteral("05/04/2025")}));
}

void TestCntlDataList::selectedValuesByKind()
{
    AddMaster(1, QStringLiteral("Smith"), QStringLiteral("Ann"), QStringLiteral("123456A"));
    RunSql(QStringLiteral("INSERT INTO Club (Code, Club, County, \"Union\") VALUES "
                          "('ABC', 'Abbey', 'KEN', 'E')"));
    AddGraded(QStringLiteral("999999Z"), QStringLiteral("Zed, Al"));
    cntlDataList list;
    list.setDisplayFilter(QStringLiteral("*"));
    list.DisplayList();
    QCOMPARE(list.SelKey(), QStringLiteral("1"));
    QCOMPARE(list.SelName(), QStringLiteral("Smith, Ann"));
    QCOMPARE(list.SelCode(), QStringLiteral("123456A"));
    QCOMPARE(list.SelPin(), 0);
    list.setDisplayType(2);
    list.DisplayList();
    QCOMPARE(list.SelKey(), QStringLiteral("ABC"));
    QCOMPARE(list.SelName(), QStringLiteral("Abbey"));
    QCOMPARE(list.SelCode(), QString());
    list.setDisplayType(4);
    list.DisplayList();
    QCOMPARE(list.SelKey(), QStringLiteral("999999Z"));
    QCOMPARE(list.SelName(), QStringLiteral("Zed, Al"));
    QCOMPARE(list.SelCode(), QString());

    conduct_fixture::OpenTournament();
    conduct_fixture::Graded(QStringLiteral("Ames"), QStringLiteral("120"), QStringLiteral("12"));
    list.setDisplayType(1);
    list.DisplayList();
    QCOMPARE(list.SelPin(), 12);
    QCOMPARE(list.SelName(), QStringLiteral("Ames"));
    QCOMPARE(list.Model()->Cell(0, cDataListModel::PinColumn), QStringLiteral(" 12"));
}

void TestCntlDataList::withdrawnEntrantsAreStruckOutInBold()
{
    conduct_fixture::OpenTournament();
    conduct_fixture::Graded(QStringLiteral("Ames"), QStringLiteral("120"), QStringLiteral("1"));
    auto gone =
        conduct_fixture::Graded(QStringLiteral("Bell"), QStringLiteral("110"), QStringLiteral("2"));
    gone->setWithdrawn(true);
    cntlDataList list;
    list.setDisplayType(1);
    list.DisplayList();
    QCOMPARE(list.RowCount(), 2);
    const QFont kept = list.Model()->index(0, 2).data(Qt::FontRole).value<QFont>();
    QVERIFY(!kept.strikeOut());
    for (int column = 1; column <= 4; ++column) {
        const QFont font = list.Model()->index(1, column).data(Qt::FontRole).value<QFont>();
        QVERIFY(font.strikeOut());
        QVERIFY(font.bold());
    }
    QVERIFY(list.lstData->isColumnHidden(cDataListModel::WithdrawnColumn));
}

void TestCntlDataList::selectionAndDoubleClickAreSignalled()
{
    AddMaster(1, QStringLiteral("Adams"), QStringLiteral("A"));
    AddMaster(2, QStringLiteral("Brown"), QStringLiteral("B"));
    cntlDataList list;
    list.setDisplayFilter(QStringLiteral("*"));
    list.DisplayList();
    ShowActive(list);
    QSignalSpy changed(&list, &cntlDataList::SelectionChanged);
    QSignalSpy doubled(&list, &cntlDataList::DoubleClicked);
    list.SetFocus();
    QTest::keyClick(list.lstData, Qt::Key_Down);
    QCOMPARE(list.SelKey(), QStringLiteral("2"));
    QVERIFY(changed.count() >= 1);
    const QRect cell = list.lstData->visualRect(list.Model()->index(0, 1));
    QTest::mouseClick(list.lstData->viewport(), Qt::LeftButton, {}, cell.center());
    QTest::mouseDClick(list.lstData->viewport(), Qt::LeftButton, {}, cell.center());
    QCOMPARE(doubled.count(), 1);
    QCOMPARE(list.SelKey(), QStringLiteral("1"));
}

void TestCntlDataList::masterListHasTheSearchTabAndALetterTabEach()
{
    cntlMasterList list;
    QCOMPARE(list.tabChar->count(), 27);
    QCOMPARE(list.tabChar->tabText(0), QStringLiteral("?"));
    QCOMPARE(list.tabChar->tabText(1), QStringLiteral("A"));
    QCOMPARE(list.tabChar->tabText(26), QStringLiteral("Z"));
    QCOMPARE(list.cmdSearch->text().remove(u'&'), QStringLiteral("Search"));
    QCOMPARE(list.lblSearch->text().remove(u'&'), QStringLiteral("Name:"));
    QCOMPARE(list.lstMaster->objectName(), QStringLiteral("lstMaster"));
}

void TestCntlDataList::masterListTabsNarrowTheList()
{
    AddMaster(1, QStringLiteral("Adams"), QStringLiteral("A"));
    AddMaster(2, QStringLiteral("Brown"), QStringLiteral("B"));
    AddMaster(3, QStringLiteral("Bell"), QStringLiteral("C"));
    cntlMasterList list;
    ShowActive(list);
    list.SetTab(QStringLiteral("B"));
    QCOMPARE(list.Tab(), QStringLiteral("B"));
    QVERIFY(!list.searchRow->isVisible());
    QCOMPARE(ShownNames(*list.lstMaster),
             (QStringList{QStringLiteral("Bell, C"), QStringLiteral("Brown, B")}));
    list.SetTab(QString());
    QCOMPARE(list.Tab(), QStringLiteral("B"));
    // The search tab with an empty box shows nobody.
    list.SetTab(QStringLiteral("?"));
    QVERIFY(list.searchRow->isVisible());
    QCOMPARE(list.lstMaster->RowCount(), 0);
    // A click on a tab.
    const QRect tab = list.tabChar->tabRect(1);
    QTest::mouseClick(list.tabChar, Qt::LeftButton, {}, tab.center());
    QCOMPARE(ShownNames(*list.lstMaster), QStringList{QStringLiteral("Adams, A")});
}

void TestCntlDataList::masterListSearchRowFollowsItsText()
{
    AddMaster(1, QStringLiteral("Adams"), QStringLiteral("A"));
    AddMaster(2, QStringLiteral("Brown"), QStringLiteral("B"));
    cntlMasterList list;
    ShowActive(list);
    list.SetTab(QStringLiteral("?"));
    QVERIFY(!list.cmdSearch->isEnabled());
    list.txtSearch->setFocus();
    QTest::keyClicks(list.txtSearch, QStringLiteral("br"));
    QVERIFY(list.cmdSearch->isEnabled());
    QTest::mouseClick(list.cmdSearch, Qt::LeftButton);
    QCOMPARE(ShownNames(*list.lstMaster), QStringList{QStringLiteral("Brown, B")});
    QVERIFY(list.lstMaster->lstData->hasFocus());
    ReplaceText(list.txtSearch, QString());
    QVERIFY(!list.cmdSearch->isEnabled());
    ReplaceText(list.txtSearch, QStringLiteral("ad"));
    QTest::keyClick(list.txtSearch, Qt::Key_Return);
    QCOMPARE(ShownNames(*list.lstMaster), QStringList{QStringLiteral("Adams, A")});
}

void TestCntlDataList::selSearchTakesSurnameAndInitial()
{
    AddGraded(QStringLiteral("1A"), QStringLiteral("Smith, Ann"));
    AddGraded(QStringLiteral("2B"), QStringLiteral("Smith, Alan"));
    AddGraded(QStringLiteral("3C"), QStringLiteral("Smith, Bob"));
    cntlMasterList list;
    list.setDisplayType(4);
    list.SetTab(QStringLiteral("C"));
    list.SelSearch(QStringLiteral("Smith, Ann"));
    QCOMPARE(list.txtSearch->text(), QStringLiteral("Smith, A"));
    QCOMPARE(list.Tab(), QStringLiteral("?"));
    QCOMPARE(ShownNames(*list.lstMaster),
             (QStringList{QStringLiteral("Smith, Alan"), QStringLiteral("Smith, Ann")}));
}

VELMORA_WIDGET_TEST_MAIN(TestCntlDataList)
#include "test_cntl_data_list.moc"
