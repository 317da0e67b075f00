#pragma once

#include <QString>

// The per-user settings store: text values addressed by application, section and key.
QString GetSetting(const QString &application, const QString &section, const QString &key,
                   const QString &defaultValue);
void SaveSetting(const QString &application, const QString &section, const QString &key,
                 const QString &value);
