#include "ui/cntl_data_list.h"

#include "base/busy.h"
#include "base/common.h"
#include "ui/twips.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QScrollBar>
#include <QTableView>
#include <QTimer>
#include <QVBoxLayout>

namespace {

// The grid lays out its scroll range at once when asked, so that a found row can be
// put at its height right after a reload.
class cDataGrid : public QTableView
{
public:
    using QTableView::QTableView;
    using QTableView::updateGeometries;
};

struct cHeading
{
    int column;
    int twips; // 0: the rest of the width
};

std::vector<cHeading> HeadingsOf(DataListKind kind)
{
    switch (kind) {
    case DataListKind::Master:
    case DataListKind::BCFList:
        return {{1, 2000}, {2, 0}};
    case DataListKind::Contacts:
        return {{1, 0}};
    case DataListKind::Entrants:
        return {{1, 350}, {2, 2000}, {3, 550}, {4, 600}};
    case DataListKind::Clubs:
        return {{0, 600}, {1, 3000}, {2, 700}, {3, 675}};
    case DataListKind::Tournaments:
        return {{1, 5000}, {2, 2150}};
    }
    return {};
}

} // namespace

cntlDataList::cntlDataList(QWidget *parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("cntlDataList"));
    model_ = new cDataListModel(this);
    model_->setObjectName(QStringLiteral("dtData"));

    auto *grid = new cDataGrid(this);
    lstData = grid;
    lstData->setObjectName(QStringLiteral("lstData"));
    lstData->setModel(model_);
    lstData->setSelectionBehavior(QAbstractItemView::SelectRows);
    lstData->setSelectionMode(QAbstractItemView::SingleSelection);
    lstData->setEditTriggers(QAbstractItemView::NoEditTriggers);
    lstData->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    lstData->setTabKeyNavigation(false);
    lstData->setWordWrap(false);
    lstData->setShowGrid(false);
    lstData->verticalHeader()->hide();
    lstData->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    lstData->verticalHeader()->setDefaultSectionSize(lstData->fontMetrics().height() + 4);
    lstData->horizontalHeader()->setSectionsClickable(true);
    lstData->horizontalHeader()->setHighlightSections(false);
    lstData->horizontalHeader()->setStretchLastSection(true);
    lstData->horizontalHeader()->setMinimumSectionSize(8);
    lstData->horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
    lstData->installEventFilter(this);

    lblQStr = new QLabel(this);
    lblQStr->setObjectName(QStringLiteral("lblQStr"));
    lblQStr->setMinimumHeight(lblQStr->fontMetrics().height());

    tmrQuery = new QTimer(this);
    tmrQuery->setObjectName(QStringLiteral("tmrQuery"));
    tmrQuery->setSingleShot(true);
    tmrQuery->setInterval(TypedTextMilliseconds);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->addWidget(lstData, 1);
    layout->addWidget(lblQStr);
    setFocusProxy(lstData);

    connect(tmrQuery, &QTimer::timeout, this, &cntlDataList::ClearTypedText);
    connect(lstData->horizontalHeader(), &QHeaderView::sectionClicked, this,
            &cntlDataList::ClickHeading);
    connect(lstData, &QAbstractItemView::doubleClicked, this, [this] { emit DoubleClicked(); });
    connect(lstData->selectionModel(), &QItemSelectionModel::currentRowChanged, this, [this] {
        if (quiet_)
            return;
        RefreshRowOffset();
        emit SelectionChanged();
    });
    connect(lstData->verticalScrollBar(), &QScrollBar::valueChanged, this, [this] {
        if (!quiet_)
            RefreshRowOffset();
    });

    setDisplayType(0);
}

void cntlDataList::setDisplayType(qint32 value)
{
    if (value < 0 || value > qint32(DataListKind::Contacts))
        value = 0;
    kind_ = DataListKind(value);
    headingTags_.fill(0);
    if (kind_ == DataListKind::Tournaments) {
        // Newest first.
        sortColumn_ = cDataListModel::DatesSortColumn;
        sortMode_ = SortDescending;
    } else {
        sortColumn_ = 1;
        sortMode_ = SortAscending;
    }
    quiet_ = true;
    model_->Reset(kind_);
    quiet_ = false;
    ApplyColumns();
}

void cntlDataList::setDisplayFilter(const QString &value)
{
    if (value.isEmpty())
        filter_ = QStringLiteral("<empty list>");
    else if (value == QLatin1String("*"))
        filter_.clear();
    else
        filter_ = value;
}

void cntlDataList::ApplyColumns()
{
    QHeaderView *header = lstData->horizontalHeader();
    const int columns = cDataListModel::ColumnCountOf(kind_);
    for (int column = 0; column < columns; ++column)
        lstData->setColumnHidden(column, true);
    for (const cHeading &heading : HeadingsOf(kind_)) {
        lstData->setColumnHidden(heading.column, false);
        if (heading.twips > 0)
            header->resizeSection(heading.column, heading.twips / TwipsPerPixel);
    }
    header->setSortIndicatorShown(true);
    const int shownColumn =
        (kind_ == DataListKind::Tournaments && sortColumn_ == cDataListModel::DatesSortColumn)
            ? int(cDataListModel::DatesColumn)
            : sortColumn_;
    header->setSortIndicator(shownColumn,
                             sortMode_ == SortAscending ? Qt::AscendingOrder : Qt::DescendingOrder);
}

void cntlDataList::DisplayList()
{
    cBusySection busy;
    const QString key = SelKey();
    quiet_ = true;
    model_->Load(kind_, filter_);
    ApplyColumns();
    SortRows();
    if (model_->RowCount() > 0) {
        const int row = key.isEmpty() ? -1 : model_->FindKey(key);
        SelectRow(row < 0 ? 0 : row);
        SetGridTopRow(rowOffset_);
    }
    quiet_ = false;
    if (SelKey() != key)
        emit SelectionChanged();
}

void cntlDataList::SortRows()
{
    model_->SortBy(sortColumn_, sortMode_ == SortDescending);
}

void cntlDataList::ClickHeading(int column)
{
    if (model_->RowCount() == 0 || column < 0 || column >= cDataListModel::MaxColumns)
        return;
    const QString key = SelKey();
    quiet_ = true;
    int firstMode = SortAscending;
    sortColumn_ = column;
    if (kind_ == DataListKind::Tournaments && column == cDataListModel::DatesColumn) {
        sortColumn_ = cDataListModel::DatesSortColumn;
        firstMode = SortDescending;
    }
    const int tag = headingTags_[column];
    headingTags_.fill(0);
    headingTags_[column] = tag != firstMode
                               ? firstMode
                               : (firstMode == SortAscending ? SortDescending : SortAscending);
    sortMode_ = headingTags_[column];
    SortRows();
    ApplyColumns();
    // The grid counts as hidden while it is sorted, so finding the row again raises
    // no selection event: the selection is the same row.
    Search(SearchMode::Key, key);
    quiet_ = false;
    RefreshRowOffset();
    lstData->setFocus();
}

void cntlDataList::Search(SearchMode mode, const QString &value)
{
    if (model_->RowCount() == 0)
        return;
    int found = -1;
    if (!value.isEmpty())
        found = mode == SearchMode::Key ? model_->FindKey(value) : model_->FindName(value);
    const bool wasQuiet = quiet_;
    quiet_ = true;
    SelectRow(found < 0 ? 0 : found);
    SetGridTopRow(rowOffset_);
    quiet_ = wasQuiet;
    RefreshRowOffset();
    if (!quiet_)
        emit SelectionChanged();
}

void cntlDataList::SelectRow(int row)
{
    const int columns = model_->columnCount();
    const QModelIndex first = model_->index(row, 0);
    const QModelIndex last = model_->index(row, columns - 1);
    // The cursor stands in the first column on view, so that the arrow keys move it.
    int shown = 0;
    while (shown < columns - 1 && lstData->isColumnHidden(shown))
        ++shown;
    lstData->selectionModel()->setCurrentIndex(model_->index(row, shown),
                                               QItemSelectionModel::NoUpdate);
    lstData->selectionModel()->select(QItemSelection(first, last),
                                      QItemSelectionModel::ClearAndSelect);
}

int cntlDataList::TopRow() const
{
    return lstData->verticalScrollBar()->value();
}

void cntlDataList::SetGridTopRow(int offset)
{
    const int row = Row();
    if (row < 0)
        return;
    static_cast<cDataGrid *>(lstData)->updateGeometries();
    lstData->verticalScrollBar()->setValue(qMax(0, row - offset));
}

void cntlDataList::RefreshRowOffset()
{
    const int row = Row();
    if (row >= 0)
        rowOffset_ = row - TopRow();
}

QString cntlDataList::SelKey() const
{
    return model_->Cell(Row(), cDataListModel::KeyColumn);
}

void cntlDataList::setSelKey(const QString &key)
{
    Search(SearchMode::Key, key);
}

QString cntlDataList::SelName() const
{
    const int column = kind_ == DataListKind::Entrants ? int(cDataListModel::EntrantNameColumn)
                                                       : int(cDataListModel::NameColumn);
    return model_->Cell(Row(), column);
}

void cntlDataList::setSelName(const QString &name)
{
    Search(SearchMode::Name, name);
}

qint32 cntlDataList::SelPin() const
{
    if (kind_ != DataListKind::Entrants)
        return 0;
    return qint32(WholeValue(model_->Cell(Row(), cDataListModel::PinColumn).trimmed()));
}

QString cntlDataList::SelCode() const
{
    if (kind_ != DataListKind::Master)
        return QString();
    return model_->Cell(Row(), cDataListModel::CodeColumn);
}

qint32 cntlDataList::Row() const
{
    if (model_->RowCount() == 0)
        return -1;
    const QModelIndex current = lstData->selectionModel()->currentIndex();
    return current.isValid() ? current.row() : -1;
}

qint32 cntlDataList::RowCount() const
{
    return model_->RowCount();
}

void cntlDataList::Refresh()
{
    lstData->viewport()->update();
}

void cntlDataList::SetFocus()
{
    lstData->setFocus();
}

bool cntlDataList::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == lstData && event->type() == QEvent::KeyPress) {
        auto *key = static_cast<QKeyEvent *>(event);
        const bool command =
            key->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
        const QString text = key->text();
        const bool printable = !command && !text.isEmpty() && text.at(0).isPrint();
        const bool clearing =
            (key->key() == Qt::Key_Escape && !typed_.isEmpty()) || key->key() == Qt::Key_Clear;
        if (printable || key->key() == Qt::Key_Backspace || clearing) {
            TypeKey(key);
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void cntlDataList::TypeKey(QKeyEvent *event)
{
    tmrQuery->start();
    if (event->key() == Qt::Key_Backspace)
        typed_.chop(1);
    else if (event->key() == Qt::Key_Escape || event->key() == Qt::Key_Clear)
        typed_.clear();
    else
        typed_ += event->text();
    lblQStr->setText(typed_);
    Search(SearchMode::Name, typed_);
    if (model_->RowCount() > 0) {
        SetGridTopRow(TypedRowOffset);
        RefreshRowOffset();
    }
}

void cntlDataList::ClearTypedText()
{
    tmrQuery->stop();
    typed_.clear();
    lblQStr->clear();
}
