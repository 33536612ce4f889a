#include "ZelGeneralSettingsPanel.h"
#include "ui_ZelGeneralSettingsPanel.h"

#include "ZelPanelDefaults.h"
#include "ZelPanelRanges.h"
#include "ZelSettings.h"
#include "ZelSettingsKeys.h"
#include "kqDMIApplication.h"
#include "kqDMManager.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QSettings>

namespace zel {

namespace {

// Room left beside the elided path for the button's padding and border.
constexpr int ElideMargin = 12;

QString askForFolder(QWidget* parent, const QString& title, const QString& startFolder)
{
    return QFileDialog::getExistingDirectory(parent, title, startFolder, QFileDialog::ShowDirsOnly);
}

// A folder the viewer has not made yet (no screenshot taken so far) would open the dialog
// in the working folder; the nearest folder above it that exists is where the user looks.
QString nearestExistingFolder(const QString& path)
{
    if (path.isEmpty() || QDir::isRelativePath(path))
        return QDir::homePath();
    QString folder = QDir::cleanPath(path);
    while (!QFileInfo(folder).isDir()) {
        const QString parent = QFileInfo(folder).path();
        if (parent == folder)
            return QDir::homePath();
        folder = parent;
    }
    return folder;
}

} // namespace

bool GeneralModel::operator==(const GeneralModel& other) const
{
    return cacheDirectory == other.cacheDirectory && screenshotFolder == other.screenshotFolder
        && cacheSize == other.cacheSize;
}

ZelGeneralSettingsPanel::ZelGeneralSettingsPanel(kqDMIApplication* application, QSettings& settings,
                                                 QWidget* parent, Qt::WindowFlags flags)
    : ZelModelSettingsPanel(application, settings, parent, flags)
    , m_ui(std::make_unique<Ui::ZelGeneralSettingsPanel>())
    , m_folderChooser(askForFolder)
{
    m_ui->setupUi(this);
    PanelRanges::fit(m_ui->databaseSpinBox, SettingsKeys::CacheSize);
    m_formCacheSize = m_ui->databaseSpinBox->value();
    setResetButton(m_ui->resetButton);
    setStyleSheet(kqDMIApplication::GetStylesheet(QStringLiteral("ZelGeneralSettingsPanel")));
    setPanelName(tr("Folders"));
    setPanelCategory(ApplicationCategory);
    m_initialCacheDirectory = ZelSettings::GetSettingText(this->settings(), SettingsKeys::CacheDirectory);
}

ZelGeneralSettingsPanel::~ZelGeneralSettingsPanel() = default;

void ZelGeneralSettingsPanel::setFolderChooser(FolderChooser chooser)
{
    m_folderChooser = std::move(chooser);
}

void ZelGeneralSettingsPanel::on_databaseButton_clicked()
{
    chooseFolder(m_ui->databaseButton, tr("Please set your database cache folder"));
}

void ZelGeneralSettingsPanel::on_screenshotFolderButton_clicked()
{
    chooseFolder(m_ui->screenshotFolderButton, tr("Please set your screenshot folder"));
}

void ZelGeneralSettingsPanel::on_databaseSpinBox_valueChanged(int)
{
    checkContent();
    Q_EMIT stateChanged();
}

void ZelGeneralSettingsPanel::on_resetButton_clicked()
{
    resetContent();
}

void ZelGeneralSettingsPanel::showEvent(QShowEvent* event)
{
    elideText();
    QWidget::showEvent(event);
}

void ZelGeneralSettingsPanel::resizeEvent(QResizeEvent* event)
{
    elideText();
    QWidget::resizeEvent(event);
}

void ZelGeneralSettingsPanel::elideText()
{
    for (QPushButton* button : {m_ui->databaseButton, m_ui->screenshotFolderButton}) {
        const QString path = button->toolTip();
        button->setText(path.isEmpty() ? tr("Choose a folder...")
                                       : button->fontMetrics().elidedText(path, Qt::ElideLeft,
                                                                          button->width() - ElideMargin));
    }
}

bool ZelGeneralSettingsPanel::shouldRestart() const
{
    // Going back to the folder the running process already uses needs no restart,
    // although the stored value changes.
    const QString stored = ZelSettings::GetSettingText(settings(), SettingsKeys::CacheDirectory);
    const QString current = m_ui->databaseButton->toolTip();
    return current != stored && current != m_initialCacheDirectory;
}

void ZelGeneralSettingsPanel::setScreenshotFolder()
{
    if (application())
        application()->setScreenshotImageFolder(m_ui->screenshotFolderButton->toolTip());
}

void ZelGeneralSettingsPanel::setMaxCacheSize()
{
    if (!application())
        return;
    if (kqDMManager* manager = application()->getDMManager())
        manager->setMaxCacheSize(unsigned(m_ui->databaseSpinBox->value()));
}

void ZelGeneralSettingsPanel::readSettings(GeneralModel& model) const
{
    // Absent, a folder reads as its registered default. A hand-written path with an
    // unquoted comma reads back as a list: it is shown whole, as the validation pass
    // saw it, not emptied.
    model.cacheDirectory = ZelSettings::GetSettingText(settings(), SettingsKeys::CacheDirectory);
    model.screenshotFolder = ZelSettings::GetSettingText(settings(), SettingsKeys::ScreenshotFolder);
    // Absent or unreadable, the size would read as 0, which the spin box shows as its
    // minimum: a pending edit that nobody made, and a tiny cache if applied. The
    // default stands in instead, or the form's own value when none is registered.
    bool readable = false;
    model.cacheSize = settings().value(SettingsKeys::CacheSize).toInt(&readable);
    if (!readable) {
        model.cacheSize = m_formCacheSize;
        PanelDefaults::assign(model.cacheSize, SettingsKeys::CacheSize);
    }
}

void ZelGeneralSettingsPanel::getDefaultSettings(GeneralModel& model) const
{
    getCurrentModel(model);
    PanelDefaults::assign(model.cacheDirectory, SettingsKeys::CacheDirectory);
    PanelDefaults::assign(model.screenshotFolder, SettingsKeys::ScreenshotFolder);
    PanelDefaults::assign(model.cacheSize, SettingsKeys::CacheSize);
}

void ZelGeneralSettingsPanel::getCurrentModel(GeneralModel& model) const
{
    model.cacheDirectory = m_ui->databaseButton->toolTip();
    model.cacheSize = m_ui->databaseSpinBox->value();
    model.screenshotFolder = m_ui->screenshotFolderButton->toolTip();
}

ZelGeneralSettingsPanel::Editors ZelGeneralSettingsPanel::fieldEditors() const
{
    return {{{m_ui->databaseButton}, {m_ui->screenshotFolderButton}, {m_ui->databaseSpinBox}}};
}

void ZelGeneralSettingsPanel::applyModel(const GeneralModel& model)
{
    const QSignalBlocker blocker(m_ui->databaseSpinBox);
    m_ui->databaseButton->setToolTip(model.cacheDirectory);
    m_ui->screenshotFolderButton->setToolTip(model.screenshotFolder);
    m_ui->databaseSpinBox->setValue(model.cacheSize);
    elideText();
}

void ZelGeneralSettingsPanel::pushToApplication()
{
    setMaxCacheSize();
    setScreenshotFolder();
}

void ZelGeneralSettingsPanel::saveSettingsInternal()
{
    // A folder is empty only when none was ever known: writing it would point the
    // application at its working folder.
    const auto setFolder = [this](QLatin1String key, const QString& folder) {
        if (!folder.isEmpty())
            writeSetting(key, folder);
    };
    setFolder(SettingsKeys::CacheDirectory, m_ui->databaseButton->toolTip());
    writeSetting(SettingsKeys::CacheSize, m_ui->databaseSpinBox->value());
    setFolder(SettingsKeys::ScreenshotFolder, m_ui->screenshotFolderButton->toolTip());
}

void ZelGeneralSettingsPanel::chooseFolder(QPushButton* button, const QString& title)
{
    // A window of its own, not styled as a part of the drawer it opens from.
    const QString folder = m_folderChooser(window(), title, nearestExistingFolder(button->toolTip()));
    if (folder.isEmpty())
        return;
    button->setToolTip(folder);
    elideText();
    checkContent();
    Q_EMIT stateChanged();
}

} // namespace zel
