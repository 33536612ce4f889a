#pragma once

#include "ZelKernelExport.h"

#include <QObject>
#include <QPoint>
#include <QPointer>

class QWidget;

namespace kq {

// Moves a frameless window while the user drags an anchor widget inside it, and
// optionally maximises or restores it on a double click of the anchor.
class ZEL_KERNEL_EXPORT kqMovableObject : public QObject
{
    Q_OBJECT

public:
    explicit kqMovableObject(QWidget* window);
    ~kqMovableObject() override;

    void setExpandOnDlbClick(bool expand);
    // Dragging `anchor` moves `target`.
    void setAnchorObject(QWidget* anchor, QWidget* target);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    Q_DISABLE_COPY_MOVE(kqMovableObject)
    QPointer<QWidget> m_anchor;
    QPointer<QWidget> m_target;
    QPoint m_pressOffset;
    bool m_dragging = false;
    bool m_expandOnDoubleClick = false;
};

} // namespace kq
