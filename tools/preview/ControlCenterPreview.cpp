// A host window around the control center, to look at it: the menu column with a few
// kernel actions and a separator, and the drawer with three sample pages beside it.
// Usage: ControlCenterPreview [--menu]   (--menu leaves the drawer closed)

#include "ZelControlCenter.h"
#include "ZelSettingsApplication.h"
#include "ZelSettingsPanel.h"
#include "zelAction.h"
#include "zelDoubleSpinBox.h"
#include "zelSpinBox.h"

#include <QApplication>
#include <QCheckBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLinearGradient>
#include <QPainter>
#include <QPushButton>
#include <QSettings>
#include <QTemporaryDir>
#include <QVBoxLayout>

#include <memory>
#include <vector>

namespace {

// A page whose fields are stored under their keys; edits stay pending until Apply.
class SamplePage : public zel::ZelSettingsPanel
{
    Q_OBJECT

public:
    SamplePage(zel::kqDMIApplication* application, QSettings& settings, const QString& name,
               const QString& description)
        : ZelSettingsPanel(application, settings)
    {
        setPanelName(name);
        auto* layout = new QVBoxLayout(this);
        layout->setContentsMargins(20, 16, 20, 18);
        layout->setSpacing(6);
        auto* title = new QLabel(name, this);
        title->setObjectName(QStringLiteral("pageTitle"));
        auto* text = new QLabel(description, this);
        text->setObjectName(QStringLiteral("pageDescription"));
        text->setWordWrap(true);
        layout->addWidget(title);
        layout->addWidget(text);
        m_form = new QFormLayout;
        m_form->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
        m_form->setHorizontalSpacing(16);
        m_form->setVerticalSpacing(10);
        m_form->setContentsMargins(0, 10, 0, 0);
        layout->addLayout(m_form);
    }

    void addSpin(const QString& key, const QString& label, int value, int maximum, const QString& suffix)
    {
        auto* spin = new zel::zelSpinBox(this);
        spin->setRange(0, maximum);
        spin->setSuffix(suffix);
        connect(spin, &QSpinBox::valueChanged, this, &SamplePage::stateChanged);
        addField(key, label, value, spin);
    }

    void addDouble(const QString& key, const QString& label, double value)
    {
        auto* spin = new zel::zelDoubleSpinBox(this);
        spin->setRange(0.0, 1.0);
        spin->setSingleStep(0.05);
        connect(spin, &QDoubleSpinBox::valueChanged, this, &SamplePage::stateChanged);
        addField(key, label, value, spin);
    }

    void addCheck(const QString& key, const QString& label, bool value)
    {
        auto* check = new QCheckBox(label, this);
        connect(check, &QCheckBox::toggled, this, &SamplePage::stateChanged);
        m_fields.push_back({key, value, check});
        m_form->addRow(QString(), check);
    }

    void initializeWidget() override
    {
        for (const Field& field : m_fields)
            setValue(field, settings().value(field.key, field.defaultValue));
    }
    bool hasModifications() const override
    {
        for (const Field& field : m_fields) {
            if (value(field) != settings().value(field.key, field.defaultValue))
                return true;
        }
        return false;
    }
    bool applyModifications() override
    {
        for (const Field& field : m_fields)
            settings().setValue(field.key, value(field));
        return false;
    }
    bool canResetContent() const override
    {
        for (const Field& field : m_fields) {
            if (value(field) != field.defaultValue)
                return true;
        }
        return false;
    }
    void resetContent() override
    {
        for (const Field& field : m_fields) {
            setValue(field, field.defaultValue);
        }
        Q_EMIT stateChanged();
    }
    bool cancelModifications() override { return false; }

Q_SIGNALS:
    void stateChanged();

private:
    struct Field
    {
        QString key;
        QVariant defaultValue;
        QWidget* widget;
    };

    void addField(const QString& key, const QString& label, const QVariant& value, QWidget* widget)
    {
        m_fields.push_back({key, value, widget});
        m_form->addRow(label, widget);
    }

    static QVariant value(const Field& field)
    {
        if (const auto* spin = qobject_cast<QSpinBox*>(field.widget))
            return spin->value();
        if (const auto* spin = qobject_cast<QDoubleSpinBox*>(field.widget))
            return spin->value();
        return qobject_cast<QCheckBox*>(field.widget)->isChecked();
    }

    static void setValue(const Field& field, const QVariant& value)
    {
        const QSignalBlocker blocker(field.widget);
        if (auto* spin = qobject_cast<QSpinBox*>(field.widget))
            spin->setValue(value.toInt());
        else if (auto* spin = qobject_cast<QDoubleSpinBox*>(field.widget))
            spin->setValue(value.toDouble());
        else
            qobject_cast<QCheckBox*>(field.widget)->setChecked(value.toBool());
    }

    QFormLayout* m_form = nullptr;
    std::vector<Field> m_fields;
};

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
    const bool drawer = !app.arguments().contains(QStringLiteral("--menu"));

    const QTemporaryDir folder;
    zel::ZelSettingsApplication application(folder.path());

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

    QSettings& settings = application.getSettings();
    SamplePage display(&application, settings, QStringLiteral("Display"),
                       QStringLiteral("How the 3D view draws the scene."));
    display.addCheck(QStringLiteral("Display/ambientOcclusion"), QStringLiteral("Ambient occlusion"), true);
    display.addCheck(QStringLiteral("Display/antiAliasing"), QStringLiteral("Anti-aliasing"), true);
    display.addSpin(QStringLiteral("Display/shadowQuality"), QStringLiteral("Shadow quality"), 2, 4, QString());
    SamplePage general(&application, settings, QStringLiteral("General"),
                       QStringLiteral("Folders and memory used while models load."));
    general.addSpin(QStringLiteral("General/cacheSize"), QStringLiteral("Cache size"), 2048, 65536,
                    QStringLiteral(" MB"));
    general.addSpin(QStringLiteral("General/threads"), QStringLiteral("Loader threads"), 4, 64, QString());
    general.addCheck(QStringLiteral("General/checkUpdates"), QStringLiteral("Check for updates at start-up"), false);
    SamplePage simplification(&application, settings, QStringLiteral("Simplification"),
                              QStringLiteral("Levels of detail written when exporting."));
    simplification.addDouble(QStringLiteral("Simplification/ratio"), QStringLiteral("First level ratio"), 0.5);
    simplification.addSpin(QStringLiteral("Simplification/cap"), QStringLiteral("Triangle cap"), 500000, 10000000,
                           QString());
    simplification.addCheck(QStringLiteral("Simplification/borders"), QStringLiteral("Keep open borders"), true);

    for (SamplePage* page : {&display, &general, &simplification})
        controlCenter->registerSettingsPanel(page);

    window.show();
    controlCenter->openMenu(true);
    if (drawer) {
        controlCenter->setControlCenterVisible(true);
        display.getActionWidget()->setChecked(true);
        // One pending edit, so that Apply shows its enabled look.
        general.findChild<QSpinBox*>()->setValue(4096);
    }

    const int result = app.exec();
    for (SamplePage* page : {&simplification, &general, &display})
        controlCenter->unregisterSettingsPanel(page, true);
    return result;
}

#include "ControlCenterPreview.moc"
