#include "base/settings_store.h"

#include <QSettings>

// Every application name of the program lives under one organisation folder.
QString GetSetting(const QString &application, const QString &section, const QString &key,
                   const QString &defaultValue)
{
    QSettings store(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Velmora"),
                    application);
    return store.value(section + u'/' + key, defaultValue).toString();
}

void SaveSetting(const QString &application, const QString &section, const QString &key,
                 const QString &value)
{
    QSettings store(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Velmora"),
                    application);
    store.setValue(section + u'/' + key, value);
    store.sync();
}
