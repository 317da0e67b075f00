#include "ui/file_locations.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace {

QString lastFolder;

} // namespace

QString FileDialogFolder()
{
    if (!lastFolder.isEmpty() && QFileInfo(lastFolder).isDir())
        return lastFolder;
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QDir::toNativeSeparators(documents.isEmpty() ? QDir::homePath() : documents);
}

void RememberFileFolder(const QString &filePath)
{
    if (!filePath.isEmpty())
        lastFolder = QDir::toNativeSeparators(QFileInfo(filePath).absolutePath());
}

void ForgetFileFolder()
{
    lastFolder.clear();
}
