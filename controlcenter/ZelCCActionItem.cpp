#include "ZelCCActionItem.h"
#include "ui_ZelCCActionItem.h"

#include "kqDMIApplication.h"
#include "zelAction.h"

namespace zel {

ZelCCActionItem::ZelCCActionItem(zelAction* action, QWidget* parent, Qt::WindowFlags flags)
    : QWidget(parent, flags)
    , m_ui(std::make_unique<Ui::ZelCCActionItem>())
    , m_action(action)
{
    m_ui->setupUi(this);
    setStyleSheet(kqDMIApplication::GetStylesheet(QStringLiteral("ZelCCActionItem")));

    onActionChanged();
    connect(m_action, &QAction::changed, this, &ZelCCActionItem::onActionChanged);
    connect(m_ui->actionButton, &QAbstractButton::clicked, m_action, &QAction::trigger);
}

ZelCCActionItem::~ZelCCActionItem() = default;

zelAction* ZelCCActionItem::getZelAction() const
{
    return m_action;
}

void ZelCCActionItem::setIsWorkflowSpecific(bool workflowSpecific)
{
    m_workflowSpecific = workflowSpecific;
}

bool ZelCCActionItem::isWorkflowSpecific() const
{
    return m_workflowSpecific;
}

void ZelCCActionItem::onActionChanged()
{
    // A new item shows with its column; showing it here would style it before it is in place.
    if (isVisibleTo(parentWidget()) != m_action->isVisible())
        setVisible(m_action->isVisible());
    m_ui->actionButton->setText(m_action->getActionGuiName());

    // An empty shortcut only hides the label: the old text stays behind it.
    const QKeySequence shortcut = m_action->shortcut();
    if (!shortcut.isEmpty())
        m_ui->shortcut->setText(shortcut.toString(QKeySequence::NativeText));
    m_ui->shortcut->setVisible(!shortcut.isEmpty());

    setStatusTip(m_action->statusTip());
    setToolTip(m_action->toolTip());
    m_ui->actionButton->setEnabled(m_action->isEnabled());
}

} // namespace zel
