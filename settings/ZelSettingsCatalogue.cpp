#include "ZelControlCenter.h"

#include "ZelDirectory.h"
#include "ZelSettingsKeys.h"
#include "kqSystem.h"

namespace zel {

namespace {

// `parent` comes from the platform and may carry backslashes or a trailing separator.
QString subFolder(QString parent, const QString& name)
{
    ZelControlCenter::CleanupFolder(parent);
    QString folder = parent + QLatin1Char('/') + name;
    ZelControlCenter::CleanupFolder(folder);
    return folder;
}

} // namespace

void ZelControlCenter::InitDefaultSettingsValues(const QString& applicationName)
{
    const QString appDataFolder =
        subFolder(QString::fromStdString(kq::kqDirUtils::GetAppDataFolderUtf8()), applicationName);
    const QString cacheFolder =
        subFolder(QString::fromStdString(ZelDirectory::GetTempFolderUtf8(applicationName.toStdString())),
                  QString::fromStdString(kq::kqSystemUtils::GetCurrentUserNameUtf8()));

    RegisterSetting(SettingsKeys::Engine, QStringLiteral("deferred"), ensureEngine);
    RegisterSetting(SettingsKeys::SettingsVersion, QString::number(2), ensureSettingsVersion);
    RegisterSetting(SettingsKeys::EnableDiag, QStringLiteral("false"), ensureBool);
    RegisterSetting(SettingsKeys::DebugLogTypeBlacklist, QString(), noOp);
    RegisterSetting(SettingsKeys::LogFile, appDataFolder + QStringLiteral("/log.txt"), ensureFile);
    // The General page keeps the cache size within its range; the file may hold anything.
    RegisterSetting(SettingsKeys::CacheSize, QStringLiteral("4096"), noOp);
    RegisterSetting(SettingsKeys::CacheDirectory, cacheFolder, ensureDMCacheFolder);
}

} // namespace zel
