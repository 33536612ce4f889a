// torvane-config on files it cannot use as they are: missing folders, a folder in the
// file's place, size limits, permissions, a full disk, pipes, dangling links, and files
// of another user written by the superuser. Each fails with the system's reason, exit 4,
// and leaves everything as it was.
#include "OtherUser.h"
#include "SettingsFiles.h"
#include "TorvaneConfigFixture.h"

#include <QScopeGuard>
#include <QStandardPaths>
#include <QTest>

#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

class TorvaneConfigFilesTest : public QObject, private TorvaneConfigFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QVERIFY(emptied()); }
    void fileProblems_data();
    void fileProblems();
    void permissions_data();
    void permissions();
    void fullDisk();
    void pipeIsNeverOpened();
    void linkToAMissingFileIsNamed();
    void superuserLeavesFilesToTheirOwner();
};

void TorvaneConfigFilesTest::fileProblems_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("bytes"); // in Settings.ini; none: a folder of that name
    QTest::addColumn<QString>("reason");

    QTest::newRow("folder missing") << "missing/deeper/Settings.ini" << QByteArray() << "No such file or directory";
    QTest::newRow("folder in its place") << "Settings.ini/" << QByteArray() << "Is a directory";
    QTest::newRow("file in the folder's place")
        << "Settings.ini/deeper/Settings.ini" << QByteArray("settingsVersion=2\n") << "Not a directory";
    // The new file is written beside the old one; a size limit stops it half-way.
    QByteArray bytes = "settingsVersion=2\n[Notes]\n";
    for (int line = 0; line < 40; ++line)
        bytes += "line" + QByteArray::number(line) + '=' + QByteArray(40, 'x') + '\n';
    QTest::newRow("size limit") << "Settings.ini" << bytes << "File too large";
}

void TorvaneConfigFilesTest::fileProblems()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, reason);
    QVERIFY(bytes.isEmpty() ? QDir(m_folder.path()).mkpath("Settings.ini") : writeBytes(iniPath(), bytes));
    const QStringList before = QDir(m_folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);

    // Only the size-limit row writes enough to meet the limit.
    const auto limitSize = [](QProcess& process) {
        process.setChildProcessModifier([] {
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

void TorvaneConfigFilesTest::permissions_data()
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

void TorvaneConfigFilesTest::permissions()
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

void TorvaneConfigFilesTest::fullDisk()
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

void TorvaneConfigFilesTest::pipeIsNeverOpened()
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

void TorvaneConfigFilesTest::linkToAMissingFileIsNamed()
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

void TorvaneConfigFilesTest::superuserLeavesFilesToTheirOwner()
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

QTEST_GUILESS_MAIN(TorvaneConfigFilesTest)
#include "tst_torvaneconfigfiles.moc"
