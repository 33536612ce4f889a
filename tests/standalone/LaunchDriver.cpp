// Runs `launch` as torvane-settings does and answers its windows as a user would, so the
// tests can run the real start-up sequence as a process.
// Usage: launch-driver [ANSWER...] [-- ARGUMENT...]
// Each ANSWER goes, in order, to the next modal dialog, or to the editor window when no
// dialog is open: a key name ("Return", "Escape") is typed into it, "click:NAME" clicks
// its child of that object name, "wait:N" lets N answering turns pass, "notice" reports
// the editor's notice bar as "notice TEXT" (or "notice none"), "shrink" resizes the
// window as small as the user may, "fits" reports "fits yes" when the window lies in the
// screen's available area with every button inside it (or "fits " and why not). Every dialog and window
// seen is reported on standard output as "seen TITLE" (a message box's text as
// "says TEXT", its buttons as "buttons A|B"), and the result of launch as
// "launch returned N".

#include "ZelLaunch.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeySequence>
#include <QTextEdit>
#include <QMessageBox>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSet>
#include <QStringList>
#include <QTest>
#include <QTimer>
#include <QWidget>

#include <cstdio>
#include <vector>

namespace {

QStringList answers;

void report(const QString& line)
{
    std::printf("%s\n", qUtf8Printable(line));
    std::fflush(stdout);
}

QWidget* editorWindow()
{
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->isVisible() && widget->inherits("zel::ZelControlCenterStandAloneWidget"))
            return widget;
    }
    return nullptr;
}

void answerNext()
{
    static QSet<QWidget*> seen;
    QWidget* target = QApplication::activeModalWidget();
    if (!target)
        target = editorWindow();
    if (!target)
        return;
    if (!seen.contains(target)) {
        seen.insert(target);
        report("seen " + target->windowTitle());
        if (const auto* box = qobject_cast<QMessageBox*>(target)) {
            report("says " + box->text().replace('\n', '|'));
            QStringList buttons;
            for (const QAbstractButton* button : box->buttons())
                buttons << button->text().remove('&');
            buttons.sort();
            report("buttons " + buttons.join('|'));
        }
        // Lets the window finish showing before it is answered.
        return;
    }
    if (answers.isEmpty())
        return;
    static int waiting = 0;
    if (waiting > 0) {
        --waiting;
        return;
    }
    const QString answer = answers.takeFirst();
    if (answer.startsWith("wait:")) {
        waiting = answer.mid(5).toInt();
        return;
    }
    if (answer == "notice") {
        const auto* notice = target->findChild<QWidget*>("settingsNotice");
        const auto* text = notice ? notice->findChild<QTextEdit*>("noticeText") : nullptr;
        report("notice " + (text && notice->isVisible() ? text->toPlainText().replace('\n', '|') : QString("none")));
        return;
    }
    if (answer == "shrink") {
        target->resize(1, 1);
        return;
    }
    if (answer == "fits") {
        QStringList problems;
        if (!target->screen()->availableGeometry().contains(target->frameGeometry()))
            problems << QStringLiteral("window outside the screen (%1,%2 %3x%4 on %5x%6)")
                            .arg(target->frameGeometry().x())
                            .arg(target->frameGeometry().y())
                            .arg(target->frameGeometry().width())
                            .arg(target->frameGeometry().height())
                            .arg(target->screen()->availableGeometry().width())
                            .arg(target->screen()->availableGeometry().height());
        // Buttons in a scroll area may lie out of sight; the others must be whole.
        for (const QAbstractButton* button : target->findChildren<QAbstractButton*>()) {
            const QRect inWindow(button->mapTo(target, QPoint()), button->size());
            bool scrolled = false;
            for (const QWidget* parent = button; parent && !scrolled; parent = parent->parentWidget())
                scrolled = parent->objectName() == "qt_scrollarea_viewport";
            if (!scrolled && button->isVisibleTo(target) && !target->rect().contains(inWindow))
                problems << button->objectName() + " cut off";
        }
        // A drawer narrower than its pages scrolls sideways as well.
        if (const auto* drawer = target->findChild<QScrollArea*>("settingsScrollArea")) {
            if (drawer->widget()->width() > drawer->viewport()->width() && !drawer->horizontalScrollBar()->isVisible())
                problems << "pages cut off";
        }
        report("fits " + (problems.isEmpty() ? QString("yes") : problems.join(", ")));
        return;
    }
    if (answer.startsWith("click:")) {
        auto* child = target->findChild<QWidget*>(answer.mid(6));
        if (!child) {
            report("no child " + answer.mid(6));
            return;
        }
        const QPoint at = child->mapTo(target, child->rect().center());
        // Outside this timer's own call: a dialog the click opens is answered by its next
        // turns, which Qt holds back while one is still running.
        QTimer::singleShot(0, target, [window = target->windowHandle(), at] {
            QTest::mouseClick(window, Qt::LeftButton, {}, at);
        });
        return;
    }
    const QKeyCombination key = QKeySequence(answer)[0];
    QTimer::singleShot(0, target, [window = target->windowHandle(), key] {
        QTest::keyClick(window, key.key(), key.keyboardModifiers());
    });
}

void startAnswering()
{
    // The editor's own message handler is in place by now; this one must be dropped.
    qWarning("QGLShader::link: from the driver");
    qWarning("driver started");
    auto* timer = new QTimer(QCoreApplication::instance());
    QObject::connect(timer, &QTimer::timeout, &answerNext);
    timer->start(100);
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(startAnswering)

int main(int argc, char** argv)
{
    std::vector<char*> arguments{argv[0]};
    int i = 1;
    for (; i < argc && qstrcmp(argv[i], "--") != 0; ++i)
        answers << QString::fromLocal8Bit(argv[i]);
    for (++i; i < argc; ++i)
        arguments.push_back(argv[i]);
    int count = int(arguments.size());
    arguments.push_back(nullptr);
    const int result = launch(count, arguments.data());
    report(QString("launch returned %1").arg(result));
    return result;
}
