#include "MTLogger.h"

#include <QDateTime>
#include <QFile>
#include <QMutex>
#include <QMutexLocker>
#include <QRegularExpression>
#include <QString>
#include <QStringList>

#include <memory>

namespace zel {

namespace {

struct TypeName
{
    QtMsgType type;
    QLatin1String name;
};

constexpr TypeName TypeNames[] = {
    {QtDebugMsg, QLatin1String("debug")},
    {QtInfoMsg, QLatin1String("info")},
    {QtWarningMsg, QLatin1String("warning")},
    {QtCriticalMsg, QLatin1String("critical")},
    {QtFatalMsg, QLatin1String("fatal")},
};

constexpr unsigned typeBit(QtMsgType type)
{
    return 1u << unsigned(type);
}

QLatin1String typeName(QtMsgType type)
{
    for (const TypeName& entry : TypeNames) {
        if (entry.type == type)
            return entry.name;
    }
    return QLatin1String("unknown");
}

struct LoggerState
{
    QMutex mutex;
    std::unique_ptr<QFile> file;
    QtMessageHandler previous = nullptr;
    unsigned suppressedTypes = 0;
};

// Never destroyed: messages keep arriving from static destructors after main() returns.
LoggerState& loggerState()
{
    static LoggerState* const state = new LoggerState;
    return *state;
}

void fileMessageHandler(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    LoggerState& state = loggerState();
    QtMessageHandler previous = nullptr;
    {
        const QMutexLocker locker(&state.mutex);
        previous = state.previous;
        if (state.file && !(state.suppressedTypes & typeBit(type))) {
            const QString line = QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz"))
                + QLatin1String(" [") + typeName(type) + QLatin1String("] ") + message + QLatin1Char('\n');
            state.file->write(line.toUtf8());
            // A fatal message aborts right after the handlers: nothing may stay buffered.
            state.file->flush();
        }
    }
    if (previous)
        previous(type, context, message);
}

} // namespace

bool MTLogger::InstallFileHandler(const std::string& logFile, bool diagnostics, const std::string& blacklist)
{
    auto file = std::make_unique<QFile>(QString::fromStdString(logFile));
    if (!file->open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Text))
        return false;

    unsigned suppressed = diagnostics ? 0u : typeBit(QtDebugMsg);
    static const QRegularExpression separators(QStringLiteral("[,\\s]+"));
    const QStringList names = QString::fromStdString(blacklist).split(separators, Qt::SkipEmptyParts);
    for (const QString& name : names) {
        bool known = false;
        for (const TypeName& entry : TypeNames) {
            if (name.compare(entry.name, Qt::CaseInsensitive) == 0) {
                suppressed |= typeBit(entry.type);
                known = true;
            }
        }
        if (!known)
            qWarning("MTLogger: unknown message type \"%s\" in the black list", qUtf8Printable(name));
    }

    // Installing again replaces the file but keeps the handler found the first time.
    LoggerState& state = loggerState();
    const QMutexLocker locker(&state.mutex);
    state.file = std::move(file);
    state.suppressedTypes = suppressed;
    if (!state.previous)
        state.previous = qInstallMessageHandler(fileMessageHandler);
    return true;
}

void MTLogger::UninstallFileHandler()
{
    LoggerState& state = loggerState();
    const QMutexLocker locker(&state.mutex);
    if (!state.previous)
        return;
    qInstallMessageHandler(state.previous);
    state.previous = nullptr;
    state.file.reset();
    state.suppressedTypes = 0;
}

} // namespace zel
