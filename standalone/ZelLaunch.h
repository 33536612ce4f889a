#pragma once

#include "ZelControlCenterExport.h"

class QSettings;
class QString;
class QTranslator;

// Runs the stand-alone settings editor and returns the process's exit code: 0 when
// another editor runs (the command line is handed to it), when the renderer choice is
// cancelled or when the settings cannot be used; 1 when the renderer was just chosen
// (no window opens); otherwise the window's event-loop result.
extern "C" ZEL_CONTROLCENTER_EXPORT int launch(int argc, char** argv);

namespace zel {

// Loads the catalogue of the "language" stored in `settingsFile` into `translator` and
// installs it, falling back to English when that language has none. Returns the code
// in use: the stored one, or "en" after a fall-back.
ZEL_CONTROLCENTER_EXPORT QString loadTranslation(const QString& settingsFile, QTranslator& translator);
// The same, from settings already open on that file.
ZEL_CONTROLCENTER_EXPORT QString loadTranslation(const QSettings& settings, QTranslator& translator);

} // namespace zel
