#include "SettingsFiles.h"

#include <QFile>
#include <QSettings>

QByteArray fileBytes(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QVariantMap iniValues(const QString& path)
{
    const QSettings settings(path, QSettings::IniFormat);
    QVariantMap values;
    for (const QString& key : settings.allKeys())
        values.insert(key, settings.value(key));
    return values;
}
