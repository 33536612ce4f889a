#pragma once

class QFileDevice;
class QString;

namespace zel {

// Run by the superuser (an administrator's script, `sudo torvane-config`), a program of
// ours that writes someone's Settings.ini, or a copy beside it, leaves it theirs: a file
// the superuser took over would be one its user can no longer change. Hands the open
// `written` to the owner of `ownedLike`, or of its folder while it does not exist. Does
// nothing for anyone else, who cannot give files away and writes only their own.
void keepOwner(QFileDevice& written, const QString& ownedLike);

} // namespace zel
