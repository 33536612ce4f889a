#pragma once

#include <QObject>
#include <QPoint>
#include <QRect>

class QMouseEvent;
class QWidget;

namespace zel {

// Lets the user resize a frameless window by its edges and corners, as the window
// manager's frame would: the pointer takes the resizing shape over the outer pixels, and
// a drag from there resizes the window, through the window manager where it offers that,
// otherwise here, never below the window's least size.
class ZelWindowEdges : public QObject
{
    Q_OBJECT

public:
    // Serves `window` (a top-level widget, which outlives this) from its first show on.
    explicit ZelWindowEdges(QWidget* window);
    ~ZelWindowEdges() override;

    // How far in from the window's border a press resizes, in device-independent pixels.
    static constexpr int Reach = 5;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    Q_DISABLE_COPY_MOVE(ZelWindowEdges)

    Qt::Edges edgesAt(const QPoint& position) const;
    void showPointerFor(Qt::Edges edges);
    bool press(const QMouseEvent* event);
    void resizeTo(const QPoint& globalPosition);

    QWidget* m_window = nullptr;
    Qt::Edges m_hovered;            // the edges whose pointer shows, none outside them
    Qt::Edges m_dragged;            // the edges a drag of ours moves, none when not dragging
    QPoint m_pressedAt;             // global position of the press that began the drag
    QRect m_startGeometry;          // the window's geometry at that press
};

} // namespace zel
