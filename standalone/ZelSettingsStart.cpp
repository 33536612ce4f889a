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

bool openToRead(QFile& file, QString& error)
{
    if (file.open(QIODevice::ReadOnly))
        return true;
    error = translated(QT_TRANSLATE_NOOP("ZelSettingsStart", "The settings file \"%1\" cannot be read (%2)."))
                .arg(native(file.fileName()), file.errorString());
    return false;
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

ZelSettingsStart::ZelSettingsStart(QSettings& settings)
    : m_settings(settings)
    , m_file(settings.fileName())
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
    m_existed = info.exists();
    if (!m_existed) {
        if (m_readOnly.isNull())
            return true;
        error = translated(QT_TRANSLATE_NOOP("ZelSettingsStart", "Torvane cannot create its settings file. %1 (%2)"))
                    .arg(m_readOnly.text, m_readOnly.reason);
        return false;
    }
    // The settings have read the file already; only the reason of a refusal is missing.
    if (m_settings.status() != QSettings::AccessError)
        return true;
    QFile file(m_file);
    return openToRead(file, error);
}

bool ZelSettingsStart::isReadOnly() const
{
    return !m_readOnly.isNull();
}

QString ZelSettingsStart::readOnlyReason() const
{
    return isReadOnly() ? QStringLiteral("%1 (%2)").arg(m_readOnly.text, m_readOnly.reason) : QString();
}

bool ZelSettingsStart::keepCopy(QString& error)
{
    if (!m_copy.isEmpty())
        return true;
    QFile file(m_file);
    return openToRead(file, error) && ZelSettingsFile::KeepCopy(m_file, file.readAll(), m_copy, error);
}

bool ZelSettingsStart::prepare(const QString& languageCode, bool& rendererKnown, QString& error)
{
    rendererKnown = false;
    m_languageCode = languageCode;
    if (!m_existed)
        return true;
    m_layout = ZelSettingsFile::InspectLayout(m_settings);
    // A file that cannot be written is shown as it is: the pass repairs it in memory.
    if (isReadOnly()) {
        rendererKnown = true;
        return true;
    }
    // Every change stays in the settings until the validation pass writes them at once.
    if (m_layout == ZelSettingsFile::Layout::Discard) {
        if (!ZelSettingsFile::SetAside(m_file, m_copy, error))
            return false;
        // Only the language survives, as stored, so the selector speaks the user's language.
        const QVariant language = m_settings.value(SettingsKeys::Language, languageCode);
        m_settings.clear();
        m_settings.setValue(SettingsKeys::Language, language);
        return true;
    }
    if (m_layout == ZelSettingsFile::Layout::Upgrade) {
        if (!keepCopy(error))
            return false;
        ZelSettingsFile::Upgrade(m_settings);
    }
    const QString engine = m_settings.value(SettingsKeys::Engine).toString();
    rendererKnown = engine == QLatin1String("deferred") || engine == QLatin1String("software");
    // The renderer chosen next replaces a stored value: a start refused after that puts
    // the file back from these bytes.
    if (!rendererKnown && m_copy.isEmpty()) {
        QFile file(m_file);
        if (file.open(QIODevice::ReadOnly))
            m_before = file.readAll();
    }
    return true;
}

bool ZelSettingsStart::restore(QString& error)
{
    if (isReadOnly())
        return true;
    if (!m_existed) {
        QFile created(m_file);
        if (created.exists() && !created.remove()) {
            error = created.errorString();
            return false;
        }
        return true;
    }
    if (m_copy.isEmpty())
        return !m_before || writeBytes(m_file, *m_before, error);
    QFile copy(m_copy);
    if (!copy.open(QIODevice::ReadOnly)) {
        error = copy.errorString();
        return false;
    }
    if (!writeBytes(m_file, copy.readAll(), error))
        return false;
    copy.close();
    // The file is as it was: the copy would only be a second one.
    copy.remove();
    m_copy.clear();
    return true;
}

bool ZelSettingsStart::beforePass(QString& error)
{
    // A pass that would fail is not run: it would leave half its repairs in the settings.
    if (!ZelSettingsFile::PlanRepairs(m_settings, m_repairs, m_added, error))
        return false;
    // A language the start chose (the system's) is kept, not the registered default.
    if (!m_settings.contains(SettingsKeys::Language) && !isReadOnly())
        m_settings.setValue(SettingsKeys::Language, m_languageCode);
    if (m_repairs.empty() || isReadOnly() || !m_existed)
        return true;
    return keepCopy(error);
}

void ZelSettingsStart::afterPass()
{
    // The pass wrote at most once; a start that had nothing to write never tried.
    if (isReadOnly() || m_settings.status() == QSettings::NoError)
        return;
    m_readOnly = ZelSettingsFile::WriteProblem(m_file);
    if (m_readOnly.isNull()) {
        m_readOnly.text
            = translated(QT_TRANSLATE_NOOP("ZelSettingsStart", "The settings file \"%1\" could not be written."))
                  .arg(native(m_file));
        m_readOnly.reason = ZelSettingsFile::LastWriteError();
    }
}

QString ZelSettingsStart::KeptCopyText(const QString& copy)
{
    return translated(QT_TRANSLATE_NOOP("ZelSettingsStart", "The file as it was is kept as \"%1\"."))
        .arg(native(copy));
}

QString ZelSettingsStart::copyText() const
{
    return KeptCopyText(m_copy);
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
            lines.append(translated(QT_TRANSLATE_NOOP("ZelSettingsStart", "• %1: \"%2\" → \"%3\""))
                             .arg(repair.key, repair.before, repair.after));
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
    if (!m_added.isEmpty() && m_layout != ZelSettingsFile::Layout::Discard && m_existed) {
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

QStringList ZelSettingsStart::noticesOfEarlierStarts() const
{
    QFile file(noticeFile());
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readAll()).split(QStringLiteral("\n\f\n"), Qt::SkipEmptyParts);
}

void ZelSettingsStart::keepNoticesForNextStart() const
{
    const QStringList pending = notices();
    if (pending.isEmpty() || isReadOnly())
        return;
    // Starts that each ended at the selector: every one of them still has to be told.
    const QStringList all = noticesOfEarlierStarts() + pending;
    QString error;
    if (!writeBytes(noticeFile(), all.join(QStringLiteral("\n\f\n")).toUtf8(), error))
        qWarning("The notice for the next start could not be kept: %s", qUtf8Printable(error));
}

QStringList ZelSettingsStart::takeNoticesOfEarlierStart() const
{
    const QStringList earlier = noticesOfEarlierStarts();
    if (!earlier.isEmpty() && !isReadOnly())
        QFile::remove(noticeFile());
    return earlier;
}

} // namespace zel
