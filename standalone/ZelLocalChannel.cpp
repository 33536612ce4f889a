// The ZelInstanceChannel module: one user's editors talk through a QLocalServer.

#include "ZelInstanceChannel_p.h"

#include <QDataStream>
#include <QDeadlineTimer>
#include <QLocalServer>
#include <QLocalSocket>
#include <QThread>

#include <memory>

namespace zel {

namespace {

// Sent back once a message is read, so that the sender may quit right away.
const char Acknowledge = '!';

class ZelLocalChannel final : public ZelInstanceChannel
{
public:
    bool listen(const QString& name, bool privateSocket, MessageHandler onMessage, QString& error) override
    {
        m_onMessage = std::move(onMessage);
        m_server = std::make_unique<QLocalServer>();
        if (privateSocket)
            m_server->setSocketOptions(QLocalServer::UserAccessOption);
        QObject::connect(m_server.get(), &QLocalServer::newConnection, m_server.get(), [this] { readMessages(); });
        if (m_server->listen(name))
            return true;
        // A socket left by a killed primary: the lock says nobody else owns it.
        QLocalServer::removeServer(name);
        if (m_server->listen(name))
            return true;
        error = m_server->errorString();
        return false;
    }

    bool send(const QString& name, const QString& message, int timeout, QString& error) override
    {
        const QDeadlineTimer deadline(timeout);
        QLocalSocket socket;
        // The primary holds the lock a moment before it listens.
        for (;;) {
            socket.connectToServer(name);
            if (socket.waitForConnected(int(deadline.remainingTime())))
                break;
            if (deadline.hasExpired()) {
                error = socket.errorString();
                return false;
            }
            QThread::msleep(20);
        }
        QByteArray data;
        QDataStream stream(&data, QIODevice::WriteOnly);
        stream << message;
        socket.write(data);
        while (socket.bytesAvailable() < 1) {
            if (deadline.hasExpired() || !socket.waitForReadyRead(int(deadline.remainingTime()))) {
                error = socket.errorString();
                return false;
            }
        }
        char answer = 0;
        socket.read(&answer, 1);
        return answer == Acknowledge;
    }

private:
    void readMessages()
    {
        while (QLocalSocket* socket = m_server->nextPendingConnection()) {
            QObject::connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
            QObject::connect(socket, &QLocalSocket::readyRead, socket, [this, socket] {
                QDataStream stream(socket);
                stream.startTransaction();
                QString message;
                stream >> message;
                if (!stream.commitTransaction())
                    return;
                socket->write(&Acknowledge, 1);
                socket->flush();
                m_onMessage(message);
            });
        }
    }

    std::unique_ptr<QLocalServer> m_server;
    MessageHandler m_onMessage;
};

} // namespace

} // namespace zel

extern "C" Q_DECL_EXPORT zel::ZelInstanceChannel* zelCreateInstanceChannel()
{
    return new zel::ZelLocalChannel;
}
