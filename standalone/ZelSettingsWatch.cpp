#include "ZelSettingsWatch.h"

#include "ZelSettings.h"
#include "ZelSettingsFile.h"
#include "ZelSettingsKeys.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace zel {

namespace {

// Writers replace the file in a few steps; the check waits for them to settle.
constexpr int SettleMilliseconds = 80;

} // namespace

ZelSettingsWatch::ZelSettingsWatch(QSettings& settings, QObject* parent)
    : QObject(parent)
    , m_settings(settings)
    , m_file(settings.fileName())
{
    // The settings hold what the file holds: it was read once, at start.
    for (const QString& key : settings.allKeys())
        m_known.insert(key, settings.value(key));
    m_settle.setSingleShot(true);
    m_settle.setInterval(SettleMilliseconds);
    connect(&m_settle, &QTimer::timeout, this, &ZelSettingsWatch::checkFile);
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, &m_settle, qOverload<>(&QTimer::start));
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, &m_settle, qOverload<>(&QTimer::start));
    watchFile();
}

ZelSettingsWatch::~ZelSettingsWatch() = default;

void ZelSettingsWatch::watchFile()
{
    // A file replaced by a rename is a new file: the watch on the old one is gone.
    const QString folder = QFileInfo(m_file).absolutePath();
    if (!m_watcher.directories().contains(folder))
        m_watcher.addPath(folder);
    if (!m_watcher.files().contains(m_file) && QFileInfo(m_file).isFile())
        m_watcher.addPath(m_file);
}

bool ZelSettingsWatch::readFile(QSettings::SettingsMap& values, QByteArray* bytes) const
{
    QFile file(m_file);
    if (!QFileInfo(m_file).isFile() || !file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray content = file.readAll();
    values = ZelSettingsFile::ReadValues(content);
    if (bytes)
        *bytes = content;
    return true;
}

void ZelSettingsWatch::takeFileValues(const QSettings::SettingsMap& values)
{
    for (const QString& key : m_settings.allKeys()) {
        const auto stored = values.constFind(key);
        if (stored == values.cend()) {
            m_settings.remove(key);
            m_heldBack.append(key);
        } else if (!ZelSettingsFile::SameValue(m_settings.value(key), *stored)) {
            m_settings.setValue(key, *stored);
            m_heldBack.append(key);
        }
    }
    m_heldBack.removeDuplicates();
}

void ZelSettingsWatch::checkFile()
{
    watchFile();
    QSettings::SettingsMap values;
    // A removed file removed every value; an unreadable one tells nothing.
    if (QFileInfo::exists(m_file) && !readFile(values))
        return;
    QStringList changed;
    for (auto it = values.cbegin(); it != values.cend(); ++it) {
        const auto known = m_known.constFind(it.key());
        if (known == m_known.cend() || !ZelSettingsFile::SameValue(*known, *it))
            changed.append(it.key());
    }
    for (auto it = m_known.cbegin(); it != m_known.cend(); ++it) {
        if (!values.contains(it.key()))
            changed.append(it.key());
    }
    if (changed.isEmpty())
        return;
    m_known = values;
    m_outsideKeys += changed;
    m_outsideKeys.removeDuplicates();
    for (const QString& key : std::as_const(m_heldBack)) {
        if (values.contains(key))
            m_settings.setValue(key, values.value(key));
        else
            m_settings.remove(key);
    }
    // Re-reads the file, since it changed under us.
    m_settings.sync();
    // QSettings skips a file whose size and time match its last read: a quick second
    // write of the same length would go unseen.
    for (const QString& key : std::as_const(changed)) {
        const auto stored = values.constFind(key);
        if (stored == values.cend())
            m_settings.remove(key);
        else if (!ZelSettingsFile::SameValue(m_settings.value(key), *stored))
            m_settings.setValue(key, *stored);
    }
    Q_EMIT changedOutside(changed);
}

bool ZelSettingsWatch::writeApplied(QString& error)
{
    QSettings::SettingsMap before;
    QByteArray beforeBytes;
    const bool existed = readFile(before, &beforeBytes);
    // A file another program removed, emptied or left without its layout version would
    // be set aside at the next start, with the edits written now: they go in with the
    // version. Only the edited keys are written, so the others take their defaults.
    const bool versionLost = !existed || ZelSettingsFile::InspectLayout(before) == ZelSettingsFile::Layout::Discard;
    if (versionLost)
        m_settings.setValue(SettingsKeys::SettingsVersion, QString::number(ZelSettingsFile::CurrentVersion()));
    m_settings.sync();
    QSettings::SettingsMap values;
    // QSettings keeps the first error it met, so the file itself says whether it
    // holds every value now.
    const bool readable = readFile(values);
    bool written = readable;
    if (written) {
        const QStringList keys = m_settings.allKeys();
        written = std::all_of(keys.cbegin(), keys.cend(), [&](const QString& key) {
            return values.contains(key) && ZelSettingsFile::SameValue(values.value(key), m_settings.value(key));
        });
    }
    if (written) {
        reportOutsideValues(before, beforeBytes, values, versionLost);
        return true;
    }
    error = writeError();
    // A file that cannot even be read (a folder took its place) held what we last saw.
    takeFileValues(readable ? values : m_known);
    return false;
}

void ZelSettingsWatch::reportOutsideValues(const QSettings::SettingsMap& before, const QByteArray& beforeBytes,
                                            const QSettings::SettingsMap& after, bool versionRestored)
{
    const auto same = [](const QSettings::SettingsMap& values, const QString& key, const QVariant& value) {
        const auto found = values.constFind(key);
        return found != values.cend() && ZelSettingsFile::SameValue(*found, value);
    };
    std::vector<SettingRepair> replaced;
    QStringList unseen;
    for (auto it = before.cbegin(); it != before.cend(); ++it) {
        if (versionRestored && it.key() == SettingsKeys::SettingsVersion)
            continue;
        // Written since we last looked: the watch had not reported it yet.
        const bool seen = same(m_known, it.key(), *it);
        if (same(after, it.key(), *it)) {
            if (!seen)
                unseen.append(it.key());
        } else if (!seen || m_outsideKeys.contains(it.key())) {
            const auto ours = after.constFind(it.key());
            replaced.push_back({it.key(), ZelSettings::SettingText(*it),
                                ours == after.cend() ? QString() : ZelSettings::SettingText(*ours)});
        }
    }
    // A key removed just before the write, and not written by it. A file that lost every
    // key is the version notice's to tell.
    for (auto it = m_known.cbegin(); it != m_known.cend() && !versionRestored; ++it) {
        if (!before.contains(it.key()) && !after.contains(it.key()))
            unseen.append(it.key());
    }
    m_known = after;
    m_heldBack.clear();
    // Every edit left on the pages from now on was made with the file's values in view.
    m_outsideKeys.clear();
    QString copy;
    QString copyError;
    if (!replaced.empty() || (versionRestored && !beforeBytes.isEmpty()))
        ZelSettingsFile::KeepCopy(m_file, beforeBytes, copy, copyError);
    if (versionRestored)
        Q_EMIT versionRestoredOnApply(!before.isEmpty(), copy, copyError);
    if (!replaced.empty())
        Q_EMIT outsideValuesReplaced(replaced, copy, copyError);
    if (!unseen.isEmpty())
        Q_EMIT changedOutside(unseen);
}

QString ZelSettingsWatch::writeError() const
{
    const FileProblem problem = ZelSettingsFile::WriteProblem(m_file);
    if (!problem.isNull())
        return QStringLiteral("%1 (%2)").arg(problem.text, problem.reason);
    const QString reason = ZelSettingsFile::LastWriteError();
    const QString file = QDir::toNativeSeparators(m_file);
    if (reason.isEmpty())
        return QCoreApplication::translate("ZelSettingsWatch", "The settings file \"%1\" could not be written.")
            .arg(file);
    return QCoreApplication::translate("ZelSettingsWatch", "The settings file \"%1\" could not be written (%2).")
        .arg(file, reason);
}

} // namespace zel
