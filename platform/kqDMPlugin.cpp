#include "kqDMPlugin.h"

namespace zel {

kqDMPlugin::~kqDMPlugin() = default;

kqDMGuiPlugin::~kqDMGuiPlugin() = default;

} // namespace zel
