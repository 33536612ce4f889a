#include "ZelFieldMarks.h"
#include "ZelStyleProperty_p.h"

#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QPixmap>
#include <QRadioButton>
#include <QToolTip>

#include <memory>

namespace zel {

namespace {

constexpr int MarkerSize = 12;
constexpr int DotSize = 8;
constexpr int MarkerGap = 3;

QString marksText(const char* text)
{
    return QCoreApplication::translate("ZelFieldMarks", text);
}

// Amber with a dark ring reads on every page's hue, light or dark.
void drawDot(QPainter& painter)
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(0x1b, 0x1b, 0x24), 1.5));
    painter.setBrush(QColor(0xff, 0xb3, 0x00));
    const qreal inset = (MarkerSize - DotSize) / 2.0;
    painter.drawEllipse(QRectF(inset, inset, DotSize, DotSize));
}

} // namespace

// The dot beside a field; hovering it tells the field's default.
class ZelFieldMarker : public QWidget
{
public:
    ZelFieldMarker(QWidget* page, QWidget* editor, const ZelFieldMarks::DefaultText& defaultText)
        : QWidget(page)
        , m_editor(editor)
        , m_defaultText(defaultText)
    {
        setObjectName(QStringLiteral("fieldMarker"));
        setFixedSize(MarkerSize, MarkerSize);
    }

    // Left of the field's label, or of the field where it names itself.
    void place()
    {
        const QWidget* label = ZelFieldMarks::labelOf(m_editor);
        const QWidget* anchor = label && label->isVisibleTo(parentWidget()) ? label : m_editor;
        const int left = anchor->mapTo(parentWidget(), QPoint(0, 0)).x() - MarkerSize - MarkerGap;
        const int middle = m_editor->mapTo(parentWidget(), QPoint(0, m_editor->height() / 2)).y();
        move(qMax(0, left), middle - MarkerSize / 2);
        raise();
    }

protected:
    bool event(QEvent* event) override
    {
        if (event->type() != QEvent::ToolTip)
            return QWidget::event(event);
        const auto* help = static_cast<QHelpEvent*>(event);
        const QString text = marksText(QT_TRANSLATE_NOOP("ZelFieldMarks", "Default: %1"));
        QToolTip::showText(help->globalPos(), text.arg(m_defaultText(m_editor)), this);
        return true;
    }

    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        drawDot(painter);
    }

private:
    QWidget* m_editor = nullptr;
    const ZelFieldMarks::DefaultText m_defaultText;
};

ZelFieldMarks::ZelFieldMarks(QWidget* page, DefaultText defaultText, ResetField resetField)
    : m_page(page)
    , m_defaultText(std::move(defaultText))
    , m_resetField(std::move(resetField))
{
}

ZelFieldMarks::~ZelFieldMarks() = default;

void ZelFieldMarks::watch(QWidget* editor)
{
    if (!m_differs.emplace(editor, false).second)
        return;
    for (QWidget* holder = editor; holder && holder != m_page; holder = holder->parentWidget()) {
        std::vector<QWidget*>& editors = m_editorsWithin[holder];
        if (editors.empty())
            holder->installEventFilter(this);
        editors.push_back(editor);
    }
}

void ZelFieldMarks::mark(QWidget* editor, bool differs)
{
    // A field that never left its default costs nothing and keeps its own menu.
    if (!differs && m_differs.find(editor) == m_differs.end())
        return;
    watch(editor);
    bool& marked = m_differs[editor];
    if (marked != differs) {
        marked = differs;
        setStyleProperty(editor, "differsFromDefault", differs);
    }
    auto marker = m_markers.find(editor);
    if (marker == m_markers.end() && !differs)
        return;
    if (marker == m_markers.end())
        marker = m_markers.emplace(editor, new ZelFieldMarker(m_page, editor, m_defaultText)).first;
    showMarker(editor, marker->second);
}

void ZelFieldMarks::showMarker(QWidget* editor, ZelFieldMarker* marker) const
{
    // Of a choice between radio buttons, the one chosen carries the mark.
    const auto* radio = qobject_cast<const QRadioButton*>(editor);
    marker->place();
    marker->setVisible(m_differs.at(editor) && editor->isVisibleTo(m_page)
                       && (!radio || radio->isChecked()));
}

QWidget* ZelFieldMarks::labelOf(const QWidget* editor)
{
    const QWidget* parent = editor->parentWidget();
    if (!parent)
        return nullptr;
    for (QLabel* label : parent->findChildren<QLabel*>(Qt::FindDirectChildrenOnly)) {
        if (label->buddy() == editor)
            return label;
    }
    return nullptr;
}

QPixmap ZelFieldMarks::markerPixmap(qreal devicePixelRatio)
{
    QPixmap pixmap(QSize(MarkerSize, MarkerSize) * devicePixelRatio);
    pixmap.setDevicePixelRatio(devicePixelRatio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    drawDot(painter);
    painter.end();
    return pixmap;
}

QString ZelFieldMarks::shownValue(QWidget* editor, const std::vector<QWidget*>& fieldEditors)
{
    if (qobject_cast<const QRadioButton*>(editor)) {
        for (const QWidget* choice : fieldEditors) {
            const auto* radio = qobject_cast<const QRadioButton*>(choice);
            if (radio && radio->isChecked())
                return radio->text();
        }
        return QString();
    }
    const QVariant named = editor->property("valueText");
    if (named.isValid())
        return named.toString();
    if (const auto* spinBox = qobject_cast<const QAbstractSpinBox*>(editor))
        return spinBox->text().trimmed();
    if (const auto* lineEdit = qobject_cast<const QLineEdit*>(editor))
        return lineEdit->text();
    if (const auto* comboBox = qobject_cast<const QComboBox*>(editor))
        return comboBox->currentText();
    if (const auto* slider = qobject_cast<const QAbstractSlider*>(editor))
        return QString::number(slider->value());
    if (const auto* checkBox = qobject_cast<const QCheckBox*>(editor))
        return checkBox->isChecked() ? marksText(QT_TRANSLATE_NOOP("ZelFieldMarks", "on"))
                                     : marksText(QT_TRANSLATE_NOOP("ZelFieldMarks", "off"));
    return editor->toolTip();
}

bool ZelFieldMarks::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::ContextMenu: {
        const auto field = m_differs.find(static_cast<QWidget*>(watched));
        if (field == m_differs.end())
            return false;
        QWidget* editor = field->first;
        const auto* menuEvent = static_cast<QContextMenuEvent*>(event);
        const QPoint position = menuEvent->reason() == QContextMenuEvent::Keyboard
                                    ? editor->mapToGlobal(QPoint(0, editor->height()))
                                    : menuEvent->globalPos();
        showContextMenu(editor, position);
        return true;
    }
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Show:
    case QEvent::Hide:
        for (QWidget* editor : m_editorsWithin[watched]) {
            if (const auto marker = m_markers.find(editor); marker != m_markers.end())
                showMarker(editor, marker->second);
        }
        return false;
    default:
        return false;
    }
}

void ZelFieldMarks::showContextMenu(QWidget* editor, const QPoint& globalPosition)
{
    // A text field keeps its own editing actions above ours.
    auto* lineEdit = qobject_cast<QLineEdit*>(editor);
    if (!lineEdit && qobject_cast<QAbstractSpinBox*>(editor))
        lineEdit = editor->findChild<QLineEdit*>();
    const std::unique_ptr<QMenu> menu(lineEdit ? lineEdit->createStandardContextMenu() : new QMenu);
    if (!menu->isEmpty())
        menu->addSeparator();
    QAction* reset = menu->addAction(marksText(QT_TRANSLATE_NOOP("ZelFieldMarks", "Reset to default")));
    reset->setObjectName(QStringLiteral("resetFieldAction"));
    reset->setEnabled(m_differs[editor]);
    if (menu->exec(globalPosition) == reset)
        m_resetField(editor);
}

} // namespace zel
