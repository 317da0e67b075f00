#pragma once

// A session for the load fuzzers: a new database in a folder of its own under the
// temporary folder, made once, and a folder beside it where each input is written
// as the file that a load reads. Every load runs inside a unit of work that is
// rolled back, so each input meets the same empty database.
#include "database/database.h"
#include "database/sql.h"
#include "session/globals.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cstddef>
#include <cstdint>

class cFuzzSession
{
public:
    cFuzzSession()
    {
        static int argc = 1;
        static char name[] = "fuzzer";
        static char *argv[] = {name, nullptr};
        static QCoreApplication application(argc, argv);
        CreateSessionObjects();
        Database().setDataDir(folder_.filePath(QStringLiteral("data")));
        Database().setSystemDir(InputFolder());
        QDir().mkpath(InputFolder());
        Database().Create();
        OpenSessionDatabase();
    }

    // The session closes before the application object, which goes at the end of the
    // process with the other function statics.
    ~cFuzzSession() { DestroySessionObjects(); }
    cFuzzSession(const cFuzzSession &) = delete;
    cFuzzSession &operator=(const cFuzzSession &) = delete;

    QString InputFolder() const { return folder_.filePath(QStringLiteral("input")); }

    void WriteInput(const QString &name, const std::uint8_t *data, std::size_t size) const
    {
        QFile file(InputFolder() + u'/' + name);
        if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
            file.write(reinterpret_cast<const char *>(data), qint64(size));
    }

private:
    QTemporaryDir folder_;
};
