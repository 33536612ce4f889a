#pragma once

#include "ZelSettingsExport.h"

#include <QString>

namespace zel {

// What one Settings.ini key is for, in English, for people reading about it outside
// the editor (torvane-config describe, the manual page).
struct ZEL_SETTINGS_EXPORT SettingDescription
{
    // One or two sentences.
    QString meaning;
    // The English title of the editor's page that edits the key; empty when no page
    // shows it and only programs set it.
    QString page;

    bool isNull() const { return meaning.isEmpty(); }
};

// The description of `key`; null for a key the library does not know.
ZEL_SETTINGS_EXPORT SettingDescription settingDescription(const QString& key);

} // namespace zel
