#include "ZelSettingsNotice.h"
#include "ui_ZelSettingsNotice.h"

#include <QAbstractTextDocumentLayout>
#include <QScrollBar>
#include <QToolButton>

#include <algorithm>
#include <cmath>

namespace zel {

namespace {

// Above this many lines the bar scrolls instead of growing: the pages stay in view.
constexpr int MostShownLines = 6;

} // namespace

ZelSettingsNotice::ZelSettingsNotice(QWidget* parent)
    : QFrame(parent)
    , m_ui(std::make_unique<Ui::ZelSettingsNotice>())
{
    m_ui->setupUi(this);
    m_ui->noticeText->document()->setDocumentMargin(0);
    connect(m_ui->noticeCloseButton, &QToolButton::clicked, this, &ZelSettingsNotice::closeNotice);
    connect(m_ui->noticeText->document()->documentLayout(), &QAbstractTextDocumentLayout::documentSizeChanged,
            this, &ZelSettingsNotice::fitHeight);
    QScrollBar* scrollBar = m_ui->noticeText->verticalScrollBar();
    connect(scrollBar, &QScrollBar::rangeChanged, this, [this, scrollBar](int, int maximum) {
        if (m_showNewest)
            scrollBar->setValue(maximum);
    });
    // Once the user scrolls, the bar stays where they put it until the next message.
    connect(scrollBar, &QScrollBar::actionTriggered, this, [this] { m_showNewest = false; });
    hide();
}

ZelSettingsNotice::~ZelSettingsNotice() = default;

void ZelSettingsNotice::addMessage(const QString& message)
{
    m_messages.append(message);
    m_showNewest = true;
    m_ui->noticeText->setPlainText(m_messages.join(QStringLiteral("\n\n")));
    m_ui->noticeText->moveCursor(QTextCursor::End);
    show();
    fitHeight();
}

void ZelSettingsNotice::fitHeight()
{
    QTextEdit* text = m_ui->noticeText;
    const int content = int(std::ceil(text->document()->size().height()));
    const int most = MostShownLines * text->fontMetrics().lineSpacing();
    text->setFixedHeight(std::min(content, most) + 2 * text->frameWidth());
}

void ZelSettingsNotice::closeNotice()
{
    m_messages.clear();
    m_ui->noticeText->clear();
    hide();
    Q_EMIT closed();
}

} // namespace zel
