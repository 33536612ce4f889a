#include "TestHome.h"

#include "TestHost.h"
#include "TestPage.h"
#include "ZelCCActionItem.h"
#include "ZelControlCenter.h"

#include <QElapsedTimer>
#include <QPropertyAnimation>
#include <QPushButton>
#include <QResizeEvent>
#include <QTest>

using zel::ZelControlCenter;
using Host = FakeApplication::Host;

namespace {

// How long after a counted press or a resize another press is ignored. Nothing marks
// its end, so the tests that need it over wait a little longer.
constexpr int ClickGuard = 500;

bool sliding(const ZelControlCenter* controlCenter)
{
    const auto animations = controlCenter->findChildren<QPropertyAnimation*>();
    return std::any_of(animations.cbegin(), animations.cend(), [](const QPropertyAnimation* animation) {
        return animation->state() == QAbstractAnimation::Running;
    });
}

void openMenu(ZelControlCenter* controlCenter)
{
    controlCenter->openMenu(true);
    finishSlides(controlCenter);
}

} // namespace

class TestControlCenterSlides : public QObject
{
    Q_OBJECT

    TestHome m_home;

private Q_SLOTS:
    void menuSlidesOpenAndClosed()
    {
        TestHost host(Host::Viewer);
        ZelControlCenter* controlCenter = host.controlCenter();
        QPushButton external;
        external.setCheckable(true);
        controlCenter->setControlCenterButton(&external);
        QVERIFY(!controlCenter->isMenuOpen() && !controlCenter->isVisible());

        controlCenter->openMenu(true);
        QVERIFY(sliding(controlCenter) && external.isChecked());
        QCOMPARE(host.application().engineUpdates().back(), false);
        finishSlides(controlCenter);
        QVERIFY(controlCenter->isMenuOpen() && controlCenter->isVisible());
        QCOMPARE(controlCenter->controlCenterWidth(), 250);
        QVERIFY(host.application().engineUpdatesBalanced());

        // Already open: done at once.
        controlCenter->openMenu(true);
        QVERIFY(!sliding(controlCenter) && controlCenter->isMenuOpen());
        QVERIFY(host.application().engineUpdatesBalanced());

        // Turned around halfway, the slide ends closed.
        controlCenter->openMenu(false);
        controlCenter->openMenu(true);
        controlCenter->openMenu(false);
        finishSlides(controlCenter);
        QVERIFY(!controlCenter->isMenuOpen() && !controlCenter->isVisible() && !external.isChecked());
        QVERIFY(host.application().engineUpdatesBalanced());

        // Destroyed halfway: the slide never finishes, the engine runs again all the same.
        controlCenter->openMenu(true);
        host.destroyControlCenter();
        QVERIFY(host.application().engineUpdatesBalanced());
    }

    void settingsActionSwapsMenuAndDrawer()
    {
        TestHost host(Host::Viewer);
        ZelControlCenter* controlCenter = host.controlCenter();
        TestPage page(&host.application(), "A");
        controlCenter->registerSettingsPanel(&page);
        openMenu(controlCenter);
        page.clearCalls();

        const auto* settingsItem = controlCenter->findChild<zel::ZelCCActionItem*>();
        part<QPushButton>(settingsItem, "actionButton")->click();
        QVERIFY(sliding(controlCenter) && part(controlCenter, "actionFrame")->isHidden());
        QCOMPARE(page.calls(), QStringList({"A.initializeWidget", "A.hasModifications", "A.canResetContent"}));
        finishSlides(controlCenter);
        QVERIFY(controlCenter->isSettingsOpen() && controlCenter->isMenuOpen());
        QCOMPARE(controlCenter->settingsWidth(), 450);

        // Settings again closes the drawer only; the menu comes back.
        controlCenter->openSettings();
        finishSlides(controlCenter);
        QVERIFY(!controlCenter->isSettingsOpen() && controlCenter->isMenuOpen());
        QVERIFY(controlCenter->settingsWidget()->isHidden() && part(controlCenter, "preferenceFrame")->isHidden());
        QVERIFY(!part(controlCenter, "actionFrame")->isHidden());

        // Reopened from closed the pages reload; the drawer's header closes it again.
        controlCenter->openSettings();
        finishSlides(controlCenter);
        QCOMPARE(page.calls().count("A.initializeWidget"), 2);
        part<QPushButton>(controlCenter, "controlCenterButton")->click();
        finishSlides(controlCenter);
        QVERIFY(!controlCenter->isSettingsOpen() && !part(controlCenter, "actionFrame")->isHidden());

        // Closing the menu closes the drawer with it.
        controlCenter->openSettings();
        finishSlides(controlCenter);
        controlCenter->openMenu(false);
        finishSlides(controlCenter);
        QVERIFY(!controlCenter->isSettingsOpen() && controlCenter->settingsWidget()->isHidden());
        QVERIFY(host.application().engineUpdatesBalanced());
    }

    void closingWithPendingEdits_data()
    {
        QTest::addColumn<Host>("host");
        QTest::addColumn<QMessageBox::StandardButton>("answer");
        QTest::newRow("viewer, Ok") << Host::Viewer << QMessageBox::Ok;
        QTest::newRow("viewer, Cancel") << Host::Viewer << QMessageBox::Cancel;
        QTest::newRow("stand-alone") << Host::StandAlone << QMessageBox::Cancel;
    }

    void closingWithPendingEdits()
    {
        QFETCH(Host, host);
        QFETCH(QMessageBox::StandardButton, answer);
        TestHost testHost(host);
        ZelControlCenter* controlCenter = testHost.controlCenter();
        TestPage page(&testHost.application(), "A");
        controlCenter->registerSettingsPanel(&page);
        openMenu(controlCenter);
        controlCenter->openSettings();
        finishSlides(controlCenter);
        page.setModified(true);
        page.clearCalls();

        const MessageBoxAnswerer answerer(answer);
        controlCenter->openMenu(false);
        finishSlides(controlCenter);
        const bool asked = host == Host::Viewer;
        QCOMPARE(answerer.titles(), asked ? QStringList{"Settings Modification"} : QStringList());
        QCOMPARE(answerer.texts(),
                 asked ? QStringList{"You have pending modifications. Continue and discard your changes ?"}
                       : QStringList());
        const bool discarded = !asked || answer == QMessageBox::Ok;
        QCOMPARE(controlCenter->isMenuOpen(), !discarded);
        QCOMPARE(page.calls().contains("A.initializeWidget"), discarded);
        QVERIFY(testHost.application().engineUpdatesBalanced());
    }

    void pressesOnTheView()
    {
        TestHost host(Host::Viewer);
        ZelControlCenter* controlCenter = host.controlCenter();
        TestPage page(&host.application(), "A");
        controlCenter->registerSettingsPanel(&page);
        openMenu(controlCenter);
        const auto pressView = [&] {
            QTest::mousePress(host.mainView(), Qt::LeftButton, {}, QPoint(20, 20));
            finishSlides(controlCenter);
        };

        // No press closes within the guard after a resize of anything.
        QObject anything;
        QResizeEvent resize(QSize(1, 1), QSize());
        QCoreApplication::sendEvent(&anything, &resize);
        QElapsedTimer sinceResize;
        sinceResize.start();
        pressView();
        QVERIFY(controlCenter->isMenuOpen());
        QTRY_VERIFY((pressView(), !controlCenter->isMenuOpen()));
        QVERIFY(sinceResize.elapsed() >= ClickGuard);
        QVERIFY(host.application().engineUpdatesBalanced());

        // Pending edits: the question decides.
        openMenu(controlCenter);
        page.setModified(true);
        {
            const MessageBoxAnswerer cancel(QMessageBox::Cancel);
            QTRY_VERIFY((pressView(), !cancel.texts().isEmpty()));
        }
        QVERIFY(controlCenter->isMenuOpen() && page.hasModifications());
        const MessageBoxAnswerer ok(QMessageBox::Ok);
        QTRY_VERIFY((pressView(), !controlCenter->isMenuOpen()));
        QVERIFY(!page.hasModifications() && host.application().engineUpdatesBalanced());

        // Outside the view a press counts for nothing, yet it restarts the guard.
        openMenu(controlCenter);
        QTest::qWait(ClickGuard + 100);
        QTest::mousePress(controlCenter, Qt::LeftButton, {}, QPoint(5, 5));
        pressView();
        QVERIFY(controlCenter->isMenuOpen());
        // On the view, but not under the GUI handler: the same.
        QWidget elsewhere;
        controlCenter->setGUIHandler(&elsewhere);
        QTest::qWait(ClickGuard + 100);
        pressView();
        QVERIFY(controlCenter->isMenuOpen());
        controlCenter->setGUIHandler(host.window());
        QTRY_VERIFY((pressView(), !controlCenter->isMenuOpen()));
    }
};

QTEST_MAIN(TestControlCenterSlides)
#include "tst_controlcenterslides.moc"
