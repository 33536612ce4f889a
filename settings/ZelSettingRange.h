#pragma once

#include "ZelSettingsExport.h"

#include <QString>
#include <QStringList>

namespace zel {

// What one Settings.ini key accepts: the one table that the validators check against,
// the pages set their fields from and torvane-config quotes when it refuses a value.
// A value inside the range is one the pages show exactly as it is stored.
struct ZEL_SETTINGS_EXPORT SettingRange
{
    enum class Kind {
        Any,     // any text
        Boolean, // "true" or "false"
        Integer, // whole numbers from minimum to maximum, each a multiple of `step`
        Decimal, // numbers from minimum to maximum with at most `decimals` digits after the point
        Choice,  // one of `choices`, exactly
        Folder,  // a folder path
        File,    // a file path
        Ratios,  // five "/"-separated ratios as Decimal, the first the maximum, none above the one before
        Version, // the settings layout version: always the current one, `minimum`
    };

    Kind kind = Kind::Any;
    double minimum = 0;
    double maximum = 0;
    // Integer: a stored value is a whole multiple of it (bytes shown as whole mebibytes).
    double step = 1;
    // Decimal and Ratios: digits after the point that the pages show.
    int decimals = 0;
    QStringList choices;

    // What the key accepts, in English, for a command-line message:
    // "a whole number from 10 to 10240", "true or false", "one of deferred, software".
    QString describe() const;
    // The same for scripts, on one line: "integer 10 10240 step 1", "decimal 0 100
    // decimals 3", "ratios 0.01 1 decimals 2", "boolean", "choice deferred software",
    // "folder", "file", "version 2", "any".
    QString notation() const;
};

} // namespace zel
