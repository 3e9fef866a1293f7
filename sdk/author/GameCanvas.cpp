#include "sdk/author/GameCanvas.h"

#include <QFontMetricsF>
#include <QMouseEvent>
#include <QPainter>
#include <QRandomGenerator>

#include <algorithm>

namespace
{
constexpr int FrameTime = 16;      // [ms]
constexpr double SmallestText = 8; // [design units]
constexpr int DarkBelow = 110;     // mean grey of 255
constexpr int SampleStep = 16;     // [px] between looks at the background
} // namespace

GameCanvas::GameCanvas(QSizeF DesignSize, QWidget *Container) : CGameArea(Container), m_Design(DesignSize)
{
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    m_Frames.setInterval(FrameTime);
    m_Frames.setTimerType(Qt::PreciseTimer);
    QObject::connect(&m_Frames, &QTimer::timeout, this, [this] { Tick(); });
}

QVariant GameCanvas::Message(const QString &Cmd, QVariant &Info1, QVariant &)
{
    if (Cmd == u"score") return Points();
    if (Cmd == u"start") {
        m_Running = true;
        m_Pace = Pace();
        m_Frames.setInterval(std::min(FrameTime, Paced(FrameTime))); // swifter, but with the same pictures
        LookAtBackground();
        setFocus();
        Started(Info1.toInt());
    } else if (Cmd == u"keypress") {
        // the last act here: the game may have been taken away when it returns
        if (m_Running && isVisible()) KeyPressed(Info1.toInt());
        return {};
    } else if (Cmd == u"changeskin") {
        LookAtBackground();
    } else if (Cmd == u"timeup") {
        m_Running = false;
        TimeWasUp();
    } else if (Cmd == u"unload") {
        m_Running = false;
        m_Frames.stop();
    }
    update();
    return {};
}

QString GameCanvas::Word(const char *Name) const
{
    return m_Framework == nullptr ? QString() : m_Framework->LangString(QString::fromLatin1(Name));
}

std::uint32_t GameCanvas::Seed() const
{
    bool isGiven = false;
    const QString given = m_Framework->GetSetting(QStringLiteral("config"), QStringLiteral("seed"));
    const std::uint32_t seed = given.toUInt(&isGiven);
    return isGiven ? seed : QRandomGenerator::global()->generate();
}

double GameCanvas::Pace() const
{
    constexpr double Whole = 100; // [percent]
    constexpr int Swiftest = 1;
    constexpr int Slowest = 1000;
    bool isGiven = false;
    const int given = m_Framework->GetSetting(QStringLiteral("config"), QStringLiteral("pace")).toInt(&isGiven);
    return isGiven ? std::clamp(given, Swiftest, Slowest) / Whole : 1;
}

void GameCanvas::WriteFoot(QPainter &Painter, const QRectF &Box, const QString &Line, int Level) const
{
    constexpr double Figures = 200; // their part of the width
    Painter.setPen(Dark() ? Qt::white : Qt::black);
    WriteLine(Painter, Box.adjusted(0, 0, -Figures, 0), Qt::AlignLeft | Qt::AlignVCenter, Line, 19, QFont::Medium);
    WriteLine(Painter, Box.adjusted(Box.width() - Figures + 10, 0, 0, 0), Qt::AlignRight | Qt::AlignVCenter,
              QStringLiteral("%1 %2   %3 %4").arg(Word("Level")).arg(Level).arg(Word("Points")).arg(Points()), 19,
              QFont::Bold);
}

void GameCanvas::Progress(int Percent) const { m_Framework->Message(QStringLiteral("progress"), Percent); }

// A sound that can't be played is no reason to end a game.
void GameCanvas::Play(const char *Sound) const
{
    try {
        m_Framework->Message(QStringLiteral("playsound"), QString::fromLatin1(Sound));
    } catch (...) {
    }
}

void GameCanvas::EndGame()
{
    m_Running = false;
    m_Framework->Message(QStringLiteral("gameover"));
}

void GameCanvas::Animate(int Duration)
{
    m_AnimateUntil = std::max(m_AnimateUntil, Now() + Duration);
    if (isVisible()) m_Frames.start();
}

double GameCanvas::Phase(qint64 Since, int Duration) const
{
    return std::clamp(static_cast<double>(Now() - Since) / Duration, 0.0, 1.0);
}

QFont GameCanvas::Font(double Size, QFont::Weight Weight)
{
    QFont font;
    font.setFamilies({QStringLiteral("Inter"), font.family()});
    font.setPixelSize(std::max(1, qRound(Size)));
    font.setWeight(Weight);
    font.setHintingPreference(QFont::PreferNoHinting); // letters keep their places at every scale
    return font;
}

void GameCanvas::WriteLine(QPainter &Painter, const QRectF &Box, int Alignment, const QString &Text, double Size,
                           QFont::Weight Weight)
{
    const double width = QFontMetricsF(Font(Size, Weight)).horizontalAdvance(Text);
    const double fitted = width > Box.width() ? std::max(SmallestText, Size * Box.width() / width - 0.5) : Size;
    Painter.setFont(Font(fitted, Weight));
    Painter.drawText(Box, Alignment | Qt::TextSingleLine | Qt::TextDontClip, Text);
}

double GameCanvas::Scale() const
{
    return std::max(0.01, std::min(width() / m_Design.width(), height() / m_Design.height()));
}

QPointF GameCanvas::Origin() const
{
    return {(width() - m_Design.width() * Scale()) / 2, (height() - m_Design.height() * Scale()) / 2};
}

void GameCanvas::LookAtBackground()
{
    if (m_Framework == nullptr || size().isEmpty()) return;
    QImage ground(size(), QImage::Format_RGB32);
    ground.fill(Qt::white);
    QPainter painter(&ground);
    m_Framework->DrawBackground(&painter);
    painter.end();
    qint64 sum = 0;
    int count = 0;
    for (int y = SampleStep / 2; y < ground.height(); y += SampleStep) {
        for (int x = SampleStep / 2; x < ground.width(); x += SampleStep, ++count) sum += qGray(ground.pixel(x, y));
    }
    m_Dark = count > 0 && sum / count < DarkBelow;
}

void GameCanvas::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    if (m_Framework != nullptr) m_Framework->DrawBackground(&painter);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);
    painter.translate(Origin());
    painter.scale(Scale(), Scale());
    Paint(painter);
}

void GameCanvas::resizeEvent(QResizeEvent *)
{
    LookAtBackground();
    update();
}

void GameCanvas::showEvent(QShowEvent *)
{
    if (!m_Clock.Running()) m_Clock.Start();
    if (Now() < m_AnimateUntil) m_Frames.start();
}

void GameCanvas::hideEvent(QHideEvent *)
{
    m_Clock.Stop();
    m_Frames.stop();
}

void GameCanvas::Tick()
{
    if (Now() >= m_AnimateUntil) m_Frames.stop(); // this picture is the last
    Ticked();
    update();
}

void GameCanvas::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || !m_Running) return event->ignore();
    event->accept();
    Pressed(ToDesign(event->position())); // nothing may follow: the session may be over
}

void GameCanvas::mouseMoveEvent(QMouseEvent *event) { PointedAt(ToDesign(event->position())); }

void GameCanvas::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton) Released();
}
