// Embeds the control center as the viewer does: the catalogue, the validation pass,
// then the side panel with one settings page; then keeps to one instance per user, as
// the editor does, through the socket module installed beside the library. Prints what
// it saw and exits.

#include <ZelControlCenter.h>
#include <ZelGeneralSettingsPanel.h>
#include <ZelSettingsApplication.h>
#include <ZelSingleInstance.h>

#include <QApplication>
#include <QEventLoop>
#include <QTemporaryDir>
#include <QTimer>

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

    zel::ZelSingleInstance instance;
    if (instance.isRunning())
        return 1;
    bool listens = false;
    QEventLoop loop;
    QObject::connect(&instance, &zel::ZelSingleInstance::listening, &loop, [&](bool listening) {
        listens = listening;
        loop.quit();
    });
    QTimer::singleShot(10000, &loop, &QEventLoop::quit);
    instance.startListening();
    loop.exec();
    std::printf("listening: %s\n", listens ? "yes" : "no");
    return listens ? 0 : 1;
}
