#pragma once

#include "ZelKernelExport.h"

#include <QString>

class QWidget;

namespace zel {

// A plug-in loaded by the viewer, as listed on the About page.
class ZEL_KERNEL_EXPORT kqDMPlugin
{
public:
    virtual ~kqDMPlugin();
    // Called when the plug-in is listed: its display name.
    virtual QString getPluginName() const = 0;
    // Called when the plug-in is listed: its version text (may be empty).
    virtual QString getPluginVersion() const = 0;

protected:
    kqDMPlugin() = default;
    Q_DISABLE_COPY_MOVE(kqDMPlugin)
};

// The viewer's user interface plug-in; only present inside the full viewer.
class ZEL_KERNEL_EXPORT kqDMGuiPlugin
{
public:
    virtual ~kqDMGuiPlugin();
    // Called when a click may close the control center: the main 3D view, or null.
    virtual QWidget* getMainViewWidget() const = 0;

protected:
    kqDMGuiPlugin() = default;
    Q_DISABLE_COPY_MOVE(kqDMGuiPlugin)
};

// One action the viewer queues to run after its next successful save; the settings
// editor never saves a document, so it never holds one.
struct PostSaveEventItem
{
};

} // namespace zel
