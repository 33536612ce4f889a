#include "zelAction.h"

#include "zelActionManager.h"

namespace zel {

zelAction::zelAction(const QString& name, const QString& guiName, zelActionManager* manager, QObject* parent)
    : QAction(guiName, parent)
    , m_name(name)
{
    if (manager)
        manager->registerAction(this);
}

zelAction::~zelAction() = default;

const QString& zelAction::getActionName() const
{
    return m_name;
}

QString zelAction::getActionGuiName() const
{
    return text();
}

void zelAction::setActionGuiName(const QString& guiName)
{
    setText(guiName);
}

} // namespace zel
