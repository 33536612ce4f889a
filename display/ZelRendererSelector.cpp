#include "ZelRendererSelector.h"

#include "kqMovableObject.h"
#include "ui_ZelRendererSelector.h"

#include <QEvent>

namespace zel {

namespace {
const char* const SoftwareProperty = "software";
}

ZelRendererSelector::ZelRendererSelector(QWidget* parent, Qt::WindowFlags flags)
    : QDialog(parent, flags)
    , m_ui(std::make_unique<Ui::ZelRendererSelector>())
{
    // The GPU renderer is preselected.
    setProperty(SoftwareProperty, false);
    m_ui->setupUi(this);

    // The window draws its own rounded card and glow.
    setWindowFlags(Qt::FramelessWindowHint);
    setAttribute(Qt::WA_TranslucentBackground);

    m_movable = new kq::kqMovableObject(this);
    m_movable->setAnchorObject(m_ui->titleFrame, this);

    m_ui->raytracerButton->installEventFilter(this);
    m_ui->deferredButton->installEventFilter(this);
}

ZelRendererSelector::~ZelRendererSelector() = default;

bool ZelRendererSelector::useGPURenderer() const
{
    return !property(SoftwareProperty).toBool();
}

bool ZelRendererSelector::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::MouseButtonRelease)
        return false;
    const bool software = property(SoftwareProperty).toBool();
    const bool onDeferred = watched == m_ui->deferredButton;
    if (onDeferred != software)
        return false;
    setProperty(SoftwareProperty, !onDeferred);
    // Property-dependent rules are only re-read when the sheet is set again.
    setStyleSheet(styleSheet());
    return true;
}

void ZelRendererSelector::on_okButton_clicked()
{
    accept();
}

void ZelRendererSelector::on_closeButton_clicked()
{
    reject();
}

} // namespace zel
