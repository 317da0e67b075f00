// Feeds arbitrary bytes to the import of the DOS predecessor's tables: the first
// byte picks the table (Master, Velmora, Players, Result), the rest is its dBase
// file. The import must take the table or refuse it with a reason, never crash or
// hang, and a refused table adds no row.
#include "fuzz_session.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static cFuzzSession session;
    if (size < 1)
        return 0;
    struct cTable
    {
        const char *file;
        const char *table;
        bool (cDatabase::*copy)(const QString &);
    };
    static const cTable tables[] = {{"Master.dbf", "Master", &cDatabase::CopyMasterTable},
                                    {"Velmora.dbf", "Velmora", &cDatabase::CopyVelmoraTable},
                                    {"Players.dbf", "Player", &cDatabase::CopyPlayerTable},
                                    {"Result.dbf", "Result", &cDatabase::CopyResultTable}};
    const cTable &table = tables[data[0] % 4];
    session.WriteInput(QString::fromLatin1(table.file), data + 1, size - 1);
    const QString count =
        QStringLiteral("Select Count(*) From ") + QString::fromLatin1(table.table);
    cTransaction unit;
    const qint64 before = SqlScalar(count).toLongLong();
    const bool imported = (Database().*table.copy)(session.InputFolder());
    if (!imported &&
        (SqlScalar(count).toLongLong() != before || Database().LoadFaultText().isEmpty()))
        __builtin_trap(); // a refusal must say why and leave the table as it was
    return 0;
}
