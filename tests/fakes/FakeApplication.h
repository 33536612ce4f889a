#pragma once

#include "kqDMIApplication.h"
#include "kqDMPlugin.h"
#include "kqDMSelection.h"

#include <QPointer>
#include <QSettings>
#include <QWidget>

#include <memory>
#include <vector>

// The viewer's GUI plug-in, reduced to the main 3D view it hands out.
class FakeGuiPlugin : public zel::kqDMGuiPlugin
{
public:
    QWidget* getMainViewWidget() const override;
    void setMainViewWidget(QWidget* view);

private:
    QPointer<QWidget> m_view;
};

// An application interface that records what the control center asks of it. Built
// as the viewer (with a GUI plug-in) or as the stand-alone editor (without).
class FakeApplication : public zel::kqDMIApplication
{
public:
    enum class Host { StandAlone, Viewer };

    explicit FakeApplication(Host host);
    ~FakeApplication() override;

    // Null when built as the stand-alone editor.
    FakeGuiPlugin* guiPlugin() const;

    // Every setUpdateEngineEnabled() argument, in call order.
    const std::vector<bool>& engineUpdates() const;
    // The engine runs: no call at all, or the last one enabled it (and so came after
    // every call that disabled it).
    bool engineUpdatesBalanced() const;

    zel::kqDMGuiPlugin* getGuiPlugin() const override;
    void setUpdateEngineEnabled(bool enabled) override;

    void clearViewerApp() override;
    zel::kqDMManager* getDMManager() const override;
    zel::kqDMRenderer* getDMRenderer() const override;
    QQmlEngine* getDeclarativeEngine() const override;
    zel::zelMaterialManagerInterface* getMaterialManager() const override;
    void setMaterialManager(zel::zelMaterialManagerInterface* manager) override;
    zel::kqNavigationManager* getNavigationManager() const override;
    QSettings& getSettings() override;
    zel::kqDMProject* editProject() override;
    const std::vector<zel::kqDMPlugin*>& getPluginsList() const override;
    const zel::kqDMSelection& getSelection() const override;
    zel::kqDMSelection& grabSelection() override;
    void setScreenshotImageFolder(const QString& folder) override;
    const QString& getScreenshotImageFolder() const override;
    void updateAfterCompleteLoading() override;
    void setLowUpdateEngineFrequency(bool low) override;
    zel::zelThumbnailManager* getThumbnailManager() const override;
    void notifyAppEvent(zel::zelAppEvent event) override;
    QString getDefaultSettingsValue(const QString& key) override;
    const QString& getLanguageCode() override;
    const QString& getApplicationFolder() const override;
    bool removeComponent(zel::kqDMComponentId component) override;
    void applicationStarted() override;
    void applicationFinished() override;
    bool saveDocument() override;
    void loadDocument(const QStringList& files, bool merge) override;
    void loadDocument(bool merge) override;
    void set3DSelectionPickingEnabled(bool enabled) override;
    bool is3DSelectionPickingEnabled() const override;
    std::vector<zel::PostSaveEventItem>& getPostSaveEventVector() override;
    void setWorkFlowWidget(QWidget* widget) override;
    void registerMouseReleaseEventFilter(zel::zelReleaseEventFilter* filter, bool prepend) override;

private:
    std::unique_ptr<FakeGuiPlugin> m_guiPlugin;
    std::vector<bool> m_engineUpdates;
    QSettings m_settings;
    zel::kqDMSelection m_selection;
    std::vector<zel::kqDMPlugin*> m_plugins;
    std::vector<zel::PostSaveEventItem> m_postSaveEvents;
    QString m_text;
};
