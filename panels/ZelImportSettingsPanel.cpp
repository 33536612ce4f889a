#include "ZelImportSettingsPanel.h"
#include "ui_ZelImportSettingsPanel.h"

#include "ZelPanelDefaults.h"
#include "ZelPanelRanges.h"
#include "ZelSettingsKeys.h"
#include "kqDMIApplication.h"

#include <QSettings>

#include <initializer_list>

namespace zel {

namespace {

// Checks or unchecks each button of one group without a signal.
void check(std::initializer_list<std::pair<QAbstractButton*, bool>> buttons)
{
    for (const auto& [button, checked] : buttons) {
        const QSignalBlocker blocker(button);
        button->setChecked(checked);
    }
}

} // namespace

bool ImportModel::operator==(const ImportModel& other) const
{
    if (qualitySet != other.qualitySet || maxFaceSagSet != other.maxFaceSagSet
        || maxFaceLengthSet != other.maxFaceLengthSet || maxFaceAngleSet != other.maxFaceAngleSet)
        return false;
    if (qualitySet && isHighQuality != other.isHighQuality)
        return false;
    // Written as "not equal" so that a NaN on either side differs.
    if (maxFaceSagSet && !(maxFaceSag == other.maxFaceSag))
        return false;
    if (maxFaceLengthSet && !(maxFaceLength == other.maxFaceLength))
        return false;
    return !(maxFaceAngleSet && maxFaceAngle != other.maxFaceAngle);
}

ZelImportSettingsPanel::ZelImportSettingsPanel(kqDMIApplication* application, QSettings& settings,
                                               QWidget* parent, Qt::WindowFlags flags)
    : ZelModelSettingsPanel(application, settings, parent, flags)
    , m_ui(std::make_unique<Ui::ZelImportSettingsPanel>())
{
    m_ui->setupUi(this);
    PanelRanges::fit(m_ui->faceSagSpin, SettingsKeys::TesselationMaxFaceSag);
    PanelRanges::fit(m_ui->faceLengthSpin, SettingsKeys::TesselationMaxFaceLength);
    PanelRanges::fit(m_ui->faceAngleSpin, SettingsKeys::TesselationMaxFaceAngle);
    setResetButton(m_ui->resetButton);
    setStyleSheet(kqDMIApplication::GetStylesheet(QStringLiteral("ZelImportSettingsPanel")));
    setPanelName(tr("Tessellation"));
    setPanelCategory(ImportCategory);
}

ZelImportSettingsPanel::~ZelImportSettingsPanel() = default;

void ZelImportSettingsPanel::on_defaultQuality_clicked()
{
    setQuality(false, true);
    announceEdit();
}

void ZelImportSettingsPanel::on_highQuality_clicked()
{
    setQuality(true, true);
    announceEdit();
}

void ZelImportSettingsPanel::on_lowQuality_clicked()
{
    // Deliberately unlike the other edits: the reset button keeps its state until the
    // next refresh.
    setQuality(true, false);
    Q_EMIT stateChanged();
}

void ZelImportSettingsPanel::on_defaultSag_clicked()
{
    setFaceSagSet(false);
    announceEdit();
}

void ZelImportSettingsPanel::on_sag_clicked()
{
    setFaceSagSet(true);
    announceEdit();
}

void ZelImportSettingsPanel::on_defaultLength_clicked()
{
    setFaceLengthSet(false);
    announceEdit();
}

void ZelImportSettingsPanel::on_length_clicked()
{
    setFaceLengthSet(true);
    announceEdit();
}

void ZelImportSettingsPanel::on_resetButton_clicked()
{
    resetContent();
}

void ZelImportSettingsPanel::on_defaultAngle_clicked()
{
    setFaceAngleSet(false);
    announceEdit();
}

void ZelImportSettingsPanel::on_angle_clicked()
{
    setFaceAngleSet(true);
    announceEdit();
}

void ZelImportSettingsPanel::readSettings(ImportModel& model) const
{
    const auto stored = [this](QLatin1String key) { return PanelDefaults::storedOrDefault(settings(), key); };
    model.qualitySet = stored(SettingsKeys::TesselationQualitySet).toBool();
    model.isHighQuality = stored(SettingsKeys::TesselationIsHighQuality).toBool();
    model.maxFaceSagSet = stored(SettingsKeys::TesselationMaxFaceSagSet).toBool();
    model.maxFaceLengthSet = stored(SettingsKeys::TesselationMaxFaceLengthSet).toBool();
    model.maxFaceAngleSet = stored(SettingsKeys::TesselationMaxFaceAngleSet).toBool();
    model.maxFaceSag = stored(SettingsKeys::TesselationMaxFaceSag).toDouble();
    model.maxFaceLength = stored(SettingsKeys::TesselationMaxFaceLength).toDouble();
    model.maxFaceAngle = stored(SettingsKeys::TesselationMaxFaceAngle).toInt();
}

void ZelImportSettingsPanel::getDefaultSettings(ImportModel& model) const
{
    getCurrentModel(model);
    PanelDefaults::assign(model.qualitySet, SettingsKeys::TesselationQualitySet);
    PanelDefaults::assign(model.maxFaceSagSet, SettingsKeys::TesselationMaxFaceSagSet);
    PanelDefaults::assign(model.maxFaceLengthSet, SettingsKeys::TesselationMaxFaceLengthSet);
    PanelDefaults::assign(model.maxFaceAngleSet, SettingsKeys::TesselationMaxFaceAngleSet);
    PanelDefaults::assign(model.isHighQuality, SettingsKeys::TesselationIsHighQuality);
    PanelDefaults::assign(model.maxFaceSag, SettingsKeys::TesselationMaxFaceSag);
    PanelDefaults::assign(model.maxFaceLength, SettingsKeys::TesselationMaxFaceLength);
    PanelDefaults::assign(model.maxFaceAngle, SettingsKeys::TesselationMaxFaceAngle);
}

void ZelImportSettingsPanel::getCurrentModel(ImportModel& model) const
{
    model.qualitySet = !m_ui->defaultQuality->isChecked();
    model.maxFaceSagSet = !m_ui->defaultSag->isChecked();
    model.maxFaceLengthSet = !m_ui->defaultLength->isChecked();
    model.maxFaceAngleSet = !m_ui->defaultAngle->isChecked();
    model.isHighQuality = m_ui->defaultQuality->isChecked() ? m_loadedHighQuality : m_ui->highQuality->isChecked();
    model.maxFaceSag = m_ui->faceSagSpin->value();
    model.maxFaceLength = m_ui->faceLengthSpin->value();
    model.maxFaceAngle = m_ui->faceAngleSpin->value();
}

ZelImportSettingsPanel::Editors ZelImportSettingsPanel::fieldEditors() const
{
    const std::vector<QWidget*> quality {m_ui->defaultQuality, m_ui->highQuality, m_ui->lowQuality};
    return {{{m_ui->faceSagSpin},
             {m_ui->faceLengthSpin},
             {m_ui->faceAngleSpin},
             {m_ui->highQuality, m_ui->lowQuality},
             quality,
             {m_ui->defaultSag, m_ui->sag},
             {m_ui->defaultLength, m_ui->length},
             {m_ui->defaultAngle, m_ui->angle}}};
}

void ZelImportSettingsPanel::applyModel(const ImportModel& model)
{
    m_loadedHighQuality = model.isHighQuality;
    setQuality(model.qualitySet, model.isHighQuality);
    setFaceSagSet(model.maxFaceSagSet);
    setFaceLengthSet(model.maxFaceLengthSet);
    setFaceAngleSet(model.maxFaceAngleSet);
    // A limit that is not set still shows its value, greyed.
    const QSignalBlocker sag(m_ui->faceSagSpin);
    const QSignalBlocker length(m_ui->faceLengthSpin);
    const QSignalBlocker angle(m_ui->faceAngleSpin);
    m_ui->faceSagSpin->setValue(model.maxFaceSag);
    m_ui->faceLengthSpin->setValue(model.maxFaceLength);
    m_ui->faceAngleSpin->setValue(model.maxFaceAngle);
}

void ZelImportSettingsPanel::saveSettingsInternal()
{
    // Also the values of limits that are not set.
    ImportModel current;
    getCurrentModel(current);
    writeSetting(SettingsKeys::TesselationQualitySet, current.qualitySet);
    writeSetting(SettingsKeys::TesselationMaxFaceSagSet, current.maxFaceSagSet);
    writeSetting(SettingsKeys::TesselationMaxFaceLengthSet, current.maxFaceLengthSet);
    writeSetting(SettingsKeys::TesselationMaxFaceAngleSet, current.maxFaceAngleSet);
    writeSetting(SettingsKeys::TesselationIsHighQuality, current.isHighQuality);
    writeSetting(SettingsKeys::TesselationMaxFaceSag, current.maxFaceSag);
    writeSetting(SettingsKeys::TesselationMaxFaceLength, current.maxFaceLength);
    writeSetting(SettingsKeys::TesselationMaxFaceAngle, current.maxFaceAngle);
}

void ZelImportSettingsPanel::setQuality(bool set, bool high)
{
    check({{m_ui->defaultQuality, !set}, {m_ui->lowQuality, set && !high}, {m_ui->highQuality, set && high}});
}

void ZelImportSettingsPanel::setFaceSagSet(bool set)
{
    check({{m_ui->defaultSag, !set}, {m_ui->sag, set}});
    m_ui->faceSagSpin->setEnabled(set);
}

void ZelImportSettingsPanel::setFaceLengthSet(bool set)
{
    check({{m_ui->defaultLength, !set}, {m_ui->length, set}});
    m_ui->faceLengthSpin->setEnabled(set);
}

void ZelImportSettingsPanel::setFaceAngleSet(bool set)
{
    check({{m_ui->defaultAngle, !set}, {m_ui->angle, set}});
    m_ui->faceAngleSpin->setEnabled(set);
}

void ZelImportSettingsPanel::announceEdit()
{
    checkContent();
    Q_EMIT stateChanged();
}

} // namespace zel
