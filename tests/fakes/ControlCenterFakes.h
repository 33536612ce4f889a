#pragma once

#include "ZelControlCenter.h"
#include "ZelSettingsApplication.h"
#include "ZelSettingsPanel.h"
#include "kqDMManager.h"
#include "kqDMRenderer.h"
#include "zelAction.h"
#include "zelActionManager.h"
#include "TestInput.h"

#include <QApplication>
#include <QDir>
#include <QHBoxLayout>
#include <QMessageBox>
#include <QPointer>
#include <QPropertyAnimation>
#include <QPushButton>
#include <QTimer>

using zel::ZelControlCenter;

// The 3D database manager and the renderer of a running viewer: writes "<call> <argument>"
// into `journal`.
struct FakeEngine : zel::kqDMManager, zel::kqDMRenderer {
    explicit FakeEngine(QStringList& journal) : journal(journal) {}
    void setMaxCacheSize(unsigned megabytes) override { journal.append(QString("setMaxCacheSize %1").arg(megabytes)); }
    void setSimplificationRatios(std::vector<float>& ratios) override
    {
        QStringList texts;
        for (const float ratio : ratios)
            texts.append(QString::number(ratio));
        journal.append("setSimplificationRatios " + texts.join('/'));
    }
    void setTargetTriangles(quint64 cap) override { journal.append(QString("setTargetTriangles %1").arg(cap)); }
    QStringList& journal;
};

struct FakePlugin : zel::kqDMPlugin {
    FakePlugin(const QString& name, const QString& version) : name(name), version(version) {}
    QString getPluginName() const override { return name; }
    QString getPluginVersion() const override { return version; }
    QString name;
    QString version;
};

// The stand-alone application (no GUI plug-in), or the viewer: the same with a GUI plug-in
// that hands out `view` as its main 3D view, a 3D database manager and plug-ins. Both record
// every setUpdateEngineEnabled(); what reaches the kernel goes into `kernel`.
class FakeApplication : public zel::ZelSettingsApplication
{
public:
    enum class Host { StandAlone, Viewer };
    struct GuiPlugin : zel::kqDMGuiPlugin {
        QWidget* getMainViewWidget() const override { return view; }
        QPointer<QWidget> view;
    };

    explicit FakeApplication(Host host) : ZelSettingsApplication(QDir::tempPath()), viewer(host == Host::Viewer) {}
    zel::kqDMGuiPlugin* getGuiPlugin() const override { return viewer ? &plugin : nullptr; }
    zel::kqDMManager* getDMManager() const override { return viewer ? &engine : nullptr; }
    zel::kqDMRenderer* getDMRenderer() const override { return viewer ? &engine : nullptr; }
    zel::zelActionManager* getActionManager() override { return viewer ? &actions : nullptr; }
    const std::vector<zel::kqDMPlugin*>& getPluginsList() const override { return plugins; }
    void setScreenshotImageFolder(const QString& path) override { kernel.append("setScreenshotImageFolder " + path); }
    void setUpdateEngineEnabled(bool enabled) override { engineUpdates.push_back(enabled); }
    // Every pause was followed by a resume: no call at all, or the last one resumed.
    bool engineRuns() const { return engineUpdates.empty() || engineUpdates.back(); }

    const bool viewer;
    mutable GuiPlugin plugin;
    std::vector<bool> engineUpdates;
    QStringList kernel;
    mutable FakeEngine engine {kernel};
    // The viewer's actions; the Display page enables "renderingMode" or not.
    zel::zelActionManager actions;
    zel::zelAction renderingMode {"renderingMode", "Rendering mode", &actions};
    std::vector<zel::kqDMPlugin*> plugins;
};
using Host = FakeApplication::Host;

// A page whose answers the test sets. It records every call as "<name>.<call>" into
// `journal` (its own `calls` unless one is shared) and announces edits like a real page.
class TestPage : public zel::ZelSettingsPanel
{
    Q_OBJECT

public:
    TestPage(zel::kqDMIApplication* application, const QString& name, QStringList* journal = nullptr)
        : ZelSettingsPanel(application, application->getSettings())
        , m_journal(journal ? journal : &calls)
    {
        setPanelName(name);
    }
    // Unannounced, the change is one the page never heard of: the host changed what it
    // compares with.
    void setModified(bool modified, bool announce = true)
    {
        m_modified = modified;
        if (announce)
            Q_EMIT stateChanged();
    }
    void setResettable(bool resettable) { m_resettable = resettable; Q_EMIT stateChanged(); }

    // Loading or applying leaves no pending edit; resetting leaves the defaults pending.
    void initializeWidget() override { record("initializeWidget"); m_modified = false; }
    bool hasModifications() const override { record("hasModifications"); return m_modified; }
    bool applyModifications() override { record("applyModifications"); m_modified = false; return restartNeeded; }
    bool canResetContent() const override { record("canResetContent"); return m_resettable; }
    void resetContent() override { record("resetContent"); m_modified = true; setResettable(false); }
    bool cancelModifications() override { return false; }

    QStringList calls;
    bool restartNeeded = false; // what applyModifications() answers

Q_SIGNALS:
    void stateChanged();

private:
    void record(const char* call) const { m_journal->append(getPanelName() + '.' + QLatin1String(call)); }

    QStringList* m_journal;
    bool m_modified = false;
    bool m_resettable = false;
};

// A shown window laid out as the viewer embeds the control center: the control center,
// its drawer, then the main 3D view (the one a viewer's GUI plug-in hands out).
struct TestHost {
    explicit TestHost(Host host)
        : app(host)
    {
        auto* layout = new QHBoxLayout(&window);
        layout->addWidget(cc);
        layout->addWidget(cc->settingsWidget());
        layout->addWidget(view, 1);
        app.plugin.view = view;
        window.resize(1100, 600);
        window.show();
    }

    FakeApplication app;
    QWidget window;
    QPointer<ZelControlCenter> cc = new ZelControlCenter(&app, &window);
    QWidget* view = new QWidget(&window);
};

// The widget of that object name under `parent` (a part of a form).
template<typename T = QWidget>
T* part(const QObject* parent, const char* name)
{
    return parent->findChild<T*>(QLatin1String(name));
}

// Runs every running slide of the control center (menu, drawer, page scroll) to its end;
// false when none was running.
inline bool finishSlides(const ZelControlCenter* cc)
{
    bool slid = false;
    for (QPropertyAnimation* slide : cc->findChildren<QPropertyAnimation*>()) {
        if (slide->state() != QAbstractAnimation::Running)
            continue;
        slide->setCurrentTime(slide->direction() == QAbstractAnimation::Forward ? slide->totalDuration() : 0);
        slid = true;
    }
    return slid;
}

// Opens or closes the menu and runs its slide to the end.
inline void slideMenu(ZelControlCenter* cc, bool open = true)
{
    cc->openMenu(open);
    finishSlides(cc);
}

// A press where the user sees `button`, through the window, once it shows and its layouts
// have placed it; then the slides it started run to their end. False if it never showed.
inline bool press(ZelControlCenter* cc, QWidget* button)
{
    if (!QTest::qWaitFor([button] { return button->isVisible(); }))
        return false;
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    click(button);
    finishSlides(cc);
    return true;
}

// Answers every message box that opens while it lives with `answer` and keeps
// "<title>: <text>" of each. The box runs its own event loop: the timer looks from there.
struct BoxAnswerer : QTimer {
    explicit BoxAnswerer(QMessageBox::StandardButton answer)
    {
        connect(this, &QTimer::timeout, this, [this, answer] {
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                seen.append(box->windowTitle() + ": " + box->text());
                box->button(answer)->click();
            }
        });
        start(10);
    }
    QStringList seen;
};
