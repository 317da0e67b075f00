#include "ui/master_picker.h"

#include "database/sql.h"
#include "session/busy.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSqlQuery>
#include <QTabBar>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>

int cMasterRowsModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(rows_.size());
}

int cMasterRowsModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant cMasterRowsModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= int(rows_.size()) || role != Qt::DisplayRole)
        return {};
    return rows_[size_t(index.row())].text[index.column()];
}

QVariant cMasterRowsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    if (section == Name)
        return tr("Name");
    if (section == Code)
        return tr("Code");
    return QString();
}

QString cMasterRowsModel::Text(int row, int column) const
{
    if (row < 0 || row >= int(rows_.size()))
        return {};
    return rows_[size_t(row)].text[column];
}

int cMasterRowsModel::RowOfKey(const QString &key) const
{
    for (size_t row = 0; row < rows_.size(); ++row)
        if (rows_[row].text[Key] == key)
            return int(row);
    return -1;
}

void cMasterRowsModel::Load(const QString &filter)
{
    beginResetModel();
    rows_.clear();
    // No filter shows nobody; "*" shows the whole register.
    if (!filter.isEmpty()) {
        QString statement = QStringLiteral("Select MasterId, ifnull(Surname, '') || ', ' || "
                                           "ifnull(Forename, ''), Code From Master");
        QVariantList values;
        if (filter != QStringLiteral("*")) {
            statement += QStringLiteral(" Where Surname Like ? Escape '\\'");
            QString pattern = filter.trimmed().toUpper();
            pattern.replace(u'\\', QStringLiteral("\\\\"))
                .replace(u'%', QStringLiteral("\\%"))
                .replace(u'_', QStringLiteral("\\_"));
            values.append(QString(pattern + u'%'));
        }
        QSqlQuery query = RunSql(statement, values);
        while (query.next()) {
            Row row;
            row.text[Key] = query.value(0).toString();
            row.text[Name] = query.value(1).toString();
            row.text[Code] = query.value(2).toString();
            rows_.push_back(std::move(row));
        }
    }
    Sort();
    endResetModel();
}

void cMasterRowsModel::Sort()
{
    const int column = sortColumn_;
    const bool ascending = ascending_;
    std::stable_sort(rows_.begin(), rows_.end(), [column, ascending](const Row &a, const Row &b) {
        const int order = a.text[column].compare(b.text[column]);
        return ascending ? order < 0 : order > 0;
    });
}

void cMasterRowsModel::SortBy(int column, bool ascending)
{
    beginResetModel();
    sortColumn_ = column;
    ascending_ = ascending;
    Sort();
    endResetModel();
}

cMasterPicker::cMasterPicker(QWidget *parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("cntlMasterList"));
    tabChar = new QTabBar(this);
    tabChar->setObjectName(QStringLiteral("tabChar"));
    tabChar->setExpanding(false);
    tabChar->setUsesScrollButtons(true);
    tabChar->addTab(QStringLiteral("?"));
    for (char16_t letter = u'A'; letter <= u'Z'; ++letter)
        tabChar->addTab(QString(QChar(letter)));
    searchRow_ = new QWidget(this);
    lblSearch = new QLabel(tr("Name:"), searchRow_);
    lblSearch->setObjectName(QStringLiteral("lblSearch"));
    txtSearch = new QLineEdit(searchRow_);
    txtSearch->setObjectName(QStringLiteral("txtSearch"));
    txtSearch->setMaxLength(20);
    cmdSearch = new QPushButton(tr("Search"), searchRow_);
    cmdSearch->setObjectName(QStringLiteral("cmdSearch"));
    cmdSearch->setEnabled(false);
    auto *search = new QHBoxLayout(searchRow_);
    search->setContentsMargins(0, 0, 0, 0);
    search->addWidget(lblSearch);
    search->addWidget(txtSearch, 1);
    search->addWidget(cmdSearch);

    model_ = new cMasterRowsModel(this);
    lstMaster = new QTableView(this);
    lstMaster->setObjectName(QStringLiteral("lstMaster"));
    lstMaster->setModel(model_);
    lstMaster->setSelectionBehavior(QAbstractItemView::SelectRows);
    lstMaster->setSelectionMode(QAbstractItemView::SingleSelection);
    lstMaster->setEditTriggers(QAbstractItemView::NoEditTriggers);
    lstMaster->setTabKeyNavigation(false);
    lstMaster->verticalHeader()->hide();
    lstMaster->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    lstMaster->setColumnHidden(cMasterRowsModel::Key, true);
    lstMaster->setColumnWidth(cMasterRowsModel::Name,
                              fontMetrics().horizontalAdvance(QString(28, u'n')));
    lstMaster->horizontalHeader()->setStretchLastSection(true);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(tabChar);
    layout->addWidget(searchRow_);
    layout->addWidget(lstMaster, 1);

    connect(tabChar, &QTabBar::currentChanged, this, &cMasterPicker::TabSelected);
    connect(txtSearch, &QLineEdit::textChanged, this,
            [this](const QString &text) { cmdSearch->setEnabled(!text.isEmpty()); });
    connect(txtSearch, &QLineEdit::returnPressed, cmdSearch, &QPushButton::click);
    connect(cmdSearch, &QPushButton::clicked, this, [this] {
        Reload(txtSearch->text());
        lstMaster->setFocus();
    });
    connect(lstMaster->horizontalHeader(), &QHeaderView::sectionClicked, this, [this](int column) {
        if (model_->rowCount() == 0)
            return;
        const QString key = SelKey();
        model_->HeadingClicked(column);
        setSelKey(key);
        lstMaster->setFocus();
    });
    connect(lstMaster->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &cMasterPicker::SelectionChanged);
    connect(lstMaster, &QTableView::doubleClicked, this, &cMasterPicker::RowDoubleClicked);
    TabSelected(0);
}

QString cMasterPicker::SelKey() const
{
    const QModelIndex current = lstMaster->currentIndex();
    return model_->Text(current.isValid() ? current.row() : 0, cMasterRowsModel::Key);
}

QString cMasterPicker::SelName() const
{
    const QModelIndex current = lstMaster->currentIndex();
    return model_->Text(current.isValid() ? current.row() : 0, cMasterRowsModel::Name);
}

QString cMasterPicker::SelCode() const
{
    const QModelIndex current = lstMaster->currentIndex();
    return model_->Text(current.isValid() ? current.row() : 0, cMasterRowsModel::Code);
}

void cMasterPicker::SelectRow(int row)
{
    if (model_->rowCount() == 0) {
        emit SelectionChanged();
        return;
    }
    row = std::clamp(row, 0, model_->rowCount() - 1);
    const QModelIndex index = model_->index(row, cMasterRowsModel::Name);
    lstMaster->selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect |
                                                            QItemSelectionModel::Rows);
    lstMaster->scrollTo(index);
}

void cMasterPicker::setSelKey(const QString &key)
{
    const int row = model_->RowOfKey(key.trimmed());
    SelectRow(row < 0 ? 0 : row);
}

void cMasterPicker::SetTab(const QString &key)
{
    if (key.isEmpty())
        return;
    for (int tab = 0; tab < tabChar->count(); ++tab)
        if (tabChar->tabText(tab) == key)
            tabChar->setCurrentIndex(tab);
}

void cMasterPicker::Reload(const QString &filter)
{
    cBusySection busy;
    const QString key = SelKey();
    lstMaster->setUpdatesEnabled(false);
    model_->Load(filter);
    lstMaster->setUpdatesEnabled(true);
    setSelKey(key);
}

void cMasterPicker::DisplayList()
{
    const QString tab = tabChar->tabText(tabChar->currentIndex());
    Reload(tab == QStringLiteral("?") ? txtSearch->text() : tab);
}

void cMasterPicker::TabSelected(int tab)
{
    const bool search = tabChar->tabText(tab) == QStringLiteral("?");
    searchRow_->setVisible(search);
    DisplayList();
}

void cMasterRowsModel::HeadingClicked(int column)
{
    SortBy(column, column == clickedColumn_ ? !ascending_ : true);
    clickedColumn_ = column;
}
