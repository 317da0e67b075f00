#include "ui/data_list_model.h"

#include "base/common.h"
#include "database/bulk_read.h"
#include "database/connection.h"
#include "database/content_stamp.h"
#include "database/sql.h"
#include "register/contact.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/player.h"
#include "session/players.h"
#include "session/tournament.h"

#include <QFont>

#include <algorithm>
#include <memory>
#include <numeric>
#include <optional>
#include <string_view>

namespace {

// yyyymmdd of a stored yyyy-mm-dd date, "" for none: text that sorts as the date.
QString SortDateOf(const QVariant &value)
{
    return TextOf(value).remove(u'-');
}

// The start of a text in capitals, as long as the typed text it is compared with.
QString UpperStart(std::u16string_view text, qsizetype length)
{
    return cPackedCells::Text(text).toUpper().left(length);
}

// The texts of one column in capitals, laid end to end in one buffer, with the first
// eight characters of each packed into two numbers kept beside the row number: most
// comparisons of a sort are then settled by comparing numbers in one place, and none
// allocates.
class cSortKeys
{
public:
    struct cItem
    {
        quint64 head = 0;
        quint64 next = 0;
        int row = 0;
    };

    // Room for the rows and their characters, so that the buffer grows only once.
    cSortKeys(std::size_t rows, std::size_t characters)
    {
        starts_.reserve(rows);
        units_.reserve(characters);
    }

    // Adds the text of the next row and returns its item.
    cItem Add(std::u16string_view text)
    {
        const std::size_t start = units_.size();
        units_.resize(start + text.size());
        char16_t *unit = units_.data() + start;
        char16_t seen = 0;
        for (const char16_t u : text) {
            seen |= u;
            *unit++ = u >= u'a' && u <= u'z' ? char16_t(u - 32) : u;
        }
        if (seen >= 0x80) {
            units_.resize(start);
            // Letters beyond plain ASCII take Qt's own capitals, pairs of surrogates
            // included, so the order is the one a comparison of capitals gives.
            const QString upper = cPackedCells::Text(text).toUpper();
            units_.insert(units_.end(), upper.utf16(), upper.utf16() + upper.size());
        }
        starts_.push_back(start);
        const std::size_t length = units_.size() - start;
        // A missing character packs as 0, below every other, so a short text sorts
        // before a longer one that begins with it.
        const auto pack = [&](std::size_t from) {
            quint64 packed = 0;
            for (std::size_t i = from; i < from + 4; ++i)
                packed = (packed << 16) | (i < length ? units_[start + i] : 0);
            return packed;
        };
        return cItem{pack(0), pack(4), int(starts_.size() - 1)};
    }

    // Text order of the capitals.
    int Compare(const cItem &a, const cItem &b) const
    {
        if (a.head != b.head)
            return a.head < b.head ? -1 : 1;
        if (a.next != b.next)
            return a.next < b.next ? -1 : 1;
        return Key(a.row).compare(Key(b.row));
    }

private:
    std::u16string_view Key(int row) const
    {
        const std::size_t begin = starts_[std::size_t(row)];
        const std::size_t end =
            std::size_t(row) + 1 < starts_.size() ? starts_[std::size_t(row) + 1] : units_.size();
        return std::u16string_view(units_.data() + begin, end - begin);
    }

    std::vector<char16_t> units_;
    std::vector<std::size_t> starts_;
};

void ReadEntrants(cPackedCells &cells)
{
    const auto tournament = Control().Tournament();
    if (!tournament)
        return;
    const bool upperCaseSurname = Control().SurnameCase() != 0;
    // The type and default grade are read once for the whole list.
    const cGradeBasis basis = cGradeBasis::Stored(tournament->TournId());
    for (const auto &player : tournament->Players()) {
        cells.AddCell(player->PlayerId());
        cells.AddCell(QStringLiteral("%1").arg(player->Pin(), 3));
        cells.AddCell(player->DisplayName(upperCaseSurname));
        cells.AddCell(player->DisplayGrade(basis));
        cells.AddCell(WholeValue(player->Games()) > 0
                          ? player->DisplayScore() + u'/' + player->Games()
                          : QString());
        cells.AddCell(player->Withdrawn() ? QStringLiteral("True") : QStringLiteral("False"));
    }
}

void ReadClubs(cPackedCells &cells)
{
    QSqlQuery query =
        RunSql(QStringLiteral("SELECT Code, Club, County, \"Union\" FROM Club ORDER BY rowid"));
    while (query.next()) {
        for (int column = 0; column < 4; ++column)
            cells.AddCell(TextOf(query.value(column)));
    }
}

void ReadTournaments(cPackedCells &cells)
{
    QSqlQuery query = RunSql(
        QStringLiteral("SELECT TId, IFNULL(Title, '') || ': ' || IFNULL(Tourn, ''), TDate, TEnd "
                       "FROM Velmora"));
    while (query.next()) {
        cells.AddCell(query.value(0).toString().trimmed());
        cells.AddCell(query.value(1).toString());
        QString dates =
            DisplayDateOf(query.value(2)) + QStringLiteral(" - ") + DisplayDateOf(query.value(3));
        // A tournament of one day has no end date: it shows its start alone, with no
        // dash left hanging.
        dates = dates.trimmed();
        if (dates.endsWith(u'-'))
            dates = dates.left(dates.lastIndexOf(u'-')).trimmed();
        cells.AddCell(dates);
        cells.AddCell(SortDateOf(query.value(2)) + SortDateOf(query.value(3)));
    }
}

// People of the register or the contacts as the list shows them: the id, the name,
// the code where the table has one, and the surname alone that a letter tab or a
// search looks at, in the order of the table.
void ReadPeople(cPackedCells &cells, const QString &table, const QString &idField, bool withCode)
{
    // Room enough for long names: a reservation costs nothing until it is written,
    // while growing copies the whole buffer.
    const auto people =
        std::size_t(SqlScalar(QStringLiteral("SELECT count(*) FROM ") + table).toLongLong());
    cells.Reserve(people, people * 80);
    static constexpr char16_t separator[] = u", ";
    // Texts are read as the engine keeps them and widened into the list's buffer.
    cBulkRead rows(QStringLiteral("SELECT ") + idField + QStringLiteral(", Surname, Forename") +
                   (withCode ? QStringLiteral(", Code FROM ") : QStringLiteral(" FROM ")) + table);
    while (rows.Next()) {
        cells.AppendUtf8(rows.Utf8View(0));
        cells.EndCell();
        cells.AppendUtf8(rows.Utf8View(1));
        cells.Append(separator);
        cells.AppendUtf8(rows.Utf8View(2));
        cells.EndCell();
        if (withCode) {
            cells.AppendUtf8(rows.Utf8View(3));
            cells.EndCell();
        }
        cells.AppendUtf8(rows.Utf8View(1));
        cells.EndCell();
    }
}

void ReadBCFList(cPackedCells &cells)
{
    const auto players =
        std::size_t(SqlScalar(QStringLiteral("SELECT count(*) FROM BCFMast")).toLongLong());
    cells.Reserve(players, players * 64);
    cBulkRead rows(QStringLiteral("SELECT Ref, Name FROM BCFMast"));
    while (rows.Next()) {
        cells.AppendUtf8(rows.Utf8View(0));
        cells.EndCell();
        cells.AppendUtf8(rows.Utf8View(1));
        cells.EndCell();
        // The code is shown again in its own column.
        cells.AppendUtf8(rows.Utf8View(0));
        cells.EndCell();
    }
}

// The whole register or grading list as last read, and the mark of the database then.
struct cWholeList
{
    std::optional<cContentStamp> stamp;
    std::shared_ptr<const cPackedCells> cells;
};

cWholeList &WholeListOf(DataListKind kind)
{
    static cWholeList lists[3];
    return lists[kind == DataListKind::Master ? 0 : kind == DataListKind::BCFList ? 1 : 2];
}

} // namespace

cDataListModel::cDataListModel(QObject *parent) : QAbstractTableModel(parent) {}

int cDataListModel::ColumnCountOf(DataListKind kind)
{
    switch (kind) {
    case DataListKind::Master:
    case DataListKind::BCFList:
        return 3;
    case DataListKind::Contacts:
        return 2;
    case DataListKind::Entrants:
        return 6;
    case DataListKind::Clubs:
    case DataListKind::Tournaments:
        return 4;
    }
    return 3;
}

void cDataListModel::Reset(DataListKind kind)
{
    beginResetModel();
    kind_ = kind;
    cells_.reset();
    order_.clear();
    order_.shrink_to_fit();
    sortColumn_ = -1;
    endResetModel();
}

std::shared_ptr<const cPackedCells> cDataListModel::WholeList(DataListKind kind)
{
    cWholeList &list = WholeListOf(kind);
    const std::optional<cContentStamp> now = ContentStamp();
    // Read again whenever a row may have been written since, and always when the
    // database cannot tell.
    if (!list.cells || !now || list.stamp != now) {
        auto cells = std::make_shared<cPackedCells>();
        if (kind == DataListKind::Master) {
            cells->Clear(RegisterColumns);
            ReadPeople(*cells, QStringLiteral("Master"), QStringLiteral("MasterId"), true);
        } else if (kind == DataListKind::Contacts) {
            // The contacts' table is made the first time anything asks for it.
            cContact::EnsureContactTable();
            cells->Clear(ContactColumns);
            ReadPeople(*cells, QStringLiteral("Contact"), QStringLiteral("ContactId"), false);
        } else {
            cells->Clear(ColumnCountOf(kind));
            ReadBCFList(*cells);
        }
        list.cells = std::move(cells);
        list.stamp = now;
    }
    return list.cells;
}

bool cDataListModel::ReadWhole(DataListKind kind)
{
    return kind == DataListKind::Master || kind == DataListKind::BCFList ||
           kind == DataListKind::Contacts;
}

void cDataListModel::Prepare(DataListKind kind)
{
    if (ReadWhole(kind) && SessionConnectionOpen())
        WholeList(kind);
}

void cDataListModel::Load(DataListKind kind, const QString &filter)
{
    beginResetModel();
    kind_ = kind;
    order_.clear();
    sortColumn_ = -1;
    if (ReadWhole(kind)) {
        cells_ = WholeList(kind);
        KeepRowsStartingWith(filter);
    } else {
        auto cells = std::make_shared<cPackedCells>();
        cells->Clear(ColumnCountOf(kind));
        if (kind == DataListKind::Entrants)
            ReadEntrants(*cells);
        else if (kind == DataListKind::Clubs)
            ReadClubs(*cells);
        else
            ReadTournaments(*cells);
        cells_ = std::move(cells);
        // The rows show in the order read until a sort.
        order_.resize(std::size_t(cells_->Rows()));
        std::iota(order_.begin(), order_.end(), 0);
    }
    order_.shrink_to_fit();
    endResetModel();
}

void cDataListModel::KeepRowsStartingWith(const QString &filter)
{
    const int rows = cells_->Rows();
    if (filter.isEmpty()) {
        order_.resize(std::size_t(rows));
        std::iota(order_.begin(), order_.end(), 0);
        return;
    }
    // As the engine's LIKE finds a name that starts with the text: the text trimmed and
    // in capitals, taken literally, and only ASCII letters of a name in either case.
    const QString upper = filter.trimmed().toUpper();
    const std::u16string_view wanted = cPackedCells::View(upper);
    const int column = kind_ == DataListKind::Master     ? int(RegisterSurnameColumn)
                       : kind_ == DataListKind::Contacts ? int(ContactSurnameColumn)
                                                         : int(NameColumn);
    for (int row = 0; row < rows; ++row) {
        const std::u16string_view name = cells_->View(row, column);
        // A name that is missing starts with nothing.
        if (name.empty() || name.size() < wanted.size())
            continue;
        bool starts = true;
        for (std::size_t i = 0; starts && i < wanted.size(); ++i) {
            const char16_t unit = name[i];
            starts = (unit >= u'a' && unit <= u'z' ? char16_t(unit - 32) : unit) == wanted[i];
        }
        if (starts)
            order_.push_back(row);
    }
}

std::vector<int> cDataListModel::SortedOrder(int column, bool descending) const
{
    std::size_t characters = 0;
    for (const int stored : order_)
        characters += cells_->View(stored, column).size();
    cSortKeys keys(order_.size(), characters);
    std::vector<cSortKeys::cItem> items;
    items.reserve(order_.size());
    for (const int stored : order_)
        items.push_back(keys.Add(cells_->View(stored, column)));
    // Equal texts keep their order: the place on view decides between them.
    std::sort(items.begin(), items.end(),
              [&keys, descending](const cSortKeys::cItem &a, const cSortKeys::cItem &b) {
                  const int difference = keys.Compare(a, b);
                  if (difference != 0)
                      return descending ? difference > 0 : difference < 0;
                  return a.row < b.row;
              });
    std::vector<int> order;
    order.reserve(items.size());
    for (const cSortKeys::cItem &item : items)
        order.push_back(item.row);
    return order;
}

void cDataListModel::SortBy(int column, bool descending)
{
    if (column < 0 || column >= ColumnCountOf(kind_))
        return;
    // Places on view in their new order; only the numbers of the rows move.
    const std::vector<int> places = SortedOrder(column, descending);
    emit layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    const QModelIndexList before = persistentIndexList();
    std::vector<int> newPlace(order_.size());
    std::vector<int> order;
    order.reserve(order_.size());
    for (int place = 0; place < int(places.size()); ++place) {
        newPlace[std::size_t(places[std::size_t(place)])] = place;
        order.push_back(order_[std::size_t(places[std::size_t(place)])]);
    }
    order_ = std::move(order);
    QModelIndexList after;
    after.reserve(before.size());
    for (const QModelIndex &index : before)
        after << this->index(newPlace[std::size_t(index.row())], index.column());
    changePersistentIndexList(before, after);
    sortColumn_ = column;
    descending_ = descending;
    emit layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

QString cDataListModel::Cell(int row, int column) const
{
    if (row < 0 || row >= RowCount() || column < 0 || column >= ColumnCountOf(kind_))
        return QString();
    return cells_->Text(order_[std::size_t(row)], column);
}

bool cDataListModel::Withdrawn(int row) const
{
    return kind_ == DataListKind::Entrants && Cell(row, WithdrawnColumn) == QLatin1String("True");
}

int cDataListModel::FindKey(const QString &key) const
{
    const std::u16string_view wanted = cPackedCells::View(key);
    for (int row = 0; row < RowCount(); ++row) {
        if (cells_->View(order_[std::size_t(row)], KeyColumn) == wanted)
            return row;
    }
    return -1;
}

bool cDataListModel::SortedOnSearchColumn() const
{
    // Typing searches column 1 of every kind.
    return sortColumn_ == 1;
}

int cDataListModel::HalveFor(const QString &upperText) const
{
    const qsizetype length = upperText.size();
    const auto start = [&](int stored) { return UpperStart(cells_->View(stored, 1), length); };
    const auto found = std::partition_point(order_.begin(), order_.end(), [&](int stored) {
        const QString head = start(stored);
        return descending_ ? upperText < head : head < upperText;
    });
    if (found == order_.end() || start(*found) != upperText)
        return -1;
    return int(found - order_.begin());
}

int cDataListModel::FindName(const QString &value) const
{
    if (order_.empty() || value.isEmpty())
        return -1;
    if (!SortedOnSearchColumn())
        return WalkName(value);
    const QString upperValue = value.toUpper();
    if (kind_ != DataListKind::BCFList)
        return HalveFor(upperValue);
    // The grading list: the first row of the longest start of the value that any row
    // has. Rows that start with a longer start lie among those of the shorter one.
    int found = -1;
    for (qsizetype length = 1; length <= upperValue.size(); ++length) {
        const int row = HalveFor(upperValue.left(length));
        if (row < 0)
            break;
        found = row;
    }
    return found;
}

int cDataListModel::WalkName(const QString &value) const
{
    if (order_.empty() || value.isEmpty())
        return -1;
    const QString upperValue = value.toUpper();
    const auto matches = [this](int row, const QString &text) {
        return UpperStart(cells_->View(order_[std::size_t(row)], 1), text.size()) == text;
    };
    if (kind_ != DataListKind::BCFList) {
        for (int row = 0; row < RowCount(); ++row) {
            if (matches(row, upperValue))
                return row;
        }
        return -1;
    }
    int found = -1;
    QString text = upperValue.left(1);
    int row = 0;
    while (row < RowCount()) {
        if (matches(row, text)) {
            found = row;
            if (text.size() < upperValue.size()) {
                text = upperValue.left(text.size() + 1);
                continue;
            }
            break;
        }
        ++row;
    }
    return found;
}

int cDataListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : RowCount();
}

int cDataListModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCountOf(kind_);
}

QVariant cDataListModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= RowCount() || index.column() >= ColumnCountOf(kind_))
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return Cell(index.row(), index.column());
    case Qt::FontRole:
        // A withdrawn entrant is struck out in bold, column 1 on.
        if (index.column() >= 1 && Withdrawn(index.row())) {
            QFont font;
            font.setBold(true);
            font.setStrikeOut(true);
            return font;
        }
        return {};
    default:
        return {};
    }
}

QVariant cDataListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 ||
        section >= ColumnCountOf(kind_))
        return {};
    switch (kind_) {
    case DataListKind::Master:
    case DataListKind::BCFList: {
        static const char *const names[] = {"", "Name", "Code"};
        return tr(names[section]);
    }
    case DataListKind::Contacts: {
        static const char *const names[] = {"", "Name"};
        return tr(names[section]);
    }
    case DataListKind::Entrants: {
        static const char *const names[] = {"", "Pin", "Name", "Grade", "Score", ""};
        return tr(names[section]);
    }
    case DataListKind::Clubs: {
        static const char *const names[] = {"Code", "Club", "County", "Union"};
        return tr(names[section]);
    }
    case DataListKind::Tournaments: {
        static const char *const names[] = {"", "Tournament", "Dates", ""};
        return tr(names[section]);
    }
    }
    return {};
}
