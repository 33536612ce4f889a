#include "ZelSettings.h"

#include "ZelSettingRange.h"
#include "ZelSettingsKeys.h"
#include "kqDMManager.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <cmath>
#include <iostream>
#include <vector>

#if defined(Q_OS_UNIX)
#include <sys/stat.h>
#endif

namespace zel {

namespace {

constexpr qulonglong MinimumSimplificationRAM = 0x4000000; // 64 MiB
constexpr std::size_t RatioCount = 5;
// A scene unit this close to one of the table's counts as that unit.
constexpr double SceneUnitTolerance = 0.001;

// Raises to the minimum first, then lowers to the maximum.
template<typename T>
T clamped(T value, T minimum, T maximum)
{
    return std::min(std::max(value, minimum), maximum);
}

// Qt's conversions stop at a NUL and report success: "1\0x" would pass as 1.
bool numeric(QStringView text)
{
    return !text.contains(QChar::Null);
}

template<typename T>
bool parseInteger(const QString& text, T& number, T (QString::*convert)(bool*, int) const)
{
    bool ok = false;
    number = (text.*convert)(&ok, 10);
    return ok && numeric(text);
}

// Qt clears the ok flag for a number beyond the type's range (and for one too small to
// tell from zero), but accepts "inf" and "nan".
bool parseFloat(QStringView text, float& number)
{
    bool ok = false;
    number = text.toFloat(&ok);
    return ok && numeric(text);
}

bool parseDouble(QStringView text, double& number)
{
    bool ok = false;
    number = text.toDouble(&ok);
    return ok && numeric(text);
}

QString floatText(float number)
{
    return QString::number(number, 'g', 6);
}

// `number` to the nearest value with `decimals` digits after the point.
double rounded(double number, int decimals)
{
    const double scale = std::pow(10.0, decimals);
    // Adding zero turns a -0 into 0, which prints without its sign.
    return std::round(number * scale) / scale + 0.0;
}

bool clampInteger(const QString& defaultValue, QString& value, const SettingRange& range)
{
    int number = 0;
    const bool ok = parseInteger(value, number, &QString::toInt);
    value = ok ? QString::number(clamped(number, int(range.minimum), int(range.maximum))) : defaultValue;
    return true;
}

// Clamps, then rounds to the nearest multiple of the range's step (halves up); the
// table's bounds are multiples of it.
bool clampUnsigned(const QString& defaultValue, QString& value, const SettingRange& range)
{
    qulonglong number = 0;
    if (!parseInteger(value, number, &QString::toULongLong)) {
        value = defaultValue;
        return true;
    }
    const auto step = qulonglong(range.step);
    number = clamped(number, qulonglong(range.minimum), qulonglong(range.maximum));
    value = QString::number((number + step / 2) / step * step);
    return true;
}

// Clamps, then rounds to the digits the pages show, so that they show it as stored.
bool clampDecimal(const QString& defaultValue, QString& value, const SettingRange& range)
{
    double number = 0;
    // An infinity clamps to a bound; "nan" lies nowhere in the range and takes the default.
    if (!parseDouble(value, number) || std::isnan(number)) {
        value = defaultValue;
        return true;
    }
    number = rounded(clamped(number, range.minimum, range.maximum), range.decimals);
    value = QString::number(number, 'f', QLocale::FloatingPointShortest);
    return true;
}

// Anything outside the range takes the default; a number inside it is written plainly.
bool acceptUnsigned(const QString& defaultValue, QString& value, qulonglong minimum, qulonglong maximum)
{
    qulonglong number = 0;
    const bool ok = parseInteger(value, number, &QString::toULongLong);
    value = ok && number >= minimum && number <= maximum ? QString::number(number) : defaultValue;
    return true;
}

bool isChoice(const QString& key, const QString& value)
{
    return ZelSettings::GetSettingRange(key).choices.contains(value);
}

std::vector<float> parseRatios(const QString& text)
{
    std::vector<float> ratios;
    const QList<QStringView> parts = QStringView(text).split(QLatin1Char('/'), Qt::SkipEmptyParts);
    for (const QStringView part : parts) {
        float ratio = 0;
        if (parseFloat(part, ratio))
            ratios.push_back(ratio);
    }
    return ratios;
}

QString ratiosText(const std::vector<float>& ratios)
{
    QStringList parts;
    parts.reserve(int(ratios.size()));
    for (const float ratio : ratios)
        parts.append(floatText(ratio));
    return parts.join(QLatin1Char('/'));
}

QString folderOf(const QString& filePath)
{
    return QFileInfo(filePath).absolutePath();
}

// A folder made right inside the system's temporary folder is shared by every user of
// the machine, each keeping a folder of their own in it: like the temporary folder
// itself, anyone may add to it and nobody may remove what others put there. Made with
// the creator's umask, it would keep every later user out.
void shareIfInTemporaryFolder(const QString& createdFolder)
{
#if defined(Q_OS_UNIX)
    if (QFileInfo(createdFolder).absolutePath() == QDir(QDir::tempPath()).absolutePath())
        ::chmod(QFile::encodeName(createdFolder).constData(), S_IRWXU | S_IRWXG | S_IRWXO | S_ISVTX);
#else
    Q_UNUSED(createdFolder)
#endif
}

bool existsOrCreated(const QString& folder)
{
    if (QDir(folder).exists())
        return true;
    // The outermost folder that mkpath is about to create.
    QString outermost = QDir::cleanPath(QDir(folder).absolutePath());
    while (!QFileInfo::exists(QFileInfo(outermost).absolutePath()))
        outermost = QFileInfo(outermost).absolutePath();
    if (!QDir().mkpath(folder))
        return false;
    shareIfInTemporaryFolder(outermost);
    return true;
}

// Keeps `value`, normalised, while the folder it needs exists; otherwise takes the
// normalised default and creates the folder that one needs. False when that fails.
bool keepOrCreate(const QString& defaultValue, QString& value, QString (*neededFolder)(const QString&))
{
    // Empty only counts once cleaned: QDir("") is the current folder.
    ZelSettings::CleanupFolder(value);
    if (!value.isEmpty() && QDir(neededFolder(value)).exists())
        return true;
    value = defaultValue;
    ZelSettings::CleanupFolder(value);
    return existsOrCreated(neededFolder(value));
}

} // namespace

bool ZelSettings::ensureBool(const QString&, const QString& defaultValue, QString& value, QString&)
{
    if (value != QLatin1String("true") && value != QLatin1String("false"))
        value = defaultValue;
    return true;
}

bool ZelSettings::ensureEngine(const QString&, const QString& defaultValue, QString& value, QString&)
{
    if (!isChoice(SettingsKeys::Engine, value))
        value = defaultValue;
    return true;
}

bool ZelSettings::ensureLogLevel(const QString&, const QString& defaultValue, QString& value, QString&)
{
    int level = 0;
    const bool ok = parseInteger(value, level, &QString::toInt);
    value = ok ? QString::number(std::max(level, 0)) : defaultValue;
    return true;
}

bool ZelSettings::ensurePositiveInteger(const QString&, const QString& defaultValue, QString& value, QString&)
{
    qlonglong number = 0;
    const bool ok = parseInteger(value, number, &QString::toLongLong);
    if (!ok || number <= 0)
        value = defaultValue;
    return true;
}

bool ZelSettings::ensurePortValue(const QString&, const QString& defaultValue, QString& value, QString&)
{
    // toUShort() rejects negative numbers and anything above 65535.
    ushort port = 0;
    if (!parseInteger(value, port, &QString::toUShort))
        value = defaultValue;
    return true;
}

bool ZelSettings::ensureCacheSize(const QString&, const QString& defaultValue, QString& value, QString&)
{
    const SettingRange range = GetSettingRange(SettingsKeys::CacheSize);
    return acceptUnsigned(defaultValue, value, qulonglong(range.minimum), qulonglong(range.maximum));
}

bool ZelSettings::ensureSimplificationRAM(const QString&, const QString& defaultValue, QString& value, QString&)
{
    // Up to the largest memory budget the viewer accepts.
    const auto maximum = qulonglong(GetSettingRange(SettingsKeys::MaxCPUMemory3D).maximum);
    return acceptUnsigned(defaultValue, value, MinimumSimplificationRAM, maximum);
}

bool ZelSettings::ensureSimplificationThreads(const QString&, const QString&, QString& value, QString&)
{
    // The simplifier is pinned to one thread whatever the file says.
    value = QStringLiteral("1");
    return true;
}

bool ZelSettings::ensureCoreNumber(const QString&, const QString& defaultValue, QString& value, QString&)
{
    return clampInteger(defaultValue, value, GetSettingRange(SettingsKeys::RaytracerCoreNumber));
}

bool ZelSettings::ensureTesselationMaxFaceAngle(const QString&, const QString& defaultValue, QString& value,
                                                     QString&)
{
    return clampInteger(defaultValue, value, GetSettingRange(SettingsKeys::TesselationMaxFaceAngle));
}

bool ZelSettings::ensureTesselationMaxFaceLength(const QString&, const QString& defaultValue, QString& value,
                                                      QString&)
{
    return clampDecimal(defaultValue, value, GetSettingRange(SettingsKeys::TesselationMaxFaceLength));
}

bool ZelSettings::ensureTesselationMaxFaceSag(const QString&, const QString& defaultValue, QString& value,
                                                   QString&)
{
    return clampDecimal(defaultValue, value, GetSettingRange(SettingsKeys::TesselationMaxFaceSag));
}

bool ZelSettings::ensureLODTrianglesCap(const QString&, const QString& defaultValue, QString& value, QString&)
{
    return clampUnsigned(defaultValue, value, GetSettingRange(SettingsKeys::LODTrianglesCap));
}

bool ZelSettings::ensureMaxGPUMemory(const QString&, const QString& defaultValue, QString& value, QString&)
{
    return clampUnsigned(defaultValue, value, GetSettingRange(SettingsKeys::MaxGPUMemory));
}

bool ZelSettings::ensureMaxCPUMemoryRaytracer(const QString&, const QString& defaultValue, QString& value,
                                                   QString&)
{
    return clampUnsigned(defaultValue, value, GetSettingRange(SettingsKeys::MaxCPUMemoryRaytracer));
}

bool ZelSettings::ensureMaxCPUMemory3D(const QString&, const QString& defaultValue, QString& value, QString&)
{
    return clampUnsigned(defaultValue, value, GetSettingRange(SettingsKeys::MaxCPUMemory3D));
}

bool ZelSettings::ensureRaytracerQuality(const QString&, const QString& defaultValue, QString& value, QString&)
{
    if (!isChoice(SettingsKeys::RaytracerQuality, value))
        value = defaultValue;
    return true;
}

bool ZelSettings::ensureSceneUnit(const QString&, const QString& defaultValue, QString& value, QString&)
{
    // A number near a unit is written as that unit's text: the same absolute tolerance
    // for every unit, so anything strictly between 0 and 0.002 is 0.001.
    float number = 0;
    if (parseFloat(value, number)) {
        for (const QString& unit : GetSettingRange(SettingsKeys::SceneUnits).choices) {
            if (std::abs(double(number) - unit.toDouble()) < SceneUnitTolerance) {
                value = unit;
                return true;
            }
        }
    }
    value = defaultValue;
    return true;
}

bool ZelSettings::ensureIpOrHostName(const QString&, const QString& defaultValue, QString& value, QString&)
{
    static const QRegularExpression ipv4(QRegularExpression::anchoredPattern(
        QStringLiteral("([0-9]{1,3})\\.([0-9]{1,3})\\.([0-9]{1,3})\\.([0-9]{1,3})")));
    // Zero characters match, so empty labels ("a..b", "host.") are accepted.
    static const QRegularExpression label(QRegularExpression::anchoredPattern(QStringLiteral("[A-Za-z0-9\\-]*")));

    if (value.isEmpty() || value.size() > 255) {
        value = defaultValue;
        return true;
    }

    const QRegularExpressionMatch address = ipv4.match(value);
    if (address.hasMatch()) {
        for (int part = 1; part <= 4; ++part) {
            if (address.capturedView(part).toInt() > 255) {
                value = defaultValue;
                return true;
            }
        }
        return true;
    }

    const QStringList labels = value.split(QLatin1Char('.'));
    const bool hostName = std::all_of(labels.cbegin(), labels.cend(),
                                      [](const QString& part) { return label.match(part).hasMatch(); });
    if (!hostName)
        value = defaultValue;
    return true;
}

bool ZelSettings::ensureSimplificationRatios(const QString&, const QString& defaultValue, QString& value, QString&)
{
    // The value's ratios if five of them parse, else the default's. Should the kernel's
    // correction not keep five, the default gets the same treatment; a default that gives
    // no five ratios fails the pass.
    const SettingRange range = GetSettingRange(SettingsKeys::SimplificationRatios);
    for (const QString& source : {value, defaultValue}) {
        std::vector<float> ratios = parseRatios(source);
        if (ratios.size() != RatioCount)
            continue;
        if (kqDMManager::correctRatios(ratios))
            std::cout << "Ratio changed" << std::endl;
        // Then to whole percents, as the page shows them; rounding keeps the order.
        for (float& ratio : ratios)
            ratio = float(clamped(rounded(double(ratio), range.decimals), range.minimum, range.maximum));
        if (ratios.size() == RatioCount) {
            value = ratiosText(ratios);
            return true;
        }
    }
    return false;
}

bool ZelSettings::ensureFolder(const QString& defaultValue, QString& value)
{
    return keepOrCreate(defaultValue, value, [](const QString& folder) { return folder; });
}

bool ZelSettings::ensureDMCacheFolder(const QString&, const QString& defaultValue, QString& value, QString& error)
{
    if (ensureFolder(defaultValue, value))
        return true;
    error = QCoreApplication::translate("ZelControlCenter",
                                        "Could not use the 3D database cache, folder \"%1\" could not be created")
                .arg(value);
    return false;
}

bool ZelSettings::ensureFile(const QString&, const QString& defaultValue, QString& value, QString& error)
{
    // Only the folder matters: the logger creates the file itself.
    if (keepOrCreate(defaultValue, value, folderOf))
        return true;
    error = QCoreApplication::translate("ZelControlCenter",
                                        "Could not use the Torvane log file, file \"%1\" could not be created")
                .arg(value);
    return false;
}

bool ZelSettings::ensureTmpFolder(const QString&, const QString& defaultValue, QString& value, QString& error)
{
    // The default folder must exist even when the value points elsewhere.
    if (!existsOrCreated(defaultValue)) {
        error = QCoreApplication::translate("ZelControlCenter", "Could not create compulsory folder \"%1\"")
                    .arg(defaultValue);
        return false;
    }
    CleanupFolder(value);
    if (!value.isEmpty() && QDir(value).exists())
        return true;
    value = defaultValue;
    return true;
}

} // namespace zel
