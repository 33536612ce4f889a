#include "ZelSettingsNotice.h"
#include "ui_ZelSettingsNotice.h"

#include <QAbstractTextDocumentLayout>
#include <QScrollBar>
#include <QTextBlock>
#include <QToolButton>

#include <algorithm>
#include <cmath>

namespace zel {

namespace {

// Above this many lines the bar scrolls instead of growing: the pages stay in view. A
// start's repairs, six values with their heading and the copy, still show whole.
constexpr int MostShownLines = 8;

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
    connect(scrollBar, &QScrollBar::rangeChanged, this, [this] {
        if (m_showNewest)
            showNewest();
    });
    // Once the user scrolls, the bar stays where they put it until the next message.
    connect(scrollBar, &QScrollBar::actionTriggered, this, [this] { m_showNewest = false; });
    hide();
}

ZelSettingsNotice::~ZelSettingsNotice() = default;

void ZelSettingsNotice::addMessage(const QString& message)
{
    const QString separator = QStringLiteral("\n\n");
    m_newestStart = m_messages.isEmpty() ? 0 : int(m_messages.join(separator).size() + separator.size());
    m_messages.append(message);
    m_showNewest = true;
    m_ui->noticeText->setPlainText(m_messages.join(separator));
    // The keyboard reads on from the newest message too.
    QTextCursor cursor = m_ui->noticeText->textCursor();
    cursor.setPosition(m_newestStart);
    m_ui->noticeText->setTextCursor(cursor);
    show();
    fitHeight();
    showNewest();
}

void ZelSettingsNotice::showNewest()
{
    // Its first line at the top, so that what happened comes before the details.
    const QTextDocument* document = m_ui->noticeText->document();
    const QRectF block = document->documentLayout()->blockBoundingRect(document->findBlock(m_newestStart));
    m_ui->noticeText->verticalScrollBar()->setValue(int(block.top()));
}

void ZelSettingsNotice::limitHeight(int pixels)
{
    // Less room than the bar's own margins still leaves it one line.
    m_heightLimit = std::max(pixels, 1);
    fitHeight();
}

void ZelSettingsNotice::fitHeight()
{
    QTextEdit* text = m_ui->noticeText;
    const int content = int(std::ceil(text->document()->size().height()));
    const int line = text->fontMetrics().lineSpacing();
    int most = MostShownLines * line;
    if (m_heightLimit > 0) {
        const int around = height() - text->height() + 2 * text->frameWidth();
        // Whole lines, so that none shows cut in half.
        most = std::clamp((m_heightLimit - around) / line * line, line, most);
    }
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
