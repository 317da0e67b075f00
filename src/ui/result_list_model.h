#pragma once

#include <QAbstractTableModel>
#include <QString>

#include <array>
#include <vector>

// The cells of the pairing and result grid, one row a game of the round on view. The
// cells are texts of their own, apart from the game rows: a cell blanked on the screen
// (a result cleared with Delete) leaves the game as it was until the next display.
class cResultListModel final : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { Position, Board, WhitePin, WhiteName, Result, BlackPin, BlackName, ColumnCount };

    struct cRow
    {
        std::array<QString, ColumnCount> cells;
        bool whiteWithdrawn = false;
        bool blackWithdrawn = false;
    };

    using QAbstractTableModel::QAbstractTableModel;

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

    void SetRows(std::vector<cRow> rows);
    const cRow &RowAt(int row) const { return rows_[size_t(row)]; }
    QString Cell(int row, int column) const { return rows_[size_t(row)].cells[size_t(column)]; }
    void SetCell(int row, int column, const QString &text);
    void SetWithdrawn(int row, int column, bool withdrawn);
    // Reorders the rows on view by the column in the direction (7 ascending, 8
    // descending); the games themselves keep their order.
    void Sort(int column, int direction);
    // The row whose hidden position cell holds the text, or -1.
    int RowOfPosition(const QString &position) const;

    // A number as the grid shows it: right-aligned in three places.
    static QString RightAligned(const QString &text);

private:
    std::vector<cRow> rows_;
};
