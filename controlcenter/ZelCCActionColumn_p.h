#pragma once

#include <QMap>
#include <QObject>
#include <QString>

#include <vector>

class QBoxLayout;
class QFrame;
class QWidget;

namespace zel {

class zelAction;
class ZelCCActionItem;

// The menu column: an item per registered action, placed relative to another action,
// and named separators between them. Items and separators are widgets of `layout`;
// separators stay as wide as `menu`, less an inset.
class ZelCCActionColumn : public QObject
{
    Q_OBJECT

public:
    // `layout` and `menu` (the widget whose width the column follows) outlive the column.
    ZelCCActionColumn(QBoxLayout* layout, QWidget* menu);
    ~ZelCCActionColumn() override;

    // Places an item for `action` relative to the action named `anchorName`: at the top
    // when the name is empty, at the bottom when no action has it.
    void addAction(zelAction* action, const QString& anchorName, bool workflowSpecific, bool after,
                   bool closesMenu);
    // Removes every item of `action`.
    void removeAction(zelAction* action);
    // False when `separatorName` is taken.
    bool addSeparator(const QString& anchorName, const QString& separatorName);
    // False when no separator has that name.
    bool setSeparatorVisible(const QString& separatorName, bool visible);
    // Called whenever the menu's width changed.
    void fitSeparators();

Q_SIGNALS:
    // An action added with `closesMenu` was triggered.
    void closingActionTriggered();

private:
    Q_DISABLE_COPY_MOVE(ZelCCActionColumn)

    // Called when an action dies without being removed; only its address is left.
    void forgetAction(QObject* action);
    // Position in the layout of the item of the action named `anchorName`, or -1.
    int itemIndex(const QString& anchorName) const;
    void fit(QFrame* separator) const;

    QBoxLayout* m_layout = nullptr;
    QWidget* m_menu = nullptr;
    // Widgets of the layout: the widget tree deletes what the column has not.
    std::vector<ZelCCActionItem*> m_items;
    QMap<QString, QFrame*> m_separators;
};

} // namespace zel
