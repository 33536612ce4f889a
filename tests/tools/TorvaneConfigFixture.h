#pragma once

// torvane-config as users run it: a real process on real files, with every per-user
// folder in a temporary one.

#include "TestHome.h"
#include "ZelSettings.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

#include <functional>

struct Result
{
    int exitCode = -1;
    QString out;
    QString err;
};

// Runs torvane-config with `arguments`; `environment` entries override the test's own,
// `prepare` readies the process before it starts.
inline Result run(const QStringList& arguments, const QStringList& environment = {},
                  const std::function<void(QProcess&)>& prepare = {})
{
    QProcess process;
    process.setProcessEnvironment(QProcessEnvironment::systemEnvironment());
    if (prepare)
        prepare(process);
    QProcessEnvironment variables = process.processEnvironment();
    for (const QString& entry : environment)
        variables.insert(entry.section('=', 0, 0), entry.section('=', 1));
    process.setProcessEnvironment(variables);
    process.start(TORVANE_CONFIG, arguments);
    if (!process.waitForFinished(30000) || process.exitStatus() != QProcess::NormalExit)
        return {};
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

// The keys, defaults and validators torvane-config works with, in this process.
inline void registerEditorsKeys()
{
    zel::ZelSettings::ClearSettingsValues();
    zel::ZelSettings::InitDefaultSettingsValues(zel::ZelSettings::GetApplicationName());
    zel::ZelSettings::InitPageSettingsValues();
}

// A file saved by a Windows editor: byte-order mark, CRLF, UTF-8, comma lists, keys that
// nothing uses (one a typo), and values the editor would repair.
inline const QByteArray HandEdited = "\xEF\xBB\xBF" "[General]\r\nengine=Deferred\r\nsettingsVersion=2\r\n"
                                     "debuglogtypeblacklist=debug,\"warning, info\"\r\nrecentFiles=a.step, \"b, c.step\"\r\n"
                                     "[Caf\xC3\xA9]\r\nMen\xC3\xBC=\xE2\x82\xAC 5\r\n[DBCache]\r\ncachesize=8000\r\n"
                                     "[Resources]\r\nMaxGPUMemory=1\r\nLODTrianglesCap=60000\r\n";

// The folders of a torvane-config test: the editor's, under a temporary home, and one
// for the files named with --file.
class TorvaneConfigFixture
{
protected:
    // Empties both folders for the next test; false when they could not be made.
    bool emptied()
    {
        if (!m_home.isValid() || !m_folder.isValid())
            return false;
        for (const QString& name : QDir(m_folder.path()).entryList({"Settings.ini*"}, QDir::Files))
            QFile::remove(m_folder.filePath(name));
        QDir(iniPath()).removeRecursively();
        QFile::remove(editorsFile());
        return true;
    }

    QStringList onFile(const QStringList& arguments) const { return QStringList {"--file", iniPath()} + arguments; }
    QString iniPath() const { return m_folder.filePath("Settings.ini"); }
    QString editorsFile() const { return m_home.configPath() + "/TorvaneBoundlessX64/Settings.ini"; }
    // The copies kept beside the file, oldest first.
    QStringList copies() const
    {
        return QDir(m_folder.path()).entryList({"Settings.ini.*.bak"}, QDir::Files, QDir::Name);
    }

    TestHome m_home;
    QTemporaryDir m_folder;
};
