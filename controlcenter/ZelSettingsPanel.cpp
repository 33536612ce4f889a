#include "ZelSettingsPanel.h"

#include <QPushButton>

namespace zel {

ZelSettingsPanel::ZelSettingsPanel(kqDMIApplication* application, QSettings& settings, QWidget* parent,
                                   Qt::WindowFlags flags)
    : QWidget(parent, flags)
    , m_application(application)
    , m_settings(&settings)
{
    // Lets style sheets paint the page's background, as they do for plain QWidgets.
    setAttribute(Qt::WA_StyledBackground);

    // Auto-exclusive so that the buttons of pages sharing a parent act as radio buttons
    // even before the control center groups them.
    m_actionWidget = new QPushButton(this);
    m_actionWidget->setCheckable(true);
    m_actionWidget->setAutoExclusive(true);
}

ZelSettingsPanel::~ZelSettingsPanel()
{
    // The button may live in the control center's layout by now; it is still ours.
    delete m_actionWidget;
    m_actionWidget = nullptr;
}

ZelSettingsPanel::PanelCategory ZelSettingsPanel::getPanelCategory() const
{
    return m_category;
}

void ZelSettingsPanel::setPanelCategory(PanelCategory category)
{
    m_category = category;
}

QPushButton* ZelSettingsPanel::getActionWidget() const
{
    return m_actionWidget;
}

const QString& ZelSettingsPanel::getPanelName() const
{
    return m_panelName;
}

void ZelSettingsPanel::setPanelName(const QString& name)
{
    m_panelName = name;
    m_actionWidget->setText(name);
}

void ZelSettingsPanel::refreshWidgetContent()
{
}

void ZelSettingsPanel::registerCCAction(zelAction* action)
{
    Q_UNUSED(action)
}

void ZelSettingsPanel::unregisterCCActionByName(const QString& name)
{
    Q_UNUSED(name)
}

QStringList ZelSettingsPanel::reloadStoredSettings()
{
    return {};
}

void ZelSettingsPanel::applyNotWritten()
{
}

std::vector<SettingField> ZelSettingsPanel::settingFields() const
{
    return {};
}

kqDMIApplication* ZelSettingsPanel::application() const
{
    return m_application;
}

QSettings& ZelSettingsPanel::settings()
{
    return *m_settings;
}

const QSettings& ZelSettingsPanel::settings() const
{
    return *m_settings;
}

} // namespace zel
