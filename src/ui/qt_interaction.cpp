#include "ui/qt_interaction.h"

#include <QApplication>
#include <QMessageBox>

bool cQtInteraction::AskYesNo(const QString &question, const QString &title)
{
    return QMessageBox::question(QApplication::activeWindow(), title, question,
                                 QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes)
        == QMessageBox::Yes;
}

void cQtInteraction::ShowMessage(const QString &text, MessageIcon icon, const QString &title)
{
    QMessageBox::Icon boxIcon = QMessageBox::NoIcon;
    switch (icon) {
    case MessageIcon::Plain:
        boxIcon = QMessageBox::NoIcon;
        break;
    case MessageIcon::Information:
        boxIcon = QMessageBox::Information;
        break;
    case MessageIcon::Exclamation:
        boxIcon = QMessageBox::Warning;
        break;
    case MessageIcon::Critical:
        boxIcon = QMessageBox::Critical;
        break;
    }
    QMessageBox box(boxIcon, title, text, QMessageBox::Ok, QApplication::activeWindow());
    box.exec();
}

void cQtInteraction::ProgressStart(const QString &, qint32) {}
void cQtInteraction::ProgressUpdate(qint32) {}
void cQtInteraction::ProgressTerminate() {}
void cQtInteraction::ShowLongText(const QString &, const QString &) {}

void cQtInteraction::Beep()
{
    QApplication::beep();
}

void cQtInteraction::SetBusyPointer(bool busy)
{
    if (busy == busyPointerShown_)
        return;
    busyPointerShown_ = busy;
    if (busy)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QApplication::restoreOverrideCursor();
}
