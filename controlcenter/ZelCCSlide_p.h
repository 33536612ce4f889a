#pragma once

#include <QObject>

class QPropertyAnimation;
class QScrollBar;

namespace zel {

class kqDMIApplication;
class ZelControlCenter;

// The control center's motions: the menu column and the drawer slide by their widths
// (the control center's controlCenterWidth and settingsWidth), and the drawer scrolls
// to a page. The engine stays paused while the menu or the drawer slides.
class ZelCCSlide : public QObject
{
    Q_OBJECT

public:
    static constexpr int MenuWidth = 250;
    // Where the drawer opens to, unless its host offers less room.
    static constexpr int DrawerWidth = 450;

    // A child of `controlCenter`; `drawerScrollBar` and `application` outlive it.
    ZelCCSlide(ZelControlCenter* controlCenter, QScrollBar* drawerScrollBar, kqDMIApplication* application);
    // A slide stopped halfway never arrives: resumes the engine.
    ~ZelCCSlide() override;

    // Pauses the engine and slides the menu towards open or closed; a slide under way
    // turns around and arrives by itself. A menu `alreadyThere` arrives at once.
    void slideMenu(bool open, bool alreadyThere);
    // Pauses the engine and slides the drawer towards open or closed, between 0 and
    // `width` (where it opens to, or its width as it starts closing). A drawer
    // `alreadyThere` does not arrive: the engine resumes unless something slides.
    void slideDrawer(bool open, bool alreadyThere, int width);
    // An opening drawer under way heads for `width` from here on.
    void headDrawerTo(int width);
    // Where the last slide of each was headed.
    bool isMenuHeadedOpen() const;
    bool isDrawerHeadedOpen() const;
    // The drawer's width once open, while it slides; otherwise 0.
    int slidingDrawerWidth() const;
    void resumeEngine();

    // Scrolls the drawer to `value`, or as far as it goes.
    void scrollDrawerTo(int value);
    bool isScrolling() const;

Q_SIGNALS:
    void menuArrived();
    void drawerArrived();

private:
    Q_DISABLE_COPY_MOVE(ZelCCSlide)

    bool isSliding() const;

    kqDMIApplication* m_application = nullptr;
    // Children of this object.
    QPropertyAnimation* m_menu = nullptr;
    QPropertyAnimation* m_drawer = nullptr;
    QPropertyAnimation* m_scroll = nullptr;
};

} // namespace zel
