#include "ZelControlCenterStandAloneWidget.h"

#include "ZelAboutSettingsPanel.h"
#include "ZelControlCenter.h"
#include "ZelGeneralSettingsPanel.h"
#include "ZelRendererSettingsPanel.h"
#include "ZelImportSettingsPanel.h"
#include "ZelPageHost.h"
#include "ZelSettings.h"
#include "ZelSettingsKeys.h"
#include "ZelSettingsNotice.h"
#include "ZelSettingsStart.h"
#include "ZelSettingsWatch.h"
#include "ZelWindowEdges.h"
#include "ZelSimplificationSettingsPanel.h"
#include "kqDMIApplication.h"
#include "kqMovableObject.h"
#include "ui_ControlCenterStandAlone.h"

#include <QCloseEvent>
#include <QDir>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QShowEvent>
#include <QTimer>

#include <algorithm>
#include <type_traits>
#include <utility>

namespace zel {

namespace {

// The narrowest the settings column gets (the control center widens it to its widest
// page); and the logo's room.
constexpr int DrawerMinimumWidth = 320;
// Where a large scale factor leaves too little of the screen beside the menu column.
constexpr int DrawerLeastWidth = 120;
constexpr int LogoWidth = 100;
constexpr int PageInterval = 16; // ms

// Where the file as it was is kept, or why no copy could be kept.
QString keptCopyLine(const QString& copy, const QString& copyError)
{
    return copy.isEmpty() ? copyError : ZelSettingsStart::KeptCopyText(copy);
}

} // namespace

ZelControlCenterStandAloneWidget::ZelControlCenterStandAloneWidget(kqDMIApplication* application, QWidget* parent,
                                                                   Qt::WindowFlags flags)
    : QWidget(parent, flags)
    , m_application(application)
    , m_ui(std::make_unique<Ui::ControlCenterStandAlone>())
{
    // Nothing here measures text (the logo is a picture, not an empty text), so the
    // window can be made while the font configuration still loads: see launch().
    m_ui->setupUi(this);

    m_movable = std::make_unique<kq::kqMovableObject>(this);
    m_movable->setExpandOnDlbClick(true);
    m_movable->setAnchorObject(m_ui->headerFrame, this);
    // Without the window manager's frame, the window's own edges resize it.
    m_edges = std::make_unique<ZelWindowEdges>(this);

    connect(m_ui->closeButton, &QPushButton::clicked, this, &ZelControlCenterStandAloneWidget::closeWidget);
    // The key that quits desktop programs closes the window as its button does, question
    // included. Spelled out: without a desktop theme, Qt knows no key for quitting.
    auto* quit = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q), this);
    connect(quit, &QShortcut::activated, this, &ZelControlCenterStandAloneWidget::closeWidget);
    m_ui->closeButton->setToolTip(QStringLiteral("%1 (%2)").arg(m_ui->closeButton->toolTip(),
                                                                quit->key().toString(QKeySequence::NativeText)));
    connect(m_ui->maximizeButton, &QPushButton::clicked, this, &ZelControlCenterStandAloneWidget::triggerMaximize);
    connect(m_ui->minimizeButton, &QPushButton::clicked, this, &ZelControlCenterStandAloneWidget::triggerMinimize);

    m_watch = std::make_unique<ZelSettingsWatch>(application->getSettings());
    connect(m_watch.get(), &ZelSettingsWatch::changedOutside, this,
            &ZelControlCenterStandAloneWidget::takeOutsideChanges);
    connect(m_watch.get(), &ZelSettingsWatch::outsideValuesReplaced, this,
            &ZelControlCenterStandAloneWidget::tellOutsideValuesReplaced);
    connect(m_watch.get(), &ZelSettingsWatch::versionRestoredOnApply, this,
            &ZelControlCenterStandAloneWidget::tellVersionRestored);
}

void ZelControlCenterStandAloneWidget::showEvent(QShowEvent* event)
{
    if (!event->spontaneous())
        fitToScreen();
    QWidget::showEvent(event);
}

void ZelControlCenterStandAloneWidget::fitToScreen()
{
    const QScreen* screen = this->screen();
    if (!screen || isMaximized() || isFullScreen())
        return;
    const QRect available = screen->availableGeometry();
    QRect frame = geometry();
    frame.setSize(frame.size().boundedTo(available.size()).expandedTo(minimumSize()));
    const QPoint farthest(std::max(available.left(), available.right() + 1 - frame.width()),
                          std::max(available.top(), available.bottom() + 1 - frame.height()));
    frame.moveTo(std::clamp(frame.left(), available.left(), farthest.x()),
                 std::clamp(frame.top(), available.top(), farthest.y()));
    setGeometry(frame);
}

void ZelControlCenterStandAloneWidget::keepLeastSizeOnScreen()
{
    // At a large scale factor the menu column and the drawer's usual least width may not
    // fit the screen side by side: the drawer then gives way, its pages scrolling sideways.
    const QScreen* screen = this->screen();
    if (!screen || !m_controlCenter)
        return;
    const QRect available = screen->availableGeometry();
    const int excess = frameGeometry().width() - width() + minimumWidth() - available.width();
    if (excess > 0 && m_drawerLeastWidth > DrawerLeastWidth) {
        m_drawerLeastWidth = std::max(m_drawerLeastWidth - excess, DrawerLeastWidth);
        m_controlCenter->setSettingsWidthRange(m_drawerLeastWidth, QWIDGETSIZE_MAX);
    }
    // A long notice gives way too, to as little as one line that scrolls.
    const int tooTall = frameGeometry().height() - height() + minimumHeight() - available.height();
    if (tooTall > 0 && m_notice && m_notice->isVisible())
        m_notice->limitHeight(m_notice->height() - tooTall);
    // Grown to a least size the screen could not hold, the window comes back within it
    // once the drawer and the notice have given way.
    const QSize frame = frameGeometry().size();
    if (frame.width() > available.width() || frame.height() > available.height())
        fitToScreen();
}

bool ZelControlCenterStandAloneWidget::event(QEvent* event)
{
    // Posted from the first paint, the build runs once that frame is on the screen.
    if (event->type() == QEvent::Paint && !m_buildScheduled) {
        m_buildScheduled = true;
        QTimer::singleShot(0, this, &ZelControlCenterStandAloneWidget::buildControlCenter);
    }
    const bool handled = QWidget::event(event);
    // The window's least size is known once its layout has run.
    if (event->type() == QEvent::LayoutRequest)
        keepLeastSizeOnScreen();
    return handled;
}

void ZelControlCenterStandAloneWidget::buildControlCenter()
{
    // Made in its place, the control center is styled once, not again when it moves in.
    m_controlCenter =
        std::make_unique<ZelControlCenter>(m_application, m_ui->controlCenterContentFrame, Qt::WindowFlags());
    m_controlCenter->setGUIHandler(this);
    m_ui->contentLayout->insertWidget(0, m_controlCenter.get());
    m_ui->contentLayout->insertWidget(1, m_controlCenter->settingsWidget());
    // The settings column takes what the window gains; the logo beside it keeps its place
    // and is the first to go when the window is small.
    m_drawerLeastWidth = DrawerMinimumWidth;
    m_controlCenter->setSettingsWidthRange(m_drawerLeastWidth, QWIDGETSIZE_MAX);
    m_ui->contentLayout->setStretch(1, 4);
    m_ui->contentLayout->setStretch(2, 1);
    m_ui->scrollArea->setMaximumWidth(LogoWidth);
    m_ui->scrollArea->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    // Narrower than the logo, its room shows the logo's middle.
    m_ui->uiDummyContent->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_ui->scrollArea->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_ui->scrollArea->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);

    m_controlCenter->setSettingsWritable(!m_readOnly);
    connect(m_controlCenter.get(), &ZelControlCenter::modificationsApplied, this,
            &ZelControlCenterStandAloneWidget::writeAppliedSettings);

    // The first page opens the drawer; the others follow one per pass of the event loop,
    // so that the drawer shows before they are all built and no input waits long.
    buildNextPage();
    if (m_menuRequested)
        openMenu();
}

void ZelControlCenterStandAloneWidget::buildNextPage()
{
    QSettings& settings = m_application->getSettings();
    // Built where the control center puts it, a page is styled once.
    QWidget* host = pageHost(*m_controlCenter);
    const auto build = [this, &settings, host](auto& slot) -> ZelSettingsPanel* {
        using Page = typename std::decay_t<decltype(slot)>::element_type;
        slot = std::make_unique<Page>(m_application, settings, host);
        return slot.get();
    };
    ZelSettingsPanel* page = nullptr;
    if (!m_displayPanel)
        page = build(m_displayPanel);
    else if (!m_generalPanel)
        page = build(m_generalPanel);
    else if (!m_simplificationPanel)
        page = build(m_simplificationPanel);
    else if (!m_importPanel)
        page = build(m_importPanel);
    else if (!m_aboutPanel)
        page = build(m_aboutPanel);
    if (page) {
        m_controlCenter->registerSettingsPanel(page);
        // A frame apart, so that the drawer's slide and the user's input come first.
        QTimer::singleShot(PageInterval, this, &ZelControlCenterStandAloneWidget::buildNextPage);
        return;
    }
    setWindowIcon(applicationIcon());
    // Typing finds a setting from the start, unless the user has chosen a field already.
    if (!focusWidget())
        findChild<QLineEdit*>(QStringLiteral("settingsSearch"))->setFocus(Qt::OtherFocusReason);
    Q_EMIT pagesBuilt();
}

ZelControlCenterStandAloneWidget::~ZelControlCenterStandAloneWidget()
{
    if (m_controlCenter) {
        std::vector<ZelSettingsPanel*> registered = pages();
        for (auto page = registered.rbegin(); page != registered.rend(); ++page)
            m_controlCenter->unregisterSettingsPanel(*page, true);
    }
    m_aboutPanel.reset();
    m_importPanel.reset();
    m_simplificationPanel.reset();
    m_generalPanel.reset();
    m_displayPanel.reset();
    m_movable.reset();
    m_watch.reset();
    m_controlCenter.reset();
    m_ui.reset();
}

std::vector<ZelSettingsPanel*> ZelControlCenterStandAloneWidget::pages() const
{
    std::vector<ZelSettingsPanel*> built;
    for (ZelSettingsPanel* page : {static_cast<ZelSettingsPanel*>(m_displayPanel.get()),
                                   static_cast<ZelSettingsPanel*>(m_generalPanel.get()),
                                   static_cast<ZelSettingsPanel*>(m_simplificationPanel.get()),
                                   static_cast<ZelSettingsPanel*>(m_importPanel.get()),
                                   static_cast<ZelSettingsPanel*>(m_aboutPanel.get())}) {
        if (page)
            built.push_back(page);
    }
    return built;
}

QIcon ZelControlCenterStandAloneWidget::applicationIcon()
{
    return QIcon(QStringLiteral(":/controlCenter/controlCenter/logo-torvane.png"));
}

ZelControlCenter* ZelControlCenterStandAloneWidget::controlCenter() const
{
    return m_controlCenter.get();
}

void ZelControlCenterStandAloneWidget::showNotice(const QString& message)
{
    if (!m_notice) {
        m_notice = new ZelSettingsNotice(this);
        m_ui->windowLayout->insertWidget(1, m_notice);
    }
    m_notice->addMessage(message);
}

void ZelControlCenterStandAloneWidget::setSettingsReadOnly()
{
    m_readOnly = true;
    if (m_controlCenter)
        m_controlCenter->setSettingsWritable(false);
}

void ZelControlCenterStandAloneWidget::writeAppliedSettings()
{
    QString error;
    if (m_readOnly)
        return;
    if (m_watch->writeApplied(error)) {
        // A bar still saying that the last Apply failed must not outlive the problem.
        if (std::exchange(m_applyFailed, false) && m_notice && !m_notice->isHidden())
            showNotice(tr("Your changes are saved."));
        return;
    }
    m_applyFailed = true;
    // The pages compare with the file's values again: the edits show as pending.
    for (ZelSettingsPanel* page : pages())
        page->applyNotWritten();
    m_controlCenter->reevaluateButtons();
    showNotice(tr("Your changes could not be saved. %1\nThey are still on the pages: press Apply again once "
                  "this is solved.")
                   .arg(error));
}

void ZelControlCenterStandAloneWidget::takeOutsideChanges(const QStringList& keys)
{
    QStringList overridden;
    if (m_controlCenter) {
        for (ZelSettingsPanel* page : pages())
            overridden += page->reloadStoredSettings();
        m_controlCenter->reevaluateButtons();
    }
    const QSettings& settings = m_application->getSettings();
    QString message;
    if (settings.allKeys().isEmpty()) {
        message = tr("Another program removed the settings file, or left no setting in it that Torvane can read: "
                     "the pages show the default values.");
    } else {
        QStringList changes;
        for (const QString& key : keys) {
            // Without its version the file is no longer taken as it is: no default applies.
            const QString registered = key == SettingsKeys::SettingsVersion
                ? QString()
                : ZelSettings::GetDefaultSettingsValue(key);
            if (settings.contains(key))
                changes.append(tr("%1 is now \"%2\"").arg(key, ZelSettings::GetSettingText(settings, key)));
            else if (registered.isNull())
                changes.append(tr("%1 was removed").arg(key));
            else
                changes.append(tr("%1 was removed, so its default \"%2\" applies").arg(key, registered));
        }
        message = tr("Another program changed the settings file: %1.").arg(changes.join(QStringLiteral("; ")));
    }
    if (!overridden.isEmpty()) {
        message += QLatin1Char('\n')
            + tr("You are editing %1 as well: your values stay on the pages and replace the other program's when you "
                 "apply.")
                  .arg(overridden.join(QStringLiteral(", ")));
    }
    showNotice(message);
}

void ZelControlCenterStandAloneWidget::tellOutsideValuesReplaced(const std::vector<SettingRepair>& values,
                                                                 const QString& copy, const QString& copyError)
{
    QStringList replaced;
    for (const SettingRepair& value : values)
        replaced.append(tr("%1 was \"%2\"").arg(value.key, value.before));
    QString message = tr("Your values replaced what another program had stored: %1.")
                          .arg(replaced.join(QStringLiteral("; ")));
    message += QLatin1Char('\n') + keptCopyLine(copy, copyError);
    showNotice(message);
}

void ZelControlCenterStandAloneWidget::tellVersionRestored(bool hadValues, const QString& copy,
                                                           const QString& copyError)
{
    QString message = hadValues
        ? tr("Another program left the settings file without its settings version, so the next start would have "
             "set it aside. Apply wrote the version back with your changes.")
        : tr("The settings file had been removed, or held no setting Torvane can read. Apply wrote it again with "
             "your changes and its settings version; the settings you did not change take their default values.");
    // An empty file leaves nothing to copy.
    if (!copy.isEmpty() || !copyError.isEmpty())
        message += QLatin1Char('\n') + keptCopyLine(copy, copyError);
    showNotice(message);
}

void ZelControlCenterStandAloneWidget::triggerMinimize()
{
    showMinimized();
}

void ZelControlCenterStandAloneWidget::triggerMaximize()
{
    if (isMaximized())
        showNormal();
    else
        showMaximized();
}

void ZelControlCenterStandAloneWidget::closeWidget()
{
    close();
}

void ZelControlCenterStandAloneWidget::openMenu()
{
    m_menuRequested = true;
    if (!m_controlCenter)
        return;
    m_controlCenter->openMenu(true);
    m_controlCenter->setControlCenterVisible(true);
}

void ZelControlCenterStandAloneWidget::parseMessage(const QString&)
{
}

void ZelControlCenterStandAloneWidget::closeEvent(QCloseEvent* event)
{
    if (!m_controlCenter || !m_controlCenter->hasModifications()) {
        event->accept();
        return;
    }
    QMessageBox question(QMessageBox::Warning,
                         QCoreApplication::translate("ZelControlCenter", "Settings Modification"),
                         QCoreApplication::translate("ZelControlCenter", "Your current changes will be discarded.\n"
                                                                         "Continue and close the application ?"),
                         QMessageBox::Ok | QMessageBox::Cancel, this);
    question.setStyleSheet(kqDMIApplication::GetStylesheet(QStringLiteral("kqMessageBox")));
    // Return alone must not throw edits away.
    question.setDefaultButton(QMessageBox::Cancel);
    if (question.exec() == QMessageBox::Ok)
        event->accept();
    else
        event->ignore();
}

} // namespace zel
