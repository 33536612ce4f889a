// torvane-config: Torvane's settings from the command line, through the rules of the
// settings editor.

#include "ConfigCommandLine.h"
#include "ConfigCommands.h"
#include "ConfigMonitor.h"
#include "ZelSettings.h"

#include <QCoreApplication>
#include <QTextStream>

#include <cstdio>

using namespace zel;

namespace {

int run(const ConfigRequest& request)
{
    const bool editorsFile = request.file.isEmpty();
    const QString file = editorsFile ? ZelSettings::GetSettingsFile(ZelSettings::GetApplicationName()) : request.file;
    const QString& command = request.command;
    if (command == QLatin1String("monitor"))
        return ConfigMonitor(file).run();
    ConfigCommands commands(file, editorsFile);
    if (command == QLatin1String("path"))
        return commands.path();
    if (command == QLatin1String("list"))
        return commands.list(request.json, request.changed);
    if (command == QLatin1String("get"))
        return commands.get(request.arguments.at(0));
    if (command == QLatin1String("describe"))
        return commands.describe(request.arguments.at(0));
    if (command == QLatin1String("range"))
        return commands.range(request.arguments.at(0));
    if (command == QLatin1String("set"))
        return commands.set(request.arguments.at(0), request.arguments.at(1));
    if (command == QLatin1String("reset"))
        return commands.reset(request.arguments);
    return commands.check(request.fix);
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("torvane-config"));
    QCoreApplication::setApplicationVersion(QStringLiteral(TORVANE_CONFIG_VERSION));

    const ConfigRequest request = parseConfigCommandLine(QCoreApplication::arguments());
    switch (request.action) {
    case ConfigRequest::Action::Help:
    case ConfigRequest::Action::Version:
        QTextStream(stdout) << request.text << Qt::endl;
        return ExitDone;
    case ConfigRequest::Action::UsageError:
        QTextStream(stderr) << QStringLiteral("torvane-config: ") << request.text
                            << QStringLiteral("\nTry 'torvane-config --help'.") << Qt::endl;
        return ExitUsage;
    case ConfigRequest::Action::Run:
        break;
    }

    // The same keys, defaults and validators as the editor's.
    ZelSettings::InitDefaultSettingsValues(ZelSettings::GetApplicationName());
    ZelSettings::InitPageSettingsValues();
    return run(request);
}
