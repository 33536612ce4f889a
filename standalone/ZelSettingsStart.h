#pragma once

#include "ZelSettingsFile.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

class QSettings;

namespace zel {

// What a start of the editor does to Settings.ini before its window opens, and what it
// tells the user about it. Nothing is replaced or repaired without a copy of the file
// as it was kept beside it, and every change made without being asked is announced.
class ZelSettingsStart
{
public:
    explicit ZelSettingsStart(const QString& settingsFile);

    // Reads the file as it is. False, with `error`, when it exists but cannot be read.
    bool open(QString& error);
    // Why the settings cannot be written; null when they can. Then nothing is changed
    // on disk and the window opens read-only.
    const FileProblem& readOnlyProblem() const;
    bool isReadOnly() const;

    // Upgrades a version-1 file or sets an older one aside, a copy kept first, then
    // tells whether the renderer is known. False, with `error`, when the file could not
    // be prepared (it is then left as it was).
    bool prepare(const QString& languageCode, bool& rendererKnown, QString& error);
    // Puts the file back as open() found it and drops the copy this start made.
    bool restore(QString& error);

    // Before the validation pass on `settings`: keeps a copy when the pass would
    // change a stored value. False, with `error`, when the copy could not be kept.
    bool beforePass(const QSettings& settings, QString& error);
    // After the pass: checks that the file holds what the pass did; a file that could
    // not be written makes the start read-only.
    void afterPass(const QSettings& settings);

    // What this start did, in the user's language, one message per change.
    QStringList notices() const;

    // Notices of a start that opened no window, shown by the next one that does.
    void keepNoticesForNextStart() const;
    QStringList takeNoticesOfEarlierStart() const;

private:
    QString noticeFile() const;
    QString copyText() const;

    QString m_file;
    std::optional<QByteArray> m_bytes;
    FileProblem m_readOnly;
    ZelSettingsFile::Layout m_layout = ZelSettingsFile::Layout::Missing;
    QString m_copy;
    std::vector<SettingRepair> m_repairs;
    QStringList m_added;
    QString m_notWritten;
};

} // namespace zel
