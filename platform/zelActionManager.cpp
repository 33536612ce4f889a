#include "zelActionManager.h"

#include "zelAction.h"

namespace zel {

zelActionManager::zelActionManager(QObject* parent)
    : QObject(parent)
{
}

zelActionManager::~zelActionManager() = default;

bool zelActionManager::registerAction(zelAction* action)
{
    if (!action)
        return false;
    QPointer<zelAction>& slot = m_actions[action->getActionName()];
    if (slot && slot != action)
        return false;
    slot = action;
    return true;
}

zelAction* zelActionManager::getActionByName(const QString& name) const
{
    return m_actions.value(name);
}

} // namespace zel
