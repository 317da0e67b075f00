#include "ui/entrant_list.h"

#include "base/busy.h"
#include "base/common.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/player.h"
#include "session/players.h"
#include "session/tournament.h"
#include "ui/twips.h"

#include <QFont>
#include <QHeaderView>
#include <QItemSelectionModel>

#include <algorithm>

namespace {

// Widths of the headings in twips, each widened to what its caption needs.
constexpr int HeadingTwips[cEntrantListModel::ColumnCount] = {0, 350, 2000, 550, 600, 0};

} // namespace

int cEntrantListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(rows_.size());
}

int cEntrantListModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant cEntrantListModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= int(rows_.size()))
        return {};
    const Row &row = rows_[size_t(index.row())];
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return row.text[index.column()];
    case Qt::FontRole:
        if (row.withdrawn && index.column() >= Pin) {
            QFont font;
            font.setBold(true);
            font.setStrikeOut(true);
            return font;
        }
        return {};
    case Qt::TextAlignmentRole:
        if (index.column() == Pin || index.column() == Grade || index.column() == Score)
            return int(Qt::AlignRight | Qt::AlignVCenter);
        return int(Qt::AlignLeft | Qt::AlignVCenter);
    default:
        return {};
    }
}

bool cEntrantListModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!index.isValid() || role != Qt::EditRole || index.row() >= int(rows_.size()))
        return false;
    rows_[size_t(index.row())].text[index.column()] = value.toString();
    emit dataChanged(index, index);
    return true;
}

QVariant cEntrantListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case Pin:
        return tr("Pin");
    case Name:
        return tr("Name");
    case Grade:
        return tr("Grade");
    case Score:
        return tr("Score");
    default:
        return QString();
    }
}

QString cEntrantListModel::Text(int row, int column) const
{
    if (row < 0 || row >= int(rows_.size()))
        return {};
    return rows_[size_t(row)].text[column];
}

int cEntrantListModel::RowOfKey(const QString &key) const
{
    for (size_t row = 0; row < rows_.size(); ++row)
        if (rows_[row].text[Key] == key)
            return int(row);
    return -1;
}

void cEntrantListModel::Reload()
{
    beginResetModel();
    rows_.clear();
    if (auto tournament = Control().Tournament()) {
        // The type and default grade are read once for the whole list.
        const cGradeBasis basis = cGradeBasis::Stored(tournament->TournId());
        const bool capitals = Control().SurnameCase() == 1;
        rows_.reserve(size_t(tournament->Players().Count()));
        for (const auto &player : tournament->Players()) {
            Row row;
            row.text[Key] = player->PlayerId();
            row.text[Pin] = player->Pin().rightJustified(3, u' ');
            row.text[Name] = player->DisplayName(capitals);
            row.text[Grade] = player->DisplayGrade(basis);
            if (WholeValue(player->Games()) > 0)
                row.text[Score] = player->DisplayScore() + u'/' + player->Games();
            row.withdrawn = player->Withdrawn();
            row.text[Withdrawn] = row.withdrawn ? QStringLiteral("True") : QStringLiteral("False");
            rows_.push_back(std::move(row));
        }
    }
    std::stable_sort(rows_.begin(), rows_.end(), [this](const Row &a, const Row &b) {
        const int order = a.text[sortColumn_].compare(b.text[sortColumn_]);
        return ascending_ ? order < 0 : order > 0;
    });
    endResetModel();
}

void cEntrantListModel::SortBy(int column, bool ascending)
{
    sortColumn_ = column;
    ascending_ = ascending;
    beginResetModel();
    std::stable_sort(rows_.begin(), rows_.end(), [column, ascending](const Row &a, const Row &b) {
        const int order = a.text[column].compare(b.text[column]);
        return ascending ? order < 0 : order > 0;
    });
    endResetModel();
}

cEntrantList::cEntrantList(QWidget *parent) : QTableView(parent)
{
    model_ = new cEntrantListModel(this);
    setModel(model_);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTabKeyNavigation(false);
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    setColumnHidden(cEntrantListModel::Key, true);
    setColumnHidden(cEntrantListModel::Withdrawn, true);
    horizontalHeader()->setSectionsClickable(true);
    horizontalHeader()->setHighlightSections(false);
    for (int column = cEntrantListModel::Pin; column <= cEntrantListModel::Score; ++column) {
        const int caption =
            fontMetrics().horizontalAdvance(model_->headerData(column, Qt::Horizontal).toString());
        const int digits = fontMetrics().horizontalAdvance(QStringLiteral("0000/00"));
        const int wanted = HeadingTwips[column] / TwipsPerPixel;
        setColumnWidth(column, std::max({wanted * 2, caption + 24,
                                         column == cEntrantListModel::Name ? 0 : digits}));
    }
    horizontalHeader()->setStretchLastSection(true);
    connect(horizontalHeader(), &QHeaderView::sectionClicked, this, &cEntrantList::HeadingClicked);
    connect(this, &QAbstractItemView::doubleClicked, this, [this] { emit RowDoubleClicked(); });
    connect(this, &QAbstractItemView::clicked, this, [this] { emit SelectionChanged(); });
}

QString cEntrantList::SelKey() const
{
    return model_->Text(Row(), cEntrantListModel::Key);
}

QString cEntrantList::SelName() const
{
    return model_->Text(Row(), cEntrantListModel::Name);
}

qint32 cEntrantList::SelPin() const
{
    return qint32(WholeValue(model_->Text(Row(), cEntrantListModel::Pin)));
}

int cEntrantList::Row() const
{
    if (model_->rowCount() == 0)
        return -1;
    const QModelIndex current = currentIndex();
    return current.isValid() ? current.row() : 0;
}

void cEntrantList::SelectRow(int row)
{
    if (model_->rowCount() == 0)
        return;
    row = std::clamp(row, 0, model_->rowCount() - 1);
    const QModelIndex index = model_->index(row, cEntrantListModel::Name);
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect |
                                                 QItemSelectionModel::Rows);
    scrollTo(index);
}

void cEntrantList::setSelKey(const QString &key)
{
    const int row = model_->RowOfKey(key.trimmed());
    SelectRow(row < 0 ? 0 : row);
}

void cEntrantList::DisplayList()
{
    cBusySection busy;
    const QString key = SelKey();
    setUpdatesEnabled(false);
    model_->Reload();
    setUpdatesEnabled(true);
    if (model_->rowCount() > 0)
        setSelKey(key);
}

void cEntrantList::HeadingClicked(int column)
{
    if (model_->rowCount() == 0)
        return;
    const QString key = SelKey();
    model_->HeadingClicked(column);
    setSelKey(key);
    setFocus();
}

void cEntrantListModel::HeadingClicked(int column)
{
    SortBy(column, column == clickedColumn_ ? !ascending_ : true);
    clickedColumn_ = column;
}
