// The guarded spin boxes: a wheel turned over a field that the user is not editing
// scrolls the page, never changes the value.
#include "TestHome.h"
#include "TestInput.h"
#include "zelDoubleSpinBox.h"
#include "zelSpinBox.h"

#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>

using zel::zelDoubleSpinBox;
using zel::zelSpinBox;

class tst_GuardedSpinBox : public QObject
{
    Q_OBJECT

    TestHome m_home;

private Q_SLOTS:
    void wheelNeedsFocus_data()
    {
        QTest::addColumn<bool>("floating");
        QTest::addColumn<bool>("wheelFocus");
        QTest::newRow("zelSpinBox") << false << false;
        QTest::newRow("zelDoubleSpinBox") << true << false;
        // A form may give the box wheel focus, which would let Qt focus it under the wheel.
        QTest::newRow("wheel focus from a form") << false << true;
    }

    void wheelNeedsFocus()
    {
        QFETCH(bool, floating);
        QFETCH(bool, wheelFocus);
        QScrollArea scrollArea;
        scrollArea.resize(240, 160);
        auto* page = new QWidget;
        page->resize(200, 2000);
        QAbstractSpinBox* box = floating ? static_cast<QAbstractSpinBox*>(new zelDoubleSpinBox(page))
                                         : new zelSpinBox(page);
        box->setProperty("value", 50);
        if (wheelFocus)
            box->setFocusPolicy(Qt::WheelFocus);
        auto* next = new QLineEdit(page);
        next->move(0, 40);
        scrollArea.setWidget(page);
        // Activation would otherwise focus the first field, the box.
        next->setFocus();
        scrollArea.show();
        QVERIFY(QTest::qWaitForWindowActive(&scrollArea));
        const QScrollBar* scrollBar = scrollArea.verticalScrollBar();

        turnWheelDown(box);
        QCOMPARE(box->property("value").toInt(), 50);
        QVERIFY(scrollBar->value() > 0);

        // The user scrolls back and clicks into the box.
        scrollArea.ensureWidgetVisible(box);
        click(box);
        QTRY_VERIFY(box->hasFocus());
        const int scrolled = scrollBar->value();
        turnWheelDown(box);
        QCOMPARE(box->property("value").toInt(), 49);
        QCOMPARE(scrollBar->value(), scrolled);

        QTest::keyClick(box, Qt::Key_Tab);
        QTRY_VERIFY(next->hasFocus());
        // Tabbing scrolls the new field into view, so measure from here.
        const int tabbed = scrollBar->value();
        turnWheelDown(box);
        QCOMPARE(box->property("value").toInt(), 49);
        QVERIFY(scrollBar->value() > tabbed);
    }
};

QTEST_MAIN(tst_GuardedSpinBox)
#include "tst_guardedspinbox.moc"
