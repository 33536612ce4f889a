#include "ZelAboutSettingsPanel.h"
#include "ui_ZelAboutSettingsPanel.h"

#include "ZelPanelImages.h"
#include "kqDMIApplication.h"
#include "kqDMPlugin.h"

#include <QUrl>

namespace zel {

namespace {

// The last year of the maker's notice.
constexpr QLatin1String NoticeYear("2024");

} // namespace

ZelAboutSettingsPanel::ZelAboutSettingsPanel(kqDMIApplication* application, QSettings& settings, QWidget* parent,
                                             Qt::WindowFlags flags)
    : ZelSettingsPanel(application, settings, parent, flags)
    , m_ui(std::make_unique<Ui::ZelAboutSettingsPanel>())
{
    m_ui->setupUi(this);
    m_ui->noticeLabel->setText(m_ui->noticeLabel->text().arg(NoticeYear, 0, QLatin1Char(' ')));
    setStyleSheet(kqDMIApplication::GetStylesheet(QStringLiteral("ZelAboutSettingsPanel")));
    m_ui->platform->setText(QStringLiteral("X64"));
    showSharpImage(m_ui->applicationIcon, QStringLiteral(":/controlCenter/controlCenter/logo-torvane.png"));
    // Rich text takes its link colour from here, not from style sheets: a light blue that
    // reads on the page's purple body and still looks like a link.
    m_ui->libUseLabel_2->setText(
        QStringLiteral("<style>a { color: rgb(190, 230, 255); font-weight: 600; }</style>") +
        tr("<p><b>Qt %1</b>, the application framework, under the GNU Lesser General Public License "
           "version 3.<br/><a href=\"https://www.qt.io/\">www.qt.io</a> &middot; "
           "<a href=\"https://www.gnu.org/licenses/lgpl-3.0.html\">GNU LGPL v3</a></p>"
           "<p><b>Open Sans</b>, the typeface of the interface, under the SIL Open Font License 1.1."
           "<br/><a href=\"https://fonts.google.com/specimen/Open+Sans\">Open Sans</a> &middot; "
           "<a href=\"https://openfontlicense.org/\">SIL OFL 1.1</a></p>")
            .arg(QLatin1String(qVersion())));
    connect(m_ui->libUseLabel_2, &QLabel::linkActivated, this, &ZelAboutSettingsPanel::onLinkActivated);
    setPanelName(tr("About"));
    setPanelCategory(ApplicationCategory);
}

ZelAboutSettingsPanel::~ZelAboutSettingsPanel() = default;

void ZelAboutSettingsPanel::initializeWidget()
{
    if (m_initialized)
        return;
    m_ui->applicationVersion->setText(kqDMIApplication::GetKernelVersion());

    std::vector<kqDMPlugin*> plugins;
    if (application()) {
        plugins = application()->getPluginsList();
        m_ui->tableWidget->setRowCount(int(plugins.size()));
    }
    for (int row = 0; row < int(plugins.size()); ++row) {
        const kqDMPlugin* plugin = plugins[std::size_t(row)];
        auto* name = new QTableWidgetItem(plugin->getPluginName());
        name->setToolTip(name->text());
        auto* version = new QTableWidgetItem(QStringLiteral("v. ") + plugin->getPluginVersion());
        version->setToolTip(version->text());
        m_ui->tableWidget->setItem(row, 0, name);
        m_ui->tableWidget->setItem(row, 1, version);
    }
    m_ui->pluginsFrame->setVisible(!plugins.empty());
    m_initialized = true;
}

bool ZelAboutSettingsPanel::hasModifications() const
{
    return false;
}

bool ZelAboutSettingsPanel::applyModifications()
{
    return false;
}

bool ZelAboutSettingsPanel::canResetContent() const
{
    return false;
}

void ZelAboutSettingsPanel::resetContent()
{
}

bool ZelAboutSettingsPanel::cancelModifications()
{
    return false;
}

void ZelAboutSettingsPanel::saveSettings()
{
}

void ZelAboutSettingsPanel::onLinkActivated(const QString& link)
{
    kqDMIApplication::OpenUrl(QUrl(link));
}

} // namespace zel
