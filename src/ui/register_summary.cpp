#include "ui/register_summary.h"

#include "database/sql.h"

#include <QLabel>
#include <QVBoxLayout>

cRegisterSummary::cRegisterSummary(QWidget *parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("cRegisterSummary"));
    setWindowTitle(tr("Master"));
    auto *heading = new QLabel(tr("Master"), this);
    QFont font = heading->font();
    font.setPointSize(font.pointSize() + 4);
    font.setBold(true);
    heading->setFont(font);
    lblCount = new QLabel(this);
    lblCount->setObjectName(QStringLiteral("lblCount"));
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(heading);
    layout->addWidget(lblCount);
    layout->addStretch(1);
}

void cRegisterSummary::Refresh()
{
    const qint64 count = SqlScalar(QStringLiteral("Select Count(*) From Master")).toLongLong();
    lblCount->setText(count == 1 ? tr("The register holds 1 player.")
                                 : tr("The register holds %1 players.").arg(count));
}

void cRegisterSummary::showEvent(QShowEvent *event)
{
    Refresh();
    QWidget::showEvent(event);
}
