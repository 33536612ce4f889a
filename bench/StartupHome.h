#pragma once

#include <QProcessEnvironment>
#include <QString>
#include <QTemporaryDir>

// Every per-user folder of the measured programs in one temporary root, so no run reads
// or changes the user's own files, with settings the editor takes as they are: no
// first-start question. The runtime folder is in memory, as a desktop session's is.
class StartupHome
{
public:
    StartupHome();

    bool isValid() const;
    QString filePath(const QString& name) const;
    // The same for every program: offscreen, these folders, the probe preloaded.
    QProcessEnvironment environment() const;

private:
    QTemporaryDir m_root;
    QTemporaryDir m_runtime;
    bool m_settingsWritten = false;
};
