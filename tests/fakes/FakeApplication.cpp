#include "FakeApplication.h"

QWidget* FakeGuiPlugin::getMainViewWidget() const
{
    return m_view;
}

void FakeGuiPlugin::setMainViewWidget(QWidget* view)
{
    m_view = view;
}

FakeApplication::FakeApplication(Host host)
    : m_guiPlugin(host == Host::Viewer ? std::make_unique<FakeGuiPlugin>() : nullptr)
    , m_settings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("ZelTests"), QStringLiteral("Fake"))
{
}

FakeApplication::~FakeApplication() = default;

FakeGuiPlugin* FakeApplication::guiPlugin() const
{
    return m_guiPlugin.get();
}

const std::vector<bool>& FakeApplication::engineUpdates() const
{
    return m_engineUpdates;
}

bool FakeApplication::engineUpdatesBalanced() const
{
    // Any pause before the last call is followed by that last call.
    return m_engineUpdates.empty() || m_engineUpdates.back();
}

zel::kqDMGuiPlugin* FakeApplication::getGuiPlugin() const
{
    return m_guiPlugin.get();
}

void FakeApplication::setUpdateEngineEnabled(bool enabled)
{
    m_engineUpdates.push_back(enabled);
}

// Nothing below is used by the control center: neutral answers only.

void FakeApplication::clearViewerApp() {}
zel::kqDMManager* FakeApplication::getDMManager() const { return nullptr; }
zel::kqDMRenderer* FakeApplication::getDMRenderer() const { return nullptr; }
QQmlEngine* FakeApplication::getDeclarativeEngine() const { return nullptr; }
zel::zelMaterialManagerInterface* FakeApplication::getMaterialManager() const { return nullptr; }
void FakeApplication::setMaterialManager(zel::zelMaterialManagerInterface*) {}
zel::kqNavigationManager* FakeApplication::getNavigationManager() const { return nullptr; }
QSettings& FakeApplication::getSettings() { return m_settings; }
zel::kqDMProject* FakeApplication::editProject() { return nullptr; }
const std::vector<zel::kqDMPlugin*>& FakeApplication::getPluginsList() const { return m_plugins; }
const zel::kqDMSelection& FakeApplication::getSelection() const { return m_selection; }
zel::kqDMSelection& FakeApplication::grabSelection() { return m_selection; }
void FakeApplication::setScreenshotImageFolder(const QString&) {}
const QString& FakeApplication::getScreenshotImageFolder() const { return m_text; }
void FakeApplication::updateAfterCompleteLoading() {}
void FakeApplication::setLowUpdateEngineFrequency(bool) {}
zel::zelThumbnailManager* FakeApplication::getThumbnailManager() const { return nullptr; }
void FakeApplication::notifyAppEvent(zel::zelAppEvent) {}
QString FakeApplication::getDefaultSettingsValue(const QString&) { return QString(); }
const QString& FakeApplication::getLanguageCode() { return m_text; }
const QString& FakeApplication::getApplicationFolder() const { return m_text; }
bool FakeApplication::removeComponent(zel::kqDMComponentId) { return false; }
void FakeApplication::applicationStarted() {}
void FakeApplication::applicationFinished() {}
bool FakeApplication::saveDocument() { return false; }
void FakeApplication::loadDocument(const QStringList&, bool) {}
void FakeApplication::loadDocument(bool) {}
void FakeApplication::set3DSelectionPickingEnabled(bool) {}
bool FakeApplication::is3DSelectionPickingEnabled() const { return false; }
std::vector<zel::PostSaveEventItem>& FakeApplication::getPostSaveEventVector() { return m_postSaveEvents; }
void FakeApplication::setWorkFlowWidget(QWidget*) {}
void FakeApplication::registerMouseReleaseEventFilter(zel::zelReleaseEventFilter*, bool) {}
