#include "TestPage.h"

#include "kqDMIApplication.h"

TestPage::TestPage(zel::kqDMIApplication* application, const QString& name, QStringList* journal)
    : ZelSettingsPanel(application, application->getSettings())
    , m_journal(journal)
{
    setPanelName(name);
}

TestPage::~TestPage() = default;

void TestPage::setModified(bool modified)
{
    m_modified = modified;
    Q_EMIT stateChanged();
}

void TestPage::setResettable(bool resettable)
{
    m_resettable = resettable;
    Q_EMIT stateChanged();
}

void TestPage::setRestartNeeded(bool restartNeeded)
{
    m_restartNeeded = restartNeeded;
}

const QStringList& TestPage::calls() const
{
    return m_calls;
}

void TestPage::clearCalls()
{
    m_calls.clear();
}

void TestPage::initializeWidget()
{
    record("initializeWidget");
    m_modified = false;
}

bool TestPage::hasModifications() const
{
    record("hasModifications");
    return m_modified;
}

bool TestPage::applyModifications()
{
    record("applyModifications");
    m_modified = false;
    return m_restartNeeded;
}

bool TestPage::canResetContent() const
{
    record("canResetContent");
    return m_resettable;
}

void TestPage::resetContent()
{
    record("resetContent");
    m_modified = true;
    m_resettable = false;
    Q_EMIT stateChanged();
}

bool TestPage::cancelModifications()
{
    record("cancelModifications");
    return false;
}

void TestPage::record(const char* call) const
{
    const QString entry = getPanelName() + QLatin1Char('.') + QLatin1String(call);
    m_calls.append(entry);
    if (m_journal)
        m_journal->append(entry);
}
