#pragma once

#include <QString>
#include <QTemporaryDir>

// Points every per-user folder (home, XDG config/cache/data/runtime, temp) at a fresh temporary
// directory, so no test ever touches the real home. Create it before anything reads
// those folders, e.g. as a member of the test class; it lasts for the test program.
class TestHome
{
public:
    TestHome();

    bool isValid() const { return m_root.isValid(); }
    QString path() const { return m_root.path(); }
    QString configPath() const { return path() + QLatin1String("/config"); }
    QString tempPath() const { return path() + QLatin1String("/tmp"); }

private:
    Q_DISABLE_COPY_MOVE(TestHome)
    QTemporaryDir m_root;
};
