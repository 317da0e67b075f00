#include "register/contact.h"

#include "base/common.h"
#include "database/schema.h"
#include "database/sql.h"

cContact::cContact() : cPersonRecord(QStringLiteral("Contact"), QStringLiteral("ContactId")) {}

bool cContact::DeleteRequired() const
{
    EnsureContactTable();
    return !SqlScalar(QStringLiteral("Select 1 From Contact Where ContactId = ? Limit 1"),
                      {WholeValue(ContactId())})
                .isNull();
}

QString cContact::NextContactId()
{
    EnsureContactTable();
    const QVariant maximum = SqlScalar(QStringLiteral("Select Max(ContactId) From Contact"));
    if (maximum.isNull())
        return QStringLiteral("1");
    return QString::number(maximum.toLongLong() + 1);
}

void cContact::EnsureContactTable()
{
    const QVariant present = SqlScalar(
        QStringLiteral("Select 1 From sqlite_master Where type = 'table' And name = 'Contact'"));
    if (!present.isNull())
        return;
    TableDefinition table = Schema::MasterTable();
    table.name = QStringLiteral("Contact");
    table.fields[0].name = QStringLiteral("ContactId");
    table.indexes = {{QStringLiteral("ContactIndex"), {QStringLiteral("ContactId")}}};
    cTransaction transaction;
    Schema::CreateTable(table);
    transaction.Commit();
}

QString cContact::NextId() const
{
    return NextContactId();
}

void cContact::PrepareTable() const
{
    EnsureContactTable();
}
