#include "kqDMSelection.h"

namespace zel {

kqDMSelection::kqDMSelection(QObject* parent)
    : QObject(parent)
{
}

kqDMSelection::~kqDMSelection() = default;

bool kqDMSelection::isEmpty() const
{
    return true;
}

} // namespace zel
