#pragma once

#include "ConfigCommand.h"

class QSettings;

namespace zel {

// The commands of torvane-config that change the settings file, and check, which does
// from the command line what the editor's next start would do to it. They go through
// the validators registered in ZelSettings and the file rules of ZelSettingsFile, so
// that the editor's next start neither sets aside nor migrates what the tool wrote.
class ConfigChanges : public ConfigCommand
{
public:
    // `makeFolder`: the file is the editor's own, whose folder a write may create as the
    // editor does. Any other file's folder must exist.
    ConfigChanges(const QString& settingsFile, bool makeFolder);

    int set(const QString& key, const QString& value);
    // All registered keys when `keys` is empty.
    int reset(const QStringList& keys);
    int check(bool fix);

private:
    // Before a change to `settings`: refuses a file the editor would set aside, says why
    // the file cannot be written, stamps a new file with the layout version and upgrades
    // a version-1 one, a copy kept first. ExitDone when the change may go ahead.
    // True, having said why, when the editor's next start sets the file aside.
    bool refuseFileToBeSetAside(const QSettings& settings);
    int beginChange(QSettings& settings, const std::optional<QByteArray>& bytes);
    // False, with the message given, when the file cannot be written.
    bool writable();
    // Syncs `settings`; says what was upgraded once it is written, why it was not otherwise.
    int saved(QSettings& settings);
    // This tool's command line for `arguments` on the same file.
    QString command(const QString& arguments) const;

    bool m_makeFolder = false;
    // The copy this run kept of the file, and what the upgrade changed.
    QString m_copy;
    QString m_upgraded;
};

} // namespace zel
