#include "kqDMSelection.h"

#include <algorithm>

namespace zel {

kqDMSelection::kqDMSelection(QObject* parent)
    : QObject(parent)
{
}

kqDMSelection::~kqDMSelection() = default;

bool kqDMSelection::isEmpty() const
{
    return m_components.empty();
}

const std::vector<kqDMComponentId>& kqDMSelection::components() const
{
    return m_components;
}

bool kqDMSelection::add(kqDMComponentId component)
{
    if (std::find(m_components.cbegin(), m_components.cend(), component) != m_components.cend())
        return false;
    m_components.push_back(component);
    Q_EMIT selectionChanged();
    return true;
}

bool kqDMSelection::remove(kqDMComponentId component)
{
    const auto found = std::find(m_components.cbegin(), m_components.cend(), component);
    if (found == m_components.cend())
        return false;
    m_components.erase(found);
    Q_EMIT selectionChanged();
    return true;
}

void kqDMSelection::clear()
{
    if (m_components.empty())
        return;
    m_components.clear();
    Q_EMIT selectionChanged();
}

} // namespace zel
