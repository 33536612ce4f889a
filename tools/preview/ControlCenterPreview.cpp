// A host window around the control center, to look at it: the menu column with a few
// kernel actions and a separator, and the drawer with the settings pages beside it, on a
// validated Settings.ini in a temporary folder.
// Usage: ControlCenterPreview [--menu | --page NAME] [--folder PATH]
//   --menu leaves the drawer closed; --page scrolls the drawer to the page of that name;
//   --folder uses the Settings.ini of that folder instead of a fresh one.

#include "ZelAboutSettingsPanel.h"
#include "ZelControlCenter.h"
#include "ZelGeneralSettingsPanel.h"
#include "ZelImportSettingsPanel.h"
#include "ZelRendererSettingsPanel.h"
#include "ZelSettingsApplication.h"
#include "ZelSimplificationSettingsPanel.h"
#include "zelAction.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QHBoxLayout>
#include <QLinearGradient>
#include <QPainter>
#include <QPushButton>
#include <QSettings>
#include <QTemporaryDir>
#include <QTimer>
#include <QVBoxLayout>

#include <memory>
#include <vector>

namespace {

// Stands in for the 3D view the control center slides over.
class ViewPlaceholder : public QWidget
{
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        QLinearGradient gradient(0, 0, 0, height());
        gradient.setColorAt(0, QColor(92, 104, 124));
        gradient.setColorAt(1, QColor(28, 31, 38));
        painter.fillRect(rect(), gradient);
    }
};

QString drawIcon(const QString& folder, const QString& name, const QColor& color)
{
    QPixmap pixmap(40, 40);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    for (int row = 0; row < 3; ++row)
        painter.drawRoundedRect(QRectF(9, 11 + row * 8, 22, 3), 1.5, 1.5);
    painter.end();
    const QString path = folder + QLatin1Char('/') + name;
    pixmap.save(path);
    return path;
}

} // namespace

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    app.setFont(QFont(QStringLiteral("Open Sans"), 10));
    QCommandLineParser parser;
    parser.addHelpOption();
    const QCommandLineOption menuOnly(QStringLiteral("menu"), QStringLiteral("Leave the drawer closed."));
    const QCommandLineOption page(QStringLiteral("page"), QStringLiteral("Scroll the drawer to this page."),
                                  QStringLiteral("name"));
    const QCommandLineOption settingsFolder(QStringLiteral("folder"),
                                            QStringLiteral("Use the Settings.ini in this folder (validated first)."),
                                            QStringLiteral("path"));
    parser.addOptions({menuOnly, page, settingsFolder});
    parser.process(app);

    const QTemporaryDir folder;
    zel::ZelSettingsApplication application(parser.isSet(settingsFolder) ? parser.value(settingsFolder)
                                                                          : folder.path());
    const QString applicationName = zel::ZelControlCenter::GetApplicationName();
    zel::ZelControlCenter::InitDefaultSettingsValues(applicationName);
    zel::ZelControlCenter::InitPageSettingsValues();
    QSettings& settings = application.getSettings();
    QString error;
    if (!zel::ZelControlCenter::EnsureSettings(settings, error)) {
        qCritical("%s", qUtf8Printable(error));
        return 1;
    }

    QWidget window;
    window.setWindowTitle(QStringLiteral("Control center preview"));
    window.resize(1280, 860);
    auto* windowLayout = new QVBoxLayout(&window);
    windowLayout->setContentsMargins(0, 0, 0, 0);
    windowLayout->setSpacing(0);

    auto* toolBar = new QWidget(&window);
    toolBar->setStyleSheet(QStringLiteral("background: rgb(36,38,43);"));
    auto* toolBarLayout = new QHBoxLayout(toolBar);
    toolBarLayout->setContentsMargins(4, 2, 4, 2);
    auto* menuButton = new QPushButton(toolBar);
    menuButton->setCheckable(true);
    menuButton->setFlat(true);
    menuButton->setStyleSheet(QStringLiteral("border: none;"));
    toolBarLayout->addWidget(menuButton);
    toolBarLayout->addStretch();
    windowLayout->addWidget(toolBar);

    auto* body = new QHBoxLayout;
    body->setSpacing(0);
    windowLayout->addLayout(body, 1);

    auto* controlCenter = new zel::ZelControlCenter(&application, &window);
    body->addWidget(controlCenter);
    body->addWidget(controlCenter->settingsWidget());
    body->addWidget(new ViewPlaceholder(&window), 1);

    controlCenter->setControlCenterButton(menuButton);
    controlCenter->setInterfaceColor(QColor(44, 47, 54),
                                     drawIcon(folder.path(), QStringLiteral("on.png"), QColor(120, 170, 255)),
                                     drawIcon(folder.path(), QStringLiteral("off.png"), QColor(220, 224, 230)));
    QObject::connect(menuButton, &QPushButton::clicked, controlCenter, &zel::ZelControlCenter::openMenu);

    std::vector<std::unique_ptr<zel::zelAction>> actions;
    const auto addAction = [&](const QString& name, const QString& label, const QKeySequence& shortcut) {
        actions.push_back(std::make_unique<zel::zelAction>(name, label));
        actions.back()->setShortcut(shortcut);
        controlCenter->registerCCAction(actions.back().get(), QStringLiteral("Settings"), false, false, true);
    };
    addAction(QStringLiteral("Open"), QStringLiteral("Open..."), QKeySequence::Open);
    addAction(QStringLiteral("Import"), QStringLiteral("Import into scene..."), QKeySequence());
    addAction(QStringLiteral("Save"), QStringLiteral("Save"), QKeySequence::Save);
    addAction(QStringLiteral("Screenshot"), QStringLiteral("Screenshot"), QKeySequence(Qt::Key_F12));
    actions.back()->setEnabled(false);
    controlCenter->addCCSeparator(QStringLiteral("Settings"), QStringLiteral("beforeSettings"));

    // The stand-alone editor's order.
    zel::ZelRendererSettingsPanel display(&application, settings);
    zel::ZelGeneralSettingsPanel general(&application, settings);
    zel::ZelSimplificationSettingsPanel simplification(&application, settings);
    zel::ZelImportSettingsPanel import(&application, settings);
    zel::ZelAboutSettingsPanel about(&application, settings);
    const std::vector<zel::ZelSettingsPanel*> pages = {&display, &general, &simplification, &import, &about};
    for (zel::ZelSettingsPanel* settingsPage : pages)
        controlCenter->registerSettingsPanel(settingsPage);

    window.show();
    controlCenter->openMenu(true);
    if (!parser.isSet(menuOnly)) {
        controlCenter->setControlCenterVisible(true);
        display.getActionWidget()->setChecked(true);
        const QString shown = parser.value(page);
        for (zel::ZelSettingsPanel* settingsPage : pages) {
            if (!shown.isEmpty() && settingsPage->getPanelName() == shown)
                QTimer::singleShot(600, settingsPage->getActionWidget(), &QPushButton::click);
        }
    }

    const int result = app.exec();
    for (auto it = pages.rbegin(); it != pages.rend(); ++it)
        controlCenter->unregisterSettingsPanel(*it, true);
    return result;
}
