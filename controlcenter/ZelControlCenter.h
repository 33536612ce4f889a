#pragma once

#include "ZelControlCenterExport.h"
#include "ZelSettings.h"

#include <QPointer>
#include <QString>
#include <QWidget>

#include <memory>
#include <vector>

class QColor;
class QPushButton;
class QResizeEvent;
class QScrollArea;

namespace Ui {
class ControlCenter;
}

namespace zel {

class kqDMIApplication;
class zelAction;
class ZelCCActionColumn;
class ZelCCClickGuard;
class ZelCCDrawerWidth;
class ZelCCPages;
class ZelCCSearch;
class ZelCCSlide;
class ZelSettingsPanel;

// The side panel that a host embeds beside its 3D view: a menu column of action
// buttons and a sliding drawer that stacks the registered settings pages.
//
// The registry of Settings.ini keys, the validation pass and the validators are
// inherited from ZelSettings, so an embedding application reaches them as
// ZelControlCenter::RegisterSetting and the like, and a validator has one address
// whichever class names it.
class ZEL_CONTROLCENTER_EXPORT ZelControlCenter : public QWidget, public ZelSettings
{
    Q_OBJECT
    Q_PROPERTY(int controlCenterWidth READ controlCenterWidth WRITE setControlCenterWidth)
    Q_PROPERTY(int settingsWidth READ settingsWidth WRITE setSettingsWidth)

public:
    // Releases the library's compiled-in images before the library unloads.
    static void CleanupRessources();

    // ---- The side panel -----------------------------------------------------------

    // `application` is required and must outlive the control center.
    explicit ZelControlCenter(kqDMIApplication* application, QWidget* parent = nullptr,
                              Qt::WindowFlags flags = {});
    ~ZelControlCenter() override;

    // Stacks `panel` in the drawer and adds its page button; the caller keeps ownership.
    // The panel must declare the signal "stateChanged()". A panel registers once.
    void registerSettingsPanel(ZelSettingsPanel* panel);
    // Takes `panel` out again and re-parents it (and its button) to none; re-evaluates
    // Apply and Reset when `reevaluate` is true.
    void unregisterSettingsPanel(ZelSettingsPanel* panel, bool reevaluate);
    // The registered panels, in registration order.
    const std::vector<ZelSettingsPanel*>& settingsPanels() const;

    bool isMenuOpen() const;
    bool isSettingsOpen() const;
    bool hasModifications() const;
    // Applies every page; true when one of them needs a restart.
    bool applyModifications();
    // Called by a host whose settings cannot be written: while false, Apply stays disabled.
    void setSettingsWritable(bool writable);
    // Re-evaluates Apply and Reset, for a host that changed what the pages compare with.
    void reevaluateButtons();

    // Clicks outside the control center close it only when they land inside `handler`
    // (not owned).
    void setGUIHandler(QWidget* handler);
    // The host's own button that opens the control center: kept checked while the menu
    // is open (not owned).
    void setControlCenterButton(QPushButton* button);
    // The sliding drawer: a host places it beside the control center in its own layout;
    // the control center still deletes it. A host tearing down may delete it first, but
    // then only the control center's destructor may follow.
    QWidget* settingsWidget() const;

    int controlCenterWidth() const;
    void setControlCenterWidth(int width);
    int settingsWidth() const;
    void setSettingsWidth(int width);
    // Called by a host whose layout may give the open drawer more or less room than its
    // usual width: once open, the drawer keeps between `minimum` and `maximum` and
    // follows the host's layout; it opens to its usual width where the room allows.
    void setSettingsWidthRange(int minimum, int maximum);

    // Mirrors `action` as a button of the menu column, placed relative to the action
    // named `anchorName` (top of the column when empty, bottom when not found).
    void registerCCAction(zelAction* action, const QString& anchorName, bool isWorkflowSpecific, bool after,
                          bool closeMenuOnTrigger);
    void unregisterCCAction(zelAction* action);
    // Adds a thin line before the action named `anchorName`; false if the name is taken.
    bool addCCSeparator(const QString& anchorName, const QString& separatorName);
    bool setCCSeparatorVisible(const QString& separatorName, bool visible);

    // Tints the menu column and gives the external control center button its icons.
    void setInterfaceColor(const QColor& color, const QString& iconOnFile, const QString& iconOffFile);

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    // Emitted at the end of an Apply by the Apply button, after the pages wrote their
    // values and any restart question: the host may write the settings to disk now.
    void modificationsApplied();

public Q_SLOTS:
    void openMenu(bool open);
    void setControlCenterVisible(bool visible);
    void openSettings();

protected Q_SLOTS:
    void on_applyButton_clicked();
    void on_resetButton_clicked();
    void onPanelClicked(const QString& pPanelName);
    void onStateChanged();
    void onControlCenterWidthFinished();
    void onSettingsWidthFinished();
    void onScrollBarValueChanged(int value);
    void closeMenu();

protected:
    // Separators follow the column's width as it slides.
    void resizeEvent(QResizeEvent* event) override;
    void openSettingsPanel(bool open);
    void ensureSettingVisible(QWidget* widget);
    void resetControlCenter();

private:
    Q_DISABLE_COPY_MOVE(ZelControlCenter)

    // The page holding the keyboard focus is the one highlighted in the menu column.
    void followFocus(QWidget* previous, QWidget* now);
    // Ctrl+F: opens the drawer where needed and puts the keyboard in the search field.
    void findSetting();
    // Asks before pending edits are dropped (only inside the viewer); true to go on.
    bool confirmDiscard() const;

    std::unique_ptr<Ui::ControlCenter> m_ui;
    std::unique_ptr<zelAction> m_settingsAction;
    std::unique_ptr<ZelCCPages> m_pages;
    std::unique_ptr<ZelCCActionColumn> m_actionColumn;
    std::unique_ptr<ZelCCClickGuard> m_clickGuard;
    std::unique_ptr<ZelCCSearch> m_search;
    // Also a child, so that its animations are among this widget's children. It must go
    // before QWidget's destructor, whose destroyed() stops the menu's slide halfway.
    std::unique_ptr<ZelCCSlide> m_slide;
    std::unique_ptr<ZelCCDrawerWidth> m_drawerWidth;
    kqDMIApplication* m_application = nullptr;
    QPointer<QPushButton> m_controlCenterButton;
    // Owned, but a host tearing down may delete it along with its own layout: the search
    // field above the scroll area that stacks the pages.
    QPointer<QWidget> m_drawer;
    QPointer<QScrollArea> m_drawerScroll;
    bool m_menuOpen = false;
    bool m_settingsOpen = false;
    bool m_settingsWritable = true;
};

} // namespace zel
