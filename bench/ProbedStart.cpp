#include "ProbedStart.h"

#include "StartupHome.h"

#include <QFile>
#include <QProcess>

#include <cstdio>
#include <ctime>

namespace {

qint64 monotonicNs()
{
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return qint64(now.tv_sec) * 1000000000LL + now.tv_nsec;
}

// "NAME <ns> <KiB>" lines; the last one gives the peak memory.
bool readReports(const QString& path, qint64 start, bool withPages, bool withInput, StartupTimes& times)
{
    QFile reports(path);
    if (!reports.open(QIODevice::ReadOnly))
        return false;
    bool framed = false;
    bool paged = false;
    double inputMs = -1;
    double answerMs = -1;
    for (const QByteArray& line : reports.readAll().split('\n')) {
        const QList<QByteArray> fields = line.split(' ');
        if (fields.size() != 3)
            continue;
        const double milliseconds = (fields.at(1).toLongLong() - start) / 1e6;
        if (fields.at(0) == "frame") {
            times.frameMs = milliseconds;
            framed = true;
        } else if (fields.at(0) == "pages") {
            times.pagesMs = milliseconds;
            paged = true;
        } else if (fields.at(0) == "input") {
            inputMs = milliseconds;
        } else if (fields.at(0) == "answer") {
            answerMs = milliseconds;
        } else {
            continue;
        }
        times.peakMiB = fields.at(2).toDouble() / 1024.0;
    }
    const bool answered = inputMs >= 0 && answerMs >= inputMs;
    if (answered)
        times.answerMs = answerMs - inputMs;
    return framed && paged == withPages && answered == withInput;
}

} // namespace

std::optional<StartupTimes> startProbed(const QString& program, const QByteArray& pagesClass, const StartupHome& home,
                                        const ProbeInput& input)
{
    const QString reportsPath = home.filePath(QStringLiteral("probe-reports"));
    const QString errorsPath = home.filePath(QStringLiteral("probe-errors"));
    QFile::remove(reportsPath);
    QProcessEnvironment environment = home.environment();
    environment.insert(QStringLiteral("STARTUP_PROBE_OUTPUT"), reportsPath);
    if (!pagesClass.isEmpty())
        environment.insert(QStringLiteral("STARTUP_PROBE_PAGES_CLASS"), QString::fromLatin1(pagesClass));
    if (!input.variable.isEmpty())
        environment.insert(input.variable, input.target);

    QProcess process;
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(home.filePath(QString()));
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(errorsPath);
    const qint64 start = monotonicNs();
    process.start(program, {});
    const bool finished = process.waitForFinished(30000);
    if (!finished)
        process.kill();

    StartupTimes times;
    if (finished && process.exitStatus() == QProcess::NormalExit
        && readReports(reportsPath, start, !pagesClass.isEmpty(), !input.variable.isEmpty(), times))
        return times;
    QFile errors(errorsPath);
    errors.open(QIODevice::ReadOnly);
    std::fprintf(stderr, "startup_benchmark: %s %s\n%s", qPrintable(program),
                 finished ? "quit without its reports" : "did not quit within 30 s", errors.readAll().constData());
    return std::nullopt;
}
