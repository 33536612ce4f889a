#include "ZelSettings.h"

#include "ZelDirectory.h"
#include "ZelSettingsFile.h"
#include "ZelSettingsKeys.h"
#include "kqSystem.h"

#include <QDir>
#include <QStandardPaths>
#include <QThread>

namespace zel {

namespace {

// `parent` comes from the platform and may carry backslashes or a trailing separator.
QString subFolder(QString parent, const QString& name)
{
    ZelSettings::CleanupFolder(parent);
    QString folder = parent + QLatin1Char('/') + name;
    ZelSettings::CleanupFolder(folder);
    return folder;
}

QString screenshotFolder()
{
    QString pictures = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
    if (pictures.isEmpty())
        pictures = QDir::homePath();
    return subFolder(pictures, QStringLiteral("Torvane"));
}

} // namespace

QString ZelSettings::GetApplicationName()
{
    // The product's name with the suffix of its 64-bit build.
    return QStringLiteral("TorvaneBoundlessX64");
}

QString ZelSettings::GetSettingsFolder(const QString& applicationName)
{
    return subFolder(QString::fromStdString(kq::kqDirUtils::GetAppDataFolderUtf8()), applicationName);
}

QString ZelSettings::GetSettingsFile(const QString& applicationName)
{
    return GetSettingsFolder(applicationName) + QStringLiteral("/Settings.ini");
}

QString ZelSettings::StartLanguage(const QString& localeName)
{
    const QString language = localeName.section(QLatin1Char('_'), 0, 0);
    const QStringList translated = QString::fromLatin1(ZEL_LANGUAGES).split(QLatin1Char(','));
    return translated.contains(language) ? language : QStringLiteral("en");
}

void ZelSettings::InitDefaultSettingsValues(const QString& applicationName)
{
    const QString appDataFolder = GetSettingsFolder(applicationName);
    const QString cacheFolder =
        subFolder(QString::fromStdString(ZelDirectory::GetTempFolderUtf8(applicationName.toStdString())),
                  QString::fromStdString(kq::kqSystemUtils::GetCurrentUserNameUtf8()));

    RegisterSetting(SettingsKeys::Engine, QStringLiteral("deferred"), ensureEngine);
    RegisterSetting(SettingsKeys::SettingsVersion, QString::number(ZelSettingsFile::CurrentVersion()),
                    ensureSettingsVersion);
    RegisterSetting(SettingsKeys::EnableDiag, QStringLiteral("false"), ensureBool);
    RegisterSetting(SettingsKeys::DebugLogTypeBlacklist, QString(), noOp);
    RegisterSetting(SettingsKeys::LogFile, appDataFolder + QStringLiteral("/log.txt"), ensureFile);
    RegisterSetting(SettingsKeys::CacheSize, QStringLiteral("4096"), ensureCacheSize);
    RegisterSetting(SettingsKeys::CacheDirectory, cacheFolder, ensureDMCacheFolder);
}

void ZelSettings::InitPageSettingsValues()
{
    const QString no = QStringLiteral("false");
    const QString yes = QStringLiteral("true");

    // The folder is created when a screenshot is taken, not by the pass.
    RegisterSetting(SettingsKeys::ScreenshotFolder, screenshotFolder(), noOp);
    RegisterSetting(SettingsKeys::Language, QStringLiteral("en"), noOp);
    RegisterSetting(SettingsKeys::SimplificationRatios, QStringLiteral("1/0.75/0.5/0.25/0.1"),
                    ensureSimplificationRatios);

    RegisterSetting(SettingsKeys::TesselationQualitySet, no, ensureBool);
    RegisterSetting(SettingsKeys::TesselationIsHighQuality, yes, ensureBool);
    RegisterSetting(SettingsKeys::TesselationMaxFaceSagSet, no, ensureBool);
    RegisterSetting(SettingsKeys::TesselationMaxFaceSag, QStringLiteral("0.5"), ensureTesselationMaxFaceSag);
    RegisterSetting(SettingsKeys::TesselationMaxFaceLengthSet, no, ensureBool);
    RegisterSetting(SettingsKeys::TesselationMaxFaceLength, QStringLiteral("10"), ensureTesselationMaxFaceLength);
    RegisterSetting(SettingsKeys::TesselationMaxFaceAngleSet, no, ensureBool);
    RegisterSetting(SettingsKeys::TesselationMaxFaceAngle, QStringLiteral("30"), ensureTesselationMaxFaceAngle);

    RegisterSetting(SettingsKeys::LODTrianglesCap, QStringLiteral("10000000"), ensureLODTrianglesCap);
    RegisterSetting(SettingsKeys::MaxGPUMemory, QStringLiteral("1073741824"), ensureMaxGPUMemory);
    RegisterSetting(SettingsKeys::MaxCPUMemoryRaytracer, QStringLiteral("2147483648"), ensureMaxCPUMemoryRaytracer);
    RegisterSetting(SettingsKeys::MaxCPUMemory3D, QStringLiteral("2147483648"), ensureMaxCPUMemory3D);
    RegisterSetting(SettingsKeys::SceneUnits, QStringLiteral("1"), ensureSceneUnit);
    RegisterSetting(SettingsKeys::UseED, yes, ensureBool);
    RegisterSetting(SettingsKeys::UseFXAA, yes, ensureBool);
    RegisterSetting(SettingsKeys::UseSSAO, yes, ensureBool);
    RegisterSetting(SettingsKeys::RaytracerCoreNumber, QString::number(QThread::idealThreadCount()), ensureCoreNumber);
    RegisterSetting(SettingsKeys::RaytracerQuality, QStringLiteral("medium"), ensureRaytracerQuality);
}

} // namespace zel
