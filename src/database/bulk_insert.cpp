#include "database/bulk_insert.h"

#include "database/database.h"
#include "database/sql.h"
#include "session/fatal_fault.h"
#include "session/globals.h"

#include <QSqlDriver>

#include <sqlite3.h>

namespace {

// The handle of the open connection, when the driver uses the very SQLite library
// that this program links; a driver with a copy of its own must not be given our
// calls.
sqlite3 *SharedHandle()
{
    const QVariant handle = Database().Db().driver()->handle();
    if (!handle.isValid() || qstrcmp(handle.typeName(), "sqlite3*") != 0)
        return nullptr;
    sqlite3 *connection = *static_cast<sqlite3 *const *>(handle.constData());
    if (!connection)
        return nullptr;
    const QString version = SqlScalar(QStringLiteral("SELECT sqlite_source_id()")).toString();
    if (version != QString::fromLatin1(sqlite3_sourceid()))
        return nullptr;
    return connection;
}

} // namespace

cBulkInsert::cBulkInsert(const QString &statement) : statement_(statement)
{
    handle_ = SharedHandle();
    if (!handle_) {
        fallback_ = std::make_unique<cPreparedSql>(statement);
        return;
    }
    const QByteArray text = statement.toUtf8();
    if (sqlite3_prepare_v2(handle_, text.constData(), int(text.size()), &prepared_, nullptr) !=
        SQLITE_OK)
        RaiseFault();
}

cBulkInsert::~cBulkInsert()
{
    if (prepared_)
        sqlite3_finalize(prepared_);
}

void cBulkInsert::RaiseFault() const
{
    RaiseFatal(QStringLiteral("Velmora! database"), FaultNumber::Database,
               QString::fromUtf8(sqlite3_errmsg(handle_)) + QStringLiteral(" (") + statement_ +
                   u')');
}

void cBulkInsert::Run(const QVariantList &values)
{
    if (fallback_) {
        fallback_->Run(values);
        return;
    }
    sqlite3_reset(prepared_);
    for (qsizetype index = 0; index < values.size(); ++index) {
        const QVariant &value = values[index];
        const int position = int(index) + 1;
        int result = SQLITE_OK;
        if (value.isNull()) {
            result = sqlite3_bind_null(prepared_, position);
        } else {
            switch (value.typeId()) {
            case QMetaType::LongLong:
            case QMetaType::Int:
            case QMetaType::Bool:
                result = sqlite3_bind_int64(prepared_, position, value.toLongLong());
                break;
            case QMetaType::Double:
                result = sqlite3_bind_double(prepared_, position, value.toDouble());
                break;
            default: {
                utf8_ = value.toString().toUtf8();
                result = sqlite3_bind_text(prepared_, position, utf8_.constData(),
                                           int(utf8_.size()), SQLITE_TRANSIENT);
                break;
            }
            }
        }
        if (result != SQLITE_OK)
            RaiseFault();
    }
    if (sqlite3_step(prepared_) != SQLITE_DONE) {
        const QString message = QString::fromUtf8(sqlite3_errmsg(handle_));
        sqlite3_reset(prepared_);
        RaiseFatal(QStringLiteral("Velmora! database"), FaultNumber::Database,
                   message + QStringLiteral(" (") + statement_ + u')');
    }
}
