#include "SettingsFiles.h"
#include "TestHome.h"
#include "ZelSettingRange.h"
#include "ZelSettings.h"
#include "kqSystem.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

#include <cmath>

#include <sys/stat.h>
#include <unistd.h>

using zel::SettingRange;
using zel::SettingValidator;
using CC = zel::ZelSettings;

Q_DECLARE_METATYPE(zel::SettingValidator)

namespace {

// Validators and end checks are plain functions, so what they observe lives here. End
// checks stay registered for the rest of the program.
QStringList seen;
QByteArray onDiskAtEndCheck;
bool endCheckFails = false;

// Upper-cases every value; fails at the key "boom".
bool record(const QString& key, const QString&, QString& value, QString& error)
{
    seen.append(key);
    value = value.toUpper();
    error = "boom";
    return key != "boom";
}

bool firstCheck(QSettings& settings, QString& error)
{
    seen.append("first");
    onDiskAtEndCheck = fileBytes(settings.fileName());
    error = "first failed";
    return !endCheckFails;
}

// Table rows for one validator: (input, expected output), where "=" keeps the input and
// a null text means the validator fails.
void rows(const char* name, SettingValidator validator, std::initializer_list<std::pair<QString, QString>> cases)
{
    for (const auto& [value, expected] : cases)
        QTest::addRow("%s: %s", name, qPrintable(value.size() > 24 ? QString::number(value.size()) : value))
            << validator << value << (expected == "=" ? value : expected);
}

} // namespace

class SettingsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void registryAndPass();
    void catalogue();
    void pageDefaults();
    void validators_data();
    void validators();
    void validatorsKeepTheirRange_data();
    void validatorsKeepTheirRange();
    void folderValidators_data();
    void folderValidators();
    void sharedTemporaryFolder();

private:
    QString iniPath() const { return m_folder.filePath("Settings.ini"); }

    TestHome m_home;
    QTemporaryDir m_folder;
};

void SettingsTest::init()
{
    QVERIFY(m_home.isValid() && m_folder.isValid());
    QFile::remove(iniPath());
    CC::ClearSettingsValues();
    seen.clear();
    endCheckFails = false;
}

void SettingsTest::registryAndPass()
{
    QVERIFY(CC::RegisterSetting("b", "old", CC::noOp));
    QVERIFY(!CC::RegisterSetting("b", "other", record));
    CC::RegisterSetting("empty", "", CC::noOp);
    CC::RegisterSetting("null", QString(), CC::noOp);
    QVERIFY(!CC::GetDefaultSettingsValue("empty").isNull());
    QVERIFY(CC::GetDefaultSettingsValue("null").isNull());
    // Clearing empties the registry but keeps the end checks; a repeated one is refused.
    CC::RegisterEndCheckFunction(firstCheck);
    CC::ClearSettingsValues();
    CC::RegisterEndCheckFunction([](QSettings&, QString&) { return seen.append("second"), true; });
    QVERIFY(!CC::RegisterEndCheckFunction(firstCheck));

    // Registered out of order; "A" < "a/x" < "b" < "c" in code units. Only "b" is in the file;
    // "b" registers anew after the clearing.
    for (const QString key : {"c", "b", "a/x", "A"})
        QVERIFY(CC::RegisterSetting(key, "default " + key, record));
    QSettings(iniPath(), QSettings::IniFormat).setValue("b", "stored");
    QSettings settings(iniPath(), CC::SettingsFormat());
    QString error;
    QVERIFY(CC::EnsureSettings(settings, error));
    QCOMPARE(seen, QStringList({"A", "a/x", "b", "c", "first", "second"}));
    QVERIFY(onDiskAtEndCheck.contains("b=STORED")); // synced before the end checks
    QCOMPARE(iniValues(iniPath()),
             QVariantMap({{"A", "DEFAULT A"}, {"a/x", "DEFAULT A/X"}, {"b", "STORED"}, {"c", "DEFAULT C"}}));

    seen.clear();
    endCheckFails = true;
    QVERIFY(!CC::EnsureSettings(settings, error));
    QCOMPARE(error, "first failed");
    QCOMPARE(seen, QStringList({"A", "a/x", "b", "c", "first"}));

    // A failing validator stops before the later keys, the sync and the end checks; the
    // keys before it are repaired in memory only.
    CC::RegisterSetting("boom", QString(), record);
    settings.setValue("b", "lower");
    const QByteArray before = fileBytes(iniPath());
    seen.clear();
    QVERIFY(!CC::EnsureSettings(settings, error));
    QCOMPARE(error, "boom");
    QCOMPARE(seen, QStringList({"A", "a/x", "b", "boom"}));
    QCOMPARE(settings.value("b"), "LOWER");
    QCOMPARE(fileBytes(iniPath()), before);
}

void SettingsTest::catalogue()
{
    // An embedding application may register one of the library's keys first; later
    // registrations of the catalogue change nothing. The platform may add a separator.
    CC::RegisterSetting("engine", "software", CC::noOp);
    CC::InitDefaultSettingsValues("Viewer\\");
    CC::InitDefaultSettingsValues("Second");
    const QString user = QString::fromStdString(kq::kqSystemUtils::GetCurrentUserNameUtf8());
    const QString logFile = m_home.configPath() + "/Viewer/log.txt";
    QCOMPARE(CC::GetDefaultSettingsValue("engine"), "software");
    QCOMPARE(CC::GetDefaultSettingsValue("Logging/logFile"), logFile);
    QCOMPARE(CC::GetDefaultSettingsValue("DBCache/cacheDirectory"), m_home.tempPath() + "/Viewer/" + user);

    // Saved by a Windows editor: byte-order mark right before the first key, CRLF, UTF-8,
    // escaped backslashes, lists and keys nobody registered. The engine keeps its first validator.
    const QString cacheFolder = m_folder.filePath("Gr\u00fc\u00dfe/cache");
    QVERIFY(QDir().mkpath(cacheFolder));
    const QByteArray contents = "\xEF\xBB\xBF" "engine=Deferred\r\nsettingsVersion=1\r\nenablediag=yes\r\n"
                                "debuglogtypeblacklist=debug,\"warning, info\"\r\nrecentFiles=a.step, \"b, c.step\"\r\n"
                                "[Caf\xC3\xA9]\r\nMen\xC3\xBC=\xE2\x82\xAC 5\r\n[DBCache]\r\ncacheSize=lots\r\n"
                                "cacheDirectory=" + cacheFolder.toUtf8().replace('/', "\\\\") + "\\\\\r\n"
        + "[Logging]\r\nlogFile=" + m_folder.filePath("missing/log.txt").toUtf8() + "\r\n";
    QFile file(iniPath());
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(contents) == contents.size() && file.flush());
    QVariantMap expected = iniValues(iniPath());
    QCOMPARE(expected.size(), 9);
    expected["settingsVersion"] = "2";
    expected["enablediag"] = "false";
    expected["DBCache/cacheSize"] = "4096";
    expected["DBCache/cacheDirectory"] = cacheFolder;
    expected["Logging/logFile"] = logFile;
    QSettings settings(iniPath(), CC::SettingsFormat());
    QString error;
    QVERIFY(CC::EnsureSettings(settings, error));
    QCOMPARE(iniValues(iniPath()), expected);

    // The next start finds nothing to repair and leaves the file alone: a rewrite would
    // replace it with a new file.
    const auto inode = [this] {
        struct stat status {};
        return ::stat(QFile::encodeName(iniPath()).constData(), &status) == 0 ? status.st_ino : 0;
    };
    const ino_t repaired = inode();
    QSettings nextStart(iniPath(), CC::SettingsFormat());
    QVERIFY(CC::EnsureSettings(nextStart, error));
    QCOMPARE(inode(), repaired);
}

void SettingsTest::pageDefaults()
{
    CC::InitDefaultSettingsValues(CC::GetApplicationName());
    CC::InitPageSettingsValues();
    QCOMPARE(CC::GetDefaultSettingsValue("screenshot/ImageFolder"), m_home.path() + "/home/Pictures/Torvane");
    QCOMPARE(CC::GetDefaultSettingsValue("raytracer/coreNumber"), QString::number(QThread::idealThreadCount()));

    // What a new user sees is already valid: the pass would store every default as it is.
    // Every key says what it accepts, but for the two free texts.
    QStringList anyText;
    for (const auto& [key, entry] : CC::GetDefaultSettingsValues()) {
        QString value = entry.first;
        QString error;
        QVERIFY2(entry.second(key, entry.first, value, error), qPrintable(key));
        QVERIFY2(value == entry.first, qPrintable(key + ": " + value));
        if (CC::GetSettingRange(key).kind == SettingRange::Kind::Any)
            anyText.append(key);
    }
    QCOMPARE(anyText, (QStringList{"debuglogtypeblacklist", "language"}));
}

void SettingsTest::validators_data()
{
    QTest::addColumn<SettingValidator>("validator");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("expected");

    // The default is "D"; the ratios' default "2/3/4/5/6" is corrected by the kernel.
    rows("log level", CC::ensureLogLevel, {{"-1", "0"}, {"+3", "3"}, {"verbose", "D"}});
    rows("positive", CC::ensurePositiveInteger,
         {{"0", "D"}, {"9223372036854775807", "="}, {"9223372036854775808", "D"}});
    rows("port", CC::ensurePortValue, {{"-1", "D"}, {"0", "="}, {"65535", "="}, {"65536", "D"}});
    // The size the viewer accepts, or the default: never cut to a nearer number.
    rows("cache size", CC::ensureCacheSize, {{"9", "D"}, {"10241", "D"}, {"abc", "D"}, {" 2048", "2048"}});
    rows("simplification RAM", CC::ensureSimplificationRAM,
         {{"67108863", "D"}, {"67108864", "="}, {"8489271296", "="}, {"8489271297", "D"}});
    rows("threads", CC::ensureSimplificationThreads, {{"8", "1"}});
    rows("cores", CC::ensureCoreNumber, {{"0", "1"}, {"1000", QString::number(QThread::idealThreadCount())}});
    rows("face angle", CC::ensureTesselationMaxFaceAngle, {{"-1", "0"}, {"360", "359"}, {"4.5", "D"}});
    // To the three decimals the page shows.
    rows("face length", CC::ensureTesselationMaxFaceLength,
         {{"0.1234567", "0.123"}, {"0.0126", "0.013"}, {"99.9996", "100"}, {"nan", "D"}});
    rows("face sag", CC::ensureTesselationMaxFaceSag,
         {{"-0.0001", "0"}, {"101", "100"}, {"-inf", "0"}, {"1e-3", "0.001"}});
    rows("triangle cap", CC::ensureLODTrianglesCap, {{"49999", "50000"}, {"500000001", "500000000"}});
    for (const auto memory : {CC::ensureMaxGPUMemory, CC::ensureMaxCPUMemoryRaytracer, CC::ensureMaxCPUMemory3D})
        rows("memory", memory,
             {{"-1", "D"}, {"134217727", "134217728"}, {"8489271297", "8489271296"}, {"1610612737", "1610612736"},
              {"1611137024", "1611661312"}});
    rows("unit", CC::ensureSceneUnit, {{"0.0019", "0.001"}, {"0", "D"}, {"1e3", "1000"}, {"5", "D"}});
    rows("host", CC::ensureIpOrHostName,
         {{"255.255.255.255", "="}, {"192.168.1.256", "D"}, {"256.1.1", "="}, {"a..b-c.", "="}, {"my_host", "D"},
          {"m\u00fcller", "D"}, {"", "D"}, {QString(255, 'a'), "="}, {QString(256, 'a'), "D"}});
    // The kernel's own tests cover how ratios out of order or range are corrected.
    rows("ratios", CC::ensureSimplificationRatios,
         {{"1//0.5/0.25/0.1/0.05/", "1/0.5/0.25/0.1/0.05"}, {"1/nan/0.25/0.1/0.05", "1/1/0.25/0.1/0.05"},
          {"1/0.333/0.25/0.1/0.05", "1/0.33/0.25/0.1/0.05"}, {"1/0.5/0.25", "1/1/1/1/1"}, {"1/0.5", QString()}});
}

void SettingsTest::validators()
{
    QFETCH(SettingValidator, validator);
    QFETCH(QString, value);
    QFETCH(QString, expected);
    // Only a ratios default that gives no five ratios makes a validator here fail.
    const QString defaultValue =
        validator != &CC::ensureSimplificationRatios ? "D" : expected.isNull() ? "1/0.5/x" : "2/3/4/5/6";
    QString error = "untouched";
    QCOMPARE(validator("key", defaultValue, value, error), !expected.isNull());
    QVERIFY(expected.isNull() || value == expected);
    QCOMPARE(error, "untouched");
}

// For every key of the catalogue: values at the edges of its range pass its validator
// unchanged, values just beyond them (or with a digit too many) are repaired.
void SettingsTest::validatorsKeepTheirRange_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("value");
    QTest::addColumn<bool>("kept");
    CC::ClearSettingsValues();
    CC::InitDefaultSettingsValues(CC::GetApplicationName());
    CC::InitPageSettingsValues();
    const auto number = [](double value) { return QString::number(value, 'f', QLocale::FloatingPointShortest); };
    for (const auto& [key, entry] : CC::GetDefaultSettingsValues()) {
        const SettingRange range = CC::GetSettingRange(key);
        const QString minimum = number(range.minimum);
        const QString maximum = number(range.maximum);
        const double digit = std::pow(10.0, -range.decimals);
        QStringList kept;
        QStringList repaired;
        switch (range.kind) {
        case SettingRange::Kind::Boolean:
            kept = QStringList{"true", "false"};
            repaired = QStringList{"yes"};
            break;
        case SettingRange::Kind::Integer:
            kept = QStringList{minimum, maximum};
            if (range.minimum + range.step <= range.maximum)
                kept.append(number(range.minimum + range.step));
            repaired = QStringList{number(range.minimum - 1), number(range.maximum + 1)};
            if (range.step > 1)
                repaired.append(number(range.minimum + 1));
            break;
        case SettingRange::Kind::Decimal:
            kept = QStringList{minimum, maximum, number(range.minimum + digit)};
            repaired = QStringList{number(range.maximum + 1), number(range.minimum + digit / 10)};
            break;
        case SettingRange::Kind::Choice:
            kept = range.choices;
            repaired = QStringList{range.choices.first() + "x"};
            break;
        case SettingRange::Kind::Ratios:
            kept = QStringList{QStringList{maximum, maximum, minimum, minimum, minimum}.join('/')};
            repaired = QStringList{QStringList{maximum, maximum, number(range.minimum + digit / 10), minimum,
                                               minimum}.join('/')};
            break;
        case SettingRange::Kind::Version:
            kept = QStringList{minimum};
            repaired = QStringList{number(range.minimum + 1)};
            break;
        case SettingRange::Kind::Any:
        case SettingRange::Kind::Folder:
        case SettingRange::Kind::File:
            break;
        }
        for (const QString& value : std::as_const(kept))
            QTest::addRow("%s: %s kept", qPrintable(key), qPrintable(value)) << key << value << true;
        for (const QString& value : std::as_const(repaired))
            QTest::addRow("%s: %s repaired", qPrintable(key), qPrintable(value)) << key << value << false;
    }
}

void SettingsTest::validatorsKeepTheirRange()
{
    QFETCH(QString, key);
    QFETCH(QString, value);
    QFETCH(bool, kept);
    CC::InitDefaultSettingsValues(CC::GetApplicationName());
    CC::InitPageSettingsValues();
    const auto& [defaultValue, validator] = CC::GetDefaultSettingsValues().at(key);
    QString validated = value;
    QString error;
    QVERIFY(validator(key, defaultValue, validated, error));
    QCOMPARE(validated == value, kept);
}

void SettingsTest::folderValidators_data()
{
    QTest::addColumn<SettingValidator>("validator");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("defaultValue");
    QTest::addColumn<QString>("expected"); // the value written, or the error about the default

    // Paths are relative to the temporary folder, which holds the folder "kept" and the file "file".
    const QString cache = "Could not use the 3D database cache, folder \"%1\" could not be created";
    QTest::newRow("cache folder kept") << &CC::ensureDMCacheFolder << "kept\\" << "new/x" << "kept";
    QTest::newRow("cache folder missing") << &CC::ensureDMCacheFolder << "gone" << "new/x\\" << "new/x";
    QTest::newRow("cache folder under a file") << &CC::ensureDMCacheFolder << "gone" << "file/x" << cache;
    QTest::newRow("cache folder read-only") << &CC::ensureDMCacheFolder << "gone" << "readonly/x" << cache;
    QTest::newRow("log file kept") << &CC::ensureFile << "kept\\log.txt" << "new/x" << "kept/log.txt";
    QTest::newRow("log file missing") << &CC::ensureFile << "gone/log.txt" << "new/x\\" << "new/x";
    QTest::newRow("log file under a file") << &CC::ensureFile << "gone/log.txt" << "file/x/log.txt"
                                           << "Could not use the Torvane log file, file \"%1\" could not be created";
    // The temp folder's default is created even when the value is usable, and replaces
    // a missing value as it stands.
    QTest::newRow("temp folder kept") << &CC::ensureTmpFolder << "kept/" << "new/x" << "kept";
    QTest::newRow("temp folder missing") << &CC::ensureTmpFolder << "" << "new/x\\" << "new/x\\";
    QTest::newRow("temp folder under a file")
        << &CC::ensureTmpFolder << "kept" << "file/x" << "Could not create compulsory folder \"%1\"";
}

void SettingsTest::folderValidators()
{
    QFETCH(SettingValidator, validator);
    QFETCH(QString, value);
    QFETCH(QString, defaultValue);
    QFETCH(QString, expected);
    const QDir base(m_folder.path());
    const auto inBase = [&base](const QString& path) { return path.isEmpty() ? path : base.filePath(path); };
    QVERIFY(base.mkpath("kept") && base.mkpath("readonly") && QDir(base.filePath("new")).removeRecursively());
    QVERIFY(QFile(base.filePath("file")).open(QIODevice::WriteOnly)
            && QFile::setPermissions(base.filePath("readonly"), QFile::ReadOwner | QFile::ExeOwner));
    if (defaultValue.startsWith("readonly") && geteuid() == 0)
        QSKIP("root can write into a read-only folder");

    // Through the pass, behind the catalogue's keys.
    CC::InitDefaultSettingsValues("Viewer");
    CC::RegisterSetting("folder", inBase(defaultValue), validator);
    QSettings(iniPath(), QSettings::IniFormat).setValue("folder", inBase(value));
    const QByteArray before = fileBytes(iniPath());
    QSettings settings(iniPath(), CC::SettingsFormat());
    QString error;
    QCOMPARE(CC::EnsureSettings(settings, error), !expected.contains("%1"));
    if (expected.contains("%1")) {
        QCOMPARE(error, expected.arg(inBase(defaultValue)));
        QCOMPARE(fileBytes(iniPath()), before);
        return;
    }
    value = QSettings(iniPath(), QSettings::IniFormat).value("folder").toString();
    QCOMPARE(value, inBase(expected));
    QCOMPARE(base.exists("new"), validator == &CC::ensureTmpFolder || expected.startsWith("new"));
    QCOMPARE(QFileInfo::exists(value), validator != &CC::ensureFile); // the logger creates its file
}

void SettingsTest::sharedTemporaryFolder()
{
    // Whoever starts first creates the application's folder in the temporary folder;
    // every other user must still be able to add a cache folder of their own to it.
    const auto mode = [this](const QString& name) {
        struct stat status {};
        const QByteArray path = QFile::encodeName(m_home.tempPath() + '/' + name);
        return ::stat(path.constData(), &status) == 0 ? status.st_mode & 07777 : 0u;
    };
    QVERIFY(QDir(m_home.tempPath()).mkdir("Someone's"));
    const unsigned existingMode = mode("Someone's");
    for (const QString application : {"Shared", "Someone's"}) {
        CC::ClearSettingsValues();
        CC::InitDefaultSettingsValues(application);
        QSettings settings(iniPath(), CC::SettingsFormat());
        QString error;
        QVERIFY2(CC::EnsureSettings(settings, error), qPrintable(error));
        QFile::remove(iniPath());
    }
    QCOMPARE(mode("Shared"), unsigned(S_IRWXU | S_IRWXG | S_IRWXO | S_ISVTX));
    // A folder that was there already is not ours to open up.
    QCOMPARE(mode("Someone's"), existingMode);
}

QTEST_GUILESS_MAIN(SettingsTest)
#include "tst_settingsregistry.moc"
