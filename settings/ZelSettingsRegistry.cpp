#include "ZelSettings.h"

#include <QSettings>
#include <QStringList>
#include <QVariant>

#include <algorithm>
#include <vector>

namespace zel {

namespace {

SettingsRegistry& registry()
{
    static SettingsRegistry entries;
    return entries;
}

std::vector<SettingEndCheck>& endChecks()
{
    static std::vector<SettingEndCheck> checks;
    return checks;
}

} // namespace

bool ZelSettings::RegisterSetting(const QString& key, const QString& defaultValue, SettingValidator validator)
{
    Q_ASSERT_X(validator, "ZelSettings::RegisterSetting", "a key needs a validator (noOp accepts anything)");
    SettingsRegistry& entries = registry();
    const auto position = entries.lower_bound(key);
    if (position != entries.end() && !(key < position->first))
        return false;
    entries.emplace_hint(position, key, SettingEntry(defaultValue, validator));
    return true;
}

QString ZelSettings::GetDefaultSettingsValue(const QString& key)
{
    const SettingsRegistry& entries = registry();
    const auto entry = entries.find(key);
    return entry != entries.end() ? entry->second.first : QString();
}

const SettingsRegistry& ZelSettings::GetDefaultSettingsValues()
{
    return registry();
}

void ZelSettings::ClearSettingsValues()
{
    registry().clear();
}

bool ZelSettings::RegisterEndCheckFunction(SettingEndCheck check)
{
    Q_ASSERT_X(check, "ZelSettings::RegisterEndCheckFunction", "null end check");
    std::vector<SettingEndCheck>& checks = endChecks();
    if (std::find(checks.cbegin(), checks.cend(), check) != checks.cend())
        return false;
    checks.push_back(check);
    return true;
}

bool ZelSettings::EnsureSettings(QSettings& settings, QString& error)
{
    for (const auto& [key, entry] : registry()) {
        const auto& [defaultValue, validator] = entry;
        const QVariant stored = settings.value(key, QVariant(defaultValue));
        const QString text = SettingText(stored);
        QString value = text;
        // The keys repaired or filled in so far stay set on `settings`: QSettings writes
        // them out when it is destroyed or at its next event-loop turn, unless the caller
        // prevents it.
        if (!validator(key, defaultValue, value, error))
            return false;
        // Only a repaired value or a missing default is set, so a valid file is left as
        // it is; a default goes in as registered.
        if (value != text)
            settings.setValue(key, value);
        else if (!settings.contains(key))
            settings.setValue(key, stored);
    }
    settings.sync();

    for (const SettingEndCheck check : endChecks()) {
        if (!check(settings, error))
            return false;
    }
    return true;
}

QString ZelSettings::GetSettingText(const QSettings& settings, const QString& key)
{
    return SettingText(settings.value(key, QVariant(GetDefaultSettingsValue(key))));
}

// QSettings hands back an unquoted value holding a comma as a list, which
// QVariant::toString() turns into an empty text. Validators see it joined with the
// separator QSettings itself writes.
QString ZelSettings::SettingText(const QVariant& stored)
{
    if (stored.typeId() == QMetaType::QStringList)
        return stored.toStringList().join(QLatin1String(", "));
    return stored.toString();
}

void ZelSettings::CleanupFolder(QString& path)
{
    path.replace(QLatin1Char('\\'), QLatin1Char('/'));
    // All trailing slashes at once, so that a second pass finds nothing to change; a
    // root ("/", "C:/") stays a root rather than becoming the current folder.
    const auto isRoot = [](const QString& folder) {
        return folder == QLatin1String("/") || (folder.size() == 3 && folder.endsWith(QLatin1String(":/")));
    };
    while (path.endsWith(QLatin1Char('/')) && !isRoot(path))
        path.chop(1);
}

bool ZelSettings::noOp(const QString&, const QString&, QString&, QString&)
{
    return true;
}

bool ZelSettings::ensureSettingsVersion(const QString&, const QString& defaultValue, QString& value, QString&)
{
    // The file is stamped with the current layout version whatever it held before.
    value = defaultValue;
    return true;
}

} // namespace zel
