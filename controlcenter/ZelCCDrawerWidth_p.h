#pragma once

#include <QObject>
#include <QPointer>

class QEvent;
class QScrollArea;
class QWidget;

namespace zel {

class ZelCCSlide;

// The drawer's width: each step of its slide, the range a host gives it once open, and
// its pages' least width. An open drawer is as wide as its widest page where the screen
// has the room; where it has not, it scrolls sideways as well.
class ZelCCDrawerWidth : public QObject
{
    Q_OBJECT

public:
    // `drawer` holds `scrollArea`, whose widget stacks the pages; `slide` moves the
    // drawer. The slide outlives this; the drawer may go first, with its host.
    ZelCCDrawerWidth(QWidget* drawer, QScrollArea* scrollArea, ZelCCSlide* slide);
    ~ZelCCDrawerWidth() override;

    // A step of the slide: the drawer shows from 1 pixel on.
    void setWidth(int width);
    // Set by a host that lays the open drawer out itself; none while `maximum` is 0. A
    // lower minimum takes effect at once on an open drawer.
    void setRange(int minimum, int maximum);
    // Where the drawer opens to: its usual width or its pages' where they are wider, or
    // less where its host has less room beside the menu column.
    int openWidth() const;
    // Called as a slide starts: no sideways scroll bar comes and goes while it moves.
    void startSlide();
    // Called once the drawer has arrived open: it follows its host's layout from here.
    void arrivedOpen();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    Q_DISABLE_COPY_MOVE(ZelCCDrawerWidth)

    // Keeps the drawer, opening or open, as wide as its pages where the screen allows.
    void fitPages();
    // The drawer's width at which every page shows whole.
    int pagesWidth() const;
    // The same, or less where the screen has not that much room beside what the
    // drawer's host lays out next to it and what the window has around that host.
    int wholeWidth() const;

    QPointer<QWidget> m_drawer;
    QScrollArea* m_scrollArea = nullptr;
    ZelCCSlide* m_slide = nullptr;
    int m_minimum = 0;
    int m_maximum = 0;
};

} // namespace zel
