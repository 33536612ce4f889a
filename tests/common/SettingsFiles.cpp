#include "SettingsFiles.h"

#include <QFile>
#include <QSettings>

QByteArray fileBytes(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool writeBytes(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(bytes) == bytes.size();
}

QVariantMap iniValues(const QString& path)
{
    const QSettings settings(path, QSettings::IniFormat);
    QVariantMap values;
    for (const QString& key : settings.allKeys())
        values.insert(key, settings.value(key));
    return values;
}
