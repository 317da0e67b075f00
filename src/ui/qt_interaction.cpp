#include "ui/qt_interaction.h"

#include "ui/frm_main.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QStandardPaths>

namespace {

// The window that a message, a dialog or the progress window belongs to, so that it
// centres on that window and not on the screen: the dialog in front, else the
// active window, else the main window.
QWidget *OwnerWindow()
{
    if (QWidget *modal = QApplication::activeModalWidget())
        return modal;
    if (QWidget *active = QApplication::activeWindow())
        return active;
    frmMain *main = frmMain::Instance();
    return main && main->isVisible() ? main : nullptr;
}

// The filter "Label|pattern|Label|pattern" as the dialog's name filters. The label
// is shown as written and the dialog filters on the pattern beside it, even where
// the two differ.
QStringList NameFilters(const QString &filter)
{
    const QStringList parts = filter.split(u'|');
    QStringList filters;
    for (qsizetype at = 0; at + 1 < parts.size(); at += 2) {
        QString label = parts[at];
        const qsizetype bracket = label.indexOf(u'(');
        if (bracket >= 0)
            label = label.left(bracket).trimmed();
        filters.append(label + QStringLiteral(" (") + parts[at + 1] + u')');
    }
    return filters;
}

// The folder of the file chosen last in this run, where a dialog with no folder of
// its own opens.
QString &LastFolder()
{
    static QString folder;
    return folder;
}

// A request that names no folder opens in the last folder used, or at first in the
// person's documents folder, never in the program's own.
QString StartFolder(const cFileRequest &request)
{
    if (!request.folder.isEmpty())
        return request.folder;
    if (!LastFolder().isEmpty())
        return LastFolder();
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    // A dialog opened on a folder that is missing would fall back to another one.
    QDir().mkpath(documents);
    return documents;
}

// A request that names no filter lists the files of its kind first, all files
// second.
QString FilterOf(const cFileRequest &request)
{
    if (!request.filter.isEmpty() || request.defaultExtension.isEmpty())
        return request.filter;
    const QString extension = request.defaultExtension.toLower();
    const QString kind = extension == u"dbf"   ? QStringLiteral("dBase files")
                         : extension == u"txt" ? QStringLiteral("Text files")
                         : extension == u"bak" ? QStringLiteral("Backups")
                                               : extension.toUpper() + QStringLiteral(" files");
    return kind + QStringLiteral(" (*.") + extension + QStringLiteral(")|*.") + extension +
           QStringLiteral("|All files (*)|*");
}

QString RunFileDialog(const cFileRequest &request, QFileDialog::AcceptMode mode)
{
    QFileDialog dialog(OwnerWindow(), request.title, StartFolder(request));
    dialog.setAcceptMode(mode);
    dialog.setFileMode(mode == QFileDialog::AcceptSave ? QFileDialog::AnyFile
                                                       : QFileDialog::ExistingFile);
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    const QStringList filters = NameFilters(FilterOf(request));
    dialog.setNameFilters(filters);
    const int filterIndex = request.filter.isEmpty() ? 1 : request.filterIndex;
    if (filterIndex >= 1 && filterIndex <= filters.size())
        dialog.selectNameFilter(filters[filterIndex - 1]);
    dialog.setDefaultSuffix(request.defaultExtension.toLower());
    if (!request.fileName.contains(u'*'))
        dialog.selectFile(request.fileName);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return QString();
    const QString chosen = dialog.selectedFiles().constFirst();
    LastFolder() = QFileInfo(chosen).absolutePath();
    return QDir::toNativeSeparators(chosen);
}

} // namespace

bool cQtInteraction::AskYesNo(const QString &question, const QString &title)
{
    return QMessageBox::question(OwnerWindow(), title, question, QMessageBox::Yes | QMessageBox::No,
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
    QMessageBox box(boxIcon, title, text, QMessageBox::Ok, OwnerWindow());
    box.exec();
}

frmProgress &cQtInteraction::ProgressWindow()
{
    if (!progress_)
        progress_ = std::make_unique<frmProgress>(OwnerWindow());
    return *progress_;
}

void cQtInteraction::ProgressStart(const QString &text, qint32 maximum)
{
    frmProgress &window = ProgressWindow();
    // Each pass shows the window over the window it belongs to now.
    QWidget *owner = OwnerWindow();
    if (owner == &window)
        owner = window.parentWidget();
    if (owner != window.parentWidget() && !window.isVisible())
        window.setParent(owner, window.windowFlags());
    if (owner && !window.isVisible()) {
        window.adjustSize();
        window.move(owner->frameGeometry().center() - window.rect().center());
    }
    window.Start(text, maximum);
}

void cQtInteraction::ProgressUpdate(qint32 value)
{
    ProgressWindow().Update(value);
}

void cQtInteraction::ProgressTerminate()
{
    ProgressWindow().Terminate();
}

frmMsg &cQtInteraction::MessageWindow()
{
    if (!message_)
        message_ = std::make_unique<frmMsg>(OwnerWindow());
    return *message_;
}

void cQtInteraction::ShowLongText(const QString &title, const QString &text)
{
    MessageWindow();
    message_->setWindowTitle(title);
    message_->txtNotes->setPlainText(text);
    message_->show();
    message_->raise();
    message_->activateWindow();
}

QString cQtInteraction::ChooseSaveFile(const cFileRequest &request)
{
    return RunFileDialog(request, QFileDialog::AcceptSave);
}

QString cQtInteraction::ChooseOpenFile(const cFileRequest &request)
{
    return RunFileDialog(request, QFileDialog::AcceptOpen);
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
