// A resource module of any bytes: it loads, or it fails in one sentence; whatever it holds can be asked for, and its
// pictures are drawn or fail in one sentence too.
//
// Start it on a folder with a small module in it, such as nothing.dll and all64.dll of the tests, with
// -max_len=300000.
#include "platform/ResourceModule.h"
#include "platform/RuntimeError.h"
#include "services/ResourcePicture.h"

#include <cstdint>
#include <cstdlib>
#include <functional>

namespace
{
constexpr std::uint32_t HighestId = 32;

void Draw(const std::function<QImage()> &picture)
{
    try {
        if (picture().isNull()) std::abort();
    } catch (const RuntimeError &) {
        return;
    }
}

// Reads each byte, so that a view which leads outside is noticed.
void Read(const std::optional<QByteArrayView> &bytes)
{
    if (bytes && bytes->toByteArray().count('\0') < 0) std::abort();
}

void AskFor(const ResourceModule &module, std::uint32_t id)
{
    const auto find = [&](IconKind kind) {
        return
            [&module, kind](std::uint32_t picture) { return module.Data(static_cast<std::uint16_t>(kind), picture); };
    };
    const auto text = module.String(static_cast<std::uint16_t>(id));
    if (text && text->isEmpty()) std::abort();
    Read(module.Data(QStringLiteral("CUSTOM"), id));
    if (const auto bitmap = module.Data(std::uint16_t{2}, id)) Draw([&] { return BitmapFromResource(*bitmap); });
    if (const auto icon = module.Data(std::uint16_t{14}, id))
        Draw([&] { return IconFromGroup(*icon, IconKind::Icon, find(IconKind::Icon)); });
    if (const auto cursor = module.Data(std::uint16_t{12}, id))
        Draw([&] { return IconFromGroup(*cursor, IconKind::Cursor, find(IconKind::Cursor)); });
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    try {
        const auto module = ResourceModule::FromBytes(bytes);
        for (std::uint32_t id = 0; id <= HighestId; ++id) AskFor(*module, id);
    } catch (const RuntimeError &failure) {
        if (failure.Number() != 193) std::abort();
    }
    return 0;
}
