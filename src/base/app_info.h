#pragma once

#include <QString>

// The program's title and version as the messages and captions show them.
namespace AppInfo {
inline constexpr int VersionMajor = VELMORA_VERSION_MAJOR;
inline constexpr int VersionMinor = VELMORA_VERSION_MINOR;
inline constexpr int VersionRevision = VELMORA_VERSION_PATCH;

QString Title();
// The three version numbers joined by ".".
QString VersionText();
// The settings application under which the window position is kept.
QString WindowSettingsApplication();
} // namespace AppInfo
