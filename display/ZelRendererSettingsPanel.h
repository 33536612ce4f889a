#pragma once

#include "ZelControlCenterExport.h"
#include "ZelModelSettingsPanel.h"
#include "ZelSettingsKeys.h"

#include <QString>

#include <array>
#include <memory>
#include <tuple>

class QWidget;

namespace Ui {
class ZelRendererSettingsPanel;
}

namespace zel {

// What the Display page edits. Memory budgets are bytes, whole mebibytes on the page.
struct ZEL_CONTROLCENTER_EXPORT EngineModel
{
    quint64 maxCPUMemory3D = 0;
    quint64 maxCPUMemoryRaytracer = 0;
    quint64 maxGPUMemory = 0;
    quint64 trianglesCap = 0;
    int coreNumber = 0;
    int quality = 0;        // index into the kernel's raytracer quality names
    int sceneUnitIndex = 0; // row of the scene-unit table
    bool useSoftware = false;
    bool useSSAO = false;
    bool useFXAA = false;
    bool useED = false;

    // Only what the chosen engine uses counts: the raytracer's fields in software
    // mode, the deferred renderer's otherwise, and the scene unit only with SSAO on.
    bool operator==(const EngineModel& other) const;

    auto tie()
    {
        return std::tie(maxCPUMemory3D, maxCPUMemoryRaytracer, maxGPUMemory, trianglesCap, coreNumber, quality,
                        sceneUnitIndex, useSoftware, useSSAO, useFXAA, useED);
    }
    auto tie() const
    {
        return std::tie(maxCPUMemory3D, maxCPUMemoryRaytracer, maxGPUMemory, trianglesCap, coreNumber, quality,
                        sceneUnitIndex, useSoftware, useSSAO, useFXAA, useED);
    }
    static constexpr std::array<QLatin1String, 11> Keys = {
        SettingsKeys::MaxCPUMemory3D, SettingsKeys::MaxCPUMemoryRaytracer, SettingsKeys::MaxGPUMemory,
        SettingsKeys::LODTrianglesCap, SettingsKeys::RaytracerCoreNumber, SettingsKeys::RaytracerQuality,
        SettingsKeys::SceneUnits, SettingsKeys::Engine, SettingsKeys::UseSSAO, SettingsKeys::UseFXAA,
        SettingsKeys::UseED,
    };
};

// The "Display" page: the rendering engine (GPU deferred renderer or software
// raytracer), the deferred renderer's effects, the raytracer's quality and cores, the
// memory budgets and the triangle cap. The cap takes effect at once; an engine change
// needs a restart, and so does a raytracer change in software mode.
class ZEL_CONTROLCENTER_EXPORT ZelRendererSettingsPanel
    : public ZelModelSettingsPanel<ZelRendererSettingsPanel, EngineModel>
{
    Q_OBJECT

public:
    ZelRendererSettingsPanel(kqDMIApplication* application, QSettings& settings, QWidget* parent = nullptr,
                             Qt::WindowFlags flags = {});
    ~ZelRendererSettingsPanel() override;

    // Row of the scene-unit table (the choices of its key's range) for a stored factor
    // (units per metre): the first unit within 0.001 of it, else the metre.
    static int GetSceneUnitComboIndex(float factor);

Q_SIGNALS:
    void stateChanged();

protected Q_SLOTS:
    void on_resetButton_clicked();
    void on_maxTrianglesSpinBox_valueChanged(int value);
    void on_maxGPUSPinBox_valueChanged(int value);
    void on_maxCPURaySpinBox_valueChanged(int value);
    void on_maxCPU3DSpinBox_valueChanged(int value);
    void on_sceneUnitComboBox_currentIndexChanged(int index);
    void on_deferredEDCheckBox_stateChanged(int state);
    void on_deferredFXAACheckBox_stateChanged(int state);
    void on_deferredSSAOCheckBox_stateChanged(int state);
    void on_coreUsedSlider_valueChanged(int value);
    void on_qualitySlider_valueChanged(int value);
    void on_deferredButton_toggled(bool checked);
    void on_raytracerButton_toggled(bool checked);

private:
    Q_DISABLE_COPY_MOVE(ZelRendererSettingsPanel)
    friend class ZelModelSettingsPanel<ZelRendererSettingsPanel, EngineModel>;

    void readSettings(EngineModel& model) const;
    void getDefaultSettings(EngineModel& model) const;
    void getCurrentModel(EngineModel& model) const;
    void applyModel(const EngineModel& model);
    Editors fieldEditors() const;
    void pushToApplication();
    // An engine change needs a restart, unless it returns to the engine the application
    // runs with; in software mode, so does a raytracer change.
    bool shouldRestart() const;
    // A core or quality change in software mode, unless back to the value in use.
    bool hasRaytracerRebootChanged() const;
    void saveSettingsInternal();
    // The value of `key` the application runs with: the stored one, else its default.
    QVariant stored(QLatin1String key) const;

    // Shows the frames of one engine. The "renderingMode" action is usable only while
    // the application runs the GPU renderer, whatever the page shows.
    void forceGPUMode(bool gpu);
    void setGPUMode(bool gpu);
    void setNbCoresTxt(int cores);
    void setRaytracerQuality(int quality);
    // Hands the cap to the running renderer, when there is one.
    void setTriangleCap(quint64 triangles);
    void announceEdit();

    void saveQualitySettings();
    void saveEngineSettings();
    void saveCoreNumberSettings();
    void saveSSAOSettings();
    void saveFXAASettings();
    void saveEdgeDetectSettings();
    void saveSceneUnitSettings();
    void saveResourcesSettings();
    void saveTriangleCapSettings();

    // Kept empty: these settings reach the renderer at the application's next start.
    void setupResources() {}
    void setSceneUnits(int) {}
    void setEdgeDetect(bool) {}
    void setFXAA(bool) {}
    void setSSAO(bool) {}

    std::unique_ptr<Ui::ZelRendererSettingsPanel> m_ui;
    // The form's extra controls: never shown, never read, held outside the page.
    std::unique_ptr<QWidget> m_unusedOptions;
    std::array<QString, 4> m_qualityNames;
    // What the running application started with: the restart rules compare with it.
    int m_startQuality = 0;
    int m_startCoreNumber = 1;
    bool m_startGPUMode = false;
    // What the form shows before any settings are read; an absent number reads as it.
    EngineModel m_formModel;
};

} // namespace zel
