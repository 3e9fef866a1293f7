#include "platform/FontList.h"

#ifdef NOGGLE_FONTCONFIG
#include <fontconfig/fontconfig.h>

#include <future>

namespace
{
std::shared_future<FcBool> reading;
} // namespace

void PrepareFontList() { reading = std::async(std::launch::async, FcInit); }

void AwaitFontList()
{
    const std::shared_future<FcBool> begun = reading;
    if (begun.valid()) begun.wait();
}
#else
void PrepareFontList() {}
void AwaitFontList() {}
#endif
