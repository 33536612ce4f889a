#include "ConfigChanges.h"

#include "ZelSettingRange.h"
#include "ZelSettings.h"
#include "ZelSettingsFile.h"
#include "ZelSettingsKeys.h"

#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QMap>
#include <QSaveFile>
#include <QSettings>
#include <QTemporaryDir>

#include <cerrno>
#include <iostream>
#include <sstream>
#include <vector>

#include <sys/stat.h>

namespace zel {

namespace {

// The kernel reports corrected ratios on std::cout; the tool's output is for scripts.
class QuietKernel
{
public:
    QuietKernel()
        : m_previous(std::cout.rdbuf(m_sink.rdbuf()))
    {
    }
    ~QuietKernel() { std::cout.rdbuf(m_previous); }

private:
    Q_DISABLE_COPY_MOVE(QuietKernel)
    std::ostringstream m_sink;
    std::streambuf* m_previous = nullptr;
};

// Makes `folder` with its missing parents, as QDir::mkpath does, but keeps the
// system's reason when it cannot.
bool makeFolder(const QString& folder, QString& reason)
{
    const QFileInfo info(folder);
    if (info.isDir())
        return true;
    const QString parent = info.absolutePath();
    if (parent != info.absoluteFilePath() && !makeFolder(parent, reason))
        return false;
    if (::mkdir(QFile::encodeName(folder).constData(), 0777) == 0 || (errno == EEXIST && QFileInfo(folder).isDir()))
        return true;
    // Something other than a folder in the way is what the user has to move.
    reason = systemReason(errno == EEXIST ? ENOTDIR : errno);
    return false;
}

QString problemText(const QString& file, const FileProblem& problem)
{
    return QStringLiteral("cannot write %1: %2. %3").arg(file, problem.reason, problem.text);
}

// Why the editor's next start sets `file` aside.
QString setAsideReason(const QString& file, const QSettings& settings)
{
    const QString version = settings.contains(SettingsKeys::SettingsVersion)
        ? QStringLiteral("has an unknown settings version %1")
              .arg(quoted(ZelSettings::GetSettingText(settings, SettingsKeys::SettingsVersion)))
        : QStringLiteral("has no settings version");
    return QStringLiteral("%1 %2: the settings editor sets it aside at its next start").arg(file, version);
}

// The file the editor's start makes of one it set aside: the layout version and the
// language, if there was one.
void startAfresh(QSettings& settings, const QVariant& language)
{
    settings.setValue(SettingsKeys::SettingsVersion, QString::number(ZelSettingsFile::CurrentVersion()));
    if (language.isValid())
        settings.setValue(SettingsKeys::Language, language);
}

// Every value of `settings` as the pass reads it, registered keys included.
QMap<QString, QString> settingTexts(const QSettings& settings)
{
    QMap<QString, QString> texts;
    for (const QString& key : registeredKeys() + settings.allKeys())
        texts.insert(key, ZelSettings::GetSettingText(settings, key));
    return texts;
}

// Upgrades a version-1 `settings` as the editor does; what it changed, one line a key.
QStringList upgrade(QSettings& settings)
{
    const QMap<QString, QString> before = settingTexts(settings);
    ZelSettingsFile::Upgrade(settings);
    const QMap<QString, QString> after = settingTexts(settings);
    QStringList changes;
    for (auto it = after.cbegin(); it != after.cend(); ++it) {
        if (before.value(it.key()) != it.value())
            changes.append(changeText(it.key(), before.value(it.key()), it.value()));
    }
    return changes;
}

} // namespace

ConfigChanges::ConfigChanges(const QString& settingsFile, bool makeFolder)
    : ConfigCommand(settingsFile)
    , m_makeFolder(makeFolder)
{
}

int ConfigChanges::set(const QString& key, const QString& value)
{
    const SettingsRegistry& registry = ZelSettings::GetDefaultSettingsValues();
    const auto entry = registry.find(key);
    if (entry == registry.end())
        return unknownKey(key, registeredKeys());

    const auto& [defaultValue, validator] = entry->second;
    QString kept = value;
    QString error;
    bool valid = false;
    {
        const QuietKernel quiet;
        valid = validator(key, defaultValue, kept, error);
    }
    if (!valid) {
        m_err << QStringLiteral("torvane-config: ") << error << Qt::endl;
        return ExitValidatorFailed;
    }
    if (kept != value) {
        const SettingRange range = ZelSettings::GetSettingRange(key);
        m_err << QStringLiteral("torvane-config: refused: %1 accepts %2, not %3").arg(key, range.describe(), quoted(value));
        // "a folder path" does not tell what is wrong with this one.
        if (range.kind == SettingRange::Kind::Folder || range.kind == SettingRange::Kind::File)
            m_err << QStringLiteral("; Torvane would store %1").arg(quoted(kept));
        m_err << Qt::endl;
        return ExitRefused;
    }

    std::optional<QByteArray> bytes;
    if (!read(bytes))
        return ExitFileError;
    QSettings settings(m_file, ZelSettings::SettingsFormat());
    const int ready = beginChange(settings, bytes);
    if (ready != ExitDone)
        return ready;
    settings.setValue(key, value);
    return saved(settings);
}

int ConfigChanges::reset(const QStringList& keys)
{
    std::optional<QByteArray> bytes;
    if (!read(bytes))
        return ExitFileError;
    QSettings settings(m_file, ZelSettings::SettingsFormat());
    const QStringList registered = registeredKeys();
    for (const QString& key : keys) {
        if (!isRegistered(key) && !settings.contains(key))
            return unknownKey(key, registered + settings.allKeys());
    }
    // Without its version the editor would set the whole file aside.
    if (keys.contains(SettingsKeys::SettingsVersion)) {
        m_err << QStringLiteral("torvane-config: refused: %1 is the layout version of the file, which the settings "
                                "editor needs; it is never reset")
                     .arg(SettingsKeys::SettingsVersion)
              << Qt::endl;
        return ExitRefused;
    }
    // Only stored keys are removed: a file with none of them is left untouched. One the
    // editor will set aside is refused all the same, so that the user learns of it.
    QStringList stored;
    for (const QString& key : keys.isEmpty() ? registered : keys) {
        if (key != SettingsKeys::SettingsVersion && settings.contains(key))
            stored.append(key);
    }
    if (stored.isEmpty())
        return refuseFileToBeSetAside(settings) ? ExitRefused : ExitDone;
    const int ready = beginChange(settings, bytes);
    if (ready != ExitDone)
        return ready;
    for (const QString& key : stored)
        settings.remove(key);
    return saved(settings);
}

int ConfigChanges::check(bool fix)
{
    std::optional<QByteArray> bytes;
    if (!read(bytes))
        return ExitFileError;
    if (!bytes) {
        // The editor's first start makes it, with its folder, unless nothing can be
        // written there.
        const FileProblem problem = ZelSettingsFile::WriteProblem(m_file);
        if (!problem.isNull() && QFileInfo(QFileInfo(m_file).absolutePath()).isDir()) {
            m_err << QStringLiteral("torvane-config: ") << problemText(m_file, problem) << Qt::endl;
            return ExitFileError;
        }
        m_out << QStringLiteral("%1 does not exist yet: the settings editor makes it at its first start").arg(m_file)
              << Qt::endl;
        return ExitDone;
    }
    ZelSettingsFile::Layout layout = ZelSettingsFile::Layout::Current;
    QVariant language;
    QStringList lines;
    {
        const QSettings current(m_file, ZelSettings::SettingsFormat());
        layout = ZelSettingsFile::InspectLayout(current);
        language = current.value(SettingsKeys::Language);
        if (layout == ZelSettingsFile::Layout::Discard)
            lines.append(setAsideReason(m_file, current) + QStringLiteral(", keeping only the language"));
        else if (layout == ZelSettingsFile::Layout::Upgrade)
            lines.append(QStringLiteral("%1 has settings version 1: the settings editor upgrades it at its next start")
                             .arg(m_file));
    }
    // What the editor's start does before its pass.
    const auto startAsEditor = [&](QSettings& settings) {
        if (layout == ZelSettingsFile::Layout::Discard)
            startAfresh(settings, language);
        return layout == ZelSettingsFile::Layout::Upgrade ? upgrade(settings) : QStringList();
    };

    // The start is worked out on a copy: the pass writes what it adds and repairs, and
    // a failing validator would leave the keys before it half done.
    const QTemporaryDir scratch;
    const QString copyPath = scratch.filePath(QStringLiteral("Settings.ini"));
    const QByteArray start = layout == ZelSettingsFile::Layout::Discard ? QByteArray() : *bytes;
    QSaveFile copyFile(copyPath);
    if (!scratch.isValid() || !copyFile.open(QIODevice::WriteOnly) || copyFile.write(start) != start.size()
        || !copyFile.commit()) {
        m_err << QStringLiteral("torvane-config: cannot copy %1 to a temporary folder: %2")
                     .arg(m_file, scratch.isValid() ? copyFile.errorString() : scratch.errorString())
              << Qt::endl;
        return ExitFileError;
    }
    QSettings copy(copyPath, ZelSettings::SettingsFormat());
    lines += startAsEditor(copy);
    std::vector<SettingRepair> repairs;
    QStringList missing;
    QString error;
    bool passed = false;
    {
        const QuietKernel quiet;
        passed = ZelSettingsFile::PlanRepairs(copy, repairs, missing, error);
        // The editor's start stores the system's language, not the registered default.
        if (!copy.contains(SettingsKeys::Language))
            copy.setValue(SettingsKeys::Language, ZelSettings::StartLanguage(QLocale::system().name()));
        passed = passed && ZelSettings::EnsureSettings(copy, error);
    }
    // A file set aside starts again from the defaults; those are no news key by key.
    if (layout != ZelSettingsFile::Layout::Discard) {
        for (const SettingRepair& repair : repairs)
            lines.append(changeText(repair.key, repair.before, repair.after));
        for (const QString& key : passed ? missing : QStringList()) {
            lines.append(QStringLiteral("%1: added with the default %2")
                             .arg(key, quoted(ZelSettings::GetSettingText(copy, key))));
        }
    }
    for (const QString& line : lines)
        m_out << line << '\n';
    m_out.flush();
    if (!passed) {
        m_err << QStringLiteral("torvane-config: ") << error << Qt::endl;
        return ExitValidatorFailed;
    }
    if (lines.isEmpty())
        return ExitDone;
    if (!fix)
        return ExitRefused;

    if (!writable())
        return ExitFileError;
    const bool kept = layout == ZelSettingsFile::Layout::Discard
        ? ZelSettingsFile::SetAside(m_file, m_copy, error)
        : ZelSettingsFile::KeepCopy(m_file, *bytes, m_copy, error);
    if (!kept) {
        m_err << QStringLiteral("torvane-config: ") << error << Qt::endl;
        return ExitFileError;
    }
    QSettings settings(m_file, ZelSettings::SettingsFormat());
    startAsEditor(settings);
    for (const SettingRepair& repair : repairs)
        settings.setValue(repair.key, repair.after);
    for (const QString& key : missing)
        settings.setValue(key, ZelSettings::GetSettingText(copy, key));
    const int result = saved(settings);
    if (result == ExitDone)
        m_out << QStringLiteral("The previous file is kept as %1").arg(m_copy) << Qt::endl;
    return result;
}

bool ConfigChanges::refuseFileToBeSetAside(const QSettings& settings)
{
    if (ZelSettingsFile::InspectLayout(settings) != ZelSettingsFile::Layout::Discard)
        return false;
    m_err << QStringLiteral("torvane-config: %1; run %2 to do it now, keeping a copy")
                 .arg(setAsideReason(m_file, settings), quoted(command(QStringLiteral("check --fix"))))
          << Qt::endl;
    return true;
}

int ConfigChanges::beginChange(QSettings& settings, const std::optional<QByteArray>& bytes)
{
    if (refuseFileToBeSetAside(settings))
        return ExitRefused;
    const ZelSettingsFile::Layout layout = ZelSettingsFile::InspectLayout(settings);
    if (!writable())
        return ExitFileError;
    if (layout == ZelSettingsFile::Layout::Missing) {
        startAfresh(settings, QVariant());
    } else if (layout == ZelSettingsFile::Layout::Upgrade) {
        QString error;
        if (!ZelSettingsFile::KeepCopy(m_file, bytes.value_or(QByteArray()), m_copy, error)) {
            m_err << QStringLiteral("torvane-config: ") << error << Qt::endl;
            return ExitFileError;
        }
        m_upgraded = QStringLiteral("torvane-config: %1 had settings version 1 and is upgraded as the settings "
                                    "editor does (%2); the previous file is kept as %3")
                         .arg(m_file, upgrade(settings).join(QStringLiteral(", ")), m_copy);
    }
    return ExitDone;
}

bool ConfigChanges::writable()
{
    // The editor makes its own settings folder; a folder named with --file is the
    // caller's to make, and one that is missing is most likely a typo.
    QString reason;
    const QString folder = QFileInfo(m_file).absolutePath();
    if (m_makeFolder && !makeFolder(folder, reason)) {
        m_err << QStringLiteral("torvane-config: cannot make the settings folder %1: %2").arg(folder, reason)
              << Qt::endl;
        return false;
    }
    const FileProblem problem = ZelSettingsFile::WriteProblem(m_file);
    if (problem.isNull())
        return true;
    m_err << QStringLiteral("torvane-config: ") << problemText(m_file, problem) << Qt::endl;
    return false;
}

int ConfigChanges::saved(QSettings& settings)
{
    settings.sync();
    // Our reader reports no format error: a line it cannot read is kept as it is.
    if (settings.status() != QSettings::AccessError) {
        if (!m_upgraded.isEmpty())
            m_err << m_upgraded << Qt::endl;
        return ExitDone;
    }
    // The format keeps the system's reason when the new file could not be written;
    // a lock or a rename that failed leave none, and the file's surroundings tell.
    const QString reason = ZelSettingsFile::LastWriteError();
    const FileProblem problem = ZelSettingsFile::WriteProblem(m_file);
    m_err << QStringLiteral("torvane-config: ");
    if (!reason.isEmpty())
        m_err << QStringLiteral("cannot write %1: %2").arg(m_file, reason);
    else if (!problem.isNull())
        m_err << problemText(m_file, problem);
    else
        m_err << QStringLiteral("cannot write %1").arg(m_file);
    if (!m_copy.isEmpty())
        m_err << QStringLiteral("; the previous file is kept as %1").arg(m_copy);
    m_err << Qt::endl;
    return ExitFileError;
}

QString ConfigChanges::command(const QString& arguments) const
{
    return m_makeFolder ? QStringLiteral("torvane-config ") + arguments
                        : QStringLiteral("torvane-config --file %1 %2").arg(m_file, arguments);
}

} // namespace zel
