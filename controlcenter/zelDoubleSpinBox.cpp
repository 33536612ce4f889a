#include "zelDoubleSpinBox.h"

#include "zelWheelGuard.h"

namespace zel {

zelDoubleSpinBox::zelDoubleSpinBox(QWidget* parent)
    : QDoubleSpinBox(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    installEventFilter(this);
}

zelDoubleSpinBox::~zelDoubleSpinBox()
{
    removeEventFilter(this);
}

void zelDoubleSpinBox::focusInEvent(QFocusEvent* event)
{
    setFocusPolicy(Qt::WheelFocus);
    QDoubleSpinBox::focusInEvent(event);
}

void zelDoubleSpinBox::focusOutEvent(QFocusEvent* event)
{
    setFocusPolicy(Qt::StrongFocus);
    QDoubleSpinBox::focusOutEvent(event);
}

bool zelDoubleSpinBox::eventFilter(QObject* watched, QEvent* event)
{
    if (zelWheelGuard::blocks(this, event))
        return true;
    return QDoubleSpinBox::eventFilter(watched, event);
}

} // namespace zel
