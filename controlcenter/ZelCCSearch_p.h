#pragma once

#include <QObject>

#include <vector>

class QLabel;
class QLineEdit;
class QScrollArea;
class QWidget;

namespace zel {

class ZelSettingsPanel;

// The search field at the top of the drawer. As the user types, the fields whose label,
// tool tip or key hold the text are highlighted (property "searchMatch"), pages without
// one fold away and the drawer scrolls to the first; Return or Down takes the keyboard
// there, Escape clears the search.
class ZelCCSearch : public QObject
{
    Q_OBJECT

public:
    // Builds the drawer: the search row above `scrollArea`, both in `drawer`.
    ZelCCSearch(QWidget* drawer, QScrollArea* scrollArea, const std::vector<ZelSettingsPanel*>& pages);
    ~ZelCCSearch() override;

    QLineEdit* field() const;
    // Focuses the field with its text selected, for the next keystroke to replace.
    void focus();
    // Ends the search: every page back in its place, laid out, nothing highlighted.
    void clear();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    Q_DISABLE_COPY_MOVE(ZelCCSearch)

    void search(const QString& text);
    // The highest of the highlighted fields that the keyboard can reach, if any.
    QWidget* firstMatchingField() const;

    const std::vector<ZelSettingsPanel*>& m_pages;
    QScrollArea* m_scrollArea = nullptr;
    QLineEdit* m_field = nullptr;    // child of the drawer
    QLabel* m_noMatch = nullptr;     // child of the drawer
    std::vector<QWidget*> m_matches; // highlighted by the last search
};

} // namespace zel
