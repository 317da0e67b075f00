#include "database/database.h"

#include "database/bulk_insert.h"
#include "database/code_page.h"
#include "database/dbase_table.h"
#include "database/load_values.h"
#include "database/schema.h"
#include "database/sql.h"
#include "session/app_info.h"
#include "session/fatal_fault.h"
#include "session/progress.h"
#include "session/user_interaction.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStringDecoder>

// The BCF publishes its grading list and club list as dBase files; a new database
// without a DOS folder takes its clubs from the base copy "club.txt" that ships
// beside the program. Each load is one unit of work: a list that fails part way
// leaves what the tables held before.

namespace {

// The progress window stands for as long as the pass, whichever way it ends.
class cProgressPass
{
public:
    cProgressPass(const QString &text, qint32 maximum) { Progress::Start(text, maximum); }
    ~cProgressPass() { Progress::Terminate(); }
    cProgressPass(const cProgressPass &) = delete;
    cProgressPass &operator=(const cProgressPass &) = delete;
};

// "Players.dbf" names the table "Players"; so does "Players.old.dbf".
QString TableName(const QString &table)
{
    const qsizetype dot = table.indexOf(u'.');
    return dot < 0 ? table : table.left(dot);
}

// A file typed or chosen as a whole path: the folder before its last separator and
// the table after it.
void SplitFileName(const QString &fileName, QString *folder, QString *table)
{
    const qsizetype slash = qMax(fileName.lastIndexOf(u'/'), fileName.lastIndexOf(u'\\'));
    // A name without a folder is in the current folder; an empty folder would
    // mean the base copy.
    *folder = slash < 0 ? QStringLiteral(".") : fileName.left(slash);
    *table = fileName.mid(slash + 1);
    if (folder->isEmpty())
        *folder = QStringLiteral("/");
}

const QStringList BCFListFields = {
    QStringLiteral("Ref"),    QStringLiteral("Name"),    QStringLiteral("Sex"),
    QStringLiteral("Age"),    QStringLiteral("DOB"),     QStringLiteral("Grade"),
    QStringLiteral("Cat"),    QStringLiteral("RGrade"),  QStringLiteral("RCat"),
    QStringLiteral("Grade1"), QStringLiteral("Cat1"),    QStringLiteral("RGrade1"),
    QStringLiteral("RCat1"),  QStringLiteral("Club1"),   QStringLiteral("Club2"),
    QStringLiteral("Club3"),  QStringLiteral("Club4"),   QStringLiteral("Club5"),
    QStringLiteral("Club6"),  QStringLiteral("FIDECode")};

const QStringList ClubFields = {QStringLiteral("Code"), QStringLiteral("Club"),
                                QStringLiteral("County"), QStringLiteral("Union")};

// A value of a source row with the field it goes to.
struct cColumnPair
{
    int source;
    int column;
};

void CopyBCFRows(cDbaseTable &source)
{
    const TableDefinition &table = Schema::BCFMastTable();
    const auto column = [&](const char *name) {
        return ColumnOf(table, QString::fromLatin1(name));
    };
    const auto from = [&](const char *name) {
        return source.FieldIndex(QString::fromLatin1(name));
    };

    // Fields filled with "" before a row is written, so that they are never null.
    QList<int> emptyFirst;
    for (const char *name : {"Name", "Sex", "Cat", "RCat", "Cat1", "RCat1", "Club1", "Club2",
                             "Club3", "Club4", "Club5", "Club6"})
        emptyFirst.append(column(name));

    const cColumnPair ref{from("Ref"), column("Ref")};
    const cColumnPair texts[] = {
        {from("Name"), column("Name")}, {from("Sex"), column("Sex")}, {from("Age"), column("Age")}};
    const cColumnPair dob{from("DOB"), column("DOB")};
    const cColumnPair grades[4][2] = {
        {{from("Grade"), column("Grade")}, {from("Cat"), column("Cat")}},
        {{from("RGrade"), column("RGrade")}, {from("RCat"), column("RCat")}},
        {{from("Grade1"), column("Grade1")}, {from("Cat1"), column("Cat1")}},
        {{from("RGrade1"), column("RGrade1")}, {from("RCat1"), column("RCat1")}}};
    const cColumnPair clubs[] = {
        {from("Club1"), column("Club1")}, {from("Club2"), column("Club2")},
        {from("Club3"), column("Club3")}, {from("Club4"), column("Club4")},
        {from("Club5"), column("Club5")}, {from("Club6"), column("Club6")}};
    const cColumnPair fideCode{from("FIDECode"), column("FIDECode")};
    const QList<FieldDefinition> &fields = table.fields;
    const QString emptyText = QStringLiteral("");

    // The index is built once after the rows are in, which is several times faster
    // than keeping it up to date row by row; it is part of the same unit of work.
    RunSql(QStringLiteral("DROP INDEX IF EXISTS \"BCFMastIndex\""));

    cBulkInsert insert(InsertStatement(table));
    cValueMapper mapper;
    const auto name = [&](const cColumnPair &pair) { return source.Fields()[pair.source].name; };
    QVariantList row;
    qint32 count = 0;
    while (source.Next()) {
        // A real BCF code carries a letter; a purely numeric reference is not a
        // player of the list.
        const QVariant refValue = source.Value(ref.source);
        double number = 0;
        if (!refValue.isNull() && !SourceNumber(refValue, &number)) {
            mapper.setPlace(RowPlace(source));
            row = QList<QVariant>(fields.size());
            for (const int index : emptyFirst)
                row[index] = emptyText;
            row[ref.column] = mapper.Text(fields[ref.column], refValue, true, name(ref));
            for (const cColumnPair &pair : texts)
                if (const QVariant value = source.Value(pair.source); !value.isNull())
                    row[pair.column] = mapper.Text(fields[pair.column], value, true, name(pair));
            if (const QVariant value = source.Value(dob.source); !value.isNull())
                row[dob.column] = mapper.Date(fields[dob.column], value, name(dob));
            // A grade of 0 is no grade: neither it nor its letter is kept.
            for (const auto &grade : grades) {
                const QVariant value = source.Value(grade[0].source);
                if (value.isNull() || (SourceNumber(value, &number) && number == 0))
                    continue;
                row[grade[0].column] =
                    mapper.Number(fields[grade[0].column], value, name(grade[0]));
                if (const QVariant letter = source.Value(grade[1].source); !letter.isNull())
                    row[grade[1].column] =
                        mapper.Text(fields[grade[1].column], letter, true, name(grade[1]));
            }
            for (const cColumnPair &pair : clubs)
                if (const QVariant value = source.Value(pair.source); !value.isNull())
                    row[pair.column] = mapper.Text(fields[pair.column], value, true, name(pair));
            if (const QVariant value = source.Value(fideCode.source); !value.isNull())
                row[fideCode.column] =
                    mapper.Number(fields[fideCode.column], value, name(fideCode));
            insert.Run(row);
        }
        Progress::Update(++count);
    }
    if (source.Failed())
        RaiseLoadFault(source.ErrorText());

    for (const IndexDefinition &index : table.indexes) {
        QStringList indexFields;
        for (const QString &field : index.fields)
            indexFields.append(u'"' + field + u'"');
        RunSql(QStringLiteral("CREATE INDEX \"") + index.name + QStringLiteral("\" ON \"") +
               table.name + QStringLiteral("\" (") + indexFields.join(QStringLiteral(", ")) + u')');
    }
}

void CopyClubRows(cDbaseTable &source)
{
    const TableDefinition &table = Schema::ClubTable();
    const QList<FieldDefinition> &fields = table.fields;
    cPreparedSql insert(InsertStatement(table));
    cValueMapper mapper;
    const int code = source.FieldIndex(QStringLiteral("Code"));
    const int club = source.FieldIndex(QStringLiteral("Club"));
    const int county = source.FieldIndex(QStringLiteral("County"));
    const int unionField = source.FieldIndex(QStringLiteral("Union"));
    qint32 count = 0;
    while (source.Next()) {
        mapper.setPlace(RowPlace(source));
        const QVariantList row = {
            mapper.Text(fields[0], source.Value(code), true, QStringLiteral("Code")),
            mapper.Text(fields[1], source.Value(club), true, QStringLiteral("Club")),
            source.Value(county).isNull()
                ? QVariant(QStringLiteral(""))
                : mapper.Text(fields[2], source.Value(county), true, QStringLiteral("County")),
            source.Value(unionField).isNull()
                ? QVariant(QStringLiteral(""))
                : mapper.Text(fields[3], source.Value(unionField), true, QStringLiteral("Union"))};
        insert.Run(row);
        Progress::Update(++count);
    }
    if (source.Failed())
        RaiseLoadFault(source.ErrorText());
}

// The fields of one line of the base copy: double-quoted texts separated by commas.
// A field without quotes is taken trimmed. False when the line is not in that form.
bool SplitQuotedLine(const QString &line, QStringList *fields)
{
    fields->clear();
    qsizetype at = 0;
    const qsizetype end = line.size();
    for (;;) {
        while (at < end && (line[at] == u' ' || line[at] == u'\t'))
            ++at;
        QString field;
        if (at < end && line[at] == u'"') {
            const qsizetype close = line.indexOf(u'"', at + 1);
            if (close < 0)
                return false;
            field = line.mid(at + 1, close - at - 1);
            at = close + 1;
            while (at < end && (line[at] == u' ' || line[at] == u'\t'))
                ++at;
            if (at < end && line[at] != u',')
                return false;
        } else {
            const qsizetype comma = line.indexOf(u',', at);
            const qsizetype stop = comma < 0 ? end : comma;
            field = line.mid(at, stop - at).trimmed();
            at = stop;
        }
        fields->append(field);
        if (at >= end)
            return true;
        ++at; // the comma
    }
}

// The base copy is written as UTF-8; a copy that an organiser saved from an older
// Windows editor is read as code page 1252.
QString DecodeBaseCopy(const QByteArray &bytes)
{
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = utf8.decode(bytes);
    if (!utf8.hasError())
        return text;
    return CodePage::Decode(CodePage::Windows1252, bytes);
}

void CopyClubBaseCopy(const QString &path)
{
    QFile file(path);
    if (!file.exists())
        RaiseLoadFault(QStringLiteral("The base copy of the club list, ") +
                       QDir::toNativeSeparators(path) + QStringLiteral(", cannot be found."));
    if (!file.open(QIODevice::ReadOnly))
        RaiseLoadFault(QStringLiteral("The base copy of the club list, ") +
                       QDir::toNativeSeparators(path) + QStringLiteral(", cannot be read: ") +
                       file.errorString());
    const qint64 size = file.size();
    QString text = DecodeBaseCopy(file.readAll());
    if (text.startsWith(QChar(0xFEFF)))
        text.remove(0, 1);
    file.close();

    cProgressPass progress(QStringLiteral("Copying the Club table from a base copy"),
                           qint32(qMin<qint64>(size / 100, std::numeric_limits<qint32>::max())));
    const TableDefinition &table = Schema::ClubTable();
    cPreparedSql insert(InsertStatement(table));
    cValueMapper mapper;
    const QStringList lines = text.split(u'\n');
    QStringList fields;
    qint64 total = 0;
    for (qsizetype number = 0; number < lines.size(); ++number) {
        QString line = lines[number];
        if (line.endsWith(u'\r'))
            line.chop(1);
        if (line.trimmed().isEmpty())
            continue;
        const QString place = QStringLiteral("Line ") + QString::number(number + 1) +
                              QStringLiteral(" of ") + QDir::toNativeSeparators(path);
        if (!SplitQuotedLine(line, &fields) || fields.size() != 4)
            RaiseLoadFault(place +
                           QStringLiteral(" is not four double-quoted texts separated by commas."));
        mapper.setPlace(place);
        QVariantList row;
        for (int column = 0; column < 4; ++column)
            row.append(mapper.Text(table.fields[column], fields[column], false,
                                   table.fields[column].name));
        insert.Run(row);
        total += fields[0].size() + fields[1].size() + fields[2].size() + fields[3].size() + 11;
        Progress::Update(qint32(qMin<qint64>(total / 100, std::numeric_limits<qint32>::max())));
    }
}

void TellLoadFault(const QString &what, const QString &reason)
{
    Interaction().ShowMessage(what + QStringLiteral(" could not be loaded.\n\n") + reason +
                                  QStringLiteral("\n\nThe list that was loaded before is kept."),
                              MessageIcon::Exclamation, AppInfo::Title());
}

} // namespace

void cDatabase::ClearBCFMastList()
{
    RunSql(QStringLiteral("Delete From BCFMast"));
}

void cDatabase::ClearClubTable()
{
    RunSql(QStringLiteral("Delete From Club"));
}

bool cDatabase::CopyBCFMastList(const QString &folder, const QString &table)
{
    loadFaultText_.clear();
    try {
        cDbaseTable source;
        OpenSource(source, folder, TableName(table), BCFListFields);
        cTransaction unit;
        cProgressPass progress(QStringLiteral("Copying the BCF Master List"), source.RowCount());
        CopyBCFRows(source);
        unit.Commit();
        return true;
    } catch (const cLoadFault &fault) {
        loadFaultText_ = fault.reason;
    } catch (const cFatalFault &fault) {
        loadFaultText_ = fault.Description();
    }
    return false;
}

bool cDatabase::CopyClubTable(const QString &folder, const QString &table)
{
    loadFaultText_.clear();
    try {
        cTransaction unit;
        if (folder.isEmpty()) {
            CopyClubBaseCopy(systemDir_ + QStringLiteral("club.txt"));
        } else {
            cDbaseTable source;
            OpenSource(source, folder, TableName(table), ClubFields);
            cProgressPass progress(
                QStringLiteral("Copying the Club table from the Velmora DOS database"),
                source.RowCount());
            CopyClubRows(source);
        }
        unit.Commit();
        return true;
    } catch (const cLoadFault &fault) {
        loadFaultText_ = fault.reason;
    } catch (const cFatalFault &fault) {
        loadFaultText_ = fault.Description();
    }
    return false;
}

bool cDatabase::OutputClubTable(const QString &folder)
{
    loadFaultText_.clear();
    if (folder.isEmpty())
        return true;
    const QString path = systemDir_ + QStringLiteral("club.txt");
    try {
        cDbaseTable source;
        OpenSource(source, folder, QStringLiteral("Club"), ClubFields);
        const int fields[4] = {source.FieldIndex(QStringLiteral("Code")),
                               source.FieldIndex(QStringLiteral("Club")),
                               source.FieldIndex(QStringLiteral("County")),
                               source.FieldIndex(QStringLiteral("Union"))};
        QString text;
        while (source.Next()) {
            QStringList quoted;
            for (const int field : fields) {
                const QString value = SourceText(source.Value(field)).trimmed();
                // The quoted form has no way to hold a double quote inside a text.
                if (value.contains(u'"'))
                    RaiseLoadFault(
                        RowPlace(source) + QStringLiteral(": the ") + source.Fields()[field].name +
                        QStringLiteral(" \"") + value +
                        QStringLiteral("\" holds a double quote, which club.txt cannot keep."));
                quoted.append(u'"' + value + u'"');
            }
            text += quoted.join(u',') + QStringLiteral("\r\n");
        }
        if (source.Failed())
            RaiseLoadFault(source.ErrorText());
        QSaveFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0 || !file.commit())
            RaiseLoadFault(QStringLiteral("The file ") + QDir::toNativeSeparators(path) +
                           QStringLiteral(" cannot be written: ") + file.errorString());
        return true;
    } catch (const cLoadFault &fault) {
        loadFaultText_ = fault.reason;
    }
    return false;
}

bool cDatabase::LoadBCFMastList(const QString &fileName)
{
    QString folder;
    QString table;
    SplitFileName(fileName, &folder, &table);
    cTransaction unit;
    ClearBCFMastList();
    if (!CopyBCFMastList(folder, table)) {
        TellLoadFault(QStringLiteral("The BCF Master List"), loadFaultText_);
        return false;
    }
    unit.Commit();
    return true;
}

bool cDatabase::LoadClubTable(const QString &fileName)
{
    QString folder;
    QString table;
    SplitFileName(fileName, &folder, &table);
    cTransaction unit;
    ClearClubTable();
    if (!CopyClubTable(folder, table)) {
        TellLoadFault(QStringLiteral("The BCF Club List"), loadFaultText_);
        return false;
    }
    unit.Commit();
    return true;
}
