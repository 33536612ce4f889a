#include "ZelCCSlide_p.h"

#include "ZelControlCenter.h"
#include "kqDMIApplication.h"

#include <QPropertyAnimation>
#include <QScrollBar>

#include <algorithm>

namespace zel {

namespace {

constexpr int SlideDuration = 350; // ms, menu, drawer and page scrolling alike
constexpr int FrameInterval = 16; // ms, Qt's animation timer

QPropertyAnimation* widthSlide(ZelControlCenter* controlCenter, const QByteArray& property, int width,
                               QObject* parent)
{
    auto* slide = new QPropertyAnimation(controlCenter, property, parent);
    slide->setDuration(SlideDuration);
    slide->setStartValue(0);
    slide->setEndValue(width);
    return slide;
}

void aim(QPropertyAnimation* slide, bool open)
{
    slide->setEasingCurve(open ? QEasingCurve::OutQuad : QEasingCurve::InQuad);
    slide->setDirection(open ? QAbstractAnimation::Forward : QAbstractAnimation::Backward);
}

bool isRunning(const QAbstractAnimation* animation)
{
    return animation->state() == QAbstractAnimation::Running;
}

// A slide's frame 0 is what the screen shows already; its next frame would wait for the
// animation timer's first tick. Starting one frame in paints that frame at once. A slide
// under way just goes on.
void startOneFrameIn(QPropertyAnimation* slide)
{
    if (isRunning(slide))
        return;
    slide->start();
    slide->setCurrentTime(slide->direction() == QAbstractAnimation::Forward ? FrameInterval
                                                                              : SlideDuration - FrameInterval);
}

} // namespace

ZelCCSlide::ZelCCSlide(ZelControlCenter* controlCenter, QScrollBar* drawerScrollBar, kqDMIApplication* application)
    : QObject(controlCenter)
    , m_application(application)
    , m_menu(widthSlide(controlCenter, QByteArrayLiteral("controlCenterWidth"), MenuWidth, this))
    , m_drawer(widthSlide(controlCenter, QByteArrayLiteral("settingsWidth"), DrawerWidth, this))
    , m_scroll(new QPropertyAnimation(drawerScrollBar, QByteArrayLiteral("value"), this))
{
    connect(m_menu, &QAbstractAnimation::finished, this, &ZelCCSlide::menuArrived);
    connect(m_drawer, &QAbstractAnimation::finished, this, &ZelCCSlide::drawerArrived);
    m_scroll->setDuration(SlideDuration);
    m_scroll->setEasingCurve(QEasingCurve::InOutQuad);
}

ZelCCSlide::~ZelCCSlide()
{
    if (isSliding())
        resumeEngine();
}

void ZelCCSlide::slideMenu(bool open, bool alreadyThere)
{
    m_application->setUpdateEngineEnabled(false);
    aim(m_menu, open);
    if (isRunning(m_menu))
        return;
    if (alreadyThere)
        Q_EMIT menuArrived();
    else
        startOneFrameIn(m_menu);
}

void ZelCCSlide::slideDrawer(bool open, bool alreadyThere, int width)
{
    m_application->setUpdateEngineEnabled(false);
    // A slide turning around keeps its way; a drawer grown with its host closes from there.
    if (!isRunning(m_drawer))
        m_drawer->setEndValue(width);
    aim(m_drawer, open);
    if (!alreadyThere)
        startOneFrameIn(m_drawer);
    else if (!isSliding())
        resumeEngine();
}

void ZelCCSlide::headDrawerTo(int width)
{
    if (isRunning(m_drawer) && isDrawerHeadedOpen())
        m_drawer->setEndValue(width);
}

bool ZelCCSlide::isMenuHeadedOpen() const
{
    return m_menu->direction() == QAbstractAnimation::Forward;
}

bool ZelCCSlide::isDrawerHeadedOpen() const
{
    return m_drawer->direction() == QAbstractAnimation::Forward;
}

int ZelCCSlide::slidingDrawerWidth() const
{
    return isRunning(m_drawer) ? m_drawer->endValue().toInt() : 0;
}

void ZelCCSlide::resumeEngine()
{
    m_application->setUpdateEngineEnabled(true);
}

void ZelCCSlide::scrollDrawerTo(int value)
{
    const auto* scrollBar = static_cast<const QScrollBar*>(m_scroll->targetObject());
    m_scroll->stop();
    m_scroll->setStartValue(scrollBar->value());
    m_scroll->setEndValue(std::min(value, scrollBar->maximum()));
    m_scroll->start();
}

bool ZelCCSlide::isScrolling() const
{
    return isRunning(m_scroll);
}

bool ZelCCSlide::isSliding() const
{
    return isRunning(m_menu) || isRunning(m_drawer);
}

} // namespace zel
