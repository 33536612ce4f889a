// torvane-config changing the settings: set, reset and check --fix, with what they
// refuse and how they fail, leaving the file as it was.
#include "OtherUser.h"
#include "SettingsFiles.h"
#include "TorvaneConfigFixture.h"
#include "ZelSettingRange.h"
#include "ZelSettingsFile.h"

#include <QDateTime>
#include <QScopeGuard>
#include <QSettings>
#include <QStandardPaths>
#include <QTest>

#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

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
    void fileProblems_data();
    void fileProblems();
    void permissions_data();
    void permissions();
    void fullDisk();
    void pipeIsNeverOpened();
    void linkToAMissingFileIsNamed();
    void superuserLeavesFilesToTheirOwner();
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

void TorvaneConfigChangesTest::fileProblems_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("bytes"); // in Settings.ini; none: a folder of that name
    QTest::addColumn<QString>("reason");

    QTest::newRow("folder missing") << "missing/deeper/Settings.ini" << QByteArray() << "No such file or directory";
    QTest::newRow("folder in its place") << "Settings.ini/" << QByteArray() << "Is a directory";
    // The new file is written beside the old one; a size limit stops it half-way.
    QByteArray bytes = "settingsVersion=2\n[Notes]\n";
    for (int line = 0; line < 40; ++line)
        bytes += "line" + QByteArray::number(line) + '=' + QByteArray(40, 'x') + '\n';
    QTest::newRow("size limit") << "Settings.ini" << bytes << "File too large";
}

void TorvaneConfigChangesTest::fileProblems()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, reason);
    QVERIFY(bytes.isEmpty() ? QDir(m_folder.path()).mkpath("Settings.ini") : writeBytes(iniPath(), bytes));
    const QStringList before = QDir(m_folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);

    // Only the size-limit row writes enough to meet the limit.
    const auto limitSize = [](QProcess& process) {
        process.setChildProcessModifier([] {
            ::signal(SIGXFSZ, SIG_IGN);
            const rlimit limit {1024, 1024};
            ::setrlimit(RLIMIT_FSIZE, &limit);
        });
    };
    const Result result = run({"--file", m_folder.filePath(file), "set", "engine", "software"}, {}, limitSize);
    QCOMPARE(result.exitCode, 4);
    QVERIFY2(result.err.contains(": " + reason), qPrintable(result.err));
    QCOMPARE(result.err.count('\n'), 1);
    // Not a folder made, not a file put anywhere, the old file as it was.
    QCOMPARE(QDir(m_folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), before);
    if (bytes.isEmpty())
        QCOMPARE(QDir(iniPath()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList());
    else
        QCOMPARE(fileBytes(iniPath()), bytes);
}

void TorvaneConfigChangesTest::permissions_data()
{
    QTest::addColumn<int>("fileMode"); // -1: no file
    QTest::addColumn<QStringList>("arguments"); // FILE stands for the file
    QTest::addColumn<QString>("error");

    const QString denied = "Permission denied";
    // Which of the two is read-only is what the user has to change.
    QTest::newRow("read-only file") << 0444 << QStringList {"--file", "FILE", "set", "engine", "software"}
                                    << "cannot write FILE: " + denied + ". The settings file ";
    QTest::newRow("read-only folder") << 0666 << QStringList {"--file", "FILE", "reset", "--all"}
                                      << "cannot write FILE: " + denied + ". The settings folder ";
    QTest::newRow("unreadable file") << 0 << QStringList {"--file", "FILE", "get", "engine"}
                                     << "cannot read FILE: " + denied;
    QTest::newRow("settings folder cannot be made") << -1 << QStringList {"set", "engine", "software"}
                                                    << "cannot make the settings folder FOLDER/TorvaneBoundlessX64: "
                                                           + denied;
}

void TorvaneConfigChangesTest::permissions()
{
    QFETCH(int, fileMode);
    QFETCH(QStringList, arguments);
    QFETCH(QString, error);
    const std::optional<OtherUser> user = otherUser();
    if (!user)
        QSKIP("Running as root without a 'nobody' user: root would pass every permission bit.");

    // The folder holds the file; the child may write neither the folder nor what the
    // row forbids, and reaches both.
    const QString folder = m_folder.filePath("locked");
    const QString file = folder + "/Settings.ini";
    const QByteArray bytes = "settingsVersion=2\nengine=deferred\n";
    QVERIFY(QDir().mkpath(folder));
    if (fileMode >= 0) {
        QVERIFY(writeBytes(file, bytes));
        QVERIFY(::chmod(QFile::encodeName(file), mode_t(fileMode)) == 0);
    }
    QVERIFY(::chmod(QFile::encodeName(m_folder.path()), 0755) == 0);
    QVERIFY(::chmod(QFile::encodeName(folder), 0555) == 0);
    const auto unlock = qScopeGuard([&] {
        ::chmod(QFile::encodeName(folder), 0755);
        QDir(folder).removeRecursively();
    });

    arguments.replaceInStrings("FILE", file);
    const Result result = run(arguments, {"XDG_CONFIG_HOME=" + folder},
                                [&](QProcess& process) { user->prepare(process, m_home); });
    QCOMPARE(result.exitCode, 4);
    QVERIFY2(result.err.startsWith("torvane-config: " + QString(error).replace("FILE", file).replace("FOLDER", folder)),
             qPrintable(result.err));
    QCOMPARE(result.err.count('\n'), 1);
    ::chmod(QFile::encodeName(file), 0644); // for the test to read it
    QCOMPARE(fileBytes(file), fileMode >= 0 ? bytes : QByteArray());
    QCOMPARE(QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             fileMode >= 0 ? QStringList {"Settings.ini"} : QStringList());
}

void TorvaneConfigChangesTest::fullDisk()
{
    // A small file system of the child's own, filled up: the lock file beside the
    // settings cannot even be made, so no write of ours ever starts to tell why.
    const QString unshare = QStandardPaths::findExecutable("unshare");
    if (unshare.isEmpty())
        QSKIP("No unshare to give the child a file system of its own.");
    const QString folder = m_folder.filePath("full");
    QVERIFY(QDir().mkpath(folder));
    const QString script = QStringLiteral(
        "mount -t tmpfs -o size=64k tmpfs \"$1\" || exit 0\n"
        "printf 'settingsVersion=2\\nengine=deferred\\n' > \"$1/Settings.ini\"\n"
        "cat /dev/zero > \"$1/filler\" 2>/dev/null\n"
        "\"$2\" --file \"$1/Settings.ini\" set engine software\n"
        "echo \"exit $?\"\n"
        "ls -A \"$1\"\n"
        "cat \"$1/Settings.ini\"\n");
    QProcess process;
    process.start(unshare, {"--user", "--map-root-user", "--mount", "sh", "-c", script, "sh", folder, TORVANE_CONFIG});
    QVERIFY(process.waitForFinished(30000));
    const QString out = QString::fromUtf8(process.readAllStandardOutput());
    const QString err = QString::fromUtf8(process.readAllStandardError());
    if (!out.startsWith("exit "))
        QSKIP(qPrintable("This system lets no test mount a file system of its own: " + err));

    QCOMPARE(out, "exit 4\nSettings.ini\nfiller\nsettingsVersion=2\nengine=deferred\n");
    const QString expected = QStringLiteral("torvane-config: cannot write %1/Settings.ini: No space left on device. "
                                            "The disk that holds \"%1\" is full.")
                                 .arg(folder);
    QVERIFY2(err.startsWith(expected), qPrintable(err));
}

void TorvaneConfigChangesTest::pipeIsNeverOpened()
{
    // Read, a pipe would keep the tool waiting for a writer; replaced, it would be gone.
    QVERIFY(::mkfifo(QFile::encodeName(iniPath()).constData(), 0644) == 0);
    const auto removePipe = qScopeGuard([this] { QFile::remove(iniPath()); });
    for (const QStringList& command : {QStringList {"get", "engine"}, QStringList {"set", "engine", "software"},
                                       QStringList {"check", "--fix"}, QStringList {"monitor"}}) {
        const Result result = run(onFile(command));
        QCOMPARE(result.exitCode, 4);
        QCOMPARE(result.err, "torvane-config: cannot read " + iniPath() + ": Not a regular file\n");
    }
    QVERIFY(QFileInfo(iniPath()).exists() && !QFileInfo(iniPath()).isFile());
    QCOMPARE(copies(), QStringList());
}

void TorvaneConfigChangesTest::linkToAMissingFileIsNamed()
{
    // Settings kept elsewhere, not there now: written through, the link would be lost.
    const QString target = m_folder.filePath("elsewhere/Settings.ini");
    QVERIFY(QDir().mkpath(m_folder.filePath("elsewhere")));
    QVERIFY(QFile::link(target, iniPath()));
    const auto removeLink = qScopeGuard([this] { QFile::remove(iniPath()); });
    const QString named = QStringLiteral("\"%1\" is a link to \"%2\", which does not exist.").arg(iniPath(), target);
    for (const QStringList& command : {QStringList {"set", "engine", "software"}, QStringList {"check"}}) {
        const Result result = run(onFile(command));
        QCOMPARE(result.exitCode, 4);
        QVERIFY2(result.err.contains(named), qPrintable(result.err));
    }
    QCOMPARE(QFileInfo(iniPath()).symLinkTarget(), target);
    QVERIFY(!QFileInfo::exists(target));
}

void TorvaneConfigChangesTest::superuserLeavesFilesToTheirOwner()
{
    const std::optional<OtherUser> user = otherUser();
    if (::geteuid() != 0 || !user)
        QSKIP("Only the superuser writes files that belong to someone else.");
    const QString folder = m_folder.filePath("someone");
    const QString file = folder + "/Settings.ini";
    QVERIFY(QDir().mkpath(folder));
    QVERIFY(writeBytes(file, "settingsVersion=2\nengine=Software\n"));
    for (const QString& path : {folder, file})
        QVERIFY(::chown(QFile::encodeName(path).constData(), user->uid, user->gid) == 0);

    // A repair with its copy, and a file new in their folder.
    const Result fix = run({"--file", file, "check", "--fix"});
    QCOMPARE(fix.exitCode, 0);
    const QString kept = fix.out.section("The previous file is kept as ", 1).trimmed();
    const QString created = folder + "/Other.ini";
    QCOMPARE(run({"--file", created, "set", "engine", "software"}).exitCode, 0);
    for (const QString& path : {file, kept, created}) {
        QCOMPARE(QFileInfo(path).ownerId(), user->uid);
        QCOMPARE(QFileInfo(path).groupId(), user->gid);
    }
}

QTEST_GUILESS_MAIN(TorvaneConfigChangesTest)
#include "tst_torvaneconfigchanges.moc"
