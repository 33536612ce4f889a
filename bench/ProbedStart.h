#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

class StartupHome;

// What the probe reported for one start, from the moment the process was started.
struct StartupTimes
{
    double frameMs = 0;
    double pagesMs = 0; // only when a pages class was named
    double peakMiB = 0; // at the last report
    double answerMs = 0; // with an input: from the input to the paint that answers it
};

// An input the probe gives once the pages are on screen: STARTUP_PROBE_CLICK or
// STARTUP_PROBE_WHEEL and its target; none when `variable` is empty.
struct ProbeInput
{
    QString variable;
    QString target;
};

// Starts the program in the home with the probe preloaded and waits until it quits after
// its last report. Nothing when it did not report; why, with its own error output, is
// written to stderr.
std::optional<StartupTimes> startProbed(const QString& program, const QByteArray& pagesClass, const StartupHome& home,
                                        const ProbeInput& input = {});
