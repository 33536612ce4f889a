#pragma once

#include "ZelControlCenterExport.h"

#include <QObject>
#include <QPointer>
#include <QString>

#include <memory>
#include <thread>

class QLockFile;
class QWidget;

namespace zel {

class ZelInstanceChannel;

// One running editor per user and executable. The first process to take a lock file (in
// the session's runtime folder) becomes the primary and listens on a local socket; later
// processes find the lock taken and send their message to the primary instead of opening
// a window. The lock belongs to a process id, so a primary that crashed or was killed
// leaves a stale lock that the next start takes over.
class ZEL_CONTROLCENTER_EXPORT ZelSingleInstance : public QObject
{
    Q_OBJECT

public:
    // `executablePath` names the program the instance stands for; empty means this
    // process's own executable. Needs a QCoreApplication.
    explicit ZelSingleInstance(const QString& executablePath = QString(), QObject* parent = nullptr);
    ~ZelSingleInstance() override;

    // True when another process is the primary. Otherwise this process has become the
    // primary; later starts wait until it listens.
    bool isRunning();
    // Makes the primary listen for later starts: the socket's module (Qt Network and
    // what it pulls in) loads on another thread, and the socket is made on this object's
    // thread once the event loop gets there (`listening`). Called once the start's own
    // work is done, so that the loading does not slow it.
    void startListening();
    // Sends `message` to the primary and waits until it has read it, at most `timeout`
    // milliseconds in all; false with `error` set when it could not be delivered.
    bool sendMessage(const QString& message, int timeout, QString* error = nullptr);
    // The window raised by activateWindow() and, with `activateOnMessage`, by every
    // message received.
    void setActivationWindow(QWidget* window, bool activateOnMessage = true);
    QWidget* activationWindow() const;
    // The lock file's and the local server's name, the same for every start of one
    // executable by one user.
    QString id() const;

public Q_SLOTS:
    // Brings the activation window back from minimised, shows and raises it.
    void activateWindow();

Q_SIGNALS:
    void messageReceived(const QString& message);
    // The primary listens for later starts from now on; false when it cannot (warned).
    void listening(bool listens);

private:
    void listen(const std::shared_ptr<ZelInstanceChannel>& channel, const QString& loadError);

    Q_DISABLE_COPY_MOVE(ZelSingleInstance)
    QString m_id;
    std::unique_ptr<QLockFile> m_lock;
    // Null unless primary and listening.
    std::shared_ptr<ZelInstanceChannel> m_channel;
    // Loads the channel module for a primary; joined on destruction.
    std::thread m_channelLoader;
    QPointer<QWidget> m_window;
    bool m_activateOnMessage = false;
    bool m_primary = false;
};

} // namespace zel
