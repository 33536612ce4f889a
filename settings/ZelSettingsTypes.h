#pragma once

#include <QString>

#include <map>
#include <utility>

class QSettings;

namespace zel {

// Checks and repairs one setting's text during the validation pass. It may rewrite
// `value` in place (whatever it leaves there is written back) and sets `error` only
// when it returns false, which stops the pass.
using SettingValidator = bool (*)(const QString& key, const QString& defaultValue, QString& value, QString& error);

// Runs after every registered key has been validated and synced; false stops the pass.
using SettingEndCheck = bool (*)(QSettings& settings, QString& error);

// Default text and validator of one registered key.
using SettingEntry = std::pair<QString, SettingValidator>;

// Every registered key in QString's operator< order (code units, case-sensitive).
using SettingsRegistry = std::map<QString, SettingEntry>;

} // namespace zel
