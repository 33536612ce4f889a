// Preloaded into any Qt 6 widget program (LD_PRELOAD): reports when its start-up has
// painted, then quits as a user would, so the next run starts as after a normal session
// (no lock or socket left behind).
//
// Each report is "NAME <CLOCK_MONOTONIC ns> <peak resident KiB>", taken when the paint
// pass that holds the event is finished, appended to the file STARTUP_PROBE_OUTPUT names
// (stdout without it), so it never mixes with the program's own output.
//   frame  the first paint of a widget: the first window's complete frame.
//   pages  with STARTUP_PROBE_PAGES_CLASS, the first paint of a widget inheriting that
//          class: for a window that shows before its content, the window complete.
// The program quits after its last report.

#include <QApplication>
#include <QWidget>

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <string>
#include <utility>

namespace {

long peakResidentKiB()
{
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.compare(0, 6, "VmHWM:") == 0)
            return std::stol(line.substr(6));
    }
    return -1;
}

void report(const char* what)
{
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    char line[96];
    const int length = std::snprintf(line, sizeof line, "%s %lld %ld\n", what,
                                     static_cast<long long>(now.tv_sec) * 1000000000LL + now.tv_nsec, peakResidentKiB());
    const char* path = std::getenv("STARTUP_PROBE_OUTPUT");
    const int output = path ? ::open(path, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0644) : STDOUT_FILENO;
    if (output < 0)
        return;
    // One write per line: appends from one run never interleave.
    if (::write(output, line, length) != length)
        std::perror("startup-probe");
    if (path)
        ::close(output);
}

class PaintWatcher : public QObject
{
public:
    explicit PaintWatcher(QByteArray pagesClass) : m_pagesClass(std::move(pagesClass)) {}

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::Paint || !watched->isWidgetType())
            return false;
        if (!m_framed) {
            m_framed = true;
            reportAfterPaint("frame", m_pagesClass.isEmpty());
        }
        if (!m_pagesClass.isEmpty() && watched->inherits(m_pagesClass.constData())) {
            m_pagesClass.clear();
            reportAfterPaint("pages", true);
        }
        return false;
    }

private:
    // Queued: the paint pass that sent this event is finished and flushed first.
    void reportAfterPaint(const char* what, bool last)
    {
        if (last)
            QCoreApplication::instance()->removeEventFilter(this);
        QMetaObject::invokeMethod(
            this,
            [what, last] {
                report(what);
                if (last)
                    QCoreApplication::quit();
            },
            Qt::QueuedConnection);
    }

    QByteArray m_pagesClass;
    bool m_framed = false;
};

void watchPaints()
{
    // Command-line programs built on Qt Core paint nothing to wait for.
    if (!qobject_cast<QApplication*>(QCoreApplication::instance()))
        return;
    auto* watcher = new PaintWatcher(qgetenv("STARTUP_PROBE_PAGES_CLASS"));
    watcher->setParent(QCoreApplication::instance());
    QCoreApplication::instance()->installEventFilter(watcher);
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(watchPaints)
