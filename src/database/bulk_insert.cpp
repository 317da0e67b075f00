#include "database/bulk_insert.h"

#include "base/fatal_fault.h"
#include "database/shared_handle.h"
#include "database/sql.h"

#include <sqlite3.h>

namespace {

int ParameterCount(const QString &statement)
{
    return int(statement.count(u'?'));
}

} // namespace

cBulkInsert::cBulkInsert(const QString &statement) : statement_(statement)
{
    handle_ = SharedSqliteHandle();
    const int parameters = ParameterCount(statement);
    texts_.resize(parameters);
    if (!handle_) {
        fallback_ = std::make_unique<cPreparedSql>(statement);
        fallbackValues_.resize(parameters);
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

void cBulkInsert::BindText(int column, QByteArrayView utf8)
{
    if (fallback_) {
        fallbackValues_[column] = QString::fromUtf8(utf8);
        return;
    }
    // An empty text must be bound as text, not as the null a null pointer would give.
    static const char empty[] = "";
    const char *data = utf8.isEmpty() ? empty : utf8.data();
    if (sqlite3_bind_text(prepared_, column + 1, data, int(utf8.size()), SQLITE_STATIC) !=
        SQLITE_OK)
        RaiseFault();
}

void cBulkInsert::BindDouble(int column, double value)
{
    if (fallback_) {
        fallbackValues_[column] = value;
        return;
    }
    if (sqlite3_bind_double(prepared_, column + 1, value) != SQLITE_OK)
        RaiseFault();
}

void cBulkInsert::BindValue(int column, const QVariant &value)
{
    if (fallback_) {
        fallbackValues_[column] = value;
        return;
    }
    int result = SQLITE_OK;
    if (value.isNull()) {
        result = sqlite3_bind_null(prepared_, column + 1);
    } else {
        switch (value.typeId()) {
        case QMetaType::LongLong:
        case QMetaType::Int:
        case QMetaType::Bool:
            result = sqlite3_bind_int64(prepared_, column + 1, value.toLongLong());
            break;
        case QMetaType::Double:
            result = sqlite3_bind_double(prepared_, column + 1, value.toDouble());
            break;
        default:
            // Kept until Step, as a bound text must be.
            texts_[column] = value.toString().toUtf8();
            result = sqlite3_bind_text(prepared_, column + 1, texts_[column].constData(),
                                       int(texts_[column].size()), SQLITE_STATIC);
            break;
        }
    }
    if (result != SQLITE_OK)
        RaiseFault();
}

void cBulkInsert::Step()
{
    if (fallback_) {
        fallback_->Run(fallbackValues_);
        for (QVariant &value : fallbackValues_)
            value = QVariant();
        return;
    }
    const int result = sqlite3_step(prepared_);
    const QString message =
        result == SQLITE_DONE ? QString() : QString::fromUtf8(sqlite3_errmsg(handle_));
    sqlite3_reset(prepared_);
    sqlite3_clear_bindings(prepared_);
    if (result != SQLITE_DONE)
        RaiseFatal(QStringLiteral("Velmora! database"), FaultNumber::Database,
                   message + QStringLiteral(" (") + statement_ + u')');
}

void cBulkInsert::Run(const QVariantList &values)
{
    for (qsizetype index = 0; index < values.size(); ++index)
        BindValue(int(index), values[index]);
    Step();
}
