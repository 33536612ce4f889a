#pragma once

// Input as the platform delivers it, for tests that drive widgets like a user.

#include <QApplication>
#include <QSpontaneKeyEvent>
#include <QTest>
#include <QWheelEvent>

// A click through the top-level window under the widget, which hands it on.
inline void click(QWidget* widget, QPoint position = QPoint())
{
    QWidget* window = widget->window();
    if (position.isNull())
        position = widget->rect().center();
    QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {}, widget->mapTo(window, position));
}

// A click on a check box's or radio button's indicator, where a user clicks: a layout
// may stretch the button far beyond its text, and the empty rest takes no clicks.
inline void clickIndicator(QWidget* button)
{
    click(button, QPoint(8, button->height() / 2));
}

// One wheel notch down over the middle of `field`, as the platform delivers it: to the
// widget under the pointer (a spin box's line edit), spontaneous, so that QApplication
// passes an ignored event on to the parents.
inline void turnWheelDown(QWidget* field)
{
    QWidget* target = field->childAt(field->rect().center());
    if (!target)
        target = field;
    const QPointF local = target->rect().center();
    QWheelEvent event(local, target->mapToGlobal(local), QPoint(), QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&event);
    QApplication::instance()->notify(target, &event);
}
