#include "PageContract.h"
#include "TestHome.h"
#include "ZelRendererSettingsPanel.h"
#include "ZelSettingsKeys.h"

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

const Values Registered = {
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

// The Display page.
struct DisplayPage : PageWorld {
    explicit DisplayPage(const Values& stored = Registered) : PageWorld(stored, Registered) {}
    int spin(const char* name) const { return widget<QSpinBox>(name)->value(); }
    // Loads the page again after the file changed under it.
    void store(const Values& values)
    {
        for (auto value = values.cbegin(); value != values.cend(); ++value)
            settings.setValue(value.key(), value.value());
        page->initializeWidget();
    }

    ZelRendererSettingsPanel* page = open(new ZelRendererSettingsPanel(&app, settings));
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
        QCOMPARE(display.spin("maxGPUSPinBox"), 512);
        QCOMPARE(display.widget<QComboBox>("sceneUnitComboBox")->currentIndex(), 5);
        QVERIFY(!display.widget("SSAOFrame")->isEnabled());
        checkPageContract(display, {"deferredFXAACheckBox"});
        // The cap reached the renderer at once; the second, empty Apply pushed nothing.
        QCOMPARE(display.app.kernel, QStringList{"setTargetTriangles 10000000"});
        QVERIFY(display.widget("SSAOFrame")->isEnabled());
    }

    void memoryInWholeMebibytes_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<int>("shown");
        QTest::addColumn<bool>("modified");
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

    // Only what the chosen engine uses counts: the file changes under a loaded page.
    void onlyTheChosenEngineCounts_data()
    {
        QTest::addColumn<Values>("shown");
        QTest::addColumn<Values>("stored");
        QTest::addColumn<bool>("modified");
        const Values gpu = Registered;
        Values software = Registered;
        software[Keys::Engine] = "software";
        Values withoutSSAO = Registered;
        withoutSSAO[Keys::UseSSAO] = "false";
        QTest::newRow("units, SSAO off") << withoutSSAO << Values{{Keys::SceneUnits, "1000"}} << false;
        QTest::newRow("units, SSAO on") << gpu << Values{{Keys::SceneUnits, "1000"}} << true;
        QTest::newRow("quality, GPU") << gpu << Values{{Keys::RaytracerQuality, "ultra"}} << false;
        QTest::newRow("quality, software") << software << Values{{Keys::RaytracerQuality, "ultra"}} << true;
        QTest::newRow("GPU memory, software") << software << Values{{Keys::MaxGPUMemory, "134217728"}} << false;
        QTest::newRow("ray memory, software") << software << Values{{Keys::MaxCPUMemoryRaytracer, "134217728"}}
                                              << true;
        QTest::newRow("effects, software") << software << Values{{Keys::UseFXAA, "false"}} << false;
        QTest::newRow("cap, either") << software << Values{{Keys::LODTrianglesCap, "60000"}} << true;
        QTest::newRow("engine") << gpu << Values{{Keys::Engine, "software"}} << true;
    }

    void onlyTheChosenEngineCounts()
    {
        QFETCH(Values, shown);
        QFETCH(Values, stored);
        QFETCH(bool, modified);
        DisplayPage display(shown);
        for (auto value = stored.cbegin(); value != stored.cend(); ++value)
            display.settings.setValue(value.key(), value.value());
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
        QVERIFY(!display.widget("softwareFrame")->isHidden());
        QVERIFY(display.widget("hardwareFrame")->isHidden());
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
        QVERIFY(software.page->applyModifications());
        QCOMPARE(software.stored(Keys::RaytracerQuality), "ultra");
    }
};

QTEST_MAIN(TestDisplayPanel)
#include "tst_displaypanel.moc"
