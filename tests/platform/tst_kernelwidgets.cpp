#include "TestHome.h"

#include "kqMessageBox.h"
#include "kqMovableObject.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFrame>
#include <QMouseEvent>
#include <QTest>
#include <QTimer>

#include <functional>

using namespace zel;

namespace {

// Runs `answer` on the message box as soon as it is up, from inside its event loop.
void answerMessageBox(const std::function<void(QMessageBox*)>& answer)
{
    auto* timer = new QTimer(qApp);
    timer->setInterval(10);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, answer] {
        if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            timer->deleteLater();
            timer->stop();
            answer(box);
            // A failed check inside `answer` must not leave the test waiting forever.
            if (box->isVisible())
                box->reject();
        }
    });
    timer->start();
}

void sendMouse(QWidget* widget, QEvent::Type type, QPoint globalPos, Qt::MouseButton button,
               Qt::MouseButtons buttons)
{
    QMouseEvent event(type, widget->mapFromGlobal(globalPos), globalPos, button, buttons, Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}

} // namespace

class tst_KernelWidgets : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void messageBoxContent();
    void messageBoxAnswer_data();
    void messageBoxAnswer();
    void dragAndDoubleClick();

private:
    TestHome m_home;
};

void tst_KernelWidgets::messageBoxContent()
{
    bool seen = false;
    answerMessageBox([&seen](QMessageBox* box) {
        seen = true;
        QCOMPARE(box->windowTitle(), QStringLiteral("Settings Modification"));
        QCOMPARE(box->text(), QStringLiteral("<b>Restart</b>"));
        QCOMPARE(box->textFormat(), Qt::RichText);
        QVERIFY(box->styleSheet().contains(QLatin1String("QMessageBox")));
        QCOMPARE(box->button(QMessageBox::Yes)->text(), QStringLiteral("Restart now"));
        QVERIFY(!box->button(QMessageBox::Cancel));
        box->button(QMessageBox::No)->click();
    });
    const QMap<QMessageBox::StandardButton, QString> texts {{QMessageBox::Yes, QStringLiteral("Restart now")},
                                                            {QMessageBox::Cancel, QStringLiteral("Not shown")}};
    QCOMPARE(kqMessageBox::ShowMessage(QStringLiteral("Settings Modification"), QStringLiteral("<b>Restart</b>"),
                                       QMessageBox::Yes | QMessageBox::No, nullptr, {}, texts, true),
             QMessageBox::No);
    QVERIFY(seen);
}

void tst_KernelWidgets::messageBoxAnswer_data()
{
    using Box = QMessageBox;
    QTest::addColumn<Box::StandardButtons>("buttons");
    QTest::addColumn<bool>("escape");
    QTest::addColumn<Box::StandardButton>("expected");
    QTest::newRow("escape, cancel") << Box::StandardButtons(Box::Ok | Box::Cancel) << true << Box::Cancel;
    QTest::newRow("escape, ok only") << Box::StandardButtons(Box::Ok) << true << Box::NoButton;
    QTest::newRow("escape, yes/no") << Box::StandardButtons(Box::Yes | Box::No) << true << Box::NoButton;
    QTest::newRow("close, cancel") << Box::StandardButtons(Box::Ok | Box::Cancel) << false << Box::Cancel;
    QTest::newRow("close, ok only") << Box::StandardButtons(Box::Ok) << false << Box::NoButton;
}

void tst_KernelWidgets::messageBoxAnswer()
{
    QFETCH(QMessageBox::StandardButtons, buttons);
    QFETCH(bool, escape);
    QFETCH(QMessageBox::StandardButton, expected);

    answerMessageBox([escape](QMessageBox* box) {
        QCOMPARE(box->textFormat(), Qt::PlainText);
        if (escape)
            QTest::keyClick(box, Qt::Key_Escape);
        else
            box->close();
    });
    QCOMPARE(kqMessageBox::ShowMessage(QStringLiteral("Title"), QStringLiteral("<b>Text</b>"), buttons, nullptr, {},
                                       {}, false),
             expected);
}

void tst_KernelWidgets::dragAndDoubleClick()
{
    QWidget window(nullptr, Qt::FramelessWindowHint);
    window.setGeometry(100, 100, 300, 200);
    auto* header = new QFrame(&window);
    header->setGeometry(0, 0, 300, 30);
    auto* mover = new kq::kqMovableObject(&window);
    mover->setAnchorObject(header, &window);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));

    const QPoint start = window.pos();
    const QPoint grip = header->mapToGlobal(QPoint(10, 10));
    sendMouse(header, QEvent::MouseButtonPress, grip, Qt::LeftButton, Qt::LeftButton);
    sendMouse(header, QEvent::MouseMove, grip + QPoint(40, -25), Qt::NoButton, Qt::LeftButton);
    QCOMPARE(window.pos(), start + QPoint(40, -25));
    sendMouse(header, QEvent::MouseButtonRelease, grip, Qt::LeftButton, Qt::NoButton);

    // Once released, or dragged by the window rather than the anchor, it stays.
    const QPoint elsewhere = window.mapToGlobal(QPoint(10, 100));
    sendMouse(header, QEvent::MouseMove, grip + QPoint(80, 80), Qt::NoButton, Qt::NoButton);
    sendMouse(&window, QEvent::MouseButtonPress, elsewhere, Qt::LeftButton, Qt::LeftButton);
    sendMouse(&window, QEvent::MouseMove, elsewhere + QPoint(80, 80), Qt::NoButton, Qt::LeftButton);
    QCOMPARE(window.pos(), start + QPoint(40, -25));

    sendMouse(header, QEvent::MouseButtonDblClick, grip, Qt::LeftButton, Qt::LeftButton);
    QVERIFY(!window.isMaximized());
    mover->setExpandOnDlbClick(true);
    sendMouse(header, QEvent::MouseButtonDblClick, grip, Qt::LeftButton, Qt::LeftButton);
    QTRY_VERIFY(window.isMaximized());
    sendMouse(header, QEvent::MouseButtonDblClick, grip, Qt::LeftButton, Qt::LeftButton);
    QTRY_VERIFY(!window.isMaximized());
}

QTEST_MAIN(tst_KernelWidgets)
#include "tst_kernelwidgets.moc"
