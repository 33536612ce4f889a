#pragma once

#include "ZelSettingsFile.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

class QSettings;

namespace zel {

// What a start of the editor does to Settings.ini before its window opens, and what it
// tells the user about it. Nothing is replaced or repaired without a copy of the file
// as it was kept beside it, and every change made without being asked is announced.
class ZelSettingsStart
{
public:
    // `settings` is the one settings object of the start, open on Settings.ini; it must
    // outlive this object.
    explicit ZelSettingsStart(QSettings& settings);

    // False, with `error`, when the file exists but cannot be read, or cannot be made.
    bool open(QString& error);
    // True when the settings cannot be written: then nothing is changed on disk and the
    // window opens read-only.
    bool isReadOnly() const;
    // Why, in a sentence with the system's reason; empty when the settings can be written.
    QString readOnlyReason() const;

    // Upgrades a version-1 file or sets an older one aside, a copy kept first, then
    // tells whether the renderer is known. The settings hold the change; the validation
    // pass writes it. False, with `error`, when no copy could be kept (the file is then
    // left as it was).
    bool prepare(const QString& languageCode, bool& rendererKnown, QString& error);
    // Puts the file back as open() found it and drops the copy this start made. Call it
    // once the settings object is gone, or it writes its pending changes afterwards.
    bool restore(QString& error);

    // Before the validation pass: keeps a copy when the pass would change a stored
    // value. False, with `error`, when the pass would fail or the copy could not be kept.
    bool beforePass(QString& error);
    // After the pass: a file the pass could not write makes the start read-only.
    void afterPass();

    // What this start did, in the user's language, one message per change.
    QStringList notices() const;

    // Notices of a start that opened no window, shown by the next one that does.
    void keepNoticesForNextStart() const;
    QStringList takeNoticesOfEarlierStart() const;

    // The notice's line that tells where the file as it was is kept.
    static QString KeptCopyText(const QString& copy);

private:
    bool keepCopy(QString& error);
    QString noticeFile() const;
    QStringList noticesOfEarlierStarts() const;
    QString copyText() const;

    QSettings& m_settings;
    QString m_file;
    bool m_existed = false;
    QString m_languageCode;
    // The file before a renderer choice that left no copy.
    std::optional<QByteArray> m_before;
    FileProblem m_readOnly;
    ZelSettingsFile::Layout m_layout = ZelSettingsFile::Layout::Missing;
    QString m_copy;
    std::vector<SettingRepair> m_repairs;
    QStringList m_added;
    QString m_notWritten;
};

} // namespace zel
