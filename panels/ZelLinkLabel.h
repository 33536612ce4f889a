#pragma once

#include <QLabel>

namespace zel {

// A label of links that Tab walks link by link. A plain QLabel takes the focus first
// with no link chosen, a stop that shows nothing; this one goes straight to the first
// link, or to the last when Shift+Tab comes in from below.
class ZelLinkLabel : public QLabel
{
    Q_OBJECT

public:
    explicit ZelLinkLabel(QWidget* parent = nullptr);
    ~ZelLinkLabel() override;

protected:
    void focusInEvent(QFocusEvent* event) override;

private:
    Q_DISABLE_COPY_MOVE(ZelLinkLabel)
};

} // namespace zel
