#include "ZelCCDrawerButtons_p.h"

#include <QAbstractButton>
#include <QCoreApplication>

namespace zel {

namespace {

// Alt and a letter, as dialog buttons have them, so a host's own Ctrl shortcuts stay its own.
void setShortcut(QAbstractButton* button, const QString& toolTip, QKeyCombination keys)
{
    button->setShortcut(keys);
    button->setToolTip(toolTip + QStringLiteral(" (") + button->shortcut().toString(QKeySequence::NativeText)
                       + QLatin1Char(')'));
}

} // namespace

void setUpDrawerButtons(QAbstractButton* header, QAbstractButton* reset, QAbstractButton* apply)
{
    header->setText(QCoreApplication::translate("ZelControlCenter", "Application Settings"));
    reset->setText(QCoreApplication::translate("ZelControlCenter", "Reset"));
    apply->setText(QCoreApplication::translate("ZelControlCenter", "Apply"));
    // The keyboard reaches them as it reaches the pages.
    for (QAbstractButton* button : {header, reset, apply})
        button->setFocusPolicy(Qt::StrongFocus);
    setShortcut(reset, QCoreApplication::translate("ZelControlCenter", "Resets all parameters"), Qt::ALT | Qt::Key_R);
    setShortcut(apply, QCoreApplication::translate("ZelControlCenter", "Applies your changes"), Qt::ALT | Qt::Key_A);
}

} // namespace zel
