#pragma once

#include <QString>
#include <QStringList>

namespace zel {

// What one run of torvane-config was asked to do.
struct ConfigRequest
{
    enum class Action { Run, Help, Version, UsageError };

    Action action = Action::Run;
    QString command;
    QStringList arguments;
    // Empty: the editor's own settings file.
    QString file;
    bool json = false; // list
    bool changed = false; // list
    bool fix = false; // check
    bool all = false; // reset
    // The help text for Help, the message for UsageError.
    QString text;
};

// Reads torvane-config's command line: options before the command, then the command
// and what it takes. Commands and options are checked here, keys by the commands.
ConfigRequest parseConfigCommandLine(const QStringList& arguments);

// The entry of `names` that differs from `name` only in case, else the one at most two
// edits away; a null text when none is that close. For commands and keys alike.
QString closestName(const QString& name, const QStringList& names);

} // namespace zel
