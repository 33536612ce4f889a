// The stand-alone kernel where a user of the editor meets it.
#include "SettingsFiles.h"
#include "TestHome.h"

#include "MTLogger.h"
#include "kqDMManager.h"
#include "kqMovableObject.h"
#include "kqSystem.h"

#include <QRegularExpression>
#include <QTest>
#include <QWidget>

using namespace zel;
using namespace Qt::StringLiterals;
using Ratios = std::vector<float>;
Q_DECLARE_METATYPE(Ratios)

namespace {

QStringList s_forwarded;

void record(QtMsgType, const QMessageLogContext&, const QString& message)
{
    s_forwarded.append(message);
}

// The logger's "handler before" while it lives, so forwarding can be checked; on leaving
// it uninstalls the logger and gives QtTest its handler back.
struct Recording
{
    Recording() { s_forwarded.clear(); }
    ~Recording() { MTLogger::UninstallFileHandler(); qInstallMessageHandler(before); }
    QtMessageHandler before = qInstallMessageHandler(record);
};

} // namespace

class tst_Kernel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void userName();
    void correctRatios_data();
    void correctRatios();
    void windowMover();
    void logFilter_data();
    void logFilter();
    void logFile();

private:
    TestHome m_home;
};

void tst_Kernel::userName()
{
    // Names the cache folder of each user. USER before LOGNAME; without any of them the account database answers.
    for (const char* name : {"USER", "USERNAME", "LOGNAME"})
        qunsetenv(name);
    QVERIFY(!kq::kqSystemUtils::GetCurrentUserNameUtf8().empty());
    qputenv("LOGNAME", "ann\xc3\xa9");
    QCOMPARE(kq::kqSystemUtils::GetCurrentUserNameUtf8(), std::string("ann\xc3\xa9"));
    qputenv("USER", "bob");
    QCOMPARE(kq::kqSystemUtils::GetCurrentUserNameUtf8(), std::string("bob"));
}

void tst_Kernel::correctRatios_data()
{
    const float nan = float(qQNaN()), inf = float(qInf());
    QTest::addColumn<Ratios>("ratios");
    QTest::addColumn<Ratios>("expected");
    // First exactly 1, a level equal to the one before, exactly 0.01: all still valid.
    QTest::newRow("valid") << Ratios {1, 0.5f, 0.5f, 0.1f, 0.01f} << Ratios {1, 0.5f, 0.5f, 0.1f, 0.01f};
    QTest::newRow("first below one") << Ratios {0.5f, 0.8f, 0.2f} << Ratios {1, 0.8f, 0.2f};
    QTest::newRow("rising") << Ratios {1, 0.2f, 0.6f, 0.1f, 0.3f} << Ratios {1, 0.2f, 0.2f, 0.1f, 0.1f};
    QTest::newRow("out of range") << Ratios {inf, 2, 0, -inf, 0.001f} << Ratios {1, 1, 0.01f, 0.01f, 0.01f};
    // A NaN repeats the level before, and counts as a change.
    QTest::newRow("nan") << Ratios {1, nan, 0.4f, nan} << Ratios {1, 1, 0.4f, 0.4f};
}

void tst_Kernel::correctRatios()
{
    QFETCH(Ratios, ratios);
    QFETCH(Ratios, expected);
    const bool changed = ratios != expected;
    QCOMPARE(kqDMManager::correctRatios(ratios), changed);
    QCOMPARE(ratios, expected);
}

void tst_Kernel::windowMover()
{
    QWidget window(nullptr, Qt::FramelessWindowHint);
    window.setGeometry(100, 100, 300, 200);
    auto* header = new QWidget(&window);
    header->setGeometry(0, 0, 300, 30);
    auto* mover = new kq::kqMovableObject(&window);
    mover->setAnchorObject(header, &window);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));

    // A double click on the header maximises the window, or restores it, only when asked to.
    QTest::mouseDClick(window.windowHandle(), Qt::LeftButton, {}, QPoint(10, 10));
    QVERIFY(!window.isMaximized());
    mover->setExpandOnDlbClick(true);
    QTest::mouseDClick(window.windowHandle(), Qt::LeftButton, {}, QPoint(10, 10));
    QTRY_VERIFY(window.isMaximized());
    QTest::mouseDClick(window.windowHandle(), Qt::LeftButton, {}, QPoint(10, 10));
    QTRY_VERIFY(!window.isMaximized());
}

void tst_Kernel::logFilter_data()
{
    QTest::addColumn<bool>("diagnostics");
    QTest::addColumn<QString>("blacklist");
    QTest::addColumn<QStringList>("written");
    // Debug lines need diagnostics; listed names count in any case, between commas or blanks.
    QTest::newRow("commas") << true << u"Warning,info"_s << QStringList {"debug", "critical"};
    QTest::newRow("blanks") << false << u" critical \t WARNING "_s << QStringList {"info"};
    QTest::newRow("debug listed") << true << u"debug, ,"_s << QStringList {"info", "warning", "critical"};
}

void tst_Kernel::logFilter()
{
    QFETCH(bool, diagnostics);
    QFETCH(QString, blacklist);
    QFETCH(QStringList, written);
    const QString path = m_home.path() + u'/' + QLatin1String(QTest::currentDataTag());
    const Recording recording;
    QVERIFY(MTLogger::InstallFileHandler(path.toStdString(), diagnostics, blacklist.toStdString()));
    qDebug("message-debug");
    qInfo("message-info");
    qWarning("message-warning");
    qCritical("message-critical");
    MTLogger::UninstallFileHandler();
    const QString log = QString::fromUtf8(fileBytes(path));
    for (const QString type : {"debug", "info", "warning", "critical"})
        QVERIFY2(log.contains(u'[' + type + u"] message-"_s + type) == written.contains(type), qPrintable(type));
    // The file filter never decides what the handler before sees.
    QCOMPARE(s_forwarded.size(), 4);
}

void tst_Kernel::logFile()
{
    const Recording recording;
    // A file that cannot be opened installs nothing.
    QVERIFY(!MTLogger::InstallFileHandler(m_home.path().toStdString(), true, {}));
    QVERIFY(qInstallMessageHandler(record) == &record);

    // A log already there is appended to; nothing is written, but all is still forwarded,
    // after uninstalling.
    const QString path = m_home.path() + u"/log.txt"_s;
    QVERIFY(MTLogger::InstallFileHandler(path.toStdString(), false, {}));
    qWarning("earlier");
    MTLogger::UninstallFileHandler();
    QVERIFY(MTLogger::InstallFileHandler(path.toStdString(), false, {}));
    qWarning("caf\xc3\xa9 %d", 42);
    MTLogger::UninstallFileHandler();
    qWarning("after uninstall");
    QCOMPARE(s_forwarded, (QStringList {u"earlier"_s, u"caf\u00e9 42"_s, u"after uninstall"_s}));

    const QStringList lines = QString::fromUtf8(fileBytes(path)).split(u'\n', Qt::SkipEmptyParts);
    QCOMPARE(lines.size(), 2);
    static const QRegularExpression line(QRegularExpression::anchoredPattern(
        u"\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d\\.\\d{3} \\[warning\\] caf\u00e9 42"_s));
    QVERIFY2(line.match(lines.last()).hasMatch(), qPrintable(lines.last()));
}

QTEST_MAIN(tst_Kernel)
#include "tst_kernel.moc"
