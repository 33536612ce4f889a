#pragma once

#include "ZelSettingsPanel.h"

#include <QAbstractButton>

namespace zel {

// What every editable settings page does the same way. A page describes its settings
// as a plain model record (with operator==) and fills that record from three sources:
// the stored values, the registered defaults and its widgets. Comparing the records
// answers the control center; this class holds that logic once.
//
// `Page` derives from this class, declares the signal stateChanged(), and provides
// these non-virtual members (befriend this class if they are private):
//   void readSettings(Model&) const;        the stored values, without fallback
//   void getDefaultSettings(Model&) const;  the registered defaults
//   void getCurrentModel(Model&) const;     what the widgets show
//   void applyModel(const Model&);          fill the widgets, their signals blocked
//   void pushToApplication();               take effect at once where the kernel can
//   bool shouldRestart() const;             asked after the push, before the save
//   void saveSettingsInternal();            write every field from the widgets
template<typename Page, typename Model>
class ZelModelSettingsPanel : public ZelSettingsPanel
{
public:
    // Load the stored values; forgets pending edits and emits nothing.
    void initializeWidget() override
    {
        Model stored;
        page().readSettings(stored);
        page().applyModel(stored);
        checkContent();
    }

    bool hasModifications() const override
    {
        Model stored;
        Model current;
        page().readSettings(stored);
        page().getCurrentModel(current);
        return !(stored == current);
    }

    // Writes only when something changed; the restart verdict is taken before the
    // save, while the settings still hold what the running application uses.
    bool applyModifications() override
    {
        if (!hasModifications())
            return false;
        page().pushToApplication();
        const bool restart = page().shouldRestart();
        page().saveSettingsInternal();
        checkContent();
        return restart;
    }

    bool canResetContent() const override
    {
        Model defaults;
        Model current;
        page().getDefaultSettings(defaults);
        page().getCurrentModel(current);
        return !(defaults == current);
    }

    // Shows the defaults as pending edits; nothing is written until Apply.
    void resetContent() override
    {
        if (!canResetContent())
            return;
        Model defaults;
        page().getDefaultSettings(defaults);
        page().applyModel(defaults);
        checkContent();
        Q_EMIT page().stateChanged();
    }

    // Pending edits are dropped by the next initializeWidget() instead.
    bool cancelModifications() override { return false; }

    // Called by a host that saves pages on its own; these pages write in
    // applyModifications(), so there is nothing left to do.
    virtual void saveSettings() {}

protected:
    ZelModelSettingsPanel(kqDMIApplication* application, QSettings& settings, QWidget* parent,
                          Qt::WindowFlags flags)
        : ZelSettingsPanel(application, settings, parent, flags)
    {
    }

    // The page's own reset button, which checkContent() keeps in step.
    void setResetButton(QAbstractButton* button) { m_resetButton = button; }

    // The reset button is enabled exactly while the page differs from its defaults.
    // A button about to be disabled gives up the focus first, so that the keyboard
    // focus never sits on a dead button.
    void checkContent() const
    {
        const bool resettable = canResetContent();
        if (!resettable && m_resetButton->hasFocus())
            m_resetButton->clearFocus();
        m_resetButton->setEnabled(resettable);
    }

private:
    Q_DISABLE_COPY_MOVE(ZelModelSettingsPanel)

    Page& page() { return static_cast<Page&>(*this); }
    const Page& page() const { return static_cast<const Page&>(*this); }

    QAbstractButton* m_resetButton = nullptr;
};

} // namespace zel
