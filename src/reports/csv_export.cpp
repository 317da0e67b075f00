// The comma-separated exports: the register through SQL, with every value quoted,
// and the entrants of the open tournament, with plain values. The two formats differ
// on purpose; the tools that read them know each as it is. Both double a quote inside
// a quoted value, and the plain one quotes a value that holds a comma, a quote or a
// line break, so that any reader of comma-separated files gets the values back.

#include "base/app_info.h"
#include "base/common.h"
#include "base/fatal_fault.h"
#include "base/user_interaction.h"
#include "database/sql.h"
#include "register/master.h"
#include "reports/report_options.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/player.h"
#include "session/players.h"

#include <QDir>
#include <QIODevice>
#include <QSaveFile>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QStringList>

#include <functional>
#include <memory>

namespace {

// Jet's fault for a recordset with no row to move to.
constexpr int NoCurrentRecord = 3021;

void WriteLine(QIODevice &device, const QString &source, const QString &line)
{
    const QByteArray bytes = line.toUtf8() + QByteArrayLiteral("\r\n");
    if (device.write(bytes) != bytes.size())
        RaiseFatal(source, FaultNumber::File,
                   QStringLiteral("The export could not be written: ") + device.errorString());
}

// A value between double quotes, an inner quote doubled, as every reader of
// comma-separated files takes it.
QString Quoted(const QString &value)
{
    QString doubled = value;
    doubled.replace(u'"', QStringLiteral("\"\""));
    return u'"' + doubled + u'"';
}

// A value as it stands, or quoted when it holds a comma, a quote or a line break,
// which would otherwise split or break its column.
QString QuotedWhenNeeded(const QString &value)
{
    const bool needed = value.contains(u',') || value.contains(u'"') || value.contains(u'\n') ||
                        value.contains(u'\r');
    return needed ? Quoted(value) : value;
}

// Each value followed by a comma, with the last comma cut.
QString CommaLine(const QStringList &values)
{
    QString line;
    for (const QString &value : values)
        line += value + u',';
    line.chop(1);
    return line;
}

QString SelectionCondition(PlayerSelection selection)
{
    switch (selection) {
    case PlayerSelection::User1:
        return QStringLiteral(" Where Special1 = 'Y'");
    case PlayerSelection::User2:
        return QStringLiteral(" Where Special2 = 'Y'");
    case PlayerSelection::User3:
        return QStringLiteral(" Where Special3 = 'Y'");
    case PlayerSelection::User4:
        return QStringLiteral(" Where Special4 = 'Y'");
    case PlayerSelection::All:
    case PlayerSelection::Tournament:
        break;
    }
    return QString();
}

// The header of a register column: the field's name, or for a user-defined flag
// the name the organiser gave it.
QString RegisterCaption(const QString &field, const cControl &control)
{
    if (field == QStringLiteral("Special1"))
        return control.UserDefined1();
    if (field == QStringLiteral("Special2"))
        return control.UserDefined2();
    if (field == QStringLiteral("Special3"))
        return control.UserDefined3();
    if (field == QStringLiteral("Special4"))
        return control.UserDefined4();
    return field;
}

// Writes an export to its file, replacing a file that stands there only when the
// whole export is written. A place that can't be written or a disk that fills up
// ends the export with a message; the program goes on.
void ExportToFile(const QString &path, const std::function<void(QIODevice &)> &write)
{
    QSaveFile file(path);
    QString reason;
    // Unbuffered, so that a write the disk refuses fails at once, where it is seen.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        reason = file.errorString();
    } else {
        try {
            write(file);
        } catch (const cFatalFault &fault) {
            if (fault.Number() != FaultNumber::File)
                throw;
            reason = fault.Description();
            file.cancelWriting();
        }
        if (reason.isEmpty() && !file.commit())
            reason = file.errorString();
    }
    if (!reason.isEmpty()) {
        Interaction().ShowMessage(QStringLiteral("The export file ") +
                                      QDir::toNativeSeparators(path) +
                                      QStringLiteral(" could not be written.\n\n") + reason,
                                  MessageIcon::Exclamation, AppInfo::Title());
        return;
    }
    Interaction().ShowMessage(QStringLiteral("Export Completed."), MessageIcon::Plain,
                              AppInfo::Title());
}

} // namespace

void cControl::ListPlayersExport(QIODevice &device, const cExportOptions &options) const
{
    const QString source = QStringLiteral("cControl.ListPlayersExport");
    QString fields = QStringLiteral("Surname, Forename, ");
    if (options.Personal)
        fields += QStringLiteral("DOB, Age, Gender, ");
    if (options.Contact)
        fields += QStringLiteral(
            "Address1, Address2, Address3, Address4 as County, Postcode, Phone, email, ");
    if (options.Club)
        fields += QStringLiteral("Club, School, ClubCode, ClubName, \"Union\", Nation, ");
    // Grade and letter joined as one text; a missing part adds nothing.
    if (options.Grade)
        fields += QStringLiteral(
            "ifnull(Grade, '') || ifnull(GLett, '') AS LongPlayGrade, "
            "ifnull(RGrade, '') || ifnull(RLett, '') AS RapidPlayGrade, ECode AS BCFCode, "
            "ELO AS Fide, GMTitle, ");
    if (options.User)
        fields += QStringLiteral("Special1, Special2, Special3, Special4, ");
    fields.chop(2);

    QSqlQuery rows = RunSql(QStringLiteral("Select ") + fields + QStringLiteral(" From Master") +
                            SelectionCondition(options.Selection) +
                            QStringLiteral(" order by Surname, Forename "));
    if (!rows.next())
        RaiseFatal(source, NoCurrentRecord, QStringLiteral("No current record."));

    const QSqlRecord record = rows.record();
    QStringList header;
    for (int column = 0; column < record.count(); ++column)
        header.append(Quoted(RegisterCaption(record.fieldName(column), *this)));
    WriteLine(device, source, CommaLine(header));

    const int dobColumn = record.indexOf(QStringLiteral("DOB"));
    do {
        QStringList values;
        for (int column = 0; column < record.count(); ++column) {
            const QVariant value = rows.value(column);
            values.append(Quoted(column == dobColumn ? DisplayDateOf(value) : TextOf(value)));
        }
        WriteLine(device, source, CommaLine(values));
    } while (rows.next());
}

void cControl::ListPlayersExport(const cExportOptions &options) const
{
    ExportToFile(options.Destination,
                 [this, &options](QIODevice &file) { ListPlayersExport(file, options); });
}

void cPlayers::ListPlayersExport(QIODevice &device, const cExportOptions &options) const
{
    const QString source = QStringLiteral("cPlayers.ListPlayersExport");
    const cControl &control = Control();

    QString header = QStringLiteral("Surname, Forename, ");
    if (options.Personal)
        header += QStringLiteral("DOB, Age, ");
    if (options.Contact)
        header +=
            QStringLiteral("Address1, Address2, Address3, Address4, Postcode, Phone, email, ");
    if (options.Club)
        header += QStringLiteral("Club, School, ClubCode, ClubName, ");
    if (options.Grade)
        header += QStringLiteral("Grade,  BCF Code, GM Title, ");
    if (options.User)
        for (const QString &caption : {control.UserDefined1(), control.UserDefined2(),
                                       control.UserDefined3(), control.UserDefined4()})
            header += QuotedWhenNeeded(caption) + QStringLiteral(", ");
    if (options.Results)
        header += QStringLiteral("Score, Performance Grade, ");
    header.chop(2);
    WriteLine(device, source, header);

    for (const std::shared_ptr<cPlayer> &player : *this) {
        cMaster master;
        master.Load(player->MasterId());
        QStringList values{player->Surname(), player->Forename()};
        if (options.Personal)
            values << player->DOB() << player->Age();
        if (options.Contact)
            values << master.Address1() << master.Address2() << master.Address3()
                   << master.Address4() << master.Postcode() << master.Phone() << master.eMail();
        if (options.Club)
            values << player->Club() << player->School() << player->ClubCode()
                   << player->ClubName();
        if (options.Grade)
            values << player->DisplayGrade() << player->BCFCode() << player->GMTitle();
        if (options.User)
            values << master.Special1() << master.Special2() << master.Special3()
                   << master.Special4();
        if (options.Results)
            values << player->Score() << player->PerformanceGrade();
        for (QString &value : values)
            value = QuotedWhenNeeded(value);
        WriteLine(device, source, CommaLine(values));
    }
}

void cPlayers::ListPlayersExport(const cExportOptions &options) const
{
    ExportToFile(options.Destination,
                 [this, &options](QIODevice &file) { ListPlayersExport(file, options); });
}
