// Reports when a start-up reaches its first painted frame, then quits as a user would, so
// the next run starts as after a normal session (no lock or socket left behind).
// Usage: startup-probe editor | bare
// editor runs launch as torvane-settings does; bare shows one QLabel. On the first paint
// it prints "frame <CLOCK_MONOTONIC ns> <peak resident KiB>". The editor goes on until a
// settings page is painted and prints "pages" the same way: its window is complete.

#include "ZelLaunch.h"

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QRegularExpression>

#include <cstdio>
#include <cstring>
#include <ctime>

namespace {

long peakResidentKiB()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return -1;
    static const QRegularExpression peak(QStringLiteral("^VmHWM:\\s+(\\d+) kB$"), QRegularExpression::MultilineOption);
    return peak.match(QString::fromLatin1(status.readAll())).captured(1).toLong();
}

void report(const char* what)
{
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    std::printf("%s %lld %ld\n", what, qint64(now.tv_sec) * 1000000000LL + now.tv_nsec, peakResidentKiB());
    std::fflush(stdout);
}

bool editorMode = false;

class FirstFrame : public QObject
{
protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::Paint || !watched->isWidgetType())
            return false;
        if (!m_framed) {
            m_framed = true;
            report("frame");
        }
        if (!editorMode || watched->inherits("zel::ZelSettingsPanel")) {
            if (editorMode)
                report("pages");
            QCoreApplication::instance()->removeEventFilter(this);
            // Queued, so the frame being painted is finished and flushed first.
            QMetaObject::invokeMethod(QCoreApplication::instance(), &QCoreApplication::quit, Qt::QueuedConnection);
        }
        return false;
    }

private:
    bool m_framed = false;
};

void watchFirstFrame()
{
    QCoreApplication::instance()->installEventFilter(new FirstFrame);
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(watchFirstFrame)

int main(int argc, char** argv)
{
    if (argc == 2 && std::strcmp(argv[1], "bare") == 0) {
        QApplication app(argc, argv);
        QLabel label(QStringLiteral("Torvane"));
        label.show();
        return QApplication::exec();
    }
    editorMode = true;
    char* arguments[] = {argv[0], nullptr};
    return launch(1, arguments);
}
