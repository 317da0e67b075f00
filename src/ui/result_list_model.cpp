#include "ui/result_list_model.h"

#include <QFont>

#include <algorithm>

namespace {

// The weight of a result in the sort by result: white wins first, then draws, black
// wins, double defaults and the rest.
int ResultRank(const QString &text)
{
    if (text == QStringLiteral("1 - 0"))
        return 10;
    if (text == QString::fromUtf8("½ - ½"))
        return 5;
    if (text == QStringLiteral("0 - 1"))
        return -10;
    if (text == QStringLiteral("0 - 0"))
        return -20;
    if (text.isEmpty())
        return -50;
    return -100;
}

// Negative, zero or positive as a sorts before, with or after b in ascending order.
int CompareCells(int column, const QString &a, const QString &b)
{
    if (column == cResultListModel::Board) {
        if (a == b)
            return 0;
        return a.trimmed().toLongLong() < b.trimmed().toLongLong() ? -1 : 1;
    }
    if (column == cResultListModel::Result) {
        const int rankA = ResultRank(a);
        const int rankB = ResultRank(b);
        return rankA == rankB ? 0 : (rankA > rankB ? -1 : 1);
    }
    return a.compare(b);
}

} // namespace

int cResultListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(rows_.size());
}

int cResultListModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant cResultListModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount() || index.column() >= ColumnCount)
        return {};
    const cRow &row = rows_[size_t(index.row())];
    switch (role) {
    case Qt::DisplayRole:
        return row.cells[size_t(index.column())];
    case Qt::TextAlignmentRole:
        if (index.column() == Board || index.column() == WhitePin || index.column() == BlackPin)
            return int(Qt::AlignRight | Qt::AlignVCenter);
        if (index.column() == Result)
            return int(Qt::AlignCenter);
        return int(Qt::AlignLeft | Qt::AlignVCenter);
    case Qt::FontRole:
        // A withdrawn entrant's name is struck through, so a pairing of someone who has
        // left stands out while the round is typed.
        if ((index.column() == WhiteName && row.whiteWithdrawn) ||
            (index.column() == BlackName && row.blackWithdrawn)) {
            QFont font;
            font.setStrikeOut(true);
            font.setItalic(true);
            return font;
        }
        return {};
    default:
        return {};
    }
}

QVariant cResultListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QAbstractTableModel::headerData(section, orientation, role);
    switch (section) {
    case Board:
        return tr("Board");
    case WhitePin:
        return tr("White");
    case WhiteName:
        return tr("Name");
    case Result:
        return tr("Result");
    case BlackPin:
    case BlackName:
        return tr("Black");
    default:
        return QString();
    }
}

void cResultListModel::SetRows(std::vector<cRow> rows)
{
    beginResetModel();
    rows_ = std::move(rows);
    endResetModel();
}

void cResultListModel::SetCell(int row, int column, const QString &text)
{
    rows_[size_t(row)].cells[size_t(column)] = text;
    const QModelIndex cell = index(row, column);
    emit dataChanged(cell, cell, {Qt::DisplayRole});
}

void cResultListModel::SetWithdrawn(int row, int column, bool withdrawn)
{
    cRow &target = rows_[size_t(row)];
    (column == WhiteName ? target.whiteWithdrawn : target.blackWithdrawn) = withdrawn;
    const QModelIndex cell = index(row, column);
    emit dataChanged(cell, cell, {Qt::FontRole});
}

void cResultListModel::Sort(int column, int direction)
{
    const size_t cell = size_t(column);
    emit layoutAboutToBeChanged();
    std::stable_sort(rows_.begin(), rows_.end(), [&](const cRow &a, const cRow &b) {
        const QString &left = a.cells[cell];
        const QString &right = b.cells[cell];
        // A blank cell goes below a filled one whichever way the column runs.
        if (left.trimmed().isEmpty())
            return false;
        if (right.trimmed().isEmpty())
            return true;
        const int order = CompareCells(column, left, right);
        return direction == 8 ? order > 0 : order < 0;
    });
    emit layoutChanged();
}

int cResultListModel::RowOfPosition(const QString &position) const
{
    for (size_t row = 0; row < rows_.size(); ++row)
        if (rows_[row].cells[Position] == position)
            return int(row);
    return -1;
}

QString cResultListModel::RightAligned(const QString &text)
{
    return text.rightJustified(3, u' ');
}
