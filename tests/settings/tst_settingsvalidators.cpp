#include "TestHome.h"
#include "ZelControlCenter.h"
#include "kqDMRenderer.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

#include <unistd.h>

using zel::SettingValidator;
using CC = zel::ZelControlCenter;

Q_DECLARE_METATYPE(zel::SettingValidator)

class SettingsValidatorsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QVERIFY(m_home.isValid() && m_folder.isValid()); }

    void repairs_data();
    void repairs();
    void malformedRatioDefaultFails();
    void folders_data();
    void folders();
    void uncreatableDefaultFails_data();
    void uncreatableDefaultFails();

private:
    TestHome m_home;
    QTemporaryDir m_folder;
};

void SettingsValidatorsTest::repairs_data()
{
    QTest::addColumn<SettingValidator>("validator");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("expected");

    // The default is "D" except for the ratios, whose default the kernel corrects to
    // "1/1/1/1/1".
    const auto row = [](const char* name, SettingValidator validator, const QString& value, const QString& expected) {
        QTest::newRow(name) << validator << value << expected;
    };
    const auto keep = [&row](const char* name, SettingValidator validator, const QString& value) {
        row(name, validator, value, value);
    };
    keep("bool", CC::ensureBool, "true");
    row("bool is case-sensitive", CC::ensureBool, "True", "D");
    keep("engine", CC::ensureEngine, "software");
    row("engine is case-sensitive", CC::ensureEngine, "Deferred", "D");
    row("settings version is stamped", CC::ensureSettingsVersion, "1", "D");

    row("log level below zero", CC::ensureLogLevel, "-5", "0");
    row("log level rewritten", CC::ensureLogLevel, "+3", "3");
    row("log level text", CC::ensureLogLevel, "verbose", "D");
    keep("positive integer max", CC::ensurePositiveInteger, "9223372036854775807");
    row("positive integer overflow", CC::ensurePositiveInteger, "9223372036854775808", "D");
    row("positive integer zero", CC::ensurePositiveInteger, "0", "D");
    keep("port 0", CC::ensurePortValue, "0");
    keep("port 65535", CC::ensurePortValue, "65535");
    row("port -1", CC::ensurePortValue, "-1", "D");
    row("port 65536", CC::ensurePortValue, "65536", "D");
    keep("cache size 10240", CC::ensureCacheSize, "10240");
    row("cache size 10241 is replaced", CC::ensureCacheSize, "10241", "D");
    row("cache size 9 is replaced", CC::ensureCacheSize, "9", "D");
    keep("simplification RAM 64 MiB", CC::ensureSimplificationRAM, "67108864");
    row("simplification RAM above 8096 MiB", CC::ensureSimplificationRAM, "8489271297", "D");
    row("simplification threads", CC::ensureSimplificationThreads, "8", "1");

    row("cores 0", CC::ensureCoreNumber, "0", "1");
    row("cores 1000", CC::ensureCoreNumber, "1000", QString::number(QThread::idealThreadCount()));
    row("cores text", CC::ensureCoreNumber, "all", "D");
    row("face angle -1", CC::ensureTesselationMaxFaceAngle, "-1", "0");
    row("face angle 360", CC::ensureTesselationMaxFaceAngle, "360", "359");
    row("face angle float", CC::ensureTesselationMaxFaceAngle, "4.5", "D");
    row("face length 250.5", CC::ensureTesselationMaxFaceLength, "250.5", "100");
    row("face length -3", CC::ensureTesselationMaxFaceLength, "-3", "0");
    row("face length 6 digits", CC::ensureTesselationMaxFaceLength, "0.1234567", "0.123457");
    row("face length nan", CC::ensureTesselationMaxFaceLength, "nan", "D");
    row("face length float overflow", CC::ensureTesselationMaxFaceLength, "1e39", "D");
    row("face sag -inf", CC::ensureTesselationMaxFaceSag, "-inf", "D");
    row("face sag 101", CC::ensureTesselationMaxFaceSag, "101", "100");
    row("triangle cap low", CC::ensureLODTrianglesCap, "1", "50000");
    row("triangle cap high", CC::ensureLODTrianglesCap, "600000000", "500000000");
    row("GPU memory low", CC::ensureMaxGPUMemory, "1", "134217728");
    row("GPU memory high", CC::ensureMaxGPUMemory, "99999999999", "8489271296");
    row("GPU memory text", CC::ensureMaxGPUMemory, "lots", "D");
    row("raytracer memory negative", CC::ensureMaxCPUMemoryRaytracer, "-1", "D");
    row("3D memory low", CC::ensureMaxCPUMemory3D, "0", "134217728");
    for (const QString& quality : zel::kqDMRenderer::scQualityEnum)
        keep(qPrintable("quality " + quality), CC::ensureRaytracerQuality, quality);
    row("quality is case-sensitive", CC::ensureRaytracerQuality, zel::kqDMRenderer::scQualityEnum[0].toUpper(), "D");

    row("unit 0.0105", CC::ensureSceneUnit, "0.0105", "0.01");
    row("unit 0.0019 is a millimetre", CC::ensureSceneUnit, "0.0019", "0.001");
    row("unit 0 is none", CC::ensureSceneUnit, "0", "D");
    row("unit 1e3", CC::ensureSceneUnit, "1e3", "1000");
    row("unit 5", CC::ensureSceneUnit, "5", "D");
    keep("ip highest", CC::ensureIpOrHostName, "255.255.255.255");
    row("ip part 256", CC::ensureIpOrHostName, "192.168.1.256", "D");
    keep("three numbers are a host name", CC::ensureIpOrHostName, "256.1.1");
    keep("host with empty labels", CC::ensureIpOrHostName, "a..b-c.");
    row("host underscore", CC::ensureIpOrHostName, "my_host", "D");
    row("host non-ASCII", CC::ensureIpOrHostName, "m\u00fcller", "D");
    row("host empty", CC::ensureIpOrHostName, "", "D");
    keep("host 255 characters", CC::ensureIpOrHostName, QString(255, 'a'));
    row("host 256 characters", CC::ensureIpOrHostName, QString(256, 'a'), "D");

    keep("ratios", CC::ensureSimplificationRatios, "1/0.5/0.25/0.1/0.05");
    row("ratios empty part skipped", CC::ensureSimplificationRatios, "1//0.5/0.25/0.1/0.05", "1/0.5/0.25/0.1/0.05");
    row("ratios nan skipped", CC::ensureSimplificationRatios, "1/nan/0.5/0.25/0.1/0.05", "1/0.5/0.25/0.1/0.05");
    row("ratios corrected", CC::ensureSimplificationRatios, "1.5/0.5/0.25/0.1/0.001", "1/0.5/0.25/0.1/0.01");
    row("three ratios take the default", CC::ensureSimplificationRatios, "1/0.5/0.25", "1/1/1/1/1");
}

void SettingsValidatorsTest::repairs()
{
    QFETCH(SettingValidator, validator);
    QFETCH(QString, value);
    QFETCH(QString, expected);

    const QString defaultValue = validator == &CC::ensureSimplificationRatios ? "2/3/4/5/6" : "D";
    QString error = "untouched";
    QVERIFY(validator("key", defaultValue, value, error));
    QCOMPARE(value, expected);
    QCOMPARE(error, "untouched");
}

void SettingsValidatorsTest::malformedRatioDefaultFails()
{
    QString value = "1/0.5";
    QString error = "untouched";
    QVERIFY(!CC::ensureSimplificationRatios("key", "1/0.5/x", value, error));
    QCOMPARE(error, "untouched");
}

void SettingsValidatorsTest::folders_data()
{
    QTest::addColumn<SettingValidator>("validator");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<QString>("created");

    // Values and defaults are relative to the temporary folder; the default is "new/x\".
    QTest::newRow("cache folder kept") << &CC::ensureDMCacheFolder << "kept\\" << "kept" << "";
    QTest::newRow("cache folder missing") << &CC::ensureDMCacheFolder << "gone" << "new/x" << "new/x";
    QTest::newRow("log file kept") << &CC::ensureFile << "kept\\log.txt" << "kept/log.txt" << "";
    QTest::newRow("log file missing") << &CC::ensureFile << "gone/log.txt" << "new/x" << "new";
    // The temp folder's default is created even when the value is usable, and replaces
    // a missing value as it stands.
    QTest::newRow("temp folder kept") << &CC::ensureTmpFolder << "kept/" << "kept" << "new/x\\";
    QTest::newRow("temp folder missing") << &CC::ensureTmpFolder << "" << "new/x\\" << "new/x\\";
}

void SettingsValidatorsTest::folders()
{
    QFETCH(SettingValidator, validator);
    QFETCH(QString, value);
    QFETCH(QString, expected);
    QFETCH(QString, created);

    const QDir base(m_folder.path());
    QVERIFY(base.mkpath("kept"));
    QVERIFY(QDir(base.filePath("new")).removeRecursively());
    const auto inBase = [&base](const QString& path) { return path.isEmpty() ? path : base.filePath(path); };

    value = inBase(value);
    QString error;
    QVERIFY(validator("key", base.filePath("new/x\\"), value, error));
    QCOMPARE(value, inBase(expected));
    QCOMPARE(base.exists("new"), !created.isEmpty());
    QVERIFY(created.isEmpty() || base.exists(created));
    QVERIFY(!QFileInfo(value).isFile()); // the log file is left to the logger
}

void SettingsValidatorsTest::uncreatableDefaultFails_data()
{
    QTest::addColumn<SettingValidator>("validator");
    QTest::addColumn<QString>("parent");
    QTest::addColumn<QString>("message");

    const QString file = m_folder.filePath("file");
    QVERIFY(QFile(file).open(QIODevice::WriteOnly));
    const QString readOnly = m_folder.filePath("readonly");
    QVERIFY(QDir().mkpath(readOnly));
    QVERIFY(QFile::setPermissions(readOnly, QFile::ReadOwner | QFile::ExeOwner));

    for (const QString& parent : {file, readOnly}) {
        const QByteArray where = QFileInfo(parent).fileName().toLatin1();
        QTest::addRow("%s, cache folder", where.constData())
            << &CC::ensureDMCacheFolder << parent
            << "Could not use the 3D database cache, folder \"%1\" could not be created";
        QTest::addRow("%s, log file", where.constData())
            << &CC::ensureFile << parent << "Could not use the Torvane log file, file \"%1\" could not be created";
        QTest::addRow("%s, temp folder", where.constData())
            << &CC::ensureTmpFolder << parent << "Could not create compulsory folder \"%1\"";
    }
}

void SettingsValidatorsTest::uncreatableDefaultFails()
{
    QFETCH(SettingValidator, validator);
    QFETCH(QString, parent);
    QFETCH(QString, message);

    if (QFileInfo(parent).isDir() && geteuid() == 0)
        QSKIP("root can write into a read-only folder");
    const QString defaultValue = parent + "/sub/target";
    QString value = m_folder.filePath("missing/target");
    QString error;
    QVERIFY(!validator("key", defaultValue, value, error));
    QCOMPARE(error, message.arg(defaultValue));
}

QTEST_GUILESS_MAIN(SettingsValidatorsTest)
#include "tst_settingsvalidators.moc"
