// torvane-settings: the stand-alone settings editor.

#include "ZelControlCenterVersion.h"
#include "ZelLaunch.h"

#include <cstdio>
#include <cstring>

namespace {

const char Usage[] =
    "Usage: torvane-settings [--help | --version]\n"
    "Opens the Torvane settings editor on the settings of the current user.\n"
    "On the first start it asks for the display type, then opens the editor.\n"
    "When the editor already runs, it is brought to the front instead.\n"
    "\n"
    "  -h, --help     show this help and exit\n"
    "  -v, --version  show the version and exit\n";

bool isOption(const char* argument, const char* shortName, const char* longName)
{
    return std::strcmp(argument, shortName) == 0 || std::strcmp(argument, longName) == 0;
}

} // namespace

int main(int argc, char** argv)
{
    for (int i = 1; i < argc; ++i) {
        if (isOption(argv[i], "-h", "--help")) {
            std::fputs(Usage, stdout);
            return 0;
        }
        if (isOption(argv[i], "-v", "--version")) {
            std::printf("torvane-settings %s\n", ZelControlCenter::Version::GetDescStringMajorMinorReleaseRevision(false));
            return 0;
        }
    }
    int result = launch(argc, argv);
    // 1: the renderer was just chosen; open the editor now rather than nothing.
    if (result == 1)
        result = launch(argc, argv);
    return result;
}
