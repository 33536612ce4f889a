#include "ZelSettings.h"

#include "FileOwner.h"
#include "IniDocument.h"
#include "ZelSettingsFile.h"

#include <QFile>
#include <QFileDevice>

#include <cerrno>
#include <cstring>

namespace zel {

namespace {

// Set by every write, so that a caller can tell the user why the last one failed.
thread_local QString lastWriteError;

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
    lastWriteError.clear();
    QByteArray current;
    auto* target = qobject_cast<QFileDevice*>(&device);
    if (target) {
        QFile file(target->fileName());
        if (file.exists()) {
            if (!file.open(QIODevice::ReadOnly)) {
                lastWriteError = file.errorString();
                qWarning("Cannot read %s to keep its lines: %s", qPrintable(file.fileName()),
                         qPrintable(lastWriteError));
                return false;
            }
            current = file.readAll();
        }
    }
    if (target)
        keepOwner(*target, target->fileName());
    QByteArray bytes;
    QString error;
    if (!IniDocument(current).write(map, bytes, error)) {
        lastWriteError = error;
        qWarning("%s", qPrintable(error));
        return false;
    }
    // Flushed here, while the reason of a full disk or a size limit can still be told:
    // after a short write Qt keeps no reason of its own, the system's is still in errno.
    errno = 0;
    if (device.write(bytes) != bytes.size() || (target && !target->flush())) {
        const int reason = errno;
        lastWriteError = reason != 0 ? QString::fromLocal8Bit(std::strerror(reason)) : device.errorString();
        return false;
    }
    return true;
}

} // namespace

QString ZelSettingsFile::LastWriteError()
{
    return lastWriteError;
}

QSettings::Format ZelSettings::SettingsFormat()
{
    static const QSettings::Format format =
        QSettings::registerFormat(QStringLiteral("ini"), readSettings, writeSettings, Qt::CaseSensitive);
    return format;
}

} // namespace zel
