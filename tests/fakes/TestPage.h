#pragma once

#include "ZelSettingsPanel.h"

#include <QStringList>

// A settings page whose answers the test sets and which records every call the
// control center makes, as "<page name>.<call>", into its own list and, when given,
// into a journal shared by several pages.
class TestPage : public zel::ZelSettingsPanel
{
    Q_OBJECT

public:
    TestPage(zel::kqDMIApplication* application, const QString& name, QStringList* journal = nullptr);
    ~TestPage() override;

    // Sets the answers and announces them, as an edit on a real page would.
    void setModified(bool modified);
    void setResettable(bool resettable);
    // What the next applyModifications() answers.
    void setRestartNeeded(bool restartNeeded);

    const QStringList& calls() const;
    void clearCalls();

    // Like a real page: loading or applying leaves no pending edit; resetting leaves
    // the defaults as pending edits and announces it.
    void initializeWidget() override;
    bool hasModifications() const override;
    bool applyModifications() override;
    bool canResetContent() const override;
    void resetContent() override;
    bool cancelModifications() override;

Q_SIGNALS:
    void stateChanged();

private:
    void record(const char* call) const;

    QStringList* m_journal = nullptr;
    mutable QStringList m_calls;
    bool m_modified = false;
    bool m_resettable = false;
    bool m_restartNeeded = false;
};
