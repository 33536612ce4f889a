#pragma once

#include "ZelControlCenterExport.h"
#include "ZelSettingsPanel.h"

#include <memory>

namespace Ui {
class ZelAboutSettingsPanel;
}

namespace zel {

// The read-only "About" page: product, platform and kernel version, the maker's notice,
// the plug-ins the host has loaded and the components this software uses. It holds no
// settings, so the control center never enables Apply or Reset for it.
class ZEL_CONTROLCENTER_EXPORT ZelAboutSettingsPanel : public ZelSettingsPanel
{
    Q_OBJECT

public:
    ZelAboutSettingsPanel(kqDMIApplication* application, QSettings& settings, QWidget* parent = nullptr,
                          Qt::WindowFlags flags = {});
    ~ZelAboutSettingsPanel() override;

    // Fills the page the first time only: it is a snapshot of what was loaded then.
    void initializeWidget() override;
    bool hasModifications() const override;
    bool applyModifications() override;
    bool canResetContent() const override;
    void resetContent() override;
    bool cancelModifications() override;
    // Nothing to save.
    virtual void saveSettings();

Q_SIGNALS:
    void stateChanged();

private Q_SLOTS:
    // Opens a link of the components text with the desktop's handler.
    void onLinkActivated(const QString& link);

private:
    Q_DISABLE_COPY_MOVE(ZelAboutSettingsPanel)

    std::unique_ptr<Ui::ZelAboutSettingsPanel> m_ui;
    bool m_initialized = false;
};

} // namespace zel
