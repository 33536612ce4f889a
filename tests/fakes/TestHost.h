#pragma once

#include "FakeApplication.h"

#include <QMessageBox>
#include <QStringList>
#include <QTimer>
#include <QWidget>

namespace zel {
class ZelControlCenter;
}

// A shown window laid out as the viewer embeds the control center: the control center,
// its drawer, and the main 3D view side by side. With a viewer application, the view is
// what the GUI plug-in hands out.
class TestHost
{
public:
    explicit TestHost(FakeApplication::Host host);
    ~TestHost();

    FakeApplication& application();
    zel::ZelControlCenter* controlCenter() const;
    QWidget* window();
    QWidget* mainView() const;

    // Deletes the control center now (the host keeps the rest).
    void destroyControlCenter();

private:
    Q_DISABLE_COPY_MOVE(TestHost)

    FakeApplication m_application;
    QWidget m_window;
    QWidget* m_mainView = nullptr;
    zel::ZelControlCenter* m_controlCenter = nullptr;
};

// The widget of that object name under `parent` (a form's part).
template<typename T = QWidget>
T* part(const QWidget* parent, const char* name)
{
    return parent->findChild<T*>(QLatin1String(name));
}

// Runs every slide of the control center (menu, drawer, page scroll) to its end at once.
void finishSlides(const zel::ZelControlCenter* controlCenter);

// Answers every modal message box that opens while it lives with `answer`, and keeps
// the title and text of each.
class MessageBoxAnswerer : public QObject
{
public:
    explicit MessageBoxAnswerer(QMessageBox::StandardButton answer);

    const QStringList& titles() const;
    const QStringList& texts() const;

private:
    void answer();

    QMessageBox::StandardButton m_answer;
    QTimer m_timer;
    QStringList m_titles;
    QStringList m_texts;
};
