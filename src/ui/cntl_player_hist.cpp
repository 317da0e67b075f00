#include "ui/cntl_player_hist.h"

#include "register/master.h"
#include "register/player_history.h"

#include <QHeaderView>
#include <QLabel>
#include <QTreeWidget>
#include <QVBoxLayout>

cntlPlayerHist::cntlPlayerHist(QWidget *parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("cntlPlayerHist"));
    lblName = new QLabel(this);
    lblName->setObjectName(QStringLiteral("lblName"));
    QFont bold = lblName->font();
    bold.setBold(true);
    lblName->setFont(bold);
    treHist = new QTreeWidget(this);
    treHist->setObjectName(QStringLiteral("treHist"));
    treHist->setHeaderHidden(true);
    treHist->setColumnCount(1);
    treHist->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    treHist->header()->setStretchLastSection(false);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(lblName);
    layout->addWidget(treHist, 1);
    setFocusProxy(treHist);
}

void cntlPlayerHist::Display()
{
    lblName->clear();
    treHist->clear();
    if (!master_)
        return;
    const QString name = master_->DisplayName(false);
    lblName->setText(name);
    lblName->repaint();
    // A dot a tournament shows that the history is being read.
    const auto history = PlayerHistory(*master_, [this] {
        lblName->setText(lblName->text() + u'.');
        lblName->repaint();
    });
    for (const cHistoryTournament &tournament : history) {
        auto *node = new QTreeWidgetItem(treHist, {tournament.text});
        node->setData(0, Qt::UserRole, tournament.key);
        for (const QString &line : tournament.lines)
            new QTreeWidgetItem(node, {line});
    }
    lblName->setText(name);
    lblName->repaint();
}
