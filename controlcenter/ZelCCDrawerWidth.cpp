#include "ZelCCDrawerWidth_p.h"

#include "ZelCCSlide_p.h"

#include <QEvent>
#include <QLayout>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>

#include <algorithm>

namespace zel {

ZelCCDrawerWidth::ZelCCDrawerWidth(QWidget* drawer, QScrollArea* scrollArea, ZelCCSlide* slide)
    : m_drawer(drawer)
    , m_scrollArea(scrollArea)
    , m_slide(slide)
{
    // Pages coming, going or changing their least width ask their column for a layout.
    m_scrollArea->widget()->installEventFilter(this);
}

ZelCCDrawerWidth::~ZelCCDrawerWidth() = default;

void ZelCCDrawerWidth::setWidth(int width)
{
    m_drawer->setVisible(width >= 1);
    m_drawer->setMinimumWidth(width);
    m_drawer->setMaximumWidth(width);

    // While the drawer slides its pages keep the open drawer's width and are uncovered:
    // laid out again at every step, their wrapped texts took longer than a frame.
    const int laidOutWidth = std::max(width, m_slide->slidingDrawerWidth());
    const QScrollBar* scrollBar = m_scrollArea->verticalScrollBar();
    const int contentWidth = std::max(0, laidOutWidth - (scrollBar->isVisible() ? scrollBar->width() : 0));
    m_scrollArea->widget()->setMinimumWidth(contentWidth);
    m_scrollArea->widget()->setMaximumWidth(contentWidth);
}

void ZelCCDrawerWidth::setRange(int minimum, int maximum)
{
    m_minimum = minimum;
    m_maximum = maximum;
    // An open drawer gives way at once to a lower least width.
    if (m_maximum > 0 && m_drawer && m_slide->isDrawerHeadedOpen() && m_slide->slidingDrawerWidth() == 0
        && m_drawer->minimumWidth() > m_minimum) {
        m_drawer->setMinimumWidth(m_minimum);
    }
}

int ZelCCDrawerWidth::openWidth() const
{
    const int usual = std::max(ZelCCSlide::DrawerWidth, wholeWidth());
    const QWidget* host = m_drawer->parentWidget();
    if (m_maximum <= 0 || !host)
        return usual;
    const int room = host->width() - ZelCCSlide::MenuWidth;
    return std::clamp(room, std::min(m_minimum, usual), usual);
}

void ZelCCDrawerWidth::startSlide()
{
    m_scrollArea->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

void ZelCCDrawerWidth::arrivedOpen()
{
    if (m_maximum > 0) {
        m_drawer->setMinimumWidth(std::min(m_minimum, m_drawer->width()));
        m_drawer->setMaximumWidth(m_maximum);
        m_scrollArea->widget()->setMinimumWidth(0);
        m_scrollArea->widget()->setMaximumWidth(QWIDGETSIZE_MAX);
    }
    fitPages();
}

bool ZelCCDrawerWidth::eventFilter(QObject*, QEvent* event)
{
    if (event->type() == QEvent::LayoutRequest && m_drawer)
        fitPages();
    return false;
}

void ZelCCDrawerWidth::fitPages()
{
    if (m_slide->slidingDrawerWidth() > 0) {
        m_slide->headDrawerTo(openWidth());
        return;
    }
    if (m_drawer->isHidden() || !m_slide->isDrawerHeadedOpen())
        return;
    const int whole = wholeWidth();
    if (m_maximum > 0)
        m_drawer->setMinimumWidth(std::clamp(whole, m_drawer->minimumWidth(), m_maximum));
    else if (m_drawer->width() < whole)
        setWidth(whole);
    const bool cut = m_drawer->minimumWidth() < pagesWidth();
    m_scrollArea->setHorizontalScrollBarPolicy(cut ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
}

int ZelCCDrawerWidth::pagesWidth() const
{
    const QLayout* layout = m_drawer->layout();
    const QMargins margins = layout ? layout->contentsMargins() : QMargins();
    return m_scrollArea->widget()->minimumSizeHint().width() + m_scrollArea->verticalScrollBar()->sizeHint().width()
        + 2 * m_scrollArea->frameWidth() + margins.left() + margins.right();
}

int ZelCCDrawerWidth::wholeWidth() const
{
    const int pages = pagesWidth();
    const QWidget* host = m_drawer->parentWidget();
    const QScreen* screen = host ? host->screen() : nullptr;
    if (!screen)
        return pages;
    // The window around the host, its frame included, the host's own frame, and its least
    // room for everything it lays out beside the drawer.
    const QMargins frame = host->contentsMargins();
    int besides = host->window()->frameGeometry().width() - host->width() + frame.left() + frame.right();
    if (const QLayout* layout = host->layout()) {
        besides += layout->contentsMargins().left() + layout->contentsMargins().right();
        for (int i = 0; i < layout->count(); ++i) {
            QLayoutItem* item = layout->itemAt(i);
            if (item->widget() != m_drawer && !item->isEmpty())
                besides += item->minimumSize().width() + std::max(0, layout->spacing());
        }
    }
    return std::max(0, std::min(pages, screen->availableGeometry().width() - besides));
}

} // namespace zel
