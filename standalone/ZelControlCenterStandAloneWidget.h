#pragma once

#include "ZelControlCenterExport.h"

#include <QIcon>
#include <QWidget>

#include <memory>
#include <vector>

namespace Ui {
class ControlCenterStandAlone;
}
namespace kq {
class kqMovableObject;
}

namespace zel {

class kqDMIApplication;
class ZelAboutSettingsPanel;
class ZelControlCenter;
class ZelGeneralSettingsPanel;
class ZelImportSettingsPanel;
class ZelRendererSettingsPanel;
class ZelSettingsNotice;
class ZelSettingsPanel;
class ZelSettingsWatch;
class ZelSimplificationSettingsPanel;
class ZelWindowEdges;
struct SettingRepair;

// The stand-alone settings editor's frameless window: a header with the product name
// and its own window buttons, and a control center with every settings page.
// The control center and its first page are built right after the window's first frame,
// the other pages one per pass of the event loop: the window answers at once, and the
// menu slides in as soon as the first page exists, as it always does.
class ZEL_CONTROLCENTER_EXPORT ZelControlCenterStandAloneWidget : public QWidget
{
    Q_OBJECT

public:
    ZelControlCenterStandAloneWidget(kqDMIApplication* application, QWidget* parent = nullptr,
                                     Qt::WindowFlags flags = {});
    ~ZelControlCenterStandAloneWidget() override;

    // The icon of the editor's windows; its image is read when a window first shows it.
    static QIcon applicationIcon();

    // Null until the window has painted its first frame.
    ZelControlCenter* controlCenter() const;

    // Shows `message` in the notice bar at the top of the window.
    void showNotice(const QString& message);
    // The settings cannot be written: the pages show them, Apply stays disabled.
    void setSettingsReadOnly();

Q_SIGNALS:
    // Every page is built and registered.
    void pagesBuilt();

public Q_SLOTS:
    void triggerMinimize();
    // Maximises, or restores a maximised window.
    void triggerMaximize();
    // Closes through closeEvent(), so pending edits are asked about.
    void closeWidget();
    // Opens the menu column and the drawer with every page, once they exist.
    void openMenu();
    // Another start's command line: nothing to do, the window is raised for it.
    void parseMessage(const QString& message);

protected:
    void closeEvent(QCloseEvent* event) override;
    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    // Builds and registers the next page not yet built; after the last, the logo.
    void buildNextPage();
    // Shrinks and moves the window into the screen's available area, whatever its scale.
    void fitToScreen();
    void keepLeastSizeOnScreen();
    void buildControlCenter();
    void writeAppliedSettings();
    void takeOutsideChanges(const QStringList& keys);
    void tellOutsideValuesReplaced(const std::vector<SettingRepair>& values, const QString& copy,
                                   const QString& copyError);
    void tellVersionRestored(bool hadValues, const QString& copy, const QString& copyError);
    // The pages in registration order.
    std::vector<ZelSettingsPanel*> pages() const;

    Q_DISABLE_COPY_MOVE(ZelControlCenterStandAloneWidget)
    kqDMIApplication* m_application = nullptr;
    bool m_buildScheduled = false;
    // The drawer's least width once built, lowered where the screen is too narrow for it.
    int m_drawerLeastWidth = 0;
    bool m_menuRequested = false;
    bool m_readOnly = false;
    // The last Apply could not be written.
    bool m_applyFailed = false;
    std::unique_ptr<Ui::ControlCenterStandAlone> m_ui;
    std::unique_ptr<kq::kqMovableObject> m_movable;
    std::unique_ptr<ZelWindowEdges> m_edges;
    // Created with the first notice; the window's layout holds it.
    ZelSettingsNotice* m_notice = nullptr;
    std::unique_ptr<ZelSettingsWatch> m_watch;
    std::unique_ptr<ZelControlCenter> m_controlCenter;
    std::unique_ptr<ZelRendererSettingsPanel> m_displayPanel;
    std::unique_ptr<ZelGeneralSettingsPanel> m_generalPanel;
    std::unique_ptr<ZelSimplificationSettingsPanel> m_simplificationPanel;
    std::unique_ptr<ZelImportSettingsPanel> m_importPanel;
    std::unique_ptr<ZelAboutSettingsPanel> m_aboutPanel;
};

} // namespace zel
