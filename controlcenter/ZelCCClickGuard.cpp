#include "ZelCCClickGuard_p.h"

#include "kqDMIApplication.h"
#include "kqDMPlugin.h"

#include <QApplication>
#include <QMouseEvent>
#include <QWidget>

namespace zel {

namespace {

// A press this soon after the previous counted one or after a resize never closes the
// menu: the same press reaches the filter once per widget it propagates through, and a
// sliding panel resizes the view under the cursor.
constexpr qint64 GuardTime = 500; // ms

} // namespace

ZelCCClickGuard::ZelCCClickGuard(const kqDMIApplication* application)
    : m_application(application)
{
    m_sinceCounted.start();
}

ZelCCClickGuard::~ZelCCClickGuard() = default;

void ZelCCClickGuard::setHandler(QWidget* handler)
{
    m_handler = handler;
}

bool ZelCCClickGuard::isClosingPress(const QObject* watched, const QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        // A press reaches us first on the widget's top-level window, then on the widget
        // under it. Only the second tells which window was hit (a popup list or a tool
        // window may lie over the view), so the first must not use up the guard.
        if (watched->inherits("QWidgetWindow"))
            return false;
        // A press on a modal window, such as our own question, is not a press on the view.
        if (m_sinceCounted.elapsed() < GuardTime || QApplication::activeModalWidget())
            return false;
        m_sinceCounted.restart();
        return isOnMainView(watched, static_cast<const QMouseEvent*>(event)->globalPosition().toPoint());
    case QEvent::Resize:
        m_sinceCounted.restart();
        return false;
    default:
        return false;
    }
}

bool ZelCCClickGuard::isOnMainView(const QObject* watched, const QPoint& globalPosition) const
{
    const kqDMGuiPlugin* plugin = m_application->getGuiPlugin();
    const QWidget* view = plugin ? plugin->getMainViewWidget() : nullptr;
    if (!view)
        return false;
    if (!view->rect().translated(view->mapToGlobal(QPoint(0, 0))).contains(globalPosition))
        return false;
    if (!watched->isWidgetType())
        return true; // a window of the view's own, such as an embedded 3D surface
    const auto* pressed = static_cast<const QWidget*>(watched);
    if (pressed->window() != view->window())
        return false;
    return !m_handler || m_handler->isAncestorOf(pressed);
}

} // namespace zel
