#include "base/app_info.h"

namespace AppInfo {

QString Title()
{
    return QStringLiteral("Velmora!");
}

QString VersionText()
{
    return QString::number(VersionMajor) + u'.' + QString::number(VersionMinor) + u'.' +
           QString::number(VersionRevision);
}

QString WindowSettingsApplication()
{
    return QStringLiteral("Velmora! Software");
}

} // namespace AppInfo
