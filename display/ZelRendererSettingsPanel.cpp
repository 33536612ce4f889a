#include "ZelRendererSettingsPanel.h"
#include "ui_ZelRendererSettingsPanel.h"

#include "ZelPanelDefaults.h"
#include "ZelPanelRanges.h"
#include "ZelSettingRange.h"
#include "ZelSettings.h"
#include "ZelSettingsKeys.h"
#include "kqDMIApplication.h"
#include "kqDMRenderer.h"
#include "zelAction.h"
#include "zelActionManager.h"

#include <QCoreApplication>
#include <QSettings>
#include <QWidget>

#include <algorithm>
#include <climits>
#include <cmath>

namespace zel {

namespace {

// The scene units are the choices of their key's range, kilometre first, in the order
// of the combo box; the metre is one unit per metre.
constexpr QLatin1String Metre("1");
constexpr float SceneUnitTolerance = 0.001f;

QStringList sceneUnits()
{
    return ZelSettings::GetSettingRange(SettingsKeys::SceneUnits).choices;
}

// The memory fields count in the step of the budgets' range, the settings in bytes.
quint64 memoryUnit()
{
    return quint64(ZelSettings::GetSettingRange(SettingsKeys::MaxGPUMemory).step);
}

int mebibytes(quint64 bytes)
{
    return int(std::min<quint64>(bytes / memoryUnit(), INT_MAX));
}

quint64 bytes(int mebibytes)
{
    return quint64(mebibytes) * memoryUnit();
}

} // namespace

bool EngineModel::operator==(const EngineModel& other) const
{
    if (useSoftware != other.useSoftware || trianglesCap != other.trianglesCap)
        return false;
    if (useSoftware) {
        return maxCPUMemoryRaytracer == other.maxCPUMemoryRaytracer && coreNumber == other.coreNumber
            && quality == other.quality;
    }
    if (useSSAO != other.useSSAO || useFXAA != other.useFXAA || useED != other.useED
        || maxCPUMemory3D != other.maxCPUMemory3D || maxGPUMemory != other.maxGPUMemory)
        return false;
    // The combo box is the "SSAO Units" setting.
    return !useSSAO || sceneUnitIndex == other.sceneUnitIndex;
}

ZelRendererSettingsPanel::ZelRendererSettingsPanel(kqDMIApplication* application, QSettings& settings,
                                                   QWidget* parent, Qt::WindowFlags flags)
    : ZelModelSettingsPanel(application, settings, parent, flags)
    , m_ui(std::make_unique<Ui::ZelRendererSettingsPanel>())
    // The page speaks under its form's context, code and form alike.
    , m_qualityNames {QCoreApplication::translate("ZelRendererSettingsPanel", "Low"),
                      QCoreApplication::translate("ZelRendererSettingsPanel", "Medium"),
                      QCoreApplication::translate("ZelRendererSettingsPanel", "High"),
                      QCoreApplication::translate("ZelRendererSettingsPanel", "Ultra")}
{
    m_ui->setupUi(this);
    setResetButton(m_ui->resetButton);
    PanelRanges::fit(m_ui->maxCPU3DSpinBox, SettingsKeys::MaxCPUMemory3D);
    PanelRanges::fit(m_ui->maxCPURaySpinBox, SettingsKeys::MaxCPUMemoryRaytracer);
    PanelRanges::fit(m_ui->maxGPUSPinBox, SettingsKeys::MaxGPUMemory);
    PanelRanges::fit(m_ui->maxTrianglesSpinBox, SettingsKeys::LODTrianglesCap);
    PanelRanges::fit(m_ui->coreUsedSlider, SettingsKeys::RaytracerCoreNumber);
    PanelRanges::fit(m_ui->qualitySlider, SettingsKeys::RaytracerQuality);
    setStyleSheet(kqDMIApplication::GetStylesheet(QStringLiteral("ZelRendererSettingsPanel")));

    m_startQuality = kqDMRenderer::GetRaytracerQuality(stored(SettingsKeys::RaytracerQuality).toString());
    m_startCoreNumber = stored(SettingsKeys::RaytracerCoreNumber).toInt();
    m_startGPUMode = stored(SettingsKeys::Engine).toString() != QLatin1String("software");

    setPanelName(QCoreApplication::translate("ZelRendererSettingsPanel", "Display"));
    setPanelCategory(ApplicationCategory);

    // Out of the page, the hidden controls are not styled and laid out with it.
    m_unusedOptions.reset(m_ui->extendOptionFrame);
    m_unusedOptions->hide();
    m_unusedOptions->setParent(nullptr);
    getCurrentModel(m_formModel);
}

ZelRendererSettingsPanel::~ZelRendererSettingsPanel() = default;

int ZelRendererSettingsPanel::GetSceneUnitComboIndex(float factor)
{
    const QStringList units = sceneUnits();
    for (int index = 0; index < units.size(); ++index) {
        if (std::fabs(factor - units[index].toFloat()) < SceneUnitTolerance)
            return index;
    }
    return int(units.indexOf(Metre));
}

void ZelRendererSettingsPanel::on_resetButton_clicked()
{
    resetContent();
}

void ZelRendererSettingsPanel::on_maxTrianglesSpinBox_valueChanged(int)
{
    announceEdit();
}

void ZelRendererSettingsPanel::on_maxGPUSPinBox_valueChanged(int)
{
    announceEdit();
}

void ZelRendererSettingsPanel::on_maxCPURaySpinBox_valueChanged(int)
{
    announceEdit();
}

void ZelRendererSettingsPanel::on_maxCPU3DSpinBox_valueChanged(int)
{
    announceEdit();
}

void ZelRendererSettingsPanel::on_sceneUnitComboBox_currentIndexChanged(int)
{
    announceEdit();
}

void ZelRendererSettingsPanel::on_deferredEDCheckBox_stateChanged(int)
{
    announceEdit();
}

void ZelRendererSettingsPanel::on_deferredFXAACheckBox_stateChanged(int)
{
    announceEdit();
}

void ZelRendererSettingsPanel::on_deferredSSAOCheckBox_stateChanged(int)
{
    announceEdit();
}

void ZelRendererSettingsPanel::on_coreUsedSlider_valueChanged(int value)
{
    setNbCoresTxt(value);
    announceEdit();
}

void ZelRendererSettingsPanel::on_qualitySlider_valueChanged(int value)
{
    setRaytracerQuality(value);
    announceEdit();
}

void ZelRendererSettingsPanel::on_deferredButton_toggled(bool checked)
{
    forceGPUMode(checked);
    announceEdit();
}

void ZelRendererSettingsPanel::on_raytracerButton_toggled(bool checked)
{
    forceGPUMode(!checked);
    announceEdit();
}

void ZelRendererSettingsPanel::readSettings(EngineModel& model) const
{
    // An absent number would read as 0, which the widgets show clamped: a pending edit
    // nobody made. The form's own value stands in where no default is registered.
    const auto number = [this](QLatin1String key, auto formValue) {
        const QVariant value = stored(key);
        return value.isValid() ? value.value<decltype(formValue)>() : formValue;
    };
    model.useSoftware = stored(SettingsKeys::Engine).toString() == QLatin1String("software");
    model.useSSAO = stored(SettingsKeys::UseSSAO).toBool();
    model.useFXAA = stored(SettingsKeys::UseFXAA).toBool();
    model.useED = stored(SettingsKeys::UseED).toBool();
    model.coreNumber = number(SettingsKeys::RaytracerCoreNumber, m_formModel.coreNumber);
    model.quality = kqDMRenderer::GetRaytracerQuality(stored(SettingsKeys::RaytracerQuality).toString());
    model.maxCPUMemory3D = number(SettingsKeys::MaxCPUMemory3D, m_formModel.maxCPUMemory3D);
    model.maxCPUMemoryRaytracer = number(SettingsKeys::MaxCPUMemoryRaytracer, m_formModel.maxCPUMemoryRaytracer);
    model.maxGPUMemory = number(SettingsKeys::MaxGPUMemory, m_formModel.maxGPUMemory);
    model.trianglesCap = number(SettingsKeys::LODTrianglesCap, m_formModel.trianglesCap);
    model.sceneUnitIndex = GetSceneUnitComboIndex(stored(SettingsKeys::SceneUnits).toFloat());
}

void ZelRendererSettingsPanel::getDefaultSettings(EngineModel& model) const
{
    getCurrentModel(model);
    if (const auto engine = PanelDefaults::text(SettingsKeys::Engine))
        model.useSoftware = *engine == QLatin1String("software");
    PanelDefaults::assign(model.useSSAO, SettingsKeys::UseSSAO);
    PanelDefaults::assign(model.useFXAA, SettingsKeys::UseFXAA);
    PanelDefaults::assign(model.useED, SettingsKeys::UseED);
    PanelDefaults::assign(model.coreNumber, SettingsKeys::RaytracerCoreNumber);
    if (const auto quality = PanelDefaults::text(SettingsKeys::RaytracerQuality))
        model.quality = kqDMRenderer::GetRaytracerQuality(*quality);
    PanelDefaults::assign(model.maxCPUMemory3D, SettingsKeys::MaxCPUMemory3D);
    PanelDefaults::assign(model.maxCPUMemoryRaytracer, SettingsKeys::MaxCPUMemoryRaytracer);
    PanelDefaults::assign(model.maxGPUMemory, SettingsKeys::MaxGPUMemory);
    PanelDefaults::assign(model.trianglesCap, SettingsKeys::LODTrianglesCap);
    if (const auto factor = PanelDefaults::text(SettingsKeys::SceneUnits))
        model.sceneUnitIndex = GetSceneUnitComboIndex(factor->toFloat());
}

void ZelRendererSettingsPanel::getCurrentModel(EngineModel& model) const
{
    model.maxCPUMemory3D = bytes(m_ui->maxCPU3DSpinBox->value());
    model.maxCPUMemoryRaytracer = bytes(m_ui->maxCPURaySpinBox->value());
    model.maxGPUMemory = bytes(m_ui->maxGPUSPinBox->value());
    model.trianglesCap = quint64(m_ui->maxTrianglesSpinBox->value());
    model.coreNumber = m_ui->coreUsedSlider->value();
    model.quality = m_ui->qualitySlider->value();
    model.sceneUnitIndex = m_ui->sceneUnitComboBox->currentIndex();
    model.useSoftware = m_ui->raytracerButton->isChecked();
    model.useSSAO = m_ui->deferredSSAOCheckBox->isChecked();
    model.useFXAA = m_ui->deferredFXAACheckBox->isChecked();
    model.useED = m_ui->deferredEDCheckBox->isChecked();
}

void ZelRendererSettingsPanel::applyModel(const EngineModel& model)
{
    const QSignalBlocker blockers[] = {
        QSignalBlocker(m_ui->raytracerButton),      QSignalBlocker(m_ui->deferredButton),
        QSignalBlocker(m_ui->deferredSSAOCheckBox), QSignalBlocker(m_ui->deferredFXAACheckBox),
        QSignalBlocker(m_ui->deferredEDCheckBox),   QSignalBlocker(m_ui->sceneUnitComboBox),
        QSignalBlocker(m_ui->coreUsedSlider),       QSignalBlocker(m_ui->qualitySlider),
        QSignalBlocker(m_ui->maxCPU3DSpinBox),      QSignalBlocker(m_ui->maxCPURaySpinBox),
        QSignalBlocker(m_ui->maxGPUSPinBox),        QSignalBlocker(m_ui->maxTrianglesSpinBox),
    };
    m_ui->raytracerButton->setChecked(model.useSoftware);
    m_ui->deferredButton->setChecked(!model.useSoftware);
    m_ui->deferredSSAOCheckBox->setChecked(model.useSSAO);
    m_ui->deferredFXAACheckBox->setChecked(model.useFXAA);
    m_ui->deferredEDCheckBox->setChecked(model.useED);
    // The form's connection that usually follows the check box is blocked here.
    m_ui->SSAOFrame->setEnabled(model.useSSAO);
    m_ui->sceneUnitComboBox->setCurrentIndex(model.sceneUnitIndex);
    m_ui->coreUsedSlider->setValue(model.coreNumber);
    m_ui->qualitySlider->setValue(model.quality);
    // Truncated to whole mebibytes, then clamped by the spin boxes.
    m_ui->maxCPU3DSpinBox->setValue(mebibytes(model.maxCPUMemory3D));
    m_ui->maxCPURaySpinBox->setValue(mebibytes(model.maxCPUMemoryRaytracer));
    m_ui->maxGPUSPinBox->setValue(mebibytes(model.maxGPUMemory));
    m_ui->maxTrianglesSpinBox->setValue(int(qMin<quint64>(model.trianglesCap, quint64(INT_MAX))));
    setRaytracerQuality(model.quality);
    setNbCoresTxt(model.coreNumber);
    forceGPUMode(!model.useSoftware);
}

ZelRendererSettingsPanel::Editors ZelRendererSettingsPanel::fieldEditors() const
{
    return {{{m_ui->maxCPU3DSpinBox},
             {m_ui->maxCPURaySpinBox},
             {m_ui->maxGPUSPinBox},
             {m_ui->maxTrianglesSpinBox},
             {m_ui->coreUsedSlider},
             {m_ui->qualitySlider},
             {m_ui->sceneUnitComboBox},
             {m_ui->deferredButton, m_ui->raytracerButton},
             {m_ui->deferredSSAOCheckBox},
             {m_ui->deferredFXAACheckBox},
             {m_ui->deferredEDCheckBox}}};
}

void ZelRendererSettingsPanel::pushToApplication()
{
    setTriangleCap(quint64(m_ui->maxTrianglesSpinBox->value()));
}

bool ZelRendererSettingsPanel::shouldRestart() const
{
    const bool software = m_ui->raytracerButton->isChecked();
    const bool storedSoftware = stored(SettingsKeys::Engine).toString() == QLatin1String("software");
    if (software != storedSoftware && software == m_startGPUMode)
        return true;
    if (!software)
        return false;
    return hasRaytracerRebootChanged();
}

bool ZelRendererSettingsPanel::hasRaytracerRebootChanged() const
{
    if (!m_ui->raytracerButton->isChecked())
        return false;
    const int cores = m_ui->coreUsedSlider->value();
    const int quality = m_ui->qualitySlider->value();
    const int storedCores = stored(SettingsKeys::RaytracerCoreNumber).toInt();
    const int storedQuality = kqDMRenderer::GetRaytracerQuality(stored(SettingsKeys::RaytracerQuality).toString());
    if (cores != storedCores && cores != m_startCoreNumber)
        return true;
    return quality != storedQuality && quality != m_startQuality;
}

QVariant ZelRendererSettingsPanel::stored(QLatin1String key) const
{
    return PanelDefaults::storedOrDefault(settings(), key);
}

void ZelRendererSettingsPanel::saveSettingsInternal()
{
    saveQualitySettings();
    saveEngineSettings();
    saveCoreNumberSettings();
    saveSSAOSettings();
    saveFXAASettings();
    saveEdgeDetectSettings();
    saveSceneUnitSettings();
    saveResourcesSettings();
    saveTriangleCapSettings();
}

void ZelRendererSettingsPanel::forceGPUMode(bool gpu)
{
    m_ui->hardwareFrame->setVisible(gpu);
    m_ui->GPUMemoryFrame->setVisible(gpu);
    m_ui->GPUMemory->setVisible(gpu);
    m_ui->softwareFrame->setVisible(!gpu);
    m_ui->CPUMemoryFrame->setVisible(!gpu);

    zelActionManager* actions = application() ? application()->getActionManager() : nullptr;
    if (zelAction* renderingMode = actions ? actions->getActionByName(QStringLiteral("renderingMode")) : nullptr)
        renderingMode->setEnabled(m_startGPUMode);
}

void ZelRendererSettingsPanel::setGPUMode(bool gpu)
{
    forceGPUMode(gpu);
}

void ZelRendererSettingsPanel::setNbCoresTxt(int cores)
{
    const QString text = cores < 2 ? QCoreApplication::translate("ZelRendererSettingsPanel", "%1 core")
                                   : QCoreApplication::translate("ZelRendererSettingsPanel", "%1 cores");
    m_ui->coreUsedLabel->setText(text.arg(cores));
    // What the slider's position means, for the default's tool tip and screen readers.
    m_ui->coreUsedSlider->setProperty("valueText", m_ui->coreUsedLabel->text());
    m_ui->coreUsedSlider->setAccessibleDescription(m_ui->coreUsedLabel->text());
}

void ZelRendererSettingsPanel::setRaytracerQuality(int quality)
{
    if (quality < 0 || quality >= int(m_qualityNames.size()))
        return;
    const QString& name = m_qualityNames[std::size_t(quality)];
    m_ui->qualityLabel->setText(name);
    m_ui->qualitySlider->setProperty("valueText", name);
    m_ui->qualitySlider->setAccessibleDescription(name);
}

void ZelRendererSettingsPanel::setTriangleCap(quint64 triangles)
{
    if (!application())
        return;
    if (kqDMRenderer* renderer = application()->getDMRenderer())
        renderer->setTargetTriangles(triangles);
}

void ZelRendererSettingsPanel::announceEdit()
{
    checkContent();
    Q_EMIT stateChanged();
}

void ZelRendererSettingsPanel::saveQualitySettings()
{
    writeSetting(SettingsKeys::RaytracerQuality,
                 kqDMRenderer::scQualityEnum[std::size_t(m_ui->qualitySlider->value())]);
}

void ZelRendererSettingsPanel::saveEngineSettings()
{
    writeSetting(SettingsKeys::Engine,
                 m_ui->raytracerButton->isChecked() ? QStringLiteral("software") : QStringLiteral("deferred"));
}

void ZelRendererSettingsPanel::saveCoreNumberSettings()
{
    writeSetting(SettingsKeys::RaytracerCoreNumber, m_ui->coreUsedSlider->value());
}

void ZelRendererSettingsPanel::saveSSAOSettings()
{
    writeSetting(SettingsKeys::UseSSAO, m_ui->deferredSSAOCheckBox->isChecked());
}

void ZelRendererSettingsPanel::saveFXAASettings()
{
    writeSetting(SettingsKeys::UseFXAA, m_ui->deferredFXAACheckBox->isChecked());
}

void ZelRendererSettingsPanel::saveEdgeDetectSettings()
{
    writeSetting(SettingsKeys::UseED, m_ui->deferredEDCheckBox->isChecked());
}

void ZelRendererSettingsPanel::saveSceneUnitSettings()
{
    const QStringList units = sceneUnits();
    const int index = m_ui->sceneUnitComboBox->currentIndex();
    writeSetting(SettingsKeys::SceneUnits, index >= 0 && index < units.size() ? units[index] : QString(Metre));
}

void ZelRendererSettingsPanel::saveResourcesSettings()
{
    writeSetting(SettingsKeys::MaxCPUMemory3D, bytes(m_ui->maxCPU3DSpinBox->value()));
    writeSetting(SettingsKeys::MaxCPUMemoryRaytracer, bytes(m_ui->maxCPURaySpinBox->value()));
    writeSetting(SettingsKeys::MaxGPUMemory, bytes(m_ui->maxGPUSPinBox->value()));
}

void ZelRendererSettingsPanel::saveTriangleCapSettings()
{
    writeSetting(SettingsKeys::LODTrianglesCap, quint64(m_ui->maxTrianglesSpinBox->value()));
}

} // namespace zel
