// Mutates Settings.ini files and drives them through our INI format, the validation pass
// and the writer. Stops at the first input that breaks a rule, keeps it as
// settings-fuzz-failure.ini in the current folder, and exits with 1:
//   - a second pass over the file the first one wrote changes no byte;
//   - keys nobody registered read back unchanged after the pass;
//   - what we read, written anew, reads back the same in our format and in Qt's own.
// Crashes and sanitizer reports end the program by themselves.
//
//   settings_fuzz [--help] [--seconds N] [--seed N] [file...]
// Files given are run once each instead of the mutation loop.

#include "ZelSettings.h"
#include "ZelSettingsKeys.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QSettings>
#include <QStringList>
#include <QTemporaryDir>
#include <QTextStream>

#include <iostream>
#include <random>
#include <sstream>
#include <vector>

using zel::ZelSettings;

namespace {

const char* const Seeds[] = {
    "=@DateTime(\\0\\0\\0\\@Vari0)",
    "[General]\nshape=@Variant(\\0\\0\\0V\\0\\x3f\\xff\\xff\\xff)\nengine=software\n",
    "\xEF\xBB\xBF; written by hand\r\nengine=deferred\r\n\r\n[DBCache]\r\ncacheDirectory=/\r\ncacheSize=20\r\n",
    "[Logging]\nlogFile=\\\n[Logging/archive]\nkeep=3\n",
    "[General]\nViewer\\showGrid=false\ntimeout=1\\0,\n",
    "[DBCache]\ncacheDirectory=/tmp//\n[Caf\xC3\xA9]\nMen\xC3\xBC=\"a, b\" , c\nk%20x=%U00e9\n",
    "list=a, \"b, c\", ,@@x\nbytes=@ByteArray(ab\\0c)\nrect=@Rect(1 2 3 4)\n# end\n",
    "[Display]\nengine=software ; chosen\n[%General]\nx=1\n[screenshot]\nImageFolder=C:\\data\\shots\\\n",
};

const char* const Tokens[] = {
    "[", "]", "=", "\\", ",", "\"", ";", "#", "\r\n", "\n", "\r", "%", "%U00", "%2", "/", "@", "@@", "@Variant(",
    "@ByteArray(", "@String(", "@Invalid()", "@DateTime(", "\\x", "\\0", "\\377", "\xEF\xBB\xBF", "\xC3\xA9",
    "\xED\xA0\x80", "[General]", "[%General]", "engine=", "cacheDirectory=", "logFile=", "[DBCache]", "[Logging]",
    "[Viewer]", "showGrid=", "timeout=", " ", "\t", "\0",
};

class Fuzzer
{
public:
    explicit Fuzzer(const QString& folder) : m_folder(folder) {}

    // False, with a message on stderr, when `input` breaks a rule.
    bool run(const QByteArray& input)
    {
        const QString first = freshFile(input);
        const QSettings::SettingsMap before = read(first, ZelSettings::SettingsFormat());
        const QByteArray once = pass(first);
        if (once.isNull())
            return true; // a validator refused; nothing was written
        const QString second = freshFile(once);
        const QByteArray twice = pass(second);
        if (twice != once)
            return fail("a second pass changed the file");
        const QSettings::SettingsMap after = read(second, ZelSettings::SettingsFormat());
        for (auto it = before.cbegin(); it != before.cend(); ++it) {
            if (ZelSettings::GetDefaultSettingsValues().count(it.key()) == 0 && after.value(it.key()) != it.value())
                return fail("the pass changed the unregistered key " + it.key());
        }
        return writtenAnewReadsTheSame(before);
    }

    void cleanUp()
    {
        for (const QString& path : std::as_const(m_paths))
            QFile::remove(path);
        m_paths.clear();
    }

private:
    QString freshFile(const QByteArray& bytes)
    {
        // A new name each time: QSettings keeps what it read of a file per name.
        const QString path = m_folder.filePath(QString("input-%1.ini").arg(++m_files));
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("Cannot write %s", qPrintable(path));
        m_paths.append(path);
        return path;
    }

    static QSettings::SettingsMap read(const QString& path, QSettings::Format format)
    {
        const QSettings settings(path, format);
        QSettings::SettingsMap values;
        for (const QString& key : settings.allKeys())
            values.insert(key, settings.value(key));
        return values;
    }

    // The file after a pass over it; a null array when the pass failed.
    static QByteArray pass(const QString& path)
    {
        QString error;
        {
            QSettings settings(path, ZelSettings::SettingsFormat());
            if (!ZelSettings::EnsureSettings(settings, error)) {
                // The keys handled so far would be written when `settings` goes.
                settings.clear();
                return QByteArray();
            }
        }
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("");
    }

    bool writtenAnewReadsTheSame(const QSettings::SettingsMap& values)
    {
        const QString written = freshFile(QByteArray());
        {
            QSettings settings(written, ZelSettings::SettingsFormat());
            for (auto it = values.cbegin(); it != values.cend(); ++it)
                settings.setValue(it.key(), it.value());
        }
        QFile file(written);
        if (!file.open(QIODevice::ReadOnly))
            return fail("nothing was written");
        const QByteArray bytes = file.readAll();
        for (const QSettings::Format format : {ZelSettings::SettingsFormat(), QSettings::IniFormat}) {
            const QSettings::SettingsMap back = read(freshFile(bytes), format);
            const QString reader = format == QSettings::IniFormat ? "Qt" : "our reader";
            if (back.keys() != values.keys()) {
                return fail(reader + " reads other keys from a file written anew: " + shown(back.keys().join('|'))
                            + " instead of " + shown(values.keys().join('|')));
            }
            for (auto it = values.cbegin(); it != values.cend(); ++it) {
                const QVariant& value = back[it.key()];
                const bool same = value.typeId() == it.value().typeId() ? value == it.value()
                                                                         : value.toStringList() == it.value().toStringList();
                if (!same) {
                    return fail(reader + " reads " + shown(value) + " instead of " + shown(it.value()) + " for "
                                + shown(it.key()) + " from a file written anew");
                }
            }
        }
        return true;
    }

    // Control characters and non-ASCII as escapes, so that a message shows them.
    static QString shown(const QVariant& value)
    {
        const QString text = value.typeId() == QMetaType::QStringList ? '[' + value.toStringList().join("][") + ']'
                                                                       : value.toString();
        QString escaped;
        for (const QChar c : text) {
            if (c.unicode() < 0x20 || c.unicode() > 0x7E)
                escaped += QString("\\u%1").arg(c.unicode(), 4, 16, QLatin1Char('0'));
            else
                escaped += c;
        }
        return '\'' + escaped + '\'';
    }

    static bool fail(const QString& why)
    {
        std::cerr << "settings_fuzz: " << qPrintable(why) << std::endl;
        return false;
    }

    QDir m_folder;
    int m_files = 0;
    QStringList m_paths;
};

class Mutator
{
public:
    explicit Mutator(quint32 seed) : m_random(seed) {}

    QByteArray next(const std::vector<QByteArray>& corpus)
    {
        QByteArray input = pick(corpus);
        const int mutations = 1 + below(4);
        for (int i = 0; i < mutations; ++i)
            mutate(input, corpus);
        return input.left(8192);
    }

private:
    int below(int bound) { return std::uniform_int_distribution<int>(0, bound - 1)(m_random); }
    const QByteArray& pick(const std::vector<QByteArray>& corpus) { return corpus[std::size_t(below(int(corpus.size())))]; }

    void mutate(QByteArray& input, const std::vector<QByteArray>& corpus)
    {
        const int at = below(int(input.size()) + 1);
        switch (below(6)) {
        case 0: {
            const char* token = Tokens[below(int(std::size(Tokens)))];
            input.insert(at, token, *token ? qsizetype(qstrlen(token)) : 1);
            break;
        }
        case 1:
            if (!input.isEmpty())
                input[std::min<qsizetype>(at, input.size() - 1)] = char(below(256));
            break;
        case 2:
            input.remove(at, below(16));
            break;
        case 3:
            input.insert(at, input.mid(below(int(input.size()) + 1), below(64)));
            break;
        case 4:
            input.insert(at, pick(corpus).mid(below(64), below(128)));
            break;
        default:
            input.insert(at, char(below(256)));
            break;
        }
    }

    std::mt19937 m_random;
};

void registerKeys(const QString& folder)
{
    ZelSettings::InitDefaultSettingsValues(ZelSettings::GetApplicationName());
    ZelSettings::InitPageSettingsValues();
    ZelSettings::RegisterSetting("timeout", "30", ZelSettings::ensurePositiveInteger);
    ZelSettings::RegisterSetting("Viewer/showGrid", "true", ZelSettings::ensureBool);
    ZelSettings::RegisterSetting("Viewer/tmpFolder", folder + "/tmp", ZelSettings::ensureTmpFolder);
}

} // namespace

int main(int argc, char** argv)
{
    // Every per-user folder the catalogue derives its defaults from lives in a
    // temporary folder: the fuzzer never touches the real home.
    QTemporaryDir home;
    if (!home.isValid())
        return 2;
    for (const char* variable : {"HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_DATA_HOME", "TMPDIR"})
        qputenv(variable, QFile::encodeName(home.path()));

    QCoreApplication application(argc, argv);
    // Paths with a NUL make Qt warn at every input.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    QStringList arguments = application.arguments().mid(1);
    int seconds = 60;
    quint32 seed = 1;
    QStringList files;
    for (int i = 0; i < arguments.size(); ++i) {
        if (arguments[i] == "--help" || arguments[i] == "-h") {
            std::cout << "Usage: settings_fuzz [--seconds N] [--seed N] [file...]\n"
                         "Mutates Settings.ini files for --seconds (60 unless given), drawing from\n"
                         "--seed (1 unless given); files given run once each instead. Exits with 1 at\n"
                         "the first input that breaks a rule, kept as settings-fuzz-failure.ini here.\n";
            return 0;
        }
        if (arguments[i] == "--seconds" && i + 1 < arguments.size())
            seconds = arguments[++i].toInt();
        else if (arguments[i] == "--seed" && i + 1 < arguments.size())
            seed = arguments[++i].toUInt();
        else
            files.append(arguments[i]);
    }

    registerKeys(home.path());
    QDir().mkpath(home.filePath("inputs"));
    Fuzzer fuzzer(home.filePath("inputs"));
    // Corrected ratios are reported on std::cout; the fuzzer's output is its verdict.
    std::ostringstream kernelOutput;
    std::cout.rdbuf(kernelOutput.rdbuf());

    std::vector<QByteArray> corpus;
    if (!files.isEmpty()) {
        for (const QString& name : files) {
            QFile file(name);
            if (!file.open(QIODevice::ReadOnly))
                return 2;
            corpus.push_back(file.readAll());
        }
    } else {
        for (const char* seedText : Seeds)
            corpus.emplace_back(seedText);
    }

    Mutator mutator(seed);
    const QDeadlineTimer deadline(qint64(seconds) * 1000);
    long inputs = 0;
    const bool mutating = files.isEmpty();
    for (std::size_t index = 0; mutating ? !deadline.hasExpired() : index < corpus.size(); ++index) {
        const QByteArray input = mutating && index >= std::size(Seeds) ? mutator.next(corpus) : corpus[index];
        ++inputs;
        if (!fuzzer.run(input)) {
            QFile kept("settings-fuzz-failure.ini");
            if (kept.open(QIODevice::WriteOnly))
                kept.write(input);
            return 1;
        }
        fuzzer.cleanUp();
        // Inputs that grew the file keep growing the corpus, up to a bound.
        if (mutating && corpus.size() < 512 && input.count('\n') > 2)
            corpus.push_back(input);
    }
    std::cerr << "settings_fuzz: " << inputs << " inputs, seed " << seed << ", no rule broken" << std::endl;
    return 0;
}
