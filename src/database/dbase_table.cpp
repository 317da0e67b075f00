#include "database/dbase_table.h"

#include "database/code_page.h"

#include <QDate>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstring>
#include <limits>

namespace {

constexpr int FileHeaderSize = 32;
constexpr int FieldDescriptorSize = 32;
constexpr char FieldListEnd = 0x0D;
constexpr char DeletedFlag = '*';
// Rows are read in blocks of about this many bytes, so that a long list is never
// held in memory whole.
constexpr qint64 BlockBytes = 64 * 1024;

// The first byte of the file tells its kind. dBase III, IV and 5 share the layout
// read here; the high bits only say that a memo file or SQL table goes with it.
bool IsReadableVersion(unsigned char version)
{
    switch (version) {
    case 0x03: // dBase III, IV and 5 without memo
    case 0x83: // dBase III with memo
    case 0x8B: // dBase IV with memo
    case 0x8E: // dBase IV with SQL table
    case 0x43: // dBase IV SQL table
    case 0x63: // dBase IV SQL system table
    case 0xCB: // dBase IV SQL table with memo
    case 0xF5: // the same layout with a memo, as FoxPro 2 writes it
        return true;
    default:
        return false;
    }
}

bool IsReadType(char type)
{
    return type == 'C' || type == 'N' || type == 'F' || type == 'D' || type == 'L';
}

// Memo fields point into a file of their own, which no list of ours uses; their
// values read as null, but the rest of the table is read.
bool IsUnreadType(char type)
{
    return type == 'M' || type == 'B' || type == 'G';
}

quint32 Little32(const char *bytes)
{
    const auto *b = reinterpret_cast<const unsigned char *>(bytes);
    return quint32(b[0]) | quint32(b[1]) << 8 | quint32(b[2]) << 16 | quint32(b[3]) << 24;
}

quint16 Little16(const char *bytes)
{
    const auto *b = reinterpret_cast<const unsigned char *>(bytes);
    return quint16(b[0] | b[1] << 8);
}

bool IsPadding(char c)
{
    return c == ' ' || c == '\0';
}

// The bytes without blanks (and the NULs that some writers pad with) at both ends.
QByteArrayView Trimmed(const char *bytes, int length)
{
    int first = 0;
    int last = length;
    while (first < last && IsPadding(bytes[first]))
        ++first;
    while (last > first && IsPadding(bytes[last - 1]))
        --last;
    return QByteArrayView(bytes + first, last - first);
}

QVariant NumberValue(const cDbaseTable::Field &field, const char *bytes)
{
    const QByteArrayView text = Trimmed(bytes, field.length);
    if (text.isEmpty())
        return QVariant();
    bool allStars = true;
    for (const char c : text)
        allStars = allStars && c == '*';
    if (allStars)
        return QVariant();
    // A number is digits with an optional sign, point and exponent; anything else
    // in a number field is not a number the list gives, so it reads as blank.
    for (const char c : text) {
        const bool allowed =
            (c >= '0' && c <= '9') || c == '-' || c == '+' || c == '.' || c == 'e' || c == 'E';
        if (!allowed)
            return QVariant();
    }
    const QByteArray owned = text.toByteArray();
    if (field.decimals == 0) {
        bool whole = false;
        const qlonglong value = owned.toLongLong(&whole);
        if (whole)
            return QVariant(value);
    }
    bool ok = false;
    const double value = owned.toDouble(&ok);
    if (!ok)
        return QVariant();
    return QVariant(value);
}

QVariant DateValue(const cDbaseTable::Field &field, const char *bytes)
{
    const QByteArrayView text = Trimmed(bytes, field.length);
    if (text.size() != 8)
        return QVariant();
    int parts[3] = {0, 0, 0};
    const int widths[3] = {4, 2, 2};
    int position = 0;
    for (int part = 0; part < 3; ++part) {
        for (int digit = 0; digit < widths[part]; ++digit) {
            const char c = text[position++];
            if (c < '0' || c > '9')
                return QVariant();
            parts[part] = parts[part] * 10 + (c - '0');
        }
    }
    const QDate date(parts[0], parts[1], parts[2]);
    if (!date.isValid())
        return QVariant(); // "00000000" and other blank dates
    return QVariant(date);
}

QVariant LogicalValue(const char *bytes)
{
    switch (bytes[0]) {
    case 'T':
    case 't':
    case 'Y':
    case 'y':
        return QVariant(true);
    case 'F':
    case 'f':
    case 'N':
    case 'n':
        return QVariant(false);
    default:
        return QVariant(); // "?" and blank: not yet set
    }
}

// The file of a table in a folder, whatever the case of the letters of its name.
QString FindFile(const QString &folder, const QString &fileName)
{
    const QDir dir(folder);
    if (QFileInfo(dir.filePath(fileName)).isFile())
        return dir.filePath(fileName);
    const QStringList entries = dir.entryList(QDir::Files | QDir::Hidden);
    for (const QString &entry : entries)
        if (entry.compare(fileName, Qt::CaseInsensitive) == 0)
            return dir.filePath(entry);
    return QString();
}

// The code page that a ".cpg" file beside the table names, or 0.
int CodePageBeside(const QString &folder, const QString &tableName)
{
    const QString path = FindFile(folder, tableName + QStringLiteral(".cpg"));
    if (path.isEmpty())
        return 0;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return CodePage::OfName(QString::fromLatin1(file.read(64)));
}

} // namespace

cDbaseTable::cDbaseTable() = default;

cDbaseTable::~cDbaseTable() = default;

bool cDbaseTable::Refuse(const QString &reason)
{
    errorText_ = reason;
    failed_ = true;
    device_ = nullptr;
    ownedDevice_.reset();
    fields_.clear();
    fieldsByName_.clear();
    rowCount_ = 0;
    row_ = nullptr;
    return false;
}

bool cDbaseTable::Open(const QString &folder, const QString &table)
{
    Close();
    QString name = table.trimmed();
    if (name.endsWith(QStringLiteral(".dbf"), Qt::CaseInsensitive))
        name.chop(4);
    displayName_ = QDir(folder).filePath(name + QStringLiteral(".dbf"));
    if (name.isEmpty())
        return Refuse(QStringLiteral("No table was named in the folder ") + folder +
                      QStringLiteral("."));
    const QString path = FindFile(folder, name + QStringLiteral(".dbf"));
    if (path.isEmpty())
        return Refuse(QStringLiteral("The file ") + QDir::toNativeSeparators(displayName_) +
                      QStringLiteral(" cannot be found."));
    auto file = std::make_unique<QFile>(path);
    if (!file->open(QIODevice::ReadOnly))
        return Refuse(QStringLiteral("The file ") + QDir::toNativeSeparators(path) +
                      QStringLiteral(" cannot be read: ") + file->errorString());
    const int codePageBeside = CodePageBeside(folder, name);
    QIODevice *device = file.get();
    ownedDevice_ = std::move(file);
    const bool opened = Open(device, QDir::toNativeSeparators(path), codePageBeside);
    if (!opened)
        ownedDevice_.reset();
    return opened;
}

bool cDbaseTable::Open(QIODevice *device, const QString &displayName, int codePage)
{
    if (device != ownedDevice_.get())
        Close();
    displayName_ = displayName;
    errorText_.clear();
    failed_ = false;
    device_ = device;
    if (!device_ || !device_->isReadable())
        return Refuse(QStringLiteral("The file ") + displayName_ +
                      QStringLiteral(" cannot be read."));
    if (!ReadHeader(device_->isSequential() ? -1 : device_->size()))
        return false;
    if (CodePage::IsKnown(codePage))
        codePage_ = codePage;
    return true;
}

bool cDbaseTable::ReadHeader(qint64 deviceSize)
{
    const QString file = QStringLiteral("The file ") + displayName_;
    if (!device_->isSequential() && !device_->seek(0))
        return Refuse(file + QStringLiteral(" cannot be read: ") + device_->errorString());
    const QByteArray header = device_->read(FileHeaderSize);
    if (header.size() < FileHeaderSize)
        return Refuse(file + QStringLiteral(" is not a dBase table: it is too short."));
    const auto version = static_cast<unsigned char>(header[0]);
    if (!IsReadableVersion(version))
        return Refuse(file + QStringLiteral(" is not a dBase III, IV or 5 table."));
    const quint32 rows = Little32(header.constData() + 4);
    headerLength_ = Little16(header.constData() + 8);
    recordLength_ = Little16(header.constData() + 10);
    const int languageCodePage = CodePage::OfLanguageByte(static_cast<unsigned char>(header[29]));
    codePage_ = languageCodePage ? languageCodePage : CodePage::Windows1252;

    if (rows > quint32(std::numeric_limits<qint32>::max()))
        return Refuse(file + QStringLiteral(" is damaged: its row count is not possible."));
    if (headerLength_ < FileHeaderSize + 1 || recordLength_ < 2)
        return Refuse(file + QStringLiteral(" is damaged: its header is malformed."));

    const QByteArray descriptors = device_->read(headerLength_ - FileHeaderSize);
    if (descriptors.size() < headerLength_ - FileHeaderSize)
        return Refuse(file + QStringLiteral(" is damaged: its header is cut short."));

    // The field list ends with a 0x0D byte; a header that ends without it is taken
    // to end where its length says.
    int offset = 1; // after the deletion flag
    for (int at = 0; at < descriptors.size(); at += FieldDescriptorSize) {
        if (descriptors[at] == FieldListEnd || at + FieldDescriptorSize > descriptors.size())
            break;
        const char *descriptor = descriptors.constData() + at;
        Field field;
        const int nameLength = int(qstrnlen(descriptor, 11));
        field.name = QString::fromLatin1(descriptor, nameLength).trimmed();
        field.type = descriptor[11];
        field.length = static_cast<unsigned char>(descriptor[16]);
        field.decimals = static_cast<unsigned char>(descriptor[17]);
        field.offset = offset;
        if (field.length == 0)
            return Refuse(file + QStringLiteral(" is damaged: the field ") + field.name +
                          QStringLiteral(" has no width."));
        if (!IsReadType(field.type) && !IsUnreadType(field.type))
            return Refuse(file + QStringLiteral(" has a field, ") + field.name +
                          QStringLiteral(", of a kind that dBase III, IV and 5 do not write."));
        offset += field.length;
        if (offset > recordLength_)
            return Refuse(file +
                          QStringLiteral(" is damaged: its fields are wider than its rows."));
        const QString key = field.name.toUpper();
        if (!fieldsByName_.contains(key))
            fieldsByName_.insert(key, int(fields_.size()));
        fields_.append(field);
    }
    if (fields_.isEmpty())
        return Refuse(file + QStringLiteral(" is damaged: it has no fields."));
    // A header whose figures disagree would have every row read from the wrong
    // place: a length one byte too large shifts each row by a byte.
    if (offset != recordLength_)
        return Refuse(file + QStringLiteral(" is damaged: its rows are ") +
                      QString::number(recordLength_) +
                      QStringLiteral(" bytes long, but its fields take ") +
                      QString::number(offset) + QStringLiteral("."));
    const qsizetype fieldListEnd = fields_.size() * FieldDescriptorSize;
    for (qsizetype at = fieldListEnd + 1; at < descriptors.size(); ++at)
        if (descriptors[at] != 0)
            return Refuse(file + QStringLiteral(" is damaged: its header length, ") +
                          QString::number(headerLength_) +
                          QStringLiteral(", does not agree with its ") +
                          QString::number(fields_.size()) + QStringLiteral(" fields."));

    rowCount_ = qint32(rows);
    if (deviceSize >= 0) {
        const qint64 needed = qint64(headerLength_) + qint64(rowCount_) * recordLength_;
        if (needed > deviceSize) {
            const qint64 whole = qMax<qint64>(0, (deviceSize - headerLength_) / recordLength_);
            return Refuse(file + QStringLiteral(" is damaged: it should hold ") +
                          QString::number(rowCount_) + QStringLiteral(" rows but ends after ") +
                          QString::number(whole) + QStringLiteral("."));
        }
        // After the rows only the end-of-file mark may follow; more means that the
        // header counts fewer rows than the file holds.
        if (deviceSize - needed > 1)
            return Refuse(file + QStringLiteral(" is damaged: its header counts ") +
                          QString::number(rowCount_) +
                          QStringLiteral(" rows, but the file holds more than that."));
        if (!device_->seek(headerLength_))
            return Refuse(file + QStringLiteral(" cannot be read: ") + device_->errorString());
    }
    currentRow_ = -1;
    blockFirstRow_ = 0;
    blockRows_ = 0;
    block_.clear();
    row_ = nullptr;
    return true;
}

void cDbaseTable::Close()
{
    device_ = nullptr;
    ownedDevice_.reset();
    fields_.clear();
    fieldsByName_.clear();
    rowCount_ = 0;
    currentRow_ = -1;
    blockFirstRow_ = 0;
    blockRows_ = 0;
    block_.clear();
    row_ = nullptr;
    failed_ = false;
    errorText_.clear();
}

int cDbaseTable::FieldIndex(const QString &name) const
{
    return fieldsByName_.value(name.trimmed().toUpper(), -1);
}

QStringList cDbaseTable::MissingFields(const QStringList &names) const
{
    QStringList missing;
    for (const QString &name : names)
        if (!HasField(name))
            missing.append(name);
    return missing;
}

bool cDbaseTable::LoadBlock()
{
    const qint32 first = blockFirstRow_ + blockRows_;
    const qint64 fit = qMax<qint64>(1, BlockBytes / recordLength_);
    const qint32 rows = qint32(qMin<qint64>(fit, qint64(rowCount_) - first));
    const qint64 bytes = qint64(rows) * recordLength_;
    block_.resize(bytes);
    qint64 got = 0;
    while (got < bytes) {
        const qint64 chunk = device_->read(block_.data() + got, bytes - got);
        if (chunk <= 0)
            break;
        got += chunk;
    }
    if (got < bytes) {
        const qint32 whole = first + qint32(got / recordLength_);
        Refuse(QStringLiteral("The file ") + displayName_ +
               QStringLiteral(" is damaged: it should hold ") + QString::number(rowCount_) +
               QStringLiteral(" rows but ends after ") + QString::number(whole) +
               QStringLiteral("."));
        return false;
    }
    blockFirstRow_ = first;
    blockRows_ = rows;
    return true;
}

bool cDbaseTable::Next()
{
    if (!device_)
        return false;
    for (;;) {
        if (currentRow_ + 1 >= rowCount_) {
            currentRow_ = rowCount_;
            row_ = nullptr;
            return false;
        }
        ++currentRow_;
        if (currentRow_ >= blockFirstRow_ + blockRows_ && !LoadBlock())
            return false;
        row_ = block_.constData() + qint64(currentRow_ - blockFirstRow_) * recordLength_;
        if (row_[0] != DeletedFlag && row_[0] != ' ') {
            Refuse(QStringLiteral("The file ") + displayName_ +
                   QStringLiteral(" is damaged: row ") + QString::number(currentRow_ + 1) +
                   QStringLiteral(" does not begin with a deletion flag (a blank or \"*\")."));
            row_ = nullptr;
            return false;
        }
        if (row_[0] != DeletedFlag)
            return true;
    }
}

QString cDbaseTable::Text(const Field &field, const char *bytes) const
{
    int length = field.length;
    while (length > 0 && IsPadding(bytes[length - 1]))
        --length;
    return CodePage::Decode(codePage_, QByteArrayView(bytes, length));
}

QVariant cDbaseTable::Value(int fieldIndex) const
{
    if (!row_ || fieldIndex < 0 || fieldIndex >= fields_.size())
        return QVariant();
    const Field &field = fields_[fieldIndex];
    const char *bytes = row_ + field.offset;
    switch (field.type) {
    case 'C': {
        const QString text = Text(field, bytes);
        if (text.trimmed().isEmpty())
            return QVariant();
        return QVariant(text);
    }
    case 'N':
    case 'F':
        return NumberValue(field, bytes);
    case 'D':
        return DateValue(field, bytes);
    case 'L':
        return LogicalValue(bytes);
    default:
        return QVariant();
    }
}

QByteArrayView cDbaseTable::RawValue(int fieldIndex) const
{
    if (!row_ || fieldIndex < 0 || fieldIndex >= fields_.size())
        return {};
    const Field &field = fields_[fieldIndex];
    return QByteArrayView(row_ + field.offset, field.length);
}

QVariant cDbaseTable::Value(const QString &name) const
{
    return Value(FieldIndex(name));
}
