#pragma once

#include "ZelKernelExport.h"

#include <QAction>
#include <QString>

namespace zel {

class zelActionManager;

// A kernel action: a QAction known by a stable name and shown with a GUI name (its text).
class ZEL_KERNEL_EXPORT zelAction : public QAction
{
    Q_OBJECT

public:
    // Registers itself with `manager` when one is given; the text is `guiName`.
    zelAction(const QString& name, const QString& guiName, zelActionManager* manager = nullptr,
              QObject* parent = nullptr);
    ~zelAction() override;

    const QString& getActionName() const;
    QString getActionGuiName() const;
    // Changes the shown name; emits changed().
    void setActionGuiName(const QString& guiName);

private:
    Q_DISABLE_COPY_MOVE(zelAction)
    QString m_name;
};

} // namespace zel
