#include "PageContract.h"
#include "TestHome.h"
#include "ZelGeneralSettingsPanel.h"
#include "ZelSettingsKeys.h"

#include <QPushButton>
#include <QSpinBox>

using zel::ZelGeneralSettingsPanel;
namespace Keys = zel::SettingsKeys;

namespace {

const Defaults Stored = {
    {Keys::CacheDirectory, "/stored/cache"},
    {Keys::CacheSize, "2048"},
    {Keys::ScreenshotFolder, "/stored/shots"},
};
const Defaults Registered = {
    {Keys::CacheDirectory, "/default/cache"},
    {Keys::CacheSize, "4096"},
    {Keys::ScreenshotFolder, "/default/shots"},
};

// The General page in a world, with the folder dialog replaced: each dialog answers the
// next of `answers` (an empty one is a cancel) and is recorded as "<title> @ <start>".
struct GeneralPage : PageWorld {
    explicit GeneralPage(const Defaults& stored = Stored, const Defaults& defaults = Registered,
                         Host host = Host::Viewer)
        : PageWorld(stored, defaults, host)
    {
        show(page);
        page->setFolderChooser([this](QWidget*, const QString& title, const QString& start) {
            dialogs.append(title + " @ " + start);
            return answers.isEmpty() ? QString() : answers.takeFirst();
        });
        page->initializeWidget();
    }
    QPushButton* button(const char* name) const { return page->findChild<QPushButton*>(name); }
    QSpinBox* size() const { return page->findChild<QSpinBox*>("databaseSpinBox"); }
    void choose(const char* buttonName, const QString& folder)
    {
        answers.append(folder);
        click(button(buttonName));
    }

    ZelGeneralSettingsPanel* page = new ZelGeneralSettingsPanel(&app, settings);
    QStringList answers;
    QStringList dialogs;
};

} // namespace

class TestGeneralPanel : public QObject
{
    Q_OBJECT

    TestHome m_home;

private Q_SLOTS:
    void contract()
    {
        GeneralPage general;
        checkPageContract(*general.page, general.settings, [&] { general.choose("databaseButton", "/chosen"); });
        QCOMPARE(general.settings.value(Keys::CacheDirectory), "/default/cache");
        QCOMPARE(general.settings.value(Keys::CacheSize), 4096);
        QCOMPARE(general.settings.value(Keys::ScreenshotFolder), "/default/shots");
    }

    void folderDialogs_data()
    {
        QTest::addColumn<QString>("buttonName");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("shown");
        QTest::newRow("cache") << "databaseButton" << "Please set your database cache folder" << "/stored/cache";
        QTest::newRow("screenshots") << "screenshotFolderButton" << "Please set your screenshot folder"
                                     << "/stored/shots";
    }

    void folderDialogs()
    {
        QFETCH(QString, buttonName);
        QFETCH(QString, title);
        QFETCH(QString, shown);
        GeneralPage general;
        QPushButton* button = general.button(qPrintable(buttonName));
        QSignalSpy changed(general.page, SIGNAL(stateChanged()));

        // The dialog opens on the current path; cancelling changes and announces nothing.
        general.choose(qPrintable(buttonName), QString());
        QCOMPARE(general.dialogs, QStringList{title + " @ " + shown});
        QCOMPARE(button->toolTip(), shown);
        QCOMPARE(changed.count(), 0);

        // The folder already shown still announces itself, but is no modification.
        general.choose(qPrintable(buttonName), shown);
        QCOMPARE(changed.count(), 1);
        QVERIFY(!general.page->hasModifications());

        general.choose(qPrintable(buttonName), "/elsewhere");
        QCOMPARE(button->toolTip(), "/elsewhere");
        QCOMPARE(changed.count(), 2);
        QVERIFY(general.page->hasModifications());
    }

    void applyPushesAndWrites_data()
    {
        QTest::addColumn<Host>("host");
        QTest::addColumn<QString>("cache");
        QTest::addColumn<int>("size");
        QTest::addColumn<QString>("shots");
        QTest::addColumn<bool>("restart");
        QTest::addColumn<QStringList>("kernel");
        // One Apply pushes each value once, whichever field was edited.
        const QString shots = "setScreenshotImageFolder /stored/shots";
        QTest::newRow("size") << Host::Viewer << "" << 3000 << "" << false
                              << QStringList{"setMaxCacheSize 3000", shots};
        QTest::newRow("screenshots") << Host::Viewer << "" << 0 << "/new/shots" << false
                                     << QStringList{"setMaxCacheSize 2048", "setScreenshotImageFolder /new/shots"};
        QTest::newRow("cache folder") << Host::Viewer << "/new/cache" << 0 << "" << true
                                      << QStringList{"setMaxCacheSize 2048", shots};
        // The stand-alone editor has no 3D database to resize.
        QTest::newRow("stand-alone") << Host::StandAlone << "" << 3000 << "" << false << QStringList{shots};
    }

    void applyPushesAndWrites()
    {
        QFETCH(Host, host);
        QFETCH(QString, cache);
        QFETCH(int, size);
        QFETCH(QString, shots);
        QFETCH(bool, restart);
        QFETCH(QStringList, kernel);
        GeneralPage general(Stored, Registered, host);
        if (!cache.isEmpty())
            general.choose("databaseButton", cache);
        if (!shots.isEmpty())
            general.choose("screenshotFolderButton", shots);
        if (size)
            general.size()->setValue(size);

        QCOMPARE(general.page->applyModifications(), restart);
        QCOMPARE(general.app.kernel, kernel);
        QCOMPARE(general.settings.value(Keys::CacheDirectory), cache.isEmpty() ? "/stored/cache" : cache);
        QCOMPARE(general.settings.value(Keys::CacheSize), size ? size : 2048);
        QCOMPARE(general.settings.value(Keys::ScreenshotFolder), shots.isEmpty() ? "/stored/shots" : shots);
    }

    void restartOnlyForAFolderNotInUse()
    {
        GeneralPage general;
        general.choose("databaseButton", "/new/cache");
        QVERIFY(general.page->applyModifications());
        // Back to the folder the running application uses: stored again, no restart.
        general.choose("databaseButton", "/stored/cache");
        QVERIFY(!general.page->applyModifications());
        QCOMPARE(general.settings.value(Keys::CacheDirectory), "/stored/cache");

        // Without an application the values are still saved.
        ZelGeneralSettingsPanel orphan(nullptr, general.settings);
        orphan.initializeWidget();
        orphan.findChild<QSpinBox*>("databaseSpinBox")->setValue(100);
        QVERIFY(!orphan.applyModifications());
        QCOMPARE(general.settings.value(Keys::CacheSize), 100);
    }

    void longPathsShowTheirEnd()
    {
        const QString path = "/home/someone/projects/a/rather/deep/tree/of/folders/that/never/ends/cache";
        GeneralPage general({{Keys::CacheDirectory, path}, {Keys::CacheSize, "100"}});
        QPushButton* button = general.button("databaseButton");
        const QString elided = button->text();
        QVERIFY2(elided.startsWith(QChar(0x2026)) && elided.endsWith("/ends/cache"), qPrintable(elided));
        QVERIFY(button->fontMetrics().horizontalAdvance(elided) <= button->width() - 12);

        general.drawer.resize(900, 700);
        QTRY_VERIFY(button->text().size() > elided.size());
        QVERIFY(button->text().endsWith("/ends/cache"));
        QCOMPARE(button->toolTip(), path);
    }

    void wheelNeedsFocusAlthoughTheFormGivesWheelFocus()
    {
        GeneralPage general;
        QSpinBox* size = general.size();
        turnWheelDown(size);
        QCOMPARE(size->value(), 2048);
        click(size);
        QTRY_VERIFY(size->hasFocus());
        turnWheelDown(size);
        QCOMPARE(size->value(), 2038);
    }

    void unreadableSizeReadsAsTheDefault()
    {
        GeneralPage general({{Keys::CacheDirectory, "/stored/cache"}, {Keys::CacheSize, "abc"}});
        QCOMPARE(general.size()->value(), 4096);
        QVERIFY(!general.page->hasModifications());
    }

    // A text editor's path with an unquoted comma reads back as a list; the page shows
    // it whole, as the validation pass saw it, and an Apply of another edit keeps it.
    void aPathWithACommaShowsWhole()
    {
        GeneralPage general({{Keys::CacheDirectory, "/stored/cache"}, {Keys::CacheSize, "2048"}});
        QFile file(general.settings.fileName());
        QVERIFY(file.open(QIODevice::Append));
        QVERIFY(file.write("[screenshot]\nImageFolder=/shots, old\n") > 0);
        file.close();
        general.settings.sync();
        general.page->initializeWidget();
        QCOMPARE(general.button("screenshotFolderButton")->toolTip(), "/shots, old");
        QVERIFY(!general.page->hasModifications());
        general.size()->setValue(3000);
        general.page->applyModifications();
        QCOMPARE(general.settings.value(Keys::ScreenshotFolder), QStringList({"/shots", "old"}));
    }

    void keysNobodyRegistered()
    {
        // Nothing stored, nothing registered: no pending edit, nothing to reset, no empty
        // folder ever written.
        GeneralPage general({}, {});
        QCOMPARE(general.button("databaseButton")->text(), "Choose a folder...");
        QCOMPARE(general.size()->value(), 1024);
        QVERIFY(!general.page->hasModifications());
        QVERIFY(!general.page->canResetContent());
        QVERIFY(!general.button("resetButton")->isEnabled());

        general.size()->setValue(500);
        QVERIFY(!general.page->canResetContent());
        general.page->resetContent();
        QCOMPARE(general.size()->value(), 500);
        general.page->applyModifications();
        QCOMPARE(general.settings.allKeys(), QStringList{Keys::CacheSize});
    }
};

QTEST_MAIN(TestGeneralPanel)
#include "tst_generalpanel.moc"
