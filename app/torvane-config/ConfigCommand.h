#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTextStream>

#include <optional>

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
// The text of errno value `error`.
QString systemReason(int error);
QStringList registeredKeys();
bool isRegistered(const QString& key);

// What every command of torvane-config works on: one settings file, with results on
// standard output and errors on standard error.
class ConfigCommand
{
protected:
    explicit ConfigCommand(const QString& settingsFile);
    ~ConfigCommand() = default;

    // The file's bytes, none when there is no file. False, with the message given, when
    // it cannot be read.
    bool read(std::optional<QByteArray>& bytes);
    // Exit code 2, with a suggestion when a key of `known` is close to `key`.
    int unknownKey(const QString& key, const QStringList& known);

    const QString m_file;
    QTextStream m_out;
    QTextStream m_err;

private:
    Q_DISABLE_COPY_MOVE(ConfigCommand)
};

} // namespace zel
