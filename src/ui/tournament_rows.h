#pragma once

#include <QAbstractTableModel>

#include <vector>

// The tournaments of the file as a list: key (TId), "Title: Event", the dates and a
// hidden key of both dates for sorting. It starts newest first.
class cTournamentRowsModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { Key, Name, Dates, DateOrder, ColumnCount };

    using QAbstractTableModel::QAbstractTableModel;

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

    void Load();
    // A click on a heading: the dates sort on their hidden key, newest first at the
    // first click; the names sort ascending first. A second click turns the order.
    void HeadingClicked(int column);
    QString Text(int row, int column) const;
    int RowOfKey(const QString &key) const;

private:
    struct Row
    {
        QString text[ColumnCount];
    };
    void Sort();

    std::vector<Row> rows_;
    int sortColumn_ = DateOrder;
    bool ascending_ = false;
    // The column whose heading was clicked last; none before the first click.
    int clickedColumn_ = -1;
};
