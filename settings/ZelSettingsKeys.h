#pragma once

#include <QLatin1String>

// Every key of Settings.ini that this library reads or writes, typed once. Keys with a
// "/" live in the INI group named before the slash.
namespace zel::SettingsKeys {

// Registered by ZelSettings::InitDefaultSettingsValues.
inline constexpr QLatin1String Engine("engine");
inline constexpr QLatin1String SettingsVersion("settingsVersion");
inline constexpr QLatin1String EnableDiag("enablediag");
inline constexpr QLatin1String DebugLogTypeBlacklist("debuglogtypeblacklist");
inline constexpr QLatin1String LogFile("Logging/logFile");
inline constexpr QLatin1String CacheSize("DBCache/cacheSize");
inline constexpr QLatin1String CacheDirectory("DBCache/cacheDirectory");

// Read and written by the settings pages; registered by
// ZelSettings::InitPageSettingsValues unless an embedding application registers them first.
inline constexpr QLatin1String ScreenshotFolder("screenshot/ImageFolder");
inline constexpr QLatin1String SimplificationRatios("Simplification/Ratios");

// "Tesselation" with one l: the stored spelling, unlike the pages' texts.
inline constexpr QLatin1String TesselationQualitySet("Tesselation/TesselationQualitySet");
inline constexpr QLatin1String TesselationIsHighQuality("Tesselation/TesselationIsHighQuality");
inline constexpr QLatin1String TesselationMaxFaceSagSet("Tesselation/TesselationMaxFaceSagSet");
inline constexpr QLatin1String TesselationMaxFaceSag("Tesselation/TesselationMaxFaceSag");
inline constexpr QLatin1String TesselationMaxFaceLengthSet("Tesselation/TesselationMaxFaceLengthSet");
inline constexpr QLatin1String TesselationMaxFaceLength("Tesselation/TesselationMaxFaceLength");
inline constexpr QLatin1String TesselationMaxFaceAngleSet("Tesselation/TesselationMaxFaceAngleSet");
inline constexpr QLatin1String TesselationMaxFaceAngle("Tesselation/TesselationMaxFaceAngle");

inline constexpr QLatin1String LODTrianglesCap("Resources/LODTrianglesCap");
inline constexpr QLatin1String MaxGPUMemory("Resources/MaxGPUMemory");
inline constexpr QLatin1String MaxCPUMemoryRaytracer("Resources/MaxCPUMemoryRaytracer");
inline constexpr QLatin1String MaxCPUMemory3D("Resources/MaxCPUMemory3D");
inline constexpr QLatin1String SceneUnits("deferred/sceneUnits");
inline constexpr QLatin1String UseED("deferred/useED");
inline constexpr QLatin1String UseFXAA("deferred/useFXAA");
inline constexpr QLatin1String UseSSAO("deferred/useSSAO");
inline constexpr QLatin1String RaytracerCoreNumber("raytracer/coreNumber");
inline constexpr QLatin1String RaytracerQuality("raytracer/quality");

// The language of the user interface; "en" when absent. Registered with the pages' keys.
inline constexpr QLatin1String Language("language");

} // namespace zel::SettingsKeys
