#include "ZelControlCenter.h"
#include "ui_ControlCenter.h"

#include "ZelCCActionItem.h"
#include "ZelSettingsPanel.h"
#include "kqDMIApplication.h"
#include "kqDMPlugin.h"
#include "kqMessageBox.h"
#include "zelAction.h"

#include <QApplication>
#include <QButtonGroup>
#include <QColor>
#include <QCoreApplication>
#include <QIcon>
#include <QMouseEvent>
#include <QPropertyAnimation>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalMapper>

#include <algorithm>

// Q_CLEANUP_RESOURCE declares the rcc function in the enclosing namespace, which must
// be the global one.
static void releaseControlCenterResources()
{
    Q_CLEANUP_RESOURCE(ZelControlCenter);
}

namespace zel {

namespace {

constexpr int SlideDuration = 350; // ms, menu, drawer and page scrolling alike
constexpr int MenuWidth = 250;
constexpr int DrawerWidth = 450;
// A click this soon after the previous one or after a resize never closes the menu:
// the same press reaches the filter once per widget it propagates through, and a
// sliding panel resizes the view under the cursor.
constexpr qint64 ClickGuard = 500; // ms
// Separators leave this much of the menu column's width free.
constexpr int SeparatorInset = 18;

QString modificationTitle()
{
    return QCoreApplication::translate("ZelControlCenter", "Settings Modification");
}

} // namespace

void ZelControlCenter::CleanupRessources()
{
    releaseControlCenterResources();
}

ZelControlCenter::ZelControlCenter(kqDMIApplication* application, QWidget* parent, Qt::WindowFlags flags)
    : QWidget(parent, flags)
    , m_ui(std::make_unique<Ui::ControlCenter>())
    , m_application(application)
{
    m_ui->setupUi(this);
    const QString styleSheet = kqDMIApplication::GetStylesheet(QStringLiteral("ZelControlCenter"));
    setStyleSheet(styleSheet);
    setObjectName(QStringLiteral("ZelControlCenter"));

    // The form would translate under its own name; the library's texts live under "ZelControlCenter".
    m_ui->controlCenterButton->setText(QCoreApplication::translate("ZelControlCenter", "Application Settings"));
    m_ui->resetButton->setText(QCoreApplication::translate("ZelControlCenter", "Reset"));
    m_ui->resetButton->setToolTip(QCoreApplication::translate("ZelControlCenter", "Resets all parameters"));
    m_ui->applyButton->setText(QCoreApplication::translate("ZelControlCenter", "Apply"));
    m_ui->applyButton->setToolTip(QCoreApplication::translate("ZelControlCenter", "Applies your changes"));

    // Items, page buttons and pages stack from the top of frames that fill their column.
    m_ui->verticalLayout->setAlignment(Qt::AlignTop);
    m_ui->verticalLayout_6->setAlignment(Qt::AlignTop);
    m_ui->verticalLayout_4->setAlignment(Qt::AlignTop);

    // The drawer slides by its width; the host lays it out beside this widget, which
    // takes it out of reach of this widget's style sheet, so it carries its own.
    m_drawer = m_ui->settingsScrollArea;
    m_ui->horizontalLayout_30->removeWidget(m_drawer);
    m_drawer->setStyleSheet(styleSheet);
    m_ui->controlCenterButton->setChecked(false);
    m_drawer->hide();

    m_pageMapper = new QSignalMapper(this);
    connect(m_pageMapper, SIGNAL(mappedString(const QString&)), this, SLOT(onPanelClicked(const QString&)));

    m_widthAnimation = new QPropertyAnimation(this, QByteArrayLiteral("controlCenterWidth"), this);
    m_widthAnimation->setDuration(SlideDuration);
    m_widthAnimation->setStartValue(0);
    m_widthAnimation->setEndValue(MenuWidth);
    connect(m_widthAnimation, SIGNAL(finished()), this, SLOT(onControlCenterWidthFinished()));

    m_settingsAnimation = new QPropertyAnimation(this, QByteArrayLiteral("settingsWidth"), this);
    m_settingsAnimation->setDuration(SlideDuration);
    m_settingsAnimation->setStartValue(0);
    m_settingsAnimation->setEndValue(DrawerWidth);
    connect(m_settingsAnimation, SIGNAL(finished()), this, SLOT(onSettingsWidthFinished()));

    QScrollBar* scrollBar = m_drawer->verticalScrollBar();
    m_scrollAnimation = new QPropertyAnimation(scrollBar, QByteArrayLiteral("value"), this);
    m_scrollAnimation->setDuration(SlideDuration);
    m_scrollAnimation->setEasingCurve(QEasingCurve::InOutQuad);
    connect(scrollBar, SIGNAL(valueChanged(int)), this, SLOT(onScrollBarValueChanged(int)));

    m_pageGroup = new QButtonGroup(this);
    m_pageGroup->setExclusive(true);

    openMenu(false);

    m_settingsAction = std::make_unique<zelAction>(QStringLiteral("Settings"),
                                                   QCoreApplication::translate("ZelControlCenter", "Settings"));
    m_settingsAction->setStatusTip(
        QCoreApplication::translate("ZelControlCenter", "Changes the settings of the application"));
    registerCCAction(m_settingsAction.get(), QString(), false, false, true);
    connect(m_settingsAction.get(), SIGNAL(triggered()), this, SLOT(openSettings()));
    // Choosing Settings swaps the menu for the drawer; it must not close the menu.
    disconnect(m_settingsAction.get(), SIGNAL(triggered()), this, SLOT(closeMenu()));

    // The drawer's header goes back to the menu when clicked while the drawer is open.
    connect(m_ui->controlCenterButton, SIGNAL(clicked(bool)), this, SLOT(setControlCenterVisible(bool)));

    m_clickTimer.start();
}

ZelControlCenter::~ZelControlCenter()
{
    QCoreApplication::instance()->removeEventFilter(this);
    // Stopped animations never finish: resume the engine ourselves.
    const auto sliding = [](const QPropertyAnimation* animation) {
        return animation->state() == QAbstractAnimation::Running;
    };
    if (sliding(m_widthAnimation) || sliding(m_settingsAnimation))
        m_application->setUpdateEngineEnabled(true);

    m_separators.clear();
    // Pages belong to whoever created them: hand them back before the drawer goes.
    while (!m_panels.empty())
        unregisterSettingsPanel(m_panels.front(), true);
    if (m_drawer) {
        // Tearing the drawer down moves its scroll bar; nothing of ours may react.
        disconnect(m_drawer->verticalScrollBar(), SIGNAL(valueChanged(int)), this,
                   SLOT(onScrollBarValueChanged(int)));
        delete m_drawer.data();
    }
    unregisterCCAction(m_settingsAction.get());
    m_settingsAction.reset();
    m_ui.reset();
    delete m_pageMapper;
    delete m_widthAnimation;
    delete m_settingsAnimation;
    delete m_scrollAnimation;
}

void ZelControlCenter::registerSettingsPanel(ZelSettingsPanel* panel)
{
    if (std::find(m_panels.cbegin(), m_panels.cend(), panel) != m_panels.cend())
        return;
    // Without the signal the string connection fails quietly and Apply never follows the
    // page's edits: say so where the page's author will see it.
    if (panel->metaObject()->indexOfSignal("stateChanged()") < 0) {
        qWarning("ZelControlCenter: the settings page \"%s\" (%s) declares no signal stateChanged(): "
                 "Apply and Reset will not follow its edits",
                 qUtf8Printable(panel->getPanelName()), panel->metaObject()->className());
        Q_ASSERT_X(false, "ZelControlCenter::registerSettingsPanel", "a settings page must declare stateChanged()");
    }
    m_panels.push_back(panel);
    connect(panel, SIGNAL(stateChanged()), this, SLOT(onStateChanged()));
    connect(panel, SIGNAL(destroyed(QObject*)), this, SLOT(onPanelDestroyed(QObject*)));

    QPushButton* button = panel->getActionWidget();
    m_ui->verticalLayout_6->addWidget(button);
    m_ui->applicationSettings->show();
    m_pageGroup->addButton(button);
    m_ui->verticalLayout_8->addWidget(panel);
    m_ui->applicationFrame->show();
    panel->show();
    panel->initializeWidget();

    connect(button, SIGNAL(clicked()), m_pageMapper, SLOT(map()));
    m_pageMapper->setMapping(button, panel->getPanelName());
    onStateChanged();
}

void ZelControlCenter::unregisterSettingsPanel(ZelSettingsPanel* panel, bool reevaluate)
{
    const auto it = std::find(m_panels.begin(), m_panels.end(), panel);
    if (it == m_panels.end())
        return;

    disconnect(panel, SIGNAL(stateChanged()), this, SLOT(onStateChanged()));
    disconnect(panel, SIGNAL(destroyed(QObject*)), this, SLOT(onPanelDestroyed(QObject*)));

    QPushButton* button = panel->getActionWidget();
    m_pageGroup->removeButton(button);
    disconnect(button, SIGNAL(clicked()), m_pageMapper, SLOT(map()));
    m_pageMapper->removeMappings(button);
    m_ui->verticalLayout_6->removeWidget(button);
    m_ui->verticalLayout_8->removeWidget(panel);
    button->setParent(nullptr);
    panel->setParent(nullptr);
    m_panels.erase(it);

    if (reevaluate)
        onStateChanged();
}

const std::vector<ZelSettingsPanel*>& ZelControlCenter::settingsPanels() const
{
    return m_panels;
}

bool ZelControlCenter::isMenuOpen() const
{
    return m_menuOpen;
}

bool ZelControlCenter::isSettingsOpen() const
{
    return m_settingsOpen;
}

bool ZelControlCenter::hasModifications() const
{
    return std::any_of(m_panels.cbegin(), m_panels.cend(),
                       [](const ZelSettingsPanel* panel) { return panel->hasModifications(); });
}

bool ZelControlCenter::applyModifications()
{
    // Every page applies, whatever an earlier one answered.
    bool restartNeeded = false;
    for (ZelSettingsPanel* panel : m_panels) {
        if (panel->applyModifications())
            restartNeeded = true;
    }
    return restartNeeded;
}

void ZelControlCenter::setSettingsWritable(bool writable)
{
    m_settingsWritable = writable;
    onStateChanged();
}

void ZelControlCenter::reevaluateButtons()
{
    onStateChanged();
}

void ZelControlCenter::setGUIHandler(QWidget* handler)
{
    m_guiHandler = handler;
}

void ZelControlCenter::setControlCenterButton(QPushButton* button)
{
    m_controlCenterButton = button;
}

QWidget* ZelControlCenter::settingsWidget() const
{
    return m_drawer;
}

int ZelControlCenter::controlCenterWidth() const
{
    return minimumWidth();
}

void ZelControlCenter::setControlCenterWidth(int width)
{
    setVisible(width >= 1);
    setMinimumWidth(width);
    setMaximumWidth(width);
}

int ZelControlCenter::settingsWidth() const
{
    return m_drawer->isHidden() ? 0 : m_drawer->minimumWidth();
}

void ZelControlCenter::setSettingsWidth(int width)
{
    m_drawer->setVisible(width >= 1);
    m_drawer->setMinimumWidth(width);
    m_drawer->setMaximumWidth(width);

    const QScrollBar* scrollBar = m_drawer->verticalScrollBar();
    const int contentWidth = std::max(0, width - (scrollBar->isVisible() ? scrollBar->width() : 0));
    m_ui->settingsContent->setMinimumWidth(contentWidth);
    m_ui->settingsContent->setMaximumWidth(contentWidth);
}

void ZelControlCenter::registerCCAction(zelAction* action, const QString& anchorName, bool isWorkflowSpecific,
                                        bool after, bool closeMenuOnTrigger)
{
    auto* item = new ZelCCActionItem(action, this);
    item->setIsWorkflowSpecific(isWorkflowSpecific);
    if (closeMenuOnTrigger)
        connect(action, SIGNAL(triggered()), this, SLOT(closeMenu()));
    connect(action, SIGNAL(destroyed(QObject*)), this, SLOT(onActionDestroyed(QObject*)), Qt::UniqueConnection);
    m_actionItems.push_back(item);

    if (anchorName.isEmpty()) {
        m_ui->verticalLayout->insertWidget(0, item);
        layout()->invalidate();
        return;
    }
    const int anchor = actionItemIndex(anchorName);
    if (anchor >= 0) {
        m_ui->verticalLayout->insertWidget(after ? anchor + 1 : anchor, item);
    } else {
        m_ui->verticalLayout->addWidget(item);
        layout()->invalidate();
    }
}

void ZelControlCenter::unregisterCCAction(zelAction* action)
{
    bool registered = false;
    for (auto it = m_actionItems.begin(); it != m_actionItems.end();) {
        if ((*it)->getZelAction() != action) {
            ++it;
            continue;
        }
        disconnect(action, SIGNAL(triggered()), this, SLOT(closeMenu()));
        delete *it;
        it = m_actionItems.erase(it);
        registered = true;
    }
    if (registered)
        disconnect(action, SIGNAL(destroyed(QObject*)), this, SLOT(onActionDestroyed(QObject*)));
}

bool ZelControlCenter::addCCSeparator(const QString& anchorName, const QString& separatorName)
{
    if (m_separators.contains(separatorName))
        return false;

    auto* separator = new QFrame(this);
    // Qt 6 rejects an alpha given to rgb() (with a warning) and paints nothing.
    separator->setStyleSheet(QStringLiteral("background:rgba(0,0,0,30);"));
    separator->setFixedHeight(1);
    fitSeparator(separator);
    m_separators.insert(separatorName, separator);

    // Separators always go before their anchor; -1 (not found) appends.
    const int anchor = anchorName.isEmpty() ? 0 : actionItemIndex(anchorName);
    m_ui->verticalLayout->insertWidget(anchor, separator, 0, Qt::AlignHCenter);
    return true;
}

bool ZelControlCenter::setCCSeparatorVisible(const QString& separatorName, bool visible)
{
    QFrame* separator = m_separators.value(separatorName);
    if (!separator)
        return false;
    separator->setVisible(visible);
    return true;
}

void ZelControlCenter::setInterfaceColor(const QColor& color, const QString& iconOnFile, const QString& iconOffFile)
{
    m_ui->actionFrame->setStyleSheet(QStringLiteral("#actionFrame{ background-color:rgb(%1,%2,%3);}")
                                         .arg(color.red())
                                         .arg(color.green())
                                         .arg(color.blue()));
    if (!m_controlCenterButton)
        return;

    QIcon icon;
    icon.addFile(iconOnFile, QSize(), QIcon::Normal, QIcon::On);
    icon.addFile(iconOffFile, QSize(), QIcon::Normal, QIcon::Off);
    m_controlCenterButton->setIcon(icon);
    m_controlCenterButton->setIconSize(QSize(40, 40));
}

bool ZelControlCenter::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress: {
        // A press reaches us first on the widget's top-level window, then on the widget
        // under it. Only the second tells which window was hit (a popup list or a tool
        // window may lie over the view), so the first must not use up the guard.
        if (watched->inherits("QWidgetWindow"))
            break;
        // A press on a modal window, such as our own question, is not a press on the view.
        if (m_clickTimer.elapsed() < ClickGuard || QApplication::activeModalWidget())
            break;
        m_clickTimer.restart();
        if (!isClickOnMainView(watched, static_cast<QMouseEvent*>(event)->globalPosition().toPoint()))
            break;
        if (hasModifications()) {
            if (!confirmDiscard())
                break;
            initializePanels();
            onStateChanged();
        }
        openSettingsPanel(false);
        openMenu(false);
        break;
    }
    case QEvent::Resize:
        m_clickTimer.restart();
        break;
    default:
        break;
    }
    return false;
}

void ZelControlCenter::openMenu(bool open)
{
    const bool wasVisible = isVisible();
    const bool hasGuiPlugin = m_application->getGuiPlugin() != nullptr;

    if (open) {
        m_application->setUpdateEngineEnabled(false);
        // Installing again only moves the filter to the front: it never runs twice.
        if (hasGuiPlugin)
            QCoreApplication::instance()->installEventFilter(this);
        m_widthAnimation->setEasingCurve(QEasingCurve::OutQuad);
        m_widthAnimation->setDirection(QAbstractAnimation::Forward);
        m_ui->preferenceFrame->hide();
    } else {
        // Asked before the drawer moves: a refused close leaves it open with its edits,
        // where closing it first would have dropped them when it next opens.
        if (hasModifications()) {
            if (!confirmDiscard()) {
                m_application->setUpdateEngineEnabled(true);
                return;
            }
            initializePanels();
            onStateChanged();
        }
        openSettingsPanel(false);
        m_application->setUpdateEngineEnabled(false);
        if (hasGuiPlugin)
            QCoreApplication::instance()->removeEventFilter(this);
        m_widthAnimation->setEasingCurve(QEasingCurve::InQuad);
        m_widthAnimation->setDirection(QAbstractAnimation::Backward);
        m_ui->controlCenterButton->setChecked(false);
    }

    if (m_ui->preferenceFrame->isVisible())
        openSettingsPanel(false);
    if (m_controlCenterButton)
        m_controlCenterButton->setChecked(open);

    // A running slide has just been turned around; it finishes on its own.
    if (m_widthAnimation->state() == QAbstractAnimation::Running)
        return;
    if (wasVisible == open)
        onControlCenterWidthFinished();
    else
        m_widthAnimation->start();
}

void ZelControlCenter::setControlCenterVisible(bool visible)
{
    if (visible) {
        m_ui->controlCenterButton->setChecked(true);
        m_ui->preferenceFrame->show();
        openSettingsPanel(true);
    } else if (m_ui->preferenceFrame->isVisible()) {
        openSettingsPanel(false);
    }
}

void ZelControlCenter::openSettings()
{
    const bool visible = !m_ui->controlCenterButton->isChecked();
    setControlCenterVisible(visible);
    m_ui->controlCenterButton->setChecked(visible);
}

void ZelControlCenter::on_applyButton_clicked()
{
    if (applyModifications() && m_application->getGuiPlugin()) {
        kqMessageBox::ShowMessage(
            modificationTitle(),
            QCoreApplication::translate("ZelControlCenter",
                                        "You need to restart your application to turn settings modification "
                                        "effective."),
            QMessageBox::Ok, nullptr, {}, {}, false);
    }
    onStateChanged();
    Q_EMIT modificationsApplied();
}

void ZelControlCenter::on_resetButton_clicked()
{
    resetControlCenter();
}

void ZelControlCenter::onPanelClicked(const QString& pPanelName)
{
    if (!m_settingsOpen)
        openSettingsPanel(true);
    for (ZelSettingsPanel* panel : m_panels) {
        if (panel->getPanelName() == pPanelName)
            ensureSettingVisible(panel);
    }
}

void ZelControlCenter::onStateChanged()
{
    m_ui->applyButton->setEnabled(m_settingsWritable && hasModifications());
    m_ui->resetButton->setEnabled(std::any_of(m_panels.cbegin(), m_panels.cend(), [](const ZelSettingsPanel* panel) {
        return panel->canResetContent();
    }));
}

void ZelControlCenter::onControlCenterWidthFinished()
{
    if (m_widthAnimation->direction() == QAbstractAnimation::Backward) {
        m_menuOpen = false;
        hide();
    } else {
        m_menuOpen = true;
    }
    m_application->setUpdateEngineEnabled(true);
}

void ZelControlCenter::onSettingsWidthFinished()
{
    m_application->setUpdateEngineEnabled(true);
    if (m_settingsAnimation->direction() == QAbstractAnimation::Backward) {
        m_settingsOpen = false;
        m_ui->preferenceFrame->hide();
        m_drawer->hide();
    } else {
        m_settingsOpen = true;
    }
}

void ZelControlCenter::onScrollBarValueChanged(int value)
{
    // While a page button scrolls the drawer, that button is already the checked one.
    if (m_scrollAnimation->state() == QAbstractAnimation::Running)
        return;

    QWidget* content = m_ui->settingsContent;
    for (QWidget* widget = content->childAt(10, value + 10); widget && widget != content;
         widget = widget->parentWidget()) {
        if (const auto* panel = qobject_cast<ZelSettingsPanel*>(widget)) {
            panel->getActionWidget()->setChecked(true);
            return;
        }
    }
}

void ZelControlCenter::closeMenu()
{
    openMenu(false);
}

void ZelControlCenter::resizeEvent(QResizeEvent* event)
{
    // A separator made while the column was closed would otherwise keep a width of 0.
    for (QFrame* separator : std::as_const(m_separators))
        fitSeparator(separator);
    QWidget::resizeEvent(event);
}

void ZelControlCenter::openSettingsPanel(bool open)
{
    const bool wasVisible = m_drawer->isVisible();
    m_ui->actionFrame->setVisible(!open);
    m_application->setUpdateEngineEnabled(false);

    if (open) {
        if (!wasVisible) {
            initializePanels();
            onStateChanged();
        }
        m_drawer->show();
        m_settingsAnimation->setEasingCurve(QEasingCurve::OutQuad);
    } else {
        m_settingsAnimation->setEasingCurve(QEasingCurve::InQuad);
    }
    m_settingsAnimation->setDirection(open ? QAbstractAnimation::Forward : QAbstractAnimation::Backward);

    if (wasVisible != open)
        m_settingsAnimation->start();
    else if (m_settingsAnimation->state() != QAbstractAnimation::Running
             && m_widthAnimation->state() != QAbstractAnimation::Running)
        m_application->setUpdateEngineEnabled(true); // already there and nothing slides
}

void ZelControlCenter::ensureSettingVisible(QWidget* widget)
{
    const QScrollBar* scrollBar = m_drawer->verticalScrollBar();
    const int target = widget->y() + widget->parentWidget()->y();
    m_scrollAnimation->stop();
    m_scrollAnimation->setStartValue(scrollBar->value());
    m_scrollAnimation->setEndValue(std::min(target, scrollBar->maximum()));
    m_scrollAnimation->start();
}

void ZelControlCenter::resetControlCenter()
{
    // Pages announce their new state themselves through stateChanged().
    for (ZelSettingsPanel* panel : m_panels)
        panel->resetContent();
}

void ZelControlCenter::onPanelDestroyed(QObject* panel)
{
    // Only the address is left to compare: the page's own destructors have run.
    const auto it = std::find(m_panels.begin(), m_panels.end(), panel);
    if (it == m_panels.end())
        return;
    m_panels.erase(it);
    onStateChanged();
}

void ZelControlCenter::onActionDestroyed(QObject* action)
{
    for (auto it = m_actionItems.begin(); it != m_actionItems.end();) {
        if ((*it)->getZelAction() == action) {
            delete *it;
            it = m_actionItems.erase(it);
        } else {
            ++it;
        }
    }
}

bool ZelControlCenter::confirmDiscard() const
{
    // The stand-alone editor has nobody to ask: closing simply discards.
    if (!m_application->getGuiPlugin())
        return true;
    return kqMessageBox::ShowMessage(modificationTitle(),
                                     QCoreApplication::translate("ZelControlCenter",
                                                                 "You have pending modifications. Continue and "
                                                                 "discard your changes ?"),
                                     QMessageBox::Ok | QMessageBox::Cancel, nullptr, {}, {}, false)
        == QMessageBox::Ok;
}

void ZelControlCenter::initializePanels()
{
    for (ZelSettingsPanel* panel : m_panels)
        panel->initializeWidget();
}

int ZelControlCenter::actionItemIndex(const QString& anchorName) const
{
    for (int i = 0; i < m_ui->verticalLayout->count(); ++i) {
        const auto* item = qobject_cast<ZelCCActionItem*>(m_ui->verticalLayout->itemAt(i)->widget());
        if (item && item->getZelAction()->getActionName() == anchorName)
            return i;
    }
    return -1;
}

bool ZelControlCenter::isClickOnMainView(QObject* watched, const QPoint& globalPosition) const
{
    const kqDMGuiPlugin* plugin = m_application->getGuiPlugin();
    const QWidget* view = plugin ? plugin->getMainViewWidget() : nullptr;
    if (!view)
        return false;
    if (!view->rect().translated(view->mapToGlobal(QPoint(0, 0))).contains(globalPosition))
        return false;
    if (!watched->isWidgetType())
        return true; // a window of the view's own, such as an embedded 3D surface
    const auto* pressed = static_cast<const QWidget*>(watched);
    if (pressed->window() != view->window())
        return false;
    return !m_guiHandler || m_guiHandler->isAncestorOf(pressed);
}

void ZelControlCenter::fitSeparator(QFrame* separator) const
{
    separator->setFixedWidth(std::max(0, width() - SeparatorInset));
}

} // namespace zel
