// Feeds arbitrary bytes to the dBase reader as a table file and reads every value
// of every row. The reader must refuse what it can't read, never crash or hang.
// The seed corpus in fuzz/corpus holds small valid tables of each kind we read.
#include "database/dbase_table.h"

#include <QBuffer>
#include <QByteArray>

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    QByteArray bytes =
        QByteArray::fromRawData(reinterpret_cast<const char *>(data), qsizetype(size));
    QBuffer buffer(&bytes);
    if (!buffer.open(QIODevice::ReadOnly))
        return 0;
    cDbaseTable table;
    if (!table.Open(&buffer, QStringLiteral("fuzz.dbf")))
        return 0;
    const auto fieldCount = int(table.Fields().size());
    const qint32 rows = table.RowCount();
    qint32 seen = 0;
    while (table.Next()) {
        if (++seen > rows)
            __builtin_trap(); // more rows than the header counts: the walk is wrong
        for (int index = 0; index < fieldCount; ++index) {
            if (table.RawValue(index).size() != table.Fields()[index].length)
                __builtin_trap(); // a field's bytes are always its whole width
            const QVariant value = table.Value(index);
            if (!value.isNull())
                (void)value.toString();
        }
        (void)table.Value(QStringLiteral("Ref"));
    }
    return 0;
}
