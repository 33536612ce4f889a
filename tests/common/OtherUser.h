#pragma once

#include <optional>
#include <sys/types.h>

class QProcess;
class TestHome;

// Root writes anywhere, so a file the system must refuse to write needs another user:
// the child process then runs as "nobody". Anyone else is refused by the permission
// bits alone and runs as themselves.
struct OtherUser
{
    uid_t uid = 0;
    gid_t gid = 0;

    // Starts `process` as this user, in `home`, whose folders it may read and whose
    // temporary folder it may write, with a session runtime folder of its own.
    void prepare(QProcess& process, const TestHome& home) const;
};

// Empty when running as root on a system without "nobody".
std::optional<OtherUser> otherUser();
