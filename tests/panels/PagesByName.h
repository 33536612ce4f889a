#pragma once

// Every settings page, by the name the drawer shows, for tests that go over all of them.

#include "ZelAboutSettingsPanel.h"
#include "ZelGeneralSettingsPanel.h"
#include "ZelImportSettingsPanel.h"
#include "ZelRendererSettingsPanel.h"
#include "ZelSimplificationSettingsPanel.h"

#include <memory>

// The Folders page's folder dialog answers "/chosen/shots".
inline std::unique_ptr<zel::ZelSettingsPanel> makePage(const QString& name, zel::kqDMIApplication* app,
                                                       QSettings& settings)
{
    if (name == QLatin1String("Folders")) {
        auto page = std::make_unique<zel::ZelGeneralSettingsPanel>(app, settings);
        page->setFolderChooser([](QWidget*, const QString&, const QString&) { return QString("/chosen/shots"); });
        return page;
    }
    if (name == QLatin1String("Tessellation"))
        return std::make_unique<zel::ZelImportSettingsPanel>(app, settings);
    if (name == QLatin1String("Simplification"))
        return std::make_unique<zel::ZelSimplificationSettingsPanel>(app, settings);
    if (name == QLatin1String("About"))
        return std::make_unique<zel::ZelAboutSettingsPanel>(app, settings);
    return std::make_unique<zel::ZelRendererSettingsPanel>(app, settings);
}
