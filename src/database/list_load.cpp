#include "database/database.h"

#include "base/app_info.h"
#include "base/fatal_fault.h"
#include "base/progress.h"
#include "base/user_interaction.h"
#include "database/bulk_insert.h"
#include "database/code_page.h"
#include "database/connection.h"
#include "database/dbase_table.h"
#include "database/load_values.h"
#include "database/schema.h"
#include "database/sql.h"

#include <QDate>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QSaveFile>
#include <QSqlQuery>
#include <QStringDecoder>

#include <cstring>
#include <limits>

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

bool IsBlankByte(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\v' || c == '\f' || c == '\r' || c == '\0';
}

QByteArrayView TrimmedBytes(QByteArrayView bytes)
{
    qsizetype first = 0;
    qsizetype last = bytes.size();
    while (first < last && IsBlankByte(bytes[first]))
        ++first;
    while (last > first && IsBlankByte(bytes[last - 1]))
        --last;
    return bytes.sliced(first, last - first);
}

// Printable ASCII, which is stored as the file holds it.
bool IsPlainAscii(QByteArrayView bytes)
{
    for (const char c : bytes)
        if (static_cast<unsigned char>(c) >= 0x7F || static_cast<unsigned char>(c) < 0x20)
            return false;
    return true;
}

// A field of the grading list with the field of BCFMast that it goes to. The list
// is read from the bytes of each row, and only a value out of the ordinary (text
// beyond ASCII, a field of another type than the list's own) is made into a value
// of its own and mapped like any other source.
struct cListColumn
{
    int source = -1;
    int column = -1;
    char type = 'C';
    QString sourceName;
    const FieldDefinition *field = nullptr;
};

class cListRowWriter
{
public:
    cListRowWriter(const cDbaseTable &source, cBulkInsert &insert)
        : source_(source), insert_(insert)
    {}

    cListColumn Column(const char *sourceName, const char *fieldName) const
    {
        const TableDefinition &table = Schema::BCFMastTable();
        cListColumn pair;
        pair.source = source_.FieldIndex(QString::fromLatin1(sourceName));
        pair.column = ColumnOf(table, QString::fromLatin1(fieldName));
        pair.type = source_.Fields()[pair.source].type;
        pair.sourceName = source_.Fields()[pair.source].name;
        pair.field = &table.fields[pair.column];
        return pair;
    }

    void setPlace() { mapper_.setPlace(RowPlace(source_)); }

    // Binds the trimmed text of a field; false, binding nothing, when it is blank.
    bool Text(const cListColumn &pair, QByteArray &scratch)
    {
        if (pair.type == 'C') {
            const QByteArrayView bytes = TrimmedBytes(source_.RawValue(pair.source));
            if (bytes.isEmpty())
                return false;
            if (IsPlainAscii(bytes) && bytes.size() <= pair.field->size) {
                insert_.BindText(pair.column, bytes);
                return true;
            }
        }
        setPlace();
        const QVariant value =
            mapper_.Text(*pair.field, source_.Value(pair.source), true, pair.sourceName);
        if (value.isNull())
            return false;
        scratch = value.toString().toUtf8();
        insert_.BindText(pair.column, scratch);
        return true;
    }

    // Binds the text of a field, or "" when it is blank, so that it is never null.
    void TextOrEmpty(const cListColumn &pair, QByteArray &scratch)
    {
        if (!Text(pair, scratch))
            insert_.BindText(pair.column, {});
    }

    // The number in a field; false when the field is blank. A value that is not a
    // number is refused.
    bool Number(const cListColumn &pair, double *number)
    {
        if (pair.type == 'N' || pair.type == 'F') {
            const QByteArrayView bytes = TrimmedBytes(source_.RawValue(pair.source));
            if (bytes.isEmpty() || bytes.front() == '*')
                return false;
            qsizetype at = bytes.front() == '-' ? 1 : 0;
            qint64 whole = 0;
            bool digits = at < bytes.size() && bytes.size() - at <= 15;
            for (; digits && at < bytes.size(); ++at) {
                const char c = bytes[at];
                digits = c >= '0' && c <= '9';
                whole = whole * 10 + (c - '0');
            }
            if (digits) {
                *number = double(bytes.front() == '-' ? -whole : whole);
                return true;
            }
        }
        const QVariant value = source_.Value(pair.source);
        if (value.isNull()) {
            // Letters in a number field read as blank; they are counted, so that the
            // person hears of grades that the list holds but that can't be read.
            if (!TrimmedBytes(source_.RawValue(pair.source)).isEmpty())
                ++unreadable_;
            return false;
        }
        setPlace();
        *number = mapper_.Number(*pair.field, value, pair.sourceName).toDouble();
        return true;
    }

    void Date(const cListColumn &pair)
    {
        if (pair.type == 'D') {
            const QByteArrayView bytes = TrimmedBytes(source_.RawValue(pair.source));
            int parts[3] = {0, 0, 0};
            const int widths[3] = {4, 2, 2};
            bool digits = bytes.size() == 8;
            for (int part = 0, at = 0; digits && part < 3; ++part)
                for (int digit = 0; digits && digit < widths[part]; ++digit, ++at) {
                    const char c = bytes[at];
                    digits = c >= '0' && c <= '9';
                    parts[part] = parts[part] * 10 + (c - '0');
                }
            // A blank or zero date is no date, as the reader gives it.
            if (!digits || !QDate::isValid(parts[0], parts[1], parts[2]) || parts[0] == 0)
                return;
            // The row's bytes are digits already: yyyymmdd becomes yyyy-mm-dd.
            const char *digitsOf = bytes.data();
            memcpy(date_, digitsOf, 4);
            date_[4] = '-';
            memcpy(date_ + 5, digitsOf + 4, 2);
            date_[7] = '-';
            memcpy(date_ + 8, digitsOf + 6, 2);
            insert_.BindText(pair.column, QByteArrayView(date_, 10));
            return;
        }
        const QVariant value = source_.Value(pair.source);
        if (value.isNull())
            return;
        setPlace();
        insert_.BindValue(pair.column, mapper_.Date(*pair.field, value, pair.sourceName));
    }

    // How many number fields held something other than a number.
    qint64 Unreadable() const { return unreadable_; }

private:
    const cDbaseTable &source_;
    cBulkInsert &insert_;
    qint64 unreadable_ = 0;
    cValueMapper mapper_;
    char date_[16] = {};
};

// A real BCF code carries a letter; a purely numeric reference is not a player of
// the list.
bool IsNumberText(QByteArrayView bytes)
{
    bool allDigits = !bytes.isEmpty();
    bool numberCharacters = true;
    for (const char c : bytes) {
        const bool digit = c >= '0' && c <= '9';
        allDigits = allDigits && digit;
        numberCharacters = numberCharacters && (digit || c == '+' || c == '-' || c == '.' ||
                                                c == ',' || c == 'e' || c == 'E');
    }
    if (allDigits)
        return true;
    if (!numberCharacters)
        return false;
    double number = 0;
    return SourceNumber(QString::fromLatin1(bytes), &number);
}

// Copies the rows of the list; gives how many of their grades could not be read.
qint64 CopyBCFRows(cDbaseTable &source)
{
    const TableDefinition &table = Schema::BCFMastTable();
    // The index is built once after the rows are in, which is several times faster
    // than keeping it up to date row by row; it is part of the same unit of work.
    RunSql(QStringLiteral("DROP INDEX IF EXISTS \"BCFMastIndex\""));
    // A list of a hundred thousand players fills some ten megabytes; with room for
    // them all in memory, SQLite writes each page once, at the commit.
    const QVariant cacheSize = SqlScalar(QStringLiteral("PRAGMA cache_size"));
    RunSql(QStringLiteral("PRAGMA cache_size = -65536"));
    struct cRestoreCache
    {
        QVariant size;
        ~cRestoreCache()
        {
            QSqlQuery query(SessionConnection());
            query.exec(QStringLiteral("PRAGMA cache_size = ") + QString::number(size.toLongLong()));
        }
    } restoreCache{cacheSize};

    cBulkInsert insert(InsertStatement(table));
    cListRowWriter writer(source, insert);
    const cListColumn ref = writer.Column("Ref", "Ref");
    // Name and Sex are never null; Age is null when the list leaves it blank.
    const cListColumn name = writer.Column("Name", "Name");
    const cListColumn sex = writer.Column("Sex", "Sex");
    const cListColumn age = writer.Column("Age", "Age");
    const cListColumn dob = writer.Column("DOB", "DOB");
    const cListColumn grades[4][2] = {
        {writer.Column("Grade", "Grade"), writer.Column("Cat", "Cat")},
        {writer.Column("RGrade", "RGrade"), writer.Column("RCat", "RCat")},
        {writer.Column("Grade1", "Grade1"), writer.Column("Cat1", "Cat1")},
        {writer.Column("RGrade1", "RGrade1"), writer.Column("RCat1", "RCat1")}};
    const cListColumn clubs[6] = {writer.Column("Club1", "Club1"), writer.Column("Club2", "Club2"),
                                  writer.Column("Club3", "Club3"), writer.Column("Club4", "Club4"),
                                  writer.Column("Club5", "Club5"), writer.Column("Club6", "Club6")};
    const cListColumn fideCode = writer.Column("FIDECode", "FIDECode");

    // Text beyond ASCII is bound from here, one buffer a field, until the row is written.
    QList<QByteArray> scratch(table.fields.size());
    qint32 count = 0;
    while (source.Next()) {
        const QByteArrayView refBytes = TrimmedBytes(source.RawValue(ref.source));
        const bool taken = ref.type == 'C'
                               ? !refBytes.isEmpty() && !IsNumberText(refBytes)
                               : false; // a list whose references are numbers has no player in it
        if (taken) {
            writer.Text(ref, scratch[ref.column]);
            writer.TextOrEmpty(name, scratch[name.column]);
            writer.TextOrEmpty(sex, scratch[sex.column]);
            writer.Text(age, scratch[age.column]);
            writer.Date(dob);
            // A grade of 0 is no grade: neither it nor its letter is kept.
            for (const auto &[grade, letter] : grades) {
                double number = 0;
                if (writer.Number(grade, &number) && number != 0) {
                    insert.BindDouble(grade.column, number);
                    writer.TextOrEmpty(letter, scratch[letter.column]);
                } else {
                    insert.BindText(letter.column, {});
                }
            }
            for (const cListColumn &club : clubs)
                writer.TextOrEmpty(club, scratch[club.column]);
            if (double number = 0; writer.Number(fideCode, &number))
                insert.BindDouble(fideCode.column, number);
            insert.Step();
        }
        Progress::Update(++count);
    }
    if (source.Failed())
        RaiseLoadFault(source.ErrorText());
    const qint64 unreadableGrades = writer.Unreadable();

    for (const IndexDefinition &index : table.indexes) {
        QStringList indexFields;
        for (const QString &field : index.fields)
            indexFields.append(u'"' + field + u'"');
        RunSql(QStringLiteral("CREATE INDEX \"") + index.name + QStringLiteral("\" ON \"") +
               table.name + QStringLiteral("\" (") + indexFields.join(QStringLiteral(", ")) + u')');
    }
    return unreadableGrades;
}

void CopyClubRows(cDbaseTable &source)
{
    const TableDefinition &table = Schema::ClubTable();
    const QList<FieldDefinition> &fields = table.fields;
    cBulkInsert insert(InsertStatement(table));
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

// Counts the multi-byte UTF-8 sequences of the bytes and the bytes that belong to
// none.
void CountUtf8(QByteArrayView bytes, qint64 *sequences, qint64 *strays)
{
    *sequences = 0;
    *strays = 0;
    for (qsizetype at = 0; at < bytes.size();) {
        const auto lead = static_cast<unsigned char>(bytes[at]);
        const int following = lead < 0x80                    ? 0
                              : lead >= 0xC2 && lead <= 0xDF ? 1
                              : lead >= 0xE0 && lead <= 0xEF ? 2
                              : lead >= 0xF0 && lead <= 0xF4 ? 3
                                                             : -1;
        bool whole = following >= 0 && at + following < bytes.size();
        for (int step = 1; whole && step <= following; ++step)
            whole = (static_cast<unsigned char>(bytes[at + step]) & 0xC0) == 0x80;
        if (!whole) {
            ++*strays;
            ++at;
            continue;
        }
        if (following > 0)
            ++*sequences;
        at += 1 + following;
    }
}

// The base copy is written as UTF-8; a copy that an organiser saved from an older
// Windows editor is read as code page 1252. A UTF-8 copy with a few damaged bytes
// stays UTF-8, each damaged byte read as a replacement mark, and brokenBytes tells
// how many there were.
QString DecodeBaseCopy(const QByteArray &bytes, qint64 *brokenBytes)
{
    *brokenBytes = 0;
    qint64 sequences = 0;
    qint64 strays = 0;
    CountUtf8(bytes, &sequences, &strays);
    if (strays == 0 || (sequences > 0 && strays <= qMax<qint64>(3, sequences / 10))) {
        *brokenBytes = strays;
        QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
        return utf8.decode(bytes);
    }
    return CodePage::Decode(CodePage::Windows1252, bytes);
}

void CopyClubBaseCopy(const QString &path, QStringList *notes)
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
    qint64 brokenBytes = 0;
    QString text = DecodeBaseCopy(file.readAll(), &brokenBytes);
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
    if (brokenBytes > 0)
        *notes += QStringLiteral("The base copy of the club list, ") +
                  QDir::toNativeSeparators(path) + QStringLiteral(", is UTF-8 text with ") +
                  QString::number(brokenBytes) +
                  (brokenBytes == 1 ? QStringLiteral(" damaged byte, which was read as \"")
                                    : QStringLiteral(" damaged bytes, which were read as \"")) +
                  QChar(0xFFFD) + QStringLiteral("\".");
}

// A count as the messages give it: "20,000".
QString ThousandsText(qint64 count)
{
    return QLocale(QLocale::English).toString(count);
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
    loadNotes_.clear();
    try {
        cDbaseTable source;
        OpenSource(source, folder, TableName(table), BCFListFields);
        cTransaction unit;
        cProgressPass progress(QStringLiteral("Copying the BCF Master List"), source.RowCount());
        const qint64 unreadable = CopyBCFRows(source);
        unit.Commit();
        if (unreadable > 0)
            loadNotes_.append(
                ThousandsText(unreadable) +
                (unreadable == 1 ? QStringLiteral(" grade") : QStringLiteral(" grades")) +
                QStringLiteral(" of the list could not be read and "
                               "were left empty."));
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
    loadNotes_.clear();
    try {
        cTransaction unit;
        if (folder.isEmpty()) {
            CopyClubBaseCopy(systemDir_ + QStringLiteral("club.txt"), &loadNotes_);
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
                        QStringLiteral(" \"") + MessageExcerpt(value) +
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

bool cDatabase::ReplaceList(const QString &fileName, const QString &what, const QString &listTable,
                            const QString &rowWord, void (cDatabase::*clear)(),
                            bool (cDatabase::*copy)(const QString &, const QString &))
{
    QString folder;
    QString table;
    SplitFileName(fileName, &folder, &table);
    const QString countRows = QStringLiteral("Select Count(*) From ") + listTable;
    qint64 loaded = 0;
    try {
        cTransaction unit;
        const qint64 before = SqlScalar(countRows).toLongLong();
        (this->*clear)();
        if (!(this->*copy)(folder, table)) {
            TellLoadFault(what, loadFaultText_);
            return false;
        }
        loaded = SqlScalar(countRows).toLongLong();
        // A file whose rows are all deleted, or whose fields are of the wrong kind,
        // yields nothing; it replaces a list only when the person says so.
        if (loaded == 0 && before > 0 &&
            !Interaction().AskYesNo(what + QStringLiteral(" holds ") + ThousandsText(before) +
                                        u' ' + rowWord + QStringLiteral(". The file ") +
                                        QDir::toNativeSeparators(fileName) +
                                        QStringLiteral(" holds none, so loading it would leave "
                                                       "the list empty.\n\nDo you want to load "
                                                       "it?"),
                                    AppInfo::Title()))
            return false;
        unit.Commit();
    } catch (const cFatalFault &fault) {
        // The list reaches the file at the commit: a full disk or a data folder that
        // can't be written fails it there, and the engine undoes the whole load.
        loadFaultText_ = fault.Description();
        TellLoadFault(what, loadFaultText_);
        return false;
    }
    QString done = ThousandsText(loaded) + u' ' + rowWord + QStringLiteral(" loaded");
    for (const QString &note : std::as_const(loadNotes_))
        done += QStringLiteral("\n\n") + note;
    Interaction().ShowMessage(done, MessageIcon::Information, AppInfo::Title());
    return true;
}

bool cDatabase::LoadBCFMastList(const QString &fileName)
{
    return ReplaceList(fileName, QStringLiteral("The BCF Master List"), QStringLiteral("BCFMast"),
                       QStringLiteral("players"), &cDatabase::ClearBCFMastList,
                       &cDatabase::CopyBCFMastList);
}

bool cDatabase::LoadClubTable(const QString &fileName)
{
    return ReplaceList(fileName, QStringLiteral("The BCF Club List"), QStringLiteral("Club"),
                       QStringLiteral("clubs"), &cDatabase::ClearClubTable,
                       &cDatabase::CopyClubTable);
}
