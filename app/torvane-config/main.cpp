// torvane-config: Torvane's settings from the command line, through the rules of the
// settings editor.

#include "ConfigCommandLine.h"
#include "ConfigChanges.h"
#include "ConfigMonitor.h"
#include "ConfigQueries.h"
#include "ZelSettings.h"

#include <QCoreApplication>
#include <QTextStream>

#include <csignal>
#include <cstdio>

using namespace zel;

namespace {

int change(const ConfigRequest& request, const QString& file, bool editorsFile)
{
    ConfigChanges changes(file, editorsFile);
    if (request.command == QLatin1String("set"))
        return changes.set(request.arguments.at(0), request.arguments.at(1));
    if (request.command == QLatin1String("reset"))
        return changes.reset(request.arguments);
    return changes.check(request.fix);
}

int query(const ConfigRequest& request, const QString& file)
{
    ConfigQueries queries(file);
    if (request.command == QLatin1String("path"))
        return queries.path();
    if (request.command == QLatin1String("list"))
        return queries.list(request.json, request.changed);
    if (request.command == QLatin1String("get"))
        return queries.get(request.arguments.at(0));
    if (request.command == QLatin1String("describe"))
        return queries.describe(request.arguments.at(0));
    return queries.range(request.arguments.at(0));
}

int run(const ConfigRequest& request)
{
    const bool editorsFile = request.file.isEmpty();
    const QString file = editorsFile ? ZelSettings::GetSettingsFile(ZelSettings::GetApplicationName()) : request.file;
    const QString& command = request.command;
    if (command == QLatin1String("monitor"))
        return ConfigMonitor(file).run();
    if (command == QLatin1String("set") || command == QLatin1String("reset") || command == QLatin1String("check"))
        return change(request, file, editorsFile);
    return query(request, file);
}

} // namespace

int main(int argc, char* argv[])
{
#if defined(Q_OS_UNIX)
    // Past a file size limit (ulimit -f) a write must fail with its reason, not end the
    // tool half-way with the write lock left behind.
    std::signal(SIGXFSZ, SIG_IGN);
#endif
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
