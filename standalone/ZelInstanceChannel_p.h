#pragma once

#include <QString>

#include <functional>

namespace zel {

// The local socket between one user's editors. It lives in a module of its own
// (ZelInstanceChannel) that ZelSingleInstance loads when it first needs it: Qt Network
// and the libraries it pulls in would cost every start a millisecond before its window
// shows, and a primary only needs the socket once it runs.
class ZelInstanceChannel
{
public:
    using MessageHandler = std::function<void(const QString& message)>;

    virtual ~ZelInstanceChannel() = default;

    // Listens on `name`, for this user alone when `privateSocket`, taking over a socket a
    // killed primary left behind. `onMessage` runs on this thread for each message, once
    // its sender has been told it arrived. False with `error` when nothing listens.
    virtual bool listen(const QString& name, bool privateSocket, MessageHandler onMessage, QString& error) = 0;
    // Sends `message` to whoever listens on `name` and waits until it has read it, at
    // most `timeout` milliseconds in all, trying again while nobody listens yet.
    virtual bool send(const QString& name, const QString& message, int timeout, QString& error) = 0;

protected:
    ZelInstanceChannel() = default;
    ZelInstanceChannel(const ZelInstanceChannel&) = delete;
    ZelInstanceChannel& operator=(const ZelInstanceChannel&) = delete;
};

// The module's one entry point, exported with C linkage under this name.
using CreateInstanceChannel = ZelInstanceChannel* (*)();
inline constexpr char CreateInstanceChannelName[] = "zelCreateInstanceChannel";

} // namespace zel
