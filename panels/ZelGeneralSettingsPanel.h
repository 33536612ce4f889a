#pragma once

#include "ZelControlCenterExport.h"
#include "ZelModelSettingsPanel.h"
#include "ZelSettingsKeys.h"

#include <QString>

#include <array>
#include <functional>
#include <memory>
#include <tuple>

class QPushButton;

namespace Ui {
class ZelGeneralSettingsPanel;
}

namespace zel {

// What the Folders page edits.
struct ZEL_CONTROLCENTER_EXPORT GeneralModel
{
    QString cacheDirectory;
    QString screenshotFolder;
    int cacheSize = 0; // megabytes

    bool operator==(const GeneralModel& other) const;

    auto tie() { return std::tie(cacheDirectory, screenshotFolder, cacheSize); }
    auto tie() const { return std::tie(cacheDirectory, screenshotFolder, cacheSize); }
    static constexpr std::array<QLatin1String, 3> Keys = {SettingsKeys::CacheDirectory, SettingsKeys::ScreenshotFolder,
                                                           SettingsKeys::CacheSize};
};

// The "Folders" page: the 3D database cache folder and its size, and the screenshot
// folder. Size and screenshot folder take effect at once; a new cache folder only
// after a restart.
class ZEL_CONTROLCENTER_EXPORT ZelGeneralSettingsPanel
    : public ZelModelSettingsPanel<ZelGeneralSettingsPanel, GeneralModel>
{
    Q_OBJECT

public:
    // Asks the user for a folder, starting in `startFolder`; empty when cancelled.
    using FolderChooser =
        std::function<QString(QWidget* parent, const QString& title, const QString& startFolder)>;

    ZelGeneralSettingsPanel(kqDMIApplication* application, QSettings& settings, QWidget* parent = nullptr,
                            Qt::WindowFlags flags = {});
    ~ZelGeneralSettingsPanel() override;

    // Replaces the folder dialog (a host with a dialog of its own, or a test).
    void setFolderChooser(FolderChooser chooser);

Q_SIGNALS:
    void stateChanged();

private Q_SLOTS:
    void on_databaseButton_clicked();
    void on_screenshotFolderButton_clicked();
    void on_databaseSpinBox_valueChanged(int value);
    void on_resetButton_clicked();

protected:
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

    // Each folder button shows the end of its path, which its tool tip holds in full.
    void elideText();
    // Only a cache folder other than the stored one and the one in use needs a restart.
    bool shouldRestart() const;
    void setScreenshotFolder();
    void setMaxCacheSize();

private:
    Q_DISABLE_COPY_MOVE(ZelGeneralSettingsPanel)
    friend class ZelModelSettingsPanel<ZelGeneralSettingsPanel, GeneralModel>;

    void readSettings(GeneralModel& model) const;
    void getDefaultSettings(GeneralModel& model) const;
    void getCurrentModel(GeneralModel& model) const;
    void applyModel(const GeneralModel& model);
    Editors fieldEditors() const;
    void pushToApplication();
    void saveSettingsInternal();
    void chooseFolder(QPushButton* button, const QString& title);

    std::unique_ptr<Ui::ZelGeneralSettingsPanel> m_ui;
    // The cache folder the running application uses: what the settings held at start.
    QString m_initialCacheDirectory;
    // What the form shows before any settings are read.
    int m_formCacheSize = 0;
    FolderChooser m_folderChooser;
};

} // namespace zel
