#include "TestHome.h"

#include "MTLogger.h"

#include <QFile>
#include <QRegularExpression>
#include <QStringList>
#include <QTest>

using namespace zel;

namespace {

QStringList s_forwarded;

void recordingHandler(QtMsgType, const QMessageLogContext&, const QString& message)
{
    s_forwarded.append(message);
}

QString readLog(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

} // namespace

class tst_MTLogger : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void filtering_data();
    void filtering();
    void lineFormat();
    void chaining();
    void unwritableFile();

private:
    QString logPath() const { return m_home.path() + QStringLiteral("/log.txt"); }

    TestHome m_home;
    QtMessageHandler m_testHandler = nullptr;
};

// Every test runs with a recorder as "the handler before", so the test log stays quiet
// and forwarding can be checked.
void tst_MTLogger::init()
{
    QFile::remove(logPath());
    s_forwarded.clear();
    m_testHandler = qInstallMessageHandler(recordingHandler);
}

void tst_MTLogger::cleanup()
{
    MTLogger::UninstallFileHandler();
    qInstallMessageHandler(m_testHandler);
}

void tst_MTLogger::filtering_data()
{
    QTest::addColumn<bool>("diagnostics");
    QTest::addColumn<QString>("blacklist");
    QTest::addColumn<QStringList>("written");
    QTest::newRow("normal") << false << QString() << QStringList {"info", "warning", "critical"};
    QTest::newRow("diagnostics") << true << QString() << QStringList {"debug", "info", "warning", "critical"};
    QTest::newRow("commas") << true << QStringLiteral("Warning,info") << QStringList {"debug", "critical"};
    QTest::newRow("blanks") << false << QStringLiteral(" critical \t WARNING ") << QStringList {"info"};
    QTest::newRow("debug listed") << true << QStringLiteral("debug, ,") << QStringList {"info", "warning", "critical"};
}

void tst_MTLogger::filtering()
{
    QFETCH(bool, diagnostics);
    QFETCH(QString, blacklist);
    QFETCH(QStringList, written);

    QVERIFY(MTLogger::InstallFileHandler(logPath().toStdString(), diagnostics, blacklist.toStdString()));
    qDebug("message-debug");
    qInfo("message-info");
    qWarning("message-warning");
    qCritical("message-critical");
    MTLogger::UninstallFileHandler();

    const QString log = readLog(logPath());
    for (const QString type : {"debug", "info", "warning", "critical"}) {
        const bool expected = written.contains(type);
        QVERIFY2(log.contains(QLatin1String("message-") + type) == expected, qPrintable(type));
        QVERIFY2(log.contains(QLatin1Char('[') + type + QLatin1Char(']')) == expected, qPrintable(type));
    }
    // The file filter never decides what the handler before sees.
    QCOMPARE(s_forwarded.size(), 4);
}

void tst_MTLogger::lineFormat()
{
    {
        QFile existing(logPath());
        QVERIFY(existing.open(QIODevice::WriteOnly));
        existing.write("earlier line\n");
    }
    QVERIFY(MTLogger::InstallFileHandler(logPath().toStdString(), false, std::string()));
    qWarning("caf\xc3\xa9 %d", 42);
    MTLogger::UninstallFileHandler();

    const QStringList lines = readLog(logPath()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    QCOMPARE(lines.size(), 2);
    QCOMPARE(lines.first(), QStringLiteral("earlier line"));
    static const QRegularExpression pattern(
        QRegularExpression::anchoredPattern(QStringLiteral("\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d\\.\\d{3} "
                                                           "\\[warning\\] caf\u00e9 42")));
    QVERIFY2(pattern.match(lines.last()).hasMatch(), qPrintable(lines.last()));
}

void tst_MTLogger::chaining()
{
    QVERIFY(MTLogger::InstallFileHandler(logPath().toStdString(), false, std::string()));
    // Installing again moves to the new file but still forwards to the first handler.
    const QString secondPath = m_home.path() + QStringLiteral("/second.txt");
    QVERIFY(MTLogger::InstallFileHandler(secondPath.toStdString(), false, std::string()));
    qWarning("while installed");
    QCOMPARE(s_forwarded, QStringList {"while installed"});
    QVERIFY(!readLog(logPath()).contains(QLatin1String("while installed")));
    QVERIFY(readLog(secondPath).contains(QLatin1String("while installed")));

    MTLogger::UninstallFileHandler();
    qWarning("after uninstall");
    QCOMPARE(s_forwarded, (QStringList {"while installed", "after uninstall"}));
    QVERIFY(!readLog(secondPath).contains(QLatin1String("after uninstall")));
}

void tst_MTLogger::unwritableFile()
{
    QVERIFY(!MTLogger::InstallFileHandler(m_home.path().toStdString(), true, std::string()));
    // Nothing was installed: the recorder is still the current handler.
    QVERIFY(qInstallMessageHandler(recordingHandler) == &recordingHandler);
}

QTEST_MAIN(tst_MTLogger)
#include "tst_mtlogger.moc"
