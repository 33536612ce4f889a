#include "ZelPanelDefaults.h"

#include "ZelControlCenter.h"

namespace zel::PanelDefaults {

namespace {

// The registered default, or a null string for a key nobody registered.
QString registered(QLatin1String key)
{
    return ZelControlCenter::GetDefaultSettingsValue(key);
}

} // namespace

void assign(QString& field, QLatin1String key)
{
    const QString text = registered(key);
    if (!text.isNull())
        field = text;
}

void assign(int& field, QLatin1String key)
{
    const QString text = registered(key);
    if (!text.isNull())
        field = text.toInt();
}

void assign(double& field, QLatin1String key)
{
    const QString text = registered(key);
    if (!text.isNull())
        field = text.toDouble();
}

void assign(bool& field, QLatin1String key)
{
    const QString text = registered(key);
    if (!text.isNull())
        field = text == QLatin1String("true");
}

} // namespace zel::PanelDefaults
