#include "PageContract.h"
#include "TestHome.h"
#include "ZelGeneralSettingsPanel.h"
#include "ZelSettingsKeys.h"

#include <QDir>
#include <QPushButton>
#include <QSpinBox>
#include <QTemporaryDir>

using zel::ZelGeneralSettingsPanel;
namespace Keys = zel::SettingsKeys;

namespace {

const Values Stored = {
    {Keys::CacheDirectory, "/stored/cache"},
    {Keys::CacheSize, "2048"},
    {Keys::ScreenshotFolder, "/stored/shots"},
};
const Values Registered = {
    {Keys::CacheDirectory, "/default/cache"},
    {Keys::CacheSize, "4096"},
    {Keys::ScreenshotFolder, "/default/shots"},
};

// The Folders page, with the folder dialog replaced: each dialog answers the next of
// `answers` (an empty one is a cancel) and is recorded by the folder it opens on.
struct GeneralPage : PageWorld {
    explicit GeneralPage(const Values& stored = Stored, const Values& defaults = Registered)
        : PageWorld(stored, defaults)
    {
        page->setFolderChooser([this](QWidget* parent, const QString&, const QString& start) {
            dialogs.append(start);
            parents.append(parent);
            return answers.isEmpty() ? QString() : answers.takeFirst();
        });
    }
    QSpinBox* size() const { return widget<QSpinBox>("databaseSpinBox"); }
    void choose(const char* button, const QString& folder)
    {
        answers.append(folder);
        click(widget(button));
    }

    ZelGeneralSettingsPanel* page = open(new ZelGeneralSettingsPanel(&app, settings));
    QStringList answers;
    QStringList dialogs;
    QList<QWidget*> parents;
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
        checkPageContract(general, {"databaseSpinBox=3000"});
    }

    void folderDialogs_data()
    {
        QTest::addColumn<QString>("buttonName");
        QTest::addColumn<QString>("stored"); // under a temporary folder holding "made"
        QTest::addColumn<QString>("opensOn");
        QTest::newRow("cache") << "databaseButton" << "made" << "made";
        // The viewer makes its screenshot folder only for the first screenshot.
        QTest::newRow("screenshots not made yet") << "screenshotFolderButton" << "made/Pictures/Torvane" << "made";
    }

    void folderDialogs()
    {
        QFETCH(QString, buttonName);
        QFETCH(QString, stored);
        QFETCH(QString, opensOn);
        QTemporaryDir root;
        QVERIFY(QDir(root.path()).mkpath("made"));
        const QString shown = root.filePath(stored);
        Values values = Stored;
        values[buttonName == "databaseButton" ? Keys::CacheDirectory : Keys::ScreenshotFolder] = shown;
        GeneralPage general(values);
        auto* button = general.widget<QPushButton>(qPrintable(buttonName));
        QSignalSpy changed(general.page, SIGNAL(stateChanged()));

        // The dialog opens on the current folder, or the nearest one above it that exists;
        // cancelling changes and announces nothing.
        general.choose(qPrintable(buttonName), QString());
        QCOMPARE(general.dialogs, QStringList{root.filePath(opensOn)});
        // Over the window, where the drawer's style sheet does not reach it.
        QCOMPARE(general.parents.first(), general.page->window());
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
        QTest::addColumn<QString>("cache");
        QTest::addColumn<int>("size");
        QTest::addColumn<QString>("shots");
        QTest::addColumn<bool>("restart");
        QTest::addColumn<QStringList>("kernel");
        // One Apply pushes each value once, whichever field was edited.
        const QString shots = "setScreenshotImageFolder /stored/shots";
        QTest::newRow("size") << "" << 3000 << "" << false << QStringList{"setMaxCacheSize 3000", shots};
        QTest::newRow("screenshots") << "" << 0 << "/new/shots" << false
                                     << QStringList{"setMaxCacheSize 2048", "setScreenshotImageFolder /new/shots"};
        QTest::newRow("cache folder") << "/new/cache" << 0 << "" << true
                                      << QStringList{"setMaxCacheSize 2048", shots};
    }

    void applyPushesAndWrites()
    {
        QFETCH(QString, cache);
        QFETCH(int, size);
        QFETCH(QString, shots);
        QFETCH(bool, restart);
        QFETCH(QStringList, kernel);
        GeneralPage general;
        if (!cache.isEmpty())
            general.choose("databaseButton", cache);
        if (!shots.isEmpty())
            general.choose("screenshotFolderButton", shots);
        if (size)
            general.size()->setValue(size);

        QCOMPARE(general.page->applyModifications(), restart);
        QCOMPARE(general.app.kernel, kernel);
        QCOMPARE(general.stored(Keys::CacheDirectory), cache.isEmpty() ? "/stored/cache" : cache);
        QCOMPARE(general.stored(Keys::CacheSize), QString::number(size ? size : 2048));
        QCOMPARE(general.stored(Keys::ScreenshotFolder), shots.isEmpty() ? "/stored/shots" : shots);
    }

    void restartOnlyForAFolderNotInUse()
    {
        GeneralPage general;
        general.choose("databaseButton", "/new/cache");
        QVERIFY(general.page->applyModifications());
        // Back to the folder the running application uses: stored again, no restart.
        general.choose("databaseButton", "/stored/cache");
        QVERIFY(!general.page->applyModifications());
        QCOMPARE(general.stored(Keys::CacheDirectory), "/stored/cache");
    }

    void longPathsShowTheirEnd()
    {
        const QString path = "/home/someone/projects/a/rather/deep/tree/of/folders/that/never/ends/cache";
        GeneralPage general({{Keys::CacheDirectory, path}, {Keys::CacheSize, "100"}});
        auto* button = general.widget<QPushButton>("databaseButton");
        const QString elided = button->text();
        QVERIFY2(elided.startsWith(QChar(0x2026)) && elided.endsWith("/ends/cache"), qPrintable(elided));
        QVERIFY(button->fontMetrics().horizontalAdvance(elided) <= button->width() - 12);

        general.drawer.resize(900, 700);
        QTRY_VERIFY(button->text().size() > elided.size());
        QVERIFY(button->text().endsWith("/ends/cache"));
    }

    void unreadableSizeReadsAsTheDefault()
    {
        GeneralPage general({{Keys::CacheDirectory, "/stored/cache"}, {Keys::CacheSize, "abc"}});
        QCOMPARE(general.size()->value(), 4096);
        QVERIFY(!general.page->hasModifications());
    }

    void keysNobodyRegistered()
    {
        // Nothing stored, nothing registered: no pending edit, nothing to reset, no empty
        // folder ever written.
        GeneralPage general({}, {});
        QVERIFY(!general.page->hasModifications());
        QVERIFY(!general.page->canResetContent());
        QVERIFY(!general.widget("resetButton")->isEnabled());

        general.size()->setValue(500);
        general.page->resetContent();
        QCOMPARE(general.size()->value(), 500);
        general.page->applyModifications();
        QCOMPARE(general.settings.allKeys(), QStringList{Keys::CacheSize});
    }
};

QTEST_MAIN(TestGeneralPanel)
#include "tst_generalpanel.moc"
