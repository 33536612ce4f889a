#include "ZelRendererSelector.h"

#include "kqMovableObject.h"
#include "ui_ZelRendererSelector.h"

#include <QEvent>
#include <QShortcut>

#include <utility>

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

    // The arrow keys move the choice, whichever button holds the focus: towards Low on
    // the left, or High on the right.
    const std::pair<Qt::Key, bool> arrows[] = {
        {Qt::Key_Left, true}, {Qt::Key_Up, true}, {Qt::Key_Right, false}, {Qt::Key_Down, false}};
    for (const auto& [key, software] : arrows)
        connect(new QShortcut(key, this), &QShortcut::activated, this,
                [this, software = software] { choose(software); });
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
    const bool onDeferred = watched == m_ui->deferredButton;
    if (onDeferred != property(SoftwareProperty).toBool())
        return false;
    choose(!onDeferred);
    return true;
}

void ZelRendererSelector::choose(bool software)
{
    if (property(SoftwareProperty).toBool() == software)
        return;
    setProperty(SoftwareProperty, software);
    // Property-dependent rules are only re-read when the sheet is set again.
    setStyleSheet(styleSheet());
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
