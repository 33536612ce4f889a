#include "TestHome.h"

#include "ZelControlCenter.h"
#include "ZelSettingsApplication.h"
#include "kqDMSelection.h"

#include <QFileInfo>
#include <QSettings>
#include <QTest>

using namespace zel;

class tst_ZelSettingsApplication : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void settingsFile();
    void nullAnswers();
    void screenshotFolderStaysNull();
    void languageCode();
    void diagnostics_data();
    void diagnostics();

private:
    QString folder() const { return m_home.configPath() + QStringLiteral("/TorvaneBoundlessX64"); }

    TestHome m_home;
};

void tst_ZelSettingsApplication::settingsFile()
{
    ZelSettingsApplication application(folder());
    QCOMPARE(application.getApplicationFolder(), folder());
    QSettings& settings = application.getSettings();
    QCOMPARE(settings.format(), QSettings::IniFormat);
    QCOMPARE(QFileInfo(settings.fileName()).absoluteFilePath(), folder() + QStringLiteral("/Settings.ini"));
}

void tst_ZelSettingsApplication::nullAnswers()
{
    ZelSettingsApplication application(folder());
    const ZelSettingsApplication& constApplication = application;
    QVERIFY(!constApplication.getDMManager());
    QVERIFY(!constApplication.getDMRenderer());
    QVERIFY(!constApplication.getGuiPlugin());
    QVERIFY(!application.getActionManager());
    QVERIFY(!application.editProject());
    QVERIFY(constApplication.getPluginsList().empty());
    QVERIFY(application.getPostSaveEventVector().empty());
    QVERIFY(!application.saveDocument());
    QVERIFY(!application.removeComponent(7));
    application.set3DSelectionPickingEnabled(false);
    QVERIFY(constApplication.is3DSelectionPickingEnabled());

    QVERIFY(constApplication.getSelection().isEmpty());
    QVERIFY(application.grabSelection().add(7));
    QCOMPARE(&constApplication.getSelection(), &application.grabSelection());

    // Deliberately blind to the registry, even for a registered key.
    ZelControlCenter::RegisterSetting(QStringLiteral("engine"), QStringLiteral("deferred"), &ZelControlCenter::noOp);
    QCOMPARE(ZelControlCenter::GetDefaultSettingsValue(QStringLiteral("engine")), QStringLiteral("deferred"));
    QVERIFY(application.getDefaultSettingsValue(QStringLiteral("engine")).isNull());
    ZelControlCenter::ClearSettingsValues();
}

void tst_ZelSettingsApplication::screenshotFolderStaysNull()
{
    ZelSettingsApplication application(folder());
    application.setScreenshotImageFolder(m_home.path());
    QVERIFY(application.getScreenshotImageFolder().isNull());
}

void tst_ZelSettingsApplication::languageCode()
{
    ZelSettingsApplication application(folder());
    QVERIFY(application.getLanguageCode().isNull());
    application.setLanguageCode(QStringLiteral("fr"));
    QCOMPARE(application.getLanguageCode(), QStringLiteral("fr"));
}

void tst_ZelSettingsApplication::diagnostics_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<bool>("enabled");
    QTest::newRow("true") << QStringLiteral("true") << true;
    QTest::newRow("false") << QStringLiteral("false") << false;
    QTest::newRow("upper case") << QStringLiteral("TRUE") << false;
    QTest::newRow("one") << QStringLiteral("1") << false;
    QTest::newRow("missing") << QString() << false;
}

void tst_ZelSettingsApplication::diagnostics()
{
    QFETCH(QString, value);
    QFETCH(bool, enabled);
    ZelSettingsApplication application(folder());
    if (value.isNull())
        application.getSettings().remove(QStringLiteral("enablediag"));
    else
        application.getSettings().setValue(QStringLiteral("enablediag"), value);
    QCOMPARE(application.isDiagModeEnable(), enabled);
}

QTEST_MAIN(tst_ZelSettingsApplication)
#include "tst_zelsettingsapplication.moc"
