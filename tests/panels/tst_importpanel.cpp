#include "PageContract.h"
#include "SettingsFiles.h"
#include "TestHome.h"
#include "ZelImportSettingsPanel.h"
#include "ZelSettingsKeys.h"

#include <QDoubleSpinBox>
#include <QPushButton>
#include <QRadioButton>

using zel::ZelImportSettingsPanel;
namespace Keys = zel::SettingsKeys;

namespace {

const Defaults Registered = {
    {Keys::TesselationQualitySet, "false"},       {Keys::TesselationIsHighQuality, "true"},
    {Keys::TesselationMaxFaceSagSet, "false"},    {Keys::TesselationMaxFaceSag, "0.5"},
    {Keys::TesselationMaxFaceLengthSet, "false"}, {Keys::TesselationMaxFaceLength, "10"},
    {Keys::TesselationMaxFaceAngleSet, "false"},  {Keys::TesselationMaxFaceAngle, "30"},
};

struct ImportPage : PageWorld {
    explicit ImportPage(const Defaults& stored = Registered) : PageWorld(stored, Registered)
    {
        show(page);
        page->initializeWidget();
    }
    template<typename T = QRadioButton>
    T* widget(const char* name) const { return page->findChild<T*>(name); }

    ZelImportSettingsPanel* page = new ZelImportSettingsPanel(&app, settings);
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
        QVERIFY(import.widget("highQuality")->isChecked());
        QCOMPARE(import.widget<QSpinBox>("faceAngleSpin")->value(), 45);
        checkPageContract(*import.page, import.settings, [&] { click(import.widget("length")); });

        // Apply writes the keys of the choices made, keeps the values of limits that are
        // not set, and never asks for a restart nor reaches the running application.
        click(import.widget("lowQuality"));
        click(import.widget("sag"));
        QVERIFY(!import.page->applyModifications());
        import.settings.sync();
        const QVariantMap written = {
            {Keys::TesselationQualitySet, "true"},       {Keys::TesselationIsHighQuality, "false"},
            {Keys::TesselationMaxFaceSagSet, "true"},    {Keys::TesselationMaxFaceSag, "0.5"},
            {Keys::TesselationMaxFaceLength, "10"},      {Keys::TesselationMaxFaceAngleSet, "false"},
            {Keys::TesselationMaxFaceAngle, "30"},
        };
        QCOMPARE(iniValues(import.settings.fileName()), written);
        QVERIFY(import.app.kernel.isEmpty());
    }

    // What is not in force does not count: the file changes under a loaded page.
    void onlyValuesInForceCount_data()
    {
        QTest::addColumn<Defaults>("shown");
        QTest::addColumn<Defaults>("stored");
        QTest::addColumn<bool>("modified");
        QTest::newRow("high or low, quality Default")
            << Defaults{{Keys::TesselationIsHighQuality, "true"}} << Defaults{{Keys::TesselationIsHighQuality, "false"}}
            << false;
        QTest::newRow("high or low, quality set")
            << Defaults{{Keys::TesselationQualitySet, "true"}, {Keys::TesselationIsHighQuality, "true"}}
            << Defaults{{Keys::TesselationQualitySet, "true"}, {Keys::TesselationIsHighQuality, "false"}} << true;
        QTest::newRow("sag, not set") << Defaults{{Keys::TesselationMaxFaceSag, "1"}}
                                      << Defaults{{Keys::TesselationMaxFaceSag, "2"}} << false;
        QTest::newRow("sag, set")
            << Defaults{{Keys::TesselationMaxFaceSagSet, "true"}, {Keys::TesselationMaxFaceSag, "1"}}
            << Defaults{{Keys::TesselationMaxFaceSagSet, "true"}, {Keys::TesselationMaxFaceSag, "2"}} << true;
        QTest::newRow("a flag") << Defaults{} << Defaults{{Keys::TesselationMaxFaceAngleSet, "true"}} << true;
        QTest::newRow("NaN, set")
            << Defaults{{Keys::TesselationMaxFaceSagSet, "true"}, {Keys::TesselationMaxFaceSag, "nan"}}
            << Defaults{{Keys::TesselationMaxFaceSagSet, "true"}, {Keys::TesselationMaxFaceSag, "nan"}} << true;
        QTest::newRow("out of range, shown clamped") << Defaults{{Keys::TesselationMaxFaceSagSet, "true"},
                                                                 {Keys::TesselationMaxFaceSag, "250"}}
                                                     << Defaults{{Keys::TesselationMaxFaceSagSet, "true"},
                                                                 {Keys::TesselationMaxFaceSag, "250"}}
                                                     << true;
    }

    void onlyValuesInForceCount()
    {
        QFETCH(Defaults, shown);
        QFETCH(Defaults, stored);
        QFETCH(bool, modified);
        ImportPage import(shown);
        for (const auto& [key, value] : stored)
            import.settings.setValue(key, value);
        QCOMPARE(import.page->hasModifications(), modified);
    }

    // While the quality is "Default" no button shows high or low: what is stored stays,
    // whatever the buttons went through, and an Apply of another edit keeps it.
    void highOrLowKeptWhileTheQualityIsDefault()
    {
        ImportPage import({{Keys::TesselationQualitySet, "false"}, {Keys::TesselationIsHighQuality, "false"}});
        QVERIFY(!import.page->hasModifications());
        click(import.widget("highQuality"));
        click(import.widget("defaultQuality"));
        click(import.widget("sag"));
        QVERIFY(!import.page->applyModifications());
        QCOMPARE(import.settings.value(Keys::TesselationIsHighQuality).toString(), "false");
        QCOMPARE(import.settings.value(Keys::TesselationMaxFaceSagSet).toString(), "true");
    }

    void radioButtonsAndSpinBoxes()
    {
        ImportPage import;
        QSignalSpy changed(import.page, SIGNAL(stateChanged()));
        auto* reset = import.widget<QPushButton>("resetButton");
        QVERIFY(!reset->isEnabled());

        // A chosen radio button stays chosen when clicked again.
        click(import.widget("defaultQuality"));
        QVERIFY(import.widget("defaultQuality")->isChecked());

        // "Low Quality" leaves the reset button as it was; "High Quality" refreshes it.
        click(import.widget("lowQuality"));
        QVERIFY(import.widget("lowQuality")->isChecked() && !import.widget("defaultQuality")->isChecked());
        QVERIFY(import.page->canResetContent());
        QVERIFY(!reset->isEnabled());
        click(import.widget("highQuality"));
        QVERIFY(reset->isEnabled());
        QVERIFY(!import.widget("lowQuality")->isChecked());
        QCOMPARE(changed.count(), 3);

        // A limit's spin box follows its choice and keeps its value; typing into it is
        // a modification that announces nothing.
        auto* angle = import.widget<QSpinBox>("faceAngleSpin");
        QVERIFY(!angle->isEnabled());
        click(import.widget("angle"));
        QVERIFY(angle->isEnabled());
        changed.clear();
        click(angle);
        QTest::keyClick(angle, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(angle, "400");
        QCOMPARE(angle->value(), 40); // an angle above 359 cannot be entered
        QCOMPARE(changed.count(), 0);
        QVERIFY(import.page->hasModifications());
        click(import.widget("defaultAngle"));
        QVERIFY(!angle->isEnabled());
        QCOMPARE(angle->value(), 40);
    }
};

QTEST_MAIN(TestImportPanel)
#include "tst_importpanel.moc"
