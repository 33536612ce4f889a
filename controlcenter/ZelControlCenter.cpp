#include "ZelControlCenter.h"
#include "ui_ControlCenter.h"

#include "ZelCCActionColumn_p.h"
#include "ZelCCClickGuard_p.h"
#include "ZelCCDrawerButtons_p.h"
#include "ZelCCDrawerWidth_p.h"
#include "ZelCCPages_p.h"
#include "ZelCCSearch_p.h"
#include "ZelCCSlide_p.h"
#include "ZelSettingsPanel.h"
#include "ZelStyleProperty_p.h"
#include "kqDMIApplication.h"
#include "kqMessageBox.h"
#include "zelAction.h"

#include <QApplication>
#include <QColor>
#include <QCoreApplication>
#include <QIcon>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>

#include <algorithm>

// Q_CLEANUP_RESOURCE declares the rcc function in the enclosing namespace, which must
// be the global one.
static void releaseControlCenterResources()
{
    Q_CLEANUP_RESOURCE(ZelControlCenter);
}

namespace zel {

namespace {

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
    , m_clickGuard(std::make_unique<ZelCCClickGuard>(application))
    , m_application(application)
{
    // The sheet first: children made after it are styled once, not again when it comes.
    setStyleSheet(kqDMIApplication::GetStylesheet(QStringLiteral("ZelControlCenter")));
    m_ui->setupUi(this);
    setObjectName(QStringLiteral("ZelControlCenter"));

    setUpDrawerButtons(m_ui->controlCenterButton, m_ui->resetButton, m_ui->applyButton);

    // Items, page buttons and pages stack from the top of frames that fill their column.
    m_ui->verticalLayout->setAlignment(Qt::AlignTop);
    m_ui->verticalLayout_6->setAlignment(Qt::AlignTop);
    m_ui->verticalLayout_4->setAlignment(Qt::AlignTop);
    // A page whose form ends in a spacer would stretch to the drawer's height when it is
    // all the drawer shows (a search); the room below the last page stays empty instead.
    m_ui->verticalLayout_4->addStretch(1);

    // The drawer slides by its width; the host lays it out beside this widget, which
    // takes it out of reach of this widget's style sheet, so it carries its own. Each
    // sheet holds only its side's rules: every widget is matched against all of them.
    m_drawerScroll = m_ui->settingsScrollArea;
    m_ui->horizontalLayout_30->removeWidget(m_drawerScroll);
    // Made where this widget is, the drawer is styled where a host usually puts it.
    m_drawer = new QWidget(parent);
    m_drawer->setObjectName(QStringLiteral("settingsDrawer"));
    m_drawer->setStyleSheet(kqDMIApplication::GetStylesheet(QStringLiteral("ZelCCDrawer"))
                            + kqDMIApplication::GetStylesheet(QStringLiteral("ZelCCSearch")));
    m_pages = std::make_unique<ZelCCPages>(m_ui->verticalLayout_6, m_ui->verticalLayout_8, m_ui->controlCenterButton);
    m_search = std::make_unique<ZelCCSearch>(m_drawer, m_drawerScroll, m_pages->pages());
    m_ui->controlCenterButton->setChecked(false);
    m_drawer->hide();
    auto* find = new QShortcut(QKeySequence::Find, this);
    find->setContext(Qt::WindowShortcut);
    connect(find, &QShortcut::activated, this, &ZelControlCenter::findSetting);
    connect(qApp, &QApplication::focusChanged, this, &ZelControlCenter::followFocus);

    m_actionColumn = std::make_unique<ZelCCActionColumn>(m_ui->verticalLayout, this);
    connect(m_actionColumn.get(), &ZelCCActionColumn::closingActionTriggered, this, &ZelControlCenter::closeMenu);

    QScrollBar* scrollBar = m_drawerScroll->verticalScrollBar();
    m_slide = std::make_unique<ZelCCSlide>(this, scrollBar, application);
    connect(m_slide.get(), &ZelCCSlide::menuArrived, this, &ZelControlCenter::onControlCenterWidthFinished);
    connect(m_slide.get(), &ZelCCSlide::drawerArrived, this, &ZelControlCenter::onSettingsWidthFinished);
    connect(scrollBar, &QScrollBar::valueChanged, this, &ZelControlCenter::onScrollBarValueChanged);
    m_drawerWidth = std::make_unique<ZelCCDrawerWidth>(m_drawer, m_drawerScroll, m_slide.get());

    connect(m_pages.get(), &ZelCCPages::stateChanged, this, &ZelControlCenter::onStateChanged);
    connect(m_pages.get(), &ZelCCPages::pageClicked, this, &ZelControlCenter::onPanelClicked);

    openMenu(false);

    m_settingsAction = std::make_unique<zelAction>(QStringLiteral("Settings"),
                                                   QCoreApplication::translate("ZelControlCenter", "Settings"));
    m_settingsAction->setStatusTip(
        QCoreApplication::translate("ZelControlCenter", "Changes the settings of the application"));
    // Choosing Settings swaps the menu for the drawer; it must not close the menu.
    registerCCAction(m_settingsAction.get(), QString(), false, false, false);
    connect(m_settingsAction.get(), &QAction::triggered, this, &ZelControlCenter::openSettings);

    // The drawer's header goes back to the menu when clicked while the drawer is open.
    connect(m_ui->controlCenterButton, &QAbstractButton::clicked, this, &ZelControlCenter::setControlCenterVisible);
}

ZelControlCenter::~ZelControlCenter()
{
    QCoreApplication::instance()->removeEventFilter(this);
    // Our widgets go only after this body, in QWidget's destructor; a focused one hands the
    // focus on as it goes, and what follows the focus here is gone by then.
    disconnect(qApp, &QApplication::focusChanged, this, &ZelControlCenter::followFocus);
    // Pages belong to whoever created them: hand them back before the drawer goes.
    while (!m_pages->pages().empty())
        unregisterSettingsPanel(m_pages->pages().front(), true);
    if (m_drawerScroll) {
        // Tearing the drawer down moves its scroll bar; nothing of ours may react.
        disconnect(m_drawerScroll->verticalScrollBar(), &QScrollBar::valueChanged, this,
                   &ZelControlCenter::onScrollBarValueChanged);
    }
    delete m_drawer.data();
    unregisterCCAction(m_settingsAction.get());
    m_settingsAction.reset();
    m_ui.reset();
}

void ZelControlCenter::registerSettingsPanel(ZelSettingsPanel* panel)
{
    if (m_pages->add(panel))
        onStateChanged();
}

void ZelControlCenter::unregisterSettingsPanel(ZelSettingsPanel* panel, bool reevaluate)
{
    if (m_pages->remove(panel) && reevaluate)
        onStateChanged();
}

const std::vector<ZelSettingsPanel*>& ZelControlCenter::settingsPanels() const
{
    return m_pages->pages();
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
    return m_pages->hasModifications();
}

bool ZelControlCenter::applyModifications()
{
    return m_pages->apply();
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
    m_clickGuard->setHandler(handler);
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
    // Read by the slide as it is made, before the drawer's width has its keeper.
    return m_drawer->isHidden() ? 0 : m_drawer->minimumWidth();
}

void ZelControlCenter::setSettingsWidth(int width)
{
    m_drawerWidth->setWidth(width);
}

void ZelControlCenter::setSettingsWidthRange(int minimum, int maximum)
{
    m_drawerWidth->setRange(minimum, maximum);
}

void ZelControlCenter::registerCCAction(zelAction* action, const QString& anchorName, bool isWorkflowSpecific,
                                        bool after, bool closeMenuOnTrigger)
{
    m_actionColumn->addAction(action, anchorName, isWorkflowSpecific, after, closeMenuOnTrigger);
}

void ZelControlCenter::unregisterCCAction(zelAction* action)
{
    m_actionColumn->removeAction(action);
}

bool ZelControlCenter::addCCSeparator(const QString& anchorName, const QString& separatorName)
{
    return m_actionColumn->addSeparator(anchorName, separatorName);
}

bool ZelControlCenter::setCCSeparatorVisible(const QString& separatorName, bool visible)
{
    return m_actionColumn->setSeparatorVisible(separatorName, visible);
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
    if (!m_clickGuard->isClosingPress(watched, event))
        return false;
    if (hasModifications()) {
        if (!confirmDiscard())
            return false;
        m_pages->initialize();
        onStateChanged();
    }
    openSettingsPanel(false);
    openMenu(false);
    return false;
}

void ZelControlCenter::openMenu(bool open)
{
    const bool wasVisible = isVisible();
    const bool hasGuiPlugin = m_application->getGuiPlugin() != nullptr;

    if (open) {
        // Installing again only moves the filter to the front: it never runs twice.
        if (hasGuiPlugin)
            QCoreApplication::instance()->installEventFilter(this);
        m_ui->preferenceFrame->hide();
    } else {
        // Asked before the drawer moves: a refused close leaves it open with its edits,
        // where closing it first would have dropped them when it next opens.
        if (hasModifications()) {
            if (!confirmDiscard()) {
                m_slide->resumeEngine();
                return;
            }
            m_pages->initialize();
            onStateChanged();
        }
        openSettingsPanel(false);
        if (hasGuiPlugin)
            QCoreApplication::instance()->removeEventFilter(this);
        m_ui->controlCenterButton->setChecked(false);
    }

    if (m_ui->preferenceFrame->isVisible())
        openSettingsPanel(false);
    if (m_controlCenterButton)
        m_controlCenterButton->setChecked(open);
    m_slide->slideMenu(open, wasVisible == open);
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
    for (ZelSettingsPanel* panel : m_pages->pages()) {
        if (panel->getPanelName() != pPanelName)
            continue;
        // Folded away by a search, the page is asked for: the search is over.
        if (panel->isHidden())
            m_search->clear();
        ensureSettingVisible(panel);
    }
}

void ZelControlCenter::onStateChanged()
{
    m_ui->applyButton->setEnabled(m_settingsWritable && hasModifications());
    m_ui->resetButton->setEnabled(m_pages->markPagesAwayFromDefaults());
}

void ZelControlCenter::onControlCenterWidthFinished()
{
    m_menuOpen = m_slide->isMenuHeadedOpen();
    if (!m_menuOpen)
        hide();
    m_slide->resumeEngine();
}

void ZelControlCenter::onSettingsWidthFinished()
{
    m_slide->resumeEngine();
    m_settingsOpen = m_slide->isDrawerHeadedOpen();
    if (!m_settingsOpen) {
        m_ui->preferenceFrame->hide();
        m_drawer->hide();
    } else {
        m_drawerWidth->arrivedOpen();
        // The page list shows from the start which page is in sight, so that the arrow
        // keys move from page to page there as they do once the drawer has scrolled.
        onScrollBarValueChanged(m_drawerScroll->verticalScrollBar()->value());
    }
}

void ZelControlCenter::onScrollBarValueChanged(int value)
{
    // While a page button scrolls the drawer, that button is already the checked one.
    if (m_slide->isScrolling())
        return;

    m_pages->checkPageInSight(value, m_drawerScroll->viewport()->height(), m_ui->settingsContent);
}

void ZelControlCenter::followFocus(QWidget* previous, QWidget* now)
{
    // The scroll area brings a field into sight when Tab moves within it, not when the
    // keyboard comes in from the page buttons or the search field. A press never scrolls:
    // the field would move away under the pointer before the release.
    const QWidget* content = m_ui->settingsContent;
    if (previous && now && content->isAncestorOf(now) && !content->isAncestorOf(previous)
        && QGuiApplication::mouseButtons() == Qt::NoButton)
        m_drawerScroll->ensureWidgetVisible(now);

    // The drawer is a Tab stop of its own, for the arrow and page keys to scroll it. Its
    // frame cannot show the focus without narrowing the pages, so its scroll bars do.
    if (now == m_drawerScroll || previous == m_drawerScroll)
        for (QScrollBar* bar : {m_drawerScroll->verticalScrollBar(), m_drawerScroll->horizontalScrollBar()})
            setStyleProperty(bar, "drawerFocus", now == m_drawerScroll);

    m_pages->checkPageHolding(now);
}

void ZelControlCenter::closeMenu()
{
    openMenu(false);
}

void ZelControlCenter::resizeEvent(QResizeEvent* event)
{
    m_actionColumn->fitSeparators();
    QWidget::resizeEvent(event);
}

void ZelControlCenter::openSettingsPanel(bool open)
{
    const bool wasVisible = m_drawer->isVisible();
    m_ui->actionFrame->setVisible(!open);
    if (wasVisible != open)
        m_drawerWidth->startSlide();
    if (open && !wasVisible) {
        m_pages->initialize();
        onStateChanged();
    }
    // Shown once the slide's first step has sized it, the drawer lays its pages out at the
    // width they keep, not first at the one it had when it closed.
    m_slide->slideDrawer(open, wasVisible == open, open ? m_drawerWidth->openWidth() : m_drawer->width());
    if (open)
        m_drawer->show();
}

void ZelControlCenter::ensureSettingVisible(QWidget* widget)
{
    // Brought to the top, a page keeps the margin the first one has there.
    const int margin = m_ui->verticalLayout_8->contentsMargins().top();
    m_slide->scrollDrawerTo(std::max(0, widget->mapTo(m_ui->settingsContent, QPoint()).y() - margin));
}

void ZelControlCenter::resetControlCenter()
{
    m_pages->reset();
}

void ZelControlCenter::findSetting()
{
    if (!m_settingsOpen && !m_drawer->isVisible())
        setControlCenterVisible(true);
    m_search->focus();
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

} // namespace zel
