#include "ConfigCommandLine.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <algorithm>
#include <vector>

namespace zel {

namespace {

const QString Path = QStringLiteral("path");
const QString List = QStringLiteral("list");
const QString Get = QStringLiteral("get");
const QString Set = QStringLiteral("set");
const QString Reset = QStringLiteral("reset");
const QString Check = QStringLiteral("check");
const QString Describe = QStringLiteral("describe");
const QString Range = QStringLiteral("range");
const QString Monitor = QStringLiteral("monitor");

QString description()
{
    return QStringLiteral(
        "Reads and changes Torvane's Settings.ini through the same rules as the settings editor.\n"
        "\n"
        "Commands:\n"
        "  path                   the settings file the editor uses\n"
        "  list [--changed] [--json]\n"
        "                         every key Torvane knows with its value or its default,\n"
        "                         then the keys in the file that nothing uses; --changed:\n"
        "                         only the stored values that differ from their defaults\n"
        "  get KEY                the stored value, else the default\n"
        "  describe KEY           what the key means, its default, what it accepts and the\n"
        "                         settings editor's page that edits it\n"
        "  range KEY              what the key accepts, on one line for scripts:\n"
        "                           integer MIN MAX step STEP   a multiple of STEP\n"
        "                           decimal MIN MAX decimals N  at most N digits after the point\n"
        "                           ratios MIN MAX decimals N   five decimals separated by \"/\",\n"
        "                                                       the first MAX, none above the one before\n"
        "                           choice VALUE...             one of the values, exactly\n"
        "                           boolean                     true or false\n"
        "                           folder | file               a path\n"
        "                           version N                   always N, written by the programs\n"
        "                           any                         any text\n"
        "  set KEY VALUE          stores VALUE if the key's validator keeps it as it is\n"
        "  reset KEY... | --all   removes stored values so that the defaults apply\n"
        "  check [--fix]          prints what the editor's next start would change: a file\n"
        "                         set aside or upgraded, repaired values, added keys;\n"
        "                         --fix makes those changes, keeping a copy of the file\n"
        "  monitor                prints each change to the file as it happens, as\n"
        "                         KEY: 'OLD' -> 'NEW', KEY: added 'VALUE' or KEY: removed,\n"
        "                         until interrupted (SIGINT or SIGTERM: exit code 0)\n"
        "\n"
        "Exit codes:\n"
        "  0  done; for check: nothing to repair\n"
        "  1  set refused a value that would be repaired, or a file the editor would set\n"
        "     aside; check found changes to make\n"
        "  2  usage error: unknown command, option or key\n"
        "  3  a validator failed, for example a folder could not be created\n"
        "  4  the settings file could not be read or written");
}

int levenshtein(const QString& a, const QString& b)
{
    std::vector<int> row(size_t(b.size()) + 1);
    for (size_t j = 0; j < row.size(); ++j)
        row[j] = int(j);
    for (const QChar ca : a) {
        int diagonal = row[0]++;
        for (size_t j = 1; j < row.size(); ++j) {
            const int above = row[j];
            row[j] = std::min({above + 1, row[j - 1] + 1, diagonal + (ca == b[qsizetype(j - 1)] ? 0 : 1)});
            diagonal = above;
        }
    }
    return row.back();
}

ConfigRequest usageError(const QString& message)
{
    ConfigRequest request;
    request.action = ConfigRequest::Action::UsageError;
    request.text = message;
    return request;
}

// The command's own options, after the command word; the rest stays positional.
bool parseCommandOptions(ConfigRequest& request, const QStringList& rest, QString& error)
{
    QCommandLineParser parser;
    const QCommandLineOption json(QStringLiteral("json"));
    const QCommandLineOption changed(QStringLiteral("changed"));
    const QCommandLineOption fix(QStringLiteral("fix"));
    const QCommandLineOption all(QStringLiteral("all"));
    if (request.command == List)
        parser.addOptions({json, changed});
    else if (request.command == Check)
        parser.addOption(fix);
    else if (request.command == Reset)
        parser.addOption(all);
    if (!parser.parse(QStringList(request.command) + rest)) {
        error = request.command + QStringLiteral(": ") + parser.errorText();
        return false;
    }
    request.arguments = parser.positionalArguments();
    request.json = request.command == List && parser.isSet(json);
    request.changed = request.command == List && parser.isSet(changed);
    request.fix = request.command == Check && parser.isSet(fix);
    request.all = request.command == Reset && parser.isSet(all);
    return true;
}

// The number of arguments each command takes, checked after its options.
QString argumentError(const ConfigRequest& request)
{
    const qsizetype count = request.arguments.size();
    if ((request.command == Path || request.command == List || request.command == Check
         || request.command == Monitor)
        && count != 0)
        return request.command + QStringLiteral(" takes no argument");
    if ((request.command == Get || request.command == Describe || request.command == Range) && count != 1)
        return request.command + QStringLiteral(" takes one KEY");
    if (request.command == Set && count != 2)
        return QStringLiteral("set takes a KEY and a VALUE");
    if (request.command == Reset && request.all == (count != 0))
        return QStringLiteral("reset takes either KEYs or --all");
    return {};
}

} // namespace

QString closestName(const QString& name, const QStringList& names)
{
    // Case first: "dbcache/cachesize" means "DBCache/cacheSize" even where another
    // name is as few edits away.
    for (const QString& candidate : names) {
        if (candidate.compare(name, Qt::CaseInsensitive) == 0)
            return candidate;
    }
    QString closest;
    int best = 3; // at most two edits
    for (const QString& candidate : names) {
        const int distance = levenshtein(candidate.toLower(), name.toLower());
        if (distance < best) {
            best = distance;
            closest = candidate;
        }
    }
    return closest;
}

ConfigRequest parseConfigCommandLine(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(description());
    // Options after the command belong to the command.
    parser.setOptionsAfterPositionalArgumentsMode(QCommandLineParser::ParseAsPositionalArguments);
    const QCommandLineOption file(QStringLiteral("file"),
                                  QStringLiteral("Acts on the settings file at PATH instead of the editor's."),
                                  QStringLiteral("PATH"));
    parser.addOption(file);
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();
    parser.addPositionalArgument(QStringLiteral("command"), QStringLiteral("One of the commands above."),
                                 QStringLiteral("COMMAND [ARGUMENTS]"));

    if (!parser.parse(arguments))
        return usageError(parser.errorText());
    ConfigRequest request;
    if (parser.isSet(help)) {
        request.action = ConfigRequest::Action::Help;
        request.text = parser.helpText();
        // Qt's usage line names the path the program was started by; ours names the
        // program, as the messages do.
        const QString startedAs = QCoreApplication::arguments().value(0);
        if (!startedAs.isEmpty())
            request.text.replace(QStringLiteral("Usage: ") + startedAs,
                                 QStringLiteral("Usage: ") + QCoreApplication::applicationName());
        return request;
    }
    if (parser.isSet(version)) {
        request.action = ConfigRequest::Action::Version;
        request.text = QCoreApplication::applicationName() + QLatin1Char(' ') + QCoreApplication::applicationVersion();
        return request;
    }

    QStringList positional = parser.positionalArguments();
    if (positional.isEmpty())
        return usageError(QStringLiteral("no command given"));
    request.command = positional.takeFirst();
    request.file = parser.value(file);
    const QStringList commands = {Path, List, Get, Set, Reset, Check, Describe, Range, Monitor};
    if (!commands.contains(request.command)) {
        QString message = QStringLiteral("unknown command '%1'").arg(request.command);
        const QString suggestion = closestName(request.command, commands);
        if (!suggestion.isNull())
            message += QStringLiteral("; did you mean '%1'?").arg(suggestion);
        return usageError(message);
    }

    // A value to set is taken as it stands, even one that starts with a dash.
    QString error;
    if (request.command == Set || request.command == Get)
        request.arguments = positional;
    else if (!parseCommandOptions(request, positional, error))
        return usageError(error);
    error = argumentError(request);
    return error.isEmpty() ? request : usageError(error);
}

} // namespace zel
