#pragma once

#include "ZelKernelExport.h"

#include <QObject>

namespace zel {

// The scene components the user has selected. The settings editor shows no scene, so
// it only ever holds an empty one.
class ZEL_KERNEL_EXPORT kqDMSelection : public QObject
{
    Q_OBJECT

public:
    explicit kqDMSelection(QObject* parent = nullptr);
    ~kqDMSelection() override;

    bool isEmpty() const;

private:
    Q_DISABLE_COPY_MOVE(kqDMSelection)
};

} // namespace zel
