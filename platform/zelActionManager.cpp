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
    // A name whose action is gone is free again.
    if (slot && slot != action)
        return false;
    slot = action;
    return true;
}

void zelActionManager::unregisterAction(zelAction* action)
{
    if (!action)
        return;
    const auto found = m_actions.constFind(action->getActionName());
    if (found != m_actions.cend() && *found == action)
        m_actions.erase(found);
}

zelAction* zelActionManager::getActionByName(const QString& name) const
{
    return m_actions.value(name);
}

} // namespace zel
