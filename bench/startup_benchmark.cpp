// Start-up of the settings editor as users start it, against a bare 800 x 600 Qt window
// and, when installed, qt6ct: process start to the end of the first paint, runs
// alternating, and the peak resident memory of each. The editor's window shows before its
// pages are built; the time until a page is painted (the window complete) is what the
// goals compare with the others' first frame, which is their complete window.
// The editor is also started twice more per round, to click the last page's button or
// turn the wheel over the drawer right after its pages paint: the time until the paint
// that answers shows whether start-up left its work for the first input.
// Usage: startup_benchmark [runs]   (default 31 runs of each; offscreen platform)

#include "ProbedStart.h"
#include "StartupHome.h"
#include "StartupStatistics.h"

#include <QCoreApplication>
#include <QStandardPaths>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace {

// A frame at 60 Hz: an answer within it looks immediate.
constexpr double FrameMs = 16;

struct MeasuredProgram
{
    const char* name;
    QString path;
    QByteArray pagesClass;
    std::vector<double> frameMs;
    std::vector<double> pagesMs;
    std::vector<double> peakMiB;

    bool measure(const StartupHome& home)
    {
        const std::optional<StartupTimes> times = startProbed(path, pagesClass, home);
        if (!times)
            return false;
        frameMs.push_back(times->frameMs);
        pagesMs.push_back(times->pagesMs);
        peakMiB.push_back(times->peakMiB);
        return true;
    }
};

struct MeasuredInput
{
    const char* name;
    ProbeInput input;
    std::vector<double> answerMs;

    bool measure(const MeasuredProgram& editor, const StartupHome& home)
    {
        const std::optional<StartupTimes> times = startProbed(editor.path, editor.pagesClass, home, input);
        if (!times)
            return false;
        answerMs.push_back(times->answerMs);
        return true;
    }
};

void printProgram(const MeasuredProgram& program)
{
    std::printf("%-18s %7.1f ms +- %5.1f", program.name, median(program.frameMs), spread(program.frameMs));
    if (program.pagesClass.isEmpty())
        std::printf("%22s", "");
    else
        std::printf("   %7.1f ms +- %5.1f", median(program.pagesMs), spread(program.pagesMs));
    std::printf("   %6.1f MiB +- %4.1f\n", median(program.peakMiB), spread(program.peakMiB));
}

void printAnswer(const MeasuredInput& input)
{
    std::printf("%-34s %5.1f ms +- %4.1f, at most %.1f (goal < %.0f)\n", input.name, median(input.answerMs),
                spread(input.answerMs), *std::max_element(input.answerMs.cbegin(), input.answerMs.cend()), FrameMs);
}

void printRatio(const char* what, const std::vector<double>& ours, const std::vector<double>& theirs, double goal)
{
    const auto [low, high] = ratioInterval(ours, theirs);
    std::printf("%-34s %5.2f (95%% between %.2f and %.2f; goal <= %.1f)\n", what, median(ours) / median(theirs), low,
        high, goal);
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    const int runs = argc > 1 ? std::max(3, std::atoi(argv[1])) : 31;

    const StartupHome home;
    if (!home.isValid()) {
        std::fprintf(stderr, "startup_benchmark: cannot prepare the temporary home\n");
        return 1;
    }
    std::vector<MeasuredProgram> programs = {
        {"torvane-settings", QStringLiteral(SETTINGS_EDITOR), "zel::ZelSettingsPanel", {}, {}, {}},
        {"bare window", QStringLiteral(BARE_WINDOW), {}, {}, {}, {}},
    };
    const QString qt6ct = QStandardPaths::findExecutable(QStringLiteral("qt6ct"));
    if (!qt6ct.isEmpty())
        programs.push_back({"qt6ct", qt6ct, {}, {}, {}, {}});

    std::vector<MeasuredInput> inputs = {
        {"editor: page click to paint:", {QStringLiteral("STARTUP_PROBE_CLICK"), QStringLiteral("About")}, {}},
        {"editor: drawer wheel to paint:",
            {QStringLiteral("STARTUP_PROBE_WHEEL"), QStringLiteral("settingsScrollArea")}, {}},
    };

    // One start of each first, unmeasured: it fills the file caches and lets each program
    // write what it writes on its first start.
    for (MeasuredProgram& program : programs) {
        if (!startProbed(program.path, program.pagesClass, home))
            return 1;
    }
    // Each round starts with another program, so none always follows the same one.
    for (int run = 0; run < runs; ++run) {
        for (std::size_t i = 0; i < programs.size(); ++i) {
            if (!programs[(run + i) % programs.size()].measure(home))
                return 1;
        }
        for (MeasuredInput& input : inputs) {
            if (!input.measure(programs[0], home))
                return 1;
        }
    }

    std::printf("%d runs each, offscreen, from process start until the paint is finished\n", runs);
    std::printf("%-18s %-19s   %-19s   %s\n", "", "first frame", "settings pages", "peak memory");
    for (const MeasuredProgram& program : programs)
        printProgram(program);
    const MeasuredProgram& ours = programs[0];
    const MeasuredProgram& bare = programs[1];
    if (qt6ct.isEmpty())
        std::printf("%-34s  qt6ct is not installed (bench/run-startup installs it)\n", "ours pages / qt6ct frame:");
    else
        printRatio("ours pages / qt6ct frame:", ours.pagesMs, programs[2].frameMs, 1.2);
    printRatio("ours pages / bare window frame:", ours.pagesMs, bare.frameMs, 3);
    std::printf(
        "%-34s %+5.1f MiB (goal <= 15)\n", "memory ours - bare window:", median(ours.peakMiB) - median(bare.peakMiB));
    for (const MeasuredInput& input : inputs)
        printAnswer(input);
    return 0;
}
