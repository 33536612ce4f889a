#include "ConfigCommand.h"

#include "ConfigCommandLine.h"
#include "ZelSettings.h"
#include "ZelSettingsFile.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstring>

namespace zel {

QString quoted(const QString& text)
{
    return QLatin1Char('\'') + text + QLatin1Char('\'');
}

QString changeText(const QString& key, const QString& before, const QString& after)
{
    return QStringLiteral("%1: %2 -> %3").arg(key, quoted(before), quoted(after));
}

QString systemReason(int error)
{
    return QString::fromLocal8Bit(std::strerror(error));
}

QStringList registeredKeys()
{
    QStringList keys;
    for (const auto& entry : ZelSettings::GetDefaultSettingsValues())
        keys.append(entry.first);
    return keys;
}

bool isRegistered(const QString& key)
{
    return ZelSettings::GetDefaultSettingsValues().count(key) != 0;
}

ConfigCommand::ConfigCommand(const QString& settingsFile)
    : m_file(QFileInfo(settingsFile).absoluteFilePath())
    , m_out(stdout)
    , m_err(stderr)
{
}

bool ConfigCommand::read(std::optional<QByteArray>& bytes)
{
    bytes.reset();
    const QFileInfo info(m_file);
    if (!info.exists())
        return true;
    QString reason = ZelSettingsFile::ReadProblem(m_file);
    if (reason.isEmpty()) {
        QFile file(m_file);
        if (file.open(QIODevice::ReadOnly)) {
            bytes = file.readAll();
            return true;
        }
        reason = file.errorString();
    }
    m_err << QStringLiteral("torvane-config: cannot read %1: %2").arg(m_file, reason) << Qt::endl;
    return false;
}

int ConfigCommand::unknownKey(const QString& key, const QStringList& known)
{
    m_err << QStringLiteral("torvane-config: unknown key %1").arg(quoted(key));
    const QString suggestion = closestName(key, known);
    if (!suggestion.isNull())
        m_err << QStringLiteral("; did you mean %1?").arg(quoted(suggestion));
    m_err << Qt::endl;
    return ExitUsage;
}

} // namespace zel
