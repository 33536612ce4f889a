#include "ZelSettingsApplication.h"

#include "ZelSettings.h"

namespace zel {

ZelSettingsApplication::ZelSettingsApplication(const QString& applicationFolder)
    // Our INI format: a damaged file cannot hang the editor, and a write keeps what the
    // user typed. UTF-8 needs no codec in Qt 6.
    : ZelSettingsApplication(applicationFolder,
                             std::make_unique<QSettings>(applicationFolder + QStringLiteral("/Settings.ini"),
                                                         ZelSettings::SettingsFormat()))
{
}

ZelSettingsApplication::ZelSettingsApplication(const QString& applicationFolder, std::unique_ptr<QSettings> settings)
    : m_settings(std::move(settings))
    , m_applicationFolder(applicationFolder)
{
}

ZelSettingsApplication::~ZelSettingsApplication() = default;

void ZelSettingsApplication::clearViewerApp()
{
}

kqDMManager* ZelSettingsApplication::getDMManager() const
{
    return nullptr;
}

kqDMRenderer* ZelSettingsApplication::getDMRenderer() const
{
    return nullptr;
}

QQmlEngine* ZelSettingsApplication::getDeclarativeEngine() const
{
    return nullptr;
}

zelMaterialManagerInterface* ZelSettingsApplication::getMaterialManager() const
{
    return nullptr;
}

void ZelSettingsApplication::setMaterialManager(zelMaterialManagerInterface* /*manager*/)
{
}

kqNavigationManager* ZelSettingsApplication::getNavigationManager() const
{
    return nullptr;
}

QSettings& ZelSettingsApplication::getSettings()
{
    return *m_settings;
}

kqDMProject* ZelSettingsApplication::editProject()
{
    return nullptr;
}

const std::vector<kqDMPlugin*>& ZelSettingsApplication::getPluginsList() const
{
    return m_plugins;
}

kqDMGuiPlugin* ZelSettingsApplication::getGuiPlugin() const
{
    return nullptr;
}

const kqDMSelection& ZelSettingsApplication::getSelection() const
{
    return m_selection;
}

kqDMSelection& ZelSettingsApplication::grabSelection()
{
    return m_selection;
}

void ZelSettingsApplication::setScreenshotImageFolder(const QString& /*folder*/)
{
}

const QString& ZelSettingsApplication::getScreenshotImageFolder() const
{
    return m_screenshotImageFolder;
}

void ZelSettingsApplication::updateAfterCompleteLoading()
{
}

void ZelSettingsApplication::setUpdateEngineEnabled(bool /*enabled*/)
{
}

void ZelSettingsApplication::setLowUpdateEngineFrequency(bool /*low*/)
{
}

zelThumbnailManager* ZelSettingsApplication::getThumbnailManager() const
{
    return nullptr;
}

void ZelSettingsApplication::notifyAppEvent(zelAppEvent /*event*/)
{
}

QString ZelSettingsApplication::getDefaultSettingsValue(const QString& /*key*/)
{
    return QString();
}

const QString& ZelSettingsApplication::getLanguageCode()
{
    return m_languageCode;
}

const QString& ZelSettingsApplication::getApplicationFolder() const
{
    return m_applicationFolder;
}

bool ZelSettingsApplication::removeComponent(kqDMComponentId /*component*/)
{
    return false;
}

void ZelSettingsApplication::applicationStarted()
{
}

void ZelSettingsApplication::applicationFinished()
{
}

bool ZelSettingsApplication::saveDocument()
{
    return false;
}

void ZelSettingsApplication::loadDocument(const QStringList& /*files*/, bool /*merge*/)
{
}

void ZelSettingsApplication::loadDocument(bool /*merge*/)
{
}

void ZelSettingsApplication::set3DSelectionPickingEnabled(bool /*enabled*/)
{
}

bool ZelSettingsApplication::is3DSelectionPickingEnabled() const
{
    return true;
}

std::vector<PostSaveEventItem>& ZelSettingsApplication::getPostSaveEventVector()
{
    return m_postSaveEvents;
}

void ZelSettingsApplication::setWorkFlowWidget(QWidget* /*widget*/)
{
}

void ZelSettingsApplication::registerMouseReleaseEventFilter(zelReleaseEventFilter* /*filter*/, bool /*prepend*/)
{
}

void ZelSettingsApplication::setLanguageCode(const QString& languageCode)
{
    m_languageCode = languageCode;
}

} // namespace zel
