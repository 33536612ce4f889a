#pragma once

#include "ConfigCommand.h"

namespace zel {

// The commands of torvane-config that only read: the settings file, and the keys,
// defaults and ranges registered in ZelSettings.
class ConfigQueries : public ConfigCommand
{
public:
    explicit ConfigQueries(const QString& settingsFile);

    int path();
    // `changed`: only the values that differ from their defaults, and unused keys.
    int list(bool json, bool changed);
    int get(const QString& key);
    int describe(const QString& key);
    int range(const QString& key);
};

} // namespace zel
