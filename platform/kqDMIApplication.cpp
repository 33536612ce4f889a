#include "kqDMIApplication.h"

#include <QDesktopServices>
#include <QFile>
#include <QHash>
#include <QMutex>
#include <QMutexLocker>
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
    // Every widget asks in its constructor; keep each sheet after the first read.
    static QMutex mutex;
    static QHash<QString, QString> sheets;

    const QMutexLocker locker(&mutex);
    const auto known = sheets.constFind(name);
    if (known != sheets.constEnd())
        return *known;

    QString sheet;
    QFile file(QStringLiteral(":/stylesheets/%1.qss").arg(name));
    if (file.open(QIODevice::ReadOnly | QIODevice::Text))
        sheet = QString::fromUtf8(file.readAll());
    sheets.insert(name, sheet);
    return sheet;
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
