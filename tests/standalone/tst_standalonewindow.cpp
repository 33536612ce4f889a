// The stand-alone editor's window over a real Settings.ini: its pages, its buttons, the
// question before edits are thrown away, and a second start of torvane-settings.

#include "TestHome.h"
#include "TestInput.h"
#include "ZelControlCenter.h"
#include "ZelControlCenterStandAloneWidget.h"
#include "ZelGeneralSettingsPanel.h"
#include "ZelSettingsApplication.h"
#include "ZelSingleInstance.h"

#include <QAbstractSpinBox>
#include <QLabel>
#include <QLayout>
#include <QMessageBox>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QScopeGuard>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <memory>

using namespace zel;

class tst_standalonewindow : public QObject
{
    Q_OBJECT

private:
    TestHome m_home;
    std::unique_ptr<ZelSettingsApplication> m_application;
    std::unique_ptr<ZelControlCenterStandAloneWidget> m_window;

    QPushButton* button(const char* name) const
    {
        return m_window->findChild<QPushButton*>(QLatin1String(name));
    }

    // Answers the question that the next close asks, with `key`; returns its text.
    static void answerQuestion(Qt::Key key, QString* text)
    {
        QTimer::singleShot(0, [key, text] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box)
                return;
            *text = box->text();
            QTest::keyClick(box->windowHandle(), key);
        });
    }

    // One edit on the General page, typed as a user would.
    void editAPage()
    {
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
        m_application = std::make_unique<ZelSettingsApplication>(m_home.configPath());
        ZelControlCenter::InitDefaultSettingsValues(ZelControlCenter::GetApplicationName());
        ZelControlCenter::InitPageSettingsValues();
        QString error;
        QVERIFY2(ZelControlCenter::EnsureSettings(m_application->getSettings(), error), qPrintable(error));
        m_window = std::make_unique<ZelControlCenterStandAloneWidget>(m_application.get(), nullptr,
                                                                      Qt::FramelessWindowHint);
        m_window->show();
        // As launch does it: asked before the pages exist, the menu opens once they do.
        m_window->openMenu();
        QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
        QTRY_VERIFY(m_window->controlCenter());
    }

    void cleanup()
    {
        m_window.reset();
        m_application.reset();
        ZelControlCenter::ClearSettingsValues();
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
        QTRY_VERIFY(m_window->controlCenter()->isMenuOpen());
        // A new user who changed nothing has nothing to discard.
        QVERIFY(!m_window->controlCenter()->hasModifications());
    }

    void closingWithoutEditsAsksNothing()
    {
        QString question;
        answerQuestion(Qt::Key_Escape, &question);
        click(button("closeButton"));
        QVERIFY(!m_window->isVisible());
        QVERIFY(question.isEmpty());
    }

    void closingWithEditsAsksFirst()
    {
        editAPage();
        for (const Qt::Key keep : {Qt::Key_Escape, Qt::Key_Return}) {
            QString question;
            answerQuestion(keep, &question);
            click(button("closeButton"));
            QCOMPARE(question, QStringLiteral("Your current changes will be discarded.\n"
                                              "Continue and close the application ?"));
            QVERIFY(m_window->isVisible());
            QVERIFY(m_window->controlCenter()->hasModifications());
        }
        QTimer::singleShot(0, [] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (box)
                click(box->button(QMessageBox::Ok));
        });
        click(button("closeButton"));
        QVERIFY(!m_window->isVisible());
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
        QVERIFY(!instance.isRunning());
        // Out of the private runtime folder, no other user may connect.
        const QFileInfo socket(QStringLiteral("/tmp/") + instance.id());
        QVERIFY(socket.exists());
        QCOMPARE(socket.permissions() & (QFile::ReadOther | QFile::WriteOther | QFile::ReadGroup | QFile::WriteGroup),
                 QFile::Permissions());
        instance.setActivationWindow(m_window.get());
        m_window->showMinimized();
        QSignalSpy received(&instance, &ZelSingleInstance::messageReceived);

        QProcess second;
        QSignalSpy finished(&second, &QProcess::finished);
        second.start(QStringLiteral(TORVANE_SETTINGS), {QStringLiteral("a"), QStringLiteral("b c")});
        QVERIFY(finished.wait(10000));
        QCOMPARE(second.exitCode(), 0);
        QCOMPARE(received.size(), 1);
        QCOMPARE(received.at(0).at(0).toString(), QStringLiteral("a?b c?"));
        QVERIFY(!m_window->isMinimized());
    }
};

QTEST_MAIN(tst_standalonewindow)
#include "tst_standalonewindow.moc"
