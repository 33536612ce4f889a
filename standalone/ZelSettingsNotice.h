#pragma once

#include <QFrame>
#include <QStringList>

#include <memory>

namespace Ui {
class ZelSettingsNotice;
}

namespace zel {

// The bar at the top of the editor's window that tells what happened to the settings
// without being asked: a repair at start, a file set aside, a read-only folder, a value
// another program wrote, a write that failed. It never blocks the window; the user
// closes it when read. However many messages come, it stays a few lines tall and
// scrolls, the start of the newest in sight.
class ZelSettingsNotice : public QFrame
{
    Q_OBJECT

public:
    explicit ZelSettingsNotice(QWidget* parent = nullptr);
    ~ZelSettingsNotice() override;

    // Adds `message` below the ones still shown and shows the bar.
    void addMessage(const QString& message);
    // Keeps the bar at most `pixels` tall, down to one line of text, where the screen
    // has no room for more: the rest scrolls.
    void limitHeight(int pixels);

Q_SIGNALS:
    void closed();

private:
    void closeNotice();
    // As tall as the messages, up to a few lines; the rest scrolls.
    void fitHeight();
    // Scrolls to the newest message's first line, or as near as the text allows.
    void showNewest();

    Q_DISABLE_COPY_MOVE(ZelSettingsNotice)
    std::unique_ptr<Ui::ZelSettingsNotice> m_ui;
    QStringList m_messages;
    // Keeps the newest message in sight as the text is laid out.
    bool m_showNewest = true;
    // Where the newest message begins in the text.
    int m_newestStart = 0;
    // The tallest the bar may be; none while 0.
    int m_heightLimit = 0;
};

} // namespace zel
