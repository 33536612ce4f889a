#include "TestHome.h"

#include "ZelDirectory.h"
#include "ZelKernel.h"
#include "kqDMIApplication.h"
#include "kqDMManager.h"
#include "kqDMRenderer.h"
#include "kqSystem.h"
#include "zelAction.h"
#include "zelActionManager.h"

#include <QTest>

#include <cmath>
#include <memory>
#include <vector>

using namespace zel;

using Ratios = std::vector<float>;
Q_DECLARE_METATYPE(Ratios)

class tst_KernelServices : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void folders();
    void userName();
    void raytracerQuality_data();
    void raytracerQuality();
    void correctRatios_data();
    void correctRatios();
    void libraryPairing();
    void styleSheet();
    void actionLifetimes();

private:
    TestHome m_home;
};

void tst_KernelServices::folders()
{
    QVERIFY(m_home.isValid());
    QCOMPARE(QString::fromStdString(kq::kqDirUtils::GetAppDataFolderUtf8()), m_home.configPath());
    QCOMPARE(QString::fromStdString(ZelDirectory::GetTempFolderUtf8("Zel\xc3\xa9X64")),
             m_home.tempPath() + QStringLiteral("/Zel\u00e9X64"));
}

void tst_KernelServices::userName()
{
    const char* const names[] = {"USER", "USERNAME", "LOGNAME"};
    QByteArray saved[3];
    for (int i = 0; i < 3; ++i) {
        saved[i] = qgetenv(names[i]);
        qunsetenv(names[i]);
    }
    const auto restore = qScopeGuard([&] {
        for (int i = 0; i < 3; ++i) {
            if (!saved[i].isNull())
                qputenv(names[i], saved[i]);
        }
    });

    // Without any of them the account database answers.
    QVERIFY(!kq::kqSystemUtils::GetCurrentUserNameUtf8().empty());
    qputenv("LOGNAME", "ann\xc3\xa9");
    QCOMPARE(kq::kqSystemUtils::GetCurrentUserNameUtf8(), std::string("ann\xc3\xa9"));
    qputenv("USER", "bob");
    QCOMPARE(kq::kqSystemUtils::GetCurrentUserNameUtf8(), std::string("bob"));
}

void tst_KernelServices::raytracerQuality_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("index");
    for (int i = 0; i < 4; ++i)
        QTest::addRow("entry %d", i) << kqDMRenderer::scQualityEnum[i] << i;
    QTest::newRow("other case") << kqDMRenderer::scQualityEnum[3].toUpper() << 0;
    QTest::newRow("padded") << kqDMRenderer::scQualityEnum[2] + QLatin1Char(' ') << 0;
    QTest::newRow("empty") << QString() << 0;
}

void tst_KernelServices::raytracerQuality()
{
    QFETCH(QString, name);
    QFETCH(int, index);
    QCOMPARE(kqDMRenderer::GetRaytracerQuality(name), index);
}

void tst_KernelServices::correctRatios_data()
{
    const float nan = std::nanf("");
    const float inf = INFINITY;
    QTest::addColumn<Ratios>("ratios");
    QTest::addColumn<Ratios>("expected");
    QTest::addColumn<bool>("changed");
    QTest::newRow("valid") << Ratios {1, 0.5f, 0.5f, 0.1f, 0.01f} << Ratios {1, 0.5f, 0.5f, 0.1f, 0.01f} << false;
    QTest::newRow("empty") << Ratios {} << Ratios {} << false;
    QTest::newRow("first below one") << Ratios {0.5f, 0.8f, 0.2f} << Ratios {1, 0.8f, 0.2f} << true;
    QTest::newRow("rising") << Ratios {1, 0.2f, 0.6f, 0.1f, 0.3f} << Ratios {1, 0.2f, 0.2f, 0.1f, 0.1f} << true;
    QTest::newRow("out of range") << Ratios {1, 2, 0, -1, 0.001f} << Ratios {1, 1, 0.01f, 0.01f, 0.01f} << true;
    QTest::newRow("infinite") << Ratios {inf, 0.5f, -inf} << Ratios {1, 0.5f, 0.01f} << true;
    QTest::newRow("nan") << Ratios {nan, nan, 0.4f, nan} << Ratios {1, 1, 0.4f, 0.4f} << true;
}

void tst_KernelServices::correctRatios()
{
    QFETCH(Ratios, ratios);
    QFETCH(Ratios, expected);
    QFETCH(bool, changed);
    QCOMPARE(kqDMManager::correctRatios(ratios), changed);
    QCOMPARE(ratios, expected);
}

void tst_KernelServices::libraryPairing()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    QVERIFY(kq::initializeKqSystem(kq::InitGui, false));
    QVERIFY(zelInitializeKernelLibrary());
    zelTerminateKernelLibrary();
    kq::terminateKqSystem();

    QTest::ignoreMessage(QtWarningMsg, "kqMeshLib terminated without being initialized");
    kq::terminateKqMeshLibrary();
    QTest::ignoreMessage(QtWarningMsg, "initializeKqSystem: unknown start type 3");
    QVERIFY(!kq::initializeKqSystem(kq::InitType(3), false));
    // A refused start does not count.
    QTest::ignoreMessage(QtWarningMsg, "kqSystem terminated without being initialized");
    kq::terminateKqSystem();
}

void tst_KernelServices::styleSheet()
{
    QVERIFY(kqDMIApplication::GetStylesheet(QStringLiteral("kqMessageBox")).contains(QLatin1String("QMessageBox")));
    QVERIFY(kqDMIApplication::GetStylesheet(QStringLiteral("NoSuchWidget")).isEmpty());
}

void tst_KernelServices::actionLifetimes()
{
    auto manager = std::make_unique<zelActionManager>();
    auto action = std::make_unique<zelAction>(QStringLiteral("open"), QStringLiteral("Open"), manager.get());
    QCOMPARE(manager->getActionByName(QStringLiteral("open")), action.get());
    QVERIFY(!manager->getActionByName(QStringLiteral("Open")));

    // A second action under the same name neither replaces the first nor, when it
    // leaves, takes the first one's registration along.
    auto duplicate = std::make_unique<zelAction>(QStringLiteral("open"), QStringLiteral("Open"), manager.get());
    QVERIFY(!manager->registerAction(duplicate.get()));
    manager->unregisterAction(duplicate.get());
    duplicate.reset();
    QCOMPARE(manager->getActionByName(QStringLiteral("open")), action.get());

    action.reset();
    QVERIFY(!manager->getActionByName(QStringLiteral("open")));

    // Actions that outlive their manager, as its child or not, must not reach back
    // into it (AddressSanitizer reports it).
    zelAction outside(QStringLiteral("open"), QStringLiteral("Open"), manager.get());
    new zelAction(QStringLiteral("child"), QStringLiteral("Child"), manager.get(), manager.get());
    manager.reset();
}

QTEST_MAIN(tst_KernelServices)
#include "tst_kernelservices.moc"
