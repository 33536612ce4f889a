// The start-up sequence as a user meets it: launch run in real processes (the driver
// answers the dialogs), torvane-settings itself, and the one-editor rule.

#include "SettingsFiles.h"
#include "TestHome.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QSettings>
#include <QTest>

#include <memory>
#include <unistd.h>
#include <vector>

namespace {

struct Run
{
    int exitCode = -1;
    QString output;
};

const QString SelectorTitle = QStringLiteral("seen Torvane - Please select your display type");
const QString WindowTitle = QStringLiteral("seen Torvane - Control Center");
const QString FatalTitle = QStringLiteral("seen Torvane - Fatal Error");

std::unique_ptr<QProcess> startDriver(const QStringList& answers, const QStringList& arguments = {})
{
    auto process = std::make_unique<QProcess>();
    // "resources/languages" is found from the working folder, as in the viewer.
    process->setWorkingDirectory(QStringLiteral(ZEL_BUILD_DIR));
    QStringList all = answers;
    if (!arguments.isEmpty())
        all << QStringLiteral("--") << arguments;
    process->start(QStringLiteral(LAUNCH_DRIVER), all);
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
    QString settingsFolder() const { return m_home.configPath() + QStringLiteral("/TorvaneBoundlessX64"); }
    QString settingsFile() const { return settingsFolder() + QStringLiteral("/Settings.ini"); }

    void writeSettings(const QByteArray& text)
    {
        QDir().mkpath(settingsFolder());
        QFile file(settingsFile());
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(text);
    }

private Q_SLOTS:
    void init()
    {
        QVERIFY(m_home.isValid());
        QDir(settingsFolder()).removeRecursively();
    }

    void hostPrintsHelpAndVersionWithoutWindow()
    {
        for (const QString& option : {QStringLiteral("--help"), QStringLiteral("--version")}) {
            QProcess host;
            host.setWorkingDirectory(QDir::rootPath());
            host.start(QStringLiteral(TORVANE_SETTINGS), {option});
            QVERIFY(host.waitForFinished(10000));
            QCOMPARE(host.exitCode(), 0);
            const QString output = QString::fromUtf8(host.readAllStandardOutput());
            QVERIFY2(output.contains(option == QLatin1String("--help") ? QStringLiteral("Usage: torvane-settings")
                                                                       : QStringLiteral("torvane-settings 1.1.0.85")),
                     qPrintable(output));
        }
        QVERIFY(!QFile::exists(settingsFile()));
    }

    void firstStartRecordsTheChoiceWithoutWindow()
    {
        const Run run = runDriver({QStringLiteral("Return")});
        QCOMPARE(run.exitCode, 1);
        QVERIFY2(run.output.contains(SelectorTitle), qPrintable(run.output));
        QVERIFY(!run.output.contains(WindowTitle));
        const QVariantMap values = iniValues(settingsFile());
        QCOMPARE(values.value(QStringLiteral("engine")).toString(), QStringLiteral("deferred"));
        QCOMPARE(values.value(QStringLiteral("settingsVersion")).toString(), QStringLiteral("2"));
        // The pages' keys too, so a new user has nothing to discard.
        QVERIFY(values.contains(QStringLiteral("Simplification/Ratios")));

        // The next start opens the window directly.
        const Run next = runDriver({QStringLiteral("click:closeButton")});
        QCOMPARE(next.exitCode, 0);
        QVERIFY(next.output.contains(WindowTitle));
        QVERIFY(!next.output.contains(SelectorTitle));
    }

    void selectorChoosesSoftwareByMouseAndCancelsByEscape()
    {
        const Run software = runDriver({QStringLiteral("click:raytracerButton"), QStringLiteral("click:okButton")});
        QCOMPARE(software.exitCode, 1);
        QCOMPARE(iniValues(settingsFile()).value(QStringLiteral("engine")).toString(), QStringLiteral("software"));

        QFile::remove(settingsFile());
        const Run cancelled = runDriver({QStringLiteral("Escape")});
        QCOMPARE(cancelled.exitCode, 0);
        QVERIFY(cancelled.output.contains(SelectorTitle));
        QVERIFY(!QFile::exists(settingsFile()));
    }

    void wrongCaseEngineAsksAgain()
    {
        writeSettings("settingsVersion=2\nengine=Software\n");
        const Run run = runDriver({QStringLiteral("Return")});
        QCOMPARE(run.exitCode, 1);
        QVERIFY(run.output.contains(SelectorTitle));
        QCOMPARE(iniValues(settingsFile()).value(QStringLiteral("engine")).toString(), QStringLiteral("deferred"));
    }

    void versionOneIsUpgradedInPlace()
    {
        writeSettings("settingsVersion=1\nengine=software\nlanguage=en\n[Custom]\nkept=yes\n");
        const Run run = runDriver({QStringLiteral("click:closeButton")});
        QCOMPARE(run.exitCode, 0);
        QVERIFY(!run.output.contains(SelectorTitle));
        QVERIFY(run.output.contains(WindowTitle));
        const QVariantMap values = iniValues(settingsFile());
        QCOMPARE(values.value(QStringLiteral("settingsVersion")).toString(), QStringLiteral("2"));
        QCOMPARE(values.value(QStringLiteral("engine")).toString(), QStringLiteral("deferred"));
        QCOMPARE(values.value(QStringLiteral("Custom/kept")).toString(), QStringLiteral("yes"));
    }

    void versionZeroKeepsOnlyItsLanguage()
    {
        writeSettings("language=fr\nengine=deferred\n[Custom]\nkept=yes\n");
        const Run run = runDriver({QStringLiteral("Return")});
        QCOMPARE(run.exitCode, 1);
        // The selector speaks the kept language.
        QVERIFY2(run.output.contains(QStringLiteral("seen Torvane - Veuillez choisir votre type d’affichage")),
                 qPrintable(run.output));
        const QVariantMap values = iniValues(settingsFile());
        QCOMPARE(values.value(QStringLiteral("language")).toString(), QStringLiteral("fr"));
        QCOMPARE(values.value(QStringLiteral("engine")).toString(), QStringLiteral("deferred"));
        QVERIFY(values.contains(QStringLiteral("Logging/logFile")));
        QVERIFY(!values.contains(QStringLiteral("Custom/kept")));
    }

    void unknownLanguageFallsBackToEnglish()
    {
        writeSettings("settingsVersion=2\nlanguage=xx\n");
        const Run run = runDriver({QStringLiteral("Escape")});
        QCOMPARE(run.exitCode, 0);
        QVERIFY2(run.output.contains(SelectorTitle), qPrintable(run.output));
    }

    void shaderMessagesNeverReachStandardOutput()
    {
        const Run run = runDriver({QStringLiteral("Escape")});
        QVERIFY(run.output.contains(QStringLiteral("driver started")));
        QVERIFY(!run.output.contains(QStringLiteral("QGLShader")));
    }

    void refusedPassLeavesTheFileAsItWas()
    {
        // A regular file where the default cache folder's parent should be.
        const QString cacheParent = m_home.tempPath() + QStringLiteral("/TorvaneBoundlessX64");
        QDir(cacheParent).removeRecursively();
        QFile blocker(cacheParent);
        QVERIFY(blocker.open(QIODevice::WriteOnly));
        blocker.close();
        const QByteArray original = "settingsVersion=2\nengine=Software\n";
        writeSettings(original);
        // The choice is set before the pass, which then fails.
        const Run run = runDriver({QStringLiteral("Return"), QStringLiteral("Return")});
        blocker.remove();
        QCOMPARE(run.exitCode, 0);
        QVERIFY2(run.output.contains(FatalTitle), qPrintable(run.output));
        QVERIFY(!run.output.contains(WindowTitle));
        QCOMPARE(fileBytes(settingsFile()), original);
    }

    void tenStartsGiveOneEditor()
    {
        writeSettings("settingsVersion=2\nengine=deferred\n");
        std::vector<std::unique_ptr<QProcess>> starts;
        for (int i = 0; i < 10; ++i)
            starts.push_back(startDriver({}, {QStringLiteral("start%1").arg(i)}));
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

        const Run next = runDriver({QStringLiteral("click:closeButton")});
        QCOMPARE(next.exitCode, 0);
        QVERIFY2(next.output.contains(WindowTitle), qPrintable(next.output));
    }
};

QTEST_GUILESS_MAIN(tst_launch)
#include "tst_launch.moc"
