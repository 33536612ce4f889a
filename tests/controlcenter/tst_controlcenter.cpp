#include "TestHome.h"

#include "TestHost.h"
#include "TestPage.h"
#include "ZelCCActionItem.h"
#include "ZelControlCenter.h"
#include "zelAction.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace zel;
using Pages = std::vector<ZelSettingsPanel*>;
using Host = FakeApplication::Host;

namespace {

// The menu column from top to bottom: action names, and "-" for each separator.
QStringList column(const ZelControlCenter* controlCenter)
{
    QStringList entries;
    const QLayout* layout = part(controlCenter, "actionFrame")->layout();
    for (int i = 0; i < layout->count(); ++i) {
        const auto* item = qobject_cast<ZelCCActionItem*>(layout->itemAt(i)->widget());
        entries.append(item ? item->getZelAction()->getActionName() : "-");
    }
    return entries;
}

ZelCCActionItem* itemOf(const ZelControlCenter* controlCenter, const zelAction* action)
{
    for (ZelCCActionItem* item : controlCenter->findChildren<ZelCCActionItem*>()) {
        if (item->getZelAction() == action)
            return item;
    }
    return nullptr;
}

std::unique_ptr<zelAction> makeAction(const QString& name)
{
    return std::make_unique<zelAction>(name, name);
}

} // namespace

class TestControlCenter : public QObject
{
    Q_OBJECT

    TestHome m_home;

private Q_SLOTS:
    void pageBase()
    {
        FakeApplication application(Host::StandAlone);
        auto page = std::make_unique<TestPage>(&application, QString());
        QCOMPARE(page->getPanelCategory(), ZelSettingsPanel::UncategorizedCategory);
        QVERIFY(page->getActionWidget()->isCheckable() && page->getActionWidget()->autoExclusive());
        page->setPanelName("Display");
        QCOMPARE(page->getActionWidget()->text(), "Display");

        // The page owns its button wherever it was moved to.
        QWidget elsewhere;
        const QPointer<QPushButton> button = page->getActionWidget();
        button->setParent(&elsewhere);
        page.reset();
        QVERIFY(button.isNull());
    }

    void registrationKeepsOrder()
    {
        TestHost host(Host::StandAlone);
        ZelControlCenter* controlCenter = host.controlCenter();
        TestPage a(&host.application(), "A"), b(&host.application(), "B"), c(&host.application(), "C");
        for (TestPage* page : {&a, &b, &c})
            controlCenter->registerSettingsPanel(page);
        QCOMPARE(controlCenter->settingsPanels(), (Pages{&a, &b, &c}));
        QCOMPARE(a.calls().count("A.initializeWidget"), 1);
        const QLayout* stack = part(controlCenter->settingsWidget(), "applicationFrame")->layout();
        const QLayout* buttons = part(controlCenter, "applicationSettings")->layout();
        QVERIFY(stack->indexOf(&a) < stack->indexOf(&b) && stack->indexOf(&b) < stack->indexOf(&c));
        QVERIFY(buttons->indexOf(a.getActionWidget()) < buttons->indexOf(c.getActionWidget()));

        // Unregistering hands the page back; doing it twice changes nothing.
        controlCenter->unregisterSettingsPanel(&a, true);
        controlCenter->unregisterSettingsPanel(&a, true);
        QCOMPARE(controlCenter->settingsPanels(), (Pages{&b, &c}));
        QVERIFY(!a.parentWidget() && !a.getActionWidget()->parentWidget());
        controlCenter->registerSettingsPanel(&a);
        QCOMPARE(controlCenter->settingsPanels(), (Pages{&b, &c, &a}));
    }

    void applyAndResetFollowThePages()
    {
        TestHost host(Host::StandAlone);
        ZelControlCenter* controlCenter = host.controlCenter();
        const auto* apply = part<QPushButton>(controlCenter, "applyButton");
        auto* reset = part<QPushButton>(controlCenter, "resetButton");
        QVERIFY(!apply->isEnabled() && !reset->isEnabled() && !controlCenter->applyModifications());

        QStringList journal;
        TestPage a(&host.application(), "A", &journal), b(&host.application(), "B", &journal);
        controlCenter->registerSettingsPanel(&a);
        controlCenter->registerSettingsPanel(&b);
        b.setModified(true);
        QVERIFY(apply->isEnabled() && !reset->isEnabled());
        a.setResettable(true);
        QVERIFY(reset->isEnabled());

        // Reset reaches every page; their stateChanged() re-evaluates the buttons.
        journal.clear();
        reset->click();
        QCOMPARE(journal.filter(".resetContent"), (QStringList{"A.resetContent", "B.resetContent"}));
        QVERIFY(!reset->isEnabled());

        controlCenter->unregisterSettingsPanel(&a, false);
        a.setResettable(true); // no longer heard
        QVERIFY(!reset->isEnabled());
        controlCenter->unregisterSettingsPanel(&b, true);
        QVERIFY(!apply->isEnabled());
    }

    void applyReachesEveryPage_data()
    {
        QTest::addColumn<Host>("host");
        QTest::addColumn<bool>("restart");
        QTest::newRow("viewer, restart") << Host::Viewer << true;
        QTest::newRow("viewer, no restart") << Host::Viewer << false;
        QTest::newRow("stand-alone, restart") << Host::StandAlone << true;
    }

    void applyReachesEveryPage()
    {
        QFETCH(Host, host);
        QFETCH(bool, restart);
        TestHost testHost(host);
        ZelControlCenter* controlCenter = testHost.controlCenter();
        QStringList journal;
        TestPage a(&testHost.application(), "A", &journal), b(&testHost.application(), "B", &journal),
            c(&testHost.application(), "C", &journal);
        for (TestPage* page : {&a, &b, &c})
            controlCenter->registerSettingsPanel(page);
        b.setRestartNeeded(restart);
        a.setModified(true);

        const MessageBoxAnswerer answerer(QMessageBox::Ok);
        part<QPushButton>(controlCenter, "applyButton")->click();
        // Every page applies, also after one that asked for a restart.
        QCOMPARE(journal.filter(".apply"),
                 (QStringList{"A.applyModifications", "B.applyModifications", "C.applyModifications"}));
        const bool told = restart && host == Host::Viewer;
        QCOMPARE(answerer.titles(), told ? QStringList{"Settings Modification"} : QStringList());
        QCOMPARE(answerer.texts(),
                 told ? QStringList{"You need to restart your application to turn settings modification effective."}
                      : QStringList());
        QVERIFY(!part(controlCenter, "applyButton")->isEnabled());
        QCOMPARE(controlCenter->applyModifications(), restart);
    }

    void pageButtonsFollowTheDrawer()
    {
        TestHost host(Host::StandAlone);
        ZelControlCenter* controlCenter = host.controlCenter();
        TestPage a(&host.application(), "A"), b(&host.application(), "B"), c(&host.application(), "C");
        for (TestPage* page : {&a, &b, &c}) {
            page->setMinimumHeight(500);
            controlCenter->registerSettingsPanel(page);
        }
        controlCenter->openMenu(true);
        controlCenter->openSettings();
        finishSlides(controlCenter);
        const QScrollBar* scrollBar = static_cast<QScrollArea*>(controlCenter->settingsWidget())->verticalScrollBar();
        const QWidget* content = part(controlCenter->settingsWidget(), "settingsContent");
        QTRY_VERIFY(scrollBar->maximum() > b.mapTo(content, QPoint()).y());

        // A page button scrolls its page to the top of the drawer, or as far as it goes.
        b.getActionWidget()->click();
        finishSlides(controlCenter);
        QCOMPARE(scrollBar->value(), b.mapTo(content, QPoint()).y());
        QVERIFY(b.getActionWidget()->isChecked() && !a.getActionWidget()->isChecked());
        c.getActionWidget()->click();
        finishSlides(controlCenter);
        QCOMPARE(scrollBar->value(), scrollBar->maximum());

        // Scrolling by hand checks the page at the top.
        static_cast<QScrollArea*>(controlCenter->settingsWidget())->verticalScrollBar()->setValue(0);
        QVERIFY(a.getActionWidget()->isChecked() && !c.getActionWidget()->isChecked());
    }

    void itemMirrorsItsAction()
    {
        TestHost host(Host::StandAlone);
        zelAction action("Open", "Open...");
        action.setShortcut(QKeySequence(Qt::CTRL | Qt::Key_O));
        action.setStatusTip("Opens a model");
        host.controlCenter()->registerCCAction(&action, QString(), true, false, false);
        ZelCCActionItem* item = itemOf(host.controlCenter(), &action);
        auto* button = part<QPushButton>(item, "actionButton");
        const auto* shortcut = part<QLabel>(item, "shortcut");
        QVERIFY(item->isWorkflowSpecific());
        QCOMPARE(button->text(), "Open...");
        QCOMPARE(shortcut->text(), QKeySequence(Qt::CTRL | Qt::Key_O).toString(QKeySequence::NativeText));
        QVERIFY(!shortcut->isHidden());
        QCOMPARE(item->statusTip(), "Opens a model");

        action.setActionGuiName("Open a model");
        action.setShortcut(QKeySequence());
        action.setEnabled(false);
        QCOMPARE(button->text(), "Open a model");
        QVERIFY(shortcut->isHidden() && !button->isEnabled());
        action.setVisible(false);
        QVERIFY(item->isHidden());

        action.setVisible(true);
        action.setEnabled(true);
        const QSignalSpy triggered(&action, &QAction::triggered);
        button->click();
        QCOMPARE(triggered.count(), 1);
    }

    void anchorsPlaceItemsAndSeparators()
    {
        TestHost host(Host::StandAlone);
        ZelControlCenter* controlCenter = host.controlCenter();
        QCOMPARE(column(controlCenter), QStringList{"Settings"});
        QCOMPARE(controlCenter->findChild<ZelCCActionItem*>()->statusTip(), "Changes the settings of the application");

        const auto a = makeAction("A"), b = makeAction("B"), c = makeAction("C"), d = makeAction("D"),
                   e = makeAction("E"), never = makeAction("Never");
        controlCenter->registerCCAction(a.get(), QString(), false, false, false);
        controlCenter->registerCCAction(b.get(), QString(), false, false, false);
        controlCenter->registerCCAction(c.get(), "A", false, true, false);
        controlCenter->registerCCAction(d.get(), "A", false, false, false);
        controlCenter->registerCCAction(e.get(), "missing", false, true, false);
        QCOMPARE(column(controlCenter), QStringList({"B", "D", "A", "C", "Settings", "E"}));

        QVERIFY(controlCenter->addCCSeparator("Settings", "tools"));
        QVERIFY(controlCenter->addCCSeparator(QString(), "top"));
        QVERIFY(controlCenter->addCCSeparator("missing", "bottom"));
        QVERIFY(!controlCenter->addCCSeparator("A", "tools"));
        QCOMPARE(column(controlCenter), QStringList({"-", "B", "D", "A", "C", "-", "Settings", "E", "-"}));
        QVERIFY(!controlCenter->setCCSeparatorVisible("unknown", false));
        QVERIFY(controlCenter->setCCSeparatorVisible("top", false));
        QVERIFY(part(controlCenter, "actionFrame")->layout()->itemAt(0)->widget()->isHidden());

        controlCenter->unregisterCCAction(never.get());
        controlCenter->unregisterCCAction(d.get());
        QCOMPARE(column(controlCenter), QStringList({"-", "B", "A", "C", "-", "Settings", "E", "-"}));
    }

    void interfaceColor()
    {
        TestHost host(Host::StandAlone);
        ZelControlCenter* controlCenter = host.controlCenter();
        const auto pixmapFile = [this](const QString& name, Qt::GlobalColor color) {
            QPixmap pixmap(8, 8);
            pixmap.fill(color);
            pixmap.save(m_home.tempPath() + '/' + name);
            return m_home.tempPath() + '/' + name;
        };
        const QString on = pixmapFile("on.png", Qt::red), off = pixmapFile("off.png", Qt::blue);

        controlCenter->setInterfaceColor(QColor(10, 20, 30, 128), on, off);
        QCOMPARE(part(controlCenter, "actionFrame")->styleSheet(), "#actionFrame{ background-color:rgb(10,20,30);}");

        // The icons go to the external button once there is one.
        QPushButton external;
        controlCenter->setControlCenterButton(&external);
        QVERIFY(external.icon().isNull());
        controlCenter->setInterfaceColor(QColor(200, 0, 255), on, off);
        QCOMPARE(part(controlCenter, "actionFrame")->styleSheet(), "#actionFrame{ background-color:rgb(200,0,255);}");
        QCOMPARE(external.iconSize(), QSize(40, 40));
        const auto pixel = [&](QIcon::State state) {
            return external.icon().pixmap(QSize(8, 8), QIcon::Normal, state).toImage().pixelColor(4, 4);
        };
        QCOMPARE(pixel(QIcon::On), QColor(Qt::red));
        QCOMPARE(pixel(QIcon::Off), QColor(Qt::blue));
    }

    void lifetimesInEveryOrder()
    {
        // The control center goes first: pages come back alive, actions stay usable.
        {
            TestHost host(Host::StandAlone);
            auto page = std::make_unique<TestPage>(&host.application(), "A");
            const auto action = makeAction("Kept");
            host.controlCenter()->registerSettingsPanel(page.get());
            host.controlCenter()->registerCCAction(action.get(), QString(), false, false, true);
            host.destroyControlCenter();
            QVERIFY(!page->parentWidget() && !page->getActionWidget()->parentWidget());
            action->trigger();
        }
        // A page or an action goes first: it drops out.
        {
            TestHost host(Host::StandAlone);
            ZelControlCenter* controlCenter = host.controlCenter();
            QStringList journal;
            TestPage kept(&host.application(), "Kept", &journal);
            auto gone = std::make_unique<TestPage>(&host.application(), "Gone", &journal);
            controlCenter->registerSettingsPanel(gone.get());
            controlCenter->registerSettingsPanel(&kept);
            gone->setModified(true);
            gone.reset();
            QCOMPARE(controlCenter->settingsPanels(), Pages{&kept});
            QVERIFY(!part(controlCenter, "applyButton")->isEnabled());
            journal.clear();
            controlCenter->applyModifications();
            QCOMPARE(journal, QStringList{"Kept.applyModifications"});

            auto action = makeAction("Gone");
            controlCenter->registerCCAction(action.get(), QString(), false, false, true);
            action.reset();
            QCOMPARE(column(controlCenter), QStringList{"Settings"});
        }
        // The host deletes the drawer, and the page in it, before the control center.
        {
            FakeApplication application(Host::StandAlone);
            auto frame = std::make_unique<QWidget>();
            auto* layout = new QHBoxLayout(frame.get());
            auto* controlCenter = new ZelControlCenter(&application);
            layout->addWidget(controlCenter->settingsWidget());
            layout->addWidget(controlCenter);
            const QPointer<TestPage> page = new TestPage(&application, "A");
            controlCenter->registerSettingsPanel(page);
            frame.reset();
            QVERIFY(page.isNull());
        }
    }
};

QTEST_MAIN(TestControlCenter)
#include "tst_controlcenter.moc"
