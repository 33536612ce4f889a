#include "kqDMIApplication.h"

#include <QDesktopServices>
#include <QFile>
#include <QSettings>

namespace zel {

kqDMIApplication::kqDMIApplication(QObject* parent)
    : QObject(parent)
{
}

kqDMIApplication::~kqDMIApplication() = default;

zelActionManager* kqDMIApplication::getActionManager()
{
    return nullptr;
}

bool kqDMIApplication::isDiagModeEnable()
{
    return getSettings().value(QStringLiteral("enablediag")).toString() == QLatin1String("true");
}

QString kqDMIApplication::GetStylesheet(const QString& name)
{
    QFile file(QStringLiteral(":/stylesheets/%1.qss").arg(name));
    return file.open(QIODevice::ReadOnly | QIODevice::Text) ? QString::fromUtf8(file.readAll()) : QString();
}

QString kqDMIApplication::GetKernelVersion()
{
    return QStringLiteral(ZEL_KERNEL_VERSION);
}

bool kqDMIApplication::OpenUrl(const QUrl& url)
{
    return QDesktopServices::openUrl(url);
}

} // namespace zel
