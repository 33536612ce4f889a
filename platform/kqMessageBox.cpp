#include "kqMessageBox.h"

#include "kqDMIApplication.h"

#include <QAbstractButton>
#include <QCloseEvent>
#include <QKeyEvent>

namespace zel {

namespace {

// QMessageBox answers Escape or a window close with its only button, or a "No", when
// there is no Cancel; the kernel's callers expect "no answer" then.
class kqModalMessageBox : public QMessageBox
{
public:
    using QMessageBox::QMessageBox;

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        if (event->matches(QKeySequence::Cancel) && !button(Cancel)) {
            reject();
            return;
        }
        QMessageBox::keyPressEvent(event);
    }

    void closeEvent(QCloseEvent* event) override
    {
        if (!button(Cancel)) {
            QDialog::closeEvent(event);
            return;
        }
        QMessageBox::closeEvent(event);
    }

private:
    Q_DISABLE_COPY_MOVE(kqModalMessageBox)
};

} // namespace

QMessageBox::StandardButton kqMessageBox::ShowMessage(const QString& title, const QString& text,
                                                      QMessageBox::StandardButtons buttons, QWidget* parent,
                                                      Qt::WindowFlags flags,
                                                      const QMap<QMessageBox::StandardButton, QString>& buttonTexts,
                                                      bool richText)
{
    kqModalMessageBox box(parent);
    box.setObjectName(QStringLiteral("kqMessageBox"));
    box.setStyleSheet(kqDMIApplication::GetStylesheet(QStringLiteral("kqMessageBox")));
    box.setWindowFlags(box.windowFlags() | flags);
    box.setWindowTitle(title);
    box.setTextFormat(richText ? Qt::RichText : Qt::PlainText);
    box.setText(text);
    box.setStandardButtons(buttons);
    for (auto it = buttonTexts.cbegin(); it != buttonTexts.cend(); ++it) {
        if (QAbstractButton* button = box.button(it.key()))
            button->setText(it.value());
    }
    box.exec();
    return box.standardButton(box.clickedButton());
}

} // namespace zel
