#pragma once

#include <QEvent>
#include <QWidget>

namespace zel {

// Shared by the guarded spin boxes and the drawer's other fields. The focus policy
// doubles as the "has focus" flag: WheelFocus while focused, StrongFocus (tab and click
// only) otherwise.
namespace zelWheelGuard {

// Called as `box` gains or loses focus: from then on it takes the wheel, or lets it pass.
inline void followFocus(QWidget* box, bool focused)
{
    box->setFocusPolicy(focused ? Qt::WheelFocus : Qt::StrongFocus);
}

// True when `event` must not reach `box`: a wheel or mouse move while unfocused. The
// event is then ignored, so that a wheel travels on to the enclosing scroll area.
inline bool blocks(QWidget* box, QEvent* event)
{
    // A form may hand the box WheelFocus. Until the box really has focus that would
    // read as focused, and Qt itself would give it focus on the first wheel turn.
    if (event->type() == QEvent::Polish && box->focusPolicy() == Qt::WheelFocus && !box->hasFocus())
        followFocus(box, false);
    if (event->type() != QEvent::Wheel && event->type() != QEvent::MouseMove)
        return false;
    const bool focused = box->focusPolicy() == Qt::WheelFocus;
    event->setAccepted(focused);
    return !focused;
}

// Gives a field that takes the wheel but has no guard of its own (a combo box, a slider,
// a plain spin box) the guarded spin boxes' rule. Once per field; the guard is its child.
void guard(QWidget* field);

} // namespace zelWheelGuard

} // namespace zel
