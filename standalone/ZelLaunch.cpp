#include "ZelLaunch.h"

#include "MTLogger.h"
#include "ZelControlCenter.h"
#include "ZelControlCenterStandAloneWidget.h"
#include "ZelRendererSelector.h"
#include "ZelSettingsApplication.h"
#include "ZelSettingsKeys.h"
#include "ZelSingleInstance.h"
#include "ZelKernel.h"
#include "kqSystem.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLibraryInfo>
#include <QMessageBox>
#include <QSaveFile>
#include <QSettings>
#include <QTranslator>

#include <cstdio>
#include <memory>
#include <optional>

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

// Settings.ini as it was before this run touched it, put back when the run must not
// keep its changes. A file that did not exist is removed again.
class SettingsSnapshot
{
public:
    explicit SettingsSnapshot(const QString& file)
        : m_file(file)
    {
        QFile original(file);
        if (original.open(QIODevice::ReadOnly))
            m_bytes = original.readAll();
    }

    bool restore(QString& error) const
    {
        QFile current(m_file);
        if (!m_bytes) {
            if (!current.exists() || current.remove())
                return true;
            error = current.errorString();
            return false;
        }
        if (current.open(QIODevice::ReadOnly) && current.readAll() == *m_bytes)
            return true;
        QSaveFile file(m_file);
        if (file.open(QIODevice::WriteOnly) && file.write(*m_bytes) == m_bytes->size() && file.commit())
            return true;
        error = file.errorString();
        return false;
    }

private:
    QString m_file;
    std::optional<QByteArray> m_bytes;
};

// Upgrades or discards an old Settings.ini. True when the renderer is known afterwards.
bool prepareSettingsFile(const QString& settingsFile, bool& exists, const QString& languageCode)
{
    if (!exists)
        return false;
    QString engine;
    {
        QSettings settings(settingsFile, ZelSettings::SettingsFormat());
        bool isNumber = false;
        int version = settings.value(SettingsKeys::SettingsVersion).toInt(&isNumber);
        if (!isNumber)
            version = 0;
        if (version == 1) {
            settings.setValue(SettingsKeys::SettingsVersion, 2);
            settings.setValue(SettingsKeys::Engine, QStringLiteral("deferred"));
            settings.sync();
        } else if (version < 2) {
            // Older files are not worth migrating: only the language is kept.
            settings.clear();
            settings.sync();
            QFile::remove(settingsFile);
            exists = false;
        }
        // An upgrade that could not be written leaves the renderer unknown.
        if (exists && settings.status() == QSettings::NoError)
            engine = settings.value(SettingsKeys::Engine).toString();
    }
    if (!exists) {
        QSettings fresh(settingsFile, ZelSettings::SettingsFormat());
        fresh.setValue(SettingsKeys::Language, languageCode);
        fresh.sync();
        return false;
    }
    return engine == QLatin1String("deferred") || engine == QLatin1String("software");
}

void showFatalError(const QString& text)
{
    QMessageBox box(QMessageBox::Information,
                    QCoreApplication::translate("ZelControlCenterStandAloneWidget", "Torvane - Fatal Error"), text,
                    QMessageBox::Ok);
    box.exec();
}

// Runs the editor on a validated Settings.ini; returns the exit code.
int runEditor(ZelSettingsApplication& application, ZelSingleInstance& instance, bool selectorShown)
{
    QSettings& settings = application.getSettings();
    settings.sync();
    if (settings.status() != QSettings::NoError || !settings.isWritable()) {
        showFatalError(QCoreApplication::translate("ZelControlCenterStandAloneWidget",
                                                   "The settings file \"%1\" cannot be written.\n"
                                                   "Check that you may write to its folder, then start again.")
                           .arg(QDir::toNativeSeparators(settings.fileName())));
        return 0;
    }
    const QString logFile = settings.value(SettingsKeys::LogFile).toString();
    const QString blacklist = settings.value(SettingsKeys::DebugLogTypeBlacklist).toString();
    if (!MTLogger::InstallFileHandler(logFile.toStdString(), application.isDiagModeEnable(), blacklist.toStdString()))
        qWarning("Cannot append to the log file %s", qUtf8Printable(logFile));

    int result = 1;
    if (!selectorShown) {
        ZelControlCenterStandAloneWidget window(&application, nullptr, Qt::FramelessWindowHint);
        QObject::connect(&instance, &ZelSingleInstance::messageReceived, &window,
                         &ZelControlCenterStandAloneWidget::parseMessage);
        instance.setActivationWindow(&window);
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
    QString code = QSettings(settingsFile, ZelSettings::SettingsFormat()).value(SettingsKeys::Language, QStringLiteral("en")).toString();
    QString file = translationFile(code);
    if (file.isEmpty() && code != QLatin1String("en")) {
        code = QStringLiteral("en");
        file = translationFile(code);
    }
    if (!file.isEmpty() && translator.load(file))
        QCoreApplication::installTranslator(&translator);
    return code;
}

} // namespace zel

int launch(int argc, char** argv)
{
    using namespace zel;
    qInstallMessageHandler(writeToStandardOutput);
    // The viewer's plug-ins live in "bin"; Qt's own folder stays, or no platform loads.
    QCoreApplication::setLibraryPaths({QStringLiteral("bin"), QLibraryInfo::path(QLibraryInfo::PluginsPath)});

    QApplication app(argc, argv);
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
    bool exists = QFile::exists(settingsFile);
    const SettingsSnapshot snapshot(settingsFile);

    auto translator = std::make_unique<QTranslator>();
    const QString languageCode = loadTranslation(settingsFile, *translator);

    const bool rendererKnown = prepareSettingsFile(settingsFile, exists, languageCode);
    QString engine;
    if (!rendererKnown) {
        ZelRendererSelector selector(nullptr, Qt::WindowFlags());
        if (selector.exec() != QDialog::Accepted) {
            QCoreApplication::removeTranslator(translator.get());
            return 0;
        }
        engine = selector.property("software").toBool() ? QStringLiteral("software") : QStringLiteral("deferred");
    }

    int result = 0;
    {
        ZelSettingsApplication application(settingsFolder);
        application.setLanguageCode(languageCode);
        ZelControlCenter::InitDefaultSettingsValues(applicationName);
        // After the catalogue, so an embedding application's own registrations win.
        ZelControlCenter::InitPageSettingsValues();
        if (!engine.isEmpty())
            application.getSettings().setValue(SettingsKeys::Engine, engine);

        QString error;
        if (ZelControlCenter::EnsureSettings(application.getSettings(), error)) {
            result = runEditor(application, instance, !engine.isEmpty());
        } else {
            // The keys validated before the failure must not reach the disk.
            application.getSettings().sync();
            QString restoreError;
            if (!snapshot.restore(restoreError))
                error += QLatin1Char('\n')
                    + QCoreApplication::translate("ZelControlCenterStandAloneWidget",
                                                  "The settings file \"%1\" could not be put back as it was: %2")
                          .arg(QDir::toNativeSeparators(settingsFile), restoreError);
            showFatalError(error);
        }
    }
    QCoreApplication::removeTranslator(translator.get());
    translator.reset();
    ZelControlCenter::ClearSettingsValues();
    stopPlatform();
    return result;
}
