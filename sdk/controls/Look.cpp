#include "sdk/controls/Look.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPainter>
#include <QPen>
#include <QPointer>

#include <algorithm>
#include <array>
#include <cmath>

namespace
{
constexpr QColor DarkText(0x12, 0x1C, 0x1A);

class LastInput final : public QObject
{
public:
    bool IsKey = false;
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::KeyPress) IsKey = true;
        if (event->type() == QEvent::MouseButtonPress) IsKey = false;
        return false;
    }
};

double Linear(double Channel)
{
    return Channel <= 0.04045 ? Channel / 12.92 : std::pow((Channel + 0.055) / 1.055, 2.4);
}

// A colour has 256 steps and a picture thousands of pixels: each power is taken once.
double LinearOf(int Step)
{
    static const auto steps = [] {
        std::array<double, 256> made{};
        for (int step = 0; step < 256; ++step)
            made[static_cast<std::size_t>(step)] = Linear(QColor(step, 0, 0).redF());
        return made;
    }();
    return steps[static_cast<std::size_t>(Step)];
}

double Luminance(const QColor &Colour)
{
    return 0.2126 * LinearOf(Colour.red()) + 0.7152 * LinearOf(Colour.green()) + 0.0722 * LinearOf(Colour.blue());
}

double Contrast(double One, double Other) { return (std::max(One, Other) + 0.05) / (std::min(One, Other) + 0.05); }

// The mean of the middle third, where the caption lies.
double LuminanceOfMiddle(const QImage &Picture)
{
    double sum = 0;
    int count = 0;
    for (int y = Picture.height() / 3; y <= Picture.height() * 2 / 3 && y < Picture.height(); ++y)
        for (int x = Picture.width() / 4; x <= Picture.width() * 3 / 4 && x < Picture.width(); ++x, ++count)
            sum += Luminance(Picture.pixelColor(x, y));
    return count == 0 ? 1.0 : sum / count;
}
} // namespace

QImage Look::WithoutKeyColour(const QImage &Picture)
{
    if (Picture.isNull()) return {};
    QImage keyed = Picture.convertToFormat(QImage::Format_ARGB32);
    const QRgb key = keyed.pixel(0, 0) & RGB_MASK;
    for (int y = 0; y < keyed.height(); ++y) {
        auto *const row = reinterpret_cast<QRgb *>(keyed.scanLine(y));
        std::replace_if(
            row, row + keyed.width(), [key](QRgb pixel) { return (pixel & RGB_MASK) == key; }, 0U);
    }
    return keyed.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

QImage Look::StretchedTo(const QImage &Keyed, const QSize &Size)
{
    QImage source = Keyed;
    source.setDevicePixelRatio(1); // pixels are counted here
    if (source.isNull() || Size.isEmpty() || source.size() == Size) return source;
    const double scale = static_cast<double>(Size.height()) / source.height();
    const int sourceEnd = std::min(source.height(), source.width() / 2);
    const int end = std::min(std::max(1, qRound(sourceEnd * scale)), Size.width() / 2);
    if (sourceEnd == 0 || end == 0) return source.scaled(Size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);

    QImage stretched(Size, QImage::Format_ARGB32_Premultiplied);
    stretched.fill(Qt::transparent);
    QPainter painter(&stretched);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    const auto piece = [&](int from, int width, int to, int newWidth) {
        if (width <= 0 || newWidth <= 0) return;
        const QImage part = source.copy(from, 0, width, source.height());
        painter.drawImage(to, 0,
                          part.scaled(newWidth, Size.height(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    };
    piece(0, sourceEnd, 0, end);
    piece(sourceEnd, source.width() - 2 * sourceEnd, end, Size.width() - 2 * end);
    piece(source.width() - sourceEnd, sourceEnd, Size.width() - end, end);
    // A picture of two ends and nothing between them: its middle column fills the gap.
    if (source.width() <= 2 * sourceEnd) piece(source.width() / 2, 1, end, Size.width() - 2 * end);
    return stretched;
}

QColor Look::ReadableOn(const QImage &Keyed)
{
    const double ground = LuminanceOfMiddle(Keyed);
    return Contrast(Luminance(DarkText), ground) >= Contrast(1.0, ground) ? DarkText : QColor(Qt::white);
}

bool Look::KeysAreUsed()
{
    static QPointer<LastInput> input;
    if (!input && qApp != nullptr) {
        input = new LastInput;
        input->setParent(qApp);
        qApp->installEventFilter(input);
    }
    return input && input->IsKey;
}

void Look::DrawFocus(QPainter &Painter, const QRectF &Place, double Radius)
{
    Painter.save();
    Painter.setRenderHint(QPainter::Antialiasing);
    Painter.setBrush(Qt::NoBrush);
    // Whole pixels of either colour, so that one of them stands out on any ground.
    Painter.setPen(QPen(QColor(Qt::white), 4));
    Painter.drawRoundedRect(Place.adjusted(3, 3, -3, -3), Radius, Radius);
    Painter.setPen(QPen(QColor(0x10, 0x20, 0x60), 2));
    Painter.drawRoundedRect(Place.adjusted(3, 3, -3, -3), Radius, Radius);
    Painter.restore();
}

QString Look::ScrollBars()
{
    return QStringLiteral(
        "QScrollBar:vertical { background: rgba(0, 0, 0, 20); width: 10px; margin: 0; border-radius: 5px; }"
        "QScrollBar::handle:vertical { background: rgba(20, 60, 55, 150); min-height: 24px; border-radius: 5px; }"
        "QScrollBar::handle:vertical:hover { background: rgba(20, 60, 55, 210); }"
        "QScrollBar::add-line:vertical, QScrollBar::sub-line:vertical { height: 0; }"
        "QScrollBar::add-page:vertical, QScrollBar::sub-page:vertical { background: none; }");
}
