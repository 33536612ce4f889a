#pragma once

#include "ZelControlCenterExport.h"

#include <QObject>

#include <functional>
#include <map>
#include <vector>

class QPixmap;
class QWidget;

namespace zel {

class ZelFieldMarker;

// The marks of one settings page's fields that differ from their defaults: a small
// marker beside the field, whose tool tip tells the default, the dynamic property
// "differsFromDefault" on the field's widget, and "Reset to default" in the field's
// context menu. The page pattern decides which fields differ; this class only shows it.
// Nothing is done for a field until it first differs: until then it keeps its own menu.
class ZEL_CONTROLCENTER_EXPORT ZelFieldMarks : public QObject
{
    Q_OBJECT

public:
    // `defaultText` says what an editor shows for its default; `resetField` puts one
    // editor's field back to its default as a pending edit.
    using DefaultText = std::function<QString(QWidget* editor)>;
    using ResetField = std::function<void(QWidget* editor)>;

    // Markers are drawn on `page`, in the margin left of each field's label.
    ZelFieldMarks(QWidget* page, DefaultText defaultText, ResetField resetField);
    ~ZelFieldMarks() override;

    void mark(QWidget* editor, bool differs);

    // The label naming `editor` beside it (its buddy), where its form gives it one.
    static QWidget* labelOf(const QWidget* editor);

    // The mark's picture, for other places that show a value differs from its default.
    static QPixmap markerPixmap(qreal devicePixelRatio);

    // What `editor` shows, in words: the checked one of the field's radio buttons, a
    // spin box's text with its suffix, the "valueText" property where the page names a
    // value elsewhere (a slider's label), a folder button's tool tip.
    static QString shownValue(QWidget* editor, const std::vector<QWidget*>& fieldEditors);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    Q_DISABLE_COPY_MOVE(ZelFieldMarks)

    // Offers "Reset to default" in the editor's context menu from now on, and keeps its
    // marker beside it as it and the widgets holding it move.
    void watch(QWidget* editor);
    void showMarker(QWidget* editor, ZelFieldMarker* marker) const;
    void showContextMenu(QWidget* editor, const QPoint& globalPosition);

    QWidget* m_page = nullptr;
    DefaultText m_defaultText;
    ResetField m_resetField;
    std::map<QWidget*, bool> m_differs;
    // Children of the page, placed again whenever an editor or a widget holding it moves.
    std::map<QWidget*, ZelFieldMarker*> m_markers;
    std::map<QObject*, std::vector<QWidget*>> m_editorsWithin;
};

} // namespace zel
