// The reader of rich text: any bytes give a document that can be laid out, or a failure.
#include "platform/RichText.h"
#include "platform/RuntimeError.h"

#include <QGuiApplication>

#include <cstdlib>

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QGuiApplication application(*argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes =
        "{\\rtf" + QByteArray(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    try {
        const auto document = RichText::Read(bytes, QFont());
        document->setTextWidth(400);
        // A character, or the place of a picture, needs a byte at the least.
        if (document->characterCount() > bytes.size() + 1) std::abort();
    } catch (const RuntimeError &) {
        std::abort(); // it began as rich text does: nothing in it may refuse the rest
    }
    return 0;
}
