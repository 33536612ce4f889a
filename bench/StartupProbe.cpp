// Reports when a start-up reaches its first painted frame, then ends the process.
// Usage: startup-probe editor | bare
// editor runs launch as torvane-settings does; bare shows one QLabel. On the first paint
// it prints "frame <CLOCK_MONOTONIC ns> <peak resident KiB>".

#include "ZelLaunch.h"

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QRegularExpression>

#include <cstdio>
#include <cstring>
#include <ctime>
#include <unistd.h>

namespace {

long peakResidentKiB()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return -1;
    static const QRegularExpression peak(QStringLiteral("^VmHWM:\\s+(\\d+) kB$"), QRegularExpression::MultilineOption);
    return peak.match(QString::fromLatin1(status.readAll())).captured(1).toLong();
}

class FirstFrame : public QObject
{
protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && watched->isWidgetType()) {
            timespec now{};
            clock_gettime(CLOCK_MONOTONIC, &now);
            std::printf("frame %lld %ld\n", qint64(now.tv_sec) * 1000000000LL + now.tv_nsec, peakResidentKiB());
            std::fflush(stdout);
            _exit(0);
        }
        return false;
    }
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
    char* arguments[] = {argv[0], nullptr};
    return launch(1, arguments);
}
