#include "ZelWindowEdges.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QWidget>
#include <QWindow>

#include <algorithm>

namespace zel {

namespace {

// Along the corners the diagonal takes this much of each edge, as frames do.
constexpr int CornerReach = 14;

Qt::CursorShape pointerFor(Qt::Edges edges)
{
    if (edges == (Qt::LeftEdge | Qt::TopEdge) || edges == (Qt::RightEdge | Qt::BottomEdge))
        return Qt::SizeFDiagCursor;
    if (edges == (Qt::RightEdge | Qt::TopEdge) || edges == (Qt::LeftEdge | Qt::BottomEdge))
        return Qt::SizeBDiagCursor;
    if (edges & (Qt::LeftEdge | Qt::RightEdge))
        return Qt::SizeHorCursor;
    return Qt::SizeVerCursor;
}

// Where a dragged edge goes: `by` from where it started, yet never so near the facing
// edge, or so far from it, that the window would pass its `least` or `most` length.
int draggedEdge(int start, int by, int facing, int least, int most)
{
    const int away = start >= facing ? 1 : -1;
    const int nearest = facing + away * (least - 1), farthest = facing + away * (most - 1);
    return std::clamp(start + by, std::min(nearest, farthest), std::max(nearest, farthest));
}

} // namespace

ZelWindowEdges::ZelWindowEdges(QWidget* window)
    : m_window(window)
{
    // The native window exists once the widget shows; it sees every pointer event first.
    m_window->installEventFilter(this);
}

ZelWindowEdges::~ZelWindowEdges()
{
    showPointerFor({});
}

Qt::Edges ZelWindowEdges::edgesAt(const QPoint& position) const
{
    if (m_window->windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen))
        return {};
    const QRect area = m_window->rect();
    if (!area.contains(position))
        return {};
    const auto near = [](int distance, int reach) { return distance < reach; };
    Qt::Edges edges;
    const int left = position.x() - area.left(), right = area.right() - position.x();
    const int top = position.y() - area.top(), bottom = area.bottom() - position.y();
    const bool onSide = near(left, Reach) || near(right, Reach);
    const bool onEnd = near(top, Reach) || near(bottom, Reach);
    if (onSide || onEnd) {
        // Close to a corner, either edge there takes both.
        if (near(left, onSide ? Reach : CornerReach))
            edges |= Qt::LeftEdge;
        if (near(right, onSide ? Reach : CornerReach))
            edges |= Qt::RightEdge;
        if (near(top, onEnd ? Reach : CornerReach))
            edges |= Qt::TopEdge;
        if (near(bottom, onEnd ? Reach : CornerReach))
            edges |= Qt::BottomEdge;
    }
    return edges;
}

void ZelWindowEdges::showPointerFor(Qt::Edges edges)
{
    if (edges == m_hovered)
        return;
    if (!m_hovered)
        QGuiApplication::setOverrideCursor(pointerFor(edges));
    else if (edges)
        QGuiApplication::changeOverrideCursor(pointerFor(edges));
    else
        QGuiApplication::restoreOverrideCursor();
    m_hovered = edges;
}

bool ZelWindowEdges::press(const QMouseEvent* event)
{
    const Qt::Edges edges = edgesAt(event->position().toPoint());
    if (event->button() != Qt::LeftButton || !edges)
        return false;
    // The window manager resizes with its own feel (snapping, outlines) where it can.
    if (m_window->windowHandle()->startSystemResize(edges))
        return true;
    m_dragged = edges;
    m_pressedAt = event->globalPosition().toPoint();
    m_startGeometry = m_window->geometry();
    return true;
}

void ZelWindowEdges::resizeTo(const QPoint& globalPosition)
{
    const QPoint moved = globalPosition - m_pressedAt;
    const QSize least = m_window->minimumSize().expandedTo(QSize(1, 1));
    const QSize most = m_window->maximumSize();
    QRect frame = m_startGeometry;
    if (m_dragged & Qt::LeftEdge)
        frame.setLeft(draggedEdge(frame.left(), moved.x(), frame.right(), least.width(), most.width()));
    if (m_dragged & Qt::RightEdge)
        frame.setRight(draggedEdge(frame.right(), moved.x(), frame.left(), least.width(), most.width()));
    if (m_dragged & Qt::TopEdge)
        frame.setTop(draggedEdge(frame.top(), moved.y(), frame.bottom(), least.height(), most.height()));
    if (m_dragged & Qt::BottomEdge)
        frame.setBottom(draggedEdge(frame.bottom(), moved.y(), frame.top(), least.height(), most.height()));
    m_window->setGeometry(frame);
}

bool ZelWindowEdges::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_window) {
        if (event->type() == QEvent::Show && m_window->windowHandle()) {
            m_window->removeEventFilter(this);
            m_window->windowHandle()->installEventFilter(this);
        }
        return false;
    }
    switch (event->type()) {
    case QEvent::MouseMove: {
        const auto* mouse = static_cast<const QMouseEvent*>(event);
        if (m_dragged) {
            resizeTo(mouse->globalPosition().toPoint());
            return true;
        }
        if (mouse->buttons() == Qt::NoButton)
            showPointerFor(edgesAt(mouse->position().toPoint()));
        return false;
    }
    case QEvent::MouseButtonPress:
        return press(static_cast<const QMouseEvent*>(event));
    case QEvent::MouseButtonDblClick:
        // The press before it began the resize; the header must not take it as its own.
        return edgesAt(static_cast<const QMouseEvent*>(event)->position().toPoint()) != Qt::Edges();
    case QEvent::MouseButtonRelease:
        if (!m_dragged)
            return false;
        if (static_cast<const QMouseEvent*>(event)->button() == Qt::LeftButton)
            m_dragged = {};
        return true;
    case QEvent::Leave:
        if (!m_dragged)
            showPointerFor({});
        return false;
    default:
        return false;
    }
}

} // namespace zel
