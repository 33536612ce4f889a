#pragma once

#include <QObject>
#include <QString>

#include <vector>

class QBoxLayout;
class QButtonGroup;
class QWidget;

namespace zel {

class ZelSettingsPanel;

// The registered settings pages, in registration order: each page in the drawer's stack
// and its button in the column of page buttons, one of which is checked at a time. The
// pages belong to whoever registered them.
class ZelCCPages : public QObject
{
    Q_OBJECT

public:
    // `buttons` and `stack` outlive the pages' registration; in the Tab chain the page
    // buttons follow `tabAfter`.
    ZelCCPages(QBoxLayout* buttons, QBoxLayout* stack, QWidget* tabAfter);
    ~ZelCCPages() override;

    // False when `page` is registered already.
    bool add(ZelSettingsPanel* page);
    // Hands `page` and its button back, without a parent; false when it was not registered.
    bool remove(ZelSettingsPanel* page);
    const std::vector<ZelSettingsPanel*>& pages() const;
    // Checks the button of the page the user looks at, the drawer's `content` scrolled to
    // `top` in a view `height` high: the page holding the focus while any of it is in
    // sight, otherwise the page at the top (the one below, where the top falls between two).
    void checkPageInSight(int top, int height, const QWidget* content) const;
    // Checks the button of the registered page holding `widget`, if any.
    void checkPageHolding(QWidget* widget) const;

    bool hasModifications() const;
    // True when a page differs from its defaults; such a page's button carries a mark
    // and the property "differsFromDefault".
    bool markPagesAwayFromDefaults();
    // Every page applies, whatever an earlier one answered; true when one needs a restart.
    bool apply();
    void reset();
    void initialize();

Q_SIGNALS:
    // A page announced a new state, or one was destroyed while registered.
    void stateChanged();
    void pageClicked(const QString& pageName);

private:
    Q_DISABLE_COPY_MOVE(ZelCCPages)

    // The page shown at height `y` of `content`, or where `y` falls between two pages the
    // one below; null below the last.
    ZelSettingsPanel* pageFrom(int y, const QWidget* content) const;
    // The registered page `widget` sits on, if any.
    ZelSettingsPanel* pageHolding(QWidget* widget) const;
    void tabToTheCheckedPage() const;
    // Only the address is left to compare: the page's own destructors have run.
    void forgetPage(QObject* page);

    QBoxLayout* m_buttons = nullptr;
    QBoxLayout* m_stack = nullptr;
    QWidget* m_tabAfter = nullptr;
    QButtonGroup* m_group = nullptr; // child
    std::vector<ZelSettingsPanel*> m_pages;
};

} // namespace zel
