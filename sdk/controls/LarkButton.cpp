#include "sdk/controls/LarkButton.h"

#include "sdk/controls/Caption.h"
#include "sdk/controls/Look.h"

#include <QCache>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLinearGradient>
#include <QPainter>
#include <QPointer>

#include <algorithm>

namespace
{
constexpr int CaptionMargin = 8; // [px], left and right of the caption
constexpr double MaxRadius = 10; // [px], of the plain button's corners
constexpr int HintWidth = 60;    // [px], added to the caption
constexpr int HintHeight = 10;   // [px]
constexpr double Faint = 0.45;   // of a button that can't be pressed

struct PlainLook
{
    QColor Top, Bottom, Edge;
};
const PlainLook PlainUp{QColor(0xFFFFFF), QColor(0xDCE6EA), QColor(0x5E747E)};
const PlainLook PlainHover{QColor(0xFFFFFF), QColor(0xE9F2F5), QColor(0x2F6579)};
const PlainLook PlainDown{QColor(0x9FB9C4), QColor(0xBCD0D8), QColor(0x2B4650)};

bool IsEnter(const QKeyEvent &Key) { return Key.key() == Qt::Key_Return || Key.key() == Qt::Key_Enter; }

// The buttons of all screens share a few pictures of the skin.
QImage Keyed(const QImage &Picture)
{
    constexpr int MostKept = 32;
    static QCache<qint64, QImage> known(MostKept);
    if (const QImage *keyed = known.object(Picture.cacheKey())) return *keyed;
    QImage keyed = Look::WithoutKeyColour(Picture);
    if (!keyed.isNull()) known.insert(Picture.cacheKey(), new QImage(keyed));
    return keyed;
}

double RadiusOf(const QRect &Place) { return std::min(MaxRadius, Place.height() / 2.0 - 1); }

void DrawPlain(QPainter &Painter, const QRect &Place, const PlainLook &Look)
{
    QLinearGradient ground(Place.topLeft(), Place.bottomLeft());
    ground.setColorAt(0, Look.Top);
    ground.setColorAt(1, Look.Bottom);
    Painter.setRenderHint(QPainter::Antialiasing);
    Painter.setPen(Look.Edge);
    Painter.setBrush(ground);
    Painter.drawRoundedRect(QRectF(Place).adjusted(0.5, 0.5, -0.5, -0.5), RadiusOf(Place), RadiusOf(Place));
}

// The second press of a double click is for the button that got the first one. Another button, which the first has
// brought up under the pointer, was chosen by nobody: it would start a game, or close a dialog that nobody has read.
class SecondPress : public QObject
{
public:
    static SecondPress &Only()
    {
        static SecondPress only;
        return only;
    }
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::MouseButtonPress) m_First = watched;
        return event->type() == QEvent::MouseButtonDblClick && m_First != watched;
    }

private:
    QPointer<QObject> m_First;
};
} // namespace

LarkButton::LarkButton(QWidget *Container) : QAbstractButton(Container)
{
    installEventFilter(&SecondPress::Only());
    Look::KeysAreUsed();
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
}

void LarkButton::SetPictureUp(const QImage &Picture)
{
    m_PictureUp = Picture;
    m_KeyedUp = Keyed(Picture);
    update();
}

void LarkButton::SetPictureDown(const QImage &Picture)
{
    m_PictureDown = Picture;
    m_KeyedDown = Keyed(Picture);
    update();
}

void LarkButton::SetCaption(const QString &Caption)
{
    m_Caption = Caption;
    setAccessibleName(Caption);
    update();
}

void LarkButton::SetForeColour(const QColor &Colour)
{
    m_ForeColour = Colour;
    update();
}

void LarkButton::SetFont(double Points, bool Bold) { setFont(Caption::DesignFont(font(), Points, Bold)); }

QSize LarkButton::sizeHint() const
{
    if (!m_PictureUp.isNull()) return m_PictureUp.deviceIndependentSize().toSize();
    return Caption::Needs(font(), m_Caption) + QSize(HintWidth, HintHeight);
}

// A skin may lack the down picture: then the up picture stays and the caption alone moves.
const QImage &LarkButton::KeyedNow() const { return isDown() && !m_KeyedDown.isNull() ? m_KeyedDown : m_KeyedUp; }

QColor LarkButton::CaptionColour() const
{
    if (m_ForeColour.isValid()) return m_ForeColour;
    return Look::ReadableOn(KeyedNow());
}

void LarkButton::DrawFace(QPainter &Painter) const
{
    if (KeyedNow().isNull())
        return DrawPlain(Painter, rect(), isDown() ? PlainDown : underMouse() ? PlainHover : PlainUp);
    const double scale = devicePixelRatioF();
    QImage face = Look::StretchedTo(KeyedNow(), (QSizeF(size()) * scale).toSize());
    face.setDevicePixelRatio(scale);
    Painter.drawImage(0, 0, face);
}

void LarkButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    if (!isEnabled()) painter.setOpacity(Faint);
    DrawFace(painter);
    QRect place = rect().adjusted(CaptionMargin, 1, -CaptionMargin, -1);
    if (isDown()) place.translate(1, 1);
    Caption::Draw(painter, place, m_Caption, CaptionColour(), Qt::AlignCenter, false);
    if (hasFocus() && Look::KeysAreUsed()) Look::DrawFocus(painter, rect(), RadiusOf(rect()) - 2);
}

// Space is the base class's. Enter works alike: the button goes down with the key and is clicked by its release, so
// that a key that was pressed elsewhere and let go here does nothing.
void LarkButton::keyPressEvent(QKeyEvent *event)
{
    update();
    if (!IsEnter(*event)) return QAbstractButton::keyPressEvent(event);
    if (event->isAutoRepeat()) return;
    m_DownByEnter = true;
    setDown(true);
}

void LarkButton::keyReleaseEvent(QKeyEvent *event)
{
    if (!IsEnter(*event)) return QAbstractButton::keyReleaseEvent(event);
    if (event->isAutoRepeat() || !m_DownByEnter) return;
    m_DownByEnter = false;
    if (!isDown()) return;
    setDown(false);
    click();
}

void LarkButton::focusInEvent(QFocusEvent *event)
{
    QAbstractButton::focusInEvent(event);
    update();
}

void LarkButton::focusOutEvent(QFocusEvent *event)
{
    m_DownByEnter = false;
    QAbstractButton::focusOutEvent(event);
    update();
}
