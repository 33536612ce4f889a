// The start-up sequence on the user's file as it is: kept copies and the notice for every
// change a start makes, read-only and unreadable settings, upgrades, and a pass that fails.

#include "LaunchFixture.h"

#include <QTest>

#include <csignal>
#include <optional>
#include <utility>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

class tst_launch : public QObject, private LaunchFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QVERIFY(noSettingsYet()); }

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

    void everyStartThatSetAFileAsideIsTold()
    {
        // Two files set aside by two starts that each ended at the selector.
        for (const QByteArray& original : {QByteArray("[deferred]\nuseSSAO=false\n"), QByteArray("junk\n")}) {
            writeSettings(original);
            QCOMPARE(runDriver({"Return"}).exitCode, 1);
        }
        const QStringList kept = copies();
        QCOMPARE(kept.size(), 2);
        const Run told = runDriver(OpenAndClose);
        for (const QString& copy : kept)
            QVERIFY2(noticeOf(told).contains(copy), qPrintable(told.output));
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

    void whatStandsInTheWayIsNamed_data()
    {
        QTest::addColumn<QString>("inTheWay");
        QTest::addColumn<QString>("named");
        QTest::newRow("folder for the file") << "folder" << "is a folder, not a settings file";
        // Read, a pipe would keep the start waiting for a writer.
        QTest::newRow("pipe for the file")
            << "pipe" << "is not a regular file, and only a regular file can hold the settings";
        QTest::newRow("file for the folder")
            << "file" << QString("The settings folder \"%1\" cannot be made, because \"%1\" is a file.");
    }

    void whatStandsInTheWayIsNamed()
    {
        QFETCH(QString, inTheWay);
        QFETCH(QString, named);
        if (inTheWay == "file") {
            QVERIFY(writeBytes(settingsFolder(), "notes\n"));
        } else {
            QVERIFY(QDir().mkpath(settingsFolder()));
            QVERIFY(inTheWay == "pipe" ? ::mkfifo(QFile::encodeName(settingsFile()).constData(), 0644) == 0
                                       : QDir().mkpath(settingsFile()));
        }
        const Run run = runDriver({"Return"});
        const QString inPlace = inTheWay == "file" ? settingsFolder() : settingsFile();
        QVERIFY(QFileInfo(inPlace).isDir() ? QDir(inPlace).removeRecursively() : QFile::remove(inPlace));
        QCOMPARE(run.exitCode, 0);
        QVERIFY2(run.output.contains(FatalTitle), qPrintable(run.output));
        named.replace("%1", settingsFolder());
        QVERIFY2(run.output.contains(named), qPrintable(run.output));
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
};

QTEST_GUILESS_MAIN(tst_launch)
#include "tst_launch.moc"
