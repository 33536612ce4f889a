#include "ZelPanelImages.h"

#include <QIcon>
#include <QLabel>

namespace zel {

void showSharpImage(QLabel* label, const QString& resource)
{
    const QSize size = label->pixmap().deviceIndependentSize().toSize();
    label->setPixmap(QIcon(resource).pixmap(size));
}

} // namespace zel
