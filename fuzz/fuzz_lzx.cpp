// The unpacking of compiled help files by itself, since few mutations of a whole file get as far: a frame gives what
// was asked for, at most a frame, or fails in one sentence. The first byte chooses the window and how many frames the
// rest is cut into.
#include "platform/LzxReader.h"
#include "platform/RuntimeError.h"

#include <algorithm>
#include <cstdlib>

namespace
{
void ReadAll(LzxReader &reader, QByteArrayView packed, qsizetype frames)
{
    QByteArray out;
    const qsizetype each = packed.size() / frames;
    for (qsizetype i = 0; i < frames; ++i) {
        const qsizetype wanted = i + 1 < frames ? LzxReader::FrameSize : LzxReader::FrameSize / 2;
        const qsizetype before = out.size();
        reader.ReadFrame(packed.sliced(i * each, each), wanted, out);
        if (out.size() < before + wanted || out.size() > before + LzxReader::FrameSize) std::abort();
    }
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size == 0) return 0;
    const QByteArrayView packed(reinterpret_cast<const char *>(data) + 1, static_cast<qsizetype>(size) - 1);
    try {
        LzxReader reader(std::uint32_t{1} << (15 + (data[0] & 7)));
        const qsizetype frames = 1 + (data[0] >> 3 & 3);
        for (int time = 0; time < 2; ++time) {
            try {
                ReadAll(reader, packed, frames);
            } catch (const RuntimeError &) {
                // after which it begins anew
            }
            reader.Reset();
        }
    } catch (const RuntimeError &) {
        // another window
    }
    return 0;
}
