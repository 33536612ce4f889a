#include "ZelCCActionColumn_p.h"

#include "ZelCCActionItem.h"
#include "zelAction.h"

#include <QBoxLayout>
#include <QFrame>

#include <algorithm>

namespace zel {

namespace {

// Separators leave this much of the menu column's width free.
constexpr int SeparatorInset = 18;

} // namespace

ZelCCActionColumn::ZelCCActionColumn(QBoxLayout* layout, QWidget* menu)
    : m_layout(layout)
    , m_menu(menu)
{
}

ZelCCActionColumn::~ZelCCActionColumn() = default;

void ZelCCActionColumn::addAction(zelAction* action, const QString& anchorName, bool workflowSpecific, bool after,
                                  bool closesMenu)
{
    auto* item = new ZelCCActionItem(action, m_menu);
    item->setIsWorkflowSpecific(workflowSpecific);
    if (closesMenu)
        connect(action, &QAction::triggered, this, &ZelCCActionColumn::closingActionTriggered);
    connect(action, &QObject::destroyed, this, &ZelCCActionColumn::forgetAction, Qt::UniqueConnection);
    m_items.push_back(item);

    if (anchorName.isEmpty()) {
        m_layout->insertWidget(0, item);
        m_menu->layout()->invalidate();
        return;
    }
    const int anchor = itemIndex(anchorName);
    if (anchor >= 0) {
        m_layout->insertWidget(after ? anchor + 1 : anchor, item);
    } else {
        m_layout->addWidget(item);
        m_menu->layout()->invalidate();
    }
}

void ZelCCActionColumn::removeAction(zelAction* action)
{
    bool registered = false;
    for (auto it = m_items.begin(); it != m_items.end();) {
        if ((*it)->getZelAction() != action) {
            ++it;
            continue;
        }
        disconnect(action, &QAction::triggered, this, &ZelCCActionColumn::closingActionTriggered);
        delete *it;
        it = m_items.erase(it);
        registered = true;
    }
    if (registered)
        disconnect(action, &QObject::destroyed, this, &ZelCCActionColumn::forgetAction);
}

bool ZelCCActionColumn::addSeparator(const QString& anchorName, const QString& separatorName)
{
    if (m_separators.contains(separatorName))
        return false;

    auto* separator = new QFrame(m_menu);
    // Qt 6 rejects an alpha given to rgb() (with a warning) and paints nothing.
    separator->setStyleSheet(QStringLiteral("background:rgba(0,0,0,30);"));
    separator->setFixedHeight(1);
    fit(separator);
    m_separators.insert(separatorName, separator);

    // Separators always go before their anchor; -1 (not found) appends.
    const int anchor = anchorName.isEmpty() ? 0 : itemIndex(anchorName);
    m_layout->insertWidget(anchor, separator, 0, Qt::AlignHCenter);
    return true;
}

bool ZelCCActionColumn::setSeparatorVisible(const QString& separatorName, bool visible)
{
    QFrame* separator = m_separators.value(separatorName);
    if (!separator)
        return false;
    separator->setVisible(visible);
    return true;
}

void ZelCCActionColumn::fitSeparators()
{
    // A separator made while the column was closed would otherwise keep a width of 0.
    for (QFrame* separator : std::as_const(m_separators))
        fit(separator);
}

void ZelCCActionColumn::forgetAction(QObject* action)
{
    for (auto it = m_items.begin(); it != m_items.end();) {
        if ((*it)->getZelAction() == action) {
            delete *it;
            it = m_items.erase(it);
        } else {
            ++it;
        }
    }
}

int ZelCCActionColumn::itemIndex(const QString& anchorName) const
{
    for (int i = 0; i < m_layout->count(); ++i) {
        const auto* item = qobject_cast<ZelCCActionItem*>(m_layout->itemAt(i)->widget());
        if (item && item->getZelAction()->getActionName() == anchorName)
            return i;
    }
    return -1;
}

void ZelCCActionColumn::fit(QFrame* separator) const
{
    separator->setFixedWidth(std::max(0, m_menu->width() - SeparatorInset));
}

} // namespace zel
