#pragma once

#include "ZelControlCenterExport.h"

#include <QDoubleSpinBox>

namespace zel {

// The floating-point twin of zelSpinBox: wheel input only while focused.
class ZEL_CONTROLCENTER_EXPORT zelDoubleSpinBox : public QDoubleSpinBox
{
    Q_OBJECT

public:
    explicit zelDoubleSpinBox(QWidget* parent = nullptr);
    ~zelDoubleSpinBox() override;

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    Q_DISABLE_COPY_MOVE(zelDoubleSpinBox)
};

} // namespace zel
