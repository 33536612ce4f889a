#include "ZelCCSearch_p.h"

#include "ZelFieldMarks.h"
#include "ZelSettingsPanel.h"

#include <QAbstractButton>
#include <QBoxLayout>
#include <QCheckBox>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPalette>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QScrollArea>
#include <QScrollBar>

#include <algorithm>

namespace zel {

namespace {

// Room above the first match, so that its page's title stays in sight.
constexpr int ScrollMargin = 48;

QString searchText(const char* text)
{
    return QCoreApplication::translate("ZelControlCenter", text);
}

// What the user reads of a widget, without the mnemonic's ampersand.
QString readable(const QWidget* widget)
{
    QString text;
    if (const auto* label = qobject_cast<const QLabel*>(widget))
        text = label->text();
    else if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
        text = button->text();
    text.remove(QLatin1Char('&'));
    return text + QLatin1Char('\n') + widget->toolTip();
}

// Case and accents aside, as people type: "memoire" finds "Mémoire".
QString folded(const QString& text)
{
    const QString decomposed = text.normalized(QString::NormalizationForm_D);
    QString result;
    result.reserve(decomposed.size());
    for (const QChar character : decomposed) {
        if (character.category() != QChar::Mark_NonSpacing)
            result.append(character.toCaseFolded());
    }
    return result;
}

// `text` is folded already.
bool matches(const SettingField& field, const QString& text)
{
    if (folded(field.key).contains(text) || folded(readable(field.editor)).contains(text))
        return true;
    const QWidget* label = ZelFieldMarks::labelOf(field.editor);
    return label && folded(readable(label)).contains(text);
}

// What a field is called on its page: its label, or its own text.
QString fieldName(const QWidget* editor)
{
    const QWidget* label = ZelFieldMarks::labelOf(editor);
    QString name;
    if (const auto* labelText = qobject_cast<const QLabel*>(label))
        name = labelText->text();
    else if (const auto* button = qobject_cast<const QAbstractButton*>(editor))
        name = button->text();
    return name.remove(QLatin1Char('&')).remove(QRegularExpression(QStringLiteral("\\s*:$"))).trimmed();
}

void setHighlighted(QWidget* widget, bool highlighted)
{
    if (widget->property("searchMatch").toBool() == highlighted)
        return;
    widget->setProperty("searchMatch", highlighted);
    const bool text = qobject_cast<QLabel*>(widget) || qobject_cast<QRadioButton*>(widget)
                      || qobject_cast<QCheckBox*>(widget);
    // A widget's own sheet reaches its children too: a spin box's context menu, a combo
    // box's list. The selector keeps the highlight on the field.
    if (!highlighted)
        widget->setStyleSheet(QString());
    else if (text)
        widget->setStyleSheet(
            QStringLiteral("[searchMatch=\"true\"] { background-color: rgb(255, 214, 102); color: rgb(27, 27, 36); }"));
    else
        widget->setStyleSheet(QStringLiteral("[searchMatch=\"true\"] { border: 2px solid rgb(255, 179, 0); }"));
}

} // namespace

ZelCCSearch::ZelCCSearch(QWidget* drawer, QScrollArea* scrollArea, const std::vector<ZelSettingsPanel*>& pages)
    : m_pages(pages)
    , m_scrollArea(scrollArea)
    , m_field(new QLineEdit(drawer))
    , m_noMatch(new QLabel(searchText(QT_TRANSLATE_NOOP("ZelControlCenter", "No setting matches")), drawer))
{
    m_field->setObjectName(QStringLiteral("settingsSearch"));
    m_field->setPlaceholderText(searchText(QT_TRANSLATE_NOOP("ZelControlCenter", "Find a setting")));
    // Both over 4.5:1 on the field's white; the hint lighter than what is typed.
    QPalette palette = m_field->palette();
    palette.setColor(QPalette::Text, QColor(27, 27, 36));
    palette.setColor(QPalette::PlaceholderText, QColor(88, 84, 108));
    m_field->setPalette(palette);
    m_field->setAccessibleName(searchText(QT_TRANSLATE_NOOP("ZelControlCenter", "Find a setting")));
    m_field->installEventFilter(this);
    m_noMatch->setObjectName(QStringLiteral("noSettingMatches"));
    m_noMatch->setWordWrap(true);
    m_noMatch->hide();

    // Aligned with the pages below, clear of the scroll bar.
    auto* searchRow = new QVBoxLayout;
    searchRow->setContentsMargins(8, 8, 12, 0);
    searchRow->setSpacing(0);
    searchRow->addWidget(m_field);
    searchRow->addWidget(m_noMatch);
    auto* layout = new QVBoxLayout(drawer);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(searchRow);
    layout->addWidget(scrollArea);
    connect(m_field, &QLineEdit::textChanged, this, &ZelCCSearch::search);
    // The clear button shows only over text; made with the first, it costs a start nothing.
    connect(
        m_field, &QLineEdit::textChanged, m_field, [field = m_field] { field->setClearButtonEnabled(true); },
        Qt::SingleShotConnection);
}

ZelCCSearch::~ZelCCSearch() = default;

QLineEdit* ZelCCSearch::field() const
{
    return m_field;
}

void ZelCCSearch::focus()
{
    m_field->setFocus(Qt::ShortcutFocusReason);
    m_field->selectAll();
}

void ZelCCSearch::clear()
{
    m_field->clear();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
}

bool ZelCCSearch::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != m_field || event->type() != QEvent::KeyPress)
        return false;
    switch (static_cast<const QKeyEvent*>(event)->key()) {
    case Qt::Key_Escape:
        if (m_field->text().isEmpty())
            return false;
        m_field->clear();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Down:
        if (QWidget* match = firstMatchingField()) {
            match->setFocus(Qt::TabFocusReason);
            return true;
        }
        return false;
    default:
        return false;
    }
}

QWidget* ZelCCSearch::firstMatchingField() const
{
    const QWidget* content = m_scrollArea->widget();
    QWidget* first = nullptr;
    for (const ZelSettingsPanel* page : m_pages) {
        for (const SettingField& field : page->settingFields()) {
            QWidget* editor = field.editor;
            if (!editor->property("searchMatch").toBool() || !editor->isEnabled()
                || !(editor->focusPolicy() & Qt::TabFocus))
                continue;
            if (!first || editor->mapTo(content, QPoint()).y() < first->mapTo(content, QPoint()).y())
                first = editor;
        }
    }
    return first;
}

void ZelCCSearch::search(const QString& typed)
{
    const QString text = folded(typed.trimmed());
    for (QWidget* widget : m_matches)
        setHighlighted(widget, false);
    m_matches.clear();

    int firstMatch = -1;
    // A field its page hides for now (one of the other renderer) is named when nothing
    // in sight matches: "No setting matches" would deny that it exists.
    QString hiddenMatch;
    for (ZelSettingsPanel* page : m_pages) {
        bool pageMatches = false;
        if (!text.isEmpty()) {
            for (const SettingField& field : page->settingFields()) {
                if (!matches(field, text))
                    continue;
                if (!field.editor->isVisibleTo(page)) {
                    if (hiddenMatch.isEmpty() && !fieldName(field.editor).isEmpty()) {
                        hiddenMatch = searchText(QT_TRANSLATE_NOOP("ZelControlCenter",
                                                                   "No setting in sight matches. The %2 page shows "
                                                                   "\"%1\" only after another choice on that page."))
                                          .arg(fieldName(field.editor), page->getActionWidget()->text().trimmed());
                    }
                    continue;
                }
                pageMatches = true;
                for (QWidget* widget : {field.editor, ZelFieldMarks::labelOf(field.editor)}) {
                    if (widget && std::find(m_matches.cbegin(), m_matches.cend(), widget) == m_matches.cend()) {
                        setHighlighted(widget, true);
                        m_matches.push_back(widget);
                    }
                }
            }
        }
        page->setVisible(text.isEmpty() || pageMatches);
    }
    m_noMatch->setText(hiddenMatch.isEmpty() ? searchText(QT_TRANSLATE_NOOP("ZelControlCenter", "No setting matches"))
                                             : hiddenMatch);
    m_noMatch->setVisible(!text.isEmpty() && m_matches.empty());
    if (m_matches.empty())
        return;

    // Pages folded away only move the others once the layouts have run.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    const QWidget* content = m_scrollArea->widget();
    for (const QWidget* widget : m_matches)
        firstMatch = firstMatch < 0 ? widget->mapTo(content, QPoint()).y()
                                    : std::min(firstMatch, widget->mapTo(content, QPoint()).y());
    m_scrollArea->verticalScrollBar()->setValue(std::max(0, firstMatch - ScrollMargin));
}

} // namespace zel
