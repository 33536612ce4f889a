// torvane-config changing the settings: set, reset and check --fix, with what they
// refuse, leaving the file as it was. Files it cannot use: tst_torvaneconfigfiles.
#include "SettingsFiles.h"
#include "TorvaneConfigFixture.h"
#include "ZelSettingRange.h"
#include "ZelSettingsFile.h"

#include <QDateTime>
#include <QSettings>
#include <QTest>


using CC = zel::ZelSettings;
using zel::ZelSettingsFile;

namespace {

// The file as the editor's pass leaves it.
QByteArray afterEditorPass(const QString& path)
{
    registerEditorsKeys();
    QSettings settings(path, CC::SettingsFormat());
    QString error;
    if (!CC::EnsureSettings(settings, error))
        return error.toUtf8();
    return fileBytes(path);
}

} // namespace

class TorvaneConfigChangesTest : public QObject, private TorvaneConfigFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QVERIFY(emptied()); }
    void set_data();
    void set();
    void setAndResetKeepTheRest();
    void newFileIsCurrent();
    void unversionedFileIsRefused_data();
    void unversionedFileIsRefused();
    void versionOneIsUpgraded();
    void checkAndFix_data();
    void checkAndFix();
    void languageFollowsTheSystem_data();
    void languageFollowsTheSystem();
    void fixKeepsEveryCopy();
    void failingValidator();
    void editorOpenAtTheSameTime();
};

void TorvaneConfigChangesTest::set_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("refusal"); // after "torvane-config: refused: "; empty when the value is kept

    // The validators' own bounds are the settings tests' business; here, that the tool
    // refuses what they would repair, saying what is accepted, and keeps the rest.
    const QString cacheSize = "DBCache/cacheSize accepts a whole number from 10 to 10240, not ";
    QTest::newRow("cache size, not a number") << "DBCache/cacheSize" << "abc" << cacheSize + "'abc'";
    QTest::newRow("memory at maximum") << "Resources/MaxCPUMemory3D" << "8489271296" << "";
    const auto accepts = [](const QString& key, const QString& value) {
        return key + " accepts " + CC::GetSettingRange(key).describe() + ", not '" + value + "'";
    };
    // Ratios the kernel corrects, which it reports on standard output: not in the tool's.
    const QString rising = "1/0.5/0.6/0.25/0.1";
    QTest::newRow("ratios rising") << "Simplification/Ratios" << rising << accepts("Simplification/Ratios", rising);
    // A path's range does not say what is wrong with it; the value stored instead does.
    const QString absent = m_folder.filePath("absent/log.txt");
    QTest::newRow("log file in no folder") << "Logging/logFile" << absent
                                           << accepts("Logging/logFile", absent) + "; Torvane would store '"
                                                  + m_home.configPath() + "/TorvaneBoundlessX64/log.txt'";
    QTest::newRow("value with a dash") << "debuglogtypeblacklist" << "-v" << "";
    QTest::newRow("list") << "debuglogtypeblacklist" << "debug, warning" << "";
}

void TorvaneConfigChangesTest::set()
{
    QFETCH(QString, key);
    QFETCH(QString, value);
    QFETCH(QString, refusal);
    // A file the editor's start leaves as it is, so that check sees only the new value.
    QVERIFY(writeBytes(iniPath(), "settingsVersion=2\nlanguage=fr\n"));
    QCOMPARE(run(onFile({"check", "--fix"})).exitCode, 0);
    const QByteArray before = fileBytes(iniPath());
    const Result result = run(onFile({"set", key, value}));
    QCOMPARE(result.out, QString());
    if (!refusal.isEmpty()) {
        QCOMPARE(result.exitCode, 1);
        QCOMPARE(result.err, "torvane-config: refused: " + refusal + "\n");
        QCOMPARE(fileBytes(iniPath()), before);
        return;
    }
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(run(onFile({"get", key})).out, value + "\n");
    const Result check = run(onFile({"check"}));
    QCOMPARE(check.out, QString());
    QCOMPARE(check.exitCode, 0);
}

void TorvaneConfigChangesTest::setAndResetKeepTheRest()
{
    QVERIFY(writeBytes(iniPath(), HandEdited));
    QVariantMap expected = iniValues(iniPath());

    QCOMPARE(run(onFile({"set", "engine", "software"})).exitCode, 0);
    expected["engine"] = "software";
    QCOMPARE(iniValues(iniPath()), expected);

    // A key nothing uses may be reset (a typo, say); one neither known nor stored may not.
    QCOMPARE(run(onFile({"reset", "DBCache/cachesize", "Resources/MaxGPUMemory", "language"})).exitCode, 0);
    expected.remove("DBCache/cachesize");
    expected.remove("Resources/MaxGPUMemory");
    QCOMPARE(iniValues(iniPath()), expected);

    // Without its version the editor would set the file aside.
    const QByteArray before = fileBytes(iniPath());
    QCOMPARE(run(onFile({"reset", "settingsVersion"})).exitCode, 1);
    QCOMPARE(fileBytes(iniPath()), before);

    QCOMPARE(run(onFile({"reset", "--all"})).exitCode, 0);
    for (const QString key : {"engine", "debuglogtypeblacklist", "Resources/LODTrianglesCap"})
        expected.remove(key);
    QCOMPARE(iniValues(iniPath()), expected);
    QCOMPARE(expected.keys(), QStringList({"Caf\u00e9/Men\u00fc", "recentFiles", "settingsVersion"}));

    // Nothing stored: nothing written, not even an empty file.
    QVERIFY(QFile::remove(iniPath()));
    QCOMPARE(run(onFile({"reset", "--all"})).exitCode, 0);
    QVERIFY(!QFile::exists(iniPath()));
}

void TorvaneConfigChangesTest::newFileIsCurrent()
{
    // A new account: the editor's next start must take the file as its own.
    const Result result = run({"set", "deferred/useSSAO", "false"});
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.err, QString());
    const QSettings written(editorsFile(), CC::SettingsFormat());
    QCOMPARE(ZelSettingsFile::InspectLayout(written), ZelSettingsFile::Layout::Current);
    QCOMPARE(written.value("deferred/useSSAO").toString(), "false");
}

void TorvaneConfigChangesTest::unversionedFileIsRefused_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("reason");

    const QString noVersion = " has no settings version: the settings editor sets it aside at its next start; ";
    QTest::newRow("set, no version") << QByteArray("language=fr\nengine=software\n")
                                     << QStringList {"set", "engine", "deferred"} << noVersion;
    QTest::newRow("reset, version not a number")
        << QByteArray("settingsVersion=two\nengine=software\n") << QStringList {"reset", "engine"}
        << " has an unknown settings version 'two': the settings editor sets it aside at its next start; ";
    QTest::newRow("reset, nothing to reset") << QByteArray("junk\n") << QStringList {"reset", "--all"} << noVersion;
}

void TorvaneConfigChangesTest::unversionedFileIsRefused()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QStringList, arguments);
    QFETCH(QString, reason);
    QVERIFY(writeBytes(iniPath(), bytes));
    const Result result = run(onFile(arguments));
    QCOMPARE(result.exitCode, 1);
    QVERIFY2(result.err.contains(iniPath() + reason), qPrintable(result.err));
    QVERIFY2(result.err.contains("'torvane-config --file " + iniPath() + " check --fix'"), qPrintable(result.err));
    QCOMPARE(fileBytes(iniPath()), bytes);
    QCOMPARE(copies(), QStringList());
}

void TorvaneConfigChangesTest::versionOneIsUpgraded()
{
    // set upgrades the file, as check --fix does, rather than refusing it.
    const QByteArray versionOne = "settingsVersion=1\nengine=software\nenablediag=false\n";
    QVERIFY(writeBytes(iniPath(), versionOne));
    const Result result = run(onFile({"set", "enablediag", "true"}));
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(run(onFile({"get", "enablediag"})).out, "true\n");
    QCOMPARE(run(onFile({"get", "engine"})).out, "deferred\n");
    QCOMPARE(copies().size(), 1);
    const QString copy = m_folder.filePath(copies().first());
    QCOMPARE(fileBytes(copy), versionOne);
    QVERIFY2(result.err.contains("upgraded") && result.err.contains("engine: 'software' -> 'deferred'"),
             qPrintable(result.err));
    QVERIFY2(result.err.endsWith("the previous file is kept as " + copy + "\n"), qPrintable(result.err));
}

void TorvaneConfigChangesTest::checkAndFix_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("report"); // how check's output begins; FILE stands for the file
    // Values after --fix (an invalid one: no such key); none: what the editor's pass makes of it.
    QTest::addColumn<QVariantMap>("fixed");

    QTest::newRow("hand edited") << HandEdited
                                 << "Resources/MaxGPUMemory: '1' -> '134217728'\nengine: 'Deferred' -> 'deferred'\n"
                                 << QVariantMap();
    QTest::newRow("no version") << QByteArray("language=fr\nengine=software\n[Notes]\ntodo=x\n")
                                << "FILE has no settings version: the settings editor sets it aside at its next "
                                   "start, keeping only the language\n"
                                << QVariantMap {{"language", "fr"}, {"engine", "deferred"}, {"Notes/todo", QVariant()}};
    QTest::newRow("version 1") << QByteArray("settingsVersion=1\nengine=software\n[Notes]\ntodo=x\n")
                               << "FILE has settings version 1: the settings editor upgrades it at its next start\n"
                                  "engine: 'software' -> 'deferred'\nsettingsVersion: '1' -> '2'\n"
                               << QVariantMap {{"engine", "deferred"}, {"Notes/todo", "x"}};
}

void TorvaneConfigChangesTest::checkAndFix()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, report);
    QFETCH(QVariantMap, fixed);
    QVERIFY(writeBytes(iniPath(), bytes));
    const Result check = run(onFile({"check"}));
    QCOMPARE(check.exitCode, 1);
    QVERIFY2(check.out.startsWith(report.replace("FILE", iniPath())), qPrintable(check.out));
    QCOMPARE(fileBytes(iniPath()), bytes);
    QCOMPARE(copies(), QStringList());

    const Result fix = run(onFile({"check", "--fix"}));
    QCOMPARE(fix.exitCode, 0);
    QCOMPARE(copies().size(), 1);
    const QString copy = m_folder.filePath(copies().first());
    QCOMPARE(fix.out, check.out + "The previous file is kept as " + copy + "\n");
    QCOMPARE(fileBytes(copy), bytes);
    const Result again = run(onFile({"check"}));
    QCOMPARE(again.out, QString());
    QCOMPARE(again.exitCode, 0);

    const QSettings settings(iniPath(), CC::SettingsFormat());
    QCOMPARE(ZelSettingsFile::InspectLayout(settings), ZelSettingsFile::Layout::Current);
    for (auto it = fixed.cbegin(); it != fixed.cend(); ++it)
        QCOMPARE(settings.value(it.key()), it.value());
    if (!fixed.isEmpty())
        return;
    // The fixed file is byte for byte what the editor's pass makes of the damaged one.
    const QByteArray fixedBytes = fileBytes(iniPath());
    QVERIFY(writeBytes(iniPath(), bytes));
    QCOMPARE(fixedBytes, afterEditorPass(iniPath()));
}

void TorvaneConfigChangesTest::languageFollowsTheSystem_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("language");
    QTest::newRow("translated") << "fr_FR.UTF-8" << "fr";
    QTest::newRow("not translated") << "de_DE.UTF-8" << "en";
}

// With no language stored, the editor's start stores the system's where it speaks it:
// check tells that, and --fix does it.
void TorvaneConfigChangesTest::languageFollowsTheSystem()
{
    QFETCH(QString, locale);
    QFETCH(QString, language);
    QVERIFY(writeBytes(iniPath(), "settingsVersion=2\n"));
    const QStringList environment {"LANG=" + locale, "LC_ALL=" + locale};
    const Result check = run(onFile({"check"}), environment);
    QVERIFY2(check.out.contains("\nlanguage: added with the default '" + language + "'\n"), qPrintable(check.out));
    QCOMPARE(run(onFile({"check", "--fix"}), environment).exitCode, 0);
    QCOMPARE(iniValues(iniPath()).value("language").toString(), language);
}

void TorvaneConfigChangesTest::fixKeepsEveryCopy()
{
    // Copies an earlier run could have made in the seconds this one runs, and one made
    // the old way: none of them is replaced.
    const QDateTime now = QDateTime::currentDateTime();
    QStringList earlier {iniPath() + ".bak"};
    for (int second = 0; second < 3; ++second)
        earlier.append(iniPath() + now.addSecs(second).toString(".yyyyMMdd-HHmmss") + ".bak");
    for (const QString& copy : earlier)
        QVERIFY(writeBytes(copy, "earlier"));
    const QByteArray damaged = "settingsVersion=2\nengine=Software\n";
    QVERIFY(writeBytes(iniPath(), damaged));
    QVERIFY(QFile::setPermissions(iniPath(), QFileDevice::ReadOwner | QFileDevice::WriteOwner));

    const Result fix = run(onFile({"check", "--fix"}));
    QCOMPARE(fix.exitCode, 0);
    for (const QString& copy : earlier)
        QCOMPARE(fileBytes(copy), "earlier");
    const QString kept = fix.out.section("The previous file is kept as ", 1).trimmed();
    QVERIFY2(!earlier.contains(kept), qPrintable(fix.out));
    QCOMPARE(fileBytes(kept), damaged);
    // The copy of a file only its owner may read is no easier to read.
    const QFileDevice::Permissions others = QFileDevice::ReadGroup | QFileDevice::ReadOther;
    QCOMPARE(QFileInfo(kept).permissions() & others, QFileDevice::Permissions());
}

void TorvaneConfigChangesTest::failingValidator()
{
    // The default log file's folder would be under a regular file. The cache folder,
    // checked before it, is repaired.
    const QString blocked = m_folder.filePath("blocked");
    const QByteArray damaged = "settingsVersion=2\n[DBCache]\ncacheDirectory=" + m_folder.filePath("gone").toUtf8() + "\n";
    QVERIFY(writeBytes(blocked, "") && writeBytes(iniPath(), damaged));
    const QString error = "Could not use the Torvane log file, file \"" + blocked
                        + "/TorvaneBoundlessX64/log.txt\" could not be created\n";
    const QStringList environment {"XDG_CONFIG_HOME=" + blocked};

    for (const QStringList& arguments : {QStringList {"check", "--fix"}, {"set", "Logging/logFile", "/gone/log.txt"}}) {
        const Result result = run(onFile(arguments), environment);
        QCOMPARE(result.exitCode, 3);
        QCOMPARE(result.err, "torvane-config: " + error);
        QCOMPARE(fileBytes(iniPath()), damaged);
        QCOMPARE(copies(), QStringList());
    }
    // The repairs before the failing key are still reported.
    QVERIFY(run(onFile({"check"}), environment).out.startsWith("DBCache/cacheDirectory: '" + m_folder.filePath("gone")));
}

void TorvaneConfigChangesTest::editorOpenAtTheSameTime()
{
    QVERIFY(writeBytes(iniPath(), "settingsVersion=2\nengine=deferred\n"));
    QSettings editor(iniPath(), QSettings::IniFormat);
    editor.setValue("language", "fr"); // applied, not yet synced
    QCOMPARE(run(onFile({"set", "enablediag", "true"})).exitCode, 0);
    editor.sync();
    QCOMPARE(editor.value("enablediag").toString(), "true");
    QCOMPARE(iniValues(iniPath()),
             QVariantMap({{"settingsVersion", "2"}, {"engine", "deferred"}, {"enablediag", "true"}, {"language", "fr"}}));
}

QTEST_GUILESS_MAIN(TorvaneConfigChangesTest)
#include "tst_torvaneconfigchanges.moc"
