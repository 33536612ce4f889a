#include "ZelStartupWarmUp.h"

#include <QBuffer>
#include <QImageReader>

#if defined(ZEL_HAVE_FONTCONFIG)
#include <fontconfig/fontconfig.h>
#endif

namespace zel {

namespace {

void join(std::thread& thread)
{
    if (thread.joinable())
        thread.join();
}

} // namespace

ZelFontConfigWarmUp::ZelFontConfigWarmUp()
{
#if defined(ZEL_HAVE_FONTCONFIG)
    // The configuration Qt's font database asks for with its own FcInit().
    m_thread = std::thread([] { FcInit(); });
#endif
}

ZelFontConfigWarmUp::~ZelFontConfigWarmUp()
{
    join(m_thread);
}

void ZelFontConfigWarmUp::waitUntilLoaded()
{
    join(m_thread);
}

ZelImageFormatWarmUp::ZelImageFormatWarmUp()
    : m_thread([] {
        // Asked whether it can read a PNG, a reader loads every plug-in to let each
        // claim the format before the built-in reader does.
        QBuffer nothing;
        QImageReader reader(&nothing, "png");
        reader.canRead();
    })
{
}

ZelImageFormatWarmUp::~ZelImageFormatWarmUp()
{
    join(m_thread);
}

} // namespace zel
