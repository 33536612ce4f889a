#include "ZelSettingRange.h"

#include "ZelSettings.h"
#include "ZelSettingsFile.h"
#include "ZelSettingsKeys.h"
#include "kqDMRenderer.h"

#include <QThread>

#include <iterator>
#include <map>

namespace zel {

namespace {

// What the viewer accepts. The pages' fields are set from these, so every value inside
// a range is one they can show.
constexpr double CacheSizeMinimum = 10; // megabytes
constexpr double CacheSizeMaximum = 10240;
// Memory budgets are stored in bytes and edited in whole mebibytes.
constexpr double Mebibyte = 1024 * 1024;
constexpr double MemoryMinimum = 128 * Mebibyte;
constexpr double MemoryMaximum = 8096 * Mebibyte;
constexpr double TrianglesCapMinimum = 50000;
constexpr double TrianglesCapMaximum = 500000000;
constexpr double FaceLimitMaximum = 100;
constexpr int FaceLimitDecimals = 3;
constexpr double FaceAngleMaximum = 359; // degrees
// Shown as whole percents; below 1% the simplifier leaves too little to recognise.
constexpr double RatioMinimum = 0.01;
constexpr double RatioMaximum = 1;
constexpr int RatioDecimals = 2;

SettingRange ofKind(SettingRange::Kind kind)
{
    SettingRange range;
    range.kind = kind;
    return range;
}

SettingRange integer(double minimum, double maximum, double step = 1)
{
    SettingRange range = ofKind(SettingRange::Kind::Integer);
    range.minimum = minimum;
    range.maximum = maximum;
    range.step = step;
    return range;
}

SettingRange decimal(SettingRange::Kind kind, double minimum, double maximum, int decimals)
{
    SettingRange range = ofKind(kind);
    range.minimum = minimum;
    range.maximum = maximum;
    range.decimals = decimals;
    return range;
}

SettingRange choice(QStringList choices)
{
    SettingRange range = ofKind(SettingRange::Kind::Choice);
    range.choices = std::move(choices);
    return range;
}

using RangeTable = std::map<QString, SettingRange>;

RangeTable makeTable()
{
    namespace Keys = SettingsKeys;
    using Kind = SettingRange::Kind;
    const SettingRange boolean = ofKind(Kind::Boolean);
    const SettingRange memory = integer(MemoryMinimum, MemoryMaximum, Mebibyte);
    const SettingRange faceLimit = decimal(Kind::Decimal, 0, FaceLimitMaximum, FaceLimitDecimals);
    SettingRange version = ofKind(Kind::Version);
    version.minimum = version.maximum = ZelSettingsFile::CurrentVersion();

    return {
        {Keys::Engine, choice({QStringLiteral("deferred"), QStringLiteral("software")})},
        {Keys::SettingsVersion, version},
        {Keys::EnableDiag, boolean},
        {Keys::DebugLogTypeBlacklist, ofKind(Kind::Any)},
        {Keys::LogFile, ofKind(Kind::File)},
        {Keys::CacheSize, integer(CacheSizeMinimum, CacheSizeMaximum)},
        {Keys::CacheDirectory, ofKind(Kind::Folder)},
        {Keys::ScreenshotFolder, ofKind(Kind::Folder)},
        {Keys::Language, ofKind(Kind::Any)},
        {Keys::SimplificationRatios, decimal(Kind::Ratios, RatioMinimum, RatioMaximum, RatioDecimals)},
        {Keys::TesselationQualitySet, boolean},
        {Keys::TesselationIsHighQuality, boolean},
        {Keys::TesselationMaxFaceSagSet, boolean},
        {Keys::TesselationMaxFaceSag, faceLimit},
        {Keys::TesselationMaxFaceLengthSet, boolean},
        {Keys::TesselationMaxFaceLength, faceLimit},
        {Keys::TesselationMaxFaceAngleSet, boolean},
        {Keys::TesselationMaxFaceAngle, integer(0, FaceAngleMaximum)},
        {Keys::LODTrianglesCap, integer(TrianglesCapMinimum, TrianglesCapMaximum)},
        {Keys::MaxGPUMemory, memory},
        {Keys::MaxCPUMemoryRaytracer, memory},
        {Keys::MaxCPUMemory3D, memory},
        // Units per metre, from the kilometre to the millimetre.
        {Keys::SceneUnits,
         choice({QStringLiteral("0.001"), QStringLiteral("0.01"), QStringLiteral("0.1"), QStringLiteral("1"),
                 QStringLiteral("10"), QStringLiteral("100"), QStringLiteral("1000")})},
        {Keys::UseED, boolean},
        {Keys::UseFXAA, boolean},
        {Keys::UseSSAO, boolean},
        {Keys::RaytracerCoreNumber, integer(1, QThread::idealThreadCount())},
        {Keys::RaytracerQuality,
         choice(QStringList(std::begin(kqDMRenderer::scQualityEnum), std::end(kqDMRenderer::scQualityEnum)))},
    };
}

// "100", "0.5", "8489271296": no exponent, no trailing zeros.
QString numberText(double number, int decimals)
{
    QString text = QString::number(number, 'f', decimals);
    if (text.contains(QLatin1Char('.'))) {
        while (text.endsWith(QLatin1Char('0')))
            text.chop(1);
        if (text.endsWith(QLatin1Char('.')))
            text.chop(1);
    }
    return text;
}

QString decimalsText(int decimals)
{
    return decimals == 1 ? QStringLiteral("1 decimal") : QStringLiteral("%1 decimals").arg(decimals);
}

} // namespace

QString SettingRange::describe() const
{
    const QString from = numberText(minimum, decimals);
    const QString to = numberText(maximum, decimals);
    switch (kind) {
    case Kind::Any:
        break;
    case Kind::Boolean:
        return QStringLiteral("true or false");
    case Kind::Integer:
        if (step == 1)
            return QStringLiteral("a whole number from %1 to %2").arg(from, to);
        return QStringLiteral("a whole number from %1 to %2 that is a multiple of %3")
            .arg(from, to, numberText(step, 0));
    case Kind::Decimal:
        return QStringLiteral("a number from %1 to %2 with at most %3").arg(from, to, decimalsText(decimals));
    case Kind::Choice:
        return QStringLiteral("one of ") + choices.join(QLatin1String(", "));
    case Kind::Folder:
        return QStringLiteral("a folder path");
    case Kind::File:
        return QStringLiteral("a file path");
    case Kind::Ratios:
        return QStringLiteral("five ratios separated by \"/\": %1, then each from %2 to the one before, "
                              "with at most %3")
            .arg(to, from, decimalsText(decimals));
    case Kind::Version:
        return QStringLiteral("the current settings layout version, %1").arg(from);
    }
    return QStringLiteral("any text");
}

QString SettingRange::notation() const
{
    const QString bounds = numberText(minimum, decimals) + QLatin1Char(' ') + numberText(maximum, decimals);
    switch (kind) {
    case Kind::Any:
        break;
    case Kind::Boolean:
        return QStringLiteral("boolean");
    case Kind::Integer:
        return QStringLiteral("integer %1 step %2").arg(bounds, numberText(step, 0));
    case Kind::Decimal:
        return QStringLiteral("decimal %1 decimals %2").arg(bounds).arg(decimals);
    case Kind::Choice:
        return QStringLiteral("choice ") + choices.join(QLatin1Char(' '));
    case Kind::Folder:
        return QStringLiteral("folder");
    case Kind::File:
        return QStringLiteral("file");
    case Kind::Ratios:
        return QStringLiteral("ratios %1 decimals %2").arg(bounds).arg(decimals);
    case Kind::Version:
        return QStringLiteral("version ") + numberText(minimum, 0);
    }
    return QStringLiteral("any");
}

SettingRange ZelSettings::GetSettingRange(const QString& key)
{
    static const RangeTable table = makeTable();
    const auto entry = table.find(key);
    return entry != table.end() ? entry->second : SettingRange();
}

} // namespace zel
