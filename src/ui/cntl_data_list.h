#pragma once

#include "ui/data_list_model.h"

#include <QWidget>

#include <array>

class QLabel;
class QTableView;
class QTimer;

// The grid that every browsing window embeds: one of six kinds of list (0 master
// players, 1 entrants of the open tournament, 2 clubs, 3 tournaments, 4 the grading
// list, 5 contacts), sorted by a click on a heading, searched as the user types, with the
// selection kept by key across sorts and reloads. Callers ask it for the key, name,
// pin or code of the selected row.
class cntlDataList : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(qint32 DisplayType READ DisplayType WRITE setDisplayType)

public:
    // The sort modes the heading buttons keep.
    static constexpr int SortAscending = 7;
    static constexpr int SortDescending = 8;
    // How long typed text is kept after the last key.
    static constexpr int TypedTextMilliseconds = 5000;
    // Type-ahead puts the found row this many rows below the top of the grid.
    static constexpr int TypedRowOffset = 5;

    explicit cntlDataList(QWidget *parent = nullptr);

    qint32 DisplayType() const { return qint32(kind_); }
    // Takes the kind, with its headings, column widths and first sort. The rows are
    // read by the next DisplayList.
    void setDisplayType(qint32 value);
    QString DisplayFilter() const { return filter_; }
    // "" shows no rows at all and "*" every row; other text narrows the register and
    // the grading list to the names that start with it.
    void setDisplayFilter(const QString &value);

    // Column 0 of the current row, "" when the grid is empty. Setting selects the row
    // of that key, or the first row when no row has it.
    QString SelKey() const;
    void setSelKey(const QString &key);
    // The name of the current row, "" when the grid is empty. Setting selects the row
    // that typing the name would find.
    QString SelName() const;
    void setSelName(const QString &name);
    // The pin of the current entrant; 0 for the other kinds.
    qint32 SelPin() const;
    // The code of the current master player; "" for the other kinds.
    QString SelCode() const;
    // The current row, -1 when the grid is empty.
    qint32 Row() const;
    qint32 RowCount() const;
    // What the user has typed in the grid, as lblQStr shows it.
    QString TypedText() const { return typed_; }
    // The present sort: column and SortAscending or SortDescending.
    int SortColumn() const { return sortColumn_; }
    int SortMode() const { return sortMode_; }

    // Reads the rows again, with the filter, and sorts them as they were sorted.
    void DisplayList();
    void Refresh();
    void SetFocus();
    // What a click on the heading of the column does.
    void ClickHeading(int column);

    const cDataListModel *Model() const { return model_; }

    QTableView *lstData;
    QLabel *lblQStr;
    QTimer *tmrQuery;

signals:
    // The selected row has changed, by the user or by a search.
    void SelectionChanged();
    // The grid was double-clicked.
    void DoubleClicked();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    enum class SearchMode { Key, Name };

    void ApplyColumns();
    void SortRows();
    // Selects the row the search finds, or the first row, at the height of the row
    // selected before it; raises the selection event when the grid is on view.
    void Search(SearchMode mode, const QString &value);
    void SelectRow(int row);
    void SetGridTopRow(int offset);
    int TopRow() const;
    void RefreshRowOffset();
    void TypeKey(QKeyEvent *event);
    void ClearTypedText();

    cDataListModel *model_;
    DataListKind kind_ = DataListKind::Master;
    QString filter_;
    QString typed_;
    int rowOffset_ = 0;
    int sortColumn_ = 1;
    int sortMode_ = SortAscending;
    // The direction each heading last sorted in; 0 for all but the sort column's.
    std::array<int, cDataListModel::MaxColumns> headingTags_{};
    // True while the rows are reloaded or re-sorted: the grid counts as hidden then.
    bool quiet_ = false;
};
