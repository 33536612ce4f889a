#include "TestHome.h"

#include "ZelDirectory.h"
#include "ZelKernel.h"
#include "kqDMIApplication.h"
#include "kqDMManager.h"
#include "kqDMRenderer.h"
#include "kqSystem.h"
#include "zelAction.h"
#include "zelActionManager.h"

#include <QSignalSpy>
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
    void actionLookup();
    void duplicateActionName();
    void managerDestroyedFirst();

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
    const char* const variables[] = {"USER", "USERNAME", "LOGNAME"};
    QByteArray saved[3];
    for (int i = 0; i < 3; ++i)
        saved[i] = qgetenv(variables[i]);
    const auto restore = qScopeGuard([&] {
        for (int i = 0; i < 3; ++i) {
            if (saved[i].isNull())
                qunsetenv(variables[i]);
            else
                qputenv(variables[i], saved[i]);
        }
    });

    for (const char* variable : variables)
        qunsetenv(variable);
    qputenv("LOGNAME", "ann\xc3\xa9");
    QCOMPARE(kq::kqSystemUtils::GetCurrentUserNameUtf8(), std::string("ann\xc3\xa9"));
    qputenv("USER", "bob");
    QCOMPARE(kq::kqSystemUtils::GetCurrentUserNameUtf8(), std::string("bob"));

    for (const char* variable : variables)
        qunsetenv(variable);
    QVERIFY(!kq::kqSystemUtils::GetCurrentUserNameUtf8().empty());
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
    QVERIFY(kq::initializeKqSceneGraph());
    QVERIFY(zelInitializeKernelLibrary());
    zelTerminateKernelLibrary();
    kq::terminateKqSceneGraph();
    kq::terminateKqSystem();

    QTest::ignoreMessage(QtWarningMsg, "ZelKernel terminated without being initialized");
    zelTerminateKernelLibrary();
    QTest::ignoreMessage(QtWarningMsg, "kqMeshLib terminated without being initialized");
    kq::terminateKqMeshLibrary();
    QTest::ignoreMessage(QtWarningMsg, "initializeKqSystem: unknown start type 3");
    QVERIFY(!kq::initializeKqSystem(kq::InitType(3), false));
    // A refused start must not count: its terminate is a misuse too.
    QTest::ignoreMessage(QtWarningMsg, "kqSystem terminated without being initialized");
    kq::terminateKqSystem();
}

void tst_KernelServices::styleSheet()
{
    const QString sheet = kqDMIApplication::GetStylesheet(QStringLiteral("kqMessageBox"));
    QVERIFY(sheet.contains(QLatin1String("QMessageBox")));
    QCOMPARE(kqDMIApplication::GetStylesheet(QStringLiteral("kqMessageBox")), sheet);
    QVERIFY(kqDMIApplication::GetStylesheet(QStringLiteral("NoSuchWidget")).isEmpty());
    QVERIFY(kqDMIApplication::GetStylesheet(QString()).isEmpty());
}

void tst_KernelServices::actionLookup()
{
    zelActionManager manager;
    auto action = std::make_unique<zelAction>(QStringLiteral("renderingMode"), QStringLiteral("Rendering"), &manager);
    QCOMPARE(action->text(), QStringLiteral("Rendering"));
    QCOMPARE(manager.getActionByName(QStringLiteral("renderingMode")), action.get());
    QVERIFY(!manager.getActionByName(QStringLiteral("Rendering")));

    QSignalSpy changed(action.get(), &QAction::changed);
    action->setActionGuiName(QStringLiteral("Render mode"));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(action->getActionGuiName(), QStringLiteral("Render mode"));
    QCOMPARE(action->text(), QStringLiteral("Render mode"));
    QCOMPARE(action->getActionName(), QStringLiteral("renderingMode"));

    action.reset();
    QVERIFY(!manager.getActionByName(QStringLiteral("renderingMode")));
    // The name is free again.
    zelAction again(QStringLiteral("renderingMode"), QStringLiteral("Rendering"), &manager);
    QCOMPARE(manager.getActionByName(QStringLiteral("renderingMode")), &again);
}

void tst_KernelServices::duplicateActionName()
{
    zelActionManager manager;
    zelAction first(QStringLiteral("open"), QStringLiteral("Open"), &manager);
    auto second = std::make_unique<zelAction>(QStringLiteral("open"), QStringLiteral("Open again"), &manager);
    QVERIFY(!manager.registerAction(second.get()));
    QCOMPARE(manager.getActionByName(QStringLiteral("open")), &first);
    // Leaving must not take the first action's registration along.
    manager.unregisterAction(second.get());
    QCOMPARE(manager.getActionByName(QStringLiteral("open")), &first);
    second.reset();
    QCOMPARE(manager.getActionByName(QStringLiteral("open")), &first);
}

void tst_KernelServices::managerDestroyedFirst()
{
    auto manager = std::make_unique<zelActionManager>();
    zelAction outside(QStringLiteral("outside"), QStringLiteral("Outside"), manager.get());
    auto* child = new zelAction(QStringLiteral("child"), QStringLiteral("Child"), manager.get(), manager.get());
    QCOMPARE(manager->getActionByName(QStringLiteral("child")), child);
    // Both actions outlive the manager's registry; under AddressSanitizer a stale
    // manager pointer shows here or when `outside` goes.
    manager.reset();
}

QTEST_MAIN(tst_KernelServices)
#include "tst_kernelservices.moc"
