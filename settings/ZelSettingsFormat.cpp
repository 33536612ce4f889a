#include "ZelSettings.h"

#include "IniDocument.h"

#include <QFile>
#include <QFileDevice>

namespace zel {

namespace {

bool readSettings(QIODevice& device, QSettings::SettingsMap& map)
{
    map = IniDocument(device.readAll()).values();
    return true;
}

// QSettings calls this holding the file's lock, with a QSaveFile that replaces the file
// by a rename once everything is written. The lines to keep come from the file as it is
// on disk now.
bool writeSettings(QIODevice& device, const QSettings::SettingsMap& map)
{
    QByteArray current;
    if (const auto* target = qobject_cast<const QFileDevice*>(&device)) {
        QFile file(target->fileName());
        if (file.exists()) {
            if (!file.open(QIODevice::ReadOnly)) {
                qWarning("Cannot read %s to keep its lines: %s", qPrintable(file.fileName()),
                         qPrintable(file.errorString()));
                return false;
            }
            current = file.readAll();
        }
    }
    QByteArray bytes;
    QString error;
    if (!IniDocument(current).write(map, bytes, error)) {
        qWarning("%s", qPrintable(error));
        return false;
    }
    return device.write(bytes) == bytes.size();
}

} // namespace

QSettings::Format ZelSettings::SettingsFormat()
{
    static const QSettings::Format format =
        QSettings::registerFormat(QStringLiteral("ini"), readSettings, writeSettings, Qt::CaseSensitive);
    return format;
}

} // namespace zel
