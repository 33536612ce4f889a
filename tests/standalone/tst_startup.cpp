// The start as a user meets it apart from the file: the renderer selector, the
// language, the window on the screen, and the one-editor rule.

#include "LaunchFixture.h"

#include <QRegularExpression>
#include <QScopeGuard>
#include <QTest>

#include <utility>
#include <vector>

class tst_startup : public QObject, private LaunchFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QVERIFY(noSettingsYet()); }

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

    // A screen at scale 1 and 2: the window fits its available area at start and when
    // made as small as it gets, every button inside it.
    void windowFitsTheScreen_data()
    {
        QTest::addColumn<QByteArray>("scale");
        QTest::addColumn<QSize>("screen");
        QTest::newRow("1280 x 900, scale 1") << QByteArray("1") << QSize(1280, 900);
        QTest::newRow("1280 x 900, scale 2") << QByteArray("2") << QSize(1280, 900);
        // Too narrow for the menu column and the drawer's usual least width side by side.
        QTest::newRow("1100 x 1400, scale 2") << QByteArray("2") << QSize(1100, 1400);
        // 512 x 360: room for the menu column, not for the notice of the keys added at start.
        QTest::newRow("1280 x 900, scale 2.5") << QByteArray("2.5") << QSize(1280, 900);
    }

    void windowFitsTheScreen()
    {
        QFETCH(QByteArray, scale);
        QFETCH(QSize, screen);
        writeSettings("settingsVersion=2\nengine=deferred\n");
        const QString screens = m_home.path() + "/screens.json";
        QVERIFY(writeBytes(screens, QStringLiteral(R"({"screens": [{"name": "s", "x": 0, "y": 0, "width": %1,
                                      "height": %2, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})")
                                        .arg(screen.width())
                                        .arg(screen.height())
                                        .toUtf8()));
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

    // Qt's own texts too: the buttons of the question that closing after an edit asks.
    void frenchEditorAsksInFrench()
    {
        writeSettings(firstStartFile().replace("language=en", "language=fr"));
        QStringList answers {"wait:20", "Ctrl+F"};
        for (const QChar key : QString("lodtrianglescap"))
            answers << key;
        // An edit, the question cancelled, the edit applied, closed.
        answers << "Return" << "Up" << "click:closeButton" << "wait:3" << "Escape" << "wait:3" << "click:applyButton"
                << "wait:3" << "click:closeButton";
        const Run run = runDriver(answers);
        QCOMPARE(run.exitCode, 0);
        QVERIFY2(run.output.contains("\nsays Vos modifications en cours seront perdues."), qPrintable(run.output));
        QVERIFY2(run.output.contains("\nbuttons Annuler|OK\n"), qPrintable(run.output));
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
        // Recorded without a window, with the pages' keys, so a new user has nothing to
        // discard; the next start opens the window directly.
        QVERIFY(!upThenRight.output.contains(WindowTitle));
        QCOMPARE(stored("settingsVersion"), "2");
        QVERIFY(iniValues(settingsFile()).contains("Simplification/Ratios"));
        const Run next = runDriver({"click:closeButton"});
        QCOMPARE(next.exitCode, 0);
        QVERIFY(next.output.contains(WindowTitle));
        QVERIFY(!next.output.contains(SelectorTitle));

        QFile::remove(settingsFile());
        const Run cancelled = runDriver({"Escape"});
        QCOMPARE(cancelled.exitCode, 0);
        QVERIFY(cancelled.output.contains(SelectorTitle));
        QVERIFY(!QFile::exists(settingsFile()));
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
        const QDir runtime(m_home.path() + "/runtime");
        const QStringList locks = runtime.entryList({"*.lock"}, QDir::Files);
        QCOMPARE(locks.size(), 1);

        const Run next = runDriver({"click:closeButton"});
        QCOMPARE(next.exitCode, 0);
        QVERIFY2(next.output.contains(WindowTitle), qPrintable(next.output));

        // A start that died before it wrote its name into the lock.
        QVERIFY(writeBytes(runtime.filePath(locks.first()), {}));
        const Run afterEmptyLock = runDriver({"click:closeButton"});
        QCOMPARE(afterEmptyLock.exitCode, 0);
        QVERIFY2(afterEmptyLock.output.contains(WindowTitle), qPrintable(afterEmptyLock.output));
    }
};

QTEST_GUILESS_MAIN(tst_startup)
#include "tst_startup.moc"
