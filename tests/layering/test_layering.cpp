// The floors of src/: every file includes headers of its own room and of the rooms
// below it, never of a room above (so no two rooms include each other), and no
// circle of includes runs through file pairs. The rules are checked on the #include
// lines themselves, so a new file or a new room is held to them the moment it is
// added.

#include <QDirIterator>
#include <QFile>
#include <QHash>
#include <QRegularExpression>
#include <QSet>
#include <QTest>

#include <algorithm>
#include <functional>

namespace {

// The rooms of src/ from the ground up. A room stands on every room below it.
const QStringList Floors = {QStringLiteral("base"),    QStringLiteral("database"),
                            QStringLiteral("session"), QStringLiteral("register"),
                            QStringLiteral("conduct"), QStringLiteral("reports"),
                            QStringLiteral("ui"),      QStringLiteral("app")};

// cTournament owns its players and results, and those records look up the open
// tournament through the session root: a circle inside the session room, which
// ends when the records are handed their tournament. No other circle is allowed.
const QSet<QString> KnownCircle = {
    QStringLiteral("session/tournament"), QStringLiteral("session/player"),
    QStringLiteral("session/players"), QStringLiteral("session/results")};

// One #include "…" line: the including file and the included header, both as paths
// inside src/.
struct cInclude
{
    QString file;
    QString header;
};

QString RoomOf(const QString &path)
{
    return path.section(u'/', 0, 0);
}

// A file pair is one unit: "session/player" for player.h and player.cpp.
QString UnitOf(const QString &path)
{
    const qsizetype dot = path.lastIndexOf(u'.');
    return dot > path.lastIndexOf(u'/') ? path.left(dot) : path;
}

QList<cInclude> IncludesOf(const QString &file, const QString &text)
{
    static const QRegularExpression includeLine(QStringLiteral("^\\s*#\\s*include\\s*\"([^\"]+)\""),
                                                QRegularExpression::MultilineOption);
    QList<cInclude> includes;
    for (const QRegularExpressionMatch &match : includeLine.globalMatch(text))
        includes.append({file, match.captured(1)});
    return includes;
}

// The files of src/ and the includes they hold, paths inside src/.
struct cSourceTree
{
    QSet<QString> files;
    QList<cInclude> includes;
};

cSourceTree SourceTree(const QString &root)
{
    cSourceTree tree;
    QDirIterator files(root, {QStringLiteral("*.h"), QStringLiteral("*.cpp")}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString path = files.next();
        QFile source(path);
        if (!source.open(QIODevice::ReadOnly))
            qFatal("Cannot read %s", qPrintable(path));
        const QString file = path.mid(root.size() + 1);
        tree.files.insert(file);
        tree.includes.append(IncludesOf(file, QString::fromUtf8(source.readAll())));
    }
    return tree;
}

// Each include that looks up a floor, names a room that has no floor, or names a
// header that is not there.
QStringList FloorFaults(const QList<cInclude> &includes, const QSet<QString> &files)
{
    QStringList faults;
    for (const cInclude &include : includes) {
        const qsizetype from = Floors.indexOf(RoomOf(include.file));
        const qsizetype to = Floors.indexOf(RoomOf(include.header));
        if (from < 0)
            faults.append(include.file + QStringLiteral(" stands in a room with no floor"));
        else if (!files.contains(include.header))
            faults.append(include.file + QStringLiteral(" includes ") + include.header +
                          QStringLiteral(", which is not in src/"));
        else if (to < 0 || to > from)
            faults.append(include.file + QStringLiteral(" includes ") + include.header +
                          QStringLiteral(" of a higher room"));
    }
    return faults;
}

// The circles of file pairs: each group of units that reach each other through
// their includes, found as the strongly connected parts of the include graph.
QList<QStringList> Circles(const QList<cInclude> &includes)
{
    QHash<QString, QSet<QString>> edges;
    for (const cInclude &include : includes) {
        const QString from = UnitOf(include.file);
        const QString to = UnitOf(include.header);
        if (from != to)
            edges[from].insert(to);
    }
    QStringList units = edges.keys();
    std::sort(units.begin(), units.end());

    QHash<QString, int> order;
    QHash<QString, int> lowest;
    QStringList stack;
    QSet<QString> onStack;
    QList<QStringList> circles;
    std::function<void(const QString &)> visit = [&](const QString &unit) {
        order[unit] = lowest[unit] = int(order.size());
        stack.append(unit);
        onStack.insert(unit);
        for (const QString &next : edges.value(unit)) {
            if (!order.contains(next)) {
                visit(next);
                lowest[unit] = std::min(lowest[unit], lowest[next]);
            } else if (onStack.contains(next)) {
                lowest[unit] = std::min(lowest[unit], order[next]);
            }
        }
        if (lowest[unit] != order[unit])
            return;
        QStringList circle;
        QString member;
        do {
            member = stack.takeLast();
            onStack.remove(member);
            circle.append(member);
        } while (member != unit);
        if (circle.size() > 1) {
            std::sort(circle.begin(), circle.end());
            circles.append(circle);
        }
    };
    for (const QString &unit : units)
        if (!order.contains(unit))
            visit(unit);
    return circles;
}

QStringList CircleFaults(const QList<cInclude> &includes)
{
    QStringList faults;
    for (const QStringList &circle : Circles(includes)) {
        if (QSet<QString>(circle.cbegin(), circle.cend()).subtract(KnownCircle).isEmpty())
            continue;
        faults.append(QStringLiteral("a circle of includes: ") + circle.join(QStringLiteral(", ")));
    }
    return faults;
}

QSet<QString> FilesOf(const QList<cInclude> &includes)
{
    QSet<QString> files;
    for (const cInclude &include : includes) {
        files.insert(include.file);
        files.insert(include.header);
    }
    return files;
}

} // namespace

class TestLayering : public QObject
{
    Q_OBJECT

private slots:
    void readsIncludeLines()
    {
        const QList<cInclude> includes =
            IncludesOf(QStringLiteral("session/player.cpp"),
                       QStringLiteral("#include \"session/player.h\"\n"
                                      "  #  include \"base/common.h\"\n"
                                      "#include <QString>\n"
                                      "// #include is written like this: \"x.h\"\n"));
        QCOMPARE(includes.size(), 2);
        QCOMPARE(includes[0].header, QStringLiteral("session/player.h"));
        QCOMPARE(includes[1].header, QStringLiteral("base/common.h"));
    }

    void findsAnIncludeOfAHigherRoom()
    {
        const QList<cInclude> includes = {
            {QStringLiteral("database/sql.cpp"), QStringLiteral("session/globals.h")},
            {QStringLiteral("database/sql.cpp"), QStringLiteral("base/common.h")}};
        const QStringList faults = FloorFaults(includes, FilesOf(includes));
        QCOMPARE(faults, QStringList{QStringLiteral(
                             "database/sql.cpp includes session/globals.h of a higher room")});
    }

    void findsARoomWithNoFloor()
    {
        const QList<cInclude> includes = {
            {QStringLiteral("widgets/grid.cpp"), QStringLiteral("base/common.h")},
            {QStringLiteral("ui/frm_main.cpp"), QStringLiteral("widgets/grid.h")}};
        const QStringList faults = FloorFaults(includes, FilesOf(includes));
        QCOMPARE(faults,
                 (QStringList{
                     QStringLiteral("widgets/grid.cpp stands in a room with no floor"),
                     QStringLiteral("ui/frm_main.cpp includes widgets/grid.h of a higher room")}));
    }

    void findsAHeaderThatIsNotThere()
    {
        const QList<cInclude> includes = {
            {QStringLiteral("ui/frm_main.cpp"), QStringLiteral("session/common.h")}};
        QCOMPARE(FloorFaults(includes, {QStringLiteral("ui/frm_main.cpp")}),
                 QStringList{QStringLiteral(
                     "ui/frm_main.cpp includes session/common.h, which is not in src/")});
    }

    void findsACircleOfFilePairs()
    {
        // database.cpp → sql.h, sql.cpp → globals.h, globals.cpp → database.h.
        const QList<cInclude> includes = {
            {QStringLiteral("database/database.cpp"), QStringLiteral("database/sql.h")},
            {QStringLiteral("database/sql.cpp"), QStringLiteral("session/globals.h")},
            {QStringLiteral("session/globals.cpp"), QStringLiteral("database/database.h")},
            {QStringLiteral("session/globals.cpp"), QStringLiteral("base/fatal_fault.h")}};
        QCOMPARE(CircleFaults(includes),
                 QStringList{QStringLiteral("a circle of includes: database/database, "
                                            "database/sql, session/globals")});
    }

    void findsTwoPairsThatIncludeEachOther()
    {
        const QList<cInclude> includes = {
            {QStringLiteral("ui/commands.cpp"), QStringLiteral("ui/frm_main.h")},
            {QStringLiteral("ui/frm_main.cpp"), QStringLiteral("ui/commands.h")}};
        QCOMPARE(CircleFaults(includes),
                 QStringList{QStringLiteral("a circle of includes: ui/commands, ui/frm_main")});
    }

    void aPairIncludingItsOwnHeaderIsNoCircle()
    {
        const QList<cInclude> includes = {
            {QStringLiteral("session/player.cpp"), QStringLiteral("session/player.h")},
            {QStringLiteral("session/players.cpp"), QStringLiteral("session/player.h")}};
        QVERIFY(CircleFaults(includes).isEmpty());
    }

    void theKnownCircleTakesNoNewMember()
    {
        const QList<cInclude> includes = {
            {QStringLiteral("session/tournament.cpp"), QStringLiteral("session/players.h")},
            {QStringLiteral("session/players.cpp"), QStringLiteral("session/tournament.h")},
            {QStringLiteral("session/players.cpp"), QStringLiteral("session/control.h")},
            {QStringLiteral("session/control.cpp"), QStringLiteral("session/tournament.h")}};
        QCOMPARE(CircleFaults(includes),
                 QStringList{QStringLiteral("a circle of includes: session/control, "
                                            "session/players, session/tournament")});
    }

    void sourceTreeKeepsItsFloors()
    {
        const cSourceTree tree = SourceTree(QStringLiteral(VELMORA_SOURCE_TREE));
        QVERIFY(tree.includes.size() > 100);
        const QStringList faults =
            FloorFaults(tree.includes, tree.files) + CircleFaults(tree.includes);
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
    }
};

QTEST_GUILESS_MAIN(TestLayering)
#include "test_layering.moc"
