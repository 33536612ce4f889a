#pragma once

#include <QElapsedTimer>
#include <QPointer>

class QEvent;
class QObject;
class QPoint;
class QWidget;

namespace zel {

class kqDMIApplication;

// Tells which of the application's presses close an open menu: a press on the host's
// main 3D view, on a widget inside the GUI handler when the host named one. At most one
// press counts per guard time, which a resize anywhere also restarts.
class ZelCCClickGuard
{
public:
    // `application` must outlive the guard.
    explicit ZelCCClickGuard(const kqDMIApplication* application);
    ~ZelCCClickGuard();

    // Only presses inside `handler` count (not owned); none given, any press on the view.
    void setHandler(QWidget* handler);
    // Called with every event of the application while the menu is open: true for a
    // press that closes it.
    bool isClosingPress(const QObject* watched, const QEvent* event);

private:
    Q_DISABLE_COPY_MOVE(ZelCCClickGuard)

    bool isOnMainView(const QObject* watched, const QPoint& globalPosition) const;

    const kqDMIApplication* m_application = nullptr;
    QPointer<QWidget> m_handler;
    QElapsedTimer m_sinceCounted;
};

} // namespace zel
