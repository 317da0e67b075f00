#include "ui/whole_file_writer.h"

#include "base/app_info.h"
#include "base/user_interaction.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

namespace {

WriteOutcome Refused(const QString &path, const QString &reason)
{
    Interaction().ShowMessage(QStringLiteral("The file ") + QDir::toNativeSeparators(path) +
                                  QStringLiteral(" could not be written: ") + reason,
                              MessageIcon::Exclamation, AppInfo::Title());
    return WriteOutcome::Failed;
}

} // namespace

WriteOutcome WriteWholeFile(const QString &path,
                            const std::function<WriteOutcome(QIODevice &device)> &write)
{
    if (QFileInfo(path).isDir())
        return Refused(path, QStringLiteral("the name is that of a folder."));
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return Refused(path, file.errorString());
    const WriteOutcome outcome = write(file);
    if (outcome == WriteOutcome::Cancelled) {
        file.cancelWriting();
        return outcome;
    }
    if (outcome == WriteOutcome::Failed || !file.commit())
        return Refused(path, file.errorString());
    return WriteOutcome::Written;
}
