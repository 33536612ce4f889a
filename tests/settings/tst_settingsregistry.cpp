#include "TestHome.h"
#include "ZelControlCenter.h"

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

using zel::ZelControlCenter;

namespace {

// Validators and end checks are plain functions, so what they observe lives here. End
// checks stay registered for the rest of the program: only the order test adds
// secondCheck, and silentCheck observes nothing.
QStringList seen;
QString keyOnDiskAtEndCheck;
bool firstCheckFails = false;

bool recordAndUpperCase(const QString& key, const QString&, QString& value, QString&)
{
    seen.append(key);
    value = value.toUpper();
    return true;
}

bool failWithBoom(const QString& key, const QString&, QString&, QString& error)
{
    seen.append(key);
    error = "boom";
    return false;
}

bool firstCheck(QSettings& settings, QString& error)
{
    seen.append("first");
    keyOnDiskAtEndCheck = QSettings(settings.fileName(), QSettings::IniFormat).value("b").toString();
    if (firstCheckFails)
        error = "first failed";
    return !firstCheckFails;
}

bool secondCheck(QSettings&, QString&)
{
    seen.append("second");
    return true;
}

bool silentCheck(QSettings&, QString&)
{
    return true;
}

QByteArray fileBytes(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class SettingsRegistryTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void firstRegistrationWins();
    void nullAndEmptyDefaultsDiffer();
    void passVisitsKeysInOrderAndWritesEveryKey();
    void failingValidatorStopsBeforeSyncAndEndChecks();
    void endChecksRunInOrderOnceAfterSync();
    void cleanupFolder_data();
    void cleanupFolder();
    void cleanupRessourcesReleasesImages();

private:
    QString iniPath() const { return m_folder.filePath("Settings.ini"); }

    TestHome m_home;
    QTemporaryDir m_folder;
};

void SettingsRegistryTest::init()
{
    QVERIFY(m_home.isValid() && m_folder.isValid());
    QFile::remove(iniPath());
    ZelControlCenter::ClearSettingsValues();
    seen.clear();
    keyOnDiskAtEndCheck.clear();
    firstCheckFails = false;
}

void SettingsRegistryTest::cleanup()
{
    ZelControlCenter::ClearSettingsValues();
}

void SettingsRegistryTest::firstRegistrationWins()
{
    QVERIFY(ZelControlCenter::RegisterSetting("engine", "deferred", ZelControlCenter::ensureEngine));
    QVERIFY(!ZelControlCenter::RegisterSetting("engine", "software", ZelControlCenter::noOp));
    const auto& registry = ZelControlCenter::GetDefaultSettingsValues();
    QCOMPARE(registry.size(), std::size_t(1));
    QCOMPARE(registry.at("engine").first, "deferred");
    QVERIFY(registry.at("engine").second == &ZelControlCenter::ensureEngine);

    // Clearing empties the registry only; afterwards the first registration wins again.
    ZelControlCenter::RegisterEndCheckFunction(silentCheck);
    ZelControlCenter::ClearSettingsValues();
    QVERIFY(registry.empty());
    QVERIFY(!ZelControlCenter::RegisterEndCheckFunction(silentCheck));
    QVERIFY(ZelControlCenter::RegisterSetting("engine", "software", ZelControlCenter::noOp));
    QCOMPARE(ZelControlCenter::GetDefaultSettingsValue("engine"), "software");
}

void SettingsRegistryTest::nullAndEmptyDefaultsDiffer()
{
    ZelControlCenter::RegisterSetting("empty", "", ZelControlCenter::noOp);
    ZelControlCenter::RegisterSetting("null", QString(), ZelControlCenter::noOp);

    QVERIFY(!ZelControlCenter::GetDefaultSettingsValue("empty").isNull());
    QVERIFY(ZelControlCenter::GetDefaultSettingsValue("null").isNull());
    QVERIFY(ZelControlCenter::GetDefaultSettingsValue("unknown").isNull());
}

void SettingsRegistryTest::passVisitsKeysInOrderAndWritesEveryKey()
{
    // Registered out of order; "A" < "a/x" < "b" < "c" in code units.
    for (const QString key : {"c", "b", "a/x", "A"})
        ZelControlCenter::RegisterSetting(key, "default " + key, recordAndUpperCase);
    QSettings(iniPath(), QSettings::IniFormat).setValue("b", "stored");

    QSettings settings(iniPath(), QSettings::IniFormat);
    QString error;
    QVERIFY(ZelControlCenter::EnsureSettings(settings, error));
    QCOMPARE(seen, QStringList({"A", "a/x", "b", "c"}));

    const QSettings written(iniPath(), QSettings::IniFormat);
    QCOMPARE(written.value("A"), "DEFAULT A");
    QCOMPARE(written.value("a/x"), "DEFAULT A/X");
    QCOMPARE(written.value("b"), "STORED");
    QCOMPARE(written.value("c"), "DEFAULT C");
}

void SettingsRegistryTest::failingValidatorStopsBeforeSyncAndEndChecks()
{
    ZelControlCenter::RegisterEndCheckFunction(firstCheck);
    ZelControlCenter::RegisterSetting("k1", "false", ZelControlCenter::ensureBool);
    ZelControlCenter::RegisterSetting("k2", "two", recordAndUpperCase);
    ZelControlCenter::RegisterSetting("k3", QString(), failWithBoom);
    ZelControlCenter::RegisterSetting("k4", QString(), recordAndUpperCase);
    QSettings(iniPath(), QSettings::IniFormat).setValue("k1", "garbage");
    const QByteArray before = fileBytes(iniPath());

    QSettings settings(iniPath(), QSettings::IniFormat);
    QString error;
    QVERIFY(!ZelControlCenter::EnsureSettings(settings, error));
    QCOMPARE(error, "boom");
    QCOMPARE(seen, QStringList({"k2", "k3"}));
    // The keys before the failure are repaired in memory; the file is untouched.
    QCOMPARE(settings.value("k1"), "false");
    QCOMPARE(settings.value("k2"), "TWO");
    QVERIFY(!settings.contains("k4"));
    QCOMPARE(fileBytes(iniPath()), before);
}

void SettingsRegistryTest::endChecksRunInOrderOnceAfterSync()
{
    ZelControlCenter::RegisterEndCheckFunction(firstCheck);
    ZelControlCenter::RegisterEndCheckFunction(secondCheck);
    QVERIFY(!ZelControlCenter::RegisterEndCheckFunction(firstCheck));
    ZelControlCenter::RegisterSetting("b", "written", ZelControlCenter::noOp);

    QSettings settings(iniPath(), QSettings::IniFormat);
    QString error;
    QVERIFY(ZelControlCenter::EnsureSettings(settings, error));
    QCOMPARE(seen, QStringList({"first", "second"}));
    QCOMPARE(keyOnDiskAtEndCheck, "written");

    seen.clear();
    firstCheckFails = true;
    QVERIFY(!ZelControlCenter::EnsureSettings(settings, error));
    QCOMPARE(error, "first failed");
    QCOMPARE(seen, QStringList({"first"}));
}

void SettingsRegistryTest::cleanupFolder_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("expected");
    QTest::newRow("windows folder") << "C:\\data\\" << "C:/data";
    QTest::newRow("only one trailing slash goes") << "a//" << "a/";
    QTest::newRow("mixed separators") << "/home\\me/x" << "/home/me/x";
    QTest::newRow("root") << "/" << "";
}

void SettingsRegistryTest::cleanupFolder()
{
    QFETCH(QString, path);
    QFETCH(QString, expected);
    ZelControlCenter::CleanupFolder(path);
    QCOMPARE(path, expected);
}

void SettingsRegistryTest::cleanupRessourcesReleasesImages()
{
    // Nothing else in this program needs the images.
    QVERIFY(QDir(":/controlCenter").exists());
    ZelControlCenter::CleanupRessources();
    QVERIFY(!QDir(":/controlCenter").exists());
}

QTEST_GUILESS_MAIN(SettingsRegistryTest)
#include "tst_settingsregistry.moc"
