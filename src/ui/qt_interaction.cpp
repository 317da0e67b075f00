#include "ui/qt_interaction.h"

#include <QApplication>
#include <QMessageBox>
#include <QPlainTextEdit>

bool cQtInteraction::AskYesNo(const QString &question, const QString &title)
{
    return QMessageBox::question(QApplication::activeWindow(), title, question,
                                 QMessageBox::Yes | QMessageBox::No,
                                 QMessageBox::Yes) == QMessageBox::Yes;
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

frmProgress &cQtInteraction::ProgressWindow()
{
    if (!progress_)
        progress_ = std::make_unique<frmProgress>(QApplication::activeWindow());
    return *progress_;
}

void cQtInteraction::ProgressStart(const QString &text, qint32 maximum)
{
    ProgressWindow().Start(text, maximum);
}

void cQtInteraction::ProgressUpdate(qint32 value)
{
    ProgressWindow().Update(value);
}

void cQtInteraction::ProgressTerminate()
{
    ProgressWindow().Terminate();
}

void cQtInteraction::ShowLongText(const QString &title, const QString &text)
{
    if (!message_)
        message_ = std::make_unique<frmMsg>(QApplication::activeWindow());
    message_->setWindowTitle(title);
    message_->txtNotes->setPlainText(text);
    message_->show();
    message_->raise();
    message_->activateWindow();
}

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
