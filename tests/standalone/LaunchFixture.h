#pragma once

// launch and torvane-settings as users meet them: real processes on real files, the
// driver answering the dialogs, every per-user folder in a temporary one.

#include "OtherUser.h"
#include "SettingsFiles.h"
#include "TestHome.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStringList>
#include <QTest>

#include <functional>
#include <memory>

struct Run
{
    int exitCode = -1;
    QString output;
};

const QString SelectorTitle = "seen Torvane - Please select your display type";
const QString FrenchSelectorTitle = "seen Torvane - Veuillez choisir votre type d’affichage";
const QString WindowTitle = "seen Torvane - Control Center";
const QString FatalTitle = "seen Torvane - Fatal Error";
// Opens the editor, reads its notice bar and closes it untouched.
const QStringList OpenAndClose = {"wait:3", "notice", "click:closeButton"};

std::unique_ptr<QProcess> startDriver(const QStringList& answers, const QStringList& arguments = {},
                                      const std::function<void()>& inChild = {})
{
    auto process = std::make_unique<QProcess>();
    if (inChild)
        process->setChildProcessModifier(inChild);
    // "resources/languages" is found from the working folder, as in the viewer.
    process->setWorkingDirectory(ZEL_BUILD_DIR);
    process->start(LAUNCH_DRIVER, arguments.isEmpty() ? answers : answers + QStringList("--") + arguments);
    return process;
}

inline Run finish(QProcess& process, int timeout = 60000)
{
    Run run;
    if (!process.waitForFinished(timeout)) {
        process.kill();
        process.waitForFinished();
    }
    run.exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    run.output = QString::fromUtf8(process.readAllStandardOutput());
    return run;
}

inline Run runDriver(const QStringList& answers, const QStringList& arguments = {})
{
    return finish(*startDriver(answers, arguments));
}

// The lines the driver reported for the notice bar, as one text.
inline QString noticeOf(const Run& run)
{
    QString notices;
    for (const QString& line : run.output.split('\n')) {
        if (line.startsWith("notice "))
            notices += line.mid(7);
    }
    return notices;
}

inline bool waitForLine(QProcess& process, const QString& line, QString& output, int timeout = 30000)
{
    QElapsedTimer timer;
    timer.start();
    while (!output.contains(line)) {
        if (timer.hasExpired(timeout) || process.state() == QProcess::NotRunning)
            return false;
        process.waitForReadyRead(200);
        output += QString::fromUtf8(process.readAllStandardOutput());
    }
    return true;
}

// The test home and the settings in it, for a test class to inherit privately.
class LaunchFixture
{
protected:
    TestHome m_home;
    QString settingsFolder() const { return m_home.configPath() + "/TorvaneBoundlessX64"; }
    QString settingsFile() const { return settingsFolder() + "/Settings.ini"; }
    QString stored(const QString& key) const { return iniValues(settingsFile()).value(key).toString(); }

    // Before each test: a home without settings, as a new account has.
    bool noSettingsYet() const
    {
        QFile::setPermissions(settingsFolder(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        QFile::remove(settingsFolder()); // a file some test put in the folder's place
        QDir(settingsFolder()).removeRecursively();
        return m_home.isValid() && !QFileInfo::exists(settingsFolder());
    }

    void writeSettings(const QByteArray& text)
    {
        QVERIFY(QDir().mkpath(settingsFolder()) && writeBytes(settingsFile(), text));
    }

    // The copies kept beside Settings.ini.
    QStringList copies() const
    {
        return QDir(settingsFolder()).entryList({"Settings.ini.*.bak"}, QDir::Files, QDir::Name);
    }
    QByteArray copyBytes(const QString& copy) const { return fileBytes(settingsFolder() + '/' + copy); }

    // Runs the driver as `user`, who may read the test's folders but own only the ones
    // given to it.
    Run runDriverAs(const OtherUser& user, const QStringList& answers)
    {
        QProcess process;
        process.setWorkingDirectory(ZEL_BUILD_DIR);
        user.prepare(process, m_home);
        process.start(LAUNCH_DRIVER, answers);
        return finish(process);
    }

    // A complete, valid file, as the first start writes it.
    QByteArray firstStartFile()
    {
        return runDriver({"Return"}).exitCode == 1 ? fileBytes(settingsFile()) : QByteArray();
    }
};
