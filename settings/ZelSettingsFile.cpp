#include "ZelSettingsFile.h"

#include "FileOwner.h"
#include "IniDocument.h"
#include "IniText.h"
#include "ZelSettings.h"
#include "ZelSettingsKeys.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstring>

#if defined(Q_OS_UNIX)
#include <sys/statvfs.h>
#include <unistd.h>
#else
#include <QStorageInfo>
#endif

namespace zel {

namespace {

constexpr int SettingsLayoutVersion = 2;

QString translated(const char* text)
{
    return QCoreApplication::translate("ZelSettingsFile", text);
}

QString native(const QString& path)
{
    return QDir::toNativeSeparators(path);
}

QString systemReason(int error)
{
    return QString::fromLocal8Bit(std::strerror(error));
}

// True when the file system holding `folder` has no room left for a new file: a full
// disk or quota, or no free inode. Writing the file needs a lock file and a new file
// beside it before a single byte of settings is written, so either stops it.
bool isFull(const QString& folder)
{
#if defined(Q_OS_UNIX)
    struct statvfs space {};
    if (::statvfs(QFile::encodeName(folder).constData(), &space) != 0)
        return false;
    // File systems with nothing to count (some FUSE ones), or with inodes made on demand
    // (btrfs), report zeros that mean nothing.
    const bool noBlocks = space.f_blocks > 0 && (::geteuid() == 0 ? space.f_bfree : space.f_bavail) == 0;
    const bool noInodes = space.f_files > 0 && (::geteuid() == 0 ? space.f_ffree : space.f_favail) == 0;
    return noBlocks || noInodes;
#else
    const QStorageInfo storage(folder);
    return storage.isValid() && storage.bytesTotal() > 0 && storage.bytesAvailable() == 0;
#endif
}

// Asks the system itself whether `path` may be written: it knows about read-only
// mounts, access lists and the superuser, which the permission bits do not tell.
bool mayWrite(const QString& path, QString& reason)
{
#if defined(Q_OS_UNIX)
    if (::access(QFile::encodeName(path).constData(), W_OK) == 0)
        return true;
    reason = systemReason(errno);
    return false;
#else
    if (QFileInfo(path).isWritable())
        return true;
    reason = systemReason(EACCES);
    return false;
#endif
}

// The value as the validation pass hands it to a validator.
QString passText(const QSettings& settings, const QString& key)
{
    return ZelSettings::GetSettingText(settings, key);
}

ZelSettingsFile::Layout layoutOfVersion(const QVariant& stored)
{
    bool isNumber = false;
    const int version = stored.toString().trimmed().toInt(&isNumber);
    if (!isNumber || version < 1)
        return ZelSettingsFile::Layout::Discard;
    if (version == 1)
        return ZelSettingsFile::Layout::Upgrade;
    return ZelSettingsFile::Layout::Current;
}

// Why `folder` is not there to hold the settings: what stands in the way of making it.
FileProblem missingFolderProblem(const QString& folder)
{
    QString nearest = folder;
    while (!QFileInfo::exists(nearest) && QFileInfo(nearest).absolutePath() != nearest)
        nearest = QFileInfo(nearest).absolutePath();
    if (!QFileInfo(nearest).isDir()) {
        return {translated(QT_TRANSLATE_NOOP("ZelSettingsFile",
                                             "The settings folder \"%1\" cannot be made, because \"%2\" is a file. "
                                             "Rename or move that file so that the settings can be saved."))
                    .arg(native(folder), native(nearest)),
                systemReason(ENOTDIR)};
    }
    QString reason;
    if (!mayWrite(nearest, reason)) {
        return {translated(QT_TRANSLATE_NOOP("ZelSettingsFile",
                                             "The settings folder \"%1\" cannot be made, because \"%2\" is "
                                             "read-only. Allow writing to it to save your settings."))
                    .arg(native(folder), native(nearest)),
                reason};
    }
    return {translated(QT_TRANSLATE_NOOP("ZelSettingsFile", "The folder \"%1\" does not exist.")).arg(native(folder)),
            systemReason(ENOENT)};
}

} // namespace

int ZelSettingsFile::CurrentVersion()
{
    return SettingsLayoutVersion;
}

ZelSettingsFile::Layout ZelSettingsFile::InspectLayout(const QSettings& settings)
{
    if (!QFileInfo::exists(settings.fileName()))
        return Layout::Missing;
    return layoutOfVersion(settings.value(SettingsKeys::SettingsVersion));
}

ZelSettingsFile::Layout ZelSettingsFile::InspectLayout(const QSettings::SettingsMap& values)
{
    return layoutOfVersion(values.value(SettingsKeys::SettingsVersion));
}

void ZelSettingsFile::Upgrade(QSettings& settings)
{
    settings.setValue(SettingsKeys::SettingsVersion, QString::number(SettingsLayoutVersion));
    settings.setValue(SettingsKeys::Engine, QStringLiteral("deferred"));
}

bool ZelSettingsFile::KeepCopy(const QString& file, const QByteArray& bytes, QString& copy, QString& error)
{
    const QString stem
        = file + QLatin1Char('.') + QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmmss"));
    // A file only its owner may read keeps a copy only its owner may read.
    const QFileInfo original(file);
    const QFileDevice::Permissions access = original.exists()
        ? original.permissions() | QFileDevice::ReadOwner | QFileDevice::WriteOwner
        : QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ReadGroup | QFileDevice::ReadOther;
    for (int attempt = 1; attempt < 1000; ++attempt) {
        const QString candidate =
            stem + (attempt == 1 ? QString() : QStringLiteral("-%1").arg(attempt)) + QStringLiteral(".bak");
        QFile target(candidate);
        // NewOnly: a copy made by an earlier start, or a file of the user's, is never replaced.
        if (!target.open(QIODevice::WriteOnly | QIODevice::NewOnly, access)) {
            if (target.exists())
                continue;
            error = translated(QT_TRANSLATE_NOOP("ZelSettingsFile", "A copy of \"%1\" could not be kept as \"%2\": %3"))
                        .arg(native(file), native(candidate), target.errorString());
            return false;
        }
        keepOwner(target, file);
        if (target.write(bytes) != bytes.size() || !target.flush()) {
            error = translated(QT_TRANSLATE_NOOP("ZelSettingsFile", "A copy of \"%1\" could not be kept as \"%2\": %3"))
                        .arg(native(file), native(candidate), target.errorString());
            target.close();
            target.remove();
            return false;
        }
        target.close();
        copy = candidate;
        return true;
    }
    error = translated(
        QT_TRANSLATE_NOOP("ZelSettingsFile", "A copy of \"%1\" could not be kept: too many copies beside it."))
                .arg(native(file));
    return false;
}

bool ZelSettingsFile::SetAside(const QString& file, QString& copy, QString& error)
{
    QFile original(file);
    if (!original.open(QIODevice::ReadOnly)) {
        error = translated(QT_TRANSLATE_NOOP("ZelSettingsFile", "\"%1\" could not be read: %2"))
                    .arg(native(file), original.errorString());
        return false;
    }
    const QByteArray bytes = original.readAll();
    original.close();
    if (!KeepCopy(file, bytes, copy, error))
        return false;
    if (original.remove())
        return true;
    error = translated(QT_TRANSLATE_NOOP("ZelSettingsFile", "\"%1\" could not be removed: %2"))
                .arg(native(file), original.errorString());
    QFile::remove(copy);
    copy.clear();
    return false;
}

FileProblem ZelSettingsFile::WriteProblem(const QString& file)
{
    const QFileInfo info(file);
    const QString folder = info.absolutePath();
    if (info.isDir()) {
        return {translated(QT_TRANSLATE_NOOP("ZelSettingsFile",
                                             "\"%1\" is a folder, not a settings file. Rename or move that folder so "
                                             "that the settings can be saved there."))
                    .arg(native(file)),
                systemReason(EISDIR)};
    }
    // A link whose file is missing (settings kept elsewhere, not there now) cannot be
    // written through, and replacing the link would lose where they are kept.
    if (info.isSymLink() && !info.exists()) {
        return {translated(QT_TRANSLATE_NOOP("ZelSettingsFile",
                                             "\"%1\" is a link to \"%2\", which does not exist. Restore that file, "
                                             "or remove the link, so that the settings can be saved."))
                    .arg(native(file), native(info.symLinkTarget())),
                systemReason(ENOENT)};
    }
    if (info.exists() && !info.isFile()) {
        return {translated(QT_TRANSLATE_NOOP("ZelSettingsFile",
                                             "\"%1\" is not a regular file, and only a regular file can hold the "
                                             "settings."))
                    .arg(native(file)),
                ReadProblem(file)};
    }
    if (!QFileInfo(folder).isDir())
        return missingFolderProblem(folder);
    QString reason;
    if (info.exists() && !mayWrite(file, reason)) {
        return {translated(QT_TRANSLATE_NOOP("ZelSettingsFile",
                                             "The settings file \"%1\" is read-only. Allow writing to it to save your "
                                             "settings."))
                    .arg(native(file)),
                reason};
    }
    // The file is replaced as a whole, through a new file written beside it.
    if (!mayWrite(folder, reason)) {
        return {translated(QT_TRANSLATE_NOOP("ZelSettingsFile",
                                             "The settings folder \"%1\" is read-only. Allow writing to it to save "
                                             "your settings."))
                    .arg(native(folder)),
                reason};
    }
    if (isFull(folder)) {
        return {translated(QT_TRANSLATE_NOOP("ZelSettingsFile",
                                             "The disk that holds \"%1\" is full. Free some space on it to save your "
                                             "settings."))
                    .arg(native(folder)),
                systemReason(ENOSPC)};
    }
    return {};
}

QString ZelSettingsFile::ReadProblem(const QString& file)
{
    const QFileInfo info(file);
    if (!info.exists() || info.isFile())
        return QString();
    if (info.isDir())
        return systemReason(EISDIR);
    return translated(QT_TRANSLATE_NOOP("ZelSettingsFile", "Not a regular file"));
}

QSettings::SettingsMap ZelSettingsFile::ReadValues(const QByteArray& bytes)
{
    return IniDocument(bytes).values();
}

bool ZelSettingsFile::SameValue(const QVariant& left, const QVariant& right)
{
    return IniText::sameValue(left, right);
}

bool ZelSettingsFile::PlanRepairs(const QSettings& settings, std::vector<SettingRepair>& repairs,
                                  QStringList& missing, QString& error)
{
    repairs.clear();
    missing.clear();
    for (const auto& [key, entry] : ZelSettings::GetDefaultSettingsValues()) {
        const auto& [defaultValue, validator] = entry;
        const QString before = passText(settings, key);
        QString after = before;
        if (!validator(key, defaultValue, after, error))
            return false;
        if (!settings.contains(key))
            missing.append(key);
        else if (after != before)
            repairs.push_back({key, before, after});
    }
    return true;
}

} // namespace zel
