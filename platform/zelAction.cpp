#include "zelAction.h"

#include "zelActionManager.h"

namespace zel {

zelAction::zelAction(const QString& name, const QString& guiName, zelActionManager* manager, QObject* parent)
    : QAction(guiName, parent)
    , m_name(name)
    , m_guiName(guiName)
{
    if (manager && manager->registerAction(this)) {
        m_manager = manager;
        // The manager may go first; never unregister from a dead one.
        connect(manager, &QObject::destroyed, this, [this] { m_manager = nullptr; });
    }
}

zelAction::~zelAction()
{
    if (m_manager)
        m_manager->unregisterAction(this);
}

const QString& zelAction::getActionName() const
{
    return m_name;
}

const QString& zelAction::getActionGuiName() const
{
    return m_guiName;
}

void zelAction::setActionGuiName(const QString& guiName)
{
    m_guiName = guiName;
    setText(guiName);
}

} // namespace zel
