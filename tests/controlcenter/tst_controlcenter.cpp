#include "ControlCenterFakes.h"
#include "TestHome.h"
#include "TestInput.h"
#include "ZelCCActionItem.h"
#include "zelAction.h"

#include <QLabel>
#include <QProcess>
#include <QSignalSpy>
#include <QTest>

using zel::zelAction;
using Pages = std::vector<zel::ZelSettingsPanel*>;

// The menu column from top to bottom: action names, and "-" for each separator.
static QStringList column(const ZelControlCenter* cc)
{
    QStringList entries;
    const QLayout* layout = part(cc, "actionFrame")->layout();
    for (int i = 0; i < layout->count(); ++i) {
        const auto* item = qobject_cast<zel::ZelCCActionItem*>(layout->itemAt(i)->widget());
        entries.append(item ? item->getZelAction()->getActionName() : "-");
    }
    return entries;
}

// A page whose author forgot the signal.
class SilentPage : public zel::ZelSettingsPanel
{
    Q_OBJECT

public:
    using ZelSettingsPanel::ZelSettingsPanel;
    void initializeWidget() override {}
    bool hasModifications() const override { return false; }
    bool applyModifications() override { return false; }
    bool canResetContent() const override { return false; }
    void resetContent() override {}
    bool cancelModifications() override { return false; }
};

class TestControlCenter : public QObject
{
    Q_OBJECT

    TestHome m_home;

private Q_SLOTS:
    void pagesRegisterApplyAndReset_data()
    {
        QTest::addColumn<Host>("kind");
        QTest::addColumn<bool>("restart");
        QTest::newRow("viewer, restart") << Host::Viewer << true;
        QTest::newRow("viewer, no restart") << Host::Viewer << false;
        QTest::newRow("stand-alone, restart") << Host::StandAlone << true;
    }

    void pagesRegisterApplyAndReset()
    {
        QFETCH(Host, kind);
        QFETCH(bool, restart);
        TestHost host(kind);
        auto* apply = part<QPushButton>(host.cc, "applyButton");
        auto* reset = part<QPushButton>(host.cc, "resetButton");
        QVERIFY(!apply->isEnabled() && !reset->isEnabled() && !host.cc->applyModifications());

        // Registration order is display and call order; registering initialises the page.
        QStringList journal;
        TestPage a(&host.app, "A", &journal), b(&host.app, "B", &journal), c(&host.app, "C", &journal);
        for (TestPage* page : {&a, &b, &c, &a})
            host.cc->registerSettingsPanel(page);
        QCOMPARE(host.cc->settingsPanels(), (Pages{&a, &b, &c}));
        QCOMPARE(journal.filter(".init"),
                 (QStringList{"A.initializeWidget", "B.initializeWidget", "C.initializeWidget"}));
        const QLayout* stack = part(host.cc->settingsWidget(), "applicationFrame")->layout();
        const QLayout* buttons = part(host.cc, "applicationSettings")->layout();
        QVERIFY(stack->indexOf(&a) < stack->indexOf(&b) && stack->indexOf(&b) < stack->indexOf(&c));
        QVERIFY(buttons->indexOf(a.getActionWidget()) < buttons->indexOf(b.getActionWidget())
                && buttons->indexOf(b.getActionWidget()) < buttons->indexOf(c.getActionWidget()));
        QCOMPARE(c.getActionWidget()->text(), "C");
        // Opened as the hosts open it, so that its buttons take presses.
        slideMenu(host.cc);
        host.cc->setControlCenterVisible(true);
        finishSlides(host.cc);

        // The buttons follow each page's answers as soon as the page announces them.
        c.setModified(true);
        QVERIFY(apply->isEnabled() && !reset->isEnabled());
        a.setResettable(true);
        QVERIFY(reset->isEnabled());
        QVERIFY(press(host.cc, reset));
        QCOMPARE(journal.filter(".reset"), (QStringList{"A.resetContent", "B.resetContent", "C.resetContent"}));
        QVERIFY(!reset->isEnabled());

        // A host that writes the settings itself keeps Apply off while they cannot be written.
        host.cc->setSettingsWritable(false);
        QVERIFY(!apply->isEnabled());
        host.cc->setSettingsWritable(true);
        QVERIFY(apply->isEnabled());

        // Every page applies, also after one that asked for a restart; only the viewer says so.
        // The Apply is announced once the pages wrote and the question was answered.
        b.restartNeeded = restart;
        const BoxAnswerer answerer(QMessageBox::Ok);
        connect(host.cc, &ZelControlCenter::modificationsApplied, this, [&] {
            journal.append(QStringLiteral("applied after %1 question").arg(answerer.seen.size()));
        });
        const bool told = restart && kind == Host::Viewer;
        QVERIFY(press(host.cc, apply));
        QCOMPARE(journal.filter("appl"), (QStringList{"A.applyModifications", "B.applyModifications",
                                                      "C.applyModifications",
                                                      QStringLiteral("applied after %1 question").arg(told)}));
        const QString restartText = "Settings Modification: You need to restart your application to turn "
                                    "settings modification effective.";
        QCOMPARE(answerer.seen, told ? QStringList{restartText} : QStringList());
        QVERIFY(!apply->isEnabled());

        // The page's answer changed without a word from it: only the host can tell.
        c.setModified(true, false);
        QVERIFY(!apply->isEnabled());
        host.cc->reevaluateButtons();
        QVERIFY(apply->isEnabled());
        QCOMPARE(host.cc->applyModifications(), restart);

        // Unregistering hands the page and its button back (twice changes nothing) and
        // re-evaluates the buttons when asked to.
        a.setModified(true);
        host.cc->unregisterSettingsPanel(&a, true);
        host.cc->unregisterSettingsPanel(&a, true);
        QCOMPARE(host.cc->settingsPanels(), (Pages{&b, &c}));
        QVERIFY(!a.parentWidget() && !a.getActionWidget()->parentWidget() && !apply->isEnabled());
    }

    void actionItemMirrorsItsAction()
    {
        TestHost host(Host::StandAlone);
        zelAction action("Open", "Open...");
        action.setShortcut(QKeySequence(Qt::CTRL | Qt::Key_O));
        host.cc->registerCCAction(&action, QString(), true, false, true);
        auto* item = qobject_cast<zel::ZelCCActionItem*>(part(host.cc, "actionFrame")->layout()->itemAt(0)->widget());
        auto* button = part<QPushButton>(item, "actionButton");
        const auto* shortcut = part<QLabel>(item, "shortcut");
        QVERIFY(item->isWorkflowSpecific() && !shortcut->isHidden());
        QCOMPARE(button->text(), "Open...");
        QCOMPARE(shortcut->text(), QKeySequence(Qt::CTRL | Qt::Key_O).toString(QKeySequence::NativeText));

        action.setActionGuiName("Open a model");
        action.setShortcut(QKeySequence());
        action.setEnabled(false);
        action.setVisible(false);
        QCOMPARE(button->text(), "Open a model");
        QVERIFY(shortcut->isHidden() && !button->isEnabled() && item->isHidden());

        // Clicking triggers the action, which was registered to close the menu.
        action.setEnabled(true);
        action.setVisible(true);
        slideMenu(host.cc);
        const QSignalSpy triggered(&action, &QAction::triggered);
        QVERIFY(press(host.cc, button));
        QVERIFY(!item->isHidden() && triggered.count() == 1 && !host.cc->isMenuOpen());

        // Shown twice, it goes with both its items, and triggered afterwards (by its
        // shortcut, say) it no longer closes the menu.
        host.cc->registerCCAction(&action, "Settings", false, true, true);
        QCOMPARE(column(host.cc), QStringList({"Open", "Settings", "Open"}));
        host.cc->unregisterCCAction(&action);
        QCOMPARE(column(host.cc), QStringList{"Settings"});
        slideMenu(host.cc);
        action.trigger();
        finishSlides(host.cc);
        QVERIFY(host.cc->isMenuOpen());
    }

    void anchorsAndSeparators()
    {
        TestHost host(Host::StandAlone);
        ZelControlCenter* cc = host.cc;
        QCOMPARE(column(cc), QStringList{"Settings"});

        zelAction a("A", "A"), b("B", "B"), c("C", "C"), d("D", "D"), e("E", "E");
        cc->registerCCAction(&a, QString(), false, false, false);
        cc->registerCCAction(&b, QString(), false, false, false);
        cc->registerCCAction(&c, "A", false, true, false);
        cc->registerCCAction(&d, "A", false, false, false);
        cc->registerCCAction(&e, "missing", false, true, false);
        QCOMPARE(column(cc), QStringList({"B", "D", "A", "C", "Settings", "E"}));

        QVERIFY(cc->addCCSeparator("Settings", "tools") && cc->addCCSeparator(QString(), "top"));
        QVERIFY(cc->addCCSeparator("missing", "bottom") && !cc->addCCSeparator("A", "tools"));
        QCOMPARE(column(cc), QStringList({"-", "B", "D", "A", "C", "-", "Settings", "E", "-"}));
        QVERIFY(!cc->setCCSeparatorVisible("unknown", false) && cc->setCCSeparatorVisible("top", false));
        QVERIFY(part(cc, "actionFrame")->layout()->itemAt(0)->widget()->isHidden());

        cc->unregisterCCAction(&d);
        QCOMPARE(column(cc), QStringList({"-", "B", "A", "C", "-", "Settings", "E", "-"}));

        // Made while the column is closed (0 wide), a separator takes its width once it opens.
        slideMenu(cc);
        slideMenu(cc, false);
        QVERIFY(cc->addCCSeparator("E", "late"));
        slideMenu(cc);
        const QWidget* late = part(cc, "actionFrame")->layout()->itemAt(6)->widget();
        QTRY_VERIFY(late->width() > 0);
    }

    // A page must declare stateChanged(): without it Apply would never enable. Debug
    // builds stop at the registration; release builds warn. A child process registers.
    void aPageWithoutStateChangedIsReported()
    {
        if (qEnvironmentVariableIsSet("ZEL_REGISTER_SILENT_PAGE")) {
            TestHost host(Host::StandAlone);
            SilentPage page(&host.app, host.app.getSettings());
            page.setPanelName("Silent");
            host.cc->registerSettingsPanel(&page);
            return;
        }
        QProcess child;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("ZEL_REGISTER_SILENT_PAGE", "1");
        child.setProcessEnvironment(environment);
        child.setProcessChannelMode(QProcess::MergedChannels);
        child.start(QCoreApplication::applicationFilePath(), {"aPageWithoutStateChangedIsReported"});
        QVERIFY(child.waitForFinished(60000));
        const QString output = QString::fromUtf8(child.readAll());
        QVERIFY2(output.contains(R"(the settings page "Silent" (SilentPage) declares no signal stateChanged())"),
                 qPrintable(output));
#ifdef QT_NO_DEBUG
        QCOMPARE(child.exitStatus(), QProcess::NormalExit);
#else
        QCOMPARE(child.exitStatus(), QProcess::CrashExit);
#endif
    }

    void interfaceColor()
    {
        TestHost host(Host::StandAlone);
        const QString on = m_home.tempPath() + "/on.png", off = m_home.tempPath() + "/off.png";
        QPixmap pixmap(8, 8);
        pixmap.fill(Qt::red);
        pixmap.save(on);
        pixmap.fill(Qt::blue);
        pixmap.save(off);

        // Without an external button the icons wait for one set later.
        host.cc->setInterfaceColor(QColor(10, 20, 30), on, off);
        QPushButton external;
        host.cc->setControlCenterButton(&external);
        QVERIFY(external.icon().isNull());
        host.cc->setInterfaceColor(QColor(10, 20, 30), on, off);
        QCOMPARE(external.icon().pixmap(8, QIcon::Normal, QIcon::On).toImage().pixelColor(4, 4), QColor(Qt::red));
        QCOMPARE(external.icon().pixmap(8, QIcon::Normal, QIcon::Off).toImage().pixelColor(4, 4), QColor(Qt::blue));
    }

    void lifetimesInEveryOrder()
    {
        {
            // The control center goes first, shown: pages come back alive, still owning their
            // buttons; actions stay usable.
            TestHost host(Host::StandAlone);
            auto page = std::make_unique<TestPage>(&host.app, "A");
            zelAction action("Kept", "Kept");
            host.cc->registerSettingsPanel(page.get());
            host.cc->registerCCAction(&action, QString(), false, false, true);
            // ... while a button of its own holds the focus, which moves on as it goes.
            slideMenu(host.cc);
            QVERIFY(QTest::qWaitForWindowActive(&host.window));
            part(host.cc, "controlCenterButton")->setFocus();
            QVERIFY(part(host.cc, "controlCenterButton")->hasFocus());
            delete host.cc;
            QVERIFY(!page->parentWidget() && !page->getActionWidget()->parentWidget());
            action.trigger();
            const QPointer<QPushButton> button = page->getActionWidget();
            page.reset();
            QVERIFY(button.isNull());
        }
        // A page, an action, or the drawer with a page in it goes first: they drop out.
        TestHost host(Host::StandAlone);
        TestPage kept(&host.app, "Kept");
        auto gone = std::make_unique<TestPage>(&host.app, "Gone");
        host.cc->registerSettingsPanel(gone.get());
        host.cc->registerSettingsPanel(&kept);
        gone->setModified(true);
        gone.reset();
        QCOMPARE(host.cc->settingsPanels(), Pages{&kept});
        QVERIFY(!part(host.cc, "applyButton")->isEnabled());

        auto action = std::make_unique<zelAction>("Gone", "Gone");
        host.cc->registerCCAction(action.get(), QString(), false, false, true);
        action.reset();
        QCOMPARE(column(host.cc), QStringList{"Settings"});

        host.cc->unregisterSettingsPanel(&kept, true);
        const QPointer<TestPage> inDrawer = new TestPage(&host.app, "InDrawer");
        host.cc->registerSettingsPanel(inDrawer);
        delete host.cc->settingsWidget();
        QVERIFY(inDrawer.isNull() && host.cc->settingsPanels().empty());
    }
};

QTEST_MAIN(TestControlCenter)
#include "tst_controlcenter.moc"
