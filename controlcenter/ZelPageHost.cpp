#include "ZelPageHost.h"

#include "ZelControlCenter.h"

#include <QWidget>

namespace zel {

QWidget* pageHost(const ZelControlCenter& controlCenter)
{
    // The frame of the page stack in the control center's form.
    return controlCenter.settingsWidget()->findChild<QWidget*>(QStringLiteral("applicationFrame"));
}

} // namespace zel
