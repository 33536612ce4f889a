#include "TestHome.h"

#include "zelDoubleSpinBox.h"
#include "zelSpinBox.h"

#include <QApplication>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QSpontaneKeyEvent>
#include <QTest>
#include <QVBoxLayout>

using namespace zel;

namespace {

// Delivers one wheel notch the way the platform does: to the widget under the pointer,
// spontaneous, so that QApplication passes an ignored event on to the parents.
void turnWheelDown(QAbstractSpinBox* box)
{
    QWidget* target = box->childAt(box->rect().center());
    if (!target)
        target = box;
    const QPointF local = target->rect().center();
    QWheelEvent event(local, target->mapToGlobal(local), QPoint(), QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&event);
    QApplication::instance()->notify(target, &event);
}

} // namespace

class tst_ZelSpinBox : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void wheelNeedsFocus_data();
    void wheelNeedsFocus();

private:
    TestHome m_home;
};

void tst_ZelSpinBox::wheelNeedsFocus_data()
{
    QTest::addColumn<bool>("floating");
    QTest::newRow("zelSpinBox") << false;
    QTest::newRow("zelDoubleSpinBox") << true;
}

void tst_ZelSpinBox::wheelNeedsFocus()
{
    QFETCH(bool, floating);

    QScrollArea scrollArea;
    scrollArea.resize(240, 160);
    auto* page = new QWidget;
    page->setMinimumHeight(2000);
    auto* layout = new QVBoxLayout(page);
    QAbstractSpinBox* box = floating ? static_cast<QAbstractSpinBox*>(new zelDoubleSpinBox) : new zelSpinBox;
    box->setProperty("value", 50);
    QCOMPARE(box->focusPolicy(), Qt::StrongFocus);
    auto* next = new QLineEdit;
    layout->addWidget(box);
    layout->addWidget(next);
    scrollArea.setWidget(page);
    // Activation would otherwise focus the first field, the box.
    next->setFocus();
    scrollArea.show();
    QVERIFY(QTest::qWaitForWindowActive(&scrollArea));
    const QScrollBar* scrollBar = scrollArea.verticalScrollBar();

    turnWheelDown(box);
    QCOMPARE(box->property("value").toInt(), 50);
    QVERIFY(scrollBar->value() > 0);

    QTest::mouseClick(box, Qt::LeftButton, {}, box->rect().center());
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

QTEST_MAIN(tst_ZelSpinBox)
#include "tst_zelspinbox.moc"
