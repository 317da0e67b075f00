#pragma once

#include <QAbstractTableModel>
#include <QWidget>

#include <vector>

class QLabel;
class QLineEdit;
class QPushButton;
class QTabBar;
class QTableView;

// The register as a list of key, name ("Surname, Forename") and BCF code, narrowed by
// the start of the surname. An empty filter shows nobody and "*" everybody.
class cMasterRowsModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { Key, Name, Code, ColumnCount };

    using QAbstractTableModel::QAbstractTableModel;

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

    void Load(const QString &filter);
    void SortBy(int column, bool ascending);
    // A click on a heading: ascending at the first click on it, then the other way.
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
    int sortColumn_ = Name;
    bool ascending_ = true;
    int clickedColumn_ = -1;
};

// The register side of the entry desk: a tab for each initial and a "?" tab that
// searches by name, over the list of master players.
class cMasterPicker : public QWidget
{
    Q_OBJECT

public:
    explicit cMasterPicker(QWidget *parent = nullptr);

    QString SelKey() const;
    void setSelKey(const QString &key);
    QString SelName() const;
    QString SelCode() const;
    // Selects the tab whose caption is the text; "" is ignored.
    void SetTab(const QString &key);
    // Reloads the list for the selected tab, keeping the selected key.
    void DisplayList();

    QTableView *lstMaster;
    QTabBar *tabChar;
    QLabel *lblSearch;
    QLineEdit *txtSearch;
    QPushButton *cmdSearch;

signals:
    void SelectionChanged();
    void RowDoubleClicked();

private:
    void TabSelected(int tab);
    void Reload(const QString &filter);
    void SelectRow(int row);

    cMasterRowsModel *model_;
    QWidget *searchRow_;
};
