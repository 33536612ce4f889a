#pragma once

#include <thread>

namespace zel {

// The first frame waits on two things read from disk that no widget code needs to run
// first: the font configuration (several milliseconds of files and XML) and Qt's
// image-format plug-ins, all of which Qt loads before it reads its first image. Each
// class here starts one of them on another core while this one builds the application,
// and joins it when it goes. On a single core they cost what they would have anyway.

// Reads the font configuration. Started before the application object: it touches no
// Qt code. The first window waits for it (`waitUntilLoaded`); a widget that does not
// only has Qt's font database read the configuration a second time, in parallel. Must
// be loaded before the application object goes, which frees the configuration.
class ZelFontConfigWarmUp
{
public:
    ZelFontConfigWarmUp();
    ~ZelFontConfigWarmUp();

    void waitUntilLoaded();

private:
    ZelFontConfigWarmUp(const ZelFontConfigWarmUp&) = delete;
    ZelFontConfigWarmUp& operator=(const ZelFontConfigWarmUp&) = delete;

    std::thread m_thread;
};

// Loads the image-format plug-ins. Needs the application object, and must go before it:
// declare it after. Images read meanwhile wait on Qt's own lock, never load twice.
class ZelImageFormatWarmUp
{
public:
    ZelImageFormatWarmUp();
    ~ZelImageFormatWarmUp();

private:
    ZelImageFormatWarmUp(const ZelImageFormatWarmUp&) = delete;
    ZelImageFormatWarmUp& operator=(const ZelImageFormatWarmUp&) = delete;

    std::thread m_thread;
};

} // namespace zel
