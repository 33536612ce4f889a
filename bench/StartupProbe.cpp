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
//   input, answer
//          with STARTUP_PROBE_CLICK (a button's text) or STARTUP_PROBE_WHEEL (a widget's
//          object name), right after the pages: a press and release on that button, or
//          one wheel step down on that widget (a scroll area's viewport), then the end of
//          the paint that answers it, the input's own or the next. What start-up left
//          undone shows here.
// The program quits after its last report.

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QApplication>
#include <QElapsedTimer>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTimer>
#include <QWheelEvent>
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

// The input the probe gives once the pages are on screen, as the window system would.
class ProbeInput
{
public:
    ProbeInput()
        : m_button(qEnvironmentVariable("STARTUP_PROBE_CLICK"))
        , m_wheel(qEnvironmentVariable("STARTUP_PROBE_WHEEL"))
    {
    }

    bool isWanted() const { return !m_button.isEmpty() || !m_wheel.isEmpty(); }

    // A program may still be building what the input goes to: a user cannot click a
    // button before it shows.
    bool isTargetShown() const
    {
        return m_button.isEmpty() ? wheelTarget() != nullptr : button() != nullptr;
    }

    // False when its target is not on screen.
    bool send() const
    {
        if (!m_button.isEmpty())
            return click();
        QWidget* target = wheelTarget();
        if (!target)
            return false;
        // A wheel event sent by hand does not travel up from the widget under the mouse
        // as the window system's does: it goes where that one would end.
        if (const auto* scrollArea = qobject_cast<const QAbstractScrollArea*>(target))
            target = scrollArea->viewport();
        const QPoint middle = target->rect().center();
        QWheelEvent wheel(middle, target->mapToGlobal(middle), QPoint(), QPoint(0, -QWheelEvent::DefaultDeltasPerStep),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(target, &wheel);
        return wheel.isAccepted();
    }

private:
    // A scroll area takes the wheel once it has something to scroll.
    QWidget* wheelTarget() const
    {
        return visibleWidget([this](const QWidget* widget) {
            if (widget->objectName() != m_wheel)
                return false;
            const auto* scrollArea = qobject_cast<const QAbstractScrollArea*>(widget);
            return !scrollArea || scrollArea->verticalScrollBar()->maximum() > 0;
        });
    }

    QWidget* button() const
    {
        return visibleWidget([this](const QWidget* widget) {
            const auto* asButton = qobject_cast<const QAbstractButton*>(widget);
            return asButton && asButton->text() == m_button;
        });
    }

    bool click() const
    {
        QWidget* button = this->button();
        if (!button)
            return false;
        const QPoint middle = button->rect().center();
        const QPoint global = button->mapToGlobal(middle);
        QMouseEvent press(QEvent::MouseButtonPress, middle, global, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(button, &press);
        QMouseEvent release(QEvent::MouseButtonRelease, middle, global, Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(button, &release);
        return true;
    }

    template <typename Match>
    static QWidget* visibleWidget(Match matches)
    {
        for (QWidget* widget : QApplication::allWidgets()) {
            if (widget->isVisible() && matches(widget))
                return widget;
        }
        return nullptr;
    }

    QString m_button;
    QString m_wheel;
};

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
            reportAfterPaint("frame", m_pagesClass.isEmpty() ? Next::Quit : Next::Watch);
        }
        if (m_inputSent) {
            m_inputSent = false;
            reportAfterPaint("answer", Next::Quit);
        }
        if (!m_pagesClass.isEmpty() && watched->inherits(m_pagesClass.constData())) {
            m_pagesClass.clear();
            reportAfterPaint("pages", m_input.isWanted() ? Next::Input : Next::Quit);
        }
        return false;
    }

private:
    enum class Next { Watch, Input, Quit };

    // Queued: the paint pass that sent this event is finished and flushed first.
    void reportAfterPaint(const char* what, Next next)
    {
        if (next == Next::Quit)
            QCoreApplication::instance()->removeEventFilter(this);
        QMetaObject::invokeMethod(
            this,
            [this, what, next] {
                report(what);
                if (next == Next::Input)
                    sendInput();
                else if (next == Next::Quit)
                    QCoreApplication::quit();
            },
            Qt::QueuedConnection);
    }

    // A button repaints itself while it handles the press: that paint answers too.
    void sendInput()
    {
        if (!m_input.isTargetShown()) {
            if (!m_waitingForTarget.isValid())
                m_waitingForTarget.start();
            if (!m_waitingForTarget.hasExpired(TargetWait)) {
                QTimer::singleShot(1, this, [this] { sendInput(); });
                return;
            }
        }
        report("input");
        m_inputSent = true;
        if (!m_input.send()) {
            std::fputs("startup-probe: the input's target is not on screen\n", stderr);
            QCoreApplication::exit(2);
        }
    }

    QByteArray m_pagesClass;
    const ProbeInput m_input;
    bool m_framed = false;
    bool m_inputSent = false;
    QElapsedTimer m_waitingForTarget;
    static constexpr qint64 TargetWait = 2000; // ms
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
