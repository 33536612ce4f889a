// The application object the stand-alone editor runs on in place of the viewer's.
#include "TestHome.h"
#include "ZelSettings.h"
#include "ZelSettingsApplication.h"

#include <QFileInfo>
#include <QTest>

class tst_SettingsApplication : public QObject
{
    Q_OBJECT

    TestHome m_home;

private Q_SLOTS:
    void settingsAndDiagnostics()
    {
        const QString folder = m_home.configPath() + QStringLiteral("/TorvaneBoundlessX64");
        zel::ZelSettingsApplication application(folder);
        QCOMPARE(application.getApplicationFolder(), folder);
        QSettings& settings = application.getSettings();
        QCOMPARE(settings.format(), zel::ZelSettings::SettingsFormat());
        QCOMPARE(QFileInfo(settings.fileName()).absoluteFilePath(), folder + QStringLiteral("/Settings.ini"));

        // Diagnostics only for exactly "true" (not a boolean reading); a missing key reads as off.
        QVERIFY(!application.isDiagModeEnable());
        settings.setValue(QStringLiteral("enablediag"), QStringLiteral("TRUE"));
        QVERIFY(!application.isDiagModeEnable());
        settings.setValue(QStringLiteral("enablediag"), QStringLiteral("true"));
        QVERIFY(application.isDiagModeEnable());
    }
};

QTEST_MAIN(tst_SettingsApplication)
#include "tst_settingsapplication.moc"
