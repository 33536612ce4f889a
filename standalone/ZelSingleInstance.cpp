#include "ZelSingleInstance.h"

#include "kqSystem.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDataStream>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocalServer>
#include <QLocalSocket>
#include <QLockFile>
#include <QStandardPaths>
#include <QThread>
#include <QWidget>

namespace zel {

namespace {

// Sent back once a message is read, so that the sender may quit right away.
const char Acknowledge = '!';

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

} // namespace

ZelSingleInstance::ZelSingleInstance(const QString& executablePath, QObject* parent)
    : QObject(parent)
    , m_id(instanceId(executablePath))
{
}

ZelSingleInstance::~ZelSingleInstance()
{
    if (m_server)
        m_server->close();
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
    if (!m_lock->tryLock(0)) {
        if (m_lock->error() == QLockFile::LockFailedError)
            return true;
        // No lock can be taken at all (temporary folder not writable): better two
        // editors than none.
        qWarning("Cannot take the single-instance lock %s; starting anyway", qUtf8Printable(lockPath(m_id)));
    }
    m_primary = true;
    if (!listen())
        qWarning("Cannot listen for other starts on %s", qUtf8Printable(serverName(m_id)));
    return false;
}

bool ZelSingleInstance::listen()
{
    const QString name = serverName(m_id);
    m_server = new QLocalServer(this);
    if (needsPrivateSocket(name))
        m_server->setSocketOptions(QLocalServer::UserAccessOption);
    connect(m_server, &QLocalServer::newConnection, this, &ZelSingleInstance::readMessages);
    if (m_server->listen(name))
        return true;
    // A socket left by a killed primary: the lock says nobody else owns it.
    QLocalServer::removeServer(name);
    return m_server->listen(name);
}

void ZelSingleInstance::readMessages()
{
    while (QLocalSocket* socket = m_server->nextPendingConnection()) {
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] {
            QDataStream stream(socket);
            stream.startTransaction();
            QString message;
            stream >> message;
            if (!stream.commitTransaction())
                return;
            socket->write(&Acknowledge, 1);
            socket->flush();
            Q_EMIT messageReceived(message);
            if (m_activateOnMessage)
                activateWindow();
        });
    }
}

bool ZelSingleInstance::sendMessage(const QString& message, int timeout, QString* error)
{
    const QDeadlineTimer deadline(timeout);
    QLocalSocket socket;
    // The primary may hold the lock a moment before it listens.
    for (;;) {
        socket.connectToServer(serverName(m_id));
        if (socket.waitForConnected(int(deadline.remainingTime())))
            break;
        if (deadline.hasExpired()) {
            if (error)
                *error = socket.errorString();
            return false;
        }
        QThread::msleep(20);
    }
    QByteArray data;
    QDataStream stream(&data, QIODevice::WriteOnly);
    stream << message;
    socket.write(data);
    char answer = 0;
    while (socket.bytesAvailable() < 1) {
        if (deadline.hasExpired() || !socket.waitForReadyRead(int(deadline.remainingTime()))) {
            if (error)
                *error = socket.errorString();
            return false;
        }
    }
    socket.read(&answer, 1);
    return answer == Acknowledge;
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
