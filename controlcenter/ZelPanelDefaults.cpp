#include "ZelPanelDefaults.h"

#include "ZelSettings.h"

#include <QSettings>

namespace zel::PanelDefaults {

std::optional<QString> text(QLatin1String key)
{
    QString registered = ZelSettings::GetDefaultSettingsValue(key);
    if (registered.isNull())
        return std::nullopt;
    return registered;
}

void assign(QString& field, QLatin1String key)
{
    if (const auto registered = text(key))
        field = *registered;
}

void assign(int& field, QLatin1String key)
{
    if (const auto registered = text(key))
        field = registered->toInt();
}

void assign(quint64& field, QLatin1String key)
{
    if (const auto registered = text(key))
        field = registered->toULongLong();
}

void assign(double& field, QLatin1String key)
{
    if (const auto registered = text(key))
        field = registered->toDouble();
}

void assign(bool& field, QLatin1String key)
{
    if (const auto registered = text(key))
        field = *registered == QLatin1String("true");
}

QVariant storedOrDefault(const QSettings& settings, QLatin1String key)
{
    if (settings.contains(key))
        return settings.value(key);
    if (const auto registered = text(key))
        return *registered;
    return QVariant();
}

} // namespace zel::PanelDefaults
