#pragma once

#include "ZelControlCenterExport.h"

#include <QWidget>

#include <memory>

namespace Ui {
class ZelCCActionItem;
}

namespace zel {

class zelAction;

// One button of the control center's menu column, mirroring a kernel action: its
// name, shortcut, tips, visibility and enabled state follow the action, and a click
// triggers it.
class ZEL_CONTROLCENTER_EXPORT ZelCCActionItem : public QWidget
{
    Q_OBJECT

public:
    // `action` is not owned and must outlive the item.
    explicit ZelCCActionItem(zelAction* action, QWidget* parent = nullptr, Qt::WindowFlags flags = {});
    ~ZelCCActionItem() override;

    zelAction* getZelAction() const;

    // Marks items that belong to one workflow of the host rather than to the viewer.
    void setIsWorkflowSpecific(bool workflowSpecific);
    bool isWorkflowSpecific() const;

public Q_SLOTS:
    void onActionChanged();

private:
    Q_DISABLE_COPY_MOVE(ZelCCActionItem)

    std::unique_ptr<Ui::ZelCCActionItem> m_ui;
    zelAction* m_action = nullptr;
    bool m_workflowSpecific = false;
};

} // namespace zel
