#include "ZelSimplificationSettingsPanel.h"
#include "ui_ZelSimplificationSettingsPanel.h"

#include "ZelPanelDefaults.h"
#include "ZelPanelImages.h"
#include "ZelPanelRanges.h"
#include "ZelSettings.h"
#include "ZelSettingsKeys.h"
#include "kqDMIApplication.h"
#include "kqDMManager.h"

#include <QSettings>

namespace zel {

namespace {

constexpr std::size_t LevelCount = 5;

// "1/0.75//0.5" gives 1, 0.75 and 0.5: empty parts are dropped, and a part that is no
// number gives 0.
std::vector<float> parseRatios(const QString& text)
{
    std::vector<float> ratios;
    for (const QString& part : text.split(QLatin1Char('/'), Qt::SkipEmptyParts))
        ratios.push_back(part.toFloat());
    return ratios;
}

} // namespace

bool SimplificationModel::operator==(const SimplificationModel& other) const
{
    // std::vector's == compares with float's ==, under which a NaN differs.
    return wellFormed == other.wellFormed && ratios == other.ratios;
}

ZelSimplificationSettingsPanel::ZelSimplificationSettingsPanel(kqDMIApplication* application, QSettings& settings,
                                                               QWidget* parent, Qt::WindowFlags flags)
    : ZelModelSettingsPanel(application, settings, parent, flags)
    , m_ui(std::make_unique<Ui::ZelSimplificationSettingsPanel>())
{
    m_ui->setupUi(this);
    // Level 1 always keeps everything and is never set.
    for (QDoubleSpinBox* level : levels())
        PanelRanges::fitPercent(level, SettingsKeys::SimplificationRatios);
    m_ui->ratio1->setMinimum(m_ui->ratio1->maximum());
    setResetButton(m_ui->resetButton);
    setStyleSheet(kqDMIApplication::GetStylesheet(QStringLiteral("ZelSimplificationSettingsPanel")));
    setPanelName(tr("Simplification"));
    setPanelCategory(ExportCategory);

    const QString pictures[] = {QStringLiteral("High"), QStringLiteral("Medium High"), QStringLiteral("Medium"),
                                QStringLiteral("Medium-Low-Quality"), QStringLiteral("Low-Quality")};
    QLabel* const labels[] = {m_ui->levelIcon1, m_ui->levelIcon2, m_ui->levelIcon3, m_ui->levelIcon4,
                              m_ui->levelIcon5};
    for (std::size_t level = 0; level < LevelCount; ++level)
        showSharpImage(labels[level], QStringLiteral(":/controlCenter/controlCenter/%1.png").arg(pictures[level]));

    // The order is kept when an edit is finished; the control center hears of every
    // step at once, so that Apply is ready while the box still has the focus.
    for (QDoubleSpinBox* level : levels()) {
        connect(level, &QDoubleSpinBox::valueChanged, this, [this] {
            checkContent();
            Q_EMIT stateChanged();
        });
    }
}

ZelSimplificationSettingsPanel::~ZelSimplificationSettingsPanel() = default;

void ZelSimplificationSettingsPanel::on_resetButton_clicked()
{
    resetContent();
}

void ZelSimplificationSettingsPanel::on_ratio2_editingFinished()
{
    keepOrder(2);
}

void ZelSimplificationSettingsPanel::on_ratio3_editingFinished()
{
    keepOrder(3);
}

void ZelSimplificationSettingsPanel::on_ratio4_editingFinished()
{
    keepOrder(4);
}

void ZelSimplificationSettingsPanel::on_ratio5_editingFinished()
{
    keepOrder(5);
}

void ZelSimplificationSettingsPanel::setRatios()
{
    if (!application())
        return;
    SimplificationModel current;
    getCurrentModel(current);
    if (kqDMManager* manager = application()->getDMManager())
        manager->setSimplificationRatios(current.ratios);
}

void ZelSimplificationSettingsPanel::saveRatios()
{
    QStringList texts;
    for (const QDoubleSpinBox* level : levels())
        texts.append(QString::number(level->value() / 100.0));
    writeSetting(SettingsKeys::SimplificationRatios, texts.join(QLatin1Char('/')));
}

void ZelSimplificationSettingsPanel::readSettings(SimplificationModel& model) const
{
    const QVariant stored = PanelDefaults::storedOrDefault(settings(), SettingsKeys::SimplificationRatios);
    model.ratios = parseRatios(stored.toString());
    if (model.ratios.size() == LevelCount)
        return;
    getDefaultSettings(model);
    model.wellFormed = !stored.isValid();
}

void ZelSimplificationSettingsPanel::getDefaultSettings(SimplificationModel& model) const
{
    std::vector<float> ratios = parseRatios(ZelSettings::GetDefaultSettingsValue(SettingsKeys::SimplificationRatios));
    if (ratios.size() < LevelCount) {
        // Nobody registered usable defaults: Reset has nothing to restore.
        getCurrentModel(model);
        return;
    }
    ratios.resize(LevelCount);
    model.ratios = std::move(ratios);
    model.wellFormed = true;
}

void ZelSimplificationSettingsPanel::getCurrentModel(SimplificationModel& model) const
{
    model.ratios.clear();
    for (const QDoubleSpinBox* level : levels())
        model.ratios.push_back(float(level->value()) / 100);
    model.wellFormed = true;
}

ZelSimplificationSettingsPanel::Editors ZelSimplificationSettingsPanel::fieldEditors() const
{
    const std::vector<QDoubleSpinBox*> boxes = levels();
    return {{std::vector<QWidget*>(boxes.cbegin(), boxes.cend()), {}}};
}

void ZelSimplificationSettingsPanel::applyModel(const SimplificationModel& model)
{
    if (model.ratios.size() != LevelCount)
        return;
    // Level 1 always keeps everything and is never set.
    const std::vector<QDoubleSpinBox*> boxes = levels();
    for (std::size_t level = 1; level < LevelCount; ++level) {
        const QSignalBlocker blocker(boxes[level]);
        boxes[level]->setValue(model.ratios[level] * 100.0f);
    }
}

void ZelSimplificationSettingsPanel::keepOrder(int level)
{
    const bool nested = m_editing;
    m_editing = true;
    const std::vector<QDoubleSpinBox*> boxes = levels();
    const std::size_t edited = std::size_t(level - 1);
    const double value = boxes[edited]->value();
    if (edited + 1 < LevelCount && boxes[edited + 1]->value() > value)
        boxes[edited + 1]->setValue(value);
    if (edited > 1 && boxes[edited - 1]->value() < value)
        boxes[edited - 1]->setValue(value);
    if (nested)
        return;
    m_editing = false;
    checkContent();
    Q_EMIT stateChanged();
}

std::vector<QDoubleSpinBox*> ZelSimplificationSettingsPanel::levels() const
{
    return {m_ui->ratio1, m_ui->ratio2, m_ui->ratio3, m_ui->ratio4, m_ui->ratio5};
}

} // namespace zel
