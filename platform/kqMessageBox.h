#pragma once

#include "ZelKernelExport.h"

#include <QMap>
#include <QMessageBox>
#include <QString>

class QWidget;

namespace zel {

// The kernel's modal message box, styled like the viewer.
class ZEL_KERNEL_EXPORT kqMessageBox
{
public:
    // Shows `text` under `title` with `buttons` and waits for the answer. `buttonTexts`
    // relabels buttons; `richText` renders `text` as rich text. Returns the button
    // pressed; Escape answers Cancel when there is one.
    static QMessageBox::StandardButton ShowMessage(const QString& title, const QString& text,
                                                   QMessageBox::StandardButtons buttons, QWidget* parent,
                                                   Qt::WindowFlags flags,
                                                   const QMap<QMessageBox::StandardButton, QString>& buttonTexts,
                                                   bool richText);
};

} // namespace zel
