#pragma once

#include "ZelControlCenterExport.h"

#include <QDialog>

#include <memory>

namespace Ui {
class ZelRendererSelector;
}
namespace kq {
class kqMovableObject;
}

namespace zel {

// The first-start question: the GPU renderer ("High") or the software raytracer
// ("Low"). The choice is the dynamic property "software"; Ok accepts, the title's close
// button rejects. Return chooses Ok and Escape rejects, as in any dialog.
class ZEL_CONTROLCENTER_EXPORT ZelRendererSelector : public QDialog
{
    Q_OBJECT

public:
    explicit ZelRendererSelector(QWidget* parent = nullptr, Qt::WindowFlags flags = {});
    ~ZelRendererSelector() override;

    // Not property("software"): true while the GPU renderer is chosen.
    bool useGPURenderer() const;

    // Switches the choice when the mouse is released over the engine not chosen.
    bool eventFilter(QObject* watched, QEvent* event) override;

protected Q_SLOTS:
    void on_okButton_clicked();
    void on_closeButton_clicked();

private:
    void choose(bool software);

    Q_DISABLE_COPY_MOVE(ZelRendererSelector)
    std::unique_ptr<Ui::ZelRendererSelector> m_ui;
    // Owned through its parent, the dialog.
    kq::kqMovableObject* m_movable = nullptr;
};

} // namespace zel
