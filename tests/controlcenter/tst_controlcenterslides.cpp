#include "ControlCenterFakes.h"
#include "TestHome.h"
#include "TestInput.h"
#include "ZelCCActionItem.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QLabel>
#include <QResizeEvent>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>

// The widths a widget was given, in order.
struct WidthLog : QObject {
    explicit WidthLog(QWidget* widget) { widget->installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Resize)
            widths.append(static_cast<QResizeEvent*>(event)->size().width());
        return false;
    }
    QList<int> widths;
};

// How long after a counted press or a resize another press is ignored. Nothing marks its end.
static constexpr int ClickGuard = 500;

class TestControlCenterSlides : public QObject
{
    Q_OBJECT

    TestHome m_home;

private Q_SLOTS:
    void menuSlidesOpenAndClosed()
    {
        TestHost host(Host::Viewer);
        ZelControlCenter* cc = host.cc;
        QPushButton external;
        external.setCheckable(true);
        cc->setControlCenterButton(&external);
        QVERIFY(!cc->isMenuOpen() && !cc->isVisible());

        cc->openMenu(true);
        QVERIFY(external.isChecked() && !host.app.engineUpdates.back() && finishSlides(cc));
        QVERIFY(cc->isMenuOpen() && cc->isVisible() && host.app.engineRuns());

        // Already open: done at once.
        cc->openMenu(true);
        QVERIFY(!finishSlides(cc) && cc->isMenuOpen() && host.app.engineRuns());

        // Turned around halfway, the running slide goes back; then it closes.
        cc->openMenu(false);
        cc->openMenu(true);
        QVERIFY(finishSlides(cc) && cc->isMenuOpen());
        slideMenu(cc, false);
        QVERIFY(!cc->isMenuOpen() && !cc->isVisible() && !external.isChecked() && host.app.engineRuns());

        // Destroyed halfway: the slide never finishes, the engine runs again all the same.
        cc->openMenu(true);
        delete host.cc;
        QVERIFY(host.app.engineRuns());
    }

    void drawerSwapsWithTheMenuAndScrollsToPages()
    {
        TestHost host(Host::Viewer);
        ZelControlCenter* cc = host.cc;
        TestPage a(&host.app, "A"), b(&host.app, "B"), c(&host.app, "C");
        for (TestPage* page : {&a, &b, &c}) {
            page->setMinimumHeight(500);
            cc->registerSettingsPanel(page);
        }
        slideMenu(cc);
        a.calls.clear();
        auto* settingsButton = part<QPushButton>(cc->findChild<zel::ZelCCActionItem*>(), "actionButton");
        auto* headerButton = part<QPushButton>(cc, "controlCenterButton");

        // Settings keeps the menu open and swaps its column for the drawer, reloading the pages.
        QVERIFY(press(cc, settingsButton));
        QVERIFY(part(cc, "actionFrame")->isHidden());
        QCOMPARE(a.calls, QStringList({"A.initializeWidget", "A.hasModifications", "A.canResetContent"}));
        QVERIFY(cc->isSettingsOpen());
        QVERIFY(cc->isMenuOpen());
        QVERIFY(a.getActionWidget()->isChecked());

        // A page button scrolls its page to where the first page sits, or as far as it goes,
        // and stays checked; scrolling by hand checks the page at the top.
        QScrollBar* scrollBar = part<QScrollArea>(cc->settingsWidget(), "settingsScrollArea")->verticalScrollBar();
        const QWidget* content = part(cc->settingsWidget(), "settingsContent");
        QTRY_VERIFY(scrollBar->maximum() > b.mapTo(content, QPoint()).y());
        QVERIFY(press(cc, b.getActionWidget()));
        QCOMPARE(scrollBar->value(), b.mapTo(content, QPoint()).y() - a.mapTo(content, QPoint()).y());
        QVERIFY(press(cc, c.getActionWidget()));
        QCOMPARE(scrollBar->value(), scrollBar->maximum());
        QVERIFY(c.getActionWidget()->isChecked());
        scrollBar->setValue(0);
        QVERIFY(a.getActionWidget()->isChecked());
        QVERIFY(!c.getActionWidget()->isChecked());
        // The top falling between two pages, the one below is the one in sight.
        const int aEnds = a.mapTo(content, QPoint(0, a.height())).y(), bStarts = b.mapTo(content, QPoint()).y();
        QVERIFY(bStarts > aEnds);
        scrollBar->setValue(bStarts - 11);
        QVERIFY(b.getActionWidget()->isChecked());

        // The drawer's header closes the drawer only; the menu comes back.
        QVERIFY(press(cc, headerButton));
        QVERIFY(!cc->isSettingsOpen());
        QVERIFY(cc->isMenuOpen());
        QVERIFY(cc->settingsWidget()->isHidden());
        QVERIFY(part(cc, "preferenceFrame")->isHidden());
        QVERIFY(!part(cc, "actionFrame")->isHidden());

        // Reopened from closed the pages reload; the viewer's own settings command closes it.
        QVERIFY(press(cc, settingsButton));
        QCOMPARE(a.calls.count("A.initializeWidget"), 2);
        cc->openSettings();
        finishSlides(cc);
        QVERIFY(!cc->isSettingsOpen());
        QVERIFY(!part(cc, "actionFrame")->isHidden());

        // Closing the menu closes the drawer with it.
        QVERIFY(press(cc, settingsButton));
        slideMenu(cc, false);
        QVERIFY(!cc->isSettingsOpen());
        QVERIFY(cc->settingsWidget()->isHidden());
        QVERIFY(host.app.engineRuns());
    }

    // Laid out again at every step of the slide, wrapped texts cost more than a frame: the
    // pages keep the open drawer's width while it slides, and follow a width set by hand.
    void pagesKeepTheirWidthWhileTheDrawerSlides()
    {
        TestHost host(Host::Viewer);
        ZelControlCenter* cc = host.cc;
        TestPage page(&host.app, "A");
        cc->registerSettingsPanel(&page);
        slideMenu(cc);
        const QWidget* content = part(cc->settingsWidget(), "settingsContent");

        cc->openSettings();
        const int openWidth = content->minimumWidth();
        QVERIFY(cc->settingsWidth() < openWidth && content->maximumWidth() == openWidth);
        finishSlides(cc);
        QCOMPARE(content->minimumWidth(), openWidth);

        cc->setSettingsWidth(200);
        QVERIFY(content->minimumWidth() <= 200 && content->maximumWidth() == content->minimumWidth());
    }

    // A page registered into the closed drawer is laid out when the drawer opens, at the
    // width it keeps; one registered into the open drawer is on screen at once.
    void pagesShowWithTheDrawer()
    {
        TestHost host(Host::Viewer);
        ZelControlCenter* cc = host.cc;
        TestPage early(&host.app, "A");
        auto* text = new QLabel(QStringLiteral("Laid out where it shows"), &early);
        (new QVBoxLayout(&early))->addWidget(text);
        const WidthLog log(text);
        cc->registerSettingsPanel(&early);
        QVERIFY(!text->testAttribute(Qt::WA_WState_Polished));

        slideMenu(cc);
        cc->openSettings();
        finishSlides(cc);
        QVERIFY(early.isVisible());
        QCOMPARE(log.widths.value(0), text->width());

        TestPage late(&host.app, "B");
        cc->registerSettingsPanel(&late);
        QVERIFY(late.isVisible());
    }

    void closingWithPendingEdits_data()
    {
        QTest::addColumn<Host>("kind");
        QTest::addColumn<QMessageBox::StandardButton>("answer");
        QTest::newRow("viewer, Ok") << Host::Viewer << QMessageBox::Ok;
        QTest::newRow("viewer, Cancel") << Host::Viewer << QMessageBox::Cancel;
        QTest::newRow("stand-alone") << Host::StandAlone << QMessageBox::Cancel;
    }

    void closingWithPendingEdits()
    {
        QFETCH(Host, kind);
        QFETCH(QMessageBox::StandardButton, answer);
        TestHost host(kind);
        TestPage page(&host.app, "A");
        host.cc->registerSettingsPanel(&page);
        slideMenu(host.cc);
        host.cc->openSettings();
        finishSlides(host.cc);
        page.setModified(true);
        page.calls.clear();

        const BoxAnswerer answerer(answer);
        slideMenu(host.cc, false);
        const bool asked = kind == Host::Viewer;
        const QString question = "Settings Modification: You have pending modifications. Continue and discard "
                                 "your changes ?";
        QCOMPARE(answerer.seen, asked ? QStringList{question} : QStringList());
        const bool discarded = !asked || answer == QMessageBox::Ok;
        // A refused close leaves menu, drawer and edits as they were.
        QCOMPARE(host.cc->isMenuOpen(), !discarded);
        QCOMPARE(host.cc->isSettingsOpen(), !discarded);
        QCOMPARE(page.calls.contains("A.initializeWidget"), discarded);
        QCOMPARE(page.hasModifications(), !discarded);
        QVERIFY(host.app.engineRuns());
    }

    void pressesOnTheView()
    {
        TestHost host(Host::Viewer);
        ZelControlCenter* cc = host.cc;
        TestPage page(&host.app, "A");
        cc->registerSettingsPanel(&page);
        slideMenu(cc);
        page.setModified(true);
        const BoxAnswerer answerer(QMessageBox::Cancel);

        // A press on the view counts once per guard: with pending edits it asks, Cancel keeps both.
        QTRY_VERIFY((press(cc, host.view), !answerer.seen.isEmpty()));
        press(cc, host.view);
        QVERIFY(cc->isMenuOpen() && page.hasModifications() && answerer.seen.size() == 1);

        // Past the guard, a press outside the view counts for nothing; a resize of anything
        // restarts the guard.
        QTest::qWait(ClickGuard + 50);
        press(cc, cc);
        QTest::qWait(ClickGuard + 50);
        QObject anything;
        QResizeEvent resize(QSize(1, 1), QSize());
        QCoreApplication::sendEvent(&anything, &resize);
        press(cc, host.view);
        QVERIFY(cc->isMenuOpen() && answerer.seen.size() == 1);

        // With a GUI handler, only presses on widgets inside it count.
        page.setModified(false);
        QWidget elsewhere;
        cc->setGUIHandler(&elsewhere);
        QTest::qWait(ClickGuard + 50);
        press(cc, host.view);
        QVERIFY(cc->isMenuOpen());
        cc->setGUIHandler(&host.window);

        // Without pending edits the first counted press on the view closes.
        QTRY_VERIFY((press(cc, host.view), !cc->isMenuOpen()));
        QVERIFY(host.app.engineRuns());
    }

    void pressesOnWindowsOverTheView_data()
    {
        QTest::addColumn<bool>("handler");
        QTest::newRow("no GUI handler") << false;
        QTest::newRow("GUI handler") << true;
    }

    void pressesOnWindowsOverTheView()
    {
        QFETCH(bool, handler);
        TestHost host(Host::Viewer);
        ZelControlCenter* cc = host.cc;
        if (handler)
            cc->setGUIHandler(&host.window);
        slideMenu(cc);

        // A combo box's popup list and a tool window, both lying over the view.
        QComboBox combo(host.view);
        combo.addItems({"Millimetre", "Centimetre", "Metre"});
        combo.move(20, 20);
        combo.show();
        QWidget tool(&host.window, Qt::Tool);
        tool.setGeometry(QRect(host.view->mapToGlobal(QPoint(200, 200)), QSize(120, 80)));
        tool.show();
        QVERIFY(QTest::qWaitForWindowExposed(&tool));

        combo.showPopup();
        QWidget* list = combo.view()->viewport();
        QTRY_VERIFY(list->isVisible());
        QTest::qWait(ClickGuard + 50);
        click(list, combo.view()->visualRect(combo.model()->index(2, 0)).center());
        finishSlides(cc);
        QCOMPARE(combo.currentIndex(), 2);
        QVERIFY(cc->isMenuOpen());

        QTest::qWait(ClickGuard + 50);
        click(&tool);
        finishSlides(cc);
        QVERIFY(cc->isMenuOpen());

        // The view itself, under the same conditions, closes the menu.
        QTest::qWait(ClickGuard + 50);
        click(host.view, QPoint(400, 400));
        finishSlides(cc);
        QVERIFY(!cc->isMenuOpen());
    }
};

QTEST_MAIN(TestControlCenterSlides)
#include "tst_controlcenterslides.moc"
