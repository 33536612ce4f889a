#include "ZelSettingDescriptions.h"

#include "ZelSettingsKeys.h"

#include <map>

namespace zel {

namespace {

using DescriptionTable = std::map<QString, SettingDescription>;

DescriptionTable makeTable()
{
    namespace Keys = SettingsKeys;
    // The pages' titles as the editor's menu shows them in English.
    const QString display = QStringLiteral("Display");
    const QString folders = QStringLiteral("Folders");
    const QString simplification = QStringLiteral("Simplification");
    const QString tessellation = QStringLiteral("Tessellation");
    const QString byProgram;

    return {
        {Keys::Engine,
         {QStringLiteral("How the viewer draws models: \"deferred\" is the high mode, for a discrete graphics card, "
                         "\"software\" the low mode, which runs everywhere."),
          display}},
        {Keys::SettingsVersion,
         {QStringLiteral("The layout version of this file. The settings editor upgrades an older file by it at "
                         "start, and sets aside a file without it."),
          byProgram}},
        {Keys::EnableDiag,
         {QStringLiteral("Diagnostics mode: when true, debug messages are written to the log file as well."),
          byProgram}},
        {Keys::DebugLogTypeBlacklist,
         {QStringLiteral("Message types never written to the log file, separated by commas or blanks: debug, info, "
                         "warning, critical, fatal."),
          byProgram}},
        {Keys::LogFile,
         {QStringLiteral("The file the programs append their messages to. Its folder is created when missing."),
          byProgram}},
        {Keys::CacheSize,
         {QStringLiteral("The most disk space, in megabytes, that the 3D database cache may take."), folders}},
        {Keys::CacheDirectory,
         {QStringLiteral("The folder of the 3D database cache, where the viewer keeps converted models so that "
                         "they open faster the next time. It is created when missing."),
          folders}},
        {Keys::ScreenshotFolder,
         {QStringLiteral("The folder the viewer saves screenshots in. It is created with the first screenshot."),
          folders}},
        {Keys::Language,
         {QStringLiteral("The language of the user interface, as a code such as en or fr. A language without a "
                         "translation shows in English. Where none is stored, the settings editor stores the "
                         "system's language if it has a translation, else the default."),
          byProgram}},
        {Keys::SimplificationRatios,
         {QStringLiteral("The share of a model's triangles kept at each of the five simplification levels, from "
                         "no compression to the best: 1 keeps every triangle, 0.25 a quarter of them."),
          simplification}},
        {Keys::TesselationQualitySet,
         {QStringLiteral("When true, imported models are tessellated at the quality TesselationIsHighQuality "
                         "chooses; when false, at the importer's default quality."),
          tessellation}},
        {Keys::TesselationIsHighQuality,
         {QStringLiteral("High quality (true) or low quality (false) tessellation of imported models, used when "
                         "TesselationQualitySet is true."),
          tessellation}},
        {Keys::TesselationMaxFaceSagSet,
         {QStringLiteral("When true, TesselationMaxFaceSag limits the tessellation of imported models; when false, "
                         "the importer's default applies."),
          tessellation}},
        {Keys::TesselationMaxFaceSag,
         {QStringLiteral("The largest distance allowed between a curved surface and the triangles that stand for "
                         "it, used when TesselationMaxFaceSagSet is true."),
          tessellation}},
        {Keys::TesselationMaxFaceLengthSet,
         {QStringLiteral("When true, TesselationMaxFaceLength limits the tessellation of imported models; when "
                         "false, the importer's default applies."),
          tessellation}},
        {Keys::TesselationMaxFaceLength,
         {QStringLiteral("The longest edge a triangle of an imported model may have, used when "
                         "TesselationMaxFaceLengthSet is true."),
          tessellation}},
        {Keys::TesselationMaxFaceAngleSet,
         {QStringLiteral("When true, TesselationMaxFaceAngle limits the tessellation of imported models; when "
                         "false, the importer's default applies."),
          tessellation}},
        {Keys::TesselationMaxFaceAngle,
         {QStringLiteral("The largest angle, in degrees, between neighbouring triangles of a curved surface, used "
                         "when TesselationMaxFaceAngleSet is true."),
          tessellation}},
        {Keys::LODTrianglesCap,
         {QStringLiteral("The most triangles the viewer draws at once; beyond it, distant parts are drawn in less "
                         "detail."),
          display}},
        {Keys::MaxGPUMemory,
         {QStringLiteral("The most graphics card memory, in bytes, the viewer uses. The page shows it in "
                         "megabytes."),
          display}},
        {Keys::MaxCPUMemoryRaytracer,
         {QStringLiteral("The most main memory, in bytes, the ray tracer uses. The page shows it in megabytes."),
          display}},
        {Keys::MaxCPUMemory3D,
         {QStringLiteral("The most main memory, in bytes, the 3D view uses for models. The page shows it in "
                         "megabytes."),
          display}},
        {Keys::SceneUnits,
         {QStringLiteral("How many scene units make a metre, which sizes the shading of SSAO: 0.001 for "
                         "kilometres up to 1000 for millimetres."),
          display}},
        {Keys::UseED,
         {QStringLiteral("Whether the high mode outlines the edges of models (edge detection)."), display}},
        {Keys::UseFXAA,
         {QStringLiteral("Whether the high mode smooths jagged edges (FXAA antialiasing)."), display}},
        {Keys::UseSSAO,
         {QStringLiteral("Whether the high mode shades creases and corners (screen-space ambient occlusion)."),
          display}},
        {Keys::RaytracerCoreNumber,
         {QStringLiteral("How many processor cores the ray tracer uses; by default, all of them."), display}},
        {Keys::RaytracerQuality,
         {QStringLiteral("The ray tracer's image quality, from low to ultra. A higher quality renders at a higher "
                         "resolution or with antialiasing, and takes longer."),
          display}},
    };
}

} // namespace

SettingDescription settingDescription(const QString& key)
{
    static const DescriptionTable table = makeTable();
    const auto entry = table.find(key);
    return entry != table.end() ? entry->second : SettingDescription();
}

} // namespace zel
