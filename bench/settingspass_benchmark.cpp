// Times the validation pass in our INI format against its floor: reading each key,
// writing it back and syncing once through plain QSettings in Qt's own INI format. The
// same floor work in our format shows the format's own cost. Run by hand on a release
// build; every file lives in a temporary folder.

#include "ZelSettings.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <QTextStream>

#include <algorithm>
#include <functional>
#include <vector>

using zel::SettingValidator;
using zel::ZelSettings;

namespace {

struct Setting
{
    SettingValidator validator;
    QString defaultValue;
    QString stored; // null: the key is missing from the file
};

// What a settings file of an embedding application holds: repaired, clamped and kept
// values, a list, and keys missing from the file.
const std::vector<Setting>& realisticMix()
{
    static const std::vector<Setting> mix = {
        {ZelSettings::ensureBool, QStringLiteral("false"), QStringLiteral("true")},
        {ZelSettings::ensureEngine, QStringLiteral("deferred"), QStringLiteral("Software")},
        {ZelSettings::ensureCacheSize, QStringLiteral("4096"), QStringLiteral("2048")},
        {ZelSettings::ensureTesselationMaxFaceLength, QStringLiteral("1"), QStringLiteral("250.5")},
        {ZelSettings::ensureMaxGPUMemory, QStringLiteral("536870912"), QStringLiteral("1")},
        {ZelSettings::ensureSceneUnit, QStringLiteral("1"), QStringLiteral("0.0105")},
        {ZelSettings::ensureIpOrHostName, QStringLiteral("localhost"), QStringLiteral("192.168.1.20")},
        {ZelSettings::ensureSimplificationRatios, QStringLiteral("1/0.5/0.25/0.1/0.05"),
         QStringLiteral("1/0.6/0.3/0.1/0.05")},
        {ZelSettings::noOp, QString(), QStringLiteral("debug, info")},
        {ZelSettings::ensureCoreNumber, QStringLiteral("1"), QStringLiteral("1000")},
        {ZelSettings::ensureBool, QStringLiteral("true"), QString()},
    };
    return mix;
}

const std::vector<Setting>& noOpOnly()
{
    static const std::vector<Setting> mix = {
        {ZelSettings::noOp, QStringLiteral("default"), QStringLiteral("stored")},
        {ZelSettings::noOp, QString(), QStringLiteral("debug, info")},
        {ZelSettings::noOp, QStringLiteral("4096"), QString()},
    };
    return mix;
}

QString keyName(int index)
{
    // Fifty keys to a group, as an INI file of many sections would hold them.
    return QStringLiteral("Section%1/setting%2").arg(index / 50).arg(index % 50);
}

// Registers `count` keys cycling through `mix` and writes the file they are read from.
QByteArray prepare(int count, const std::vector<Setting>& mix, const QString& path)
{
    ZelSettings::ClearSettingsValues();
    QFile::remove(path);
    {
        QSettings settings(path, QSettings::IniFormat);
        for (int index = 0; index < count; ++index) {
            const Setting& setting = mix[std::size_t(index) % mix.size()];
            const QString key = keyName(index);
            ZelSettings::RegisterSetting(key, setting.defaultValue, setting.validator);
            if (!setting.stored.isNull())
                settings.setValue(key, setting.stored);
        }
    }
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Nanoseconds `work` takes on a QSettings in `format` freshly opened on `bytes`.
qint64 timeOnFreshFile(const QString& path, QSettings::Format format, const QByteArray& bytes,
                       const std::function<void(QSettings&)>& work)
{
    {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(bytes) != bytes.size())
            qFatal("Cannot write %s", qPrintable(path));
    }
    QSettings settings(path, format);
    QElapsedTimer timer;
    timer.start();
    work(settings);
    return timer.nsecsElapsed();
}

qint64 median(std::vector<qint64> samples)
{
    std::nth_element(samples.begin(), samples.begin() + std::ptrdiff_t(samples.size() / 2), samples.end());
    return samples[samples.size() / 2];
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    QTemporaryDir folder;
    if (!folder.isValid())
        qFatal("No temporary folder");
    const QString path = folder.filePath(QStringLiteral("Settings.ini"));

    QTextStream out(stdout);
    out << QStringLiteral("%1 %2 %3 %4 %5 %6 %7 %8\n")
               .arg(QStringLiteral("keys"), 7)
               .arg(QStringLiteral("validators"), 11)
               .arg(QStringLiteral("pass ms"), 10)
               .arg(QStringLiteral("floor ms"), 10)
               .arg(QStringLiteral("ratio"), 6)
               .arg(QStringLiteral("ours ms"), 10)
               .arg(QStringLiteral("ours/Qt"), 8)
               .arg(QStringLiteral("pass us/key"), 12);

    const std::vector<std::pair<QString, const std::vector<Setting>*>> mixes = {
        {QStringLiteral("noOp"), &noOpOnly()},
        {QStringLiteral("mixed"), &realisticMix()},
    };
    for (const int count : {10, 1000, 100000}) {
        for (const auto& [mixName, mix] : mixes) {
            const QByteArray bytes = prepare(count, *mix, path);
            const auto& registry = ZelSettings::GetDefaultSettingsValues();

            const auto pass = [](QSettings& settings) {
                QString error;
                if (!ZelSettings::EnsureSettings(settings, error))
                    qFatal("The pass failed: %s", qPrintable(error));
            };
            const auto floor = [&registry](QSettings& settings) {
                for (const auto& [key, entry] : registry)
                    settings.setValue(key, settings.value(key, QVariant(entry.first)));
                settings.sync();
            };

            // Alternated so that both see the same disk and cache conditions.
            const int repetitions = std::max(5, 200000 / (count * 10) + 1);
            const QSettings::Format ours = ZelSettings::SettingsFormat();
            std::vector<qint64> passTimes;
            std::vector<qint64> floorTimes;
            std::vector<qint64> oursTimes;
            for (int run = 0; run < repetitions; ++run) {
                passTimes.push_back(timeOnFreshFile(path, ours, bytes, pass));
                floorTimes.push_back(timeOnFreshFile(path, QSettings::IniFormat, bytes, floor));
                oursTimes.push_back(timeOnFreshFile(path, ours, bytes, floor));
            }
            const double passMs = double(median(passTimes)) / 1e6;
            const double floorMs = double(median(floorTimes)) / 1e6;
            const double oursMs = double(median(oursTimes)) / 1e6;
            out << QStringLiteral("%1 %2 %3 %4 %5 %6 %7 %8\n")
                       .arg(count, 7)
                       .arg(mixName, 11)
                       .arg(passMs, 10, 'f', 3)
                       .arg(floorMs, 10, 'f', 3)
                       .arg(passMs / floorMs, 6, 'f', 2)
                       .arg(oursMs, 10, 'f', 3)
                       .arg(oursMs / floorMs, 8, 'f', 2)
                       .arg(passMs * 1000.0 / count, 12, 'f', 3);
            out.flush();
        }
    }
    ZelSettings::ClearSettingsValues();
    return 0;
}
