#include "ZelControlCenterVersion.h"

// The texts are spelled from the same numbers as the getters, so they cannot disagree.
#define ZEL_CC_VERSION_MAJOR 1
#define ZEL_CC_VERSION_MINOR 1
#define ZEL_CC_VERSION_RELEASE 0
#define ZEL_CC_VERSION_REVISION 85
#define ZEL_CC_VERSION_YEAR 2024
#define ZEL_CC_VERSION_MONTH 1

#define ZEL_CC_TEXT(x) ZEL_CC_TEXT_EXPANDED(x)
#define ZEL_CC_TEXT_EXPANDED(x) #x

#define ZEL_CC_MAJOR_MINOR ZEL_CC_TEXT(ZEL_CC_VERSION_MAJOR) "." ZEL_CC_TEXT(ZEL_CC_VERSION_MINOR)
#define ZEL_CC_MAJOR_MINOR_RELEASE ZEL_CC_MAJOR_MINOR "." ZEL_CC_TEXT(ZEL_CC_VERSION_RELEASE)
#define ZEL_CC_MAJOR_MINOR_RELEASE_REVISION ZEL_CC_MAJOR_MINOR_RELEASE "." ZEL_CC_TEXT(ZEL_CC_VERSION_REVISION)

namespace {

// Two separate texts per form, selected by the argument; equal in this version.
const char majorMinor[] = ZEL_CC_MAJOR_MINOR;
const char majorMinorAlternative[] = ZEL_CC_MAJOR_MINOR;
const char majorMinorRelease[] = ZEL_CC_MAJOR_MINOR_RELEASE;
const char majorMinorReleaseAlternative[] = ZEL_CC_MAJOR_MINOR_RELEASE;
const char majorMinorReleaseRevision[] = ZEL_CC_MAJOR_MINOR_RELEASE_REVISION;
const char majorMinorReleaseRevisionAlternative[] = ZEL_CC_MAJOR_MINOR_RELEASE_REVISION;
const char majorMinorReleaseRevisionDate[] = ZEL_CC_MAJOR_MINOR_RELEASE_REVISION " " ZEL_CC_TEXT(
    ZEL_CC_VERSION_YEAR) "-" ZEL_CC_TEXT(ZEL_CC_VERSION_MONTH);

} // namespace

namespace ZelControlCenter {

quint32 Version::GetMajor()
{
    return ZEL_CC_VERSION_MAJOR;
}

quint32 Version::GetMinor()
{
    return ZEL_CC_VERSION_MINOR;
}

quint32 Version::GetRelease()
{
    return ZEL_CC_VERSION_RELEASE;
}

quint32 Version::GetRevision()
{
    return ZEL_CC_VERSION_REVISION;
}

quint16 Version::GetYear()
{
    return ZEL_CC_VERSION_YEAR;
}

quint8 Version::GetMonth()
{
    return ZEL_CC_VERSION_MONTH;
}

const char* Version::GetDescStringMajorMinor(bool alternative)
{
    return alternative ? majorMinorAlternative : majorMinor;
}

const char* Version::GetDescStringMajorMinorRelease(bool alternative)
{
    return alternative ? majorMinorReleaseAlternative : majorMinorRelease;
}

const char* Version::GetDescStringMajorMinorReleaseRevision(bool alternative)
{
    return alternative ? majorMinorReleaseRevisionAlternative : majorMinorReleaseRevision;
}

const char* Version::GetDescStringMajorMinorReleaseRevisionDate()
{
    return majorMinorReleaseRevisionDate;
}

} // namespace ZelControlCenter
