#include "SettingsFiles.h"
#include "TestHome.h"
#include "ZelSettings.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

#include <csignal>

using CC = zel::ZelSettings;

namespace {

constexpr char WriterVariable[] = "ZEL_SETTINGS_WRITER";

// The child of the interrupted-write test: writes "big" over and over, alternating
// between two values, until it is killed.
int writeForever(const QString& path)
{
    for (int round = 0;; ++round) {
        QSettings settings(path, CC::SettingsFormat());
        settings.setValue("big", QString(1 << 20, round % 2 ? 'b' : 'a'));
        settings.sync();
    }
}

} // namespace

class SettingsFormatTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void handEditedFileKeepsEveryByte();
    void rootSectionInAnyCase_data();
    void rootSectionInAnyCase();
    void keyWrittenTwiceReadsAsInQt_data();
    void keyWrittenTwiceReadsAsInQt();
    void editsChangeOnlyTheirLines_data();
    void editsChangeOnlyTheirLines();
    void sharedWithQtsOwnFormat_data();
    void sharedWithQtsOwnFormat();
    void hostileValuesStayText();
    void secondPassChangesNothing_data();
    void secondPassChangesNothing();
    void interruptedWriteLeavesOldOrNew();

private:
    // A new name for every file: QSettings keeps what it read of a file per name.
    QString freshPath() { return m_folder.filePath(QString("Settings-%1.ini").arg(++m_files)); }
    QString fileWith(const QByteArray& bytes)
    {
        const QString path = freshPath();
        return writeBytes(path, bytes) ? path : QString();
    }

    TestHome m_home;
    QTemporaryDir m_folder;
    int m_files = 0;
};

void SettingsFormatTest::init()
{
    QVERIFY(m_home.isValid() && m_folder.isValid());
    CC::ClearSettingsValues();
}

void SettingsFormatTest::handEditedFileKeepsEveryByte()
{
    // Saved by a Windows editor and typed by hand: everything but the changed lines stays.
    const QByteArray common = "[Caf\xC3\xA9]\r\n"
                              "Men\xC3\xBC=\xE2\x82\xAC 5\r\n"
                              "shape=@Variant(\\0\\0\\0V\\0\\x3f\\xff\\xff\\xff)\r\n"
                              "# old cache\r\n"
                              "[DBCache]\r\n"
                              "cacheDirectory=C:\\data\\cache\r\n"
                              "cacheSize=10\r\n";
    const QByteArray before = "\xEF\xBB\xBF; Torvane settings\r\n"
                              "engine = software ; chosen at first start\r\n"
                              "recent=a.step, \"b, c.step\"\r\n\r\n"
        + common + "cacheSize=20\r\nobsolete=1\r\n";
    const QString path = fileWith(before);
    {
        QSettings settings(path, CC::SettingsFormat());
        QCOMPARE(settings.value("engine"), "software");
        QCOMPARE(settings.value("recent"), QStringList({"a.step", "b, c.step"}));
        QCOMPARE(settings.value("Caf\u00e9/Men\u00fc"), "\u20ac 5");
        QCOMPARE(settings.value("DBCache/cacheDirectory"), "C:\\data\\cache");
        QCOMPARE(settings.value("DBCache/cacheSize"), "20"); // the later line counts
        settings.setValue("engine", "deferred");
        settings.setValue("DBCache/cacheSize", "30");
        settings.remove("DBCache/obsolete");
        settings.setValue("recent", settings.value("recent")); // unchanged: the line stays
    }
    const QByteArray after = "\xEF\xBB\xBF; Torvane settings\r\n"
                             "engine = deferred ; chosen at first start\r\n"
                             "recent=a.step, \"b, c.step\"\r\n\r\n"
        + common + "cacheSize=30\r\n";
    QCOMPARE(fileBytes(path), after);
}

void SettingsFormatTest::rootSectionInAnyCase_data()
{
    QTest::addColumn<QByteArray>("contents");
    QTest::addColumn<QStringList>("keys"); // as Qt's reader lists them
    QTest::newRow("mixed case") << QByteArray("[GeNeral]\nk=1\n[a]\nj=2\n") << QStringList({"a/j", "k"});
    QTest::newRow("blanks around") << QByteArray("[ \tGENERAL\v\f]\nk=1\n") << QStringList({"k"});
    QTest::newRow("percent, any case") << QByteArray("[%GeNeral]\nk=1\n") << QStringList({"GeNeral/k"});
    QTest::newRow("percent, blanks around") << QByteArray("[ %general\t]\nk=1\n") << QStringList({"general/k"});
    QTest::newRow("escaped letter") << QByteArray("[%47eneral]\nk=1\n") << QStringList({"General/k"});
    QTest::newRow("escaped percent") << QByteArray("[%25general]\nk=1\n") << QStringList({"%general/k"});
    QTest::newRow("blank after percent") << QByteArray("[% general]\nk=1\n") << QStringList({"% general/k"});
    QTest::newRow("subgroup") << QByteArray("[general\\x]\nk=1\n") << QStringList({"general/x/k"});
    QTest::newRow("blanks around a key") << QByteArray("[a]\n \v\fk\v\t=1\n") << QStringList({"a/k"});
    QTest::newRow("semicolon in a section") << QByteArray("[a;b]c]\nk=1\n") << QStringList({"a/k"});
    QTest::newRow("semicolon in a key") << QByteArray("a;b=1\nk=2\n") << QStringList({"k"});
    QTest::newRow("quoted semicolon") << QByteArray("\"a;b\"=1\n") << QStringList({"\"a;b\""});
    QTest::newRow("hash starts a key") << QByteArray("#k=1\n[g]\n#c=3\n") << QStringList({"#k", "g/#c"});
}

void SettingsFormatTest::rootSectionInAnyCase()
{
    QFETCH(QByteArray, contents);
    QFETCH(QStringList, keys);
    // Both programs sharing the file see the same keys.
    QCOMPARE(QSettings(fileWith(contents), QSettings::IniFormat).allKeys(), keys);
    QCOMPARE(QSettings(fileWith(contents), CC::SettingsFormat()).allKeys(), keys);
}

void SettingsFormatTest::keyWrittenTwiceReadsAsInQt_data()
{
    QTest::addColumn<QByteArray>("contents");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("read"); // as Qt's reader reads it
    QTest::newRow("group, then in General") << QByteArray("[DBCache]\ncacheSize=200\n[GeNeral]\nDBCache/cacheSize=100\n")
                                             << "DBCache/cacheSize" << "200";
    QTest::newRow("in General, then group") << QByteArray("[General]\nDBCache\\cacheSize=100\n[DBCache]\ncacheSize=200\n")
                                             << "DBCache/cacheSize" << "200";
    QTest::newRow("before any section") << QByteArray("DBCache/cacheSize=100\n[DBCache]\ncacheSize=200\n")
                                        << "DBCache/cacheSize" << "200";
    QTest::newRow("subgroup, then group") << QByteArray("[B/x]\nk=2\n[B]\nx/k=1\n") << "B/x/k" << "2";
    QTest::newRow("section written twice") << QByteArray("[A]\nk=1\n[B]\nb=1\n[A]\nk=2\n") << "A/k" << "2";
    QTest::newRow("root, then General") << QByteArray("k=1\n[x]\na=1\n[General]\nk=2\n") << "k" << "2";
}

void SettingsFormatTest::keyWrittenTwiceReadsAsInQt()
{
    QFETCH(QByteArray, contents);
    QFETCH(QString, key);
    QFETCH(QString, read);
    // Each reader on a file of its own: Qt shares what it read of a path between formats.
    const auto qtReads = [this, &key](const QByteArray& bytes) {
        return QSettings(fileWith(bytes), QSettings::IniFormat).value(key).toString();
    };
    const QString path = fileWith(contents);
    QCOMPARE(qtReads(contents), read);
    QCOMPARE(QSettings(path, CC::SettingsFormat()).value(key).toString(), read);
    // A change reaches the line both readers take.
    QSettings(path, CC::SettingsFormat()).setValue(key, "300");
    QCOMPARE(qtReads(fileBytes(path)), "300");
    QCOMPARE(QSettings(path, CC::SettingsFormat()).value(key).toString(), "300");
}

void SettingsFormatTest::editsChangeOnlyTheirLines_data()
{
    QTest::addColumn<QByteArray>("contents");
    QTest::addColumn<QStringList>("edits"); // "key=value" sets the key, "key" removes it
    QTest::addColumn<QByteArray>("expected");
    const auto row = [](const char* name, const QByteArray& contents, const QStringList& edits,
                        const QByteArray& expected) { QTest::newRow(name) << contents << edits << expected; };
    // New keys join their group; a group named General is not the root.
    row("new keys", "top=1\n\n[Display]\nengine=software\n; effects below\n\n[Display/effects]\nfxaa=true",
        {"first=2", "Display/quality=high", "Display/effects/ssao=false", "Logging/logFile=/tmp/log.txt",
         "Logging/level=3", "General/x=y"},
        "top=1\nfirst=2\n\n[Display]\nengine=software\nquality=high\n; effects below\n\n"
        "[Display/effects]\nfxaa=true\nssao=false\n\n[%General]\nx=y\n\n[Logging]\nlevel=3\nlogFile=/tmp/log.txt\n");
    // Keys of a root group the file lacks go before the first section, with no header.
    row("root keys into sections", "; Torvane\n[A]\na=1\n", {"top=1", "B/b=2"},
        "; Torvane\ntop=1\n\n[A]\na=1\n\n[B]\nb=2\n");
    row("root keys into a new file", "", {"settingsVersion=2", "deferred/useSSAO=false"},
        "settingsVersion=2\n\n[deferred]\nuseSSAO=false\n");
    row("root keys after lines of no section", "; notes\nnot a key\n", {"top=1"}, "; notes\nnot a key\ntop=1\n");
    row("new keys beside General in any case", "[GeNeral]\nk=1\n\n[%general]\nj=2\n",
        {"x=3", "general/y=4", "GENERAL/z=5", "a/general/w=6"},
        "[GeNeral]\nk=1\nx=3\n\n[%general]\nj=2\ny=4\n\n[%GENERAL]\nz=5\n\n[a]\ngeneral\\w=6\n");

    // An emptied section goes, with the blank line before it.
    const QByteArray three = "[A]\na=1\n\n[B]\nb=1\nc=2\n\n[C]\nc=1\n";
    row("middle section emptied", three, {"B/b", "B/c"}, "[A]\na=1\n\n[C]\nc=1\n");
    row("last section emptied", three, {"C/c"}, "[A]\na=1\n\n[B]\nb=1\nc=2\n");
    row("one key of two", three, {"B/c"}, "[A]\na=1\n\n[B]\nb=1\n\n[C]\nc=1\n");
    row("every key", three, {""}, "");
    row("keys before any section", "top=1\n\n[A]\na=1\n", {"top"}, "[A]\na=1\n");
    row("comment of a section", "[A]\na=1\n\n[B]\n; by hand\nb=1\n", {"B/b"}, "[A]\na=1\n\n[B]\n; by hand\n");
    row("comment above everything", "; Torvane\n\n[A]\na=1\n", {""}, "; Torvane\n");
    row("empty by hand", "[A]\n\n[B]\nb=1\n[C]\n", {"B/b"}, "[A]\n\n[C]\n");
    row("section written twice", "[A]\na=1\n[B]\nb=1\n[A]\nc=1\n", {"A/a"}, "[B]\nb=1\n[A]\nc=1\n");
    row("section, line ends of Windows", "[A]\r\na=1\r\n\r\n[B]\r\nb=1\r\n", {"B"}, "[A]\r\na=1\r\n");

    // The file written ends with a line end.
    row("changed last line", "a=1\nb=2", {"b=3"}, "a=1\nb=3\n");
    row("last line, line ends of Windows", "a=1\r\nb=2", {"b=3"}, "a=1\r\nb=3\r\n");
    row("unchanged comment last", "b=2\n; end", {"b=3"}, "b=3\n; end\n");
    row("comment with a comma", "b=2 ; 1, 2", {"b=3"}, "b=3 ; 1, 2\n");
    // New lines end as the settings' lines do, whatever stray line end comes before.
    row("stray carriage return", "\x01\r\x02\nsettingsVersion=2\n", {"a=1"}, "\x01\r\x02\nsettingsVersion=2\na=1\n");
}

void SettingsFormatTest::editsChangeOnlyTheirLines()
{
    QFETCH(QByteArray, contents);
    QFETCH(QStringList, edits);
    QFETCH(QByteArray, expected);
    const QString path = fileWith(contents);
    {
        QSettings settings(path, CC::SettingsFormat());
        for (const QString& edit : edits) {
            if (edit.contains('='))
                settings.setValue(edit.section('=', 0, 0), edit.section('=', 1));
            else
                settings.remove(edit);
        }
    }
    QCOMPARE(fileBytes(path), expected);
    // Both programs sharing the file see the same keys in it.
    QCOMPARE(QSettings(fileWith(expected), QSettings::IniFormat).allKeys(),
             QSettings(fileWith(expected), CC::SettingsFormat()).allKeys());
}

void SettingsFormatTest::sharedWithQtsOwnFormat_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("value");
    QTest::newRow("blanks around") << "a" << QVariant(" padded\t");
    QTest::newRow("syntax") << "a" << QVariant("x=1; y, \"z\" #w [s]");
    QTest::newRow("backslashes") << "a" << QVariant("C:\\data\\new\\x41");
    QTest::newRow("control characters") << "a" << QVariant(QString("a\tb\nc") + QChar(0) + "1" + QChar(1) + "f");
    QTest::newRow("non-ASCII") << "a" << QVariant("caf\u00e9 \u20ac \U0001F600");
    QTest::newRow("byte-order mark") << "a" << QVariant("\ufeffx");
    QTest::newRow("at sign") << "a" << QVariant("@Variant(x)");
    QTest::newRow("list") << "a" << QVariant(QStringList({"a", " b", "c, d", "", "@e"}));
    QTest::newRow("key with syntax") << "g h/k;#=[]\"%,\\x" << QVariant("v");
    QTest::newRow("non-ASCII key") << "Caf\u00e9/Men\u00fc" << QVariant("v");
    QTest::newRow("group General") << "General/k" << QVariant("v");
}

void SettingsFormatTest::sharedWithQtsOwnFormat()
{
    QFETCH(QString, key);
    QFETCH(QVariant, value);
    // Each format writes a file the other reads back the same; ours keeps Qt's bytes.
    const QString byQt = freshPath();
    QSettings(byQt, QSettings::IniFormat).setValue(key, value);
    const QString ours = fileWith(fileBytes(byQt));
    QCOMPARE(QSettings(ours, CC::SettingsFormat()).value(key), value);
    const QString written = freshPath();
    QSettings(written, CC::SettingsFormat()).setValue(key, value);
    QCOMPARE(QSettings(fileWith(fileBytes(written)), QSettings::IniFormat).value(key), value);
}

void SettingsFormatTest::hostileValuesStayText()
{
    // Qt's reader grows to gigabytes on the first; the others are binary forms.
    const QByteArray hostile = "=@DateTime(\\0\\0\\0\\@Vari0)\n"
                               "engine=deferred\n"
                               "[shapes]\n"
                               "shape=@Variant(\\0\\0\\0V\\0\\x3f\\xff\\xff\\xff)\n"
                               "crash=@Variant(\\0\\0\\0\\x7f\\0\\0\\0\\x7fQVariant\\xff\\xff\\xff\\xff)\n"
                               "bytes=@ByteArray(\\xff\\0)\n"
                               "rect=@Rect(0 0 100000000 100000000)\n"
                               "when=@DateTime(\\0\\0\\0\\x10\\0)\n";
    const QString path = fileWith(hostile);
    {
        QSettings settings(path, CC::SettingsFormat());
        QCOMPARE(settings.value("engine"), "deferred");
        QVERIFY(settings.value("shapes/shape").toString().startsWith("@Variant("));
        QCOMPARE(settings.value("shapes/rect"), "@Rect(0 0 100000000 100000000)");
        settings.setValue("engine", "software");
    }
    QByteArray expected = hostile;
    QCOMPARE(fileBytes(path), expected.replace("engine=deferred", "engine=software"));
}

void SettingsFormatTest::secondPassChangesNothing_data()
{
    QTest::addColumn<QByteArray>("contents");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("expected"); // after the first pass

    QTest::newRow("root cache folder") << QByteArray("[DBCache]\ncacheDirectory=/\n") << "DBCache/cacheDirectory"
                                       << "/";
    QTest::newRow("root log file") << QByteArray("[Logging]\nlogFile=\\\n") << "Logging/logFile" << "/";
    const QByteArray temp = QDir::tempPath().toUtf8();
    QTest::newRow("two trailing slashes") << "[DBCache]\ncacheDirectory=" + temp + "//\n"
                                          << "DBCache/cacheDirectory" << QDir::tempPath();
    QTest::newRow("NUL in a list") << QByteArray("timeout=1\\0,\n") << "timeout" << "30";
    QTest::newRow("section after its group") << "[Logging]\nlogFile=" + temp + "/log.txt\n[Logging/archive]\nkeep=3\n"
                                             << "Logging/logFile" << QDir::tempPath() + "/log.txt";
    QTest::newRow("group in a key") << QByteArray("[General]\nViewer\\showGrid=false\n") << "Viewer/showGrid"
                                    << "false";
}

void SettingsFormatTest::secondPassChangesNothing()
{
    QFETCH(QByteArray, contents);
    QFETCH(QString, key);
    QFETCH(QString, expected);
    CC::InitDefaultSettingsValues(CC::GetApplicationName());
    CC::RegisterSetting("timeout", "30", CC::ensurePositiveInteger);
    CC::RegisterSetting("Viewer/showGrid", "true", CC::ensureBool);

    QString error;
    const QString first = fileWith(contents);
    {
        QSettings settings(first, CC::SettingsFormat());
        QVERIFY(CC::EnsureSettings(settings, error));
        QCOMPARE(settings.value(key), expected);
    }
    // The next start reads the file from disk.
    const QByteArray once = fileBytes(first);
    const QString second = fileWith(once);
    QSettings settings(second, CC::SettingsFormat());
    QVERIFY(CC::EnsureSettings(settings, error));
    QCOMPARE(fileBytes(second), once);
}

void SettingsFormatTest::interruptedWriteLeavesOldOrNew()
{
    const QString path = freshPath();
    const QByteArray head = "; kept\n[General]\nbig=";
    QVERIFY(writeBytes(path, head + QByteArray(1 << 20, 'a') + "\n"));
    const QByteArray withA = fileBytes(path);
    const QByteArray withB = head + QByteArray(1 << 20, 'b') + "\n";

    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(WriterVariable, path);
    for (int round = 0; round < 20; ++round) {
        QProcess writer;
        writer.setProcessEnvironment(environment);
        writer.start(QCoreApplication::applicationFilePath(), {});
        QVERIFY(writer.waitForStarted());
        QThread::msleep(20 + QRandomGenerator::global()->bounded(80));
        ::kill(pid_t(writer.processId()), SIGKILL);
        QVERIFY(writer.waitForFinished());
        const QByteArray left = fileBytes(path);
        QVERIFY2(left == withA || left == withB, qPrintable(QString::number(left.size())));
    }
    // The killed writer's lock is stale and does not stop the next one.
    QSettings settings(fileWith(fileBytes(path)), CC::SettingsFormat());
    settings.setValue("big", "small");
    settings.sync();
    QCOMPARE(settings.status(), QSettings::NoError);
}

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    if (qEnvironmentVariableIsSet(WriterVariable))
        return writeForever(qEnvironmentVariable(WriterVariable));
    SettingsFormatTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_settingsformat.moc"
