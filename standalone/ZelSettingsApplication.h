#pragma once

#include "ZelControlCenterExport.h"

#include "kqDMIApplication.h"
#include "kqDMPlugin.h"
#include "kqDMSelection.h"

#include <QSettings>
#include <QString>

#include <memory>
#include <vector>

namespace zel {

// The application interface of the stand-alone settings editor: it has a settings
// file, a folder, a language and an empty selection, but no scene, renderer or
// plug-in, so everything else answers null, false or nothing.
class ZEL_CONTROLCENTER_EXPORT ZelSettingsApplication : public kqDMIApplication
{
    Q_OBJECT

public:
    // Settings.ini lives directly in `applicationFolder`.
    explicit ZelSettingsApplication(const QString& applicationFolder);
    // Takes over the settings that the start-up has read already, so the file is read once.
    ZelSettingsApplication(const QString& applicationFolder, std::unique_ptr<QSettings> settings);
    ~ZelSettingsApplication() override;

    // Nothing is loaded, so there is nothing to release.
    void clearViewerApp() override;
    // No 3D database: cache and ratio changes only reach Settings.ini.
    kqDMManager* getDMManager() const override;
    // No renderer: the triangle cap only reaches Settings.ini.
    kqDMRenderer* getDMRenderer() const override;
    // No declarative plug-ins run here: null.
    QQmlEngine* getDeclarativeEngine() const override;
    // No material tools run here: null.
    zelMaterialManagerInterface* getMaterialManager() const override;
    // No plug-in provides one: ignored.
    void setMaterialManager(zelMaterialManagerInterface* manager) override;
    // No 3D view to navigate: null.
    kqNavigationManager* getNavigationManager() const override;
    // Every page reads and writes this one store.
    QSettings& getSettings() override;
    // No project is ever edited: null.
    kqDMProject* editProject() override;
    // No plug-ins are loaded: always empty.
    const std::vector<kqDMPlugin*>& getPluginsList() const override;
    // Null: the editor never asks the user to restart anything.
    kqDMGuiPlugin* getGuiPlugin() const override;
    // Always empty: there is nothing to select.
    const kqDMSelection& getSelection() const override;
    kqDMSelection& grabSelection() override;
    // Ignored on purpose: with no viewer running, the General page's live update has
    // nowhere to go, and Settings.ini already holds the folder.
    void setScreenshotImageFolder(const QString& folder) override;
    // Always the null string, see setScreenshotImageFolder().
    const QString& getScreenshotImageFolder() const override;
    // No document is ever loaded: nothing to refresh.
    void updateAfterCompleteLoading() override;
    // No engine to pause around the drawer's animations.
    void setUpdateEngineEnabled(bool enabled) override;
    // No engine whose frame rate could change.
    void setLowUpdateEngineFrequency(bool low) override;
    // No scene browser: null.
    zelThumbnailManager* getThumbnailManager() const override;
    // No kernel service listens: events are dropped.
    void notifyAppEvent(zelAppEvent event) override;
    // Always null: the editor has no host pages with defaults of their own; the
    // library's pages ask ZelSettings::GetDefaultSettingsValue() instead.
    QString getDefaultSettingsValue(const QString& key) override;
    // The code the translation was loaded for; null until setLanguageCode().
    const QString& getLanguageCode() override;
    // The folder given to the constructor.
    const QString& getApplicationFolder() const override;
    // No scene components: false.
    bool removeComponent(kqDMComponentId component) override;
    // The editor's window needs no start or finish notice.
    void applicationStarted() override;
    void applicationFinished() override;
    // No document to save: false.
    bool saveDocument() override;
    // Documents are not opened by the settings editor.
    void loadDocument(const QStringList& files, bool merge) override;
    void loadDocument(bool merge) override;
    // No 3D view to pick in: switching is ignored, and picking reads as enabled.
    void set3DSelectionPickingEnabled(bool enabled) override;
    bool is3DSelectionPickingEnabled() const override;
    // Never saved, so the queue stays empty.
    std::vector<PostSaveEventItem>& getPostSaveEventVector() override;
    // No workflow panel area: ignored.
    void setWorkFlowWidget(QWidget* widget) override;
    // No 3D view whose releases could be filtered: ignored.
    void registerMouseReleaseEventFilter(zelReleaseEventFilter* filter, bool prepend) override;

    void setLanguageCode(const QString& languageCode);

private:
    Q_DISABLE_COPY_MOVE(ZelSettingsApplication)
    std::vector<kqDMPlugin*> m_plugins;
    std::vector<PostSaveEventItem> m_postSaveEvents;
    kqDMSelection m_selection;
    std::unique_ptr<QSettings> m_settings;
    QString m_applicationFolder;
    QString m_languageCode;
    QString m_screenshotImageFolder;
};

} // namespace zel
