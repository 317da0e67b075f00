#include "database/bulk_read.h"

#include "base/fatal_fault.h"
#include "database/shared_handle.h"
#include "database/sql.h"

#include <sqlite3.h>

cBulkRead::cBulkRead(const QString &statement, const QVariantList &values) : statement_(statement)
{
    handle_ = SharedSqliteHandle();
    if (!handle_) {
        fallback_ = RunSql(statement, values);
        fallback_->setForwardOnly(true);
        return;
    }
    const QByteArray text = statement.toUtf8();
    if (sqlite3_prepare_v2(handle_, text.constData(), int(text.size()), &prepared_, nullptr) !=
        SQLITE_OK)
        RaiseFault();
    for (int position = 0; position < values.size(); ++position)
        Bind(position + 1, values[position]);
}

cBulkRead::~cBulkRead()
{
    if (prepared_)
        sqlite3_finalize(prepared_);
}

void cBulkRead::RaiseFault() const
{
    RaiseFatal(QStringLiteral("Velmora! database"), FaultNumber::Database,
               QString::fromUtf8(sqlite3_errmsg(handle_)) + QStringLiteral(" (") + statement_ +
                   u')');
}

void cBulkRead::Bind(int position, const QVariant &value)
{
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
            const QByteArray utf8 = value.toString().toUtf8();
            result = sqlite3_bind_text(prepared_, position, utf8.constData(), int(utf8.size()),
                                       SQLITE_TRANSIENT);
            break;
        }
        }
    }
    if (result != SQLITE_OK)
        RaiseFault();
}

bool cBulkRead::Next()
{
    if (fallback_)
        return fallback_->next();
    const int result = sqlite3_step(prepared_);
    if (result == SQLITE_ROW)
        return true;
    if (result != SQLITE_DONE)
        RaiseFault();
    return false;
}

std::string_view cBulkRead::Utf8View(int column) const
{
    if (fallback_) {
        fallbackText_ = TextOf(fallback_->value(column)).toUtf8();
        return std::string_view(fallbackText_.constData(), std::size_t(fallbackText_.size()));
    }
    const auto *text = reinterpret_cast<const char *>(sqlite3_column_text(prepared_, column));
    if (!text)
        return {};
    return std::string_view(text, std::size_t(sqlite3_column_bytes(prepared_, column)));
}
