#pragma once

#include "ZelSettingsExport.h"

#include <QByteArray>
#include <QSettings>
#include <QString>
#include <QStringList>

#include <vector>

namespace zel {

// One stored value that the validation pass would change.
struct ZEL_SETTINGS_EXPORT SettingRepair
{
    QString key;
    QString before;
    QString after;
};

// Why a file cannot be written: a sentence for the user and the system's own reason
// ("Permission denied", "Is a directory", "No such file or directory").
struct ZEL_SETTINGS_EXPORT FileProblem
{
    QString text;
    QString reason;

    bool isNull() const { return text.isEmpty(); }
};

// What every program of ours does to Settings.ini as a whole, so that the editor and
// torvane-config never disagree: its layout version, the copy kept before a change the
// user did not ask for, and the words for a file that cannot be written.
class ZEL_SETTINGS_EXPORT ZelSettingsFile
{
public:
    // What a start does with the file before it validates it.
    enum class Layout {
        Missing, // no file: a first start
        Current, // "settingsVersion" 2 or higher: kept as it is
        Upgrade, // version 1: stamped 2, "engine" set to "deferred", every other value kept
        Discard, // unversioned or older: set aside, only the language is kept
    };

    // The layout version this library writes.
    static int CurrentVersion();
    static Layout InspectLayout(const QSettings& settings);
    // The layout of an existing file that holds `values`: never Missing.
    static Layout InspectLayout(const QSettings::SettingsMap& values);
    // Version 1 to the current layout; every other value stays.
    static void Upgrade(QSettings& settings);

    // Copies the file's bytes beside it as "Settings.ini.YYYYMMDD-HHMMSS.bak" (with
    // "-2", "-3"... when that name is taken): an existing file is never replaced. False,
    // with `error` in the user's words, when the copy could not be made.
    static bool KeepCopy(const QString& file, const QByteArray& bytes, QString& copy, QString& error);
    // Keeps a copy, then removes the file. Nothing is removed without a copy.
    static bool SetAside(const QString& file, QString& copy, QString& error);

    // Why writing `file` would fail; null when nothing stands in the way. A file is
    // written by replacing it, so its folder must be writable as well as the file.
    static FileProblem WriteProblem(const QString& file);
    // Why `file` must not even be opened for reading: it is a folder, or a device, a pipe
    // or a socket, where a read could wait for ever or never end. Empty for a regular
    // file, or none.
    static QString ReadProblem(const QString& file);
    // The system's reason for the last failed write through ZelSettings::SettingsFormat()
    // on this thread, empty when the last write succeeded.
    static QString LastWriteError();

    // Every key and value of a Settings.ini as our format reads it.
    static QSettings::SettingsMap ReadValues(const QByteArray& bytes);
    // True when both values are stored as the same text: a list of one text is that
    // text, a number or a Boolean is its text.
    static bool SameValue(const QVariant& left, const QVariant& right);

    // What ZelSettings::EnsureSettings would do to `settings`, without changing it:
    // the stored values its validators change, and the registered keys the file lacks
    // (which the pass adds with their defaults). False, with `error`, where the pass
    // itself would fail.
    static bool PlanRepairs(const QSettings& settings, std::vector<SettingRepair>& repairs, QStringList& missing,
                            QString& error);
};

} // namespace zel
