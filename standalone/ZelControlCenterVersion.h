#pragma once

#include "ZelControlCenterExport.h"

#include <QtGlobal>

// Deliberately a namespace of its own beside the class zel::ZelControlCenter.
namespace ZelControlCenter {

// The library's own version, for the embedding application. Every text is static and
// zero-terminated; the caller never frees it.
struct ZEL_CONTROLCENTER_EXPORT Version
{
    static quint32 GetMajor();
    static quint32 GetMinor();
    static quint32 GetRelease();
    static quint32 GetRevision();
    static quint16 GetYear();
    static quint8 GetMonth();

    // `alternative` picks the second of two texts; in this version both are the same.
    static const char* GetDescStringMajorMinor(bool alternative);
    static const char* GetDescStringMajorMinorRelease(bool alternative);
    static const char* GetDescStringMajorMinorReleaseRevision(bool alternative);
    // "major.minor.release.revision year-month", the month without zero padding.
    static const char* GetDescStringMajorMinorReleaseRevisionDate();
};

} // namespace ZelControlCenter
