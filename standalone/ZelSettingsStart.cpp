#include "ZelSettingsStart.h"

#include "ZelSettings.h"
#include "ZelSettingsKeys.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QSettings>

namespace zel {

namespace {

// A long list names its first entries and counts the rest.
constexpr int ListedEntries = 6;

QString translated(const char* text)
{
    return QCoreApplication::translate("ZelSettingsStart", text);
}

QString native(const QString& path)
{
    return QDir::toNativeSeparators(path);
}

QString listed(const QStringList& lines, const QString& separator)
{
    if (lines.size() <= ListedEntries)
        return lines.join(separator);
    return lines.mid(0, ListedEntries).join(separator) + separator
        + translated(QT_TRANSLATE_NOOP("ZelSettingsStart", "and %1 more")).arg(lines.size() - ListedEntries);
}

bool writeBytes(const QString& path, const QByteArray& bytes, QString& error)
{
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit())
        return true;
    error = file.errorString();
    return false;
}

} // namespace

ZelSettingsStart::ZelSettingsStart(const QString& settingsFile)
    : m_file(settingsFile)
{
}

bool ZelSettingsStart::open(QString& error)
{
    const QFileInfo info(m_file);
    m_readOnly = ZelSettingsFile::WriteProblem(m_file);
    if (info.isDir()) {
        error = m_readOnly.text;
        return false;
    }
    if (!info.exists()) {
        if (m_readOnly.isNull())
            return true;
        error = translated(QT_TRANSLATE_NOOP("ZelSettingsStart", "Torvane cannot create its settings file. %1 (%2)"))
                    .arg(m_readOnly.text, m_readOnly.reason);
        return false;
    }
    QFile file(m_file);
    if (!file.open(QIODevice::ReadOnly)) {
        error = translated(QT_TRANSLATE_NOOP("ZelSettingsStart", "The settings file \"%1\" cannot be read (%2)."))
                    .arg(native(m_file), file.errorString());
        return false;
    }
    m_bytes = file.readAll();
    return true;
}

const FileProblem& ZelSettingsStart::readOnlyProblem() const
{
    return m_readOnly;
}

bool ZelSettingsStart::isReadOnly() const
{
    return !m_readOnly.isNull();
}

bool ZelSettingsStart::prepare(const QString& languageCode, bool& rendererKnown, QString& error)
{
    rendererKnown = false;
    if (!m_bytes)
        return true;
    m_layout = ZelSettingsFile::InspectLayout(QSettings(m_file, ZelSettings::SettingsFormat()));
    // A file that cannot be written is shown as it is: the pass repairs it in memory.
    if (isReadOnly()) {
        rendererKnown = true;
        return true;
    }
    if (m_layout == ZelSettingsFile::Layout::Discard) {
        if (!ZelSettingsFile::SetAside(m_file, m_copy, error))
            return false;
        // Only the language survives, so the selector speaks the user's language.
        QSettings fresh(m_file, ZelSettings::SettingsFormat());
        fresh.setValue(SettingsKeys::Language, languageCode);
        fresh.sync();
        return true;
    }
    QSettings settings(m_file, ZelSettings::SettingsFormat());
    if (m_layout == ZelSettingsFile::Layout::Upgrade) {
        if (!ZelSettingsFile::KeepCopy(m_file, *m_bytes, m_copy, error))
            return false;
        ZelSettingsFile::Upgrade(settings);
        settings.sync();
    }
    const QString engine = settings.value(SettingsKeys::Engine).toString();
    rendererKnown = engine == QLatin1String("deferred") || engine == QLatin1String("software");
    return true;
}

bool ZelSettingsStart::restore(QString& error)
{
    if (isReadOnly())
        return true;
    if (!m_bytes) {
        QFile created(m_file);
        if (created.exists() && !created.remove()) {
            error = created.errorString();
            return false;
        }
        return true;
    }
    QFile current(m_file);
    const bool unchanged = current.open(QIODevice::ReadOnly) && current.readAll() == *m_bytes;
    current.close();
    if (!unchanged && !writeBytes(m_file, *m_bytes, error))
        return false;
    // The file is as it was: the copy would only be a second one.
    if (!m_copy.isEmpty())
        QFile::remove(m_copy);
    m_copy.clear();
    return true;
}

bool ZelSettingsStart::beforePass(const QSettings& settings, QString& error)
{
    if (!ZelSettingsFile::PlanRepairs(settings, m_repairs, m_added, error)) {
        // The pass itself says why it fails; nothing is planned then.
        m_repairs.clear();
        m_added.clear();
        error.clear();
        return true;
    }
    if (m_repairs.empty() || isReadOnly() || !m_copy.isEmpty())
        return true;
    QFile file(m_file);
    if (!file.open(QIODevice::ReadOnly)) {
        error = translated(QT_TRANSLATE_NOOP("ZelSettingsStart", "The settings file \"%1\" cannot be read (%2)."))
                    .arg(native(m_file), file.errorString());
        return false;
    }
    return ZelSettingsFile::KeepCopy(m_file, file.readAll(), m_copy, error);
}

void ZelSettingsStart::afterPass(const QSettings& settings)
{
    if (isReadOnly() || (m_repairs.empty() && m_added.isEmpty()))
        return;
    QFile file(m_file);
    QSettings::SettingsMap values;
    if (file.open(QIODevice::ReadOnly))
        values = ZelSettingsFile::ReadValues(file.readAll());
    for (const SettingRepair& repair : m_repairs) {
        if (ZelSettings::GetSettingText(settings, repair.key) != repair.after || !values.contains(repair.key)) {
            m_readOnly = ZelSettingsFile::WriteProblem(m_file);
            if (m_readOnly.isNull()) {
                m_readOnly.text = translated(
                    QT_TRANSLATE_NOOP("ZelSettingsStart", "The settings file \"%1\" could not be written."))
                                      .arg(native(m_file));
                m_readOnly.reason = ZelSettingsFile::LastWriteError();
            }
            return;
        }
    }
}

QString ZelSettingsStart::copyText() const
{
    return translated(QT_TRANSLATE_NOOP("ZelSettingsStart", "The file as it was is kept as \"%1\"."))
        .arg(native(m_copy));
}

QStringList ZelSettingsStart::notices() const
{
    QStringList notices;
    const bool readOnly = isReadOnly();
    if (readOnly) {
        notices.append(translated(QT_TRANSLATE_NOOP("ZelSettingsStart",
                                      "Your settings are open read-only: %1 (%2)\nEvery page shows the stored values, "
                                      "but changes cannot be applied."))
                           .arg(m_readOnly.text, m_readOnly.reason));
    }
    if (m_layout == ZelSettingsFile::Layout::Discard) {
        notices.append(readOnly
                ? translated(QT_TRANSLATE_NOOP("ZelSettingsStart",
                    "This settings file comes from an older version of Torvane. It is shown as it "
                    "is; it will be set aside at a start that can write it."))
                : translated(QT_TRANSLATE_NOOP("ZelSettingsStart",
                                 "Your settings file came from an older version of Torvane that this one "
                                 "cannot read. It was set aside as \"%1\" and Torvane starts from its default "
                                 "settings, keeping your language."))
                      .arg(native(m_copy)));
    } else if (m_layout == ZelSettingsFile::Layout::Upgrade) {
        notices.append(readOnly
                ? translated(QT_TRANSLATE_NOOP("ZelSettingsStart",
                    "This settings file comes from an older version of Torvane. It is shown as it "
                    "is; it will be upgraded at a start that can write it."))
                : translated(QT_TRANSLATE_NOOP("ZelSettingsStart",
                                 "Your settings file was upgraded from an older version of Torvane: the display "
                                 "engine is now the GPU renderer. %1"))
                      .arg(copyText()));
    }
    if (!m_repairs.empty()) {
        QStringList lines;
        for (const SettingRepair& repair : m_repairs)
            lines.append(QStringLiteral("• %1: \"%2\" → \"%3\"").arg(repair.key, repair.before, repair.after));
        QString text = (readOnly ? translated(QT_TRANSLATE_NOOP("ZelSettingsStart",
                            "These settings hold values Torvane cannot use. The pages show them repaired, "
                            "but the repairs are not written:"))
                                 : translated(QT_TRANSLATE_NOOP("ZelSettingsStart",
                                     "Torvane repaired these settings, which held values it cannot use:")))
            + QLatin1Char('\n') + listed(lines, QStringLiteral("\n"));
        if (!readOnly && !m_copy.isEmpty() && m_layout != ZelSettingsFile::Layout::Upgrade)
            text += QLatin1Char('\n') + copyText();
        notices.append(text);
    }
    if (!m_added.isEmpty() && m_layout != ZelSettingsFile::Layout::Discard && m_bytes) {
        notices.append((readOnly ? translated(QT_TRANSLATE_NOOP("ZelSettingsStart",
                            "These settings are missing from the file; the pages show their default "
                            "values:"))
                                 : translated(QT_TRANSLATE_NOOP("ZelSettingsStart",
                                     "These settings were missing from the file and were added with their default "
                                     "values:")))
            + QLatin1Char(' ') + listed(m_added, QStringLiteral(", ")));
    }
    return notices;
}

QString ZelSettingsStart::noticeFile() const
{
    return m_file + QStringLiteral(".notice");
}

void ZelSettingsStart::keepNoticesForNextStart() const
{
    const QStringList pending = notices();
    if (pending.isEmpty() || isReadOnly())
        return;
    QString error;
    if (!writeBytes(noticeFile(), pending.join(QStringLiteral("\n\f\n")).toUtf8(), error))
        qWarning("The notice for the next start could not be kept: %s", qUtf8Printable(error));
}

QStringList ZelSettingsStart::takeNoticesOfEarlierStart() const
{
    QFile file(noticeFile());
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QString text = QString::fromUtf8(file.readAll());
    file.close();
    if (!isReadOnly())
        file.remove();
    return text.split(QStringLiteral("\n\f\n"), Qt::SkipEmptyParts);
}

} // namespace zel
