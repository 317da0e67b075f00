#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

// Writes small dBase III tables for tests and benchmarks, byte for byte as a dBase
// writer lays them out, so that each case can hold exactly the oddity it tests.
class cDbaseWriter
{
public:
    struct Field
    {
        QByteArray name;
        char type = 'C';
        int length = 1;
        int decimals = 0;
    };

    explicit cDbaseWriter(QList<Field> fields, unsigned char languageByte = 0);

    // One row of raw values in the file's code page, in the order of the fields.
    // Text is padded on the right, numbers on the left, and cut to the width.
    void AddRow(const QList<QByteArray> &values, bool deleted = false);
    qint32 RowCount() const { return qint32(rows_.size()); }

    QByteArray Bytes() const;
    bool Save(const QString &path) const;

private:
    QList<Field> fields_;
    unsigned char languageByte_;
    int recordLength_ = 1;
    QList<QByteArray> rows_;
};
