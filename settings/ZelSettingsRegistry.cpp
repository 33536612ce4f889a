#include "ZelControlCenter.h"

#include <QSettings>
#include <QStringList>
#include <QVariant>

#include <algorithm>
#include <vector>

// Q_CLEANUP_RESOURCE declares the rcc function in the enclosing namespace, which must
// be the global one.
static void releaseControlCenterResources()
{
    Q_CLEANUP_RESOURCE(ZelControlCenter);
}

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

// QSettings hands back an unquoted value holding a comma as a list, which
// QVariant::toString() turns into an empty text. Validators see it joined with the
// separator QSettings itself writes.
QString settingText(const QVariant& stored)
{
    if (stored.typeId() == QMetaType::QStringList)
        return stored.toStringList().join(QLatin1String(", "));
    return stored.toString();
}

} // namespace

bool ZelControlCenter::RegisterSetting(const QString& key, const QString& defaultValue, SettingValidator validator)
{
    Q_ASSERT_X(validator, "ZelControlCenter::RegisterSetting", "a key needs a validator (noOp accepts anything)");
    SettingsRegistry& entries = registry();
    const auto position = entries.lower_bound(key);
    if (position != entries.end() && !(key < position->first))
        return false;
    entries.emplace_hint(position, key, SettingEntry(defaultValue, validator));
    return true;
}

QString ZelControlCenter::GetDefaultSettingsValue(const QString& key)
{
    const SettingsRegistry& entries = registry();
    const auto entry = entries.find(key);
    return entry != entries.end() ? entry->second.first : QString();
}

const SettingsRegistry& ZelControlCenter::GetDefaultSettingsValues()
{
    return registry();
}

void ZelControlCenter::ClearSettingsValues()
{
    registry().clear();
}

bool ZelControlCenter::RegisterEndCheckFunction(SettingEndCheck check)
{
    Q_ASSERT_X(check, "ZelControlCenter::RegisterEndCheckFunction", "null end check");
    std::vector<SettingEndCheck>& checks = endChecks();
    if (std::find(checks.cbegin(), checks.cend(), check) != checks.cend())
        return false;
    checks.push_back(check);
    return true;
}

bool ZelControlCenter::EnsureSettings(QSettings& settings, QString& error)
{
    for (const auto& [key, entry] : registry()) {
        const auto& [defaultValue, validator] = entry;
        const QVariant stored = settings.value(key, QVariant(defaultValue));
        const QString text = settingText(stored);
        QString value = text;
        // The keys handled so far stay set on `settings`: QSettings writes them out when
        // it is destroyed or at its next event-loop turn, unless the caller prevents it.
        if (!validator(key, defaultValue, value, error))
            return false;
        // An accepted value goes back as it was read, so a list stays the same list.
        settings.setValue(key, value == text ? stored : QVariant(value));
    }
    settings.sync();

    for (const SettingEndCheck check : endChecks()) {
        if (!check(settings, error))
            return false;
    }
    return true;
}

void ZelControlCenter::CleanupFolder(QString& path)
{
    path.replace(QLatin1Char('\\'), QLatin1Char('/'));
    if (path.endsWith(QLatin1Char('/')))
        path.chop(1);
}

void ZelControlCenter::CleanupRessources()
{
    releaseControlCenterResources();
}

bool ZelControlCenter::noOp(const QString&, const QString&, QString&, QString&)
{
    return true;
}

bool ZelControlCenter::ensureSettingsVersion(const QString&, const QString& defaultValue, QString& value, QString&)
{
    // The file is stamped with the current layout version whatever it held before.
    value = defaultValue;
    return true;
}

} // namespace zel
