#include "FileOwner.h"

#include <QFile>
#include <QFileDevice>
#include <QFileInfo>
#include <QString>

#if defined(Q_OS_UNIX)
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#endif

namespace zel {

void keepOwner(QFileDevice& written, const QString& ownedLike)
{
#if defined(Q_OS_UNIX)
    if (::geteuid() != 0 || written.handle() < 0)
        return;
    const QString owned = QFileInfo::exists(ownedLike) ? ownedLike : QFileInfo(ownedLike).absolutePath();
    struct stat owner {};
    if (::stat(QFile::encodeName(owned).constData(), &owner) != 0 || owner.st_uid == 0)
        return;
    if (::fchown(written.handle(), owner.st_uid, owner.st_gid) != 0)
        qWarning("Cannot give %s back to the owner of %s: %s", qPrintable(written.fileName()), qPrintable(owned),
                 std::strerror(errno));
#else
    Q_UNUSED(written)
    Q_UNUSED(ownedLike)
#endif
}

} // namespace zel
