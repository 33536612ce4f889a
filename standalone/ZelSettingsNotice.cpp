#include "ZelSettingsNotice.h"
#include "ui_ZelSettingsNotice.h"

#include <QToolButton>

namespace zel {

ZelSettingsNotice::ZelSettingsNotice(QWidget* parent)
    : QFrame(parent)
    , m_ui(std::make_unique<Ui::ZelSettingsNotice>())
{
    m_ui->setupUi(this);
    connect(m_ui->noticeCloseButton, &QToolButton::clicked, this, &ZelSettingsNotice::closeNotice);
    hide();
}

ZelSettingsNotice::~ZelSettingsNotice() = default;

void ZelSettingsNotice::addMessage(const QString& message)
{
    m_messages.append(message);
    m_ui->noticeText->setText(m_messages.join(QStringLiteral("\n\n")));
    show();
}

const QStringList& ZelSettingsNotice::messages() const
{
    return m_messages;
}

void ZelSettingsNotice::closeNotice()
{
    m_messages.clear();
    m_ui->noticeText->clear();
    hide();
    Q_EMIT closed();
}

} // namespace zel
