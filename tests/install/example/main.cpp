// Embeds the control center as the viewer does: the catalogue, the validation pass,
// then the side panel with one settings page. Prints the page count and exits.

#include <ZelControlCenter.h>
#include <ZelGeneralSettingsPanel.h>
#include <ZelSettingsApplication.h>

#include <QApplication>
#include <QTemporaryDir>

#include <cstdio>

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    const QTemporaryDir folder;
    zel::ZelSettingsApplication application(folder.path());
    zel::ZelControlCenter::InitDefaultSettingsValues(zel::ZelControlCenter::GetApplicationName());
    QString error;
    if (!zel::ZelControlCenter::EnsureSettings(application.getSettings(), error)) {
        std::fprintf(stderr, "%s\n", qUtf8Printable(error));
        return 1;
    }
    zel::ZelControlCenter controlCenter(&application);
    zel::ZelGeneralSettingsPanel page(&application, application.getSettings());
    controlCenter.registerSettingsPanel(&page);
    std::printf("embedded, modified: %s\n", controlCenter.hasModifications() ? "yes" : "no");
    controlCenter.unregisterSettingsPanel(&page, false);
    zel::ZelControlCenter::ClearSettingsValues();
    return 0;
}
