#pragma once

#include <QEvent>
#include <QWidget>

namespace zel {

// Shared by the guarded spin boxes. The focus policy doubles as the "has focus" flag:
// WheelFocus while focused, StrongFocus (tab and click only) otherwise.
namespace zelWheelGuard {

// True when `event` must not reach `box`: a wheel or mouse move while unfocused. The
// event is then ignored, so that a wheel travels on to the enclosing scroll area.
inline bool blocks(const QWidget* box, QEvent* event)
{
    if (event->type() != QEvent::Wheel && event->type() != QEvent::MouseMove)
        return false;
    const bool focused = box->focusPolicy() == Qt::WheelFocus;
    event->setAccepted(focused);
    return !focused;
}

} // namespace zelWheelGuard

} // namespace zel
