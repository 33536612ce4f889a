#include "kqMovableObject.h"

#include <QMouseEvent>
#include <QWidget>

namespace kq {

namespace {

// Where `global` lies in the coordinates `target` is positioned in.
QPoint positionFor(const QWidget* target, const QPoint& global)
{
    if (target->isWindow() || !target->parentWidget())
        return global;
    return target->parentWidget()->mapFromGlobal(global);
}

} // namespace

kqMovableObject::kqMovableObject(QWidget* window)
    : QObject(window)
    , m_target(window)
{
}

kqMovableObject::~kqMovableObject()
{
    if (m_anchor)
        m_anchor->removeEventFilter(this);
}

void kqMovableObject::setExpandOnDlbClick(bool expand)
{
    m_expandOnDoubleClick = expand;
}

void kqMovableObject::setAnchorObject(QWidget* anchor, QWidget* target)
{
    if (m_anchor)
        m_anchor->removeEventFilter(this);
    m_anchor = anchor;
    m_target = target;
    m_dragging = false;
    if (m_anchor)
        m_anchor->installEventFilter(this);
}

bool kqMovableObject::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != m_anchor || !m_target)
        return QObject::eventFilter(watched, event);

    switch (event->type()) {
    case QEvent::MouseButtonPress: {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        // A maximised or full-screen window keeps its place until restored.
        if (mouse->button() == Qt::LeftButton && !(m_target->windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen))) {
            m_dragging = true;
            m_pressOffset = positionFor(m_target, mouse->globalPosition().toPoint()) - m_target->pos();
        }
        break;
    }
    case QEvent::MouseMove: {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        if (m_dragging && (mouse->buttons() & Qt::LeftButton)) {
            m_target->move(positionFor(m_target, mouse->globalPosition().toPoint()) - m_pressOffset);
            return true;
        }
        break;
    }
    case QEvent::MouseButtonRelease:
        if (static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton)
            m_dragging = false;
        break;
    case QEvent::MouseButtonDblClick:
        if (m_expandOnDoubleClick && static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
            m_dragging = false;
            if (m_target->isMaximized())
                m_target->showNormal();
            else
                m_target->showMaximized();
            return true;
        }
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace kq
