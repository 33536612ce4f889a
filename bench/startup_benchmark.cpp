// Start-up of the settings editor against a bare Qt window with one label: process start
// to the first painted frame, runs alternating, and the peak resident memory of each.
// The editor's window shows before its pages are built; the time until a page is painted
// (the window complete) is reported beside it.
// Usage: startup_benchmark [runs]   (default 101 runs of each; offscreen platform)

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <random>
#include <utility>
#include <vector>

namespace {

struct Sample
{
    double milliseconds = 0;
    double pagesMilliseconds = 0; // the editor only
    double peakMiB = 0;
};

qint64 monotonicNs()
{
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return qint64(now.tv_sec) * 1000000000LL + now.tv_nsec;
}

// Reads the probe's "NAME <ns> <KiB>" lines; the last one gives the peak memory.
bool runOnce(const QString& mode, const QProcessEnvironment& environment, Sample& sample)
{
    QProcess probe;
    probe.setProcessEnvironment(environment);
    const qint64 start = monotonicNs();
    probe.start(QStringLiteral(STARTUP_PROBE), {mode});
    if (!probe.waitForFinished(30000))
        return false;
    bool framed = false;
    const QStringList lines = QString::fromUtf8(probe.readAllStandardOutput()).split(QLatin1Char('\n'));
    for (const QString& line : lines) {
        const QStringList fields = line.split(QLatin1Char(' '));
        if (fields.size() != 3)
            continue;
        const double milliseconds = (fields.at(1).toLongLong() - start) / 1e6;
        if (fields.at(0) == QLatin1String("frame")) {
            sample.milliseconds = milliseconds;
            framed = true;
        } else if (fields.at(0) == QLatin1String("pages")) {
            sample.pagesMilliseconds = milliseconds;
        } else {
            continue;
        }
        sample.peakMiB = fields.at(2).toDouble() / 1024.0;
    }
    return framed && (mode != QLatin1String("editor") || sample.pagesMilliseconds > 0);
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

// The range that holds the ratio of the medians 95 times in 100, by resampling both
// sets of runs: the noise of a busy machine is as large as the differences looked for.
std::pair<double, double> ratioInterval(const std::vector<double>& numerators, const std::vector<double>& denominators)
{
    std::mt19937 random(20261123);
    const auto resample = [&random](const std::vector<double>& values) {
        std::uniform_int_distribution<std::size_t> pick(0, values.size() - 1);
        std::vector<double> drawn(values.size());
        for (double& value : drawn)
            value = values[pick(random)];
        return drawn;
    };
    std::vector<double> ratios(2000);
    for (double& ratio : ratios)
        ratio = median(resample(numerators)) / median(resample(denominators));
    std::sort(ratios.begin(), ratios.end());
    return {ratios[ratios.size() / 40], ratios[ratios.size() * 39 / 40]};
}

// Half the distance between the quartiles.
double spread(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return (values[values.size() * 3 / 4] - values[values.size() / 4]) / 2;
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    const int runs = argc > 1 ? std::max(3, atoi(argv[1])) : 101;

    // A settings folder of its own that needs no first-start question.
    const QTemporaryDir home;
    QDir().mkpath(home.filePath(QStringLiteral("config/TorvaneBoundlessX64")));
    QFile settings(home.filePath(QStringLiteral("config/TorvaneBoundlessX64/Settings.ini")));
    if (!settings.open(QIODevice::WriteOnly) || settings.write("settingsVersion=2\nengine=deferred\n") < 0)
        return 1;
    settings.close();
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), home.filePath(QStringLiteral("config")));
    environment.insert(QStringLiteral("TMPDIR"), home.path());
    // A desktop session's runtime folder, where the single-instance lock lives, is in
    // memory (/run/user/<uid>); without a session, /dev/shm stands in for it.
    QString runtimeBase = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (runtimeBase.isEmpty())
        runtimeBase = QDir(QStringLiteral("/dev/shm")).exists() ? QStringLiteral("/dev/shm") : home.path();
    const QTemporaryDir runtime(runtimeBase + QStringLiteral("/startup-benchmark-XXXXXX"));
    if (!runtime.isValid())
        return 1;
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), runtime.path());

    std::vector<double> editorMs, pagesMs, bareMs, editorMiB, bareMiB;
    for (int i = 0; i < runs; ++i) {
        Sample editor, bare;
        if (!runOnce(QStringLiteral("editor"), environment, editor) || !runOnce(QStringLiteral("bare"), environment, bare)) {
            std::fprintf(stderr, "startup_benchmark: a probe did not reach its first frame or its pages\n");
            return 1;
        }
        editorMs.push_back(editor.milliseconds);
        pagesMs.push_back(editor.pagesMilliseconds);
        bareMs.push_back(bare.milliseconds);
        editorMiB.push_back(editor.peakMiB);
        bareMiB.push_back(bare.peakMiB);
    }
    std::printf("%d runs each, offscreen, process start to first frame\n", runs);
    std::printf("editor:         %7.1f ms  +- %5.1f\n", median(editorMs), spread(editorMs));
    std::printf("editor, pages:  %7.1f ms  +- %5.1f   peak %6.1f MiB\n", median(pagesMs), spread(pagesMs),
                median(editorMiB));
    std::printf("bare window:    %7.1f ms  +- %5.1f   peak %6.1f MiB\n", median(bareMs), spread(bareMs), median(bareMiB));
    const auto [low, high] = ratioInterval(editorMs, bareMs);
    std::printf("ratio %.2f (95%% between %.2f and %.2f; goal <= 1.3), memory %+.1f MiB (goal <= 15)\n",
                median(editorMs) / median(bareMs), low, high, median(editorMiB) - median(bareMiB));
    return 0;
}
