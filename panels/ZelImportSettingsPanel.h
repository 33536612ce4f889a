#pragma once

#include "ZelControlCenterExport.h"
#include "ZelModelSettingsPanel.h"
#include "ZelSettingsKeys.h"

#include <array>
#include <memory>
#include <tuple>

namespace Ui {
class ZelImportSettingsPanel;
}

namespace zel {

// How native CAD files are tessellated on import: a quality preset, or limits on the
// faces' sag, length and angle, each left at its default or set.
struct ZEL_CONTROLCENTER_EXPORT ImportModel
{
    double maxFaceSag = 0.0;
    double maxFaceLength = 0.0;
    int maxFaceAngle = 0; // degrees
    bool isHighQuality = false;
    bool qualitySet = false;
    bool maxFaceSagSet = false;
    bool maxFaceLengthSet = false;
    bool maxFaceAngleSet = false;

    // Values that are not in force (a limit not set, high or low while the quality is
    // "Default") do not count; a NaN always differs.
    bool operator==(const ImportModel& other) const;

    auto tie()
    {
        return std::tie(maxFaceSag, maxFaceLength, maxFaceAngle, isHighQuality, qualitySet, maxFaceSagSet,
                        maxFaceLengthSet, maxFaceAngleSet);
    }
    auto tie() const
    {
        return std::tie(maxFaceSag, maxFaceLength, maxFaceAngle, isHighQuality, qualitySet, maxFaceSagSet,
                        maxFaceLengthSet, maxFaceAngleSet);
    }
    static constexpr std::array<QLatin1String, 8> Keys = {
        SettingsKeys::TesselationMaxFaceSag,       SettingsKeys::TesselationMaxFaceLength,
        SettingsKeys::TesselationMaxFaceAngle,     SettingsKeys::TesselationIsHighQuality,
        SettingsKeys::TesselationQualitySet,       SettingsKeys::TesselationMaxFaceSagSet,
        SettingsKeys::TesselationMaxFaceLengthSet, SettingsKeys::TesselationMaxFaceAngleSet,
    };
};

// The "Tessellation" page. It only stores the choices: the next import reads them, so
// nothing is pushed to the running application and no restart is ever needed.
class ZEL_CONTROLCENTER_EXPORT ZelImportSettingsPanel
    : public ZelModelSettingsPanel<ZelImportSettingsPanel, ImportModel>
{
    Q_OBJECT

public:
    ZelImportSettingsPanel(kqDMIApplication* application, QSettings& settings, QWidget* parent = nullptr,
                           Qt::WindowFlags flags = {});
    ~ZelImportSettingsPanel() override;

Q_SIGNALS:
    void stateChanged();

private Q_SLOTS:
    void on_defaultQuality_clicked();
    void on_highQuality_clicked();
    void on_lowQuality_clicked();
    void on_defaultSag_clicked();
    void on_sag_clicked();
    void on_defaultLength_clicked();
    void on_length_clicked();
    void on_resetButton_clicked();
    void on_defaultAngle_clicked();
    void on_angle_clicked();

private:
    Q_DISABLE_COPY_MOVE(ZelImportSettingsPanel)
    friend class ZelModelSettingsPanel<ZelImportSettingsPanel, ImportModel>;

    void readSettings(ImportModel& model) const;
    void getDefaultSettings(ImportModel& model) const;
    void getCurrentModel(ImportModel& model) const;
    void applyModel(const ImportModel& model);
    Editors fieldEditors() const;
    void pushToApplication() {}
    bool shouldRestart() const { return false; }
    void saveSettingsInternal();

    // Each radio button sits alone in its frame, so Qt's exclusivity never joins them:
    // these set every button of their group, signals blocked.
    void setQuality(bool set, bool high);
    void setFaceSagSet(bool set);
    void setFaceLengthSet(bool set);
    void setFaceAngleSet(bool set);
    // Refreshes the reset button and tells the control center.
    void announceEdit();

    std::unique_ptr<Ui::ZelImportSettingsPanel> m_ui;
    // High or low as last loaded: kept while the quality is "Default", where no button
    // shows it, so that an Apply never changes it behind the user's back.
    bool m_loadedHighQuality = true;
};

} // namespace zel
