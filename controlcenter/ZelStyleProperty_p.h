#pragma once

#include <QStyle>
#include <QVariant>
#include <QWidget>

namespace zel {

// Sets a dynamic property that the style sheets select on. Qt restyles a widget only
// when it is polished again, so a change polishes it anew.
inline void setStyleProperty(QWidget* widget, const char* name, const QVariant& value)
{
    if (widget->property(name) == value)
        return;
    widget->setProperty(name, value);
    widget->style()->unpolish(widget);
    widget->style()->polish(widget);
    widget->update();
}

} // namespace zel
