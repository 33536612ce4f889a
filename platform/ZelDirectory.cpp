#include "ZelDirectory.h"

#include <QDir>
#include <QString>

namespace zel {

std::string ZelDirectory::GetTempFolderUtf8(const std::string& applicationName)
{
    return (QDir::tempPath() + QLatin1Char('/') + QString::fromStdString(applicationName)).toStdString();
}

} // namespace zel
