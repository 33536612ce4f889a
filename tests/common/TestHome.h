#pragma once

#include <QString>
#include <QTemporaryDir>

// Points every per-user folder (home, XDG config/cache/data, temp) at a fresh temporary
// directory for as long as the object lives, so no test ever touches the real home.
// Create it before anything reads those folders, e.g. as a member of the test class.
class TestHome
{
public:
    TestHome();
    ~TestHome();

    bool isValid() const;
    QString path() const;
    QString configPath() const;
    QString tempPath() const;

private:
    Q_DISABLE_COPY_MOVE(TestHome)
    QTemporaryDir m_root;
    QByteArray m_savedHome;
    QByteArray m_savedConfig;
    QByteArray m_savedCache;
    QByteArray m_savedData;
    QByteArray m_savedTmp;
};
