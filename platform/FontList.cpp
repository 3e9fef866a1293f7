#include "platform/FontList.h"

#ifdef NOGGLE_FONTCONFIG
#include <fontconfig/fontconfig.h>

#include <future>

void PrepareFontList() { static const std::future<FcBool> reading = std::async(std::launch::async, FcInit); }
#else
void PrepareFontList() {}
#endif
