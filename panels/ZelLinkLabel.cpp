#include "ZelLinkLabel.h"

#include <QFocusEvent>

namespace zel {

ZelLinkLabel::ZelLinkLabel(QWidget* parent)
    : QLabel(parent)
{
}

ZelLinkLabel::~ZelLinkLabel() = default;

void ZelLinkLabel::focusInEvent(QFocusEvent* event)
{
    QLabel::focusInEvent(event);
    if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason)
        focusNextPrevChild(event->reason() == Qt::TabFocusReason);
}

} // namespace zel
