// The start-up sequence as a user meets it: launch run in real processes (the driver
// answers the dialogs), torvane-settings itself, and the one-editor rule.

#include "OtherUser.h"
#include "SettingsFiles.h"
#include "TestHome.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QTest>

#include <csignal>
#include <functional>
#include <memory>
#include <optional>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {

struct Run
{
    int exitCode = -1;
    QString output;
};

const QString SelectorTitle = "seen Torvane - Please select your display type";
const QString FrenchSelectorTitle = "seen Torvane - Veuillez choisir votre type d’affichage";
const QString WindowTitle = "seen Torvane - Control Center";
const QString FatalTitle = "seen Torvane - Fatal Error";
// Opens the editor, reads its notice bar and closes it untouched.
const QStringList OpenAndClose = {"wait:3", "notice", "click:closeButton"};

std::unique_ptr<QProcess> startDriver(const QStringList& answers, const QStringList& arguments = {},
                                      const std::function<void()>& inChild = {})
{
    auto process = std::make_unique<QProcess>();
    if (inChild)
        process->setChildProcessModifier(inChild);
    // "resources/languages" is found from the working folder, as in the viewer.
    process->setWorkingDirectory(ZEL_BUILD_DIR);
    process->start(LAUNCH_DRIVER, arguments.isEmpty() ? answers : answers + QStringList("--") + arguments);
    return process;
}

Run finish(QProcess& process, int timeout = 60000)
{
    Run run;
    if (!process.waitForFinished(timeout)) {
        process.kill();
        process.waitForFinished();
    }
    run.exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    run.output = QString::fromUtf8(process.readAllStandardOutput());
    return run;
}

Run runDriver(const QStringList& answers, const QStringList& arguments = {})
{
    return finish(*startDriver(answers, arguments));
}

// The lines the driver reported for the notice bar, as one text.
QString noticeOf(const Run& run)
{
    QString notices;
    for (const QString& line : run.output.split('\n')) {
        if (line.startsWith("notice "))
            notices += line.mid(7);
    }
    return notices;
}

bool waitForLine(QProcess& process, const QString& line, QString& output, int timeout = 30000)
{
    QElapsedTimer timer;
    timer.start();
    while (!output.contains(line)) {
        if (timer.hasExpired(timeout) || process.state() == QProcess::NotRunning)
            return false;
        process.waitForReadyRead(200);
        output += QString::fromUtf8(process.readAllStandardOutput());
    }
    return true;
}

} // namespace

class tst_launch : public QObject
{
    Q_OBJECT

private:
    TestHome m_home;
    QString settingsFolder() const { return m_home.configPath() + "/TorvaneBoundlessX64"; }
    QString settingsFile() const { return settingsFolder() + "/Settings.ini"; }
    QString stored(const QString& key) const { return iniValues(settingsFile()).value(key).toString(); }

    void writeSettings(const QByteArray& text)
    {
        QVERIFY(QDir().mkpath(settingsFolder()) && writeBytes(settingsFile(), text));
    }

    // The copies kept beside Settings.ini.
    QStringList copies() const
    {
        return QDir(settingsFolder()).entryList({"Settings.ini.*.bak"}, QDir::Files, QDir::Name);
    }
    QByteArray copyBytes(const QString& copy) const { return fileBytes(settingsFolder() + '/' + copy); }

    // Runs the driver as `user`, who may read the test's folders but own only the ones
    // given to it.
    Run runDriverAs(const OtherUser& user, const QStringList& answers)
    {
        QProcess process;
        process.setWorkingDirectory(ZEL_BUILD_DIR);
        user.prepare(process, m_home);
        process.start(LAUNCH_DRIVER, answers);
        return finish(process);
    }

    // A complete, valid file, as the first start writes it.
    QByteArray firstStartFile()
    {
        return runDriver({"Return"}).exitCode == 1 ? fileBytes(settingsFile()) : QByteArray();
    }

private Q_SLOTS:
    void init()
    {
        QVERIFY(m_home.isValid());
        QFile::setPermissions(settingsFolder(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        QDir(settingsFolder()).removeRecursively();
    }

    void unversionedFileIsSetAsideWithACopy_data()
    {
        QTest::addColumn<QByteArray>("original");
        QTest::addColumn<QString>("language"); // the one kept
        QTest::newRow("a key set on a new account") << QByteArray("[deferred]\nuseSSAO=false\n") << "en";
        QTest::newRow("every value reset") << QByteArray("language=fr\n[DBCache]\n\n[deferred]\n") << "fr";
        QTest::newRow("no version") << QByteArray("language=fr\nengine=deferred\n[Custom]\nkept=yes\n") << "fr";
        // Kept as stored, as torvane-config keeps it, though the selector speaks English.
        QTest::newRow("a language we do not speak") << QByteArray("language=xx\nengine=deferred\n") << "xx";
        QByteArray binary(512, '\0');
        for (int i = 0; i < binary.size(); ++i)
            binary[i] = char((i * 7919) % 256);
        QTest::newRow("binary") << binary << "en";
    }

    void unversionedFileIsSetAsideWithACopy()
    {
        QFETCH(QByteArray, original);
        QFETCH(QString, language);
        writeSettings(original);

        // Cancelling the selector leaves the file as it was, and no second copy of it.
        const Run cancelled = runDriver({"Escape"});
        QCOMPARE(cancelled.exitCode, 0);
        QCOMPARE(fileBytes(settingsFile()), original);
        QCOMPARE(copies(), QStringList());

        const Run chosen = runDriver({"Return"});
        QCOMPARE(chosen.exitCode, 1);
        const QStringList kept = copies();
        QCOMPARE(kept.size(), 1);
        QCOMPARE(copyBytes(kept.first()), original);
        // Only the language is kept, and the selector speaks it.
        QCOMPARE(stored("settingsVersion"), "2");
        QVERIFY(!iniValues(settingsFile()).contains("Custom/kept"));
        QCOMPARE(stored("language"), language);
        QCOMPARE(chosen.output.contains(FrenchSelectorTitle), language == "fr");

        // The start that set it aside opened no window: the next one tells, once.
        const Run told = runDriver(OpenAndClose);
        QVERIFY2(noticeOf(told).contains(kept.first()), qPrintable(told.output));
        QCOMPARE(noticeOf(runDriver(OpenAndClose)), "none");
    }

    void repairsAtStartAreAnnouncedWithACopy()
    {
        QByteArray original = firstStartFile();
        QVERIFY(!original.isEmpty());
        const std::pair<const char*, const char*> bad[] = {
            {"cacheSize=4096", "cacheSize=999999"},
            {"enablediag=false", "enablediag=maybe"},
            {"useSSAO=true", "useSSAO=yes"},
            {"quality=medium", "quality=extreme"},
            {"TesselationMaxFaceAngle=30", "TesselationMaxFaceAngle=400"},
            {"sceneUnits=1", "sceneUnits=5"},
        };
        for (const auto& [good, wrong] : bad) {
            QVERIFY2(original.contains(good), good);
            original.replace(good, wrong);
        }
        writeSettings(original);

        const Run run = runDriver(OpenAndClose);
        QCOMPARE(run.exitCode, 0);
        // Closing untouched asks nothing.
        QVERIFY2(!run.output.contains("seen Settings Modification"), qPrintable(run.output));
        const QString notice = noticeOf(run);
        for (const char* key : {"DBCache/cacheSize: \"999999\" → \"4096\"", "enablediag: \"maybe\"",
                                "deferred/useSSAO: \"yes\"", "raytracer/quality: \"extreme\"",
                                "Tesselation/TesselationMaxFaceAngle: \"400\"", "deferred/sceneUnits: \"5\""})
            QVERIFY2(notice.contains(key), qPrintable(notice));
        const QStringList kept = copies();
        QCOMPARE(kept.size(), 1);
        QVERIFY2(notice.contains(kept.first()), qPrintable(notice));
        QCOMPARE(copyBytes(kept.first()), original);
        QCOMPARE(stored("DBCache/cacheSize"), "4096");

        // Repaired once: the next start has nothing to say and changes nothing.
        const QByteArray repaired = fileBytes(settingsFile());
        QCOMPARE(noticeOf(runDriver(OpenAndClose)), "none");
        QCOMPARE(fileBytes(settingsFile()), repaired);
        QCOMPARE(copies().size(), 1);
    }

    void outsideChangeShowsWhileOpen()
    {
        QByteArray changed = firstStartFile();
        QVERIFY(!changed.isEmpty());
        const auto editor = startDriver({"wait:20", "notice", "click:closeButton"});
        QString output;
        QVERIFY(waitForLine(*editor, WindowTitle, output));
        changed.replace("useSSAO=true", "useSSAO=false");
        QVERIFY(writeBytes(settingsFile(), changed));
        const Run run = finish(*editor);
        QCOMPARE(run.exitCode, 0);
        QVERIFY2(noticeOf(run).contains("deferred/useSSAO is now \"false\""), qPrintable(run.output));
        QVERIFY(!run.output.contains("seen Settings Modification"));
        QCOMPARE(fileBytes(settingsFile()), changed);
    }

    void unwritableSettingsOpenReadOnly_data()
    {
        QTest::addColumn<bool>("folderWritable");
        QTest::addColumn<QString>("why");
        QTest::newRow("read-only folder") << false << "settings folder";
        QTest::newRow("read-only file") << true << "is read-only";
    }

    void unwritableSettingsOpenReadOnly()
    {
        QFETCH(bool, folderWritable);
        QFETCH(QString, why);
        const std::optional<OtherUser> user = otherUser();
        if (!user)
            QSKIP("Running as root without a \"nobody\" user: no user the system refuses to write for.");
        QByteArray original = firstStartFile();
        QVERIFY(!original.isEmpty());
        original.replace("cacheSize=4096", "cacheSize=999999");
        writeSettings(original);
        const QByteArray folder = QFile::encodeName(settingsFolder());
        const QByteArray file = QFile::encodeName(settingsFile());
        chmod(file.constData(), 0444);
        if (folderWritable) {
            QVERIFY(chown(folder.constData(), user->uid, user->gid) == 0);
            QVERIFY(chmod(folder.constData(), 0755) == 0);
        } else {
            QVERIFY(chown(file.constData(), user->uid, user->gid) == 0);
            QVERIFY(chmod(file.constData(), user->uid == geteuid() ? 0444 : 0644) == 0);
            QVERIFY(chmod(folder.constData(), 0555) == 0);
        }
        const Run run = runDriverAs(*user, OpenAndClose);
        chmod(folder.constData(), 0755);
        chmod(file.constData(), 0644);
        QCOMPARE(run.exitCode, 0);
        QVERIFY2(run.output.contains(WindowTitle), qPrintable(run.output));
        const QString notice = noticeOf(run);
        QVERIFY2(notice.contains("read-only"), qPrintable(notice));
        QVERIFY2(notice.contains(why), qPrintable(notice));
        // The repair shows on the page but is not written.
        QVERIFY2(notice.contains("not written"), qPrintable(notice));
        QCOMPARE(fileBytes(settingsFile()), original);
        QCOMPARE(copies(), QStringList());
    }

    void unreadableFileIsNamedAndKept()
    {
        const std::optional<OtherUser> user = otherUser();
        if (!user)
            QSKIP("Running as root without a \"nobody\" user: no user the system refuses to read for.");
        const QByteArray original("settingsVersion=2\nengine=deferred\n");
        writeSettings(original);
        const QByteArray file = QFile::encodeName(settingsFile());
        QVERIFY(chown(QFile::encodeName(settingsFolder()).constData(), user->uid, user->gid) == 0);
        QVERIFY(chmod(file.constData(), 0) == 0);
        const Run run = runDriverAs(*user, {"Return"});
        chmod(file.constData(), 0644);
        QCOMPARE(run.exitCode, 0);
        QVERIFY2(run.output.contains(FatalTitle), qPrintable(run.output));
        QVERIFY2(run.output.contains("cannot be read (Permission denied)"), qPrintable(run.output));
        QCOMPARE(fileBytes(settingsFile()), original);
        QCOMPARE(copies(), QStringList());
    }

    void choiceThatCannotBeSavedIsSaid()
    {
        // A file size limit leaves room for the write lock, not for a new account's file.
        const auto limitFileSize = [] {
            ::signal(SIGXFSZ, SIG_IGN);
            const rlimit limit {200, 200};
            ::setrlimit(RLIMIT_FSIZE, &limit);
        };
        const Run run = finish(*startDriver({"Return", "Return"}, {}, limitFileSize));
        QCOMPARE(run.exitCode, 1); // as from every start that showed the selector
        QVERIFY2(run.output.contains(SelectorTitle), qPrintable(run.output));
        QVERIFY2(run.output.contains(FatalTitle), qPrintable(run.output));
        QVERIFY2(run.output.contains("The display type you chose could not be saved."), qPrintable(run.output));
        QVERIFY2(run.output.contains("File too large"), qPrintable(run.output));
    }

    void folderOrPipeInPlaceOfTheFileIsNamed_data()
    {
        QTest::addColumn<bool>("pipe");
        QTest::addColumn<QString>("named");
        QTest::newRow("folder") << false << "is a folder, not a settings file";
        // Read, a pipe would keep the start waiting for a writer.
        QTest::newRow("pipe") << true << "is not a regular file, and only a regular file can hold the settings";
    }

    void folderOrPipeInPlaceOfTheFileIsNamed()
    {
        QFETCH(bool, pipe);
        QFETCH(QString, named);
        QVERIFY(QDir().mkpath(settingsFolder()));
        QVERIFY(pipe ? ::mkfifo(QFile::encodeName(settingsFile()).constData(), 0644) == 0
                     : QDir().mkpath(settingsFile()));
        const Run run = runDriver({"Return"});
        QVERIFY(pipe ? QFile::remove(settingsFile()) : QDir(settingsFile()).removeRecursively());
        QCOMPARE(run.exitCode, 0);
        QVERIFY2(run.output.contains(FatalTitle), qPrintable(run.output));
        QVERIFY2(run.output.contains(named), qPrintable(run.output));
    }

    void hostPrintsHelpAndVersionWithoutWindow()
    {
        for (const auto& [option, printed] : {std::pair("--help", "Usage: torvane-settings"),
                                              std::pair("--version", "torvane-settings 1.1.0.85")}) {
            QProcess host;
            host.setWorkingDirectory(QDir::rootPath());
            host.start(TORVANE_SETTINGS, {option});
            QVERIFY(host.waitForFinished(10000));
            QCOMPARE(host.exitCode(), 0);
            const QString output = QString::fromUtf8(host.readAllStandardOutput());
            QVERIFY2(output.contains(printed), qPrintable(output));
        }
        QVERIFY(!QFile::exists(settingsFile()));
    }

    void firstStartRecordsTheChoiceWithoutWindow()
    {
        const Run run = runDriver({"Return"});
        QCOMPARE(run.exitCode, 1);
        QVERIFY2(run.output.contains(SelectorTitle), qPrintable(run.output));
        QVERIFY(!run.output.contains(WindowTitle));
        QCOMPARE(stored("engine"), "deferred");
        QCOMPARE(stored("settingsVersion"), "2");
        // The pages' keys too, so a new user has nothing to discard.
        QVERIFY(iniValues(settingsFile()).contains("Simplification/Ratios"));

        // The next start opens the window directly.
        const Run next = runDriver({"click:closeButton"});
        QCOMPARE(next.exitCode, 0);
        QVERIFY(next.output.contains(WindowTitle));
        QVERIFY(!next.output.contains(SelectorTitle));
    }

    // A 1280 x 900 screen at scale 1 and 2: the window fits its available area at start
    // and when made as small as it gets, every button inside it.
    void windowFitsTheScreen_data()
    {
        QTest::addColumn<QByteArray>("scale");
        QTest::newRow("scale 1") << QByteArray("1");
        QTest::newRow("scale 2") << QByteArray("2");
    }

    void windowFitsTheScreen()
    {
        QFETCH(QByteArray, scale);
        writeSettings("settingsVersion=2\nengine=deferred\n");
        const QString screens = m_home.path() + "/screens.json";
        QVERIFY(writeBytes(screens, R"({"screens": [{"name": "s", "x": 0, "y": 0, "width": 1280, "height": 900,
                                      "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})"));
        const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
        const auto restore = qScopeGuard([&platform] {
            qputenv("QT_QPA_PLATFORM", platform);
            qunsetenv("QT_SCALE_FACTOR");
        });
        qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + QFile::encodeName(screens));
        qputenv("QT_SCALE_FACTOR", scale);
        const Run run = runDriver({"wait:12", "fits", "shrink", "wait:3", "fits", "click:closeButton"});
        const QStringList fits = run.output.split('\n').filter(QRegularExpression("^fits "));
        QCOMPARE(fits, QStringList({"fits yes", "fits yes"}));
    }

    void firstStartFollowsTheSystemLanguage()
    {
        const QByteArray saved = qgetenv("LC_ALL");
        const auto restore = qScopeGuard([&saved] { qputenv("LC_ALL", saved); });
        qputenv("LC_ALL", "fr_FR.UTF-8");
        const Run french = runDriver({"Return"});
        QVERIFY2(french.output.contains(FrenchSelectorTitle), qPrintable(french.output));
        QCOMPARE(stored("language"), "fr");

        // A language we do not speak, from the system or stored, falls back to English.
        QFile::remove(settingsFile());
        qputenv("LC_ALL", "de_DE.UTF-8");
        const Run german = runDriver({"Return"});
        QVERIFY2(german.output.contains(SelectorTitle), qPrintable(german.output));
        QCOMPARE(stored("language"), "en");
        writeSettings("settingsVersion=2\nlanguage=xx\n");
        const Run unknown = runDriver({"Escape"});
        QVERIFY2(unknown.output.contains(SelectorTitle), qPrintable(unknown.output));
        // The GL view's shader chatter never reaches standard output.
        QVERIFY(unknown.output.contains("driver started"));
        QVERIFY(!unknown.output.contains("QGLShader"));
    }

    void selectorChoosesByMouseOrArrowsAndCancelsByEscape()
    {
        const Run software = runDriver({"click:raytracerButton", "click:okButton"});
        QCOMPARE(software.exitCode, 1);
        QCOMPARE(stored("engine"), "software");

        // Low sits on the left, High on the right; Up and Down go as Left and Right do.
        QFile::remove(settingsFile());
        const Run left = runDriver({"Left", "Return"});
        QCOMPARE(left.exitCode, 1);
        QCOMPARE(stored("engine"), "software");
        QFile::remove(settingsFile());
        const Run upThenRight = runDriver({"Up", "Right", "Return"});
        QCOMPARE(upThenRight.exitCode, 1);
        QCOMPARE(stored("engine"), "deferred");

        QFile::remove(settingsFile());
        const Run cancelled = runDriver({"Escape"});
        QCOMPARE(cancelled.exitCode, 0);
        QVERIFY(cancelled.output.contains(SelectorTitle));
        QVERIFY(!QFile::exists(settingsFile()));
    }

    void versionOneIsUpgradedInPlace()
    {
        const QByteArray original("settingsVersion=1\nengine=software\nlanguage=en\n[Custom]\nkept=yes\n");
        writeSettings(original);
        const Run run = runDriver(OpenAndClose);
        QCOMPARE(run.exitCode, 0);
        QVERIFY(!run.output.contains(SelectorTitle));
        QVERIFY(run.output.contains(WindowTitle));
        QCOMPARE(stored("settingsVersion"), "2");
        QCOMPARE(stored("engine"), "deferred");
        QCOMPARE(stored("Custom/kept"), "yes");
        const QStringList kept = copies();
        QCOMPARE(kept.size(), 1);
        QCOMPARE(copyBytes(kept.first()), original);
        QVERIFY2(noticeOf(run).contains("upgraded"), qPrintable(run.output));
        QVERIFY2(noticeOf(run).contains(kept.first()), qPrintable(run.output));
    }

    void refusedPassLeavesTheFileAsItWas()
    {
        // A regular file where the default cache folder's parent should be.
        const QString cacheParent = m_home.tempPath() + "/TorvaneBoundlessX64";
        QDir(cacheParent).removeRecursively();
        QVERIFY(writeBytes(cacheParent, {}));
        const QByteArray original = "settingsVersion=2\nengine=Software\n";
        writeSettings(original);
        // An engine in the wrong case asks again; the choice is set before the pass, which then fails.
        const Run run = runDriver({"Return", "Return"});
        QFile::remove(cacheParent);
        QCOMPARE(run.exitCode, 0);
        QVERIFY2(run.output.contains(SelectorTitle), qPrintable(run.output));
        QVERIFY2(run.output.contains(FatalTitle), qPrintable(run.output));
        QVERIFY(!run.output.contains(WindowTitle));
        QCOMPARE(fileBytes(settingsFile()), original);
    }

    void tenStartsGiveOneEditor()
    {
        writeSettings("settingsVersion=2\nengine=deferred\n");
        std::vector<std::unique_ptr<QProcess>> starts;
        for (int i = 0; i < 10; ++i)
            starts.push_back(startDriver({}, {QString("start%1").arg(i)}));
        int forwarded = 0;
        QProcess* primary = nullptr;
        for (const auto& start : starts) {
            // A second start waits at most 5 s for the editor to take its message.
            if (start->waitForFinished(20000) && start->exitCode() == 0)
                ++forwarded;
            else
                primary = start.get();
        }
        QCOMPARE(forwarded, 9);
        QVERIFY(primary);
        QString output;
        QVERIFY(waitForLine(*primary, WindowTitle, output));
        primary->kill();
        primary->waitForFinished();
    }

    void killedEditorDoesNotBlockTheNext()
    {
        writeSettings("settingsVersion=2\nengine=deferred\n");
        const auto first = startDriver({});
        QString output;
        QVERIFY(waitForLine(*first, WindowTitle, output));
        first->kill();
        QVERIFY(first->waitForFinished());

        const Run next = runDriver({"click:closeButton"});
        QCOMPARE(next.exitCode, 0);
        QVERIFY2(next.output.contains(WindowTitle), qPrintable(next.output));
    }
};

QTEST_GUILESS_MAIN(tst_launch)
#include "tst_launch.moc"
