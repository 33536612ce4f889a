#pragma once

#include "ZelControlCenterExport.h"
#include "ZelModelSettingsPanel.h"
#include "ZelSettingsKeys.h"

#include <array>
#include <memory>
#include <tuple>
#include <vector>

class QDoubleSpinBox;

namespace Ui {
class ZelSimplificationSettingsPanel;
}

namespace zel {

// The share of a model's triangles that each of the five export levels keeps.
struct ZEL_CONTROLCENTER_EXPORT SimplificationModel
{
    // Fractions of 1, level 1 first; a well-formed model has five.
    std::vector<float> ratios;
    // False when read from a stored text that is not five ratios: the page then shows
    // the defaults and counts as modified until Apply writes them.
    bool wellFormed = true;

    // Exact comparison: a NaN always differs.
    bool operator==(const SimplificationModel& other) const;

    // Both fields are the one stored text.
    auto tie() { return std::tie(ratios, wellFormed); }
    auto tie() const { return std::tie(ratios, wellFormed); }
    static constexpr std::array<QLatin1String, 2> Keys = {SettingsKeys::SimplificationRatios,
                                                           SettingsKeys::SimplificationRatios};
};

// The "Compression / Simplification" page. Level 1 keeps everything; levels 2 to 5
// must not increase from one level to the next. New ratios reach the running
// simplifier at once and never need a restart.
class ZEL_CONTROLCENTER_EXPORT ZelSimplificationSettingsPanel
    : public ZelModelSettingsPanel<ZelSimplificationSettingsPanel, SimplificationModel>
{
    Q_OBJECT

public:
    ZelSimplificationSettingsPanel(kqDMIApplication* application, QSettings& settings, QWidget* parent = nullptr,
                                   Qt::WindowFlags flags = {});
    ~ZelSimplificationSettingsPanel() override;

Q_SIGNALS:
    void stateChanged();

private Q_SLOTS:
    void on_resetButton_clicked();
    void on_ratio2_editingFinished();
    void on_ratio3_editingFinished();
    void on_ratio4_editingFinished();
    void on_ratio5_editingFinished();

protected:
    // Hands the ratios shown to the running simplifier, when there is one.
    void setRatios();
    // Writes the ratios shown as "1/0.75/0.5/0.25/0.1".
    void saveRatios();

private:
    Q_DISABLE_COPY_MOVE(ZelSimplificationSettingsPanel)
    friend class ZelModelSettingsPanel<ZelSimplificationSettingsPanel, SimplificationModel>;

    void readSettings(SimplificationModel& model) const;
    void getDefaultSettings(SimplificationModel& model) const;
    void getCurrentModel(SimplificationModel& model) const;
    void applyModel(const SimplificationModel& model);
    Editors fieldEditors() const;
    void pushToApplication() { setRatios(); }
    bool shouldRestart() const { return false; }
    void saveSettingsInternal() { saveRatios(); }

    // After an edit of `level` (2 to 5), pulls its immediate neighbours into order: the
    // level below may not keep more, the level above not less. One step only.
    void keepOrder(int level);
    // The five spin boxes, level 1 first.
    std::vector<QDoubleSpinBox*> levels() const;

    std::unique_ptr<Ui::ZelSimplificationSettingsPanel> m_ui;
    // Guards keepOrder() against being entered again while it adjusts a neighbour.
    bool m_editing = false;
};

} // namespace zel
