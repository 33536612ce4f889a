#include "PageContract.h"
#include "PagesByName.h"
#include "TestHome.h"
#include "ZelSettingsKeys.h"

#include <QAbstractSpinBox>
#include <QComboBox>
#include <QLabel>
#include <QSlider>
#include <QThread>

using zel::ZelSettingsPanel;
namespace Keys = zel::SettingsKeys;

namespace {

// Every default registered, overlaid with `values`.
Values withDefaults(const Values& values)
{
    Values file;
    for (const auto& [key, entry] : ZelSettings::GetDefaultSettingsValues())
        file.insert(key, entry.first);
    file.insert(values);
    return file;
}

// What the page's fields show, by object name: enough to tell two pages apart.
QStringList shown(const QWidget* page)
{
    QStringList fields;
    for (const QWidget* widget : page->findChildren<QWidget*>()) {
        const QString name = widget->objectName() + '=';
        if (const auto* box = qobject_cast<const QAbstractSpinBox*>(widget))
            fields.append(name + box->text());
        else if (const auto* combo = qobject_cast<const QComboBox*>(widget))
            fields.append(name + combo->currentText());
        else if (const auto* slider = qobject_cast<const QSlider*>(widget))
            fields.append(name + QString::number(slider->value()));
        else if (const auto* label = qobject_cast<const QLabel*>(widget))
            fields.append(name + label->text());
        else if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
            fields.append(name + (button->isCheckable() ? QString::number(button->isChecked()) : button->toolTip()));
    }
    return fields;
}

// A page of the stand-alone editor over a Settings.ini holding `values`; with `validate`,
// the start-up validation pass runs before the page opens.
struct FileWorld : PageWorld {
    FileWorld(const QString& pageName, const Values& values, bool validate = false)
        : PageWorld(values, {}, Host::StandAlone)
        , validated(!validate || ZelSettings::EnsureSettings(settings, error))
        , page(open(makePage(pageName, &app, settings).release()))
    {
    }

    // Another program writes these values over the file; the shared settings re-read it.
    bool writeElsewhere(const Values& values)
    {
        Values file;
        const QSettings reader(path, ZelSettings::SettingsFormat());
        for (const QString& key : reader.allKeys())
            file.insert(key, ZelSettings::GetSettingText(reader, key));
        file.insert(values);
        const bool done = writeIni(path, file);
        settings.sync();
        return done;
    }

    // Another program removes `key` from the file, as `torvane-config reset` does.
    bool removeElsewhere(const QString& key)
    {
        Values file;
        const QSettings reader(path, ZelSettings::SettingsFormat());
        for (const QString& stored : reader.allKeys()) {
            if (stored != key)
                file.insert(stored, ZelSettings::GetSettingText(reader, stored));
        }
        const bool done = writeIni(path, file);
        settings.sync();
        return done && !settings.contains(key);
    }

    QString error;
    bool validated;
    ZelSettingsPanel* page;
};

} // namespace

class TestStoredSettings : public QObject
{
    Q_OBJECT

    TestHome m_home;

    // One row per key of the Folders, Tessellation and Display pages: the file holds the
    // registered defaults overlaid with `initial`; another program stores `outside` under `key`, a value the
    // page shows, while the user makes the edit `steps`, which stores `editedValue` under
    // `editedKey`, another key of the same page.
    void otherProgramRows()
    {
        QTest::addColumn<QString>("pageName");
        QTest::addColumn<Values>("initial");
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("outside");
        QTest::addColumn<QStringList>("steps");
        QTest::addColumn<QString>("editedKey");
        QTest::addColumn<QString>("editedValue");
        struct Edit {
            QStringList steps;
            QString key;
            QString value;
        };
        struct Page {
            QString name;
            Values initial;
            Values outside;
            Edit edit;
            Edit otherwise; // when another program writes the key of `edit`
        };
        const QList<Page> pages = {
            {"Folders",
             {},
             {{Keys::CacheDirectory, "/elsewhere/cache"}, {Keys::ScreenshotFolder, "/elsewhere/shots"},
              {Keys::CacheSize, "5000"}},
             {{"databaseSpinBox=3000"}, Keys::CacheSize, "3000"},
             {{"screenshotFolderButton"}, Keys::ScreenshotFolder, "/chosen/shots"}},
            // High or low shows only while the quality is set.
            {"Tessellation",
             {{Keys::TesselationQualitySet, "true"}},
             {{Keys::TesselationQualitySet, "false"}, {Keys::TesselationIsHighQuality, "false"},
              {Keys::TesselationMaxFaceSagSet, "true"}, {Keys::TesselationMaxFaceSag, "2.5"},
              {Keys::TesselationMaxFaceLengthSet, "true"}, {Keys::TesselationMaxFaceLength, "20"},
              {Keys::TesselationMaxFaceAngleSet, "true"}, {Keys::TesselationMaxFaceAngle, "45"}},
             {{"angle"}, Keys::TesselationMaxFaceAngleSet, "true"},
             {{"sag"}, Keys::TesselationMaxFaceSagSet, "true"}},
            {"Display",
             {},
             {{Keys::Engine, "software"}, {Keys::UseSSAO, "false"}, {Keys::UseFXAA, "false"}, {Keys::UseED, "false"},
              {Keys::RaytracerCoreNumber, "1"}, {Keys::RaytracerQuality, "ultra"}, {Keys::SceneUnits, "1000"},
              {Keys::MaxCPUMemory3D, "536870912"}, {Keys::MaxCPUMemoryRaytracer, "536870912"},
              {Keys::MaxGPUMemory, "536870912"}, {Keys::LODTrianglesCap, "70000"}},
             {{"maxTrianglesSpinBox=60000"}, Keys::LODTrianglesCap, "60000"},
             {{"deferredFXAACheckBox"}, Keys::UseFXAA, "false"}},
        };
        for (const Page& page : pages) {
            for (auto outside = page.outside.cbegin(); outside != page.outside.cend(); ++outside) {
                // One processor leaves the core slider nowhere else to go.
                if (outside.key() == Keys::RaytracerCoreNumber && QThread::idealThreadCount() < 2)
                    continue;
                const Edit& edit = outside.key() == page.edit.key ? page.otherwise : page.edit;
                QTest::addRow("%s: %s", qPrintable(page.name), qPrintable(outside.key()))
                    << page.name << page.initial << outside.key() << outside.value() << edit.steps << edit.key
                    << edit.value;
            }
        }
    }

private Q_SLOTS:
    void init()
    {
        ZelSettings::InitDefaultSettingsValues(ZelSettings::GetApplicationName());
        ZelSettings::InitPageSettingsValues();
    }
    void cleanup() { ZelSettings::ClearSettingsValues(); }

    // After the start-up pass, every page opens showing exactly what is stored: a value
    // the pass keeps is one the page can show, and one it cannot show is repaired.
    void pagesShowWhatThePassLeaves_data()
    {
        QTest::addColumn<QString>("pageName");
        QTest::addColumn<QString>("key");
        QTest::addColumn<Values>("values");
        QTest::addColumn<bool>("kept"); // the pass keeps the value of `key` as it is
        const auto rows = [](const char* page, const QString& key, const Values& context,
                             std::initializer_list<std::pair<QString, bool>> values) {
            for (const auto& [value, kept] : values) {
                Values file {{key, value}};
                file.insert(context);
                QTest::addRow("%s = %s", qPrintable(key), qPrintable(value)) << QString(page) << key << file << kept;
            }
        };
        // A hand-written value with an unquoted comma reads back as a list.
        const QString cacheFolder = m_home.tempPath() + "/cache, kept";
        QDir().mkpath(cacheFolder);
        rows("Folders", Keys::CacheSize, {}, {{"10", true}, {"10240", true}, {"abc", false}, {"999999", false}});
        rows("Folders", Keys::CacheDirectory, {}, {{cacheFolder, true}, {"/not/there", false}});
        rows("Folders", Keys::ScreenshotFolder, {}, {{"/shots, old", true}});

        const std::pair<QLatin1String, QLatin1String> limits[] = {
            {Keys::TesselationMaxFaceSag, Keys::TesselationMaxFaceSagSet},
            {Keys::TesselationMaxFaceLength, Keys::TesselationMaxFaceLengthSet},
        };
        for (const auto& [limit, set] : limits)
            rows("Tessellation", limit, {{set, "true"}},
                 {{"0", true}, {"100", true}, {"0.001", true}, {"99.999", true}, {"0.1234", false}, {"1e-3", false}});
        rows("Tessellation", Keys::TesselationMaxFaceAngle, {{Keys::TesselationMaxFaceAngleSet, "true"}},
             {{"0", true}, {"359", true}, {"360", false}, {"4.5", false}});
        for (const QLatin1String flag : {Keys::TesselationQualitySet, Keys::TesselationMaxFaceSagSet,
                                         Keys::TesselationMaxFaceLengthSet, Keys::TesselationMaxFaceAngleSet})
            rows("Tessellation", flag, {}, {{"true", true}, {"false", true}, {"yes", false}});
        rows("Tessellation", Keys::TesselationIsHighQuality, {{Keys::TesselationQualitySet, "true"}},
             {{"true", true}, {"false", true}, {"1", false}});

        rows("Simplification", Keys::SimplificationRatios, {},
             {{"1/1/0.01/0.01/0.01", true}, {"1/0.75/0.5/0.25/0.1", true}, {"1/0.333/0.25/0.1/0.05", false},
              {"1/0.5/0.25", false}, {"1/0.75,0.5/0.25/0.1/0.05", false}});

        const Values gpu = {{Keys::Engine, "deferred"}, {Keys::UseSSAO, "true"}};
        const Values software = {{Keys::Engine, "software"}};
        rows("Display", Keys::Engine, {}, {{"deferred", true}, {"software", true}, {"Software", false}});
        for (const auto& [memory, engine] : {std::pair(Keys::MaxGPUMemory, gpu), std::pair(Keys::MaxCPUMemory3D, gpu),
                                             std::pair(Keys::MaxCPUMemoryRaytracer, software)})
            rows("Display", memory, engine,
                 {{"134217728", true}, {"8489271296", true}, {"1610612736", true}, {"1610612737", false}});
        rows("Display", Keys::LODTrianglesCap, gpu,
             {{"50000", true}, {"500000000", true}, {"49999", false}, {"500000001", false}});
        rows("Display", Keys::RaytracerCoreNumber, software,
             {{"1", true}, {QString::number(QThread::idealThreadCount()), true}, {"0", false}, {"1000", false}});
        for (const QString& quality : zel::kqDMRenderer::scQualityEnum)
            rows("Display", Keys::RaytracerQuality, software, {{quality, true}});
        for (const QString unit : {"0.001", "0.01", "0.1", "1", "10", "100", "1000"})
            rows("Display", Keys::SceneUnits, gpu, {{unit, true}});
        for (const QLatin1String effect : {Keys::UseSSAO, Keys::UseFXAA, Keys::UseED})
            rows("Display", effect, {{Keys::Engine, "deferred"}}, {{"true", true}, {"false", true}, {"1", false}});
    }

    void pagesShowWhatThePassLeaves()
    {
        QFETCH(QString, pageName);
        QFETCH(QString, key);
        QFETCH(Values, values);
        QFETCH(bool, kept);
        FileWorld world(pageName, values, true);
        QVERIFY(world.written);
        QVERIFY2(world.validated, qPrintable(world.error));
        QCOMPARE(ZelSettings::GetSettingText(world.settings, key) == values.value(key), kept);
        QVERIFY(!world.page->hasModifications());
    }

    void applyKeepsAnotherProgramsValue_data() { otherProgramRows(); }

    // The page was loaded before another program wrote the file: Apply writes the
    // user's edit, and the other program's value stays.
    void applyKeepsAnotherProgramsValue()
    {
        QFETCH(QString, pageName);
        QFETCH(Values, initial);
        QFETCH(QString, key);
        QFETCH(QString, outside);
        QFETCH(QStringList, steps);
        QFETCH(QString, editedKey);
        QFETCH(QString, editedValue);
        FileWorld world(pageName, withDefaults(initial));
        QVERIFY(world.writeElsewhere({{key, outside}}));
        world.edit(steps);
        world.page->applyModifications();
        QCOMPARE(world.stored(key), outside);
        QCOMPARE(world.stored(editedKey), editedValue);
    }

    void reloadShowsAnotherProgramsValue_data() { otherProgramRows(); }

    // Without pending edits, a reload shows what a page opened on the new file shows.
    void reloadShowsAnotherProgramsValue()
    {
        QFETCH(QString, pageName);
        QFETCH(Values, initial);
        QFETCH(QString, key);
        QFETCH(QString, outside);
        FileWorld world(pageName, withDefaults(initial));
        const QStringList before = shown(world.page);
        QSignalSpy changed(world.page, SIGNAL(stateChanged()));
        QVERIFY(world.writeElsewhere({{key, outside}}));
        QCOMPARE(world.page->reloadStoredSettings(), QStringList());
        QCOMPARE(changed.count(), 1);
        QVERIFY(!world.page->hasModifications());
        const std::unique_ptr<ZelSettingsPanel> fresh = makePage(pageName, &world.app, world.settings);
        fresh->initializeWidget();
        QCOMPARE(shown(world.page), shown(fresh.get()));
        QVERIFY(shown(world.page) != before);

        // A key another program removed shows as its default, which the next start stores:
        // neither an edit nobody made nor a value the next start would not show.
        QVERIFY(world.removeElsewhere(key));
        QCOMPARE(world.page->reloadStoredSettings(), QStringList());
        QVERIFY(!world.page->hasModifications());
        const QStringList removed = shown(world.page);
        QVERIFY(world.writeElsewhere({{key, ZelSettings::GetDefaultSettingsValue(key)}}));
        world.page->reloadStoredSettings();
        QCOMPARE(shown(world.page), removed);
    }

    // A reload keeps the pending edit; where the other program stored something else
    // under the edited key, that key is named, and Apply puts the edit there.
    void reloadKeepsPendingEdits_data()
    {
        QTest::addColumn<QString>("pageName");
        QTest::addColumn<QStringList>("steps");
        QTest::addColumn<QString>("editedKey");
        QTest::addColumn<QString>("editedValue");
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("outside");
        QTest::addColumn<QStringList>("overridden");
        const QStringList size = {"databaseSpinBox=3000"};
        QTest::newRow("Folders: another key") << "Folders" << size << QString(Keys::CacheSize) << "3000"
                                              << QString(Keys::ScreenshotFolder) << "/elsewhere" << QStringList();
        QTest::newRow("Folders: the same key") << "Folders" << size << QString(Keys::CacheSize) << "3000"
                                               << QString(Keys::CacheSize) << "5000"
                                               << QStringList(Keys::CacheSize);
        QTest::newRow("Tessellation: the same key")
            << "Tessellation" << QStringList{"angle", "faceAngleSpin=50"} << QString(Keys::TesselationMaxFaceAngle)
            << "50" << QString(Keys::TesselationMaxFaceAngle) << "45" << QStringList(Keys::TesselationMaxFaceAngle);
        QTest::newRow("Display: the same key and value")
            << "Display" << QStringList{"maxTrianglesSpinBox=60000"} << QString(Keys::LODTrianglesCap) << "60000"
            << QString(Keys::LODTrianglesCap) << "60000" << QStringList();
        QTest::newRow("Simplification: the same key")
            << "Simplification" << QStringList{"ratio3=40"} << QString(Keys::SimplificationRatios)
            << "1/0.75/0.4/0.25/0.1" << QString(Keys::SimplificationRatios) << "1/0.5/0.45/0.3/0.2"
            << QStringList(Keys::SimplificationRatios);
    }

    void reloadKeepsPendingEdits()
    {
        QFETCH(QString, pageName);
        QFETCH(QStringList, steps);
        QFETCH(QString, editedKey);
        QFETCH(QString, editedValue);
        QFETCH(QString, key);
        QFETCH(QString, outside);
        QFETCH(QStringList, overridden);
        FileWorld world(pageName, withDefaults({}));
        world.edit(steps);
        QVERIFY(world.writeElsewhere({{key, outside}}));
        QCOMPARE(world.page->reloadStoredSettings(), overridden);
        world.page->applyModifications();
        QCOMPARE(world.stored(editedKey), editedValue);
        if (key != editedKey)
            QCOMPARE(world.stored(key), outside);
    }
};

QTEST_MAIN(TestStoredSettings)
#include "tst_storedsettings.moc"
