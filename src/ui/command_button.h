#pragma once

#include <QPushButton>
#include <QString>

// A command button of a window, found by its control name. It never becomes the
// default button on its own, so Enter in a list or a field does not press it.
inline QPushButton *NewCommand(QWidget *parent, const char *name, const QString &caption)
{
    auto *button = new QPushButton(caption, parent);
    button->setObjectName(QString::fromLatin1(name));
    button->setAutoDefault(false);
    return button;
}
