#include "ui/data_list_model.h"

#include "base/common.h"
#include "database/sql.h"
#include "register/contact.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/player.h"
#include "session/players.h"
#include "session/tournament.h"

#include <QFont>

#include <algorithm>
#include <numeric>

namespace {

// A name filter of the register or the grading list as a LIKE pattern: the text in
// capitals taken literally, then anything. % and _ typed by a person are letters of a
// name, not wildcards.
QString StartsWithPattern(const QString &filter)
{
    QString pattern;
    for (const QChar c : filter.trimmed().toUpper()) {
        if (c == u'%' || c == u'_' || c == u'\\')
            pattern += u'\\';
        pattern += c;
    }
    return pattern + u'%';
}

// yyyymmdd of a stored yyyy-mm-dd date, "" for none: text that sorts as the date.
QString SortDateOf(const QVariant &value)
{
    return TextOf(value).remove(u'-');
}

} // namespace

cDataListModel::cDataListModel(QObject *parent) : QAbstractTableModel(parent) {}

int cDataListModel::ColumnCountOf(DataListKind kind)
{
    switch (kind) {
    case DataListKind::Master:
    case DataListKind::BCFList:
        return 3;
    case DataListKind::Contacts:
        return 2;
    case DataListKind::Entrants:
        return 6;
    case DataListKind::Clubs:
    case DataListKind::Tournaments:
        return 4;
    }
    return 3;
}

void cDataListModel::Reset(DataListKind kind)
{
    beginResetModel();
    kind_ = kind;
    rows_.clear();
    sortColumn_ = -1;
    endResetModel();
}

void cDataListModel::Load(DataListKind kind, const QString &filter)
{
    beginResetModel();
    kind_ = kind;
    rows_.clear();
    sortColumn_ = -1;
    switch (kind) {
    case DataListKind::Master:
        ReadRegister(filter);
        break;
    case DataListKind::Entrants:
        ReadEntrants();
        break;
    case DataListKind::Clubs:
        ReadClubs();
        break;
    case DataListKind::Tournaments:
        ReadTournaments();
        break;
    case DataListKind::BCFList:
        ReadBCFList(filter);
        break;
    case DataListKind::Contacts:
        ReadContacts(filter);
        break;
    }
    rows_.shrink_to_fit();
    endResetModel();
}

void cDataListModel::ReadRegister(const QString &filter)
{
    QString statement = QStringLiteral(
        "SELECT MasterId, IFNULL(Surname, '') || ', ' || IFNULL(Forename, ''), Code FROM Master");
    QVariantList values;
    if (!filter.isEmpty()) {
        statement += QStringLiteral(" WHERE Surname LIKE ? ESCAPE '\\'");
        values << StartsWithPattern(filter);
    }
    QSqlQuery query = RunSql(statement, values);
    query.setForwardOnly(true);
    while (query.next()) {
        cRow row;
        row.cells[KeyColumn] = query.value(0).toString();
        row.cells[NameColumn] = query.value(1).toString();
        row.cells[CodeColumn] = TextOf(query.value(2));
        rows_.push_back(std::move(row));
    }
}

void cDataListModel::ReadBCFList(const QString &filter)
{
    QString statement = QStringLiteral("SELECT Ref, Name FROM BCFMast");
    QVariantList values;
    if (!filter.isEmpty()) {
        statement += QStringLiteral(" WHERE Name LIKE ? ESCAPE '\\'");
        values << StartsWithPattern(filter);
    }
    QSqlQuery query = RunSql(statement, values);
    while (query.next()) {
        cRow row;
        row.cells[KeyColumn] = TextOf(query.value(0));
        row.cells[NameColumn] = TextOf(query.value(1));
        // The code is the key again; the text is shared, not copied.
        row.cells[CodeColumn] = row.cells[KeyColumn];
        rows_.push_back(std::move(row));
    }
}

namespace {

// The rows of the statement whose surname starts with the filter; all for no filter.
QSqlQuery RunSurnameFiltered(QString statement, const QString &filter)
{
    QVariantList values;
    if (!filter.isEmpty()) {
        statement += QStringLiteral(" WHERE Surname LIKE ? ESCAPE '\\'");
        values << StartsWithPattern(filter);
    }
    return RunSql(statement, values);
}

} // namespace

void cDataListModel::ReadContacts(const QString &filter)
{
    // The contacts' table is made the first time anything asks for it.
    cContact::EnsureContactTable();
    QSqlQuery query = RunSurnameFiltered(
        QStringLiteral(
            "SELECT ContactId, IFNULL(Surname, '') || ', ' || IFNULL(Forename, '') FROM Contact"),
        filter);
    while (query.next()) {
        cRow row;
        row.cells[KeyColumn] = TextOf(query.value(0));
        row.cells[NameColumn] = query.value(1).toString();
        rows_.push_back(std::move(row));
    }
}

void cDataListModel::ReadEntrants()
{
    const auto tournament = Control().Tournament();
    if (!tournament)
        return;
    const bool upperCaseSurname = Control().SurnameCase() != 0;
    // The type and default grade are read once for the whole list.
    const cGradeBasis basis = cGradeBasis::Stored(tournament->TournId());
    for (const auto &player : tournament->Players()) {
        cRow row;
        row.cells[KeyColumn] = player->PlayerId();
        row.cells[PinColumn] = QStringLiteral("%1").arg(player->Pin(), 3);
        row.cells[EntrantNameColumn] = player->DisplayName(upperCaseSurname);
        row.cells[GradeColumn] = player->DisplayGrade(basis);
        if (WholeValue(player->Games()) > 0)
            row.cells[ScoreColumn] = player->DisplayScore() + u'/' + player->Games();
        row.cells[WithdrawnColumn] =
            player->Withdrawn() ? QStringLiteral("True") : QStringLiteral("False");
        rows_.push_back(std::move(row));
    }
}

void cDataListModel::ReadClubs()
{
    QSqlQuery query =
        RunSql(QStringLiteral("SELECT Code, Club, County, \"Union\" FROM Club ORDER BY rowid"));
    while (query.next()) {
        cRow row;
        for (int column = 0; column < 4; ++column)
            row.cells[column] = TextOf(query.value(column));
        rows_.push_back(std::move(row));
    }
}

void cDataListModel::ReadTournaments()
{
    QSqlQuery query = RunSql(
        QStringLiteral("SELECT TId, IFNULL(Title, '') || ': ' || IFNULL(Tourn, ''), TDate, TEnd "
                       "FROM Velmora"));
    while (query.next()) {
        cRow row;
        row.cells[KeyColumn] = query.value(0).toString().trimmed();
        row.cells[TitleColumn] = query.value(1).toString();
        QString dates =
            DisplayDateOf(query.value(2)) + QStringLiteral(" - ") + DisplayDateOf(query.value(3));
        // A tournament of one day has no end date: it shows its start alone, with no
        // dash left hanging.
        dates = dates.trimmed();
        if (dates.endsWith(u'-'))
            dates = dates.left(dates.lastIndexOf(u'-')).trimmed();
        row.cells[DatesColumn] = dates;
        row.cells[DatesSortColumn] = SortDateOf(query.value(2)) + SortDateOf(query.value(3));
        rows_.push_back(std::move(row));
    }
}

void cDataListModel::SortBy(int column, bool descending)
{
    if (column < 0 || column >= ColumnCountOf(kind_))
        return;
    // The texts in capitals once, then the row numbers sorted by them: the rows
    // themselves move only once, into their new places.
    std::vector<QString> keys;
    keys.reserve(rows_.size());
    for (const cRow &row : rows_)
        keys.push_back(row.cells[column].toUpper());
    std::vector<int> order(rows_.size());
    std::iota(order.begin(), order.end(), 0);
    // Equal texts keep their order: the row number decides between them.
    std::sort(order.begin(), order.end(), [&keys, descending](int a, int b) {
        const int difference = QString::compare(keys[a], keys[b]);
        if (difference != 0)
            return descending ? difference > 0 : difference < 0;
        return a < b;
    });
    emit layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    const QModelIndexList before = persistentIndexList();
    std::vector<int> newPosition(rows_.size());
    std::vector<cRow> sorted;
    sorted.reserve(rows_.size());
    for (int position = 0; position < int(order.size()); ++position) {
        newPosition[order[position]] = position;
        sorted.push_back(std::move(rows_[order[position]]));
    }
    rows_ = std::move(sorted);
    QModelIndexList after;
    after.reserve(before.size());
    for (const QModelIndex &index : before)
        after << this->index(newPosition[index.row()], index.column());
    changePersistentIndexList(before, after);
    sortColumn_ = column;
    descending_ = descending;
    emit layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

QString cDataListModel::Cell(int row, int column) const
{
    if (row < 0 || row >= int(rows_.size()) || column < 0 || column >= MaxColumns)
        return QString();
    return rows_[row].cells[column];
}

bool cDataListModel::Withdrawn(int row) const
{
    return kind_ == DataListKind::Entrants && Cell(row, WithdrawnColumn) == QLatin1String("True");
}

int cDataListModel::FindKey(const QString &key) const
{
    for (int row = 0; row < int(rows_.size()); ++row) {
        if (rows_[row].cells[KeyColumn] == key)
            return row;
    }
    return -1;
}

bool cDataListModel::SortedOnSearchColumn() const
{
    // Typing searches column 1 of every kind.
    return sortColumn_ == 1;
}

int cDataListModel::HalveFor(const QString &upperText) const
{
    const qsizetype length = upperText.size();
    const auto start = [&](const cRow &row) { return row.cells[1].toUpper().left(length); };
    const auto found = std::partition_point(rows_.begin(), rows_.end(), [&](const cRow &row) {
        const QString head = start(row);
        return descending_ ? upperText < head : head < upperText;
    });
    if (found == rows_.end() || start(*found) != upperText)
        return -1;
    return int(found - rows_.begin());
}

int cDataListModel::FindName(const QString &value) const
{
    if (rows_.empty() || value.isEmpty())
        return -1;
    if (!SortedOnSearchColumn())
        return WalkName(value);
    const QString upperValue = value.toUpper();
    if (kind_ != DataListKind::BCFList)
        return HalveFor(upperValue);
    // The grading list: the first row of the longest start of the value that any row
    // has. Rows that start with a longer start lie among those of the shorter one.
    int found = -1;
    for (qsizetype length = 1; length <= upperValue.size(); ++length) {
        const int row = HalveFor(upperValue.left(length));
        if (row < 0)
            break;
        found = row;
    }
    return found;
}

int cDataListModel::WalkName(const QString &value) const
{
    if (rows_.empty() || value.isEmpty())
        return -1;
    const QString upperValue = value.toUpper();
    const auto matches = [](const cRow &row, const QString &text) {
        return row.cells[1].toUpper().left(text.size()) == text;
    };
    if (kind_ != DataListKind::BCFList) {
        for (int row = 0; row < int(rows_.size()); ++row) {
            if (matches(rows_[row], upperValue))
                return row;
        }
        return -1;
    }
    int found = -1;
    QString text = upperValue.left(1);
    int row = 0;
    while (row < int(rows_.size())) {
        if (matches(rows_[row], text)) {
            found = row;
            if (text.size() < upperValue.size()) {
                text = upperValue.left(text.size() + 1);
                continue;
            }
            break;
        }
        ++row;
    }
    return found;
}

int cDataListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(rows_.size());
}

int cDataListModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCountOf(kind_);
}

QVariant cDataListModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= int(rows_.size()) ||
        index.column() >= ColumnCountOf(kind_))
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return rows_[index.row()].cells[index.column()];
    case Qt::FontRole:
        // A withdrawn entrant is struck out in bold, column 1 on.
        if (index.column() >= 1 && Withdrawn(index.row())) {
            QFont font;
            font.setBold(true);
            font.setStrikeOut(true);
            return font;
        }
        return {};
    default:
        return {};
    }
}

QVariant cDataListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 ||
        section >= ColumnCountOf(kind_))
        return {};
    switch (kind_) {
    case DataListKind::Master:
    case DataListKind::BCFList: {
        static const char *const names[] = {"", "Name", "Code"};
        return tr(names[section]);
    }
    case DataListKind::Contacts: {
        static const char *const names[] = {"", "Name"};
        return tr(names[section]);
    }
    case DataListKind::Entrants: {
        static const char *const names[] = {"", "Pin", "Name", "Grade", "Score", ""};
        return tr(names[section]);
    }
    case DataListKind::Clubs: {
        static const char *const names[] = {"Code", "Club", "County", "Union"};
        return tr(names[section]);
    }
    case DataListKind::Tournaments: {
        static const char *const names[] = {"", "Tournament", "Dates", ""};
        return tr(names[section]);
    }
    }
    return {};
}
