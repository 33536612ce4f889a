#include "kqMessageBox.h"

#include "kqDMIApplication.h"

#include <QAbstractButton>

namespace zel {

QMessageBox::StandardButton kqMessageBox::ShowMessage(const QString& title, const QString& text,
                                                      QMessageBox::StandardButtons buttons, QWidget* parent,
                                                      Qt::WindowFlags flags,
                                                      const QMap<QMessageBox::StandardButton, QString>& buttonTexts,
                                                      bool richText)
{
    QMessageBox box(parent);
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
