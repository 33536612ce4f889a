#include "TestHome.h"
#include "ZelControlCenter.h"
#include "kqSystem.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include <unistd.h>

using zel::ZelControlCenter;

namespace {

QByteArray fileBytes(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(bytes) == bytes.size();
}

// What a fresh reader sees, for the keys nobody registered.
QVariantMap unregisteredValues(const QString& path)
{
    const QSettings settings(path, QSettings::IniFormat);
    const auto& registry = ZelControlCenter::GetDefaultSettingsValues();
    QVariantMap values;
    for (const QString& key : settings.allKeys()) {
        if (registry.count(key) == 0)
            values.insert(key, settings.value(key));
    }
    return values;
}

bool runPass(const QString& path, QString& error)
{
    QSettings settings(path, QSettings::IniFormat);
    return ZelControlCenter::EnsureSettings(settings, error);
}

} // namespace

class SettingsCatalogueTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { ZelControlCenter::ClearSettingsValues(); }

    void foldersComeFromThePlatform_data();
    void foldersComeFromThePlatform();
    void firstRegistrationWins();
    void emptyFileGetsEveryDefault();
    void handEditedFileKeepsEveryValue();
    void uncreatableCacheFolderLeavesFileAlone_data();
    void uncreatableCacheFolderLeavesFileAlone();

private:
    QString iniPath() const { return m_folder.filePath("Settings.ini"); }
    QString logFile() const { return m_home.configPath() + "/Viewer/log.txt"; }

    TestHome m_home;
    QTemporaryDir m_folder;
};

void SettingsCatalogueTest::init()
{
    QVERIFY(m_home.isValid() && m_folder.isValid());
    QFile::remove(iniPath());
    ZelControlCenter::ClearSettingsValues();
}

void SettingsCatalogueTest::foldersComeFromThePlatform_data()
{
    QTest::addColumn<QString>("applicationName");
    QTest::newRow("plain") << "Viewer";
    QTest::newRow("trailing backslash") << "Viewer\\";
    QTest::newRow("trailing slash") << "Viewer/";
}

void SettingsCatalogueTest::foldersComeFromThePlatform()
{
    QFETCH(QString, applicationName);
    ZelControlCenter::InitDefaultSettingsValues(applicationName);

    const QString user = QString::fromStdString(kq::kqSystemUtils::GetCurrentUserNameUtf8());
    QCOMPARE(ZelControlCenter::GetDefaultSettingsValue("Logging/logFile"), logFile());
    QCOMPARE(ZelControlCenter::GetDefaultSettingsValue("DBCache/cacheDirectory"), m_home.tempPath() + "/Viewer/" + user);
}

void SettingsCatalogueTest::firstRegistrationWins()
{
    // An embedding application may register one of the library's keys first.
    ZelControlCenter::RegisterSetting("engine", "software", ZelControlCenter::ensureEngine);
    ZelControlCenter::InitDefaultSettingsValues("First");
    const auto registered = ZelControlCenter::GetDefaultSettingsValues();
    ZelControlCenter::InitDefaultSettingsValues("Second");

    QVERIFY(ZelControlCenter::GetDefaultSettingsValues() == registered);
    QCOMPARE(ZelControlCenter::GetDefaultSettingsValue("engine"), "software");
}

void SettingsCatalogueTest::emptyFileGetsEveryDefault()
{
    ZelControlCenter::InitDefaultSettingsValues("Viewer");
    QString error;
    QVERIFY(runPass(iniPath(), error));

    const QSettings written(iniPath(), QSettings::IniFormat);
    QCOMPARE(written.allKeys(), QStringList({"DBCache/cacheDirectory", "DBCache/cacheSize", "Logging/logFile",
                                             "debuglogtypeblacklist", "enablediag", "engine", "settingsVersion"}));
    QCOMPARE(written.value("engine"), "deferred");
    QCOMPARE(written.value("settingsVersion"), "2");
    QCOMPARE(written.value("enablediag"), "false");
    QCOMPARE(written.value("debuglogtypeblacklist"), "");
    QCOMPARE(written.value("DBCache/cacheSize"), "4096");
    QVERIFY(QFileInfo(logFile()).dir().exists());
    QVERIFY(QDir(written.value("DBCache/cacheDirectory").toString()).exists());
}

void SettingsCatalogueTest::handEditedFileKeepsEveryValue()
{
    ZelControlCenter::RegisterSetting("Tesselation/TesselationMaxFaceLength", "1",
                                      ZelControlCenter::ensureTesselationMaxFaceLength);
    ZelControlCenter::InitDefaultSettingsValues("Viewer");
    const QString cacheFolder = m_folder.filePath("Gr\u00fc\u00dfe/cache");
    QVERIFY(QDir().mkpath(cacheFolder));

    // Saved by a Windows editor: byte-order mark, CRLF, UTF-8, escaped backslashes. The
    // first key sits right behind the byte-order mark.
    const QByteArray contents = "\xEF\xBB\xBF"
                                "engine=software\r\n"
                                "settingsVersion=1\r\n"
                                "enablediag=yes\r\n"
                                "debuglogtypeblacklist=debug, info\r\n"
                                "recentFiles=/models/Gr\xC3\xBC\xC3\x9F"
                                "e.step, \"/models/a, b.step\"\r\n"
                                "title=\"say \\\"hi\\\" \\\\ bye\"\r\n"
                                "[DBCache]\r\n"
                                "cacheSize=lots\r\n"
                                "cacheDirectory="
        + cacheFolder.toUtf8().replace('/', "\\\\") + "\\\\\r\n"
        + "[Logging]\r\nlogFile=" + m_folder.filePath("missing/log.txt").toUtf8() + "\r\n"
        + "[Tesselation]\r\n"
          "TesselationMaxFaceLength=250.5\r\n"
          "[Caf\xC3\xA9]\r\n"
          "Men\xC3\xBC=\xE2\x82\xAC 5\r\n";
    QVERIFY(writeFile(iniPath(), contents));
    const QVariantMap unregistered = unregisteredValues(iniPath());
    QCOMPARE(unregistered.size(), 3);

    QString error;
    QVERIFY(runPass(iniPath(), error));
    const QSettings written(iniPath(), QSettings::IniFormat);
    QCOMPARE(written.value("engine"), "software");
    QCOMPARE(written.value("settingsVersion"), "2");
    QCOMPARE(written.value("enablediag"), "false");
    QCOMPARE(written.value("debuglogtypeblacklist"), "debug, info");
    QCOMPARE(written.value("DBCache/cacheSize"), "lots");
    QCOMPARE(written.value("DBCache/cacheDirectory"), cacheFolder);
    QCOMPARE(written.value("Logging/logFile"), logFile());
    QCOMPARE(written.value("Tesselation/TesselationMaxFaceLength"), "100");
    QCOMPARE(unregisteredValues(iniPath()), unregistered);

    // A second pass finds nothing left to change.
    const QByteArray repaired = fileBytes(iniPath());
    QVERIFY(runPass(iniPath(), error));
    QCOMPARE(fileBytes(iniPath()), repaired);
}

void SettingsCatalogueTest::uncreatableCacheFolderLeavesFileAlone_data()
{
    QTest::addColumn<QString>("parent");

    const QString file = m_folder.filePath("file");
    QVERIFY(writeFile(file, "not a folder"));
    const QString readOnly = m_folder.filePath("readonly");
    QVERIFY(QDir().mkpath(readOnly));
    QVERIFY(QFile::setPermissions(readOnly, QFile::ReadOwner | QFile::ExeOwner));

    QTest::newRow("under a regular file") << file;
    QTest::newRow("under a read-only folder") << readOnly;
}

void SettingsCatalogueTest::uncreatableCacheFolderLeavesFileAlone()
{
    QFETCH(QString, parent);
    if (QFileInfo(parent).isDir() && geteuid() == 0)
        QSKIP("root can write into a read-only folder");

    const QString cacheFolder = parent + "/cache";
    ZelControlCenter::RegisterSetting("DBCache/cacheDirectory", cacheFolder, ZelControlCenter::ensureDMCacheFolder);
    ZelControlCenter::InitDefaultSettingsValues("Viewer");
    const QByteArray contents = "engine=Deferred\n[DBCache]\ncacheDirectory=/nowhere\n";
    QVERIFY(writeFile(iniPath(), contents));

    QSettings settings(iniPath(), QSettings::IniFormat);
    QString error;
    QVERIFY(!ZelControlCenter::EnsureSettings(settings, error));
    QCOMPARE(error, QString("Could not use the 3D database cache, folder \"%1\" could not be created").arg(cacheFolder));
    QCOMPARE(fileBytes(iniPath()), contents);
}

QTEST_GUILESS_MAIN(SettingsCatalogueTest)
#include "tst_settingscatalogue.moc"
