#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTextStream>

#include <optional>

class QSettings;

namespace zel {

// Exit codes of torvane-config, as its help lists them.
enum ConfigExit {
    ExitDone = 0,
    ExitRefused = 1, // also: check found what the editor's next start would change
    ExitUsage = 2,
    ExitValidatorFailed = 3,
    ExitFileError = 4,
};

// A text as torvane-config quotes a value: 'text'.
QString quoted(const QString& text);
// One changed value, as check and monitor print it: KEY: 'BEFORE' -> 'AFTER'.
QString changeText(const QString& key, const QString& before, const QString& after);

// The commands of torvane-config on one settings file, through the keys, defaults and
// validators registered in ZelSettings and the file rules of ZelSettingsFile, so that
// the editor's next start neither sets aside nor migrates what the tool wrote. Results
// go to standard output, errors to standard error; each command returns its exit code.
class ConfigCommands
{
public:
    // `makeFolder`: the file is the editor's own, whose folder a write may create as the
    // editor does. Any other file's folder must exist.
    ConfigCommands(const QString& settingsFile, bool makeFolder);

    int path();
    // `changed`: only the values that differ from their defaults, and unused keys.
    int list(bool json, bool changed);
    int get(const QString& key);
    int describe(const QString& key);
    int range(const QString& key);
    int set(const QString& key, const QString& value);
    // All registered keys when `keys` is empty.
    int reset(const QStringList& keys);
    int check(bool fix);

private:
    Q_DISABLE_COPY_MOVE(ConfigCommands)

    // The file's bytes, none when there is no file. False, with the message given, when
    // it cannot be read.
    bool read(std::optional<QByteArray>& bytes);
    // Before a change to `settings`: refuses a file the editor would set aside, says why
    // the file cannot be written, stamps a new file with the layout version and upgrades
    // a version-1 one, a copy kept first. ExitDone when the change may go ahead.
    int beginChange(QSettings& settings, const std::optional<QByteArray>& bytes);
    // False, with the message given, when the file cannot be written.
    bool writable();
    bool isRegistered(const QString& key) const;
    // Exit code 2, with a suggestion when a key of `known` is close to `key`.
    int unknownKey(const QString& key, const QStringList& known);
    // Syncs `settings`; says what was upgraded once it is written, why it was not otherwise.
    int saved(QSettings& settings);
    // This tool's command line for `arguments` on the same file.
    QString command(const QString& arguments) const;

    QString m_file;
    bool m_makeFolder = false;
    // The copy this run kept of the file, and what the upgrade changed.
    QString m_copy;
    QString m_upgraded;
    QTextStream m_out;
    QTextStream m_err;
};

} // namespace zel
