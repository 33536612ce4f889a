#include "zelWheelGuard.h"

#include "zelDoubleSpinBox.h"
#include "zelSpinBox.h"

#include <QAbstractSlider>
#include <QComboBox>

namespace zel {

namespace {

const QLatin1String GuardName("zelWheelGuard");

// Does for any field what the guarded spin boxes do in their own focus handlers.
class FieldWheelGuard : public QObject
{
public:
    explicit FieldWheelGuard(QWidget* field)
        : QObject(field)
    {
        setObjectName(GuardName);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        auto* field = static_cast<QWidget*>(watched);
        if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
            zelWheelGuard::followFocus(field, event->type() == QEvent::FocusIn);
        return zelWheelGuard::blocks(field, event);
    }
};

bool takesWheelUnguarded(const QWidget* field)
{
    if (qobject_cast<const zelSpinBox*>(field) || qobject_cast<const zelDoubleSpinBox*>(field))
        return false;
    return qobject_cast<const QComboBox*>(field) || qobject_cast<const QAbstractSlider*>(field)
        || qobject_cast<const QAbstractSpinBox*>(field);
}

} // namespace

void zelWheelGuard::guard(QWidget* field)
{
    if (!takesWheelUnguarded(field) || field->findChild<QObject*>(GuardName, Qt::FindDirectChildrenOnly))
        return;
    if (!field->hasFocus())
        zelWheelGuard::followFocus(field, false);
    field->installEventFilter(new FieldWheelGuard(field));
}

} // namespace zel
