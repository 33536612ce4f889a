#include "zelDoubleSpinBox.h"

#include "zelWheelGuard.h"

namespace zel {

zelDoubleSpinBox::zelDoubleSpinBox(QWidget* parent)
    : QDoubleSpinBox(parent)
{
    zelWheelGuard::followFocus(this, false);
    installEventFilter(this);
}

zelDoubleSpinBox::~zelDoubleSpinBox()
{
    removeEventFilter(this);
}

void zelDoubleSpinBox::focusInEvent(QFocusEvent* event)
{
    zelWheelGuard::followFocus(this, true);
    QDoubleSpinBox::focusInEvent(event);
}

void zelDoubleSpinBox::focusOutEvent(QFocusEvent* event)
{
    zelWheelGuard::followFocus(this, false);
    QDoubleSpinBox::focusOutEvent(event);
}

bool zelDoubleSpinBox::eventFilter(QObject* watched, QEvent* event)
{
    if (zelWheelGuard::blocks(this, event))
        return true;
    return QDoubleSpinBox::eventFilter(watched, event);
}

} // namespace zel
