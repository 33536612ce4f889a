#include "ConfigQueries.h"

#include "ConfigCommandLine.h"
#include "ZelSettingDescriptions.h"
#include "ZelSettingRange.h"
#include "ZelSettings.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSettings>

namespace zel {

ConfigQueries::ConfigQueries(const QString& settingsFile)
    : ConfigCommand(settingsFile)
{
}

int ConfigQueries::path()
{
    m_out << m_file << Qt::endl;
    return ExitDone;
}

int ConfigQueries::list(bool json, bool changed)
{
    std::optional<QByteArray> bytes;
    if (!read(bytes))
        return ExitFileError;
    const QSettings settings(m_file, ZelSettings::SettingsFormat());
    const QStringList registered = registeredKeys();
    QStringList shown = registered;
    if (changed) {
        shown.removeIf([&settings](const QString& key) {
            return !settings.contains(key)
                || ZelSettings::GetSettingText(settings, key) == ZelSettings::GetDefaultSettingsValue(key);
        });
    }
    QStringList unused;
    for (const QString& key : settings.allKeys()) {
        if (!isRegistered(key))
            unused.append(key);
    }
    unused.sort();

    if (json) {
        QJsonArray keys;
        for (const QString& key : shown) {
            keys.append(QJsonObject {{QStringLiteral("key"), key},
                                     {QStringLiteral("value"), ZelSettings::GetSettingText(settings, key)},
                                     {QStringLiteral("default"), !settings.contains(key)}});
        }
        QJsonArray others;
        for (const QString& key : unused) {
            QJsonObject other {{QStringLiteral("key"), key},
                               {QStringLiteral("value"), ZelSettings::GetSettingText(settings, key)}};
            const QString suggestion = closestName(key, registered);
            if (!suggestion.isNull())
                other.insert(QStringLiteral("suggestion"), suggestion);
            others.append(other);
        }
        const QJsonObject root {{QStringLiteral("file"), m_file},
                                {QStringLiteral("keys"), keys},
                                {QStringLiteral("unused"), others}};
        m_out << QJsonDocument(root).toJson();
        return ExitDone;
    }

    for (const QString& key : shown) {
        m_out << key << QStringLiteral(" = ") << ZelSettings::GetSettingText(settings, key);
        if (!settings.contains(key))
            m_out << QStringLiteral(" (default)");
        m_out << '\n';
    }
    if (!unused.isEmpty())
        m_out << (shown.isEmpty() ? "" : "\n") << QStringLiteral("Keys in the file that nothing uses:\n");
    for (const QString& key : unused) {
        m_out << key << QStringLiteral(" = ") << ZelSettings::GetSettingText(settings, key);
        const QString suggestion = closestName(key, registered);
        if (!suggestion.isNull())
            m_out << QStringLiteral(" (did you mean %1?)").arg(suggestion);
        m_out << '\n';
    }
    m_out.flush();
    return ExitDone;
}

int ConfigQueries::get(const QString& key)
{
    std::optional<QByteArray> bytes;
    if (!read(bytes))
        return ExitFileError;
    const QSettings settings(m_file, ZelSettings::SettingsFormat());
    if (!isRegistered(key) && !settings.contains(key))
        return unknownKey(key, registeredKeys() + settings.allKeys());
    m_out << ZelSettings::GetSettingText(settings, key) << Qt::endl;
    return ExitDone;
}

int ConfigQueries::describe(const QString& key)
{
    if (!isRegistered(key))
        return unknownKey(key, registeredKeys());
    const SettingDescription description = settingDescription(key);
    const QString defaultValue = ZelSettings::GetDefaultSettingsValue(key);
    m_out << key << '\n'
          << QStringLiteral("  ") << description.meaning << '\n'
          << QStringLiteral("  Default: ") << (defaultValue.isEmpty() ? QStringLiteral("(empty)") : defaultValue)
          << '\n'
          << QStringLiteral("  Accepts: ") << ZelSettings::GetSettingRange(key).describe() << '\n'
          << (description.page.isEmpty() ? QStringLiteral("  no page: set by the program")
                                         : QStringLiteral("  Page: ") + description.page)
          << Qt::endl;
    return ExitDone;
}

int ConfigQueries::range(const QString& key)
{
    if (!isRegistered(key))
        return unknownKey(key, registeredKeys());
    m_out << ZelSettings::GetSettingRange(key).notation() << Qt::endl;
    return ExitDone;
}

} // namespace zel
