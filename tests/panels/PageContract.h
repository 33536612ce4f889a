#pragma once

// What every settings page test needs: a world for the page (its own Settings.ini,
// registered defaults, a recording kernel), presses through the window system, and
// the contract that every editable page keeps.

#include "ControlCenterFakes.h"
#include "TestInput.h"

#include <QAbstractButton>
#include <QFile>
#include <QScrollArea>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <functional>
#include <utility>

using Defaults = std::vector<std::pair<QString, QString>>;

// All a page could have changed: the values the settings object holds, synced or not,
// and the bytes of its file.
struct StoredState {
    QVariantMap values;
    QByteArray file;
    bool operator==(const StoredState& other) const { return values == other.values && file == other.file; }
};

inline StoredState storedState(const QSettings& settings)
{
    StoredState state;
    for (const QString& key : settings.allKeys())
        state.values.insert(key, settings.value(key));
    QFile file(settings.fileName());
    if (file.open(QIODevice::ReadOnly))
        state.file = file.readAll();
    return state;
}

// A page's world: a Settings.ini of its own holding `stored`, the registry holding
// `defaults` (emptied again on leaving), and a kernel that records what reaches it.
struct PageWorld {
    explicit PageWorld(const Defaults& stored = {}, const Defaults& defaults = {}, Host host = Host::Viewer)
        : app(host)
    {
        for (const auto& [key, value] : defaults)
            ZelControlCenter::RegisterSetting(key, value, ZelControlCenter::noOp);
        for (const auto& [key, value] : stored)
            settings.setValue(key, value);
        settings.sync();
    }
    ~PageWorld() { ZelControlCenter::ClearSettingsValues(); }
    Q_DISABLE_COPY_MOVE(PageWorld)

    // The page as the drawer holds it: in a scroll area of the drawer's width, shown.
    template<typename Page>
    Page* show(Page* page)
    {
        drawer.setWidget(page);
        drawer.setWidgetResizable(true);
        drawer.resize(450, 700);
        drawer.show();
        if (!QTest::qWaitForWindowExposed(&drawer))
            qWarning("the page's window was never exposed");
        return page;
    }

    QTemporaryDir folder;
    QSettings settings {folder.filePath("Settings.ini"), QSettings::IniFormat};
    FakeApplication app;
    QScrollArea drawer;
};

// The rules every editable page keeps, checked on a shown `page` over `settings` whose
// stored values differ from the registered defaults. `edit` makes one user edit through
// the widgets that differs from both.
inline void checkPageContract(zel::ZelSettingsPanel& page, const QSettings& settings,
                              const std::function<void()>& edit)
{
    auto* reset = page.findChild<QAbstractButton*>("resetButton");
    QVERIFY(reset);
    QSignalSpy changed(&page, SIGNAL(stateChanged()));
    const StoredState stored = storedState(settings);

    // Loading never looks like an edit.
    page.initializeWidget();
    QCOMPARE(changed.count(), 0);
    QVERIFY(!page.hasModifications());
    QVERIFY(page.canResetContent());
    QVERIFY(reset->isEnabled());

    // An edit announces itself and writes nothing; loading again drops it.
    edit();
    // The user moves on: a field that still has the focus finishes its edit now.
    if (QWidget* focused = QApplication::focusWidget())
        focused->clearFocus();
    QVERIFY(changed.count() > 0);
    QVERIFY(page.hasModifications());
    QVERIFY(storedState(settings) == stored);
    changed.clear();
    page.initializeWidget();
    QCOMPARE(changed.count(), 0);
    QVERIFY(!page.hasModifications());

    // Reset shows the defaults as a pending edit, once; it writes nothing.
    click(reset);
    QCOMPARE(changed.count(), 1);
    QVERIFY(page.hasModifications());
    QVERIFY(!page.canResetContent());
    QVERIFY(!reset->isEnabled());
    QVERIFY(storedState(settings) == stored);
    page.resetContent();
    QCOMPARE(changed.count(), 1);

    // Apply writes what is shown; with nothing pending it writes nothing.
    page.applyModifications();
    const StoredState applied = storedState(settings);
    QVERIFY(!(applied == stored));
    QVERIFY(!page.hasModifications());
    QVERIFY(!page.applyModifications());
    QVERIFY(storedState(settings) == applied);
    QCOMPARE(changed.count(), 1);
}
