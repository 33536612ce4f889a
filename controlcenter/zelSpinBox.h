#pragma once

#include "ZelControlCenterExport.h"

#include <QSpinBox>

namespace zel {

// A spin box that takes the mouse wheel only once the user has given it focus, so that
// scrolling a long settings page over it scrolls the page instead of changing the value.
class ZEL_CONTROLCENTER_EXPORT zelSpinBox : public QSpinBox
{
    Q_OBJECT

public:
    explicit zelSpinBox(QWidget* parent = nullptr);
    ~zelSpinBox() override;

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    Q_DISABLE_COPY_MOVE(zelSpinBox)
};

} // namespace zel
