// torvane-config's command line and what it reads: values, keys, descriptions and
// ranges, the monitor and the shell completion.
#include "SettingsFiles.h"
#include "TorvaneConfigFixture.h"
#include "ZelSettingDescriptions.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

#include <cstdio>

using CC = zel::ZelSettings;

class TorvaneConfigQueriesTest : public QObject, private TorvaneConfigFixture
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { registerEditorsKeys(); }
    void init() { QVERIFY(emptied()); }
    void usageErrors_data();
    void usageErrors();
    void pathListAndGet();
    void listChanged();
    void describeAndRange();
    void monitor();
    void completion();
};

void TorvaneConfigQueriesTest::usageErrors_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("message");

    QTest::newRow("no command") << QStringList() << "no command given";
    QTest::newRow("command typo") << QStringList {"lsit"} << "unknown command 'lsit'; did you mean 'list'?";
    QTest::newRow("key case") << QStringList {"set", "dbcache/cachesize", "100"}
                              << "unknown key 'dbcache/cachesize'; did you mean 'DBCache/cacheSize'?";
    QTest::newRow("key typo") << QStringList {"get", "Logging/logFil"} << "did you mean 'Logging/logFile'?";
    QTest::newRow("key far off") << QStringList {"reset", "engine", "colour"} << "unknown key 'colour'\n";
    QTest::newRow("file after the command") << QStringList {"list", "--file", "x"} << "Unknown option 'file'";
    QTest::newRow("missing value") << QStringList {"set", "engine"} << "set takes a KEY and a VALUE";
    QTest::newRow("keys and --all") << QStringList {"reset", "engine", "--all"} << "reset takes either KEYs or --all";
}

void TorvaneConfigQueriesTest::usageErrors()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, message);
    QVERIFY(writeBytes(iniPath(), "engine=software\n"));
    const Result result = run(onFile(arguments));
    QCOMPARE(result.exitCode, 2);
    QVERIFY2(result.err.contains(message), qPrintable(result.err));
    QCOMPARE(result.out, QString());
    QCOMPARE(fileBytes(iniPath()), "engine=software\n");
}

void TorvaneConfigQueriesTest::pathListAndGet()
{
    // The editor's own file unless --file names another; a relative name is made absolute.
    QCOMPARE(run({"path"}).out, m_home.configPath() + "/TorvaneBoundlessX64/Settings.ini\n");
    QCOMPARE(run({"--file", "relative.ini", "path"}).out, QDir::current().absoluteFilePath("relative.ini") + "\n");
    QCOMPARE(run({"--version"}).out, "torvane-config 1.1.0\n");
    QVERIFY(run({"--help"}).out.startsWith("Usage: torvane-config [options] COMMAND [ARGUMENTS]\n"));

    QVERIFY(writeBytes(iniPath(), HandEdited));
    const Result list = run(onFile({"list"}));
    QCOMPARE(list.exitCode, 0);
    QVERIFY(list.out.contains("\nengine = Deferred\n"));
    QVERIFY(list.out.contains("\nDBCache/cacheSize = 4096 (default)\n"));
    QVERIFY(list.out.contains("\nDBCache/cachesize = 8000 (did you mean DBCache/cacheSize?)\n"));
    QVERIFY(list.out.contains("\nCaf\u00e9/Men\u00fc = \u20ac 5\n"));

    const QJsonObject json = QJsonDocument::fromJson(run(onFile({"list", "--json"})).out.toUtf8()).object();
    QCOMPARE(json["file"].toString(), iniPath());
    const QJsonArray keys = json["keys"].toArray();
    QCOMPARE(keys.size(), qsizetype(CC::GetDefaultSettingsValues().size()));
    QCOMPARE(keys.first()["key"].toString(), "DBCache/cacheDirectory");
    QCOMPARE(keys.first()["default"].toBool(), true);
    QCOMPARE(json["unused"].toArray().first()["key"].toString(), "Caf\u00e9/Men\u00fc");
    QCOMPARE(json["unused"].toArray().at(1)["suggestion"].toString(), "DBCache/cacheSize");

    QCOMPARE(run(onFile({"get", "engine"})).out, "Deferred\n");
    QCOMPARE(run(onFile({"get", "DBCache/cacheSize"})).out, "4096\n");
    QCOMPARE(run(onFile({"get", "debuglogtypeblacklist"})).out, "debug, warning, info\n");
    QCOMPARE(run(onFile({"get", "DBCache/cachesize"})).out, "8000\n"); // stored, though nothing uses it
    QCOMPARE(fileBytes(iniPath()), HandEdited);
}

void TorvaneConfigQueriesTest::listChanged()
{
    // Stored as the default, changed, and a key nothing uses.
    QVERIFY(writeBytes(iniPath(), "settingsVersion=2\nengine=software\n[DBCache]\ncacheSize=4096\n[X]\ny=1\n"));
    QCOMPARE(run(onFile({"list", "--changed"})).out,
             "engine = software\n\nKeys in the file that nothing uses:\nX/y = 1\n");
    const Result json = run(onFile({"list", "--json", "--changed"}));
    QCOMPARE(QJsonDocument::fromJson(json.out.toUtf8()).object()["keys"].toArray(),
             QJsonArray({QJsonObject {{"key", "engine"}, {"value", "software"}, {"default", false}}}));
}

void TorvaneConfigQueriesTest::describeAndRange()
{
    const QStringList pages {"", "Display", "Folders", "Simplification", "Tessellation"};
    for (const auto& entry : CC::GetDefaultSettingsValues()) {
        const zel::SettingDescription description = zel::settingDescription(entry.first);
        QVERIFY2(!description.isNull(), qPrintable(entry.first));
        QVERIFY2(pages.contains(description.page), qPrintable(entry.first));
    }

    QCOMPARE(run({"describe", "DBCache/cacheSize"}).out,
             "DBCache/cacheSize\n  " + zel::settingDescription("DBCache/cacheSize").meaning
                 + "\n  Default: 4096\n  Accepts: a whole number from 10 to 10240\n  Page: Folders\n");
    QVERIFY(run({"describe", "settingsVersion"}).out.endsWith("\n  no page: set by the program\n"));

    QCOMPARE(run({"range", "DBCache/cacheSize"}).out, "integer 10 10240 step 1\n");
    QCOMPARE(run({"range", "Tesselation/TesselationMaxFaceSag"}).out, "decimal 0 100 decimals 3\n");
    QCOMPARE(run({"range", "engine"}).out, "choice deferred software\n");
}

void TorvaneConfigQueriesTest::monitor()
{
    QVERIFY(writeBytes(iniPath(), "settingsVersion=2\nengine=deferred\n"));
    QProcess monitor;
    monitor.start(TORVANE_CONFIG, onFile({"monitor"}));
    monitor.setReadChannel(QProcess::StandardError);
    QVERIFY(monitor.waitForReadyRead(30000));
    QVERIFY(monitor.readLine().startsWith("Watching " + iniPath().toUtf8()));
    monitor.setReadChannel(QProcess::StandardOutput);
    // What the monitor printed once it has `lines` lines.
    const auto printed = [&monitor](int lines) {
        QByteArray out;
        while (out.count('\n') < lines && monitor.waitForReadyRead(30000))
            out += monitor.readAllStandardOutput();
        return out;
    };

    // Every write replaces the file by a rename; then it goes, and comes back.
    QCOMPARE(run(onFile({"set", "engine", "software"})).exitCode, 0);
    QCOMPARE(printed(1), "engine: 'deferred' -> 'software'\n");
    // A second writer within the file system's time step: the same size and time.
    const QString next = iniPath() + ".new";
    QVERIFY(writeBytes(next, "settingsVersion=2\nengine=deferred\n"));
    QFile nextFile(next);
    QVERIFY(nextFile.open(QIODevice::ReadWrite));
    QVERIFY(nextFile.setFileTime(QFileInfo(iniPath()).lastModified(), QFileDevice::FileModificationTime));
    QVERIFY(std::rename(QFile::encodeName(next), QFile::encodeName(iniPath())) == 0);
    QCOMPARE(printed(1), "engine: 'software' -> 'deferred'\n");
    QCOMPARE(run(onFile({"reset", "engine"})).exitCode, 0);
    QCOMPARE(printed(1), "engine: removed\n");
    QVERIFY(QFile::remove(iniPath()));
    QCOMPARE(printed(1), "settingsVersion: removed\n");
    QCOMPARE(run(onFile({"set", "engine", "deferred"})).exitCode, 0);
    QCOMPARE(printed(2), "engine: added 'deferred'\nsettingsVersion: added '2'\n");

    monitor.terminate();
    QVERIFY(monitor.waitForFinished(30000));
    QCOMPARE(monitor.exitStatus(), QProcess::NormalExit);
    QCOMPARE(monitor.exitCode(), 0);
}

void TorvaneConfigQueriesTest::completion()
{
    const auto complete = [](const QStringList& words) {
        QProcess bash;
        const QString script = "source \"$1\"; shift; COMP_WORDS=(\"$@\"); COMP_CWORD=$(($# - 1)); "
                               "_torvane_config; echo \"${COMPREPLY[*]}\"";
        bash.start("bash", QStringList {"-c", script, "bash", TORVANE_CONFIG_COMPLETION, TORVANE_CONFIG} + words);
        return bash.waitForFinished(30000) ? QString::fromUtf8(bash.readAllStandardOutput()).trimmed() : QString();
    };
    QVERIFY(writeBytes(iniPath(), "[DBCache]\ncacheSize=10\ncachesize=8000\n"));
    QCOMPARE(complete({"ch"}), "check");
    QCOMPARE(complete({"check", "--"}), "--fix");
    QCOMPARE(complete({"--file", iniPath(), "reset", "DBC"}),
             "DBCache/cacheDirectory DBCache/cacheSize DBCache/cachesize");
    // Only known keys have a description.
    QCOMPARE(complete({"--file", iniPath(), "describe", "DBC"}), "DBCache/cacheDirectory DBCache/cacheSize");
}

QTEST_GUILESS_MAIN(TorvaneConfigQueriesTest)
#include "tst_torvaneconfigqueries.moc"
