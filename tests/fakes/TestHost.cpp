#include "TestHost.h"

#include "ZelControlCenter.h"

#include <QAbstractButton>
#include <QApplication>
#include <QHBoxLayout>
#include <QPropertyAnimation>

TestHost::TestHost(FakeApplication::Host host)
    : m_application(host)
{
    auto* layout = new QHBoxLayout(&m_window);
    m_controlCenter = new zel::ZelControlCenter(&m_application, &m_window);
    m_mainView = new QWidget(&m_window);
    m_mainView->setMinimumSize(300, 200);
    layout->addWidget(m_controlCenter);
    layout->addWidget(m_controlCenter->settingsWidget());
    layout->addWidget(m_mainView, 1);
    if (FakeGuiPlugin* plugin = m_application.guiPlugin())
        plugin->setMainViewWidget(m_mainView);
    m_window.resize(1100, 600);
    m_window.show();
}

TestHost::~TestHost()
{
    destroyControlCenter();
}

FakeApplication& TestHost::application()
{
    return m_application;
}

zel::ZelControlCenter* TestHost::controlCenter() const
{
    return m_controlCenter;
}

QWidget* TestHost::window()
{
    return &m_window;
}

QWidget* TestHost::mainView() const
{
    return m_mainView;
}

void TestHost::destroyControlCenter()
{
    delete m_controlCenter;
    m_controlCenter = nullptr;
}

void finishSlides(const zel::ZelControlCenter* controlCenter)
{
    const auto animations = controlCenter->findChildren<QPropertyAnimation*>();
    for (QPropertyAnimation* animation : animations) {
        if (animation->state() != QAbstractAnimation::Running)
            continue;
        const bool forward = animation->direction() == QAbstractAnimation::Forward;
        animation->setCurrentTime(forward ? animation->totalDuration() : 0);
    }
}

MessageBoxAnswerer::MessageBoxAnswerer(QMessageBox::StandardButton answer)
    : m_answer(answer)
{
    // The box opens inside a nested event loop: look for it from there.
    connect(&m_timer, &QTimer::timeout, this, &MessageBoxAnswerer::answer);
    m_timer.start(10);
}

const QStringList& MessageBoxAnswerer::titles() const
{
    return m_titles;
}

const QStringList& MessageBoxAnswerer::texts() const
{
    return m_texts;
}

void MessageBoxAnswerer::answer()
{
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (!box)
        return;
    m_titles.append(box->windowTitle());
    m_texts.append(box->text());
    box->button(m_answer)->click();
}
