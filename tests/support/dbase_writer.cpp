#include "support/dbase_writer.h"

#include <QFile>

cDbaseWriter::cDbaseWriter(QList<Field> fields, unsigned char languageByte)
    : fields_(std::move(fields)), languageByte_(languageByte)
{
    for (const Field &field : fields_)
        recordLength_ += field.length;
}

void cDbaseWriter::AddRow(const QList<QByteArray> &values, bool deleted)
{
    QByteArray row(recordLength_, ' ');
    row[0] = deleted ? '*' : ' ';
    int offset = 1;
    for (qsizetype index = 0; index < fields_.size(); ++index) {
        const Field &field = fields_[index];
        QByteArray value = index < values.size() ? values[index].left(field.length) : QByteArray();
        const bool rightAligned = field.type == 'N' || field.type == 'F';
        const int start = rightAligned ? offset + field.length - int(value.size()) : offset;
        row.replace(start, value.size(), value);
        offset += field.length;
    }
    rows_.append(row);
}

QByteArray cDbaseWriter::Bytes() const
{
    const int headerLength = 32 + 32 * int(fields_.size()) + 1;
    QByteArray bytes(headerLength, '\0');
    bytes[0] = 0x03;
    bytes[1] = char(125);
    bytes[2] = 1;
    bytes[3] = 5;
    const quint32 rows = quint32(rows_.size());
    for (int shift = 0; shift < 4; ++shift)
        bytes[4 + shift] = char((rows >> (8 * shift)) & 0xFF);
    bytes[8] = char(headerLength & 0xFF);
    bytes[9] = char(headerLength >> 8);
    bytes[10] = char(recordLength_ & 0xFF);
    bytes[11] = char(recordLength_ >> 8);
    bytes[29] = char(languageByte_);
    for (qsizetype index = 0; index < fields_.size(); ++index) {
        const Field &field = fields_[index];
        char *descriptor = bytes.data() + 32 + 32 * index;
        const QByteArray name = field.name.left(10);
        memcpy(descriptor, name.constData(), size_t(name.size()));
        descriptor[11] = field.type;
        descriptor[16] = char(field.length);
        descriptor[17] = char(field.decimals);
    }
    bytes[headerLength - 1] = 0x0D;
    for (const QByteArray &row : rows_)
        bytes += row;
    bytes += char(0x1A);
    return bytes;
}

bool cDbaseWriter::Save(const QString &path) const
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return false;
    const QByteArray bytes = Bytes();
    return file.write(bytes) == bytes.size();
}
