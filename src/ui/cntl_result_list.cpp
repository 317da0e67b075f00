#include "ui/cntl_result_list.h"

#include "base/common.h"
#include "base/user_interaction.h"
#include "database/sql.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/player.h"
#include "session/players.h"
#include "session/result.h"
#include "session/results.h"
#include "session/tournament.h"
#include "ui/result_list_model.h"
#include "ui/twips.h"

#include <QFontDatabase>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QStatusBar>
#include <QTableView>
#include <QTimer>
#include <QVBoxLayout>

namespace {

using Column = cResultListModel::Column;

// Column widths in twips; the headings are never cut, whatever the font.
constexpr int ColumnTwips[] = {0, 600, 600, 2200, 800, 600, 2200};

// How many characters each input cell takes: a board of three figures, a pin of four
// and a result text of five.
int MaxLengthOf(int column)
{
    switch (column) {
    case Column::Board:
        return 3;
    case Column::Result:
        return 5;
    default:
        return 4;
    }
}

bool IsWholeBoard(const QString &text)
{
    if (text.isEmpty() || text.size() > 3)
        return false;
    for (const QChar c : text)
        if (!c.isDigit())
            return false;
    return text.toInt() > 0;
}

const QString &ResultKeys()
{
    static const QString keys = QStringLiteral("WBDZN ");
    return keys;
}

} // namespace

cntlResultList::cntlResultList(QWidget *parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("cntlResultList"));
    model_ = new cResultListModel(this);

    lstData = new QTableView(this);
    lstData->setObjectName(QStringLiteral("lstData"));
    lstData->setModel(model_);
    // The grid itself never holds the focus: keys go to the edit box over the cell.
    lstData->setFocusPolicy(Qt::NoFocus);
    lstData->setEditTriggers(QAbstractItemView::NoEditTriggers);
    lstData->setSelectionMode(QAbstractItemView::SingleSelection);
    lstData->setSelectionBehavior(QAbstractItemView::SelectItems);
    lstData->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    lstData->setWordWrap(false);
    // Tab belongs to the edit box walk, not to the view's own cell walk.
    lstData->setTabKeyNavigation(false);
    lstData->verticalHeader()->hide();
    // Pins and boards are right-aligned by blanks, so the grid needs a fixed pitch.
    lstData->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    lstData->verticalHeader()->setDefaultSectionSize(lstData->fontMetrics().height() + 8);
    QHeaderView *headings = lstData->horizontalHeader();
    headings->setObjectName(QStringLiteral("cmdButton"));
    headings->setSectionsClickable(true);
    headings->setHighlightSections(false);
    headings->setSectionsMovable(false);
    headings->setStretchLastSection(true);
    lstData->setColumnHidden(Column::Position, true);
    for (int column = Column::Board; column < Column::ColumnCount; ++column) {
        const QString heading = model_->headerData(column, Qt::Horizontal).toString();
        const int headingWidth = headings->fontMetrics().horizontalAdvance(heading) + 24;
        lstData->setColumnWidth(column, qMax(ColumnTwips[column] / TwipsPerPixel, headingWidth));
    }

    txtInp = new QLineEdit(lstData->viewport());
    txtInp->setObjectName(QStringLiteral("txtInp"));
    txtInp->setFont(lstData->font());
    txtInp->setFrame(false);
    txtInp->hide();
    txtInp->installEventFilter(this);
    lstData->viewport()->installEventFilter(this);
    setFocusProxy(txtInp);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(lstData);
    int width = 2 * lstData->frameWidth() + lstData->verticalScrollBar()->sizeHint().width();
    for (int column = Column::Board; column < Column::ColumnCount; ++column)
        width += lstData->columnWidth(column);
    lstData->setMinimumWidth(width);

    connect(lstData, &QTableView::pressed, this, [this](const QModelIndex &index) {
        if (index.isValid() && CommitEdit())
            EnterCell(index.row(), index.column());
    });
    connect(headings, &QHeaderView::sectionClicked, this, &cntlResultList::HeaderClicked);
    connect(lstData->verticalScrollBar(), &QScrollBar::valueChanged, this,
            &cntlResultList::PlaceEditor);
    connect(lstData->horizontalScrollBar(), &QScrollBar::valueChanged, this,
            &cntlResultList::PlaceEditor);
}

cntlResultList::~cntlResultList() = default;

int cntlResultList::Rows() const
{
    return model_->rowCount();
}

void cntlResultList::DisplayList(qint16 round)
{
    round_ = round;
    std::vector<cResultListModel::cRow> rows;
    const cResults &games = Control().Tournament()->Results();
    qint32 position = 0;
    for (const std::shared_ptr<cResult> &game : games) {
        ++position;
        if (NumericValue(game->Round()) != round)
            continue;
        cResultListModel::cRow row;
        row.cells[Column::Position] = QString::number(position);
        row.cells[Column::Board] =
            game->Board().isEmpty() ? QString() : cResultListModel::RightAligned(game->Board());
        if (const auto white = game->White()) {
            row.cells[Column::WhitePin] = cResultListModel::RightAligned(white->Pin());
            row.cells[Column::WhiteName] = white->DisplayName(false);
            row.whiteWithdrawn = white->Withdrawn();
        }
        row.cells[Column::Result] = game->DisplayResult();
        if (const auto black = game->Black()) {
            row.cells[Column::BlackPin] = cResultListModel::RightAligned(black->Pin());
            row.cells[Column::BlackName] = black->DisplayName(false);
            row.blackWithdrawn = black->Withdrawn();
        }
        rows.push_back(std::move(row));
    }
    model_->SetRows(std::move(rows));
    // The rows come in the order of the games, so no heading marks a sort.
    std::fill(std::begin(headingTags_), std::end(headingTags_), 0);
    lstData->horizontalHeader()->setSortIndicatorShown(false);
    loaded_ = false;
    editRow_ = 0;
    editColumn_ = Column::Board;
    if (Rows() > 0) {
        lstData->setCurrentIndex(model_->index(0, Column::Board));
        lstData->scrollToTop();
        if (txtInp->hasFocus())
            LoadEditor();
    }
    PlaceEditor();
    emit RowsDisplayed(Rows());
}

void cntlResultList::Refresh()
{
    DisplayList(round_);
}

void cntlResultList::SetFocus()
{
    if (Rows() == 0)
        return;
    PlaceEditor();
    txtInp->setFocus(Qt::OtherFocusReason);
}

std::shared_ptr<cResult> cntlResultList::GameOfRow(int row) const
{
    return Control().Tournament()->Results().item(
        qint32(WholeValue(model_->Cell(row, Column::Position))));
}

QString cntlResultList::HelpOfColumn(int column) const
{
    switch (column) {
    case Column::Board:
        return tr("Enter the board number");
    case Column::WhitePin:
        return tr("Enter the pin number of the player with White");
    case Column::Result:
        return tr("Enter the result: W, D, B, Z or N; Space clears it");
    default:
        return tr("Enter the pin number of the player with Black");
    }
}

void cntlResultList::EnterCell(int row, int column)
{
    // The name cells take no input: a click on one lands on the pin beside it.
    if (column == Column::WhiteName)
        column = Column::WhitePin;
    else if (column == Column::BlackName)
        column = Column::BlackPin;
    else if (column == Column::Position)
        column = Column::Board;
    editRow_ = row;
    editColumn_ = column;
    const QModelIndex cell = model_->index(row, column);
    lstData->setCurrentIndex(cell);
    lstData->scrollTo(cell);
    PlaceEditor();
    LoadEditor();
    txtInp->setFocus(Qt::OtherFocusReason);
}

void cntlResultList::LoadEditor()
{
    if (Rows() == 0)
        return;
    QString text = model_->Cell(editRow_, editColumn_).trimmed();
    // A blank board cell offers the next free board of the round.
    if (editColumn_ == Column::Board && text.isEmpty())
        text = QString::number(Control().Tournament()->Results().NextBoard(round_));
    txtInp->setMaxLength(MaxLengthOf(editColumn_));
    txtInp->setAlignment(editColumn_ == Column::Result ? Qt::AlignHCenter : Qt::AlignRight);
    txtInp->setText(text);
    txtInp->selectAll();
    loaded_ = true;
    if (statusBar_)
        statusBar_->showMessage(HelpOfColumn(editColumn_));
}

void cntlResultList::PlaceEditor()
{
    if (Rows() == 0 || editRow_ >= Rows()) {
        txtInp->hide();
        return;
    }
    const QRect cell = lstData->visualRect(model_->index(editRow_, editColumn_));
    if (!cell.isValid() || !lstData->viewport()->rect().intersects(cell)) {
        txtInp->hide();
        return;
    }
    txtInp->setGeometry(cell);
    txtInp->show();
}

bool cntlResultList::CheckEdit() const
{
    const QString text = txtInp->text().trimmed();
    if (text.isEmpty())
        return true;
    switch (editColumn_) {
    case Column::Board:
        return IsWholeBoard(text);
    case Column::WhitePin:
    case Column::BlackPin:
        return IsNumeric(text) && Control().Tournament()->Players().ValidPin(text);
    case Column::Result: {
        cResult probe;
        probe.setDisplayResult(text);
        return !probe.DisplayResult().isEmpty();
    }
    default:
        return true;
    }
}

void cntlResultList::Commit()
{
    loaded_ = false;
    if (Rows() == 0)
        return;
    const std::shared_ptr<cResult> game = GameOfRow(editRow_);
    const QString text = txtInp->text().trimmed();
    switch (editColumn_) {
    case Column::Board:
        game->setBoard(text);
        model_->SetCell(editRow_, Column::Board,
                        text.isEmpty() ? QString() : cResultListModel::RightAligned(text));
        break;
    case Column::WhitePin:
    case Column::BlackPin:
        CommitPlayer(*game, editColumn_, text);
        break;
    case Column::Result:
        // Only the result keys change the game; the cell shows what the box holds, so
        // Delete blanks the screen alone.
        model_->SetCell(editRow_, Column::Result, text);
        break;
    default:
        break;
    }
}

void cntlResultList::CommitPlayer(cResult &game, int column, const QString &text)
{
    const bool white = column == Column::WhitePin;
    const int nameColumn = white ? Column::WhiteName : Column::BlackName;
    std::shared_ptr<cPlayer> player;
    if (!text.isEmpty()) {
        const cTournament &tournament = *Control().Tournament();
        const QVariant playerId =
            SqlScalar(QStringLiteral("Select PId From Player where TId = ? and Pin = ?"),
                      {WholeValue(tournament.TournId()), WholeValue(text)});
        if (playerId.isNull()) {
            Interaction().Beep();
        } else {
            // The row keeps an entrant of its own, read afresh, apart from the
            // collection's: recalculation matches entrants by their ids.
            player = std::make_shared<cPlayer>();
            player->Load(tournament.TournId(), TextOf(playerId), QString());
        }
    }
    white ? game.setWhite(player) : game.setBlack(player);
    model_->SetCell(editRow_, column,
                    player ? cResultListModel::RightAligned(player->Pin()) : QString());
    model_->SetCell(editRow_, nameColumn, player ? player->DisplayName(false) : QString());
    model_->SetWithdrawn(editRow_, nameColumn, player && player->Withdrawn());
}

bool cntlResultList::CommitEdit()
{
    if (!loaded_)
        return true;
    if (!CheckEdit()) {
        Interaction().Beep();
        txtInp->selectAll();
        txtInp->setFocus(Qt::OtherFocusReason);
        return false;
    }
    Commit();
    if (txtInp->hasFocus())
        LoadEditor();
    return true;
}

bool cntlResultList::AtFirstCell() const
{
    return editRow_ == 0 && editColumn_ == Column::Board;
}

bool cntlResultList::AtLastCell() const
{
    return editRow_ == Rows() - 1 && editColumn_ == Column::BlackPin;
}

void cntlResultList::MoveForward()
{
    switch (editColumn_) {
    case Column::Board:
        EnterCell(editRow_, Column::WhitePin);
        break;
    case Column::WhitePin:
        EnterCell(editRow_, Column::Result);
        break;
    case Column::Result:
        EnterCell(editRow_, Column::BlackPin);
        break;
    default:
        EnterCell(editRow_ + 1, Column::Board);
        break;
    }
}

void cntlResultList::MoveBack()
{
    switch (editColumn_) {
    case Column::BlackPin:
        EnterCell(editRow_, Column::Result);
        break;
    case Column::Result:
        EnterCell(editRow_, Column::WhitePin);
        break;
    case Column::WhitePin:
        EnterCell(editRow_, Column::Board);
        break;
    default:
        EnterCell(editRow_ - 1, Column::BlackPin);
        break;
    }
}

bool cntlResultList::InputKey(QKeyEvent *key)
{
    const auto refuse = [this] {
        Interaction().Beep();
        txtInp->selectAll();
        return true;
    };
    const Qt::KeyboardModifiers modifiers =
        key->modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
    switch (key->key()) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab: {
        if (modifiers != Qt::NoModifier)
            return false;
        const bool back = key->key() == Qt::Key_Backtab || key->modifiers() & Qt::ShiftModifier;
        if (!CheckEdit())
            return refuse();
        Commit();
        // From the first cell back or the last cell on, the focus leaves the grid.
        if (back ? AtFirstCell() : AtLastCell())
            return false;
        back ? MoveBack() : MoveForward();
        return true;
    }
    case Qt::Key_Down:
    case Qt::Key_Up: {
        const int target = editRow_ + (key->key() == Qt::Key_Down ? 1 : -1);
        if (target < 0 || target >= Rows())
            return true;
        if (!CheckEdit())
            return refuse();
        Commit();
        EnterCell(target, editColumn_);
        return true;
    }
    case Qt::Key_Return:
    case Qt::Key_Enter:
        // Enter checks and commits the cell in place; it never reaches the window's
        // buttons, so a stray Enter cannot close the round.
        if (!CheckEdit())
            return refuse();
        Commit();
        LoadEditor();
        return true;
    default:
        break;
    }
    const QString typed = key->text();
    if (typed.isEmpty() || !typed.at(0).isPrint() || modifiers != Qt::NoModifier)
        return false;
    if (editColumn_ == Column::Result) {
        const QString upper = typed.toUpper();
        if (upper.size() == 1 && ResultKeys().contains(upper)) {
            const std::shared_ptr<cResult> game = GameOfRow(editRow_);
            game->setResult(upper);
            txtInp->setText(game->DisplayResult());
            txtInp->selectAll();
            return true;
        }
        if (txtInp->text().size() - txtInp->selectedText().size() >= txtInp->maxLength())
            return refuse();
        txtInp->insert(upper);
        return true;
    }
    // A full cell takes no more figures; the key is refused, not lost in silence.
    if (!txtInp->hasSelectedText() && txtInp->text().size() >= txtInp->maxLength())
        return refuse();
    return false;
}

bool cntlResultList::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == txtInp) {
        switch (event->type()) {
        case QEvent::KeyPress:
            if (Rows() > 0 && InputKey(static_cast<QKeyEvent *>(event)))
                return true;
            break;
        case QEvent::FocusIn:
            if (!loaded_)
                LoadEditor();
            else
                txtInp->selectAll();
            if (statusBar_)
                statusBar_->showMessage(HelpOfColumn(editColumn_));
            break;
        case QEvent::FocusOut: {
            const auto reason = static_cast<QFocusEvent *>(event)->reason();
            if (!loaded_ || reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason)
                break;
            if (CheckEdit()) {
                Commit();
            } else if (txtInp->isVisible()) {
                Interaction().Beep();
                QTimer::singleShot(0, txtInp, [this] {
                    txtInp->setFocus(Qt::OtherFocusReason);
                    txtInp->selectAll();
                });
            } else {
                // The cell was scrolled out of sight with a text it refuses: the text
                // is dropped and the cell shows what it held.
                Interaction().Beep();
                loaded_ = false;
            }
            break;
        }
        default:
            break;
        }
    } else if (watched == lstData->viewport() &&
               (event->type() == QEvent::Resize || event->type() == QEvent::Show)) {
        QTimer::singleShot(0, this, &cntlResultList::PlaceEditor);
    }
    return QWidget::eventFilter(watched, event);
}

void cntlResultList::HeaderClicked(int column)
{
    if (Rows() == 0 || column == Column::Position || !CommitEdit())
        return;
    const int tag = headingTags_[column] == 7 ? 8 : 7;
    std::fill(std::begin(headingTags_), std::end(headingTags_), 0);
    headingTags_[column] = tag;
    sortColumn_ = column;
    sortDirection_ = tag;
    const QString current = model_->Cell(editRow_, Column::Position);
    const int offset = editRow_ - qMax(0, lstData->rowAt(0));
    lstData->setUpdatesEnabled(false);
    model_->Sort(sortColumn_, sortDirection_);
    const int row = qMax(0, model_->RowOfPosition(current));
    lstData->verticalScrollBar()->setValue(qMax(0, row - offset));
    MarkSortColumn();
    lstData->setUpdatesEnabled(true);
    EnterCell(row, editColumn_);
}

void cntlResultList::MarkSortColumn()
{
    QHeaderView *headings = lstData->horizontalHeader();
    headings->setSortIndicatorShown(true);
    headings->setSortIndicator(sortColumn_,
                               sortDirection_ == 7 ? Qt::AscendingOrder : Qt::DescendingOrder);
}
