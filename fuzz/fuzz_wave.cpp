// The reader of wave files: any bytes give a sound or a failure, and no sound is larger than what it came from.
#include "platform/RuntimeError.h"
#include "platform/WaveFile.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    try {
        const WaveSound sound = ReadWave(bytes);
        if (sound.Frames() == 0 || sound.Frames() > size || sound.Rate <= 0) std::abort();
    } catch (const RuntimeError &) {
        return 0;
    }
    return 0;
}
