// The renderer selector as a user drives it: presses and releases through its window,
// keys, and a drag of its title.

#include "TestHome.h"
#include "TestInput.h"
#include "ZelRendererSelector.h"

#include <QLabel>
#include <QPushButton>
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
    void formIsTheDesignedOne()
    {
        ZelRendererSelector selector;
        QCOMPARE(selector.size(), QSize(517, 262));
        QVERIFY(selector.windowFlags() & Qt::FramelessWindowHint);
        QCOMPARE(selector.windowTitle(), QStringLiteral("Torvane - Please select your display type"));
        QVERIFY(selector.useGPURenderer());
        const auto frames = selector.findChildren<QFrame*>(QRegularExpression(QStringLiteral("^Frame[A-Z]+$")));
        QCOMPARE(frames.size(), 20);
        // Every glow frame shows an image that the resources really hold.
        for (const QFrame* frame : frames) {
            const QString image = QStringLiteral(":/glow/Glow/%1.png").arg(frame->objectName().mid(5));
            QVERIFY2(QFile::exists(image), qPrintable(image));
        }
        QVERIFY(QFile::exists(QStringLiteral(":/menu/Menu/point.png")));
    }

    void onlyAReleaseOnTheOtherEngineSwitches()
    {
        ZelRendererSelector selector;
        show(selector);
        QWindow* window = selector.windowHandle();

        QCOMPARE(shade(selector, "deferredButton"), QColor(69, 183, 150));
        QCOMPARE(shade(selector, "raytracerButton"), QColor(197, 163, 204));
        QTest::mousePress(window, Qt::LeftButton, {}, centreOf(selector, "raytracerButton"));
        QVERIFY(selector.useGPURenderer());
        QTest::mouseRelease(window, Qt::LeftButton, {}, centreOf(selector, "raytracerButton"));
        QVERIFY(!selector.useGPURenderer());
        // The user sees the choice.
        QCOMPARE(shade(selector, "raytracerButton"), QColor(186, 104, 204));
        QCOMPARE(shade(selector, "deferredButton"), QColor(129, 184, 168));

        // A second click on the chosen engine changes nothing.
        click(child(selector, "raytracerButton"));
        QVERIFY(!selector.useGPURenderer());

        click(child(selector, "deferredButton"));
        QVERIFY(selector.useGPURenderer());
        // The highlight rules stay unused: the dialog never sets "raytracer".
        QVERIFY(!selector.property("raytracer").isValid());
    }

    void okAndReturnAcceptCloseAndEscapeReject_data()
    {
        QTest::addColumn<QString>("answer");
        QTest::addColumn<int>("result");
        QTest::newRow("Ok") << QStringLiteral("okButton") << int(QDialog::Accepted);
        QTest::newRow("Return") << QStringLiteral("Return") << int(QDialog::Accepted);
        QTest::newRow("close") << QStringLiteral("closeButton") << int(QDialog::Rejected);
        QTest::newRow("Escape") << QStringLiteral("Escape") << int(QDialog::Rejected);
    }

    void okAndReturnAcceptCloseAndEscapeReject()
    {
        QFETCH(QString, answer);
        QFETCH(int, result);
        ZelRendererSelector selector;
        selector.setResult(-1);
        show(selector);
        click(child(selector, "raytracerButton"));
        if (answer == QLatin1String("Return"))
            QTest::keyClick(selector.windowHandle(), Qt::Key_Return);
        else if (answer == QLatin1String("Escape"))
            QTest::keyClick(selector.windowHandle(), Qt::Key_Escape);
        else
            click(child(selector, answer.toLatin1().constData()));
        QCOMPARE(selector.result(), result);
        QVERIFY(!selector.isVisible());
        // The choice is still readable; the caller ignores it on a rejection.
        QVERIFY(!selector.useGPURenderer());
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
