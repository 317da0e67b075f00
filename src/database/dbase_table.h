#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <memory>

class QIODevice;

// A dBase table (dBase III, IV or 5), read one row at a time from the start. The
// grading list, the club list and the files of the DOS predecessor all come in
// this form. A table is named by its folder and its name, with or without ".dbf",
// in any case of letters.
//
// Values come back by field name: text as QString without its padding blanks,
// numbers as qlonglong (whole numbers) or double, dates as QDate, logical values as
// bool; a blank value, a blank or zero date and a number field filled with "*"
// (how dBase writers mark a number that is missing) come back as a null QVariant.
//
// A file that is not a dBase table, or is cut short or malformed, is refused with
// a message in ErrorText(); nothing is read past its end.
class cDbaseTable
{
public:
    struct Field
    {
        QString name;
        char type = 'C';
        int length = 0;
        int decimals = 0;
        int offset = 0; // from the start of the row, after the deletion flag
    };

    cDbaseTable();
    ~cDbaseTable();
    cDbaseTable(const cDbaseTable &) = delete;
    cDbaseTable &operator=(const cDbaseTable &) = delete;

    // Opens the table; false when it can't, with the reason in ErrorText().
    bool Open(const QString &folder, const QString &table);
    // Reads a table from a device that the caller keeps open for reading. The code
    // page, when not 0, stands for the one a ".cpg" file beside a table would name.
    bool Open(QIODevice *device, const QString &displayName, int codePage = 0);
    void Close();
    bool IsOpen() const { return device_ != nullptr; }

    // The file that was opened, as the messages name it.
    QString FileName() const { return displayName_; }
    QString ErrorText() const { return errorText_; }
    // True once reading has stopped on a fault; ErrorText() says what it was.
    bool Failed() const { return failed_; }

    // The number of rows that the table's header counts, rows marked deleted
    // included, as the progress bar of a pass needs it.
    qint32 RowCount() const { return rowCount_; }
    int CodePage() const { return codePage_; }
    const QList<Field> &Fields() const { return fields_; }
    // The position of a field, whatever the case of its letters; -1 when absent.
    int FieldIndex(const QString &name) const;
    bool HasField(const QString &name) const { return FieldIndex(name) >= 0; }
    // The names in the list that the table does not have.
    QStringList MissingFields(const QStringList &names) const;

    // Moves to the next row that is not marked deleted. False at the end of the
    // table and when the file fails part way (then Failed() is true).
    bool Next();
    // The number of the current row among all rows, deleted ones included, from 1.
    qint32 RowNumber() const { return currentRow_ + 1; }

    QVariant Value(int fieldIndex) const;
    // The bytes of a field of the current row as the file holds them, padding
    // included, for passes that read a long list without making a value of each.
    QByteArrayView RawValue(int fieldIndex) const;
    // The value of a field by name; null when the table has no such field.
    QVariant Value(const QString &name) const;

private:
    bool Refuse(const QString &reason);
    bool ReadHeader(qint64 deviceSize);
    bool LoadBlock();
    QString Text(const Field &field, const char *bytes) const;

    std::unique_ptr<QIODevice> ownedDevice_;
    QIODevice *device_ = nullptr;
    QString displayName_;
    QString errorText_;
    bool failed_ = false;

    qint32 rowCount_ = 0;
    int headerLength_ = 0;
    int recordLength_ = 0;
    int codePage_ = 0;
    QList<Field> fields_;
    QHash<QString, int> fieldsByName_; // keyed by the name in capitals

    QByteArray block_;
    qint32 blockFirstRow_ = 0;
    qint32 blockRows_ = 0;
    qint32 currentRow_ = -1;
    const char *row_ = nullptr;
};
