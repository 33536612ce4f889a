#pragma once

// The stand-alone editor's window with every page over the real Settings.ini of a
// settings folder, opened as launch opens it, for widget tests that link the library.

#include "ZelControlCenter.h"
#include "ZelControlCenterStandAloneWidget.h"
#include "ZelSettingsApplication.h"

#include <QSignalSpy>
#include <QTest>

#include <memory>

struct EditorWindow
{
    std::unique_ptr<zel::ZelSettingsApplication> application;
    std::unique_ptr<zel::ZelControlCenterStandAloneWidget> window;

    // Registers the keys, runs the validation pass over the folder's Settings.ini and
    // shows the window, its menu and drawer open. Check QTest::currentTestFailed() after.
    void open(const QString& settingsFolder)
    {
        using zel::ZelControlCenter;
        application = std::make_unique<zel::ZelSettingsApplication>(settingsFolder);
        ZelControlCenter::InitDefaultSettingsValues(ZelControlCenter::GetApplicationName());
        ZelControlCenter::InitPageSettingsValues();
        QString error;
        QVERIFY2(ZelControlCenter::EnsureSettings(application->getSettings(), error), qPrintable(error));
        window = std::make_unique<zel::ZelControlCenterStandAloneWidget>(application.get(), nullptr,
                                                                         Qt::FramelessWindowHint);
        QSignalSpy built(window.get(), &zel::ZelControlCenterStandAloneWidget::pagesBuilt);
        window->show();
        // As launch does it: asked before the pages exist, the menu opens once they do.
        window->openMenu();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
        QVERIFY(!built.isEmpty() || built.wait());
        QTRY_VERIFY(window->controlCenter()->isSettingsOpen());
    }

    void close()
    {
        window.reset();
        application.reset();
        zel::ZelControlCenter::ClearSettingsValues();
    }
};
