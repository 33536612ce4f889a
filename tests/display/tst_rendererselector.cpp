// The renderer selector as a user drives it: presses and releases through its window,
// keys, and a drag of its title.

#include "TestHome.h"
#include "TestInput.h"
#include "ZelRendererSelector.h"

#include <QTest>

using zel::ZelRendererSelector;

class tst_rendererselector : public QObject
{
    Q_OBJECT

private:
    TestHome m_home;

    static QWidget* child(const ZelRendererSelector& selector, const char* name)
    {
        return selector.findChild<QWidget*>(QLatin1String(name));
    }

    static QPoint centreOf(const ZelRendererSelector& selector, const char* name)
    {
        const QWidget* widget = child(selector, name);
        return widget->mapTo(&selector, widget->rect().center());
    }

    // The colour a label shows beside its text: the chosen engine's is the darker one.
    static QColor shade(const ZelRendererSelector& selector, const char* name)
    {
        QWidget* label = child(selector, name);
        return label->grab().toImage().pixelColor(8, label->height() / 2);
    }

    static void show(ZelRendererSelector& selector)
    {
        selector.show();
        QVERIFY(QTest::qWaitForWindowExposed(&selector));
    }

private Q_SLOTS:
    void onlyAReleaseOnTheOtherEngineSwitches()
    {
        ZelRendererSelector selector;
        show(selector);
        QWindow* window = selector.windowHandle();
        QVERIFY(selector.useGPURenderer());
        const QColor gpu = shade(selector, "deferredButton"), software = shade(selector, "raytracerButton");
        QTest::mousePress(window, Qt::LeftButton, {}, centreOf(selector, "raytracerButton"));
        QVERIFY(selector.useGPURenderer());
        QTest::mouseRelease(window, Qt::LeftButton, {}, centreOf(selector, "raytracerButton"));
        QVERIFY(!selector.useGPURenderer());
        // The user sees the choice: the chosen engine's colour is the darker one.
        QVERIFY(shade(selector, "raytracerButton").lightness() < software.lightness());
        QVERIFY(shade(selector, "deferredButton").lightness() > gpu.lightness());

        // A second click on the chosen engine changes nothing.
        click(child(selector, "raytracerButton"));
        QVERIFY(!selector.useGPURenderer());
        click(child(selector, "deferredButton"));
        QVERIFY(selector.useGPURenderer());
    }

    // Return, Ok and Escape are answered by a real start (tst_startup); the close button
    // cancels too.
    void closeRejects()
    {
        ZelRendererSelector selector;
        selector.setResult(-1);
        show(selector);
        click(child(selector, "closeButton"));
        QCOMPARE(selector.result(), int(QDialog::Rejected));
        QVERIFY(!selector.isVisible());
    }

    void draggingTheTitleMovesTheWindow()
    {
        ZelRendererSelector selector;
        selector.move(100, 100);
        show(selector);
        const QPoint start = selector.pos();
        const QPoint grab = centreOf(selector, "titleLabel");
        QTest::mousePress(selector.windowHandle(), Qt::LeftButton, {}, grab);
        QTest::mouseMove(selector.windowHandle(), grab + QPoint(40, 25));
        // The window followed the pointer, which is over the same spot of it again.
        QTest::mouseRelease(selector.windowHandle(), Qt::LeftButton, {}, grab);
        QCOMPARE(selector.pos(), start + QPoint(40, 25));
    }
};

QTEST_MAIN(tst_rendererselector)
#include "tst_rendererselector.moc"
