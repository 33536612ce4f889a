// The stand-alone editor's window over a real Settings.ini: its pages, its buttons, the
// question before edits are thrown away, and a second start of torvane-settings.

#include "SettingsFiles.h"
#include "EditorWindow.h"
#include "TestHome.h"
#include "TestInput.h"
#include "ZelControlCenter.h"
#include "ZelControlCenterStandAloneWidget.h"
#include "ZelGeneralSettingsPanel.h"
#include "ZelSettingsApplication.h"
#include "ZelSingleInstance.h"

#include <QAbstractSpinBox>
#include <QLabel>
#include <QTextBlock>
#include <QTextEdit>
#include <QLayout>
#include <QMessageBox>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QWindow>
#include <QProcess>
#include <QScopeGuard>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <csignal>
#include <functional>
#include <memory>
#include <sys/resource.h>

using namespace zel;

class tst_standalonewindow : public QObject
{
    Q_OBJECT

private:
    TestHome m_home;
    EditorWindow m_editor;
    QTimer m_questionWatch;
    std::unique_ptr<ZelControlCenterStandAloneWidget>& m_window = m_editor.window;

    QPushButton* button(const char* name) const
    {
        return m_window->findChild<QPushButton*>(QLatin1String(name));
    }

    // Answers the question that the next close asks, once it shows, with `answer`. Watched
    // for rather than posted: input sent to the window lets events run before the close.
    void answerQuestion(const std::function<void(QMessageBox*)>& answer)
    {
        m_questionWatch.disconnect();
        connect(&m_questionWatch, &QTimer::timeout, this, [this, answer] {
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                m_questionWatch.stop();
                answer(box);
            }
        });
        m_questionWatch.start(5);
    }

    // The same, answered with `key`; `text` gets the question.
    void answerQuestion(Qt::Key key, QString* text)
    {
        answerQuestion([key, text](QMessageBox* box) {
            *text = box->text();
            QTest::keyClick(box->windowHandle(), key);
        });
    }

    QString settingsFile() const { return m_editor.application->getSettings().fileName(); }

    // What the notice bar says; empty while it is hidden.
    QString notice() const
    {
        const auto* bar = m_window->findChild<QWidget*>(QStringLiteral("settingsNotice"));
        if (!bar || !bar->isVisible())
            return QString();
        return bar->findChild<QTextEdit*>(QStringLiteral("noticeText"))->toPlainText();
    }

    // The copies kept beside `file`, as paths.
    static QStringList copiesBeside(const QString& file)
    {
        const QFileInfo info(file);
        QStringList copies;
        const QStringList pattern {info.fileName() + QStringLiteral(".*.bak")};
        for (const QFileInfo& copy : info.dir().entryInfoList(pattern, QDir::Files))
            copies.append(copy.filePath());
        return copies;
    }

    // Replaces the file's bytes as another program would.
    static void writeAsAnotherProgram(const QString& path, const QByteArray& bytes)
    {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        QCOMPARE(file.write(bytes), bytes.size());
    }

    // One edit on the General page, typed as a user would, once the drawer is still.
    void editAPage()
    {
        QTRY_VERIFY(m_window->controlCenter()->isMenuOpen() && m_window->controlCenter()->isSettingsOpen());
        auto* page = m_window->findChild<ZelGeneralSettingsPanel*>();
        auto* field = page->findChild<QAbstractSpinBox*>();
        field->setFocus();
        QTest::keyClick(m_window->windowHandle(), Qt::Key_Down);
        QVERIFY(m_window->controlCenter()->hasModifications());
    }

private Q_SLOTS:
    void init()
    {
        QVERIFY(m_home.isValid());
        // Each test starts from a new user's file, with no copies beside it.
        const QString file = m_home.configPath() + QStringLiteral("/Settings.ini");
        for (const QString& copy : copiesBeside(file))
            QVERIFY(QFile::remove(copy));
        QFile::remove(file);
        m_editor.open(m_home.configPath());
    }

    void cleanup()
    {
        m_questionWatch.stop();
        m_editor.close();
    }

    void pagesComeInTheirOrder()
    {
        QCOMPARE(m_window->windowTitle(), QStringLiteral("Torvane - Control Center"));
        const QLayout* stack = m_window->findChild<QWidget*>(QStringLiteral("applicationFrame"))->layout();
        QStringList classes;
        for (int i = 0; i < stack->count(); ++i)
            classes << QString::fromLatin1(stack->itemAt(i)->widget()->metaObject()->className());
        QCOMPARE(classes, (QStringList{QStringLiteral("zel::ZelRendererSettingsPanel"),
                                       QStringLiteral("zel::ZelGeneralSettingsPanel"),
                                       QStringLiteral("zel::ZelSimplificationSettingsPanel"),
                                       QStringLiteral("zel::ZelImportSettingsPanel"),
                                       QStringLiteral("zel::ZelAboutSettingsPanel")}));
        // The placeholder beside the drawer shows the logo once the pages are built.
        QVERIFY(!m_window->findChild<QLabel*>(QStringLiteral("uiDummyContent"))->pixmap().isNull());
        QVERIFY(!m_window->windowIcon().pixmap(32).isNull());
        // Typing finds a setting from the start: the keyboard waits in the search field.
        QCOMPARE(QApplication::focusWidget(), m_window->findChild<QWidget*>(QStringLiteral("settingsSearch")));
        QTRY_VERIFY(m_window->controlCenter()->isMenuOpen());
        // A new user who changed nothing has nothing to discard.
        QVERIFY(!m_window->controlCenter()->hasModifications());
    }

private:
    // The window's close button, or the keys that quit.
    void closeTheWindow()
    {
        QFETCH(bool, byKeyboard);
        if (!byKeyboard) {
            click(button("closeButton"));
            return;
        }
        // The offscreen platform does not give the window back its activation after a question.
        m_window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        QTest::keyClick(m_window->windowHandle(), Qt::Key_Q, Qt::ControlModifier);
    }

    static void addCloseRows()
    {
        QTest::addColumn<bool>("byKeyboard");
        QTest::newRow("close button") << false;
        QTest::newRow("Ctrl+Q") << true;
    }

private Q_SLOTS:
    void closingWithoutEditsAsksNothing_data() { addCloseRows(); }
    void closingWithoutEditsAsksNothing()
    {
        QString question;
        answerQuestion(Qt::Key_Escape, &question);
        closeTheWindow();
        QVERIFY(!m_window->isVisible());
        QVERIFY(question.isEmpty());
    }

    void closingWithEditsAsksFirst_data() { addCloseRows(); }
    void closingWithEditsAsksFirst()
    {
        editAPage();
        for (const Qt::Key keep : {Qt::Key_Escape, Qt::Key_Return}) {
            QString question;
            answerQuestion(keep, &question);
            closeTheWindow();
            QCOMPARE(question, QStringLiteral("Your current changes will be discarded.\n"
                                              "Continue and close the application ?"));
            QVERIFY(m_window->isVisible());
            QVERIFY(m_window->controlCenter()->hasModifications());
        }
        answerQuestion([](QMessageBox* box) { click(box->button(QMessageBox::Ok)); });
        closeTheWindow();
        QVERIFY(!m_window->isVisible());
    }

    void failedWriteKeepsTheEditsAndTheFile_data()
    {
        QTest::addColumn<bool>("sizeLimit");
        QTest::addColumn<QString>("reason");
        QTest::newRow("file size limit") << true << QStringLiteral("File too large");
        QTest::newRow("folder in place of the file") << false << QStringLiteral("is a folder");
    }

    void failedWriteKeepsTheEditsAndTheFile()
    {
        QFETCH(bool, sizeLimit);
        QFETCH(QString, reason);
        const QString file = settingsFile();
        const QByteArray before = fileBytes(file);
        QVERIFY(before.size() > 400);
        editAPage();
        QPushButton* apply = button("applyButton");

        rlimit limit {};
        QVERIFY(getrlimit(RLIMIT_FSIZE, &limit) == 0);
        const rlimit unlimited = limit;
        if (sizeLimit) {
            // Room for the write lock, not for the file.
            std::signal(SIGXFSZ, SIG_IGN);
            limit.rlim_cur = rlim_t(before.size() / 2);
            QVERIFY(setrlimit(RLIMIT_FSIZE, &limit) == 0);
        } else {
            QVERIFY(QFile::remove(file));
            QVERIFY(QDir().mkpath(file));
        }
        click(apply);
        if (sizeLimit) {
            QVERIFY(setrlimit(RLIMIT_FSIZE, &unlimited) == 0);
        } else {
            QVERIFY(QDir(file).removeRecursively());
            writeAsAnotherProgram(file, before);
        }
        QVERIFY2(notice().contains(reason), qPrintable(notice()));
        QCOMPARE(fileBytes(file), before);
        // The edit waits on its page for a retry.
        QVERIFY(m_window->controlCenter()->hasModifications());
        QTRY_VERIFY(apply->isEnabled());

        click(apply);
        QVERIFY(!m_window->controlCenter()->hasModifications());
        QVERIFY(fileBytes(file) != before);
        // The failure shown above is over, and the bar says so.
        QVERIFY2(notice().endsWith(QStringLiteral("\nYour changes are saved.")), qPrintable(notice()));
        // Nothing of another program's was replaced: no copy.
        QCOMPARE(copiesBeside(file), QStringList());
    }

    void outsideChangeReachesThePagesAndKeepsPendingEdits_data()
    {
        QTest::addColumn<bool>("seenBeforeApply");
        QTest::newRow("seen before Apply") << true;
        QTest::newRow("written just before Apply") << false;
    }

    void outsideChangeReachesThePagesAndKeepsPendingEdits()
    {
        QFETCH(bool, seenBeforeApply);
        const QString file = settingsFile();
        editAPage();
        QByteArray changed = fileBytes(file);
        QVERIFY(changed.contains("cacheSize=4096") && changed.contains("useSSAO=true"));
        changed.replace("cacheSize=4096", "cacheSize=2048").replace("useSSAO=true", "useSSAO=false");
        changed.replace("useFXAA=true\n", "");
        writeAsAnotherProgram(file, changed);
        if (seenBeforeApply) {
            QTRY_VERIFY2(notice().contains(QStringLiteral("deferred/useSSAO is now \"false\"")),
                         qPrintable(notice()));
            QVERIFY2(notice().contains(QStringLiteral("You are editing DBCache/cacheSize")), qPrintable(notice()));
        }
        // The user's edit wins on Apply, the other program's other value stays.
        click(button("applyButton"));
        const QVariantMap values = iniValues(file);
        QCOMPARE(values.value(QStringLiteral("DBCache/cacheSize")).toString(), QStringLiteral("4086"));
        QCOMPARE(values.value(QStringLiteral("deferred/useSSAO")).toString(), QStringLiteral("false"));
        QVERIFY(!m_window->controlCenter()->hasModifications());
        // The value the edit replaced is kept in a copy of the file as the other program
        // left it, and the user hears of both values either way.
        const QStringList copies = copiesBeside(file);
        QCOMPARE(copies.size(), 1);
        QCOMPARE(fileBytes(copies.first()), changed);
        QVERIFY2(notice().contains(QStringLiteral("DBCache/cacheSize was \"2048\"")), qPrintable(notice()));
        QVERIFY2(notice().contains(copies.first()), qPrintable(notice()));
        QVERIFY2(notice().contains(QStringLiteral("deferred/useSSAO is now \"false\"")), qPrintable(notice()));
        QVERIFY2(notice().contains(QStringLiteral("deferred/useFXAA was removed, so its default \"true\" applies")),
                 qPrintable(notice()));
    }

    // Removed, emptied or stripped of its version by another program, the file would be
    // set aside at the next start with the edits applied meanwhile: Apply writes the
    // version back with them, keeps what the file held, and says so.
    void fileLosingItsVersionKeepsTheApply_data()
    {
        QTest::addColumn<QString>("change");
        QTest::addColumn<QString>("seen");
        QTest::addColumn<bool>("copied");
        QTest::newRow("removed") << "remove" << "removed the settings file" << false;
        QTest::newRow("emptied") << "empty" << "removed the settings file" << false;
        QTest::newRow("version dropped") << "unversion" << "settingsVersion was removed" << true;
    }

    void fileLosingItsVersionKeepsTheApply()
    {
        QFETCH(QString, change);
        QFETCH(QString, seen);
        QFETCH(bool, copied);
        const QString file = settingsFile();
        editAPage();
        QByteArray outside;
        if (change == QLatin1String("remove")) {
            QVERIFY(QFile::remove(file));
        } else {
            if (change == QLatin1String("unversion"))
                outside = fileBytes(file).replace("settingsVersion=2\n", "");
            QVERIFY(!outside.contains("settingsVersion"));
            writeAsAnotherProgram(file, outside);
        }
        QTRY_VERIFY2(notice().contains(seen), qPrintable(notice()));

        click(button("applyButton"));
        QVERIFY(!m_window->controlCenter()->hasModifications());
        const QVariantMap values = iniValues(file);
        QCOMPARE(values.value(QStringLiteral("settingsVersion")).toString(), QStringLiteral("2"));
        QCOMPARE(values.value(QStringLiteral("DBCache/cacheSize")).toString(), QStringLiteral("4086"));
        QVERIFY2(notice().contains(QStringLiteral("Apply wrote")), qPrintable(notice()));
        const QStringList copies = copiesBeside(file);
        QCOMPARE(copies.size(), copied ? 1 : 0);
        if (copied) {
            QCOMPARE(fileBytes(copies.first()), outside);
            QVERIFY2(notice().contains(copies.first()), qPrintable(notice()));
        }
    }

    // However many messages come, the bar stays a few lines tall and shows the newest;
    // the older ones scroll.
    void manyNoticesKeepThePagesInView()
    {
        const QSize size = m_window->size();
        for (int message = 1; message <= 20; ++message)
            m_window->showNotice(QStringLiteral("Another program changed message %1.").arg(message));
        const auto* bar = m_window->findChild<QWidget*>(QStringLiteral("settingsNotice"));
        const auto* text = bar->findChild<QTextEdit*>(QStringLiteral("noticeText"));
        const QScrollBar* scrollBar = text->verticalScrollBar();
        QTRY_VERIFY2(bar->height() < size.height() / 4, qPrintable(QString::number(bar->height())));
        QVERIFY(scrollBar->maximum() > 0);
        QCOMPARE(m_window->size(), size);
        QCOMPARE(scrollBar->value(), scrollBar->maximum());
        QVERIFY(notice().endsWith(QStringLiteral("message 20.")));

        // A message longer than the bar shows from its first line, which says what happened.
        QStringList repairs {QStringLiteral("Torvane repaired these settings:")};
        for (int line = 1; line <= 12; ++line)
            repairs.append(QStringLiteral("• key %1").arg(line));
        m_window->showNotice(repairs.join(QLatin1Char('\n')));
        QTRY_COMPARE(text->cursorForPosition(QPoint(1, 1)).block().text(), repairs.first());
        QVERIFY(scrollBar->value() < scrollBar->maximum());
    }

    void windowButtons()
    {
        click(button("maximizeButton"));
        QVERIFY(m_window->isMaximized());
        click(button("maximizeButton"));
        QVERIFY(!m_window->isMaximized());
        click(button("minimizeButton"));
        QVERIFY(m_window->isMinimized());
    }

    // Frameless, the window resizes by its own edges: the pointer shows it over them, a
    // drag from there moves that edge, never below the least size; a press just inside
    // is the widget's.
    void edgesResizeTheWindow()
    {
        QWindow* handle = m_window->windowHandle();
        const QSize first = m_window->size();
        const QPoint rightEdge(first.width() - 2, first.height() / 2);
        QTest::mouseMove(handle, rightEdge - QPoint(40, 0));
        QTest::mouseMove(handle, rightEdge);
        QVERIFY(QGuiApplication::overrideCursor());
        QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::SizeHorCursor);
        QTest::mousePress(handle, Qt::LeftButton, {}, rightEdge);
        QTest::mouseMove(handle, rightEdge + QPoint(60, 30));
        QTest::mouseRelease(handle, Qt::LeftButton, {}, rightEdge + QPoint(60, 30));
        QTRY_COMPARE(m_window->width(), first.width() + 60);
        QCOMPARE(m_window->height(), first.height());

        const QPoint corner(m_window->width() - 1, m_window->height() - 1);
        QTest::mouseMove(handle, corner);
        QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::SizeFDiagCursor);
        QTest::mousePress(handle, Qt::LeftButton, {}, corner);
        QTest::mouseMove(handle, QPoint(10, 10));
        QTest::mouseRelease(handle, Qt::LeftButton, {}, QPoint(10, 10));
        QTRY_COMPARE(m_window->size(), m_window->minimumSize());

        const QSize least = m_window->size();
        const QPoint inside(least.width() / 2, least.height() - 10);
        QTest::mouseMove(handle, inside);
        QVERIFY(!QGuiApplication::overrideCursor());
        QTest::mousePress(handle, Qt::LeftButton, {}, inside);
        QTest::mouseMove(handle, inside + QPoint(0, 80));
        QTest::mouseRelease(handle, Qt::LeftButton, {}, inside + QPoint(0, 80));
        QCOMPARE(m_window->size(), least);
    }

    void secondStartRaisesTheMinimisedWindow()
    {
        // A runtime folder deeper than a Unix socket's path may be, as in a sandbox.
        const QString deep = m_home.path() + QStringLiteral("/a-runtime-folder-as-deep-as-some-sandboxes-make-them/")
                             + QString(40, QLatin1Char('d'));
        QVERIFY(QDir().mkpath(deep));
        QVERIFY(QFile::setPermissions(deep, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
        const QByteArray runtime = qgetenv("XDG_RUNTIME_DIR");
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(deep));
        const auto restore = qScopeGuard([&runtime] { qputenv("XDG_RUNTIME_DIR", runtime); });

        ZelSingleInstance instance(QStringLiteral(TORVANE_SETTINGS));
        QSignalSpy listening(&instance, &ZelSingleInstance::listening);
        QVERIFY(!instance.isRunning());
        instance.startListening();
        QVERIFY(listening.wait());
        QCOMPARE(listening.at(0).at(0).toBool(), true);
        // Out of the private runtime folder, no other user may connect.
        const QFileInfo socket(QStringLiteral("/tmp/") + instance.id());
        QVERIFY(socket.exists());
        QCOMPARE(socket.permissions() & (QFile::ReadOther | QFile::WriteOther | QFile::ReadGroup | QFile::WriteGroup),
                 QFile::Permissions());
        instance.setActivationWindow(m_window.get());
        m_window->showMinimized();
        QSignalSpy received(&instance, &ZelSingleInstance::messageReceived);

        QProcess second;
        second.setProcessChannelMode(QProcess::MergedChannels);
        QSignalSpy finished(&second, &QProcess::finished);
        second.start(QStringLiteral(TORVANE_SETTINGS), {QStringLiteral("a"), QStringLiteral("b c")});
        QVERIFY(finished.wait(10000));
        QVERIFY2(second.exitCode() == 0, second.readAll().constData());
        QCOMPARE(received.size(), 1);
        QCOMPARE(received.at(0).at(0).toString(), QStringLiteral("a?b c?"));
        QVERIFY(!m_window->isMinimized());
    }
};

QTEST_MAIN(tst_standalonewindow)
#include "tst_standalonewindow.moc"
