#pragma once

#include "ZelKernelExport.h"

#include <QObject>
#include <QString>
#include <QStringList>

#include <vector>

class QQmlEngine;
class QSettings;
class QUrl;
class QWidget;

namespace zel {

class kqDMGuiPlugin;
class kqDMManager;
class kqDMPlugin;
class kqDMProject;
class kqDMRenderer;
class kqDMSelection;
class kqNavigationManager;
class zelActionManager;
class zelMaterialManagerInterface;
class zelReleaseEventFilter;
class zelThumbnailManager;
struct PostSaveEventItem;

using kqDMComponentId = quint64;

// Application-wide events that the host broadcasts to its kernel services.
enum class zelAppEvent {
    DocumentLoaded,
    DocumentClosed,
    SelectionChanged,
    SettingsChanged,
};

// The kernel's view of "the application": the viewer implements it, the stand-alone
// settings editor has a nearly empty implementation of its own.
class ZEL_KERNEL_EXPORT kqDMIApplication : public QObject
{
    Q_OBJECT

public:
    explicit kqDMIApplication(QObject* parent = nullptr);
    ~kqDMIApplication() override;

    // Called when the viewer drops its scene and services: release everything loaded.
    virtual void clearViewerApp() = 0;
    // Called for live cache and simplification changes: the 3D database manager, or null.
    virtual kqDMManager* getDMManager() const = 0;
    // Called for live renderer changes (triangle cap): the renderer, or null.
    virtual kqDMRenderer* getDMRenderer() const = 0;
    // Called by declarative plug-ins: the engine their scripts run in, or null.
    virtual QQmlEngine* getDeclarativeEngine() const = 0;
    // Called by material tools: the current material manager, or null.
    virtual zelMaterialManagerInterface* getMaterialManager() const = 0;
    // Called when a plug-in provides a material manager: take it (not owned).
    virtual void setMaterialManager(zelMaterialManagerInterface* manager) = 0;
    // Called by navigation tools: the camera navigation manager, or null.
    virtual kqNavigationManager* getNavigationManager() const = 0;
    // Called by every settings page: the one Settings.ini store of the application.
    virtual QSettings& getSettings() = 0;
    // Called before the scene is edited: the project being edited, or null.
    virtual kqDMProject* editProject() = 0;
    // Called by the About page: the loaded plug-ins, in load order.
    virtual const std::vector<kqDMPlugin*>& getPluginsList() const = 0;
    // Called before any question to the user: the GUI plug-in, null when there is no viewer.
    virtual kqDMGuiPlugin* getGuiPlugin() const = 0;
    // Called by selection tools: the current selection, read-only.
    virtual const kqDMSelection& getSelection() const = 0;
    // Called by selection tools that change it: the current selection.
    virtual kqDMSelection& grabSelection() = 0;
    // Called when the screenshot folder changes: use `folder` for the next screenshots.
    virtual void setScreenshotImageFolder(const QString& folder) = 0;
    // Called by screenshot tools: the folder in use.
    virtual const QString& getScreenshotImageFolder() const = 0;
    // Called once a document has completely loaded: refresh views and caches.
    virtual void updateAfterCompleteLoading() = 0;
    // Called around every sliding animation: pause (false) or resume (true) 3D updates.
    virtual void setUpdateEngineEnabled(bool enabled) = 0;
    // Called while the user interacts elsewhere: lower (true) or restore the 3D frame rate.
    virtual void setLowUpdateEngineFrequency(bool low) = 0;
    // Called by browsers of the scene: the thumbnail service, or null.
    virtual zelThumbnailManager* getThumbnailManager() const = 0;
    // Called by kernel services to broadcast `event` to the application.
    virtual void notifyAppEvent(zelAppEvent event) = 0;
    // Called by the host's own pages: the default text of `key`, null when unknown.
    virtual QString getDefaultSettingsValue(const QString& key) = 0;
    // Called by translated views: the language code of the user interface.
    virtual const QString& getLanguageCode() = 0;
    // Called for per-user files: the application's settings folder.
    virtual const QString& getApplicationFolder() const = 0;
    // Called to delete a scene component: true when it was removed.
    virtual bool removeComponent(kqDMComponentId component) = 0;
    // Called once the main window is up.
    virtual void applicationStarted() = 0;
    // Called before the main window goes away.
    virtual void applicationFinished() = 0;
    // Called on "save": true when the document was written.
    virtual bool saveDocument() = 0;
    // Called to open `files`, appending to the scene when `merge` is true.
    virtual void loadDocument(const QStringList& files, bool merge) = 0;
    // Called to open a document chosen by the user, appending when `merge` is true.
    virtual void loadDocument(bool merge) = 0;
    // Called by tools that need clicks in the 3D view: turn picking on or off.
    virtual void set3DSelectionPickingEnabled(bool enabled) = 0;
    // Called before a pick: whether clicks in the 3D view select.
    virtual bool is3DSelectionPickingEnabled() const = 0;
    // Called by services that want to run after the next save: the queue to append to.
    virtual std::vector<PostSaveEventItem>& getPostSaveEventVector() = 0;
    // Called by workflow plug-ins: show `widget` as the current workflow panel (not owned).
    virtual void setWorkFlowWidget(QWidget* widget) = 0;
    // Called by tools that watch mouse releases in the 3D view (first when `prepend`).
    virtual void registerMouseReleaseEventFilter(zelReleaseEventFilter* filter, bool prepend) = 0;
    // Called to look actions up by name: the application's action manager, or null.
    // The kernel has none of its own, so the base answers null.
    virtual zelActionManager* getActionManager();

    // Diagnostics mode: "enablediag" of the application's settings is "true".
    bool isDiagModeEnable();

    // The style sheet registered under `name` (a widget class name); empty when unknown.
    static QString GetStylesheet(const QString& name);
    // The kernel's version text, as the About page shows it.
    static QString GetKernelVersion();
    // Opens `url` with the desktop's handler; false when nothing could open it.
    static bool OpenUrl(const QUrl& url);

private:
    Q_DISABLE_COPY_MOVE(kqDMIApplication)
};

} // namespace zel
