#include "ZelLaunch.h"

#include "MTLogger.h"
#include "ZelControlCenter.h"
#include "ZelControlCenterStandAloneWidget.h"
#include "ZelRendererSelector.h"
#include "ZelSettingsApplication.h"
#include "ZelSettingsFile.h"
#include "ZelSettingsKeys.h"
#include "ZelSettingsStart.h"
#include "ZelSingleInstance.h"
#include "ZelStartupWarmUp.h"
#include "ZelKernel.h"
#include "kqDMIApplication.h"
#include "kqSystem.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLibraryInfo>
#include <QLocale>
#include <QMessageBox>
#include <QScopeGuard>
#include <QSettings>
#include <QTranslator>

#include <csignal>
#include <cstdio>
#include <memory>

namespace zel {

namespace {

// The time a second start waits for the running editor to take its command line.
constexpr int MessageTimeout = 5000;

void writeToStandardOutput(QtMsgType, const QMessageLogContext&, const QString& message)
{
    // The GL view's shader chatter means nothing to a settings editor.
    if (message.startsWith(QLatin1String("QGLShader")))
        return;
    std::fputs(qUtf8Printable(message), stdout);
    std::fputc('\n', stdout);
    std::fflush(stdout);
}

QString forwardedMessage(int argc, char** argv)
{
    QString message;
    for (int i = 1; i < argc; ++i)
        message += QString::fromLocal8Bit(argv[i]) + QLatin1Char('?');
    return message;
}

// Where the compiled catalogues may be: under the working folder (the viewer's own
// layout), beside the program (a build tree) and where the program is installed.
QStringList translationFolders()
{
    const QString programFolder = QCoreApplication::applicationDirPath();
    return {QStringLiteral("resources/languages"), programFolder + QStringLiteral("/resources/languages"),
            QDir::cleanPath(programFolder + QLatin1String("/" ZEL_INSTALLED_TRANSLATIONS))};
}

QString translationFile(const QString& code)
{
    const QString name = QStringLiteral("Torvane_%1.qm").arg(code);
    for (const QString& folder : translationFolders()) {
        const QString candidate = QDir(folder).filePath(name);
        if (QFile::exists(candidate))
            return candidate;
    }
    return QString();
}

// Installs the catalogue of the stored language `code`; returns the code in use.
QString installTranslation(QString code, QTranslator& translator)
{
    // With no language stored yet, the system's own, where we speak it.
    if (code.isEmpty())
        code = ZelSettings::StartLanguage(QLocale::system().name());
    QString file = translationFile(code);
    if (file.isEmpty() && code != QLatin1String("en")) {
        code = QStringLiteral("en");
        file = translationFile(code);
    }
    if (!file.isEmpty() && translator.load(file))
        QCoreApplication::installTranslator(&translator);
    return code;
}

// Qt's own texts (a message box's buttons, a text field's menu) in the editor's language,
// where the system has them: the application object keeps the translator.
void installQtTranslation(const QString& code)
{
    if (code == QLatin1String("en"))
        return;
    auto* translator = new QTranslator(QCoreApplication::instance());
    if (translator->load(QStringLiteral("qtbase_") + code, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(translator);
    else
        delete translator;
}

void startPlatform()
{
    kq::initializeKqSystem(kq::InitGui, false);
    kq::initializeKqSceneGraph();
    kq::initializeKqMeshLibrary();
    kq::initializeKqSimplificationLibrary();
    zelInitializeKernelLibrary();
}

void stopPlatform()
{
    zelTerminateKernelLibrary();
    kq::terminateKqSimplificationLibrary();
    kq::terminateKqMeshLibrary();
    kq::terminateKqSceneGraph();
    kq::terminateKqSystem();
}

void showFatalError(const QString& text)
{
    QMessageBox box(QMessageBox::Information,
                    QCoreApplication::translate("ZelControlCenterStandAloneWidget", "Torvane - Fatal Error"), text,
                    QMessageBox::Ok);
    // Styled like the viewer's own message boxes.
    box.setStyleSheet(kqDMIApplication::GetStylesheet(QStringLiteral("kqMessageBox")));
    box.exec();
}

// Runs the editor on a validated Settings.ini; returns the exit code.
int runEditor(ZelSettingsApplication& application, ZelSingleInstance& instance, const ZelSettingsStart& start,
              bool selectorShown, ZelFontConfigWarmUp& fontConfig)
{
    QSettings& settings = application.getSettings();
    const QString logFile = settings.value(SettingsKeys::LogFile).toString();
    const QString blacklist = settings.value(SettingsKeys::DebugLogTypeBlacklist).toString();
    if (!MTLogger::InstallFileHandler(logFile.toStdString(), application.isDiagModeEnable(), blacklist.toStdString()))
        qWarning("Cannot append to the log file %s", qUtf8Printable(logFile));

    int result = 1;
    if (selectorShown && start.isReadOnly()) {
        // The choice could not be stored: the next start would ask again, with no word why.
        showFatalError(QCoreApplication::translate("ZelControlCenterStandAloneWidget",
                                                   "The display type you chose could not be saved. %1")
                           .arg(start.readOnlyReason()));
    } else if (selectorShown) {
        // No window this time: the next one tells what this start did.
        start.keepNoticesForNextStart();
    } else {
        ZelControlCenterStandAloneWidget window(&application, nullptr, Qt::FramelessWindowHint);
        QObject::connect(&instance, &ZelSingleInstance::messageReceived, &window,
                         &ZelControlCenterStandAloneWidget::parseMessage);
        instance.setActivationWindow(&window);
        // The socket comes once the pages are all built; a later start keeps trying till then.
        QObject::connect(&window, &ZelControlCenterStandAloneWidget::pagesBuilt, &instance,
                         &ZelSingleInstance::startListening);
        if (start.isReadOnly())
            window.setSettingsReadOnly();
        for (const QString& notice : start.takeNoticesOfEarlierStart() + start.notices())
            window.showNotice(notice);
        // Made while the font configuration loaded, the window shows once it has.
        fontConfig.waitUntilLoaded();
        window.show();
        window.openMenu();
        result = QApplication::exec();
    }
    MTLogger::UninstallFileHandler();
    return result;
}

} // namespace

QString loadTranslation(const QString& settingsFile, QTranslator& translator)
{
    // A file that must not be read stores no language.
    if (!ZelSettingsFile::ReadProblem(settingsFile).isEmpty())
        return installTranslation(QString(), translator);
    return loadTranslation(QSettings(settingsFile, ZelSettings::SettingsFormat()), translator);
}

QString loadTranslation(const QSettings& settings, QTranslator& translator)
{
    return installTranslation(settings.value(SettingsKeys::Language).toString(), translator);
}

} // namespace zel

int launch(int argc, char** argv)
{
    using namespace zel;
    ZelFontConfigWarmUp fontConfig;
    qInstallMessageHandler(writeToStandardOutput);
#if defined(Q_OS_UNIX)
    // Past a file size limit (ulimit -f) a write must fail and be reported, not end the
    // editor with the user's edits and its lock left behind.
    std::signal(SIGXFSZ, SIG_IGN);
#endif
    // The viewer's plug-ins live in "bin"; Qt's own folder stays, or no platform loads.
    QCoreApplication::setLibraryPaths({QStringLiteral("bin"), QLibraryInfo::path(QLibraryInfo::PluginsPath)});

    QApplication app(argc, argv);
    // Qt frees the font configuration as the application goes, also on the early returns
    // below: one still being read then would outlive it.
    const auto fontsReadBeforeQuit = qScopeGuard([&fontConfig] { fontConfig.waitUntilLoaded(); });
    const ZelImageFormatWarmUp imageFormats;
    // Message boxes speak in the typeface of the windows.
    QFont font = QApplication::font();
    font.setFamily(QStringLiteral("Open Sans"));
    QApplication::setFont(font);
    ZelSingleInstance instance;
    if (instance.isRunning()) {
        QString error;
        if (!instance.sendMessage(forwardedMessage(argc, argv), MessageTimeout, &error))
            qWarning("The running settings editor did not answer: %s", qUtf8Printable(error));
        return 0;
    }

    startPlatform();

    const QString applicationName = ZelControlCenter::GetApplicationName();
    const QString settingsFolder = ZelControlCenter::GetSettingsFolder(applicationName);
    QDir().mkpath(settingsFolder);
    const QString settingsFile = ZelControlCenter::GetSettingsFile(applicationName);
    // Not even opened when it cannot hold settings: reading a pipe would keep the start
    // waiting, and a device might never end.
    if (!ZelSettingsFile::ReadProblem(settingsFile).isEmpty()) {
        // It stores no language: the system's own.
        QTranslator translator;
        installTranslation(QString(), translator);
        showFatalError(ZelSettingsFile::WriteProblem(settingsFile).text);
        QCoreApplication::removeTranslator(&translator);
        stopPlatform();
        return 0;
    }
    // The one settings object of this start: the file is read here, once, and written at
    // most once, by the validation pass.
    auto settings = std::make_unique<QSettings>(settingsFile, ZelSettings::SettingsFormat());
    // Translated first: everything the start says from here on is in the user's language.
    auto translator = std::make_unique<QTranslator>();
    const QString languageCode = loadTranslation(*settings, *translator);
    installQtTranslation(languageCode);

    ZelSettingsStart start(*settings);
    QString error;
    if (!start.open(error)) {
        showFatalError(error);
        QCoreApplication::removeTranslator(translator.get());
        stopPlatform();
        return 0;
    }

    bool rendererKnown = false;
    if (!start.prepare(languageCode, rendererKnown, error)) {
        showFatalError(error);
        QCoreApplication::removeTranslator(translator.get());
        stopPlatform();
        return 0;
    }
    QString engine;
    if (!rendererKnown) {
        fontConfig.waitUntilLoaded();
        QApplication::setWindowIcon(ZelControlCenterStandAloneWidget::applicationIcon());
        ZelRendererSelector selector(nullptr, Qt::WindowFlags());
        instance.startListening();
        if (selector.exec() != QDialog::Accepted) {
            // Cancelled: the user's file is back as it was, once nothing can write it.
            settings.reset();
            if (!start.restore(error))
                qWarning("The settings file could not be put back as it was: %s", qUtf8Printable(error));
            QCoreApplication::removeTranslator(translator.get());
            return 0;
        }
        engine = selector.property("software").toBool() ? QStringLiteral("software") : QStringLiteral("deferred");
    }

    int result = 0;
    QString fatalError;
    {
        ZelSettingsApplication application(settingsFolder, std::move(settings));
        application.setLanguageCode(languageCode);
        ZelControlCenter::InitDefaultSettingsValues(applicationName);
        // After the catalogue, so an embedding application's own registrations win.
        ZelControlCenter::InitPageSettingsValues();
        QSettings& applicationSettings = application.getSettings();
        if (!engine.isEmpty())
            applicationSettings.setValue(SettingsKeys::Engine, engine);

        if (start.beforePass(error) && ZelControlCenter::EnsureSettings(applicationSettings, error)) {
            start.afterPass();
            result = runEditor(application, instance, start, !engine.isEmpty(), fontConfig);
        } else {
            fatalError = error;
        }
    }
    if (!fatalError.isEmpty()) {
        // The settings are gone: nothing of this start reaches the disk any more.
        QString restoreError;
        if (!start.restore(restoreError))
            fatalError += QLatin1Char('\n')
                + QCoreApplication::translate("ZelControlCenterStandAloneWidget",
                                              "The settings file \"%1\" could not be put back as it was: %2")
                      .arg(QDir::toNativeSeparators(settingsFile), restoreError);
        showFatalError(fatalError);
    }
    QCoreApplication::removeTranslator(translator.get());
    translator.reset();
    ZelControlCenter::ClearSettingsValues();
    stopPlatform();
    return result;
}
