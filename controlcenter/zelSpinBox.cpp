#include "zelSpinBox.h"

#include "zelWheelGuard.h"

namespace zel {

zelSpinBox::zelSpinBox(QWidget* parent)
    : QSpinBox(parent)
{
    zelWheelGuard::followFocus(this, false);
    installEventFilter(this);
}

zelSpinBox::~zelSpinBox()
{
    removeEventFilter(this);
}

void zelSpinBox::focusInEvent(QFocusEvent* event)
{
    zelWheelGuard::followFocus(this, true);
    QSpinBox::focusInEvent(event);
}

void zelSpinBox::focusOutEvent(QFocusEvent* event)
{
    zelWheelGuard::followFocus(this, false);
    QSpinBox::focusOutEvent(event);
}

bool zelSpinBox::eventFilter(QObject* watched, QEvent* event)
{
    if (zelWheelGuard::blocks(this, event))
        return true;
    return QSpinBox::eventFilter(watched, event);
}

} // namespace zel
