#include "PageContract.h"
#include "SettingsFiles.h"
#include "TestHome.h"
#include "ZelRendererSettingsPanel.h"
#include "ZelSettingsKeys.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QRadioButton>
#include <QSlider>
#include <QSpinBox>
#include <QThread>

using zel::ZelRendererSettingsPanel;
namespace Keys = zel::SettingsKeys;

namespace {

const Defaults Registered = {
    {Keys::Engine, "deferred"},
    {Keys::UseSSAO, "true"},
    {Keys::UseFXAA, "true"},
    {Keys::UseED, "true"},
    {Keys::RaytracerCoreNumber, "1"},
    {Keys::RaytracerQuality, "medium"},
    {Keys::MaxCPUMemory3D, "2147483648"},
    {Keys::MaxCPUMemoryRaytracer, "2147483648"},
    {Keys::MaxGPUMemory, "1073741824"},
    {Keys::LODTrianglesCap, "10000000"},
    {Keys::SceneUnits, "1"},
};

// What the page shows, by widget: spin boxes and sliders by value, the combo by index,
// buttons and check boxes by state.
struct DisplayPage : PageWorld {
    explicit DisplayPage(const Defaults& stored = Registered, Host host = Host::Viewer)
        : PageWorld(stored, Registered, host)
    {
        show(page);
        page->initializeWidget();
    }
    template<typename T>
    T* widget(const char* name) const { return page->findChild<T*>(name); }
    int spin(const char* name) const { return widget<QSpinBox>(name)->value(); }
    QString stored(QLatin1String key) const { return settings.value(key).toString(); }
    // Loads the page again after the file changed under it.
    void store(const Defaults& values)
    {
        for (const auto& [key, value] : values)
            settings.setValue(key, value);
        page->initializeWidget();
    }

    ZelRendererSettingsPanel* page = new ZelRendererSettingsPanel(&app, settings);
};

} // namespace

class TestDisplayPanel : public QObject
{
    Q_OBJECT

    TestHome m_home;

private Q_SLOTS:
    void contract()
    {
        DisplayPage display({{Keys::Engine, "deferred"},
                             {Keys::UseSSAO, "false"},
                             {Keys::UseFXAA, "true"},
                             {Keys::MaxGPUMemory, "536870912"},
                             {Keys::LODTrianglesCap, "2000000"},
                             {Keys::SceneUnits, "100"}});
        QVERIFY(display.widget<QRadioButton>("deferredButton")->isChecked());
        QCOMPARE(display.spin("maxGPUSPinBox"), 512);
        QCOMPARE(display.widget<QComboBox>("sceneUnitComboBox")->currentIndex(), 5);
        QVERIFY(!display.widget<QWidget>("SSAOFrame")->isEnabled());
        checkPageContract(*display.page, display.settings,
                          [&] { clickIndicator(display.widget<QCheckBox>("deferredFXAACheckBox")); });

        // Apply wrote the keys whose value changed and no other: the absent core number
        // and CPU budgets already showed the defaults, the engine and FXAA were stored so.
        // The cap reached the renderer at once; the second, empty Apply pushed nothing.
        display.settings.sync();
        const QVariantMap written = {
            {Keys::Engine, "deferred"},     {Keys::UseSSAO, "true"},          {Keys::UseFXAA, "true"},
            {Keys::UseED, "true"},          {Keys::RaytracerQuality, "medium"}, {Keys::SceneUnits, "1"},
            {Keys::MaxGPUMemory, "1073741824"}, {Keys::LODTrianglesCap, "10000000"},
        };
        QCOMPARE(iniValues(display.settings.fileName()), written);
        QCOMPARE(display.app.kernel, QStringList{"setTargetTriangles 10000000"});
        QVERIFY(display.widget<QWidget>("SSAOFrame")->isEnabled());
    }

    void memoryInWholeMebibytes_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<int>("shown");
        QTest::addColumn<bool>("modified");
        QTest::newRow("1.5 GiB") << "1610612736" << 1536 << false;
        QTest::newRow("upper bound") << "8489271296" << 8096 << false;
        QTest::newRow("below the range") << "104857600" << 128 << true;
        QTest::newRow("not whole") << "1610612737" << 1536 << true;
        QTest::newRow("not a number") << "lots" << 128 << true;
    }

    void memoryInWholeMebibytes()
    {
        QFETCH(QString, stored);
        QFETCH(int, shown);
        QFETCH(bool, modified);
        DisplayPage display;
        display.store({{Keys::MaxGPUMemory, stored}});
        QCOMPARE(display.spin("maxGPUSPinBox"), shown);
        QCOMPARE(display.page->hasModifications(), modified);
        display.widget<QSpinBox>("maxGPUSPinBox")->setValue(8096);
        display.page->applyModifications();
        QCOMPARE(display.stored(Keys::MaxGPUMemory), "8489271296");
    }

    void sceneUnits_data()
    {
        QTest::addColumn<float>("factor");
        QTest::addColumn<int>("index");
        QTest::newRow("near km") << 0.0015f << 0;
        QTest::newRow("near mm") << 999.9995f << 6;
        QTest::newRow("no unit: m") << 5.0f << 3;
    }

    void sceneUnits()
    {
        QFETCH(float, factor);
        QFETCH(int, index);
        QCOMPARE(ZelRendererSettingsPanel::GetSceneUnitComboIndex(factor), index);
    }

    void sceneUnitsWritten()
    {
        DisplayPage display({{Keys::UseSSAO, "true"}, {Keys::SceneUnits, "1"}});
        auto* units = display.widget<QComboBox>("sceneUnitComboBox");
        QStringList written;
        for (int index = 0; index < units->count(); ++index) {
            units->setCurrentIndex(index);
            display.page->applyModifications();
            written.append(display.stored(Keys::SceneUnits));
        }
        QCOMPARE(written, (QStringList{"0.001", "0.01", "0.1", "1", "10", "100", "1000"}));
    }

    // Only what the chosen engine uses counts: the file changes under a loaded page.
    void onlyTheChosenEngineCounts_data()
    {
        QTest::addColumn<Defaults>("shown");
        QTest::addColumn<Defaults>("stored");
        QTest::addColumn<bool>("modified");
        const Defaults gpu = Registered;
        Defaults software = Registered;
        software[0].second = "software";
        Defaults withoutSSAO = Registered;
        withoutSSAO[1].second = "false";
        QTest::newRow("units, SSAO off") << withoutSSAO
                                         << Defaults{{Keys::SceneUnits, "1000"}} << false;
        QTest::newRow("units, SSAO on") << gpu << Defaults{{Keys::SceneUnits, "1000"}} << true;
        QTest::newRow("quality, GPU") << gpu << Defaults{{Keys::RaytracerQuality, "ultra"}} << false;
        QTest::newRow("quality, software") << software << Defaults{{Keys::RaytracerQuality, "ultra"}} << true;
        QTest::newRow("GPU memory, software") << software << Defaults{{Keys::MaxGPUMemory, "134217728"}} << false;
        QTest::newRow("ray memory, software") << software << Defaults{{Keys::MaxCPUMemoryRaytracer, "134217728"}}
                                              << true;
        QTest::newRow("effects, software") << software << Defaults{{Keys::UseFXAA, "false"}} << false;
        QTest::newRow("cap, either") << software << Defaults{{Keys::LODTrianglesCap, "60000"}} << true;
        QTest::newRow("engine") << gpu << Defaults{{Keys::Engine, "software"}} << true;
    }

    void onlyTheChosenEngineCounts()
    {
        QFETCH(Defaults, shown);
        QFETCH(Defaults, stored);
        QFETCH(bool, modified);
        DisplayPage display(shown);
        for (const auto& [key, value] : stored)
            display.settings.setValue(key, value);
        QCOMPARE(display.page->hasModifications(), modified);
    }

    void restartRules()
    {
        if (QThread::idealThreadCount() < 2)
            QSKIP("needs two processors for a core change");
        // Started on the GPU renderer: going to software needs a restart, coming back not,
        // although the stored engine changes each time.
        DisplayPage display({{Keys::Engine, "deferred"}, {Keys::RaytracerCoreNumber, "1"}});
        clickIndicator(display.widget<QRadioButton>("raytracerButton"));
        QVERIFY(!display.widget<QWidget>("softwareFrame")->isHidden());
        QVERIFY(display.widget<QWidget>("hardwareFrame")->isHidden());
        // The rendering-mode action follows the engine the application runs, not the page.
        QVERIFY(display.app.renderingMode.isEnabled());
        QVERIFY(display.page->applyModifications());
        QCOMPARE(display.stored(Keys::Engine), "software");
        clickIndicator(display.widget<QRadioButton>("deferredButton"));
        QVERIFY(!display.page->applyModifications());
        QCOMPARE(display.stored(Keys::Engine), "deferred");

        // Started in software mode: a core change needs the raytracer restarted, unless it
        // returns to the value in use.
        DisplayPage software({{Keys::Engine, "software"}, {Keys::RaytracerCoreNumber, "1"}});
        QVERIFY(!software.app.renderingMode.isEnabled());
        auto* cores = software.widget<QSlider>("coreUsedSlider");
        cores->setValue(2);
        QCOMPARE(software.widget<QLabel>("coreUsedLabel")->text(), "2 cores");
        QVERIFY(software.page->applyModifications());
        cores->setValue(1);
        QCOMPARE(software.widget<QLabel>("coreUsedLabel")->text(), "1 core");
        QVERIFY(!software.page->applyModifications());
        QCOMPARE(software.stored(Keys::RaytracerCoreNumber), "1");
        auto* quality = software.widget<QSlider>("qualitySlider");
        quality->setValue(3);
        QCOMPARE(software.widget<QLabel>("qualityLabel")->text(), "Ultra");
        QVERIFY(software.page->applyModifications());
        QCOMPARE(software.stored(Keys::RaytracerQuality), "ultra");
    }

    void withoutARenderer()
    {
        // No renderer in the stand-alone editor: the cap is still saved.
        DisplayPage standAlone(Registered, Host::StandAlone);
        standAlone.widget<QSpinBox>("maxTrianglesSpinBox")->setValue(60000);
        QVERIFY(!standAlone.page->applyModifications());
        QCOMPARE(standAlone.stored(Keys::LODTrianglesCap), "60000");
        QVERIFY(standAlone.app.kernel.isEmpty());

        // Zero cores reads in the singular too.
        standAlone.store({{Keys::RaytracerCoreNumber, "0"}});
        QCOMPARE(standAlone.widget<QLabel>("coreUsedLabel")->text(), "0 core");
    }

    // A unit picked from the popup list, which lies over the 3D view, is an edit of the
    // page, never a click on the view that closes the menu.
    void unitPickedFromThePopupBesideTheView()
    {
        TestHost host(Host::Viewer);
        host.cc->setGUIHandler(&host.window);
        QSettings settings(m_home.path() + "/popup.ini", QSettings::IniFormat);
        settings.setValue(Keys::UseSSAO, true);
        settings.setValue(Keys::Engine, "deferred");
        ZelRendererSettingsPanel page(&host.app, settings);
        host.cc->registerSettingsPanel(&page);
        host.cc->openMenu(true);
        finishSlides(host.cc);
        host.cc->openSettings();
        finishSlides(host.cc);

        auto* units = page.findChild<QComboBox*>("sceneUnitComboBox");
        units->showPopup();
        QWidget* list = units->view()->viewport();
        QTRY_VERIFY(list->isVisible());
        QTest::qWait(550); // past the control center's guard against double counting
        click(list, units->view()->visualRect(units->model()->index(6, 0)).center());
        finishSlides(host.cc);
        QCOMPARE(units->currentIndex(), 6);
        QVERIFY(host.cc->isMenuOpen());
        QVERIFY(page.hasModifications());
        host.cc->unregisterSettingsPanel(&page, true);
    }
};

QTEST_MAIN(TestDisplayPanel)
#include "tst_displaypanel.moc"
