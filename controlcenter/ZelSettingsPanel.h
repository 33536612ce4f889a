#pragma once

#include "ZelControlCenterExport.h"

#include <QString>
#include <QStringList>
#include <QWidget>

#include <vector>

class QPushButton;
class QSettings;

namespace zel {

class kqDMIApplication;
class zelAction;

// One editable field of a page: the key it is stored under and the widget that edits it.
struct SettingField
{
    QString key;
    QWidget* editor = nullptr;
};

// Base of every page of the control center's settings drawer.
//
// A concrete page declares a signal "stateChanged()" (no arguments) in its own
// Q_OBJECT section and emits it whenever hasModifications() or canResetContent()
// may have changed; the control center connects to it by that signature.
// Pages fill their widgets with signals blocked, so loading never looks like an edit.
class ZEL_CONTROLCENTER_EXPORT ZelSettingsPanel : public QWidget
{
    Q_OBJECT

public:
    // Lets the host group or filter its pages; the control center never reads it.
    enum PanelCategory {
        ExportCategory = 0,
        ApplicationCategory = 1,
        ImportCategory = 2,
        UncategorizedCategory = 3,
    };

    // Neither `application` nor `settings` is owned; both must outlive the page.
    ZelSettingsPanel(kqDMIApplication* application, QSettings& settings, QWidget* parent = nullptr,
                     Qt::WindowFlags flags = {});
    ~ZelSettingsPanel() override;

    PanelCategory getPanelCategory() const;
    void setPanelCategory(PanelCategory category);

    // The page's checkable button in the control center's page list. The page owns it
    // even while the control center's layout holds it.
    QPushButton* getActionWidget() const;

    const QString& getPanelName() const;
    // Also labels the page button; the control center maps button clicks by this name.
    void setPanelName(const QString& name);

    // Called on registration, whenever the drawer opens from closed, and when closing
    // the control center discards pending edits: load the stored values into the
    // widgets and forget every pending edit.
    virtual void initializeWidget() = 0;
    // Called whenever the control center re-evaluates its buttons (any page's
    // stateChanged(), registration, Apply) and before it closes, to enable Apply or ask
    // about pending edits: true while the widgets differ from the stored values.
    virtual bool hasModifications() const = 0;
    // Called by Apply on every page in registration order: write the pending values
    // to the settings (and to the live application where possible); return true when
    // one of the applied changes only takes effect after a restart.
    virtual bool applyModifications() = 0;
    // Called whenever the control center re-evaluates its buttons, to enable Reset:
    // true when some widget does not show its default value.
    virtual bool canResetContent() const = 0;
    // Called by Reset on every page: put the widgets back to the defaults as pending
    // edits; nothing is written until Apply.
    virtual void resetContent() = 0;
    // Never called by the control center (pending edits are dropped by the next
    // initializeWidget()); called by a host that wants to drop them itself: return
    // true when edits were discarded.
    virtual bool cancelModifications() = 0;
    // Called by the host when live application state changed: re-read that state.
    // The base has nothing to re-read.
    virtual void refreshWidgetContent();
    // Called by the host to hand the page one of its actions: keep or show it as the
    // page sees fit (not owned). The base ignores it.
    virtual void registerCCAction(zelAction* action);
    // Called by the host to take back the action of that name: stop using it.
    // The base holds none.
    virtual void unregisterCCActionByName(const QString& name);
    // Called by the host after another program changed the settings file and the shared
    // settings were re-read: show the new stored value of every field the user has not
    // edited and keep the pending edits. Returns the keys whose pending edit now differs
    // from a value the other program stored there (the user's Apply will replace it).
    // The base leaves its widgets alone and returns nothing.
    virtual QStringList reloadStoredSettings();
    // Called by the host when what an Apply wrote never reached the file and the shared
    // settings hold the file's values again: keep the widgets as they are, so that the
    // edits show as pending for another Apply. The base has nothing to keep.
    virtual void applyNotWritten();

    // Called by the control center's search as the user types: the page's editable
    // fields, each with its key, in the order the page shows them. The base has none.
    virtual std::vector<SettingField> settingFields() const;

protected:
    kqDMIApplication* application() const;
    QSettings& settings();
    const QSettings& settings() const;

private:
    Q_DISABLE_COPY_MOVE(ZelSettingsPanel)

    kqDMIApplication* m_application = nullptr;
    QSettings* m_settings = nullptr;
    QString m_panelName;
    PanelCategory m_category = UncategorizedCategory;
    QPushButton* m_actionWidget = nullptr;
};

} // namespace zel
