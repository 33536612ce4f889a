#pragma once

#include "ZelFieldMarks.h"
#include "ZelSettingsPanel.h"

#include <QAbstractButton>
#include <QLatin1String>
#include <QSettings>
#include <QStringList>
#include <QVariant>

#include <cstddef>
#include <algorithm>
#include <array>
#include <iterator>
#include <map>
#include <memory>
#include <tuple>
#include <utility>
#include <vector>

namespace zel {

// What every editable settings page does the same way. A page describes its settings
// as a plain model record (with operator==) and fills that record from three sources:
// the stored values, the registered defaults and its widgets. Comparing the records
// answers the control center; this class holds that logic once.
//
// `Model` offers its fields one by one, each beside the key it is stored under:
//   auto tie();  auto tie() const;          std::tie() of the fields
//   static constexpr std::array<QLatin1String, N> Keys;   the keys, in the same order
// Several fields may share a key. Apply writes only the keys of fields the user
// edited, and a reload after another program's change merges field by field.
//
// `Page` derives from this class, declares the signal stateChanged(), and provides
// these non-virtual members (befriend this class if they are private):
//   void readSettings(Model&) const;        the stored values, without fallback
//   void getDefaultSettings(Model&) const;  the registered defaults
//   void getCurrentModel(Model&) const;     what the widgets show
//   void applyModel(const Model&);          fill the widgets, their signals blocked
//   void pushToApplication();               take effect at once where the kernel can
//   bool shouldRestart() const;             asked after the push, before the save
//   void saveSettingsInternal();            hand every field to writeSetting()
//   Editors fieldEditors() const;           the widgets that edit each field, in the
//                                           model's order; a list field shown by one
//                                           widget per element lists them in order
// With these the pattern marks every field that differs from its default, offers
// "Reset to default" per field and tells the control center's search what the page edits.
template<typename Page, typename Model>
class ZelModelSettingsPanel : public ZelSettingsPanel
{
public:
    using Editors = std::array<std::vector<QWidget*>, std::tuple_size_v<decltype(Model::Keys)>>;

    // Load the stored values; forgets pending edits and emits nothing.
    void initializeWidget() override { loadStored(); }

    bool hasModifications() const override
    {
        Model stored;
        Model current;
        page().readSettings(stored);
        page().getCurrentModel(current);
        return !(stored == current);
    }

    // Writes only the keys of the fields the user edited, so that a value another
    // program stored meanwhile under any other key stays. The restart verdict is taken
    // before the save, while the settings still hold what the running application uses.
    // Afterwards the page shows what the settings hold.
    bool applyModifications() override
    {
        if (!hasModifications())
            return false;
        page().pushToApplication();
        const bool restart = page().shouldRestart();
        Model stored;
        Model current;
        page().readSettings(stored);
        page().getCurrentModel(current);
        m_keysToWrite = editedKeys(stored, current);
        page().saveSettingsInternal();
        m_keysToWrite.clear();
        loadStored();
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

    // A field still showing what was last loaded takes the new stored value; an edited
    // one stays, and its key is returned when the other program stored something else.
    QStringList reloadStoredSettings() override
    {
        Model stored;
        Model merged;
        page().readSettings(stored);
        page().getCurrentModel(merged);
        QStringList overridden;
        visitFields(
            [&overridden](std::size_t field, const auto& baseline, const auto& storedValue, auto& shown) {
                if (shown == baseline)
                    shown = storedValue;
                else if (!(storedValue == baseline) && !(storedValue == shown))
                    addKey(overridden, Model::Keys[field]);
            },
            std::as_const(m_baseline).tie(), std::as_const(stored).tie(), merged.tie());
        page().applyModel(merged);
        m_baseline = stored;
        checkContent();
        Q_EMIT page().stateChanged();
        return overridden;
    }

    // The widgets keep the values that were not written; compared with what the
    // settings hold again, they are pending edits once more.
    void applyNotWritten() override
    {
        page().readSettings(m_baseline);
        checkContent();
        Q_EMIT page().stateChanged();
    }

    std::vector<SettingField> settingFields() const override
    {
        const Editors editors = page().fieldEditors();
        std::vector<SettingField> fields;
        for (std::size_t field = 0; field < editors.size(); ++field) {
            for (QWidget* editor : editors[field])
                fields.push_back({QString(Model::Keys[field]), editor});
        }
        return fields;
    }

    // Called by a host that saves pages on its own; these pages write in
    // applyModifications(), so there is nothing left to do.
    virtual void saveSettings() {}

protected:
    ZelModelSettingsPanel(kqDMIApplication* application, QSettings& settings, QWidget* parent,
                          Qt::WindowFlags flags)
        : ZelSettingsPanel(application, settings, parent, flags)
        , m_marks(std::make_unique<ZelFieldMarks>(this, [this](QWidget* editor) { return defaultText(editor); },
                                                  [this](QWidget* editor) { resetField(editor); }))
    {
        static_assert(std::tuple_size_v<decltype(std::declval<Model&>().tie())> == std::size(Model::Keys),
                      "a model names one key per field");
    }

    // The page's own reset button, which checkContent() keeps in step.
    void setResetButton(QAbstractButton* button) { m_resetButton = button; }

    // The reset button is enabled exactly while the page differs from its defaults, and
    // each field that does is marked. A button about to be disabled gives up the focus
    // first, so that the keyboard focus never sits on a dead button.
    void checkContent() const
    {
        Model defaults;
        Model current;
        page().getDefaultSettings(defaults);
        page().getCurrentModel(current);
        const bool resettable = !(defaults == current);
        if (!resettable && m_resetButton->hasFocus())
            m_resetButton->clearFocus();
        m_resetButton->setEnabled(resettable);
        markFields(defaults, current);
    }

    // For saveSettingsInternal(): stores `value` under `key` when Apply found a field of
    // that key edited, and does nothing otherwise.
    void writeSetting(QLatin1String key, const QVariant& value)
    {
        if (m_keysToWrite.contains(key))
            settings().setValue(key, value);
    }

private:
    Q_DISABLE_COPY_MOVE(ZelModelSettingsPanel)

    Page& page() { return static_cast<Page&>(*this); }
    const Page& page() const { return static_cast<const Page&>(*this); }

    void loadStored()
    {
        page().readSettings(m_baseline);
        page().applyModel(m_baseline);
        checkContent();
    }

    // Calls visit(index, field of each tie...) for every field of the model, in order.
    template<typename Visit, typename... Ties>
    static void visitFields(Visit visit, const Ties&... ties)
    {
        visitEach(visit, std::make_index_sequence<std::size(Model::Keys)>(), ties...);
    }
    template<typename Visit, std::size_t... Field, typename... Ties>
    static void visitEach(Visit& visit, std::index_sequence<Field...>, const Ties&... ties)
    {
        (visitOne<Field>(visit, ties...), ...);
    }
    template<std::size_t Field, typename Visit, typename... Ties>
    static void visitOne(Visit& visit, const Ties&... ties)
    {
        visit(Field, std::get<Field>(ties)...);
    }

    // An editor shared by several fields differs when one of them does.
    void markFields(const Model& defaults, const Model& current) const
    {
        const Editors editors = page().fieldEditors();
        std::map<QWidget*, bool> differs;
        visitFields(
            [&editors, &differs](std::size_t field, const auto& defaultValue, const auto& shown) {
                const std::vector<QWidget*>& fieldEditors = editors[field];
                for (std::size_t index = 0; index < fieldEditors.size(); ++index)
                    differs[fieldEditors[index]] |= !sameValue(defaultValue, shown, index, fieldEditors.size());
            },
            defaults.tie(), current.tie());
        for (const auto& [editor, marked] : differs)
            m_marks->mark(editor, marked);
    }

    // What `editor` would show for the defaults, read from the widgets themselves so that
    // units and names are the page's own; the page shows its values again afterwards.
    QString defaultText(QWidget* editor)
    {
        Model defaults;
        Model current;
        page().getDefaultSettings(defaults);
        page().getCurrentModel(current);
        page().applyModel(defaults);
        // A choice shared by two fields (high or low, and whether either is set at all)
        // shows its default through the field whose buttons hold it.
        QString text;
        for (const std::vector<QWidget*>& fieldEditors : page().fieldEditors()) {
            if (text.isEmpty() && std::find(fieldEditors.cbegin(), fieldEditors.cend(), editor) != fieldEditors.cend())
                text = ZelFieldMarks::shownValue(editor, fieldEditors);
        }
        page().applyModel(current);
        return text;
    }

    // The fields `editor` shows take their defaults as a pending edit; the others stay. A
    // list field is one stored value and goes back whole, so that it stays consistent.
    void resetField(QWidget* editor)
    {
        Model defaults;
        Model current;
        page().getDefaultSettings(defaults);
        page().getCurrentModel(current);
        const Editors editors = page().fieldEditors();
        visitFields(
            [&editors, editor](std::size_t field, const auto& defaultValue, auto& shown) {
                const std::vector<QWidget*>& fieldEditors = editors[field];
                if (std::find(fieldEditors.cbegin(), fieldEditors.cend(), editor) != fieldEditors.cend())
                    shown = defaultValue;
            },
            std::as_const(defaults).tie(), current.tie());
        page().applyModel(current);
        checkContent();
        Q_EMIT page().stateChanged();
    }

    // A list field shown element by element is marked element by element.
    template<typename T>
    static bool sameValue(const T& left, const T& right, std::size_t, std::size_t)
    {
        return left == right;
    }
    template<typename T>
    static bool sameValue(const std::vector<T>& left, const std::vector<T>& right, std::size_t index,
                          std::size_t editors)
    {
        if (left.size() != editors || right.size() != editors)
            return left == right;
        return left[index] == right[index];
    }

    static void addKey(QStringList& keys, QLatin1String key)
    {
        if (!keys.contains(key))
            keys.append(key);
    }

    // The keys of the fields that differ from the baseline (the user edited them) and
    // from what is stored now (writing them changes something).
    QStringList editedKeys(const Model& stored, const Model& current) const
    {
        QStringList keys;
        visitFields(
            [&keys](std::size_t field, const auto& baseline, const auto& storedValue, const auto& shown) {
                // Negated so that a NaN counts as a difference.
                if (!(shown == baseline) && !(shown == storedValue))
                    addKey(keys, Model::Keys[field]);
            },
            m_baseline.tie(), stored.tie(), current.tie());
        return keys;
    }

    QAbstractButton* m_resetButton = nullptr;
    const std::unique_ptr<ZelFieldMarks> m_marks;
    // What the settings held when the page last loaded or applied them.
    Model m_baseline {};
    // During a save: the keys writeSetting() may write.
    QStringList m_keysToWrite;
};

} // namespace zel
