#pragma once

#include "ZelKernelExport.h"
#include "kqDMIApplication.h"

#include <QObject>

#include <vector>

namespace zel {

// The set of scene components the user has selected, in selection order.
class ZEL_KERNEL_EXPORT kqDMSelection : public QObject
{
    Q_OBJECT

public:
    explicit kqDMSelection(QObject* parent = nullptr);
    ~kqDMSelection() override;

    bool isEmpty() const;
    const std::vector<kqDMComponentId>& components() const;
    // Adds `component` unless already selected; true when the selection changed.
    bool add(kqDMComponentId component);
    bool remove(kqDMComponentId component);
    void clear();

Q_SIGNALS:
    void selectionChanged();

private:
    Q_DISABLE_COPY_MOVE(kqDMSelection)
    std::vector<kqDMComponentId> m_components;
};

} // namespace zel
