#pragma once

#include "ZelKernelExport.h"

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QString>

namespace zel {

class zelAction;

// Looks kernel actions up by name. Actions register themselves when they are created
// with a manager; a destroyed action frees its name.
class ZEL_KERNEL_EXPORT zelActionManager : public QObject
{
    Q_OBJECT

public:
    explicit zelActionManager(QObject* parent = nullptr);
    ~zelActionManager() override;

    // False when another living action already uses the name.
    bool registerAction(zelAction* action);
    // The action registered under `name`, or null.
    zelAction* getActionByName(const QString& name) const;

private:
    Q_DISABLE_COPY_MOVE(zelActionManager)
    QHash<QString, QPointer<zelAction>> m_actions;
};

} // namespace zel
