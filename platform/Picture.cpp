#include "platform/Picture.h"

#include "platform/Files.h"
#include "platform/GifFrame.h"
#include "platform/JpegPicture.h"
#include "platform/RuntimeError.h"
#include "platform/WholePicture.h"

#include <QBuffer>
#include <QImageReader>

#include <future>
#include <map>

namespace
{
constexpr int LargestSide = 8192;                                           // [px]
constexpr int LargestPicture = LargestSide / 1024 * LargestSide / 1024 * 4; // [MiB], four bytes a pixel

[[noreturn]] void Fail(const QString &Name, const QString &Reason)
{
    throw RuntimeError(481, {}, QStringLiteral("Invalid picture: %1 (%2)").arg(Name, Reason));
}

// A format that is named is read by its own reader alone. Where it has to be found out, every reader there is gets
// loaded to be asked.
QByteArray FormatOf(const QByteArray &Bytes)
{
    if (Bytes.startsWith("GIF8")) return "gif";
    if (Bytes.startsWith("\xFF\xD8")) return "jpeg";
    if (Bytes.startsWith("\x89PNG")) return "png";
    return {};
}

QImage ReadPicture(const QString &Path) { return PictureFromData(ReadFile(FindFile(Path)), Path); }

class PicturesAhead
{
public:
    explicit PicturesAhead(const QStringList &Paths)
    {
        for (const QString &path : Paths)
            m_Due.emplace(path, m_Tasks.emplace_back([path] { return ReadPicture(path); }).get_future());
        m_Reading = std::async(std::launch::async, [this] {
            for (auto &task : m_Tasks) task();
        });
    }
    PicturesAhead(const PicturesAhead &) = delete;
    PicturesAhead &operator=(const PicturesAhead &) = delete;
    ~PicturesAhead() { m_Reading.wait(); }

    /// Invalid where nothing was begun, or it was taken before.
    std::future<QImage> Take(const QString &Path)
    {
        const auto due = m_Due.find(Path);
        if (due == m_Due.end()) return {};
        std::future<QImage> taken = std::move(due->second);
        m_Due.erase(due);
        return taken;
    }

private:
    std::vector<std::packaged_task<QImage()>> m_Tasks;
    std::map<QString, std::future<QImage>> m_Due;
    std::future<void> m_Reading;
};

std::unique_ptr<PicturesAhead> theAhead;
} // namespace

void ReadPicturesAhead(const QStringList &Paths) { theAhead = std::make_unique<PicturesAhead>(Paths); }

QImage PictureFromData(const QByteArray &Bytes, const QString &NameForErrors)
{
    const QByteArray format = FormatOf(Bytes);
    const GifFrame frame = format == "gif" ? FirstFrame(Bytes) : GifFrame{IsWholePicture(Bytes), {}};
    if (!frame.IsWhole) Fail(NameForErrors, QStringLiteral("the file is cut short"));
    QImage known = format == "jpeg" ? JpegPicture(Bytes) : frame.Picture;
    if (!known.isNull()) return known;
    QBuffer buffer;
    buffer.setData(Bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, format);
    reader.setAutoDetectImageFormat(format.isEmpty());
    reader.setDecideFormatFromContent(format.isEmpty());
    QImageReader::setAllocationLimit(LargestPicture);
    const QSize size = reader.size();
    if (size.width() > LargestSide || size.height() > LargestSide) Fail(NameForErrors, QStringLiteral("too large"));
    const QImage picture = reader.read();
    if (picture.isNull()) Fail(NameForErrors, reader.errorString());
    return picture.convertToFormat(QImage::Format_RGB32);
}

// Named, the format is read by the toolkit itself; else it would load every reader there is, to ask each.
QImage OwnPicture(const QString &Name)
{
    QImageReader reader(QStringLiteral(":/pictures/%1.png").arg(Name), "png");
    reader.setAutoDetectImageFormat(false);
    return reader.read();
}

QImage LoadPicture(const QString &Path)
{
    std::future<QImage> ahead = theAhead ? theAhead->Take(Path) : std::future<QImage>();
    return ahead.valid() ? ahead.get() : ReadPicture(Path);
}

QImage PartOf(const QImage &Picture, const QRect &Place)
{
    const double scale = Picture.devicePixelRatio();
    QImage part = Picture.copy(QRectF(QPointF(Place.topLeft()) * scale, QSizeF(Place.size()) * scale).toRect());
    part.setDevicePixelRatio(scale);
    return part;
}
