#include "ui/tournament_rows.h"

#include "database/sql.h"
#include "session/common.h"

#include <QSqlQuery>

#include <algorithm>

int cTournamentRowsModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(rows_.size());
}

int cTournamentRowsModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant cTournamentRowsModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= int(rows_.size()) || role != Qt::DisplayRole)
        return {};
    return rows_[size_t(index.row())].text[index.column()];
}

QVariant cTournamentRowsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    if (section == Name)
        return tr("Tournament");
    if (section == Dates)
        return tr("Dates");
    return QString();
}

QString cTournamentRowsModel::Text(int row, int column) const
{
    if (row < 0 || row >= int(rows_.size()))
        return {};
    return rows_[size_t(row)].text[column];
}

int cTournamentRowsModel::RowOfKey(const QString &key) const
{
    for (size_t row = 0; row < rows_.size(); ++row)
        if (rows_[row].text[Key] == key)
            return int(row);
    return -1;
}

void cTournamentRowsModel::Load()
{
    beginResetModel();
    rows_.clear();
    QSqlQuery query = RunSql(QStringLiteral("Select TId, Title, Tourn, TDate, TEnd From Velmora"));
    while (query.next()) {
        Row row;
        row.text[Key] = query.value(0).toString().trimmed();
        row.text[Name] =
            query.value(1).toString() + QStringLiteral(": ") + query.value(2).toString();
        const QString from = IsoToDisplayDate(query.value(3).toString());
        const QString to = IsoToDisplayDate(query.value(4).toString());
        // A tournament with no end date shows its start date alone.
        row.text[Dates] = to.isEmpty() ? from : from + QStringLiteral(" - ") + to;
        row.text[DateOrder] = query.value(3).toString().left(10).remove(u'-') +
                              query.value(4).toString().left(10).remove(u'-');
        rows_.push_back(std::move(row));
    }
    Sort();
    endResetModel();
}

void cTournamentRowsModel::Sort()
{
    const int column = sortColumn_;
    const bool ascending = ascending_;
    std::stable_sort(rows_.begin(), rows_.end(), [column, ascending](const Row &a, const Row &b) {
        const int order = a.text[column].compare(b.text[column]);
        return ascending ? order < 0 : order > 0;
    });
}

void cTournamentRowsModel::HeadingClicked(int column)
{
    const int sortColumn = column == Dates ? DateOrder : column;
    const bool firstAscending = sortColumn != DateOrder;
    beginResetModel();
    // The first click on a heading sorts its first way, whatever order the list had.
    ascending_ = sortColumn == clickedColumn_ ? !ascending_ : firstAscending;
    sortColumn_ = sortColumn;
    clickedColumn_ = sortColumn;
    Sort();
    endResetModel();
}
