#include "ZelCCPages_p.h"

#include "ZelFieldMarks.h"
#include "ZelSettingsPanel.h"
#include "ZelStyleProperty_p.h"
#include "zelWheelGuard.h"

#include <QApplication>
#include <QBoxLayout>
#include <QButtonGroup>
#include <QCoreApplication>
#include <QLabel>
#include <QPushButton>

#include <algorithm>

namespace zel {

ZelCCPages::ZelCCPages(QBoxLayout* buttons, QBoxLayout* stack, QWidget* tabAfter)
    : m_buttons(buttons)
    , m_stack(stack)
    , m_tabAfter(tabAfter)
    , m_group(new QButtonGroup(this))
{
    m_group->setExclusive(true);
    connect(m_group, &QButtonGroup::buttonToggled, this, [this](QAbstractButton*, bool checked) {
        if (checked)
            tabToTheCheckedPage();
    });
}

void ZelCCPages::tabToTheCheckedPage() const
{
    // The list is one Tab stop, the arrows go within it. Qt keeps that stop on the button
    // that last had the focus; the page in sight is the one the user expects.
    const QAbstractButton* checked = m_group->checkedButton();
    if (!checked)
        return;
    for (QAbstractButton* button : m_group->buttons())
        button->setFocusPolicy(button == checked ? Qt::FocusPolicy(button->focusPolicy() | Qt::TabFocus)
                                                 : Qt::FocusPolicy(button->focusPolicy() & ~Qt::TabFocus));
}

ZelCCPages::~ZelCCPages() = default;

namespace {

// Inside a drawer that is not on screen, show() would polish the widget and lay it out at
// a size it does not keep; one that is not hidden shows with the drawer anyway.
void showWithDrawer(QWidget* widget)
{
    if (widget->isHidden() || widget->parentWidget()->isVisible())
        widget->show();
}

} // namespace

bool ZelCCPages::add(ZelSettingsPanel* page)
{
    if (std::find(m_pages.cbegin(), m_pages.cend(), page) != m_pages.cend())
        return false;
    // Without the signal the string connection fails quietly and Apply never follows the
    // page's edits: say so where the page's author will see it.
    if (page->metaObject()->indexOfSignal("stateChanged()") < 0) {
        qWarning("ZelControlCenter: the settings page \"%s\" (%s) declares no signal stateChanged(): "
                 "Apply and Reset will not follow its edits",
                 qUtf8Printable(page->getPanelName()), page->metaObject()->className());
        Q_ASSERT_X(false, "ZelControlCenter::registerSettingsPanel", "a settings page must declare stateChanged()");
    }
    m_pages.push_back(page);
    connect(page, SIGNAL(stateChanged()), this, SIGNAL(stateChanged()));
    connect(page, &QObject::destroyed, this, &ZelCCPages::forgetPage);

    QPushButton* button = page->getActionWidget();
    m_buttons->addWidget(button);
    m_group->addButton(button);
    // Tab meets the list where it stands on screen, not after the search field where the
    // buttons would otherwise land.
    QWidget::setTabOrder(m_pages.size() > 1 ? m_pages[m_pages.size() - 2]->getActionWidget() : m_tabAfter, button);
    tabToTheCheckedPage();
    m_stack->addWidget(page);
    // In the scrolling drawer a wheel turned over a field must scroll, not edit it.
    for (const SettingField& field : page->settingFields())
        zelWheelGuard::guard(field.editor);
    for (QWidget* widget : {m_buttons->parentWidget(), m_stack->parentWidget(), static_cast<QWidget*>(page)})
        showWithDrawer(widget);
    page->initializeWidget();

    connect(button, &QAbstractButton::clicked, this,
            [this, name = page->getPanelName()] { Q_EMIT pageClicked(name); });
    return true;
}

bool ZelCCPages::remove(ZelSettingsPanel* page)
{
    const auto it = std::find(m_pages.begin(), m_pages.end(), page);
    if (it == m_pages.end())
        return false;

    disconnect(page, SIGNAL(stateChanged()), this, SIGNAL(stateChanged()));
    disconnect(page, &QObject::destroyed, this, &ZelCCPages::forgetPage);

    QPushButton* button = page->getActionWidget();
    m_group->removeButton(button);
    disconnect(button, &QAbstractButton::clicked, this, nullptr);
    m_buttons->removeWidget(button);
    m_stack->removeWidget(page);
    button->setParent(nullptr);
    page->setParent(nullptr);
    m_pages.erase(it);
    return true;
}

const std::vector<ZelSettingsPanel*>& ZelCCPages::pages() const
{
    return m_pages;
}

ZelSettingsPanel* ZelCCPages::pageFrom(int y, const QWidget* content) const
{
    ZelSettingsPanel* found = nullptr;
    int foundTop = 0;
    for (ZelSettingsPanel* page : m_pages) {
        if (!page->isVisibleTo(content))
            continue;
        const int top = page->mapTo(content, QPoint()).y();
        if (top + page->height() > y && (!found || top < foundTop)) {
            found = page;
            foundTop = top;
        }
    }
    return found;
}

ZelSettingsPanel* ZelCCPages::pageHolding(QWidget* widget) const
{
    for (; widget; widget = widget->parentWidget()) {
        if (auto* page = qobject_cast<ZelSettingsPanel*>(widget))
            return std::find(m_pages.cbegin(), m_pages.cend(), page) != m_pages.cend() ? page : nullptr;
    }
    return nullptr;
}

void ZelCCPages::checkPageInSight(int top, int height, const QWidget* content) const
{
    if (const ZelSettingsPanel* focused = pageHolding(QApplication::focusWidget())) {
        const QRect inSight(0, top, content->width(), height);
        if (QRect(focused->mapTo(content, QPoint()), focused->size()).intersects(inSight)) {
            focused->getActionWidget()->setChecked(true);
            return;
        }
    }
    if (const ZelSettingsPanel* page = pageFrom(top + 10, content))
        page->getActionWidget()->setChecked(true);
}

void ZelCCPages::checkPageHolding(QWidget* widget) const
{
    if (const ZelSettingsPanel* page = pageHolding(widget))
        page->getActionWidget()->setChecked(true);
}

bool ZelCCPages::hasModifications() const
{
    return std::any_of(m_pages.cbegin(), m_pages.cend(),
                       [](const ZelSettingsPanel* page) { return page->hasModifications(); });
}

bool ZelCCPages::markPagesAwayFromDefaults()
{
    bool any = false;
    for (const ZelSettingsPanel* page : m_pages) {
        const bool differs = page->canResetContent();
        any = any || differs;
        QPushButton* button = page->getActionWidget();
        if (button->property("differsFromDefault").toBool() == differs)
            continue;
        setStyleProperty(button, "differsFromDefault", differs);
        auto* marker = button->findChild<QLabel*>(QStringLiteral("pageMarker"), Qt::FindDirectChildrenOnly);
        if (!marker && differs) {
            // At the button's right end, clear of its text.
            auto* row = new QHBoxLayout(button);
            row->setContentsMargins(0, 0, 16, 0);
            row->addStretch();
            marker = new QLabel(button);
            marker->setObjectName(QStringLiteral("pageMarker"));
            marker->setPixmap(ZelFieldMarks::markerPixmap(button->devicePixelRatioF()));
            marker->setToolTip(
                QCoreApplication::translate("ZelControlCenter", "Some values differ from their defaults"));
            row->addWidget(marker);
        }
        if (marker)
            marker->setVisible(differs);
    }
    return any;
}

bool ZelCCPages::apply()
{
    bool restartNeeded = false;
    for (ZelSettingsPanel* page : m_pages) {
        if (page->applyModifications())
            restartNeeded = true;
    }
    return restartNeeded;
}

void ZelCCPages::reset()
{
    // Pages announce their new state themselves through stateChanged().
    for (ZelSettingsPanel* page : m_pages)
        page->resetContent();
}

void ZelCCPages::initialize()
{
    for (ZelSettingsPanel* page : m_pages)
        page->initializeWidget();
}

void ZelCCPages::forgetPage(QObject* page)
{
    const auto it = std::find(m_pages.begin(), m_pages.end(), page);
    if (it == m_pages.end())
        return;
    m_pages.erase(it);
    Q_EMIT stateChanged();
}

} // namespace zel
