#include "PageContract.h"
#include "TestHome.h"
#include "ZelImportSettingsPanel.h"
#include "ZelSettingsKeys.h"

#include <QRadioButton>
#include <QSpinBox>

using zel::ZelImportSettingsPanel;
namespace Keys = zel::SettingsKeys;

namespace {

const Values Registered = {
    {Keys::TesselationQualitySet, "false"},       {Keys::TesselationIsHighQuality, "true"},
    {Keys::TesselationMaxFaceSagSet, "false"},    {Keys::TesselationMaxFaceSag, "0.5"},
    {Keys::TesselationMaxFaceLengthSet, "false"}, {Keys::TesselationMaxFaceLength, "10"},
    {Keys::TesselationMaxFaceAngleSet, "false"},  {Keys::TesselationMaxFaceAngle, "30"},
};

// The Tessellation page.
struct ImportPage : PageWorld {
    explicit ImportPage(const Values& stored = Registered) : PageWorld(stored, Registered) {}
    ZelImportSettingsPanel* page = open(new ZelImportSettingsPanel(&app, settings));
};

} // namespace

class TestImportPanel : public QObject
{
    Q_OBJECT

    TestHome m_home;

private Q_SLOTS:
    void contract()
    {
        ImportPage import({{Keys::TesselationQualitySet, "true"},
                           {Keys::TesselationIsHighQuality, "true"},
                           {Keys::TesselationMaxFaceAngleSet, "true"},
                           {Keys::TesselationMaxFaceAngle, "45"}});
        QVERIFY(import.widget<QRadioButton>("highQuality")->isChecked());
        QCOMPARE(import.widget<QSpinBox>("faceAngleSpin")->value(), 45);
        checkPageContract(import, {"length"});

        // Apply writes the keys of the choices made, keeps the values of limits that are
        // not set, and never asks for a restart nor reaches the running application.
        import.edit({"lowQuality", "sag"});
        QVERIFY(!import.page->applyModifications());
        QCOMPARE(import.stored(Keys::TesselationIsHighQuality), "false");
        QCOMPARE(import.stored(Keys::TesselationMaxFaceSagSet), "true");
        QCOMPARE(import.stored(Keys::TesselationMaxFaceSag), "0.5");
        QVERIFY(import.app.kernel.isEmpty());
    }

    // What is not in force does not count: the file changes under a loaded page.
    void onlyValuesInForceCount_data()
    {
        QTest::addColumn<Values>("shown");
        QTest::addColumn<Values>("stored");
        QTest::addColumn<bool>("modified");
        QTest::newRow("high or low, quality Default")
            << Values{{Keys::TesselationIsHighQuality, "true"}} << Values{{Keys::TesselationIsHighQuality, "false"}}
            << false;
        QTest::newRow("high or low, quality set")
            << Values{{Keys::TesselationQualitySet, "true"}, {Keys::TesselationIsHighQuality, "true"}}
            << Values{{Keys::TesselationQualitySet, "true"}, {Keys::TesselationIsHighQuality, "false"}} << true;
        QTest::newRow("sag, not set") << Values{{Keys::TesselationMaxFaceSag, "1"}}
                                      << Values{{Keys::TesselationMaxFaceSag, "2"}} << false;
        QTest::newRow("sag, set")
            << Values{{Keys::TesselationMaxFaceSagSet, "true"}, {Keys::TesselationMaxFaceSag, "1"}}
            << Values{{Keys::TesselationMaxFaceSagSet, "true"}, {Keys::TesselationMaxFaceSag, "2"}} << true;
        QTest::newRow("a flag") << Values{} << Values{{Keys::TesselationMaxFaceAngleSet, "true"}} << true;
        QTest::newRow("NaN, set")
            << Values{{Keys::TesselationMaxFaceSagSet, "true"}, {Keys::TesselationMaxFaceSag, "nan"}}
            << Values{{Keys::TesselationMaxFaceSagSet, "true"}, {Keys::TesselationMaxFaceSag, "nan"}} << true;
        QTest::newRow("out of range, shown clamped")
            << Values{{Keys::TesselationMaxFaceSagSet, "true"}, {Keys::TesselationMaxFaceSag, "250"}}
            << Values{{Keys::TesselationMaxFaceSagSet, "true"}, {Keys::TesselationMaxFaceSag, "250"}} << true;
    }

    void onlyValuesInForceCount()
    {
        QFETCH(Values, shown);
        QFETCH(Values, stored);
        QFETCH(bool, modified);
        ImportPage import(shown);
        for (auto value = stored.cbegin(); value != stored.cend(); ++value)
            import.settings.setValue(value.key(), value.value());
        QCOMPARE(import.page->hasModifications(), modified);
    }

    // While the quality is "Default" no button shows high or low: what is stored stays,
    // whatever the buttons went through, and an Apply of another edit keeps it.
    void highOrLowKeptWhileTheQualityIsDefault()
    {
        ImportPage import({{Keys::TesselationQualitySet, "false"}, {Keys::TesselationIsHighQuality, "false"}});
        QVERIFY(!import.page->hasModifications());
        import.edit({"highQuality", "defaultQuality", "sag"});
        QVERIFY(!import.page->applyModifications());
        QCOMPARE(import.stored(Keys::TesselationIsHighQuality), "false");
        QCOMPARE(import.stored(Keys::TesselationMaxFaceSagSet), "true");
    }

    // A limit's field follows its choice and keeps its value; it takes no angle above 359.
    void limitFieldsFollowTheirChoice()
    {
        ImportPage import;
        auto* angle = import.widget<QSpinBox>("faceAngleSpin");
        QVERIFY(!angle->isEnabled());
        import.edit({"angle", "faceAngleSpin=400"});
        QCOMPARE(angle->value(), 40);
        QVERIFY(import.page->hasModifications());
        import.edit({"defaultAngle"});
        QVERIFY(!angle->isEnabled());
        QCOMPARE(angle->value(), 40);
    }
};

QTEST_MAIN(TestImportPanel)
#include "tst_importpanel.moc"
