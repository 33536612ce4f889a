#include "ZelSingleInstance.h"

#include "ZelInstanceChannel_p.h"
#include "kqSystem.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLibrary>
#include <QLockFile>
#include <QStandardPaths>
#include <QWidget>

#if defined(Q_OS_UNIX)
#include <dlfcn.h>
#endif

namespace zel {

namespace {

QString instanceId(QString executablePath)
{
    if (executablePath.isEmpty())
        executablePath = QCoreApplication::applicationFilePath();
    const QFileInfo executable(executablePath);
    const QString canonical = executable.canonicalFilePath();
    const QString path = canonical.isEmpty() ? executable.absoluteFilePath() : canonical;
    const QString user = QString::fromStdString(kq::kqSystemUtils::GetCurrentUserNameUtf8());
    const QByteArray hash =
        QCryptographicHash::hash((user + QLatin1Char('\n') + path).toUtf8(), QCryptographicHash::Sha1).toHex();
    // Readable in a folder listing, short enough for a socket path.
    return executable.completeBaseName() + QLatin1Char('-') + QString::fromLatin1(hash.left(16));
}

QString runtimeFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
}

// Where the lock and the socket live: the session's runtime folder, which is the user's
// own, held in memory (taking the lock costs no disk flush) and emptied at logout; the
// temporary folder when there is none.
QString instanceFolder()
{
    const QString runtime = runtimeFolder();
    return runtime.isEmpty() ? QDir::tempPath() : runtime;
}

// Where the primary listens. A Unix socket's path holds little more than a hundred
// bytes: a deep folder (a sandbox's, a test's) falls back to the system's temporary
// folder, still one socket per user and path.
QString serverName(const QString& id)
{
#if defined(Q_OS_UNIX)
    constexpr qsizetype SocketPathLimit = 100;
    const QString socket = QDir(instanceFolder()).filePath(id);
    if (QFile::encodeName(socket).size() < SocketPathLimit)
        return socket;
    return QStringLiteral("/tmp/") + id;
#else
    return id;
#endif
}

// Only the owner may enter the runtime folder (0700), so a socket there needs no
// permissions of its own; anywhere else Qt must make it private to the user.
bool needsPrivateSocket(const QString& serverName)
{
    const QString runtime = runtimeFolder();
    return runtime.isEmpty() || QFileInfo(serverName).absolutePath() != runtime;
}

QString lockPath(const QString& id)
{
    return QDir(instanceFolder()).filePath(id + QStringLiteral(".lock"));
}

// The channel module lies beside this library, wherever both are installed.
QString channelModulePath()
{
    QString folder = QCoreApplication::applicationDirPath();
#if defined(Q_OS_UNIX)
    Dl_info library{};
    if (dladdr(reinterpret_cast<const void*>(&channelModulePath), &library) && library.dli_fname)
        folder = QFileInfo(QFile::decodeName(library.dli_fname)).absolutePath();
#endif
    return QDir(folder).filePath(QStringLiteral("ZelInstanceChannel"));
}

// Loads the module and makes a channel; null with `error` when it cannot.
std::unique_ptr<ZelInstanceChannel> openChannel(QString& error)
{
    // Never unloaded: the channel's code must outlive every channel.
    QLibrary module(channelModulePath());
    const auto create = reinterpret_cast<CreateInstanceChannel>(module.resolve(CreateInstanceChannelName));
    if (!create) {
        error = module.errorString();
        return nullptr;
    }
    return std::unique_ptr<ZelInstanceChannel>(create());
}

bool ownerIsKnown(const QLockFile& lock)
{
    qint64 pid = 0;
    QString hostName;
    QString application;
    return lock.getLockInfo(&pid, &hostName, &application);
}

} // namespace

ZelSingleInstance::ZelSingleInstance(const QString& executablePath, QObject* parent)
    : QObject(parent)
    , m_id(instanceId(executablePath))
{
}

ZelSingleInstance::~ZelSingleInstance()
{
    if (m_channelLoader.joinable())
        m_channelLoader.join();
}

QString ZelSingleInstance::id() const
{
    return m_id;
}

bool ZelSingleInstance::isRunning()
{
    if (m_primary)
        return false;
    if (!m_lock) {
        m_lock = std::make_unique<QLockFile>(lockPath(m_id));
        // Only a dead owner makes the lock stale, however long the primary runs.
        m_lock->setStaleLockTime(0);
    }
    if (!m_lock->tryLock(0) && m_lock->error() == QLockFile::LockFailedError && !ownerIsKnown(*m_lock)) {
        // A start that died between making the lock and writing its owner into it (a
        // file size limit, a full disk, a power cut) left a lock no owner can be read
        // from. Qt removes it only when no living process holds it.
        m_lock->removeStaleLockFile();
        m_lock->tryLock(0);
    }
    if (!m_lock->isLocked()) {
        if (m_lock->error() == QLockFile::LockFailedError)
            return true;
        // No lock can be taken at all (temporary folder not writable): better two
        // editors than none.
        qWarning("Cannot take the single-instance lock %s; starting anyway", qUtf8Printable(lockPath(m_id)));
    }
    m_primary = true;
    return false;
}

void ZelSingleInstance::startListening()
{
    if (!m_primary || m_channelLoader.joinable())
        return;
    m_channelLoader = std::thread([this] {
        QString error;
        const std::shared_ptr<ZelInstanceChannel> channel = openChannel(error);
        // The socket is made on this object's thread, where its messages arrive.
        QMetaObject::invokeMethod(
            this, [this, channel, error] { listen(channel, error); }, Qt::QueuedConnection);
    });
}

void ZelSingleInstance::listen(const std::shared_ptr<ZelInstanceChannel>& channel, const QString& loadError)
{
    const QString name = serverName(m_id);
    QString error = loadError;
    if (channel) {
        const auto onMessage = [this](const QString& message) {
            Q_EMIT messageReceived(message);
            if (m_activateOnMessage)
                activateWindow();
        };
        if (channel->listen(name, needsPrivateSocket(name), onMessage, error))
            m_channel = channel;
    }
    if (!m_channel)
        qWarning("Cannot listen for other starts on %s: %s", qUtf8Printable(name), qUtf8Printable(error));
    Q_EMIT listening(m_channel != nullptr);
}

bool ZelSingleInstance::sendMessage(const QString& message, int timeout, QString* error)
{
    QString reason;
    const std::unique_ptr<ZelInstanceChannel> channel = openChannel(reason);
    if (channel && channel->send(serverName(m_id), message, timeout, reason))
        return true;
    if (error)
        *error = reason;
    return false;
}

void ZelSingleInstance::setActivationWindow(QWidget* window, bool activateOnMessage)
{
    m_window = window;
    m_activateOnMessage = activateOnMessage;
}

QWidget* ZelSingleInstance::activationWindow() const
{
    return m_window;
}

void ZelSingleInstance::activateWindow()
{
    if (!m_window)
        return;
    m_window->setWindowState(m_window->windowState() & ~Qt::WindowMinimized);
    m_window->show();
    m_window->raise();
    m_window->activateWindow();
}

} // namespace zel
