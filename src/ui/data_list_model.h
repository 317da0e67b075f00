#pragma once

#include "ui/packed_cells.h"

#include <QAbstractTableModel>
#include <QString>

#include <memory>
#include <vector>

// The kinds of list that a data list shows; the numbers are those the windows keep.
enum class DataListKind : qint32 {
    Master = 0,
    Entrants = 1,
    Clubs = 2,
    Tournaments = 3,
    BCFList = 4,
    Contacts = 5,
};

// The rows of one data list, read in one pass into compact rows and sorted in memory,
// so that a list of the whole register stays quick to show, sort and search. Column 0
// is the key of a row; which columns the view shows is the control's business.
class cDataListModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    // The columns as each kind numbers them.
    enum Column : int {
        KeyColumn = 0,
        // Master players and the grading list.
        NameColumn = 1,
        CodeColumn = 2,
        // Entrants.
        PinColumn = 1,
        EntrantNameColumn = 2,
        GradeColumn = 3,
        ScoreColumn = 4,
        WithdrawnColumn = 5,
        // Clubs.
        ClubCodeColumn = 0,
        ClubColumn = 1,
        CountyColumn = 2,
        UnionColumn = 3,
        // Tournaments.
        TitleColumn = 1,
        DatesColumn = 2,
        DatesSortColumn = 3,
    };
    static constexpr int MaxColumns = 6;
    // The register and the contacts keep the surname alone beside the columns shown:
    // a letter tab looks at the surname, not at the name as shown.
    static constexpr int RegisterSurnameColumn = 3;
    static constexpr int RegisterColumns = 4;
    static constexpr int ContactSurnameColumn = 2;
    static constexpr int ContactColumns = 3;

    explicit cDataListModel(QObject *parent = nullptr);

    static int ColumnCountOf(DataListKind kind);

    // True for the kinds read whole and filtered in memory: the register, the grading
    // list and the contacts.
    static bool ReadWhole(DataListKind kind);
    // Reads the whole register or grading list ahead, at a quiet moment, so that the
    // first letter tab shows at once; a later load reads it again only when the
    // database has changed.
    static void Prepare(DataListKind kind);

    // Reads the rows of the kind. The filter is the one the control stores: "" for
    // every row; for the register and the grading list any other text keeps the names
    // that start with it, in capitals or not, taken literally.
    void Load(DataListKind kind, const QString &filter);
    // No rows, of the kind.
    void Reset(DataListKind kind);
    // Text order of one column; equal texts keep the order they had.
    void SortBy(int column, bool descending);

    DataListKind Kind() const { return kind_; }
    int RowCount() const { return int(order_.size()); }
    QString Cell(int row, int column) const;
    bool Withdrawn(int row) const;

    // The first row whose key is the value, or -1.
    int FindKey(const QString &key) const;
    // The row that typing the value finds, by the present order: the first row whose
    // name column starts with the value in capitals; for the grading list the first
    // row of the longest start of the value that some row has. -1 when nothing fits.
    // Rows sorted on the name column are searched by halving; other orders are walked.
    int FindName(const QString &value) const;
    // The same answer by walking every row in order, whatever the sort.
    int WalkName(const QString &value) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

private:
    // The whole register, grading list or contacts, read again only when the database
    // may have changed since it was last read; lists of several windows share it.
    static std::shared_ptr<const cPackedCells> WholeList(DataListKind kind);
    // Shows the rows of the whole list whose name starts with the filter, "" all.
    void KeepRowsStartingWith(const QString &filter);
    // The first row, from the start, whose search column in capitals starts with the
    // text, or -1; the rows must be sorted on that column.
    int HalveFor(const QString &upperText) const;
    bool SortedOnSearchColumn() const;
    // The row numbers in the text order of a column, in capitals; equal texts keep
    // the order they had.
    std::vector<int> SortedOrder(int column, bool descending) const;

    DataListKind kind_ = DataListKind::Master;
    std::shared_ptr<const cPackedCells> cells_;
    // The stored row shown at each place, in the present order.
    std::vector<int> order_;
    int sortColumn_ = -1;
    bool descending_ = false;
};
