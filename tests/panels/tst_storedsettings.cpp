#include "PageContract.h"
#include "TestHome.h"
#include "ZelGeneralSettingsPanel.h"
#include "ZelImportSettingsPanel.h"
#include "ZelRendererSettingsPanel.h"
#include "ZelSettings.h"
#include "ZelSettingsKeys.h"
#include "ZelSimplificationSettingsPanel.h"

#include <QDateTime>
#include <QFileInfo>
#include <QThread>

#include <memory>

using zel::ZelSettings;
using zel::ZelSettingsPanel;
namespace Keys = zel::SettingsKeys;
using Values = QMap<QString, QString>;

namespace {

// `values` as a hand-written Settings.ini: each value as it stands, unquoted, so that a
// comma makes a list as it does in a file from a text editor.
QByteArray iniText(const Values& values)
{
    QMap<QString, QStringList> groups;
    for (auto value = values.cbegin(); value != values.cend(); ++value) {
        const qsizetype slash = value.key().indexOf('/');
        groups[slash < 0 ? QString() : value.key().left(slash)].append(value.key().mid(slash + 1) + '='
                                                                          + value.value());
    }
    QByteArray text;
    for (auto group = groups.cbegin(); group != groups.cend(); ++group) {
        if (!group.key().isEmpty())
            text += '[' + group.key().toUtf8() + "]\n";
        text += group.value().join('\n').toUtf8() + '\n';
    }
    return text;
}

// Writes the file as another program would. Its time moves on by two seconds each time,
// so that a QSettings syncing right after sees the change whatever the clock's grain.
bool writeFile(const QString& path, const Values& values)
{
    const QDateTime before = QFileInfo(path).lastModified();
    QFile file(path);
    const QByteArray text = iniText(values);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(text) != text.size())
        return false;
    const QDateTime after = before.isValid() ? before.addSecs(2) : QDateTime::currentDateTime();
    return file.setFileTime(after, QFileDevice::FileModificationTime);
}

// A page named as the drawer names it, over `settings`.
std::unique_ptr<ZelSettingsPanel> makePage(const QString& name, zel::kqDMIApplication* app, QSettings& settings)
{
    if (name == "Folders")
        return std::make_unique<zel::ZelGeneralSettingsPanel>(app, settings);
    if (name == "Tessellation")
        return std::make_unique<zel::ZelImportSettingsPanel>(app, settings);
    if (name == "Simplification")
        return std::make_unique<zel::ZelSimplificationSettingsPanel>(app, settings);
    return std::make_unique<zel::ZelRendererSettingsPanel>(app, settings);
}

// A page over a real Settings.ini in our format holding `values`, shown in a drawer; with
// `validate`, the start-up validation pass runs before the page opens.
struct FileWorld {
    FileWorld(const QString& pageName, const Values& values, bool validate = false)
        : written(writeFile(path, values))
    {
        if (validate)
            validated = ZelSettings::EnsureSettings(settings, error);
        page = makePage(pageName, &app, settings);
        drawer.setWidget(page.get());
        drawer.setWidgetResizable(true);
        drawer.resize(450, 700);
        drawer.show();
        if (!QTest::qWaitForWindowExposed(&drawer))
            qWarning("the page's window was never exposed");
        page->initializeWidget();
    }
    ~FileWorld() { drawer.takeWidget(); }
    Q_DISABLE_COPY_MOVE(FileWorld)

    QTemporaryDir folder;
    QString path = folder.filePath("Settings.ini");
    bool written = false;
    QSettings settings {path, ZelSettings::SettingsFormat()};
    bool validated = false;
    QString error;
    FakeApplication app {Host::StandAlone};
    QScrollArea drawer;
    std::unique_ptr<ZelSettingsPanel> page;
};

} // namespace

class TestStoredSettings : public QObject
{
    Q_OBJECT

    TestHome m_home;

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
        rows("Folders", Keys::CacheSize, {},
             {{"10", true}, {"10240", true}, {"2048", true}, {"abc", false}, {"-5", false}, {"999999", false}});
        rows("Folders", Keys::CacheDirectory, {}, {{cacheFolder, true}, {"/not/there", false}});
        rows("Folders", Keys::ScreenshotFolder, {}, {{"/shots, old", true}});

        const std::pair<QLatin1String, QLatin1String> limits[] = {
            {Keys::TesselationMaxFaceSag, Keys::TesselationMaxFaceSagSet},
            {Keys::TesselationMaxFaceLength, Keys::TesselationMaxFaceLengthSet},
        };
        for (const auto& [limit, set] : limits) {
            rows("Tessellation", limit, {{set, "true"}},
                 {{"0", true}, {"100", true}, {"0.001", true}, {"99.999", true}, {"0.1234567", false},
                  {"100.0004", false}, {"-1", false}, {"1e-3", false}});
        }
        rows("Tessellation", Keys::TesselationMaxFaceAngle, {{Keys::TesselationMaxFaceAngleSet, "true"}},
             {{"0", true}, {"359", true}, {"360", false}, {"4.5", false}});
        for (const QLatin1String flag : {Keys::TesselationQualitySet, Keys::TesselationMaxFaceSagSet,
                                         Keys::TesselationMaxFaceLengthSet, Keys::TesselationMaxFaceAngleSet}) {
            rows("Tessellation", flag, {}, {{"true", true}, {"false", true}, {"yes", false}});
        }
        rows("Tessellation", Keys::TesselationIsHighQuality, {{Keys::TesselationQualitySet, "true"}},
             {{"true", true}, {"false", true}, {"1", false}});

        rows("Simplification", Keys::SimplificationRatios, {},
             {{"1/1/0.01/0.01/0.01", true}, {"1/0.75/0.5/0.25/0.1", true}, {"1/0.333/0.25/0.1/0.05", false},
              {"1/0.5/0.25", false}, {"1/0.75,0.5/0.25/0.1/0.05", false}});

        const Values gpu = {{Keys::Engine, "deferred"}, {Keys::UseSSAO, "true"}};
        const Values software = {{Keys::Engine, "software"}};
        rows("Display", Keys::Engine, {}, {{"deferred", true}, {"software", true}, {"Software", false}});
        for (const auto& [memory, engine] : {std::pair(Keys::MaxGPUMemory, gpu), std::pair(Keys::MaxCPUMemory3D, gpu),
                                             std::pair(Keys::MaxCPUMemoryRaytracer, software)}) {
            rows("Display", memory, engine,
                 {{"134217728", true}, {"8489271296", true}, {"1610612736", true}, {"1610612737", false},
                  {"100000000000", false}});
        }
        rows("Display", Keys::LODTrianglesCap, gpu,
             {{"50000", true}, {"500000000", true}, {"49999", false}, {"500000001", false}});
        rows("Display", Keys::RaytracerCoreNumber, software,
             {{"1", true}, {QString::number(QThread::idealThreadCount()), true}, {"0", false}, {"1000", false}});
        for (const QString& quality : zel::kqDMRenderer::scQualityEnum)
            rows("Display", Keys::RaytracerQuality, software, {{quality, true}});
        rows("Display", Keys::RaytracerQuality, software, {{"Ultra", false}});
        for (const QString unit : {"0.001", "0.01", "0.1", "1", "10", "100", "1000"})
            rows("Display", Keys::SceneUnits, gpu, {{unit, true}});
        rows("Display", Keys::SceneUnits, gpu, {{"0.0015", false}, {"1e3", false}});
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
};

QTEST_MAIN(TestStoredSettings)
#include "tst_storedsettings.moc"
