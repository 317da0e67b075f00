#pragma once

#include <QAbstractTableModel>
#include <QTableView>

#include <vector>

// The entrants of the open tournament as a list: key (PlayerId, hidden), pin, name,
// grade, score and the withdrawn mark (hidden). Withdrawn entrants are struck out in
// bold. The list is read from the tournament's collection, not from the file.
class cEntrantListModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { Key, Pin, Name, Grade, Score, Withdrawn, ColumnCount };

    using QAbstractTableModel::QAbstractTableModel;

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;

    // Reads the rows again from the open tournament's entrants and sorts them.
    void Reload();
    // Sorts by the text of a column, ascending or descending; equal texts keep their order.
    void SortBy(int column, bool ascending);
    // A click on a heading: ascending at the first click on it, then the other way.
    void HeadingClicked(int column);
    QString Text(int row, int column) const;
    // The row of the key, or -1.
    int RowOfKey(const QString &key) const;

private:
    struct Row
    {
        QString text[ColumnCount];
        bool withdrawn = false;
    };
    std::vector<Row> rows_;
    int sortColumn_ = Pin;
    bool ascending_ = true;
    int clickedColumn_ = -1;
};

// The grid of the entrants: a click on a heading sorts on that column, ascending
// first and then the other way, and the selected entrant stays selected across a
// sort or a reload.
class cEntrantList : public QTableView
{
    Q_OBJECT

public:
    explicit cEntrantList(QWidget *parent = nullptr);

    cEntrantListModel *Model() const { return model_; }
    // The PlayerId of the current row, or "" with no rows.
    QString SelKey() const;
    void setSelKey(const QString &key);
    // The name of the current row, or "" with no rows.
    QString SelName() const;
    qint32 SelPin() const;
    int Row() const;
    // Reloads the rows from the tournament, keeping the sort.
    void DisplayList();

signals:
    // The selected row changed, or a row was clicked.
    void SelectionChanged();
    void RowDoubleClicked();

private:
    void HeadingClicked(int column);
    void SelectRow(int row);

    cEntrantListModel *model_;
};
