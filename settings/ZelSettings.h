#pragma once

#include "ZelSettingsExport.h"
#include "ZelSettingsTypes.h"

#include <QSettings>
#include <QString>

namespace zel {

struct SettingRange;

// The process-wide registry of Settings.ini keys with their defaults and validators,
// the validation pass over a QSettings, and the validators themselves. Everything is
// static and needs no widget, so console programs use it as well as the control
// center, which inherits these services under its own name.
class ZEL_SETTINGS_EXPORT ZelSettings
{
public:
    // ---- Setting registry and validation pass -------------------------------------

    // Adds `key` with its default and validator; false (and nothing changed) when the
    // key is already registered: the first registration wins.
    static bool RegisterSetting(const QString& key, const QString& defaultValue, SettingValidator validator);
    // The registered default, or a null QString for an unknown key.
    static QString GetDefaultSettingsValue(const QString& key);
    static const SettingsRegistry& GetDefaultSettingsValues();
    // Empties the registry; the end checks stay.
    static void ClearSettingsValues();
    // Appends `check`; false when that very function is already registered.
    static bool RegisterEndCheckFunction(SettingEndCheck check);
    // Reads, validates and writes back every registered key in key order, syncs, then
    // runs the end checks. On false, `error` holds the failing validator's text.
    static bool EnsureSettings(QSettings& settings, QString& error);
    // The text the pass hands to the validator of `key`: the stored value (a list
    // joined as QSettings writes it), else the registered default.
    static QString GetSettingText(const QSettings& settings, const QString& key);
    // A stored value as that text: a list joined with ", ", anything else as itself.
    static QString SettingText(const QVariant& stored);
    // The language a start stores when the file holds none: the one of the system locale
    // `localeName` ("fr_FR") where the user texts are translated into it, else English.
    static QString StartLanguage(const QString& localeName);
    // Registers the library's own keys; folders are derived from `applicationName`.
    static void InitDefaultSettingsValues(const QString& applicationName);
    // Registers the keys that the settings pages edit, with the defaults the pages show.
    static void InitPageSettingsValues();
    // What `key` accepts (ZelSettingRange.h); Kind::Any for a key not in the table.
    static SettingRange GetSettingRange(const QString& key);
    // Every "\" becomes "/", then every trailing "/" is dropped; a root stays "/".
    static void CleanupFolder(QString& path);

    // ---- Where the settings live ---------------------------------------------------

    // The format every program of ours opens Settings.ini with:
    //     QSettings settings(path, ZelSettings::SettingsFormat());
    // Values come back as text (a list when an unquoted comma separates them); "@"
    // forms such as "@Variant(...)" stay text and are never decoded. A write changes
    // only the lines of changed keys and keeps comments, order, blank lines, the
    // byte-order mark and the line ends; Qt's own INI reader reads the result the same.
    // Registered on first call; safe from any thread.
    static QSettings::Format SettingsFormat();

    // The name the stand-alone editor runs under: "TorvaneBoundlessX64".
    static QString GetApplicationName();
    // The per-user application-data folder, "/", `applicationName`, with forward slashes.
    static QString GetSettingsFolder(const QString& applicationName);
    // "Settings.ini" in GetSettingsFolder(`applicationName`).
    static QString GetSettingsFile(const QString& applicationName);

    // ---- Validators (signature of SettingValidator) -------------------------------
    static bool noOp(const QString& key, const QString& defaultValue, QString& value, QString& error);
    static bool ensureSettingsVersion(const QString& key, const QString& defaultValue, QString& value, QString& error);
    static bool ensureBool(const QString& key, const QString& defaultValue, QString& value, QString& error);
    static bool ensureEngine(const QString& key, const QString& defaultValue, QString& value, QString& error);
    static bool ensureLogLevel(const QString& key, const QString& defaultValue, QString& value, QString& error);
    static bool ensurePositiveInteger(const QString& key, const QString& defaultValue, QString& value, QString& error);
    static bool ensurePortValue(const QString& key, const QString& defaultValue, QString& value, QString& error);
    static bool ensureCacheSize(const QString& key, const QString& defaultValue, QString& value, QString& error);
    static bool ensureSimplificationRAM(const QString& key, const QString& defaultValue, QString& value, QString& error);
    static bool ensureSimplificationThreads(const QString& key, const QString& defaultValue, QString& value, QString& error);
    static bool ensureCoreNumber(const QString& key, const QString& defaultValue, QString& value, QString& error);
    static bool ensureTesselationMaxFaceAngle(const QString& key, const QString& defaultValue, QString& value, QString& error);
    static bool ensureTesselationMaxFaceLength(const QString& key, const QString& defaultValue, QString& value, QString& error);
    static bool ensureTesselationMaxFaceSag(const QString& key, const QString& defaultValue, QString& value, QString& error);
    static bool ensureLODTrianglesCap(const QString& key, const QString& defaultValue, QString& value, QString& error);
    static bool ensureMaxGPUMemory(const QString& key, const QString& defaultValue, QString& value, QString& error);
    static bool ensureMaxCPUMemoryRaytracer(const QString& key, const QString& defaultValue, QString& value, QString& error);
    static bool ensureMaxCPUMemory3D(const QString& key, const QString& defaultValue, QString& value, QString& error);
    static bool ensureRaytracerQuality(const QString& key, const QString& defaultValue, QString& value, QString& error);
    static bool ensureSceneUnit(const QString& key, const QString& defaultValue, QString& value, QString& error);
    static bool ensureIpOrHostName(const QString& key, const QString& defaultValue, QString& value, QString& error);
    static bool ensureSimplificationRatios(const QString& key, const QString& defaultValue, QString& value, QString& error);
    static bool ensureFile(const QString& key, const QString& defaultValue, QString& value, QString& error);
    static bool ensureDMCacheFolder(const QString& key, const QString& defaultValue, QString& value, QString& error);
    static bool ensureTmpFolder(const QString& key, const QString& defaultValue, QString& value, QString& error);

protected:
    // Only a class that offers these services under its own name derives from this one.
    ZelSettings() = default;

private:
    static bool ensureFolder(const QString& defaultValue, QString& value);
};

} // namespace zel
