#pragma once

#include <QList>
#include <QString>

class QPushButton;
class QTabWidget;
class QWidget;

// The frame that the windows of the registers share: the list on the left, and on the
// right the commands in a row above the tabs, the two sharing the width as their
// stretches say. The list takes the focus for the window.
void LayOutRegisterWindow(QWidget *window, QWidget *list, int listStretch,
                          const QList<QPushButton *> &commands, QTabWidget *tabs, int tabsStretch);
// Adds a tab whose page scrolls, so that a small main window scrolls the details rather
// than cutting them.
void AddScrollingTab(QTabWidget *tabs, QWidget *page, const QString &caption);
