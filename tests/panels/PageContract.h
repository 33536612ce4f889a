#pragma once

// What every settings page test needs: a world for the page (its own Settings.ini in
// our format, registered defaults, a recording kernel), edits through the window
// system, and the contract that every editable page keeps.

#include "ControlCenterFakes.h"
#include "TestInput.h"
#include "ZelSettings.h"

#include <QAbstractButton>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QScrollArea>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using zel::ZelSettings;
using Values = QMap<QString, QString>;

// `values` as a hand-written Settings.ini: each value as it stands, unquoted, so that a
// comma makes a list as it does in a file from a text editor.
inline QByteArray iniText(const Values& values)
{
    QMap<QString, QStringList> groups;
    for (auto value = values.cbegin(); value != values.cend(); ++value) {
        const qsizetype slash = value.key().indexOf('/');
        groups[slash < 0 ? QString() : value.key().left(slash)].append(value.key().mid(slash + 1) + '='
                                                                          + value.value());
    }
    QByteArray text;
    for (auto group = groups.cbegin(); group != groups.cend(); ++group) {
        if (!group.key().isEmpty())
            text += '[' + group.key().toUtf8() + "]\n";
        text += group.value().join('\n').toUtf8() + '\n';
    }
    return text;
}

// Writes the file as another program would. Its time moves on by two seconds each time,
// so that a QSettings syncing right after sees the change whatever the clock's grain.
inline bool writeIni(const QString& path, const Values& values)
{
    const QDateTime before = QFileInfo(path).lastModified();
    QFile file(path);
    const QByteArray text = iniText(values);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(text) != text.size())
        return false;
    const QDateTime after = before.isValid() ? before.addSecs(2) : QDateTime::currentDateTime();
    return file.setFileTime(after, QFileDevice::FileModificationTime);
}

// A page's world: a Settings.ini of its own holding `stored`, opened as every program of
// ours opens it; the registry holding `defaults` (emptied again on leaving); a kernel that
// records what reaches it; and the drawer that shows the page.
struct PageWorld {
    explicit PageWorld(const Values& stored = {}, const Values& defaults = {}, Host host = Host::Viewer)
        : written(writeIni(path, stored))
        , app(host)
    {
        for (auto entry = defaults.cbegin(); entry != defaults.cend(); ++entry)
            ZelSettings::RegisterSetting(entry.key(), entry.value(), ZelSettings::noOp);
    }
    ~PageWorld() { ZelSettings::ClearSettingsValues(); }
    Q_DISABLE_COPY_MOVE(PageWorld)

    // The page as the drawer holds it, in a scroll area of the drawer's width, shown and loaded.
    template<typename Page>
    Page* open(Page* page)
    {
        drawer.setWidget(page);
        drawer.setWidgetResizable(true);
        drawer.resize(450, 700);
        drawer.show();
        if (!QTest::qWaitForWindowExposed(&drawer))
            qWarning("the page's window was never exposed");
        page->initializeWidget();
        return page;
    }
    zel::ZelSettingsPanel* page() const { return qobject_cast<zel::ZelSettingsPanel*>(drawer.widget()); }
    template<typename T = QWidget>
    T* widget(const char* name) const { return drawer.widget()->findChild<T*>(QLatin1String(name)); }

    // What a program opening the file now reads for `key`, or the default.
    QString stored(const QString& key)
    {
        settings.sync();
        return ZelSettings::GetSettingText(QSettings(path, ZelSettings::SettingsFormat()), key);
    }

    // The user's edit, step by step: "name" clicks that widget, "name=text" types the
    // text into it and confirms with Return. Then the user moves on: the field that has
    // the focus finishes its edit.
    void edit(const QStringList& steps)
    {
        for (const QString& step : steps) {
            auto* field = widget(qPrintable(step.section('=', 0, 0)));
            QVERIFY2(field, qPrintable(step));
            drawer.ensureWidgetVisible(field);
            if (!step.contains('=')) {
                if (qobject_cast<QPushButton*>(field))
                    click(field);
                else
                    clickIndicator(field);
                continue;
            }
            click(field);
            QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
            QTest::keyClicks(field, step.section('=', 1));
            QTest::keyClick(field, Qt::Key_Return);
        }
        if (QWidget* focused = QApplication::focusWidget())
            focused->clearFocus();
    }

    QTemporaryDir folder;
    QString path = folder.filePath("Settings.ini");
    bool written;
    QSettings settings {path, ZelSettings::SettingsFormat()};
    FakeApplication app;
    QScrollArea drawer;
};

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

// The rules every editable page keeps, checked on the page `world` shows, whose stored
// values differ from the registered defaults. `edit` is one user edit (PageWorld::edit)
// that differs from both.
inline void checkPageContract(PageWorld& world, const QStringList& edit)
{
    zel::ZelSettingsPanel& page = *world.page();
    auto* reset = world.widget<QAbstractButton>("resetButton");
    QVERIFY(reset);
    QSignalSpy changed(&page, SIGNAL(stateChanged()));
    const StoredState stored = storedState(world.settings);

    // Loading never looks like an edit.
    page.initializeWidget();
    QCOMPARE(changed.count(), 0);
    QVERIFY(!page.hasModifications());
    QVERIFY(page.canResetContent());
    QVERIFY(reset->isEnabled());

    // An edit announces itself and writes nothing; loading again drops it.
    world.edit(edit);
    QVERIFY(changed.count() > 0);
    QVERIFY(page.hasModifications());
    QVERIFY(storedState(world.settings) == stored);
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
    QVERIFY(storedState(world.settings) == stored);
    page.resetContent();
    QCOMPARE(changed.count(), 1);

    // Apply writes what is shown, every default; with nothing pending it writes nothing.
    page.applyModifications();
    for (const auto& [key, entry] : ZelSettings::GetDefaultSettingsValues())
        QVERIFY2(world.stored(key) == entry.first, qPrintable(key + ": " + world.stored(key)));
    const StoredState applied = storedState(world.settings);
    QVERIFY(!(applied == stored));
    QVERIFY(!page.hasModifications());
    QVERIFY(!page.applyModifications());
    QVERIFY(storedState(world.settings) == applied);
    QCOMPARE(changed.count(), 1);
}
