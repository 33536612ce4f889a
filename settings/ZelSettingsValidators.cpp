#include "ZelSettings.h"

#include "kqDMManager.h"
#include "kqDMRenderer.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStringList>
#include <QThread>

#include <algorithm>
#include <array>
#include <cmath>
#include <iostream>
#include <iterator>
#include <vector>

#if defined(Q_OS_UNIX)
#include <sys/stat.h>
#endif

namespace zel {

namespace {

constexpr qulonglong MinimumSimplificationRAM = 0x4000000; // 64 MiB
constexpr qulonglong MinimumMemory = 0x8000000; // 128 MiB
constexpr qulonglong MaximumMemory = 0x1FA000000; // 8096 MiB
constexpr std::size_t RatioCount = 5;

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

// Qt clears the ok flag for a number beyond float's range (and for one too small to
// tell from zero), but accepts "inf" and "nan".
bool parseFloat(QStringView text, float& number)
{
    bool ok = false;
    number = text.toFloat(&ok);
    return ok && numeric(text);
}

QString floatText(float number)
{
    return QString::number(number, 'g', 6);
}

bool clampInteger(const QString& defaultValue, QString& value, int minimum, int maximum)
{
    int number = 0;
    const bool ok = parseInteger(value, number, &QString::toInt);
    value = ok ? QString::number(clamped(number, minimum, maximum)) : defaultValue;
    return true;
}

bool clampUnsigned(const QString& defaultValue, QString& value, qulonglong minimum, qulonglong maximum)
{
    qulonglong number = 0;
    const bool ok = parseInteger(value, number, &QString::toULongLong);
    value = ok ? QString::number(clamped(number, minimum, maximum)) : defaultValue;
    return true;
}

bool clampFloat(const QString& defaultValue, QString& value, float minimum, float maximum)
{
    float number = 0;
    // An infinity clamps to a bound; "nan" lies nowhere in the range and takes the default.
    const bool usable = parseFloat(value, number) && !std::isnan(number);
    value = usable ? floatText(clamped(number, minimum, maximum)) : defaultValue;
    return true;
}

bool acceptUnsigned(const QString& defaultValue, QString& value, qulonglong minimum, qulonglong maximum)
{
    qulonglong number = 0;
    const bool ok = parseInteger(value, number, &QString::toULongLong);
    if (!ok || number < minimum || number > maximum)
        value = defaultValue;
    return true;
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
    if (value != QLatin1String("deferred") && value != QLatin1String("software"))
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
    return acceptUnsigned(defaultValue, value, 10, 10240);
}

bool ZelSettings::ensureSimplificationRAM(const QString&, const QString& defaultValue, QString& value, QString&)
{
    return acceptUnsigned(defaultValue, value, MinimumSimplificationRAM, MaximumMemory);
}

bool ZelSettings::ensureSimplificationThreads(const QString&, const QString&, QString& value, QString&)
{
    // The simplifier is pinned to one thread whatever the file says.
    value = QStringLiteral("1");
    return true;
}

bool ZelSettings::ensureCoreNumber(const QString&, const QString& defaultValue, QString& value, QString&)
{
    return clampInteger(defaultValue, value, 1, QThread::idealThreadCount());
}

bool ZelSettings::ensureTesselationMaxFaceAngle(const QString&, const QString& defaultValue, QString& value,
                                                     QString&)
{
    return clampInteger(defaultValue, value, 0, 359);
}

bool ZelSettings::ensureTesselationMaxFaceLength(const QString&, const QString& defaultValue, QString& value,
                                                      QString&)
{
    return clampFloat(defaultValue, value, 0.0f, 100.0f);
}

bool ZelSettings::ensureTesselationMaxFaceSag(const QString&, const QString& defaultValue, QString& value,
                                                   QString&)
{
    return clampFloat(defaultValue, value, 0.0f, 100.0f);
}

bool ZelSettings::ensureLODTrianglesCap(const QString&, const QString& defaultValue, QString& value, QString&)
{
    return clampUnsigned(defaultValue, value, 50000, 500000000);
}

bool ZelSettings::ensureMaxGPUMemory(const QString&, const QString& defaultValue, QString& value, QString&)
{
    return clampUnsigned(defaultValue, value, MinimumMemory, MaximumMemory);
}

bool ZelSettings::ensureMaxCPUMemoryRaytracer(const QString&, const QString& defaultValue, QString& value,
                                                   QString&)
{
    return clampUnsigned(defaultValue, value, MinimumMemory, MaximumMemory);
}

bool ZelSettings::ensureMaxCPUMemory3D(const QString&, const QString& defaultValue, QString& value, QString&)
{
    return clampUnsigned(defaultValue, value, MinimumMemory, MaximumMemory);
}

bool ZelSettings::ensureRaytracerQuality(const QString&, const QString& defaultValue, QString& value, QString&)
{
    const auto& names = kqDMRenderer::scQualityEnum;
    if (std::find(std::begin(names), std::end(names), value) == std::end(names))
        value = defaultValue;
    return true;
}

bool ZelSettings::ensureSceneUnit(const QString&, const QString& defaultValue, QString& value, QString&)
{
    struct Unit {
        double size;
        QLatin1String text;
    };
    static constexpr std::array<Unit, 7> units = {{
        {0.001, QLatin1String("0.001")},
        {0.01, QLatin1String("0.01")},
        {0.1, QLatin1String("0.1")},
        {1, QLatin1String("1")},
        {10, QLatin1String("10")},
        {100, QLatin1String("100")},
        {1000, QLatin1String("1000")},
    }};
    // The same absolute tolerance for every unit: anything strictly between 0 and
    // 0.002 is a millimetre.
    constexpr double tolerance = 0.001;

    float number = 0;
    if (parseFloat(value, number)) {
        for (const Unit& unit : units) {
            if (std::abs(double(number) - unit.size) < tolerance) {
                value = unit.text;
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
    for (const QString& source : {value, defaultValue}) {
        std::vector<float> ratios = parseRatios(source);
        if (ratios.size() != RatioCount)
            continue;
        if (kqDMManager::correctRatios(ratios))
            std::cout << "Ratio changed" << std::endl;
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
