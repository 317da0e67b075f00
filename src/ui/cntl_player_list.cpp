#include "ui/cntl_player_list.h"

#include "base/user_interaction.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/player.h"
#include "session/players.h"
#include "session/tournament.h"
#include "ui/entrant_list.h"
#include "ui/field_rules.h"

#include <QEvent>
#include <QFocusEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QTimer>
#include <QVBoxLayout>

namespace {

// Pins are whole numbers of the 16-bit field of the file.
constexpr int PinLength = 4;

} // namespace

cntlPlayerList::cntlPlayerList(QWidget *parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("cntlPlayerList"));
    lstData = new cEntrantList(this);
    lstData->setObjectName(QStringLiteral("lstData"));
    txtInp = new QLineEdit(lstData->viewport());
    txtInp->setObjectName(QStringLiteral("txtInp"));
    txtInp->setMaxLength(PinLength);
    txtInp->setAlignment(Qt::AlignRight);
    txtInp->setFrame(false);
    txtInp->hide();
    txtInp->installEventFilter(this);
    lstData->viewport()->installEventFilter(this);
    lstData->installEventFilter(this);
    // The pin box is the tab stop of the grid, so the tab keys pass through both ways.
    lstData->setFocusPolicy(Qt::ClickFocus);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(lstData);
    setFocusProxy(lstData);

    connect(lstData->selectionModel(), &QItemSelectionModel::currentRowChanged, this, [this] {
        PlaceInput();
        emit SelectionChanged();
    });
    connect(lstData, &cEntrantList::RowDoubleClicked, this, &cntlPlayerList::RowDoubleClicked);
    connect(lstData->verticalScrollBar(), &QScrollBar::valueChanged, this,
            &cntlPlayerList::PlaceInput);
    connect(lstData->horizontalHeader(), &QHeaderView::sectionResized, this,
            &cntlPlayerList::PlaceInput);
}

QString cntlPlayerList::SelKey() const
{
    return lstData->SelKey();
}

void cntlPlayerList::setSelKey(const QString &key)
{
    lstData->setSelKey(key);
    PlaceInput();
}

QString cntlPlayerList::SelName() const
{
    return lstData->SelName();
}

int cntlPlayerList::Row() const
{
    return lstData->Row();
}

void cntlPlayerList::DisplayList()
{
    lstData->DisplayList();
    PlaceInput();
}

void cntlPlayerList::SetFocus()
{
    if (txtInp->isVisible())
        txtInp->setFocus();
    else
        lstData->setFocus();
}

void cntlPlayerList::PlaceInput()
{
    const int row = lstData->Row();
    if (row < 0) {
        txtInp->hide();
        rowUnderEdit_ = -1;
        return;
    }
    const QModelIndex cell = lstData->Model()->index(row, cEntrantListModel::Pin);
    txtInp->setGeometry(lstData->visualRect(cell));
    if (row != rowUnderEdit_) {
        rowUnderEdit_ = row;
        txtInp->setText(lstData->Model()->Text(row, cEntrantListModel::Pin).trimmed());
        if (txtInp->hasFocus())
            txtInp->selectAll();
    }
    txtInp->show();
}

bool cntlPlayerList::AcceptPin()
{
    if (rowUnderEdit_ < 0)
        return true;
    const QString text = txtInp->text().trimmed();
    if (!cFieldRules::EmptyOrWholeNumber(text))
        return false;
    cEntrantListModel *model = lstData->Model();
    const QString before = model->Text(rowUnderEdit_, cEntrantListModel::Pin).trimmed();
    if (text != before) {
        model->setData(model->index(rowUnderEdit_, cEntrantListModel::Pin),
                       text.rightJustified(3, u' '));
        const QString key = model->Text(rowUnderEdit_, cEntrantListModel::Key);
        if (auto tournament = Control().Tournament()) {
            if (auto player = tournament->Players().item(key)) {
                player->setPin(text);
                player->Update();
            }
        }
    }
    return true;
}

void cntlPlayerList::Refuse()
{
    Interaction().Beep();
    txtInp->setFocus();
    txtInp->selectAll();
}

void cntlPlayerList::MoveRow(int step)
{
    const int row = lstData->Row() + step;
    if (row < 0 || row >= lstData->Model()->rowCount())
        return;
    if (!AcceptPin()) {
        Refuse();
        return;
    }
    lstData->setSelKey(lstData->Model()->Text(row, cEntrantListModel::Key));
    txtInp->setFocus();
    txtInp->selectAll();
}

bool cntlPlayerList::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == txtInp) {
        if (event->type() == QEvent::FocusIn) {
            QTimer::singleShot(0, txtInp, &QLineEdit::selectAll);
        } else if (event->type() == QEvent::KeyPress) {
            const auto *key = static_cast<QKeyEvent *>(event);
            if (key->key() == Qt::Key_Down || key->key() == Qt::Key_Up) {
                MoveRow(key->key() == Qt::Key_Down ? 1 : -1);
                return true;
            }
        } else if (event->type() == QEvent::FocusOut) {
            const auto reason = static_cast<QFocusEvent *>(event)->reason();
            if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason &&
                !AcceptPin())
                QTimer::singleShot(0, this, &cntlPlayerList::Refuse);
        }
    } else if (watched == lstData->viewport() && event->type() == QEvent::MouseButtonPress) {
        // A pin that is not a number keeps the cursor on its row.
        if (!cFieldRules::EmptyOrWholeNumber(txtInp->text())) {
            Refuse();
            return true;
        }
    } else if (watched == lstData && event->type() == QEvent::FocusIn) {
        // The grid hands its focus to the box of the current row.
        if (txtInp->isVisible())
            QTimer::singleShot(0, txtInp, [this] { txtInp->setFocus(); });
    }
    return QWidget::eventFilter(watched, event);
}
