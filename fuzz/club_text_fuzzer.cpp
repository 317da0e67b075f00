// Feeds arbitrary bytes to the load of the base copy of the club list, club.txt:
// decoding, the quoted form and the fit of each value to its field. The load must
// take the file or refuse it with a reason, never crash or hang, and a refused file
// adds no club.
#include "fuzz_session.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static cFuzzSession session;
    session.WriteInput(QStringLiteral("club.txt"), data, size);
    cTransaction unit;
    const qint64 before = SqlScalar(QStringLiteral("Select Count(*) From Club")).toLongLong();
    const bool loaded = Database().CopyClubTable(QString(), QStringLiteral("Club"));
    const qint64 after = SqlScalar(QStringLiteral("Select Count(*) From Club")).toLongLong();
    if (!loaded && (after != before || Database().LoadFaultText().isEmpty()))
        __builtin_trap(); // a refusal must say why and leave the clubs as they were
    if (Database().LoadFaultText().size() > 2000)
        __builtin_trap(); // a message quotes values cut short
    return 0;
}
