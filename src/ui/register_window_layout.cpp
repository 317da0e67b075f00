#include "ui/register_window_layout.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QScrollArea>
#include <QTabWidget>
#include <QVBoxLayout>

void LayOutRegisterWindow(QWidget *window, QWidget *list, int listStretch,
                          const QList<QPushButton *> &commands, QTabWidget *tabs, int tabsStretch)
{
    auto *row = new QHBoxLayout;
    for (QPushButton *button : commands)
        row->addWidget(button);
    row->addStretch(1);
    auto *right = new QVBoxLayout;
    right->addLayout(row);
    right->addWidget(tabs, 1);
    auto *layout = new QHBoxLayout(window);
    layout->addWidget(list, listStretch);
    layout->addLayout(right, tabsStretch);
    window->setFocusProxy(list);
}

namespace {

// A scroll area that asks for room for the whole of what it holds, so that a window
// opens large enough to show it; it scrolls only in a window made smaller.
class cWholeScrollArea : public QScrollArea
{
public:
    using QScrollArea::QScrollArea;
    QSize sizeHint() const override
    {
        if (!widget())
            return QScrollArea::sizeHint();
        const int frame = 2 * frameWidth();
        return widget()->sizeHint() + QSize(frame, frame);
    }
};

} // namespace

void AddScrollingTab(QTabWidget *tabs, QWidget *page, const QString &caption)
{
    auto *area = new cWholeScrollArea(tabs);
    area->setWidget(page);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    // Tab goes from the tab to the first field; the area scrolls to the field in focus.
    area->setFocusPolicy(Qt::NoFocus);
    tabs->addTab(area, caption);
}
